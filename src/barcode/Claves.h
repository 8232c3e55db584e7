// Texts of a scanned code that cannot be charged.
#pragma once

#include "ui/Clave.h"

namespace zv::texto {

inline constexpr Clave kClavesBarcode[] = {
    {u"errorLongitudCodigoBarras",
     u"El mensaje tiene que tener la misma lungitud que la de la configuración"},
    {u"errorConfiguracionCodigoBarras",
     u"La configuración no corresponde con la longitud del còdigo de barras"},
    {u"errorImporteCodigoBarras", u"Configuración de importe en el codigo de barras no admitido"},
};

inline constexpr const Clave& kErrorLongitudCodigo =
    Entrada(kClavesBarcode, u"errorLongitudCodigoBarras");
inline constexpr const Clave& kErrorConfiguracionCodigo =
    Entrada(kClavesBarcode, u"errorConfiguracionCodigoBarras");
inline constexpr const Clave& kErrorImporteCodigo =
    Entrada(kClavesBarcode, u"errorImporteCodigoBarras");

} // namespace zv::texto
