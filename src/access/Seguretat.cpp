#include "access/Seguretat.h"

#include "access/Claves.h"
#include "platform/StringLiterals.h"
#include "store/Tablas.h"

namespace zv {

namespace {

constexpr qint32 kSinProteccion = 0;
constexpr qint32 kSoloAdministradores = 1;
constexpr qint32 kTodos = 2;

} // namespace

Seguretat::Seguretat(DatabaseEngine& database, Log& log, Dialogos& dialogos, const Textos& textos,
                     const Clock& reloj)
    : database_(database), log_(log), dialogos_(dialogos), textos_(textos), reloj_(reloj) {}

bool Seguretat::ValidarUsuari(qint16 nivel, const QString& lugar) {
    if (Recargar_) {
        CargarTipo();
    }
    if (TipoS_ == kSinProteccion) {
        Nivel_ = 0;
    } else if (TipoS_ < nivel) {
        Nivel_ = static_cast<qint16>(TipoS_);
    } else {
        const Identificado quien = Preguntar(lugar);
        Nom_ = quien.nombre;
        Nivel_ = quien.nivel;
    }
    if (Nivel_ > nivel) {
        // Whoever has cancelled knows it.
        if (!Nom_.isEmpty()) {
            dialogos_.MostrarMensaje(textos_.Traduce(texto::kTituloUsuarios),
                                     textos_.Traduce(texto::kNoAutorizado));
        }
        return false;
    }
    ApuntarAccess(lugar);
    return true;
}

Identificado Seguretat::Preguntar(const QString& lugar) const {
    return login_ != nullptr ? login_->Identificar(lugar) : Identificado{};
}

void Seguretat::ApuntarAccess(const QString& lugar) {
    if (TipoS_ == kSinProteccion) {
        return;
    }
    const auto accesos = database_.AbrirTabla(tabla::kAccesos);
    accesos->Nuevo();
    accesos->Poner(columna::kFecha, reloj_.Ahora());
    accesos->Poner(columna::kUsuario, GetNom());
    accesos->Poner(columna::kLugar, lugar);
    accesos->Actualizar();
    accesos->Cerrar();
    log_.LogLinea(u"APUNTA_ACCESS_"_s + GetNom() + QLatin1Char('-') + lugar);
}

qint32 Seguretat::GetTipoS() {
    if (Recargar_) {
        CargarTipo();
    }
    return TipoS_;
}

void Seguretat::CargarTipo() {
    qint32 tipo = kSinProteccion;
    database_.Recorrer(
        u"SELECT DISTINCT Rol, Nombre FROM Usuarios WHERE Rol in (0, 2) ORDER BY 1 DESC"_s, {},
        [&](const Row& primera) {
            tipo = primera.LeerLong(0) == 2 ? kTodos : kSoloAdministradores;
            Nom_ = primera.LeerTexto(1);
            return false;
        });
    TipoS_ = tipo;
    Recargar_ = false;
}

} // namespace zv
