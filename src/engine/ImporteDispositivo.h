// An amount as the device takes it.
#pragma once

#include "platform/Currency.h"
#include "platform/ErrorEjecucion.h"

#include <limits>

namespace zv {

// Minor units in 32 bits. A refund is a negative amount, and what is shown and told of it is its
// opposite: the one amount of 32 bits that has no opposite there is too large as well. Raises 6.
inline qint32 ParaElDispositivo(Currency importe) {
    const qint32 valor = importe.AEntero32();
    if (valor == std::numeric_limits<qint32>::min()) {
        throw errores::Desbordamiento();
    }
    return valor;
}

} // namespace zv
