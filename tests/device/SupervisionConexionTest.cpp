// Connection supervision against the scripted device: messages, order, lamps.
#include "device/SupervisionConexion.h"

#include "platform/ErrorEjecucion.h"
#include "platform/RegistryNames.h"
#include "platform/StringLiterals.h"
#include "support/DeviceGuion.h"
#include "support/DialogosGuion.h"
#include "support/ImprimeQt.h"
#include "support/LogMemoria.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zv {
namespace {

using registry_name::kSaldoExit;
using registry_name::kSaldoInicial;

QStringList Lista(std::initializer_list<const char*> textos) {
    QStringList lista;
    for (const char* texto : textos) {
        lista << QString::fromUtf8(texto);
    }
    return lista;
}

// Keeps what the main screen is told, with the device's calls among it.
class VistaGuion final : public VistaConexion {
  public:
    explicit VistaGuion(QStringList& sucesos) : sucesos_(sucesos) {}
    void HabilitarConectar(bool habilitado) override {
        sucesos_ << u"boton7 %1"_s.arg(habilitado ? 1 : 0);
    }
    void MostrarEspera(bool espera) override { sucesos_ << u"espera %1"_s.arg(espera ? 1 : 0); }
    void ActualizarBotonesMonitor(bool habilitado) override {
        sucesos_ << u"botones %1"_s.arg(habilitado ? 1 : 0);
    }
    void MostrarLamparas(bool ok, bool alerta, bool critico) override {
        lamparas = u"%1%2%3"_s.arg(ok ? 1 : 0).arg(alerta ? 1 : 0).arg(critico ? 1 : 0);
    }
    bool Agrupando() const override { return agrupando; }

    QString lamparas;
    bool agrupando = false;

  private:
    QStringList& sucesos_;
};

class SupervisionConexionTest : public testing::Test {
  protected:
    SupervisionConexionTest() {
        supervision.PonerVista(&vista);
        cliente.AlLlamar([this](const QString& llamada) { sucesos << llamada; });
    }

    void Guardar(const RegistryName& valor, const QString& dato) {
        registry.GuardarValor(valor, dato);
    }
    QString Leer(const RegistryName& valor) const { return registry.LeerValor(valor, u"(nada)"_s); }
    // Connected, with the balances of the registry equal to the device's total.
    void Conectada(qint32 total) {
        Guardar(kSaldoExit, QString::number(total));
        Guardar(kSaldoInicial, QString::number(total));
        cliente.PonerTotal(total);
        cliente.EsperaConnect();
        supervision.Conectar();
        ASSERT_TRUE(supervision.Conectado());
        sucesos.clear();
        log.lineas.clear();
    }

