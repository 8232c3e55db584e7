// Toggles: a checkable control with its state in words.
#include "ui/screens/Interruptor.h"

#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/ImprimeQt.h"
#include "ui/Clave.h"
#include "ui/Textos.h"
#include "ui/screens/Accesible.h"
#include "ui/screens/Tema.h"
#include "ui/screens/Traduccion.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace zv::test {
namespace {

constexpr Clave kRotulo(u"frmPrueba", u"btnCfg_5", u"Preguntar concepto en pagos/cobros manuales");

class InterruptorTest : public testing::Test {
  protected:
    InterruptorTest() {
        tema::Aplicar(*qApp);
        pantalla_.setObjectName(u"frmPrueba"_s);
        interruptor_.resize(460, 52);
        pantalla_.resize(500, 200);
        pantalla_.show();
        QApplication::setActiveWindow(&pantalla_);
        QApplication::processEvents();
    }
    // Of the right half, where the switch and its word are.
    QImage Estado() {
        return interruptor_
            .grab(
                QRect(interruptor_.width() / 2, 0, interruptor_.width() / 2, interruptor_.height()))
            .toImage();
    }

    CarpetaTemporal carpeta_;
    Textos textos_{carpeta_.Ruta()};
    QWidget pantalla_;
    Interruptor interruptor_{kRotulo, textos_, &pantalla_};
};

TEST_F(InterruptorTest, IsACheckBoxToAScreenReader) {
    EXPECT_EQ(interruptor_.objectName(), u"btnCfg_5"_s);
    EXPECT_EQ(PapelDe(interruptor_), QAccessible::CheckBox);
    EXPECT_EQ(NombreDe(interruptor_), u"Preguntar concepto en pagos/cobros manuales"_s);
    EXPECT_TRUE(Accesible(interruptor_).state().checkable);
    EXPECT_FALSE(Accesible(interruptor_).state().checked);
    interruptor_.setChecked(true);
    EXPECT_TRUE(Accesible(interruptor_).state().checked);
}

TEST_F(InterruptorTest, ATouchTurnsItOverAndATellsItOnce) {
    QList<bool> dicho;
    QObject::connect(&interruptor_, &Interruptor::clicked, [&](bool puesto) { dicho << puesto; });
    QTest::mouseClick(&interruptor_, Qt::LeftButton);
    EXPECT_TRUE(interruptor_.isChecked());
    QTest::mouseClick(&interruptor_, Qt::LeftButton, {}, QPoint(20, 20));
    EXPECT_FALSE(interruptor_.isChecked());
    EXPECT_EQ(dicho, (QList<bool>{true, false}));
}

TEST_F(InterruptorTest, TheSpaceBarTurnsItOver) {
    QTest::keyClick(&interruptor_, Qt::Key_Space);
    EXPECT_TRUE(interruptor_.isChecked());
}

TEST_F(InterruptorTest, SaysItsStateInWords) {
    EXPECT_EQ(interruptor_.Palabra(), u"No"_s);
    EXPECT_EQ(Accesible(interruptor_).text(QAccessible::Description), u"No"_s);
    interruptor_.setChecked(true);
    EXPECT_EQ(interruptor_.Palabra(), u"Sí"_s);
    EXPECT_EQ(Accesible(interruptor_).text(QAccessible::Description), u"Sí"_s);
}

TEST_F(InterruptorTest, CaptionAndWordsComeFromTheLanguageFile) {
    carpeta_.Pon(u"RWLang.ini"_s, "[COMMON]\r\ninterruptorSi=Yes\r\ninterruptorNo=Nope\r\n"
                                  "[frmPrueba]\r\nbtnCfg_5=Ask for a description\r\n");
    Interruptor otro(kRotulo, textos_, &pantalla_);
    TraducirPantalla(pantalla_, textos_);
    EXPECT_EQ(otro.Palabra(), u"Nope"_s);
    otro.setChecked(true);
    EXPECT_EQ(otro.Palabra(), u"Yes"_s);
    EXPECT_EQ(NombreDe(otro), u"Ask for a description"_s);
}

TEST_F(InterruptorTest, OnOffDisabledPressedAndFocusedLookDifferent) {
    interruptor_.clearFocus(); // the window gave it to its only control
    const QImage apagado = Estado();
    interruptor_.setChecked(true);
    const QImage encendido = Estado();
    EXPECT_NE(apagado, encendido);
    // Not by colour alone: the knob moves and the word changes.
    EXPECT_NE(apagado.convertToFormat(QImage::Format_Mono),
              encendido.convertToFormat(QImage::Format_Mono));
    interruptor_.setFocus();
    ASSERT_TRUE(interruptor_.hasFocus());
    EXPECT_NE(Estado(), encendido);
    interruptor_.clearFocus();
    interruptor_.setDown(true);
    EXPECT_NE(Estado(), encendido);
    interruptor_.setDown(false);
    interruptor_.setEnabled(false);
    EXPECT_NE(Estado(), encendido);
}

TEST_F(InterruptorTest, ALongCaptionTakesMoreLinesAndIsNotCut) {
    const int linea = interruptor_.fontMetrics().lineSpacing();
    EXPECT_EQ(interruptor_.heightForWidth(900), 52);
    EXPECT_GE(interruptor_.heightForWidth(280), 3 * linea);
    EXPECT_LT(interruptor_.minimumSizeHint().width(), interruptor_.sizeHint().width());
}

TEST_F(InterruptorTest, IsForAFingerAndGrowsWithItsWindow) {
    EXPECT_GE(interruptor_.sizeHint().height(), tema::kToqueMinimo);
    EXPECT_GE(interruptor_.minimumSizeHint().height(), tema::kToqueMinimo);
    const int alto = interruptor_.sizeHint().height();
    interruptor_.Escalar(1.5);
    EXPECT_EQ(interruptor_.sizeHint().height(), alto * 3 / 2);
}

} // namespace
} // namespace zv::test
