// Printing a register.
#pragma once

#include "platform/Impresora.h"
#include "registers/Listado.h"

namespace zv {

// Prints the grid, and below that of the charges its totals. A failure of it ends the action
// without a word, with a line in the log. Does nothing with the setting SINIMPRESORA at 1.
void ImprimirListado(Listado& listado, Impresora& impresora);

} // namespace zv
