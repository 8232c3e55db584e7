// Printing from the history of closes.
#include "till/ImpresionHistorial.h"

#include "platform/StringLiterals.h"
#include "support/DialogosGuion.h"
#include "support/IdiomaIngles.h"
#include "support/ImpresoraMemoria.h"
#include "support/ImprimeQt.h"
#include "support/LogMemoria.h"
#include "ui/Rejilla.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zv::test {
namespace {

const QString kCierre = u"Cierre de Caja"_s;
const QString kListado = u"¿Desea imprimir el listado de ventas?"_s;
const QString kResumen = u"¿Desea imprimir el resumen de los totales de caja?"_s;

class ImpresionHistorialTest : public testing::Test {
  protected:
    static std::vector<Columna> Columnas(int cuantas) {
        std::vector<Columna> columnas(static_cast<std::size_t>(cuantas));
        for (int i = 0; i < cuantas; ++i) {
            columnas[static_cast<std::size_t>(i)].delante = u"T%1"_s.arg(i);
            columnas[static_cast<std::size_t>(i)].ancho = 500;
        }
        return columnas;
    }
    void Fila(Rejilla& rejilla, const QString& prefijo) const {
        rejilla.PonerTitulos(textos);
        const int fila = rejilla.AñadirFila();
        for (int i = 0; i < rejilla.Columnas(); ++i) {
            rejilla.PonerTexto(fila, i, prefijo + QString::number(i));
        }
    }
    void Pregunta(const QString& texto, Respuesta respuesta) {
        dialogos.EsperaMensaje(kCierre, texto, respuesta, EstiloMensaje::SiNo);
    }
    QStringList Imprimir() {
        impresora.documentos.clear();
        ImprimirHistorial({cierres, movimientos, QDateTime(QDate(2026, 3, 14), QTime(9, 5, 3)),
                           QDateTime(QDate(2026, 3, 15), QTime(22, 40, 0))},
                          impresora, dialogos, textos, log);
        return impresora.documentos.empty() ? QStringList() : impresora.Lineas();
    }

    const QString raya = QString(50, u'-');
    // Incomes stand before payments in the grid, and behind them on paper.
    const QStringList resumen{
        u"Cobros por ventas: b3"_s, u"Abonos por ventas: b4"_s, u"Pagos: b6"_s,
        u"Ingresos: b5"_s,          u"SALDO FINAL: b7"_s,       raya};

