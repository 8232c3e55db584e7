// Conversions of text as the platform makes them: by the region's number format, halves to even,
// 13 for what is no number (empty text too), 6 beyond the range of the type.
#pragma once

#include "platform/FormatoRegional.h"

#include <QDateTime>
#include <QString>
#include <QtGlobal>

namespace zv {

quint8 AByte(const QString& texto, const FormatoRegional& formato);
qint16 AEntero16(const QString& texto, const FormatoRegional& formato);
qint32 AEntero32(const QString& texto, const FormatoRegional& formato);
// Raises 13 only.
double ADoble(const QString& texto, const FormatoRegional& formato);

// Text to a date: in the region's order or the year first, with or without the time, the time alone
// (on the day 0, 1899-12-30), day and month alone (in the year of hoy), or a number of days since
// the day 0. Names of months are not read. Raises 13 only.
QDateTime AFecha(const QString& texto, const FormatoRegional& formato, QDate hoy);

} // namespace zv
