// The process list, from a made-up /proc and from the real one.
#include "platform/Procesos.h"

#include "support/CarpetaTemporal.h"
#include "support/ImprimeQt.h"

#include <QProcess>

#include <csignal>
#include <gtest/gtest.h>
#include <unistd.h>

namespace zv {
namespace {

using test::CarpetaTemporal;

class ProcesosFicticios : public testing::Test {
  protected:
    // One entry of /proc: the short name, its state, the program's file and the command line.
    void Pon(qint64 pid, const QByteArray& corto, const QString& programa = {},
             const QByteArray& orden = {}, char estado = 'S') {
        const QString numero = QString::number(pid);
        proc.Pon(numero + QStringLiteral("/stat"),
                 QByteArray::number(pid) + " (" + corto + ") " + estado + " 1 1 1\n");
        proc.Pon(numero + QStringLiteral("/cmdline"), orden);
        if (!programa.isEmpty()) {
            EXPECT_TRUE(QFile::link(programa, proc.Ruta(numero + QStringLiteral("/exe"))));
        }
    }
    int Cuenta(const char* nombre) const { return procesos.Contar(QString::fromUtf8(nombre)); }
    QList<qint64> Terminados(const char* nombre) {
        terminados.clear();
        procesos.Terminar(QString::fromUtf8(nombre));
        std::sort(terminados.begin(), terminados.end());
        return terminados;
    }

