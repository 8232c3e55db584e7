// The daily log files: names, lines, failures, and which of them a start removes.
#include "ui/LogFiles.h"

#include "platform/ErrorEjecucion.h"
#include "platform/FileDescriptor.h"
#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/DialogosGuion.h"
#include "support/FixedClock.h"
#include "support/ImprimeQt.h"
#include "support/NumeroError.h"
#include "support/SinPrivilegios.h"

#include <QFileInfo>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zv::test {
namespace {

class LogFilesTest : public testing::Test {
  protected:
    LogFiles Log() { return {carpeta_.Ruta(), u"ZVMonitor"_s, u"26.5.25"_s, reloj_}; }
    static QDateTime Dia(int año, int mes, int dia) { return {QDate(año, mes, dia), QTime(8, 30)}; }
    void Poner(std::initializer_list<const char*> nombres) {
        carpeta_.PonCarpeta(u"Debug"_s);
        for (const char* nombre : nombres) {
            carpeta_.Pon(u"Debug/"_s + QString::fromUtf8(nombre), "x\r\n");
        }
    }
    QStringList EnDebug() const { return carpeta_.Entradas(u"Debug"_s); }

    CarpetaTemporal carpeta_;
    FixedClock reloj_{QDateTime(QDate(2026, 5, 9), QTime(18, 4, 11))};
    DialogosGuion dialogos_;
};

TEST_F(LogFilesTest, WritesVersionTimeAndTextEndedByCarriageReturnAndLineFeed) {
    LogFiles log = Log();
    log.LogLinea(u"INICIADO"_s);
    EXPECT_EQ(carpeta_.Lee(u"Debug/ZVMonitor20260509.log"_s), "v26.5.25 - 18:04:11 - INICIADO\r\n");
}

TEST_F(LogFilesTest, AppendsLinesInOrder) {
    LogFiles log = Log();
    log.LogLinea(u"DARCAMBIO_BEGINTRANS"_s);
    reloj_.Avanzar(1000);
    log.LogLinea(u"DARCAMBIO_COMMIT"_s);
    EXPECT_EQ(carpeta_.Lee(u"Debug/ZVMonitor20260509.log"_s),
              "v26.5.25 - 18:04:11 - DARCAMBIO_BEGINTRANS\r\n"
              "v26.5.25 - 18:04:12 - DARCAMBIO_COMMIT\r\n");
}

TEST_F(LogFilesTest, PadsTheHourAndTheDate) {
    reloj_.Fijar(QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5)));
    Log().LogLinea(u"A"_s);
    EXPECT_EQ(carpeta_.Lee(u"Debug/ZVMonitor20260102.log"_s), "v26.5.25 - 03:04:05 - A\r\n");
}

TEST_F(LogFilesTest, FirstLineAfterMidnightGoesToANewFile) {
    LogFiles log = Log();
    reloj_.Fijar(QDateTime(QDate(2026, 5, 9), QTime(23, 59, 59)));
    log.LogLinea(u"antes"_s);
    reloj_.Avanzar(1000);
    log.LogLinea(u"después"_s);
    EXPECT_EQ(carpeta_.Lee(u"Debug/ZVMonitor20260509.log"_s), "v26.5.25 - 23:59:59 - antes\r\n");
    EXPECT_EQ(carpeta_.Lee(u"Debug/ZVMonitor20260510.log"_s),
              "v26.5.25 - 00:00:00 - despu\xe9s\r\n");
}

TEST_F(LogFilesTest, WritesTheSingleByteCodePage) {
    Log().LogLinea(u"AÑADIRCAMBIO_OK 12,50 € Ω"_s);
    EXPECT_TRUE(carpeta_.Lee(u"Debug/ZVMonitor20260509.log"_s)
                    .endsWith("A\xd1"
                              "ADIRCAMBIO_OK 12,50 \x80 ?\r\n"));
}

TEST_F(LogFilesTest, KeepsALineBreakInsideTheText) {
    Log().LogLinea(u"uno\r\ndos\ntres"_s);
    EXPECT_EQ(carpeta_.Lee(u"Debug/ZVMonitor20260509.log"_s),
              "v26.5.25 - 18:04:11 - uno\r\ndos\ntres\r\n");
}

