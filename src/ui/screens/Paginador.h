// The two buttons beside a grid that turn its pages.
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
    void Habilitar(bool arriba, bool abajo);
    void Escalar(double escala) override;

  private:
    QToolButton* Boton(const Clave& clave, const QString& icono);

    QToolButton* btnArriba_;
    QToolButton* btnAbajo_;
};

} // namespace zv
