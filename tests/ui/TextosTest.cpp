// Look-ups in the language file.
#include "ui/Textos.h"

#include "platform/StringLiterals.h"
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
        carpeta_.Pon(u"RWLang.ini"_s, "\xef\xbb\xbf" + texto.toUtf8());
    }
    QString T(const char* clave, const char* porDefecto) const {
        return textos_.TextoIdioma(u"COMMON"_s, QString::fromUtf8(clave),
                                   QString::fromUtf8(porDefecto));
    }

    CarpetaTemporal carpeta_;
    Textos textos_{carpeta_.Ruta()};
};

TEST_F(TextosTest, WithoutAFileEachLookUpGivesItsDefaultTrimmed) {
    EXPECT_EQ(T("importe", "Importe: "), u"Importe:"_s);
    EXPECT_EQ(T("importe", "Importe"), u"Importe"_s);
    EXPECT_EQ(T("errorDeZorvex", "Error de Zorvex "), u"Error de Zorvex"_s);
    EXPECT_EQ(T("nada", ""), QString());
    EXPECT_EQ(T("nada", "   "), QString());
}

TEST_F(TextosTest, TakesTheValueOfSectionAndKeyIgnoringCase) {
    Fichero(u"[common]\r\nCOBROS=charges\r\n[frmCash]\r\nlbTitulo=Amount\r\n"_s);
    EXPECT_EQ(T("cobros", "cobros"), u"charges"_s);
    EXPECT_EQ(textos_.DePantalla(u"FRMCASH"_s).TextoForm(u"LBTITULO"_s, u"x"_s), u"Amount"_s);
    EXPECT_EQ(textos_.TextoIdioma(u"GEN"_s, u"cobros"_s, u"x"_s), u"x"_s);
}

TEST_F(TextosTest, AnEntryHoldsSectionKeyAndDefault) {
    static constexpr Clave comun{u"cobros", u" cobros "};
    static constexpr Clave deCaja{u"frmCash", u"lbTitulo", u"Importe"};
    EXPECT_EQ(textos_.Traduce(comun), u"cobros"_s);
    EXPECT_EQ(textos_.Traduce(deCaja), u"Importe"_s);
    Fichero(u"[COMMON]\r\ncobros=charges\r\nlbTitulo=no\r\n[frmCash]\r\nlbTitulo=Amount\r\n"_s);
    EXPECT_EQ(textos_.Traduce(comun), u"charges"_s);
    EXPECT_EQ(textos_.Traduce(deCaja), u"Amount"_s);
}

TEST_F(TextosTest, AValueOfATableIsItsOwnKeyAndItsOwnDefault) {
    EXPECT_EQ(textos_.TraduceValor(u"authCaja "_s), u"authCaja"_s);
    Fichero(u"[COMMON]\r\nauthCaja=Cash office\r\n"_s);
    EXPECT_EQ(textos_.TraduceValor(u"authCaja"_s), u"Cash office"_s);
    EXPECT_EQ(textos_.TraduceValor(u"authPago"_s), u"authPago"_s);
    EXPECT_EQ(textos_.TraduceValor(QString()), QString());
}

TEST_F(TextosTest, TextsOfAScreenAreThoseOfOneMoment) {
    Fichero(u"[frmCash]\r\nuno=one/CRLF/1 \r\n"_s);
    const TextosPantalla antes = textos_.DePantalla(u"frmCash"_s);
    Fichero(u"[frmCash]\r\nuno=two\r\n"_s);
    EXPECT_EQ(antes.TextoForm(u"uno"_s, u"x"_s), u"one\r\n1"_s);
    EXPECT_EQ(antes.TextoForm(u"dos"_s, u" x "_s), u"x"_s);
    EXPECT_EQ(textos_.DePantalla(u"frmCash"_s).TextoForm(u"uno"_s, u"x"_s), u"two"_s);
}

TEST_F(TextosTest, DetailStandsInTheDefaultOnly) {
    static constexpr Clave clave{u"error", u"Error %1. Consulte"};
    EXPECT_EQ(textos_.Traduce(clave, u"100 - %1/CRLF/x"_s), u"Error 100 - %1\r\nx. Consulte"_s);
    Fichero(u"[COMMON]\r\nerror=Error of %1\r\n"_s);
    EXPECT_EQ(textos_.Traduce(clave, u"100"_s), u"Error of %1"_s);
}

TEST_F(TextosTest, OneKeyWithSeveralDefaultsHasAnEntryForEach) {
    static constexpr Clave claves[] = {{u"a", u"1"}, {u"frm", u"a", u"2"}, {u"a", u"3"}};
    EXPECT_EQ(Entrada(claves, u"a").PorDefecto(), u"1"_s);
    EXPECT_EQ(Entrada(claves, u"a", 1).PorDefecto(), u"3"_s);
    EXPECT_EQ(Entrada(claves, u"frm", u"a").PorDefecto(), u"2"_s);
}

