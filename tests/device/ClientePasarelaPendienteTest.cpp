// Operations that a former run of the monitor has left open at the gateway.
#include "BancoPasarela.h"
#include "platform/ErrorEjecucion.h"

namespace zv {
namespace {

const QString kEstado = QStringLiteral("op.status");
const QString kAck = QStringLiteral("op.ack");
const QString kFin = QStringLiteral("op.result");
const QString kPendiente = QStringLiteral(">>> Operación pendiente en Zorvex: ");

class ClientePasarelaPendienteTest : public BancoPasarela {};

TEST_F(ClientePasarelaPendienteTest, LogsAndAcknowledgesAnEndedOperationFoundAtConnection) {
    pasarela.PonerSaludo(QStringLiteral("openOp"), CobroHecho(QStringLiteral("vieja"), 2000, 750));
    Conectado();
    EXPECT_TRUE(pasarela.Espera(kAck));
    EXPECT_EQ(pasarela.Metodos(), Lista({"session.hello", "op.ack"}));
    EXPECT_EQ(OpId(kAck), QStringLiteral("vieja"));
    EXPECT_EQ(log.lineas,
              QStringList(kPendiente + QStringLiteral("charge.start OK PAIDINVALUE=2000 "
                                                      "PAIDOUTVALUE=750")));
    EXPECT_TRUE(ventana.lineas.isEmpty());
}

TEST_F(ClientePasarelaPendienteTest, CancelsARunningOperationFoundAtConnection) {
    pasarela.PonerSaludo(QStringLiteral("openOp"), CobroEnMarcha(QStringLiteral("vieja"), 500));
    pasarela.Al(QStringLiteral("op.cancel"), [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        const QString op = PasarelaGuion::OpId(peticion);
        enlace.Contestar(peticion, CobroEnMarcha(op, 500));
        enlace.Notificar(kFin, PasarelaGuion::Fallida(op, kCobro(), 0, {}, 500, 500));
    });
    Conectado();
    EXPECT_TRUE(pasarela.Espera(kAck));
    EXPECT_EQ(log.lineas, QStringList(kPendiente + QStringLiteral("charge.start CANCEL "
                                                                  "PAIDINVALUE=500 "
                                                                  "PAIDOUTVALUE=500")));
    EXPECT_EQ(ventana.lineas,
              Lista({"abrir 7 0 sin cancelar", "progreso 500 0", "progreso 500 500", "cerrar"}));
}

TEST_F(ClientePasarelaPendienteTest, ResumesTheEndOfAnOldOperationOverADrop) {
    pasarela.PonerSaludo(QStringLiteral("openOp"), CobroEnMarcha(QStringLiteral("vieja"), 500));
    pasarela.Al(QStringLiteral("op.cancel"), Corta());
    pasarela.Al(kEstado, Contesta([](const QString& op) { return CobroHecho(op, 1250, 0); }));
    Conectado();
    EXPECT_EQ(log.lineas,
              QStringList(kPendiente + QStringLiteral("charge.start OK PAIDINVALUE=1250 "
                                                      "PAIDOUTVALUE=0")));
}

TEST_F(ClientePasarelaPendienteTest, DoesNotConnectWhileAnOldOperationDoesNotEnd) {
    pasarela.PonerSaludo(QStringLiteral("openOp"), CobroEnMarcha(QStringLiteral("vieja"), 500));
    pasarela.Al(QStringLiteral("op.cancel"),
                Contesta([](const QString& op) { return CobroEnMarcha(op, 500); }));
    OpcionesPasarela opciones = Rapidas();
    opciones.pendiente = 60;
    ClientePasarela& cliente = Cliente(opciones);
    bool bien = true;
    cliente.Connect(bien);
    EXPECT_FALSE(bien);
    EXPECT_EQ(cliente.ErrorCode(), 1);
    EXPECT_EQ(log.lineas, QStringList(kPendiente + QStringLiteral("charge.start EN CURSO "
                                                                  "PAIDINVALUE=500 "
                                                                  "PAIDOUTVALUE=0")));
    EXPECT_TRUE(pasarela.Recibidas(kAck).isEmpty());
    EXPECT_FALSE(Niveles(cliente));
}

TEST_F(ClientePasarelaPendienteTest, ClearsAnotherEndedOperationOutOfTheWayOfAStart) {
    ClientePasarela& cliente = Conectado();
    pasarela.Al(kCobro(), [this](EnlaceGuion& enlace, const QJsonObject&) {
        pasarela.PonerSaludo(QStringLiteral("openOp"),
                             CobroHecho(QStringLiteral("vieja"), 2000, 750));
        enlace.Cortar();
    });
    pasarela.Al(kCobro(), Termina(1250, 0));
    EXPECT_EQ(Cobrar(cliente), QStringLiteral("ok 1250 0 0"));
    ASSERT_TRUE(pasarela.Espera(kAck, 2));
    EXPECT_EQ(pasarela.Metodos().mid(2),
              Lista({"session.hello", "op.ack", "op.status", "charge.start", "op.ack"}));
    EXPECT_EQ(log.CuentaInicio(kPendiente), 1);
}

TEST_F(ClientePasarelaPendienteTest, RaisesAndAcknowledgesNothingWhenTheLogCannotBeWritten) {
    pasarela.PonerSaludo(QStringLiteral("openOp"), CobroHecho(QStringLiteral("vieja"), 2000, 750));
    log.fallosPendientes = 1;
    ClientePasarela& cliente = Cliente();
    bool bien = true;
    EXPECT_THROW(cliente.Connect(bien), ErrorEjecucion);
    EXPECT_FALSE(Niveles(cliente));
    EXPECT_TRUE(pasarela.Recibidas(kAck).isEmpty());
}

} // namespace
} // namespace zv
