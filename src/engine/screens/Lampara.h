// A lamp of the level indicator: a coloured disc with a mark, since not everybody tells red from
// green.
#pragma once

#include <QColor>
#include <QWidget>

namespace zv {

class Lampara final : public QWidget {
    Q_OBJECT

  public:
    enum class Marca { Bien, Alerta, Critico };

    Lampara(Marca marca, const QString& nombre, QWidget* padre);

    // What the lamp means, read aloud and shown as a hint.
    void PonerSentido(const QString& sentido);

  protected:
    void paintEvent(QPaintEvent* evento) override;

  private:
    Marca marca_;
};

} // namespace zv
