// Texts of the device's connection.
#pragma once

#include "ui/Clave.h"

namespace zv::texto {

inline constexpr Clave kClavesDevice[] = {
    {u"errorDeZorvex", u"Error de Zorvex"},
};

inline constexpr const Clave& kErrorDeZorvex = Entrada(kClavesDevice, u"errorDeZorvex");

} // namespace zv::texto
