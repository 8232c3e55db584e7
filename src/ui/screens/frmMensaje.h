// The message dialog: a text and one or two buttons. It grows with its text.
#pragma once

#include "ui/screens/FramelessWindow.h"

class QPushButton;
class QScrollArea;

namespace zv {

class EtiquetaTexto;
class Textos;

class frmMensaje final : public FramelessWindow {
    Q_OBJECT

  public:
    explicit frmMensaje(const Textos& textos, QWidget* padre = nullptr);

    void PonerTextoYTitulo(const QString& titulo, const QString& texto);
    // Styles of the platform's message box: 0, 16, 32, 48, 64 one button; 1 accept and cancel;
    // 3, 4 yes and no; 5 retry and cancel. Decides which numbers the buttons give, and shows them.
    void PonerEstilo(int estilo);

    // Number of the button pressed. Escape presses boton(1); closing the window does so only where
    // there are two buttons, and is 0 otherwise: no answer.
    int resultado = 0;

    void reject() override;

  protected:
    void closeEvent(QCloseEvent* evento) override;

  private:
    void CerrarSinPulsar();
    void Pulsar(const QPushButton& boton);
    void Ajustar();

    const Textos& textos_;
    EtiquetaTexto* lbTexto_;
    QScrollArea* zonaTexto_;
    QPushButton* boton_[2];
};

} // namespace zv
