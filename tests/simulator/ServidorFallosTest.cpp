// What the faults of the link do to what the client sees.
#include "Mostrador.h"
#include "platform/StringLiterals.h"

#include <QElapsedTimer>
#include <QJsonArray>

#include <gtest/gtest.h>

namespace zv::simulador {
namespace {

const QJsonObject& ErrorDe(const QJsonObject& respuesta, QJsonObject& hueco) {
    hueco = respuesta.value(u"error"_s).toObject();
    return hueco;
}

TEST(FalloNoListo, RefusesTheStart) {
    Mostrador m(Guion::Exacto, u"cobro#1:nolisto=31"_s);
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    QJsonObject error;
    ErrorDe(c.Respuesta(c.Pedir(u"charge.start"_s, Cobro(u"a"_s, 100))), error);
    EXPECT_EQ(error.value(u"code"_s).toInt(), -32020);
    EXPECT_EQ(error.value(u"data"_s).toObject().value(u"errorCode"_s).toInt(), 31);
    EXPECT_EQ(error.value(u"message"_s).toString(), u"Cajón de recaudación lleno"_s);
    EXPECT_EQ(m.banco.aparato.Abierta(), nullptr);
    c.Resultado(u"charge.start"_s, Cobro(u"a"_s, 100));
    EXPECT_TRUE(c.Fin().value(u"ok"_s).toBool());
}

TEST(FalloError, OfAQueryIsAnErrorOfTheDevice) {
    Mostrador m(Guion::Exacto, u"niveles#1:error=3,conexion#1:error=6"_s);
    ClientePrueba c(m.servidor.Puerto());
    EXPECT_EQ(c.Error(u"session.hello"_s, {{u"protocol"_s, 1}}), -32020);
    EXPECT_EQ(c.Error(u"ping"_s), -32002);
    ClientePrueba d(m.servidor.Puerto());
    d.Saludar();
    QJsonObject error;
    ErrorDe(d.Respuesta(d.Pedir(u"levels.get"_s, {{u"type"_s, 2}})), error);
    EXPECT_EQ(error.value(u"code"_s).toInt(), -32020);
    EXPECT_EQ(error.value(u"data"_s).toObject().value(u"errorCode"_s).toInt(), 3);
    EXPECT_EQ(d.Error(u"levels.get"_s, {{u"type"_s, 2}}), 0);
}

TEST(FalloCortarAntes, LosesTheStart) {
    Mostrador m(Guion::Exacto, u"cobro#1:cortar=antes"_s);
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Pedir(u"charge.start"_s, Cobro(u"a"_s, 100));
    EXPECT_TRUE(c.Cerrado());
    EXPECT_EQ(m.banco.aparato.Abierta(), nullptr);
    ClientePrueba d(m.servidor.Puerto());
    d.Saludar();
    EXPECT_EQ(d.Error(u"op.status"_s, ConOpId(u"a"_s)), -32011);
    d.Resultado(u"charge.start"_s, Cobro(u"a"_s, 100));
    EXPECT_TRUE(d.Fin().value(u"ok"_s).toBool());
}

TEST(FalloCortarDurante, LosesTheProgressAndTheOperationGoesOn) {
    Mostrador m(Guion::Redondeo, u"cobro#1:cortar=durante"_s);
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Pedir(u"charge.start"_s, Cobro(u"a"_s, 1250));
    EXPECT_TRUE(c.Cerrado());
    EXPECT_TRUE(c.Avisos(u"op.progress"_s).empty());
    ASSERT_TRUE(Esperar([&] { return !m.banco.fines.empty(); }));
    ClientePrueba d(m.servidor.Puerto());
    const QJsonObject abierta = d.Saludar().value(u"openOp"_s).toObject();
    EXPECT_EQ(abierta.value(u"paidOut"_s).toInt(), 750);
    EXPECT_TRUE(abierta.value(u"ok"_s).toBool());
}

TEST(FalloCortarDespues, LosesTheResult) {
    Mostrador m(Guion::Redondeo, u"cobro#1:cortar=despues"_s);
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Pedir(u"charge.start"_s, Cobro(u"a"_s, 1250));
    EXPECT_TRUE(c.Cerrado());
    EXPECT_FALSE(c.Avisos(u"op.progress"_s).empty());
    EXPECT_TRUE(c.Avisos(u"op.result"_s).empty());
    ClientePrueba d(m.servidor.Puerto());
    EXPECT_EQ(d.Saludar().value(u"openOp"_s).toObject().value(u"state"_s).toString(), u"done"_s);
}

TEST(FalloCortarDurante, StrikesAtTheEndWhereNothingMoved) {
    Mostrador m(Guion::Manual, u"vaciado:cortar=durante"_s);
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Pedir(u"box.empty"_s, {{u"opId"_s, u"a"_s}, {u"device"_s, 0}});
    EXPECT_TRUE(c.Cerrado());
    EXPECT_TRUE(c.Avisos(u"op.result"_s).empty());
}

TEST(FalloCortar, OfAQueryLosesItOrItsAnswerOrOnlyTheLink) {
    for (const auto& [momento, respondida] :
         {std::pair{"antes", false}, {"durante", false}, {"despues", true}}) {
        Mostrador m(Guion::Manual, u"niveles:cortar="_s + QLatin1String(momento));
        ClientePrueba c(m.servidor.Puerto());
        c.Saludar();
        const int id = c.Pedir(u"levels.get"_s, {{u"type"_s, 2}});
        EXPECT_TRUE(c.Cerrado()) << momento;
        EXPECT_EQ(!c.Respuesta(id).isEmpty(), respondida) << momento;
    }
}

TEST(FalloCortar, KeepsEverybodyOutForAsLongAsItSays) {
    constexpr int kFuera = 200;
    Mostrador m(Guion::Redondeo, u"cobro#1:cortar=durante+%1,conexion#3:rechazar"_s.arg(kFuera));
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Pedir(u"charge.start"_s, Cobro(u"a"_s, 1250));
    ASSERT_TRUE(c.Cerrado());
    QElapsedTimer reloj;
    reloj.start();
    {
        ClientePrueba fuera(m.servidor.Puerto());
        EXPECT_TRUE(fuera.Cerrado());
        EXPECT_TRUE(fuera.Saludar().isEmpty());
    }
    EXPECT_LT(reloj.elapsed(), kFuera);
    ASSERT_TRUE(Esperar([&] { return reloj.elapsed() > kFuera; }));
    // Who was kept out has not been counted: this is the second connection.
    ClientePrueba d(m.servidor.Puerto());
    EXPECT_TRUE(d.Saludar().value(u"openOp"_s).toObject().value(u"ok"_s).toBool());
}

TEST(FalloTerminar, RefusesTheEndThatTheMonitorAsksFor) {
    Mostrador m(Guion::Manual, u"terminar#1:error=8"_s);
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Resultado(u"addChange.start"_s, ConOpId(u"a"_s));
    ASSERT_TRUE(Esperar([&] { return m.banco.aparato.Admite(); }));
    EXPECT_EQ(c.Error(u"op.finish"_s, ConOpId(u"a"_s)), -32020);
    EXPECT_TRUE(m.banco.aparato.Admite());
    c.Resultado(u"op.finish"_s, ConOpId(u"a"_s));
    EXPECT_TRUE(c.Fin().value(u"ok"_s).toBool());
}

TEST(FalloTerminar, LosesTheLinkBeforeDuringAndAfter) {
    for (const auto& [momento, acaba, respondida] :
         {std::tuple{"antes", false, false}, {"durante", true, false}, {"despues", true, true}}) {
        Mostrador m(Guion::Manual, u"terminar:cortar="_s + QLatin1String(momento));
        ClientePrueba c(m.servidor.Puerto());
        c.Saludar();
        c.Resultado(u"addChange.start"_s, ConOpId(u"a"_s));
        ASSERT_TRUE(Esperar([&] { return m.banco.aparato.Admite(); }));
        const int id = c.Pedir(u"op.finish"_s, ConOpId(u"a"_s));
        EXPECT_TRUE(c.Cerrado()) << momento;
        EXPECT_EQ(!c.Respuesta(id).isEmpty(), respondida) << momento;
        EXPECT_EQ(!m.banco.aparato.Admite(), acaba) << momento;
    }
}

TEST(FalloMatar, StrikesAtItsMoment) {
    struct Caso {
        const char* momento;
        bool empezada;
        bool acabada;
    };
    for (const auto& [momento, empezada, acabada] :
         {Caso{"antes", false, false}, {"durante", true, false}, {"despues", true, true}}) {
        Mostrador m(Guion::Redondeo, u"cobro:matar="_s + QLatin1String(momento));
        bool abierta = false;
        bool cerrada = false;
        Servidor servidor(m.banco.aparato, m.fallos, {}, [&] {
            abierta = m.banco.almacen.ultimo.abierta.has_value();
            cerrada = abierta && m.banco.almacen.ultimo.abierta->acabada;
            ++m.muertes;
        });
        QString error;
        ASSERT_TRUE(servidor.Escuchar(0, error));
        ClientePrueba c(servidor.Puerto());
        c.Saludar();
        c.Pedir(u"charge.start"_s, Cobro(u"a"_s, 1250));
        ASSERT_TRUE(Esperar([&] { return m.muertes > 0; })) << momento;
        EXPECT_EQ(abierta, empezada) << momento;
        EXPECT_EQ(cerrada, acabada) << momento;
    }
}

TEST(FalloLento, HoldsAllBackForThatLong) {
    constexpr int kEspera = 80;
    Mostrador m(Guion::Exacto, u"niveles#1:lento=%1"_s.arg(kEspera));
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    QElapsedTimer reloj;
    reloj.start();
    const int lenta = c.Pedir(u"levels.get"_s, {{u"type"_s, 2}});
    const int otra = c.Pedir(u"ping"_s);
    EXPECT_FALSE(c.Respuesta(otra).isEmpty());
    EXPECT_GE(reloj.elapsed(), kEspera - 1);
    EXPECT_FALSE(c.Respuesta(lenta).isEmpty());
    ASSERT_EQ(c.mensajes.size(), 3U);
    EXPECT_EQ(c.mensajes[1].value(u"id"_s).toInt(), lenta); // in their order
}

TEST(FalloRepetir, SendsEachNotificationTwice) {
    Mostrador m(Guion::Redondeo, u"cobro:repetir"_s);
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Resultado(u"charge.start"_s, Cobro(u"a"_s, 1250));
    ASSERT_TRUE(c.EsperarAviso(u"op.result"_s, 2));
    EXPECT_EQ(c.Avisos(u"op.result"_s)[0], c.Avisos(u"op.result"_s)[1]);
    EXPECT_EQ(c.Avisos(u"op.progress"_s).size(), 6U);
    EXPECT_EQ(m.banco.fines.size(), 1U);
}

TEST(FalloRepetir, SendsTheAnswerOfAQueryTwice) {
    Mostrador m(Guion::Manual, u"niveles:repetir"_s);
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Resultado(u"levels.get"_s, {{u"type"_s, 2}});
    c.Resultado(u"ping"_s);
    EXPECT_EQ(c.mensajes.size(), 4U);
}

TEST(FalloBasura, SendsALineThatIsNoMessageFirst) {
    Mostrador m(Guion::Exacto, u"cobro:basura"_s);
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    EXPECT_FALSE(c.Resultado(u"charge.start"_s, Cobro(u"a"_s, 100)).isEmpty());
    EXPECT_EQ(c.rarezas, 1);
}

TEST(FalloMudo, SendsNothingMoreOnThatConnection) {
    Mostrador m(Guion::Exacto, u"cobro:mudo"_s);
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Pedir(u"charge.start"_s, Cobro(u"a"_s, 100));
    c.Pedir(u"ping"_s);
    ASSERT_TRUE(Esperar([&] { return !m.banco.fines.empty(); }));
    ClientePrueba d(m.servidor.Puerto());
    EXPECT_TRUE(d.Saludar().value(u"openOp"_s).toObject().value(u"ok"_s).toBool());
    EXPECT_TRUE(c.Cerrado());
    EXPECT_EQ(c.mensajes.size(), 1U); // the hello
}

TEST(FalloRechazar, ClosesTheConnectionAtOnce) {
    Mostrador m(Guion::Exacto, u"conexion#1:rechazar"_s);
    ClientePrueba c(m.servidor.Puerto());
    EXPECT_TRUE(c.Conectado());
    EXPECT_TRUE(c.Cerrado());
    ClientePrueba d(m.servidor.Puerto());
    EXPECT_FALSE(d.Saludar().isEmpty());
}

TEST(FalloDescuadre, CountsWrongUntilTheReconcilingRun) {
    Mostrador m(Guion::Exacto, u"niveles#2:descuadre=-7"_s);
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    const auto centimos = [&] {
        const QJsonObject niveles = c.Resultado(u"levels.get"_s, {{u"type"_s, 2}});
        return niveles.value(u"levels"_s).toArray().at(0).toInt();
    };
    EXPECT_EQ(centimos(), 20);
    EXPECT_EQ(centimos(), 13);
    EXPECT_EQ(centimos(), 13);
    c.Resultado(u"cashBox.control"_s, {{u"opId"_s, u"a"_s}, {u"mode"_s, 0}});
    c.Fin();
    EXPECT_EQ(centimos(), 20);
}

TEST(Fallos, AppearInTheTrace) {
    Mostrador m(Guion::Exacto, u"niveles:basura"_s);
    QStringList sucesos;
    QObject::connect(&m.servidor, &Servidor::suceso, &m.servidor,
                     [&](const QString& linea) { sucesos.append(linea); });
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Resultado(u"levels.get"_s, {{u"type"_s, 2}});
    c.socket.disconnectFromHost();
    ASSERT_TRUE(Esperar([&] { return sucesos.size() >= 3; }));
    EXPECT_EQ(sucesos, (QStringList{u"conexión"_s, u"fallo niveles:basura"_s, u"desconexión"_s}));
}

} // namespace
} // namespace zv::simulador
