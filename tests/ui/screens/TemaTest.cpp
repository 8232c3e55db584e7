// The theme: icons that are never blank, readable colours, sizes for a finger.
#include "ui/screens/Tema.h"

#include "Contraste.h"
#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/ImprimeQt.h"

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

#include <cmath>
#include <gtest/gtest.h>

namespace zv::test {
namespace {

int Pintados(const QImage& imagen) {
    int n = 0;
    for (int y = 0; y < imagen.height(); ++y) {
        for (int x = 0; x < imagen.width(); ++x) {
            n += qAlpha(imagen.pixel(x, y)) > 128 ? 1 : 0;
        }
    }
    return n;
}

QImage Imagen(const QIcon& icono, QIcon::Mode modo = QIcon::Normal,
              QIcon::State estado = QIcon::Off) {
    return icono.pixmap(QSize(32, 32), modo, estado).toImage();
}

// The colour of the most opaque point.
QColor ColorDe(const QImage& imagen) {
    QRgb mejor = 0;
    for (int y = 0; y < imagen.height(); ++y) {
        for (int x = 0; x < imagen.width(); ++x) {
            if (qAlpha(imagen.pixel(x, y)) > qAlpha(mejor)) {
                mejor = imagen.pixel(x, y);
            }
        }
    }
    return QColor::fromRgb(qRed(mejor), qGreen(mejor), qBlue(mejor));
}

CarpetaTemporal CarpetaConIcono() {
    CarpetaTemporal carpeta;
    carpeta.PonCarpeta(u"actions/22"_s);
    carpeta.Pon(
        u"actions/22/cuadro.svg"_s,
        R"(<svg viewBox="0 0 22 22" xmlns="http://www.w3.org/2000/svg"><style>.ColorScheme-Text{color:#232629;}</style><path d="M0 0h22v22H0z" style="fill:currentColor" class="ColorScheme-Text"/></svg>)");
    carpeta.Pon(u"actions/22/roto.svg"_s, "<svg no es");
    return carpeta;
}

TEST(TemaTest, IconIsDrawnInTheColourAskedAtTheSizeAsked) {
    const CarpetaTemporal carpeta = CarpetaConIcono();
    const QImage imagen = Imagen(tema::IconoDe({carpeta.Ruta()}, u"cuadro"_s, tema::kRojo));
    EXPECT_EQ(imagen.size(), QSize(32, 32));
    EXPECT_EQ(Pintados(imagen), 32 * 32);
    EXPECT_EQ(ColorDe(imagen), tema::kRojo);
}

TEST(TemaTest, IconOfACheckedButtonTakesItsOwnColour) {
    const CarpetaTemporal carpeta = CarpetaConIcono();
    const QIcon icono = tema::IconoDe({carpeta.Ruta()}, u"cuadro"_s, tema::kRojo, tema::kTexto);
    EXPECT_EQ(ColorDe(Imagen(icono, QIcon::Normal, QIcon::On)), tema::kTexto);
    EXPECT_EQ(ColorDe(Imagen(icono, QIcon::Normal, QIcon::Off)), tema::kRojo);
}

TEST(TemaTest, DisabledIconIsPaler) {
    const CarpetaTemporal carpeta = CarpetaConIcono();
    const QImage imagen =
        Imagen(tema::IconoDe({carpeta.Ruta()}, u"cuadro"_s, tema::kRojo), QIcon::Disabled);
    EXPECT_NEAR(qAlpha(imagen.pixel(16, 16)), 0.35 * 255, 3);
}

TEST(TemaTest, MissingOrBrokenIconIsNeverBlank) {
    const CarpetaTemporal carpeta = CarpetaConIcono();
    for (const char* nombre : {"dialog-ok", "dialog-cancel", "window-close", "window-minimize",
                               "list-add", "list-remove", "go-up", "go-down", "edit-clear",
                               "input-keyboard", "zvmonitor", "no-hay", "roto", "", "../x"}) {
        const QIcon icono = tema::IconoDe({carpeta.Ruta(), u"/no/existe"_s},
                                          QString::fromLatin1(nombre), tema::kTexto);
        EXPECT_FALSE(icono.isNull()) << nombre;
        EXPECT_GT(Pintados(Imagen(icono)), 20) << nombre;
    }
}

TEST(TemaTest, UnknownIconsTellThemselvesApart) {
    const QImage uno = Imagen(tema::IconoDe({}, u"alfa"_s, tema::kTexto));
    const QImage otro = Imagen(tema::IconoDe({}, u"mu"_s, tema::kTexto));
    EXPECT_NE(uno, otro);
}

TEST(TemaTest, MinimisingDoesNotLookLikeTurningAPage) {
    const auto dibujo = [](const char* nombre) {
        return tema::Icono(QString::fromLatin1(nombre)).pixmap(48).toImage();
    };
    EXPECT_NE(dibujo("window-minimize"), dibujo("go-down"));
}

TEST(TemaTest, TextIsReadableOnItsGround) {
    using namespace tema;
    EXPECT_GE(Contraste(kTexto, kCuerpo), 4.5);
    EXPECT_GE(Contraste(kTextoTenue, kCuerpo), 4.5);
    EXPECT_GE(Contraste(kRojoTexto, kCuerpo), 4.5);
    EXPECT_GE(Contraste(kCabeceraTexto, kCabecera), 4.5);
    EXPECT_GE(Contraste(kAmbar, kCabecera), 4.5);
    EXPECT_GE(Contraste(kVerde, kCabecera), 4.5);
    EXPECT_GE(Contraste(kTexto, kAmbar), 4.5);
    EXPECT_GE(Contraste(kRojoOscuro, kFondoAnular), 4.5);
    EXPECT_GE(Contraste(Qt::white, kRojoOscuro), 4.5);
    EXPECT_GE(Contraste(Qt::white, kResalte), 4.5);
    EXPECT_GE(Contraste(kResalte, kCuerpo), 3.0) << "the focus ring";
}

TEST(TemaTest, StyleSheetNamesNoColourThatDoesNotExist) {
    EXPECT_FALSE(tema::HojaDeEstilo().contains(QLatin1Char('@')));
}

TEST(TemaTest, ButtonsAreLargeEnoughForAFinger) {
    tema::Aplicar(*qApp);
    QPushButton boton(u"A"_s);
    boton.ensurePolished();
    EXPECT_GE(boton.sizeHint().height(), tema::kToqueMinimo);
    QToolButton tecla;
    tema::PonerPapel(tecla, tema::Papel::Tecla);
    tecla.ensurePolished();
    EXPECT_GE(tecla.minimumWidth(), tema::kTeclaMinima);
    EXPECT_GE(tecla.minimumHeight(), tema::kTeclaMinima);
    EXPECT_EQ(tecla.focusPolicy(), Qt::NoFocus) << "a key must leave the focus in its box";
    QToolButton pie;
    tema::PonerPapel(pie, tema::Papel::Pie);
    pie.ensurePolished();
    EXPECT_GE(pie.minimumHeight(), tema::kTeclaMinima);
    EXPECT_EQ(pie.toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
    QToolButton cabecera;
    tema::PonerPapel(cabecera, tema::Papel::Cabecera);
    cabecera.ensurePolished();
    EXPECT_GE(cabecera.minimumWidth(), tema::kToqueMinimo);
}

TEST(TemaTest, CaptionsBreakTheirLineAtTheMark) {
    EXPECT_EQ(tema::Rotulo(u"Dar¬Cambio"_s), u"Dar\nCambio"_s);
    EXPECT_EQ(tema::Rotulo(u"Pago"_s), u"Pago"_s);
}

TEST(TemaTest, LabelTakesTheColourGivenUnderTheStyleSheet) {
    tema::Aplicar(*qApp);
    QLabel etiqueta(u"\u2588\u2588\u2588"_s);
    tema::PonerColorTexto(etiqueta, tema::kVerde);
    etiqueta.resize(120, 40);
    const QImage imagen = etiqueta.grab().toImage();
    bool visto = false;
    for (int y = 0; y < imagen.height() && !visto; ++y) {
        for (int x = 0; x < imagen.width() && !visto; ++x) {
            visto = imagen.pixelColor(x, y) == tema::kVerde;
        }
    }
    EXPECT_TRUE(visto);
}

TEST(TemaTest, AmountsHaveFiguresOfOneWidth) {
    const QFontMetricsF medida(tema::FuenteImporte(30));
    for (const QChar cifra : u"123456789"_s) {
        EXPECT_EQ(medida.horizontalAdvance(cifra), medida.horizontalAdvance(QLatin1Char('0')));
    }
}

} // namespace
} // namespace zv::test
