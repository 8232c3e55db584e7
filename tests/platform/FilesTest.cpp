// Existence, whole reads and replacement of files.
#include "platform/Files.h"

#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/ImprimeQt.h"
#include "support/SinPrivilegios.h"

#include <cerrno>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zv {
namespace {

using test::CarpetaTemporal;

TEST(Ficheros, TellsFilesFromFolders) {
    const CarpetaTemporal carpeta;
    const QString fichero = carpeta.Pon(u"a.txt"_s, "x");
    EXPECT_TRUE(ExisteFichero(fichero));
    EXPECT_FALSE(ExisteCarpeta(fichero));
    EXPECT_TRUE(ExisteCarpeta(carpeta.Ruta()));
    EXPECT_FALSE(ExisteFichero(carpeta.Ruta()));
    const QString nada = carpeta.Ruta(u"no"_s);
    EXPECT_FALSE(ExisteFichero(nada));
    EXPECT_FALSE(ExisteCarpeta(nada));
    EXPECT_FALSE(ExisteFichero(QString()));
    EXPECT_FALSE(ExisteCarpeta(QString()));
}

class LeerFichero : public testing::Test {
  protected:
    QByteArray Ruta(const char* nombre) const {
        return QFile::encodeName(carpeta.Ruta(QString::fromUtf8(nombre)));
    }
    CarpetaTemporal carpeta;
    QByteArray bytes = "antes";
};

TEST_F(LeerFichero, GivesAllBytes) {
    const QByteArray muchos = QByteArray("0123456789").repeated(100000);
    carpeta.Pon(u"a"_s, muchos);
    EXPECT_EQ(LeerFicheroEntero(Ruta("a"), bytes), 0);
    EXPECT_EQ(bytes, muchos);
    carpeta.Pon(u"b"_s, {});
    EXPECT_EQ(LeerFicheroEntero(Ruta("b"), bytes), 0);
    EXPECT_TRUE(bytes.isEmpty());
}

TEST_F(LeerFichero, GivesFilesWhoseSizeTheSystemDoesNotTell) {
    EXPECT_EQ(LeerFicheroEntero("/proc/self/stat", bytes), 0);
    EXPECT_TRUE(bytes.contains('('));
}

TEST_F(LeerFichero, TellsWhyItCannot) {
    EXPECT_EQ(LeerFicheroEntero(Ruta("no"), bytes), ENOENT);
    EXPECT_TRUE(bytes.isEmpty());
    EXPECT_EQ(LeerFicheroEntero(Ruta(""), bytes), EISDIR);
    carpeta.Pon(u"a"_s, "12345");
    EXPECT_EQ(LeerFicheroEntero(Ruta("a"), bytes, 4), EFBIG);
    EXPECT_TRUE(bytes.isEmpty());
    EXPECT_EQ(LeerFicheroEntero(Ruta("a"), bytes, 5), 0);
    EXPECT_EQ(LeerFicheroEntero(Ruta("a/b"), bytes), ENOTDIR);
}

TEST_F(LeerFichero, DoesNotWaitForAPipe) {
    ASSERT_EQ(::mkfifo(Ruta("tubo").constData(), 0600), 0);
    EXPECT_EQ(LeerFicheroEntero(Ruta("tubo"), bytes), 0);
    EXPECT_TRUE(bytes.isEmpty());
}

class Reemplazar : public LeerFichero {};

TEST_F(Reemplazar, CreatesAndReplaces) {
    EXPECT_EQ(ReemplazarFichero(Ruta("a"), "uno"), 0);
    EXPECT_EQ(carpeta.Lee(u"a"_s), QByteArray("uno"));
    EXPECT_EQ(ReemplazarFichero(Ruta("a"), "dos"), 0);
    EXPECT_EQ(carpeta.Lee(u"a"_s), QByteArray("dos"));
    EXPECT_EQ(carpeta.Entradas(), QStringList{u"a"_s});
}

TEST_F(Reemplazar, AReaderThatHasTheOldFileOpenKeepsIt) {
    carpeta.Pon(u"a"_s, "viejo");
    QFile abierto(carpeta.Ruta(u"a"_s));
    ASSERT_TRUE(abierto.open(QIODevice::ReadOnly));
    EXPECT_EQ(ReemplazarFichero(Ruta("a"), "nuevo"), 0);
    EXPECT_EQ(abierto.readAll(), QByteArray("viejo"));
}

TEST_F(Reemplazar, TheRestOfAKilledProgramIsNoObstacle) {
    const QString resto = u".zv%1-0.tmp"_s.arg(::getpid());
    carpeta.Pon(resto, "medio");
    EXPECT_EQ(ReemplazarFichero(Ruta("a"), "uno"), 0);
    EXPECT_EQ(carpeta.Lee(u"a"_s), QByteArray("uno"));
    EXPECT_EQ(carpeta.Lee(resto), QByteArray("medio"));
}

TEST_F(Reemplazar, ANewFileGetsTheUsualPermissions) {
    const mode_t antes = ::umask(027);
    EXPECT_EQ(ReemplazarFichero(Ruta("a"), "uno"), 0);
    ::umask(antes);
    struct stat datos {};
    ASSERT_EQ(::stat(Ruta("a").constData(), &datos), 0);
    EXPECT_EQ(datos.st_mode & 0777, 0640U);
}

TEST_F(Reemplazar, RefusesWhatIsNoFile) {
    carpeta.PonCarpeta(u"d"_s);
    EXPECT_EQ(ReemplazarFichero(Ruta("d"), "x"), EISDIR);
    ASSERT_EQ(::mkfifo(Ruta("tubo").constData(), 0600), 0);
    EXPECT_EQ(ReemplazarFichero(Ruta("tubo"), "x"), EINVAL);
    EXPECT_EQ(ReemplazarFichero(Ruta("no/a"), "x"), ENOENT);
    EXPECT_EQ(carpeta.Entradas().size(), 2);
}

TEST_F(Reemplazar, AFullDiskLeavesTheOldFileAndNoRest) {
    carpeta.Pon(u"a"_s, "viejo");
    const struct rlimit poco {
        4, RLIM_INFINITY
    };
    struct rlimit antes {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &antes), 0);
    const auto manejador = ::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &poco), 0);
    const int error = ReemplazarFichero(Ruta("a"), "demasiado largo");
    ::setrlimit(RLIMIT_FSIZE, &antes);
    ::signal(SIGXFSZ, manejador);
    EXPECT_EQ(error, EFBIG);
    EXPECT_EQ(carpeta.Lee(u"a"_s), QByteArray("viejo"));
    EXPECT_EQ(carpeta.Entradas().size(), 1);
}

