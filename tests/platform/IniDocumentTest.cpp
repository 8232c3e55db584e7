// INI files in memory: the private-profile rules and the encodings.
#include "platform/IniDocument.h"

#include "platform/IniLines.h"
#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"

#include <gtest/gtest.h>
#include <random>

namespace zv {
namespace {

std::optional<QString> Valor(const QByteArray& bytes, const char* seccion, const char* clave) {
    return IniDocument::Analizar(bytes).Valor(QString::fromUtf8(seccion), QString::fromUtf8(clave));
}

QByteArray Utf16(const QString& texto, bool primeroElBajo) {
    QByteArray bytes(primeroElBajo ? "\xFF\xFE" : "\xFE\xFF");
    for (const QChar c : texto) {
        const char bajo = static_cast<char>(c.cell());
        const char alto = static_cast<char>(c.row());
        bytes.append(primeroElBajo ? bajo : alto).append(primeroElBajo ? alto : bajo);
    }
    return bytes;
}

TEST(IniDocument, FindsAValueBySectionAndKey) {
    const QByteArray bytes = "[A]\r\nx=1\r\ny=2\r\n[B]\r\nx=3\r\n";
    EXPECT_EQ(Valor(bytes, "A", "x"), u"1"_s);
    EXPECT_EQ(Valor(bytes, "A", "y"), u"2"_s);
    EXPECT_EQ(Valor(bytes, "B", "x"), u"3"_s);
    EXPECT_EQ(Valor(bytes, "B", "y"), std::nullopt);
    EXPECT_EQ(Valor(bytes, "C", "x"), std::nullopt);
}

TEST(IniDocument, NamesIgnoreCaseBeyondAsciiToo) {
    const QByteArray bytes = "[Común]\nmodificarContraseña=Sí\n";
    EXPECT_EQ(Valor(bytes, "COMÚN", "MODIFICARCONTRASEÑA"), u"Sí"_s);
    EXPECT_EQ(Valor(bytes, "común", "modificarcontraseña"), u"Sí"_s);
}

TEST(IniDocument, TheFirstOfTwoLikeNamesWins) {
    const QByteArray bytes = "[a]\nk=1\nK=2\n[A]\nk=3\notra=4\n";
    EXPECT_EQ(Valor(bytes, "A", "k"), u"1"_s);
    EXPECT_EQ(Valor(bytes, "A", "otra"), std::nullopt);
}

TEST(IniDocument, BlanksAroundNamesAndValuesGo) {
    const QByteArray bytes = "  [ A b ]  \n \t clave uno \t=  un valor \t\n";
    EXPECT_EQ(Valor(bytes, "A b", "clave uno"), u"un valor"_s);
}

TEST(IniDocument, OnePairOfLikeQuotesGoes) {
    EXPECT_EQ(Valor("[A]\nk=\" x \"\n", "A", "k"), u" x "_s);
    EXPECT_EQ(Valor("[A]\nk='x'\n", "A", "k"), u"x"_s);
    EXPECT_EQ(Valor("[A]\nk=\"\"x\"\"\n", "A", "k"), u"\"x\""_s);
    EXPECT_EQ(Valor("[A]\nk=\"x'\n", "A", "k"), u"\"x'"_s);
    EXPECT_EQ(Valor("[A]\nk=\"\n", "A", "k"), u"\""_s);
    EXPECT_EQ(Valor("[A]\nk=\"\"\n", "A", "k"), QString());
}

TEST(IniDocument, CommentsAndLinesWithoutASignSayNothing) {
    const QByteArray bytes = "[A]\n;k=1\n  ; k=2\nk\n=3\nk=4;5\n";
    EXPECT_EQ(Valor(bytes, "A", "k"), u"4;5"_s);
    EXPECT_EQ(Valor(bytes, "A", ""), std::nullopt);
    EXPECT_EQ(Valor(bytes, "A", ";k"), std::nullopt);
}

TEST(IniDocument, AKeyWithNothingBehindIsEmptyAndNotAbsent) {
    EXPECT_EQ(Valor("[A]\nk=\n", "A", "k"), QString());
    EXPECT_EQ(Valor("[A]\nk=", "A", "k"), QString());
    EXPECT_EQ(Valor("[A]\nk=  \n", "A", "k"), QString());
}

TEST(IniDocument, AValueMayHoldTheSignAndBrackets) {
    EXPECT_EQ(Valor("[A]\nk=a=b=[c]\n", "A", "k"), u"a=b=[c]"_s);
}

TEST(IniDocument, KeysBeforeAnySectionAreOutOfReach) {
    EXPECT_EQ(Valor("k=1\n[A]\nx=2\n", "", "k"), std::nullopt);
    EXPECT_EQ(Valor("k=1\n[A]\nx=2\n", "A", "k"), std::nullopt);
}

TEST(IniDocument, AnUnclosedSectionLineOpensNone) {
    EXPECT_EQ(Valor("[A]\n[B\nk=1\n", "A", "k"), u"1"_s);
}

TEST(IniDocument, TakesEveryLineEnd) {
    for (const char* salto : {"\r\n", "\n", "\r"}) {
        const QByteArray bytes = QByteArray("[A]\na=1\n\nb=2").replace('\n', salto);
        EXPECT_EQ(Valor(bytes, "A", "a"), u"1"_s);
        EXPECT_EQ(Valor(bytes, "A", "b"), u"2"_s);
    }
}

TEST(IniDocument, ReadsEveryEncoding) {
    const QString texto = u"[Sección]\r\naño=España €\r\n"_s;
    const QByteArray codePage = "[Secci\xF3n]\r\na\xF1o=Espa\xF1"
                                "a \x80\r\n";
    for (const QByteArray& bytes : {Utf16(texto, true), Utf16(texto, false),
                                    "\xEF\xBB\xBF" + texto.toUtf8(), texto.toUtf8(), codePage}) {
        EXPECT_EQ(Valor(bytes, "sección", "AÑO"), u"España €"_s);
    }
}

TEST(IniDocument, WideTextHoldsAnyCharacter) {
    const QString texto = u"[A]\nk=Ωмир日本💶\n"_s;
    EXPECT_EQ(Valor(Utf16(texto, true), "A", "k"), u"Ωмир日本💶"_s);
    // Characters whose halves look like line ends in bytes.
    const QString trampa = u"[A]\nk=\u0A0D\u0D0A\u0A0A.\n"_s;
    EXPECT_EQ(Valor(Utf16(trampa, true), "A", "k"), u"\u0A0D\u0D0A\u0A0A."_s);
    EXPECT_EQ(Valor(Utf16(trampa, false), "A", "k"), u"\u0A0D\u0D0A\u0A0A."_s);
}

TEST(IniDocument, EmptyAndBinaryFilesGiveNothing) {
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("\xFF\xFE"), QByteArray("\xFF\xFE\x41"),
          QByteArray("\xEF\xBB\xBF"), QByteArray(100, '\0'), QByteArray("[]=\n]["),
          QByteArray("[")}) {
        EXPECT_EQ(Valor(bytes, "A", "k"), std::nullopt);
    }
}

