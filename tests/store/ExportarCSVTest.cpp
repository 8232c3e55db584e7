// The export of a grid: name, bytes, message, and what a failing disk leaves.
#include "store/ExportarCSV.h"

#include "platform/StringLiterals.h"
#include "support/CarpetaTemporal.h"
#include "support/DialogosGuion.h"
#include "support/FixedClock.h"
#include "support/ImprimeQt.h"
#include "support/NumeroError.h"
#include "support/SinPrivilegios.h"
#include "ui/Rejilla.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

namespace zv::test {
namespace {

constexpr Clave kFecha{u"fecha", u"Fecha"};
constexpr Clave kOculta{u"oculta", u"Oculta"};
constexpr Clave kSaldo{u"saldo", u"Saldo €"};

const QString kFichero = u"exports/Caja_20260314_180411.csv"_s;

class ExportarCSVTest : public testing::Test {
  protected:
    ExportarCSVTest() { rejilla.PonerTitulos(textos); }

    void Fila(const QString& fecha, const QString& oculta, const QString& saldo) {
        const int fila = rejilla.AñadirFila();
        rejilla.PonerTexto(fila, 0, fecha);
        rejilla.PonerTexto(fila, 1, oculta);
        rejilla.PonerTexto(fila, 2, saldo);
    }
    void EsperaHecho() {
        dialogos.EsperaMensaje(u"Exportar datos"_s, u"Se han exportado los datos correctamente"_s,
                               Respuesta::Aceptar, EstiloMensaje::Aceptar);
    }
    void Exportar(const QString& nombre = u"Caja"_s) {
        ExportarCSV(rejilla, nombre, carpeta.Ruta(), reloj, dialogos, textos);
    }
    void ExportarBien(const QString& nombre = u"Caja"_s) {
        EsperaHecho();
        Exportar(nombre);
    }
    // Fails with that number, and tells the operator of nothing done.
    void ExportarMal(int numero) {
        EXPECT_EQ(NumeroError([this] { Exportar(); }), numero);
        EXPECT_TRUE(dialogos.Llamadas().isEmpty());
    }
    // The files that the file system may grow to, in bytes, for as long as it lives.
    class Limite {
      public:
        explicit Limite(rlim_t bytes) : antes_(std::signal(SIGXFSZ, SIG_IGN)) {
            ::getrlimit(RLIMIT_FSIZE, &limite_);
            const rlimit nuevo{bytes, limite_.rlim_max};
            ::setrlimit(RLIMIT_FSIZE, &nuevo);
        }
        ~Limite() {
            ::setrlimit(RLIMIT_FSIZE, &limite_);
            std::signal(SIGXFSZ, antes_);
        }
        Limite(const Limite&) = delete;
        Limite& operator=(const Limite&) = delete;

      private:
        rlimit limite_{};
        void (*antes_)(int);
    };

