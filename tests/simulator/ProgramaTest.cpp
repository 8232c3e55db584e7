// The real program: its output, its exit codes, and money that outlives a kill at any moment.
#include "Programa.h"

#include "ClientePrueba.h"
#include "Mostrador.h"
#include "simulator/Simulador.h"

#include <QFile>
#include <QTcpServer>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <random>

namespace zv::simulador {
namespace {

qint64 SaldoDe(const QString& carpeta) {
    qint64 saldo = -1;
    QString error;
    EXPECT_TRUE(LeerSaldo(carpeta, saldo, error)) << error.toStdString();
    return saldo;
}

TEST(Programa, PrintsItsPortAndItsTraceAndEndsCleanlyOnSigterm) {
    const QTemporaryDir carpeta;
    Programa p;
    ASSERT_TRUE(p.Arrancar(carpeta.path(), {QStringLiteral("--cliente=redondeo")}));
    EXPECT_TRUE(p.salida.startsWith("escuchando en 127.0.0.1:" + QByteArray::number(p.puerto)));
    {
        ClientePrueba c(p.puerto);
        c.Saludar();
        c.Resultado(QStringLiteral("charge.start"), Cobro(QStringLiteral("a"), 1250));
        EXPECT_EQ(c.Fin().value(QStringLiteral("paidOut")).toInt(), 750);
        c.Resultado(QStringLiteral("op.ack"), ConOpId(QStringLiteral("a")));
    }
    ASSERT_TRUE(Esperar([&] {
        p.salida += p.proceso.readAllStandardOutput();
        return p.salida.contains("desconexión");
    }));
    p.proceso.terminate();
    ASSERT_TRUE(p.Terminado());
    EXPECT_EQ(p.proceso.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(p.proceso.exitCode(), 0);
    const QList<QByteArray> lineas = p.salida.split('\n');
    ASSERT_GE(lineas.size(), 9);
    EXPECT_EQ(lineas[1], "conexión");
    EXPECT_TRUE(lineas[2].startsWith("inicio charge.start 1250 "));
    EXPECT_EQ(lineas[3], "entra 2000");
    EXPECT_EQ(lineas[4], "sale 250");
    EXPECT_EQ(lineas[5], "sale 500");
    EXPECT_EQ(lineas[6], "fin ok 2000 750");
    EXPECT_EQ(lineas[7], "acuse a");
    EXPECT_EQ(lineas[8], "desconexión");
    EXPECT_EQ(SaldoDe(carpeta.path()), 42760 + 1250);
}

TEST(Programa, StampsTheStartWithTheClockInNanoseconds) {
    const QTemporaryDir carpeta;
    Programa p;
    ASSERT_TRUE(p.Arrancar(carpeta.path()));
    ClientePrueba c(p.puerto);
    c.Saludar();
    const qint64 antes = QDateTime::currentMSecsSinceEpoch();
    c.Resultado(QStringLiteral("charge.start"), Cobro(QStringLiteral("a"), 1250));
    const qint64 despues = QDateTime::currentMSecsSinceEpoch();
    ASSERT_TRUE(Esperar([&] {
        p.salida += p.proceso.readAllStandardOutput();
        return p.salida.contains(" a\n");
    }));
    const qsizetype donde = p.salida.indexOf("inicio charge.start 1250 ");
    ASSERT_GE(donde, 0);
    const qint64 sello = p.salida.mid(donde).split(' ').at(3).toLongLong();
    EXPECT_GE(sello / 1'000'000, antes);
    EXPECT_LE(sello / 1'000'000, despues);
}

TEST(Programa, WritesItsTraceToAFileWhenTold) {
    const QTemporaryDir carpeta;
    const QString traza = carpeta.filePath(QStringLiteral("traza"));
    Programa p;
    ASSERT_TRUE(p.Arrancar(carpeta.path(), {QStringLiteral("--traza=") + traza}));
    ClientePrueba c(p.puerto);
    c.Saludar();
    QFile fichero(traza);
    ASSERT_TRUE(fichero.open(QIODevice::ReadOnly));
    EXPECT_EQ(fichero.readAll(), "conexión\n");
    EXPECT_EQ(p.salida.count('\n'), 1);
}

TEST(Programa, PrintsItsTotalAndEnds) {
    const QTemporaryDir carpeta;
    Programa p;
    EXPECT_EQ(p.Correr({QStringLiteral("--saldo"), QStringLiteral("--carpeta=") + carpeta.path()}),
              0);
    EXPECT_EQ(p.salida, "42760\n");
}

TEST(Programa, EndsWithTwoOnAWrongCommandLine) {
    Programa p;
    EXPECT_EQ(p.Correr({QStringLiteral("--sin-ventana"), QStringLiteral("--fallo=cobro:nada")}), 2);
    EXPECT_EQ(p.errores, "ZVSimulador: fallo \"cobro:nada\": no hay ninguna acción \"nada\"\n");
    EXPECT_TRUE(p.salida.isEmpty());
}

TEST(Programa, EndsWithOneWhenItCannotRun) {
    const QTemporaryDir carpeta;
    QTcpServer ocupado;
    ASSERT_TRUE(ocupado.listen(QHostAddress::LocalHost));
    const QString puerto = QString::number(ocupado.serverPort());
    const QStringList comunes{QStringLiteral("--sin-ventana"),
                              QStringLiteral("--carpeta=") + carpeta.path(),
                              QStringLiteral("--puerto=") + puerto};
    Programa enElPuerto;
    EXPECT_EQ(enElPuerto.Correr(comunes), 1);
    EXPECT_EQ(QString::fromUtf8(enElPuerto.errores),
              QStringLiteral("ZVSimulador: el puerto %1 está ocupado\n").arg(puerto));

    QFile dinero(carpeta.filePath(QStringLiteral("dinero.json")));
    ASSERT_TRUE(dinero.open(QIODevice::WriteOnly | QIODevice::Truncate));
    dinero.write("{");
    dinero.close();
    Programa conDinero;
    EXPECT_EQ(conDinero.Correr(comunes), 1);
    EXPECT_EQ(QString::fromUtf8(conDinero.errores),
              QStringLiteral("ZVSimulador: el fichero del dinero está dañado: %1\n")
                  .arg(dinero.fileName()));
}

TEST(Programa, WhoseMoneyCannotBeWrittenAnyMoreEndsWithOne) {
    const QTemporaryDir carpeta;
    Programa p;
    ASSERT_TRUE(p.Arrancar(carpeta.path(), {QStringLiteral("--cliente=exacto")}));
    ASSERT_TRUE(QDir(carpeta.path()).mkdir(QStringLiteral("dinero.json.tmp")));
    ClientePrueba c(p.puerto);
    c.Saludar();
    EXPECT_EQ(c.Error(QStringLiteral("charge.start"), Cobro(QStringLiteral("a"), 1250)), -32603);
    ASSERT_TRUE(p.Terminado());
    EXPECT_EQ(p.proceso.exitCode(), 1);
    EXPECT_TRUE(p.errores.startsWith("ZVSimulador: no se puede escribir "));
    EXPECT_EQ(SaldoDe(carpeta.path()), 42760);
}

TEST(Programa, KilledByAFaultComesBackWithTheOperationEnded) {
    const QTemporaryDir carpeta;
    Programa p;
    ASSERT_TRUE(p.Arrancar(carpeta.path(), {QStringLiteral("--cliente=redondeo"),
                                            QStringLiteral("--fallo=cobro:matar=durante")}));
    ClientePrueba c(p.puerto);
    c.Saludar();
    c.Pedir(QStringLiteral("charge.start"), Cobro(QStringLiteral("a"), 1250));
    ASSERT_TRUE(p.Terminado());
    EXPECT_EQ(p.proceso.exitStatus(), QProcess::CrashExit);
    Programa q;
    ASSERT_TRUE(q.Arrancar(carpeta.path()));
    ClientePrueba d(q.puerto);
    const QJsonObject op = d.Saludar().value(QStringLiteral("openOp")).toObject();
    EXPECT_EQ(op.value(QStringLiteral("state")).toString(), QStringLiteral("done"));
    EXPECT_EQ(op.value(QStringLiteral("errorCode")).toInt(), kReinicio);
    EXPECT_EQ(op.value(QStringLiteral("paidIn")).toInt(), 2000);
    EXPECT_EQ(op.value(QStringLiteral("paidOut")).toInt(), 0);
    EXPECT_EQ(SaldoDe(carpeta.path()), 42760 + 2000);
}

// Kills it at a random moment of each charge and compares the books: what the device holds more
// than before is what the operation says has come in and not gone out, and nothing that was told
// before the kill is lost.
TEST(Durabilidad, NoKillLosesOrMakesMoney) {
    const QTemporaryDir carpeta;
    std::mt19937 azar(20260501);
    SCOPED_TRACE("seed 20260501");
    std::uniform_int_distribution<int> avisos(0, 6);
    std::uniform_int_distribution<int> importes(1, 9000);
    qint64 saldo = SaldoDe(carpeta.path());
    int enMarcha = 0;
    int conDinero = 0;
    for (int ronda = 0; ronda < 30; ++ronda) {
        const QString opId = QString::number(ronda);
        const QString guion =
            ronda % 2 == 0 ? QStringLiteral("exacto") : QStringLiteral("redondeo");
        qint32 dichoEntrado = 0;
        qint32 dichoSalido = 0;
        {
            Programa p;
            ASSERT_TRUE(p.Arrancar(carpeta.path(), {QStringLiteral("--cliente=") + guion,
                                                    QStringLiteral("--ritmo=1")}));
            ClientePrueba c(p.puerto);
            c.Saludar();
            c.Pedir(QStringLiteral("charge.start"), Cobro(opId, importes(azar)));
            const auto cuantos = static_cast<std::size_t>(avisos(azar));
            Esperar([&] {
                return c.Avisos(QStringLiteral("op.progress")).size() >= cuantos ||
                       !c.Avisos(QStringLiteral("op.result")).empty();
            });
            p.Matar();
            EXPECT_TRUE(c.Cerrado());
            for (const QString& metodo :
                 {QStringLiteral("op.progress"), QStringLiteral("op.result")}) {
                for (const QJsonObject& aviso : c.Avisos(metodo)) {
                    dichoEntrado = aviso.value(QStringLiteral("paidIn")).toInt();
                    dichoSalido = aviso.value(QStringLiteral("paidOut")).toInt();
                }
            }
        }
        Programa p;
        ASSERT_TRUE(p.Arrancar(carpeta.path()));
        ClientePrueba c(p.puerto);
        const QJsonValue abierta = c.Saludar().value(QStringLiteral("openOp"));
        const QJsonObject op = abierta.toObject();
        const int entrado = op.value(QStringLiteral("paidIn")).toInt();
        const int salido = op.value(QStringLiteral("paidOut")).toInt();
        EXPECT_GE(entrado, dichoEntrado);
        EXPECT_GE(salido, dichoSalido);
        const qint64 ahora = SaldoDe(carpeta.path());
        EXPECT_EQ(ahora, saldo + entrado - salido) << "round " << ronda;
        saldo = ahora;
        if (op.isEmpty()) { // killed before the start was stored
            EXPECT_EQ(c.Error(QStringLiteral("op.status"), ConOpId(opId)), -32011);
            continue;
        }
        EXPECT_EQ(op.value(QStringLiteral("state")).toString(), QStringLiteral("done"));
        const bool cortada = op.value(QStringLiteral("errorCode")).toInt() == kReinicio;
        enMarcha += cortada ? 1 : 0;
        conDinero += cortada && entrado > 0 ? 1 : 0;
        // The same start again moves nothing.
        EXPECT_EQ(c.Resultado(QStringLiteral("charge.start"), Cobro(opId, 5)), op);
        c.Resultado(QStringLiteral("op.ack"), ConOpId(opId));
        EXPECT_EQ(SaldoDe(carpeta.path()), saldo);
    }
    // The kills did strike in the middle.
    EXPECT_GE(enMarcha, 5);
    EXPECT_GE(conDinero, 3);
}

} // namespace
} // namespace zv::simulador
