// Full screens put together from the pieces of the kit, to be looked at.
#pragma once

class QWidget;

namespace zv {
class Textos;
}

namespace zv::muestra {

// Over a window, which gives them their size; in the language of the captions.
QWidget* Lista(const Textos& textos, QWidget* sobre, bool ingles);
QWidget* Ajustes(const Textos& textos, QWidget* sobre, bool ingles);

} // namespace zv::muestra
