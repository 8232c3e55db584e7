// A lamp of the level indicator: a coloured disc with a mark, since not everybody tells red from
// green.
#pragma once

#include <QColor>
#include <QWidget>

namespace zv {

struct Clave;

class Lampara final : public QWidget {
    Q_OBJECT

  public:
    enum class Marca { Bien, Alerta, Critico };

    // clave: its name, and what it means, read aloud and shown as a hint.
    Lampara(Marca marca, const Clave& clave, QWidget* padre);

  protected:
    void paintEvent(QPaintEvent* evento) override;

  private:
    Marca marca_;
};

} // namespace zv
