// Captions of a screen from the language file, and keystrokes.
#include "ui/screens/Traduccion.h"

#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/ImprimeQt.h"
#include "ui/Textos.h"
#include "ui/screens/Tema.h"

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
        pantalla_.setObjectName(u"frmPrueba"_s);
        for (int i = 0; i < 4; ++i) {
            boton_[i] =
                Con(new QPushButton(u"Botón %1"_s.arg(i), &pantalla_), u"boton_%1"_s.arg(i));
        }
    }
    void Fichero(const QString& texto) {
        carpeta_.Pon(u"RWLang.ini"_s, "\xef\xbb\xbf" + texto.toUtf8());
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
    auto* etiqueta = Con(new QLabel(u"Importe"_s, &pantalla_), u"lb"_s);
    Traducir();
    EXPECT_EQ(pantalla_.windowTitle(), u"Zorvex ®"_s);
    EXPECT_EQ(boton_[3]->text(), u"Botón 3"_s);
    EXPECT_EQ(etiqueta->text(), u"Importe"_s);
}

TEST_F(TraduccionTest, TitleOfEveryWindowComesFromItsKey) {
    Fichero(u"[GEN]\r\nFrmCaption=Mi caja\r\n"_s);
    Traducir();
    EXPECT_EQ(pantalla_.windowTitle(), u"Mi caja"_s);
}

TEST_F(TraduccionTest, KeyOfAnArraysMemberTranslatesThatMemberOfThatScreenOnly) {
    Fichero(u"[frmPrueba]\r\nboton_3=Button three\r\n[frmOtra]\r\nboton_1=No\r\n"
            "[COMMON]\r\nboton_2=No\r\n"_s);
    Traducir();
    EXPECT_EQ(boton_[0]->text(), u"Botón 0"_s);
    EXPECT_EQ(boton_[1]->text(), u"Botón 1"_s);
    EXPECT_EQ(boton_[2]->text(), u"Botón 2"_s);
    EXPECT_EQ(boton_[3]->text(), u"Button three"_s);
}

TEST_F(TraduccionTest, ImageButtonsLabelsAndCommandButtonsAreTranslatedAtAnyDepth) {
    auto* marco = new QFrame(&pantalla_);
    auto* etiqueta = Con(new QLabel(u"Título"_s, marco), u"lbTitulo"_s);
    auto* imagen = Con(new QToolButton(marco), u"btnW_1"_s);
    imagen->setText(u"Cerrar"_s);
    Fichero(u"[frmPrueba]\r\nlbTitulo=Title\r\nbtnW_1=Close\r\n"_s);
    Traducir();
    EXPECT_EQ(etiqueta->text(), u"Title"_s);
    EXPECT_EQ(imagen->text(), u"Close"_s);
}

TEST_F(TraduccionTest, OtherKindsOfControlKeepTheirs) {
    auto* casilla = Con(new QCheckBox(u"Casilla"_s, &pantalla_), u"chk"_s);
    auto* opcion = Con(new QRadioButton(u"Opción"_s, &pantalla_), u"opt"_s);
    auto* caja = Con(new QLineEdit(u"Texto"_s, &pantalla_), u"tb"_s);
    auto* marco = Con(new QGroupBox(u"Marco"_s, &pantalla_), u"fra"_s);
    Fichero(u"[frmPrueba]\r\nchk=x\r\nopt=x\r\ntb=x\r\nfra=x\r\n"_s);
    Traducir();
    EXPECT_EQ(casilla->text(), u"Casilla"_s);
    EXPECT_EQ(opcion->text(), u"Opción"_s);
    EXPECT_EQ(caja->text(), u"Texto"_s);
    EXPECT_EQ(marco->title(), u"Marco"_s);
}

TEST_F(TraduccionTest, ControlsOfAnotherWindowAreLeftAlone) {
    QDialog hija(&pantalla_);
    auto* ajeno = Con(new QPushButton(u"Ajeno"_s, &hija), u"boton_0"_s);
    Fichero(u"[frmPrueba]\r\nboton_0=Mine\r\n"_s);
    Traducir();
    EXPECT_EQ(boton_[0]->text(), u"Mine"_s);
    EXPECT_EQ(ajeno->text(), u"Ajeno"_s);
}

