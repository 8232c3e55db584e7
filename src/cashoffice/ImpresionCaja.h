// Printing from the cash office: the movements of the period, the summary of what the device holds,
// or both, as the operator chooses.
#pragma once

#include "cashoffice/Caja.h"
#include "platform/Impresora.h"

namespace zv {

// The button "Imprimir". Asks what is wanted and prints it; a failure of it ends the action without
// a word, with a line in the log. A till without a printer opens the history instead.
void ImprimirCaja(Caja& caja, Impresora& impresora);

} // namespace zv
