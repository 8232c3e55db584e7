// Printing from the cash office: every line of it, by what the screen shows.
#include "cashoffice/ImpresionCaja.h"

#include "BancoCaja.h"
#include "platform/StringLiterals.h"
#include "support/DeviceGuion.h"
#include "support/DialogosGuion.h"
#include "support/FixedClock.h"
#include "support/IdiomaIngles.h"
#include "support/ImpresoraMemoria.h"
#include "support/ImprimeQt.h"
#include "support/LogMemoria.h"
#include "support/PantallasGuion.h"
#include "till/TillGraph.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zv::test {
namespace {

class ImpresionCajaTest : public testing::Test {
  protected:
    ImpresionCajaTest() {
        caja.PrepararRejilla();
        for (int columna = 0; columna < caja.grdZV().Columnas(); ++columna) {
            caja.grdZV().PonerAncho(columna, 1000);
        }
        caja.totales.cobros = 123450;
        Etiquetas({{&EstadoCaja::lbCobros, u"not this one"_s},
                   {&EstadoCaja::lbAbonos, u"20,00 €"_s},
                   {&EstadoCaja::lbPagos, u"50,00 €"_s},
                   {&EstadoCaja::lbIngresos, u"100,00 €"_s},
                   {&EstadoCaja::lbSaldoFinal, u"1.264,50 €"_s},
                   {&EstadoCaja::lbCambioMonedas, u"42,10 €"_s},
                   {&EstadoCaja::lbCambioBilletes, u"1.350,00 €"_s},
                   {&EstadoCaja::lbCBMonedas, u"0,00 €"_s},
                   {&EstadoCaja::lbCBBilletes, u"0,00 €"_s}});
    }

    void
    Etiquetas(const std::vector<std::pair<QString EstadoCaja::*, QString>>& textosDeEtiquetas) {
        for (const auto& [etiqueta, texto] : textosDeEtiquetas) {
            caja.PonerEtiqueta(etiqueta, texto);
        }
    }
    void Movimiento(const QStringList& celdas) {
        const int fila = caja.grdZV().AñadirFila();
        for (int columna = 0; columna < celdas.size(); ++columna) {
            caja.grdZV().PonerTexto(fila, columna, celdas.at(columna));
        }
    }
    QStringList Imprimir(Impresion eleccion) {
        impresora.documentos.clear();
        dialogos.EsperaImpresion(eleccion);
        ImprimirCaja(caja, impresora);
        return impresora.documentos.empty() ? QStringList() : impresora.Lineas();
    }
    // Nothing comes out, nothing is told but to the log.
    void EsperaFallo(Impresion eleccion, const QString& fallo) {
        log.Toma();
        EXPECT_EQ(Imprimir(eleccion), QStringList());
        EXPECT_EQ(log.Toma(), QStringList(u">>> Error nº "_s + fallo));
        EXPECT_EQ(dialogos.Pendientes(), 0U);
    }

    const QString raya = QString(50, u'-');
    const QStringList cambio{u"Cambio: 1.392,10 €"_s, u"Monedas:42,10 €"_s,
                             u"Billetes:1.350,00 €"_s};