TEST_F(TextosTest, EmptyValueGivesAnEmptyTextNotTheDefault) {
    Fichero(u"[COMMON]\r\nvacio=\r\nblancos=   \r\n"_s);
    EXPECT_EQ(T("vacio", "defecto"), QString());
    EXPECT_EQ(T("blancos", "defecto"), QString());
}

TEST_F(TextosTest, MarkOfALineBreakBecomesCarriageReturnAndLineFeed) {
    Fichero(u"[COMMON]\r\na=Primera/CRLF/Segunda\r\nb=Primera/CRLF/\r\n"
            "c=/CRLF//CRLF/x  \r\nd=x/crlf/y\r\n"_s);
    EXPECT_EQ(T("a", ""), u"Primera\r\nSegunda"_s);
    EXPECT_EQ(T("b", ""), u"Primera\r\n"_s);
    EXPECT_EQ(T("c", ""), u"\r\n\r\nx"_s);
    EXPECT_EQ(T("d", ""), u"x/crlf/y"_s);
}

TEST_F(TextosTest, DefaultIsSubjectToTheLineBreakMarkToo) {
    EXPECT_EQ(T("a", " Uno/CRLF/dos "), u"Uno\r\ndos"_s);
}

TEST_F(TextosTest, OnlyBlanksAreTrimmed) {
    Fichero(u"[COMMON]\r\na=  texto con blancos   \r\n"_s);
    EXPECT_EQ(T("a", ""), u"texto con blancos"_s);
    EXPECT_EQ(T("b", " \t x\u00a0 "), u"\t x\u00a0"_s);
    EXPECT_EQ(T("b", "x \r\n"), u"x \r\n"_s);
}

TEST_F(TextosTest, ValuesUpTo256CharactersComeWhole) {
    const QString justo(256, QChar(u'ñ'));
    Fichero(u"[COMMON]\r\na="_s + justo + u"\r\n"_s);
    EXPECT_EQ(T("a", ""), justo);
}

TEST_F(TextosTest, LongerValuesAreCutTo256) {
    Fichero(u"[COMMON]\r\na="_s + QString(600, QLatin1Char('x')) + u"\r\nb=siguiente\r\n"_s);
    EXPECT_EQ(T("a", ""), QString(256, QLatin1Char('x')));
    EXPECT_EQ(T("b", ""), u"siguiente"_s);
}

TEST_F(TextosTest, CutNeverLeavesHalfOfACharacter) {
    Fichero(u"[COMMON]\r\na="_s + QString(255, QLatin1Char('x')) + u"\U0001F4B6\U0001F4B6\r\n"_s);
    EXPECT_EQ(T("a", ""), QString(255, QLatin1Char('x')));
}

TEST_F(TextosTest, LongDefaultsComeWhole) {
    const QString largo(600, QLatin1Char('x'));
    EXPECT_EQ(textos_.TextoIdioma(u"COMMON"_s, u"a"_s, largo), largo);
}

TEST_F(TextosTest, KeysWithNonAsciiCharactersWork) {
    Fichero(u"[COMMON]\r\nmodificarContraseña=Change password\r\n"
            "AÑADIRCAMBIOANULADO=Float cancelled\r\n"_s);
    EXPECT_EQ(T("modificarContraseña", ""), u"Change password"_s);
    EXPECT_EQ(T("añadirCambioAnulado", ""), u"Float cancelled"_s);
}

