// The settings under edit: what stands in the controls, the edits, leaving.
#include "BancoCfg.h"

#include <QFile>

#include <sys/stat.h>

namespace zv::test {
namespace {

class CfgMonitorTest : public BancoCfg {
  protected:
    void EsIgual(const Configuracio& una, const Configuracio& otra,
                 const ajustes::Ajuste* menos = nullptr) {
        for (const ajustes::Ajuste& cada : ajustes::kTodos) {
            if (&cada != menos) {
                EXPECT_EQ(ajustes::Valor(una, cada), ajustes::Valor(otra, cada))
                    << cada.clave.data();
            }
        }
    }
};

constexpr auto kIni = "[ZORVEX]\r\nIP=10.0.0.7\r\n[ZVMONITOR]\r\nMODO=SEMI\r\nREFRESCO=12\r\n"
                      "MINIMIZADO=1\r\nSINIMPRESORA=1\r\nPREGUNTARCTO=0\r\nCOLVENDEDOR=1\r\n"
                      "[CONECTOR]\r\nZVFastActive=0\r\nZVFastPort=17000\r\n"
                      "ZVConectorActive=1\r\nZVConectorPath=/opt/conector\r\n";

TEST_F(CfgMonitorTest, ShowsWhatIsInForce) {
    Cargar(kIni);
    EXPECT_EQ(E().modo, 2);
    EXPECT_EQ(E().Texto(CampoCfg::IP), u"10.0.0.7"_s);
    EXPECT_EQ(E().Texto(CampoCfg::Refresco), u"12"_s);
    EXPECT_EQ(E().Texto(CampoCfg::Puerto), u"17000"_s);
    EXPECT_EQ(E().Texto(CampoCfg::Ruta), u"/opt/conector"_s);
    const QStringList pulsados{u"MINIMIZADO"_s, u"SINIMPRESORA"_s, u"PREGUNTARANULAR"_s,
                               u"COLVENDEDOR"_s, u"ZVConectorActive"_s};
    for (const InterruptorAjuste& cada : kInterruptoresCfg) {
        EXPECT_EQ(Pulsado(cada.ajuste->clave.data()), pulsados.contains(cada.ajuste->clave))
            << cada.ajuste->clave.data();
    }
}

TEST_F(CfgMonitorTest, AnEmptyFormShowsFiveSecondsUntilItsFieldIsLoaded) {
    EXPECT_EQ(EstadoCfg().Texto(CampoCfg::Refresco), u"5"_s);
    Cargar();
    EXPECT_EQ(E().Texto(CampoCfg::Refresco), u"2"_s);
}

TEST_F(CfgMonitorTest, EveryToggleShowsAndKeepsTheSettingOfItsCaptionAndNoOther) {
    const std::pair<const char*, const char*> esperados[] = {
        {"Minimiza al iniciar", "MINIMIZADO"},
        {"Acceso directo flotante ", "BOTONACCESO"},
        {"Sin impresora", "SINIMPRESORA"},
        {"No permitir pagos", "BLOQUEARPAGOS"},
        {"Preguntar concepto en pagos/cobros manuales", "PREGUNTARCTO"},
        {"Preguntar causa anulación", "PREGUNTARANULAR"},
        {"Id. Caja", "COLIDCAJA"},
        {"Id. 2", "COLID2"},
        {"Terminal", "COLTERMINAL"},
        {"Vendedor", "COLVENDEDOR"},
        {"FormaPago", "COLFORMAPAGO"},
        {"ZVFast", "ZVFastActive"},
        {"Conector", "ZVConectorActive"}};
    ASSERT_EQ(std::size(esperados), kInterruptoresCfg.size());
    for (std::size_t i = 0; i < kInterruptoresCfg.size(); ++i) {
        const InterruptorAjuste& este = kInterruptoresCfg[i];
        SCOPED_TRACE(este.ajuste->clave.data());
        EXPECT_EQ(este.rotulo->PorDefecto(), QString::fromUtf8(esperados[i].first));
        EXPECT_EQ(este.ajuste->clave, QLatin1StringView(esperados[i].second));
        Cargar("");
        Configuracio antes = Leida();
        cfg->Conmutar(i);
        PreguntaGuardar();
        if (i == kInterruptorConector) {
            PreguntaConector(Respuesta::Si);
        }
        EXPECT_TRUE(cfg->Guardar());
        const QString esperado = ajustes::Valor(antes, *este.ajuste) == u"1"_s ? u"0"_s : u"1"_s;
        EXPECT_EQ(ajustes::Valor(Global(), *este.ajuste), esperado);
        EXPECT_EQ(EnFichero(este.ajuste->seccion.data(), este.ajuste->clave.data()), esperado);
        EsIgual(Global(), antes, este.ajuste);
    }
}

TEST_F(CfgMonitorTest, TheModeOfTheFileIsTheOneThatIsPressed) {
    for (const auto& [modo, esperado] : {std::pair<const char*, int>{"AUTO", 0},
                                         {"MANUAL", 1},
                                         {"SEMI", 2},
                                         {"auto", -1},
                                         {"SEMIAUTO", -1}}) {
        Cargar(QByteArray("[ZVMONITOR]\r\nMODO=") + modo + "\r\n");
        EXPECT_EQ(E().modo, esperado) << modo;
    }
    Cargar("[ZVMONITOR]\r\nMODO=SEMI\r\n");
    Global().Modo = u"MANUAL"_s; // that of the moment does not show
    Abrir();
    EXPECT_EQ(E().modo, 2);
}

TEST_F(CfgMonitorTest, OpeningAndLeavingAtOnceAsksNothing) {
    Cargar(kIni);
    EXPECT_FALSE(cfg->Cambios());
    EXPECT_TRUE(cfg->PuedeSalir());
    EXPECT_EQ(Fichero(), QByteArray(kIni));
}

TEST_F(CfgMonitorTest, ATouchOfTheModeInForceIsNoChange) {
    Cargar(kIni);
    cfg->ElegirModo(2);
    EXPECT_FALSE(cfg->Cambios());
    cfg->ElegirModo(0);
    EXPECT_EQ(E().modo, 0);
    EXPECT_TRUE(cfg->Cambios());
}

TEST_F(CfgMonitorTest, EveryToggleTurnsOverAndIsAChangeAlsoWhenItTurnsBack) {
    for (std::size_t i = 0; i < kInterruptoresCfg.size(); ++i) {
        Cargar(kIni);
        const bool antes = E().pulsado[i];
        cfg->Conmutar(i);
        EXPECT_EQ(E().pulsado[i], !antes);
        EXPECT_TRUE(cfg->Cambios());
        cfg->Conmutar(i);
        EXPECT_EQ(E().pulsado[i], antes);
        EXPECT_TRUE(cfg->Cambios());
    }
}

TEST_F(CfgMonitorTest, AnotherTextIsAChangeAndTheSameIsNone) {
    for (const CampoCfg campo : kCamposCfg) {
        Cargar(kIni);
        cfg->Escribir(campo, E().Texto(campo));
        EXPECT_FALSE(cfg->Cambios());
        cfg->Escribir(campo, u"7"_s);
        EXPECT_TRUE(cfg->Cambios());
        EXPECT_EQ(E().Texto(campo), u"7"_s);
    }
}

TEST_F(CfgMonitorTest, OfAPastedTextTheFirstLineCounts) {
    Cargar(kIni);
    for (const QString& resto :
         {u"\r\n[ZVMONITOR]"_s, u"\nIP=x"_s, u"\u2028x"_s, QString(1, QChar()) + u"x"_s}) {
        int avisos = 0;
        cfg->AlCambiar([&] { ++avisos; });
        cfg->Escribir(CampoCfg::IP, u"10.0.0.8"_s + resto);
        EXPECT_EQ(E().Texto(CampoCfg::IP), u"10.0.0.8"_s);
        EXPECT_EQ(avisos, 1); // the field shows more
    }
    Abrir();
    int avisos = 0;
    cfg->AlCambiar([&] { ++avisos; });
    cfg->Escribir(CampoCfg::IP, u"10.0.0.7\nx"_s);
    EXPECT_EQ(avisos, 1);
    EXPECT_FALSE(cfg->Cambios());
}

TEST_F(CfgMonitorTest, LeavingWithChangesAsksAndStaysUnlessTheAnswerIsYes) {
    Cargar(kIni);
    Conmutar("COLID2");
    for (const Respuesta respuesta : {Respuesta::No, Respuesta::Ninguna, Respuesta::Cancelar}) {
        PreguntaSalir(respuesta);
        EXPECT_FALSE(cfg->PuedeSalir());
    }
    PreguntaSalir(Respuesta::Si);
    EXPECT_TRUE(cfg->PuedeSalir());
    EXPECT_EQ(Fichero(), QByteArray(kIni));
    EXPECT_EQ(Global().COLID2, 0);
}

TEST_F(CfgMonitorTest, NothingUnderEditIsInForceBeforeItIsSaved) {
    Cargar(kIni);
    for (std::size_t i = 0; i < kInterruptoresCfg.size(); ++i) {
        cfg->Conmutar(i);
    }
    cfg->ElegirModo(1);
    for (const CampoCfg campo : kCamposCfg) {
        cfg->Escribir(campo, u"9"_s);
    }
    pantallas.EsperaBalanza([](Configuracio& suya) { suya.BCTPRE = true; });
    cfg->AbrirCodigoBarras();
    EsIgual(Global(), Leida());
    EXPECT_EQ(Fichero(), QByteArray(kIni));
}

TEST_F(CfgMonitorTest, AConnectorWithoutAPathTakesTheOneOfTheRegistry) {
    Cargar("[CONECTOR]\r\nZVConectorActive=1\r\n");
    EXPECT_EQ(E().Texto(CampoCfg::Ruta), QString());
    EXPECT_FALSE(cfg->Cambios());
    // The connector has been installed since the start.
    registry.GuardarValor(registry_name::kConectorPath, u"/opt/nuevo"_s);
    Abrir();
    EXPECT_EQ(E().Texto(CampoCfg::Ruta), u"/opt/nuevo"_s);
    EXPECT_TRUE(cfg->Cambios()); // the text of a field has changed
}

TEST_F(CfgMonitorTest, ThePathOfTheRegistryStaysAwayFromOneThatIsSetOrSwitchedOff) {
    registry.GuardarValor(registry_name::kConectorPath, u"/opt/nuevo"_s);
    Cargar(kIni);
    EXPECT_EQ(E().Texto(CampoCfg::Ruta), u"/opt/conector"_s);
    Cargar("[CONECTOR]\r\nZVConectorActive=0\r\n");
    EXPECT_EQ(E().Texto(CampoCfg::Ruta), QString());
    EXPECT_FALSE(cfg->Cambios());
}

TEST_F(CfgMonitorTest, SwitchingTheConnectorTakesTheFolderInWhichItsProgramIs) {
    const QString suya = carpeta.PonCarpeta(u"conector"_s);
    registry.GuardarValor(registry_name::kConectorPath, suya);
    Cargar(kIni);
    Conmutar("ZVConectorActive"); // off, and there is no program
    EXPECT_EQ(E().Texto(CampoCfg::Ruta), u"/opt/conector"_s);
    carpeta.Pon(u"conector/ZVConnector.exe"_s, "x");
    Conmutar("ZVConectorActive");
    EXPECT_EQ(E().Texto(CampoCfg::Ruta), suya);
    cfg->Escribir(CampoCfg::Ruta, u"/otra"_s);
    Conmutar("ZVConectorActive"); // off: it takes it as well
    EXPECT_EQ(E().Texto(CampoCfg::Ruta), suya);
    cfg->Escribir(CampoCfg::Ruta, u"/otra"_s);
    Conmutar("ZVFastActive");
    EXPECT_EQ(E().Texto(CampoCfg::Ruta), u"/otra"_s);
}

TEST_F(CfgMonitorTest, EnterInTheRefreshFieldPutsBackWhatIsNoNumber) {
    Cargar(kIni);
    for (const char* malo : {"", "x", "1x", "1 2", "--1", "."}) {
        cfg->Escribir(CampoCfg::Refresco, QString::fromLatin1(malo));
        std::optional<CampoCfg> foco;
        cfg->AlCambiar([&] { foco = E().foco ? E().foco : foco; });
        dialogos.EsperaMensaje(u"Error de configuración"_s, u"Se esperaba un valor númerico"_s,
                               Respuesta::Aceptar, EstiloMensaje::Aceptar);
        cfg->ComprobarRefresco();
        EXPECT_EQ(E().Texto(CampoCfg::Refresco), u"12"_s) << malo;
        EXPECT_EQ(foco, CampoCfg::Refresco);
        EXPECT_FALSE(E().foco);
        cfg->AlCambiar({});
    }
    for (const char* bueno : {"0", " 7", "-5", "1e2", "1,5", "999"}) {
        cfg->Escribir(CampoCfg::Refresco, QString::fromLatin1(bueno));
        cfg->ComprobarRefresco();
        EXPECT_EQ(E().Texto(CampoCfg::Refresco), QString::fromLatin1(bueno));
    }
}

TEST_F(CfgMonitorTest, TheBarcodeLayoutWorksOnTheCopyAndIsAChangeWhateverHappenedThere) {
    Cargar("[ZORVEX]\r\nIP=10.0.0.7\r\n");
    pantallas.EsperaBalanza();
    cfg->AbrirCodigoBarras();
    EXPECT_TRUE(cfg->Cambios());
    pantallas.EsperaBalanza([&](Configuracio& suya) {
        EXPECT_NE(&suya, &Global());
        EXPECT_EQ(suya.IP, u"10.0.0.7"_s);
        suya.BCEAN = 13;
        suya.BCTPRE = true;
    });
    cfg->AbrirCodigoBarras();
    Guardar();
    EXPECT_EQ(Global().BCEAN, 13);
    EXPECT_EQ(EnFichero("BARCODE", "BCTPRE"), u"1"_s);
}

TEST_F(CfgMonitorTest, UsersAndAccessesNeedTheDatabase) {
    Cargar(kIni);
    for (const Pantalla pantalla : {Pantalla::Usuarios, Pantalla::Accesos}) {
        EXPECT_FALSE(cfg->PuedeAbrir(pantalla));
        cfg->Abrir(pantalla); // nothing happens
    }
    EXPECT_TRUE(cfg->PuedeAbrir(Pantalla::Balanza));
    AbrirBase();
    for (const Pantalla pantalla : {Pantalla::Usuarios, Pantalla::Accesos}) {
        EXPECT_TRUE(cfg->PuedeAbrir(pantalla));
        pantallas.EsperaAbrir(pantalla);
        cfg->Abrir(pantalla);
        EXPECT_FALSE(cfg->Cambios());
        pantallas.faltan = {pantalla, Pantalla::Balanza};
        EXPECT_FALSE(cfg->PuedeAbrir(pantalla));
        EXPECT_FALSE(cfg->PuedeAbrir(Pantalla::Balanza));
        cfg->Abrir(pantalla);
        pantallas.faltan.clear();
    }
}

TEST_F(CfgMonitorTest, SaysWhenThereIsNoKeyboard) {
    Cargar(kIni);
    cfg->AbrirTeclado();
    EXPECT_EQ(E().aviso, QString());
    hayTeclado = false;
    cfg->AbrirTeclado();
    EXPECT_EQ(teclados, 2);
    EXPECT_EQ(E().aviso, u"Este equipo no tiene teclado en pantalla"_s);
    EXPECT_FALSE(cfg->Cambios());
    hayTeclado = true;
    cfg->AbrirTeclado();
    EXPECT_EQ(E().aviso, QString());
}

TEST_F(CfgMonitorTest, SaysBesideThePortWhatTheFastLinkCouldNotOpen) {
    Cargar("");
    ocupados = {8080};
    const QString fuera = u"Un puerto va de 1 a 65535"_s;
    const QString ocupado = u"Otro programa usa este puerto"_s;
    const std::pair<const char*, QString> casos[] = {
        {"16502", {}},    {"0", fuera},  {"1", {}},      {"65535", {}},
        {"65536", fuera}, {"-1", fuera}, {"1e9", fuera}, {"8080", ocupado},
        {"x", {}},        {"", {}},      {"0,5", fuera}, {"8079,6", ocupado}};
    for (const auto& [texto, nota] : casos) {
        cfg->Escribir(CampoCfg::Puerto, QString::fromLatin1(texto));
        EXPECT_EQ(E().notaPuerto, nota) << texto;
    }
    cfg->Escribir(CampoCfg::Puerto, u"8080"_s);
    Conmutar("ZVFastActive");
    EXPECT_EQ(E().notaPuerto, QString());
    Conmutar("ZVFastActive");
    EXPECT_EQ(E().notaPuerto, ocupado);
}

TEST_F(CfgMonitorTest, SaysBesideThePathWhatCannotBeStarted) {
    Cargar("[CONECTOR]\r\nZVConectorActive=1\r\n");
    EXPECT_EQ(E().notaRuta, QString());
    const auto nota = [&](const QString& ruta) {
        cfg->Escribir(CampoCfg::Ruta, ruta);
        return E().notaRuta;
    };
    EXPECT_EQ(nota(carpeta.Ruta()), u"Es una carpeta: escoja el programa"_s);
    EXPECT_EQ(nota(u"/no/hay/nada"_s), u"No hay ningún fichero en esa ruta"_s);
    const QString programa = carpeta.Pon(u"ZVConnector"_s, "#!/bin/sh\n");
    EXPECT_EQ(nota(programa), u"Ese fichero no es un programa que se pueda iniciar"_s);
    ASSERT_EQ(::chmod(QFile::encodeName(programa).constData(), 0755), 0);
    EXPECT_EQ(nota({}), QString());
    EXPECT_EQ(nota(programa), QString());
    EXPECT_EQ(nota(u"/no/hay/nada"_s), u"No hay ningún fichero en esa ruta"_s);
    Conmutar("ZVConectorActive");
    EXPECT_EQ(E().notaRuta, QString());
}

} // namespace
} // namespace zv::test