    QTemporaryDir carpeta;
    FixedClock reloj;
    LogMemoria log;
    DialogosGuion dialogos;
    PantallasGuion pantallas;
    DeviceGuion cliente;
    Textos textos{carpeta.path()};
    RegistryTree registry{carpeta.filePath(u"Registro"_s)};
    quint8 multiplicador = 100;
    Importes importes{FormatoRegional(u"es_ES"_s), [this] { return multiplicador; }};
    TillGraph graph{
        {carpeta.path(), cliente, registry, log, dialogos, textos, importes, reloj, pantallas}};
    Caja caja{graph.Entorno()};
    ImpresoraMemoria impresora;
};

TEST_F(ImpresionCajaTest, TheListIsTheGridWithoutItsLastColumnAndTheTotals) {
    Movimiento({u"14/03/2026 9:05:03"_s, u"Cobro Venta"_s, u"TPV1"_s, u"Ana"_s, u"12,50 €"_s,
                u"12,50 €"_s});
    Movimiento({u"14/03/2026 9:06:03"_s, u"Abono Venta"_s, u"TPV1"_s, u"Ana"_s, u"-2,00 €"_s,
                u"10,50 €"_s});
    EXPECT_EQ(Imprimir(Impresion::Listado),
              QStringList({u"MOVIMIENTOS DE CAJA HASTA 14/03/2026 18:04:11"_s,
                           u"Fecha | Concepto | Vendedor | Terminal | Venta"_s,
                           u"14/03/2026 9:05:03 | Cobro Venta | TPV1 | Ana | 12,50 €"_s,
                           u"14/03/2026 9:06:03 | Abono Venta | TPV1 | Ana | -2,00 €"_s,
                           u"Cobros por ventas: 1.234,50 €"_s, u"Abonos por ventas: 20,00 €"_s,
                           u"Pagos: 50,00 €"_s, u"Ingresos: 100,00 €"_s,
                           u"SALDO FINAL: 1.264,50 €"_s, raya}));
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(ImpresionCajaTest, TheListStandsWhereItIsTold) {
    Movimiento({u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s, u"f"_s});
    Imprimir(Impresion::Listado);
    const auto& todos = impresora.documentos.front().front().textos;
    ASSERT_EQ(todos.size(), 17U);
    const FuenteImpresora normal{u"Arial"_s, 10, false, false, false};
    const FuenteImpresora negrita{u"Arial"_s, 10, true, false, false};
    EXPECT_EQ(todos[0].fuente, (FuenteImpresora{u"Arial"_s, 12, true, false, false}));
    EXPECT_EQ(todos[0].sitio, QPoint(0, 0));
    // The title breaks by its text and once more.
    EXPECT_EQ(todos[1].sitio, QPoint(0, 2 * 288));
    EXPECT_EQ(todos[1].fuente, negrita);
    EXPECT_EQ(todos[6].sitio, QPoint(0, 2 * 288 + 240));
    EXPECT_EQ(todos[6].fuente, normal);
    // A free line, and the five ten twips from the left.
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(todos[11 + i].sitio, QPoint(10, 2 * 288 + (3 + i) * 240));
        EXPECT_EQ(todos[11 + i].fuente, normal);
    }
    // The last total breaks twice too.
    EXPECT_EQ(todos[16].texto, raya);
    EXPECT_EQ(todos[16].sitio.y(), 2 * 288 + 9 * 240);
}

TEST_F(ImpresionCajaTest, HiddenColumnsAreNotPrinted) {
    caja.grdZV().PonerAncho(ColumnaCaja::Vendedor, 0);
    caja.grdZV().PonerAncho(ColumnaCaja::Terminal, 0);
    EXPECT_EQ(Imprimir(Impresion::Listado).at(1), u"Fecha | Concepto | Venta"_s);
}

TEST_F(ImpresionCajaTest, AListWithTooWideColumnsPrintsInLandscape) {
    Movimiento({u"14/03/2026 9:05:03"_s,
                u"Pago - "_s + QString(60, u'x'),
                u"ZV"_s,
                u"Ana"_s,
                u"0,00 €"_s,
                {}});
    Imprimir(Impresion::Listado);
    EXPECT_EQ(impresora.documentos.front().front().orientacion, Orientacion::Apaisada);
}

TEST_F(ImpresionCajaTest, BeforeAnyCloseWithEmptyBoxesTheSummaryHasNoBoxes) {
    EXPECT_EQ(Imprimir(Impresion::Resumen), cambio);
    Etiquetas({{&EstadoCaja::lbSaldoCierre, u"0,00 €"_s}});
    EXPECT_EQ(Imprimir(Impresion::Resumen), cambio);
}

TEST_F(ImpresionCajaTest, BeforeACloseEitherBoxWithMoneyBringsTheirBlock) {
    Etiquetas({{&EstadoCaja::lbCBMonedas, u"12,00 €"_s}});
    EXPECT_EQ(Imprimir(Impresion::Resumen),
              cambio +
                  QStringList({u"Cajones: 12,00 €"_s, u"Monedas:12,00 €"_s, u"Billetes:0,00 €"_s}));
    Etiquetas(
        {{&EstadoCaja::lbCBMonedas, u"0,00 €"_s}, {&EstadoCaja::lbCBBilletes, u"860,00 €"_s}});
    EXPECT_EQ(Imprimir(Impresion::Resumen),
              cambio + QStringList(
                           {u"Cajones: 860,00 €"_s, u"Monedas:0,00 €"_s, u"Billetes:860,00 €"_s}));
}

TEST_F(ImpresionCajaTest, AfterACloseTheSummaryHasItsDateTheBoxesAndItsBalance) {
    Etiquetas({{&EstadoCaja::lbSaldoCierre, u"-3,00 €"_s}});
    EXPECT_EQ(Imprimir(Impresion::Resumen),
              QStringList(u"CIERRE DE CAJA (14/03/2026 18:04:11)"_s) + cambio +
                  QStringList({u"Cajones: 0,00 €"_s, u"Monedas:0,00 €"_s, u"Billetes:0,00 €"_s,
                               u"SALDO CIERRE: -3,00 €"_s}));
}

TEST_F(ImpresionCajaTest, BothAreOneDocumentTheListFirst) {
    const QStringList lineas = Imprimir(Impresion::Todo);
    EXPECT_EQ(lineas.size(), 2 + 5 + 1 + 3);
    EXPECT_TRUE(lineas.front().startsWith(u"MOVIMIENTOS DE CAJA HASTA "_s));
    EXPECT_EQ(lineas.mid(8), cambio);
}

TEST_F(ImpresionCajaTest, AnyPrintHasTheShortageWhenItIsANumber) {
    Etiquetas({{&EstadoCaja::lbQuebranto, u"-1,50 €"_s}});
    const QStringList fin{raya, u"Quebranto: -1,50 €"_s};
    EXPECT_EQ(Imprimir(Impresion::Resumen), cambio + fin);
    EXPECT_EQ(Imprimir(Impresion::Listado).mid(8), fin);
    EXPECT_EQ(Imprimir(Impresion::Todo).mid(11), fin);
    EXPECT_EQ(Imprimir(Impresion::Nada), fin);
}

TEST_F(ImpresionCajaTest, NothingChosenPrintsNothing) {
    EXPECT_EQ(Imprimir(Impresion::Nada), QStringList());
    EXPECT_EQ(impresora.aperturas, 0);
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(ImpresionCajaTest, TheScreenShowsThatItWaitsWhileItPrints) {
    int pintadas = 0;
    caja.AlPintar([&] {
        ++pintadas;
        EXPECT_TRUE(caja.Estado().punteroEspera);
        EXPECT_EQ(impresora.aperturas, pintadas - 1); // painted before the printer is asked
    });
    Imprimir(Impresion::Listado);
    EXPECT_FALSE(caja.Estado().punteroEspera);
    impresora.rechaza = true;
    Imprimir(Impresion::Resumen);
    EXPECT_FALSE(caja.Estado().punteroEspera);
    EXPECT_EQ(pintadas, 2);
    Imprimir(Impresion::Nada);
    EXPECT_EQ(pintadas, 2);
}

TEST_F(ImpresionCajaTest, SumsAreReadFromTheLabelsAndMultipliedByTheDevice) {
    multiplicador = 10;
    Etiquetas({{&EstadoCaja::lbCambioMonedas, u"0,10 €"_s},
               {&EstadoCaja::lbCambioBilletes, u"2.000,30 €"_s}});
    EXPECT_EQ(Imprimir(Impresion::Resumen).front(), u"Cambio: 2.000,40 €"_s);
}

TEST_F(ImpresionCajaTest, ASumBeyondTheDevicesNumbersEndsThePrint) {
    Etiquetas({{&EstadoCaja::lbCambioMonedas, u"21.474.836,47 €"_s},
               {&EstadoCaja::lbCambioBilletes, u"0,00 €"_s}});
    EXPECT_EQ(Imprimir(Impresion::Resumen).front(), u"Cambio: 21.474.836,47 €"_s);
    Etiquetas({{&EstadoCaja::lbCambioBilletes, u"0,01 €"_s}});
    EsperaFallo(Impresion::Todo, u"6 al imprimir - Desbordamiento"_s);
    Etiquetas({{&EstadoCaja::lbCambioBilletes, u"900000000000000"_s}});
    EsperaFallo(Impresion::Resumen, u"6 al imprimir - Desbordamiento"_s);
}

TEST_F(ImpresionCajaTest, ALabelThatIsNoAmountEndsThePrint) {
    Etiquetas({{&EstadoCaja::lbCambioMonedas, {}}});
    EsperaFallo(Impresion::Resumen, u"13 al imprimir - No coinciden los tipos"_s);
    EXPECT_FALSE(Imprimir(Impresion::Listado).isEmpty());
}

TEST_F(ImpresionCajaTest, WithoutAPrinterTheActionEndsSilently) {
    impresora.hay = false;
    EsperaFallo(Impresion::Todo, u"482 al imprimir - Error de impresora (no hay ninguna)"_s);
}

TEST_F(ImpresionCajaTest, APrinterThatGoesAwayEndsTheActionSilentlyAndTheNextPrintIsWhole) {
    impresora.medidasHastaFallo = 20;
    EsperaFallo(Impresion::Todo, u"482 al imprimir - Error de impresora (se ha ido)"_s);
    EXPECT_EQ(Imprimir(Impresion::Resumen), cambio);
}

TEST_F(ImpresionCajaTest, APrinterThatRefusesTheDocumentEndsTheActionSilently) {
    impresora.rechaza = true;
    EsperaFallo(Impresion::Todo, u"482 al imprimir - Error de impresora (no acepta trabajos)"_s);
}

TEST_F(ImpresionCajaTest, ATillWithoutAPrinterOpensTheHistoryInstead) {
    graph.Entorno().configuracio->SINIMPRESORA = 1;
    pantallas.EsperaAbrir(Pantalla::Historial);
    ImprimirCaja(caja, impresora);
    EXPECT_EQ(impresora.aperturas, 0);
    graph.Entorno().configuracio->SINIMPRESORA = 2;
    EXPECT_EQ(Imprimir(Impresion::Resumen), cambio);
}

TEST_F(ImpresionCajaTest, EveryLineIsInTheLanguageOfTheFile) {
    const IdiomaIngles idioma;
    idioma.PonerEn(carpeta.path());
    caja.PrepararRejilla();
    Etiquetas({{&EstadoCaja::lbSaldoCierre, u"3,00 €"_s}, {&EstadoCaja::lbQuebranto, u"1"_s}});
    EXPECT_EQ(
        Imprimir(Impresion::Todo),
        QStringList({u"TILL TRANSACTIONS UP TO 14/03/2026 18:04:11"_s,
                     u"Date | Description | Cashier | Terminal | Sale"_s,
                     u"Sales charged: 1.234,50 €"_s, u"Sales refunded: 20,00 €"_s,
                     u"Pay-outs: 50,00 €"_s, u"Pay-ins: 100,00 €"_s, u"FINAL BALANCE: 1.264,50 €"_s,
                     raya, u"TILL CLOSE (14/03/2026 18:04:11)"_s, u"Float: 1.392,10 €"_s,
                     u"Coins:\u00a042,10 €"_s, u"Notes:\u00a01.350,00 €"_s, u"Boxes: 0,00 €"_s,
                     u"Coins:\u00a00,00 €"_s, u"Notes:\u00a00,00 €"_s, u"CLOSING BALANCE: 3,00 €"_s,
                     raya, u"Shortfall: 1"_s}));
}

class ImpresionDelPeriodo : public BancoCaja {};

TEST_F(ImpresionDelPeriodo, AListWhoseGridStillFillsIsPrintedWhole) {
    PonerVentas(600);
    caja.PorPasos([] {});
    EsperaSinConexion();
    caja.RefrescarCaja();
    ASSERT_LT(caja.grdZV().FilasDatos(), 600);
    caja.AjustarColumnas(9000, 300);
    ImpresoraMemoria impresora;
    dialogos.EsperaImpresion(Impresion::Listado);
    ImprimirCaja(caja, impresora);
    ASSERT_EQ(impresora.documentos.size(), 1U);
    EXPECT_EQ(impresora.Lineas().filter(u"Cobro Venta"_s).size(), 600);
}

} // namespace
} // namespace zv::test
