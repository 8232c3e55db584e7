// The footer: one table makes its buttons, captions are never cut.
#include "ui/screens/BarraPie.h"

#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"
#include "ui/Clave.h"
#include "ui/screens/Accesible.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace zv::test {
namespace {

constexpr Clave kClaves[] = {{u"frmPrueba", u"boton_0", u"Salir"},
                             {u"frmPrueba", u"boton_2", u"Cierre¬Niveles Óptimos"},
                             {u"frmPrueba", u"boton_5", u"Vaciado¬Cajón Monedas"}};

constexpr EntradaPie kTabla[] = {{2, &kClaves[1], u"view-refresh"},
                                 {0, &kClaves[0], u"go-previous", false, EntradaPie::Clase::Salir},
                                 {3, nullptr, {}},
                                 {5, &kClaves[2], u"edit-clear", true}};

class BarraPieTest : public testing::Test {
  protected:
    BarraPieTest() {
        tema::Aplicar(*qApp);
        barra_.resize(1024, barra_.height());
        barra_.show();
        QApplication::processEvents();
    }
    QToolButton& Boton(int indice) { return *barra_.Boton(indice); }

    BarraPie barra_{kTabla, nullptr};
};

TEST_F(BarraPieTest, TheTableNamesTheButtonsAndTheirCaptions) {
    EXPECT_EQ(Boton(2).objectName(), u"boton_2"_s);
    EXPECT_EQ(Boton(2).text(), u"Cierre\nNiveles Óptimos"_s);
    EXPECT_EQ(NombreDe(Boton(2)), u"Cierre Niveles Óptimos"_s);
    EXPECT_EQ(PapelDe(Boton(2)), QAccessible::Button);
    EXPECT_EQ(barra_.Boton(4), nullptr);
    EXPECT_EQ(barra_.BotonSalir(), &Boton(0));
}

TEST_F(BarraPieTest, ANumberWithoutACaptionIsNotThere) {
    EXPECT_EQ(Boton(3).objectName(), u"boton_3"_s);
    EXPECT_FALSE(Boton(3).isVisible());
}

TEST_F(BarraPieTest, EachButtonTellsItsNumber) {
    QList<int> pulsados;
    QObject::connect(&barra_, &BarraPie::Pulsado, [&](int indice) { pulsados << indice; });
    for (const int indice : {5, 0, 2}) {
        QTest::mouseClick(&Boton(indice), Qt::LeftButton);
    }
    EXPECT_EQ(pulsados, (QList<int>{5, 0, 2}));
}

TEST_F(BarraPieTest, TheLeavingButtonStandsFarLeftWhereverTheTableHasIt) {
    EXPECT_LE(Boton(0).x(), 8);
    EXPECT_LT(Boton(0).geometry().right(), Boton(2).x());
}

TEST_F(BarraPieTest, TheLeavingButtonHasOnePlaceAndShapeOnAllScreens) {
    BarraPie sola{std::span(kTabla).subspan(1, 1), nullptr};
    sola.resize(1024, sola.height());
    sola.show();
    QApplication::processEvents();
    EXPECT_EQ(sola.Boton(0)->geometry(), Boton(0).geometry());
}

TEST_F(BarraPieTest, AGapSetsAButtonApart) {
    EXPECT_GE(Boton(5).x() - Boton(2).geometry().right(), 20);
}

TEST_F(BarraPieTest, ButtonsAreForAFingerAndFewOfThemDoNotFillTheBar) {
    for (const int indice : {0, 2, 5}) {
        EXPECT_GE(Boton(indice).width(), tema::kTeclaMinima) << indice;
        EXPECT_GE(Boton(indice).height(), tema::kTeclaMinima) << indice;
        EXPECT_LE(Boton(indice).width(), 200) << indice;
    }
}

TEST_F(BarraPieTest, LettersAreLargeEnough) {
    EXPECT_GE(Boton(2).fontInfo().pixelSize(), 16);
}

TEST_F(BarraPieTest, NoWordOfACaptionIsCut) {
    for (const int indice : {0, 2, 5}) {
        const QString texto = Boton(indice).text().replace(u'\n', u' ');
        for (const QString& palabra : texto.split(u' ')) {
            EXPECT_LT(Boton(indice).fontMetrics().horizontalAdvance(palabra),
                      Boton(indice).minimumSizeHint().width())
                << palabra.toStdString();
        }
    }
    const int antes = Boton(5).minimumSizeHint().width();
    PonerCaption(Boton(5), u"Una palabra desproporcionada"_s);
    EXPECT_GT(Boton(5).minimumSizeHint().width(), antes);
}

// Pixels of the caption's colour in each half of the button: the picture above, the caption below.
TEST_F(BarraPieTest, ACaptionOfThreeLinesLeavesRoomForThePicture) {
    PonerCaption(Boton(2), u"Cierre¬Niveles¬Óptimos"_s);
    barra_.resize(400, barra_.height());
    QApplication::processEvents();
    const QImage imagen = Boton(2).grab().toImage();
    const int rotulo = 3 * Boton(2).fontMetrics().lineSpacing();
    int dibujo = 0;
    int letras = 0;
    for (int y = 4; y < imagen.height() - 4; ++y) {
        for (int x = 4; x < imagen.width() - 4; ++x) {
            if (qGray(imagen.pixel(x, y)) < 128) {
                (y < imagen.height() - rotulo - 4 ? dibujo : letras) += 1;
            }
        }
    }
    EXPECT_GT(dibujo, 20);
    EXPECT_GT(letras, 200);
}

TEST_F(BarraPieTest, ItGrowsWithItsWindow) {
    const int alto = barra_.height();
    const int ancho = Boton(0).width();
    const int letra = Boton(2).fontInfo().pixelSize();
    const QSize icono = Boton(2).iconSize();
    barra_.Escalar(1.5);
    EXPECT_EQ(barra_.height(), alto * 3 / 2);
    EXPECT_EQ(Boton(0).minimumWidth(), ancho * 3 / 2);
    EXPECT_EQ(Boton(2).fontInfo().pixelSize(), letra * 3 / 2);
    EXPECT_EQ(Boton(2).iconSize(), icono * 3 / 2);
    barra_.Escalar(1);
    EXPECT_EQ(barra_.height(), alto);
    EXPECT_EQ(Boton(2).fontInfo().pixelSize(), letra);
}

} // namespace
} // namespace zv::test