    QTemporaryDir carpeta;
    QStringList sucesos;
    DeviceGuion cliente;
    RegistryTree registry{carpeta.path()};
    test::LogMemoria log;
    test::DialogosGuion dialogos;
    Textos textos{carpeta.path()};
    Importes importes{FormatoRegional(u"es_ES"_s), [this] { return cliente.Multiplier(); }};
    VistaGuion vista{sucesos};
    SupervisionConexion supervision{
        cliente, registry, log, dialogos, textos, importes, [] { return u"10.0.0.7"_s; }};
};

// ---- Conectar

TEST_F(SupervisionConexionTest, ConnectsInOrderAndSaysNothingWhenTheMoneyIsAsItWas) {
    Guardar(kSaldoExit, u"1234"_s);
    Guardar(kSaldoInicial, u"1000"_s);
    cliente.PonerTotal(1234);
    cliente.EsperaConnect();
    supervision.Conectar();
    EXPECT_TRUE(supervision.Conectado());
    EXPECT_EQ(sucesos, Lista({"boton7 0", "espera 1", "Address(10.0.0.7)", "SessionFlag(1)",
                              "Connect()", "espera 0", "boton7 1", "botones 1"}));
    EXPECT_EQ(log.lineas, Lista({"ZVCONNECT_CONECTARZORV_CONNECT_OK"}));
    EXPECT_EQ(supervision.SaldoInicial(), 1000);
    EXPECT_EQ(supervision.UltimoSaldo(), Currency(1234));
    EXPECT_EQ(supervision.SaldoExit(), Currency(1234));
    EXPECT_EQ(Leer(kSaldoExit), u"1234"_s);
}

TEST_F(SupervisionConexionTest, TellsATotalThatDiffersByOneUnitAndStoresTheNewOne) {
    Guardar(kSaldoExit, u"1234"_s);
    Guardar(kSaldoInicial, u"1000"_s);
    cliente.PonerTotal(1235);
    cliente.EsperaConnect();
    dialogos.EsperaMensaje(
        u"Inicialización"_s,
        u"El saldo de Zorvex ha variado desde la última vez que se ejecutó la "
        "aplicación:\r\nÚltimo Saldo Registrado:12,34 €\r\nSaldo Actual:12,35 €"_s,
        Respuesta::Aceptar, EstiloMensaje::Aceptar, [this] {
            // Only told: the value in the registry follows afterwards.
            EXPECT_EQ(Leer(kSaldoExit), u"1234"_s);
            EXPECT_EQ(log.lineas, Lista({"ZVCONNECT_CONECTARZORV_CONNECT_OK"}));
        });
    supervision.Conectar();
    EXPECT_EQ(log.lineas.value(1),
              u">>> Último Saldo Registrado: 12,34 € -- Saldo Actual: 12,35 €"_s);
    EXPECT_EQ(Leer(kSaldoExit), u"1235"_s);
    EXPECT_EQ(supervision.UltimoSaldo(), Currency(1234));
    EXPECT_EQ(supervision.SaldoExit(), Currency(1235));
}

TEST_F(SupervisionConexionTest, StoresTheTotalAsTheStartOfThePeriodOnAFirstStart) {
    cliente.PonerTotal(0);
    cliente.EsperaConnect();
    supervision.Conectar(); // no "Saldo_Exit" reads as 0
    EXPECT_EQ(Leer(kSaldoInicial), u"0"_s);

    registry.BorrarValor(kSaldoInicial);
    Guardar(kSaldoExit, u"5000"_s);
    cliente.PonerTotal(5000);
    cliente.EsperaConnect();
    supervision.Conectar();
    EXPECT_EQ(Leer(kSaldoInicial), u"5000"_s);
    EXPECT_EQ(supervision.SaldoInicial(), 5000);
}

TEST_F(SupervisionConexionTest, TakesMinusOneAsAPeriodThatHasNotBegun) {
    Guardar(kSaldoExit, u"5000"_s);
    Guardar(kSaldoInicial, u"-1"_s);
    cliente.PonerTotal(5000);
    cliente.EsperaConnect();
    supervision.Conectar();
    EXPECT_EQ(Leer(kSaldoInicial), u"5000"_s);
}

TEST_F(SupervisionConexionTest, ShowsAndLogsAConnectionThatFailed) {
    cliente.EsperaConnect(FinGuion::Error(1, u"No contesta"_s));
    dialogos.EsperaMensaje(
        u"Error de Zorvex"_s,
        u"Existe un problema de comunicación con Zorvex.\r\nConsulte con su técnico "
        "el siguiente error:\r\n1: No contesta"_s,
        Respuesta::Aceptar, EstiloMensaje::Aceptar, [this] {
            EXPECT_FALSE(sucesos.contains(u"boton7 1"_s));
            EXPECT_EQ(sucesos.last(), u"espera 0"_s);
            EXPECT_EQ(log.lineas, Lista({"ZVCONNECT_CONECTARZORV_CONNECT_ERRORZV1"}));
        });
    supervision.Conectar();
    EXPECT_FALSE(supervision.Conectado());
    EXPECT_EQ(log.lineas.value(1), u">>> Error Zorvex: 1 - No contesta"_s);
    EXPECT_EQ(sucesos.mid(5), Lista({"espera 0", "boton7 1", "botones 0"}));
    EXPECT_EQ(Leer(kSaldoExit), u"(nada)"_s);
}

TEST_F(SupervisionConexionTest, LogsAFailureWithoutACodeInItsOwnWords) {
    cliente.EsperaConnect(FinGuion::Cancelado());
    dialogos.EsperaMensaje(testing::_, testing::_);
    supervision.Conectar();
    EXPECT_EQ(log.lineas, Lista({"ZVCONNECT_CONECTARZORV_CONNECT_ERRORZV0",
                                 ">>> Error de comunicación con Zorvex"}));
}

TEST_F(SupervisionConexionTest, ConnectsWithoutAScreen) {
    supervision.PonerVista(nullptr);
    cliente.PonerTotal(0);
    cliente.EsperaConnect();
    supervision.Conectar();
    supervision.MostrarNivel();
    EXPECT_TRUE(supervision.Conectado());
}

TEST_F(SupervisionConexionTest, RaisesOnABalanceInTheRegistryThatIsNoNumber) {
    Guardar(kSaldoExit, u"roto"_s);
    EXPECT_THROW(supervision.LeerSaldos(), ErrorEjecucion);
}

TEST_F(SupervisionConexionTest, ReadsBothBalancesAtStart) {
    supervision.LeerSaldos();
    EXPECT_EQ(supervision.SaldoInicial(), 0);
    EXPECT_EQ(supervision.UltimoSaldo(), Currency(0));
    Guardar(kSaldoExit, u"700"_s);
    Guardar(kSaldoInicial, u"-1"_s);
    supervision.LeerSaldos();
    EXPECT_EQ(supervision.SaldoInicial(), -1);
    EXPECT_EQ(supervision.UltimoSaldo(), Currency(700));
    EXPECT_EQ(supervision.SaldoExit(), Currency(0));
}

// ---- Desconectar, IntentarReconnectar

TEST_F(SupervisionConexionTest, StoresTheBalanceBeforeItDisconnects) {
    Conectada(1000);
    cliente.PonerTotal(1500);
    cliente.EsperaDisconnect(
        FinGuion::Ok().Durante([this] { EXPECT_EQ(Leer(kSaldoExit), u"1500"_s); }));
    supervision.Desconectar();
    EXPECT_FALSE(supervision.Conectado());
    EXPECT_EQ(sucesos, Lista({"Disconnect()", "botones 0"}));
    EXPECT_EQ(log.lineas, Lista({"ZVCONNECT_DESCONECTARZORV_DISCONNECT_OK"}));
}

TEST_F(SupervisionConexionTest, RefusesToDisconnectWhileGrouping) {
    Conectada(1000);
    vista.agrupando = true;
    dialogos.EsperaMensaje(u"Conflicto de operaciones"_s,
                           u"Esta agrupando pagos, finalize la operacion primero"_s,
                           Respuesta::Aceptar, EstiloMensaje::Aceptar);
    supervision.Desconectar();
    EXPECT_TRUE(supervision.Conectado());
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(SupervisionConexionTest, ReconnectsEvenWhileGrouping) {
    Conectada(1000);
    vista.agrupando = true;
    cliente.EsperaDisconnect();
    cliente.EsperaConnect();
    EXPECT_TRUE(supervision.IntentarReconnectar());
    EXPECT_EQ(sucesos,
              Lista({"Disconnect()", "botones 0", "boton7 0", "espera 1", "Address(10.0.0.7)",
                     "SessionFlag(1)", "Connect()", "espera 0", "boton7 1", "botones 1"}));
    EXPECT_EQ(log.lineas, Lista({"ZVCONNECT_DESCONECTARZORV_DISCONNECT_OK",
                                 "ZVCONNECT_CONECTARZORV_CONNECT_OK"}));
}

TEST_F(SupervisionConexionTest, TriesOnceAndTellsTheButtonsTwiceWhenItFails) {
    Conectada(1000);
    cliente.EsperaDisconnect();
    cliente.EsperaConnect(FinGuion::EnlacePerdido());
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, testing::_);
    EXPECT_FALSE(supervision.IntentarReconnectar());
    EXPECT_EQ(sucesos.mid(7), Lista({"espera 0", "boton7 1", "botones 0", "botones 0"}));
}

TEST_F(SupervisionConexionTest, CutsWithoutTouchingTheMainScreenForTheCashOffice) {
    Conectada(1000);
    cliente.EsperaDisconnect();
    supervision.Cortar();
    EXPECT_FALSE(supervision.Conectado());
    EXPECT_EQ(sucesos, Lista({"Disconnect()"}));
    EXPECT_EQ(log.lineas, Lista({"ZVCONNECT_DESCONECTARZORV_DISCONNECT_OK"}));
}

TEST_F(SupervisionConexionTest, StoresNoBalanceWhileDisconnected) {
    Guardar(kSaldoExit, u"1234"_s);
    supervision.GuardarSaldoExit();
    EXPECT_EQ(Leer(kSaldoExit), u"1234"_s);
    Conectada(1000);
    supervision.MarcarDesconectado();
    cliente.PonerTotal(9);
    supervision.GuardarSaldoExit();
    EXPECT_EQ(Leer(kSaldoExit), u"1000"_s);
}

TEST_F(SupervisionConexionTest, EveryWordComesFromTheLanguageFile) {
    QFile fichero(carpeta.filePath(u"RWLang.ini"_s));
    ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
    fichero.write("[COMMON]\r\ninicializacion=a\r\ninicializacion2=b\r\n"
                  "ultimoSaldoRegistrado=c\r\nsaldoActual=d\r\nerrorDeZorvex=e\r\n"
                  "problemaComunicacion=f\r\nconsulteConSuTecnico=g\r\nconflictoOperacion=h\r\n"
                  "problemaAgrupacion=i\r\noperacionAnulada=j\r\nerrorAlRecuperarSaldo=k\r\n");
    fichero.close();
    cliente.PonerTotal(100);
    cliente.EsperaConnect();
    dialogos.EsperaMensaje(u"a"_s, u"b\r\nc0,00 €\r\nd1,00 €"_s);
    supervision.Conectar();
    // The log's own words stay as they are.
    EXPECT_EQ(log.lineas.value(1),
              u">>> Último Saldo Registrado: 0,00 € -- Saldo Actual: 1,00 €"_s);
    vista.agrupando = true;
    dialogos.EsperaMensaje(u"h"_s, u"i"_s);
    supervision.Desconectar();
    cliente.FallarNiveles(2, 8, u"Sensor"_s);
    dialogos.EsperaMensaje(u"j"_s, u"Sensor"_s);
    supervision.LosSaldos().SaldoPorTipo({}, TipoSaldo::Reciclador);
    cliente.PonerNiveles(2, u"1,2"_s, u"1"_s);
    dialogos.EsperaCaja(u"k 9 - El subíndice está fuera del intervalo"_s);
    supervision.LosSaldos().SaldoPorTipo({}, TipoSaldo::Reciclador);
    cliente.EsperaConnect(FinGuion::Error(7, u"x"_s));
    dialogos.EsperaMensaje(u"e"_s, u"f\r\ng\r\n7: x"_s);
    supervision.Conectar();
}

// ---- MostrarNivel

TEST_F(SupervisionConexionTest, LightsTheLampOfTheWorstState) {
    Conectada(1000);
    struct Caso {
        const char* levels;
        const char* lamparas;
    };
    for (const Caso& caso : {Caso{"0,0,0", "100"}, Caso{"0,1,0", "010"}, Caso{"0,1,2", "001"},
                             Caso{"2,0,0", "001"}, Caso{"12", "001"}, Caso{"", "100"}}) {
        cliente.PonerNiveles(4, u"1,2,5"_s, QString::fromLatin1(caso.levels));
        log.lineas.clear();
        supervision.MostrarNivel();
        EXPECT_EQ(vista.lamparas, QString::fromLatin1(caso.lamparas)) << caso.levels;
        EXPECT_EQ(log.lineas,
                  QStringList(u"ZVGETLEVELS_MOSTRARNIVEL_OK: LEVELTYPE=4 NOMS=1,2,5 LEVELS="_s +
                              QString::fromLatin1(caso.levels)));
    }
}

TEST_F(SupervisionConexionTest, ShowsCriticalWhileDisconnected) {
    supervision.MostrarNivel();
    EXPECT_EQ(vista.lamparas, u"001"_s);
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(SupervisionConexionTest, LeavesTheLampsWhenTheStatesCannotBeRead) {
    Conectada(1000);
    supervision.MostrarNivel();
    log.lineas.clear();
    cliente.FallarNiveles(4, 8, u"Sensor"_s);
    supervision.MostrarNivel();
    EXPECT_EQ(vista.lamparas, u"100"_s);
    cliente.FallarNiveles(4, 0, {});
    supervision.MostrarNivel();
    EXPECT_EQ(vista.lamparas, u"100"_s);
    EXPECT_EQ(log.lineas,
              Lista({"ZVGETLEVELS_MOSTRARNIVEL_ERRORZV_8 - Sensor: LEVELTYPE=4 NOMS= LEVELS=",
                     "ZVGETLEVELS_MOSTRARNIVEL_Cancelado: LEVELTYPE=4 NOMS= LEVELS="}));
}

TEST_F(SupervisionConexionTest, ShowsARunTimeErrorWhileLevelsAreShown) {
    Conectada(1000);
    log.fallosPendientes = 1;
    dialogos.EsperaMensaje(u"Error de Zorvex"_s,
                           u"Error nº 75 - Error de acceso a la ruta o al archivo"_s);
    supervision.MostrarNivel();
    EXPECT_TRUE(vista.lamparas.isEmpty());
}

} // namespace
} // namespace zv
