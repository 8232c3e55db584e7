// The daily log files: names, lines, failures, and which of them a start removes.
#include "ui/LogFicheros.h"

#include "platform/DescriptorFichero.h"
#include "platform/ErrorEjecucion.h"
#include "support/CarpetaTemporal.h"
#include "support/DialogosGuion.h"
#include "support/ImprimeQt.h"
#include "support/NumeroError.h"
#include "support/RelojFijo.h"
#include "support/SinPrivilegios.h"

#include <QFileInfo>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>

namespace zv::test {
namespace {

class LogFicherosTest : public testing::Test {
  protected:
    LogFicheros Log() {
        return {carpeta_.Ruta(), QStringLiteral("ZVMonitor"), QStringLiteral("26.5.25"), reloj_};
    }
    static QDateTime Dia(int año, int mes, int dia) { return {QDate(año, mes, dia), QTime(8, 30)}; }
    void Poner(std::initializer_list<const char*> nombres) {
        carpeta_.PonCarpeta(QStringLiteral("Debug"));
        for (const char* nombre : nombres)
            carpeta_.Pon(QStringLiteral("Debug/") + QString::fromUtf8(nombre), "x\r\n");
    }
    QStringList EnDebug() const { return carpeta_.Entradas(QStringLiteral("Debug")); }

    CarpetaTemporal carpeta_;
    RelojFijo reloj_{QDateTime(QDate(2026, 5, 9), QTime(18, 4, 11))};
    DialogosGuion dialogos_;
};

TEST_F(LogFicherosTest, WritesVersionTimeAndTextEndedByCarriageReturnAndLineFeed) {
    LogFicheros log = Log();
    log.LogLinea(QStringLiteral("INICIADO"));
    EXPECT_EQ(carpeta_.Lee(QStringLiteral("Debug/ZVMonitor20260509.log")),
              "v26.5.25 - 18:04:11 - INICIADO\r\n");
}

TEST_F(LogFicherosTest, AppendsLinesInOrder) {
    LogFicheros log = Log();
    log.LogLinea(QStringLiteral("DARCAMBIO_BEGINTRANS"));
    reloj_.Avanzar(1000);
    log.LogLinea(QStringLiteral("DARCAMBIO_COMMIT"));
    EXPECT_EQ(carpeta_.Lee(QStringLiteral("Debug/ZVMonitor20260509.log")),
              "v26.5.25 - 18:04:11 - DARCAMBIO_BEGINTRANS\r\n"
              "v26.5.25 - 18:04:12 - DARCAMBIO_COMMIT\r\n");
}

TEST_F(LogFicherosTest, PadsTheHourAndTheDate) {
    reloj_.Fijar(QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5)));
    Log().LogLinea(QStringLiteral("A"));
    EXPECT_EQ(carpeta_.Lee(QStringLiteral("Debug/ZVMonitor20260102.log")),
              "v26.5.25 - 03:04:05 - A\r\n");
}

TEST_F(LogFicherosTest, FirstLineAfterMidnightGoesToANewFile) {
    LogFicheros log = Log();
    reloj_.Fijar(QDateTime(QDate(2026, 5, 9), QTime(23, 59, 59)));
    log.LogLinea(QStringLiteral("antes"));
    reloj_.Avanzar(1000);
    log.LogLinea(QStringLiteral("después"));
    EXPECT_EQ(carpeta_.Lee(QStringLiteral("Debug/ZVMonitor20260509.log")),
              "v26.5.25 - 23:59:59 - antes\r\n");
    EXPECT_EQ(carpeta_.Lee(QStringLiteral("Debug/ZVMonitor20260510.log")),
              "v26.5.25 - 00:00:00 - despu\xe9s\r\n");
}

TEST_F(LogFicherosTest, WritesTheSingleByteCodePage) {
    Log().LogLinea(QStringLiteral("AÑADIRCAMBIO_OK 12,50 € Ω"));
    EXPECT_TRUE(carpeta_.Lee(QStringLiteral("Debug/ZVMonitor20260509.log"))
                    .endsWith("A\xd1"
                              "ADIRCAMBIO_OK 12,50 \x80 ?\r\n"));
}

TEST_F(LogFicherosTest, KeepsALineBreakInsideTheText) {
    Log().LogLinea(QStringLiteral("uno\r\ndos\ntres"));
    EXPECT_EQ(carpeta_.Lee(QStringLiteral("Debug/ZVMonitor20260509.log")),
              "v26.5.25 - 18:04:11 - uno\r\ndos\ntres\r\n");
}

