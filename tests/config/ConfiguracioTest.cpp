#include "config/Ajustes.h"
#include "config/BancoConfig.h"
#include "config/ConfiguracioGlobal.h"
#include "platform/StringLiterals.h"
#include "support/NumeroError.h"

#include <array>
#include <cstring>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

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

// Every field but ModoAnterior and ModoInicial, in the order of the file, the passwords last.
QStringList Todo(const Configuracio& cfg) {
    QStringList campos;
    for (const ajustes::Ajuste& ajuste : ajustes::kTodos) {
        campos << ajuste.clave + u'=' + ajustes::Valor(cfg, ajuste);
    }
    for (const ajustes::Password& password : ajustes::kPasswords) {
        campos << password.nombre.value + u'=' + cfg.*password.campo;
    }
    return campos;
}

// Names of the files that are replaced or deleted in some folders while it lives, in order; the
// same name in a row counts once.
class CambiosDeFicheros {
  public:
    explicit CambiosDeFicheros(const QStringList& carpetas) : cola_(::inotify_init1(IN_NONBLOCK)) {
        for (const QString& carpeta : carpetas) {
            EXPECT_GE(::inotify_add_watch(cola_, QFile::encodeName(carpeta).constData(),
                                          IN_MOVED_TO | IN_DELETE),
                      0);
        }
    }
    ~CambiosDeFicheros() { ::close(cola_); }
    CambiosDeFicheros(const CambiosDeFicheros&) = delete;
    CambiosDeFicheros& operator=(const CambiosDeFicheros&) = delete;

    QStringList Nombres() const {
        QStringList nombres;
        alignas(inotify_event) std::array<char, 16384> bytes{};
        ssize_t leidos = 0;
        while ((leidos = ::read(cola_, bytes.data(), bytes.size())) > 0) {
            for (ssize_t sitio = 0; sitio < leidos;) {
                inotify_event evento{};
                std::memcpy(&evento, bytes.data() + sitio, sizeof evento);
                const QString nombre =
                    QFile::decodeName(bytes.data() + sitio + static_cast<ssize_t>(sizeof evento));
                if (nombres.isEmpty() || nombres.last() != nombre) {
                    nombres << nombre;
                }
                sitio += static_cast<ssize_t>(sizeof evento + evento.len);
            }
        }
        return nombres;
    }

  private:
    int cola_;
};