TEST_F(TextosTest, ReadsUtf16OfBothByteOrders) {
    const QString texto = u"[COMMON]\r\na=Ελληνικά €\r\n"_s;
    for (const auto codigo : {QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
        QStringEncoder codificador(codigo, QStringConverter::Flag::WriteBom);
        const QByteArray bytes = codificador.encode(texto);
        carpeta_.Pon(u"RWLang.ini"_s, bytes);
        EXPECT_EQ(Textos(carpeta_.Ruta()).TextoIdioma(u"COMMON"_s, u"a"_s, {}), u"Ελληνικά €"_s);
    }
}

TEST_F(TextosTest, WithoutAMarkTheFileIsOfTheSingleByteCodePage) {
    carpeta_.Pon(u"RWLang.ini"_s, "[COMMON]\r\na=A\xf1o \x80\r\n");
    EXPECT_EQ(T("a", ""), u"Año €"_s);
}

TEST_F(TextosTest, EditedInPlaceTakesEffectAtTheNextLookUp) {
    Fichero(u"[COMMON]\r\na=uno\r\n"_s);
    EXPECT_EQ(T("a", ""), u"uno"_s);
    // The same length within the same tick of the file system's clock.
    Fichero(u"[COMMON]\r\na=dos\r\n"_s);
    EXPECT_EQ(T("a", ""), u"dos"_s);
    EXPECT_EQ(T("a", ""), u"dos"_s);
}

TEST_F(TextosTest, FileReplacedByARenameTakesEffect) {
    Fichero(u"[COMMON]\r\na=uno\r\n"_s);
    EXPECT_EQ(T("a", ""), u"uno"_s);
    carpeta_.Pon(u"nuevo"_s, "[COMMON]\r\na=dos\r\n");
    // Even with the date of the file that it replaces.
    const utimbuf fecha{1000000000, 1000000000};
    ASSERT_EQ(utime(QFile::encodeName(carpeta_.Ruta(u"nuevo"_s)), &fecha), 0);
    ASSERT_EQ(rename(QFile::encodeName(carpeta_.Ruta(u"nuevo"_s)),
                     QFile::encodeName(carpeta_.Ruta(u"RWLang.ini"_s))),
              0);
    EXPECT_EQ(T("a", ""), u"dos"_s);
}

TEST_F(TextosTest, FileThatComesAndGoesWhileTheProgramRuns) {
    EXPECT_EQ(T("a", "defecto"), u"defecto"_s);
    Fichero(u"[COMMON]\r\na=uno\r\n"_s);
    EXPECT_EQ(T("a", "defecto"), u"uno"_s);
    QFile::remove(carpeta_.Ruta(u"RWLang.ini"_s));
    EXPECT_EQ(T("a", "defecto"), u"defecto"_s);
}

TEST_F(TextosTest, WhatIsNoLanguageFileGivesTheDefaults) {
    carpeta_.Pon(u"RWLang.ini"_s, QByteArray("\0\xff\x01[[[=\n=\n]", 12));
    EXPECT_EQ(T("a", "defecto"), u"defecto"_s);
    QFile::remove(carpeta_.Ruta(u"RWLang.ini"_s));
    carpeta_.PonCarpeta(u"RWLang.ini"_s);
    EXPECT_EQ(T("a", "defecto"), u"defecto"_s);
}

TEST_F(TextosTest, UnknownSectionsAndKeysChangeNothing) {
    Fichero(u"a=1\r\n[DESCONOCIDA]\r\na=2\r\n[COMMON]\r\nb=3\r\naa=4\r\n= 5\r\na\r\n"
            "[]\r\na=6\r\n[COMMON\r\n"_s);
    EXPECT_EQ(T("a", "defecto"), u"defecto"_s);
    EXPECT_EQ(T("b", "defecto"), u"3"_s);
}

TEST_F(TextosTest, AFileThatCannotBeReadGivesTheDefaultsAndStopsNobody) {
    Fichero(u"[COMMON]\r\na=uno\r\n"_s);
    const QByteArray ruta = QFile::encodeName(carpeta_.Ruta(u"RWLang.ini"_s));
    ASSERT_EQ(::chmod(QFile::encodeName(carpeta_.Ruta()).constData(), 0755), 0);
    ASSERT_EQ(::chmod(ruta.constData(), 0), 0);
    {
        const SinPrivilegios nadie;
        EXPECT_EQ(T("a", "defecto"), u"defecto"_s);
    }
    ASSERT_EQ(::unlink(ruta.constData()), 0);
    // Opening a pipe that nobody writes would wait for ever.
    ASSERT_EQ(::mkfifo(ruta.constData(), 0644), 0);
    EXPECT_EQ(T("a", "defecto"), u"defecto"_s);
}

TEST_F(TextosTest, SectionWithoutItsClosingBracketHidesNothingThatFollows) {
    Fichero(u"[GEN\r\nb=x\r\n[COMMON]\r\na=uno\r\n"_s);
    EXPECT_EQ(T("a", "defecto"), u"uno"_s);
    EXPECT_EQ(T("b", "defecto"), u"defecto"_s);
}

TEST_F(TextosTest, TwoMonitorsLookIntoTheirOwnFiles) {
    const CarpetaTemporal otra;
    otra.Pon(u"RWLang.ini"_s, "[COMMON]\r\na=otra\r\n");
    Fichero(u"[COMMON]\r\na=esta\r\n"_s);
    const Textos otros(otra.Ruta());
    EXPECT_EQ(T("a", ""), u"esta"_s);
    EXPECT_EQ(otros.TextoIdioma(u"COMMON"_s, u"a"_s, {}), u"otra"_s);
    EXPECT_EQ(T("a", ""), u"esta"_s);
}

} // namespace
} // namespace zv::test