TEST_F(LogFicherosTest, NameOfTheFileIsTheProgramsWithoutFolderAndExtension) {
    LogFicheros log(carpeta_.Ruta(), QStringLiteral("/opt/caja/Otro.bin"), QStringLiteral("1.2.3"),
                    reloj_);
    log.LogLinea(QStringLiteral("A"));
    EXPECT_EQ(EnDebug(), QStringList{QStringLiteral("Otro20260509.log")});
}

TEST_F(LogFicherosTest, FolderThatEndsInASlashIsUsedAsItIs) {
    LogFicheros log(carpeta_.Ruta() + QLatin1Char('/'), QStringLiteral("ZVMonitor"),
                    QStringLiteral("1.2.3"), reloj_);
    log.LogLinea(QStringLiteral("A"));
    EXPECT_EQ(EnDebug(), QStringList{QStringLiteral("ZVMonitor20260509.log")});
}

TEST_F(LogFicherosTest, RecreatesTheFolderDeletedBetweenTwoLines) {
    LogFicheros log = Log();
    log.LogLinea(QStringLiteral("uno"));
    QDir(carpeta_.Ruta(QStringLiteral("Debug"))).removeRecursively();
    log.LogLinea(QStringLiteral("dos"));
    EXPECT_EQ(carpeta_.Lee(QStringLiteral("Debug/ZVMonitor20260509.log")),
              "v26.5.25 - 18:04:11 - dos\r\n");
}

TEST_F(LogFicherosTest, NothingStaysOpenBetweenLines) {
    LogFicheros log = Log();
    const auto abiertos = [] {
        return QDir(QStringLiteral("/proc/self/fd"))
            .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
            .size();
    };
    const auto antes = abiertos();
    log.LogLinea(QStringLiteral("uno"));
    log.LogFast(QStringLiteral("dos"));
    log.LimpiarLogs(dialogos_);
    EXPECT_EQ(abiertos(), antes);
}

TEST_F(LogFicherosTest, AppendsToWhatAnotherCopyWrites) {
    LogFicheros una = Log();
    LogFicheros otra = Log();
    una.LogLinea(QStringLiteral("a"));
    otra.LogLinea(QStringLiteral("b"));
    una.LogLinea(QStringLiteral("c"));
    EXPECT_EQ(carpeta_.Lee(QStringLiteral("Debug/ZVMonitor20260509.log")),
              "v26.5.25 - 18:04:11 - a\r\nv26.5.25 - 18:04:11 - b\r\nv26.5.25 - 18:04:11 - c\r\n");
}

TEST_F(LogFicherosTest, FullDiskRaises61) {
    carpeta_.PonCarpeta(QStringLiteral("Debug"));
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/full"),
                            carpeta_.Ruta(QStringLiteral("Debug/ZVMonitor20260509.log"))));
    EXPECT_EQ(NumeroError([this] { Log().LogLinea(QStringLiteral("A")); }), 61);
}

TEST_F(LogFicherosTest, FileInThePlaceOfTheFolderRaises76) {
    carpeta_.Pon(QStringLiteral("Debug"), "no soy carpeta");
    EXPECT_EQ(NumeroError([this] { Log().LogLinea(QStringLiteral("A")); }), 76);
}

TEST_F(LogFicherosTest, FolderInThePlaceOfTheFileRaises75) {
    carpeta_.PonCarpeta(QStringLiteral("Debug/ZVMonitor20260509.log"));
    try {
        Log().LogLinea(QStringLiteral("A"));
        FAIL() << "nothing was raised";
    } catch (const ErrorEjecucion& e) {
        EXPECT_EQ(e.Numero(), 75);
        EXPECT_EQ(e.Descripcion(),
                  QStringLiteral("Error de acceso a la ruta o al archivo: %1 (es una carpeta)")
                      .arg(carpeta_.Ruta(QStringLiteral("Debug/ZVMonitor20260509.log"))));
    }
}

TEST_F(LogFicherosTest, AFailureNamesTheFileAndItsReason) {
    const auto descripcion = [](LogFicheros log) {
        try {
            log.LogLinea(QStringLiteral("A"));
        } catch (const ErrorEjecucion& e) {
            return e.Descripcion();
        }
        return QString();
    };
    EXPECT_EQ(descripcion({carpeta_.Ruta(QStringLiteral("no")), QStringLiteral("ZVMonitor"),
                           QStringLiteral("1.2.3"), reloj_}),
              QStringLiteral("No se ha encontrado la ruta de acceso: ") +
                  carpeta_.Ruta(QStringLiteral("no/Debug/")));
    carpeta_.PonCarpeta(QStringLiteral("Debug"));
    const QString fichero = carpeta_.Ruta(QStringLiteral("Debug/ZVMonitor20260509.log"));
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/full"), fichero));
    EXPECT_EQ(descripcion(Log()), QStringLiteral("Disco lleno: ") + fichero);
}

