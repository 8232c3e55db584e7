// The gateway client with a gateway that behaves: sessions and operations.
#include "BancoPasarela.h"
#include "platform/StringLiterals.h"

#include <QCoreApplication>
#include <QTimer>

#include <limits>

namespace zv {
namespace {

class GatewayClientTest : public BancoPasarela {};

// ---- sessions

TEST_F(GatewayClientTest, TakesDecimalsAndMultiplierFromTheSessionAndKeepsThem) {
    pasarela.PonerSaludo(u"decimals"_s, 3);
    pasarela.PonerSaludo(u"multiplier"_s, 10);
    GatewayClient& cliente = Cliente();
    EXPECT_EQ(cliente.Decimals(), 2);
    EXPECT_EQ(cliente.Multiplier(), 100);
    bool bien = false;
    cliente.Connect(bien);
    EXPECT_TRUE(bien);
    EXPECT_EQ(cliente.ErrorCode(), 0);
    EXPECT_EQ(cliente.Decimals(), 3);
    EXPECT_EQ(cliente.Multiplier(), 10);
    cliente.Disconnect();
    EXPECT_EQ(cliente.Decimals(), 3);
    EXPECT_EQ(cliente.Multiplier(), 10);
}

TEST_F(GatewayClientTest, GreetsFirst) {
    Conectado();
    const QJsonObject saludo = pasarela.Recibidas().value(0);
    EXPECT_EQ(Metodo(saludo), u"session.hello"_s);
    EXPECT_EQ(saludo.value(u"jsonrpc"_s).toString(), u"2.0"_s);
    EXPECT_EQ(saludo.value(u"params"_s).toObject(),
              QJsonObject({{u"protocol"_s, 1}, {u"client"_s, u"ZVMonitor"_s}}));
}

TEST_F(GatewayClientTest, SaysWhatIsWrongWithAnAddress) {
    GatewayClient& cliente = Cliente();
    bool bien = true;
    cliente.Address(u"  "_s);
    cliente.Connect(bien);
    EXPECT_FALSE(bien);
    EXPECT_EQ(cliente.ErrorCode(), 1);
    EXPECT_EQ(cliente.ErrorMessage(), u"Falta la dirección IP de Zorvex en la configuración"_s);
    cliente.Address(u"caja:puerto"_s);
    bien = true;
    cliente.Connect(bien);
    EXPECT_FALSE(bien);
    EXPECT_EQ(cliente.ErrorCode(), 1);
    EXPECT_EQ(cliente.ErrorMessage(), u"La dirección de Zorvex no es válida: caja:puerto"_s);
    EXPECT_EQ(pasarela.Conexiones(), 0);
}

TEST_F(GatewayClientTest, FailsWithOneWhenNobodyListens) {
    GatewayClient& cliente = Cliente();
    pasarela.Apagar();
    bool bien = true;
    cliente.Connect(bien);
    EXPECT_FALSE(bien);
    EXPECT_EQ(cliente.ErrorCode(), 1);
    EXPECT_EQ(cliente.ErrorMessage(),
              u"No se puede conectar con Zorvex en "_s + pasarela.Direccion());
}

TEST_F(GatewayClientTest, FailsWithOneWhenTheGreetingIsNotAnswered) {
    GatewayOptions opciones = Rapidas();
    opciones.conexion = 60;
    pasarela.Al(u"session.hello"_s, Calla());
    GatewayClient& cliente = Cliente(opciones);
    bool bien = true;
    cliente.Connect(bien);
    EXPECT_FALSE(bien);
    EXPECT_EQ(cliente.ErrorCode(), 1);
    EXPECT_EQ(Cobrar(cliente), u"no 0 0 1"_s);
}

TEST_F(GatewayClientTest, FailsWithOneWhenTheGreetingIsRefusedCutOrSenseless) {
    GatewayClient& cliente = Cliente();
    const QString saludo = u"session.hello"_s;
    pasarela.Al(saludo, [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        enlace.Rechazar(peticion, -32003, u"Solo se habla la versión 7"_s);
    });
    pasarela.Al(saludo, Corta());
    pasarela.Al(saludo, Escupe("hola\n"));
    pasarela.Al(saludo, [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        enlace.Contestar(peticion, QJsonObject{{u"protocol"_s, 1}});
    });
    for (int i = 0; i < 4; ++i) {
        bool bien = true;
        cliente.Connect(bien);
        EXPECT_FALSE(bien);
        EXPECT_EQ(cliente.ErrorCode(), 1);
        EXPECT_FALSE(cliente.ErrorMessage().isEmpty());
        if (i == 0) {
            EXPECT_EQ(cliente.ErrorMessage(), u"Solo se habla la versión 7"_s);
        }
    }
    bool bien = false;
    cliente.Connect(bien);
    EXPECT_TRUE(bien);
    EXPECT_EQ(cliente.ErrorCode(), 0);
    EXPECT_TRUE(cliente.ErrorMessage().isEmpty());
}

TEST_F(GatewayClientTest, FailsEveryCallWithOneWhileNotConnected) {
    GatewayClient& cliente = Cliente();
    const auto falla = [&cliente](const std::function<void(bool&)>& llamada) {
        bool bien = true;
        llamada(bien);
        EXPECT_FALSE(bien);
        EXPECT_EQ(cliente.ErrorCode(), 1);
        EXPECT_EQ(cliente.ErrorMessage(), u"Zorvex no está conectado"_s);
    };
    qint32 a = 7;
    qint32 b = 7;
    qint32 c = 9;
    QString noms = u"x"_s;
    QString levels = u"x"_s;
    falla([&](bool& bien) { cliente.Charge(1, a, b, bien); });
    falla([&](bool& bien) { cliente.Change(a, b, bien); });
    falla([&](bool& bien) { cliente.AddChange(a, bien); });
    falla([&](bool& bien) { cliente.Pay(1, b, bien); });
    falla([&](bool& bien) { cliente.CashBoxControl(15, a, b, c, bien); });
    falla([&](bool& bien) { cliente.EmptyCB(1, a, bien); });
    falla([&](bool& bien) { cliente.Configuration(bien); });
    falla([&](bool& bien) { cliente.GetLevels(2, noms, levels, bien); });
    EXPECT_EQ(a, 0);
    EXPECT_EQ(b, 0);
    EXPECT_EQ(c, 9);
    EXPECT_TRUE(noms.isEmpty() && levels.isEmpty());
    EXPECT_TRUE(ventana.lineas.isEmpty());
    EXPECT_EQ(pasarela.Conexiones(), 0);
}

TEST_F(GatewayClientTest, IsNotConnectedAfterDisconnect) {
    GatewayClient& cliente = Conectado();
    cliente.Disconnect();
    EXPECT_FALSE(Niveles(cliente));
    EXPECT_EQ(cliente.ErrorCode(), 1);
    EXPECT_EQ(pasarela.Conexiones(), 1);
}

TEST_F(GatewayClientTest, TwoClientsLiveSideBySide) {
    PasarelaGuion otra;
    otra.PonerSaludo(u"multiplier"_s, 1);
    GatewayClient& uno = Conectado();
    GatewayClient dos(log, textos, nullptr, Rapidas());
    dos.Address(otra.Direccion());
    bool bien = false;
    dos.Connect(bien);
    EXPECT_TRUE(bien);
    otra.Al(kCobro(), Termina(5, 0));
    pasarela.Al(kCobro(), Termina(2000, 750));
    EXPECT_EQ(Cobrar(dos, 5), u"ok 5 0 0"_s);
    EXPECT_EQ(Cobrar(uno), u"ok 2000 750 0"_s);
    EXPECT_EQ(uno.Multiplier(), 100);
    EXPECT_EQ(dos.Multiplier(), 1);
}

// ---- operations

TEST_F(GatewayClientTest, ChargesAndAcknowledges) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        const QString op = PasarelaGuion::OpId(peticion);
        const QString avance = u"op.progress"_s;
        enlace.Contestar(peticion, CobroEnMarcha(op, 0));
        enlace.Notificar(avance, CobroEnMarcha(op, 2000));
        enlace.Notificar(avance, PasarelaGuion::EnMarcha(op, kCobro(), 2000, 500));
        enlace.Notificar(u"op.result"_s, CobroHecho(op, 2000, 750));
    });
    EXPECT_EQ(Cobrar(cliente), u"ok 2000 750 0"_s);
    EXPECT_TRUE(pasarela.Espera(u"op.ack"_s));
    EXPECT_EQ(pasarela.Metodos(), Lista({"session.hello", "charge.start", "op.ack"}));
    EXPECT_EQ(OpId(u"op.ack"_s), OpId(kCobro()));
    EXPECT_EQ(OpId(kCobro()).size(), 36);
    EXPECT_EQ(ventana.lineas, Lista({"abrir 0 1250", "aviso ", "progreso 2000 0",
                                     "progreso 2000 500", "progreso 2000 750", "cerrar"}));
    EXPECT_EQ(log.lineas, QStringList(LineaFin(kCobro(), 0,
                                               u"OK PAIDINVALUE=2000 "
                                               "PAIDOUTVALUE=750 ERRORCODE=0"_s)));
}

