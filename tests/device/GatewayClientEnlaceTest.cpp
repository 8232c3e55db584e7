// The gateway client when the link or the gateway fails: resuming, giving up, strange peers.
#include "BancoPasarela.h"
#include "platform/StringLiterals.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

namespace zv {
namespace {

const QString kHola = u"session.hello"_s;
const QString kEstado = u"op.status"_s;
const QString kAck = u"op.ack"_s;
const QString kFin = u"op.result"_s;

class GatewayClientEnlaceTest : public BancoPasarela {
  protected:
    // Gives up a lost link soon.
    static GatewayOptions Impacientes() {
        GatewayOptions o = Rapidas();
        o.reanudar = 80;
        o.respuesta = 60;
        o.silencio = 60;
        o.intento = 60;
        o.conexion = 100;
        o.reapertura = 60;
        return o;
    }
};

// ---- resuming

TEST_F(GatewayClientEnlaceTest, StartsAgainWithTheSameIdWhenTheStartNeverArrived) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), Corta());
    pasarela.Al(kCobro(), Termina(2000, 750));
    EXPECT_EQ(Cobrar(cliente), u"ok 2000 750 0"_s);
    EXPECT_TRUE(pasarela.Espera(kAck));
    EXPECT_EQ(pasarela.Metodos(), Lista({"session.hello", "charge.start", "session.hello",
                                         "op.status", "charge.start", "op.ack"}));
    EXPECT_EQ(OpId(kCobro(), 0), OpId(kCobro(), 1));
    EXPECT_EQ(OpId(kCobro(), 0), OpId(kEstado));
    EXPECT_EQ(pasarela.Recibidas(kCobro()).value(1)[u"params"].toObject()[u"value"].toInt(), 1250);
}

TEST_F(GatewayClientEnlaceTest, PicksTheOperationUpAfterADropInTheMiddle) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        Empieza(500)(enlace, peticion);
        enlace.Cortar();
    });
    pasarela.Al(kEstado, [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        const QString op = PasarelaGuion::OpId(peticion);
        enlace.Contestar(peticion, CobroEnMarcha(op, 2000));
        enlace.Notificar(kFin, CobroHecho(op, 2000, 750));
    });
    EXPECT_EQ(Cobrar(cliente), u"ok 2000 750 0"_s);
    EXPECT_EQ(pasarela.Recibidas(kCobro()).size(), 1);
    EXPECT_EQ(ventana.lineas, Lista({"abrir 0 1250", "aviso ", "progreso 500 0",
                                     "aviso Recuperando la comunicación con Zorvex…",
                                     "progreso 2000 0", "aviso ", "progreso 2000 750", "cerrar"}));
}

TEST_F(GatewayClientEnlaceTest, FetchesAResultThatWasLostWithTheLink) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        Empieza()(enlace, peticion);
        enlace.Cortar();
    });
    pasarela.Al(kEstado, Contesta([](const QString& op) {
                    return PasarelaGuion::Fallida(op, kCobro(), 90, u"Reinicio"_s, 2000, 0);
                }));
    EXPECT_EQ(Cobrar(cliente), u"no 2000 0 90"_s);
    EXPECT_TRUE(pasarela.Espera(kAck));
}

TEST_F(GatewayClientEnlaceTest, CountsAResultThatArrivedJustBeforeTheDrop) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        Termina(2000, 750)(enlace, peticion);
        enlace.Cortar();
    });
    EXPECT_EQ(Cobrar(cliente), u"ok 2000 750 0"_s);
}

TEST_F(GatewayClientEnlaceTest, ReconnectsWhenTheGatewayComesBackAfterAWhile) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), Empieza(500));
    pasarela.Al(kEstado, Contesta([](const QString& op) { return CobroHecho(op, 2000, 750); }));
    ventana.alProgresar = [this] {
        if (ventana.lineas.last() == QLatin1String("progreso 500 0")) {
            QTimer::singleShot(0, qApp, [this] { pasarela.Apagar(); });
        }
    };
    ventana.alAvisar = [this] {
        if (ventana.lineas.last() != QLatin1String("aviso ")) {
            QTimer::singleShot(30, qApp, [this] { pasarela.Encender(); });
        }
    };
    EXPECT_EQ(Cobrar(cliente), u"ok 2000 750 0"_s);
}

