// The message dialog: a text and one or two buttons. It grows with its text.
#pragma once

#include "ui/Dialogos.h"
#include "ui/screens/FramelessWindow.h"

class QPushButton;

namespace zv {

class Textos;
class ZonaTexto;

class frmMensaje final : public FramelessWindow {
    Q_OBJECT

  public:
    explicit frmMensaje(const Textos& textos, QWidget* padre = nullptr);

    void PonerTextoYTitulo(const QString& titulo, const QString& texto);
    // Decides which answers the buttons give, and shows them.
    void PonerEstilo(EstiloMensaje estilo);

    // The button pressed. Escape presses boton(1); closing the window does so only where there are
    // two buttons, and is no answer otherwise.
    Respuesta resultado = Respuesta::Ninguna;

    void reject() override;

  protected:
    void closeEvent(QCloseEvent* evento) override;

  private:
    void CerrarSinPulsar();
    void Pulsar(const QPushButton& boton);

    const Textos& textos_;
    ZonaTexto* zonaTexto_;
    QPushButton* boton_[2];
};

} // namespace zv
