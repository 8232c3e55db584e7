// Captions of a screen from the language file, and keystrokes.
#include "ui/screens/Traduccion.h"

#include "support/CarpetaTemporal.h"
#include "support/ImprimeQt.h"
#include "ui/Textos.h"

#include <QCheckBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace zv::test {
namespace {

class TraduccionTest : public testing::Test {
  protected:
    TraduccionTest() {
        pantalla_.setObjectName(QStringLiteral("frmPrueba"));
        for (int i = 0; i < 4; ++i) {
            boton_[i] = Con(new QPushButton(QStringLiteral("Botón %1").arg(i), &pantalla_),
                            QStringLiteral("boton_%1").arg(i));
        }
    }
    void Fichero(const QString& texto) {
        carpeta_.Pon(QStringLiteral("RWLang.ini"), "\xef\xbb\xbf" + texto.toUtf8());
    }
    template <typename T>
    T* Con(T* control, const QString& nombre) {
        control->setObjectName(nombre);
        return control;
    }
    void Traducir() { TraducirPantalla(pantalla_, textos_); }

    CarpetaTemporal carpeta_;
    Textos textos_{carpeta_.Ruta()};
    QWidget pantalla_;
    QPushButton* boton_[4];
};

TEST_F(TraduccionTest, WithoutAFileCaptionsStayAndTheTitleIsTheBuiltInOne) {
    auto* etiqueta = Con(new QLabel(QStringLiteral("Importe"), &pantalla_), QStringLiteral("lb"));
    Traducir();
    EXPECT_EQ(pantalla_.windowTitle(), QStringLiteral("Zorvex ®"));
    EXPECT_EQ(boton_[3]->text(), QStringLiteral("Botón 3"));
    EXPECT_EQ(etiqueta->text(), QStringLiteral("Importe"));
}

TEST_F(TraduccionTest, TitleOfEveryWindowComesFromItsKey) {
    Fichero(QStringLiteral("[GEN]\r\nFrmCaption=Mi caja\r\n"));
    Traducir();
    EXPECT_EQ(pantalla_.windowTitle(), QStringLiteral("Mi caja"));
}

TEST_F(TraduccionTest, KeyOfAnArraysMemberTranslatesThatMemberOfThatScreenOnly) {
    Fichero(QStringLiteral("[frmPrueba]\r\nboton_3=Button three\r\n[frmOtra]\r\nboton_1=No\r\n"
                           "[COMMON]\r\nboton_2=No\r\n"));
    Traducir();
    EXPECT_EQ(boton_[0]->text(), QStringLiteral("Botón 0"));
    EXPECT_EQ(boton_[1]->text(), QStringLiteral("Botón 1"));
    EXPECT_EQ(boton_[2]->text(), QStringLiteral("Botón 2"));
    EXPECT_EQ(boton_[3]->text(), QStringLiteral("Button three"));
}

TEST_F(TraduccionTest, ImageButtonsLabelsAndCommandButtonsAreTranslatedAtAnyDepth) {
    auto* marco = new QFrame(&pantalla_);
    auto* etiqueta = Con(new QLabel(QStringLiteral("Título"), marco), QStringLiteral("lbTitulo"));
    auto* imagen = Con(new QToolButton(marco), QStringLiteral("btnW_1"));
    imagen->setText(QStringLiteral("Cerrar"));
    Fichero(QStringLiteral("[frmPrueba]\r\nlbTitulo=Title\r\nbtnW_1=Close\r\n"));
    Traducir();
    EXPECT_EQ(etiqueta->text(), QStringLiteral("Title"));
    EXPECT_EQ(imagen->text(), QStringLiteral("Close"));
}

TEST_F(TraduccionTest, OtherKindsOfControlKeepTheirs) {
    auto* casilla =
        Con(new QCheckBox(QStringLiteral("Casilla"), &pantalla_), QStringLiteral("chk"));
    auto* opcion =
        Con(new QRadioButton(QStringLiteral("Opción"), &pantalla_), QStringLiteral("opt"));
    auto* caja = Con(new QLineEdit(QStringLiteral("Texto"), &pantalla_), QStringLiteral("tb"));
    auto* marco = Con(new QGroupBox(QStringLiteral("Marco"), &pantalla_), QStringLiteral("fra"));
    Fichero(QStringLiteral("[frmPrueba]\r\nchk=x\r\nopt=x\r\ntb=x\r\nfra=x\r\n"));
    Traducir();
    EXPECT_EQ(casilla->text(), QStringLiteral("Casilla"));
    EXPECT_EQ(opcion->text(), QStringLiteral("Opción"));
    EXPECT_EQ(caja->text(), QStringLiteral("Texto"));
    EXPECT_EQ(marco->title(), QStringLiteral("Marco"));
}

TEST_F(TraduccionTest, ControlsOfAnotherWindowAreLeftAlone) {
    QDialog hija(&pantalla_);
    auto* ajeno = Con(new QPushButton(QStringLiteral("Ajeno"), &hija), QStringLiteral("boton_0"));
    Fichero(QStringLiteral("[frmPrueba]\r\nboton_0=Mine\r\n"));
    Traducir();
    EXPECT_EQ(boton_[0]->text(), QStringLiteral("Mine"));
    EXPECT_EQ(ajeno->text(), QStringLiteral("Ajeno"));
}

TEST_F(TraduccionTest, LineBreakMarksOfBothKindsAreShownAsLineBreaks) {
    Fichero(QStringLiteral("[frmPrueba]\r\nboton_0=Give¬change\r\nboton_1=Pay/CRLF/out\r\n"));
    boton_[2]->setText(QStringLiteral("Añadir¬Cambio"));
    Traducir();
    EXPECT_EQ(boton_[0]->text(), QStringLiteral("Give\nchange"));
    EXPECT_EQ(boton_[1]->text(), QStringLiteral("Pay\r\nout"));
    EXPECT_EQ(boton_[2]->text(), QStringLiteral("Añadir\nCambio"));
}

TEST_F(TraduccionTest, StoredCaptionsLoseTheBlanksAtTheirEnds) {
    boton_[0]->setText(QStringLiteral("  Pago "));
    Traducir();
    EXPECT_EQ(boton_[0]->text(), QStringLiteral("Pago"));
}

TEST_F(TraduccionTest, EmptyEntryEmptiesTheCaption) {
    Fichero(QStringLiteral("[frmPrueba]\r\nboton_0=\r\n"));
    Traducir();
    EXPECT_EQ(boton_[0]->text(), QString());
}

TEST_F(TraduccionTest, EditedFileTakesEffectAtTheNextOpening) {
    Fichero(QStringLiteral("[frmPrueba]\r\nboton_0=One\r\n"));
    Traducir();
    EXPECT_EQ(boton_[0]->text(), QStringLiteral("One"));
    Fichero(QStringLiteral("[frmPrueba]\r\nboton_0=Two\r\n"));
    EXPECT_EQ(boton_[0]->text(), QStringLiteral("One"));
    Traducir();
    EXPECT_EQ(boton_[0]->text(), QStringLiteral("Two"));
}

TEST_F(TraduccionTest, NameReadAloudFollowsTheCaptionOfAPictureButton) {
    auto* imagen = Con(new QToolButton(&pantalla_), QStringLiteral("btnW_1"));
    imagen->setAccessibleName(QStringLiteral("Cerrar"));
    imagen->setToolTip(QStringLiteral("Cerrar"));
    Traducir();
    EXPECT_EQ(imagen->accessibleName(), QStringLiteral("Cerrar"));
    Fichero(QStringLiteral("[frmPrueba]\r\nbtnW_1=Close¬it\r\n"));
    Traducir();
    EXPECT_EQ(imagen->accessibleName(), QStringLiteral("Close it"));
    EXPECT_EQ(imagen->toolTip(), QStringLiteral("Close it"));
}

class EnviaTeclasTest : public testing::Test {
  protected:
    EnviaTeclasTest() {
        auto* columna = new QVBoxLayout(&ventana_);
        columna->addWidget(&uno_);
        columna->addWidget(&otro_);
        ventana_.show();
        ventana_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&ventana_));
        uno_.setFocus();
    }
    QWidget ventana_;
    QLineEdit uno_;
    QLineEdit otro_;
};

