// The server with real sockets: opening, indices, one receive event one message, the pump.
#include "fastlink/BancoFast.h"
#include "platform/StringLiterals.h"

#include <QHash>

namespace zv::test {
namespace {

using ServidorFastTest = BancoFast;

TEST_F(ServidorFastTest, StaysClosedWhileTheLinkIsOffAndOpensWithoutARestart) {
    configuracio->zvFastActive = false;
    servidor.AbrirFast();
    EXPECT_FALSE(servidor.WS().Escuchando());
    configuracio->zvFastActive = true;
    servidor.AbrirFast();
    EXPECT_TRUE(servidor.WS().Escuchando());
    configuracio->zvFastActive = false;
    servidor.AbrirFast();
    EXPECT_FALSE(servidor.WS().Escuchando());
}

TEST_F(ServidorFastTest, APortThatIsNoPortIsTheCallersFailure) {
    const auto fallo = [&](const QString& puerto) {
        configuracio->ZVFastPort = puerto;
        try {
            servidor.AbrirFast();
        } catch (const ErrorEjecucion& e) {
            return e.Numero();
        }
        return 0;
    };
    EXPECT_EQ(fallo(u"puerto"_s), 13);
    EXPECT_EQ(fallo(QString()), 13);
    EXPECT_EQ(fallo(u"99999999999"_s), 6);
    EXPECT_EQ(fallo(u"65536"_s), 380);
    EXPECT_EQ(fallo(u"-1"_s), 380);
    EXPECT_FALSE(servidor.WS().Escuchando());

    QTcpServer otro;
    ASSERT_TRUE(otro.listen(QHostAddress::LocalHost, 0));
    EXPECT_EQ(fallo(QString::number(otro.serverPort())), 10048);
}

TEST_F(ServidorFastTest, AnswersWithoutATerminatorAndLogsBothWays) {
    servidor.AbrirFast();
    const auto cliente = Conectar();
    EXPECT_EQ(Pregunta(*cliente, "C|T0001|1250|A|3|TPV1|ANA|EFECTIVO"), QByteArray("OK|Added"));
    EXPECT_EQ(Pregunta(*cliente, "S|T0001"), QByteArray("OK|PENDING"));
    EXPECT_EQ(log.lineasFast, (QStringList{u"R: C|T0001|1250|A|3|TPV1|ANA|EFECTIVO"_s,
                                           u"E: OK|Added"_s, u"R: S|T0001"_s, u"E: OK|PENDING"_s}));
    EXPECT_EQ(log.lineas, QStringList());
    EXPECT_EQ(preparados, 2);
}

TEST_F(ServidorFastTest, TextIsInTheSingleByteCodePage) {
    servidor.AbrirFast();
    const auto cliente = Conectar();
    EXPECT_EQ(Pregunta(*cliente, "C|Ca\xF1"
                                 "a\x80|5"),
              QByteArray("OK|Added"));
    EXPECT_EQ(base.Cuenta(u"cola"_s, u"id1='Caña€'"_s), 1);
    EXPECT_EQ(log.lineasFast.at(0), u"R: C|Caña€|5"_s);
    motor.Ejecutar(u"INSERT INTO procesados (id1,id2,estado) VALUES ('E','','Añ')"_s);
    EXPECT_EQ(Pregunta(*cliente, "S|E"), QByteArray("OK|A\xF1"));
}

TEST_F(ServidorFastTest, ATextWithoutABarIsLoggedAndDropped) {
    servidor.AbrirFast();
    const auto cliente = Conectar();
    cliente->write("HELLO");
    ASSERT_TRUE(Esperar([&] { return !log.lineasFast.isEmpty(); }));
    EXPECT_EQ(log.lineasFast, QStringList{u"R: HELLO"_s});
    EXPECT_EQ(servidor.MensajesEnCola(), 0u);
    EXPECT_FALSE(servidor.TmrActivo());
    EXPECT_EQ(Pregunta(*cliente, "S|X"), QByteArray("NOK|Not found"));
}

TEST_F(ServidorFastTest, TwoMessagesInOnePieceAreOne) {
    servidor.AbrirFast();
    const auto cliente = Conectar();
    // The second command becomes further fields of the first.
    EXPECT_EQ(Pregunta(*cliente, "C|A|5S|A"), QByteArray("NOK|Amount too big"));
    EXPECT_EQ(Pregunta(*cliente, "C|B|5|S|7"), QByteArray("OK|Added"));
    EXPECT_EQ(base.Cuenta(u"cola"_s, u"id1='B' AND id2='S' AND idcaja=7"_s), 1);
}

TEST_F(ServidorFastTest, AMessageInTwoPiecesIsTwo) {
    servidor.AbrirFast();
    const auto cliente = Conectar();
    cliente->write("C|A");
    ASSERT_TRUE(Esperar([&] { return log.lineasFast.contains(u"R: C|A"_s); }));
    cliente->write("BC1");
    ASSERT_TRUE(Esperar([&] { return log.lineasFast.contains(u"R: BC1"_s); }));
    ASSERT_TRUE(Esperar([&] { return cliente->bytesAvailable() > 0; }));
    EXPECT_EQ(cliente->readAll(), QByteArray("OK|Added"));
    EXPECT_EQ(base.Cuenta(u"cola"_s, u"id1='A'"_s), 1);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
}

TEST_F(ServidorFastTest, ManyPacketsAndManyFieldsLoseNothing) {
    servidor.AbrirFast();
    const auto cliente = Conectar();
    // A megabyte comes in pieces: those with a bar are messages, answered with what they hold.
    const QByteArray mega = "C|MEGA|5|" + QByteArray(1 << 20, 'z');
    cliente->write(mega);
    ASSERT_TRUE(Esperar([&] {
        qsizetype letras = 0;
        for (const QString& linea : std::as_const(log.lineasFast)) {
            letras += linea.startsWith(u"R: "_s) ? linea.size() - 3 : 0;
        }
        return letras == mega.size();
    }));
    ASSERT_TRUE(Esperar([&] { return cliente->bytesAvailable() > 0; }));
    EXPECT_EQ(cliente->readAll(), QByteArray("OK|Added"));
    EXPECT_EQ(base.Cuenta(u"cola"_s, u"id1='MEGA'"_s), 1);
    EXPECT_EQ(Pregunta(*cliente, "C|CAMPOS|5" + QByteArray(10000, '|')), QByteArray("OK|Added"));
}

TEST_F(ServidorFastTest, EveryByteInEveryFieldIsAnswered) {
    servidor.AbrirFast();
    const auto cliente = Conectar();
    int altas = 0;
    for (int byte = 0; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        const QByteArray campo(1, c);
        const QByteArray mensaje = "C|I" + QByteArray::number(byte) + campo + "|5|" + campo + "|" +
                                   campo + "|" + campo + "|" + campo + "|" + campo;
        const QByteArray respuesta = Pregunta(*cliente, mensaje);
        // A bar is one more field, and nothing of it is an amount; no text holds a NUL.
        EXPECT_EQ(respuesta, c == '|'    ? QByteArray("NOK|Amount too big")
                             : c == '\0' ? QByteArray("NOK|Failed")
                                         : QByteArray("OK|Added"))
            << byte;
        altas += respuesta == "OK|Added" ? 1 : 0;
        const QByteArray importe =
            Pregunta(*cliente, "C|J" + QByteArray::number(byte) + "|" + campo);
        EXPECT_TRUE(importe == "OK|Added" || importe == "NOK|Amount too big") << byte;
        EXPECT_EQ(importe == "OK|Added", byte >= '0' && byte <= '9') << byte;
        const QByteArray orden = Pregunta(*cliente, campo + "|K" + QByteArray::number(byte));
        EXPECT_TRUE(orden.startsWith("NOK|") || orden.startsWith("OK|")) << byte;
    }
    EXPECT_EQ(base.Cuenta(u"cola"_s, u"id1 LIKE 'I%'"_s), altas);
}

TEST_F(ServidorFastTest, ANewConnectionTakesTheLowestClosedIndex) {
    servidor.AbrirFast();
    std::vector<std::unique_ptr<QTcpSocket>> clientes;
    for (qint16 i = 1; i <= 5; ++i) {
        clientes.push_back(Conectar());
        ASSERT_TRUE(EsperaConectado(i));
    }
    EXPECT_EQ(servidor.WS().NumSockets(), 5);
    for (const std::size_t i : {1u, 3u, 4u}) {
        clientes[i]->disconnectFromHost();
        ASSERT_TRUE(EsperaCerrado(static_cast<qint16>(i + 1)));
    }
    const auto nuevo = Conectar();
    ASSERT_TRUE(EsperaConectado(2));
    EXPECT_FALSE(servidor.WS().Conectado(4));
    EXPECT_EQ(servidor.WS().NumSockets(), 5);
    EXPECT_EQ(Pregunta(*nuevo, "S|X"), QByteArray("NOK|Not found"));
    EXPECT_EQ(Pregunta(*clientes[0], "S|X"), QByteArray("NOK|Not found"));
}

TEST_F(ServidorFastTest, AChangedPortKeepsTheConnectionsThatStand) {
    servidor.AbrirFast();
    const quint16 viejo = servidor.WS().Puerto();
    const auto antiguo = Conectar();
    ASSERT_TRUE(EsperaConectado(1));
    QTcpServer libre;
    ASSERT_TRUE(libre.listen(QHostAddress::LocalHost, 0));
    const quint16 nuevo = libre.serverPort();
    libre.close();
    configuracio->ZVFastPort = QString::number(nuevo);
    servidor.AbrirFast();
    EXPECT_EQ(servidor.WS().Puerto(), nuevo);

    EXPECT_EQ(Pregunta(*antiguo, "C|A|5"), QByteArray("OK|Added"));
    const auto otro = Conectar();
    EXPECT_EQ(Pregunta(*otro, "S|A"), QByteArray("OK|PENDING"));
    QTcpSocket tarde;
    tarde.connectToHost(QHostAddress::LocalHost, viejo);
    EXPECT_TRUE(Esperar([&] { return tarde.error() == QAbstractSocket::ConnectionRefusedError; }));
}

TEST_F(ServidorFastTest, OneTickAnswersOneMessageAndTheTimerEndsOnAnEmptyQueue) {
    esperar = true; // the event loop's own ticks do nothing
    servidor.AbrirFast();
    const auto uno = Conectar();
    ASSERT_TRUE(EsperaConectado(1));
    const auto dos = Conectar();
    ASSERT_TRUE(EsperaConectado(2));
    uno->write("C|A|1");
    ASSERT_TRUE(EsperaEnCola(1));
    dos->write("C|B|2");
    ASSERT_TRUE(EsperaEnCola(2));
    uno->write("S|A");
    ASSERT_TRUE(EsperaEnCola(3));
    EXPECT_TRUE(servidor.TmrActivo());
    EXPECT_EQ(base.Cuenta(u"cola"_s), 0);

    esperar = false;
    for (std::size_t quedan = 3; quedan > 0; --quedan) {
        ASSERT_EQ(servidor.MensajesEnCola(), quedan);
        servidor.Tick();
    }
    EXPECT_EQ(log.lineasFast.mid(3),
              (QStringList{u"E: OK|Added"_s, u"E: OK|Added"_s, u"E: OK|PENDING"_s}));
    EXPECT_TRUE(servidor.TmrActivo());
    servidor.Tick();
    EXPECT_FALSE(servidor.TmrActivo());
    EXPECT_EQ(base.Cuenta(u"cola"_s, u"idZV=1 AND id1='A'"_s), 1);
}

TEST_F(ServidorFastTest, MessagesWaitWhileThereIsNoStore) {
    visibles = nullptr;
    servidor.AbrirFast();
    const auto cliente = Conectar();
    cliente->write("C|A|1");
    ASSERT_TRUE(EsperaEnCola(1));
    servidor.Tick();
    EXPECT_EQ(servidor.MensajesEnCola(), 1u);
    visibles = &datos;
    ASSERT_TRUE(Esperar([&] { return cliente->bytesAvailable() > 0; }));
    EXPECT_EQ(cliente->readAll(), QByteArray("OK|Added"));
}

TEST_F(ServidorFastTest, AClientThatHasGoneGetsItsRowAndNoAnswer) {
    esperar = true;
    servidor.AbrirFast();
    auto cliente = Conectar();
    ASSERT_TRUE(EsperaConectado(1));
    cliente->write("C|A|1");
    ASSERT_TRUE(EsperaEnCola(1));
    cliente->abort();
    ASSERT_TRUE(EsperaCerrado(1));
    esperar = false;
    servidor.Tick();
    EXPECT_EQ(base.Cuenta(u"cola"_s, u"id1='A'"_s), 1);
    EXPECT_EQ(log.lineasFast, QStringList{u"R: C|A|1"_s});
}

TEST_F(ServidorFastTest, AnAnswerIsNotForANewcomerOnTheSameIndex) {
    esperar = true;
    servidor.AbrirFast();
    auto cliente = Conectar();
    ASSERT_TRUE(EsperaConectado(1));
    cliente->write("C|A|1");
    ASSERT_TRUE(EsperaEnCola(1));
    cliente->abort();
    ASSERT_TRUE(EsperaCerrado(1));
    // Somebody else takes the index: the answer is not for them.
    const auto otro = Conectar();
    ASSERT_TRUE(EsperaConectado(1));
    esperar = false;
    servidor.Tick();
    EXPECT_EQ(base.Cuenta(u"cola"_s, u"id1='A'"_s), 1);
    EXPECT_EQ(log.lineasFast, QStringList{u"R: C|A|1"_s});
    EXPECT_EQ(Pregunta(*otro, "S|A"), QByteArray("OK|PENDING"));
}

TEST_F(ServidorFastTest, WhatAClientSendsWithItsFarewellIsAMessage) {
    servidor.AbrirFast();
    for (int i = 0; i < 20; ++i) {
        auto cliente = Conectar();
        cliente->write("C|F" + QByteArray::number(i) + "|1");
        cliente->disconnectFromHost();
        ASSERT_TRUE(Esperar([&] { return cliente->state() == QAbstractSocket::UnconnectedState; }));
    }
    EXPECT_TRUE(Esperar([&] { return base.Cuenta(u"cola"_s) == 20; }));
}

TEST_F(ServidorFastTest, AFailedInsertionIsToldToThatClientAndTheNext) {
    servidor.AbrirFast();
    const auto cliente = Conectar();
    {
        GanchoFallos fallos(motor);
        fallos.Falla(Statement::Kind::Escritura, u"INSERT INTO"_s, 1);
        EXPECT_EQ(Pregunta(*cliente, "C|A|1"), QByteArray("NOK|Failed"));
    }
    EXPECT_EQ(Pregunta(*cliente, "C|B|1"), QByteArray("NOK|Failed"));
    EXPECT_EQ(log.lineas, QStringList());
    EXPECT_EQ(base.Cuenta(u"cola"_s), 0);
}

TEST_F(ServidorFastTest, ALookUpThatTheDatabaseRefusesIsToldAndLogged) {
    servidor.AbrirFast();
    const auto cliente = Conectar();
    {
        GanchoFallos fallos(motor);
        fallos.Falla(Statement::Kind::Lectura, u"FROM Procesados"_s, 3);
        EXPECT_EQ(Pregunta(*cliente, "S|A"), QByteArray("NOK|Failed"));
        EXPECT_EQ(Pregunta(*cliente, "C|A|1"), QByteArray("NOK|Failed"));
        EXPECT_EQ(log.Toma(),
                  QStringList(2, u">>> Error nº 5 en el enlace ZVFast - database is locked"_s));
        // Nor does a log that cannot be written matter.
        log.fallosPendientes = 1;
        EXPECT_EQ(Pregunta(*cliente, "S|A"), QByteArray("NOK|Failed"));
    }
    EXPECT_EQ(Pregunta(*cliente, "C|A|1"), QByteArray("OK|Added"));
}

TEST_F(ServidorFastTest, WithoutAGuardAnOpenTransactionCoversTheRow) {
    servidor.AbrirFast();
    const auto cliente = Conectar();
    motor.Comenzar();
    EXPECT_EQ(Pregunta(*cliente, "C|A|1"), QByteArray("OK|Added"));
    EXPECT_EQ(base.Otro()->Consultar(u"SELECT * FROM cola"_s).size(), 0u);
    motor.Confirmar();
    EXPECT_EQ(base.Otro()->Consultar(u"SELECT * FROM cola"_s).size(), 1u);
}

TEST_F(ServidorFastTest, FiftyClientsKeepTheirOrderAndLoseNothing) {
    servidor.AbrirFast();
    constexpr int kClientes = 50;
    constexpr int kVueltas = 10;
    struct Cliente {
        std::unique_ptr<QTcpSocket> socket;
        int hechos = 0;
    };
    std::vector<Cliente> clientes(kClientes);
    int terminados = 0;
    for (int i = 0; i < kClientes; ++i) {
        Cliente& c = clientes[static_cast<std::size_t>(i)];
        c.socket = Conectar();
        const auto envia = [&c, i] {
            c.socket->write("C|" + QByteArray::number(i) + "-" + QByteArray::number(c.hechos) +
                            "|1");
        };
        QObject::connect(c.socket.get(), &QTcpSocket::readyRead, c.socket.get(), [&, envia] {
            EXPECT_EQ(c.socket->readAll(), QByteArray("OK|Added"));
            if (++c.hechos < kVueltas) {
                envia();
            } else {
                ++terminados;
            }
        });
        envia();
    }
    ASSERT_TRUE(Esperar([&] { return terminados == kClientes; }, 20000));
    QHash<QString, int> ultimo;
    for (const Row& fila : motor.Consultar(u"SELECT id1 FROM cola ORDER BY idZV"_s)) {
        const QStringList partes = fila.LeerTexto(0).split(u'-');
        EXPECT_EQ(partes.at(1).toInt(), ultimo.value(partes.at(0), -1) + 1);
        ultimo[partes.at(0)] = partes.at(1).toInt();
    }
    EXPECT_EQ(base.Cuenta(u"cola"_s), kClientes * kVueltas);
}

} // namespace
} // namespace zv::test