TEST_F(TraduccionTest, LineBreakMarksOfBothKindsAreShownAsLineBreaks) {
    Fichero(u"[frmPrueba]\r\nboton_0=Give¬change\r\nboton_1=Pay/CRLF/out\r\n"_s);
    boton_[2]->setText(u"Añadir¬Cambio"_s);
    Traducir();
    EXPECT_EQ(boton_[0]->text(), u"Give\nchange"_s);
    EXPECT_EQ(boton_[1]->text(), u"Pay\r\nout"_s);
    EXPECT_EQ(boton_[2]->text(), u"Añadir\nCambio"_s);
}

TEST_F(TraduccionTest, StoredCaptionsLoseTheBlanksAtTheirEnds) {
    boton_[0]->setText(u"  Pago "_s);
    Traducir();
    EXPECT_EQ(boton_[0]->text(), u"Pago"_s);
}

TEST_F(TraduccionTest, EmptyEntryEmptiesTheCaption) {
    Fichero(u"[frmPrueba]\r\nboton_0=\r\n"_s);
    Traducir();
    EXPECT_EQ(boton_[0]->text(), QString());
}

TEST_F(TraduccionTest, EditedFileTakesEffectAtTheNextOpening) {
    Fichero(u"[frmPrueba]\r\nboton_0=One\r\n"_s);
    Traducir();
    EXPECT_EQ(boton_[0]->text(), u"One"_s);
    Fichero(u"[frmPrueba]\r\nboton_0=Two\r\n"_s);
    EXPECT_EQ(boton_[0]->text(), u"One"_s);
    Traducir();
    EXPECT_EQ(boton_[0]->text(), u"Two"_s);
}

TEST_F(TraduccionTest, NameReadAloudFollowsTheCaptionOfAPictureButton) {
    auto* imagen = Con(new QToolButton(&pantalla_), u"btnW_1"_s);
    imagen->setAccessibleName(u"Cerrar"_s);
    imagen->setToolTip(u"Cerrar"_s);
    Traducir();
    EXPECT_EQ(imagen->accessibleName(), u"Cerrar"_s);
    Fichero(u"[frmPrueba]\r\nbtnW_1=Close¬it\r\n"_s);
    Traducir();
    EXPECT_EQ(imagen->accessibleName(), u"Close it"_s);
    EXPECT_EQ(imagen->toolTip(), u"Close it"_s);
}

TEST_F(TraduccionTest, ControlIsNamedByTheKeyOfItsText) {
    static constexpr Clave clave{u"frmPrueba", u"boton_9", u"Cobro¬Manual"};
    QPushButton boton;
    Rotular(boton, clave);
    EXPECT_EQ(boton.objectName(), u"boton_9"_s);
    EXPECT_EQ(boton.text(), u"Cobro\nManual"_s);
    EXPECT_EQ(boton.accessibleName(), u"Cobro Manual"_s);
    EXPECT_EQ(boton.toolTip(), QString());
}

TEST_F(TraduccionTest, MeaningOfAControlWithoutACaptionIsTranslatedWithItsHint) {
    static constexpr Clave deCaja{u"frmPrueba", u"TextIni", u"Código de barras"};
    static constexpr Clave deImagen{u"frmPrueba", u"btnImagen", u"Página anterior"};
    static constexpr Clave deLampara{u"frmPrueba", u"Lampara", u"Niveles normales"};
    auto* caja = new QLineEdit(&pantalla_);
    auto* imagen = new QToolButton(&pantalla_);
    auto* lampara = new QWidget(&pantalla_);
    Nombrar(*caja, deCaja, Pista::Si);
    Nombrar(*imagen, deImagen);
    Nombrar(*lampara, deLampara, Pista::Si);
    Traducir();
    EXPECT_EQ(caja->objectName(), u"TextIni"_s);
    EXPECT_EQ(caja->accessibleName(), u"Código de barras"_s);
    EXPECT_EQ(caja->placeholderText(), u"Código de barras"_s);
    EXPECT_EQ(imagen->accessibleName(), u"Página anterior"_s);
    EXPECT_EQ(lampara->toolTip(), u"Niveles normales"_s);
    Fichero(u"[frmPrueba]\r\nTextIni=Barcode\r\nbtnImagen=Previous page\r\n"
            "Lampara=Levels normal\r\n"_s);
    Traducir();
    EXPECT_EQ(caja->accessibleName(), u"Barcode"_s);
    EXPECT_EQ(caja->placeholderText(), u"Barcode"_s);
    EXPECT_EQ(caja->toolTip(), QString());
    EXPECT_EQ(caja->text(), QString());
    EXPECT_EQ(imagen->accessibleName(), u"Previous page"_s);
    EXPECT_EQ(imagen->toolTip(), QString());
    EXPECT_EQ(lampara->accessibleName(), u"Levels normal"_s);
    EXPECT_EQ(lampara->toolTip(), u"Levels normal"_s);
}

