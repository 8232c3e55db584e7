// The durable store: the money and the open operation in one file, replaced whole at each commit.
#pragma once

#include "simulator/Inventario.h"
#include "simulator/Operacion.h"

#include <QLockFile>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace zv::simulador {

struct Estado {
    QString storeId;
    Inventario inventario;
    // Pieces that a hand has taken out of the boxes and that still count until the reconciling run.
    Mezcla retirado{};
    std::optional<Operacion> abierta;
    // Acknowledged ones, the newest last, so that a late repeat of a start moves nothing.
    std::vector<Operacion> recientes;
};

class Almacen {
  public:
    explicit Almacen(const QString& carpeta);
    virtual ~Almacen() = default;
    Almacen(const Almacen&) = delete;
    Almacen& operator=(const Almacen&) = delete;

    QString Fichero() const;

    // Makes the folder when it is missing and takes it for this process alone. False with a text
    // for people when that fails.
    bool Abrir(QString& error);

    enum class Lectura { Bien, NoExiste, Mal };
    // Mal: unreadable or damaged, with a text for people; the file stays as it is.
    Lectura Leer(Estado& estado, QString& error) const;

    // When it answers true the state survives a kill of the process or of the machine; when false
    // the file still holds the state before it.
    virtual bool Guardar(const Estado& estado, QString& error);

  private:
    QString carpeta_;
    std::unique_ptr<QLockFile> cerrojo_;
};

} // namespace zv::simulador