TEST_F(GatewayClientEnlaceTest, KeepsResumingWhileTheOperationAdvances) {
    GatewayOptions opciones = Rapidas();
    opciones.reintento = 150;
    opciones.reanudar = 1500; // less than all the drops together take
    GatewayClient& cliente = Conectado(opciones);
    pasarela.Al(kCobro(), Corta());
    pasarela.Al(kCobro(), [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        Empieza(100)(enlace, peticion);
        enlace.Cortar();
    });
    for (int entra = 200; entra <= 1200; entra += 100) {
        pasarela.Al(kEstado, [entra](EnlaceGuion& enlace, const QJsonObject& peticion) {
            if (entra == 200) { // before the start has ever arrived
                enlace.Rechazar(peticion, -32011, {});
                return;
            }
            enlace.Contestar(peticion, CobroEnMarcha(PasarelaGuion::OpId(peticion), entra));
            enlace.Cortar();
        });
    }
    pasarela.Al(kEstado, Contesta([](const QString& op) { return CobroHecho(op, 2000, 750); }));
    EXPECT_EQ(Cobrar(cliente), u"ok 2000 750 0"_s);
}

TEST_F(GatewayClientEnlaceTest, GivesUpWithTheLastAmountsKnown) {
    GatewayClient& cliente = Conectado(Impacientes());
    pasarela.Al(kCobro(), Empieza(500));
    ventana.alProgresar = [this] { QTimer::singleShot(0, qApp, [this] { pasarela.Apagar(); }); };
    EXPECT_EQ(Cobrar(cliente), u"no 500 0 1"_s);
    EXPECT_EQ(cliente.ErrorMessage(), u"Se ha perdido la comunicación con Zorvex"_s);
    EXPECT_EQ(log.lineas, QStringList(LineaFin(kCobro(), 0,
                                               u"ERROR_1 PAIDINVALUE=500 PAIDOUTVALUE=0 "
                                               "ERRORCODE=1 - Se ha perdido la comunicación con "
                                               "Zorvex"_s,
                                               u"interrumpida"_s)));
    EXPECT_EQ(ventana.lineas.last(), u"cerrar"_s);
    EXPECT_FALSE(Niveles(cliente));
    EXPECT_EQ(cliente.ErrorCode(), 1);
}

TEST_F(GatewayClientEnlaceTest, GivesUpALinkThatComesAndGoesWithoutGettingAnywhere) {
    GatewayClient& cliente = Conectado(Impacientes());
    pasarela.Al(kCobro(), [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        Empieza()(enlace, peticion);
        enlace.Cortar();
    });
    pasarela.Siempre(kEstado, [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        enlace.Contestar(peticion, CobroEnMarcha(PasarelaGuion::OpId(peticion), 0));
        enlace.Cortar();
    });
    EXPECT_EQ(Cobrar(cliente), u"no 0 0 1"_s);
}

TEST_F(GatewayClientEnlaceTest, DoesNotResumeAtAnotherDevice) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), [this](EnlaceGuion& enlace, const QJsonObject& peticion) {
        Empieza(500)(enlace, peticion);
        pasarela.PonerSaludo(u"storeId"_s, u"almacen-2"_s);
        enlace.Cortar();
    });
    EXPECT_EQ(Cobrar(cliente), u"no 500 0 1"_s);
    EXPECT_EQ(cliente.ErrorMessage(), u"Tras perder la comunicación ha contestado otro Zorvex"_s);
    EXPECT_EQ(log.lineas, QStringList(LineaFin(kCobro(), 0,
                                               u"ERROR_1 PAIDINVALUE=500 PAIDOUTVALUE=0 "
                                               "ERRORCODE=1 - Tras perder la comunicación ha "
                                               "contestado otro Zorvex"_s,
                                               u"interrumpida"_s)));
    EXPECT_TRUE(pasarela.Recibidas(kEstado).isEmpty());
    EXPECT_FALSE(Niveles(cliente));
    bool bien = false;
    cliente.Connect(bien);
    EXPECT_TRUE(bien);
}

TEST_F(GatewayClientEnlaceTest, BelievesNoResultBeforeItKnowsWhoseItIs) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), Corta());
    pasarela.Al(kHola, [this](EnlaceGuion& enlace, const QJsonObject& peticion) {
        enlace.Notificar(kFin, CobroHecho(OpId(kCobro()), 9999, 0));
        enlace.Contestar(peticion, QJsonObject{{u"protocol"_s, 1},
                                               {u"storeId"_s, u"otro"_s},
                                               {u"decimals"_s, 2},
                                               {u"multiplier"_s, 100}});
    });
    EXPECT_EQ(Cobrar(cliente), u"no 0 0 1"_s);
}