TEST(IniDocument, SurvivesArbitraryBytes) {
    std::mt19937 azar(4711); // NOLINT(bugprone-random-generator-seed): repeatable
    const QByteArray frecuentes = "[]=;\r\n\"' \tAk\xFF\xFE\xEF\xBB\xBF";
    for (int vuelta = 0; vuelta < 3000; ++vuelta) {
        QByteArray bytes;
        for (unsigned i = azar() % 60; i > 0; --i) {
            bytes.append(azar() % 2 == 0 ? frecuentes[static_cast<qsizetype>(
                                               azar() % static_cast<unsigned>(frecuentes.size()))]
                                         : static_cast<char>(azar()));
        }
        const auto valor = Valor(bytes, "A", "k");
        ASSERT_TRUE(!valor || bytes.size() >= 6); // "[A]" and "k=" need that many
    }
}

TEST(IniDocument, HoldsABigFile) {
    QByteArray bytes = "[A]\r\n";
    constexpr int kClaves = 400000;
    for (int i = 0; i < kClaves; ++i) {
        bytes += "clave" + QByteArray::number(i) + "=un valor cualquiera\r\n";
    }
    ASSERT_GT(bytes.size(), 10 * 1024 * 1024);
    const IniDocument documento = IniDocument::Analizar(bytes);
    EXPECT_EQ(documento.Valor(u"a"_s, u"CLAVE399999"_s), u"un valor cualquiera"_s);
    EXPECT_EQ(documento.Valor(u"a"_s, u"clave400000"_s), std::nullopt);
}

TEST(IniLines, TellsEncodingAndLineEndOfAFile) {
    using Codificacion = IniLines::Codificacion;
    EXPECT_EQ(IniLines("[A]\n").Encoding(), Codificacion::CodePage);
    EXPECT_EQ(IniLines("[\xF3\xB1]").Encoding(), Codificacion::CodePage);
    EXPECT_EQ(IniLines("[A\xC3\xB1]").Encoding(), Codificacion::Utf8);
    EXPECT_EQ(IniLines("[A\xC3").Encoding(), Codificacion::CodePage);
    // What no decoder takes for a character: too long a form, half a pair, beyond the last one.
    for (const char* malo :
         {"\xE0\x80\x80", "\xED\xA0\x80", "\xF0\x80\x80\x80", "\xF4\x90\x80\x80"}) {
        EXPECT_EQ(IniLines(malo).Encoding(), Codificacion::CodePage) << malo;
    }
    for (const char* bueno :
         {"\xE0\xA0\x80", "\xED\x9F\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_EQ(IniLines(bueno).Encoding(), Codificacion::Utf8) << bueno;
    }
    EXPECT_EQ(IniLines("\xEF\xBB\xBF").Encoding(), Codificacion::Utf8);
    EXPECT_EQ(IniLines("\xFF\xFE").Encoding(), Codificacion::Utf16Le);
    EXPECT_EQ(IniLines("\xFE\xFF").Encoding(), Codificacion::Utf16Be);
    EXPECT_EQ(IniLines("[A]\nk=1\r\n").FinDeLinea(), QByteArray("\n"));
    EXPECT_EQ(IniLines("[A]\r\nk=1\n").FinDeLinea(), QByteArray("\r\n"));
    EXPECT_EQ(IniLines("[A]").FinDeLinea(), QByteArray("\r\n"));
    EXPECT_EQ(IniLines("\xFF\xFE").FinDeLinea(), QByteArray("\r\0\n\0", 4));
}

} // namespace
} // namespace zv
