#pragma once

namespace zv {

// Waits for so many seconds while the event loop runs, so that everything else goes on.
void Espera(int segundos);

} // namespace zv
