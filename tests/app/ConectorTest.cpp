// The connector program: when it is started, found, missed and ended.
#include "BancoMonitor.h"

namespace zv::test {

class ConectorTest : public BancoMonitor {
  protected:
    ConectorTest() : ruta(carpeta.filePath(QStringLiteral("con ector/ZVConnector.exe"))) {
        monitor->configuracio->ZVConectorActive = true;
        monitor->configuracio->ZVConectorPath = ruta;
    }
    void CrearPrograma() {
        QDir(carpeta.path()).mkdir(QStringLiteral("con ector"));
        QFile fichero(ruta);
        ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
    }

    QString ruta;
};

TEST_F(ConectorTest, IsNotStartedWithoutPathOrFlag) {
    monitor->configuracio->ZVConectorActive = false;
    monitor->conector.ArrancarConector();
    EXPECT_FALSE(monitor->conector.EnMarcha());
    monitor->configuracio->ZVConectorActive = true;
    monitor->configuracio->ZVConectorPath.clear();
    monitor->conector.ArrancarConector();
    EXPECT_FALSE(monitor->conector.EnMarcha());
    EXPECT_TRUE(shell.abiertos.isEmpty());
}

TEST_F(ConectorTest, OneThatRunsIsLeftAlone) {
    procesos.enMarcha << QStringLiteral("ZVConnector.exe");
    monitor->conector.ArrancarConector();
    EXPECT_TRUE(monitor->conector.EnMarcha());
    EXPECT_TRUE(shell.abiertos.isEmpty());
}

TEST_F(ConectorTest, IsStartedInItsOwnFolder) {
    CrearPrograma();
    monitor->conector.ArrancarConector();
    EXPECT_EQ(shell.abiertos,
              QStringList{ruta + QLatin1Char('|') + carpeta.filePath(QStringLiteral("con ector"))});
    EXPECT_TRUE(monitor->conector.EnMarcha());
}

TEST_F(ConectorTest, AStartThatFailsIsSeenInTheProcessList) {
    CrearPrograma();
    shell.arranca = false;
    monitor->conector.ArrancarConector();
    EXPECT_FALSE(monitor->conector.EnMarcha());
}

TEST_F(ConectorTest, AMissingProgramIsTold) {
    dialogos.EsperaMensaje(
        QStringLiteral("Conector no cargado"),
        QStringLiteral("El conector no está disponible en la ruta especificada en la "
                       "configuración. Consulte con su técnico"));
    monitor->conector.ArrancarConector();
    EXPECT_FALSE(monitor->conector.EnMarcha());
    EXPECT_TRUE(shell.abiertos.isEmpty());
}

TEST_F(ConectorTest, OneThatSomebodyStartsUnderTheMessageCounts) {
    dialogos.EsperaMensaje(QStringLiteral("Conector no cargado"), testing::_, resultado::kAceptar,
                           0, [this] { procesos.enMarcha << QStringLiteral("ZVConnector.exe"); });
    monitor->conector.ArrancarConector();
    EXPECT_TRUE(monitor->conector.EnMarcha());
}

TEST_F(ConectorTest, ItsWordsComeFromTheLanguageFile) {
    QFile fichero(carpeta.filePath(QStringLiteral("RWLang.ini")));
    ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
    fichero.write("[COMMON]\r\nconectorNoCargado=a\r\nconectorNoDisponible=b\r\n");
    fichero.close();
    dialogos.EsperaMensaje(QStringLiteral("a"), QStringLiteral("b"));
    monitor->conector.ArrancarConector();
}

TEST_F(ConectorTest, APathThatEndsInASeparatorNamesNoProgram) {
    QDir(carpeta.path()).mkdir(QStringLiteral("con ector"));
    monitor->configuracio->ZVConectorPath =
        carpeta.filePath(QStringLiteral("con ector")) + QLatin1Char('/');
    dialogos.EsperaMensaje(QStringLiteral("Conector no cargado"), testing::_);
    monitor->conector.ArrancarConector();
    EXPECT_FALSE(monitor->conector.EnMarcha());
    monitor->conector.PararConector();
    EXPECT_TRUE(procesos.terminados.isEmpty());
    EXPECT_TRUE(shell.abiertos.isEmpty());
}

TEST_F(ConectorTest, AFolderIsNoProgram) {
    QDir(carpeta.path()).mkpath(QStringLiteral("con ector/ZVConnector.exe"));
    dialogos.EsperaMensaje(QStringLiteral("Conector no cargado"), testing::_);
    monitor->conector.ArrancarConector();
    EXPECT_TRUE(shell.abiertos.isEmpty());
}

TEST_F(ConectorTest, IsEndedOnlyIfItRuns) {
    monitor->conector.PararConector();
    EXPECT_TRUE(procesos.terminados.isEmpty());
    procesos.enMarcha << QStringLiteral("ZVConnector.exe");
    monitor->conector.PararConector();
    EXPECT_EQ(procesos.terminados, QStringList{QStringLiteral("ZVConnector.exe")});
    monitor->configuracio->ZVConectorPath.clear();
    monitor->conector.PararConector();
    EXPECT_EQ(procesos.terminados.size(), 1);
}

TEST_F(ConectorTest, APathOfTheOtherPlatformNamesItsProgramToo) {
    monitor->configuracio->ZVConectorPath = QStringLiteral("C:\\Zorvex\\ZVConnector.exe");
    procesos.enMarcha << QStringLiteral("ZVConnector.exe");
    monitor->conector.ArrancarConector();
    EXPECT_TRUE(monitor->conector.EnMarcha());
}

} // namespace zv::test
