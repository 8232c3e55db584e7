// A printed line, a printed grid, and the end of a print that fails.
#include "ui/Imprimir.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "support/ImpresoraMemoria.h"
#include "support/ImprimeQt.h"
#include "support/LogMemoria.h"
#include "ui/Rejilla.h"
#include "ui/Textos.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zv::test {
namespace {

constexpr Clave kFecha{u"fecha", u"Fecha"};
constexpr Clave kOculta{u"oculta", u"Oculta"};
constexpr Clave kVenta{u"venta", u"Venta"};
constexpr Clave kSaldo{u"saldo", u"Saldo"};

class ImprimirTest : public testing::Test {
  protected:
    void SetUp() override { rejilla.PonerTitulos(Textos(carpeta.path())); }

    void Fila(const QString& fecha, const QString& venta, const QString& saldo) {
        const int fila = rejilla.AñadirFila();
        rejilla.PonerTexto(fila, 0, fecha);
        rejilla.PonerTexto(fila, 1, u"no debe salir, y es la más ancha de todas"_s);
        rejilla.PonerTexto(fila, 2, venta);
        rejilla.PonerTexto(fila, 3, saldo);
    }
    void Imprimir(const QString& titulo = {}, const QString& omitidas = {}, int margen = 0) {
        ImprimirRejilla(impresora, rejilla, titulo, omitidas, margen);
        impresora.TerminarDocumento();
    }
    const std::vector<TextoImpreso>& Textos1() {
        return impresora.documentos.front().front().textos;
    }
    // Where a text stands, which must be there.
    QPoint Sitio(const QString& buscado) {
        for (const TextoImpreso& texto : Textos1()) {
            if (texto.texto == buscado) {
                return texto.sitio;
            }
        }
        ADD_FAILURE() << "not printed: " << buscado.toStdString();
        return {};
    }

    QTemporaryDir carpeta;
    ImpresoraMemoria impresora;
    LogMemoria log;
    Rejilla rejilla{
        {{.clave = &kFecha, .ancho = 1000},
         {.clave = &kOculta, .ancho = 0},
         {.clave = &kVenta, .alineacion = Qt::AlignRight | Qt::AlignVCenter, .ancho = 1},
         {.clave = &kSaldo, .alineacion = Qt::AlignRight, .ancho = 500}}};
};

TEST_F(ImprimirTest, ALineSetsFontAndPositionAndBreaks) {
    ImprimirLinea(impresora, u"uno"_s, true, 300, 400, u"Courier"_s, 14, true, true, true);
    ImprimirLinea(impresora, u"dos"_s, false, -1, -1, u"Arial"_s, 10, false, false, false);
    ImprimirLinea(impresora, u"tres"_s, false, -1, -1, u"Arial"_s, 10, false, true, false);
    ImprimirLinea(impresora, u"cuatro"_s, false, 10, -1, u"Arial"_s, 10, false, false, true);
    impresora.TerminarDocumento();
    ASSERT_EQ(Textos1().size(), 4U);
    EXPECT_EQ(Textos1()[0].sitio, QPoint(300, 400));
    EXPECT_EQ(Textos1()[0].fuente, (FuenteImpresora{u"Courier"_s, 14, true, true, true}));
    EXPECT_EQ(Textos1()[1].sitio, QPoint(0, 400 + 14 * 24));
    EXPECT_EQ(Textos1()[1].fuente, (FuenteImpresora{u"Arial"_s, 10, false, false, false}));
    EXPECT_EQ(Textos1()[2].sitio, QPoint(300, 400 + 14 * 24));
    EXPECT_EQ(Textos1()[2].fuente, (FuenteImpresora{u"Arial"_s, 10, false, true, false}));
    EXPECT_EQ(Textos1()[3].sitio, QPoint(10, 400 + 14 * 24));
    EXPECT_EQ(Textos1()[3].fuente, (FuenteImpresora{u"Arial"_s, 10, false, false, true}));
}

TEST_F(ImprimirTest, AGridIsItsTitleItsHeadAndItsRows) {
    Fila(u"14/03"_s, u"1,00 €"_s, u"2,00 €"_s);
    Fila(u"15/03"_s, u"10,00 €"_s, {});
    Imprimir(u"MOVIMIENTOS"_s);
    EXPECT_EQ(impresora.Lineas(),
              QStringList({u"MOVIMIENTOS"_s, u"Fecha | Venta | Saldo"_s,
                           u"14/03 | 1,00 € | 2,00 €"_s, u"15/03 | 10,00 €"_s}));
}

TEST_F(ImprimirTest, TheTitleIs12BoldTheHeadBoldAndTheRestPlain) {
    Fila(u"14/03"_s, u"1,00 €"_s, u"2,00 €"_s);
    Imprimir(u"MOVIMIENTOS"_s);
    EXPECT_EQ(Textos1()[0].fuente, (FuenteImpresora{u"Arial"_s, 12, true, false, false}));
    EXPECT_EQ(Textos1()[0].sitio, QPoint(0, 0));
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(Textos1()[i].fuente, (FuenteImpresora{u"Arial"_s, 10, true, false, false}));
        EXPECT_EQ(Textos1()[i].sitio.y(), 288);
    }
    for (int i = 4; i <= 6; ++i) {
        EXPECT_EQ(Textos1()[i].fuente, (FuenteImpresora{u"Arial"_s, 10, false, false, false}));
        EXPECT_EQ(Textos1()[i].sitio.y(), 528);
    }
}

