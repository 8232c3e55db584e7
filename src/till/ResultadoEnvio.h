// Results of a send, also set by the grouped and the manual charges.
#pragma once

#include <QtGlobal>

namespace zv::envio {

inline constexpr int kBien = 0;      // sent and filed, or nothing to do
inline constexpr int kCancelado = 1; // the row stays in cola
inline constexpr int kError = 2;     // the row stays in cola

// The device's code for a link that was lost: the one with the same meaning in every operation.
inline constexpr qint16 kEnlacePerdido = 1;

} // namespace zv::envio
