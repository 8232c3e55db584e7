// The choice of printouts.
#include "ui/screens/frmImpresio.h"

#include "platform/StringLiterals.h"
#include "ui/screens/EtiquetaTexto.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace zv {

namespace {

constexpr int kAncho = tema::TwipsAPixeles(5595);

} // namespace

frmImpresio::frmImpresio(const Textos& textos, QWidget* padre)
    : FramelessWindow(u"frmImpresio"_s, padre) {
    PonerTitulo(u"Imprimir"_s);
    auto* lbTexto = new EtiquetaTexto(this);
    lbTexto->setObjectName(u"lbTexto"_s);
    lbTexto->setFont(tema::Fuente(18));
    lbTexto->setText(u"¿Que desea imprimir?"_s);
    Cuerpo()->addWidget(lbTexto);

    auto* columna = new QVBoxLayout;
    columna->setSpacing(12);
    const QString captions[] = {u"Resumen Caja"_s, u"Listado Movimientos"_s, u"Todo"_s};
    for (int i = 0; i < 3; ++i) {
        auto* boton = new QPushButton(captions[i], this);
        boton->setObjectName(u"boton_%1"_s.arg(i));
        boton->setProperty("Tag", QString::number(i + 1));
        boton->setMinimumHeight(tema::kTeclaMinima);
        connect(boton, &QPushButton::clicked, this, [this, boton] {
            eleccion = static_cast<quint8>(boton->property("Tag").toString().toUInt());
            done(QDialog::Accepted);
        });
        columna->addWidget(boton);
        if (i == 0) {
            boton->setDefault(true);
            boton->setFocus();
        }
    }
    Cuerpo()->addLayout(columna);
    TraducirPantalla(*this, textos);
    Pulir();
    const int ancho = qMin(qMax(kAncho, AnchoCabecera()), TamañoMaximo().width());
    const QMargins m = Cuerpo()->contentsMargins();
    lbTexto->setMinimumHeight(lbTexto->heightForWidth(ancho - m.left() - m.right() - 2));
    setFixedSize(ancho, layout()->totalMinimumSize().height());
    VentanaEncima(*this, true);
}

} // namespace zv
