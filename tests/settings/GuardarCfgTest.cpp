// Saving: the tests of the fields in their order, what a save brings into force, bad input and
// files that do not take it.
#include "BancoCfg.h"

#include <QFile>

#include <sys/stat.h>

namespace zv::test {
namespace {

class GuardarCfgTest : public BancoCfg {
  protected:
    void EsperaSinNumero() {
        dialogos.EsperaMensaje(u"Error de configuración"_s, u"Se requiere un valor numérico"_s,
                               Respuesta::Aceptar, EstiloMensaje::Critico);
    }
    void EsperaSinPuerto() {
        dialogos.EsperaMensaje(u"Error de configuración"_s, u"Falta el puerto del ZVFast"_s,
                               Respuesta::Aceptar, EstiloMensaje::Aviso);
    }
    // Saving is refused, with the focus where it is to be put right.
    void NoGuarda(std::optional<CampoCfg> esperado) {
        std::optional<CampoCfg> foco;
        cfg->AlCambiar([&] { foco = E().foco ? E().foco : foco; });
        const QByteArray antes = Fichero();
        EXPECT_FALSE(cfg->Guardar());
        EXPECT_EQ(foco, esperado);
        EXPECT_EQ(Fichero(), antes);
        EXPECT_EQ(dialogos.Pendientes(), 0U);
        cfg->AlCambiar({});
    }
    void QuitarEscritura() {
        ASSERT_EQ(::chmod(QFile::encodeName(entorno.rutaIni).constData(), 0444), 0);
    }
};

constexpr auto kIni = "[ZORVEX]\r\nIP=10.0.0.7\r\n";

TEST_F(GuardarCfgTest, OnNoNothingIsDone) {
    Cargar("");
    Conmutar("COLID2");
    for (const Respuesta respuesta : {Respuesta::No, Respuesta::Ninguna}) {
        PreguntaGuardar(respuesta);
        NoGuarda({});
    }
    EXPECT_TRUE(cfg->Cambios());
    EXPECT_EQ(Global().COLID2, 0);
}

TEST_F(GuardarCfgTest, TheTestsComeInTheirOrder) {
    Cargar("[CONECTOR]\r\nZVConectorActive=1\r\nZVConectorPath=/no/hay\r\n");
    cfg->Escribir(CampoCfg::Refresco, u"x"_s);
    cfg->Escribir(CampoCfg::Puerto, {});
    PreguntaGuardar();
    EsperaSinNumero();
    NoGuarda(CampoCfg::Refresco);
    cfg->Escribir(CampoCfg::Refresco, u"3"_s);
    PreguntaGuardar();
    EsperaSinPuerto();
    NoGuarda(CampoCfg::Puerto);
    cfg->Escribir(CampoCfg::Puerto, u"16502"_s);
    PreguntaGuardar();
    PreguntaConector(Respuesta::No);
    NoGuarda(CampoCfg::Ruta);
    EXPECT_TRUE(cfg->Cambios());
    PreguntaGuardar();
    PreguntaConector(Respuesta::Si);
    EXPECT_TRUE(cfg->Guardar());
    EXPECT_FALSE(cfg->Cambios());
    EXPECT_EQ(Global().ZVFastPort, u"16502"_s);
}

TEST_F(GuardarCfgTest, APortIsAskedForOnlyWhileTheFastLinkIsOn) {
    for (const char* puerto : {"", "x", "16501x", "1 2", "--1", "."}) {
        Cargar("");
        cfg->Escribir(CampoCfg::Puerto, QString::fromLatin1(puerto));
        PreguntaGuardar();
        EsperaSinPuerto();
        NoGuarda(CampoCfg::Puerto);
        Conmutar("ZVFastActive");
        Guardar();
        EXPECT_EQ(Global().ZVFastPort, QString::fromLatin1(puerto));
        EXPECT_FALSE(Global().zvFastActive);
    }
    for (const char* puerto : {"16501", "0", "65535", "65536", "-1", "1e3", "16501,5"}) {
        Cargar("");
        cfg->Escribir(CampoCfg::Puerto, QString::fromLatin1(puerto));
        Guardar();
        EXPECT_EQ(Global().ZVFastPort, QString::fromLatin1(puerto));
        EXPECT_EQ(EnFichero("CONECTOR", "ZVFastPort"), QString::fromLatin1(puerto));
    }
}

TEST_F(GuardarCfgTest, AConnectorIsLookedForOnlyWhileItIsOnAndMustBeAFile) {
    const QString programa = carpeta.Pon(u"ZVConnector"_s, "x"); // not executable: a file it is
    Cargar("[CONECTOR]\r\nZVConectorActive=1\r\n");
    cfg->Escribir(CampoCfg::Ruta, programa);
    Guardar();
    EXPECT_EQ(Global().ZVConectorPath, programa);
    Abrir();
    for (const QString& ruta : {carpeta.Ruta(), u"/no/hay"_s, QString()}) {
        cfg->Escribir(CampoCfg::Ruta, ruta);
        PreguntaGuardar();
        PreguntaConector(Respuesta::No);
        NoGuarda(CampoCfg::Ruta);
    }
    cfg->Escribir(CampoCfg::Ruta, u"/no/hay"_s);
    Conmutar("ZVConectorActive");
    Guardar();
    EXPECT_EQ(Global().ZVConectorPath, u"/no/hay"_s);
    EXPECT_FALSE(Global().ZVConectorActive);
}

TEST_F(GuardarCfgTest, AFolderOfTheRegistryBringsUpTheQuestionAndMayBeKept) {
    registry.GuardarValor(registry_name::kConectorPath, carpeta.Ruta());
    Cargar("[CONECTOR]\r\nZVConectorActive=1\r\n");
    Conmutar("COLID2");
    PreguntaGuardar();
    PreguntaConector(Respuesta::Si);
    EXPECT_TRUE(cfg->Guardar());
    EXPECT_EQ(EnFichero("CONECTOR", "ZVConectorPath"), carpeta.Ruta());
}

TEST_F(GuardarCfgTest, TheModesOfBeforeAndNow) {
    Cargar("[ZVMONITOR]\r\nMODO=AUTO\r\n");
    Global().Modo = u"MANUAL"_s; // forced since
    Abrir();
    cfg->ElegirModo(2);
    Guardar();
    EXPECT_EQ(Global().Modo, u"SEMI"_s);
    EXPECT_EQ(Global().ModoInicial, u"SEMI"_s);
    EXPECT_EQ(Global().ModoAnterior, u"MANUAL"_s);
    EXPECT_EQ(EnFichero("ZVMONITOR", "MODO"), u"SEMI"_s);
}

TEST_F(GuardarCfgTest, WithoutAPressedModeTheModeStays) {
    Cargar("[ZVMONITOR]\r\nMODO=RARO\r\n");
    Conmutar("COLID2");
    Guardar();
    EXPECT_EQ(Global().Modo, u"RARO"_s);
    EXPECT_EQ(EnFichero("ZVMONITOR", "MODO"), u"RARO"_s);
}

TEST_F(GuardarCfgTest, WhatHasNoControlPassesThroughUnchanged) {
    Cargar("[ZORVEX]\r\nSUITEZV=/suite\r\n[ZVMONITOR]\r\nPAGOSADMIN=7\r\nSINHORA=1\r\n"
           "[BARCODE]\r\nBCEAN=13\r\nBCTPRE=1\r\nBCTINI=2\r\n[FILTROS]\r\nULTCIERRE=1\r\n");
    Global().CLAVE_TECNICO = u"secreta"_s;
    Abrir();
    cfg->Escribir(CampoCfg::IP, u"10.0.0.9"_s);
    Guardar();
    EXPECT_EQ(Global().SUITEZV, u"/suite"_s);
    EXPECT_EQ(Global().PAGOSADMIN, 7);
    EXPECT_EQ(Global().SINHORA, 1);
    EXPECT_EQ(Global().CLAVE_TECNICO, u"secreta"_s);
    EXPECT_EQ(Global().BCEAN, 13);
    EXPECT_TRUE(Global().BCTPRE);
    EXPECT_EQ(registry.LeerValor(registry_name::kClaveTecnico, {}), u"secreta"_s);
    EXPECT_EQ(EnFichero("FILTROS", "ULTCIERRE"), u"1"_s);
}

TEST_F(GuardarCfgTest, AByteThatIsNeitherBecomesOneOfTheTwo) {
    Cargar("[ZVMONITOR]\r\nCOLID2=2\r\n");
    EXPECT_FALSE(Pulsado("COLID2"));
    Conmutar("COLIDCAJA");
    Guardar();
    EXPECT_EQ(Global().COLID2, 0);
}

TEST_F(GuardarCfgTest, TheSixteenBitConversionDecidesAboutTheRefresh) {
    for (const auto& [texto, valor] : {std::pair<const char*, int>{"1e2", 100},
                                       {"-5", -5},
                                       {"2,5", 2},
                                       {"3,5", 4},
                                       {" 7", 7},
                                       {"1e4", 10000},
                                       {"999", 999}}) {
        Cargar("");
        cfg->Escribir(CampoCfg::Refresco, QString::fromLatin1(texto));
        Guardar();
        EXPECT_EQ(Global().REFRESCO, valor) << texto;
    }
    for (const char* grande : {"1e5", "9e9", "-1e5"}) {
        Cargar("");
        cfg->Escribir(CampoCfg::Refresco, QString::fromLatin1(grande));
        cfg->Escribir(CampoCfg::IP, u"10.0.0.9"_s);
        PreguntaGuardar();
        EXPECT_EQ(NumeroError([&] { cfg->Guardar(); }), 6);
        EXPECT_EQ(Global().IP, QString());
        EXPECT_EQ(Fichero(), QByteArray());
    }
}

TEST_F(GuardarCfgTest, AnyTextOfAFieldIsReadBackAsItIsAndDoesNoHarmToTheFile) {
    for (const QString& texto :
         {u"caja uno"_s, u"[ZVMONITOR]"_s, u"; nota"_s, u"a=b"_s, QString(255, u'ñ'), u"-1"_s,
          u"1e5"_s, u"Ñandú €"_s, u"' OR 1=1 --"_s}) {
        Cargar("[ZORVEX]\r\n[ZVMONITOR]\r\nMODO=SEMI\r\n");
        cfg->Escribir(CampoCfg::IP, texto);
        Guardar();
        EXPECT_EQ(Global().IP, texto);
        EXPECT_EQ(Leida().IP, texto);
        EXPECT_EQ(Leida().Modo, u"SEMI"_s);
    }
}

TEST_F(GuardarCfgTest, TheFirstSaveMakesTheFile) {
    Cargar();
    EXPECT_FALSE(carpeta.Esta(u"ZVMonitor.ini"_s));
    cfg->Escribir(CampoCfg::IP, u"10.0.0.9"_s);
    Guardar();
    EXPECT_TRUE(Fichero().startsWith("[ZORVEX]\r\nIP=10.0.0.9\r\n"));
    bool existe = false;
    Global().LeerCfgIni(entorno.rutaIni, existe);
    EXPECT_TRUE(existe);
}

TEST_F(GuardarCfgTest, AFileThatNobodyMayWriteStaysAndTheSettingsAreInForceAllTheSame) {
    Cargar(kIni);
    QuitarEscritura();
    cfg->Escribir(CampoCfg::IP, u"10.0.0.9"_s);
    Guardar();
    EXPECT_EQ(Global().IP, u"10.0.0.9"_s);
    EXPECT_EQ(Fichero(), QByteArray(kIni));
    EXPECT_GT(log.CuentaInicio(u"GRABARINI - Error 75 - "_s), 0);
}

TEST_F(GuardarCfgTest, WhatAnotherProgramWroteMeanwhileStaysButForTheSettings) {
    Cargar(kIni);
    cfg->Escribir(CampoCfg::IP, u"10.0.0.9"_s);
    carpeta.Pon(u"ZVMonitor.ini"_s, "; nota\r\n[FILTROS]\r\nULTCIERRE=1\r\n[ZORVEX]\r\nIP=1\r\n");
    Guardar();
    EXPECT_TRUE(Fichero().startsWith(
        "; nota\r\n[FILTROS]\r\nULTCIERRE=1\r\n[ZORVEX]\r\nIP=10.0.0.9\r\nSUITEZV="));
}

TEST_F(GuardarCfgTest, ALogThatCannotBeWrittenEitherIsTheCallersFailure) {
    Cargar(kIni);
    QuitarEscritura();
    cfg->Escribir(CampoCfg::IP, u"10.0.0.9"_s);
    log.fallosPendientes = 1;
    PreguntaGuardar();
    EXPECT_EQ(NumeroError([&] { cfg->Guardar(); }), 75);
    EXPECT_EQ(Fichero(), QByteArray(kIni));
    EXPECT_EQ(Global().IP, u"10.0.0.7"_s);
}

} // namespace
} // namespace zv::test