// Locks of this system bind only those who ask for them: a line is never lost to one.
TEST_F(LogFicherosTest, WritesAFileThatAnotherProgramHoldsALockOn) {
    carpeta_.Pon(QStringLiteral("Debug/ZVMonitor20260509.log"), "");
    const DescriptorFichero otro(::open(
        QFile::encodeName(carpeta_.Ruta(QStringLiteral("Debug/ZVMonitor20260509.log"))), O_RDWR));
    ASSERT_EQ(::flock(otro.Numero(), LOCK_EX), 0);
    Log().LogLinea(QStringLiteral("A"));
    EXPECT_EQ(carpeta_.Lee(QStringLiteral("Debug/ZVMonitor20260509.log")),
              "v26.5.25 - 18:04:11 - A\r\n");
}

TEST_F(LogFicherosTest, MissingProgramFolderRaises76) {
    LogFicheros log(carpeta_.Ruta(QStringLiteral("no/existe")), QStringLiteral("ZVMonitor"),
                    QStringLiteral("1.2.3"), reloj_);
    EXPECT_EQ(NumeroError([&log] { log.LogLinea(QStringLiteral("A")); }), 76);
}

TEST_F(LogFicherosTest, FolderWithoutPermissionRaises70) {
    carpeta_.PonCarpeta(QStringLiteral("Debug"));
    const QString debug = carpeta_.Ruta(QStringLiteral("Debug"));
    QFile::setPermissions(carpeta_.Ruta(), QFileDevice::Permissions(0x7755));
    QFile::setPermissions(debug, QFileDevice::Permissions(0x5555));
    int numero = 0;
    {
        const SinPrivilegios nadie;
        numero = NumeroError([this] { Log().LogLinea(QStringLiteral("A")); });
    }
    QFile::setPermissions(debug, QFileDevice::Permissions(0x7755));
    EXPECT_EQ(numero, 70);
}

TEST_F(LogFicherosTest, FastLineHasTimeTicksAndText) {
    carpeta_.PonCarpeta(QStringLiteral("Debug"));
    reloj_.FijarTicks(7345281);
    LogFicheros log = Log();
    log.LogFast(QStringLiteral("R: S|T0001"));
    reloj_.Avanzar(1000);
    log.LogFast(QStringLiteral("E: 0|Ñ"));
    EXPECT_EQ(carpeta_.Lee(QStringLiteral("Debug/20260509_Fast.log")),
              "18:04:11-7345281 R: S|T0001\r\n18:04:12-7346281 E: 0|\xd1\r\n");
}

TEST_F(LogFicherosTest, FastTicksAreNotPadded) {
    carpeta_.PonCarpeta(QStringLiteral("Debug"));
    reloj_.FijarTicks(7);
    Log().LogFast(QStringLiteral("R: "));
    EXPECT_EQ(carpeta_.Lee(QStringLiteral("Debug/20260509_Fast.log")), "18:04:11-7 R: \r\n");
}

TEST_F(LogFicherosTest, FastLinesAreLostUntilTheFirstGeneralLineCreatesTheFolder) {
    LogFicheros log = Log();
    EXPECT_NO_THROW(log.LogFast(QStringLiteral("R: perdida")));
    EXPECT_FALSE(carpeta_.Esta(QStringLiteral("Debug")));
    log.LogLinea(QStringLiteral("A"));
    log.LogFast(QStringLiteral("R: escrita"));
    EXPECT_EQ(carpeta_.Lee(QStringLiteral("Debug/20260509_Fast.log")),
              "18:04:11-7345281 R: escrita\r\n");
}

TEST_F(LogFicherosTest, FastSwallowsAFullDiskAndAWrongFolder) {
    carpeta_.PonCarpeta(QStringLiteral("Debug/20260509_Fast.log"));
    EXPECT_NO_THROW(Log().LogFast(QStringLiteral("R: a")));
    QDir().rmdir(carpeta_.Ruta(QStringLiteral("Debug/20260509_Fast.log")));
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/full"),
                            carpeta_.Ruta(QStringLiteral("Debug/20260509_Fast.log"))));
    EXPECT_NO_THROW(Log().LogFast(QStringLiteral("R: a")));
    QFile::remove(carpeta_.Ruta(QStringLiteral("Debug/20260509_Fast.log")));
    Log().LogFast(QStringLiteral("R: b"));
    EXPECT_EQ(carpeta_.Lee(QStringLiteral("Debug/20260509_Fast.log")), "18:04:11-7345281 R: b\r\n");
}

TEST_F(LogFicherosTest, FileOfSevenDaysAgoSurvivesAndGoesADayLater) {
    Poner({"ZVMonitor20260101.log", "20260101_Fast.log"});
    reloj_.Fijar(Dia(2026, 1, 8));
    Log().LimpiarLogs(dialogos_);
    EXPECT_EQ(EnDebug().size(), 2);
    reloj_.Fijar(Dia(2026, 1, 9));
    Log().LimpiarLogs(dialogos_);
    EXPECT_EQ(EnDebug(), QStringList());
}

