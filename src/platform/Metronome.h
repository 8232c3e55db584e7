// A timer that keeps its rate: ticks that fall due while a handler works, or that the system is
// late for, follow at once, up to a few. A timer of the event loop rounds each of its waits up to
// the next millisecond and loses one tick in eight at an interval of one.
#pragma once

#include "platform/FileDescriptor.h"

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace zv {

class Metronome {
  public:
    // tic runs in the event loop, once for each tick. Raises 7 when the system has no timer left.
    Metronome(int intervaloMs, std::function<void()> tic);

    bool Activo() const { return activo_; }
    // The first tick comes after one interval. No effect while it runs.
    void Arrancar();
    void Parar();

  private:
    void Poner(int intervaloMs);
    void Vencido();

    int intervaloMs_;
    std::function<void()> tic_;
    FileDescriptor reloj_;
    QSocketNotifier aviso_;
    bool activo_ = false;
};

} // namespace zv
