// The real program: its output, its exit codes, and money that outlives a kill at any moment.
#include "Programa.h"

#include "ClientePrueba.h"
#include "Mostrador.h"
#include "platform/StringLiterals.h"
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
    ASSERT_TRUE(p.Arrancar(carpeta.path(), {u"--cliente=redondeo"_s}));
    EXPECT_TRUE(p.salida.startsWith("escuchando en 127.0.0.1:" + QByteArray::number(p.puerto)));
    {
        ClientePrueba c(p.puerto);
        c.Saludar();
        c.Resultado(u"charge.start"_s, Cobro(u"a"_s, 1250));
        EXPECT_EQ(c.Fin().value(u"paidOut"_s).toInt(), 750);
        c.Resultado(u"op.ack"_s, ConOpId(u"a"_s));
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
    c.Resultado(u"charge.start"_s, Cobro(u"a"_s, 1250));
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
    const QString traza = carpeta.filePath(u"traza"_s);
    Programa p;
    ASSERT_TRUE(p.Arrancar(carpeta.path(), {u"--traza="_s + traza}));
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
    EXPECT_EQ(p.Correr({u"--saldo"_s, u"--carpeta="_s + carpeta.path()}), 0);
    EXPECT_EQ(p.salida, "42760\n");
}

TEST(Programa, EndsWithTwoOnAWrongCommandLine) {
    Programa p;
    EXPECT_EQ(p.Correr({u"--sin-ventana"_s, u"--fallo=cobro:nada"_s}), 2);
    EXPECT_EQ(p.errores, "ZVSimulador: fallo \"cobro:nada\": no hay ninguna acción \"nada\"\n");
    EXPECT_TRUE(p.salida.isEmpty());
}

TEST(Programa, EndsWithOneWhenItCannotRun) {
    const QTemporaryDir carpeta;
    QTcpServer ocupado;
    ASSERT_TRUE(ocupado.listen(QHostAddress::LocalHost));
    const QString puerto = QString::number(ocupado.serverPort());
    const QStringList comunes{u"--sin-ventana"_s, u"--carpeta="_s + carpeta.path(),
                              u"--puerto="_s + puerto};
    Programa enElPuerto;
    EXPECT_EQ(enElPuerto.Correr(comunes), 1);
    EXPECT_EQ(QString::fromUtf8(enElPuerto.errores),
              u"ZVSimulador: el puerto %1 está ocupado\n"_s.arg(puerto));

    QFile dinero(carpeta.filePath(u"dinero.json"_s));
    ASSERT_TRUE(dinero.open(QIODevice::WriteOnly | QIODevice::Truncate));
    dinero.write("{");
    dinero.close();
    Programa conDinero;
    EXPECT_EQ(conDinero.Correr(comunes), 1);
    EXPECT_EQ(QString::fromUtf8(conDinero.errores),
              u"ZVSimulador: el fichero del dinero está dañado: %1\n"_s.arg(dinero.fileName()));
}

TEST(Programa, WhoseMoneyCannotBeWrittenAnyMoreEndsWithOne) {
    const QTemporaryDir carpeta;
    Programa p;
    ASSERT_TRUE(p.Arrancar(carpeta.path(), {u"--cliente=exacto"_s}));
    ASSERT_TRUE(QFile::setPermissions(carpeta.filePath(u"dinero.json"_s), QFile::ReadOwner));
    ClientePrueba c(p.puerto);
    c.Saludar();
    EXPECT_EQ(c.Error(u"charge.start"_s, Cobro(u"a"_s, 1250)), -32603);
    ASSERT_TRUE(p.Terminado());
    EXPECT_EQ(p.proceso.exitCode(), 1);
    EXPECT_TRUE(p.errores.startsWith("ZVSimulador: no se puede escribir "));
    EXPECT_EQ(SaldoDe(carpeta.path()), 42760);
}