TEST_F(LogFilesTest, NameOfTheFileIsTheProgramsWithItsDots) {
    Poner({"Otro.v220260501.log", "Otro20260501.log"});
    LogFiles log(carpeta_.Ruta(), u"Otro.v2"_s, u"1.2.3"_s, reloj_);
    log.LogLinea(u"A"_s);
    log.LimpiarLogs(dialogos_);
    EXPECT_EQ(EnDebug(), QStringList({u"Otro.v220260509.log"_s, u"Otro20260501.log"_s}));
}

TEST_F(LogFilesTest, FolderThatEndsInASlashIsUsedAsItIs) {
    LogFiles log(carpeta_.Ruta() + QLatin1Char('/'), u"ZVMonitor"_s, u"1.2.3"_s, reloj_);
    log.LogLinea(u"A"_s);
    EXPECT_EQ(EnDebug(), QStringList{u"ZVMonitor20260509.log"_s});
}

TEST_F(LogFilesTest, RecreatesTheFolderDeletedBetweenTwoLines) {
    LogFiles log = Log();
    log.LogLinea(u"uno"_s);
    QDir(carpeta_.Ruta(u"Debug"_s)).removeRecursively();
    log.LogLinea(u"dos"_s);
    EXPECT_EQ(carpeta_.Lee(u"Debug/ZVMonitor20260509.log"_s), "v26.5.25 - 18:04:11 - dos\r\n");
}

TEST_F(LogFilesTest, NothingStaysOpenBetweenLines) {
    LogFiles log = Log();
    const auto abiertos = [] {
        return QDir(u"/proc/self/fd"_s)
            .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
            .size();
    };
    const auto antes = abiertos();
    log.LogLinea(u"uno"_s);
    log.LogFast(u"dos"_s);
    log.LimpiarLogs(dialogos_);
    EXPECT_EQ(abiertos(), antes);
}

TEST_F(LogFilesTest, AppendsToWhatAnotherCopyWrites) {
    LogFiles una = Log();
    LogFiles otra = Log();
    una.LogLinea(u"a"_s);
    otra.LogLinea(u"b"_s);
    una.LogLinea(u"c"_s);
    EXPECT_EQ(carpeta_.Lee(u"Debug/ZVMonitor20260509.log"_s),
              "v26.5.25 - 18:04:11 - a\r\nv26.5.25 - 18:04:11 - b\r\nv26.5.25 - 18:04:11 - c\r\n");
}

TEST_F(LogFilesTest, FullDiskRaises61) {
    carpeta_.PonCarpeta(u"Debug"_s);
    ASSERT_TRUE(QFile::link(u"/dev/full"_s, carpeta_.Ruta(u"Debug/ZVMonitor20260509.log"_s)));
    EXPECT_EQ(NumeroError([this] { Log().LogLinea(u"A"_s); }), 61);
}

TEST_F(LogFilesTest, FileInThePlaceOfTheFolderRaises76) {
    carpeta_.Pon(u"Debug"_s, "no soy carpeta");
    EXPECT_EQ(NumeroError([this] { Log().LogLinea(u"A"_s); }), 76);
}

TEST_F(LogFilesTest, FolderInThePlaceOfTheFileRaises75) {
    carpeta_.PonCarpeta(u"Debug/ZVMonitor20260509.log"_s);
    try {
        Log().LogLinea(u"A"_s);
        FAIL() << "nothing was raised";
    } catch (const ErrorEjecucion& e) {
        EXPECT_EQ(e.Numero(), 75);
        EXPECT_EQ(e.Descripcion(),
                  u"Error de acceso a la ruta o al archivo: %1 (es una carpeta)"_s.arg(
                      carpeta_.Ruta(u"Debug/ZVMonitor20260509.log"_s)));
    }
}