TEST_F(GatewayClientTest, SendsTheStartBeforeTheWindowOpens) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), Termina(1250, 0));
    // No event loop runs here: only bytes already handed to the system can arrive.
    ventana.alAbrir = [this] { EXPECT_TRUE(pasarela.Espera(kCobro())); };
    EXPECT_EQ(Cobrar(cliente), u"ok 1250 0 0"_s);
}

TEST_F(GatewayClientTest, SendsWhatEachOperationIsGivenAndTakesWhatItGives) {
    GatewayClient& cliente = Conectado();
    const auto params = [this](const char* metodo) {
        QJsonObject p =
            pasarela.Recibidas(QString::fromLatin1(metodo)).value(0).value(u"params"_s).toObject();
        EXPECT_FALSE(p.take(u"opId"_s).toString().isEmpty());
        return p;
    };
    bool bien = false;
    qint32 a = 0;
    qint32 b = 0;

    pasarela.Al(u"change.start"_s, Termina(2000, 1950));
    cliente.Change(a, b, bien);
    EXPECT_TRUE(bien);
    EXPECT_EQ(a, 2000);
    EXPECT_EQ(b, 1950);
    EXPECT_EQ(params("change.start"), QJsonObject());

    pasarela.Al(u"addChange.start"_s, Termina(5000, 0));
    cliente.AddChange(a, bien);
    EXPECT_TRUE(bien);
    EXPECT_EQ(a, 5000);
    EXPECT_EQ(params("addChange.start"), QJsonObject());

    pasarela.Al(u"pay.start"_s, Termina(0, 1503));
    cliente.Pay(1503, b, bien);
    EXPECT_TRUE(bien);
    EXPECT_EQ(b, 1503);
    EXPECT_EQ(params("pay.start"), QJsonObject({{u"value"_s, 1503}}));

    pasarela.Al(u"cashBox.control"_s, [](EnlaceGuion& enlace, const QJsonObject& p) {
        QJsonObject estado = PasarelaGuion::Hecha(PasarelaGuion::OpId(p), Metodo(p), 0, 0);
        estado.insert(u"coinsValueInCB"_s, 1250);
        estado.insert(u"notesValueInCB"_s, 34000);
        estado.insert(u"remainingChange"_s, 9990);
        enlace.Contestar(p, estado); // ended before the start was answered
    });
    qint32 queda = 10000;
    cliente.CashBoxControl(15, a, b, queda, bien);
    EXPECT_TRUE(bien);
    EXPECT_EQ(a, 1250);
    EXPECT_EQ(b, 34000);
    EXPECT_EQ(queda, 9990);
    EXPECT_EQ(params("cashBox.control"),
              QJsonObject({{u"mode"_s, 15}, {u"remainingChange"_s, 10000}}));

    pasarela.Al(u"box.empty"_s, [](EnlaceGuion& enlace, const QJsonObject& p) {
        QJsonObject estado = PasarelaGuion::Hecha(PasarelaGuion::OpId(p), Metodo(p), 0, 0);
        estado.insert(u"value"_s, 34000);
        enlace.Contestar(p, estado);
    });
    cliente.EmptyCB(1, a, bien);
    EXPECT_TRUE(bien);
    EXPECT_EQ(a, 34000);
    EXPECT_EQ(params("box.empty"), QJsonObject({{u"device"_s, 1}}));

    pasarela.Al(kCobro(), Termina(0, 300));
    EXPECT_EQ(Cobrar(cliente, -300), u"ok 0 300 0"_s);
    EXPECT_EQ(params("charge.start"), QJsonObject({{u"value"_s, -300}}));
    constexpr qint32 kMinimo = std::numeric_limits<qint32>::min();
    pasarela.Al(kCobro(), Falla(4, u"x"_s, 0, 0));
    Cobrar(cliente, kMinimo);
    EXPECT_EQ(pasarela.Recibidas(kCobro()).value(1)[u"params"].toObject()[u"value"].toInt(),
              kMinimo);
    EXPECT_TRUE(pasarela.Espera(u"op.ack"_s, 7));
    EXPECT_EQ(ventana.lineas.filter(u"abrir"_s),
              Lista({"abrir 2 0 con terminar", "abrir 3 0 con terminar", "abrir 4 1503",
                     "abrir 5 0", "abrir 6 0", "abrir 1 300", "abrir 1 2147483647"}));
}