TEST_F(Reemplazar, AProtectedFileOrFolderStays) {
    carpeta.Pon(u"a"_s, "viejo");
    ASSERT_EQ(::chmod(Ruta("a").constData(), 0444), 0);
    EXPECT_EQ(ReemplazarFichero(Ruta("a"), "nuevo"), EACCES);
    ASSERT_EQ(::chmod(Ruta("a").constData(), 0644), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(carpeta.Ruta()).constData(), 0755), 0);
    const test::SinPrivilegios nadie;
    ASSERT_NE(::geteuid(), 0U);
    ::chmod(QFile::encodeName(carpeta.Ruta()).constData(), 0555); // for a run without privileges
    EXPECT_EQ(ReemplazarFichero(Ruta("b"), "nuevo"), EACCES);
    EXPECT_EQ(carpeta.Lee(u"a"_s), QByteArray("viejo"));
}

TEST(CrearCarpeta, MakesTheFolderThatIsNotThere) {
    const CarpetaTemporal carpeta;
    const QByteArray ruta = QFile::encodeName(carpeta.Ruta(u"nueva"_s));
    EXPECT_EQ(CrearCarpeta(ruta), 0);
    EXPECT_TRUE(ExisteCarpeta(carpeta.Ruta(u"nueva"_s)));
    carpeta.Pon(u"nueva/fichero"_s, "x");
    EXPECT_EQ(CrearCarpeta(ruta), 0);
    EXPECT_EQ(carpeta.Lee(u"nueva/fichero"_s), "x");
}

TEST(CrearCarpeta, TellsWhyItCannot) {
    const CarpetaTemporal carpeta;
    const auto crear = [&](const QString& nombre) {
        return CrearCarpeta(QFile::encodeName(carpeta.Ruta(nombre)));
    };
    carpeta.Pon(u"fichero"_s, "x");
    EXPECT_EQ(crear(u"fichero"_s), ENOTDIR);
    ASSERT_TRUE(QFile::link(u"nada"_s, carpeta.Ruta(u"enlace"_s)));
    EXPECT_EQ(crear(u"enlace"_s), ENOTDIR);
    EXPECT_EQ(crear(u"no/hay"_s), ENOENT);
}

TEST(TextoErrorSistema, SpeaksSpanishAboutWhatHappensToTills) {
    EXPECT_EQ(TextoErrorSistema(ENOSPC), u"no queda espacio en el disco"_s);
    EXPECT_EQ(TextoErrorSistema(EACCES), u"permiso denegado"_s);
    EXPECT_FALSE(TextoErrorSistema(EXDEV).isEmpty());
}

} // namespace
} // namespace zv
