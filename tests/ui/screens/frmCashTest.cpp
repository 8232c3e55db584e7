// The amount prompt.
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "support/NumeroError.h"
#include "ui/screens/DialogosPrueba.h"

namespace zv::test {
namespace {

class frmCashTest : public DialogosPrueba {
  protected:
    // Opens the prompt, lets the action answer it; cancelado_ keeps how it ended.
    Currency Pedir(std::function<void(QDialog&)> accion, Currency porDefecto = 0,
                   bool sinImporte = false) {
        const AlAbrir abierto(std::move(accion));
        return dialogos_.PedirImporte(u"Cobro"_s, u"Importe"_s, porDefecto,
                                      sinImporte ? &sinImporte_ : nullptr, cancelado_);
    }
    static QLineEdit& Caja(QDialog& d) { return Control<QLineEdit>(d, "tbImporte"); }
    // Types a text in place of the present one, then presses the key of the index given.
    static std::function<void(QDialog&)> Escribe(const char* texto, const char* tecla = "teci_11") {
        return [texto, tecla](QDialog& d) {
            Caja(d).setText(QString::fromUtf8(texto));
            Tocar(d, tecla);
        };
    }
    void Region(const char* nombre) {
        importes_ = Importes(FormatoRegional(QString::fromLatin1(nombre)),
                             [this] { return multiplicador_; });
    }

