// The fast link and the barcode entry inside a whole monitor: start, transactions, device calls.
#include "BancoMonitor.h"
#include "platform/StringLiterals.h"
#include "support/Esperas.h"
#include "support/NumeroError.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

namespace zv::test {

class EnlaceFastTest : public BancoMonitor {
  protected:
    EnlaceFastTest() { PonerSaldo(5000); }

    void Cargar(const QByteArray& mas = {}, const QByteArray& modo = "MANUAL",
                const QByteArray& puerto = "16501") {
        EscribirIni("[ZORVEX]\r\nIP=127.0.0.1\r\n[ZVMONITOR]\r\nMODO=" + modo +
                    "\r\n[CONECTOR]\r\nZVFastPort=" + puerto + "\r\n" + mas);
        cliente.EsperaConnect();
        ASSERT_TRUE(monitor->Cargar());
    }
    static std::unique_ptr<QTcpSocket> Conectar(const QString& direccion = DireccionPropia(),
                                                quint16 puerto = 16501) {
        auto socket = std::make_unique<QTcpSocket>();
        socket->connectToHost(direccion, puerto);
        EXPECT_TRUE(Esperar([&] { return socket->state() == QAbstractSocket::ConnectedState; }));
        return socket;
    }
    static QByteArray Pregunta(QTcpSocket& socket, const QByteArray& mensaje) {
        socket.write(mensaje);
        EXPECT_TRUE(Esperar([&] { return socket.bytesAvailable() > 0; }));
        return socket.readAll();
    }
    // The n-th sale comes while a transaction stands open: it gets no answer now.
    void LlegaYEspera(QTcpSocket& socket, int n) {
        socket.write("C|V" + QByteArray::number(n) + "|1250");
        ASSERT_TRUE(Esperar([&] { return monitor->Fast().MensajesEnCola() == 1; }));
        for (int i = 0; i < 3; ++i) {
            monitor->Fast().Tick();
        }
        EXPECT_EQ(socket.bytesAvailable(), 0);
    }
};

TEST_F(EnlaceFastTest, AStartOpensItByTheSettings) {
    Cargar();
    const auto socket = Conectar();
    EXPECT_EQ(Pregunta(*socket, "C|T1|1250"), QByteArray("OK|Added"));
    EXPECT_EQ(Pregunta(*socket, "S|T1"), QByteArray("OK|PENDING"));
    Pulso().ProcesarCola();
    EXPECT_EQ(Controles().lbContador, u"1 cobros"_s);
    // The pulse sees what this program itself has added since.
    EXPECT_EQ(Pregunta(*socket, "C|T2|300"), QByteArray("OK|Added"));
    Pulso().ProcesarCola();
    EXPECT_EQ(Controles().lbContador, u"2 cobros"_s);
}

TEST_F(EnlaceFastTest, SwitchedOffItStaysClosed) {
    Cargar("ZVFastActive=0\r\n");
    EXPECT_FALSE(monitor->Fast().WS().Escuchando());
}

TEST_F(EnlaceFastTest, OtherSettingsOpenItAnewAndWhoIsConnectedStaysSo) {
    Cargar();
    const auto antiguo = Conectar();
    const auto ajustar = [this](const QString& puerto, bool activo) {
        pantallas.EsperaValidar(0, u"authConfiguracion"_s, true);
        pantallas.EsperaAbrir(Pantalla::Configuracion, [&, this] {
            Ajustes().ZVFastPort = puerto;
            Ajustes().zvFastActive = activo;
        });
        monitor->Partes().botones.boton_Click(BotonPie::Configurar);
    };
    ajustar(u"16502"_s, true);
    EXPECT_EQ(monitor->Fast().WS().Puerto(), 16502);
    const auto nuevo = Conectar(DireccionPropia(), 16502);
    EXPECT_EQ(Pregunta(*antiguo, "S|T1"), QByteArray("NOK|Not found"));
    EXPECT_EQ(Pregunta(*nuevo, "S|T1"), QByteArray("NOK|Not found"));
    ajustar(u"16502"_s, false);
    EXPECT_FALSE(monitor->Fast().WS().Escuchando());
    EXPECT_EQ(Pregunta(*antiguo, "S|T1"), QByteArray("NOK|Not found"));
    ajustar(u"65535"_s, true);
    EXPECT_EQ(monitor->Fast().WS().Puerto(), 65535);

    QTcpServer otro;
    ASSERT_TRUE(otro.listen(QHostAddress(DireccionPropia()), 16503));
    for (const auto& [puerto, fallo] :
         {std::pair<QString, int>{u"65536"_s, 380}, {u"-1"_s, 380}, {u"16503"_s, 10048}}) {
        EXPECT_EQ(NumeroError([&] { ajustar(puerto, true); }), fallo);
        EXPECT_FALSE(monitor->Fast().WS().Escuchando());
        monitor->Partes().controles.Poner(&EstadoControles::framePie, true);
    }
    EXPECT_FALSE(monitor->Fast().PuertoLibre(16503));
    EXPECT_TRUE(monitor->Fast().PuertoLibre(16502));
    ajustar(u"16502"_s, true);
    EXPECT_TRUE(monitor->Fast().PuertoLibre(16502)); // its own
    EXPECT_TRUE(monitor->Fast().WS().Escuchando());
}

TEST_F(EnlaceFastTest, UnlessToldOtherwiseItListensOnEveryInterface) {
    Opciones opciones = OpcionesPropias();
    opciones.fastDireccion.clear();
    Montar(opciones);
    Cargar({}, "MANUAL", "0");
    const quint16 puerto = monitor->Fast().WS().Puerto();
    for (const QString& direccion : {u"127.0.0.1"_s, DireccionPropia()}) {
        const auto socket = Conectar(direccion, puerto);
        EXPECT_EQ(Pregunta(*socket, "S|T1"), QByteArray("NOK|Not found"));
    }
}

TEST_F(EnlaceFastTest, ItIsOpenBeforeTheConnectorStartsAndMessagesWaitForTheStore) {
    bool preguntado = false;
    std::unique_ptr<QTcpSocket> socket;
    dialogos.EsperaMensaje(
        u"Conector no cargado"_s, testing::_, Respuesta::Aceptar, std::nullopt, [&] {
            preguntado = true;
            socket = Conectar();
            socket->write("C|T1|1250");
            ASSERT_TRUE(Esperar([&] { return monitor->Fast().MensajesEnCola() == 1; }));
            monitor->Fast().Tick();
            EXPECT_EQ(monitor->Fast().MensajesEnCola(), 1u);
        });
    Cargar("ZVConectorActive=1\r\nZVConectorPath=/no/hay/Conector\r\n");
    ASSERT_TRUE(preguntado);
    ASSERT_TRUE(Esperar([&] { return socket->bytesAvailable() > 0; }));
    EXPECT_EQ(socket->readAll(), QByteArray("OK|Added"));
}

TEST_F(EnlaceFastTest, ItAnswersUnderADialogAndWhileACustomerPays) {
    Cargar({}, "AUTO");
    const auto socket = Conectar();
    EXPECT_EQ(Pregunta(*socket, "C|R1|-500"), QByteArray("OK|Added"));
    dialogos.EsperaMensaje(u"Abono pendiente"_s, testing::_, Respuesta::Aceptar, std::nullopt, [&] {
        EXPECT_EQ(Pregunta(*socket, "C|T2|700"), QByteArray("OK|Added"));
    });
    cliente.EsperaCharge(-500, 0, 500, FinGuion::Ok().Durante([&] {
        EXPECT_EQ(Pregunta(*socket, "C|T3|900"), QByteArray("OK|Added"));
        EXPECT_EQ(Pregunta(*socket, "S|R1"), QByteArray("OK|PENDING"));
    }));
    Pulso().ProcesarCola();
    EXPECT_EQ(Pregunta(*socket, "S|R1"), QByteArray("OK|OK"));
    EXPECT_EQ(Pregunta(*socket, "S|T2"), QByteArray("OK|PENDING"));
    EXPECT_EQ(Pregunta(*socket, "S|T3"), QByteArray("OK|PENDING"));
}

// A transaction stands open from the beginning of the device's work until its end is filed.
TEST_F(EnlaceFastTest, WhatIsAskedBeforeAManualOperationAndToldAfterItKeepsNoSaleWaiting) {
    Cargar();
    Pulso().ProcesarCola();
    const auto socket = Conectar();
    int llegadas = 0;
    const auto llega = [&] { LlegaYEspera(*socket, ++llegadas); };
    const auto contesta = [&] {
        EXPECT_TRUE(Esperar([&] { return socket->bytesAvailable() > 0; }));
        EXPECT_EQ(socket->readAll(), QByteArray("OK|Added"));
    };
    const FinGuion atasco = FinGuion::Error(12, u"Atasco"_s).Durante(llega);
    BotonesMonitor& botones = monitor->Partes().botones;

    cliente.EsperaChange(0, 0, atasco);
    dialogos.EsperaMensaje(u"Dar cambio anulado"_s, testing::_, Respuesta::Aceptar, std::nullopt,
                           contesta);
    botones.boton_Click(BotonPie::DarCambio);

    cliente.EsperaAddChange(0, atasco);
    dialogos.EsperaMensaje(u"Añadir cambio anulado"_s, testing::_, Respuesta::Aceptar, std::nullopt,
                           contesta);
    botones.boton_Click(BotonPie::AnadirCambio);

    const auto pregunta = [&] { EXPECT_EQ(Pregunta(*socket, "S|V1"), QByteArray("OK|PENDING")); };
    pantallas.EsperaValidar(1, u"authPago"_s, true, pregunta);
    dialogos.EsperaTexto(u"Pago"_s, testing::_, u"Pan"_s, testing::_, pregunta);
    dialogos.EsperaImporte(u"Pago"_s, testing::_, 500, false, pregunta);
    cliente.EsperaPay(500, 0, atasco);
    dialogos.EsperaMensaje(u"Pago anulado"_s, testing::_, Respuesta::Aceptar, std::nullopt,
                           contesta);
    botones.boton_Click(BotonPie::Pago);

    pantallas.EsperaValidar(2, u"authCobro"_s, true, pregunta);
    dialogos.EsperaTexto(u"Cobro manual"_s, testing::_, u"Pan"_s, testing::_, pregunta);
    dialogos.EsperaImporte(u"Cobro manual"_s, testing::_, 500, false, pregunta);
    cliente.EsperaCharge(500, 0, 0, atasco);
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, testing::_, Respuesta::Aceptar, std::nullopt,
                           contesta);
    botones.boton_Click(BotonPie::CobroManual);

