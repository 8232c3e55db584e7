// The process list, from a made-up /proc and from the real one.
#include "platform/ProcessList.h"

#include "platform/FileDescriptor.h"
#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/ImprimeQt.h"

#include <QDeadlineTimer>
#include <QProcess>

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
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
        proc.Pon(numero + u"/stat"_s,
                 QByteArray::number(pid) + " (" + corto + ") " + estado + " 1 1 1\n");
        proc.Pon(numero + u"/cmdline"_s, orden);
        if (!programa.isEmpty()) {
            EXPECT_TRUE(QFile::link(programa, proc.Ruta(numero + u"/exe"_s)));
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
    SystemProcessList procesos{proc.Ruta(), [this](qint64 pid) { terminados << pid; }};
};

TEST_F(ProcesosFicticios, CountsTheExactNameIgnoringCase) {
    Pon(10, "zvconnector", u"/opt/zv/zvconnector"_s);
    Pon(11, "ZVConnector", u"/opt/zv/ZVConnector"_s);
    Pon(12, "ZVConnector2", u"/opt/zv/ZVConnector2"_s);
    EXPECT_EQ(Cuenta("ZVConnector"), 2);
    EXPECT_EQ(Cuenta("zvconnector2"), 1);
    EXPECT_EQ(Cuenta("ZVConn"), 0);
    EXPECT_EQ(Cuenta("/opt/zv/ZVConnector"), 0);
    EXPECT_EQ(Cuenta(""), 0);
}

TEST_F(ProcesosFicticios, EndsEveryNameThatContainsTheText) {
    Pon(10, "ZVConnector", u"/opt/zv/ZVConnector"_s);
    Pon(11, "MiZVCONNECTOR2", u"/opt/zv/MiZVCONNECTOR2"_s);
    Pon(12, "otro", u"/opt/ZVConnector/otro"_s);
    EXPECT_EQ(Terminados("ZVConnector"), (QList<qint64>{10, 11}));
    EXPECT_EQ(Terminados("zvconnector"), (QList<qint64>{10, 11}));
    EXPECT_EQ(Terminados("ZVConnector2"), QList<qint64>{11});
}

TEST_F(ProcesosFicticios, AnEmptyNameEndsNobody) {
    Pon(10, "ZVConnector", u"/opt/zv/ZVConnector"_s);
    EXPECT_TRUE(Terminados("").isEmpty());
}

TEST_F(ProcesosFicticios, NeverEndsItself) {
    Pon(::getpid(), "ZVMonitor", u"/opt/zv/ZVMonitor"_s);
    Pon(10, "ZVMonitor", u"/opt/zv/ZVMonitor"_s);
    EXPECT_EQ(Terminados("ZVMonitor"), QList<qint64>{10});
    EXPECT_EQ(Cuenta("ZVMonitor"), 2);
}

TEST_F(ProcesosFicticios, KnowsNamesThatTheKernelCuts) {
    Pon(10, "ZVConnectorDePr", u"/opt/zv/ZVConnectorDePruebas"_s);
    Pon(11, "ZVConnectorDePr", {}, QByteArray("/opt/zv/ZVConnectorDePruebas\0-x\0", 33));
    Pon(12, "ZVConnectorDePr", {}, QByteArray("bash\0/opt/zv/ZVConnectorDePruebas\0", 34));
    EXPECT_EQ(Cuenta("ZVConnectorDePruebas"), 3);
    EXPECT_EQ(Cuenta("ZVConnectorDePr"), 0);
}

TEST_F(ProcesosFicticios, KnowsScriptsByTheirOwnName) {
    Pon(10, "ZVConnector.sh", u"/usr/bin/bash"_s,
        QByteArray("/bin/bash\0/opt/zv/ZVConnector.sh\0", 33));
    EXPECT_EQ(Cuenta("ZVConnector.sh"), 1);
    EXPECT_EQ(Cuenta("bash"), 1);
}

// ---- scripts that run under the name of their interpreter

class GuionesFicticios : public ProcesosFicticios {
  protected:
    // A process of that program with these arguments; "@" in one is the script.
    bool Visto(const QByteArray& primeraLinea, QByteArrayList orden, const char* corto = "x") {
        proc.Pon(u"ZVConnector.py"_s, primeraLinea + "\nprint()\n");
        for (QByteArray& argumento : orden) {
            argumento.replace('@', QFile::encodeName(guion));
        }
        Pon(10, corto, u"/usr/bin/"_s + QString::fromUtf8(corto), orden.join('\0') + '\0');
        const bool visto = Cuenta("zvconnector.py") == 1;
        EXPECT_EQ(Terminados("Connector.py"), visto ? QList<qint64>{10} : QList<qint64>{});
        QDir(proc.Ruta(u"10"_s)).removeRecursively();
        return visto;
    }

    const QString guion = proc.Ruta(u"ZVConnector.py"_s);
};

