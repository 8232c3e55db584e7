// Keys of the settings file that hold a number, each with its section.
#pragma once

#include "config/Ajustes.h"

#include <vector>

namespace zv::test {

struct ClaveNumerica {
    const char* seccion;
    const char* clave;
};

inline std::vector<ClaveNumerica> ClavesNumericas() {
    std::vector<ClaveNumerica> claves;
    for (const ajustes::Ajuste& ajuste : ajustes::kTodos) {
        if (std::holds_alternative<ajustes::Entero16>(ajuste.tipo) ||
            std::holds_alternative<ajustes::Byte>(ajuste.tipo) ||
            std::holds_alternative<ajustes::Uno>(ajuste.tipo)) {
            claves.push_back({ajuste.seccion.data(), ajuste.clave.data()});
        }
    }
    return claves;
}

} // namespace zv::test
