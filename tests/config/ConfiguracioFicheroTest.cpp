// The settings out of files that are damaged, odd or very big.
#include "config/BancoConfig.h"
#include "platform/StringLiterals.h"
#include "support/ClavesNumericas.h"
#include "support/NumeroError.h"
#include "support/SinPrivilegios.h"

#include <QStringEncoder>

#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zv {
namespace {

using test::ClaveNumerica;
using test::NumeroError;

class ConfiguracioFicheroTest : public BancoConfig {
  protected:
    void ElFicheroCuentaComoAusente(const char* motivo) {
        dialogos.EsperaMensaje(u"Error al leer el fichero de configuración"_s,
                               u"Error nº 75: Error de acceso a la ruta o al "
                               "archivo: %1 (%2)"_s.arg(ruta, QString::fromUtf8(motivo)),
                               Respuesta::Aceptar, EstiloMensaje::Aceptar);
        Configuracio cfg = Nueva();
        cfg.IP = u"vieja"_s;
        cfg.PREGUNTARANULAR = 7;
        bool existe = true;
        EXPECT_EQ(NumeroError([&] { cfg.LeerCfgIni(ruta, existe); }), 0);
        EXPECT_FALSE(existe);
        EXPECT_EQ(cfg.IP, QString());
        EXPECT_EQ(cfg.Modo, u"AUTO"_s);
        EXPECT_EQ(cfg.REFRESCO, 2);
        EXPECT_EQ(cfg.PREGUNTARANULAR, 1);
        EXPECT_EQ(cfg.ZVFastPort, u"16501"_s);
        EXPECT_EQ(dialogos.Pendientes(), 0U);
    }
};

// Counts how often a file is opened while it lives.
class CuentaAperturas {
  public:
    explicit CuentaAperturas(const QString& fichero) : cola_(::inotify_init1(IN_NONBLOCK)) {
        EXPECT_GE(
            ::inotify_add_watch(cola_, QFile::encodeName(fichero).constData(), IN_OPEN | IN_CLOSE),
            0);
    }
    ~CuentaAperturas() { ::close(cola_); }
    CuentaAperturas(const CuentaAperturas&) = delete;
    CuentaAperturas& operator=(const CuentaAperturas&) = delete;

    int Cuenta() const {
        int aperturas = 0;
        inotify_event evento{}; // without a name: the watch is on the file itself
        while (::read(cola_, &evento, sizeof evento) == sizeof evento) {
            aperturas += (evento.mask & IN_OPEN) != 0 ? 1 : 0;
        }
        return aperturas;
    }

  private:
    int cola_;
};

class ClavesNumericas : public ConfiguracioFicheroTest,
                        public testing::WithParamInterface<ClaveNumerica> {
  protected:
    int Fallo(const QByteArray& valor) {
        return NumeroError([&] {
            Leida(QByteArray("[") + GetParam().seccion + "]\r\n" + GetParam().clave + '=' + valor +
                  "\r\n");
        });
    }
};

TEST_P(ClavesNumericas, ALetterIsNoNumber) {
    for (const char* letra : {"x", "1x", "O", "", "si", "1 2", "--1"}) {
        EXPECT_EQ(Fallo(letra), 13) << letra;
    }
    EXPECT_EQ(Fallo("1"), 0);
}

INSTANTIATE_TEST_SUITE_P(Todas, ClavesNumericas, testing::ValuesIn(test::ClavesNumericas()),
                         [](const auto& caso) { return std::string(caso.param.clave); });

TEST_F(ConfiguracioFicheroTest, TextKeysTakeAnything) {
    const Configuracio cfg = Leida("[ZORVEX]\r\nIP=x\r\nSUITEZV=\r\n[ZVMONITOR]\r\nMODO=x\r\n"
                                   "[CONECTOR]\r\nZVFastActive=x\r\nZVFastPort=x\r\n"
                                   "ZVConectorActive=x\r\nZVConectorPath=x\r\n");
    EXPECT_EQ(cfg.IP, u"x"_s);
    EXPECT_EQ(cfg.SUITEZV, QString());
    EXPECT_EQ(cfg.Modo, u"x"_s);
    EXPECT_TRUE(cfg.zvFastActive);
    EXPECT_EQ(cfg.ZVFastPort, u"x"_s);
    EXPECT_TRUE(cfg.ZVConectorActive);
    EXPECT_EQ(cfg.ZVConectorPath, u"x"_s);
}

TEST_F(ConfiguracioFicheroTest, EmptyAndBinaryFilesGiveTheDefaultsAndExist) {
    QByteArray ruido;
    for (int i = 0; i < 4096; ++i) {
        ruido.append(static_cast<char>(i * 37 % 256));
    }
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray(5000, '\0'), ruido, QByteArray("\xFF\xFE\x00\xD8\x5B", 5)}) {
        const Configuracio cfg = Leida(bytes);
        EXPECT_EQ(cfg.IP, QString());
        EXPECT_EQ(cfg.SUITEZV, carpeta.Ruta());
        EXPECT_EQ(cfg.Modo, u"AUTO"_s);
        EXPECT_EQ(cfg.REFRESCO, 2);
        EXPECT_EQ(cfg.PREGUNTARANULAR, 1);
        EXPECT_TRUE(cfg.zvFastActive);
    }
}

