#include "barcode/screens/TiraCodigo.h"

#include "platform/StringLiterals.h"
#include "ui/screens/Rol.h"
#include "ui/screens/Tema.h"

#include <QPainter>

#include <algorithm>

namespace zv {

namespace {

constexpr int kCeldasMaximo = 255; // what the length of a code can be
constexpr int kAnchoMinimo = 36;
constexpr int kAnchoMaximo = 52;
constexpr int kAltoNumero = 24;
constexpr int kAltoCelda = 44;
constexpr int kEntreFilas = 8;
constexpr int kLetraNumero = 16;
constexpr int kLetra = 22;
constexpr int kMuestra = 24;

const QColor& ColorDe(ZonaCodigo zona) {
    static const QColor kBlanco(Qt::white);
    return zona == ZonaCodigo::Ticket    ? tema::kAmbar
           : zona == ZonaCodigo::Importe ? tema::kVerde
                                         : kBlanco;
}

QChar LetraDe(ZonaCodigo zona) {
    return zona == ZonaCodigo::Ticket ? u'T' : zona == ZonaCodigo::Importe ? u'I' : u'.';
}

} // namespace

TiraCodigo::TiraCodigo(QWidget* padre) : QWidget(padre) {
    PonerRol(*this, QAccessible::StaticText);
    QSizePolicy politica(QSizePolicy::Preferred, QSizePolicy::Minimum);
    politica.setHeightForWidth(true);
    setSizePolicy(politica);
}

void TiraCodigo::Poner(const LayoutCodigo& layout, const QString& codigo) {
    if (layout == layout_ && codigo == codigo_) {
        return;
    }
    layout_ = layout;
    codigo_ = codigo;
    const int antes = celdas_;
    celdas_ = std::min(std::max(layout.largo, static_cast<int>(codigo.size())), kCeldasMaximo);
    if (celdas_ != antes) {
        updateGeometry();
    }
    setAccessibleDescription(Letras());
    update();
}

QString TiraCodigo::Letras() const {
    QString letras;
    letras.reserve(celdas_);
    for (int i = 1; i <= celdas_; ++i) {
        letras += LetraDe(ZonaDe(layout_, i));
    }
    return letras;
}

void TiraCodigo::Escalar(double escala) {
    escala_ = escala;
    updateGeometry();
    update();
}

int TiraCodigo::Px(int pixeles) const {
    return tema::Px(pixeles, escala_);
}

// A short code has wide cells, a long one more rows.
int TiraCodigo::AnchoCelda(int ancho) const {
    return std::clamp(ancho / std::max(celdas_, 1), Px(kAnchoMinimo), Px(kAnchoMaximo));
}

int TiraCodigo::PorFila(int ancho) const {
    return std::max(1, ancho / AnchoCelda(ancho));
}

int TiraCodigo::heightForWidth(int ancho) const {
    const int porFila = PorFila(ancho);
    const int filas = std::max(1, (celdas_ + porFila - 1) / porFila);
    return filas * Px(kAltoNumero + kAltoCelda) + (filas - 1) * Px(kEntreFilas);
}

QSize TiraCodigo::sizeHint() const {
    return {Px(kAnchoMinimo), heightForWidth(std::max(width(), Px(kAnchoMinimo)))};
}

QSize TiraCodigo::minimumSizeHint() const {
    return {Px(kAnchoMinimo), Px(kAltoNumero + kAltoCelda)};
}

void TiraCodigo::PintarCelda(QPainter& p, const QRect& sitio, int posicion) const {
    QRect numero = sitio;
    numero.setHeight(Px(kAltoNumero));
    p.setFont(tema::Fuente(Px(kLetraNumero)));
    p.setPen(tema::kTextoTenue);
    p.drawText(numero, Qt::AlignCenter, QString::number(posicion));

    QRect celda = sitio;
    celda.setTop(numero.bottom() + 1);
    const ZonaCodigo zona = ZonaDe(layout_, posicion);
    const bool fuera = posicion > layout_.largo;
    p.setPen(tema::kBordeControl);
    p.setBrush(fuera ? tema::kBotonApagado : ColorDe(zona));
    p.drawRect(celda.adjusted(0, 0, -1, -1));
    p.setFont(tema::FuenteImporte(Px(kLetra)));
    p.setPen(fuera ? tema::kTextoTenue : tema::kTexto);
    const QString letra =
        posicion <= codigo_.size() ? codigo_.mid(posicion - 1, 1) : QString(LetraDe(zona));
    p.drawText(celda, Qt::AlignCenter, letra);
}

void TiraCodigo::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const int ancho = AnchoCelda(width());
    const int porFila = PorFila(width());
    const int alto = Px(kAltoNumero + kAltoCelda);
    for (int i = 0; i < celdas_; ++i) {
        const QPoint esquina(i % porFila * ancho, i / porFila * (alto + Px(kEntreFilas)));
        PintarCelda(p, QRect(esquina, QSize(ancho, alto)), i + 1);
    }
}

MuestraZona::MuestraZona(ZonaCodigo zona, QWidget* padre) : QWidget(padre), zona_(zona) {
    Escalar(1);
}

void MuestraZona::Escalar(double escala) {
    setFixedSize(tema::Px(kMuestra, escala), tema::Px(kMuestra, escala));
}

void MuestraZona::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setPen(tema::kBordeControl);
    p.setBrush(ColorDe(zona_));
    p.drawRect(rect().adjusted(0, 0, -1, -1));
    p.setPen(tema::kTexto);
    p.setFont(tema::FuenteImporte(height() * 2 / 3));
    p.drawText(rect(), Qt::AlignCenter, QString(LetraDe(zona_)));
}

} // namespace zv
