// Texts that several places of the till show.
#pragma once

#include "ui/Clave.h"

namespace zv::texto {

inline constexpr Clave kClavesTill[] = {
    // titles of grids
    {u"vendedor", u"Vendedor"},
    {u"fecha2", u"Fecha"},
    {u"concepto2", u"Concepto"},
    {u"terminal2", u"Terminal"},
    {u"venta2", u"Venta"},
    {u"saldoZV2", u"Saldo ZV"},
    {u"terminal", u"Terminal"},
    // concepts of a record; what the record tells stands right behind those that end in a blank,
    // which a look-up drops
    {u"abonoManual", u"Abono Manual - "},
    {u"cobroManual", u"Cobro Manual - "},
    {u"ajustePorDescuadre", u"Ajuste por descuadre"},
    {u"vaciadoCajones", u"Vaciado de cajones"},
    {u"arqueoCaja", u"Arqueo de caja"},
    {u"cambiAñadido", u"Cambio añadido"},
    {u"cambioCancelado", u"Cambio cancelado/no autorizado"},
    {u"cambio", u"Cambio"},
    {u"pago", u"Pago - "},
    {u"vaciado", u"VACIADO "},
    {u"abonoAgrupado", u"Abono agrupado"},
    {u"cobroAgrupado", u"Cobro agrupado"},
    // the same where what the record tells follows at once
    {u"abonoManual", u"Abono Manual"},
    {u"cobroManual", u"Cobro Manual"},
    {u"cobroVenta", u"Cobro Venta"},
    {u"abonoVenta", u"Abono Venta"},
    // the same in the history of closes
    {u"ajustePorDescuadre", u"Ajuste por descuadreo"},
    {u"pago", u"Pago"},
    {u"vaciado", u"Vaciado"},
    {u"cobroVenta", u"Cobro venta"},
    {u"abonoVenta", u"Abono venta"},
    // captions of the cash office that printouts of the history have too
    {u"frmCaja", u"lblCobros", u"Cobros por ventas"},
    {u"frmCaja", u"lblAbonos", u"Abonos por ventas"},
    {u"frmCaja", u"lblPagos", u"Pagos"},
    {u"frmCaja", u"lblIngresos", u"Ingresos"},
    {u"frmCaja", u"lblSaldoFinal", u"SALDO FINAL"},
    // printouts of the history
    {u"sinDatos", u"Sin datos"},
    {u"noHayMovimientosParaImprimir", u"No hay movimientos para imprimir"},
    {u"cierreDeCaja", u"Cierre de Caja"},
    {u"cierreDeCaja2", u"¿Desea imprimir el listado de ventas?"},
    {u"cierreDeCaja3", u"¿Desea imprimir el resumen de los totales de caja?"},
    {u"movimientosDeCajaDel", u"MOVIMIENTOS DE CAJA DEL"},
    {u"al", u" AL"},
};

inline constexpr const Clave& kVendedor = Entrada(kClavesTill, u"vendedor");
inline constexpr const Clave& kTituloFecha = Entrada(kClavesTill, u"fecha2");
inline constexpr const Clave& kTituloConcepto = Entrada(kClavesTill, u"concepto2");
inline constexpr const Clave& kTituloTerminal = Entrada(kClavesTill, u"terminal2");
inline constexpr const Clave& kTituloVenta = Entrada(kClavesTill, u"venta2");
inline constexpr const Clave& kTituloSaldoZV = Entrada(kClavesTill, u"saldoZV2");
inline constexpr const Clave& kTerminal = Entrada(kClavesTill, u"terminal");
inline constexpr const Clave& kAbonoManual = Entrada(kClavesTill, u"abonoManual");
inline constexpr const Clave& kConceptoCobroManual = Entrada(kClavesTill, u"cobroManual");
inline constexpr const Clave& kAjustePorDescuadre = Entrada(kClavesTill, u"ajustePorDescuadre");
inline constexpr const Clave& kVaciadoCajones = Entrada(kClavesTill, u"vaciadoCajones");
inline constexpr const Clave& kArqueoCaja = Entrada(kClavesTill, u"arqueoCaja");
inline constexpr const Clave& kCambioAnadido = Entrada(kClavesTill, u"cambiAñadido");
inline constexpr const Clave& kCambioCancelado = Entrada(kClavesTill, u"cambioCancelado");
inline constexpr const Clave& kCambio = Entrada(kClavesTill, u"cambio");
inline constexpr const Clave& kPago = Entrada(kClavesTill, u"pago");
inline constexpr const Clave& kVaciado = Entrada(kClavesTill, u"vaciado");
inline constexpr const Clave& kAbonoAgrupado = Entrada(kClavesTill, u"abonoAgrupado");
inline constexpr const Clave& kCobroAgrupado = Entrada(kClavesTill, u"cobroAgrupado");
inline constexpr const Clave& kAbonoManualJunto = Entrada(kClavesTill, u"abonoManual", 1);
inline constexpr const Clave& kCobroManualJunto = Entrada(kClavesTill, u"cobroManual", 1);
inline constexpr const Clave& kPagoJunto = Entrada(kClavesTill, u"pago", 1);
inline constexpr const Clave& kCobroVenta = Entrada(kClavesTill, u"cobroVenta");
inline constexpr const Clave& kAbonoVenta = Entrada(kClavesTill, u"abonoVenta");
inline constexpr const Clave& kHistorialAjuste = Entrada(kClavesTill, u"ajustePorDescuadre", 1);
inline constexpr const Clave& kHistorialVaciado = Entrada(kClavesTill, u"vaciado", 1);
inline constexpr const Clave& kHistorialCobroVenta = Entrada(kClavesTill, u"cobroVenta", 1);
inline constexpr const Clave& kHistorialAbonoVenta = Entrada(kClavesTill, u"abonoVenta", 1);
inline constexpr const Clave& kLblCobros = Entrada(kClavesTill, u"frmCaja", u"lblCobros");
inline constexpr const Clave& kLblAbonos = Entrada(kClavesTill, u"frmCaja", u"lblAbonos");
inline constexpr const Clave& kLblPagos = Entrada(kClavesTill, u"frmCaja", u"lblPagos");
inline constexpr const Clave& kLblIngresos = Entrada(kClavesTill, u"frmCaja", u"lblIngresos");
inline constexpr const Clave& kLblSaldoFinal = Entrada(kClavesTill, u"frmCaja", u"lblSaldoFinal");
inline constexpr const Clave& kSinDatos = Entrada(kClavesTill, u"sinDatos");
inline constexpr const Clave& kSinMovimientos =
    Entrada(kClavesTill, u"noHayMovimientosParaImprimir");
inline constexpr const Clave& kHistorialTitulo = Entrada(kClavesTill, u"cierreDeCaja");
inline constexpr const Clave& kHistorialImprimirListado = Entrada(kClavesTill, u"cierreDeCaja2");
inline constexpr const Clave& kHistorialImprimirResumen = Entrada(kClavesTill, u"cierreDeCaja3");
inline constexpr const Clave& kMovimientosDel = Entrada(kClavesTill, u"movimientosDeCajaDel");
inline constexpr const Clave& kMovimientosAl = Entrada(kClavesTill, u"al");

} // namespace zv::texto
