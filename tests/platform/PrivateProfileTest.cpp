// One value of an INI file on disk, read and written.
#include "platform/PrivateProfile.h"

#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/ImprimeQt.h"
#include "support/NumeroError.h"
#include "support/SinPrivilegios.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace zv {
namespace {

using test::CarpetaTemporal;
using test::NumeroError;
using test::SinPrivilegios;

class PrivateProfile : public testing::Test {
  protected:
    std::optional<QString> Lee(const char* seccion, const char* clave) const {
        return perfil::Leer(Ruta(), QString::fromUtf8(seccion), QString::fromUtf8(clave));
    }
    void Escribe(const char* seccion, const char* clave, const char* valor) const {
        perfil::Escribir(Ruta(), QString::fromUtf8(seccion), QString::fromUtf8(clave),
                         QString::fromUtf8(valor));
    }
    // The file after one write on these bytes.
    QByteArray Tras(const QByteArray& antes, const char* seccion, const char* clave,
                    const char* valor) const {
        Pon(antes);
        Escribe(seccion, clave, valor);
        return Bytes();
    }
    void Pon(const QByteArray& bytes) const { carpeta.Pon(kNombre, bytes); }
    QByteArray Bytes() const { return carpeta.Lee(kNombre); }
    QString Ruta() const { return carpeta.Ruta(kNombre); }

