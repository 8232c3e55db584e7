// Levels as bars: which pieces each of them stands for, how they are named, and what is painted.
#include "device/screens/BarrasNiveles.h"

#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"
#include "ui/Importes.h"
#include "ui/screens/Tema.h"

#include <QAccessible>
#include <QApplication>
#include <QImage>

#include <gtest/gtest.h>

namespace zv::test {
namespace {

const NivelesDispositivo kNiveles{{{1, 10}, {50, 4}, {500, 7}}, {{50, 2}, {200, 9}, {2000, 3}}};

class BarrasNivelesTest : public testing::Test {
  protected:
    BarrasNivelesTest() {
        tema::Aplicar(*qApp);
        barras.PonerPalabras(u"Cambio"_s, u"Cajones"_s);
        barras.resize(300, 120);
        barras.show();
    }
    void Poner(const std::vector<NivelBarra>& niveles, qint64 mayor) {
        barras.Poner(niveles, mayor);
        QApplication::processEvents();
    }
    QWidget* Barra(int valor) { return barras.findChild<QWidget*>(u"nivel_%1"_s.arg(valor)); }
    QString Nombre(int valor) {
        return QAccessible::queryAccessibleInterface(Barra(valor))->text(QAccessible::Name);
    }
    // Height of a colour in the bar, in pixels.
    int Alto(int valor, const QColor& color) {
        const QImage imagen = Barra(valor)->grab().toImage();
        int alto = 0;
        for (int y = 0; y < imagen.height(); ++y) {
            bool esta = false;
            for (int x = 0; x < imagen.width(); ++x) {
                esta = esta || imagen.pixelColor(x, y) == color;
            }
            alto += esta ? 1 : 0;
        }
        return alto;
    }

    quint8 multiplicador = 100;
    Importes importes{FormatoRegional(u"es_ES"_s), [this] { return multiplicador; }};
    BarrasNiveles barras{importes, nullptr};
};

TEST_F(BarrasNivelesTest, CoinsAndNotesOfBothPlacesByTheirValue) {
    EXPECT_EQ(NivelesEnBarras(kNiveles, false),
              (std::vector<NivelBarra>{{1, 10, 0}, {50, 4, 2}, {200, 0, 9}}));
    EXPECT_EQ(NivelesEnBarras(kNiveles, true),
              (std::vector<NivelBarra>{{500, 7, 0}, {2000, 0, 3}}));
    EXPECT_TRUE(NivelesEnBarras({}, true).empty());
}

TEST_F(BarrasNivelesTest, TheHighestOfBothPlacesIsTheScale) {
    EXPECT_EQ(MayorNivel({{1, 10, 0}, {50, 4, 12}}), 12);
    EXPECT_EQ(MayorNivel({{1, 10, 0}, {50, 4, 2}}), 10);
    EXPECT_EQ(MayorNivel({}), 0);
}

TEST_F(BarrasNivelesTest, ABarTellsItsValueAndBothCounts) {
    Poner({{1, 10, 0}, {50, 4, 2}, {200, 0, 9}}, 10);
    EXPECT_EQ(Nombre(1), u"0,01: Cambio 10, Cajones 0"_s);
    EXPECT_EQ(Nombre(50), u"0,50: Cambio 4, Cajones 2"_s);
    EXPECT_EQ(Nombre(200), u"2: Cambio 0, Cajones 9"_s);
    barras.PonerPalabras(u"Float"_s, u"Boxes"_s);
    EXPECT_EQ(Nombre(200), u"2: Float 0, Boxes 9"_s);
}

TEST_F(BarrasNivelesTest, WithoutAMultiplierTheBareValueStands) {
    multiplicador = 0;
    Poner({{50, 4, 2}}, 10);
    EXPECT_EQ(Nombre(50), u"50: Cambio 4, Cajones 2"_s);
}

TEST_F(BarrasNivelesTest, BarsComeAndGoWithTheDenominations) {
    Poner({{1, 10, 0}, {50, 4, 2}, {200, 0, 9}}, 10);
    Poner({{50, 1, 1}}, 10);
    EXPECT_EQ(Barra(1), nullptr);
    EXPECT_EQ(Barra(200), nullptr);
    EXPECT_EQ(Nombre(50), u"0,50: Cambio 1, Cajones 1"_s);
    Poner({}, 0);
    EXPECT_EQ(Barra(50), nullptr);
}

TEST_F(BarrasNivelesTest, AColumnIsAsHighAsItsShareAndASinglePieceIsSeen) {
    Poner({{1, 100, 50}, {2, 0, 0}, {5, 1, 0}}, 100);
    const int lleno = Alto(1, tema::kResalte);
    EXPECT_GT(lleno, 40);
    EXPECT_NEAR(Alto(1, tema::kAmbar), lleno / 2, 1);
    EXPECT_EQ(Alto(2, tema::kResalte), 0);
    EXPECT_EQ(Alto(2, tema::kAmbar), 0);
    EXPECT_EQ(Alto(5, tema::kResalte), 3);
}

TEST_F(BarrasNivelesTest, GrowsWithItsWindow) {
    Poner({{1, 1, 1}}, 1);
    const QSize antes = Barra(1)->minimumSize();
    barras.Escalar(1.5);
    EXPECT_EQ(Barra(1)->minimumSize(), antes * 1.5);
    Poner({{1, 1, 1}, {2, 1, 1}}, 1);
    EXPECT_EQ(Barra(2)->minimumSize(), antes * 1.5);
}

} // namespace
} // namespace zv::test
