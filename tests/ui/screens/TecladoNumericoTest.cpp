// The numeric keypad: its places, its names, and the field that its keys write into.
#include "ui/screens/TecladoNumerico.h"

#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"
#include "ui/Clave.h"
#include "ui/screens/Accesible.h"
#include "ui/screens/Tema.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace zv::test {
namespace {

constexpr Clave kRetroceso(u"frmPrueba", u"teci_12", u"Retroceso");

class TecladoNumericoTest : public testing::Test {
  protected:
    explicit TecladoNumericoTest(QChar decimal = {})
        : teclado_(kRetroceso, decimal, &ventana_), orden_(u"Entrar"_s, &ventana_) {
        tema::Aplicar(*qApp);
        auto* columna = new QVBoxLayout(&ventana_);
        for (QWidget* cada : std::initializer_list<QWidget*>{&uno_, &otro_, &teclado_, &orden_}) {
            columna->addWidget(cada);
        }
        teclado_.Servir(uno_);
        teclado_.Servir(otro_);
        ventana_.show();
        QApplication::setActiveWindow(&ventana_);
        uno_.setFocus();
        QApplication::processEvents();
    }
    void Tocar(int indice) { QTest::mouseClick(teclado_.Tecla(indice), Qt::LeftButton); }
    void Tocar(const char* cifras) {
        static constexpr int kTeclaDe[] = {9, 4, 5, 6, 1, 2, 3, 7, 8, 0};
        for (const char* c = cifras; *c != '\0'; ++c) {
            Tocar(kTeclaDe[*c - '0']);
        }
    }
    QPoint Sitio(const QAbstractButton* tecla) const { return tecla->geometry().center(); }

