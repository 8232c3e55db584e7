// A pause that is asked about a thousand times a second: it reads the system's coarse clock, which
// is some milliseconds late and costs no call of the system.
#pragma once

#include <QtGlobal>

#include <ctime>

namespace zv {

class CoarsePause {
  public:
    explicit CoarsePause(qint64 ms) : ms_(ms) {}

    // Over before it has ever begun.
    bool Vencida() const { return !empezada_ || Ahora() - desde_ >= ms_; }
    void Empezar() {
        empezada_ = true;
        desde_ = Ahora();
    }

  private:
    static qint64 Ahora() {
        constexpr qint64 kMsPorSegundo = 1000;
        constexpr qint64 kNsPorMs = 1'000'000;
        timespec t{};
        clock_gettime(CLOCK_MONOTONIC_COARSE, &t);
        return t.tv_sec * kMsPorSegundo + t.tv_nsec / kNsPorMs;
    }

    qint64 ms_;
    qint64 desde_ = 0;
    bool empezada_ = false;
};

} // namespace zv