// With a reader and without: a line that nobody keeps is no line.
TEST_F(LogFilesTest, APipeInThePlaceOfTheFileRaises75AndIsNotWaitedFor) {
    carpeta_.PonCarpeta(u"Debug"_s);
    const QByteArray ruta = QFile::encodeName(carpeta_.Ruta(u"Debug/ZVMonitor20260509.log"_s));
    const QByteArray rapido = QFile::encodeName(carpeta_.Ruta(u"Debug/20260509_Fast.log"_s));
    ASSERT_EQ(::mkfifo(ruta.constData(), 0600), 0);
    ASSERT_EQ(::mkfifo(rapido.constData(), 0600), 0);
    EXPECT_EQ(NumeroError([this] { Log().LogLinea(u"A"_s); }), 75);
    EXPECT_NO_THROW(Log().LogFast(u"A"_s));
    const FileDescriptor lector(::open(ruta.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    const FileDescriptor lectorFast(::open(rapido.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    try {
        Log().LogLinea(u"A"_s);
        FAIL() << "nothing was raised";
    } catch (const ErrorEjecucion& e) {
        EXPECT_EQ(e.Numero(), 75);
        EXPECT_EQ(e.Descripcion(),
                  u"Error de acceso a la ruta o al archivo: %1 (no es un fichero normal)"_s.arg(
                      QFile::decodeName(ruta)));
    }
    EXPECT_NO_THROW(Log().LogFast(u"A"_s));
    char letra = 0;
    EXPECT_EQ(::read(lector.Numero(), &letra, 1), 0);
    EXPECT_EQ(::read(lectorFast.Numero(), &letra, 1), 0);
    QFile::remove(QFile::decodeName(ruta));
    Log().LogLinea(u"B"_s);
    EXPECT_EQ(carpeta_.Lee(u"Debug/ZVMonitor20260509.log"_s), "v26.5.25 - 18:04:11 - B\r\n");
}

// As file servers do for their clients: whoever opens the file waits until they have let it go.
TEST_F(LogFilesTest, WaitsForAFileThatIsLentOut) {
    carpeta_.Pon(u"Debug/ZVMonitor20260509.log"_s, "");
    const QByteArray ruta = QFile::encodeName(carpeta_.Ruta(u"Debug/ZVMonitor20260509.log"_s));
    int tubo[2] = {-1, -1};
    ASSERT_EQ(::pipe(tubo), 0);
    const pid_t hijo = ::fork();
    if (hijo == 0) {
        const int fd = ::open(ruta.constData(), O_RDWR);
        const char prestado = ::fcntl(fd, F_SETLEASE, F_WRLCK) == 0 ? 's' : 'n';
        if (::write(tubo[1], &prestado, 1) == 1 && prestado == 's') {
            ::pause(); // the signal that asks for the file back ends this process
        }
        ::_exit(0);
    }
    char prestado = '?';
    ASSERT_EQ(::read(tubo[0], &prestado, 1), 1);
    if (prestado == 's') {
        EXPECT_NO_THROW(Log().LogLinea(u"A"_s));
        EXPECT_EQ(carpeta_.Lee(u"Debug/ZVMonitor20260509.log"_s), "v26.5.25 - 18:04:11 - A\r\n");
    }
    ASSERT_EQ(::waitpid(hijo, nullptr, 0), hijo);
    ::close(tubo[0]);
    ::close(tubo[1]);
    if (prestado != 's') {
        GTEST_SKIP() << "this file system lends no files";
    }
}

TEST_F(LogFilesTest, AFailureNamesTheFileAndItsReason) {
    const auto descripcion = [](LogFiles log) {
        try {
            log.LogLinea(u"A"_s);
        } catch (const ErrorEjecucion& e) {
            return e.Descripcion();
        }
        return QString();
    };
    EXPECT_EQ(descripcion({carpeta_.Ruta(u"no"_s), u"ZVMonitor"_s, u"1.2.3"_s, reloj_}),
              u"No se ha encontrado la ruta de acceso: "_s + carpeta_.Ruta(u"no/Debug/"_s));
    carpeta_.PonCarpeta(u"Debug"_s);
    const QString fichero = carpeta_.Ruta(u"Debug/ZVMonitor20260509.log"_s);
    ASSERT_TRUE(QFile::link(u"/dev/full"_s, fichero));
    EXPECT_EQ(descripcion(Log()), u"Disco lleno: "_s + fichero);
}

// Locks of this system bind only those who ask for them: a line is never lost to one.
TEST_F(LogFilesTest, WritesAFileThatAnotherProgramHoldsALockOn) {
    carpeta_.Pon(u"Debug/ZVMonitor20260509.log"_s, "");
    const FileDescriptor otro(
        ::open(QFile::encodeName(carpeta_.Ruta(u"Debug/ZVMonitor20260509.log"_s)), O_RDWR));
    ASSERT_EQ(::flock(otro.Numero(), LOCK_EX), 0);
    Log().LogLinea(u"A"_s);
    EXPECT_EQ(carpeta_.Lee(u"Debug/ZVMonitor20260509.log"_s), "v26.5.25 - 18:04:11 - A\r\n");
}

TEST_F(LogFilesTest, MissingProgramFolderRaises76) {
    LogFiles log(carpeta_.Ruta(u"no/existe"_s), u"ZVMonitor"_s, u"1.2.3"_s, reloj_);
    EXPECT_EQ(NumeroError([&log] { log.LogLinea(u"A"_s); }), 76);
}

TEST_F(LogFilesTest, FolderWithoutPermissionRaises70) {
    carpeta_.PonCarpeta(u"Debug"_s);
    const QString debug = carpeta_.Ruta(u"Debug"_s);
    QFile::setPermissions(carpeta_.Ruta(), QFileDevice::Permissions(0x7755));
    QFile::setPermissions(debug, QFileDevice::Permissions(0x5555));
    int numero = 0;
    {
        const SinPrivilegios nadie;
        numero = NumeroError([this] { Log().LogLinea(u"A"_s); });
    }
    QFile::setPermissions(debug, QFileDevice::Permissions(0x7755));
    EXPECT_EQ(numero, 70);
}

TEST_F(LogFilesTest, FastLineHasTimeTicksAndText) {
    carpeta_.PonCarpeta(u"Debug"_s);
    reloj_.FijarTicks(7345281);
    LogFiles log = Log();
    log.LogFast(u"R: S|T0001"_s);
    reloj_.Avanzar(1000);
    log.LogFast(u"E: 0|Ñ"_s);
    EXPECT_EQ(carpeta_.Lee(u"Debug/20260509_Fast.log"_s),
              "18:04:11-7345281 R: S|T0001\r\n18:04:12-7346281 E: 0|\xd1\r\n");
}

TEST_F(LogFilesTest, FastTicksAreNotPadded) {
    carpeta_.PonCarpeta(u"Debug"_s);
    reloj_.FijarTicks(7);
    Log().LogFast(u"R: "_s);
    EXPECT_EQ(carpeta_.Lee(u"Debug/20260509_Fast.log"_s), "18:04:11-7 R: \r\n");
}

TEST_F(LogFilesTest, FastLinesAreLostUntilTheFirstGeneralLineCreatesTheFolder) {
    LogFiles log = Log();
    EXPECT_NO_THROW(log.LogFast(u"R: perdida"_s));
    EXPECT_FALSE(carpeta_.Esta(u"Debug"_s));
    log.LogLinea(u"A"_s);
    log.LogFast(u"R: escrita"_s);
    EXPECT_EQ(carpeta_.Lee(u"Debug/20260509_Fast.log"_s), "18:04:11-7345281 R: escrita\r\n");
}

TEST_F(LogFilesTest, FastSwallowsAFullDiskAndAWrongFolder) {
    carpeta_.PonCarpeta(u"Debug/20260509_Fast.log"_s);
    EXPECT_NO_THROW(Log().LogFast(u"R: a"_s));
    QDir().rmdir(carpeta_.Ruta(u"Debug/20260509_Fast.log"_s));
    ASSERT_TRUE(QFile::link(u"/dev/full"_s, carpeta_.Ruta(u"Debug/20260509_Fast.log"_s)));
    EXPECT_NO_THROW(Log().LogFast(u"R: a"_s));
    QFile::remove(carpeta_.Ruta(u"Debug/20260509_Fast.log"_s));
    Log().LogFast(u"R: b"_s);
    EXPECT_EQ(carpeta_.Lee(u"Debug/20260509_Fast.log"_s), "18:04:11-7345281 R: b\r\n");
}

TEST_F(LogFilesTest, FileOfSevenDaysAgoSurvivesAndGoesADayLater) {
    Poner({"ZVMonitor20260101.log", "20260101_Fast.log"});
    reloj_.Fijar(Dia(2026, 1, 8));
    Log().LimpiarLogs(dialogos_);
    EXPECT_EQ(EnDebug().size(), 2);
    reloj_.Fijar(Dia(2026, 1, 9));
    Log().LimpiarLogs(dialogos_);
    EXPECT_EQ(EnDebug(), QStringList());
}

TEST_F(LogFilesTest, EightDailyFilesOfEachKindStay) {
    carpeta_.PonCarpeta(u"Debug"_s);
    for (int dias = 0; dias < 30; ++dias) {
        const QString fecha = QDate(2026, 5, 9).addDays(-dias).toString(u"yyyyMMdd"_s);
        carpeta_.Pon(u"Debug/ZVMonitor"_s + fecha + u".log"_s, "");
        carpeta_.Pon(u"Debug/"_s + fecha + u"_Fast.log"_s, "");
    }
    Log().LimpiarLogs(dialogos_);
    EXPECT_EQ(EnDebug().size(), 16);
    EXPECT_TRUE(carpeta_.Esta(u"Debug/ZVMonitor20260502.log"_s));
    EXPECT_FALSE(carpeta_.Esta(u"Debug/ZVMonitor20260501.log"_s));
}

TEST_F(LogFilesTest, OtherNamesStayHoweverOld) {
    Poner({"notes.log", "ZVMonitor20200101.txt", "Connector20200101.log", "20200101.log"});
    const QStringList antes = EnDebug();
    Log().LimpiarLogs(dialogos_);
    EXPECT_EQ(EnDebug(), antes);
}

TEST_F(LogFilesTest, NameInOtherCaseStays) {
    Poner({"zvmonitor20200101.log"});
    Log().LimpiarLogs(dialogos_);
    EXPECT_EQ(EnDebug(), QStringList{u"zvmonitor20200101.log"_s});
}

TEST_F(LogFilesTest, OnlyTheNameCountsNotTheCaseOfItsEnding) {
    Poner({"20200101_FAST.LOG", "ZVMonitor20200101.LOG"});
    Log().LimpiarLogs(dialogos_);
    EXPECT_EQ(EnDebug(), QStringList());
}

TEST_F(LogFilesTest, PurgesTheLogsOfItsOwnProgramName) {
    Poner({"Otro20200101.log", "ZVMonitor20200101.log"});
    LogFiles log(carpeta_.Ruta(), u"Otro"_s, u"1.2.3"_s, reloj_);
    log.LimpiarLogs(dialogos_);
    EXPECT_EQ(EnDebug(), QStringList{u"ZVMonitor20200101.log"_s});
}

TEST_F(LogFilesTest, AFolderNamedLikeAnOldLogStays) {
    carpeta_.PonCarpeta(u"Debug/ZVMonitor20200101.log"_s);
    Log().LimpiarLogs(dialogos_);
    EXPECT_TRUE(carpeta_.Esta(u"Debug/ZVMonitor20200101.log"_s));
}

TEST_F(LogFilesTest, WithoutTheFolderPurgingDoesNothingAndTheFirstLineCreatesIt) {
    Log().LimpiarLogs(dialogos_);
    EXPECT_FALSE(carpeta_.Esta(u"Debug"_s));
    EXPECT_EQ(dialogos_.Llamadas().size(), 0);
    Log().LogLinea(u"A"_s);
    EXPECT_TRUE(carpeta_.Esta(u"Debug/ZVMonitor20260509.log"_s));
}

TEST_F(LogFilesTest, AFailureToDeleteIsShownOnceAndPurgingEnds) {
    Poner({"ZVMonitor20200101.log", "ZVMonitor20200102.log"});
    const QString debug = carpeta_.Ruta(u"Debug"_s);
    QFile::setPermissions(carpeta_.Ruta(), QFileDevice::Permissions(0x7755));
    QFile::setPermissions(debug, QFileDevice::Permissions(0x5555));
    QString texto;
    dialogos_.EsperaMensaje(u"Error al eliminar los LOGS "_s,
                            testing::Truly([&texto](const QString& t) {
                                texto = t;
                                return true;
                            }),
                            Respuesta::Aceptar, EstiloMensaje::Aceptar);
    {
        const SinPrivilegios nadie;
        EXPECT_NO_THROW(Log().LimpiarLogs(dialogos_));
    }
    QFile::setPermissions(debug, QFileDevice::Permissions(0x7755));
    EXPECT_TRUE(texto.startsWith(u"Error 70 - Permiso denegado"_s)) << texto.toStdString();
    EXPECT_EQ(EnDebug().size(), 2);
}

} // namespace
} // namespace zv::test
