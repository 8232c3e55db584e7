// Fonts, palette and roles of the theme. The style sheet is in TemaHoja.cpp, the icons in
// TemaIconos.cpp.
#include "ui/screens/Tema.h"

#include "platform/StringLiterals.h"

#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>
#include <QToolButton>

namespace zv::tema {

namespace {

QPalette Paleta() {
    QPalette p;
    p.setColor(QPalette::Window, kCuerpo);
    p.setColor(QPalette::WindowText, kTexto);
    p.setColor(QPalette::Base, Qt::white);
    p.setColor(QPalette::AlternateBase, kCuerpo);
    p.setColor(QPalette::Text, kTexto);
    p.setColor(QPalette::PlaceholderText, kTextoTenue);
    p.setColor(QPalette::Button, Qt::white);
    p.setColor(QPalette::ButtonText, kTexto);
    p.setColor(QPalette::BrightText, Qt::white);
    p.setColor(QPalette::Highlight, kResalte);
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::Link, kResalte);
    p.setColor(QPalette::ToolTipBase, kCabecera);
    p.setColor(QPalette::ToolTipText, kCabeceraTexto);
    for (const auto rol : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        p.setColor(QPalette::Disabled, rol, kTextoApagado);
    }
    p.setColor(QPalette::Disabled, QPalette::Base, QColor(241, 245, 249));
    p.setColor(QPalette::Disabled, QPalette::Highlight, kBorde);
    return p;
}

const char* NombreDe(Papel papel) {
    switch (papel) {
    case Papel::Normal:
        return "normal";
    case Papel::Principal:
        return "principal";
    case Papel::Peligro:
        return "peligro";
    case Papel::Tecla:
        return "tecla";
    case Papel::Pie:
        return "pie";
    case Papel::Cabecera:
        return "cabecera";
    }
    return "normal";
}

} // namespace

void PonerPapel(QWidget& boton, Papel papel) {
    boton.setProperty("papel", QString::fromLatin1(NombreDe(papel)));
    auto* herramienta = qobject_cast<QToolButton*>(&boton);
    switch (papel) {
    case Papel::Normal:
    case Papel::Principal:
    case Papel::Peligro:
        boton.setMinimumSize(kToqueMinimo, kToqueMinimo);
        break;
    case Papel::Tecla:
        // A key writes into the box that has the focus, so it must not take it.
        boton.setFocusPolicy(Qt::NoFocus);
        boton.setMinimumSize(kTeclaMinima, kTeclaMinima);
        boton.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        if (herramienta) {
            herramienta->setIconSize(QSize(28, 28));
        }
        break;
    case Papel::Pie:
        boton.setMinimumSize(kTeclaMinima, kTeclaMinima);
        boton.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        if (herramienta) {
            herramienta->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
            herramienta->setIconSize(QSize(32, 32));
        }
        break;
    case Papel::Cabecera:
        boton.setMinimumSize(kToqueMinimo, kToqueMinimo);
        if (herramienta) {
            herramienta->setIconSize(QSize(24, 24));
        }
        break;
    }
    boton.style()->unpolish(&boton);
    boton.style()->polish(&boton);
}

bool EsPie(const QWidget& boton) {
    return boton.property("papel").toString() == QLatin1String(NombreDe(Papel::Pie));
}

void Aplicar(QApplication& app) {
    // The desktop's style, colours and icons differ from till to till; ours must not.
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setPalette(Paleta());
    QApplication::setFont(Fuente(16));
    QIcon::setThemeName(u"breeze"_s);
    QIcon::setFallbackThemeName(u"breeze"_s);
    // The style sheet names its few pictures by this prefix.
    QDir::setSearchPaths(u"zviconos"_s, CarpetasDeIconos());
    app.setStyleSheet(HojaDeEstilo());
}

QFont Fuente(int pixeles, bool negrita) {
    QFont f;
    f.setFamilies({u"Noto Sans"_s, u"DejaVu Sans"_s});
    f.setStyleHint(QFont::SansSerif);
    f.setPixelSize(pixeles);
    f.setBold(negrita);
    return f;
}

QFont FuenteImporte(int pixeles, bool negrita) {
    // Both families have figures of one width; kerning would move them.
    QFont f = Fuente(pixeles, negrita);
    f.setKerning(false);
    return f;
}

void PonerColorTexto(QWidget& rotulo, const QColor& color) {
    // The style sheet of the program has the last word over a palette, a widget's own over it.
    rotulo.setStyleSheet(u"color: "_s + color.name() + QLatin1Char(';'));
}

void PonerLetra(QWidget& dentro, int pixeles) {
    dentro.setStyleSheet(
        pixeles == 0 ? QString()
                     : u"QToolButton, QHeaderView::section { font-size: %1px; }"_s.arg(pixeles));
}

QString Rotulo(const QString& caption) {
    QString rotulo = caption;
    return rotulo.replace(QChar(u'¬'), QChar(u'\n'));
}

} // namespace zv::tema
