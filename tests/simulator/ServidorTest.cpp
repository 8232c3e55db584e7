// The gateway protocol over a real socket.
#include "Mostrador.h"
#include "platform/StringLiterals.h"

#include <QJsonArray>

#include <gtest/gtest.h>

namespace zv::simulador {
namespace {

int Entero(const QJsonObject& objeto, const char* nombre) {
    return objeto.value(QLatin1String(nombre)).toInt(-999);
}

QString Texto(const QJsonObject& objeto, const char* nombre) {
    return objeto.value(QLatin1String(nombre)).toString();
}

TEST(Saludo, TellsTheDevice) {
    Mostrador m;
    ClientePrueba c(m.servidor.Puerto());
    const QJsonObject hola = c.Saludar();
    EXPECT_EQ(Entero(hola, "protocol"), 1);
    EXPECT_EQ(Texto(hola, "device"), u"ZVSimulador"_s);
    EXPECT_EQ(Texto(hola, "storeId"), u"prueba"_s);
    EXPECT_EQ(Texto(hola, "currency"), u"EUR"_s);
    EXPECT_EQ(Entero(hola, "decimals"), 2);
    EXPECT_EQ(Entero(hola, "multiplier"), 100);
    EXPECT_TRUE(hola.contains(u"openOp"_s));
    EXPECT_TRUE(hola.value(u"openOp"_s).isNull());
}

TEST(Saludo, ComesFirst) {
    Mostrador m;
    ClientePrueba c(m.servidor.Puerto());
    EXPECT_EQ(c.Error(u"ping"_s), -32002);
    EXPECT_EQ(c.Error(u"charge.start"_s, Cobro(u"a"_s, 100)), -32002);
    EXPECT_EQ(c.Error(u"no.such"_s), -32002);
    EXPECT_EQ(m.banco.aparato.Abierta(), nullptr);
}

TEST(Saludo, OfAnotherVersionIsRefusedAndCountsAsNone) {
    Mostrador m;
    ClientePrueba c(m.servidor.Puerto());
    EXPECT_EQ(c.Error(u"session.hello"_s, {{u"protocol"_s, 2}}), -32003);
    EXPECT_EQ(c.Error(u"session.hello"_s), -32602);
    EXPECT_EQ(c.Error(u"ping"_s), -32002);
}

TEST(Saludo, MayBeRepeated) {
    Mostrador m;
    ClientePrueba c(m.servidor.Puerto());
    EXPECT_EQ(c.Saludar(), c.Saludar());
}

TEST(Peticiones, AreAnsweredWithTheirErrors) {
    Mostrador m;
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    EXPECT_EQ(c.Error(u"no.such"_s), -32601);
    EXPECT_EQ(c.Error(u"op.status"_s), -32602);
    EXPECT_EQ(c.Error(u"op.status"_s, ConOpId(u"x"_s)), -32011);
    EXPECT_EQ(c.Error(u"op.cancel"_s, ConOpId(u"x"_s)), -32011);
    EXPECT_EQ(c.Respuesta(c.Pedir(u"op.ack"_s, ConOpId(u"x"_s))).value(u"result"_s),
              QJsonValue(QJsonObject()));
    EXPECT_EQ(c.Respuesta(c.Pedir(u"ping"_s)).value(u"result"_s), QJsonValue(QJsonObject()));
}

TEST(Peticiones, WithWrongParamsStartNothing) {
    Mostrador m;
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    const QString opId = u"opId"_s;
    const QString value = u"value"_s;
    const QString mode = u"mode"_s;
    EXPECT_EQ(c.Error(u"charge.start"_s, {{value, 1}}), -32602);
    EXPECT_EQ(c.Error(u"charge.start"_s, Cobro(QString(), 1)), -32602);
    EXPECT_EQ(c.Error(u"charge.start"_s, Cobro(QString(65, u'x'), 1)), -32602);
    EXPECT_EQ(c.Error(u"charge.start"_s, {{opId, u"a"_s}}), -32602);
    EXPECT_EQ(c.Error(u"charge.start"_s, {{opId, u"a"_s}, {value, 1.5}}), -32602);
    EXPECT_EQ(c.Error(u"charge.start"_s, {{opId, u"a"_s}, {value, 2147483648.0}}), -32602);
    EXPECT_EQ(c.Error(u"charge.start"_s, {{opId, u"a"_s}, {value, u"12"_s}}), -32602);
    EXPECT_EQ(c.Error(u"pay.start"_s, Cobro(u"a"_s, 0)), -32602);
    EXPECT_EQ(c.Error(u"pay.start"_s, Cobro(u"a"_s, -5)), -32602);
    EXPECT_EQ(c.Error(u"cashBox.control"_s, {{opId, u"a"_s}, {mode, 3}}), -32602);
    EXPECT_EQ(c.Error(u"cashBox.control"_s, {{opId, u"a"_s}, {mode, 15}}), -32602);
    EXPECT_EQ(
        c.Error(u"cashBox.control"_s, {{opId, u"a"_s}, {mode, 15}, {u"remainingChange"_s, -1}}),
        -32602);
    EXPECT_EQ(c.Error(u"box.empty"_s, {{opId, u"a"_s}, {u"device"_s, 2}}), -32602);
    EXPECT_EQ(c.Error(u"levels.get"_s, {{u"type"_s, 5}}), -32602);
    EXPECT_EQ(c.Error(u"levels.get"_s), -32602);
    EXPECT_EQ(m.banco.aparato.Abierta(), nullptr);
    EXPECT_EQ(Texto(c.Resultado(u"charge.start"_s, Cobro(QString(64, u'x'), 1)), "state"),
              u"running"_s);
}

TEST(Lineas, ThatAreNoRequestGetAnErrorAndTheConnectionGoesOn) {
    Mostrador m;
    ClientePrueba c(m.servidor.Puerto());
    ASSERT_TRUE(c.Conectado());
    c.Crudo("{\"jsonrpc\":\"2.0\",\"id\":7}\n{\"id\":8,\"method\":\"ping\"}\n"
            "{\"jsonrpc\":\"2.0\",\"id\":{},\"method\":\"ping\"}\n");
    const auto codigo = [&](const QJsonValue& id) {
        return c.Respuesta(id).value(u"error"_s).toObject().value(u"code"_s).toInt();
    };
    EXPECT_EQ(codigo(7), -32600);
    EXPECT_EQ(codigo(8), -32600);
    EXPECT_EQ(codigo(QJsonValue::Null), -32600);
    EXPECT_FALSE(c.Saludar().isEmpty());
    c.Crudo("{\"jsonrpc\":\"2.0\",\"id\":\"x\",\"method\":\"ping\",\"params\":[1]}\n");
    EXPECT_EQ(codigo(u"x"_s), -32602);
}

TEST(Lineas, ThatAreNoObjectCloseTheConnection) {
    Mostrador m;
    for (const char* linea : {"hola\n", "[]\n", "\n", "{\"a\":\n", "\"x\"\n"}) {
        ClientePrueba c(m.servidor.Puerto());
        ASSERT_TRUE(c.Conectado());
        c.Crudo(linea);
        EXPECT_TRUE(c.Cerrado()) << linea;
        ASSERT_EQ(c.mensajes.size(), 1U);
        EXPECT_EQ(Entero(c.mensajes[0].value(u"error"_s).toObject(), "code"), -32700);
    }
}

TEST(Lineas, OfTheLargestSizeAreReadAndLongerOnesCloseTheConnection) {
    Mostrador m;
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    const QByteArray peticion = "{\"jsonrpc\":\"2.0\",\"id\":77,\"method\":\"ping\"}";
    c.Crudo(peticion + QByteArray(1'048'576 - 1 - peticion.size(), ' ') + '\n');
    EXPECT_FALSE(c.Respuesta(77).isEmpty());
    c.Crudo(peticion + QByteArray(1'048'576 - peticion.size(), ' '));
    EXPECT_TRUE(c.Cerrado());
}

TEST(Lineas, MayComeInPiecesAndManyAtOnce) {
    Mostrador m;
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Crudo(
        "{\"jsonrpc\":\"2.0\",\"id\":21,\"method\":\"ping\"}\r\n{\"jsonrpc\":\"2.0\",\"id\":22,");
    EXPECT_FALSE(c.Respuesta(21).isEmpty());
    c.Crudo("\"method\":\"ping\"}\n{\"jsonrpc\":\"2.0\",\"id\":23,\"method\":\"ping\"}\n");
    EXPECT_FALSE(c.Respuesta(22).isEmpty());
    EXPECT_FALSE(c.Respuesta(23).isEmpty());
}

TEST(Lineas, WithoutAnIdAreNotAnswered) {
    Mostrador m;
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Crudo("{\"jsonrpc\":\"2.0\",\"method\":\"charge.start\",\"params\":{\"opId\":\"a\","
            "\"value\":100}}\n");
    c.Resultado(u"ping"_s);
    EXPECT_EQ(c.mensajes.size(), 2U); // hello and ping
    EXPECT_EQ(m.banco.aparato.Abierta(), nullptr);
}

TEST(Operacion, TellsItsStartItsProgressAndItsEndInThatOrder) {
    Mostrador m;
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    const QJsonObject inicio = c.Resultado(u"charge.start"_s, Cobro(u"a"_s, 1250));
    EXPECT_EQ(Texto(inicio, "opId"), u"a"_s);
    EXPECT_EQ(Texto(inicio, "method"), u"charge.start"_s);
    EXPECT_EQ(Texto(inicio, "state"), u"running"_s);
    EXPECT_EQ(Entero(inicio, "paidIn"), 0);
    EXPECT_EQ(Entero(inicio, "paidOut"), 0);
    const QJsonObject fin = c.Fin();
    EXPECT_EQ(Texto(fin, "state"), u"done"_s);
    EXPECT_TRUE(fin.value(u"ok"_s).toBool());
    EXPECT_EQ(Entero(fin, "errorCode"), 0);
    EXPECT_EQ(Texto(fin, "errorMessage"), QString());
    EXPECT_EQ(Entero(fin, "paidIn"), 2000);
    EXPECT_EQ(Entero(fin, "paidOut"), 750);
    const auto progreso = c.Avisos(u"op.progress"_s);
    ASSERT_EQ(progreso.size(), 3U);
    EXPECT_EQ(Entero(progreso[0], "paidIn"), 2000);
    EXPECT_EQ(Entero(progreso[0], "paidOut"), 0);
    EXPECT_EQ(Entero(progreso[2], "paidOut"), 750);
    EXPECT_EQ(Texto(progreso[2], "state"), u"running"_s);
    EXPECT_EQ(c.mensajes.back().value(u"method"_s).toString(), u"op.result"_s);
    EXPECT_TRUE(m.banco.durables);
}

TEST(Operacion, OfTheBoxesTellsItsOwnMembers) {
    Inventario hay = Inventario::Inicial();
    hay.reciclador.at(*Indice(200)) = 35;
    Mostrador m(Guion::Manual, {}, {}, EstadoCon(hay));
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Resultado(u"cashBox.control"_s,
                {{u"opId"_s, u"a"_s}, {u"mode"_s, 7}, {u"remainingChange"_s, 0}});
    const QJsonObject cierre = c.Fin();
    EXPECT_EQ(Entero(cierre, "coinsValueInCB"), 1000);
    EXPECT_EQ(Entero(cierre, "notesValueInCB"), 0);
    EXPECT_EQ(Entero(cierre, "remainingChange"), hay.Saldo() - 1000);
    c.Resultado(u"op.ack"_s, ConOpId(u"a"_s));
    c.Resultado(u"box.empty"_s, {{u"opId"_s, u"b"_s}, {u"device"_s, 0}});
    ASSERT_TRUE(c.EsperarAviso(u"op.result"_s, 2));
    EXPECT_EQ(Entero(c.Fin(), "value"), 1000);
}

TEST(Operacion, WithTheSameOpIdNeverMovesMoneyTwice) {
    Mostrador m(Guion::Exacto);
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    const qint64 antes = m.banco.Saldo();
    c.Resultado(u"pay.start"_s, Cobro(u"a"_s, 500));
    const QJsonObject fin = c.Fin();
    // Done, with other params, even wrong ones, and by another method.
    EXPECT_EQ(c.Resultado(u"pay.start"_s, Cobro(u"a"_s, 500)), fin);
    EXPECT_EQ(c.Resultado(u"pay.start"_s, Cobro(u"a"_s, -1)), fin);
    EXPECT_EQ(c.Resultado(u"charge.start"_s, Cobro(u"a"_s, 900)), fin);
    c.Resultado(u"op.ack"_s, ConOpId(u"a"_s));
    EXPECT_EQ(c.Resultado(u"pay.start"_s, Cobro(u"a"_s, 500)), fin);
    EXPECT_EQ(m.banco.Saldo(), antes - 500);
    EXPECT_EQ(c.Avisos(u"op.result"_s).size(), 1U);
}

TEST(Operacion, WithTheSameOpIdAnswersTheRunningState) {
    Mostrador m(Guion::Manual);
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Resultado(u"charge.start"_s, Cobro(u"a"_s, 1250));
    ASSERT_TRUE(Esperar([&] { return m.banco.aparato.Admite(); }));
    m.banco.aparato.Meter(1000);
    EXPECT_EQ(Entero(c.Resultado(u"charge.start"_s, Cobro(u"a"_s, 1250)), "paidIn"), 1000);
}

TEST(Operacion, IsTheOnlyOneUntilItIsAcknowledged) {
    Mostrador m(Guion::Manual);
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    EXPECT_TRUE(c.Respuesta(c.Pedir(u"op.last"_s)).value(u"result"_s).isNull());
    c.Resultado(u"charge.start"_s, Cobro(u"a"_s, 1250));
    EXPECT_EQ(c.Error(u"pay.start"_s, Cobro(u"b"_s, 100)), -32010);
    c.Resultado(u"op.ack"_s,
                ConOpId(u"a"_s)); // it runs: nothing is forgotten
    EXPECT_EQ(Texto(c.Resultado(u"op.last"_s), "opId"), u"a"_s);
    c.Resultado(u"op.cancel"_s, ConOpId(u"a"_s));
    c.Fin();
    EXPECT_EQ(c.Error(u"pay.start"_s, Cobro(u"b"_s, 100)), -32010);
    EXPECT_EQ(Texto(c.Resultado(u"op.last"_s), "state"), u"done"_s);
    c.Pedir(u"op.ack"_s,
            ConOpId(u"a"_s)); // the next start does not wait for its answer
    EXPECT_EQ(Texto(c.Resultado(u"pay.start"_s, Cobro(u"b"_s, 100)), "opId"), u"b"_s);
}

TEST(Operacion, CancelledAnswersItsStateAndEndsSoonAfter) {
    Mostrador m(Guion::Manual);
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Resultado(u"charge.start"_s, Cobro(u"a"_s, 1250));
    ASSERT_TRUE(Esperar([&] { return m.banco.aparato.Admite(); }));
    m.banco.aparato.Meter(500);
    const QJsonObject entonces = c.Resultado(u"op.cancel"_s, ConOpId(u"a"_s));
    EXPECT_EQ(Texto(entonces, "state"), u"running"_s);
    EXPECT_EQ(Entero(entonces, "paidIn"), 500);
    const QJsonObject fin = c.Fin();
    EXPECT_FALSE(fin.value(u"ok"_s).toBool(true));
    EXPECT_EQ(Entero(fin, "errorCode"), 0);
    EXPECT_EQ(Entero(fin, "paidIn"), 500);
    EXPECT_EQ(Entero(fin, "paidOut"), 500);
    EXPECT_EQ(c.Resultado(u"op.cancel"_s, ConOpId(u"a"_s)),
              fin); // changes nothing any more
    EXPECT_EQ(c.Resultado(u"op.status"_s, ConOpId(u"a"_s)), fin);
}

TEST(Operacion, FinishedAnswersItsStateAndEndsWellSoonAfter) {
    Mostrador m(Guion::Manual);
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Resultado(u"change.start"_s, ConOpId(u"a"_s));
    ASSERT_TRUE(Esperar([&] { return m.banco.aparato.Admite(); }));
    m.banco.aparato.Meter(1000);
    const QJsonObject entonces = c.Resultado(u"op.finish"_s, ConOpId(u"a"_s));
    EXPECT_EQ(Texto(entonces, "state"), u"running"_s);
    EXPECT_EQ(Entero(entonces, "paidIn"), 1000);
    const QJsonObject fin = c.Fin();
    EXPECT_TRUE(fin.value(u"ok"_s).toBool());
    EXPECT_EQ(Entero(fin, "paidIn"), 1000);
    EXPECT_EQ(Entero(fin, "paidOut"), 1000);
    EXPECT_EQ(c.Resultado(u"op.finish"_s, ConOpId(u"a"_s)), fin); // changes nothing any more
    EXPECT_EQ(c.Avisos(u"op.result"_s).size(), 1U);
}

TEST(Operacion, ThatEndsByItselfCannotBeFinished) {
    Mostrador m(Guion::Manual);
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    EXPECT_EQ(c.Error(u"op.finish"_s, {}), -32602);
    EXPECT_EQ(c.Error(u"op.finish"_s, ConOpId(u"a"_s)), -32011);
    c.Resultado(u"charge.start"_s, Cobro(u"a"_s, 1250));
    EXPECT_EQ(c.Error(u"op.finish"_s, ConOpId(u"a"_s)), -32012);
    ASSERT_TRUE(Esperar([&] { return m.banco.aparato.Admite(); })); // it goes on
}

TEST(Niveles, AreOneForEachDenominationAscending) {
    Mostrador m(Guion::Manual);
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Resultado(u"charge.start"_s, Cobro(u"a"_s, 100)); // answered also while something runs
    for (const int tipo : {2, 3, 4}) {
        const QJsonObject niveles = c.Resultado(u"levels.get"_s, {{u"type"_s, tipo}});
        const QJsonArray noms = niveles.value(u"noms"_s).toArray();
        const QJsonArray levels = niveles.value(u"levels"_s).toArray();
        ASSERT_EQ(noms.size(), 14);
        ASSERT_EQ(levels.size(), 14);
        for (qsizetype i = 1; i < noms.size(); ++i) {
            EXPECT_LT(noms.at(i - 1).toInt(), noms.at(i).toInt());
        }
        EXPECT_EQ(levels.at(0).toInt(), tipo == 2 ? 20 : 0);
    }
    EXPECT_EQ(c.Respuesta(c.Pedir(u"device.configuration"_s)).value(u"result"_s),
              QJsonValue(QJsonObject()));
}

TEST(Conexion, ANewOneTakesThePlaceOfTheOld) {
    Mostrador m;
    ClientePrueba vieja(m.servidor.Puerto());
    vieja.Saludar();
    ClientePrueba nueva(m.servidor.Puerto());
    EXPECT_FALSE(nueva.Saludar().isEmpty());
    EXPECT_TRUE(vieja.Cerrado());
    EXPECT_FALSE(nueva.Resultado(u"op.last"_s).contains(u"x"_s));
    EXPECT_EQ(nueva.socket.state(), QAbstractSocket::ConnectedState);
}

TEST(Conexion, ThatDropsLetsTheOperationGoOnAndIsPickedUpAgain) {
    Mostrador m(Guion::Manual);
    {
        ClientePrueba c(m.servidor.Puerto());
        c.Saludar();
        c.Resultado(u"charge.start"_s, Cobro(u"a"_s, 1250));
    }
    ASSERT_TRUE(Esperar([&] { return !m.servidor.HayCliente(); }));
    m.banco.aparato.Meter(1000);
    ClientePrueba c(m.servidor.Puerto());
    const QJsonObject abierta = c.Saludar().value(u"openOp"_s).toObject();
    EXPECT_EQ(Texto(abierta, "opId"), u"a"_s);
    EXPECT_EQ(Texto(abierta, "state"), u"running"_s);
    EXPECT_EQ(Entero(abierta, "paidIn"), 1000);
    EXPECT_EQ(c.Resultado(u"op.status"_s, ConOpId(u"a"_s)), abierta);
    m.banco.aparato.Meter(200);
    m.banco.aparato.Meter(50);
    EXPECT_EQ(Entero(c.Fin(), "paidIn"), 1250);
}

TEST(Conexion, HearsNothingBeforeItsHello) {
    Mostrador m(Guion::Manual);
    {
        ClientePrueba c(m.servidor.Puerto());
        c.Saludar();
        c.Resultado(u"charge.start"_s, Cobro(u"a"_s, 1000));
    }
    ClientePrueba c(m.servidor.Puerto());
    c.Error(u"ping"_s);
    m.banco.Meter({1000});
    const QJsonObject abierta = c.Saludar().value(u"openOp"_s).toObject();
    EXPECT_EQ(Texto(abierta, "state"), u"done"_s);
    EXPECT_TRUE(c.Avisos(u"op.result"_s).empty());
}

TEST(Ausencia, CancelsTheOperationAndKeepsItsResult) {
    Mostrador m(Guion::Manual, {}, {.ausenteMs = 30, .silencioMs = 15'000});
    {
        ClientePrueba c(m.servidor.Puerto());
        c.Saludar();
        c.Resultado(u"charge.start"_s, Cobro(u"a"_s, 1250));
        ASSERT_TRUE(Esperar([&] { return m.banco.aparato.Admite(); }));
        m.banco.aparato.Meter(1000);
        // With its client there it waits as long as it takes: far longer than the limit.
        EXPECT_FALSE(Esperar([&] { return !m.banco.fines.empty(); }, 150));
    }
    ASSERT_TRUE(Esperar([&] { return !m.banco.fines.empty(); }));
    EXPECT_TRUE(m.banco.aparato.Abierta()->acabada);
    ClientePrueba c(m.servidor.Puerto());
    const QJsonObject abierta = c.Saludar().value(u"openOp"_s).toObject();
    EXPECT_EQ(Entero(abierta, "errorCode"), 0);
    EXPECT_FALSE(abierta.value(u"ok"_s).toBool(true));
    EXPECT_EQ(Entero(abierta, "paidOut"), 1000);
}

TEST(Ausencia, EndsWithTheHelloNotWithTheConnectionAlone) {
    Mostrador m(Guion::Manual, {}, {.ausenteMs = 60, .silencioMs = 15'000});
    {
        ClientePrueba c(m.servidor.Puerto());
        c.Saludar();
        c.Resultado(u"charge.start"_s, Cobro(u"a"_s, 1250));
    }
    ClientePrueba c(m.servidor.Puerto());
    EXPECT_EQ(c.Error(u"ping"_s), -32002);
    m.banco.aparato.Meter(100); // what moves meanwhile does not count as a client either
    EXPECT_TRUE(Esperar([&] { return !m.banco.fines.empty(); }));
}

TEST(Ausencia, IsThirtySecondsUnlessToldOtherwise) {
    EXPECT_EQ(Servidor::Tiempos{}.ausenteMs, 30'000);
    EXPECT_EQ(Servidor::Tiempos{}.silencioMs, 15'000);
}

TEST(Silencio, DropsAClientThatIsGoneWhileAnOperationRuns) {
    Mostrador m(Guion::Manual, {}, {.ausenteMs = 30'000, .silencioMs = 40});
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    EXPECT_FALSE(Esperar([&] { return !m.servidor.HayCliente(); }, 150)); // idle: it may be silent
    c.Resultado(u"charge.start"_s, Cobro(u"a"_s, 1250));
    EXPECT_TRUE(c.Cerrado());
}

TEST(Servidor, TellsInPlainWordsThatThePortIsTaken) {
    Mostrador uno;
    Mostrador otro;
    ASSERT_TRUE(uno.bien && otro.bien);
    Servidor tercero(uno.banco.aparato, uno.fallos, {}, [] {});
    QString error;
    EXPECT_FALSE(tercero.Escuchar(otro.servidor.Puerto(), error));
    EXPECT_EQ(error, u"el puerto %1 está ocupado"_s.arg(otro.servidor.Puerto()));
}

} // namespace
} // namespace zv::simulador
