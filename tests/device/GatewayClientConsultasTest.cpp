// Queries of the gateway client: levels, set-up, pings. They block, and run no event loop.
#include "BancoPasarela.h"
#include "platform/StringLiterals.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QJsonArray>
#include <QTimer>

namespace zv {
namespace {

class GatewayClientConsultasTest : public BancoPasarela {};

TEST_F(GatewayClientConsultasTest, ReadsLevelsAndLeavesTheErrorAlone) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), Falla(12, u"Atasco"_s, 0, 0));
    Cobrar(cliente);
    QString noms;
    QString levels;
    bool bien = false;
    cliente.GetLevels(3, noms, levels, bien);
    EXPECT_TRUE(bien);
    EXPECT_EQ(noms, u"100,200,500"_s);
    EXPECT_EQ(levels, u"3,2,1"_s);
    EXPECT_EQ(cliente.ErrorCode(), 12);
    EXPECT_EQ(cliente.ErrorMessage(), u"Atasco"_s);
    EXPECT_EQ(pasarela.Recibidas(u"levels.get"_s).value(0)[u"params"].toObject(),
              QJsonObject({{u"type"_s, 3}}));
}

TEST_F(GatewayClientConsultasTest, FailsAQueryWithTheGatewaysCodeAndText) {
    GatewayClient& cliente = Conectado();
    const QString niveles = u"levels.get"_s;
    pasarela.Al(niveles, [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        enlace.Rechazar(peticion, -32020, u"Sensor"_s, {{u"errorCode"_s, 8}});
    });
    EXPECT_FALSE(Niveles(cliente));
    EXPECT_EQ(cliente.ErrorCode(), 8);
    EXPECT_EQ(cliente.ErrorMessage(), u"Sensor"_s);
    pasarela.Al(niveles, [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        enlace.Rechazar(peticion, -32603, u"Interno"_s);
    });
    EXPECT_FALSE(Niveles(cliente));
    EXPECT_EQ(cliente.ErrorCode(), 900);
    // 1 is the lost link's, and neither it nor a cancellation can be the end of a query.
    for (const int codigo : {1, 0, -5}) {
        pasarela.Al(niveles, [codigo](EnlaceGuion& enlace, const QJsonObject& peticion) {
            enlace.Rechazar(peticion, -32020, u"Sensor"_s, {{u"errorCode"_s, codigo}});
        });
        EXPECT_FALSE(Niveles(cliente));
        EXPECT_EQ(cliente.ErrorCode(), 900) << codigo;
    }
    pasarela.Al(niveles, [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        enlace.Contestar(peticion, QJsonArray{});
    });
    EXPECT_FALSE(Niveles(cliente));
    EXPECT_EQ(cliente.ErrorCode(), 902);
    EXPECT_TRUE(Niveles(cliente));
}

TEST_F(GatewayClientConsultasTest, RunsNoTimerInsideAQuery) {
    GatewayClient& cliente = Conectado();
    bool tic = false;
    QTimer::singleShot(0, qApp, [&tic] { tic = true; });
    pasarela.Al(u"levels.get"_s, [](EnlaceGuion& enlace, const QJsonObject& p) {
        enlace.Notificar(u"op.progress"_s, {});
        enlace.Contestar(p, QJsonObject{{u"noms"_s, QJsonArray{}}, {u"levels"_s, QJsonArray{}}});
    });
    EXPECT_TRUE(Niveles(cliente));
    bool bien = false;
    cliente.Configuration(bien);
    EXPECT_TRUE(bien);
    EXPECT_EQ(cliente.ErrorCode(), 0);
    EXPECT_FALSE(tic);
    QCoreApplication::processEvents();
    EXPECT_TRUE(tic);
}

TEST_F(GatewayClientConsultasTest, FailsWithOneWhenAQueryIsNotAnswered) {
    GatewayOptions opciones = Rapidas();
    opciones.respuesta = 60;
    GatewayClient& cliente = Conectado(opciones);
    pasarela.Al(u"levels.get"_s, Calla());
    EXPECT_FALSE(Niveles(cliente));
    EXPECT_EQ(cliente.ErrorCode(), 1);
    EXPECT_TRUE(Niveles(cliente)); // on a new connection
    EXPECT_EQ(pasarela.Conexiones(), 2);
}

TEST_F(GatewayClientConsultasTest, AnswersAQueryWhileAnOperationRunsAndLosesNoResult) {
    GatewayClient& cliente = Conectado();
    pasarela.Al(kCobro(), Empieza(500));
    pasarela.Al(u"levels.get"_s, [this](EnlaceGuion& enlace, const QJsonObject& p) {
        // The end of the operation comes while the query blocks.
        enlace.Notificar(u"op.result"_s, CobroHecho(OpId(kCobro()), 1250, 0));
        enlace.Contestar(p, QJsonObject{{u"noms"_s, QJsonArray{1}}, {u"levels"_s, QJsonArray{2}}});
    });
    bool niveles = false;
    QTimer reloj; // as the fast link's timer would
    QObject::connect(&reloj, &QTimer::timeout, &reloj, [&] {
        if (!niveles && pasarela.Recibidas(kCobro()).size() == 1) {
            niveles = Niveles(cliente);
        }
    });
    reloj.start(1);
    EXPECT_EQ(Cobrar(cliente), u"ok 1250 0 0"_s);
    EXPECT_TRUE(niveles);
}

TEST_F(GatewayClientConsultasTest, PingsAtRestSoThatTheLinkStays) {
    Conectado();
    QEventLoop bucle;
    pasarela.Siempre(u"ping"_s, [&bucle](EnlaceGuion& enlace, const QJsonObject& p) {
        enlace.Contestar(p, QJsonObject{});
        QMetaObject::invokeMethod(&bucle, &QEventLoop::quit, Qt::QueuedConnection);
    });
    QTimer::singleShot(5000, &bucle, [&bucle] { bucle.exit(1); });
    EXPECT_EQ(bucle.exec(), 0);
}

} // namespace
} // namespace zv
