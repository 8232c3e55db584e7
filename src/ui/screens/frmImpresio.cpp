// The choice of printouts.
#include "ui/screens/frmImpresio.h"

#include "platform/StringLiterals.h"
#include "ui/Claves.h"
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
    PonerTitulo(texto::kImpresioTitulo.PorDefecto());
    auto* lbTexto = new EtiquetaTexto(this);
    lbTexto->setFont(tema::Fuente(18));
    Rotular(*lbTexto, texto::kImpresioTexto);
    Cuerpo()->addWidget(lbTexto);

    auto* columna = new QVBoxLayout;
    columna->setSpacing(12);
    const Clave* const claves[] = {&texto::kImpresioResumen, &texto::kImpresioListado,
                                   &texto::kImpresioTodo};
    for (int i = 0; i < 3; ++i) {
        auto* boton = new QPushButton(this);
        Rotular(*boton, *claves[i]);
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
