// Texts of the cash office.
#pragma once

#include "ui/Clave.h"

namespace zv::texto {

inline constexpr Clave kClavesCashoffice[] = {
    // captions
    {u"frmCaja", u"lblCambio", u"Cambio"},
    {u"frmCaja", u"lblCB", u"Cajones"},
    {u"frmCaja", u"lblSaldoCierre", u"SALDO CIERRE"},
    {u"frmCaja", u"lblQuebranto", u"Quebranto"},
    {u"frmCaja", u"lbTitulo", u"Cierre de Caja"},
    {u"frmCaja", u"lbGrdZV", u"LISTADO DE MOVIMIENTOS"},
    {u"frmCaja", u"lblContenido", u"CONTENIDO ZV"},
    {u"frmCaja", u"lblMonedas", u"Monedas"},
    {u"frmCaja", u"lblBilletes", u"Billetes"},
    {u"frmCaja", u"boton_0", u"Salir"},
    {u"frmCaja", u"boton_1", u"Imprimir"},
    {u"frmCaja", u"boton_2", u"Cierre¬Niveles Óptimos"},
    {u"frmCaja", u"boton_3", u"Cierre¬por valor"},
    {u"frmCaja", u"boton_4", u"Cuadrar¬con Zorvex"},
    {u"frmCaja", u"boton_5", u"Vaciado¬Cajón Monedas"},
    {u"frmCaja", u"boton_6", u"Vaciado¬Cajón Billetes"},
    {u"frmCaja", u"boton_7", u"Configuración¬de Zorvex"},
    {u"frmCaja", u"boton_8", u"Histórico"},
    {u"frmCaja", u"boton_9", u"Export¬CSV"},
    // cards, the count of the movements, the bars of the device
    {u"frmCaja", u"grdZV", u"Listado de movimientos"},
    {u"frmCaja", u"fraPeriodo", u"Periodo"},
    {u"frmCaja", u"fraZorvex", u"En Zorvex"},
    {u"frmCaja", u"lblContador", u"Movimientos:"},
    {u"frmCaja", u"lbVacia", u"No hay movimientos desde el último cierre"},
    {u"frmCaja", u"prgMovimientos", u"Movimientos cargados"},
    {u"frmCaja", u"lblNivelesMonedas", u"Monedas"},
    {u"frmCaja", u"lblNivelesBilletes", u"Billetes"},
    {u"frmCaja", u"lblNivelCambio", u"Para cambio"},
    {u"frmCaja", u"lblNivelCajon", u"En cajón"},
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

inline constexpr const Clave& kLblCambio = Entrada(kClavesCashoffice, u"frmCaja", u"lblCambio");
inline constexpr const Clave& kLblCB = Entrada(kClavesCashoffice, u"frmCaja", u"lblCB");
inline constexpr const Clave& kLblSaldoCierre =
    Entrada(kClavesCashoffice, u"frmCaja", u"lblSaldoCierre");
inline constexpr const Clave& kLblQuebranto =
    Entrada(kClavesCashoffice, u"frmCaja", u"lblQuebranto");
inline constexpr const Clave& kCajaTitulo = Entrada(kClavesCashoffice, u"frmCaja", u"lbTitulo");
inline constexpr const Clave& kLbGrdZV = Entrada(kClavesCashoffice, u"frmCaja", u"lbGrdZV");
inline constexpr const Clave& kLblContenido =
    Entrada(kClavesCashoffice, u"frmCaja", u"lblContenido");
inline constexpr const Clave& kLblMonedas = Entrada(kClavesCashoffice, u"frmCaja", u"lblMonedas");
inline constexpr const Clave& kLblBilletes = Entrada(kClavesCashoffice, u"frmCaja", u"lblBilletes");
// By number.
inline constexpr const Clave* kBotonesCajaTexto[] = {
    &Entrada(kClavesCashoffice, u"frmCaja", u"boton_0"),
    &Entrada(kClavesCashoffice, u"frmCaja", u"boton_1"),
    &Entrada(kClavesCashoffice, u"frmCaja", u"boton_2"),
    &Entrada(kClavesCashoffice, u"frmCaja", u"boton_3"),
    &Entrada(kClavesCashoffice, u"frmCaja", u"boton_4"),
    &Entrada(kClavesCashoffice, u"frmCaja", u"boton_5"),
    &Entrada(kClavesCashoffice, u"frmCaja", u"boton_6"),
    &Entrada(kClavesCashoffice, u"frmCaja", u"boton_7"),
    &Entrada(kClavesCashoffice, u"frmCaja", u"boton_8"),
    &Entrada(kClavesCashoffice, u"frmCaja", u"boton_9")};
inline constexpr const Clave& kCajaGrdZV = Entrada(kClavesCashoffice, u"frmCaja", u"grdZV");
inline constexpr const Clave& kTarjetaPeriodo =
    Entrada(kClavesCashoffice, u"frmCaja", u"fraPeriodo");
inline constexpr const Clave& kTarjetaAparato =
    Entrada(kClavesCashoffice, u"frmCaja", u"fraZorvex");
inline constexpr const Clave& kLblContador = Entrada(kClavesCashoffice, u"frmCaja", u"lblContador");
inline constexpr const Clave& kSinMovimientosPeriodo =
    Entrada(kClavesCashoffice, u"frmCaja", u"lbVacia");
inline constexpr const Clave& kProgreso = Entrada(kClavesCashoffice, u"frmCaja", u"prgMovimientos");
inline constexpr const Clave& kNivelesMonedas =
    Entrada(kClavesCashoffice, u"frmCaja", u"lblNivelesMonedas");
inline constexpr const Clave& kNivelesBilletes =
    Entrada(kClavesCashoffice, u"frmCaja", u"lblNivelesBilletes");
inline constexpr const Clave& kNivelCambio =
    Entrada(kClavesCashoffice, u"frmCaja", u"lblNivelCambio");
inline constexpr const Clave& kNivelCajon =
    Entrada(kClavesCashoffice, u"frmCaja", u"lblNivelCajon");
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