TEST_F(LogFicherosTest, EightDailyFilesOfEachKindStay) {
    carpeta_.PonCarpeta(QStringLiteral("Debug"));
    for (int dias = 0; dias < 30; ++dias) {
        const QString fecha = QDate(2026, 5, 9).addDays(-dias).toString(QStringLiteral("yyyyMMdd"));
        carpeta_.Pon(QStringLiteral("Debug/ZVMonitor") + fecha + QStringLiteral(".log"), "");
        carpeta_.Pon(QStringLiteral("Debug/") + fecha + QStringLiteral("_Fast.log"), "");
    }
    Log().LimpiarLogs(dialogos_);
    EXPECT_EQ(EnDebug().size(), 16);
    EXPECT_TRUE(carpeta_.Esta(QStringLiteral("Debug/ZVMonitor20260502.log")));
    EXPECT_FALSE(carpeta_.Esta(QStringLiteral("Debug/ZVMonitor20260501.log")));
}

TEST_F(LogFicherosTest, OtherNamesStayHoweverOld) {
    Poner({"notes.log", "ZVMonitor20200101.txt", "Connector20200101.log", "20200101.log"});
    const QStringList antes = EnDebug();
    Log().LimpiarLogs(dialogos_);
    EXPECT_EQ(EnDebug(), antes);
}

TEST_F(LogFicherosTest, NameInOtherCaseStays) {
    Poner({"zvmonitor20200101.log"});
    Log().LimpiarLogs(dialogos_);
    EXPECT_EQ(EnDebug(), QStringList{QStringLiteral("zvmonitor20200101.log")});
}

TEST_F(LogFicherosTest, OnlyTheNameCountsNotTheCaseOfItsEnding) {
    Poner({"20200101_FAST.LOG", "ZVMonitor20200101.LOG"});
    Log().LimpiarLogs(dialogos_);
    EXPECT_EQ(EnDebug(), QStringList());
}

TEST_F(LogFicherosTest, PurgesTheLogsOfItsOwnProgramName) {
    Poner({"Otro20200101.log", "ZVMonitor20200101.log"});
    LogFicheros log(carpeta_.Ruta(), QStringLiteral("Otro"), QStringLiteral("1.2.3"), reloj_);
    log.LimpiarLogs(dialogos_);
    EXPECT_EQ(EnDebug(), QStringList{QStringLiteral("ZVMonitor20200101.log")});
}

TEST_F(LogFicherosTest, AFolderNamedLikeAnOldLogStays) {
    carpeta_.PonCarpeta(QStringLiteral("Debug/ZVMonitor20200101.log"));
    Log().LimpiarLogs(dialogos_);
    EXPECT_TRUE(carpeta_.Esta(QStringLiteral("Debug/ZVMonitor20200101.log")));
}

TEST_F(LogFicherosTest, WithoutTheFolderPurgingDoesNothingAndTheFirstLineCreatesIt) {
    Log().LimpiarLogs(dialogos_);
    EXPECT_FALSE(carpeta_.Esta(QStringLiteral("Debug")));
    EXPECT_EQ(dialogos_.Llamadas().size(), 0);
    Log().LogLinea(QStringLiteral("A"));
    EXPECT_TRUE(carpeta_.Esta(QStringLiteral("Debug/ZVMonitor20260509.log")));
}

TEST_F(LogFicherosTest, AFailureToDeleteIsShownOnceAndPurgingEnds) {
    Poner({"ZVMonitor20200101.log", "ZVMonitor20200102.log"});
    const QString debug = carpeta_.Ruta(QStringLiteral("Debug"));
    QFile::setPermissions(carpeta_.Ruta(), QFileDevice::Permissions(0x7755));
    QFile::setPermissions(debug, QFileDevice::Permissions(0x5555));
    QString texto;
    dialogos_.EsperaMensaje(QStringLiteral("Error al eliminar los LOGS "),
                            testing::Truly([&texto](const QString& t) {
                                texto = t;
                                return true;
                            }),
                            resultado::kAceptar, 0);
    {
        const SinPrivilegios nadie;
        EXPECT_NO_THROW(Log().LimpiarLogs(dialogos_));
    }
    QFile::setPermissions(debug, QFileDevice::Permissions(0x7755));
    EXPECT_TRUE(texto.startsWith(QStringLiteral("Error 70 - Permiso denegado")))
        << texto.toStdString();
    EXPECT_EQ(EnDebug().size(), 2);
}

} // namespace
} // namespace zv::test
