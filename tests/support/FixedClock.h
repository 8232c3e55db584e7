// A clock that stands still until the test moves it.
#pragma once

#include "platform/Clock.h"

namespace zv::test {

class FixedClock final : public Clock {
  public:
    FixedClock() = default;
    explicit FixedClock(QDateTime ahora) : ahora_(std::move(ahora)) {}

    QDateTime Ahora() const override { return ahora_; }
    qint64 Ticks() const override { return ticks_; }

    // Sets the date and time; the ticks stay.
    void Fijar(const QDateTime& ahora) { ahora_ = ahora; }
    void FijarTicks(qint64 milisegundos) { ticks_ = milisegundos; }
    // Moves both on.
    void Avanzar(qint64 milisegundos) {
        ahora_ = ahora_.addMSecs(milisegundos);
        ticks_ += milisegundos;
    }

  private:
    QDateTime ahora_{QDate(2026, 3, 14), QTime(18, 4, 11)};
    qint64 ticks_ = 7345281;
};

} // namespace zv::test
