// What the faults of the link do to what the client sees.
#include "Mostrador.h"

#include <QElapsedTimer>
#include <QJsonArray>

#include <gtest/gtest.h>

namespace zv::simulador {
namespace {

const QJsonObject& ErrorDe(const QJsonObject& respuesta, QJsonObject& hueco) {
    hueco = respuesta.value(QStringLiteral("error")).toObject();
    return hueco;
}

TEST(FalloNoListo, RefusesTheStart) {
    Mostrador m(Guion::Exacto, QStringLiteral("cobro#1:nolisto=31"));
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    QJsonObject error;
    ErrorDe(c.Respuesta(c.Pedir(QStringLiteral("charge.start"), Cobro(QStringLiteral("a"), 100))),
            error);
    EXPECT_EQ(error.value(QStringLiteral("code")).toInt(), -32020);
    EXPECT_EQ(
        error.value(QStringLiteral("data")).toObject().value(QStringLiteral("errorCode")).toInt(),
        31);
    EXPECT_EQ(error.value(QStringLiteral("message")).toString(),
              QStringLiteral("Cajón de recaudación lleno"));
    EXPECT_EQ(m.banco.aparato.Abierta(), nullptr);
    c.Resultado(QStringLiteral("charge.start"), Cobro(QStringLiteral("a"), 100));
    EXPECT_TRUE(c.Fin().value(QStringLiteral("ok")).toBool());
}

TEST(FalloError, OfAQueryIsAnErrorOfTheDevice) {
    Mostrador m(Guion::Exacto, QStringLiteral("niveles#1:error=3,conexion#1:error=6"));
    ClientePrueba c(m.servidor.Puerto());
    EXPECT_EQ(c.Error(QStringLiteral("session.hello"), {{QStringLiteral("protocol"), 1}}), -32020);
    EXPECT_EQ(c.Error(QStringLiteral("ping")), -32002);
    ClientePrueba d(m.servidor.Puerto());
    d.Saludar();
    QJsonObject error;
    ErrorDe(d.Respuesta(d.Pedir(QStringLiteral("levels.get"), {{QStringLiteral("type"), 2}})),
            error);
    EXPECT_EQ(error.value(QStringLiteral("code")).toInt(), -32020);
    EXPECT_EQ(
        error.value(QStringLiteral("data")).toObject().value(QStringLiteral("errorCode")).toInt(),
        3);
    EXPECT_EQ(d.Error(QStringLiteral("levels.get"), {{QStringLiteral("type"), 2}}), 0);
}

TEST(FalloCortarAntes, LosesTheStart) {
    Mostrador m(Guion::Exacto, QStringLiteral("cobro#1:cortar=antes"));
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Pedir(QStringLiteral("charge.start"), Cobro(QStringLiteral("a"), 100));
    EXPECT_TRUE(c.Cerrado());
    EXPECT_EQ(m.banco.aparato.Abierta(), nullptr);
    ClientePrueba d(m.servidor.Puerto());
    d.Saludar();
    EXPECT_EQ(d.Error(QStringLiteral("op.status"), ConOpId(QStringLiteral("a"))), -32011);
    d.Resultado(QStringLiteral("charge.start"), Cobro(QStringLiteral("a"), 100));
    EXPECT_TRUE(d.Fin().value(QStringLiteral("ok")).toBool());
}

TEST(FalloCortarDurante, LosesTheProgressAndTheOperationGoesOn) {
    Mostrador m(Guion::Redondeo, QStringLiteral("cobro#1:cortar=durante"));
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Pedir(QStringLiteral("charge.start"), Cobro(QStringLiteral("a"), 1250));
    EXPECT_TRUE(c.Cerrado());
    EXPECT_TRUE(c.Avisos(QStringLiteral("op.progress")).empty());
    ASSERT_TRUE(Esperar([&] { return !m.banco.fines.empty(); }));
    ClientePrueba d(m.servidor.Puerto());
    const QJsonObject abierta = d.Saludar().value(QStringLiteral("openOp")).toObject();
    EXPECT_EQ(abierta.value(QStringLiteral("paidOut")).toInt(), 750);
    EXPECT_TRUE(abierta.value(QStringLiteral("ok")).toBool());
}

TEST(FalloCortarDespues, LosesTheResult) {
    Mostrador m(Guion::Redondeo, QStringLiteral("cobro#1:cortar=despues"));
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Pedir(QStringLiteral("charge.start"), Cobro(QStringLiteral("a"), 1250));
    EXPECT_TRUE(c.Cerrado());
    EXPECT_FALSE(c.Avisos(QStringLiteral("op.progress")).empty());
    EXPECT_TRUE(c.Avisos(QStringLiteral("op.result")).empty());
    ClientePrueba d(m.servidor.Puerto());
    EXPECT_EQ(d.Saludar()
                  .value(QStringLiteral("openOp"))
                  .toObject()
                  .value(QStringLiteral("state"))
                  .toString(),
              QStringLiteral("done"));
}

TEST(FalloCortarDurante, StrikesAtTheEndWhereNothingMoved) {
    Mostrador m(Guion::Manual, QStringLiteral("vaciado:cortar=durante"));
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Pedir(QStringLiteral("box.empty"),
            {{QStringLiteral("opId"), QStringLiteral("a")}, {QStringLiteral("device"), 0}});
    EXPECT_TRUE(c.Cerrado());
    EXPECT_TRUE(c.Avisos(QStringLiteral("op.result")).empty());
}

TEST(FalloCortar, OfAQueryLosesItOrItsAnswerOrOnlyTheLink) {
    for (const auto& [momento, respondida] :
         {std::pair{"antes", false}, {"durante", false}, {"despues", true}}) {
        Mostrador m(Guion::Manual, QStringLiteral("niveles:cortar=") + QLatin1String(momento));
        ClientePrueba c(m.servidor.Puerto());
        c.Saludar();
        const int id = c.Pedir(QStringLiteral("levels.get"), {{QStringLiteral("type"), 2}});
        EXPECT_TRUE(c.Cerrado()) << momento;
        EXPECT_EQ(!c.Respuesta(id).isEmpty(), respondida) << momento;
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
        Mostrador m(Guion::Redondeo, QStringLiteral("cobro:matar=") + QLatin1String(momento));
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
        c.Pedir(QStringLiteral("charge.start"), Cobro(QStringLiteral("a"), 1250));
        ASSERT_TRUE(Esperar([&] { return m.muertes > 0; })) << momento;
        EXPECT_EQ(abierta, empezada) << momento;
        EXPECT_EQ(cerrada, acabada) << momento;
    }
}

TEST(FalloLento, HoldsAllBackForThatLong) {
    constexpr int kEspera = 80;
    Mostrador m(Guion::Exacto, QStringLiteral("niveles#1:lento=%1").arg(kEspera));
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    QElapsedTimer reloj;
    reloj.start();
    const int lenta = c.Pedir(QStringLiteral("levels.get"), {{QStringLiteral("type"), 2}});
    const int otra = c.Pedir(QStringLiteral("ping"));
    EXPECT_FALSE(c.Respuesta(otra).isEmpty());
    EXPECT_GE(reloj.elapsed(), kEspera - 1);
    EXPECT_FALSE(c.Respuesta(lenta).isEmpty());
    ASSERT_EQ(c.mensajes.size(), 3U);
    EXPECT_EQ(c.mensajes[1].value(QStringLiteral("id")).toInt(), lenta); // in their order
}

TEST(FalloRepetir, SendsEachNotificationTwice) {
    Mostrador m(Guion::Redondeo, QStringLiteral("cobro:repetir"));
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Resultado(QStringLiteral("charge.start"), Cobro(QStringLiteral("a"), 1250));
    ASSERT_TRUE(c.EsperarAviso(QStringLiteral("op.result"), 2));
    EXPECT_EQ(c.Avisos(QStringLiteral("op.result"))[0], c.Avisos(QStringLiteral("op.result"))[1]);
    EXPECT_EQ(c.Avisos(QStringLiteral("op.progress")).size(), 6U);
    EXPECT_EQ(m.banco.fines.size(), 1U);
}

TEST(FalloRepetir, SendsTheAnswerOfAQueryTwice) {
    Mostrador m(Guion::Manual, QStringLiteral("niveles:repetir"));
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Resultado(QStringLiteral("levels.get"), {{QStringLiteral("type"), 2}});
    c.Resultado(QStringLiteral("ping"));
    EXPECT_EQ(c.mensajes.size(), 4U);
}

TEST(FalloBasura, SendsALineThatIsNoMessageFirst) {
    Mostrador m(Guion::Exacto, QStringLiteral("cobro:basura"));
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    EXPECT_FALSE(
        c.Resultado(QStringLiteral("charge.start"), Cobro(QStringLiteral("a"), 100)).isEmpty());
    EXPECT_EQ(c.rarezas, 1);
}

TEST(FalloMudo, SendsNothingMoreOnThatConnection) {
    Mostrador m(Guion::Exacto, QStringLiteral("cobro:mudo"));
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Pedir(QStringLiteral("charge.start"), Cobro(QStringLiteral("a"), 100));
    c.Pedir(QStringLiteral("ping"));
    ASSERT_TRUE(Esperar([&] { return !m.banco.fines.empty(); }));
    ClientePrueba d(m.servidor.Puerto());
    EXPECT_TRUE(d.Saludar()
                    .value(QStringLiteral("openOp"))
                    .toObject()
                    .value(QStringLiteral("ok"))
                    .toBool());
    EXPECT_TRUE(c.Cerrado());
    EXPECT_EQ(c.mensajes.size(), 1U); // the hello
}

TEST(FalloRechazar, ClosesTheConnectionAtOnce) {
    Mostrador m(Guion::Exacto, QStringLiteral("conexion#1:rechazar"));
    ClientePrueba c(m.servidor.Puerto());
    EXPECT_TRUE(c.Conectado());
    EXPECT_TRUE(c.Cerrado());
    ClientePrueba d(m.servidor.Puerto());
    EXPECT_FALSE(d.Saludar().isEmpty());
}

TEST(FalloDescuadre, CountsWrongUntilTheReconcilingRun) {
    Mostrador m(Guion::Exacto, QStringLiteral("niveles#2:descuadre=-7"));
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    const auto centimos = [&] {
        const QJsonObject niveles =
            c.Resultado(QStringLiteral("levels.get"), {{QStringLiteral("type"), 2}});
        return niveles.value(QStringLiteral("levels")).toArray().at(0).toInt();
    };
    EXPECT_EQ(centimos(), 20);
    EXPECT_EQ(centimos(), 13);
    EXPECT_EQ(centimos(), 13);
    c.Resultado(QStringLiteral("cashBox.control"),
                {{QStringLiteral("opId"), QStringLiteral("a")}, {QStringLiteral("mode"), 0}});
    c.Fin();
    EXPECT_EQ(centimos(), 20);
}

TEST(Fallos, AppearInTheTrace) {
    Mostrador m(Guion::Exacto, QStringLiteral("niveles:basura"));
    QStringList sucesos;
    QObject::connect(&m.servidor, &Servidor::suceso, &m.servidor,
                     [&](const QString& linea) { sucesos.append(linea); });
    ClientePrueba c(m.servidor.Puerto());
    c.Saludar();
    c.Resultado(QStringLiteral("levels.get"), {{QStringLiteral("type"), 2}});
    c.socket.disconnectFromHost();
    ASSERT_TRUE(Esperar([&] { return sucesos.size() >= 3; }));
    EXPECT_EQ(sucesos,
              (QStringList{QStringLiteral("conexión"), QStringLiteral("fallo niveles:basura"),
                           QStringLiteral("desconexión")}));
}

} // namespace
} // namespace zv::simulador
