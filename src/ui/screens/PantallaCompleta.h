// Base of the full screens: header, body, pager where there is one, and a footer of big buttons.
// It comes up over the whole till and grows with it.
#pragma once

#include "ui/screens/BarraPie.h"
#include "ui/screens/FramelessWindow.h"

namespace zv {

class Paginador;

class PantallaCompleta : public FramelessWindow {
    Q_OBJECT

  public:
    void setVisible(bool visible) override;
    // All ways out come here: the leaving button, the cross, Escape.
    void reject() override;

  protected:
    // nombre: the screen's name, such as "frmCaja". The table outlives the screen.
    PantallaCompleta(const QString& nombre, std::span<const EntradaPie> pie, QWidget* padre);

    BarraPie& Pie() { return *pie_; }
    QToolButton* boton(int indice) const { return pie_->Boton(indice); }
    // At the right of the body, over its height. A screen of two grids places its own.
    Paginador* PonerPaginador();

    // boton(indice) was pressed; the leaving one leaves by itself.
    virtual void Pulsado(int /*indice*/) {}
    // Asked before it leaves, by whichever way; the screen may ask the operator.
    virtual bool PuedeSalir() { return true; }
    // Whether Escape leaves: only where nothing is lost by it, or PuedeSalir asks.
    virtual bool EscapeSale() const { return true; }

    void Colocar() override;
    void keyPressEvent(QKeyEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;

  private:
    BarraPie* pie_;
};

} // namespace zv