    bool cancelado_ = true;
    bool sinImporte_ = false;
};

TEST_F(frmCashTest, ShowsTitlePromptAndTheDefaultAsAnAmount) {
    const Currency importe = Pedir(
        [](QDialog& d) {
            EXPECT_EQ(d.objectName(), u"frmCash"_s);
            EXPECT_EQ(Texto(d, "lbTitulo"), u"Cobro"_s);
            EXPECT_EQ(Texto(d, "lbImporte"), u"Importe"_s);
            EXPECT_EQ(Caja(d).text(), u"1.234,50 €"_s);
            EXPECT_EQ(d.focusWidget(), &Caja(d));
            Tocar(d, "teci_11");
        },
        123450);
    EXPECT_EQ(importe, Currency(123450));
    EXPECT_FALSE(cancelado_);
}

TEST_F(frmCashTest, KeysTypeTheirDigitsInPlaceOfTheDefault) {
    const Currency importe = Pedir(
        [](QDialog& d) {
            // 7 8 9 4 5 6 1 2 3 0, by their indexes.
            for (const char* tecla : {"teci_7", "teci_8", "teci_0", "teci_1", "teci_2", "teci_3",
                                      "teci_4", "teci_10", "teci_5", "teci_9"}) {
                Tocar(d, tecla);
            }
            EXPECT_EQ(Caja(d).text(), u"7894561,20"_s);
            Tocar(d, "teci_11");
        },
        500);
    EXPECT_EQ(importe, Currency(789456120));
}

TEST_F(frmCashTest, KeysHaveTheirCaptionsAndLieLikeATills) {
    Pedir([](QDialog& d) {
        const char* captions[] = {"9", "4",      "5",        "6",         "1",
                                  "2", "3",      "7",        "8",         "0",
                                  ",", "Entrar", "Cancelar", "Retroceso", "Sin importe"};
        for (int i = 0; i < 15; ++i) {
            const QByteArray nombre = QByteArray("teci_") + QByteArray::number(i);
            EXPECT_EQ(Boton(d, nombre).text(), QString::fromLatin1(captions[i]));
            if (i < 11) {
                EXPECT_EQ(Boton(d, nombre).property("Tag").toString(),
                          QString::fromLatin1(captions[i]));
                EXPECT_GE(Boton(d, nombre).width(), tema::kTeclaMinima);
                EXPECT_GE(Boton(d, nombre).height(), tema::kTeclaMinima);
            }
        }
        const auto x = [&d](const char* n) { return Boton(d, n).x(); };
        const auto y = [&d](const char* n) { return Boton(d, n).y(); };
        EXPECT_TRUE(x("teci_7") < x("teci_8") && x("teci_8") < x("teci_0"));
        EXPECT_TRUE(y("teci_7") < y("teci_1") && y("teci_1") < y("teci_4") &&
                    y("teci_4") < y("teci_9"));
        EXPECT_TRUE(x("teci_9") < x("teci_10") && x("teci_10") < x("teci_13"));
        ComprobarTactil(d);
        Tocar(d, "teci_12");
    });
}

TEST_F(frmCashTest, BackspaceKeyTakesTheLastCharacter) {
    EXPECT_EQ(Pedir([](QDialog& d) {
                  for (const char* tecla : {"teci_4", "teci_5", "teci_13", "teci_6", "teci_11"}) {
                      Tocar(d, tecla);
                  }
              }),
              Currency(1300));
}

TEST_F(frmCashTest, KeysWriteIntoTheBoxWhereverTheFocusIs) {
    EXPECT_EQ(Pedir([](QDialog& d) {
                  Boton(d, "teci_12").setFocus();
                  Tocar(d, "teci_2");
                  EXPECT_EQ(d.focusWidget(), &Caja(d));
                  Tocar(d, "teci_11");
              }),
              Currency(500));
}

TEST_F(frmCashTest, CommaMachineShowsACommaAndTypedPointsEnterIt) {
    EXPECT_EQ(Pedir([](QDialog& d) {
                  EXPECT_EQ(Boton(d, "teci_10").text(), u","_s);
                  QTest::keyClicks(&Caja(d), u"12.5"_s);
                  EXPECT_EQ(Caja(d).text(), u"12,5"_s);
                  Tocar(d, "teci_11");
              }),
              Currency(1250));
}

TEST_F(frmCashTest, PointMachineShowsAPointAndTypedCommasEnterIt) {
    Region("en_US");
    EXPECT_EQ(Pedir([](QDialog& d) {
                  EXPECT_EQ(Caja(d).text(), u"$0.00"_s);
                  EXPECT_EQ(Boton(d, "teci_10").text(), u"."_s);
                  EXPECT_EQ(Boton(d, "teci_10").property("Tag").toString(), u"."_s);
                  QTest::keyClicks(&Caja(d), u"12,5"_s);
                  EXPECT_EQ(Caja(d).text(), u"12.5"_s);
                  Tocar(d, "teci_11");
              }),
              Currency(1250));
}

TEST_F(frmCashTest, EnterEntersAndEscapeCancels) {
    EXPECT_EQ(Pedir([](QDialog& d) {
                  QTest::keyClicks(&Caja(d), u"7"_s);
                  Tecla(d, Qt::Key_Enter);
              }),
              Currency(700));
    EXPECT_FALSE(cancelado_);
    EXPECT_EQ(Pedir([](QDialog& d) {
                  QTest::keyClicks(&Caja(d), u"7"_s);
                  Tecla(d, Qt::Key_Escape);
              }),
              Currency(0));
    EXPECT_TRUE(cancelado_);
}

TEST_F(frmCashTest, ZeroAcceptedReturnsZeroLikeACancelButForTheFlag) {
    EXPECT_EQ(Pedir(Escribe("0")), Currency(0));
    EXPECT_FALSE(cancelado_);
    EXPECT_EQ(Pedir(Escribe("0", "teci_12")), Currency(0));
    EXPECT_TRUE(cancelado_);
}

TEST_F(frmCashTest, CancelNoAmountAndCloseAllCancelWhateverWasTyped) {
    for (const char* tecla : {"teci_12", "teci_14", "btnW_1"}) {
        cancelado_ = false;
        sinImporte_ = true;
        EXPECT_EQ(Pedir(Escribe("12,50", tecla), 0, true), Currency(0)) << tecla;
        EXPECT_TRUE(cancelado_) << tecla;
        // Who has offered it can tell it from the other two.
        EXPECT_EQ(sinImporte_, tecla == std::string_view("teci_14")) << tecla;
    }
}

TEST_F(frmCashTest, NoAmountIsHiddenUnlessAskedFor) {
    Pedir([](QDialog& d) {
        EXPECT_FALSE(Boton(d, "teci_14").isVisible());
        Tocar(d, "teci_12");
    });
    Pedir(
        [](QDialog& d) {
            EXPECT_TRUE(Boton(d, "teci_14").isVisible());
            ComprobarTactil(d);
            Tocar(d, "teci_12");
        },
        0, true);
}

TEST_F(frmCashTest, WhatIsNoNumberKeepsTheDialogOpenWithTheFocusInTheBox) {
    for (const char* texto : {"", "abc", "1,2,3", "12x"}) {
        EXPECT_EQ(Pedir([texto](QDialog& d) {
                      Caja(d).setText(QString::fromUtf8(texto));
                      Boton(d, "teci_11").setFocus();
                      Tocar(d, "teci_11");
                      EXPECT_TRUE(d.isVisible()) << texto;
                      EXPECT_EQ(d.focusWidget(), &Caja(d)) << texto;
                      Tocar(d, "teci_12");
                  }),
                  Currency(0));
        EXPECT_TRUE(cancelado_);
    }
}

TEST_F(frmCashTest, ReadsAmountsAsTheRegionWritesThem) {
    EXPECT_EQ(Pedir(Escribe("1.234,56 €")), Currency(123456));
    EXPECT_EQ(Pedir(Escribe("-5")), Currency(-500));
    EXPECT_EQ(Pedir(Escribe(" 3 ")), Currency(300));
}

TEST_F(frmCashTest, MultipliesByTheDevicesMultiplier) {
    multiplicador_ = 1;
    EXPECT_EQ(Pedir(Escribe("12")), Currency(12));
    multiplicador_ = 10;
    EXPECT_EQ(Pedir(Escribe("12,5")), Currency(125));
    EXPECT_EQ(Pedir(Escribe("12,55")), Currency::DeDiezmilesimas(1255000));
}

TEST_F(frmCashTest, LargestAmountOf32BitsIsTaken) {
    EXPECT_EQ(Pedir(Escribe("21474836,47")), Currency(2147483647));
    EXPECT_EQ(Pedir(Escribe("-21474836,48")), Currency(-2147483647 - 1));
}

TEST_F(frmCashTest, AmountThatOverflowsIsAFailureOfTheCaller) {
    for (const char* texto : {"21474836,48", "99999999999999", "1E+300"}) {
        cancelado_ = true;
        EXPECT_EQ(NumeroError([this, texto] { Pedir(Escribe(texto)); }), 6) << texto;
        EXPECT_TRUE(cancelado_) << "the outcome of an earlier prompt stays";
    }
}

TEST_F(frmCashTest, MultiplierOfZeroIsAFailureBeforeAnythingIsShown) {
    multiplicador_ = 0;
    EXPECT_EQ(NumeroError([this] {
                  dialogos_.PedirImporte(u"Cobro"_s, u"Importe"_s, 0, nullptr, cancelado_);
              }),
              11);
}

TEST_F(frmCashTest, CaptionsOfTheKeysAreTranslated) {
    Fichero(u"[frmCash]\r\nteci_11=Enter\r\nteci_14=No amount\r\n"_s);
    Pedir([](QDialog& d) {
        EXPECT_EQ(Boton(d, "teci_11").text(), u"Enter"_s);
        EXPECT_EQ(Boton(d, "teci_14").text(), u"No amount"_s);
        EXPECT_EQ(Boton(d, "teci_12").text(), u"Cancelar"_s);
        Tocar(d, "teci_12");
    });
}

TEST_F(frmCashTest, IsModalAndAboveAllWindows) {
    Pedir([](QDialog& d) {
        EXPECT_EQ(d.windowModality(), Qt::ApplicationModal);
        EXPECT_TRUE(d.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
        Tocar(d, "teci_12");
    });
}

} // namespace
} // namespace zv::test
