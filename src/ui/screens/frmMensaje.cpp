#include "ui/screens/frmMensaje.h"

#include "platform/StringLiterals.h"
#include "ui/Claves.h"
#include "ui/Textos.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"
#include "ui/screens/ZonaTexto.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QPushButton>
#include <QToolButton>

namespace zv {

namespace {

constexpr int kAnchoMinimo = tema::TwipsAPixeles(5595);
constexpr int kAltoMinimo = tema::TwipsAPixeles(2775);

} // namespace

frmMensaje::frmMensaje(const Textos& textos, QWidget* padre)
    : FramelessWindow(u"frmMensaje"_s, padre), textos_(textos),
      zonaTexto_(new ZonaTexto(u"lbTexto"_s, this)) {
    Cuerpo()->addWidget(zonaTexto_, 1);

    auto* fila = new QGridLayout;
    fila->setHorizontalSpacing(Px(16));
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
    zonaTexto_->PonerTexto(texto);
    AjustarCuerpo(*zonaTexto_, QSize(Px(kAnchoMinimo), Px(kAltoMinimo)));
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

} // namespace zv