TEST_F(GatewayClientTest, TellsTheAmountsOfAnOperationThatFailed) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), Falla(12, u"Atasco en la salida"_s, 2000, 500));
    EXPECT_EQ(Cobrar(cliente), u"no 2000 500 12"_s);
    EXPECT_EQ(cliente.ErrorMessage(), u"Atasco en la salida"_s);
    EXPECT_TRUE(pasarela.Espera(u"op.ack"_s));
}

TEST_F(GatewayClientTest, TellsTheAmountsOfAnOperationThatWasCancelled) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), Falla(0, u"Cancelado"_s, 500, 0));
    EXPECT_EQ(Cobrar(cliente), u"no 500 0 0"_s);
}

TEST_F(GatewayClientTest, KeepsTheSignOfACode) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), Falla(-7, u"Anulado"_s, 500, 200));
    EXPECT_EQ(Cobrar(cliente), u"no 500 200 -7"_s);
    EXPECT_EQ(cliente.ErrorMessage(), u"Anulado"_s);
    EXPECT_TRUE(Niveles(cliente)); // the session goes on
}

TEST_F(GatewayClientTest, ClampsAnErrorCodeBeyondSixteenBits) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), Falla(70000, u"x"_s, 0, 0));
    EXPECT_EQ(Cobrar(cliente), u"no 0 0 32767"_s);
    pasarela.Al(kCobro(), Falla(-70000, u"x"_s, 0, 0));
    EXPECT_EQ(Cobrar(cliente), u"no 0 0 -32768"_s);
}

