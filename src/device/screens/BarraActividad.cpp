#include "device/screens/BarraActividad.h"

#include "ui/screens/Tema.h"

#include <QPainter>

namespace zv {

namespace {

constexpr int kAlto = 8;
constexpr int kIntervalo = 80; // ms
constexpr int kPasos = 24;     // for one way along the bar

} // namespace

BarraActividad::BarraActividad(QWidget* padre) : QWidget(padre) {
    setFixedHeight(kAlto);
    paso_.setInterval(kIntervalo);
    connect(&paso_, &QTimer::timeout, this, [this] {
        posicion_ = (posicion_ + 1) % (2 * kPasos);
        update();
    });
}

void BarraActividad::showEvent(QShowEvent* evento) {
    posicion_ = 0;
    paso_.start();
    QWidget::showEvent(evento);
}

void BarraActividad::hideEvent(QHideEvent* evento) {
    paso_.stop();
    QWidget::hideEvent(evento);
}

void BarraActividad::paintEvent(QPaintEvent* /*evento*/) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(tema::kBorde);
    const double radio = kAlto / 2.0;
    p.drawRoundedRect(rect(), radio, radio);
    // There and back again.
    const int paso = posicion_ < kPasos ? posicion_ : 2 * kPasos - posicion_;
    const double largo = width() / 4.0;
    p.setBrush(tema::kVerde);
    p.drawRoundedRect(QRectF((width() - largo) * paso / kPasos, 0, largo, kAlto), radio, radio);
}

} // namespace zv
