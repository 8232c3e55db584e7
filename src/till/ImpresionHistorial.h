// Printing from the history of closes, and what it shares with printing from the cash office: the
// five totals of a period and their lines.
#pragma once

#include "platform/Impresora.h"
#include "ui/Dialogos.h"
#include "ui/Log.h"
#include "ui/Textos.h"

#include <QDateTime>

namespace zv {

class Rejilla;

// As printouts have it: "dd/mm/yyyy hh:mm:ss".
QString FechaImpresa(const QDateTime& fecha);

// A line of a printout below its grid.
void ImprimirLineaTotales(Impresora& impresora, const QString& texto);
// A line of dashes.
void ImprimirRaya(Impresora& impresora);

// As they are shown.
struct TotalesImpresos {
    QString cobros;
    QString abonos;
    QString pagos;
    QString ingresos;
    QString saldoFinal;
};
// Each behind its caption in the cash office, a free line and a line of dashes.
void ImprimirTotales(Impresora& impresora, const Textos& textos, const TotalesImpresos& totales);

struct HistorialImpreso {
    const Rejilla& grdCierres; // the close that is printed is its current row
    const Rejilla& grdHis;     // the movements of that close
    // Dates of its first and last movement.
    QDateTime primera;
    QDateTime ultima;
};
// Asks what is wanted and prints it; a failure of it ends the action without a word, with a line in
// the log.
void ImprimirHistorial(const HistorialImpreso& historial, Impresora& impresora, Dialogos& dialogos,
                       const Textos& textos, Log& log);

} // namespace zv
