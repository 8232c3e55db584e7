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
    // close, emptying and reconciling
    {u"sinConexion", u"No hay conexión con Zorvex"},
    {u"cierreCaja0", u"Cierre de caja"},
    {u"cierreCaja1",
     u"Se va a proceder ha realizar un cierre de caja por niveles. Quiere continuar?"},
    // The number of the device's error stands behind it.
    {u"errorDeZorvex", u"Error de Zorvex "},
    {u"errorDeZorvex2", u"Se ha producido un error al enviar el cierre al Zorvex. Por favor, "
                        u"consulte con su técnico"},
    {u"errorCierre", u"Error al realizar el cierre"},
    {u"recuerdeVaciarCB", u"Recuerde vaciar los cajones de recaudación: "},
    {u"descuadreDetectado", u"Descuadre detectado"},
    {u"descuadreDetectado2",
     u"Se ha detectado un descuadre entre el último saldo de Zorvex y el actual de: "},
    {u"descuadreDetectado3", u"¿Desea hacer un apunte de cuadre?"},
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
inline constexpr const Clave& kSinConexion = Entrada(kClavesCashoffice, u"sinConexion");
inline constexpr const Clave& kCierreTitulo = Entrada(kClavesCashoffice, u"cierreCaja0");
inline constexpr const Clave& kCierrePregunta = Entrada(kClavesCashoffice, u"cierreCaja1");
inline constexpr const Clave& kErrorDeZorvexNumero = Entrada(kClavesCashoffice, u"errorDeZorvex");
inline constexpr const Clave& kErrorCierreZorvex = Entrada(kClavesCashoffice, u"errorDeZorvex2");
inline constexpr const Clave& kErrorCierre = Entrada(kClavesCashoffice, u"errorCierre");
inline constexpr const Clave& kRecuerdeVaciar = Entrada(kClavesCashoffice, u"recuerdeVaciarCB");
inline constexpr const Clave& kDescuadreTitulo = Entrada(kClavesCashoffice, u"descuadreDetectado");
inline constexpr const Clave& kDescuadreDe = Entrada(kClavesCashoffice, u"descuadreDetectado2");
inline constexpr const Clave& kDescuadrePregunta =
    Entrada(kClavesCashoffice, u"descuadreDetectado3");

} // namespace zv::texto
