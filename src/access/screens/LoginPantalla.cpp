#include "access/screens/LoginPantalla.h"

#include "access/Usuarios.h"
#include "access/screens/frmLogin.h"

namespace zv {

LoginPantalla::LoginPantalla(DatabaseEngine& database, Dialogos& dialogos, const Textos& textos,
                             std::function<QWidget*()> padre)
    : database_(database), dialogos_(dialogos), textos_(textos), padre_(std::move(padre)) {}

Identificado LoginPantalla::Identificar(const QString& lugar) {
    Usuarios usuarios(database_, dialogos_, textos_);
    frmLogin pantalla(usuarios, dialogos_, textos_, PadreVisible(padre_));
    pantalla.FormaIdentificacion(lugar == kAuthCambio);
    pantalla.exec();
    return pantalla.Quien();
}

bool LoginPantalla::CambiarContrasena() {
    Usuarios usuarios(database_, dialogos_, textos_);
    frmLogin pantalla(usuarios, dialogos_, textos_, PadreVisible(padre_));
    pantalla.FormaCambioContrasena();
    const bool cambiada = pantalla.exec() == QDialog::Accepted;
    static_cast<void>(pantalla.Quien()); // for its failure alone
    return cambiada;
}

} // namespace zv
