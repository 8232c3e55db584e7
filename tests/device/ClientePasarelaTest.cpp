// The gateway client with a gateway that behaves: sessions and operations.
#include "BancoPasarela.h"

#include <QCoreApplication>
#include <QTimer>

namespace zv {
namespace {

class ClientePasarelaTest : public BancoPasarela {};

// ---- sessions

TEST_F(ClientePasarelaTest, TakesDecimalsAndMultiplierFromTheSessionAndKeepsThem) {
    pasarela.PonerSaludo(QStringLiteral("decimals"), 3);
    pasarela.PonerSaludo(QStringLiteral("multiplier"), 10);
    ClientePasarela& cliente = Cliente();
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

TEST_F(ClientePasarelaTest, GreetsFirst) {
    Conectado();
    const QJsonObject saludo = pasarela.Recibidas().value(0);
    EXPECT_EQ(Metodo(saludo), QStringLiteral("session.hello"));
    EXPECT_EQ(saludo.value(QStringLiteral("jsonrpc")).toString(), QStringLiteral("2.0"));
    EXPECT_EQ(saludo.value(QStringLiteral("params")).toObject(),
              QJsonObject({{QStringLiteral("protocol"), 1},
                           {QStringLiteral("client"), QStringLiteral("ZVMonitor")}}));
}

TEST_F(ClientePasarelaTest, SaysWhatIsWrongWithAnAddress) {
    ClientePasarela& cliente = Cliente();
    bool bien = true;
    cliente.Address(QStringLiteral("  "));
    cliente.Connect(bien);
    EXPECT_FALSE(bien);
    EXPECT_EQ(cliente.ErrorCode(), 1);
    EXPECT_EQ(cliente.ErrorMessage(),
              QStringLiteral("Falta la dirección IP de Zorvex en la configuración"));
    cliente.Address(QStringLiteral("caja:puerto"));
    bien = true;
    cliente.Connect(bien);
    EXPECT_FALSE(bien);
    EXPECT_EQ(cliente.ErrorCode(), 1);
    EXPECT_EQ(cliente.ErrorMessage(),
              QStringLiteral("La dirección de Zorvex no es válida: caja:puerto"));
    EXPECT_EQ(pasarela.Conexiones(), 0);
}

TEST_F(ClientePasarelaTest, FailsWithOneWhenNobodyListens) {
    ClientePasarela& cliente = Cliente();
    pasarela.Apagar();
    bool bien = true;
    cliente.Connect(bien);
    EXPECT_FALSE(bien);
    EXPECT_EQ(cliente.ErrorCode(), 1);
    EXPECT_EQ(cliente.ErrorMessage(),
              QStringLiteral("No se puede conectar con Zorvex en ") + pasarela.Direccion());
}

TEST_F(ClientePasarelaTest, FailsWithOneWhenTheGreetingIsNotAnswered) {
    OpcionesPasarela opciones = Rapidas();
    opciones.conexion = 60;
    pasarela.Al(QStringLiteral("session.hello"), Calla());
    ClientePasarela& cliente = Cliente(opciones);
    bool bien = true;
    cliente.Connect(bien);
    EXPECT_FALSE(bien);
    EXPECT_EQ(cliente.ErrorCode(), 1);
    EXPECT_EQ(Cobrar(cliente), QStringLiteral("no 0 0 1"));
}

TEST_F(ClientePasarelaTest, FailsWithOneWhenTheGreetingIsRefusedCutOrSenseless) {
    ClientePasarela& cliente = Cliente();
    const QString saludo = QStringLiteral("session.hello");
    pasarela.Al(saludo, [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        enlace.Rechazar(peticion, -32003, QStringLiteral("Solo se habla la versión 7"));
    });
    pasarela.Al(saludo, Corta());
    pasarela.Al(saludo, Escupe("hola\n"));
    pasarela.Al(saludo, [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        enlace.Contestar(peticion, QJsonObject{{QStringLiteral("protocol"), 1}});
    });
    for (int i = 0; i < 4; ++i) {
        bool bien = true;
        cliente.Connect(bien);
        EXPECT_FALSE(bien);
        EXPECT_EQ(cliente.ErrorCode(), 1);
        EXPECT_FALSE(cliente.ErrorMessage().isEmpty());
        if (i == 0) {
            EXPECT_EQ(cliente.ErrorMessage(), QStringLiteral("Solo se habla la versión 7"));
        }
    }
    bool bien = false;
    cliente.Connect(bien);
    EXPECT_TRUE(bien);
    EXPECT_EQ(cliente.ErrorCode(), 0);
    EXPECT_TRUE(cliente.ErrorMessage().isEmpty());
}

TEST_F(ClientePasarelaTest, FailsEveryCallWithOneWhileNotConnected) {
    ClientePasarela& cliente = Cliente();
    const auto falla = [&cliente](const std::function<void(bool&)>& llamada) {
        bool bien = true;
        llamada(bien);
        EXPECT_FALSE(bien);
        EXPECT_EQ(cliente.ErrorCode(), 1);
        EXPECT_EQ(cliente.ErrorMessage(), QStringLiteral("Zorvex no está conectado"));
    };
    qint32 a = 7;
    qint32 b = 7;
    qint32 c = 9;
    QString noms = QStringLiteral("x");
    QString levels = QStringLiteral("x");
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

TEST_F(ClientePasarelaTest, IsNotConnectedAfterDisconnect) {
    ClientePasarela& cliente = Conectado();
    cliente.Disconnect();
    EXPECT_FALSE(Niveles(cliente));
    EXPECT_EQ(cliente.ErrorCode(), 1);
    EXPECT_EQ(pasarela.Conexiones(), 1);
}

TEST_F(ClientePasarelaTest, TwoClientsLiveSideBySide) {
    PasarelaGuion otra;
    otra.PonerSaludo(QStringLiteral("multiplier"), 1);
    ClientePasarela& uno = Conectado();
    ClientePasarela dos(log, textos, nullptr, Rapidas());
    dos.Address(otra.Direccion());
    bool bien = false;
    dos.Connect(bien);
    EXPECT_TRUE(bien);
    otra.Al(kCobro(), Termina(5, 0));
    pasarela.Al(kCobro(), Termina(2000, 750));
    EXPECT_EQ(Cobrar(dos, 5), QStringLiteral("ok 5 0 0"));
    EXPECT_EQ(Cobrar(uno), QStringLiteral("ok 2000 750 0"));
    EXPECT_EQ(uno.Multiplier(), 100);
    EXPECT_EQ(dos.Multiplier(), 1);
}

// ---- operations

TEST_F(ClientePasarelaTest, ChargesAndAcknowledges) {
    ClientePasarela& cliente = Conectado();
    pasarela.Al(kCobro(), [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        const QString op = PasarelaGuion::OpId(peticion);
        const QString avance = QStringLiteral("op.progress");
        enlace.Contestar(peticion, CobroEnMarcha(op, 0));
        enlace.Notificar(avance, CobroEnMarcha(op, 2000));
        enlace.Notificar(avance, PasarelaGuion::EnMarcha(op, kCobro(), 2000, 500));
        enlace.Notificar(QStringLiteral("op.result"), CobroHecho(op, 2000, 750));
    });
    EXPECT_EQ(Cobrar(cliente), QStringLiteral("ok 2000 750 0"));
    EXPECT_TRUE(pasarela.Espera(QStringLiteral("op.ack")));
    EXPECT_EQ(pasarela.Metodos(), Lista({"session.hello", "charge.start", "op.ack"}));
    EXPECT_EQ(OpId(QStringLiteral("op.ack")), OpId(kCobro()));
    EXPECT_EQ(OpId(kCobro()).size(), 36);
    EXPECT_EQ(ventana.lineas, Lista({"abrir 0 1250", "aviso ", "progreso 2000 0",
                                     "progreso 2000 500", "progreso 2000 750", "cerrar"}));
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(ClientePasarelaTest, SendsTheStartBeforeTheWindowOpens) {
    ClientePasarela& cliente = Conectado();
    pasarela.Al(kCobro(), Termina(1250, 0));
    // No event loop runs here: only bytes already handed to the system can arrive.
    ventana.alAbrir = [this] { EXPECT_TRUE(pasarela.Espera(kCobro())); };
    EXPECT_EQ(Cobrar(cliente), QStringLiteral("ok 1250 0 0"));
}

TEST_F(ClientePasarelaTest, SendsWhatEachOperationIsGivenAndTakesWhatItGives) {
    ClientePasarela& cliente = Conectado();
    const auto params = [this](const char* metodo) {
        QJsonObject p = pasarela.Recibidas(QString::fromLatin1(metodo))
                            .value(0)
                            .value(QStringLiteral("params"))
                            .toObject();
        EXPECT_FALSE(p.take(QStringLiteral("opId")).toString().isEmpty());
        return p;
    };
    bool bien = false;
    qint32 a = 0;
    qint32 b = 0;

    pasarela.Al(QStringLiteral("change.start"), Termina(2000, 2000));
    cliente.Change(a, b, bien);
    EXPECT_TRUE(bien);
    EXPECT_EQ(a, 2000);
    EXPECT_EQ(b, 2000);
    EXPECT_EQ(params("change.start"), QJsonObject());

    pasarela.Al(QStringLiteral("addChange.start"), Termina(5000, 0));
    cliente.AddChange(a, bien);
    EXPECT_TRUE(bien);
    EXPECT_EQ(a, 5000);
    EXPECT_EQ(params("addChange.start"), QJsonObject());

    pasarela.Al(QStringLiteral("pay.start"), Termina(0, 1503));
    cliente.Pay(1503, b, bien);
    EXPECT_TRUE(bien);
    EXPECT_EQ(b, 1503);
    EXPECT_EQ(params("pay.start"), QJsonObject({{QStringLiteral("value"), 1503}}));

    pasarela.Al(QStringLiteral("cashBox.control"), [](EnlaceGuion& enlace, const QJsonObject& p) {
        QJsonObject estado = PasarelaGuion::Hecha(PasarelaGuion::OpId(p), Metodo(p), 0, 0);
        estado.insert(QStringLiteral("coinsValueInCB"), 1250);
        estado.insert(QStringLiteral("notesValueInCB"), 34000);
        estado.insert(QStringLiteral("remainingChange"), 9990);
        enlace.Contestar(p, estado); // ended before the start was answered
    });
    qint32 queda = 10000;
    cliente.CashBoxControl(15, a, b, queda, bien);
    EXPECT_TRUE(bien);
    EXPECT_EQ(a, 1250);
    EXPECT_EQ(b, 34000);
    EXPECT_EQ(queda, 9990);
    EXPECT_EQ(params("cashBox.control"), QJsonObject({{QStringLiteral("mode"), 15},
                                                      {QStringLiteral("remainingChange"), 10000}}));

    pasarela.Al(QStringLiteral("box.empty"), [](EnlaceGuion& enlace, const QJsonObject& p) {
        QJsonObject estado = PasarelaGuion::Hecha(PasarelaGuion::OpId(p), Metodo(p), 0, 0);
        estado.insert(QStringLiteral("value"), 34000);
        enlace.Contestar(p, estado);
    });
    cliente.EmptyCB(1, a, bien);
    EXPECT_TRUE(bien);
    EXPECT_EQ(a, 34000);
    EXPECT_EQ(params("box.empty"), QJsonObject({{QStringLiteral("device"), 1}}));

    pasarela.Al(kCobro(), Termina(0, 300));
    EXPECT_EQ(Cobrar(cliente, -300), QStringLiteral("ok 0 300 0"));
    EXPECT_EQ(params("charge.start"), QJsonObject({{QStringLiteral("value"), -300}}));
    EXPECT_TRUE(pasarela.Espera(QStringLiteral("op.ack"), 6));
    EXPECT_EQ(
        ventana.lineas.filter(QStringLiteral("abrir")),
        Lista({"abrir 2 0", "abrir 3 0", "abrir 4 1503", "abrir 5 0", "abrir 6 0", "abrir 1 300"}));
}

TEST_F(ClientePasarelaTest, TellsTheAmountsOfAnOperationThatFailed) {
    ClientePasarela& cliente = Conectado();
    pasarela.Al(kCobro(), Falla(12, QStringLiteral("Atasco en la salida"), 2000, 500));
    EXPECT_EQ(Cobrar(cliente), QStringLiteral("no 2000 500 12"));
    EXPECT_EQ(cliente.ErrorMessage(), QStringLiteral("Atasco en la salida"));
    EXPECT_TRUE(pasarela.Espera(QStringLiteral("op.ack")));
}

TEST_F(ClientePasarelaTest, TellsTheAmountsOfAnOperationThatWasCancelled) {
    ClientePasarela& cliente = Conectado();
    pasarela.Al(kCobro(), Falla(0, QStringLiteral("Cancelado"), 500, 0));
    EXPECT_EQ(Cobrar(cliente), QStringLiteral("no 500 0 0"));
}

TEST_F(ClientePasarelaTest, ClampsAnErrorCodeBeyondSixteenBits) {
    ClientePasarela& cliente = Conectado();
    pasarela.Al(kCobro(), Falla(70000, QStringLiteral("x"), 0, 0));
    EXPECT_EQ(Cobrar(cliente), QStringLiteral("no 0 0 32767"));
}

TEST_F(ClientePasarelaTest, LeavesTheRemainingChangeOfAFailedRunAsItWas) {
    ClientePasarela& cliente = Conectado();
    pasarela.Al(QStringLiteral("cashBox.control"), Falla(8, QStringLiteral("x"), 0, 0));
    qint32 a = 1;
    qint32 b = 1;
    qint32 queda = 10000;
    bool bien = true;
    cliente.CashBoxControl(15, a, b, queda, bien);
    EXPECT_FALSE(bien);
    EXPECT_EQ(queda, 10000);
    EXPECT_EQ(a, 0);
}

TEST_F(ClientePasarelaTest, ShowsWhyAStartWasRefusedAndAcknowledgesNothing) {
    ClientePasarela& cliente = Conectado();
    const auto rechaza = [](const QJsonObject& datos) {
        return [datos](EnlaceGuion& enlace, const QJsonObject& peticion) {
            enlace.Rechazar(peticion, -32020, QStringLiteral("Puerta abierta"), datos);
        };
    };
    const QString codigo = QStringLiteral("errorCode");
    pasarela.Al(kCobro(), rechaza({{codigo, 31}}));
    EXPECT_EQ(Cobrar(cliente), QStringLiteral("no 0 0 31"));
    EXPECT_EQ(cliente.ErrorMessage(), QStringLiteral("Puerta abierta"));
    pasarela.Al(kCobro(), rechaza({}));
    EXPECT_EQ(Cobrar(cliente), QStringLiteral("no 0 0 900"));
    pasarela.Al(kCobro(), rechaza({{codigo, 1}}));
    EXPECT_EQ(Cobrar(cliente), QStringLiteral("no 0 0 900"));
    pasarela.Al(kCobro(), rechaza({{codigo, 99999}}));
    EXPECT_EQ(Cobrar(cliente), QStringLiteral("no 0 0 32767"));
    // The session goes on.
    pasarela.Al(kCobro(), Termina(1250, 0));
    EXPECT_EQ(Cobrar(cliente), QStringLiteral("ok 1250 0 0"));
    EXPECT_TRUE(pasarela.Espera(QStringLiteral("op.ack")));
    EXPECT_EQ(pasarela.Recibidas(QStringLiteral("op.ack")).size(), 1);
    EXPECT_EQ(pasarela.Conexiones(), 1);
}

TEST_F(ClientePasarelaTest, CancelsAndWaitsForTheGatewaysWord) {
    ClientePasarela& cliente = Conectado();
    pasarela.Al(kCobro(), Empieza(500));
    pasarela.Al(QStringLiteral("op.cancel"), [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        const QString op = PasarelaGuion::OpId(peticion);
        enlace.Contestar(peticion, CobroEnMarcha(op, 500));
        enlace.Notificar(QStringLiteral("op.result"),
                         PasarelaGuion::Fallida(op, kCobro(), 0, {}, 500, 500));
    });
    ventana.alProgresar = [this] {
        if (ventana.lineas.last() == QLatin1String("progreso 500 0")) {
            ventana.Cancelar();
            ventana.Cancelar(); // a second press changes nothing
        }
    };
    EXPECT_EQ(Cobrar(cliente), QStringLiteral("no 500 500 0"));
    EXPECT_EQ(pasarela.Recibidas(QStringLiteral("op.cancel")).size(), 1);
    EXPECT_EQ(ventana.lineas.last(), QStringLiteral("cerrar"));
}

TEST_F(ClientePasarelaTest, KeepsACancelPressedBeforeTheStartIsAnswered) {
    ClientePasarela& cliente = Conectado();
    ventana.alAbrir = [this] { ventana.Cancelar(); };
    pasarela.Al(kCobro(), Empieza());
    pasarela.Al(QStringLiteral("op.cancel"), Contesta([](const QString& op) {
                    return PasarelaGuion::Fallida(op, kCobro(), 0, {}, 0, 0);
                }));
    EXPECT_EQ(Cobrar(cliente), QStringLiteral("no 0 0 0"));
}

TEST_F(ClientePasarelaTest, GivesUpACancelledOperationThatNeverEnds) {
    OpcionesPasarela opciones = Rapidas();
    opciones.cancelacion = 60;
    ClientePasarela& cliente = Conectado(opciones);
    pasarela.Al(kCobro(), Empieza(500));
    pasarela.Al(QStringLiteral("op.cancel"),
                Contesta([](const QString& op) { return CobroEnMarcha(op, 500); }));
    ventana.alProgresar = [this] { ventana.Cancelar(); };
    EXPECT_EQ(Cobrar(cliente), QStringLiteral("no 500 0 905"));
}

TEST_F(ClientePasarelaTest, PingsWhileItWaits) {
    ClientePasarela& cliente = Conectado();
    pasarela.Al(kCobro(), Empieza());
    pasarela.Al(QStringLiteral("ping"), [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        enlace.Contestar(peticion, QJsonObject{});
    });
    pasarela.Al(QStringLiteral("ping"), [this](EnlaceGuion& enlace, const QJsonObject&) {
        enlace.Notificar(QStringLiteral("op.result"), CobroHecho(OpId(kCobro()), 1250, 0));
    });
    EXPECT_EQ(Cobrar(cliente), QStringLiteral("ok 1250 0 0"));
}

TEST_F(ClientePasarelaTest, IgnoresResultsOfOthersAndRepeatedOnes) {
    ClientePasarela& cliente = Conectado();
    const QString fin = QStringLiteral("op.result");
    pasarela.Al(kCobro(), [fin](EnlaceGuion& enlace, const QJsonObject& peticion) {
        const QString op = PasarelaGuion::OpId(peticion);
        enlace.Notificar(fin, CobroHecho(QStringLiteral("de-otro"), 9, 9));
        enlace.Notificar(QStringLiteral("device.news"), {});
        enlace.Contestar(peticion, CobroEnMarcha(op, 0));
        enlace.Notificar(fin, CobroHecho(op, 2000, 750));
        enlace.Notificar(fin, CobroHecho(op, 7, 7));
    });
    EXPECT_EQ(Cobrar(cliente), QStringLiteral("ok 2000 750 0"));
    pasarela.Al(kCobro(), [fin, this](EnlaceGuion& enlace, const QJsonObject& peticion) {
        enlace.Notificar(fin, CobroHecho(OpId(kCobro(), 0), 7, 7)); // late, of the first
        Termina(1250, 0)(enlace, peticion);
    });
    EXPECT_EQ(Cobrar(cliente), QStringLiteral("ok 1250 0 0"));
}

TEST_F(ClientePasarelaTest, TakesAResultThatComesBeforeTheAnswerToTheStart) {
    ClientePasarela& cliente = Conectado();
    pasarela.Al(kCobro(), [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        const QString op = PasarelaGuion::OpId(peticion);
        enlace.Notificar(QStringLiteral("op.result"), CobroHecho(op, 2000, 750));
        enlace.Contestar(peticion, CobroHecho(op, 2000, 750));
    });
    EXPECT_EQ(Cobrar(cliente), QStringLiteral("ok 2000 750 0"));
}

TEST_F(ClientePasarelaTest, RefusesASecondOperationWhileOneRuns) {
    ClientePasarela& cliente = Conectado();
    pasarela.Al(kCobro(), Empieza(500));
    QStringList dentro;
    ventana.alProgresar = [&] {
        if (dentro.isEmpty()) {
            dentro << Cobrar(cliente, 77);
            bool bien = true;
            cliente.Connect(bien);
            dentro << QString::number(cliente.ErrorCode());
            EXPECT_FALSE(bien);
            cliente.Disconnect(); // changes nothing
            pasarela.Notificar(QStringLiteral("op.result"), CobroHecho(OpId(kCobro()), 1250, 0));
        }
    };
    EXPECT_EQ(Cobrar(cliente), QStringLiteral("ok 1250 0 0"));
    EXPECT_EQ(dentro, Lista({"no 0 0 903", "903"}));
    EXPECT_EQ(pasarela.Recibidas(kCobro()).size(), 1);
}

TEST_F(ClientePasarelaTest, EndsTheOperationWhenTheProgramEnds) {
    ClientePasarela& cliente = Conectado();
    pasarela.Al(kCobro(), Empieza(500));
    ventana.alProgresar = [] { QCoreApplication::quit(); };
    QString fin;
    QTimer::singleShot(0, qApp, [&] {
        fin = Cobrar(cliente);
        QCoreApplication::quit();
    });
    QCoreApplication::exec();
    EXPECT_EQ(fin, QStringLiteral("no 500 0 904"));
}

} // namespace
} // namespace zv