TEST_F(ImprimirTest, ATitleThatEndsInABreakLeavesALineFree) {
    Imprimir(u"MOVIMIENTOS\r\n"_s);
    EXPECT_EQ(Sitio(u"Fecha"_s).y(), 2 * 288);
}

TEST_F(ImprimirTest, WithoutATitleTheHeadIsFirst) {
    Imprimir();
    EXPECT_EQ(Sitio(u"Fecha"_s), QPoint(0, 0));
}

TEST_F(ImprimirTest, AColumnIsAsWideAsItsWidestTextAndThreeBlanks) {
    Fila(u"14/03"_s, u"1,00 €"_s, u"2,00 €"_s);
    Fila(u"14/03/26"_s, u"1.000,00 €"_s, u"3,00 €"_s);
    Imprimir({}, {}, 250);
    // 8 characters, 3 blanks; then 10 and 3.
    EXPECT_EQ(Sitio(u"Fecha"_s).x(), 250);
    EXPECT_EQ(Sitio(u"14/03/26"_s).x(), 250);
    EXPECT_EQ(Sitio(u"Venta"_s).x(), 250 + 1100);
    EXPECT_EQ(Sitio(u"Saldo"_s).x(), 250 + 1100 + 1300);
}

TEST_F(ImprimirTest, TitlesAreMeasuredInBold) {
    Fila(u"14/03"_s, u"1"_s, u"2"_s);
    Imprimir();
    EXPECT_EQ(Sitio(u"Venta"_s).x(), 5 * 120 + 300); // "Fecha" is as long as "14/03"
}

TEST_F(ImprimirTest, ARightAlignedCellEndsAtTheRightEdgeOfItsColumnItsTitleDoesNot) {
    Fila(u"14/03/26"_s, u"1,00 €"_s, u"2,00 €"_s);
    Fila(u"14/03/26"_s, u"1.000,00 €"_s, u"3,00 €"_s);
    Imprimir();
    EXPECT_EQ(Sitio(u"1,00 €"_s).x(), 1100 + 1300 - 600);
    EXPECT_EQ(Sitio(u"1.000,00 €"_s).x(), 1100 + 1300 - 1000);
    EXPECT_EQ(Sitio(u"Venta"_s).x(), 1100);
}

TEST_F(ImprimirTest, ColumnsCanBeLeftOut) {
    Fila(u"14/03"_s, u"1,00 €"_s, u"2,00 €"_s);
    Imprimir({}, u"0,3"_s);
    EXPECT_EQ(impresora.Lineas(), QStringList({u"Venta"_s, u"1,00 €"_s}));
    EXPECT_EQ(Sitio(u"Venta"_s).x(), 0);
}

TEST_F(ImprimirTest, OnlyWholeNumbersLeaveColumnsOut) {
    for (const QString& omitidas : {u"5"_s, u","_s, u"x"_s, u"30"_s, QString()}) {
        impresora.documentos.clear();
        Imprimir({}, omitidas);
        EXPECT_EQ(impresora.Lineas(), QStringList(u"Fecha | Venta | Saldo"_s));
    }
}