TEST_F(GuionesFicticios, AreKnownByTheirFirstLine) {
    const QByteArray porEnv = "#!/usr/bin/env python3";
    EXPECT_TRUE(Visto(porEnv, {"python3", "@"}));
    EXPECT_TRUE(Visto(porEnv, {"python3", "@", "--puerto", "9"}));
    EXPECT_TRUE(Visto(porEnv, {"/usr/bin/python3.11", "@"}));
    EXPECT_TRUE(Visto(porEnv, {"python3", "-u", "@"}));
    EXPECT_TRUE(
        Visto("#!/usr/bin/env -S LANG=C python3 -W ignore", {"python3", "-W", "ignore", "@"}));
    EXPECT_TRUE(Visto("#! /opt/node/bin/node --title=x", {"/opt/node/bin/node", "--title=x", "@"}));
    EXPECT_TRUE(Visto("#!/bin/sh\r", {"/bin/sh", "@"}));
}

TEST_F(GuionesFicticios, AreNotTakenForWhoReadsThem) {
    const QByteArray porEnv = "#!/usr/bin/env python3";
    EXPECT_FALSE(Visto(porEnv, {"vim", "@"}));
    EXPECT_FALSE(Visto(porEnv, {"less", "-N", "@"}));
    EXPECT_FALSE(Visto(porEnv, {"python3", "/usr/bin/editor.py", "@"}));
    EXPECT_FALSE(Visto(porEnv, {"python3", "-m", "pdb", "@"}));
    EXPECT_FALSE(Visto("#!/bin/sh", {"sh", "-c", "vim @"}));
    EXPECT_FALSE(Visto("#!/usr/bin/env", {"env", "@"}));
    EXPECT_FALSE(Visto("#!", {"", "@"}));
    EXPECT_FALSE(Visto("print(1)", {"python3", "@"}));
    EXPECT_FALSE(Visto("#-/usr/bin/python3", {"python3", "@"}));
    EXPECT_FALSE(Visto("-!/usr/bin/python3", {"python3", "@"}));
    EXPECT_FALSE(Visto("", {"python3", "@"}));
    EXPECT_FALSE(Visto(porEnv, {"python3", "@.bak"}));
    EXPECT_FALSE(Visto(porEnv, {"python3"}));
}

TEST_F(GuionesFicticios, AreFoundFromTheFolderOfTheirProcess) {
    proc.PonCarpeta(u"otra"_s);
    proc.Pon(u"zv/ZVConnector.py"_s, "#!/usr/bin/env python3\n");
    Pon(10, "python3", {}, QByteArray("python3\0./ZVConnector.py\0", 25));
    Pon(11, "python3", {}, QByteArray("python3\0./ZVConnector.py\0", 25));
    EXPECT_TRUE(QFile::link(proc.Ruta(u"zv"_s), proc.Ruta(u"10/cwd"_s)));
    EXPECT_TRUE(QFile::link(proc.Ruta(u"otra"_s), proc.Ruta(u"11/cwd"_s)));
    EXPECT_EQ(Terminados("ZVConnector.py"), QList<qint64>{10});
}

TEST_F(GuionesFicticios, NothingIsOpenedThatIsNoFile) {
    const QByteArray ruta = QFile::encodeName(guion);
    Pon(10, "python3", {}, "python3" + QByteArray(1, '\0') + ruta + '\0');
    ASSERT_EQ(::mkfifo(ruta.constData(), 0600), 0);
    EXPECT_EQ(Cuenta("ZVConnector.py"), 0);
    const FileDescriptor tubo(::open(ruta.constData(), O_RDWR | O_CLOEXEC));
    ASSERT_EQ(::write(tubo.Numero(), "#!python3\n", 10), 10);
    EXPECT_EQ(Cuenta("ZVConnector.py"), 0);
    ASSERT_TRUE(QFile::remove(guion));
    proc.PonCarpeta(u"ZVConnector.py"_s);
    EXPECT_EQ(Cuenta("ZVConnector.py"), 0);
}

TEST_F(GuionesFicticios, DoNotRunWhenTheirInterpreterHasEnded) {
    proc.Pon(u"ZVConnector.py"_s, "#!/usr/bin/env python3\n");
    const QByteArray orden = "python3" + QByteArray(1, '\0') + QFile::encodeName(guion) + '\0';
    Pon(10, "python3", {}, orden, 'Z');
    Pon(11, "python3", {}, orden);
    EXPECT_EQ(Terminados("ZVConnector.py"), QList<qint64>{11});
}

TEST_F(ProcesosFicticios, KnowsACutNameBehindOptions) {
    Pon(10, "ZVConnectorDePr", u"/usr/bin/bash"_s,
        QByteArray("/bin/bash\0-e\0/opt/zv/ZVConnectorDePruebas\0", 42));
    EXPECT_EQ(Cuenta("ZVConnectorDePruebas"), 1);
}

