// The floating button apart from its window: where it stands, and what a press of it does.
#pragma once

#include "engine/VentanaPrincipal.h"

#include <QPoint>
#include <QRect>
#include <QString>

#include <functional>

namespace zv {

class BotonAcceso {
  public:
    // Both outlive the button.
    BotonAcceso(VentanaPrincipal& ventana, std::function<void(const QString&)> cobroManual)
        : ventana_(ventana), cobroManual_(std::move(cobroManual)) {}

    // A press with the left button: brings a minimised main window up and charges by hand. It comes
    // back when the charge has ended; a press meanwhile does nothing.
    void Pulsar();

    // Where the button stands when it comes up, in pixels of a screen whose corner is at 0,0: in
    // the band of the main screen's header, five times its own width from the right edge.
    static QPoint SitioInicial(int anchoPantalla, const QSize& boton);
    // The place nearest to that one at which all of the button is on the screen.
    static QPoint Entero(const QPoint& sitio, const QSize& boton, const QRect& pantalla);

  private:
    VentanaPrincipal& ventana_;
    std::function<void(const QString&)> cobroManual_;
    bool pulsado_ = false;
};

} // namespace zv
