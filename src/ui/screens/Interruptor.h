// A setting that is on or off: a switch with its state in words beside its caption.
#pragma once

#include "ui/screens/Escalable.h"

#include <QAbstractButton>

namespace zv {

class Textos;
struct Clave;

class Interruptor final : public QAbstractButton, public Escalable {
    Q_OBJECT

  public:
    // textos: for the two words of the state.
    Interruptor(const Clave& rotulo, const Textos& textos, QWidget* padre);

    // The state as it is shown.
    const QString& Palabra() const { return isChecked() ? si_ : no_; }
    void Escalar(double escala) override;

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int ancho) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* evento) override;

  private:
    int Px(int pixeles) const;
    // What the switch and its word take at the right.
    int AnchoEstado() const;
    QRect SitioRotulo(int ancho) const;

    QString si_;
    QString no_;
    double escala_ = 1;
};

} // namespace zv
