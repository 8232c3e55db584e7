#pragma once

#include "store/Missatge.h"
#include "store/dades.h"

namespace zv {

// The answer to one message: commands "C" (queue a charge) and "S" (state of a charge), in either
// case of letters; anything else is unknown. Raises the engine's failure of a look-up, with nothing
// queued.
QString ContestarMissatge(dades& datos, const Missatge& missatge);

} // namespace zv
