#include "platform/Clock.h"

#include <ctime>

namespace zv {

QDateTime SystemClock::Ahora() const {
    return QDateTime::currentDateTime();
}

qint64 SystemClock::Ticks() const {
    timespec t{};
    clock_gettime(CLOCK_BOOTTIME, &t);
    return static_cast<qint64>(t.tv_sec) * 1000 + t.tv_nsec / 1000000;
}

} // namespace zv
