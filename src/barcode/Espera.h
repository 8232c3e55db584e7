// A wait in which everything else goes on.
#pragma once

namespace zv {

// Runs the event loop until so many seconds have passed.
void Espera(int segundos);

} // namespace zv
