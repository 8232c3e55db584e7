// One instance per application folder.
#include "platform/SingleInstance.h"

#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/SinPrivilegios.h"

#include <csignal>
#include <fcntl.h>
#include <grp.h>
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

// ---- users of one machine
//
// Who may write in the folder may run the program there, and may open the lock file; nobody else
// may, for whoever can open it can hold the program off. Who may write in the folder could stop the
// program in many ways: that is no concern of this file's.

class LockFileOfUsers : public testing::Test {
  protected:
    static constexpr uid_t kNadie = 65534; // as whom SinPrivilegios works

    void SetUp() override {
        if (::geteuid() != 0) {
            GTEST_SKIP() << "only an administrator can be two users";
        }
    }
    void ModoCarpeta(mode_t modo) const {
        ASSERT_EQ(::chmod(QFile::encodeName(carpeta.Ruta()).constData(), modo), 0);
    }
    struct stat Cerrojo() const {
        struct stat datos {};
        EXPECT_EQ(::stat(cerrojo.constData(), &datos), 0);
        return datos;
    }
    bool OtraInstanciaParaNadie() const {
        const test::SinPrivilegios nadie;
        return SingleInstance(carpeta.Ruta()).OtraInstancia();
    }

    const CarpetaTemporal carpeta;
    const QByteArray cerrojo = QFile::encodeName(carpeta.Ruta(u"ZVMonitor.lock"_s));
};

TEST_F(LockFileOfUsers, IsForThoseWhoMayWriteInTheFolder) {
    struct Caso {
        mode_t carpeta;
        mode_t cerrojo;
    };
    for (const Caso caso : {Caso{0755, 0600}, Caso{0700, 0600}, Caso{0775, 0660}, Caso{0777, 0666},
                            Caso{02770, 0660}, Caso{0555, 0600}}) {
        for (const mode_t mascara : {mode_t{0}, mode_t{077}}) {
            ModoCarpeta(caso.carpeta);
            QFile::remove(QFile::decodeName(cerrojo));
            const mode_t antes = ::umask(mascara);
            EXPECT_FALSE(SingleInstance(carpeta.Ruta()).OtraInstancia());
            ::umask(antes);
            EXPECT_EQ(Cerrojo().st_mode & 07777, caso.cerrojo) << std::oct << caso.carpeta;
        }
    }
}

TEST_F(LockFileOfUsers, OfAnOlderVersionIsClosedAtTheNextStart) {
    ModoCarpeta(0755);
    carpeta.Pon(u"ZVMonitor.lock"_s, "");
    ASSERT_EQ(::chmod(cerrojo.constData(), 0666), 0);
    EXPECT_FALSE(SingleInstance(carpeta.Ruta()).OtraInstancia());
    EXPECT_EQ(Cerrojo().st_mode & 07777, mode_t{0600});
}

TEST_F(LockFileOfUsers, CannotBeHeldByWhoMayOnlyLook) {
    ModoCarpeta(0755);
    EXPECT_FALSE(SingleInstance(carpeta.Ruta()).OtraInstancia());
    {
        const test::SinPrivilegios nadie;
        EXPECT_EQ(::open(cerrojo.constData(), O_RDONLY), -1);
    }
    EXPECT_FALSE(SingleInstance(carpeta.Ruta()).OtraInstancia());
}

TEST_F(LockFileOfUsers, TellsEachOfTwoWhoShareTheFolderOfTheOther) {
    ModoCarpeta(0777);
    std::optional<SingleInstance> mia(std::in_place, carpeta.Ruta());
    EXPECT_FALSE(mia->OtraInstancia());
    EXPECT_TRUE(OtraInstanciaParaNadie());
    mia.reset();
    std::optional<SingleInstance> suya(std::in_place, carpeta.Ruta());
    {
        const test::SinPrivilegios nadie;
        EXPECT_FALSE(suya->OtraInstancia());
    }
    EXPECT_TRUE(SingleInstance(carpeta.Ruta()).OtraInstancia());
    suya.reset();
    EXPECT_FALSE(SingleInstance(carpeta.Ruta()).OtraInstancia());
}

