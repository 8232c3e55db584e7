// Painting of the level bars.
#include "simulator/screens/TablaNiveles.h"

#include "platform/StringLiterals.h"
#include "simulator/screens/Textos.h"
#include "ui/screens/Tema.h"

#include <QPainter>

#include <algorithm>

namespace zv::simulador {

namespace {

constexpr int kFilaMinima = 20;
constexpr int kFilaNormal = 24;
constexpr int kAnchoPieza = 62;
constexpr int kAnchoCuenta = 84;
constexpr int kAnchoCajon = 70;

} // namespace

QColor ColorEstado(int estado) {
    if (estado >= 2) {
        return tema::kRojo;
    }
    return estado == 1 ? tema::kAmbar : tema::kVerde;
}

void PintarBarra(QPainter& pintor, const QRectF& barra, qreal lleno, const QColor& color) {
    const qreal redondo = barra.height() / 2;
    pintor.setPen(Qt::NoPen);
    pintor.setBrush(tema::kFilaPar.darker(106));
    pintor.drawRoundedRect(barra, redondo, redondo);
    if (lleno <= 0) {
        return;
    }
    // Never narrower than round: a single piece is seen too.
    QRectF parte = barra;
    parte.setWidth(std::clamp(barra.width() * lleno, barra.height(), barra.width()));
    pintor.setBrush(color);
    pintor.drawRoundedRect(parte, redondo, redondo);
}

TablaNiveles::TablaNiveles(QWidget* padre) : QWidget(padre) {
    setAccessibleName(u"Niveles"_s);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize TablaNiveles::minimumSizeHint() const {
    return {320, kFilaMinima * (static_cast<int>(kCuantas) + 1)};
}

QSize TablaNiveles::sizeHint() const {
    return {480, kFilaNormal * (static_cast<int>(kCuantas) + 1)};
}

void TablaNiveles::Mostrar(const Inventario& inventario, const CapacidadCajones& capacidad) {
    inventario_ = inventario;
    capacidad_ = capacidad;
    update();
}

void TablaNiveles::paintEvent(QPaintEvent*) {
    QPainter pintor(this);
    pintor.setRenderHint(QPainter::Antialiasing);
    const qreal alto = height() / qreal(kCuantas + 1);
    const qreal desde = kAnchoPieza;
    const qreal hasta = width() - kAnchoCuenta - kAnchoCajon;
    const auto celda = [&](std::size_t fila, qreal x, qreal ancho) {
        return QRectF(x, alto * qreal(fila), ancho, alto);
    };

    pintor.setPen(tema::kTextoTenue);
    pintor.setFont(tema::Fuente(14));
    pintor.drawText(celda(0, desde, hasta - desde), Qt::AlignVCenter | Qt::AlignLeft,
                    u"Reciclador (marcas: óptimo, tope)"_s);
    pintor.drawText(celda(0, hasta, kAnchoCuenta), Qt::AlignVCenter | Qt::AlignRight, u"piezas"_s);
    pintor.drawText(celda(0, hasta + kAnchoCuenta, kAnchoCajon), Qt::AlignVCenter | Qt::AlignRight,
                    u"cajón"_s);

    for (std::size_t i = 0; i < kCuantas; ++i) {
        const Denominacion& d = kDenominaciones.at(i);
        const std::size_t fila = i + 1;
        const int estado = inventario_.EstadoDe(i, capacidad_);
        pintor.setFont(tema::Fuente(15, true));
        pintor.setPen(tema::kTexto);
        pintor.drawText(celda(fila, 0, kAnchoPieza - 10), Qt::AlignVCenter | Qt::AlignRight,
                        TextoPieza(d.valor));
        const int cajon = inventario_.cajon.at(i);
        pintor.setFont(tema::FuenteImporte(15, false));
        pintor.setPen(cajon > 0 ? tema::kTexto : tema::kTextoApagado);
        pintor.drawText(celda(fila, hasta + kAnchoCuenta, kAnchoCajon),
                        Qt::AlignVCenter | Qt::AlignRight, QString::number(cajon));
        if (!d.recicla) {
            pintor.setPen(tema::kTextoTenue);
            pintor.setFont(tema::Fuente(13));
            pintor.drawText(celda(fila, desde, hasta - desde), Qt::AlignVCenter | Qt::AlignLeft,
                            u"sólo al cajón"_s);
            continue;
        }
        const int piezas = inventario_.reciclador.at(i);
        const QRectF barra = celda(fila, desde, hasta - desde - 8).adjusted(0, 5, 0, -5);
        const qreal caben = d.capacidad;
        PintarBarra(pintor, barra, piezas / caben, ColorEstado(estado));
        pintor.setPen(QPen(tema::kTextoTenue, 1.5));
        for (const int marca : {d.optimo, d.objetivo}) {
            const qreal x = barra.left() + barra.width() * marca / caben;
            if (marca > 0) {
                pintor.drawLine(QPointF(x, barra.top() - 1), QPointF(x, barra.bottom() + 1));
            }
        }
        pintor.setPen(estado == 2 ? tema::kRojoTexto : tema::kTexto);
        pintor.setFont(tema::FuenteImporte(15, estado > 0));
        pintor.drawText(celda(fila, hasta, kAnchoCuenta), Qt::AlignVCenter | Qt::AlignRight,
                        u"%1 / %2"_s.arg(piezas).arg(d.capacidad));
    }
}

BarraCajon::BarraCajon(QWidget* padre) : QWidget(padre) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void BarraCajon::Mostrar(int piezas, int caben, bool retirado) {
    piezas_ = piezas;
    caben_ = caben;
    retirado_ = retirado;
    update();
}

void BarraCajon::paintEvent(QPaintEvent*) {
    QPainter pintor(this);
    pintor.setRenderHint(QPainter::Antialiasing);
    const QRectF barra(0, height() / 2.0 - 7, width(), 14);
    const qreal lleno = qreal(piezas_) / caben_;
    const int estado = lleno >= 1 ? 2 : (lleno >= 0.9 ? 1 : 0);
    PintarBarra(pintor, barra, lleno, retirado_ ? tema::kTextoApagado : ColorEstado(estado));
}

} // namespace zv::simulador