    CarpetaTemporal proc;
    QList<qint64> terminados;
    ProcesosSistema procesos{proc.Ruta(), [this](qint64 pid) { terminados << pid; }};
};

TEST_F(ProcesosFicticios, CountsTheExactNameIgnoringCase) {
    Pon(10, "zvconnector", QStringLiteral("/opt/zv/zvconnector"));
    Pon(11, "ZVConnector", QStringLiteral("/opt/zv/ZVConnector"));
    Pon(12, "ZVConnector2", QStringLiteral("/opt/zv/ZVConnector2"));
    EXPECT_EQ(Cuenta("ZVConnector"), 2);
    EXPECT_EQ(Cuenta("zvconnector2"), 1);
    EXPECT_EQ(Cuenta("ZVConn"), 0);
    EXPECT_EQ(Cuenta("/opt/zv/ZVConnector"), 0);
    EXPECT_EQ(Cuenta(""), 0);
}

TEST_F(ProcesosFicticios, EndsEveryNameThatContainsTheText) {
    Pon(10, "ZVConnector", QStringLiteral("/opt/zv/ZVConnector"));
    Pon(11, "MiZVCONNECTOR2", QStringLiteral("/opt/zv/MiZVCONNECTOR2"));
    Pon(12, "otro", QStringLiteral("/opt/ZVConnector/otro"));
    EXPECT_EQ(Terminados("ZVConnector"), (QList<qint64>{10, 11}));
    EXPECT_EQ(Terminados("zvconnector"), (QList<qint64>{10, 11}));
    EXPECT_EQ(Terminados("ZVConnector2"), QList<qint64>{11});
}

TEST_F(ProcesosFicticios, AnEmptyNameEndsNobody) {
    Pon(10, "ZVConnector", QStringLiteral("/opt/zv/ZVConnector"));
    EXPECT_TRUE(Terminados("").isEmpty());
}

TEST_F(ProcesosFicticios, NeverEndsItself) {
    Pon(::getpid(), "ZVMonitor", QStringLiteral("/opt/zv/ZVMonitor"));
    Pon(10, "ZVMonitor", QStringLiteral("/opt/zv/ZVMonitor"));
    EXPECT_EQ(Terminados("ZVMonitor"), QList<qint64>{10});
    EXPECT_EQ(Cuenta("ZVMonitor"), 2);
}

TEST_F(ProcesosFicticios, KnowsNamesThatTheKernelCuts) {
    Pon(10, "ZVConnectorDePr", QStringLiteral("/opt/zv/ZVConnectorDePruebas"));
    Pon(11, "ZVConnectorDePr", {}, QByteArray("/opt/zv/ZVConnectorDePruebas\0-x\0", 33));
    Pon(12, "ZVConnectorDePr", {}, QByteArray("bash\0/opt/zv/ZVConnectorDePruebas\0", 34));
    EXPECT_EQ(Cuenta("ZVConnectorDePruebas"), 3);
    EXPECT_EQ(Cuenta("ZVConnectorDePr"), 0);
}

TEST_F(ProcesosFicticios, KnowsScriptsByTheirOwnName) {
    Pon(10, "ZVConnector.sh", QStringLiteral("/usr/bin/bash"),
        QByteArray("/bin/bash\0/opt/zv/ZVConnector.sh\0", 33));
    EXPECT_EQ(Cuenta("ZVConnector.sh"), 1);
    EXPECT_EQ(Cuenta("bash"), 1);
}

TEST_F(ProcesosFicticios, KnowsProgramsOfOtherSystemsUnderALoader) {
    Pon(10, "ZVConnector.exe", QStringLiteral("/usr/lib/loader64"),
        QByteArray("C:\\ZV\\ZVConnector.exe\0", 22));
    EXPECT_EQ(Cuenta("ZVConnector.exe"), 1);
}

TEST_F(ProcesosFicticios, AProgramReplacedByAnUpdateKeepsItsName) {
    Pon(10, "ZVConnectorDePr", QStringLiteral("/opt/zv/ZVConnectorDePruebas (deleted)"));
    EXPECT_EQ(Cuenta("ZVConnectorDePruebas"), 1);
}

TEST_F(ProcesosFicticios, ArgumentsAreNoNames) {
    Pon(10, "tail", QStringLiteral("/usr/bin/tail"), QByteArray("tail\0-f\0ZVConnector\0", 21));
    Pon(11, "grep", QStringLiteral("/usr/bin/grep"), QByteArray("grep\0ZVConnector\0", 18));
    EXPECT_EQ(Cuenta("ZVConnector"), 0);
    EXPECT_TRUE(Terminados("ZVConnector").isEmpty());
}

TEST_F(ProcesosFicticios, EndedProcessesThatWaitForTheirParentDoNotRun) {
    Pon(10, "ZVConnector", {}, {}, 'Z');
    EXPECT_EQ(Cuenta("ZVConnector"), 0);
    EXPECT_TRUE(Terminados("ZVConnector").isEmpty());
}

TEST_F(ProcesosFicticios, OddNamesAndEntriesDoNoHarm) {
    Pon(10, "a) Z (b", QStringLiteral("/opt/a) Z (b"));
    Pon(11, "", {});
    proc.PonCarpeta(QStringLiteral("12")); // gone meanwhile
    proc.Pon(QStringLiteral("13/stat"), "13 sin nombre");
    proc.Pon(QStringLiteral("14/stat"), "14 (x)");
    proc.PonCarpeta(QStringLiteral("sys"));
    proc.Pon(QStringLiteral("uptime"), "1");
    EXPECT_EQ(Cuenta("a) Z (b"), 1);
    EXPECT_EQ(Cuenta("x"), 1);
    EXPECT_EQ(ProcesosSistema(proc.Ruta(QStringLiteral("no"))).Contar(QStringLiteral("x")), 0);
}

TEST(ProcesosSistema, SeesAndEndsARealProcess) {
    const CarpetaTemporal carpeta;
    // Longer than the kernel's short name, and nobody else's.
    const QString nombre = QStringLiteral("ZVPruebaDeProcesos%1").arg(::getpid());
    const QString programa = carpeta.Ruta(nombre);
    ASSERT_TRUE(QFile::copy(QStringLiteral("/bin/sleep"), programa));
    ASSERT_TRUE(QFile::setPermissions(programa, QFile::ReadOwner | QFile::ExeOwner));

    ProcesosSistema procesos;
    EXPECT_EQ(procesos.Contar(nombre), 0);
    QProcess proceso;
    proceso.start(programa, {QStringLiteral("60")});
    ASSERT_TRUE(proceso.waitForStarted());
    EXPECT_EQ(procesos.Contar(nombre.toLower()), 1);

    procesos.Terminar(nombre.toUpper());
    ASSERT_TRUE(proceso.waitForFinished());
    EXPECT_EQ(proceso.exitStatus(), QProcess::CrashExit);
    EXPECT_EQ(proceso.exitCode(), SIGTERM);
    EXPECT_EQ(procesos.Contar(nombre), 0);
    procesos.Terminar(nombre); // nobody there: no failure
}

} // namespace
} // namespace zv