    EXPECT_EQ(llegadas, 4);
    EXPECT_EQ(Database().Consultar(u"SELECT * FROM cola"_s).size(), 4U);
}

// Who authorises a float, and what a connection has to tell, is asked with the transaction open.
TEST_F(EnlaceFastTest, ASaleThatComesWhileAFloatIsAuthorisedOrALinkComesBackIsAnsweredBehindIt) {
    Cargar();
    Pulso().ProcesarCola();
    const auto socket = Conectar();
    const auto contesta = [&] {
        EXPECT_TRUE(Esperar([&] { return socket->bytesAvailable() > 0; }));
        EXPECT_EQ(socket->readAll(), QByteArray("OK|Added"));
    };
    BotonesMonitor& botones = monitor->Partes().botones;
    cliente.EsperaAddChange(2000);
    pantallas.EsperaValidar(2, u"authCambio"_s, true, [&] { LlegaYEspera(*socket, 1); });
    botones.boton_Click(BotonPie::AnadirCambio);
    contesta();

    cliente.EsperaChange(0, 0, FinGuion::EnlacePerdido());
    cliente.EsperaDisconnect();
    cliente.EsperaConnect(FinGuion::Error(1, u"Nadie responde"_s));
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, testing::_, Respuesta::Aceptar, std::nullopt,
                           [&] { LlegaYEspera(*socket, 2); });
    dialogos.EsperaMensaje(u"Dar cambio anulado"_s, u"1: Enlace perdido"_s, Respuesta::Aceptar,
                           std::nullopt, contesta);
    botones.boton_Click(BotonPie::DarCambio);
    EXPECT_EQ(Database().Consultar(u"SELECT * FROM cola"_s).size(), 2U);
}

