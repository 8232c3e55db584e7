// Sizes and results of the message dialog.
#include "ui/screens/frmMensaje.h"

#include "platform/StringLiterals.h"
#include "ui/Claves.h"
#include "ui/Textos.h"
#include "ui/screens/EtiquetaTexto.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QCloseEvent>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>

namespace zv {

namespace {

constexpr int kAnchoMinimo = tema::TwipsAPixeles(5595);
constexpr int kAltoMinimo = tema::TwipsAPixeles(2775);
// Wider windows are tried when the text would be higher than this at the title's width.
constexpr int kAltoTextoComodo = 230;

} // namespace

frmMensaje::frmMensaje(const Textos& textos, QWidget* padre)
    : FramelessWindow(u"frmMensaje"_s, padre), textos_(textos), lbTexto_(new EtiquetaTexto),
      zonaTexto_(new QScrollArea(this)) {
    lbTexto_->setObjectName(u"lbTexto"_s);
    lbTexto_->setFont(tema::Fuente(18));
    zonaTexto_->setWidget(lbTexto_);
    zonaTexto_->setFrameShape(QFrame::NoFrame);
    zonaTexto_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    zonaTexto_->setFocusPolicy(Qt::NoFocus);
    zonaTexto_->setMinimumHeight(1); // one line of text is less than a scroll area asks for
    zonaTexto_->viewport()->setAutoFillBackground(false);
    lbTexto_->setAutoFillBackground(false);
    Cuerpo()->addWidget(zonaTexto_, 1);

    auto* fila = new QGridLayout;
    fila->setHorizontalSpacing(16);
    const Clave* const claves[] = {&texto::kMensajeAceptar, &texto::kMensajeCancelar};
    for (int i = 0; i < 2; ++i) {
        boton_[i] = new QPushButton(this);
        Rotular(*boton_[i], *claves[i]);
        // A hidden boton(0) leaves its place empty: boton(1) is always found where it was.
        QSizePolicy politica(QSizePolicy::Expanding, QSizePolicy::Fixed);
        politica.setRetainSizeWhenHidden(true);
        boton_[i]->setSizePolicy(politica);
        boton_[i]->setAutoDefault(true);
        fila->addWidget(boton_[i], 0, i);
        fila->setColumnStretch(i, 1);
        connect(boton_[i], &QPushButton::clicked, this, [this, i] { Pulsar(*boton_[i]); });
    }
    Cuerpo()->addLayout(fila);
    disconnect(btnW(1), &QToolButton::clicked, this, nullptr);
    connect(btnW(1), &QToolButton::clicked, this, &frmMensaje::CerrarSinPulsar);
    TraducirPantalla(*this, textos_);
    VentanaEncima(*this, true);
}

void frmMensaje::PonerTextoYTitulo(const QString& titulo, const QString& texto) {
    PonerTitulo(titulo);
    lbTexto_->setText(tema::Rotulo(texto));
    Ajustar();
}

void frmMensaje::PonerEstilo(EstiloMensaje estilo) {
    const auto poner = [this](int indice, Respuesta respuesta) {
        boton_[indice]->setProperty("Tag", QString::number(static_cast<int>(respuesta)));
    };
    bool uno = false;
    switch (estilo) {
    case EstiloMensaje::Aceptar:
    case EstiloMensaje::Critico:
    case EstiloMensaje::Pregunta:
    case EstiloMensaje::Aviso:
    case EstiloMensaje::Informacion:
        uno = true;
        PonerTexto(*boton_[1], textos_, texto::kAceptar);
        poner(1, Respuesta::Aceptar);
        break;
    case EstiloMensaje::AceptarCancelar:
        poner(0, Respuesta::Aceptar);
        poner(1, Respuesta::Cancelar);
        break;
    case EstiloMensaje::ReintentarCancelar:
        poner(0, Respuesta::Reintentar);
        poner(1, Respuesta::Cancelar);
        break;
    case EstiloMensaje::SiNoCancelar:
    case EstiloMensaje::SiNo:
        poner(0, Respuesta::Si);
        poner(1, Respuesta::No);
        break;
    default:
        // A number of the platform's box that has no meaning here.
        poner(0, Respuesta::Aceptar);
        poner(1, Respuesta::No);
        break;
    }
    boton_[0]->setVisible(!uno);
    QPushButton* porDefecto = uno ? boton_[1] : boton_[0];
    porDefecto->setDefault(true);
    porDefecto->setFocus();
}

void frmMensaje::Pulsar(const QPushButton& boton) {
    resultado = static_cast<Respuesta>(boton.property("Tag").toString().toShort());
    done(QDialog::Accepted);
}

// Closing is no answer to a single button: what it would confirm has not been confirmed. Where
// there are two, it is the refusing one.
void frmMensaje::CerrarSinPulsar() {
    if (boton_[0]->isHidden()) {
        resultado = Respuesta::Ninguna;
        done(QDialog::Rejected);
    } else {
        Pulsar(*boton_[1]);
    }
}

void frmMensaje::closeEvent(QCloseEvent* evento) {
    evento->ignore();
    CerrarSinPulsar();
}

void frmMensaje::reject() {
    Pulsar(*boton_[1]);
}

void frmMensaje::Ajustar() {
    Pulir();
    const QSize maximo = TamañoMaximo();
    const QMargins m = Cuerpo()->contentsMargins();
    const int alrededor = m.left() + m.right() + 2;
    const int resto = tema::kAltoCabecera + m.top() + m.bottom() + Cuerpo()->spacing() +
                      boton_[1]->sizeHint().height() + 1;
    const int ancho = qMin(qMax(kAnchoMinimo, AnchoCabecera()), maximo.width());

    // The title's width will do for a short text; a long one takes the first width at which it is
    // comfortable, or else the first at which it fits the screen, or else it scrolls.
    int elegido = 0;
    for (const int limite : {kAltoTextoComodo, maximo.height() - resto}) {
        for (const int candidato : {ancho, 480, 600, 720, 860, maximo.width()}) {
            if (elegido == 0 && candidato >= ancho && candidato <= maximo.width() &&
                lbTexto_->heightForWidth(candidato - alrededor) <= limite) {
                elegido = candidato;
            }
        }
    }
    const bool desplaza = elegido == 0;
    if (desplaza) {
        elegido = maximo.width();
    }
    const int anchoTexto = elegido - alrededor -
                           (desplaza ? zonaTexto_->verticalScrollBar()->sizeHint().width() + 4 : 0);
    const int altoTexto = lbTexto_->heightForWidth(anchoTexto);
    lbTexto_->resize(anchoTexto, altoTexto);
    zonaTexto_->setVerticalScrollBarPolicy(desplaza ? Qt::ScrollBarAlwaysOn
                                                    : Qt::ScrollBarAlwaysOff);
    setFixedSize(elegido, qMin(qMax(kAltoMinimo, resto + altoTexto), maximo.height()));
}

} // namespace zv
