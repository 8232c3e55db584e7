// Operations that a former run of the monitor has left open at the gateway.
#include "BancoPasarela.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"

#include <QCoreApplication>
#include <QTimer>

namespace zv {
namespace {

const QString kEstado = u"op.status"_s;
const QString kAck = u"op.ack"_s;
const QString kFin = u"op.result"_s;
const QString kPendiente = u">>> Operación pendiente en Zorvex: "_s;

class GatewayClientPendienteTest : public BancoPasarela {};

TEST_F(GatewayClientPendienteTest, LogsAndAcknowledgesAnEndedOperationFoundAtConnection) {
    pasarela.PonerSaludo(u"openOp"_s, CobroHecho(u"vieja"_s, 2000, 750));
    Conectado();
    EXPECT_TRUE(pasarela.Espera(kAck));
    EXPECT_EQ(pasarela.Metodos(), Lista({"session.hello", "op.ack"}));
    EXPECT_EQ(OpId(kAck), u"vieja"_s);
    EXPECT_EQ(log.lineas, QStringList(kPendiente + u"charge.start vieja OK PAIDINVALUE=2000 "
                                                   "PAIDOUTVALUE=750 ERRORCODE=0"_s));
    EXPECT_TRUE(ventana.lineas.isEmpty());
}

TEST_F(GatewayClientPendienteTest, CancelsARunningOperationFoundAtConnection) {
    pasarela.PonerSaludo(u"openOp"_s, CobroEnMarcha(u"vieja"_s, 500));
    pasarela.Al(u"op.cancel"_s, [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        const QString op = PasarelaGuion::OpId(peticion);
        enlace.Contestar(peticion, CobroEnMarcha(op, 500));
        enlace.Notificar(kFin, PasarelaGuion::Fallida(op, kCobro(), 0, {}, 500, 500));
    });
    Conectado();
    EXPECT_TRUE(pasarela.Espera(kAck));
    EXPECT_EQ(log.lineas, QStringList(kPendiente + u"charge.start vieja CANCEL "
                                                   "PAIDINVALUE=500 "
                                                   "PAIDOUTVALUE=500 ERRORCODE=0"_s));
    EXPECT_EQ(ventana.lineas,
              Lista({"abrir 7 0 sin cancelar", "progreso 500 0", "progreso 500 500", "cerrar"}));
}

TEST_F(GatewayClientPendienteTest, ResumesTheEndOfAnOldOperationOverADrop) {
    pasarela.PonerSaludo(u"openOp"_s, CobroEnMarcha(u"vieja"_s, 500));
    pasarela.Al(u"op.cancel"_s, Corta());
    pasarela.Al(kEstado, Contesta([](const QString& op) { return CobroHecho(op, 1250, 0); }));
    Conectado();
    EXPECT_EQ(log.lineas, QStringList(kPendiente + u"charge.start vieja OK PAIDINVALUE=1250 "
                                                   "PAIDOUTVALUE=0 ERRORCODE=0"_s));
}

TEST_F(GatewayClientPendienteTest, DoesNotConnectWhileAnOldOperationDoesNotEnd) {
    pasarela.PonerSaludo(u"openOp"_s, CobroEnMarcha(u"vieja"_s, 500));
    pasarela.Al(u"op.cancel"_s, Contesta([](const QString& op) { return CobroEnMarcha(op, 500); }));
    GatewayOptions opciones = Rapidas();
    opciones.pendiente = 60;
    GatewayClient& cliente = Cliente(opciones);
    bool bien = true;
    cliente.Connect(bien);
    EXPECT_FALSE(bien);
    EXPECT_EQ(cliente.ErrorCode(), 1);
    EXPECT_EQ(cliente.ErrorMessage(),
              u"Zorvex no termina una operación anterior que sigue abierta"_s);
    EXPECT_EQ(log.lineas, QStringList(kPendiente + u"charge.start vieja EN CURSO "
                                                   "PAIDINVALUE=500 "
                                                   "PAIDOUTVALUE=0"_s));
    EXPECT_TRUE(pasarela.Recibidas(kAck).isEmpty());
    EXPECT_FALSE(Niveles(cliente));
}

TEST_F(GatewayClientPendienteTest, ClearsAnotherEndedOperationOutOfTheWayOfAStart) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), [this](EnlaceGuion& enlace, const QJsonObject&) {
        pasarela.PonerSaludo(u"openOp"_s, CobroHecho(u"vieja"_s, 2000, 750));
        enlace.Cortar();
    });
    pasarela.Al(kCobro(), Termina(1250, 0));
    EXPECT_EQ(Cobrar(cliente), u"ok 1250 0 0"_s);
    ASSERT_TRUE(pasarela.Espera(kAck, 2));
    EXPECT_EQ(pasarela.Metodos().mid(2),
              Lista({"session.hello", "op.ack", "op.status", "charge.start", "op.ack"}));
    EXPECT_EQ(log.CuentaInicio(kPendiente), 1);
}