TEST_F(EnviaTeclasTest, CharactersGoToTheControlWithTheFocus) {
    EnviaTeclas(QStringLiteral("9,ñ€Ab"));
    EXPECT_EQ(uno_.text(), QStringLiteral("9,ñ€Ab"));
    EXPECT_EQ(otro_.text(), QString());
}

TEST_F(EnviaTeclasTest, NamedKeysAreSentAsKeys) {
    EnviaTeclas(QStringLiteral("123{BACKSPACE}{bs}4"));
    EXPECT_EQ(uno_.text(), QStringLiteral("14"));
    EnviaTeclas(QStringLiteral("{HOME}{DEL}"));
    EXPECT_EQ(uno_.text(), QStringLiteral("4"));
    EnviaTeclas(QStringLiteral("{TAB}7"));
    EXPECT_TRUE(otro_.hasFocus());
    EXPECT_EQ(otro_.text(), QStringLiteral("7"));
}

TEST_F(EnviaTeclasTest, EnterIsTheReturnKey) {
    int veces = 0;
    QObject::connect(&uno_, &QLineEdit::returnPressed, [&veces] { ++veces; });
    EnviaTeclas(QStringLiteral("{ENTER}"));
    EXPECT_EQ(veces, 1);
}

TEST_F(EnviaTeclasTest, BracesThemselvesCanBeSent) {
    EnviaTeclas(QStringLiteral("{{}x{}}"));
    EXPECT_EQ(uno_.text(), QStringLiteral("{x}"));
    uno_.clear();
    EnviaTeclas(QStringLiteral("a{"));
    EXPECT_EQ(uno_.text(), QStringLiteral("a{"));
}

TEST_F(EnviaTeclasTest, UnknownNameSendsNothing) {
    EnviaTeclas(QStringLiteral("a{NOHAY}b"));
    EXPECT_EQ(uno_.text(), QStringLiteral("ab"));
}

TEST_F(EnviaTeclasTest, WithoutAFocusNothingHappens) {
    uno_.clearFocus();
    EnviaTeclas(QStringLiteral("5"));
    EXPECT_EQ(uno_.text() + otro_.text(), QString());
}

} // namespace
} // namespace zv::test
