#include "app/screens/PantallasPrograma.h"

#include "access/Usuarios.h"
#include "access/screens/frmUsuarios.h"

namespace zv {

void PantallasPrograma::PonerEntorno(Entorno& entorno) {
    entorno_ = &entorno;
    login_.emplace(entorno.Database(), entorno.dialogos, entorno.textos, padre_);
    entorno.seguretat.PonerLogin(*login_);
}

bool PantallasPrograma::Existe(Pantalla pantalla) const {
    switch (pantalla) {
    case Pantalla::CambioContrasena:
    case Pantalla::Usuarios:
        return true;
    case Pantalla::BotonAcceso:
        return static_cast<bool>(botonAcceso_);
    case Pantalla::Cobros:
    case Pantalla::Incidencias:
    case Pantalla::Caja:
    case Pantalla::Historial:
    case Pantalla::Configuracion:
        break;
    }
    return false;
}

void PantallasPrograma::Abrir(Pantalla pantalla) {
    if (pantalla == Pantalla::CambioContrasena) {
        login_->CambiarContrasena();
    } else if (pantalla == Pantalla::Usuarios) {
        AbrirUsuarios();
    } else if (pantalla == Pantalla::BotonAcceso && botonAcceso_) {
        botonAcceso_();
    }
}

void PantallasPrograma::AbrirUsuarios() {
    Usuarios usuarios(entorno_->Database(), entorno_->dialogos, entorno_->textos);
    frmUsuarios pantalla(usuarios, entorno_->seguretat, entorno_->dialogos, entorno_->textos,
                         padre_ ? padre_() : nullptr);
    pantalla.exec();
    pantalla.LanzarFallo();
}

bool PantallasPrograma::ValidarUsuari(qint16 nivel, const QString& lugar) {
    return entorno_->seguretat.ValidarUsuari(nivel, lugar);
}

} // namespace zv
