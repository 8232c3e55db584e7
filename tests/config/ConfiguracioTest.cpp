// The settings: defaults, loading, saving, copying.
#include "config/BancoConfig.h"
#include "config/ConfiguracioGlobal.h"
#include "platform/StringLiterals.h"
#include "support/NumeroError.h"

#include <sys/stat.h>

namespace zv {
namespace {

using test::NumeroError;

class ConfiguracioTest : public BancoConfig {
  protected:
    int FalloAlLeer(const QByteArray& bytes) {
        return NumeroError([&] { Leida(bytes); });
    }
};

// One value of its own for every field.
void Llena(Configuracio& cfg) {
    cfg.IP = u"10.0.0.7"_s;
    cfg.SUITEZV = u"/opt/suite"_s;
    cfg.Modo = u"SEMI"_s;
    cfg.ModoInicial = u"MANUAL"_s;
    cfg.ModoAnterior = u"AUTO"_s;
    cfg.REFRESCO = 31000;
    cfg.MINIMIZADO = 1;
    cfg.BLOQUEARPAGOS = 2;
    cfg.PREGUNTARANULAR = 3;
    cfg.SINIMPRESORA = 4;
    cfg.PREGUNTARCTO = 5;
    cfg.BOTONACCESO = 6;
    cfg.PAGOSADMIN = 7;
    cfg.SINHORA = 8;
    cfg.COLIDCAJA = 9;
    cfg.COLID2 = 10;
    cfg.COLVENDEDOR = 11;
    cfg.COLTERMINAL = 12;
    cfg.COLFORMAPAGO = 13;
    cfg.CLAVE_AUTORIZADO = u"uno"_s;
    cfg.CLAVE_ADMIN = u"dos"_s;
    cfg.CLAVE_TECNICO = u"tres ñ €"_s;
    cfg.BCEAN = 14;
    cfg.BCTPRE = true;
    cfg.BCTINI = 15;
    cfg.BCTFIN = 16;
    cfg.BCIINI = 17;
    cfg.BCIFIN = 18;
    cfg.BCDEC = 255;
    cfg.ZVConectorActive = true;
    cfg.ZVConectorPath = u"C:\\ZV\\ZVConnector.exe"_s;
    cfg.zvFastActive = true;
    cfg.ZVFastPort = u"16999"_s;
}

// Every field but ModoAnterior and ModoInicial, as one text.
QString Todo(const Configuracio& c) {
    QStringList campos{c.IP, c.SUITEZV, c.Modo};
    for (const int n : {int{c.REFRESCO},         int{c.MINIMIZADO},   int{c.BLOQUEARPAGOS},
                        int{c.PREGUNTARANULAR},  int{c.SINIMPRESORA}, int{c.PREGUNTARCTO},
                        int{c.BOTONACCESO},      int{c.PAGOSADMIN},   int{c.SINHORA},
                        int{c.COLIDCAJA},        int{c.COLID2},       int{c.COLVENDEDOR},
                        int{c.COLTERMINAL},      int{c.COLFORMAPAGO}, int{c.BCEAN},
                        int{c.BCTPRE},           int{c.BCTINI},       int{c.BCTFIN},
                        int{c.BCIINI},           int{c.BCIFIN},       int{c.BCDEC},
                        int{c.ZVConectorActive}, int{c.zvFastActive}}) {
        campos << QString::number(n);
    }
    campos << c.CLAVE_AUTORIZADO << c.CLAVE_ADMIN << c.CLAVE_TECNICO << c.ZVConectorPath
           << c.ZVFastPort;
    return campos.join(u'|');
}

TEST_F(ConfiguracioTest, WithoutAFileAllFieldsHoldTheirDefaults) {
    Configuracio cfg = Nueva();
    Llena(cfg);
    bool existe = true;
    cfg.LeerCfgIni(ruta, existe);
    EXPECT_FALSE(existe);
    EXPECT_EQ(Todo(cfg), u'|' + carpeta.Ruta() +
                             u"|AUTO|2|0|0|1|0|1|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|0|1|||"
                             "||16501"_s);
    EXPECT_EQ(cfg.ModoInicial, u"AUTO"_s);
    EXPECT_FALSE(carpeta.Esta(u"ZVMonitor.ini"_s));
    EXPECT_FALSE(carpeta.Esta(u"Registro"_s));
}

TEST_F(ConfiguracioTest, WritesEveryKeyInTheOrderOfTheFile) {
    Configuracio cfg = Nueva();
    Llena(cfg);
    cfg.GuardarConfig(ruta);
    EXPECT_EQ(Fichero(),
              QByteArray("[ZORVEX]\r\nIP=10.0.0.7\r\nSUITEZV=/opt/suite\r\n"
                         "[ZVMONITOR]\r\nMODO=SEMI\r\nREFRESCO=31000\r\nMINIMIZADO=1\r\n"
                         "BLOQUEARPAGOS=2\r\nPREGUNTARANULAR=3\r\nSINIMPRESORA=4\r\n"
                         "PREGUNTARCTO=5\r\nBOTONACCESO=6\r\nPAGOSADMIN=7\r\nSINHORA=8\r\n"
                         "COLID2=10\r\nCOLIDCAJA=9\r\nCOLVENDEDOR=11\r\nCOLTERMINAL=12\r\n"
                         "COLFORMAPAGO=13\r\n"
                         "[BARCODE]\r\nBCEAN=14\r\nBCTPRE=1\r\nBCTINI=15\r\nBCTFIN=16\r\n"
                         "BCIINI=17\r\nBCIFIN=18\r\nBCDEC=255\r\n"
                         "[CONECTOR]\r\nZVFastActive=1\r\nZVFastPort=16999\r\n"
                         "ZVConectorActive=1\r\nZVConectorPath=C:\\ZV\\ZVConnector.exe\r\n"));
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(ConfiguracioTest, FalseFlagsAreWrittenAsZero) {
    Configuracio cfg = Nueva();
    cfg.GuardarConfig(ruta);
    EXPECT_TRUE(Fichero().contains("\r\nBCTPRE=0\r\n"));
    EXPECT_TRUE(Fichero().contains("\r\nZVFastActive=0\r\n"));
    EXPECT_TRUE(Fichero().contains("\r\nZVConectorActive=0\r\n"));
}

TEST_F(ConfiguracioTest, WhatIsSavedIsReadBack) {
    Configuracio cfg = Nueva();
    Llena(cfg);
    cfg.GuardarConfig(ruta);
    Configuracio otra = Nueva();
    bool existe = false;
    otra.LeerCfgIni(ruta, existe);
    EXPECT_TRUE(existe);
    EXPECT_EQ(Todo(otra), Todo(cfg));
    EXPECT_EQ(otra.ModoInicial, u"SEMI"_s);
}

TEST_F(ConfiguracioTest, SavingMakesTheModeTheInitialOne) {
    Configuracio cfg = Nueva();
    cfg.Modo = u"MANUAL"_s;
    cfg.ModoInicial = u"AUTO"_s;
    cfg.GuardarConfig(ruta);
    EXPECT_EQ(cfg.ModoInicial, u"MANUAL"_s);
}

TEST_F(ConfiguracioTest, KeysDoNotDependOnCase) {
    const Configuracio cfg = Leida("[conector]\r\nzvFastActive=0\r\nZVFASTPORT=1\r\n");
    EXPECT_FALSE(cfg.zvFastActive);
    EXPECT_EQ(cfg.ZVFastPort, u"1"_s);
}

TEST_F(ConfiguracioTest, AnEmptyFastFlagIsNotZeroAndSoTrue) {
    EXPECT_TRUE(Leida("[CONECTOR]\r\nZVFastActive=\r\n").zvFastActive);
    EXPECT_FALSE(Leida("[CONECTOR]\r\nZVFastActive=0\r\n").zvFastActive);
    EXPECT_TRUE(Leida("[CONECTOR]\r\nZVFastActive=00\r\n").zvFastActive);
    EXPECT_TRUE(Leida("[CONECTOR]\r\nZVConectorActive=no\r\n").ZVConectorActive);
    EXPECT_FALSE(Leida("[CONECTOR]\r\n").ZVConectorActive);
}

TEST_F(ConfiguracioTest, RefreshDefaultsToTwoWhenRead) {
    EXPECT_EQ(Leida("[ZVMONITOR]\r\n").REFRESCO, 2);
    EXPECT_EQ(Leida("[ZVMONITOR]\r\nREFRESCO=-5\r\n").REFRESCO, -5);
}

TEST_F(ConfiguracioTest, TheModeIsReadAsItStands) {
    const Configuracio cfg = Leida("[ZVMONITOR]\r\nMODO=semi\r\n");
    EXPECT_EQ(cfg.Modo, u"semi"_s);
    EXPECT_EQ(cfg.ModoInicial, u"semi"_s);
}

TEST_F(ConfiguracioTest, AnyByteIsKeptSoThatOnlyOneMeansYes) {
    EXPECT_EQ(Leida("[ZVMONITOR]\r\nSINHORA=2\r\n").SINHORA, 2);
    EXPECT_EQ(Leida("[ZVMONITOR]\r\nSINHORA=1\r\n").SINHORA, 1);
    EXPECT_EQ(Leida("[ZVMONITOR]\r\nSINHORA=1,5\r\n").SINHORA, 2);
}

TEST_F(ConfiguracioTest, TheTicketFlagIsTrueOnlyForTheNumberOne) {
    EXPECT_TRUE(Leida("[BARCODE]\r\nBCTPRE=1\r\n").BCTPRE);
    EXPECT_TRUE(Leida("[BARCODE]\r\nBCTPRE= 1,0\r\n").BCTPRE);
    EXPECT_FALSE(Leida("[BARCODE]\r\nBCTPRE=1,2\r\n").BCTPRE);
    EXPECT_FALSE(Leida("[BARCODE]\r\nBCTPRE=2\r\n").BCTPRE);
    EXPECT_FALSE(Leida("[BARCODE]\r\nBCTPRE=-1\r\n").BCTPRE);
    EXPECT_EQ(FalloAlLeer("[BARCODE]\r\nBCTPRE=si\r\n"), 13);
}

TEST_F(ConfiguracioTest, AValueThatIsNoNumberIsAFailure) {
    EXPECT_EQ(FalloAlLeer("[ZVMONITOR]\r\nREFRESCO=dos\r\n"), 13);
    EXPECT_EQ(FalloAlLeer("[ZVMONITOR]\r\nREFRESCO=\r\n"), 13);
    EXPECT_EQ(FalloAlLeer("[ZVMONITOR]\r\nCOLFORMAPAGO=x\r\n"), 13);
    EXPECT_EQ(FalloAlLeer("[BARCODE]\r\nBCDEC=x\r\n"), 13);
    EXPECT_EQ(FalloAlLeer("[ZVMONITOR]\r\nREFRESCO=40000\r\n"), 6);
    EXPECT_EQ(FalloAlLeer("[ZVMONITOR]\r\nMINIMIZADO=256\r\n"), 6);
    EXPECT_EQ(FalloAlLeer("[BARCODE]\r\nBCEAN=-1\r\n"), 6);
}

TEST_F(ConfiguracioTest, AFailedLoadHasFilledTheFieldsBefore) {
    carpeta.Pon(u"ZVMonitor.ini"_s, "[ZORVEX]\nIP=1.2.3.4\n[ZVMONITOR]\nSINHORA=x\n"
                                    "COLID2=1\n");
    Configuracio cfg = Nueva();
    bool existe = false;
    EXPECT_EQ(NumeroError([&] { cfg.LeerCfgIni(ruta, existe); }), 13);
    EXPECT_EQ(cfg.IP, u"1.2.3.4"_s);
    EXPECT_EQ(cfg.COLID2, 0);
    EXPECT_FALSE(existe);
}

TEST_F(ConfiguracioTest, ThePreviousModeSurvivesNeitherLoadNorCopy) {
    Configuracio cfg = Nueva();
    cfg.ModoAnterior = u"SEMI"_s;
    cfg.GuardarConfig(ruta);
    EXPECT_EQ(cfg.ModoAnterior, u"SEMI"_s);
    bool existe = false;
    cfg.LeerCfgIni(ruta, existe);
    EXPECT_EQ(cfg.ModoAnterior, QString());

    cfg.ModoAnterior = u"SEMI"_s;
    Configuracio otra = Nueva();
    otra.CopyFrom(cfg);
    EXPECT_EQ(otra.ModoAnterior, QString());
}

TEST_F(ConfiguracioTest, CopiesEveryOtherField) {
    Configuracio cfg = Nueva();
    Llena(cfg);
    Configuracio otra = Nueva();
    otra.CopyFrom(cfg);
    EXPECT_EQ(Todo(otra), Todo(cfg));
    EXPECT_EQ(otra.ModoInicial, u"MANUAL"_s);
}

TEST_F(ConfiguracioTest, ThreeEmptyPasswordsRemoveTheValues) {
    Configuracio cfg = Nueva();
    Llena(cfg);
    cfg.GuardarConfig(ruta);
    EXPECT_EQ(Registrado("CLAVE_AUTORIZADO"), u"uno"_s);
    EXPECT_EQ(Registrado("CLAVE_ADMIN"), u"dos"_s);
    EXPECT_EQ(Registrado("CLAVE_TECNICO"), u"tres ñ €"_s);
    cfg.CLAVE_ADMIN.clear();
    cfg.CLAVE_AUTORIZADO.clear();
    cfg.CLAVE_TECNICO.clear();
    cfg.GuardarConfig(ruta);
    EXPECT_TRUE(carpeta.Entradas(u"Registro/HKLM/Software/Zorvex/ZVMonitor"_s).isEmpty());
}

TEST_F(ConfiguracioTest, OnePasswordStoresTheOtherTwoAsEmptyValues) {
    for (QString Configuracio::*clave :
         {&Configuracio::CLAVE_ADMIN, &Configuracio::CLAVE_AUTORIZADO,
          &Configuracio::CLAVE_TECNICO}) {
        Configuracio cfg = Nueva();
        cfg.*clave = u"secreta"_s;
        cfg.GuardarConfig(ruta);
        QStringList valores{Registrado("CLAVE_ADMIN"), Registrado("CLAVE_AUTORIZADO"),
                            Registrado("CLAVE_TECNICO")};
        valores.sort();
        EXPECT_EQ(valores, (QStringList{QString(), QString(), u"secreta"_s}));
    }
}

TEST_F(ConfiguracioTest, APasswordMayBeOfAnyLength) {
    Configuracio cfg = Nueva();
    cfg.CLAVE_TECNICO = QString(5000, u'ñ');
    cfg.GuardarConfig(ruta);
    EXPECT_EQ(Leida(Fichero()).CLAVE_TECNICO, cfg.CLAVE_TECNICO);
}

TEST_F(ConfiguracioTest, TheConnectorsPathComesFromTheFileFirst) {
    registro.GuardarValor(u"Zorvex\\ZVConnector"_s, u"Path"_s, u"/del/registro"_s);
    EXPECT_EQ(Leida("[CONECTOR]\nZVConectorActive=1\nZVConectorPath=/del/fichero\n").ZVConectorPath,
              u"/del/fichero"_s);
    EXPECT_EQ(Leida("[CONECTOR]\nZVConectorActive=1\n").ZVConectorPath, u"/del/registro"_s);
    EXPECT_EQ(Leida("[CONECTOR]\nZVConectorActive=1\nZVConectorPath=\n").ZVConectorPath,
              u"/del/registro"_s);
    EXPECT_EQ(Leida("[CONECTOR]\nZVConectorActive=0\n").ZVConectorPath, QString());
}

TEST_F(ConfiguracioTest, SavingKeepsWhatItDoesNotKnow) {
    carpeta.Pon(
        u"ZVMonitor.ini"_s,
        "; instalado en 2019\n[Zorvex]\nip = 1.1.1.1\nNueva=x\n[FILTROS]\nULTCIERRE=01/02/26\n");
    Configuracio cfg = Leida(Fichero());
    cfg.IP = u"2.2.2.2"_s;
    cfg.GuardarConfig(ruta);
    const QByteArray despues = Fichero();
    EXPECT_TRUE(
        despues.startsWith("; instalado en 2019\n[Zorvex]\nip = 2.2.2.2\nNueva=x\nSUITEZV="));
    EXPECT_TRUE(despues.contains("[FILTROS]\nULTCIERRE=01/02/26\n"));
    EXPECT_FALSE(despues.contains('\r'));
}

TEST_F(ConfiguracioTest, AFileThatCannotBeWrittenIsLoggedKeyByKey) {
    carpeta.Pon(u"ZVMonitor.ini"_s, "");
    ASSERT_EQ(::chmod(QFile::encodeName(ruta).constData(), 0444), 0);
    Configuracio cfg = Nueva();
    cfg.CLAVE_ADMIN = u"a"_s;
    cfg.GuardarConfig(ruta);
    constexpr int kClaves = 28;
    EXPECT_EQ(log.lineas.size(), kClaves);
    EXPECT_EQ(log.CuentaInicio(u"GRABARINI - Error 75 - "_s), kClaves);
    EXPECT_EQ(Registrado("CLAVE_ADMIN"), u"a"_s);
    EXPECT_EQ(cfg.ModoInicial, cfg.Modo);
}

TEST_F(ConfiguracioTest, TheGlobalOneIsReplacedWhole) {
    ConfiguracioGlobal global(std::make_unique<Configuracio>(ini, registro, carpeta.Ruta()));
    global->IP = u"vieja"_s;
    auto nueva = std::make_unique<Configuracio>(ini, registro, carpeta.Ruta());
    nueva->IP = u"nueva"_s;
    global.Reemplazar(std::move(nueva));
    EXPECT_EQ(global->IP, u"nueva"_s);
}

} // namespace
} // namespace zv
