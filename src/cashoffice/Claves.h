// Texts of the cash office.
#pragma once

#include "ui/Clave.h"

namespace zv::texto {

inline constexpr Clave kClavesCashoffice[] = {
    // titles of the grid
    {u"fecha2", u"Fecha"},
    {u"concepto2", u"Concepto"},
    {u"terminal2", u"Terminal"},
    {u"venta2", u"Venta"},
    {u"saldoZV2", u"Saldo ZV"},
    // captions
    {u"frmCaja", u"lblCambio", u"Cambio"},
    {u"frmCaja", u"lblCB", u"Cajones"},
    {u"frmCaja", u"lblSaldoCierre", u"SALDO CIERRE"},
    {u"frmCaja", u"lblQuebranto", u"Quebranto"},
    // printouts
    {u"movimientosDeCajaHasta", u"MOVIMIENTOS DE CAJA HASTA"},
    {u"cierreDeCaja2b", u"CIERRE DE CAJA ("},
    {u"monedas", u"Monedas: "},
    {u"billetes", u"Billetes: "},
};

inline constexpr const Clave& kCajaFecha = Entrada(kClavesCashoffice, u"fecha2");
inline constexpr const Clave& kCajaConcepto = Entrada(kClavesCashoffice, u"concepto2");
inline constexpr const Clave& kCajaTerminal = Entrada(kClavesCashoffice, u"terminal2");
inline constexpr const Clave& kCajaVenta = Entrada(kClavesCashoffice, u"venta2");
inline constexpr const Clave& kCajaSaldoZV = Entrada(kClavesCashoffice, u"saldoZV2");
inline constexpr const Clave& kLblCambio = Entrada(kClavesCashoffice, u"frmCaja", u"lblCambio");
inline constexpr const Clave& kLblCB = Entrada(kClavesCashoffice, u"frmCaja", u"lblCB");
inline constexpr const Clave& kLblSaldoCierre =
    Entrada(kClavesCashoffice, u"frmCaja", u"lblSaldoCierre");
inline constexpr const Clave& kLblQuebranto =
    Entrada(kClavesCashoffice, u"frmCaja", u"lblQuebranto");
inline constexpr const Clave& kMovimientosHasta =
    Entrada(kClavesCashoffice, u"movimientosDeCajaHasta");
inline constexpr const Clave& kImpresionCierre = Entrada(kClavesCashoffice, u"cierreDeCaja2b");
inline constexpr const Clave& kImpresionMonedas = Entrada(kClavesCashoffice, u"monedas");
inline constexpr const Clave& kImpresionBilletes = Entrada(kClavesCashoffice, u"billetes");

} // namespace zv::texto