    const QString kNombre = u"ZVMonitor.ini"_s;
    CarpetaTemporal carpeta;
};

TEST_F(PrivateProfile, AMissingFileOrFolderHoldsNothing) {
    EXPECT_EQ(Lee("A", "k"), std::nullopt);
    EXPECT_EQ(perfil::Leer(carpeta.Ruta(u"no/hay.ini"_s), u"A"_s, u"k"_s), std::nullopt);
}

TEST_F(PrivateProfile, CreatesTheFileWithWindowsLineEnds) {
    Escribe("ZORVEX", "IP", "10.0.0.7");
    EXPECT_EQ(Bytes(), QByteArray("[ZORVEX]\r\nIP=10.0.0.7\r\n"));
    EXPECT_EQ(Lee("zorvex", "ip"), u"10.0.0.7"_s);
}

TEST_F(PrivateProfile, WritesManyValuesAtOnceAndTellsHowManyDiffered) {
    Pon("; caja 1\r\n[A]\r\nk=1\r\n");
    const perfil::ValorIni valores[] = {{u"A"_s, u"k"_s, u"2"_s},
                                        {u"A"_s, u"l"_s, u"3"_s},
                                        {u"B"_s, u"k"_s, u"ñ"_s},
                                        {u"a"_s, u"K"_s, u"2"_s}};
    qsizetype distintos = 0;
    perfil::EscribirVarios(Ruta(), valores, distintos);
    EXPECT_EQ(distintos, 3);
    EXPECT_EQ(Bytes(), QByteArray("; caja 1\r\n[A]\r\nk=2\r\nl=3\r\n[B]\r\nk=\xF1\r\n"));
    perfil::EscribirVarios(Ruta(), valores, distintos);
    EXPECT_EQ(distintos, 0);
}

TEST_F(PrivateProfile, OfManyValuesAllAreWrittenOrNone) {
    Pon("[A]\r\nk=1\r\n");
    ASSERT_EQ(::chmod(QFile::encodeName(Ruta()).constData(), 0444), 0);
    const perfil::ValorIni valores[] = {{u"A"_s, u"k"_s, u"2"_s}, {u"A"_s, u"l"_s, u"3"_s}};
    qsizetype distintos = 0;
    EXPECT_EQ(NumeroError([&] { perfil::EscribirVarios(Ruta(), valores, distintos); }), 75);
    EXPECT_EQ(distintos, 2);
    EXPECT_EQ(Bytes(), QByteArray("[A]\r\nk=1\r\n"));
}

TEST_F(PrivateProfile, ChangesOnlyTheValue) {
    EXPECT_EQ(Tras("; caja 1\r\n\r\n[A]\r\n  Clave = viejo \r\nrara\r\notra=2\r\n[B]\r\nk=3", "a",
                   "CLAVE", "nuevo"),
              QByteArray("; caja 1\r\n\r\n[A]\r\n  Clave = nuevo\r\nrara\r\notra=2\r\n[B]\r\nk=3"));
}

TEST_F(PrivateProfile, ANewKeyGoesToTheEndOfItsSection) {
    EXPECT_EQ(Tras("[A]\na=1\n; nota\n\n\n[B]\nb=2\n", "A", "n", "9"),
              QByteArray("[A]\na=1\n; nota\nn=9\n\n\n[B]\nb=2\n"));
    EXPECT_EQ(Tras("[A]\n[B]\nb=2\n", "A", "n", "9"), QByteArray("[A]\nn=9\n[B]\nb=2\n"));
    EXPECT_EQ(Tras("[B]\nb=2", "B", "n", "9"), QByteArray("[B]\nb=2\nn=9\n"));
}

TEST_F(PrivateProfile, ANewSectionGoesToTheEndOfTheFile) {
    EXPECT_EQ(Tras("[A]\na=1\n", "B", "b", "2"), QByteArray("[A]\na=1\n[B]\nb=2\n"));
    EXPECT_EQ(Tras("[A]\r\na=1", "B", "b", "2"), QByteArray("[A]\r\na=1\r\n[B]\r\nb=2\r\n"));
    EXPECT_EQ(Tras("", "B", "b", "2"), QByteArray("[B]\r\nb=2\r\n"));
}

TEST_F(PrivateProfile, TheFirstOfTwoLikeNamesIsTheOneWritten) {
    EXPECT_EQ(Tras("[A]\nk=1\nk=2\n[A]\nk=3\n", "A", "k", "9"),
              QByteArray("[A]\nk=9\nk=2\n[A]\nk=3\n"));
    EXPECT_EQ(Tras("[A]\na=1\n[A]\nk=3\n", "A", "k", "9"), QByteArray("[A]\na=1\nk=9\n[A]\nk=3\n"));
}

TEST_F(PrivateProfile, KeepsTheEncodingOfTheFile) {
    EXPECT_EQ(Tras("[A]\nx=Espa\xF1"
                   "a\n",
                   "A", "k", "año €"),
              QByteArray("[A]\nx=Espa\xF1"
                         "a\nk=a\xF1o \x80\n"));
    EXPECT_EQ(Tras("\xEF\xBB\xBF[A]\nk=1\n", "A", "k", "año Ω"),
              QByteArray("\xEF\xBB\xBF[A]\nk=año Ω\n"));
    EXPECT_EQ(Tras("[A]\nx=España\n", "A", "k", "Ω"), QByteArray("[A]\nx=España\nk=Ω\n"));
    EXPECT_EQ(Tras(QByteArray("\xFF\xFE[\0A\0]\0\n\0k\0=\0\x31\0\n\0", 18), "A", "k", "ñ"),
              QByteArray("\xFF\xFE[\0A\0]\0\n\0k\0=\0\xF1\0\n\0", 18));
    EXPECT_EQ(Tras(QByteArray("\xFE\xFF\0[\0A\0]\0\n", 10), "A", "k", "\u20AC"),
              QByteArray("\xFE\xFF\0[\0A\0]\0\n\0k\0=\x20\xAC\0\n", 18));
}

TEST_F(PrivateProfile, HalfACharacterAtTheEndOfWideTextDoesNotShiftTheRest) {
    Pon(QByteArray("\xFF\xFE[\0A\0]\0\n\0\x41", 11));
    Escribe("B", "k", "1");
    EXPECT_EQ(Lee("B", "k"), u"1"_s);
    EXPECT_EQ(Bytes().size() % 2, 0);
}

TEST_F(PrivateProfile, ACharacterThatTheCodePageLacksBecomesAQuestionMark) {
    EXPECT_EQ(Tras("[A]\nx=\xF1\n", "A", "k", "aΩb"), QByteArray("[A]\nx=\xF1\nk=a?b\n"));
}

TEST_F(PrivateProfile, TextOfTheCodePageIsNotTakenForUtf8AfterAWrite) {
    // As bytes of the code page this value is one sequence of UTF-8.
    Pon("[A]\nk=1\n");
    Escribe("A", "k", "Ã©");
    EXPECT_EQ(Lee("A", "k"), QString::fromUtf8("Ã©"));
    // The write takes away the one character that told the two apart.
    Pon("[A]\nx=\xF1\ny=\xC3\xA9\n");
    Escribe("A", "x", "n");
    EXPECT_EQ(Lee("A", "y"), QString::fromUtf8("Ã©"));
    EXPECT_EQ(Lee("A", "x"), u"n"_s);
}

TEST_F(PrivateProfile, BytesOutsideTheChangedLineStayWhateverTheyAre) {
    QByteArray resto;
    for (int i = 1; i < 256; ++i) {
        resto.append(static_cast<char>(i));
    }
    EXPECT_EQ(Tras("[A]\nk=1\n[Z]\n" + resto, "A", "k", "2"),
              QByteArray("[A]\nk=2\n[Z]\n" + resto));
}

TEST_F(PrivateProfile, AValueCannotEndItsLine) {
    Escribe("A", "k", "uno\r\n[B]\r\nx=1");
    EXPECT_EQ(Bytes(), QByteArray("[A]\r\nk=uno\r\n"));
}

TEST_F(PrivateProfile, WritingWhatStandsThereLeavesTheFileAlone) {
    const auto identidad = [this] {
        struct stat datos {};
        EXPECT_EQ(::stat(QFile::encodeName(Ruta()).constData(), &datos), 0);
        return std::pair(datos.st_ino, datos.st_mtim.tv_nsec);
    };
    Pon("[A]\nk = \"uno\" \n");
    const auto antes = identidad();
    Escribe("A", "k", "uno");
    Escribe("A", "k", " uno ");
    EXPECT_EQ(identidad(), antes);
    EXPECT_EQ(Bytes(), QByteArray("[A]\nk = \"uno\" \n"));
    Escribe("A", "k", "dos");
    EXPECT_NE(identidad(), antes);
}

TEST_F(PrivateProfile, AnEmptyValueIsWrittenAndRead) {
    EXPECT_EQ(Tras("[A]\nk=1\n", "A", "k", ""), QByteArray("[A]\nk=\n"));
    EXPECT_EQ(Lee("A", "k"), QString());
}

TEST_F(PrivateProfile, KeepsThePermissionsOfTheFile) {
    Pon("[A]\nk=1\n");
    const QByteArray ruta = QFile::encodeName(Ruta());
    for (const mode_t modo : {0600U, 0664U, 0606U}) {
        ASSERT_EQ(::chmod(ruta.constData(), modo), 0);
        Escribe("A", "k", QByteArray::number(modo).constData());
        struct stat datos {};
        ASSERT_EQ(::stat(ruta.constData(), &datos), 0);
        EXPECT_EQ(datos.st_mode & 07777, modo);
    }
}

TEST_F(PrivateProfile, ALinkStaysALink) {
    carpeta.Pon(u"real.ini"_s, "[A]\nk=1\n");
    ASSERT_TRUE(QFile::link(carpeta.Ruta(u"real.ini"_s), Ruta()));
    Escribe("A", "k", "2");
    EXPECT_TRUE(QFileInfo(Ruta()).isSymLink());
    EXPECT_EQ(carpeta.Lee(u"real.ini"_s), QByteArray("[A]\nk=2\n"));
}

TEST_F(PrivateProfile, LeavesNoOtherFileBehind) {
    Escribe("A", "k", "1");
    Escribe("A", "k", "2");
    EXPECT_EQ(carpeta.Entradas(), QStringList{kNombre});
}

TEST_F(PrivateProfile, AReadOnlyFileIsAFailureAndStays) {
    Pon("[A]\nk=1\n");
    ASSERT_EQ(::chmod(QFile::encodeName(Ruta()).constData(), 0444), 0);
    EXPECT_EQ(NumeroError([this] { Escribe("A", "k", "2"); }), 75);
    EXPECT_EQ(Bytes(), QByteArray("[A]\nk=1\n"));
    EXPECT_EQ(Lee("A", "k"), u"1"_s);
}

TEST_F(PrivateProfile, AFileThatMayNotBeReadIsAFailure) {
    Pon("[A]\nk=1\n");
    ASSERT_EQ(::chmod(QFile::encodeName(Ruta()).constData(), 0200), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(carpeta.Ruta()).constData(), 0777), 0);
    const SinPrivilegios nadie;
    EXPECT_EQ(NumeroError([this] { Lee("A", "k"); }), 75);
    EXPECT_EQ(NumeroError([this] { Escribe("A", "k", "2"); }), 75);
}

