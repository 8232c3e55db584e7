// Paints a window at once, before something that lets no event loop run.
#pragma once

class QWidget;

namespace zv {

// When it returns the window shows what its widgets hold, and nothing has happened but painting.
// One that has just been shown is waited for, half a second at most.
void PintarYa(QWidget& ventana);

} // namespace zv
