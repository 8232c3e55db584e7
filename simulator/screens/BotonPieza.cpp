// Painting of the pieces; their relative sizes are those of the real ones.
#include "simulator/screens/BotonPieza.h"

#include "platform/StringLiterals.h"
#include "simulator/Dinero.h"
#include "simulator/screens/Textos.h"
#include "ui/screens/Tema.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>

namespace zv::simulador {

namespace {

const QColor kCobre(160, 86, 48);
const QColor kOro(221, 178, 69);
const QColor kPlata(190, 196, 203);

struct Aspecto {
    qint32 valor;
    qreal tamaño; // of the largest piece of its class
    QColor color;
    QColor centro; // coins: the inner disc; notes: the band
    bool textoClaro;
};

const Aspecto& AspectoDe(qint32 valor) {
    static const std::array<Aspecto, kCuantas> kAspectos{{
        {1, 0.74, kCobre, kCobre, true},
        {2, 0.80, kCobre, kCobre, true},
        {5, 0.87, kCobre, kCobre, true},
        {10, 0.80, kOro, kOro, false},
        {20, 0.88, kOro, kOro, false},
        {50, 0.95, kOro, kOro, false},
        {100, 0.92, kOro, kPlata, false},
        {200, 1.00, kPlata, kOro, false},
        {500, 0.80, QColor(148, 156, 163), QColor(117, 125, 133), false},
        {1000, 0.84, QColor(190, 66, 60), QColor(150, 44, 40), true},
        {2000, 0.88, QColor(58, 106, 168), QColor(36, 76, 130), true},
        {5000, 0.92, QColor(232, 146, 62), QColor(205, 114, 28), false},
        {10000, 0.96, QColor(104, 168, 92), QColor(75, 136, 64), false},
        {20000, 1.00, QColor(226, 193, 74), QColor(196, 160, 36), false},
    }};
    return kAspectos.at(Indice(valor).value_or(0));
}

constexpr QSize kMoneda(72, 72);
constexpr QSize kBillete(132, 66);

} // namespace

BotonPieza::BotonPieza(qint32 valor, QWidget* padre) : QAbstractButton(padre), valor_(valor) {
    setObjectName(u"pieza_%1"_s.arg(valor));
    setAccessibleName((valor <= kMonedaMayor ? u"Moneda de "_s : u"Billete de "_s) +
                      TextoPieza(valor));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize BotonPieza::sizeHint() const {
    return valor_ <= kMonedaMayor ? kMoneda : kBillete;
}

QSize BotonPieza::minimumSizeHint() const {
    return {tema::kTeclaMinima, tema::kTeclaMinima - 8};
}

void BotonPieza::paintEvent(QPaintEvent*) {
    QPainter pintor(this);
    pintor.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled()) {
        pintor.setOpacity(0.35);
    }
    if (valor_ <= kMonedaMayor) {
        PintarMoneda(pintor);
    } else {
        PintarBillete(pintor);
    }
}

void BotonPieza::PintarMoneda(QPainter& pintor) const {
    const Aspecto& aspecto = AspectoDe(valor_);
    const qreal caja = std::min({qreal(width()), qreal(height()), qreal(96)}) - 8;
    const qreal radio = caja / 2 * aspecto.tamaño - (isDown() ? 2 : 0);
    const QPointF centro(width() / 2.0, height() / 2.0 + (isDown() ? 2 : 0));
    if (hasFocus()) {
        pintor.setPen(QPen(tema::kResalte, 3));
        pintor.setBrush(Qt::NoBrush);
        pintor.drawEllipse(centro, radio + 3, radio + 3);
    }
    pintor.setPen(QPen(aspecto.color.darker(140), 1.5));
    pintor.setBrush(aspecto.color);
    pintor.drawEllipse(centro, radio, radio);
    pintor.setBrush(aspecto.centro);
    pintor.setPen(QPen(aspecto.color.darker(125), 1));
    pintor.drawEllipse(centro, radio * 0.74, radio * 0.74);

    pintor.setPen(aspecto.textoClaro ? QColor(Qt::white) : tema::kTexto);
    const QRectF disco(centro.x() - radio, centro.y() - radio, 2 * radio, 2 * radio);
    pintor.setFont(tema::FuenteImporte(static_cast<int>(radio * 0.62)));
    pintor.drawText(disco, Qt::AlignCenter, TextoPieza(valor_));
}

void BotonPieza::PintarBillete(QPainter& pintor) const {
    const Aspecto& aspecto = AspectoDe(valor_);
    constexpr qreal kRedondo = 6;
    // Twice as wide as high, as far as there is room.
    const qreal ancho = std::min({width() - 8.0, (height() - 8.0) * 2.1, 220.0}) * aspecto.tamaño;
    const qreal alto = std::min(height() - 8.0, ancho / 1.9);
    QRectF papel((width() - ancho) / 2, (height() - alto) / 2, ancho, alto);
    if (isDown()) {
        papel.translate(0, 2);
    }
    if (hasFocus()) {
        pintor.setPen(QPen(tema::kResalte, 3));
        pintor.setBrush(Qt::NoBrush);
        pintor.drawRoundedRect(papel.adjusted(-3, -3, 3, 3), kRedondo + 2, kRedondo + 2);
    }
    QPainterPath borde;
    borde.addRoundedRect(papel, kRedondo, kRedondo);
    pintor.fillPath(borde, aspecto.color);
    pintor.save();
    pintor.setClipPath(borde);
    pintor.fillRect(QRectF(papel.right() - ancho * 0.22, papel.top(), ancho * 0.22, alto),
                    aspecto.centro);
    pintor.setPen(Qt::NoPen);
    pintor.setBrush(aspecto.centro);
    pintor.drawEllipse(QPointF(papel.left() + ancho * 0.06, papel.bottom()), alto * 0.42,
                       alto * 0.42);
    pintor.restore();
    pintor.setBrush(Qt::NoBrush);
    pintor.setPen(QPen(aspecto.color.darker(140), 1.5));
    pintor.drawPath(borde);

    pintor.setPen(aspecto.textoClaro ? QColor(Qt::white) : tema::kTexto);
    pintor.setFont(tema::FuenteImporte(static_cast<int>(std::min(alto * 0.44, 30.0))));
    pintor.drawText(papel.adjusted(0, 0, -ancho * 0.16, 0), Qt::AlignCenter, TextoPieza(valor_));
}

} // namespace zv::simulador
