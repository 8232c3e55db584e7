// Texts of the cash office.
#pragma once

#include "ui/Clave.h"

namespace zv::texto {

inline constexpr Clave kClavesCashoffice[] = {
    // titles of the grid
    {u"fecha2", u"Fecha"}, {u"concepto2", u"Concepto"}, {u"terminal2", u"Terminal"},
    {u"venta2", u"Venta"}, {u"saldoZV2", u"Saldo ZV"},
};

inline constexpr const Clave& kCajaFecha = Entrada(kClavesCashoffice, u"fecha2");
inline constexpr const Clave& kCajaConcepto = Entrada(kClavesCashoffice, u"concepto2");
inline constexpr const Clave& kCajaTerminal = Entrada(kClavesCashoffice, u"terminal2");
inline constexpr const Clave& kCajaVenta = Entrada(kClavesCashoffice, u"venta2");
inline constexpr const Clave& kCajaSaldoZV = Entrada(kClavesCashoffice, u"saldoZV2");

} // namespace zv::texto
