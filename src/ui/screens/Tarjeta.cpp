// Spaces of a card; its look is the theme's.
#include "ui/screens/Tarjeta.h"

#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace zv {

namespace {

constexpr int kMargen = 16;

} // namespace

Tarjeta::Tarjeta(const Clave& titulo, QWidget* padre)
    : QGroupBox(padre), cuerpo_(new QVBoxLayout(this)) {
    Rotular(*this, titulo);
    Escalar(1);
}

void Tarjeta::Escalar(double escala) {
    escala_ = escala;
    const auto px = [escala](int pixeles) { return tema::Px(pixeles, escala); };
    cuerpo_->setContentsMargins(px(kMargen), px(4), px(kMargen), px(14));
    cuerpo_->setSpacing(px(10));
    update();
}

bool Tarjeta::event(QEvent* evento) {
    const bool visto = QGroupBox::event(evento);
    if (evento->type() == QEvent::Polish) {
        // The base class measured itself by the rules of its own name, before it had this one.
        QEvent cambio(QEvent::StyleChange);
        changeEvent(&cambio);
    }
    return visto;
}

// A group box breaks its frame at the title, which here stands within.
void Tarjeta::paintEvent(QPaintEvent*) {
    const auto px = [this](int pixeles) { return tema::Px(pixeles, escala_); };
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(tema::kBorde);
    p.setBrush(Qt::white);
    p.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), px(10), px(10));
    p.setPen(isEnabled() ? tema::kTexto : tema::kTextoApagado);
    p.setFont(tema::Fuente(px(18), true));
    p.drawText(QRect(px(kMargen), px(8), width() - 2 * px(kMargen), px(36)),
               Qt::AlignLeft | Qt::AlignVCenter, title());
}

} // namespace zv