TEST_F(GatewayClientTest, LeavesTheRemainingChangeOfAFailedRunAsItWas) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(u"cashBox.control"_s, Falla(8, u"x"_s, 0, 0));
    qint32 a = 1;
    qint32 b = 1;
    qint32 queda = 10000;
    bool bien = true;
    cliente.CashBoxControl(15, a, b, queda, bien);
    EXPECT_FALSE(bien);
    EXPECT_EQ(queda, 10000);
    EXPECT_EQ(a, 0);
}

TEST_F(GatewayClientTest, LogsTheEndOfEachKindOfOperation) {
    GatewayClient& cliente = Conectado();
    bool bien = false;
    qint32 a = 0;
    qint32 b = 0;
    qint32 queda = 10000;
    pasarela.Al(u"change.start"_s, Termina(2000, 1950));
    cliente.Change(a, b, bien);
    pasarela.Al(u"addChange.start"_s, Termina(5000, 0));
    cliente.AddChange(a, bien);
    pasarela.Al(u"pay.start"_s, Falla(4, u"No hay cambio"_s, 0, 1500));
    cliente.Pay(1503, b, bien);
    pasarela.Al(u"cashBox.control"_s, Falla(-2, {}, 0, 0));
    cliente.CashBoxControl(15, a, b, queda, bien);
    pasarela.Al(u"box.empty"_s, Contesta([](const QString& op) {
                    QJsonObject estado = PasarelaGuion::Hecha(op, u"box.empty"_s, 0, 0);
                    estado.insert(u"value"_s, 34000);
                    return estado;
                }));
    cliente.EmptyCB(1, a, bien);
    EXPECT_EQ(
        log.lineas,
        QStringList(
            {LineaFin(u"change.start"_s, 0, u"OK PAIDINVALUE=2000 PAIDOUTVALUE=1950 ERRORCODE=0"_s),
             LineaFin(u"addChange.start"_s, 0, u"OK PAIDINVALUE=5000 PAIDOUTVALUE=0 ERRORCODE=0"_s),
             LineaFin(u"pay.start"_s, 0,
                      u"ERROR_4 PAIDINVALUE=0 PAIDOUTVALUE=1500 ERRORCODE=4 - No hay cambio"_s),
             LineaFin(u"cashBox.control"_s, 0,
                      u"CANCEL PAIDINVALUE=0 PAIDOUTVALUE=0 COINSVALUEINCB=0 NOTESVALUEINCB=0 "
                      "REMAININGCHANGE=0 ERRORCODE=-2"_s),
             LineaFin(u"box.empty"_s, 0,
                      u"OK PAIDINVALUE=0 PAIDOUTVALUE=0 VALUE=34000 ERRORCODE=0"_s)}));
}