TEST_F(ProcesosFicticios, KnowsProgramsOfOtherSystemsUnderALoader) {
    Pon(10, "ZVConnector.exe", u"/usr/lib/loader64"_s, QByteArray("C:\\ZV\\ZVConnector.exe\0", 22));
    EXPECT_EQ(Cuenta("ZVConnector.exe"), 1);
}

TEST_F(ProcesosFicticios, AProgramReplacedByAnUpdateKeepsItsName) {
    Pon(10, "ZVConnectorDePr", u"/opt/zv/ZVConnectorDePruebas (deleted)"_s);
    EXPECT_EQ(Cuenta("ZVConnectorDePruebas"), 1);
}

TEST_F(ProcesosFicticios, ArgumentsAreNoNames) {
    Pon(10, "tail", u"/usr/bin/tail"_s, QByteArray("tail\0-f\0ZVConnector\0", 21));
    Pon(11, "grep", u"/usr/bin/grep"_s, QByteArray("grep\0ZVConnector\0", 18));
    EXPECT_EQ(Cuenta("ZVConnector"), 0);
    EXPECT_TRUE(Terminados("ZVConnector").isEmpty());
}

TEST_F(ProcesosFicticios, EndedProcessesThatWaitForTheirParentDoNotRun) {
    Pon(10, "ZVConnector", {}, {}, 'Z');
    EXPECT_EQ(Cuenta("ZVConnector"), 0);
    EXPECT_TRUE(Terminados("ZVConnector").isEmpty());
}

TEST_F(ProcesosFicticios, OddNamesAndEntriesDoNoHarm) {
    Pon(10, "a) Z (b", u"/opt/a) Z (b"_s);
    Pon(11, "", {});
    proc.PonCarpeta(u"12"_s); // gone meanwhile
    proc.Pon(u"13/stat"_s, "13 sin nombre");
    proc.Pon(u"14/stat"_s, "14 (x)");
    proc.PonCarpeta(u"sys"_s);
    proc.Pon(u"uptime"_s, "1");
    EXPECT_EQ(Cuenta("a) Z (b"), 1);
    EXPECT_EQ(Cuenta("x"), 1);
    EXPECT_EQ(SystemProcessList(proc.Ruta(u"no"_s)).Contar(u"x"_s), 0);
}

TEST(SystemProcessList, SeesAndEndsARealScriptUnderItsInterpretersName) {
    const CarpetaTemporal carpeta;
    const QString nombre = u"zvp%1.sh"_s.arg(::getpid());
    // The interpreter is found by env, so that the process has the name of the interpreter.
    const QString guion =
        carpeta.Pon(nombre, "#!/usr/bin/env sh\nread nada\n"); // waits for its input
    ASSERT_TRUE(QFile::setPermissions(guion, QFile::ReadOwner | QFile::ExeOwner));

    SystemProcessList procesos;
    QProcess lector; // has the script as its argument too
    lector.start(u"tail"_s, {u"-f"_s, guion});
    ASSERT_TRUE(lector.waitForStarted());
    ASSERT_TRUE(lector.waitForReadyRead());
    EXPECT_EQ(procesos.Contar(nombre), 0);
    QProcess proceso;
    proceso.start(guion, {});
    ASSERT_TRUE(proceso.waitForStarted());
    // A process that is just being given its program has no arguments yet.
    const QDeadlineTimer limite(5000);
    while (procesos.Contar(nombre) == 0 && !limite.hasExpired()) {
    }
    EXPECT_EQ(procesos.Contar(nombre), 1);
    // Until env has given its place to the shell.
    const QString orden = u"/proc/%1/comm"_s.arg(proceso.processId());
    const auto corto = [&orden] {
        QFile fichero(orden);
        return fichero.open(QIODevice::ReadOnly) ? fichero.readAll().trimmed() : QByteArray();
    };
    while (corto() != "sh" && !limite.hasExpired()) {
    }
    ASSERT_EQ(corto(), "sh");
    EXPECT_EQ(procesos.Contar(nombre), 1);

    procesos.Terminar(nombre);
    ASSERT_TRUE(proceso.waitForFinished());
    EXPECT_EQ(proceso.exitCode(), SIGTERM);
    EXPECT_EQ(lector.state(), QProcess::Running);
    lector.kill();
    lector.waitForFinished();
}

TEST(SystemProcessList, SeesAndEndsARealProcess) {
    const CarpetaTemporal carpeta;
    // Longer than the kernel's short name, and nobody else's.
    const QString nombre = u"ZVPruebaDeProcesos%1"_s.arg(::getpid());
    const QString programa = carpeta.Ruta(nombre);
    ASSERT_TRUE(QFile::copy(u"/bin/sleep"_s, programa));
    ASSERT_TRUE(QFile::setPermissions(programa, QFile::ReadOwner | QFile::ExeOwner));

    SystemProcessList procesos;
    EXPECT_EQ(procesos.Contar(nombre), 0);
    QProcess proceso;
    proceso.start(programa, {u"60"_s});
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
