// Each dialog is made for its call and gone with it.
#include "ui/screens/DialogosPantalla.h"

#include "platform/StringLiterals.h"
#include "ui/Claves.h"
#include "ui/Importes.h"
#include "ui/TecladoPantalla.h"
#include "ui/Textos.h"
#include "ui/screens/FramelessWindow.h"
#include "ui/screens/frmCash.h"
#include "ui/screens/frmImpresio.h"
#include "ui/screens/frmMensaje.h"
#include "ui/screens/frmTexto.h"

#include <QMessageBox>
#include <QPushButton>

namespace zv {

DialogosPantalla::DialogosPantalla(QString programa, const Textos& textos, const Importes& importes,
                                   std::function<QWidget*()> padre)
    : programa_(std::move(programa)), textos_(textos), importes_(importes),
      padre_(std::move(padre)), abrirTeclado_([] { AbrirTecladoPantalla(); }) {}

QWidget* DialogosPantalla::Padre() const {
    return PadreVisible(padre_);
}

Respuesta DialogosPantalla::MostrarMensaje(const QString& titulo, const QString& texto,
                                           EstiloMensaje estilo) {
    frmMensaje pantalla(textos_, Padre());
    QString cabecera = programa_.mid(2);
    if (!titulo.isEmpty()) {
        cabecera += u" - "_s + titulo;
    }
    pantalla.PonerTextoYTitulo(cabecera, texto);
    pantalla.PonerEstilo(estilo);
    pantalla.exec();
    return pantalla.resultado;
}

QString DialogosPantalla::PedirTexto(const QString& titulo, const QString& texto,
                                     const QString& porDefecto) {
    frmTexto pantalla(textos_, abrirTeclado_, Padre());
    pantalla.Preparar(titulo, texto, porDefecto);
    pantalla.exec();
    return pantalla.resultado == 1 ? pantalla.Texto() : QString();
}

Currency DialogosPantalla::PedirImporte(const QString& titulo, const QString& prompt,
                                        Currency porDefecto, bool* sinImporte, bool& cancelado) {
    frmCash pantalla(textos_, importes_, Padre());
    pantalla.Preparar(titulo, prompt, porDefecto, sinImporte != nullptr);
    pantalla.exec();
    const Currency importe = pantalla.Importe();
    cancelado = pantalla.cancelado;
    if (sinImporte != nullptr) {
        *sinImporte = pantalla.elegidoSinImporte;
    }
    return importe;
}

Impresion DialogosPantalla::ElegirImpresion() {
    frmImpresio pantalla(textos_, Padre());
    pantalla.exec();
    return static_cast<Impresion>(pantalla.eleccion);
}

void DialogosPantalla::CajaSimple(const QString& texto) {
    QMessageBox caja(Padre());
    caja.setWindowTitle(programa_);
    caja.setTextFormat(Qt::PlainText);
    caja.setText(texto);
    caja.addButton(textos_.Traduce(texto::kAceptar), QMessageBox::AcceptRole);
    VentanaEncima(caja, true);
    caja.exec();
}

} // namespace zv
