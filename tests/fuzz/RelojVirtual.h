// The monotonic clock of this program, by which Qt measures every time-out: it stands until it is
// moved, so that minutes pass in no time and a run is the same each time.
#pragma once

#include <QtGlobal>

namespace zv::reloj {

qint64 Ahora(); // milliseconds
void Avanzar(qint64 milisegundos);

} // namespace zv::reloj