TEST_F(GatewayClientEnlaceTest, IsCancelledWhenItNeverStartedAndTheCashierGaveUp) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), Corta());
    ventana.alAvisar = [this] {
        if (ventana.lineas.last() != QLatin1String("aviso ")) {
            ventana.Cancelar();
        }
    };
    EXPECT_EQ(Cobrar(cliente), u"no 0 0 0"_s);
    EXPECT_EQ(pasarela.Recibidas(kCobro()).size(), 1);
}

TEST_F(GatewayClientEnlaceTest, RepeatsACancelThatWasLostWithTheLink) {
    GatewayClient& cliente = Conectado();
    const QString cancelar = u"op.cancel"_s;
    pasarela.Al(kCobro(), Empieza(500));
    pasarela.Al(cancelar, Corta());
    pasarela.Al(kEstado, Contesta([](const QString& op) { return CobroEnMarcha(op, 500); }));
    pasarela.Al(cancelar, Contesta([](const QString& op) {
                    return PasarelaGuion::Fallida(op, kCobro(), 0, {}, 500, 500);
                }));
    ventana.alProgresar = [this] {
        if (ventana.lineas.last() == QLatin1String("progreso 500 0")) {
            ventana.Cancelar();
        }
    };
    EXPECT_EQ(Cobrar(cliente), u"no 500 500 0"_s);
}

TEST_F(GatewayClientEnlaceTest, ChargesOnALinkThatWasLostAtRest) {
    GatewayClient& cliente = Conectado();
    pasarela.Cortar();
    pasarela.Al(kCobro(), Termina(2000, 750));
    EXPECT_EQ(Cobrar(cliente), u"ok 2000 750 0"_s);
    EXPECT_EQ(pasarela.Conexiones(), 2);
    EXPECT_EQ(pasarela.Recibidas(kCobro()).size(), 1);
}

TEST_F(GatewayClientEnlaceTest, ReopensALinkLostAtRestForAQuery) {
    GatewayClient& cliente = Conectado(Impacientes());
    pasarela.Cortar();
    EXPECT_FALSE(Niveles(cliente)); // the drop is noticed here
    EXPECT_EQ(cliente.ErrorCode(), 1);
    EXPECT_TRUE(Niveles(cliente));
    EXPECT_EQ(pasarela.Conexiones(), 2);
    pasarela.Apagar();
    EXPECT_FALSE(Niveles(cliente));
    EXPECT_FALSE(Niveles(cliente));
    EXPECT_EQ(cliente.ErrorCode(), 1);
}

TEST_F(GatewayClientEnlaceTest, ReopensNoLinkToAnotherDevice) {
    GatewayClient& cliente = Conectado();
    pasarela.PonerSaludo(u"storeId"_s, u"almacen-2"_s);
    pasarela.PonerSaludo(u"multiplier"_s, 1);
    pasarela.Cortar();
    Niveles(cliente); // notices the drop
    EXPECT_FALSE(Niveles(cliente));
    EXPECT_EQ(cliente.ErrorCode(), 1);
    EXPECT_EQ(cliente.Multiplier(), 100);
    EXPECT_TRUE(pasarela.Recibidas(u"levels.get"_s).size() <= 1);
}

TEST_F(GatewayClientEnlaceTest, LeavesAnOperationThatStillRunsToConnect) {
    GatewayClient& cliente = Conectado();
    pasarela.PonerSaludo(u"openOp"_s, CobroEnMarcha(u"vieja"_s, 5));
    pasarela.Cortar();
    Niveles(cliente);
    EXPECT_FALSE(Niveles(cliente));
    EXPECT_EQ(cliente.ErrorCode(), 1);
    EXPECT_TRUE(pasarela.Recibidas(u"op.cancel"_s).isEmpty());
}

TEST_F(GatewayClientEnlaceTest, AcknowledgesItsOwnResultAgainWithoutASecondLogLine) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), Termina(2000, 750));
    Cobrar(cliente);
    EXPECT_EQ(log.Toma().size(), 1);
    ASSERT_TRUE(pasarela.Espera(kAck));
    pasarela.PonerSaludo(u"openOp"_s, CobroHecho(OpId(kCobro()), 2000, 750));
    pasarela.Cortar();
    pasarela.Al(kCobro(), Termina(1250, 0));
    EXPECT_EQ(Cobrar(cliente), u"ok 1250 0 0"_s);
    EXPECT_TRUE(pasarela.Espera(kAck, 3));
    EXPECT_EQ(OpId(kAck, 0), OpId(kAck, 1));
    EXPECT_EQ(log.Toma(), QStringList(LineaFin(kCobro(), 1,
                                               u"OK PAIDINVALUE=1250 "
                                               "PAIDOUTVALUE=0 ERRORCODE=0"_s)));
}