TEST_F(TraduccionTest, ControlWithoutAMeaningGetsNone) {
    auto* caja = Con(new QLineEdit(&pantalla_), u"tb"_s);
    Fichero(u"[frmPrueba]\r\ntb=x\r\n"_s);
    Traducir();
    EXPECT_EQ(caja->accessibleName() + caja->placeholderText() + caja->toolTip(), QString());
}

TEST_F(TraduccionTest, CaptionsAreReadInOneLineHoweverTheyBreak) {
    Fichero(u"[frmPrueba]\r\nboton_0=Give¬change\r\nboton_1=Give change\r\n"_s);
    Traducir();
    EXPECT_EQ(boton_[0]->text(), u"Give\nchange"_s);
    EXPECT_EQ(boton_[0]->accessibleName(), u"Give change"_s);
    EXPECT_EQ(boton_[1]->text(), u"Give change"_s);
}

TEST_F(TraduccionTest, CaptionThatChangesComesFromItsEntry) {
    static constexpr Clave clave{u"frmPrueba", u"Cancelando", u"Cancelando…"};
    PonerTexto(*boton_[0], textos_, clave);
    EXPECT_EQ(boton_[0]->text(), u"Cancelando…"_s);
    Fichero(u"[frmPrueba]\r\nCancelando=Cancelling…\r\n"_s);
    PonerTexto(*boton_[0], textos_, clave);
    EXPECT_EQ(boton_[0]->text(), u"Cancelling…"_s);
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
    EnviaTeclas(u"9,ñ€Ab"_s);
    EXPECT_EQ(uno_.text(), u"9,ñ€Ab"_s);
    EXPECT_EQ(otro_.text(), QString());
}

TEST_F(EnviaTeclasTest, NamedKeysAreSentAsKeys) {
    EnviaTeclas(u"123{BACKSPACE}{bs}4"_s);
    EXPECT_EQ(uno_.text(), u"14"_s);
    EnviaTeclas(u"{HOME}{DEL}"_s);
    EXPECT_EQ(uno_.text(), u"4"_s);
    EnviaTeclas(u"{TAB}7"_s);
    EXPECT_TRUE(otro_.hasFocus());
    EXPECT_EQ(otro_.text(), u"7"_s);
}

TEST_F(EnviaTeclasTest, EnterIsTheReturnKey) {
    int veces = 0;
    QObject::connect(&uno_, &QLineEdit::returnPressed, [&veces] { ++veces; });
    EnviaTeclas(u"{ENTER}"_s);
    EXPECT_EQ(veces, 1);
}

TEST_F(EnviaTeclasTest, BracesThemselvesCanBeSent) {
    EnviaTeclas(u"{{}x{}}"_s);
    EXPECT_EQ(uno_.text(), u"{x}"_s);
    uno_.clear();
    EnviaTeclas(u"a{"_s);
    EXPECT_EQ(uno_.text(), u"a{"_s);
}

TEST_F(EnviaTeclasTest, UnknownNameSendsNothing) {
    EnviaTeclas(u"a{NOHAY}b"_s);
    EXPECT_EQ(uno_.text(), u"ab"_s);
}

TEST_F(EnviaTeclasTest, WithoutAFocusNothingHappens) {
    uno_.clearFocus();
    EnviaTeclas(u"5"_s);
    EXPECT_EQ(uno_.text() + otro_.text(), QString());
}

} // namespace
} // namespace zv::test