TEST_F(EnlaceFastTest, SalesThatComeWhileRowsAreMarkedAndPaidAreAnsweredAndShowAfterwards) {
    Cargar();
    const auto socket = Conectar();
    EXPECT_EQ(Pregunta(*socket, "C|T1|700"), QByteArray("OK|Added"));
    EXPECT_EQ(Pregunta(*socket, "C|T2|300"), QByteArray("OK|Added"));
    Pulso().ProcesarCola();
    const PartesMonitor& partes = monitor->Partes();
    partes.botones.boton_Click(BotonPie::AgruparCobros);
    EXPECT_EQ(Pregunta(*socket, "C|T3|100"), QByteArray("OK|Added"));
    partes.clic.grdZV_MouseUp(1, ColumnaCola::Importe, false);
    partes.clic.grdZV_MouseUp(2, ColumnaCola::Importe, false);
    EXPECT_EQ(Grid().FilasDatos(), 2);
    // A level that somebody has left keeps nobody waiting, though no tick comes.
    Database().Comenzar();
    Database().Ejecutar(u"DELETE FROM historial"_s);
    EXPECT_EQ(Pregunta(*socket, "C|T4|100"), QByteArray("OK|Added"));

    pantallas.EsperaValidar(2, u"authCobro"_s, true, [&] {
        EXPECT_EQ(Pregunta(*socket, "C|T5|100"), QByteArray("OK|Added"));
    });
    cliente.EsperaCharge(1000, 1000, 0, FinGuion::Ok().Durante([&] {
        EXPECT_EQ(Pregunta(*socket, "C|T6|100"), QByteArray("OK|Added"));
        EXPECT_EQ(Pregunta(*socket, "S|T1"), QByteArray("OK|PENDING"));
    }));
    partes.botones.boton_Click(BotonPie::AgruparCobros);
    EXPECT_EQ(Grid().FilasDatos(), 4);
    EXPECT_EQ(Controles().lbContador, u"4 cobros"_s);
    EXPECT_EQ(Pregunta(*socket, "S|T1"), QByteArray("OK|CANCEL"));
    EXPECT_EQ(Pregunta(*socket, "S|T6"), QByteArray("OK|PENDING"));
}