TEST_F(ConfiguracioTest, WithoutAFileAllFieldsHoldTheirDefaults) {
    Configuracio cfg = Nueva();
    Llena(cfg);
    bool existe = true;
    cfg.LeerCfgIni(ruta, existe);
    EXPECT_FALSE(existe);
    const QStringList defectos = {u"IP="_s,
                                  u"SUITEZV="_s + carpeta.Ruta(),
                                  u"MODO=AUTO"_s,
                                  u"REFRESCO=2"_s,
                                  u"MINIMIZADO=0"_s,
                                  u"BLOQUEARPAGOS=0"_s,
                                  u"PREGUNTARANULAR=1"_s,
                                  u"SINIMPRESORA=0"_s,
                                  u"PREGUNTARCTO=1"_s,
                                  u"BOTONACCESO=0"_s,
                                  u"PAGOSADMIN=0"_s,
                                  u"SINHORA=0"_s,
                                  u"COLID2=0"_s,
                                  u"COLIDCAJA=0"_s,
                                  u"COLVENDEDOR=0"_s,
                                  u"COLTERMINAL=0"_s,
                                  u"COLFORMAPAGO=0"_s,
                                  u"BCEAN=0"_s,
                                  u"BCTPRE=0"_s,
                                  u"BCTINI=0"_s,
                                  u"BCTFIN=0"_s,
                                  u"BCIINI=0"_s,
                                  u"BCIFIN=0"_s,
                                  u"BCDEC=0"_s,
                                  u"ZVFastActive=1"_s,
                                  u"ZVFastPort=16501"_s,
                                  u"ZVConectorActive=0"_s,
                                  u"ZVConectorPath="_s,
                                  u"CLAVE_ADMIN="_s,
                                  u"CLAVE_AUTORIZADO="_s,
                                  u"CLAVE_TECNICO="_s};
    EXPECT_EQ(Todo(cfg), defectos);
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

TEST_F(ConfiguracioTest, ThePasswordsAreReadBehindTheColumnsAndBeforeTheBarcode) {
    registry.GuardarValor(registry_name::kClaveAdmin, u"nueva"_s);
    for (const auto& [bytes, leida] : {std::pair{"[ZVMONITOR]\nCOLFORMAPAGO=x\n", false},
                                       std::pair{"[BARCODE]\nBCEAN=x\n", true}}) {
        carpeta.Pon(u"ZVMonitor.ini"_s, bytes);
        Configuracio cfg = Nueva();
        cfg.CLAVE_ADMIN = u"vieja"_s;
        bool existe = false;
        EXPECT_EQ(NumeroError([&] { cfg.LeerCfgIni(ruta, existe); }), 13);
        EXPECT_EQ(cfg.CLAVE_ADMIN, leida ? u"nueva"_s : u"vieja"_s) << bytes;
    }
}

TEST_F(ConfiguracioTest, ThePasswordsAreWrittenBehindTheColumnsAndBeforeTheBarcode) {
    Configuracio cfg = Nueva();
    Llena(cfg);
    cfg.GuardarConfig(ruta);
    const QString fichero = u"ZVMonitor.ini"_s;
    const QStringList passwords = {u"CLAVE_ADMIN"_s, u"CLAVE_AUTORIZADO"_s, u"CLAVE_TECNICO"_s};
    const QStringList carpetas = {carpeta.Ruta(),
                                  carpeta.Ruta(u"Registro/HKLM/Software/Zorvex/ZVMonitor"_s)};
    for (const bool borrar : {false, true}) {
        for (const bool delante : {true, false}) {
            for (QString Configuracio::*clave :
                 {&Configuracio::CLAVE_ADMIN, &Configuracio::CLAVE_AUTORIZADO,
                  &Configuracio::CLAVE_TECNICO}) {
                cfg.*clave = borrar ? QString() : u"otra"_s + (delante ? u"1"_s : u"2"_s);
            }
            // One key changes: the last in front of the passwords, or the first behind them.
            ++(delante ? cfg.COLFORMAPAGO : cfg.BCEAN);
            QStringList esperado = passwords;
            esperado.insert(delante ? 0 : passwords.size(), fichero);
            if (borrar && !delante) {
                esperado = {fichero}; // deleted the time before
            }
            const CambiosDeFicheros cambios(carpetas);
            cfg.GuardarConfig(ruta);
            EXPECT_EQ(cambios.Nombres(), esperado) << borrar << delante;
        }
    }
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
    registry.GuardarValor(registry_name::kConectorPath, u"/del/registro"_s);
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

// Counts the files that come under a name in a folder while it lives: each is one durable write.
class CuentaEscrituras {
  public:
    explicit CuentaEscrituras(const QString& carpeta) : cola_(::inotify_init1(IN_NONBLOCK)) {
        // The temporary file of each write stands between two that would be told as one.
        EXPECT_GE(::inotify_add_watch(cola_, QFile::encodeName(carpeta).constData(),
                                      IN_CREATE | IN_MOVED_TO),
                  0);
    }
    ~CuentaEscrituras() { ::close(cola_); }
    CuentaEscrituras(const CuentaEscrituras&) = delete;
    CuentaEscrituras& operator=(const CuentaEscrituras&) = delete;

    int Cuenta() const {
        alignas(inotify_event) std::array<char, 65536> avisos{};
        const ssize_t bytes = ::read(cola_, avisos.data(), avisos.size());
        int cuenta = 0;
        for (ssize_t i = 0; i < bytes;) {
            inotify_event aviso{};
            std::memcpy(&aviso, avisos.data() + i, sizeof aviso);
            cuenta += (aviso.mask & IN_MOVED_TO) != 0 ? 1 : 0;
            i += static_cast<ssize_t>(sizeof aviso + aviso.len);
        }
        return cuenta;
    }

  private:
    int cola_;
};

TEST_F(ConfiguracioTest, SavingIsOneWriting) {
    Configuracio cfg = Leida("[ZORVEX]\nIP=1.1.1.1\n");
    cfg.IP = u"2.2.2.2"_s;
    cfg.CLAVE_ADMIN = u"secreta"_s;
    cfg.GuardarConfig(ruta);
    const CuentaEscrituras fichero(carpeta.Ruta());
    const CuentaEscrituras registro(carpeta.Ruta(u"Registro/HKLM/Software/Zorvex/ZVMonitor"_s));
    cfg.COLID2 = 1;
    cfg.ZVFastPort = u"16502"_s;
    cfg.GuardarConfig(ruta);
    EXPECT_EQ(fichero.Cuenta(), 1);
    EXPECT_EQ(registro.Cuenta(), 0); // the passwords stand there already
    cfg.GuardarConfig(ruta);
    EXPECT_EQ(fichero.Cuenta(), 0);
    cfg.CLAVE_TECNICO = u"otra"_s;
    cfg.COLID2 = 0;
    cfg.BCEAN = 13;
    cfg.GuardarConfig(ruta);
    EXPECT_EQ(registro.Cuenta(), 3);
    EXPECT_EQ(fichero.Cuenta(), 2); // in front of the passwords and behind them
}

TEST_F(ConfiguracioTest, WhatAnotherProgramHasWrittenMeanwhileStaysButForOurOwnKeys) {
    Configuracio cfg = Leida("[ZORVEX]\nIP=1.1.1.1\n");
    carpeta.Pon(u"ZVMonitor.ini"_s, "[NUEVA]\nk=1\n[ZORVEX]\nIP=9.9.9.9\nOtra=x\n");
    cfg.GuardarConfig(ruta);
    EXPECT_TRUE(Fichero().startsWith("[NUEVA]\nk=1\n[ZORVEX]\nIP=1.1.1.1\nOtra=x\nSUITEZV="));
}

TEST_F(ConfiguracioTest, TheGlobalOneIsReplacedWhole) {
    ConfiguracioGlobal global(std::make_unique<Configuracio>(ini, registry, carpeta.Ruta()));
    global->IP = u"vieja"_s;
    auto nueva = std::make_unique<Configuracio>(ini, registry, carpeta.Ruta());
    nueva->IP = u"nueva"_s;
    global.Reemplazar(std::move(nueva));
    EXPECT_EQ(global->IP, u"nueva"_s);
}

} // namespace
} // namespace zv
