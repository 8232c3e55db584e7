// One instance per application folder.
#include "platform/SingleInstance.h"

#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/SinPrivilegios.h"

#include <csignal>
#include <gtest/gtest.h>
#include <optional>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zv {
namespace {

using test::CarpetaTemporal;

TEST(SingleInstance, TheSecondInOneFolderIsTold) {
    const CarpetaTemporal carpeta;
    SingleInstance primera(carpeta.Ruta());
    SingleInstance segunda(carpeta.Ruta());
    EXPECT_FALSE(primera.OtraInstancia());
    EXPECT_TRUE(segunda.OtraInstancia());
    EXPECT_FALSE(primera.OtraInstancia());
    EXPECT_TRUE(segunda.OtraInstancia());
}

TEST(SingleInstance, FoldersDoNotMeet) {
    const CarpetaTemporal una;
    const CarpetaTemporal otra;
    SingleInstance primera(una.Ruta());
    SingleInstance segunda(otra.Ruta());
    EXPECT_FALSE(primera.OtraInstancia());
    EXPECT_FALSE(segunda.OtraInstancia());
}

TEST(SingleInstance, TheFolderIsFreeAgainAfterTheEnd) {
    const CarpetaTemporal carpeta;
    std::optional<SingleInstance> primera(std::in_place, carpeta.Ruta());
    EXPECT_FALSE(primera->OtraInstancia());
    primera.reset();
    SingleInstance segunda(carpeta.Ruta());
    EXPECT_FALSE(segunda.OtraInstancia());
}

TEST(SingleInstance, AKilledProgramLeavesTheFolderFree) {
    const CarpetaTemporal carpeta;
    int tubo[2] = {-1, -1};
    ASSERT_EQ(::pipe(tubo), 0);
    const pid_t hijo = ::fork();
    if (hijo == 0) {
        SingleInstance suya(carpeta.Ruta());
        const char otra = suya.OtraInstancia() ? 's' : 'n';
        if (::write(tubo[1], &otra, 1) == 1) {
            ::pause();
        }
        ::_exit(0);
    }
    char otra = '?';
    ASSERT_EQ(::read(tubo[0], &otra, 1), 1);
    EXPECT_EQ(otra, 'n');
    SingleInstance mia(carpeta.Ruta());
    EXPECT_TRUE(mia.OtraInstancia());
    ASSERT_EQ(::kill(hijo, SIGKILL), 0);
    ASSERT_EQ(::waitpid(hijo, nullptr, 0), hijo);
    EXPECT_FALSE(mia.OtraInstancia());
    ::close(tubo[0]);
    ::close(tubo[1]);
}

TEST(SingleInstance, ProgramsThatItStartsDoNotHoldTheFolder) {
    const CarpetaTemporal carpeta;
    std::optional<SingleInstance> primera(std::in_place, carpeta.Ruta());
    EXPECT_FALSE(primera->OtraInstancia());
    int tubo[2] = {-1, -1};
    ASSERT_EQ(::pipe(tubo), 0);
    const pid_t hijo = ::fork();
    if (hijo == 0) {
        ::dup2(tubo[1], 1);
        ::execl("/bin/sh", "sh", "-c", "echo x; exec sleep 60", nullptr);
        ::_exit(1);
    }
    char letra = 0;
    ASSERT_EQ(::read(tubo[0], &letra, 1), 1); // it runs
    primera.reset();
    SingleInstance segunda(carpeta.Ruta());
    EXPECT_FALSE(segunda.OtraInstancia());
    ::kill(hijo, SIGKILL);
    ::waitpid(hijo, nullptr, 0);
    ::close(tubo[0]);
    ::close(tubo[1]);
}

TEST(SingleInstance, AnotherUsersLockFileCounts) {
    const CarpetaTemporal carpeta;
    SingleInstance primera(carpeta.Ruta());
    EXPECT_FALSE(primera.OtraInstancia());
    const QByteArray cerrojo = QFile::encodeName(carpeta.Ruta(u"ZVMonitor.lock"_s));
    ASSERT_EQ(::chmod(cerrojo.constData(), 0444), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(carpeta.Ruta()).constData(), 0755), 0);
    const test::SinPrivilegios nadie;
    SingleInstance segunda(carpeta.Ruta());
    EXPECT_TRUE(segunda.OtraInstancia());
}

TEST(SingleInstance, AFolderThatTakesNoLockFileDoesNotStopTheProgram) {
    const CarpetaTemporal carpeta;
    SingleInstance instancia(carpeta.Ruta(u"no-hay"_s));
    EXPECT_FALSE(instancia.OtraInstancia());
    EXPECT_TRUE(carpeta.Entradas().isEmpty());
}

} // namespace
} // namespace zv
