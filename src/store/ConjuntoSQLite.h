// The updatable record set of the SQLite engine: copied rows, one statement for each change.
#pragma once

#include "store/NucleoSQLite.h"

namespace zv {

class ConjuntoSQLite final : public ConjuntoRegistros {
  public:
    // Raises 1 when there is no such table.
    ConjuntoSQLite(NucleoSQLite& nucleo, const QString& tabla);
    ~ConjuntoSQLite() override;

    // Runs the query; its first row becomes the current one.
    void Consultar(const QString& sql, const Parametros& parametros);

    bool Buscar(qint64 clave) override;
    const Fila& Actual() const override;
    bool HayActual() const override { return actual_.has_value(); }
    void Nuevo() override;
    void Poner(const QString& columna, const QVariant& valor) override;
    qint64 ClaveNueva() override;
    void Actualizar() override;
    void Borrar() override;
    void Cerrar() override;

  private:
    struct Cambio {
        int columna; // of the table
        QVariant valor;
    };
    void Insertar();
    void Modificar();
    // The key column's quoted name; raises 1 when the table has no key.
    const QString& Clave() const;
    QVariant ClaveActual() const;
    void SoltarPropia() noexcept;

    NucleoSQLite& nucleo_;
    std::shared_ptr<const TablaSQLite> tabla_;
    QString nombre_;
    std::optional<Fila> actual_;
    std::vector<Cambio> cambios_;
    bool nueva_ = false;
    std::optional<qint64> claveNueva_;
};

} // namespace zv
