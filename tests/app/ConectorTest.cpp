// The connector program: when it is started, found, missed and ended.
#include "BancoMonitor.h"
#include "platform/StringLiterals.h"

namespace zv::test {

class ConectorTest : public BancoMonitor {
  protected:
    ConectorTest() : ruta(carpeta.filePath(u"con ector/ZVConnector.exe"_s)) {
        Ajustes().ZVConectorActive = true;
        Ajustes().ZVConectorPath = ruta;
    }
    void CrearPrograma() {
        QDir(carpeta.path()).mkdir(u"con ector"_s);
        QFile fichero(ruta);
        ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
    }

    QString ruta;
};

TEST_F(ConectorTest, IsNotStartedWithoutPathOrFlag) {
    Ajustes().ZVConectorActive = false;
    monitor->Conector().ArrancarConector();
    EXPECT_FALSE(monitor->Conector().EnMarcha());
    Ajustes().ZVConectorActive = true;
    Ajustes().ZVConectorPath.clear();
    monitor->Conector().ArrancarConector();
    EXPECT_FALSE(monitor->Conector().EnMarcha());
    EXPECT_TRUE(shell.abiertos.isEmpty());
}

TEST_F(ConectorTest, OneThatRunsIsLeftAlone) {
    procesos.enMarcha << u"ZVConnector.exe"_s;
    monitor->Conector().ArrancarConector();
    EXPECT_TRUE(monitor->Conector().EnMarcha());
    EXPECT_TRUE(shell.abiertos.isEmpty());
}

TEST_F(ConectorTest, IsStartedInItsOwnFolder) {
    CrearPrograma();
    monitor->Conector().ArrancarConector();
    EXPECT_EQ(shell.abiertos,
              QStringList{ruta + QLatin1Char('|') + carpeta.filePath(u"con ector"_s)});
    EXPECT_TRUE(monitor->Conector().EnMarcha());
}

TEST_F(ConectorTest, AStartThatFailsIsSeenInTheProcessList) {
    CrearPrograma();
    shell.arranca = false;
    monitor->Conector().ArrancarConector();
    EXPECT_FALSE(monitor->Conector().EnMarcha());
}

TEST_F(ConectorTest, AMissingProgramIsTold) {
    dialogos.EsperaMensaje(u"Conector no cargado"_s,
                           u"El conector no está disponible en la ruta especificada en la "
                           "configuración. Consulte con su técnico"_s);
    monitor->Conector().ArrancarConector();
    EXPECT_FALSE(monitor->Conector().EnMarcha());
    EXPECT_TRUE(shell.abiertos.isEmpty());
}

TEST_F(ConectorTest, OneThatSomebodyStartsUnderTheMessageCounts) {
    dialogos.EsperaMensaje(u"Conector no cargado"_s, testing::_, Respuesta::Aceptar,
                           EstiloMensaje::Aceptar,
                           [this] { procesos.enMarcha << u"ZVConnector.exe"_s; });
    monitor->Conector().ArrancarConector();
    EXPECT_TRUE(monitor->Conector().EnMarcha());
}

TEST_F(ConectorTest, ItsWordsComeFromTheLanguageFile) {
    QFile fichero(carpeta.filePath(u"RWLang.ini"_s));
    ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
    fichero.write("[COMMON]\r\nconectorNoCargado=a\r\nconectorNoDisponible=b\r\n");
    fichero.close();
    dialogos.EsperaMensaje(u"a"_s, u"b"_s);
    monitor->Conector().ArrancarConector();
}

TEST_F(ConectorTest, APathThatEndsInASeparatorNamesNoProgram) {
    QDir(carpeta.path()).mkdir(u"con ector"_s);
    Ajustes().ZVConectorPath = carpeta.filePath(u"con ector"_s) + QLatin1Char('/');
    dialogos.EsperaMensaje(u"Conector no cargado"_s, testing::_);
    monitor->Conector().ArrancarConector();
    EXPECT_FALSE(monitor->Conector().EnMarcha());
    monitor->Conector().PararConector();
    EXPECT_TRUE(procesos.terminados.isEmpty());
    EXPECT_TRUE(shell.abiertos.isEmpty());
}

TEST_F(ConectorTest, AFolderIsNoProgram) {
    QDir(carpeta.path()).mkpath(u"con ector/ZVConnector.exe"_s);
    dialogos.EsperaMensaje(u"Conector no cargado"_s, testing::_);
    monitor->Conector().ArrancarConector();
    EXPECT_TRUE(shell.abiertos.isEmpty());
}

TEST_F(ConectorTest, IsEndedOnlyIfItRuns) {
    monitor->Conector().PararConector();
    EXPECT_TRUE(procesos.terminados.isEmpty());
    procesos.enMarcha << u"ZVConnector.exe"_s;
    monitor->Conector().PararConector();
    EXPECT_EQ(procesos.terminados, QStringList{u"ZVConnector.exe"_s});
    Ajustes().ZVConectorPath.clear();
    monitor->Conector().PararConector();
    EXPECT_EQ(procesos.terminados.size(), 1);
}

TEST_F(ConectorTest, APathOfTheOtherPlatformNamesItsProgramToo) {
    Ajustes().ZVConectorPath = u"C:\\Zorvex\\ZVConnector.exe"_s;
    procesos.enMarcha << u"ZVConnector.exe"_s;
    monitor->Conector().ArrancarConector();
    EXPECT_TRUE(monitor->Conector().EnMarcha());
}

} // namespace zv::test