TEST_F(ImprimirTest, AGridWithTooWideColumnsPrintsInLandscape) {
    Fila(u"14/03"_s, u"1,00 €"_s, QString(80, u'9'));
    Imprimir(u"MOVIMIENTOS"_s);
    EXPECT_EQ(impresora.documentos.front().front().orientacion, Orientacion::Apaisada);
}

TEST_F(ImprimirTest, TheLastColumnMayEndAtTheEdgeOfThePageAndNotBehindIt) {
    Fila(u"14/03"_s, u"1,00 €"_s, u"2,00 €"_s);
    const int ancho = 900 + 900 + 900;
    impresora.pagina.setWidth(ancho + 100);
    Imprimir({}, {}, 100);
    EXPECT_EQ(impresora.documentos.front().front().orientacion, Orientacion::Vertical);
    impresora.pagina.setWidth(ancho + 99);
    impresora.documentos.clear();
    Imprimir({}, {}, 100);
    EXPECT_EQ(impresora.documentos.front().front().orientacion, Orientacion::Apaisada);
}

TEST_F(ImprimirTest, ALineBreakInACellDoesNotTearItsRow) {
    Fila(u"14\r\n03\r26\n"_s, u"1,00 €"_s, u"2,00 €"_s);
    Imprimir();
    EXPECT_EQ(impresora.Lineas().at(1), u"14 03 26  | 1,00 € | 2,00 €"_s);
    EXPECT_EQ(Sitio(u"Venta"_s).x(), 1200);
}

TEST_F(ImprimirTest, EachPageHasTheHeadAndNoRowIsLost) {
    constexpr int kFilas = 200;
    for (int i = 1; i <= kFilas; ++i) {
        Fila(QString::number(i), u"1,00 €"_s, u"2,00 €"_s);
    }
    Imprimir(u"MOVIMIENTOS"_s);
    int siguiente = 1;
    for (const PaginaImpresa& pagina : impresora.documentos.front()) {
        const QStringList lineas = ImpresoraMemoria::Lineas({pagina});
        const bool primera = siguiente == 1;
        EXPECT_EQ(lineas.at(primera ? 1 : 0), u"Fecha | Venta | Saldo"_s);
        for (qsizetype i = primera ? 2 : 1; i < lineas.size(); ++i) {
            EXPECT_EQ(lineas.at(i), u"%1 | 1,00 € | 2,00 €"_s.arg(siguiente++));
        }
        EXPECT_LE(pagina.textos.back().sitio.y() + 240, 15000);
    }
    EXPECT_EQ(siguiente, kFilas + 1);
    EXPECT_EQ(impresora.documentos.front().size(), 4U);
}

TEST_F(ImprimirTest, WhatFailsIsDroppedAndWrittenDown) {
    ImprimirSinAvisar(impresora, log, [&] {
        ImprimirLinea(impresora, u"half"_s, true, -1, -1, u"Arial"_s, 10, false, false, false);
        throw errores::Desbordamiento();
    });
    ImprimirSinAvisar(impresora, log, [&] {
        ImprimirLinea(impresora, u"whole"_s, true, -1, -1, u"Arial"_s, 10, false, false, false);
        impresora.TerminarDocumento();
    });
    EXPECT_EQ(impresora.Lineas(), QStringList(u"whole"_s));
    EXPECT_EQ(log.Toma(), QStringList(u">>> Error nº 6 al imprimir - Desbordamiento"_s));
}

TEST_F(ImprimirTest, NeitherPrinterNorLogReachTheOperator) {
    impresora.hay = false;
    log.fallosPendientes = 1;
    const auto imprimir = [&] { impresora.PonerX(1); };
    EXPECT_NO_THROW(ImprimirSinAvisar(impresora, log, imprimir));
    EXPECT_TRUE(log.lineas.isEmpty());
    ImprimirSinAvisar(impresora, log, imprimir);
    EXPECT_EQ(log.lineas,
              QStringList(u">>> Error nº 482 al imprimir - Error de impresora (no hay ninguna)"_s));
}

} // namespace
} // namespace zv::test
