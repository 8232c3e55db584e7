#include "access/screens/LoginPantalla.h"

#include "access/Usuarios.h"
#include "access/screens/frmLogin.h"

namespace zv {

LoginPantalla::LoginPantalla(DatabaseEngine& database, Dialogos& dialogos, const Textos& textos,
                             std::function<QWidget*()> padre)
    : database_(database), dialogos_(dialogos), textos_(textos), padre_(std::move(padre)) {}

Identificado LoginPantalla::Identificar(const QString& lugar) {
    Usuarios usuarios(database_, dialogos_, textos_);
    frmLogin pantalla(usuarios, dialogos_, textos_, padre_ ? padre_() : nullptr);
    pantalla.FormaIdentificacion(lugar == kAuthCambio);
    pantalla.exec();
    return pantalla.Quien();
}

void LoginPantalla::CambiarContrasena() {
    Usuarios usuarios(database_, dialogos_, textos_);
    frmLogin pantalla(usuarios, dialogos_, textos_, padre_ ? padre_() : nullptr);
    pantalla.FormaCambioContrasena();
    pantalla.exec();
    static_cast<void>(pantalla.Quien()); // for its failure alone
}

} // namespace zv