TEST_F(ConfiguracioFicheroTest, WideTextIsReadAndStaysWide) {
    const QString texto = u"[ZORVEX]\r\nIP=10.0.0.7\r\nSUITEZV=C:\\Ñandú\\Ελλάς\r\n"
                          "[ZVMONITOR]\r\nMODO=SEMI\r\nREFRESCO=9\r\n"_s;
    for (const auto codigo : {QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
        QStringEncoder codificador(codigo, QStringConverter::Flag::WriteBom);
        const QByteArray bytes = codificador.encode(texto);
        Configuracio cfg = Leida(bytes);
        EXPECT_EQ(cfg.IP, u"10.0.0.7"_s);
        EXPECT_EQ(cfg.SUITEZV, u"C:\\Ñandú\\Ελλάς"_s);
        EXPECT_EQ(cfg.Modo, u"SEMI"_s);
        EXPECT_EQ(cfg.REFRESCO, 9);

        cfg.IP = u"2.2.2.2"_s;
        cfg.GuardarConfig(ruta);
        EXPECT_TRUE(Fichero().startsWith(bytes.first(2)));
        Configuracio otra = Leida(Fichero());
        EXPECT_EQ(otra.IP, u"2.2.2.2"_s);
        EXPECT_EQ(otra.SUITEZV, u"C:\\Ñandú\\Ελλάς"_s);
    }
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(ConfiguracioFicheroTest, TheFirstOfDoubledSectionsAndKeysCounts) {
    const Configuracio cfg = Leida("[ZVMONITOR]\r\nREFRESCO=5\r\nrefresco=x\r\n"
                                   "[ZORVEX]\r\nIP=1.1.1.1\r\nIP=2.2.2.2\r\n"
                                   "[zvmonitor]\r\nREFRESCO=x\r\nSINHORA=1\r\n"
                                   "[ZORVEX]\r\nIP=3.3.3.3\r\nSUITEZV=/otra\r\n");
    EXPECT_EQ(cfg.REFRESCO, 5);
    EXPECT_EQ(cfg.IP, u"1.1.1.1"_s);
    EXPECT_EQ(cfg.SINHORA, 0);
    EXPECT_EQ(cfg.SUITEZV, carpeta.Ruta());
}

TEST_F(ConfiguracioFicheroTest, ValuesAreCutAt255Characters) {
    const Configuracio cfg = Leida("[ZORVEX]\nIP=" + QByteArray(600, 'a') +
                                   "\n[CONECTOR]\nZVConectorPath=" + QByteArray(255, 'b') + "\n");
    EXPECT_EQ(cfg.IP, QString(255, u'a'));
    EXPECT_EQ(cfg.ZVConectorPath, QString(255, u'b'));
}

TEST_F(ConfiguracioFicheroTest, AVeryBigFileIsReadOnceForAllKeys) {
    const QByteArray relleno = QByteArray("[s]\r\nclave=0123456789\r\n").repeated(200000);
    const QByteArray bytes =
        relleno + relleno + "[ZORVEX]\r\nIP=10.0.0.7\r\n" + relleno + "[CONECTOR]\r\nZVFastPort=7";
    ASSERT_GT(bytes.size(), 10'000'000);
    carpeta.Pon(u"ZVMonitor.ini"_s, bytes);
    Configuracio cfg = Nueva();
    bool existe = false;
    const CuentaAperturas aperturas(ruta);
    cfg.LeerCfgIni(ruta, existe);
    EXPECT_EQ(aperturas.Cuenta(), 1);
    EXPECT_TRUE(existe);
    EXPECT_EQ(cfg.IP, u"10.0.0.7"_s);
    EXPECT_EQ(cfg.ZVFastPort, u"7"_s);
}

TEST_F(ConfiguracioFicheroTest, AReadOnlyFileIsReadAsAnyOther) {
    carpeta.Pon(u"ZVMonitor.ini"_s, "[ZORVEX]\r\nIP=10.0.0.7\r\n");
    ASSERT_EQ(::chmod(QFile::encodeName(ruta).constData(), 0444), 0);
    Configuracio cfg = Nueva();
    bool existe = false;
    cfg.LeerCfgIni(ruta, existe);
    EXPECT_TRUE(existe);
    EXPECT_EQ(cfg.IP, u"10.0.0.7"_s);
}

TEST_F(ConfiguracioFicheroTest, AFileThatMayNotBeReadIsShownOnceAndCountsAsMissing) {
    carpeta.Pon(u"ZVMonitor.ini"_s, "[ZORVEX]\r\nIP=10.0.0.7\r\n");
    ASSERT_EQ(::chmod(QFile::encodeName(carpeta.Ruta()).constData(), 0755), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(ruta).constData(), 0), 0);
    const test::SinPrivilegios nadie;
    ElFicheroCuentaComoAusente("permiso denegado");
}

TEST_F(ConfiguracioFicheroTest, AFolderInThePlaceOfTheFileIsShownOnceAndCountsAsMissing) {
    carpeta.PonCarpeta(u"ZVMonitor.ini"_s);
    ElFicheroCuentaComoAusente("es una carpeta");
}

} // namespace
} // namespace zv
