// The table of users: all that the program reads and writes of it. Names and passwords compare as
// the table does, without regard to the case of plain letters. A quote in one of them breaks its
// statement (see store/TextoCitado.h). Every failure of the database passes to the caller.
#pragma once

#include "store/DatabaseEngine.h"
#include "ui/Dialogos.h"
#include "ui/Textos.h"

#include <QStringList>

#include <memory>
#include <optional>

namespace zv {

inline constexpr qint16 kAdministrador = 0;
inline constexpr qint16 kAutorizado = 1;
inline constexpr qint16 kUsuario = 2;

// Lengths that the table takes, in characters.
inline constexpr int kMaximoNombre = 20;
inline constexpr int kMaximoPassword = 40;
// A new password has at least as many.
inline constexpr int kMinimoPassword = 4;

struct Usuario {
    QString nombre;
    QString password; // plain text, as it was typed
    qint16 rol = 0;
};

class Usuarios {
  public:
    Usuarios(DatabaseEngine& database, Dialogos& dialogos, const Textos& textos)
        : database_(database), dialogos_(dialogos), textos_(textos) {}

    // Of all, in their order.
    QStringList Nombres();
    std::optional<Usuario> Buscar(const QString& nombre);
    // The user of that name and password, if there is one.
    std::optional<Usuario> Identificar(const QString& nombre, const QString& password);
    // False when no user has that name and old password any more.
    bool CambiarPassword(const QString& nombre, const QString& password, const QString& nueva);

    // Adds the user, or changes password and role of the one who has that name; tells the operator
    // how that went. The last administrator keeps his role, and his password with it.
    void GuardarUsuario(const QString& nombre, const QString& password, qint16 rol);
    // How many administrators there are besides that user.
    qint32 OtrosAdministradores(const QString& nombre);
    void Eliminar(const QString& nombre);

    // Whether the table takes both for one name.
    static bool MismoNombre(const QString& uno, const QString& otro);

  private:
    std::unique_ptr<RecordSet> Abrir(const QString& nombre);
    std::unique_ptr<RecordSet> Abrir(const QString& nombre, const QString& password);
    bool Guardar(const QString& nombre, const QString& password, qint16 rol);

    DatabaseEngine& database_;
    Dialogos& dialogos_;
    const Textos& textos_;
};

} // namespace zv
