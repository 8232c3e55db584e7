#include "ui/screens/BarraPie.h"

#include "platform/StringLiterals.h"
#include "ui/Clave.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QStyleOptionToolButton>
#include <QStylePainter>

#include <algorithm>

namespace zv {

namespace {

constexpr int kAlto = 104;
constexpr int kAltoPantalla = 120; // captions of three lines
constexpr int kAnchoSalir = 112;
constexpr int kAnchoMaximo = 176;
constexpr int kAnchoHueco = 24;
constexpr int kLetra = 16;
constexpr int kMargen = 4;
constexpr int kMargenIcono = 3;

int AnchoPalabra(const QFontMetrics& letra, const QString& texto) {
    int ancho = 0;
    QString palabras = texto;
    const auto lista =
        palabras.replace(QLatin1Char('\n'), QLatin1Char(' ')).split(QLatin1Char(' '));
    for (const QString& palabra : lista) {
        ancho = qMax(ancho, letra.horizontalAdvance(palabra));
    }
    return ancho;
}

} // namespace

BotonPicto::BotonPicto(tema::Papel papel, QWidget* padre) : QToolButton(padre) {
    tema::PonerPapel(*this, papel);
}

int BotonPicto::AnchoRotulo() const {
    return AnchoPalabra(fontMetrics(), text()) + 2 * kMargen;
}

QSize BotonPicto::minimumSizeHint() const {
    return QSize(AnchoRotulo(), 0).expandedTo(minimumSize());
}

void BotonPicto::paintEvent(QPaintEvent*) {
    QStylePainter p(this);
    QStyleOptionToolButton opciones;
    initStyleOption(&opciones);
    opciones.text.clear();
    opciones.icon = {};
    p.drawComplexControl(QStyle::CC_ToolButton, opciones);

    const QRect dentro = rect().adjusted(kMargen, kMargen, -kMargen, -kMargen);
    constexpr int kReparto = Qt::AlignHCenter | Qt::AlignBottom | Qt::TextWordWrap;
    // The picture takes what a caption of three lines leaves of its place.
    const int rotulo =
        text().isEmpty() ? 0 : fontMetrics().boundingRect(dentro, kReparto, text()).height();
    const int lado =
        qMin(iconSize().height(), dentro.height() - rotulo - (rotulo == 0 ? 0 : kMargenIcono));
    const int junto = lado + rotulo + (rotulo == 0 ? 0 : kMargenIcono);
    const int arriba = dentro.top() + (dentro.height() - junto) / 2;
    if (lado > 0) {
        icon().paint(&p, QRect(dentro.left(), arriba, dentro.width(), lado), Qt::AlignCenter,
                     isEnabled() ? QIcon::Normal : QIcon::Disabled,
                     isChecked() ? QIcon::On : QIcon::Off);
    }
    p.setPen(isEnabled() ? tema::kTexto : tema::kTextoApagado);
    p.drawText(QRect(dentro.left(), arriba + junto - rotulo, dentro.width(), rotulo), kReparto,
               text());
}

BarraPie::BarraPie(std::span<const EntradaPie> tabla, QWidget* padre)
    : QFrame(padre), fila_(new QHBoxLayout(this)) {
    setObjectName(u"framePie"_s);
    for (const EntradaPie& entrada : tabla) {
        auto* boton = new BotonPicto(tema::Papel::Pie, this);
        puestos_.push_back({entrada.indice, boton});
        connect(boton, &QToolButton::clicked, this,
                [this, indice = entrada.indice] { Q_EMIT Pulsado(indice); });
        if (entrada.clave == nullptr) {
            boton->setObjectName(u"boton_%1"_s.arg(entrada.indice));
            boton->hide();
            continue;
        }
        Rotular(*boton, *entrada.clave);
        boton->setIcon(tema::Icono(QString::fromUtf16(
            entrada.icono.data(), static_cast<qsizetype>(entrada.icono.size()))));
        if (entrada.clase == EntradaPie::Clase::Salir) {
            salir_ = boton;
            fila_->insertWidget(0, boton);
            continue;
        }
        if (entrada.hueco) {
            auto* hueco = new QWidget(this);
            huecos_.push_back(hueco);
            fila_->addWidget(hueco);
        }
        fila_->addWidget(boton, 1);
    }
    if (salir_ != nullptr) {
        // What the others do not need lies between them and the leaving one.
        fila_->insertStretch(1);
    }
    fila_->setSpacing(0);
    Escalar(1);
}

QToolButton* BarraPie::Boton(int indice) const {
    const auto puesto =
        std::find_if(puestos_.begin(), puestos_.end(),
                     [indice](const Puesto& cada) { return cada.indice == indice; });
    return puesto == puestos_.end() ? nullptr : puesto->boton;
}

// The theme's own minimum would outweigh what a caption needs: buttons with long words take from
// those with short ones.
void BarraPie::AjustarAnchos() {
    for (const Puesto& puesto : puestos_) {
        if (puesto.boton != salir_) {
            puesto.boton->setMinimumWidth(
                qMax(tema::Px(tema::kTeclaMinima, escala_), puesto.boton->AnchoRotulo()));
        }
    }
}

// Asked for whenever a caption or its letters change.
bool BarraPie::event(QEvent* evento) {
    if (evento->type() == QEvent::LayoutRequest || evento->type() == QEvent::Polish) {
        AjustarAnchos();
    }
    return QFrame::event(evento);
}

void BarraPie::Escalar(double escala) {
    escala_ = escala;
    const auto px = [escala](int pixeles) { return tema::Px(pixeles, escala); };
    setFixedHeight(px(salir_ == nullptr ? kAlto : kAltoPantalla));
    fila_->setContentsMargins(px(kMargen), px(6), px(kMargen), px(6));
    tema::PonerLetra(*this, escala > 1 ? px(kLetra) : 0);
    for (const Puesto& puesto : puestos_) {
        tema::PonerPapel(*puesto.boton, tema::Papel::Pie, escala);
        if (puesto.boton == salir_) {
            salir_->setFixedWidth(px(kAnchoSalir));
        } else if (salir_ != nullptr) {
            puesto.boton->setMaximumWidth(px(kAnchoMaximo));
        }
    }
    for (QWidget* hueco : huecos_) {
        hueco->setFixedWidth(px(kAnchoHueco));
    }
    AjustarAnchos();
}

} // namespace zv
