#include "platform/Clock.h"

#include <QtGlobal>

#include <ctime>

namespace zv {

// Without a name the C library asks the system for the zone's file at every local date that is
// made: a fifth of the time in which a long period is read.
SystemClock::SystemClock() {
    if (!qEnvironmentVariableIsSet("TZ")) {
        qputenv("TZ", ":/etc/localtime");
    }
}

QDateTime SystemClock::Ahora() const {
    return QDateTime::currentDateTime();
}

qint64 SystemClock::Ticks() const {
    timespec t{};
    clock_gettime(CLOCK_BOOTTIME, &t);
    return static_cast<qint64>(t.tv_sec) * 1000 + t.tv_nsec / 1000000;
}

} // namespace zv
