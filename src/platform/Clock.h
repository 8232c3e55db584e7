// The clock of the system, injected so that tests decide what time it is.
#pragma once

#include <QDateTime>

namespace zv {

class Clock {
  public:
    virtual ~Clock() = default;
    // Present local date and time.
    virtual QDateTime Ahora() const = 0;
    // Milliseconds since the machine started; never goes back.
    virtual qint64 Ticks() const = 0;
};

class SystemClock final : public Clock {
  public:
    // Names the machine's zone in the environment where nobody has: see the source.
    SystemClock();
    QDateTime Ahora() const override;
    qint64 Ticks() const override;
};

} // namespace zv
