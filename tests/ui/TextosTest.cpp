// Look-ups in the language file.
#include "ui/Textos.h"

#include "support/CarpetaTemporal.h"
#include "support/ImprimeQt.h"
#include "support/SinPrivilegios.h"

#include <QStringEncoder>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utime.h>

namespace zv::test {
namespace {

class TextosTest : public testing::Test {
  protected:
    void Fichero(const QString& texto) {
        carpeta_.Pon(QStringLiteral("RWLang.ini"), "\xef\xbb\xbf" + texto.toUtf8());
    }
    QString T(const char* clave, const char* porDefecto) const {
        return textos_.Traduce(QString::fromUtf8(clave), QString::fromUtf8(porDefecto));
    }

    CarpetaTemporal carpeta_;
    Textos textos_{carpeta_.Ruta()};
};

TEST_F(TextosTest, WithoutAFileEachLookUpGivesItsDefaultTrimmed) {
    EXPECT_EQ(T("importe", "Importe: "), QStringLiteral("Importe:"));
    EXPECT_EQ(T("importe", "Importe"), QStringLiteral("Importe"));
    EXPECT_EQ(T("errorDeZorvex", "Error de Zorvex "), QStringLiteral("Error de Zorvex"));
    EXPECT_EQ(T("nada", ""), QString());
    EXPECT_EQ(T("nada", "   "), QString());
}

TEST_F(TextosTest, TakesTheValueOfSectionAndKeyIgnoringCase) {
    Fichero(QStringLiteral("[common]\r\nCOBROS=charges\r\n[frmCash]\r\nlbTitulo=Amount\r\n"));
    EXPECT_EQ(T("cobros", "cobros"), QStringLiteral("charges"));
    EXPECT_EQ(textos_.TextoForm(QStringLiteral("FRMCASH"), QStringLiteral("LBTITULO"),
                                QStringLiteral("x")),
              QStringLiteral("Amount"));
    EXPECT_EQ(
        textos_.TextoIdioma(QStringLiteral("GEN"), QStringLiteral("cobros"), QStringLiteral("x")),
        QStringLiteral("x"));
}

TEST_F(TextosTest, EmptyValueGivesAnEmptyTextNotTheDefault) {
    Fichero(QStringLiteral("[COMMON]\r\nvacio=\r\nblancos=   \r\n"));
    EXPECT_EQ(T("vacio", "defecto"), QString());
    EXPECT_EQ(T("blancos", "defecto"), QString());
}

TEST_F(TextosTest, MarkOfALineBreakBecomesCarriageReturnAndLineFeed) {
    Fichero(QStringLiteral("[COMMON]\r\na=Primera/CRLF/Segunda\r\nb=Primera/CRLF/\r\n"
                           "c=/CRLF//CRLF/x  \r\nd=x/crlf/y\r\n"));
    EXPECT_EQ(T("a", ""), QStringLiteral("Primera\r\nSegunda"));
    EXPECT_EQ(T("b", ""), QStringLiteral("Primera\r\n"));
    EXPECT_EQ(T("c", ""), QStringLiteral("\r\n\r\nx"));
    EXPECT_EQ(T("d", ""), QStringLiteral("x/crlf/y"));
}

TEST_F(TextosTest, DefaultIsSubjectToTheLineBreakMarkToo) {
    EXPECT_EQ(T("a", " Uno/CRLF/dos "), QStringLiteral("Uno\r\ndos"));
}

TEST_F(TextosTest, OnlyBlanksAreTrimmed) {
    Fichero(QStringLiteral("[COMMON]\r\na=  texto con blancos   \r\n"));
    EXPECT_EQ(T("a", ""), QStringLiteral("texto con blancos"));
    EXPECT_EQ(T("b", " \t x\u00a0 "), QStringLiteral("\t x\u00a0"));
    EXPECT_EQ(T("b", "x \r\n"), QStringLiteral("x \r\n"));
}

TEST_F(TextosTest, ValuesUpTo256CharactersComeWhole) {
    const QString justo(256, QChar(u'ñ'));
    Fichero(QStringLiteral("[COMMON]\r\na=") + justo + QStringLiteral("\r\n"));
    EXPECT_EQ(T("a", ""), justo);
}

TEST_F(TextosTest, LongerValuesAreCutTo256) {
    Fichero(QStringLiteral("[COMMON]\r\na=") + QString(600, QLatin1Char('x')) +
            QStringLiteral("\r\nb=siguiente\r\n"));
    EXPECT_EQ(T("a", ""), QString(256, QLatin1Char('x')));
    EXPECT_EQ(T("b", ""), QStringLiteral("siguiente"));
}

TEST_F(TextosTest, CutNeverLeavesHalfOfACharacter) {
    Fichero(QStringLiteral("[COMMON]\r\na=") + QString(255, QLatin1Char('x')) +
            QStringLiteral("\U0001F4B6\U0001F4B6\r\n"));
    EXPECT_EQ(T("a", ""), QString(255, QLatin1Char('x')));
}

TEST_F(TextosTest, LongDefaultsComeWhole) {
    const QString largo(600, QLatin1Char('x'));
    EXPECT_EQ(textos_.Traduce(QStringLiteral("a"), largo), largo);
}

TEST_F(TextosTest, KeysWithNonAsciiCharactersWork) {
    Fichero(QStringLiteral("[COMMON]\r\nmodificarContraseña=Change password\r\n"
                           "AÑADIRCAMBIOANULADO=Float cancelled\r\n"));
    EXPECT_EQ(T("modificarContraseña", ""), QStringLiteral("Change password"));
    EXPECT_EQ(T("añadirCambioAnulado", ""), QStringLiteral("Float cancelled"));
}

TEST_F(TextosTest, ReadsUtf16OfBothByteOrders) {
    const QString texto = QStringLiteral("[COMMON]\r\na=Ελληνικά €\r\n");
    for (const auto codigo : {QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
        QStringEncoder codificador(codigo, QStringConverter::Flag::WriteBom);
        const QByteArray bytes = codificador.encode(texto);
        carpeta_.Pon(QStringLiteral("RWLang.ini"), bytes);
        EXPECT_EQ(Textos(carpeta_.Ruta()).Traduce(QStringLiteral("a"), QString()),
                  QStringLiteral("Ελληνικά €"));
    }
}

TEST_F(TextosTest, WithoutAMarkTheFileIsOfTheSingleByteCodePage) {
    carpeta_.Pon(QStringLiteral("RWLang.ini"), "[COMMON]\r\na=A\xf1o \x80\r\n");
    EXPECT_EQ(T("a", ""), QStringLiteral("Año €"));
}

TEST_F(TextosTest, EditedInPlaceTakesEffectAtTheNextLookUp) {
    Fichero(QStringLiteral("[COMMON]\r\na=uno\r\n"));
    EXPECT_EQ(T("a", ""), QStringLiteral("uno"));
    // The same length within the same tick of the file system's clock.
    Fichero(QStringLiteral("[COMMON]\r\na=dos\r\n"));
    EXPECT_EQ(T("a", ""), QStringLiteral("dos"));
    EXPECT_EQ(T("a", ""), QStringLiteral("dos"));
}

TEST_F(TextosTest, FileReplacedByARenameTakesEffect) {
    Fichero(QStringLiteral("[COMMON]\r\na=uno\r\n"));
    EXPECT_EQ(T("a", ""), QStringLiteral("uno"));
    carpeta_.Pon(QStringLiteral("nuevo"), "[COMMON]\r\na=dos\r\n");
    // Even with the date of the file that it replaces.
    const utimbuf fecha{1000000000, 1000000000};
    ASSERT_EQ(utime(QFile::encodeName(carpeta_.Ruta(QStringLiteral("nuevo"))), &fecha), 0);
    ASSERT_EQ(rename(QFile::encodeName(carpeta_.Ruta(QStringLiteral("nuevo"))),
                     QFile::encodeName(carpeta_.Ruta(QStringLiteral("RWLang.ini")))),
              0);
    EXPECT_EQ(T("a", ""), QStringLiteral("dos"));
}

TEST_F(TextosTest, FileThatComesAndGoesWhileTheProgramRuns) {
    EXPECT_EQ(T("a", "defecto"), QStringLiteral("defecto"));
    Fichero(QStringLiteral("[COMMON]\r\na=uno\r\n"));
    EXPECT_EQ(T("a", "defecto"), QStringLiteral("uno"));
    QFile::remove(carpeta_.Ruta(QStringLiteral("RWLang.ini")));
    EXPECT_EQ(T("a", "defecto"), QStringLiteral("defecto"));
}

TEST_F(TextosTest, WhatIsNoLanguageFileGivesTheDefaults) {
    carpeta_.Pon(QStringLiteral("RWLang.ini"), QByteArray("\0\xff\x01[[[=\n=\n]", 12));
    EXPECT_EQ(T("a", "defecto"), QStringLiteral("defecto"));
    QFile::remove(carpeta_.Ruta(QStringLiteral("RWLang.ini")));
    carpeta_.PonCarpeta(QStringLiteral("RWLang.ini"));
    EXPECT_EQ(T("a", "defecto"), QStringLiteral("defecto"));
}

TEST_F(TextosTest, UnknownSectionsAndKeysChangeNothing) {
    Fichero(QStringLiteral("a=1\r\n[DESCONOCIDA]\r\na=2\r\n[COMMON]\r\nb=3\r\naa=4\r\n= 5\r\na\r\n"
                           "[]\r\na=6\r\n[COMMON\r\n"));
    EXPECT_EQ(T("a", "defecto"), QStringLiteral("defecto"));
    EXPECT_EQ(T("b", "defecto"), QStringLiteral("3"));
}

TEST_F(TextosTest, AFileThatCannotBeReadGivesTheDefaultsAndStopsNobody) {
    Fichero(QStringLiteral("[COMMON]\r\na=uno\r\n"));
    const QByteArray ruta = QFile::encodeName(carpeta_.Ruta(QStringLiteral("RWLang.ini")));
    ASSERT_EQ(::chmod(QFile::encodeName(carpeta_.Ruta()).constData(), 0755), 0);
    ASSERT_EQ(::chmod(ruta.constData(), 0), 0);
    {
        const SinPrivilegios nadie;
        EXPECT_EQ(T("a", "defecto"), QStringLiteral("defecto"));
    }
    ASSERT_EQ(::unlink(ruta.constData()), 0);
    // Opening a pipe that nobody writes would wait for ever.
    ASSERT_EQ(::mkfifo(ruta.constData(), 0644), 0);
    EXPECT_EQ(T("a", "defecto"), QStringLiteral("defecto"));
}

TEST_F(TextosTest, SectionWithoutItsClosingBracketHidesNothingThatFollows) {
    Fichero(QStringLiteral("[GEN\r\nb=x\r\n[COMMON]\r\na=uno\r\n"));
    EXPECT_EQ(T("a", "defecto"), QStringLiteral("uno"));
    EXPECT_EQ(T("b", "defecto"), QStringLiteral("defecto"));
}

TEST_F(TextosTest, TwoMonitorsLookIntoTheirOwnFiles) {
    const CarpetaTemporal otra;
    otra.Pon(QStringLiteral("RWLang.ini"), "[COMMON]\r\na=otra\r\n");
    Fichero(QStringLiteral("[COMMON]\r\na=esta\r\n"));
    const Textos otros(otra.Ruta());
    EXPECT_EQ(T("a", ""), QStringLiteral("esta"));
    EXPECT_EQ(otros.Traduce(QStringLiteral("a"), QString()), QStringLiteral("otra"));
    EXPECT_EQ(T("a", ""), QStringLiteral("esta"));
}

} // namespace
} // namespace zv::test
