// The two buttons beside a grid that turn its pages, and two more that go to its ends where a
// screen has them.
#pragma once

#include "ui/screens/Escalable.h"

#include <QFrame>

class QToolButton;

namespace zv {

struct Clave;

class Paginador final : public QFrame, public Escalable {
    Q_OBJECT

  public:
    explicit Paginador(const QString& nombre, QWidget* padre);

    QToolButton* BtnArriba() const { return btnArriba_; }
    QToolButton* BtnAbajo() const { return btnAbajo_; }
    // Adds the two that go to the first and to the last row.
    void PonerExtremos();
    // Beside each other, below the grid instead of beside it.
    void Tumbar();
    QToolButton* BtnTop() const { return btnTop_; }
    QToolButton* BtnBottom() const { return btnBottom_; }
    // Whether there are rows above what is seen, and below.
    void Habilitar(bool arriba, bool abajo);
    void Escalar(double escala) override;

  private:
    QToolButton* Boton(const Clave& clave, const QString& icono);

    QToolButton* btnArriba_;
    QToolButton* btnAbajo_;
    QToolButton* btnTop_ = nullptr;
    QToolButton* btnBottom_ = nullptr;
    bool tumbado_ = false;
    double escala_ = 1;
};

} // namespace zv