TEST_F(EnlaceFastTest, SalesThatComeWhileThePulseStandsStoppedAreAnswered) {
    Cargar();
    const auto socket = Conectar();
    EXPECT_EQ(Pregunta(*socket, "C|T1|700"), QByteArray("OK|Added"));
    Pulso().ProcesarCola();
    cliente.EsperaDisconnect();
    const PartesMonitor& partes = monitor->Partes();
    partes.botones.boton_Click(BotonPie::Desconectar);
    partes.clic.grdZV_MouseUp(1, ColumnaCola::Importe, false);
    ASSERT_FALSE(Pulso().Armado());
    EXPECT_EQ(Pregunta(*socket, "C|T2|700"), QByteArray("OK|Added"));
    Database().Comenzar();
    Database().Ejecutar(u"DELETE FROM historial"_s);
    EXPECT_EQ(Pregunta(*socket, "C|T3|700"), QByteArray("OK|Added"));
    EXPECT_EQ(Pregunta(*socket, "S|T2"), QByteArray("OK|PENDING"));
}

TEST_F(EnlaceFastTest, APortInUseEndsTheStart) {
    QTcpServer otro;
    ASSERT_TRUE(otro.listen(QHostAddress(DireccionPropia()), 16501));
    EscribirIni();
    dialogos.EsperaMensaje(u"Error al iniciar la aplicación"_s,
                           u"Error nº 10048 - El puerto 16501 del ZVFast ya está en uso"_s);
    EXPECT_FALSE(monitor->Cargar());
    // The schema comes before it, the monitor's own connection after it.
    EXPECT_TRUE(QFile::exists(carpeta.filePath(u"ZVMonito2.mdb"_s)));
    EXPECT_FALSE(Database().Abierta());
}

TEST_F(EnlaceFastTest, APortThatIsNoNumberEndsTheStart) {
    EscribirIni("[CONECTOR]\r\nZVFastPort=puerto\r\n");
    dialogos.EsperaMensaje(
        u"Error al iniciar la aplicación"_s,
        testing::ResultOf(
            [](const QString& texto) { return texto.startsWith(u"Error nº 13 - "_s); }, true));
    EXPECT_FALSE(monitor->Cargar());
}