TEST_F(GatewayClientPendienteTest, RaisesAndAcknowledgesNothingWhenTheLogCannotBeWritten) {
    pasarela.PonerSaludo(u"openOp"_s, CobroHecho(u"vieja"_s, 2000, 750));
    log.fallosPendientes = 1;
    GatewayClient& cliente = Cliente();
    bool bien = true;
    EXPECT_THROW(cliente.Connect(bien), ErrorEjecucion);
    EXPECT_FALSE(Niveles(cliente));
    EXPECT_TRUE(pasarela.Recibidas(kAck).isEmpty());
}

TEST_F(GatewayClientPendienteTest, TellsTheTrueEndOfAnInterruptedOperationAtTheNextConnection) {
    GatewayOptions opciones = Rapidas();
    opciones.reanudar = 60;
    GatewayClient& cliente = Conectado(opciones);
    pasarela.Al(kCobro(), Empieza(500));
    ventana.alProgresar = [this] { QTimer::singleShot(0, qApp, [this] { pasarela.Apagar(); }); };
    EXPECT_EQ(Cobrar(cliente), u"no 500 0 1"_s);
    EXPECT_EQ(log.lineas.size(), 1);
    pasarela.Encender();
    pasarela.PonerSaludo(u"openOp"_s, CobroHecho(OpId(kCobro()), 2000, 750));
    bool bien = false;
    cliente.Connect(bien);
    EXPECT_TRUE(bien);
    EXPECT_TRUE(pasarela.Espera(kAck));
    EXPECT_EQ(log.lineas.value(1), kPendiente + u"charge.start "_s + OpId(kCobro()) +
                                       u" OK PAIDINVALUE=2000 PAIDOUTVALUE=750 ERRORCODE=0"_s);
}

TEST_F(GatewayClientPendienteTest, LogsAnEndedOperationFoundByAQueryBeforeItIsAcknowledged) {
    GatewayClient& cliente = Conectado();
    pasarela.PonerSaludo(u"openOp"_s, CobroHecho(u"vieja"_s, 2000, 750));
    pasarela.Cortar();
    Niveles(cliente); // notices the drop
    log.fallosPendientes = 1;
    EXPECT_THROW(Niveles(cliente), ErrorEjecucion);
    EXPECT_TRUE(pasarela.Recibidas(kAck).isEmpty());
    // It is looked for again at once.
    EXPECT_TRUE(Niveles(cliente));
    EXPECT_TRUE(pasarela.Espera(kAck));
    EXPECT_EQ(log.lineas, QStringList(kPendiente + u"charge.start vieja OK PAIDINVALUE=2000 "
                                                   "PAIDOUTVALUE=750 ERRORCODE=0"_s));
}

TEST_F(GatewayClientPendienteTest, AcknowledgesNothingUnloggedWhileAnotherOperationIsPickedUp) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), [this](EnlaceGuion& enlace, const QJsonObject&) {
        pasarela.PonerSaludo(u"openOp"_s, CobroHecho(u"vieja"_s, 2000, 750));
        enlace.Cortar();
    });
    pasarela.Al(kCobro(), Termina(1250, 0));
    log.fallosPendientes = 1;
    EXPECT_EQ(Cobrar(cliente), u"ok 1250 0 0"_s);
    ASSERT_TRUE(pasarela.Espera(kAck));
    EXPECT_EQ(OpId(kAck), OpId(kCobro()));
}

} // namespace
} // namespace zv
