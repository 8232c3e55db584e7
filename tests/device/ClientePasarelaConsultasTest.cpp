// Queries of the gateway client: levels, set-up, pings. They block, and run no event loop.
#include "BancoPasarela.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QJsonArray>
#include <QTimer>

namespace zv {
namespace {

class ClientePasarelaConsultasTest : public BancoPasarela {};

TEST_F(ClientePasarelaConsultasTest, ReadsLevelsAndLeavesTheErrorAlone) {
    ClientePasarela& cliente = Conectado();
    pasarela.Al(kCobro(), Falla(12, QStringLiteral("Atasco"), 0, 0));
    Cobrar(cliente);
    QString noms;
    QString levels;
    bool bien = false;
    cliente.GetLevels(3, noms, levels, bien);
    EXPECT_TRUE(bien);
    EXPECT_EQ(noms, QStringLiteral("100,200,500"));
    EXPECT_EQ(levels, QStringLiteral("3,2,1"));
    EXPECT_EQ(cliente.ErrorCode(), 12);
    EXPECT_EQ(cliente.ErrorMessage(), QStringLiteral("Atasco"));
    EXPECT_EQ(pasarela.Recibidas(QStringLiteral("levels.get")).value(0)[u"params"].toObject(),
              QJsonObject({{QStringLiteral("type"), 3}}));
}

TEST_F(ClientePasarelaConsultasTest, FailsAQueryWithTheGatewaysCodeAndText) {
    ClientePasarela& cliente = Conectado();
    const QString niveles = QStringLiteral("levels.get");
    pasarela.Al(niveles, [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        enlace.Rechazar(peticion, -32020, QStringLiteral("Sensor"),
                        {{QStringLiteral("errorCode"), 8}});
    });
    EXPECT_FALSE(Niveles(cliente));
    EXPECT_EQ(cliente.ErrorCode(), 8);
    EXPECT_EQ(cliente.ErrorMessage(), QStringLiteral("Sensor"));
    pasarela.Al(niveles, [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        enlace.Rechazar(peticion, -32603, QStringLiteral("Interno"));
    });
    EXPECT_FALSE(Niveles(cliente));
    EXPECT_EQ(cliente.ErrorCode(), 900);
    pasarela.Al(niveles, [](EnlaceGuion& enlace, const QJsonObject& peticion) {
        enlace.Contestar(peticion, QJsonArray{});
    });
    EXPECT_FALSE(Niveles(cliente));
    EXPECT_EQ(cliente.ErrorCode(), 902);
    EXPECT_TRUE(Niveles(cliente));
}

TEST_F(ClientePasarelaConsultasTest, RunsNoTimerInsideAQuery) {
    ClientePasarela& cliente = Conectado();
    bool tic = false;
    QTimer::singleShot(0, qApp, [&tic] { tic = true; });
    pasarela.Al(QStringLiteral("levels.get"), [](EnlaceGuion& enlace, const QJsonObject& p) {
        enlace.Notificar(QStringLiteral("op.progress"), {});
        enlace.Contestar(p, QJsonObject{{QStringLiteral("noms"), QJsonArray{}},
                                        {QStringLiteral("levels"), QJsonArray{}}});
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

TEST_F(ClientePasarelaConsultasTest, FailsWithOneWhenAQueryIsNotAnswered) {
    OpcionesPasarela opciones = Rapidas();
    opciones.respuesta = 60;
    ClientePasarela& cliente = Conectado(opciones);
    pasarela.Al(QStringLiteral("levels.get"), Calla());
    EXPECT_FALSE(Niveles(cliente));
    EXPECT_EQ(cliente.ErrorCode(), 1);
    EXPECT_TRUE(Niveles(cliente)); // on a new connection
    EXPECT_EQ(pasarela.Conexiones(), 2);
}

TEST_F(ClientePasarelaConsultasTest, AnswersAQueryWhileAnOperationRunsAndLosesNoResult) {
    ClientePasarela& cliente = Conectado();
    pasarela.Al(kCobro(), Empieza(500));
    pasarela.Al(QStringLiteral("levels.get"), [this](EnlaceGuion& enlace, const QJsonObject& p) {
        // The end of the operation comes while the query blocks.
        enlace.Notificar(QStringLiteral("op.result"), CobroHecho(OpId(kCobro()), 1250, 0));
        enlace.Contestar(p, QJsonObject{{QStringLiteral("noms"), QJsonArray{1}},
                                        {QStringLiteral("levels"), QJsonArray{2}}});
    });
    bool niveles = false;
    QTimer reloj; // as the fast link's timer would
    QObject::connect(&reloj, &QTimer::timeout, &reloj, [&] {
        if (!niveles && pasarela.Recibidas(kCobro()).size() == 1) {
            niveles = Niveles(cliente);
        }
    });
    reloj.start(1);
    EXPECT_EQ(Cobrar(cliente), QStringLiteral("ok 1250 0 0"));
    EXPECT_TRUE(niveles);
}

TEST_F(ClientePasarelaConsultasTest, PingsAtRestSoThatTheLinkStays) {
    Conectado();
    QEventLoop bucle;
    pasarela.Siempre(QStringLiteral("ping"), [&bucle](EnlaceGuion& enlace, const QJsonObject& p) {
        enlace.Contestar(p, QJsonObject{});
        QMetaObject::invokeMethod(&bucle, &QEventLoop::quit, Qt::QueuedConnection);
    });
    QTimer::singleShot(5000, &bucle, [&bucle] { bucle.exit(1); });
    EXPECT_EQ(bucle.exec(), 0);
}

} // namespace
} // namespace zv
