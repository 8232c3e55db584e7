// The position of what is printed, the pages, and the ends of a document.
#include "platform/Impresora.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "support/ImpresoraMemoria.h"
#include "support/ImprimeQt.h"
#include "support/NumeroError.h"

#include <gtest/gtest.h>

namespace zv::test {
namespace {

class ImpresoraTest : public testing::Test {
  protected:
    // Where the text stands that is written next.
    QPoint Siguiente() {
        impresora.Escribir(u"*"_s, false);
        impresora.TerminarDocumento();
        return impresora.documentos.back().back().textos.back().sitio;
    }

    ImpresoraMemoria impresora;
};

TEST_F(ImpresoraTest, BeginsInTheUpperLeftCorner) {
    EXPECT_EQ(Siguiente(), QPoint(0, 0));
}

TEST_F(ImpresoraTest, ATextWithoutABreakIsFollowedByTheNextOne) {
    impresora.PonerFuente({u"Arial"_s, 10, false, false, false});
    impresora.PonerX(500);
    impresora.Escribir(u"abc"_s, false);
    EXPECT_EQ(Siguiente(), QPoint(800, 0));
}

TEST_F(ImpresoraTest, ALineBreakGoesToTheLeftEdgeOfTheNextLine) {
    impresora.PonerFuente({u"Arial"_s, 12, true, false, false});
    impresora.PonerX(500);
    impresora.Escribir(u"abc"_s, true);
    EXPECT_EQ(Siguiente(), QPoint(0, 288));
}

TEST_F(ImpresoraTest, ALineBreakInsideTheTextDoesTheSame) {
    impresora.Escribir(u"abc\r\ndef\n\rg"_s, false);
    impresora.TerminarDocumento();
    const auto& textos = impresora.documentos.front().front().textos;
    ASSERT_EQ(textos.size(), 3U);
    EXPECT_EQ(textos[0].texto, u"abc"_s);
    EXPECT_EQ(textos[1].texto, u"def"_s);
    EXPECT_EQ(textos[1].sitio, QPoint(0, 240));
    EXPECT_EQ(textos[2].texto, u"g"_s);
    EXPECT_EQ(textos[2].sitio, QPoint(0, 720));
}

TEST_F(ImpresoraTest, ATextThatEndsInABreakLeavesALineFreeBeforeTheNext) {
    impresora.Escribir(u"abc\r\n"_s, true);
    EXPECT_EQ(Siguiente(), QPoint(0, 480));
}

TEST_F(ImpresoraTest, ThePositionCanBeSet) {
    impresora.PonerX(700);
    impresora.PonerY(900);
    EXPECT_EQ(Siguiente(), QPoint(700, 900));
}

TEST_F(ImpresoraTest, ALineThatDoesNotFitGoesToTheNextPageAtItsOwnX) {
    impresora.PonerY(14760);
    EXPECT_TRUE(impresora.CabeLinea());
    impresora.PonerY(14761);
    EXPECT_FALSE(impresora.CabeLinea());
    impresora.PonerX(300);
    impresora.Escribir(u"*"_s, false);
    impresora.TerminarDocumento();
    ASSERT_EQ(impresora.documentos.front().size(), 2U);
    EXPECT_TRUE(impresora.documentos.front()[0].textos.empty());
    EXPECT_EQ(impresora.documentos.front()[1].textos.front().sitio, QPoint(300, 0));
}

TEST_F(ImpresoraTest, EveryLineOfALongDocumentStandsOnAPage) {
    constexpr int kLineas = 1000;
    for (int i = 0; i < kLineas; ++i) {
        impresora.Escribir(QString::number(i), true);
    }
    impresora.TerminarDocumento();
    int siguiente = 0;
    for (const PaginaImpresa& pagina : impresora.documentos.front()) {
        for (const TextoImpreso& texto : pagina.textos) {
            EXPECT_EQ(texto.texto, QString::number(siguiente++));
            EXPECT_LE(texto.sitio.y() + 240, 15000);
        }
    }
    EXPECT_EQ(siguiente, kLineas);
    EXPECT_EQ(impresora.documentos.front().size(), 17U); // 62 lines a page
}

TEST_F(ImpresoraTest, ALineHigherThanThePageIsPrintedAllTheSame) {
    impresora.pagina = QSize(100, 100);
    impresora.Escribir(u"a"_s, true);
    impresora.Escribir(u"b"_s, true);
    impresora.TerminarDocumento();
    EXPECT_EQ(ImpresoraMemoria::Lineas(impresora.documentos.front()),
              QStringList({u"a"_s, u"-- 1"_s, u"b"_s}));
}

TEST_F(ImpresoraTest, TurnsAnEmptyPageAndElseTakesANewOne) {
    EXPECT_EQ(impresora.AnchoPagina(), 10000);
    impresora.PonerOrientacion(Orientacion::Apaisada);
    EXPECT_EQ(impresora.AnchoPagina(), 15000);
    impresora.Escribir(u"a"_s, true);
    impresora.PonerOrientacion(Orientacion::Apaisada);
    impresora.Escribir(u"b"_s, true);
    impresora.PonerOrientacion(Orientacion::Vertical);
    impresora.Escribir(u"c"_s, true);
    impresora.TerminarDocumento();
    const DocumentoImpreso& documento = impresora.documentos.front();
    EXPECT_EQ(documento.front().orientacion, Orientacion::Apaisada);
    EXPECT_EQ(ImpresoraMemoria::Lineas(documento),
              QStringList({u"a"_s, u"b"_s, u"-- 1"_s, u"c"_s}));
}

TEST_F(ImpresoraTest, TheNextDocumentBeginsUprightAndAtTheTop) {
    impresora.PonerOrientacion(Orientacion::Apaisada);
    impresora.Escribir(u"a"_s, true);
    impresora.TerminarDocumento();
    EXPECT_EQ(impresora.AnchoPagina(), 10000);
    EXPECT_EQ(Siguiente(), QPoint(0, 0));
    EXPECT_EQ(impresora.documentos.back().front().orientacion, Orientacion::Vertical);
    EXPECT_EQ(impresora.aperturas, 2);
}

TEST_F(ImpresoraTest, AnEmptyDocumentIsDropped) {
    impresora.TerminarDocumento();
    EXPECT_EQ(impresora.aperturas, 0);
    impresora.Escribir({}, true);
    impresora.TerminarDocumento();
    EXPECT_TRUE(impresora.documentos.empty());
}

TEST_F(ImpresoraTest, WhatIsGivenUpIsNotPrintedWithTheNextDocument) {
    impresora.PonerOrientacion(Orientacion::Apaisada);
    impresora.Escribir(u"half"_s, true);
    impresora.Abandonar();
    EXPECT_EQ(impresora.AnchoPagina(), 10000);
    impresora.Escribir(u"whole"_s, true);
    impresora.TerminarDocumento();
    EXPECT_EQ(impresora.Lineas(), QStringList(u"whole"_s));
    EXPECT_EQ(impresora.documentos.front().front().orientacion, Orientacion::Vertical);
}

TEST_F(ImpresoraTest, WhatIsRefusedIsNotPrintedWithTheNextDocument) {
    impresora.rechaza = true;
    impresora.Escribir(u"refused"_s, true);
    EXPECT_EQ(NumeroError([&] { impresora.TerminarDocumento(); }), 482);
    impresora.rechaza = false;
    impresora.Escribir(u"taken"_s, true);
    impresora.TerminarDocumento();
    EXPECT_EQ(impresora.Lineas(), QStringList(u"taken"_s));
}

TEST_F(ImpresoraTest, WithoutAPrinterEveryCallFails) {
    impresora.hay = false;
    EXPECT_EQ(NumeroError([&] { impresora.PonerFuente({}); }), 482);
    EXPECT_EQ(NumeroError([&] { impresora.PonerX(1); }), 482);
    EXPECT_EQ(NumeroError([&] { impresora.PonerY(1); }), 482);
    EXPECT_EQ(NumeroError([&] { impresora.Escribir(u"a"_s, true); }), 482);
    EXPECT_EQ(NumeroError([&] { impresora.AnchoTexto(u"a"_s); }), 482);
    EXPECT_EQ(NumeroError([&] { impresora.AnchoPagina(); }), 482);
    EXPECT_EQ(NumeroError([&] { impresora.CabeLinea(); }), 482);
    EXPECT_EQ(NumeroError([&] { impresora.NuevaPagina(); }), 482);
    EXPECT_EQ(NumeroError([&] { impresora.PonerOrientacion(Orientacion::Apaisada); }), 482);
}

} // namespace
} // namespace zv::test
