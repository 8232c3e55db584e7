// Drawing of the switch: its knob, its ground and its word change together, so that none of them
// alone has to be told from colours.
#include "ui/screens/Interruptor.h"

#include "ui/Claves.h"
#include "ui/Textos.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QPainter>

namespace zv {

namespace {

constexpr QSize kPista(60, 32);
constexpr int kHueco = 10;
constexpr int kMargen = 8;
constexpr int kAlto = 52;

} // namespace

Interruptor::Interruptor(const Clave& rotulo, const Textos& textos, QWidget* padre)
    : QAbstractButton(padre), si_(textos.Traduce(texto::kInterruptorSi)),
      no_(textos.Traduce(texto::kInterruptorNo)) {
    setCheckable(true);
    Rotular(*this, rotulo);
    QSizePolicy politica(QSizePolicy::Expanding, QSizePolicy::Minimum);
    politica.setHeightForWidth(true);
    setSizePolicy(politica);
    const auto decir = [this] { setAccessibleDescription(Palabra()); };
    connect(this, &QAbstractButton::toggled, this, decir);
    decir();
}

void Interruptor::Escalar(double escala) {
    escala_ = escala;
    updateGeometry();
    update();
}

int Interruptor::Px(int pixeles) const {
    return tema::Px(pixeles, escala_);
}

int Interruptor::AnchoEstado() const {
    const int palabra =
        qMax(fontMetrics().horizontalAdvance(si_), fontMetrics().horizontalAdvance(no_));
    // The word is bold while the switch is on.
    return palabra * 11 / 10 + Px(kHueco) + Px(kPista.width());
}

QRect Interruptor::SitioRotulo(int ancho) const {
    return {Px(kMargen), 0, qMax(1, ancho - 2 * Px(kMargen) - Px(kHueco) - AnchoEstado()),
            height()};
}

int Interruptor::heightForWidth(int ancho) const {
    const QRect sitio(0, 0, SitioRotulo(ancho).width(), QWIDGETSIZE_MAX);
    const int rotulo = fontMetrics().boundingRect(sitio, Qt::TextWordWrap, text()).height();
    return qMax(Px(kAlto), rotulo + Px(kMargen));
}

QSize Interruptor::sizeHint() const {
    const int ancho =
        fontMetrics().boundingRect(text()).width() + 2 * Px(kMargen) + Px(kHueco) + AnchoEstado();
    return {ancho, Px(kAlto)};
}

QSize Interruptor::minimumSizeHint() const {
    int palabra = 0;
    const auto palabras = text().split(QLatin1Char(' '));
    for (const QString& cada : palabras) {
        palabra = qMax(palabra, fontMetrics().horizontalAdvance(cada));
    }
    return {palabra + 2 * Px(kMargen) + Px(kHueco) + AnchoEstado(), Px(kAlto)};
}

void Interruptor::paintEvent(QPaintEvent*) {
    using namespace tema;
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QColor tinta = isEnabled() ? kTexto : kTextoApagado;
    if (isDown()) {
        p.setPen(Qt::NoPen);
        p.setBrush(kPulsado);
        p.drawRoundedRect(rect(), Px(8), Px(8));
    }

    p.setPen(tinta);
    p.drawText(SitioRotulo(width()), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextWordWrap, text());

    QRectF pista(QPointF(), QSizeF(Px(kPista.width()), Px(kPista.height())));
    pista.moveCenter(QPointF(width() - Px(kMargen) - pista.width() / 2, height() / 2.0));
    QRect palabra(0, 0, AnchoEstado() - Px(kPista.width()) - Px(kHueco), height());
    palabra.moveRight(qRound(pista.left()) - Px(kHueco));
    QFont fuente = font();
    fuente.setBold(isChecked());
    p.setFont(fuente);
    p.drawText(palabra, Qt::AlignVCenter | Qt::AlignRight, Palabra());

    p.setPen(QPen(isEnabled() ? kTexto : kTextoApagado, 2));
    p.setBrush(isChecked() && isEnabled() ? kVerde : QColor(Qt::white));
    pista.adjust(1, 1, -1, -1);
    p.drawRoundedRect(pista, pista.height() / 2, pista.height() / 2);
    const qreal radio = pista.height() / 2 - Px(5);
    const qreal x =
        isChecked() ? pista.right() - pista.height() / 2 : pista.left() + pista.height() / 2;
    p.setBrush(isChecked() ? tinta : QColor(Qt::white));
    p.drawEllipse(QPointF(x, pista.center().y()), radio, radio);

    if (hasFocus()) {
        p.setPen(QPen(kResalte, 3));
        p.setBrush(Qt::NoBrush);
        p.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), Px(8), Px(8));
    }
}

} // namespace zv
