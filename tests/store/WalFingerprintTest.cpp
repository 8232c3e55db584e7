// When SQLite need not be asked whether anybody has written.
#include "store/sqlite/WalFingerprint.h"

#include "platform/StringLiterals.h"
#include "support/BaseDeDatosTemporal.h"
#include "support/GanchoFallos.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zv::test {
namespace {

class WalFingerprintTest : public testing::Test {
  protected:
    // Writes the log as if so many seconds ago.
    void Escribir(int hace) {
        QFile fichero(ruta_ + u"-wal"_s);
        ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
        fichero.write("x");
        fichero.close();
        Fechar(fichero.fileName(), hace);
    }
    // A machine may stand still for longer than the pause between two questions.
    bool Calla() {
        for (int i = 0; i < 100; ++i) {
            if (!huella_.HayQuePreguntar()) {
                return true;
            }
        }
        return false;
    }
    void Fechar(const QString& nombre, int hace) const {
        timespec tiempos[2]{};
        clock_gettime(CLOCK_REALTIME, &tiempos[1]);
        tiempos[1].tv_sec -= hace;
        tiempos[0] = tiempos[1];
        ASSERT_EQ(utimensat(AT_FDCWD, QFile::encodeName(nombre).constData(), tiempos, 0), 0);
    }
    // Until the log is not even looked at: a new date that comes by a second name, of which the
    // system does not tell, stays unseen.
    void EsperarVigilado() {
        const QTemporaryDir otra;
        const QString segundo = otra.filePath(u"segundo"_s);
        ASSERT_EQ(::link(QFile::encodeName(ruta_ + u"-wal"_s).constData(),
                         QFile::encodeName(segundo).constData()),
                  0);
        QElapsedTimer reloj;
        reloj.start();
        for (int hace = 61;; ++hace) {
            QElapsedTimer pausa;
            for (pausa.start(); pausa.elapsed() < 120;) {
                huella_.HayQuePreguntar();
            }
            while (huella_.HayQuePreguntar()) {
                ASSERT_LT(reloj.elapsed(), 10'000);
            }
            Fechar(segundo, hace);
            if (!huella_.HayQuePreguntar()) {
                return;
            }
            ASSERT_LT(reloj.elapsed(), 10'000) << "it is never watched";
        }
    }
    QTemporaryDir carpeta_;
    QString ruta_ = carpeta_.filePath(u"base"_s);
    WalFingerprint huella_;
};

TEST_F(WalFingerprintTest, ARestingLogNeedsNoQuestionForAWhile) {
    Escribir(60);
    huella_.Vigilar(QFile::encodeName(ruta_));
    QElapsedTimer reloj;
    reloj.start();
    EXPECT_TRUE(huella_.HayQuePreguntar());
    EXPECT_TRUE(Calla());
    // Every now and then it is asked all the same.
    int calladas = 0;
    while (!huella_.HayQuePreguntar()) {
        ++calladas;
        ASSERT_LT(reloj.elapsed(), 5000);
    }
    EXPECT_GT(calladas, 0);
    EXPECT_GE(reloj.elapsed(), 40);
    EXPECT_TRUE(Calla());
}

TEST_F(WalFingerprintTest, AWrittenLogIsAskedAbout) {
    Escribir(60);
    huella_.Vigilar(QFile::encodeName(ruta_));
    huella_.HayQuePreguntar();
    ASSERT_TRUE(Calla());
    Escribir(30);
    EXPECT_TRUE(huella_.HayQuePreguntar());
    EXPECT_TRUE(Calla());
}

TEST_F(WalFingerprintTest, ALogDatedAnewWithinTheSameSecondIsAskedAbout) {
    Escribir(60);
    huella_.Vigilar(QFile::encodeName(ruta_));
    huella_.HayQuePreguntar();
    ASSERT_TRUE(Calla());
    const QByteArray log = QFile::encodeName(ruta_ + u"-wal"_s);
    struct stat datos {};
    ASSERT_EQ(::stat(log.constData(), &datos), 0);
    timespec tiempos[2]{datos.st_atim, datos.st_mtim};
    tiempos[1].tv_nsec += tiempos[1].tv_nsec > 0 ? -1 : 1;
    ASSERT_EQ(utimensat(AT_FDCWD, log.constData(), tiempos, 0), 0);
    EXPECT_TRUE(huella_.HayQuePreguntar());
    EXPECT_TRUE(Calla());
}

TEST_F(WalFingerprintTest, AWatchedLogIsAskedAboutAtOnceWhenAnythingHappensToIt) {
    const QString log = ruta_ + u"-wal"_s;
    const std::vector<std::function<void()>> cambios = {
        [&] {
            QFile fichero(log);
            ASSERT_TRUE(fichero.open(QIODevice::Append));
            fichero.write("y");
        },
        [&] { Fechar(log, 30); }, [&] { QFile::remove(log); },
        [&] { QFile::rename(log, ruta_ + u"-otro"_s); },
        [&] { QDir().rename(carpeta_.path(), carpeta_.path() + u"-otra"_s); }};
    for (const auto& cambio : cambios) {
        QFile::remove(log);
        Escribir(60);
        huella_.Vigilar(QFile::encodeName(ruta_));
        EsperarVigilado();
        cambio();
        EXPECT_TRUE(huella_.HayQuePreguntar());
    }
    // No log where it stood: it is asked about each time.
    EXPECT_TRUE(huella_.HayQuePreguntar());
    EXPECT_TRUE(huella_.HayQuePreguntar());
    ASSERT_TRUE(QDir().rename(carpeta_.path() + u"-otra"_s, carpeta_.path()));
    EsperarVigilado();
    Escribir(0);
    EXPECT_TRUE(huella_.HayQuePreguntar());
}

TEST_F(WalFingerprintTest, AWatchedLogIsAskedAboutEveryNowAndThen) {
    Escribir(60);
    huella_.Vigilar(QFile::encodeName(ruta_));
    EsperarVigilado();
    QElapsedTimer reloj;
    for (int i = 0; i < 2; ++i) {
        reloj.start();
        int calladas = 0;
        while (!huella_.HayQuePreguntar()) {
            ++calladas;
            ASSERT_LT(reloj.elapsed(), 5000);
        }
        EXPECT_TRUE(calladas > 0 || reloj.elapsed() > 40);
    }
    EXPECT_GE(reloj.elapsed(), 40);
}

TEST_F(WalFingerprintTest, AnotherFileInTheFolderIsNoReasonToAsk) {
    Escribir(60);
    huella_.Vigilar(QFile::encodeName(ruta_));
    EsperarVigilado();
    QFile otro(carpeta_.filePath(u"otro"_s));
    ASSERT_TRUE(otro.open(QIODevice::WriteOnly));
    EXPECT_TRUE(Calla());
}

TEST_F(WalFingerprintTest, ADatabaseOfAnotherFolderIsWatchedThere) {
    QDir().mkpath(carpeta_.filePath(u"otra"_s));
    Escribir(60);
    huella_.Vigilar(QFile::encodeName(ruta_));
    EsperarVigilado();
    ruta_ = carpeta_.filePath(u"otra/base"_s);
    Escribir(60);
    huella_.Vigilar(QFile::encodeName(ruta_));
    EXPECT_TRUE(huella_.HayQuePreguntar());
    EsperarVigilado();
    Escribir(30);
    EXPECT_TRUE(huella_.HayQuePreguntar());
}

TEST_F(WalFingerprintTest, AFreshLogIsAskedAboutEachTime) {
    Escribir(0);
    huella_.Vigilar(QFile::encodeName(ruta_));
    for (int i = 0; i < 5; ++i) {
        EXPECT_TRUE(huella_.HayQuePreguntar());
    }
    // Its commit may come to be seen seconds after the writing.
    Escribir(1);
    EXPECT_TRUE(huella_.HayQuePreguntar());
    EXPECT_TRUE(huella_.HayQuePreguntar());
    // A clock that has been put back says nothing.
    Escribir(-60);
    EXPECT_TRUE(huella_.HayQuePreguntar());
    EXPECT_TRUE(huella_.HayQuePreguntar());
}

TEST_F(WalFingerprintTest, WithoutALogItIsAskedEachTime) {
    huella_.Vigilar(QFile::encodeName(ruta_));
    // Also for longer than the pause after which a resting one would be watched.
    QElapsedTimer reloj;
    for (reloj.start(); reloj.elapsed() < 200;) {
        ASSERT_TRUE(huella_.HayQuePreguntar());
    }
}

TEST_F(WalFingerprintTest, AnotherDatabaseIsAskedAbout) {
    Escribir(60);
    huella_.Vigilar(QFile::encodeName(ruta_));
    huella_.HayQuePreguntar();
    ASSERT_TRUE(Calla());
    huella_.Vigilar(QFile::encodeName(ruta_));
    EXPECT_TRUE(huella_.HayQuePreguntar());
}

// The engine with a log that has come to rest.
TEST(MarcaEnReposoTest, ARowOfAnotherProgramShowsAtOnce) {
    BaseDeDatosTemporal base;
    DatabaseEngine& motor = base.Database();
    const auto otro = base.Otro();
    otro->Ejecutar(u"INSERT INTO cola (importe) VALUES (1)"_s);
    timespec tiempos[2]{};
    clock_gettime(CLOCK_REALTIME, &tiempos[1]);
    tiempos[1].tv_sec -= 60;
    tiempos[0] = tiempos[1];
    ASSERT_EQ(
        utimensat(AT_FDCWD, QFile::encodeName(base.Ruta() + u"-wal"_s).constData(), tiempos, 0), 0);
    const quint64 antes = motor.ChangeStamp();
    {
        GanchoFallos vistas(motor);
        constexpr std::size_t kVeces = 100;
        for (std::size_t i = 0; i < kVeces; ++i) {
            EXPECT_EQ(motor.ChangeStamp(), antes);
        }
        EXPECT_LT(vistas.vistas.size(), kVeces);
    }
    // And long after, when nobody looks at the log any more.
    QElapsedTimer reloj;
    for (reloj.start(); reloj.elapsed() < 120;) {
        EXPECT_EQ(motor.ChangeStamp(), antes);
    }
    otro->Ejecutar(u"INSERT INTO cola (importe) VALUES (2)"_s);
    EXPECT_NE(motor.ChangeStamp(), antes);
}

} // namespace
} // namespace zv::test
