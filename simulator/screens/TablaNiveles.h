// The levels of all denominations as bars: pieces in the recycler against the unit's capacity, with
// marks at the optimal level and at the target, and the pieces in the box.
#pragma once

#include "simulator/Inventario.h"

#include <QWidget>

namespace zv::simulador {

// Colour of a level's state: normal, alert, critical.
QColor ColorEstado(int estado);
// A bar filled to a share of 0 to 1.
void PintarBarra(QPainter& pintor, const QRectF& barra, qreal lleno, const QColor& color);

class TablaNiveles final : public QWidget {
    Q_OBJECT

  public:
    explicit TablaNiveles(QWidget* padre = nullptr);
    void Mostrar(const Inventario& inventario, const CapacidadCajones& capacidad);

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* evento) override;

  private:
    Inventario inventario_;
    CapacidadCajones capacidad_;
};

// One collection box: its share of room taken, as a bar.
class BarraCajon final : public QWidget {
    Q_OBJECT

  public:
    explicit BarraCajon(QWidget* padre = nullptr);
    // Pieces in the box of those that fit.
    void Mostrar(int piezas, int caben, bool retirado);
    QSize minimumSizeHint() const override { return {80, 24}; }

  protected:
    void paintEvent(QPaintEvent* evento) override;

  private:
    int piezas_ = 0;
    int caben_ = 1;
    bool retirado_ = false;
};

} // namespace zv::simulador