TEST_F(EnlaceFastTest, AChargeNeverJoinsAnAbandonedTransaction) {
    Cargar();
    Database().Comenzar();
    Database().Ejecutar(u"INSERT INTO cola (id1,importe) VALUES ('ABANDONADA',1)"_s);
    const auto socket = Conectar();
    EXPECT_EQ(Pregunta(*socket, "C|T1|1250"), QByteArray("OK|Added"));
    EXPECT_EQ(Database().Nivel(), 0);
    EXPECT_EQ(Pregunta(*socket, "S|ABANDONADA"), QByteArray("NOK|Not found"));
    EXPECT_TRUE(LineasLog().contains(u">>> Transacción abandonada: deshecha"_s));
}

TEST_F(EnlaceFastTest, NoChargeIsConfirmedWhileATransactionStandsOpen) {
    Cargar();
    const auto socket = Conectar();
    Pulso().ParaTimer(); // as every operation does
    EXPECT_EQ(Pregunta(*socket, "S|T1"), QByteArray("NOK|Not found"));

    for (const bool escrito : {false, true}) {
        Database().Comenzar();
        if (escrito) {
            Database().Ejecutar(u"DELETE FROM historial"_s);
        }
        const QByteArray id = escrito ? "T2" : "T1";
        socket->write("C|" + id + "|1250");
        ASSERT_TRUE(Esperar([&] { return monitor->Fast().MensajesEnCola() == 1; }));
        for (int i = 0; i < 3; ++i) {
            monitor->Fast().Tick();
        }
        EXPECT_EQ(monitor->Fast().MensajesEnCola(), 1u);
        // The operation is rolled back; the charge does not go with it.
        Database().Deshacer();
        ASSERT_TRUE(Esperar([&] { return socket->bytesAvailable() > 0; }));
        EXPECT_EQ(socket->readAll(), QByteArray("OK|Added"));
        EXPECT_EQ(Pregunta(*socket, "S|" + id), QByteArray("OK|PENDING"));
    }
}

// Change, float, pay-out and manual charge hold a transaction open while the device works: what a
// point of sale asks meanwhile is answered when it has ended, and is durable then.
TEST_F(EnlaceFastTest, ASaleThatComesDuringAManualOperationIsAnsweredAfterItAndNeverLost) {
    Cargar();
    Ajustes().PREGUNTARCTO = 0;
    const auto socket = Conectar();
    const auto pedir = [&](const QByteArray& id) {
        return FinGuion::Ok().Durante([&, id] {
            socket->write("C|" + id + "|700");
            ASSERT_TRUE(Esperar([&] { return monitor->Fast().MensajesEnCola() == 1; }));
            monitor->Fast().Tick();
            EXPECT_EQ(monitor->Fast().MensajesEnCola(), 1U);
            EXPECT_EQ(socket->bytesAvailable(), 0);
        });
    };
    const auto contestada = [&](const QByteArray& id) {
        SCOPED_TRACE(id.toStdString());
        ASSERT_TRUE(Esperar([&] { return socket->bytesAvailable() > 0; }));
        EXPECT_EQ(socket->readAll(), QByteArray("OK|Added"));
        EXPECT_EQ(Pregunta(*socket, "S|" + id), QByteArray("OK|PENDING"));
    };
    BotonesMonitor& pulsar = monitor->Partes().botones;

    cliente.EsperaChange(1000, 1000, pedir("VC"));
    pulsar.boton_Click(BotonPie::DarCambio);
    contestada("VC");

    cliente.EsperaAddChange(500, pedir("VI"));
    pantallas.EsperaValidar(2, u"authCambio"_s, true);
    pulsar.boton_Click(BotonPie::AnadirCambio);
    contestada("VI");

    pantallas.EsperaValidar(1, u"authPago"_s, true);
    dialogos.EsperaImporte(u"Pago"_s, u"Importe a pagar"_s, 300);
    cliente.EsperaPay(300, 300, pedir("VP"));
    pulsar.boton_Click(BotonPie::Pago);
    contestada("VP");

    pantallas.EsperaValidar(2, u"authCobro"_s, true);
    dialogos.EsperaImporte(u"Cobro manual"_s, u"Introduzca el importe"_s, 400);
    cliente.EsperaCharge(400, 400, 0, pedir("VM"));
    pulsar.boton_Click(BotonPie::CobroManual);
    contestada("VM");

    EXPECT_EQ(Database().Consultar(u"SELECT * FROM procesados"_s).size(), 4U);
    EXPECT_EQ(Database().Consultar(u"SELECT * FROM cola"_s).size(), 4U);
}

