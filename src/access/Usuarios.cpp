#include "access/Usuarios.h"

#include "access/Claves.h"
#include "access/PantallaLogin.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "store/Tablas.h"
#include "store/TextoCitado.h"

#include <algorithm>
#include <limits>

namespace zv {

namespace {

// A user to whom another program gave no role has none: he enters nowhere.
qint16 RolDe(const Row& fila) {
    const qint32 rol = fila.LeerLong(columna::kRol, kSinNivel);
    if (rol < std::numeric_limits<qint16>::min() || rol > std::numeric_limits<qint16>::max()) {
        throw errores::Desbordamiento();
    }
    return static_cast<qint16>(rol);
}

std::optional<Usuario> UsuarioDe(const RecordSet& filas) {
    if (!filas.HayActual()) {
        return std::nullopt;
    }
    const Row& fila = filas.Actual();
    return Usuario{fila.LeerTexto(columna::kNombre), fila.LeerTexto(columna::kPassword),
                   RolDe(fila)};
}

QChar Minuscula(QChar letra) {
    return letra >= u'A' && letra <= u'Z' ? QChar(letra.unicode() + (u'a' - u'A')) : letra;
}

} // namespace

QStringList Usuarios::Nombres() {
    QStringList nombres;
    database_.Recorrer(u"SELECT nombre FROM Usuarios ORDER BY nombre"_s, {},
                       [&nombres](const Row& fila) {
                           nombres << fila.LeerTexto(0);
                           return true;
                       });
    return nombres;
}

std::unique_ptr<RecordSet> Usuarios::Abrir(const QString& nombre) {
    return database_.Preparar(u"SELECT * FROM Usuarios WHERE nombre = ?"_s, 1)
        ->AbrirConjunto(tabla::kUsuarios, {Citado(nombre)});
}

std::unique_ptr<RecordSet> Usuarios::Abrir(const QString& nombre, const QString& password) {
    return database_.Preparar(u"SELECT * FROM Usuarios WHERE nombre = ? and password = ?"_s, 2)
        ->AbrirConjunto(tabla::kUsuarios, {Citado(nombre), Citado(password)});
}

std::optional<Usuario> Usuarios::Buscar(const QString& nombre) {
    return UsuarioDe(*Abrir(nombre));
}

std::optional<Usuario> Usuarios::Identificar(const QString& nombre, const QString& password) {
    return UsuarioDe(*Abrir(nombre, password));
}

bool Usuarios::CambiarPassword(const QString& nombre, const QString& password,
                               const QString& nueva) {
    const auto fila = Abrir(nombre, password);
    if (!fila->HayActual()) {
        return false;
    }
    fila->Poner(columna::kPassword, nueva);
    fila->Actualizar();
    fila->Cerrar();
    return true;
}

bool Usuarios::Guardar(const QString& nombre, const QString& password, qint16 rol) {
    const auto fila = Abrir(nombre);
    if (!fila->HayActual()) {
        fila->Nuevo();
        fila->Poner(columna::kNombre, nombre);
    } else if (OtrosAdministradores(nombre) == 0 && rol != kAdministrador) {
        return false;
    }
    fila->Poner(columna::kPassword, password);
    fila->Poner(columna::kRol, rol);
    fila->Actualizar();
    fila->Cerrar();
    return true;
}

void Usuarios::GuardarUsuario(const QString& nombre, const QString& password, qint16 rol) {
    if (Guardar(nombre, password, rol)) {
        dialogos_.MostrarMensaje(textos_.Traduce(texto::kUsuarioGuardadoTitulo),
                                 textos_.Traduce(texto::kUsuarioGuardado));
    } else {
        dialogos_.MostrarMensaje(textos_.Traduce(texto::kErrorGuardadoTitulo),
                                 textos_.Traduce(texto::kUnicoAdministrador));
    }
}

qint32 Usuarios::OtrosAdministradores(const QString& nombre) {
    return database_
        .Consultar(u"SELECT COUNT(*) AS num FROM Usuarios WHERE rol = 0 and nombre <> ?"_s,
                   {Citado(nombre)})
        .at(0)
        .LeerLong(u"num"_s);
}

void Usuarios::Eliminar(const QString& nombre) {
    database_.Ejecutar(u"DELETE FROM Usuarios WHERE nombre = ?"_s, {Citado(nombre)});
}

bool Usuarios::MismoNombre(const QString& uno, const QString& otro) {
    return std::equal(uno.begin(), uno.end(), otro.begin(), otro.end(),
                      [](QChar a, QChar b) { return Minuscula(a) == Minuscula(b); });
}

} // namespace zv
