#include "engine/screens/Lampara.h"

#include "ui/screens/Rol.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QPainter>

namespace zv {

namespace {

constexpr double kLado = 32; // of the drawing
constexpr double kBorde = 2.5;

} // namespace

Lampara::Lampara(Marca marca, const Clave& clave, QWidget* padre) : QWidget(padre), marca_(marca) {
    PonerRol(*this, QAccessible::Graphic);
    Nombrar(*this, clave, Pista::Si);
    hide();
}

void Lampara::paintEvent(QPaintEvent* /*evento*/) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(width() / kLado, height() / kLado);
    p.setPen(QPen(Qt::white, kBorde));
    p.setBrush(marca_ == Marca::Bien     ? tema::kVerde
               : marca_ == Marca::Alerta ? tema::kAmbar
                                         : tema::kRojo);
    const QRectF disco =
        QRectF(0, 0, kLado, kLado).adjusted(kBorde / 2, kBorde / 2, -kBorde / 2, -kBorde / 2);
    p.drawEllipse(disco);

    p.translate(disco.center());
    p.setPen(QPen(marca_ == Marca::Critico ? QColor(Qt::white) : tema::kTexto, 3, Qt::SolidLine,
                  Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    switch (marca_) {
    case Marca::Bien:
        p.drawPolyline(QPolygonF({{-6, 0.5}, {-2, 5}, {6, -4.5}}));
        break;
    case Marca::Alerta:
        p.drawLine(QPointF(0, -7), QPointF(0, 1.5));
        p.drawPoint(QPointF(0, 6.5));
        break;
    case Marca::Critico:
        p.drawLine(QPointF(-5, -5), QPointF(5, 5));
        p.drawLine(QPointF(5, -5), QPointF(-5, 5));
        break;
    }
}

} // namespace zv