TEST_F(PrivateProfile, AFolderThatTakesNoFileIsAFailure) {
    ASSERT_EQ(::chmod(QFile::encodeName(carpeta.Ruta()).constData(), 0555), 0);
    const SinPrivilegios nadie;
    EXPECT_EQ(NumeroError([this] { Escribe("A", "k", "2"); }), 75);
}

TEST_F(PrivateProfile, AFolderInThePlaceOfTheFileIsAFailure) {
    carpeta.PonCarpeta(kNombre);
    EXPECT_EQ(NumeroError([this] { Lee("A", "k"); }), 75);
    EXPECT_EQ(NumeroError([this] { Escribe("A", "k", "2"); }), 75);
    EXPECT_EQ(NumeroError([this] {
                  perfil::Escribir(carpeta.Ruta(u"no/hay.ini"_s), u"A"_s, u"k"_s, u"1"_s);
              }),
              75);
}

TEST_F(PrivateProfile, TheFailureNamesTheFile) {
    carpeta.PonCarpeta(kNombre);
    try {
        Lee("A", "k");
        FAIL() << "no failure";
    } catch (const ErrorEjecucion& e) {
        EXPECT_TRUE(e.Descripcion().contains(Ruta()));
        EXPECT_TRUE(e.Descripcion().contains(u"es una carpeta"_s));
    }
}

TEST_F(PrivateProfile, WritesIntoABinaryFileWithoutHarmToIt) {
    const QByteArray ruido = QByteArray("\x01\x02[\x00\xFF\r\n\x00=\x00", 10);
    EXPECT_EQ(Tras(ruido, "A", "k", "1"), ruido + "\r\n[A]\r\nk=1\r\n");
    EXPECT_EQ(Lee("A", "k"), u"1"_s);
}

TEST_F(PrivateProfile, ReadsTheLastValueOfABigFile) {
    Pon("[A]\n" + QByteArray("relleno=0123456789\n").repeated(600000) + "[B]\nk=ultimo\n");
    EXPECT_EQ(Lee("B", "k"), u"ultimo"_s);
}

} // namespace
} // namespace zv