TEST_F(GatewayClientTest, HasTheAmountsInTheLogBeforeItsWindowCloses) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), Termina(2000, 750));
    ventana.alCerrar = [this] { EXPECT_EQ(log.lineas.size(), 1); };
    EXPECT_EQ(Cobrar(cliente), u"ok 2000 750 0"_s);
}

TEST_F(GatewayClientTest, LosesNoResultForALogThatCannotBeWritten) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), Termina(2000, 750));
    log.fallosPendientes = 1;
    EXPECT_EQ(Cobrar(cliente), u"ok 2000 750 0"_s);
    EXPECT_EQ(log.fallosPendientes, 0);
    EXPECT_TRUE(pasarela.Espera(u"op.ack"_s));
    EXPECT_EQ(ventana.lineas.last(), u"cerrar"_s);
}

TEST_F(GatewayClientTest, LogsNothingOfACallThatReachedNoGateway) {
    GatewayClient& cliente = Cliente();
    EXPECT_EQ(Cobrar(cliente), u"no 0 0 1"_s);
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(GatewayClientTest, ShowsWhyAStartWasRefusedAndAcknowledgesNothing) {
    GatewayClient& cliente = Conectado();
    const auto rechaza = [](const QJsonObject& datos) {
        return [datos](EnlaceGuion& enlace, const QJsonObject& peticion) {
            enlace.Rechazar(peticion, -32020, u"Puerta abierta"_s, datos);
        };
    };
    const QString codigo = u"errorCode"_s;
    pasarela.Al(kCobro(), rechaza({{codigo, 31}}));
    EXPECT_EQ(Cobrar(cliente), u"no 0 0 31"_s);
    EXPECT_EQ(cliente.ErrorMessage(), u"Puerta abierta"_s);
    EXPECT_EQ(log.lineas, QStringList(LineaFin(kCobro(), 0,
                                               u"ERROR_31 PAIDINVALUE=0 PAIDOUTVALUE=0 "
                                               "ERRORCODE=31 - Puerta abierta"_s)));
    pasarela.Al(kCobro(), rechaza({}));
    EXPECT_EQ(Cobrar(cliente), u"no 0 0 900"_s);
    pasarela.Al(kCobro(), rechaza({{codigo, 1}}));
    EXPECT_EQ(Cobrar(cliente), u"no 0 0 900"_s);
    pasarela.Al(kCobro(), rechaza({{codigo, -5}}));
    EXPECT_EQ(Cobrar(cliente), u"no 0 0 900"_s);
    pasarela.Al(kCobro(), rechaza({{codigo, 99999}}));
    EXPECT_EQ(Cobrar(cliente), u"no 0 0 32767"_s);
    // The session goes on.
    pasarela.Al(kCobro(), Termina(1250, 0));
    EXPECT_EQ(Cobrar(cliente), u"ok 1250 0 0"_s);
    EXPECT_TRUE(pasarela.Espera(u"op.ack"_s));
    EXPECT_EQ(pasarela.Recibidas(u"op.ack"_s).size(), 1);
    EXPECT_EQ(pasarela.Conexiones(), 1);
}

TEST_F(GatewayClientTest, CancelsAndWaitsForTheGatewaysWord) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), Empieza(500));
    pasarela.Al(u"op.cancel"_s, [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        const QString op = PasarelaGuion::OpId(peticion);
        enlace.Contestar(peticion, CobroEnMarcha(op, 500));
        enlace.Notificar(u"op.result"_s, PasarelaGuion::Fallida(op, kCobro(), 0, {}, 500, 500));
    });
    ventana.alProgresar = [this] {
        if (ventana.lineas.last() == QLatin1String("progreso 500 0")) {
            ventana.Cancelar();
            ventana.Cancelar(); // a second press changes nothing
        }
    };
    EXPECT_EQ(Cobrar(cliente), u"no 500 500 0"_s);
    EXPECT_EQ(pasarela.Recibidas(u"op.cancel"_s).size(), 1);
    EXPECT_EQ(ventana.lineas.last(), u"cerrar"_s);
}

