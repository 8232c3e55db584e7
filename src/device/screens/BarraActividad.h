// A thin bar with a light that walks along it: something is going on, nobody knows how long. It
// moves a few times a second, so that it costs nothing while a customer looks for coins.
#pragma once

#include <QTimer>
#include <QWidget>

namespace zv {

class BarraActividad final : public QWidget {
    Q_OBJECT

  public:
    explicit BarraActividad(QWidget* padre = nullptr);

  protected:
    void paintEvent(QPaintEvent* evento) override;
    void showEvent(QShowEvent* evento) override;
    void hideEvent(QHideEvent* evento) override;

  private:
    QTimer paso_;
    int posicion_ = 0;
};

} // namespace zv
