// The switch of three parts.
#include "ui/screens/SelectorTres.h"

#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/ImprimeQt.h"
#include "ui/Clave.h"
#include "ui/Textos.h"
#include "ui/screens/Accesible.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace zv::test {
namespace {

constexpr Clave kGrupo(u"frmPrueba", u"grupoModo", u"Modo");
constexpr Clave kPartes[] = {{u"frmPrueba", u"btnModo_0", u"AUTO"},
                             {u"frmPrueba", u"btnModo_1", u"MANUAL"},
                             {u"frmPrueba", u"btnModo_2", u"SEMIAUTO"}};

class SelectorTresTest : public testing::Test {
  protected:
    SelectorTresTest() {
        tema::Aplicar(*qApp);
        pantalla_.setObjectName(u"frmPrueba"_s);
        selector_.resize(460, 64);
        pantalla_.resize(500, 100);
        pantalla_.show();
        QApplication::processEvents();
        QObject::connect(&selector_, &SelectorTres::Elegido,
                         [this](int indice) { elegidos_ << indice; });
    }
    void Tocar(int indice) { QTest::mouseClick(selector_.Parte(indice), Qt::LeftButton); }
    QList<int> Pulsadas() const {
        QList<int> abajo;
        for (int i = 0; i < 3; ++i) {
            if (selector_.Parte(i)->isChecked()) {
                abajo << i;
            }
        }
        return abajo;
    }

    QWidget pantalla_;
    SelectorTres selector_{kGrupo, {&kPartes[0], &kPartes[1], &kPartes[2]}, &pantalla_};
    QList<int> elegidos_;
};

TEST_F(SelectorTresTest, IsAGroupOfThreeRadioButtons) {
    EXPECT_EQ(PapelDe(selector_), QAccessible::Grouping);
    EXPECT_EQ(NombreDe(selector_), u"Modo"_s);
    const QString nombres[] = {u"AUTO"_s, u"MANUAL"_s, u"SEMIAUTO"_s};
    for (int i = 0; i < 3; ++i) {
        QPushButton& parte = *selector_.Parte(i);
        EXPECT_EQ(parte.objectName(), u"btnModo_%1"_s.arg(i));
        EXPECT_EQ(PapelDe(parte), QAccessible::RadioButton);
        EXPECT_EQ(NombreDe(parte), nombres[i]);
        EXPECT_EQ(Accesible(parte).parent()->object(), &selector_);
    }
}

TEST_F(SelectorTresTest, TakesNoRoomBesideItsParts) {
    EXPECT_EQ(selector_.contentsMargins(), QMargins());
    EXPECT_EQ(selector_.Parte(0)->mapTo(&selector_, QPoint()), QPoint());
}

TEST_F(SelectorTresTest, NothingIsChosenAtFirst) {
    EXPECT_EQ(selector_.Elegida(), SelectorTres::kNinguna);
    EXPECT_EQ(Pulsadas(), QList<int>());
}

TEST_F(SelectorTresTest, ATouchChoosesOneAndReleasesTheOthers) {
    Tocar(1);
    EXPECT_EQ(Pulsadas(), QList<int>{1});
    Tocar(2);
    EXPECT_EQ(Pulsadas(), QList<int>{2});
    EXPECT_EQ(selector_.Elegida(), 2);
    EXPECT_EQ(elegidos_, (QList<int>{1, 2}));
    EXPECT_TRUE(Accesible(*selector_.Parte(2)).state().checked);
}

TEST_F(SelectorTresTest, TheOneThatIsChosenStaysSoAndTellsNothing) {
    Tocar(0);
    Tocar(0);
    EXPECT_EQ(Pulsadas(), QList<int>{0});
    EXPECT_EQ(elegidos_, QList<int>{0});
}

TEST_F(SelectorTresTest, TheProgramChoosesWithoutAWord) {
    selector_.Elegir(2);
    EXPECT_EQ(Pulsadas(), QList<int>{2});
    Tocar(2);
    EXPECT_EQ(elegidos_, QList<int>());
    selector_.Elegir(SelectorTres::kNinguna);
    EXPECT_EQ(Pulsadas(), QList<int>());
    Tocar(2);
    EXPECT_EQ(elegidos_, QList<int>{2});
    Tocar(0);
    EXPECT_EQ(Pulsadas(), QList<int>{0}) << "it is exclusive again";
}

TEST_F(SelectorTresTest, ArrowKeysChooseToo) {
    selector_.Elegir(0);
    selector_.Parte(0)->setFocus();
    QTest::keyClick(selector_.Parte(0), Qt::Key_Right);
    EXPECT_EQ(Pulsadas(), QList<int>{1});
    EXPECT_EQ(elegidos_, QList<int>{1});
}

TEST_F(SelectorTresTest, CaptionsAndItsNameAreTranslatedWithTheScreen) {
    CarpetaTemporal carpeta;
    carpeta.Pon(u"RWLang.ini"_s, "[frmPrueba]\r\ngrupoModo=Mode\r\nbtnModo_2=HALF\r\n");
    TraducirPantalla(pantalla_, Textos(carpeta.Ruta()));
    EXPECT_EQ(NombreDe(selector_), u"Mode"_s);
    EXPECT_EQ(NombreDe(*selector_.Parte(2)), u"HALF"_s);
}

TEST_F(SelectorTresTest, PartsAreForAFingerOfOneWidthAndSideBySide) {
    for (int i = 0; i < 3; ++i) {
        EXPECT_GE(selector_.Parte(i)->height(), tema::kTeclaMinima);
        EXPECT_NEAR(selector_.Parte(i)->width(), 460 / 3, 2);
    }
    EXPECT_EQ(selector_.Parte(0)->geometry().right() + 1, selector_.Parte(1)->x());
    selector_.Escalar(1.5);
    EXPECT_GE(selector_.sizeHint().height(), tema::kTeclaMinima * 3 / 2);
}

TEST_F(SelectorTresTest, TheChosenPartIsSeenWithoutColours) {
    selector_.Elegir(1);
    const auto fondo = [this](int i) {
        return qGray(selector_.Parte(i)->grab().toImage().pixel(8, 8));
    };
    EXPECT_GT(fondo(0), 200);
    EXPECT_LT(fondo(1), 100);
}

} // namespace
} // namespace zv::test