    CarpetaTemporal carpeta;
    FixedClock reloj;
    DialogosGuion dialogos;
    Textos textos{carpeta.Ruta()};
    Rejilla rejilla{{{.clave = &kFecha, .ancho = 100},
                     {.clave = &kOculta, .ancho = 0},
                     {.clave = &kSaldo, .ancho = 100}}};
};

TEST_F(ExportarCSVTest, AGridWithItsHeadAloneIsOneLine) {
    ExportarBien();
    EXPECT_EQ(carpeta.Lee(kFichero), "Fecha;Oculta;Saldo \r\n");
}

TEST_F(ExportarCSVTest, HeadRowsAndHiddenColumnsStandInOrder) {
    Fila(u"14/03/2026"_s, u"7"_s, u"1"_s);
    Fila({}, {}, {});
    Fila(u"15/03/2026"_s, u"8"_s, u"2"_s);
    ExportarBien();
    EXPECT_EQ(carpeta.Lee(kFichero),
              "Fecha;Oculta;Saldo \r\n14/03/2026;7;1\r\n;;\r\n15/03/2026;8;2\r\n");
}

TEST_F(ExportarCSVTest, OnlyTheSignGoesItsBlankStays) {
    Fila(u"€a€"_s, u"-1.234,50 €"_s, u"12,50 €"_s);
    ExportarBien();
    EXPECT_EQ(carpeta.Lee(kFichero).split('\n').at(1), "a;-1.234,50 ;12,50 \r");
    // The grid keeps what it shows.
    EXPECT_EQ(rejilla.Texto(1, 2), u"12,50 €"_s);
}

TEST_F(ExportarCSVTest, NothingIsQuotedNorEscaped) {
    Fila(u"a;b"_s, u"\"c\""_s, u"d\r\ne"_s);
    ExportarBien();
    EXPECT_EQ(carpeta.Lee(kFichero), "Fecha;Oculta;Saldo \r\na;b;\"c\";d\r\ne\r\n");
}

TEST_F(ExportarCSVTest, TheFileIsInTheCodePageOfTheMachine) {
    Fila(u"Añadido"_s, u"“Ñ”"_s, u"日"_s);
    ExportarBien();
    EXPECT_EQ(carpeta.Lee(kFichero).split('\n').at(1), "A\xf1"
                                                       "adido;\x93\xd1\x94;?\r");
}

TEST_F(ExportarCSVTest, TheStampHasTwoDigitsEach) {
    reloj.Fijar(QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5)));
    ExportarBien();
    EXPECT_EQ(carpeta.Entradas(u"exports"_s), QStringList(u"Caja_20260102_030405.csv"_s));
}

TEST_F(ExportarCSVTest, ASecondExportOfTheSameSecondTakesThePlaceOfTheFirst) {
    Fila(u"1"_s, {}, {});
    ExportarBien();
    rejilla.PonerTexto(1, 0, u"2"_s);
    ExportarBien();
    EXPECT_EQ(carpeta.Entradas(u"exports"_s), QStringList(u"Caja_20260314_180411.csv"_s));
    EXPECT_EQ(carpeta.Lee(kFichero).split('\n').at(1), "2;;\r");
}

TEST_F(ExportarCSVTest, TheFolderIsMadeOnceAndUsedAgain) {
    ExportarBien();
    carpeta.Pon(u"exports/suyo.txt"_s, "x");
    reloj.Avanzar(1000);
    ExportarBien();
    EXPECT_EQ(
        carpeta.Entradas(u"exports"_s),
        QStringList({u"Caja_20260314_180411.csv"_s, u"Caja_20260314_180412.csv"_s, u"suyo.txt"_s}));
}

TEST_F(ExportarCSVTest, ALinkToAFolderServes) {
    carpeta.PonCarpeta(u"otra"_s);
    ASSERT_TRUE(QFile::link(u"otra"_s, carpeta.Ruta(u"exports"_s)));
    ExportarBien();
    EXPECT_TRUE(carpeta.Esta(u"otra/Caja_20260314_180411.csv"_s));
}

TEST_F(ExportarCSVTest, WhatAFileNameCannotHoldIsReplaced) {
    ExportarBien(u"Cobros/Abonos \\:*?\"<>|\r\nfin"_s);
    EXPECT_EQ(carpeta.Entradas(u"exports"_s),
              QStringList(u"Cobros_Abonos __________fin_20260314_180411.csv"_s));
    EXPECT_EQ(carpeta.Entradas(), QStringList(u"exports"_s));
}

TEST_F(ExportarCSVTest, ACaptionThatIsTooLongForAFileIsCutAndItsStampIsNot) {
    ExportarBien(QString(300, u'ñ'));
    ASSERT_EQ(carpeta.Entradas(u"exports"_s).size(), 1);
    EXPECT_EQ(carpeta.Entradas(u"exports"_s).front(),
              QString(117, u'ñ') + u"_20260314_180411.csv"_s);
}

TEST_F(ExportarCSVTest, TheMessageIsToldInTheLanguageOfTheFile) {
    carpeta.Pon(u"RWLang.ini"_s, "[COMMON]\r\nexportar0=Export\r\nexportar1=Done\r\n");
    dialogos.EsperaMensaje(u"Export"_s, u"Done"_s);
    Exportar();
}

