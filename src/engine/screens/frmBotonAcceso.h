// The floating button: a round picture above every other program, with which a cashier who works
// there charges by hand at a touch. It takes the keyboard from nobody. The right button of the
// mouse draws it elsewhere.
#pragma once

#include "engine/BotonAcceso.h"
#include "ui/screens/FramelessWindow.h"

#include <QAbstractButton>
#include <QPixmap>

namespace zv {

class frmBotonAcceso final : public QAbstractButton {
    Q_OBJECT

  public:
    // boton outlives the window. nombre: what stands on a picture has no text; this is what it is
    // called when it is read aloud. Hidden until it is shown.
    frmBotonAcceso(BotonAcceso& boton, const QString& nombre);

  protected:
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
    void paintEvent(QPaintEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;
    bool hitButton(const QPoint& sitio) const override;

  private:
    void Pulsar();
    // puntos: device pixels in one of the window.
    QPixmap Dibujar(bool pulsado, double puntos) const;
    QPoint EnPantalla(const QPoint& sitio) const;
    void VigilarPantallas();

    BotonAcceso& boton_;
    Arrastre arrastre_;
    QPixmap suelto_;
    QPixmap pulsado_;
};

} // namespace zv
