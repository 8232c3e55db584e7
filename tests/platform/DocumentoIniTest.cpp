// INI files in memory: the private-profile rules and the encodings.
#include "platform/DocumentoIni.h"

#include "platform/LineasIni.h"
#include "support/ImprimeQt.h"

#include <gtest/gtest.h>
#include <random>

namespace zv {
namespace {

std::optional<QString> Valor(const QByteArray& bytes, const char* seccion, const char* clave) {
    return DocumentoIni::Analizar(bytes).Valor(QString::fromUtf8(seccion),
                                               QString::fromUtf8(clave));
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

TEST(DocumentoIni, FindsAValueBySectionAndKey) {
    const QByteArray bytes = "[A]\r\nx=1\r\ny=2\r\n[B]\r\nx=3\r\n";
    EXPECT_EQ(Valor(bytes, "A", "x"), QStringLiteral("1"));
    EXPECT_EQ(Valor(bytes, "A", "y"), QStringLiteral("2"));
    EXPECT_EQ(Valor(bytes, "B", "x"), QStringLiteral("3"));
    EXPECT_EQ(Valor(bytes, "B", "y"), std::nullopt);
    EXPECT_EQ(Valor(bytes, "C", "x"), std::nullopt);
}

TEST(DocumentoIni, NamesIgnoreCaseBeyondAsciiToo) {
    const QByteArray bytes = "[Común]\nmodificarContraseña=Sí\n";
    EXPECT_EQ(Valor(bytes, "COMÚN", "MODIFICARCONTRASEÑA"), QStringLiteral("Sí"));
    EXPECT_EQ(Valor(bytes, "común", "modificarcontraseña"), QStringLiteral("Sí"));
}

TEST(DocumentoIni, TheFirstOfTwoLikeNamesWins) {
    const QByteArray bytes = "[a]\nk=1\nK=2\n[A]\nk=3\notra=4\n";
    EXPECT_EQ(Valor(bytes, "A", "k"), QStringLiteral("1"));
    EXPECT_EQ(Valor(bytes, "A", "otra"), std::nullopt);
}

TEST(DocumentoIni, BlanksAroundNamesAndValuesGo) {
    const QByteArray bytes = "  [ A b ]  \n \t clave uno \t=  un valor \t\n";
    EXPECT_EQ(Valor(bytes, "A b", "clave uno"), QStringLiteral("un valor"));
}

TEST(DocumentoIni, OnePairOfLikeQuotesGoes) {
    EXPECT_EQ(Valor("[A]\nk=\" x \"\n", "A", "k"), QStringLiteral(" x "));
    EXPECT_EQ(Valor("[A]\nk='x'\n", "A", "k"), QStringLiteral("x"));
    EXPECT_EQ(Valor("[A]\nk=\"\"x\"\"\n", "A", "k"), QStringLiteral("\"x\""));
    EXPECT_EQ(Valor("[A]\nk=\"x'\n", "A", "k"), QStringLiteral("\"x'"));
    EXPECT_EQ(Valor("[A]\nk=\"\n", "A", "k"), QStringLiteral("\""));
    EXPECT_EQ(Valor("[A]\nk=\"\"\n", "A", "k"), QString());
}

TEST(DocumentoIni, CommentsAndLinesWithoutASignSayNothing) {
    const QByteArray bytes = "[A]\n;k=1\n  ; k=2\nk\n=3\nk=4;5\n";
    EXPECT_EQ(Valor(bytes, "A", "k"), QStringLiteral("4;5"));
    EXPECT_EQ(Valor(bytes, "A", ""), std::nullopt);
    EXPECT_EQ(Valor(bytes, "A", ";k"), std::nullopt);
}

TEST(DocumentoIni, AKeyWithNothingBehindIsEmptyAndNotAbsent) {
    EXPECT_EQ(Valor("[A]\nk=\n", "A", "k"), QString());
    EXPECT_EQ(Valor("[A]\nk=", "A", "k"), QString());
    EXPECT_EQ(Valor("[A]\nk=  \n", "A", "k"), QString());
}

TEST(DocumentoIni, AValueMayHoldTheSignAndBrackets) {
    EXPECT_EQ(Valor("[A]\nk=a=b=[c]\n", "A", "k"), QStringLiteral("a=b=[c]"));
}

TEST(DocumentoIni, KeysBeforeAnySectionAreOutOfReach) {
    EXPECT_EQ(Valor("k=1\n[A]\nx=2\n", "", "k"), std::nullopt);
    EXPECT_EQ(Valor("k=1\n[A]\nx=2\n", "A", "k"), std::nullopt);
}

TEST(DocumentoIni, AnUnclosedSectionLineOpensNone) {
    EXPECT_EQ(Valor("[A]\n[B\nk=1\n", "A", "k"), QStringLiteral("1"));
}

TEST(DocumentoIni, TakesEveryLineEnd) {
    for (const char* salto : {"\r\n", "\n", "\r"}) {
        const QByteArray bytes = QByteArray("[A]\na=1\n\nb=2").replace('\n', salto);
        EXPECT_EQ(Valor(bytes, "A", "a"), QStringLiteral("1"));
        EXPECT_EQ(Valor(bytes, "A", "b"), QStringLiteral("2"));
    }
}

TEST(DocumentoIni, ReadsEveryEncoding) {
    const QString texto = QStringLiteral("[Sección]\r\naño=España €\r\n");
    const QByteArray codePage = "[Secci\xF3n]\r\na\xF1o=Espa\xF1"
                                "a \x80\r\n";
    for (const QByteArray& bytes : {Utf16(texto, true), Utf16(texto, false),
                                    "\xEF\xBB\xBF" + texto.toUtf8(), texto.toUtf8(), codePage}) {
        EXPECT_EQ(Valor(bytes, "sección", "AÑO"), QStringLiteral("España €"));
    }
}

TEST(DocumentoIni, WideTextHoldsAnyCharacter) {
    const QString texto = QStringLiteral("[A]\nk=Ωмир日本💶\n");
    EXPECT_EQ(Valor(Utf16(texto, true), "A", "k"), QStringLiteral("Ωмир日本💶"));
    // Characters whose halves look like line ends in bytes.
    const QString trampa = QStringLiteral("[A]\nk=\u0A0D\u0D0A\u0A0A.\n");
    EXPECT_EQ(Valor(Utf16(trampa, true), "A", "k"), QStringLiteral("\u0A0D\u0D0A\u0A0A."));
    EXPECT_EQ(Valor(Utf16(trampa, false), "A", "k"), QStringLiteral("\u0A0D\u0D0A\u0A0A."));
}

TEST(DocumentoIni, EmptyAndBinaryFilesGiveNothing) {
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("\xFF\xFE"), QByteArray("\xFF\xFE\x41"),
          QByteArray("\xEF\xBB\xBF"), QByteArray(100, '\0'), QByteArray("[]=\n]["),
          QByteArray("[")}) {
        EXPECT_EQ(Valor(bytes, "A", "k"), std::nullopt);
    }
    EXPECT_TRUE(DocumentoIni::Analizar(QByteArray()).EstaVacio());
}

TEST(DocumentoIni, SurvivesArbitraryBytes) {
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

TEST(DocumentoIni, HoldsABigFile) {
    QByteArray bytes = "[A]\r\n";
    constexpr int kClaves = 400000;
    for (int i = 0; i < kClaves; ++i) {
        bytes += "clave" + QByteArray::number(i) + "=un valor cualquiera\r\n";
    }
    ASSERT_GT(bytes.size(), 10 * 1024 * 1024);
    const DocumentoIni documento = DocumentoIni::Analizar(bytes);
    EXPECT_EQ(documento.Valor(QStringLiteral("a"), QStringLiteral("CLAVE399999")),
              QStringLiteral("un valor cualquiera"));
    EXPECT_EQ(documento.Valor(QStringLiteral("a"), QStringLiteral("clave400000")), std::nullopt);
}

TEST(LineasIni, TellsEncodingAndLineEndOfAFile) {
    using Codificacion = LineasIni::Codificacion;
    EXPECT_EQ(LineasIni("[A]\n").Clase(), Codificacion::CodePage);
    EXPECT_EQ(LineasIni("[\xF3\xB1]").Clase(), Codificacion::CodePage);
    EXPECT_EQ(LineasIni("[A\xC3\xB1]").Clase(), Codificacion::Utf8);
    EXPECT_EQ(LineasIni("[A\xC3").Clase(), Codificacion::CodePage);
    // What no decoder takes for a character: too long a form, half a pair, beyond the last one.
    for (const char* malo :
         {"\xE0\x80\x80", "\xED\xA0\x80", "\xF0\x80\x80\x80", "\xF4\x90\x80\x80"}) {
        EXPECT_EQ(LineasIni(malo).Clase(), Codificacion::CodePage) << malo;
    }
    for (const char* bueno :
         {"\xE0\xA0\x80", "\xED\x9F\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_EQ(LineasIni(bueno).Clase(), Codificacion::Utf8) << bueno;
    }
    EXPECT_EQ(LineasIni("\xEF\xBB\xBF").Clase(), Codificacion::Utf8);
    EXPECT_EQ(LineasIni("\xFF\xFE").Clase(), Codificacion::Utf16Le);
    EXPECT_EQ(LineasIni("\xFE\xFF").Clase(), Codificacion::Utf16Be);
    EXPECT_EQ(LineasIni("[A]\nk=1\r\n").FinDeLinea(), QByteArray("\n"));
    EXPECT_EQ(LineasIni("[A]\r\nk=1\n").FinDeLinea(), QByteArray("\r\n"));
    EXPECT_EQ(LineasIni("[A]").FinDeLinea(), QByteArray("\r\n"));
    EXPECT_EQ(LineasIni("\xFF\xFE").FinDeLinea(), QByteArray("\r\0\n\0", 4));
}

} // namespace
} // namespace zv
