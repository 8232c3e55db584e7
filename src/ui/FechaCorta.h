// Dates of the grids.
#pragma once

#include <QDateTime>
#include <QString>

namespace zv {

// "dd/mm/yy hh:mm:ss", or without the time; empty for no date.
QString FechaCorta(const QDateTime& fecha, bool sinHora = false);

} // namespace zv
