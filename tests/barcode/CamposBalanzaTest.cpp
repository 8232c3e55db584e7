// The fields of the barcode layout: what each takes, what it makes of the others, where the focus
// goes, and what reaches the configuration when.
#include "barcode/CamposBalanza.h"

#include "BancoBalanza.h"

namespace zv::test {
namespace {

constexpr auto kEnter = CamposBalanza::Tecla::Enter;
constexpr auto kAbajo = CamposBalanza::Tecla::Abajo;
constexpr auto kArriba = CamposBalanza::Tecla::Arriba;

class CamposBalanzaTest : public BancoBalanza {
  protected:
    CamposBalanzaTest() { campos.CarregaConfig(cfg); }

    QString EnCampos() const {
        QStringList todos;
        for (int i = 0; i < CamposBalanza::kCuantos; ++i) {
            todos << campos.TBal(i).texto;
        }
        return todos.join(u' ');
    }
    // The fields that stand as refused.
    QString Malos() const {
        QString malos;
        for (int i = 0; i < CamposBalanza::kCuantos; ++i) {
            malos += campos.TBal(i).bueno ? QString() : QString::number(i);
        }
        return malos;
    }
    int Teclea(int indice, const QString& texto, CamposBalanza::Tecla tecla = kEnter) {
        campos.Escribir(indice, texto);
        return campos.TBal_KeyDown(indice, tecla);
    }
    void Pon(const QStringList& valores) {
        for (int i = 0; i < CamposBalanza::kCuantos; ++i) {
            campos.Escribir(i, valores[i]);
        }
    }

