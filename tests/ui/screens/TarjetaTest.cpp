// Cards: a title, and what belongs together below it.
#include "ui/screens/Tarjeta.h"

#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/ImprimeQt.h"
#include "ui/Clave.h"
#include "ui/Textos.h"
#include "ui/screens/Accesible.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QApplication>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace zv::test {
namespace {

constexpr Clave kTitulo(u"frmPrueba", u"lbModo", u"Iniciar en modo");

class TarjetaTest : public testing::Test {
  protected:
    TarjetaTest() {
        tema::Aplicar(*qApp);
        pantalla_.setObjectName(u"frmPrueba"_s);
        tarjeta_.Cuerpo()->addWidget(&dentro_);
        tarjeta_.resize(400, 200);
        pantalla_.show();
        QApplication::processEvents();
    }

    QWidget pantalla_;
    Tarjeta tarjeta_{kTitulo, &pantalla_};
    QLabel dentro_{u"Dentro"_s, &tarjeta_};
};

TEST_F(TarjetaTest, IsAGroupNamedByItsTitle) {
    EXPECT_EQ(tarjeta_.objectName(), u"lbModo"_s);
    EXPECT_EQ(PapelDe(tarjeta_), QAccessible::Grouping);
    EXPECT_EQ(NombreDe(tarjeta_), u"Iniciar en modo"_s);
}

TEST_F(TarjetaTest, ItsTitleIsTranslatedWithTheScreen) {
    CarpetaTemporal carpeta;
    carpeta.Pon(u"RWLang.ini"_s, "[frmPrueba]\r\nlbModo=Start in mode\r\n");
    TraducirPantalla(pantalla_, Textos(carpeta.Ruta()));
    EXPECT_EQ(tarjeta_.title(), u"Start in mode"_s);
    EXPECT_EQ(NombreDe(tarjeta_), u"Start in mode"_s);
}

// The title is drawn within the card, above the body.
TEST_F(TarjetaTest, TheBodyStartsBelowTheTitle) {
    EXPECT_GE(dentro_.y(), 44);
    const QImage imagen = tarjeta_.grab().toImage();
    int tinta = 0;
    for (int y = 3; y < dentro_.y(); ++y) {
        for (int x = 10; x < imagen.width() - 10; ++x) {
            tinta += qGray(imagen.pixel(x, y)) < 100 ? 1 : 0;
        }
    }
    EXPECT_GT(tinta, 100);
    EXPECT_EQ(imagen.pixelColor(200, 100), QColor(Qt::white));
}

TEST_F(TarjetaTest, MeasuresItselfByItsOwnRulesWithinAScrollAreaToo) {
    QScrollArea zona(&pantalla_);
    auto* lado = new QWidget(&zona);
    auto* columna = new QVBoxLayout(lado);
    auto* otra = new Tarjeta(kTitulo, lado);
    columna->addWidget(otra);
    zona.setWidget(lado);
    zona.show();
    QApplication::processEvents();
    EXPECT_EQ(otra->contentsMargins(), tarjeta_.contentsMargins());
    EXPECT_EQ(otra->contentsMargins(), QMargins(0, 44, 0, 0));
}

TEST_F(TarjetaTest, GrowsWithItsWindow) {
    const int margen = tarjeta_.Cuerpo()->contentsMargins().left();
    tarjeta_.Escalar(1.5);
    EXPECT_EQ(tarjeta_.Cuerpo()->contentsMargins().left(), margen * 3 / 2);
}

} // namespace
} // namespace zv::test