TEST_F(LockFileOfUsers, ClosedToThisOneCountsWhileItIsHeldAndIsReplacedAfterwards) {
    ModoCarpeta(0777);
    std::optional<SingleInstance> mia(std::in_place, carpeta.Ruta());
    EXPECT_FALSE(mia->OtraInstancia());
    ASSERT_EQ(::chmod(cerrojo.constData(), 0600), 0);
    EXPECT_TRUE(OtraInstanciaParaNadie());
    mia.reset();
    // A lock of the other kind, as databases take them, says nothing.
    const FileDescriptor copia(::open(cerrojo.constData(), O_RDWR | O_CLOEXEC));
    struct flock otro {};
    otro.l_type = F_WRLCK;
    ASSERT_EQ(::fcntl(copia.Numero(), F_SETLK, &otro), 0);
    SingleInstance suya(carpeta.Ruta());
    {
        const test::SinPrivilegios nadie;
        EXPECT_FALSE(suya.OtraInstancia());
    }
    EXPECT_EQ(Cerrojo().st_uid, kNadie);
    EXPECT_TRUE(SingleInstance(carpeta.Ruta()).OtraInstancia());
}

TEST_F(LockFileOfUsers, OfAnAdministratorBelongsToTheFoldersOwner) {
    ModoCarpeta(0755);
    ASSERT_EQ(::chown(QFile::encodeName(carpeta.Ruta()).constData(), kNadie, kNadie), 0);
    std::optional<SingleInstance> mia(std::in_place, carpeta.Ruta());
    EXPECT_FALSE(mia->OtraInstancia());
    EXPECT_EQ(Cerrojo().st_uid, kNadie);
    EXPECT_EQ(Cerrojo().st_gid, kNadie);
    EXPECT_TRUE(OtraInstanciaParaNadie());
    mia.reset();
    EXPECT_FALSE(OtraInstanciaParaNadie());
}

TEST_F(LockFileOfUsers, GetsTheGroupOfTheFolderFromAMemberOfIt) {
    ModoCarpeta(0777);
    ASSERT_EQ(::chown(QFile::encodeName(carpeta.Ruta()).constData(), 0, kNadie), 0);
    gid_t grupo = kNadie; // of nobody, beside the primary one
    ASSERT_EQ(::setgroups(1, &grupo), 0);
    EXPECT_FALSE(OtraInstanciaParaNadie());
    EXPECT_EQ(::setgroups(0, nullptr), 0);
    EXPECT_EQ(Cerrojo().st_uid, kNadie);
    EXPECT_EQ(Cerrojo().st_gid, kNadie);
    EXPECT_EQ(Cerrojo().st_mode & 07777, mode_t{0666});
}

TEST(SingleInstance, AFolderInThePlaceOfTheLockFileKeepsItsRights) {
    const CarpetaTemporal carpeta;
    const QByteArray ruta = QFile::encodeName(carpeta.PonCarpeta(u"ZVMonitor.lock"_s));
    ASSERT_EQ(::chmod(ruta.constData(), 0751), 0);
    SingleInstance primera(carpeta.Ruta());
    EXPECT_FALSE(primera.OtraInstancia());
    EXPECT_TRUE(SingleInstance(carpeta.Ruta()).OtraInstancia());
    struct stat datos {};
    ASSERT_EQ(::stat(ruta.constData(), &datos), 0);
    EXPECT_EQ(datos.st_mode & 07777, mode_t{0751});
}

TEST(SingleInstance, AFolderThatTakesNoLockFileDoesNotStopTheProgram) {
    const CarpetaTemporal carpeta;
    SingleInstance instancia(carpeta.Ruta(u"no-hay"_s));
    EXPECT_FALSE(instancia.OtraInstancia());
    EXPECT_TRUE(carpeta.Entradas().isEmpty());
}

} // namespace
} // namespace zv
