// The number of the run-time failure that a piece of code raises; 0 when it raises none.
#pragma once

#include "platform/ErrorEjecucion.h"

namespace zv::test {

template <typename Codigo>
int NumeroError(Codigo&& codigo) {
    try {
        codigo();
        return 0;
    } catch (const ErrorEjecucion& e) {
        return e.Numero();
    }
}

} // namespace zv::test