// ---- peers that do not answer

TEST_F(GatewayClientEnlaceTest, TakesAStartWithoutAnAnswerForALostLink) {
    GatewayOptions opciones = Rapidas();
    opciones.respuesta = 80; // pings are answered all the while
    GatewayClient& cliente = Conectado(opciones);
    pasarela.Al(kCobro(), Calla());
    pasarela.Al(kEstado, Contesta([](const QString& op) { return CobroHecho(op, 2000, 750); }));
    EXPECT_EQ(Cobrar(cliente), u"ok 2000 750 0"_s);
    EXPECT_EQ(pasarela.Conexiones(), 2);
}

TEST_F(GatewayClientEnlaceTest, TakesSilenceForALostLink) {
    GatewayOptions opciones = Rapidas();
    opciones.silencio = 80;
    GatewayClient& cliente = Conectado(opciones);
    pasarela.Al(kCobro(), [this](EnlaceGuion& enlace, const QJsonObject& peticion) {
        Empieza(500)(enlace, peticion);
        pasarela.Siempre(u"ping"_s, Calla());
    });
    pasarela.Al(kEstado, Contesta([](const QString& op) { return CobroHecho(op, 2000, 750); }));
    EXPECT_EQ(Cobrar(cliente), u"ok 2000 750 0"_s);
    EXPECT_EQ(pasarela.Conexiones(), 2);
}

TEST_F(GatewayClientEnlaceTest, DoesNotTakeItsOwnAbsenceForSilence) {
    const auto ocupar = [](int milisegundos) {
        QElapsedTimer ocupado;
        ocupado.start();
        while (!ocupado.hasExpired(milisegundos)) {
        }
    };
    GatewayOptions opciones = Rapidas();
    opciones.silencio = 60;
    opciones.tic = 40;
    GatewayClient& cliente = Conectado(opciones);
    pasarela.Al(kCobro(), Empieza(500));
    pasarela.Al(u"op.cancel"_s, Contesta([](const QString& op) { return CobroEnMarcha(op, 500); }));
    // A timer of the program that keeps the thread for longer than the silence allowed, with the
    // client's own timer due right behind it and the answer waiting in the system.
    const auto tarea = [&, this] {
        ventana.Cancelar(); // an answer is owed from here on
        ASSERT_TRUE(pasarela.Espera(u"op.cancel"_s));
        ocupar(120);
        QTimer::singleShot(
            20, qApp, [this] { pasarela.Notificar(kFin, CobroHecho(OpId(kCobro()), 1250, 0)); });
    };
    ventana.alProgresar = [&] {
        if (ventana.lineas.last() == QLatin1String("progreso 500 0")) {
            QTimer::singleShot(1, Qt::PreciseTimer, qApp, tarea);
            ocupar(50);
        }
    };
    EXPECT_EQ(Cobrar(cliente), u"ok 1250 0 0"_s);
    EXPECT_EQ(pasarela.Conexiones(), 1);
}

TEST_F(GatewayClientEnlaceTest, ResumesWhenAQueryInsideAnOperationFindsTheLinkLost) {
    GatewayOptions opciones = Rapidas();
    opciones.respuesta = 60;
    GatewayClient& cliente = Conectado(opciones);
    pasarela.Al(kCobro(), Empieza(500));
    pasarela.Al(u"levels.get"_s, Calla());
    pasarela.Al(kEstado, Contesta([](const QString& op) { return CobroHecho(op, 2000, 750); }));
    bool niveles = true;
    ventana.alProgresar = [&] {
        if (ventana.lineas.last() == QLatin1String("progreso 500 0")) {
            QTimer::singleShot(0, qApp, [&] { niveles = Niveles(cliente); });
        }
    };
    EXPECT_EQ(Cobrar(cliente), u"ok 2000 750 0"_s);
    EXPECT_FALSE(niveles);
    EXPECT_EQ(pasarela.Conexiones(), 2);
}

