// Printing a register: every line of it.
#include "registers/ImpresionListado.h"

#include "BancoListado.h"
#include "support/ImpresoraMemoria.h"

namespace zv::test {
namespace {

class ImpresionListadoTest : public BancoListado {
  protected:
    void Abrir(ModoListado modo) {
        listado.RellenaGrdZv(modo);
        listado.AjustarColumnas({14000, 210, 1290, 1290});
    }
    QStringList Imprimir() {
        ImprimirListado(listado, impresora);
        return impresora.Lineas();
    }

    ImpresoraMemoria impresora;
};

TEST_F(ImpresionListadoTest, ChargesWithEveryColumnThatIsShownAndTheTotals) {
    impresora.pagina = {100000, 100000};
    Poner({.cobrado = 2000, .devuelto = 750, .id2 = u"A"_s, .error = u"nada"_s});
    Poner({.importeVenta = -800, .devuelto = 800});
    Abrir(ModoListado::Cobros);
    EXPECT_EQ(Imprimir(),
              (QStringList{u"Registro de Cobros"_s,
                           u"Descartar | Fecha ZV | Id.Venta | Usuario | Terminal | Vendedor | "
                           "F.Pago | Importe | Cobrado | Pagado | Concepto | Reenviar"_s,
                           u"14/03/26 09:05:03 | 1001/A | LUIS | TPV1 | Ana | EFECTIVO | 12,50 € | "
                           "20,00 € | 7,50 € | nada"_s,
                           u"14/03/26 09:05:03 | 1001 | LUIS | TPV1 | Ana | EFECTIVO | -8,00 € | "
                           "0,00 € | 8,00 €"_s,
                           u"TOTAL COBROS:20,00 €"_s, u"TOTAL ABONOS:8,00 €"_s}));
    for (const TextoImpreso& texto : impresora.documentos.front().back().textos) {
        if (texto.texto.startsWith(u"TOTAL"_s)) {
            EXPECT_EQ(texto.sitio.x(), 0);
        }
    }
}

TEST_F(ImpresionListadoTest, IncidentsWithoutTheirPictures) {
    impresora.pagina = {100000, 100000};
    Poner({.estado = u"ERROR"_s, .error = u"5 - Atasco"_s});
    Abrir(ModoListado::Incidencias);
    EXPECT_EQ(
        Imprimir(),
        (QStringList{u"Registro de Incidencias"_s,
                     u"Fecha ZV | Id.Venta | Usuario | Terminal | Vendedor | F.Pago | Importe "
                     "| Cobrado | Pagado | Estado | Error"_s,
                     u"14/03/26 09:05:03 | 1001 | LUIS | TPV1 | Ana | EFECTIVO | 12,50 € | "
                     "0,00 € | 0,00 € | ERROR | 5 - Atasco"_s}));
}

TEST_F(ImpresionListadoTest, Accesses) {
    PonerAccesos(1);
    Abrir(ModoListado::Accesos);
    EXPECT_EQ(Imprimir(),
              (QStringList{u"Registro de Accesos"_s, u"Fecha Acceso | Usuario | Lugar"_s,
                           u"14/03/26 18:04:11 | ANA | authCaja"_s}));
}

TEST_F(ImpresionListadoTest, ALongRegisterIsPrintedWhole) {
    PonerIncidencias(1500);
    listado.PorPasos([] {});
    Abrir(ModoListado::Incidencias);
    ASSERT_LT(listado.grdZV().FilasDatos(), 1500);
    int filas = 0;
    for (const QString& linea : Imprimir()) {
        filas += linea.contains(u"TPV1"_s) ? 1 : 0;
    }
    EXPECT_EQ(filas, 1500);
    EXPECT_FALSE(E().punteroEspera);
}

TEST_F(ImpresionListadoTest, WithoutAPrinterNothingIsDone) {
    entorno.configuracio->SINIMPRESORA = 1;
    Abrir(ModoListado::Cobros);
    ImprimirListado(listado, impresora);
    EXPECT_EQ(impresora.aperturas, 0);
}

TEST_F(ImpresionListadoTest, AFailureIsToldToTheLogAlone) {
    PonerIncidencias(3);
    Abrir(ModoListado::Incidencias);
    log.Toma();
    impresora.rechaza = true;
    ImprimirListado(listado, impresora);
    EXPECT_TRUE(impresora.documentos.empty());
    EXPECT_EQ(log.lineas.size(), 1);
    EXPECT_FALSE(E().punteroEspera);
}

} // namespace
} // namespace zv::test
