// Fonts, palette and roles of the theme. The style sheet is in TemaHoja.cpp, the icons in
// TemaIconos.cpp.
#include "ui/screens/Tema.h"

#include "platform/StringLiterals.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QSize>
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

struct NombrePapel {
    Papel papel;
    const char* nombre;
};
constexpr NombrePapel kPapeles[] = {{Papel::Normal, "normal"},   {Papel::Principal, "principal"},
                                    {Papel::Peligro, "peligro"}, {Papel::Tecla, "tecla"},
                                    {Papel::Pie, "pie"},         {Papel::Cabecera, "cabecera"},
                                    {Papel::Parte, "parte"}};

QString NombreDe(Letra letra) {
    switch (letra) {
    case Letra::Texto:
        return u"texto"_s;
    case Letra::Nota:
        return u"nota"_s;
    case Letra::Cifra:
        return u"cifra"_s;
    case Letra::Total:
        return u"total"_s;
    }
    return {};
}

constexpr int kLetra = 16;
constexpr double kEscalaMaxima = 1.5;

} // namespace

double EscalaDe(const QSize& ventana) {
    return qBound(1.0, qMin(ventana.width() / 1024.0, ventana.height() / 768.0), kEscalaMaxima);
}

int Px(int pixeles, double escala) {
    return qRound(pixeles * escala);
}

void PonerEscala(QWidget& ventana, double escala) {
    ventana.setFont(Fuente(Px(kLetra, escala)));
    ventana.setStyleSheet(escala > 1 ? HojaDeEstilo(escala) : QString());
}

void PonerLetra(QLabel& rotulo, Letra letra) {
    rotulo.setProperty("letra", NombreDe(letra));
    if (letra == Letra::Cifra || letra == Letra::Total) {
        // Kerning would move figures of one width; sizes are the style sheet's.
        rotulo.setFont(FuenteImporte(kLetra));
        rotulo.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    // One that is shown already has had the sheet's size, which the font has just taken away.
    if (rotulo.testAttribute(Qt::WA_WState_Polished)) {
        rotulo.style()->unpolish(&rotulo);
        rotulo.style()->polish(&rotulo);
    }
}

void PonerPapel(QWidget& boton, Papel papel, double escala) {
    const auto cuadro = [escala](int lado) { return QSize(Px(lado, escala), Px(lado, escala)); };
    for (const NombrePapel& cada : kPapeles) {
        if (cada.papel == papel) {
            boton.setProperty("papel", QString::fromLatin1(cada.nombre));
        }
    }
    auto* herramienta = qobject_cast<QToolButton*>(&boton);
    switch (papel) {
    case Papel::Normal:
    case Papel::Principal:
    case Papel::Peligro:
        boton.setMinimumSize(cuadro(kToqueMinimo));
        break;
    case Papel::Tecla:
        // A key writes into the box that has the focus, so it must not take it.
        boton.setFocusPolicy(Qt::NoFocus);
        boton.setMinimumSize(cuadro(kTeclaMinima));
        boton.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        if (herramienta) {
            herramienta->setIconSize(cuadro(28));
        }
        break;
    case Papel::Pie:
        boton.setMinimumSize(cuadro(kTeclaMinima));
        boton.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        if (herramienta) {
            herramienta->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
            herramienta->setIconSize(cuadro(32));
        }
        break;
    case Papel::Parte:
        boton.setMinimumSize(cuadro(kTeclaMinima));
        boton.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        break;
    case Papel::Cabecera:
        boton.setMinimumSize(cuadro(kToqueMinimo));
        if (herramienta) {
            herramienta->setIconSize(cuadro(24));
        }
        break;
    }
    boton.style()->unpolish(&boton);
    boton.style()->polish(&boton);
}

void EscalarPapel(QWidget& boton, double escala) {
    const QString nombre = boton.property("papel").toString();
    for (const NombrePapel& cada : kPapeles) {
        if (nombre == QLatin1String(cada.nombre)) {
            PonerPapel(boton, cada.papel, escala);
        }
    }
}

void Aplicar(QApplication& app) {
    // The desktop's style, colours and icons differ from till to till; ours must not.
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setPalette(Paleta());
    QApplication::setFont(Fuente(kLetra));
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

void PonerTono(QWidget& marco, Tono tono) {
    struct Colores {
        QColor fondo;
        QColor letra;
    };
    const Colores colores = tono == Tono::Marca    ? Colores{kAmbar, kTexto}
                            : tono == Tono::Aviso  ? Colores{kFondoAnular, kRojoOscuro}
                            : tono == Tono::Alarma ? Colores{kRojoOscuro, Qt::white}
                                                   : Colores{kCuerpo, kTexto};
    marco.setStyleSheet(u"#%1 { background: %2; border: none; border-top: 1px solid %3; } "
                        "QLabel { color: %4; }"_s.arg(marco.objectName(), colores.fondo.name(),
                                                      kBorde.name(), colores.letra.name()));
}

void PonerEstado(QLineEdit& caja, bool bueno) {
    const QString estado = bueno ? u"bueno"_s : u"malo"_s;
    if (caja.property("estado") == estado) {
        return;
    }
    caja.setProperty("estado", estado);
    caja.style()->unpolish(&caja);
    caja.style()->polish(&caja);
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
