#include "ui/screens/frmImpresio.h"

#include "platform/StringLiterals.h"
#include "ui/Claves.h"
#include "ui/screens/EtiquetaTexto.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"
#include "ui/screens/ZonaTexto.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace zv {

namespace {

constexpr int kAncho = tema::TwipsAPixeles(5595);

} // namespace

frmImpresio::frmImpresio(const Textos& textos, QWidget* padre)
    : FramelessWindow(u"frmImpresio"_s, padre) {
    PonerTitulo(texto::kImpresioTitulo.PorDefecto());
    auto* zonaTexto = new ZonaTexto(texto::kImpresioTexto.Nombre(), this);
    Rotular(zonaTexto->Etiqueta(), texto::kImpresioTexto);
    Cuerpo()->addWidget(zonaTexto);

    auto* columna = new QVBoxLayout;
    columna->setSpacing(Px(12));
    const Clave* const claves[] = {&texto::kImpresioResumen, &texto::kImpresioListado,
                                   &texto::kImpresioTodo};
    for (int i = 0; i < 3; ++i) {
        auto* boton = new QPushButton(this);
        Rotular(*boton, *claves[i]);
        boton->setProperty("Tag", QString::number(i + 1));
        boton->setMinimumHeight(Px(tema::kTeclaMinima));
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
    AjustarCuerpo(*zonaTexto, QSize(Px(kAncho), 0));
    VentanaEncima(*this, true);
}

} // namespace zv