TEST_F(EnlaceFastTest, AScannedSaleNeverJoinsAnAbandonedTransaction) {
    Cargar("[BARCODE]\r\nBCEAN=6\r\nBCTPRE=1\r\nBCTINI=1\r\nBCTFIN=2\r\nBCIINI=3\r\nBCIFIN=6\r\n"
           "BCDEC=2\r\n");
    Database().Comenzar();
    monitor->Barras().Enter(u"A70950"_s, [] {});
    EXPECT_EQ(Database().Nivel(), 0);
    Database().Comenzar();
    Database().Ejecutar(u"DELETE FROM historial"_s);
    monitor->Barras().Enter(u"B80950"_s, [] {});
    SqliteEngine otro;
    otro.Abrir(
        CadenaConexion(u"MDB"_s, {}, monitor->Partes().entorno.conexion.RutaFichero(), {}, {}));
    EXPECT_EQ(static_cast<DatabaseEngine&>(otro).Consultar(u"SELECT * FROM cola"_s).size(), 2U);
}

TEST_F(EnlaceFastTest, AScannedCodeIsQueuedThoughTheDeviceIsDisconnected) {
    Cargar("[BARCODE]\r\nBCEAN=6\r\nBCTPRE=1\r\nBCTINI=1\r\nBCTFIN=2\r\nBCIINI=3\r\nBCIFIN=6\r\n"
           "BCDEC=2\r\n");
    cliente.EsperaDisconnect();
    monitor->Partes().botones.boton_Click(BotonPie::Desconectar);
    const auto socket = Conectar();
    socket->write("S|A7");
    bool vacia = false;
    QElapsedTimer desde;
    desde.start();
    monitor->Barras().Enter(u"A70950"_s, [&] { vacia = true; });
    EXPECT_GE(desde.elapsed(), 990);
    EXPECT_TRUE(vacia);
    // The fast link went on meanwhile.
    EXPECT_EQ(socket->readAll(), QByteArray("OK|PENDING"));
    Pulso().ProcesarCola();
    EXPECT_EQ(Grid().Celdas().Texto(1, ColumnaCola::Id1), u"A7"_s);
    EXPECT_EQ(Grid().Celdas().Texto(1, ColumnaCola::Importe), u"9,50 €"_s);
}

// The second behind a scan is a loop of its own, in which the floating button can be pressed.
TEST_F(EnlaceFastTest, AChargeThatBeginsInTheSecondBehindAScanIsWholeAndTheBoxIsEmptiedAfterIt) {
    Cargar("[BARCODE]\r\nBCEAN=6\r\nBCTPRE=1\r\nBCTINI=1\r\nBCTFIN=2\r\nBCIINI=3\r\nBCIFIN=6\r\n"
           "BCDEC=2\r\n");
    Pulso().ProcesarCola();
    const PartesMonitor& partes = monitor->Partes();
    int vaciada = 0;
    dialogos.EsperaImporte(u"Cobro manual"_s, testing::_, 400);
    cliente.EsperaCharge(400, 400, 0, FinGuion::Ok().Durante([&] {
        // For longer than the second: what is scanned meanwhile is dropped.
        QElapsedTimer desde;
        for (desde.start(); desde.elapsed() < 1200;) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        }
        EXPECT_EQ(vaciada, 0);
        monitor->Barras().Enter(u"B80950"_s, [&] { ++vaciada; });
        EXPECT_EQ(vaciada, 0);
    }));
    QTimer::singleShot(0, [&] { partes.botones.cobroManual(u"VENTA"_s); });
    monitor->Barras().Enter(u"A70950"_s, [&] { ++vaciada; });
    EXPECT_EQ(vaciada, 1);
    EXPECT_EQ(Database().Nivel(), 0);
    EXPECT_EQ(Database().Consultar(u"SELECT * FROM procesados"_s).size(), 1U);
    const auto cola = Database().Consultar(u"SELECT id1 FROM cola"_s);
    ASSERT_EQ(cola.size(), 1U);
    EXPECT_EQ(cola.front().LeerTexto(0), u"A7"_s);
    EXPECT_TRUE(Pulso().Armado());
}

} // namespace zv::test