TEST_F(ExportarCSVTest, AFileInThePlaceOfTheFolderStays) {
    carpeta.Pon(u"exports"_s, "mine");
    ExportarMal(76);
    EXPECT_EQ(carpeta.Lee(u"exports"_s), "mine");
}

TEST_F(ExportarCSVTest, ALinkThatLeadsNowhereStays) {
    ASSERT_TRUE(QFile::link(u"nada"_s, carpeta.Ruta(u"exports"_s)));
    ExportarMal(76);
    EXPECT_EQ(carpeta.Entradas(), QStringList(u"exports"_s));
}

TEST_F(ExportarCSVTest, AFolderThatCannotBeMadeOrWrittenIsAFailure) {
    const SinPrivilegios sinPrivilegios;
    QTemporaryDir ajena;
    const QString exports = ajena.filePath(u"exports"_s);
    const auto exportar = [&] {
        ExportarCSV(rejilla, u"Caja"_s, ajena.path(), reloj, dialogos, textos);
    };
    constexpr auto kLeer = QFile::ReadOwner | QFile::ExeOwner;
    ASSERT_TRUE(QFile::setPermissions(ajena.path(), kLeer));
    EXPECT_EQ(NumeroError(exportar), 70);
    QFile::setPermissions(ajena.path(), kLeer | QFile::WriteOwner);
    ASSERT_TRUE(QDir().mkdir(exports));
    ASSERT_TRUE(QFile::setPermissions(exports, kLeer));
    EXPECT_EQ(NumeroError(exportar), 70);
    QFile::setPermissions(exports, kLeer | QFile::WriteOwner);
    EXPECT_TRUE(QDir(exports).isEmpty());
    EXPECT_TRUE(dialogos.Llamadas().isEmpty());
}

TEST_F(ExportarCSVTest, AFileThatNobodyMayWriteStays) {
    carpeta.Pon(kFichero, "old");
    ASSERT_TRUE(QFile::setPermissions(carpeta.Ruta(kFichero), QFile::ReadOwner));
    ExportarMal(70);
    EXPECT_EQ(carpeta.Lee(kFichero), "old");
}

TEST_F(ExportarCSVTest, AWriteThatStopsHalfWayLeavesNoFile) {
    for (int i = 0; i < 1000; ++i) {
        Fila(u"14/03/2026"_s, {}, u"12,50 €"_s);
    }
    {
        const Limite limite(4096);
        ExportarMal(75);
    }
    EXPECT_TRUE(carpeta.Entradas(u"exports"_s).isEmpty());
}

TEST_F(ExportarCSVTest, AWriteThatStopsHalfWayLeavesTheFileOfBefore) {
    carpeta.Pon(kFichero, "old");
    for (int i = 0; i < 1000; ++i) {
        Fila(u"14/03/2026"_s, {}, u"12,50 €"_s);
    }
    {
        const Limite limite(4096);
        ExportarMal(75);
    }
    EXPECT_EQ(carpeta.Lee(kFichero), "old");
    EXPECT_EQ(carpeta.Entradas(u"exports"_s).size(), 1);
}

TEST_F(ExportarCSVTest, AFullDiskLeavesNoFileAndOnceThereIsRoomItWorks) {
    const QByteArray exports = QFile::encodeName(carpeta.PonCarpeta(u"exports"_s));
    if (::mount("tmpfs", exports.constData(), "tmpfs", 0, "size=64k") != 0) {
        GTEST_SKIP() << "a small disk cannot be mounted here";
    }
    carpeta.Pon(u"exports/lleno"_s, QByteArray(49152, 'x'));
    for (int i = 0; i < 1000; ++i) {
        Fila(u"14/03/2026"_s, {}, u"12,50 €"_s);
    }
    ExportarMal(61);
    EXPECT_EQ(carpeta.Entradas(u"exports"_s), QStringList(u"lleno"_s));
    QFile::remove(carpeta.Ruta(u"exports/lleno"_s));
    ExportarBien();
    EXPECT_EQ(carpeta.Lee(kFichero).count('\n'), 1001);
    ::umount(exports.constData());
}

} // namespace
} // namespace zv::test