TEST_F(GatewayClientEnlaceTest, EndsWithAPeerThatNeverAnswersAnything) {
    GatewayClient& cliente = Conectado(Impacientes());
    for (const char* metodo : {"charge.start", "ping", "session.hello"}) {
        pasarela.Siempre(QString::fromLatin1(metodo), Calla());
    }
    QElapsedTimer reloj;
    reloj.start();
    EXPECT_EQ(Cobrar(cliente), u"no 0 0 1"_s);
    EXPECT_LT(reloj.elapsed(), 3000);
    bool bien = true;
    cliente.Connect(bien);
    EXPECT_FALSE(bien);
    EXPECT_EQ(cliente.ErrorCode(), 1);
}

// ---- peers that answer nonsense

TEST_F(GatewayClientEnlaceTest, ResumesAfterALineThatIsNoMessage) {
    GatewayClient& cliente = Conectado();
    const QByteArray larga = "{\"x\":\"" + QByteArray(1048576, 'x') + "\"}\n";
    for (const QByteArray& basura : {QByteArray("hola\n"), QByteArray("\n"), QByteArray("[1,2]\n"),
                                     QByteArray("{\"id\":2,\"result\":{\n"), larga}) {
        pasarela.Al(kCobro(), Escupe(basura));
        pasarela.Al(kEstado, Contesta([](const QString& op) { return CobroHecho(op, 2000, 750); }));
        QElapsedTimer reloj;
        reloj.start();
        EXPECT_EQ(Cobrar(cliente), u"ok 2000 750 0"_s);
        EXPECT_LT(reloj.elapsed(), 4000); // at once, not when the silence has run out
    }
    EXPECT_EQ(pasarela.Conexiones(), 6);
}

TEST_F(GatewayClientEnlaceTest, ReadsMessagesInPiecesAndInHeaps) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        const QByteArray id = QByteArray::number(peticion[u"id"].toInt());
        const QByteArray op = PasarelaGuion::OpId(peticion).toUtf8();
        const QByteArray estado = "{\"opId\":\"" + op + "\",\"method\":\"charge.start\",";
        const QByteArray todo =
            "{\"jsonrpc\":\"2.0\",\"id\":" + id + ",\"result\":" + estado +
            "\"state\":\"running\",\"paidIn\":0,\"paidOut\":0}}\r\n"
            "{\"method\":\"op.progress\",\"params\":" +
            estado +
            "\"state\":\"running\",\"paidIn\":2000,\"paidOut\":0}}\n"
            "{\"method\":\"op.result\",\"params\":" +
            estado +
            "\"state\":\"done\",\"ok\":true,\"errorCode\":0,\"paidIn\":2000,\"paidOut\":750}}\n";
        enlace.Crudo(todo.left(40));
        for (const char letra : todo.mid(40, 100)) {
            enlace.Crudo(QByteArray(1, letra));
        }
        enlace.Crudo(todo.mid(140));
    });
    EXPECT_EQ(Cobrar(cliente), u"ok 2000 750 0"_s);
}

TEST_F(GatewayClientEnlaceTest, EndsWithoutRepeatingOnAmountsBeyondThirtyTwoBits) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), Empieza(500));
    ventana.alProgresar = [this] {
        pasarela.Notificar(kFin, CobroHecho(OpId(kCobro()), 2147483648, 0));
    };
    EXPECT_EQ(Cobrar(cliente), u"no 500 0 902"_s);
    EXPECT_EQ(cliente.ErrorMessage(), u"Zorvex ha dado una respuesta que no es válida"_s);
    // Balances are asked for while the failure is filed: its code must outlive them, or the sale
    // would be taken for one whose link was lost, and sent again.
    EXPECT_FALSE(Niveles(cliente));
    EXPECT_EQ(cliente.ErrorCode(), 902);
    EXPECT_TRUE(pasarela.Recibidas(kEstado).isEmpty());
    EXPECT_TRUE(pasarela.Recibidas(kAck).isEmpty());
    EXPECT_TRUE(pasarela.EsperaCorte());
    EXPECT_FALSE(Niveles(cliente));
}

TEST_F(GatewayClientEnlaceTest, EndsOnAStateThatIsNone) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        enlace.Contestar(peticion, CobroHecho(u"otra"_s, 5, 0));
    });
    EXPECT_EQ(Cobrar(cliente), u"no 0 0 902"_s);
}

TEST_F(GatewayClientEnlaceTest, DoesNotStartTwiceWhatTheGatewayHasForgotten) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        Empieza(500)(enlace, peticion);
        enlace.Cortar();
    });
    EXPECT_EQ(Cobrar(cliente), u"no 500 0 902"_s);
    EXPECT_EQ(pasarela.Recibidas(kCobro()).size(), 1);
}

} // namespace
} // namespace zv