    QWidget ventana_;
    QLineEdit uno_;
    QLineEdit otro_;
    TecladoNumerico teclado_;
    QPushButton orden_;
};

class TecladoConDecimalTest : public TecladoNumericoTest {
  protected:
    TecladoConDecimalTest() : TecladoNumericoTest(u',') {}
};

TEST_F(TecladoNumericoTest, KeysWriteTheirDigitsByTheirNumbers) {
    constexpr const char* kCifras = "9456123780";
    for (int i = 0; i < 10; ++i) {
        const QString cifra(QLatin1Char(kCifras[i]));
        EXPECT_EQ(teclado_.Tecla(i)->objectName(), u"teci_%1"_s.arg(i));
        EXPECT_EQ(teclado_.Tecla(i)->property("Tag").toString(), cifra);
        EXPECT_EQ(NombreDe(*teclado_.Tecla(i)), cifra);
        Tocar(i);
        EXPECT_EQ(uno_.text(), cifra);
        uno_.clear();
    }
}

TEST_F(TecladoNumericoTest, IsLaidOutLikeATill) {
    const auto tecla = [this](int indice) { return Sitio(teclado_.Tecla(indice)); };
    // 7 8 9 above 4 5 6 above 1 2 3, and 0 below the 2.
    EXPECT_EQ(tecla(7).y(), tecla(0).y());
    EXPECT_LT(tecla(7).x(), tecla(8).x());
    EXPECT_LT(tecla(8).x(), tecla(0).x());
    EXPECT_LT(tecla(8).y(), tecla(2).y());
    EXPECT_LT(tecla(2).y(), tecla(5).y());
    EXPECT_LT(tecla(5).y(), tecla(9).y());
    EXPECT_EQ(tecla(5).x(), tecla(9).x());
    EXPECT_EQ(Sitio(teclado_.Retroceso()).x(), tecla(4).x());
    EXPECT_EQ(teclado_.Tecla(TecladoNumerico::kDecimal), nullptr);
}

TEST_F(TecladoConDecimalTest, TheDecimalKeyStandsBesideTheZeroAndWritesTheMark) {
    const QAbstractButton* decimal = teclado_.Tecla(TecladoNumerico::kDecimal);
    EXPECT_EQ(decimal->text(), u","_s);
    EXPECT_EQ(decimal->objectName(), u"teci_10"_s);
    EXPECT_EQ(Sitio(decimal).y(), Sitio(teclado_.Tecla(9)).y());
    EXPECT_LT(Sitio(teclado_.Tecla(9)).x(), Sitio(decimal).x());
    EXPECT_LT(Sitio(decimal).x(), Sitio(teclado_.Retroceso()).x());
    Tocar("12");
    Tocar(TecladoNumerico::kDecimal);
    Tocar("5");
    EXPECT_EQ(uno_.text(), u"12,5"_s);
}

TEST_F(TecladoNumericoTest, TheErasingKeyIsNamedAndErasesOneCharacter) {
    EXPECT_EQ(teclado_.Retroceso()->objectName(), u"teci_12"_s);
    EXPECT_EQ(NombreDe(*teclado_.Retroceso()), u"Retroceso"_s);
    EXPECT_EQ(teclado_.Retroceso()->text(), u"Retroceso"_s);
    Tocar("123");
    QTest::mouseClick(teclado_.Retroceso(), Qt::LeftButton);
    EXPECT_EQ(uno_.text(), u"12"_s);
}

TEST_F(TecladoNumericoTest, KeysGoToTheFieldThatHasTheFocus) {
    Tocar("1");
    otro_.setFocus();
    Tocar("2");
    EXPECT_EQ(uno_.text(), u"1"_s);
    EXPECT_EQ(otro_.text(), u"2"_s);
    EXPECT_EQ(teclado_.CampoActivo(), &otro_);
    EXPECT_TRUE(otro_.hasFocus());
}

TEST_F(TecladoNumericoTest, KeysGoToTheLastFieldWhenSomethingElseHasTheFocus) {
    otro_.setFocus();
    orden_.setFocus();
    Tocar("45");
    EXPECT_EQ(otro_.text(), u"45"_s);
}

TEST_F(TecladoNumericoTest, TheFieldThatWillReceiveTheKeysIsSeenToBeTheActiveOne) {
    EXPECT_TRUE(uno_.property("activo").toBool());
    otro_.setFocus();
    orden_.setFocus();
    QApplication::processEvents();
    EXPECT_FALSE(uno_.property("activo").toBool());
    const QImage activo = otro_.grab().toImage();
    const QImage pasivo = uno_.grab().toImage();
    const QPoint borde(activo.width() / 2, 1);
    EXPECT_EQ(activo.pixelColor(borde), tema::kResalte);
    EXPECT_NE(pasivo.pixelColor(borde), tema::kResalte);
}

TEST_F(TecladoNumericoTest, AHiddenOrDisabledFieldReceivesNothing) {
    otro_.setFocus();
    otro_.hide();
    Tocar("7");
    EXPECT_EQ(uno_.text(), u"7"_s);
    otro_.show();
    otro_.setFocus();
    otro_.setEnabled(false);
    Tocar("8");
    EXPECT_EQ(uno_.text(), u"78"_s);
    EXPECT_EQ(otro_.text(), QString());
    uno_.hide();
    EXPECT_EQ(teclado_.CampoActivo(), nullptr);
    Tocar("9");
    EXPECT_EQ(uno_.text(), u"78"_s);
}

TEST_F(TecladoNumericoTest, KeysTakeTheFocusFromNoField) {
    EXPECT_EQ(teclado_.Tecla(0)->focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(teclado_.Retroceso()->focusPolicy(), Qt::NoFocus);
    Tocar("1");
    EXPECT_TRUE(uno_.hasFocus());
}

TEST_F(TecladoConDecimalTest, KeysAreForAFingerAtEveryScale) {
    for (const double escala : {1.0, 1.40625}) {
        teclado_.Escalar(escala);
        ventana_.adjustSize();
        QApplication::processEvents();
        for (QAbstractButton* tecla : teclado_.findChildren<QAbstractButton*>()) {
            EXPECT_GE(tecla->width(), tema::Px(tema::kTeclaMinima, escala));
            EXPECT_GE(tecla->height(), tema::Px(tema::kTeclaMinima, escala));
            EXPECT_GE(tecla->fontInfo().pixelSize(), 16);
        }
    }
}

} // namespace
} // namespace zv::test
