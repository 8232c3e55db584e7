#include "till/ImpresionHistorial.h"

#include "platform/StringLiterals.h"
#include "till/Claves.h"
#include "ui/Imprimir.h"
#include "ui/Rejilla.h"

#include <algorithm>

namespace zv {
namespace {

constexpr int kSangria = 10; // twips

// Columns of grdCierres.
constexpr int kCobros = 3;
constexpr int kAbonos = 4;
constexpr int kIngresos = 5;
constexpr int kPagos = 6;
constexpr int kSaldo = 7;

bool Preguntar(Dialogos& dialogos, const Textos& textos, const Clave& pregunta) {
    return dialogos.MostrarMensaje(textos.Traduce(texto::kHistorialTitulo),
                                   textos.Traduce(pregunta), EstiloMensaje::SiNo) == Respuesta::Si;
}

void ImprimirMovimientos(const HistorialImpreso& historial, Impresora& impresora,
                         const Textos& textos) {
    const QString titulo = textos.Traduce(texto::kMovimientosDel) + u' ' +
                           FechaImpresa(historial.primera) + textos.Traduce(texto::kMovimientosAl) +
                           u' ' + FechaImpresa(historial.ultima) + u"\r\n"_s;
    ImprimirRejilla(impresora, historial.grdHis, titulo, u"5"_s, 0);
    ImprimirLineaTotales(impresora, {});
}

} // namespace

QString FechaImpresa(const QDateTime& fecha) {
    return fecha.toString(u"dd/MM/yyyy HH:mm:ss"_s);
}

void ImprimirLineaTotales(Impresora& impresora, const QString& texto) {
    ImprimirLinea(impresora, texto, true, kSangria, -1, u"Arial"_s, 10, false, false, false);
}

void ImprimirRaya(Impresora& impresora) {
    ImprimirLineaTotales(impresora, QString(50, u'-'));
}

void ImprimirTotales(Impresora& impresora, const Textos& textos, const TotalesImpresos& totales) {
    const auto importe = [&](const Clave& rotulo, const QString& texto) {
        ImprimirLineaTotales(impresora, textos.Traduce(rotulo) + u": "_s + texto);
    };
    importe(texto::kLblCobros, totales.cobros);
    importe(texto::kLblAbonos, totales.abonos);
    importe(texto::kLblPagos, totales.pagos);
    importe(texto::kLblIngresos, totales.ingresos);
    importe(texto::kLblSaldoFinal, totales.saldoFinal + u"\r\n"_s);
    ImprimirRaya(impresora);
}

void ImprimirHistorial(const HistorialImpreso& historial, Impresora& impresora, Dialogos& dialogos,
                       const Textos& textos, Log& log) {
    const Rejilla& cierres = historial.grdCierres;
    if (cierres.FilasDatos() == 0) {
        dialogos.MostrarMensaje(textos.Traduce(texto::kSinDatos),
                                textos.Traduce(texto::kSinMovimientos));
        return;
    }
    const bool hayMovimientos = historial.grdHis.FilasDatos() > 0;
    const bool listado =
        !hayMovimientos || Preguntar(dialogos, textos, texto::kHistorialImprimirListado);
    // With the list the summary comes by itself.
    const bool resumen = listado || Preguntar(dialogos, textos, texto::kHistorialImprimirResumen);
    ImprimirSinAvisar(impresora, log, [&] {
        if (hayMovimientos && listado) {
            ImprimirMovimientos(historial, impresora, textos);
        }
        if (resumen) {
            const auto celda = [&](int columna) {
                return cierres.Texto(std::max(1, cierres.FilaActual()),
                                     columna); // never the titles
            };
            ImprimirTotales(
                impresora, textos,
                {celda(kCobros), celda(kAbonos), celda(kPagos), celda(kIngresos), celda(kSaldo)});
        }
        impresora.TerminarDocumento();
    });
}

} // namespace zv
