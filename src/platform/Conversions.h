// Conversions of text as the platform makes them: by the region's number format, halves to even,
// 13 for what is no number (empty text too), 6 beyond the range of the type.
#pragma once

#include "platform/FormatoRegional.h"

#include <QString>
#include <QtGlobal>

namespace zv {

quint8 AByte(const QString& texto, const FormatoRegional& formato);
qint16 AEntero16(const QString& texto, const FormatoRegional& formato);
qint32 AEntero32(const QString& texto, const FormatoRegional& formato);
// Raises 13 only.
double ADoble(const QString& texto, const FormatoRegional& formato);

} // namespace zv