TEST(Programa, KilledByAFaultComesBackWithTheOperationEnded) {
    const QTemporaryDir carpeta;
    Programa p;
    ASSERT_TRUE(
        p.Arrancar(carpeta.path(), {u"--cliente=redondeo"_s, u"--fallo=cobro:matar=durante"_s}));
    ClientePrueba c(p.puerto);
    c.Saludar();
    c.Pedir(u"charge.start"_s, Cobro(u"a"_s, 1250));
    ASSERT_TRUE(p.Terminado());
    EXPECT_EQ(p.proceso.exitStatus(), QProcess::CrashExit);
    Programa q;
    ASSERT_TRUE(q.Arrancar(carpeta.path()));
    ClientePrueba d(q.puerto);
    const QJsonObject op = d.Saludar().value(u"openOp"_s).toObject();
    EXPECT_EQ(op.value(u"state"_s).toString(), u"done"_s);
    EXPECT_EQ(op.value(u"errorCode"_s).toInt(), kReinicio);
    EXPECT_EQ(op.value(u"paidIn"_s).toInt(), 2000);
    EXPECT_EQ(op.value(u"paidOut"_s).toInt(), 0);
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
        const QString guion = ronda % 2 == 0 ? u"exacto"_s : u"redondeo"_s;
        qint32 dichoEntrado = 0;
        qint32 dichoSalido = 0;
        {
            Programa p;
            ASSERT_TRUE(p.Arrancar(carpeta.path(), {u"--cliente="_s + guion, u"--ritmo=1"_s}));
            ClientePrueba c(p.puerto);
            c.Saludar();
            c.Pedir(u"charge.start"_s, Cobro(opId, importes(azar)));
            const auto cuantos = static_cast<std::size_t>(avisos(azar));
            Esperar([&] {
                return c.Avisos(u"op.progress"_s).size() >= cuantos ||
                       !c.Avisos(u"op.result"_s).empty();
            });
            p.Matar();
            EXPECT_TRUE(c.Cerrado());
            for (const QString& metodo : {u"op.progress"_s, u"op.result"_s}) {
                for (const QJsonObject& aviso : c.Avisos(metodo)) {
                    dichoEntrado = aviso.value(u"paidIn"_s).toInt();
                    dichoSalido = aviso.value(u"paidOut"_s).toInt();
                }
            }
        }
        Programa p;
        ASSERT_TRUE(p.Arrancar(carpeta.path()));
        ClientePrueba c(p.puerto);
        const QJsonValue abierta = c.Saludar().value(u"openOp"_s);
        const QJsonObject op = abierta.toObject();
        const int entrado = op.value(u"paidIn"_s).toInt();
        const int salido = op.value(u"paidOut"_s).toInt();
        EXPECT_GE(entrado, dichoEntrado);
        EXPECT_GE(salido, dichoSalido);
        const qint64 ahora = SaldoDe(carpeta.path());
        EXPECT_EQ(ahora, saldo + entrado - salido) << "round " << ronda;
        saldo = ahora;
        if (op.isEmpty()) { // killed before the start was stored
            EXPECT_EQ(c.Error(u"op.status"_s, ConOpId(opId)), -32011);
            continue;
        }
        EXPECT_EQ(op.value(u"state"_s).toString(), u"done"_s);
        const bool cortada = op.value(u"errorCode"_s).toInt() == kReinicio;
        enMarcha += cortada ? 1 : 0;
        conDinero += cortada && entrado > 0 ? 1 : 0;
        // The same start again moves nothing.
        EXPECT_EQ(c.Resultado(u"charge.start"_s, Cobro(opId, 5)), op);
        c.Resultado(u"op.ack"_s, ConOpId(opId));
        EXPECT_EQ(SaldoDe(carpeta.path()), saldo);
    }
    // The kills did strike in the middle.
    EXPECT_GE(enMarcha, 5);
    EXPECT_GE(conDinero, 3);
}

} // namespace
} // namespace zv::simulador
