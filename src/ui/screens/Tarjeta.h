// A card: what belongs together on a full screen, under one title.
#pragma once

#include "ui/screens/Escalable.h"

#include <QGroupBox>

class QVBoxLayout;

namespace zv {

struct Clave;

class Tarjeta final : public QGroupBox, public Escalable {
    Q_OBJECT

  public:
    // titulo names the card, for the language file too.
    Tarjeta(const Clave& titulo, QWidget* padre);

    QVBoxLayout* Cuerpo() { return cuerpo_; }
    void Escalar(double escala) override;

  protected:
    bool event(QEvent* evento) override;
    void paintEvent(QPaintEvent* evento) override;

  private:
    QVBoxLayout* cuerpo_;
    double escala_ = 1;
};

} // namespace zv