    QTemporaryDir carpeta;
    Textos textos{carpeta.path()};
    LogMemoria log;
    DialogosGuion dialogos;
    ImpresoraMemoria impresora;
    Rejilla cierres{Columnas(14)};
    Rejilla movimientos{Columnas(6)};
};

class UnCierre : public ImpresionHistorialTest {
  protected:
    UnCierre() {
        Fila(cierres, u"a"_s);
        Fila(cierres, u"b"_s);
        Fila(cierres, u"c"_s);
        cierres.PonerFilaActual(2);
    }
};

class ConMovimientos : public UnCierre {
  protected:
    ConMovimientos() {
        Fila(movimientos, u"x"_s);
        Fila(movimientos, u"y"_s);
    }
    const QStringList listado{
        u"MOVIMIENTOS DE CAJA DEL 14/03/2026 09:05:03AL 15/03/2026 22:40:00"_s,
        u"T0 | T1 | T2 | T3 | T4"_s, u"x0 | x1 | x2 | x3 | x4"_s, u"y0 | y1 | y2 | y3 | y4"_s};
};

TEST_F(ImpresionHistorialTest, WithoutClosesThereIsNothingToPrint) {
    Fila(movimientos, u"x"_s);
    dialogos.EsperaMensaje(u"Sin datos"_s, u"No hay movimientos para imprimir"_s,
                           Respuesta::Aceptar, EstiloMensaje::Aceptar);
    EXPECT_EQ(Imprimir(), QStringList());
    EXPECT_EQ(impresora.aperturas, 0);
}

TEST_F(UnCierre, WithoutMovementsTheSummaryIsPrintedWithoutAQuestion) {
    EXPECT_EQ(Imprimir(), resumen);
}

TEST_F(ConMovimientos, AYesPrintsTheListAndTheSummaryWithoutAnotherQuestion) {
    Pregunta(kListado, Respuesta::Si);
    EXPECT_EQ(Imprimir(), listado + resumen);
}

TEST_F(ConMovimientos, ANoAsksForTheSummary) {
    Pregunta(kListado, Respuesta::No);
    Pregunta(kResumen, Respuesta::Si);
    EXPECT_EQ(Imprimir(), resumen);
}

TEST_F(ConMovimientos, NoToBothPrintsAnEmptyDocumentWhichIsDropped) {
    Pregunta(kListado, Respuesta::No);
    Pregunta(kResumen, Respuesta::No);
    EXPECT_EQ(Imprimir(), QStringList());
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(ConMovimientos, StandsWhereItIsTold) {
    Pregunta(kListado, Respuesta::Si);
    Imprimir();
    const auto& todos = impresora.documentos.front().front().textos;
    ASSERT_EQ(todos.size(), 1U + 3 * 5 + 6);
    EXPECT_EQ(todos[0].fuente, (FuenteImpresora{u"Arial"_s, 12, true, false, false}));
    EXPECT_EQ(todos[1].sitio, QPoint(0, 2 * 288));
    // The head, two rows and a free line; the last total breaks twice.
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(todos[16 + i].sitio, QPoint(10, 2 * 288 + (4 + i) * 240));
        EXPECT_EQ(todos[16 + i].fuente, (FuenteImpresora{u"Arial"_s, 10, false, false, false}));
    }
    EXPECT_EQ(todos[21].sitio, QPoint(10, 2 * 288 + 10 * 240));
}

TEST_F(ConMovimientos, APrinterThatFailsEndsTheActionSilently) {
    impresora.hay = false;
    Pregunta(kListado, Respuesta::Si);
    EXPECT_EQ(Imprimir(), QStringList());
    EXPECT_EQ(log.Toma(),
              QStringList(u">>> Error nº 482 al imprimir - Error de impresora (no hay ninguna)"_s));
    impresora.hay = true;
    Pregunta(kListado, Respuesta::No);
    Pregunta(kResumen, Respuesta::Si);
    EXPECT_EQ(Imprimir(), resumen);
}

TEST_F(ConMovimientos, SpeaksTheLanguageOfTheFile) {
    const IdiomaIngles idioma;
    idioma.PonerEn(carpeta.path());
    const QString titulo = u"Till close"_s;
    dialogos.EsperaMensaje(titulo, u"Do you want to print the list of sales?"_s, Respuesta::Si);
    EXPECT_EQ(Imprimir().front(),
              u"TILL TRANSACTIONS FROM 14/03/2026 09:05:03\u00a0TO 15/03/2026 22:40:00"_s);
    EXPECT_EQ(impresora.Lineas().mid(4),
              QStringList({u"Sales charged: b3"_s, u"Sales refunded: b4"_s, u"Pay-outs: b6"_s,
                           u"Pay-ins: b5"_s, u"FINAL BALANCE: b7"_s, raya}));
    dialogos.EsperaMensaje(titulo, testing::_, Respuesta::No);
    dialogos.EsperaMensaje(titulo, u"Do you want to print the summary of the till totals?"_s,
                           Respuesta::No);
    Imprimir();
    cierres.Vaciar();
    dialogos.EsperaMensaje(u"No data"_s, u"There are no transactions to print"_s);
    Imprimir();
}

TEST(FechaImpresa, HasTwoDigitsEach) {
    EXPECT_EQ(FechaImpresa(QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5))), u"02/01/2026 03:04:05"_s);
}

} // namespace
} // namespace zv::test