    CamposBalanza campos{formato, [this] { return decimales; }, dialogos, textos};
};

TEST_F(CamposBalanzaTest, ShowsTheSettingsInTheirOrder) {
    EXPECT_EQ(EnCampos(), u"13 2 7 8 12 2"_s);
    EXPECT_EQ(Malos(), QString());
    EXPECT_TRUE(campos.Check1());
    EXPECT_FALSE(campos.Cambiado());
    cfg.BCTPRE = false;
    cfg.BCDEC = 255;
    campos.CarregaConfig(cfg);
    EXPECT_FALSE(campos.Check1());
    EXPECT_EQ(EnCampos(), u"13 2 7 8 12 255"_s);
}

TEST_F(CamposBalanzaTest, WhatIsNoNumberGoesBackAndTheFocusStays) {
    for (const char16_t* texto : {u"", u" ", u"doce", u"1x", u"--1", u"1e", u"€"}) {
        for (int i = 0; i < CamposBalanza::kCuantos; ++i) {
            campos.CarregaConfig(cfg);
            for (const auto tecla : {kEnter, kAbajo, kArriba}) {
                EXPECT_EQ(Teclea(i, QString::fromUtf16(texto), tecla), i);
                EXPECT_EQ(campos.TBal(i).texto, u"0"_s);
                EXPECT_EQ(Malos(), QString::number(i));
            }
            EXPECT_EQ(Ajustes(), u"13 1 2 7 8 12 2"_s);
        }
    }
}

TEST_F(CamposBalanzaTest, NumbersAreReadAsTheRegionWritesThem) {
    for (const char16_t* texto : {u" 13 ", u"+13", u"13,0", u"1,3e1", u"13 €"}) {
        EXPECT_EQ(Teclea(0, QString::fromUtf16(texto)), 1)
            << QString::fromUtf16(texto).toStdString();
        EXPECT_EQ(Malos(), QString());
    }
}

TEST_F(CamposBalanzaTest, TheKeysMoveTheFocusButNeverForwardIntoTheDecimals) {
    struct Caso {
        int indice;
        const char16_t* texto;
        int adelante;
        int arriba;
    };
    const Caso casos[] = {{0, u"13", 1, 0}, {1, u"2", 2, 0},  {2, u"7", 3, 1},
                          {3, u"8", 4, 2},  {4, u"12", 4, 3}, {5, u"2", 5, 4}};
    for (const Caso& caso : casos) {
        for (const auto& [tecla, foco] :
             {std::pair{kEnter, caso.adelante}, std::pair{kAbajo, caso.adelante},
              std::pair{kArriba, caso.arriba}}) {
            campos.CarregaConfig(cfg);
            EXPECT_EQ(Teclea(caso.indice, QString::fromUtf16(caso.texto), tecla), foco)
                << caso.indice;
            EXPECT_EQ(Malos(), QString()) << caso.indice;
        }
    }
}

TEST_F(CamposBalanzaTest, ALengthOfZeroClearsAllBehindIt) {
    EXPECT_EQ(Teclea(0, u"0"_s), 1);
    EXPECT_EQ(EnCampos(), u"0 0 0 0 0 0"_s);
    EXPECT_EQ(campos.Aceptar(), std::nullopt);
    EXPECT_EQ(Ajustes(), u"0 1 0 0 0 0 0"_s); // codes are not read
}

TEST_F(CamposBalanzaTest, AnotherLengthClearsNothing) {
    EXPECT_EQ(Teclea(0, u"20"_s), 1);
    EXPECT_EQ(EnCampos(), u"20 2 7 8 12 2"_s);
}

TEST_F(CamposBalanzaTest, ANegativeLengthBecomesZero) {
    EXPECT_EQ(Teclea(0, u"-1"_s), 0);
    EXPECT_EQ(EnCampos(), u"0 2 7 8 12 2"_s);
    EXPECT_EQ(Malos(), u"0"_s);
}

TEST_F(CamposBalanzaTest, TheTicketBeginsWithinTheCode) {
    for (const char16_t* texto : {u"0", u"14", u"13,5"}) {
        campos.CarregaConfig(cfg);
        EXPECT_EQ(Teclea(1, QString::fromUtf16(texto)), 1);
        EXPECT_EQ(EnCampos(), u"13 0 7 8 12 2"_s);
        EXPECT_EQ(Malos(), u"1"_s);
    }
    EXPECT_EQ(Teclea(1, u"13"_s), 2);
    EXPECT_EQ(EnCampos(), u"13 13 0 0 0 0"_s); // the fields behind it are set anew
    EXPECT_EQ(Malos(), QString());
}

TEST_F(CamposBalanzaTest, TheTicketEndsBehindItsBeginning) {
    for (const char16_t* texto : {u"1", u"14"}) {
        campos.CarregaConfig(cfg);
        EXPECT_EQ(Teclea(2, QString::fromUtf16(texto)), 2);
        EXPECT_EQ(EnCampos(), u"13 2 0 8 12 2"_s);
        EXPECT_EQ(Malos(), u"2"_s);
    }
    EXPECT_EQ(Teclea(2, u"2"_s), 3);
    EXPECT_EQ(EnCampos(), u"13 2 2 0 0 0"_s);
    EXPECT_EQ(Teclea(2, u"13"_s), 3);
}

TEST_F(CamposBalanzaTest, WithoutATicketItsFieldsBecomeZeroWhateverStandsThere) {
    campos.Check1_Click(false);
    EXPECT_EQ(Teclea(1, u"99"_s), 2);
    EXPECT_EQ(EnCampos(), u"13 0 0 0 0 0"_s);
    campos.CarregaConfig(cfg);
    EXPECT_EQ(Teclea(2, u"-5"_s, kArriba), 1);
    EXPECT_EQ(EnCampos(), u"13 2 0 0 0 0"_s);
    EXPECT_EQ(Malos(), QString());
    EXPECT_EQ(Teclea(1, u"x"_s), 1); // but a number it must be
    EXPECT_EQ(Malos(), u"1"_s);
}

TEST_F(CamposBalanzaTest, TheAmountBeginsBehindTheTicket) {
    for (const char16_t* texto : {u"7", u"3", u"14"}) {
        campos.CarregaConfig(cfg);
        EXPECT_EQ(Teclea(3, QString::fromUtf16(texto)), 3);
        EXPECT_EQ(EnCampos(), u"13 2 7 0 12 2"_s);
        EXPECT_EQ(Malos(), u"3"_s);
    }
    EXPECT_EQ(Teclea(3, u"8"_s), 4);
    EXPECT_EQ(EnCampos(), u"13 2 7 8 12 2"_s); // what is behind it stays
    EXPECT_EQ(Teclea(3, u"13"_s), 4);
}

TEST_F(CamposBalanzaTest, TheAmountMayHaveOneCharacterAndAnotherEndClearsTheDecimals) {
    EXPECT_EQ(Teclea(4, u"8"_s), 4);
    EXPECT_EQ(EnCampos(), u"13 2 7 8 8 0"_s);
    for (const char16_t* texto : {u"7", u"14"}) {
        campos.CarregaConfig(cfg);
        EXPECT_EQ(Teclea(4, QString::fromUtf16(texto)), 4);
        EXPECT_EQ(EnCampos(), u"13 2 7 8 0 2"_s);
        EXPECT_EQ(Malos(), u"4"_s);
    }
}

TEST_F(CamposBalanzaTest, TheDecimalsAreAtMostThoseOfTheDevice) {
    EXPECT_EQ(Teclea(5, u"0"_s), 5);
    EXPECT_EQ(Teclea(5, u"2"_s), 5);
    EXPECT_EQ(Malos(), QString());
    dialogos.EsperaCaja(u"El numero de decimales tiene que ser inferior a 2"_s);
    EXPECT_EQ(Teclea(5, u"3"_s, kArriba), 5);
    EXPECT_EQ(campos.TBal(5).texto, u"0"_s);
    EXPECT_EQ(Malos(), u"5"_s);
    EXPECT_EQ(Teclea(5, u"-1"_s), 5); // no box
    EXPECT_EQ(Malos(), u"5"_s);
    decimales = 0;
    dialogos.EsperaCaja(u"El numero de decimales tiene que ser inferior a 0"_s);
    EXPECT_EQ(Teclea(5, u"1"_s), 5);
}

TEST_F(CamposBalanzaTest, TheMessageComesFromTheLanguageFile) {
    carpeta.Pon(u"RWLang.ini"_s, "[COMMON]\r\nerrorDecimalesCodigoBarras=fewer than\r\n");
    dialogos.EsperaCaja(u"fewer than 2"_s);
    Teclea(5, u"3"_s);
}

TEST_F(CamposBalanzaTest, AGoodValueIsNoLongerRed) {
    Teclea(3, u"x"_s);
    EXPECT_EQ(Malos(), u"3"_s);
    campos.Escribir(3, u"9"_s);
    EXPECT_EQ(Malos(), u"3"_s); // until it is tested
    campos.TBal_KeyDown(3, kEnter);
    EXPECT_EQ(Malos(), QString());
}

TEST_F(CamposBalanzaTest, FractionsCountAsTheyAreStored) {
    Pon({u"13"_s, u"1,5"_s, u"7,6"_s, u"8,5"_s, u"12,4"_s, u"0,5"_s});
    EXPECT_EQ(campos.Layout(), (LayoutCodigo{13, true, 2, 8, 8, 12, 0}));
    EXPECT_EQ(campos.Aceptar(), 3); // on the last character of the ticket
    campos.Escribir(3, u"8,6"_s);
    const LayoutCodigo visto = campos.Layout();
    EXPECT_EQ(campos.Aceptar(), std::nullopt);
    EXPECT_EQ(LayoutDe(cfg), visto);
    EXPECT_EQ(Ajustes(), u"13 1 2 8 9 12 0"_s);
    EXPECT_EQ(Teclea(1, u"0,5"_s), 1); // nothing
    EXPECT_EQ(Teclea(0, u"-0,5"_s), 1);
}

TEST_F(CamposBalanzaTest, AFieldThatIsNoNumberCountsAsZeroForTheOthers) {
    campos.Escribir(0, u"x"_s);
    EXPECT_EQ(Teclea(3, u"8"_s), 3);
    campos.Escribir(0, u"13"_s);
    campos.Escribir(2, u"x"_s);
    EXPECT_EQ(Teclea(3, u"1"_s), 4);
}

TEST_F(CamposBalanzaTest, TheTicketsSwitchReachesTheConfigurationAtOnce) {
    campos.Check1_Click(false);
    EXPECT_EQ(Ajustes(), u"13 0 2 7 8 12 2"_s);
    EXPECT_FALSE(campos.Check1());
    EXPECT_FALSE(campos.Cambiado()); // nothing of it waits
    campos.Check1_Click(true);
    EXPECT_EQ(Ajustes(), u"13 1 2 7 8 12 2"_s);
}

TEST_F(CamposBalanzaTest, AcceptCopiesAllFields) {
    Pon({u"20"_s, u"1"_s, u"8"_s, u"9"_s, u"20"_s, u"1"_s});
    EXPECT_TRUE(campos.Cambiado());
    EXPECT_EQ(Ajustes(), u"13 1 2 7 8 12 2"_s);
    EXPECT_EQ(campos.Aceptar(), std::nullopt);
    EXPECT_EQ(Ajustes(), u"20 1 1 8 9 20 1"_s);
    EXPECT_EQ(EnCampos(), u"20 1 8 9 20 1"_s); // clearing is the keys' alone
}

TEST_F(CamposBalanzaTest, AcceptWithoutATicketLeavesItsPositionsZero) {
    campos.Check1_Click(false);
    Pon({u"13"_s, u"9"_s, u"77"_s, u"1"_s, u"13"_s, u"2"_s});
    EXPECT_EQ(campos.Aceptar(), std::nullopt);
    EXPECT_EQ(Ajustes(), u"13 0 0 0 1 13 2"_s);
}

TEST_F(CamposBalanzaTest, AcceptEndsAtTheFirstFieldThatIsRefused) {
    const QStringList buenos{u"13"_s, u"2"_s, u"7"_s, u"8"_s, u"12"_s, u"2"_s};
    const std::pair<int, const char16_t*> malos[] = {{0, u"-1"}, {1, u"0"},  {2, u"1"}, {3, u"7"},
                                                     {4, u"14"}, {5, u"-1"}, {0, u"x"}, {1, u""},
                                                     {2, u"x"},  {3, u"x"},  {4, u"x"}, {5, u"x"}};
    for (const auto& [indice, texto] : malos) {
        campos.CarregaConfig(cfg);
        QStringList valores = buenos;
        valores[indice] = QString::fromUtf16(texto);
        Pon(valores);
        EXPECT_EQ(campos.Aceptar(), indice) << QString::fromUtf16(texto).toStdString();
        EXPECT_EQ(campos.TBal(indice).texto, u"0"_s);
        EXPECT_EQ(Malos(), QString::number(indice));
        EXPECT_EQ(Ajustes(), u"13 1 2 7 8 12 2"_s);
    }
    Pon({u"13"_s, u"2"_s, u"7"_s, u"8"_s, u"12"_s, u"3"_s});
    dialogos.EsperaCaja(u"El numero de decimales tiene que ser inferior a 2"_s);
    EXPECT_EQ(campos.Aceptar(), 5);
}

TEST_F(CamposBalanzaTest, AcceptTestsInOrder) {
    Pon({u"13"_s, u"2"_s, u"x"_s, u"x"_s, u"x"_s, u"9"_s});
    EXPECT_EQ(campos.Aceptar(), 2);
    EXPECT_EQ(Malos(), u"2"_s);
    EXPECT_EQ(campos.TBal(3).texto, u"x"_s);
}

TEST_F(CamposBalanzaTest, AcceptOfALengthOfZeroSwitchesTheCodesOff) {
    Pon({u"0"_s, u"x"_s, u"7"_s, u"8"_s, u"12"_s, u"99"_s});
    EXPECT_EQ(campos.Aceptar(), std::nullopt);
    EXPECT_EQ(Ajustes(), u"0 1 0 0 0 0 0"_s);
}

TEST_F(CamposBalanzaTest, WhatASettingCannotHoldIsRefusedBeforeAnyOfThemChanges) {
    const std::pair<int, const char16_t*> casos[] = {
        {0, u"256"}, {0, u"1e300"}, {0, u"255,6"}, {1, u"-3"}};
    for (const auto& [indice, texto] : casos) {
        campos.CarregaConfig(cfg);
        campos.Escribir(4, u"13"_s);
        campos.Escribir(indice, QString::fromUtf16(texto));
        EXPECT_EQ(campos.Aceptar(), indice);
        EXPECT_EQ(Malos(), QString::number(indice));
        EXPECT_EQ(campos.TBal(indice).texto, u"0"_s);
        EXPECT_EQ(Ajustes(), u"13 1 2 7 8 12 2"_s);
    }
    Pon({u"255"_s, u"1"_s, u"7"_s, u"8"_s, u"255"_s, u"2"_s});
    EXPECT_EQ(campos.Aceptar(), std::nullopt);
    EXPECT_EQ(Ajustes(), u"255 1 1 7 8 255 2"_s);
}

TEST_F(CamposBalanzaTest, TextsOfAnySizeAreRefusedOrTaken) {
    for (int i = 0; i < CamposBalanza::kCuantos; ++i) {
        campos.CarregaConfig(cfg);
        EXPECT_EQ(Teclea(i, QString(3000, u'x')), i);
        EXPECT_EQ(campos.TBal(i).texto, u"0"_s);
        campos.CarregaConfig(cfg);
        campos.Escribir(i, QString(3000, u'9'));
        if (i == 5) {
            campos.Escribir(i, QString(3000, u'-'));
        }
        EXPECT_EQ(campos.Aceptar(), i);
        EXPECT_EQ(Ajustes(), u"13 1 2 7 8 12 2"_s);
    }
}

TEST_F(CamposBalanzaTest, TheLayoutIsWhatStandsInTheFields) {
    EXPECT_EQ(campos.Layout(), (LayoutCodigo{13, true, 2, 7, 8, 12, 2}));
    Pon({u"300"_s, u"-1"_s, u"x"_s, u"8,2"_s, u"1e9"_s, u""_s});
    campos.Check1_Click(false);
    EXPECT_EQ(campos.Layout(), (LayoutCodigo{255, false, 0, 0, 8, 255, 0}));
}

} // namespace
} // namespace zv::test
