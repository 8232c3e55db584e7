// A coin or a note to touch, drawn plainly in the colours of the euro pieces.
#pragma once

#include <QAbstractButton>

namespace zv::simulador {

class BotonPieza final : public QAbstractButton {
    Q_OBJECT

  public:
    // `valor` in cents, one of the table of denominations.
    explicit BotonPieza(qint32 valor, QWidget* padre = nullptr);

    qint32 Valor() const { return valor_; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* evento) override;

  private:
    void PintarMoneda(QPainter& pintor) const;
    void PintarBillete(QPainter& pintor) const;

    qint32 valor_;
};

} // namespace zv::simulador