TEST_F(GatewayClientTest, KeepsACancelPressedBeforeTheStartIsAnswered) {
    GatewayClient& cliente = Conectado();
    ventana.alAbrir = [this] { ventana.Cancelar(); };
    pasarela.Al(kCobro(), Empieza());
    pasarela.Al(u"op.cancel"_s, Contesta([](const QString& op) {
                    return PasarelaGuion::Fallida(op, kCobro(), 0, {}, 0, 0);
                }));
    EXPECT_EQ(Cobrar(cliente), u"no 0 0 0"_s);
}

TEST_F(GatewayClientTest, GivesUpACancelledOperationThatNeverEnds) {
    GatewayOptions opciones = Rapidas();
    opciones.cancelacion = 60;
    GatewayClient& cliente = Conectado(opciones);
    pasarela.Al(kCobro(), Empieza(500));
    pasarela.Al(u"op.cancel"_s, Contesta([](const QString& op) { return CobroEnMarcha(op, 500); }));
    ventana.alProgresar = [this] { ventana.Cancelar(); };
    EXPECT_EQ(Cobrar(cliente), u"no 500 0 905"_s);
    EXPECT_EQ(log.CuentaInicio(u">>> Operación interrumpida en Zorvex: charge.start "_s), 1);
    EXPECT_EQ(cliente.ErrorMessage(), u"Zorvex no ha terminado la operación"_s);
}

