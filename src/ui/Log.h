// Where the system writes what it does. LogFiles keeps the daily files; tests keep the lines.
#pragma once

#include <QString>

namespace zv {

class Log {
  public:
    virtual ~Log() = default;
    // One line of the general log. Raises ErrorEjecucion when it cannot be written.
    virtual void LogLinea(const QString& texto) = 0;
    // One line of the fast link's log. Never fails.
    virtual void LogFast(const QString& texto) = 0;
};

} // namespace zv
