// Texts that several places of the till show.
#pragma once

#include "ui/Clave.h"

namespace zv::texto {

inline constexpr Clave kClavesTill[] = {
    // titles of grids
    {u"vendedor", u"Vendedor"},
};

inline constexpr const Clave& kVendedor = Entrada(kClavesTill, u"vendedor");

} // namespace zv::texto