TEST_F(GatewayClientTest, PingsWhileItWaits) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), Empieza());
    pasarela.Al(u"ping"_s, [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        enlace.Contestar(peticion, QJsonObject{});
    });
    pasarela.Al(u"ping"_s, [this](EnlaceGuion& enlace, const QJsonObject&) {
        enlace.Notificar(u"op.result"_s, CobroHecho(OpId(kCobro()), 1250, 0));
    });
    EXPECT_EQ(Cobrar(cliente), u"ok 1250 0 0"_s);
}

TEST_F(GatewayClientTest, IgnoresResultsOfOthersAndRepeatedOnes) {
    GatewayClient& cliente = Conectado();
    const QString fin = u"op.result"_s;
    pasarela.Al(kCobro(), [fin](EnlaceGuion& enlace, const QJsonObject& peticion) {
        const QString op = PasarelaGuion::OpId(peticion);
        enlace.Notificar(fin, CobroHecho(u"de-otro"_s, 9, 9));
        enlace.Notificar(u"device.news"_s, {});
        enlace.Contestar(peticion, CobroEnMarcha(op, 0));
        enlace.Notificar(fin, CobroHecho(op, 2000, 750));
        enlace.Notificar(fin, CobroHecho(op, 7, 7));
    });
    EXPECT_EQ(Cobrar(cliente), u"ok 2000 750 0"_s);
    pasarela.Al(kCobro(), [fin, this](EnlaceGuion& enlace, const QJsonObject& peticion) {
        enlace.Notificar(fin, CobroHecho(OpId(kCobro(), 0), 7, 7)); // late, of the first
        Termina(1250, 0)(enlace, peticion);
    });
    EXPECT_EQ(Cobrar(cliente), u"ok 1250 0 0"_s);
}

TEST_F(GatewayClientTest, TakesAResultThatComesBeforeTheAnswerToTheStart) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        const QString op = PasarelaGuion::OpId(peticion);
        enlace.Notificar(u"op.result"_s, CobroHecho(op, 2000, 750));
        enlace.Contestar(peticion, CobroHecho(op, 2000, 750));
    });
    EXPECT_EQ(Cobrar(cliente), u"ok 2000 750 0"_s);
}

TEST_F(GatewayClientTest, RefusesASecondOperationWhileOneRuns) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), Empieza(500));
    QStringList dentro;
    ventana.alProgresar = [&] {
        if (dentro.isEmpty()) {
            dentro << Cobrar(cliente, 77);
            bool bien = true;
            cliente.Connect(bien);
            dentro << QString::number(cliente.ErrorCode());
            EXPECT_EQ(cliente.ErrorMessage(), u"Zorvex está ocupado con otra operación"_s);
            EXPECT_FALSE(bien);
            cliente.Disconnect(); // changes nothing
            pasarela.Notificar(u"op.result"_s, CobroHecho(OpId(kCobro()), 1250, 0));
        }
    };
    EXPECT_EQ(Cobrar(cliente), u"ok 1250 0 0"_s);
    EXPECT_EQ(dentro, Lista({"no 0 0 903", "903"}));
    EXPECT_EQ(pasarela.Recibidas(kCobro()).size(), 1);
}

TEST_F(GatewayClientTest, EndsTheOperationWhenTheProgramEnds) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), Empieza(500));
    ventana.alProgresar = [] { QCoreApplication::quit(); };
    QString fin;
    QTimer::singleShot(0, qApp, [&] {
        fin = Cobrar(cliente);
        QCoreApplication::quit();
    });
    QCoreApplication::exec();
    EXPECT_EQ(fin, u"no 500 0 904"_s);
    EXPECT_EQ(log.CuentaInicio(u">>> Operación interrumpida en Zorvex: charge.start "_s), 1);
    EXPECT_EQ(cliente.ErrorMessage(), u"La aplicación se cierra con la operación en curso"_s);
}

} // namespace
} // namespace zv
