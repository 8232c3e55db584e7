// Texts of the queue: pulse, send, state line, grid and main screen.
#pragma once

#include "ui/Clave.h"

namespace zv::texto {

inline constexpr Clave kClavesEngine[] = {
    // counter and state line
    {u"cobros", u"cobros"},
    {u"abonos", u"abonos"},
    {u"operacionCancelada", u"Última operación cancelada. Cambiado a modo MANUAL"},
    {u"operacionCancelada2", u"Última operación cancelada. Cambiado a modo AUTOMATICO"},
    // With number and message of the device's error, and without.
    {u"errorDeZorvex3", u"Error %1. Consulte con su técnico"},
    {u"errorDeZorvex3", u"Error de Zorvex. Consulte con su técnico"},
    // The modes' values pass through the language file, like captions.
    {u"btnModo_0", u"AUTO"},
    {u"btnModo_1", u"MANUAL"},
    {u"btnModo_2", u"SEMI"},
    // sending
    {u"errorAlProcesarOperacion",
     u"Error al procesar la operación, consulte con el técnico de Zorvex"},
    {u"abonoPendiente", u"Abono pendiente"},
    {u"retireElCambio", u"RETIRE EL CAMBIO DE"},
    {u"retireElCambio2", u" LA OPERACION ANTERIOR"},
    {u"retireElCambio3", u"Pulse 'Aceptar' para continuar con el ABONO"},
    {u"importe", u"Importe: "},
    // titles of the grid
    {u"anular", u"Anular"},
    {u"fechaVenta", u"Fecha Venta"},
    {u"idVenta", u"Id. Venta"},
    {u"caja2", u"Caja"},
    {u"terminal", u"Terminal"},
    {u"vendedor", u"Vendedor"},
    {u"formapago", u"Forma Pago"},
    {u"importe2", u"Importe"},
    {u"enviar", u"Enviar"},
    // closing
    {u"cerrar0", u"Cerrar aplicativo"},
    {u"cerrar1", u"¿Desea cerrar ZVMonitor?"},
};

inline constexpr const Clave& kCobros = Entrada(kClavesEngine, u"cobros");
inline constexpr const Clave& kAbonos = Entrada(kClavesEngine, u"abonos");
inline constexpr const Clave& kOperacionCancelada = Entrada(kClavesEngine, u"operacionCancelada");
inline constexpr const Clave& kOperacionCanceladaAuto =
    Entrada(kClavesEngine, u"operacionCancelada2");
inline constexpr const Clave& kErrorZorvexCon = Entrada(kClavesEngine, u"errorDeZorvex3", 0);
inline constexpr const Clave& kErrorZorvexSin = Entrada(kClavesEngine, u"errorDeZorvex3", 1);
inline constexpr const Clave* kModos[] = {&Entrada(kClavesEngine, u"btnModo_0"),
                                          &Entrada(kClavesEngine, u"btnModo_1"),
                                          &Entrada(kClavesEngine, u"btnModo_2")};
inline constexpr const Clave& kErrorAlProcesar =
    Entrada(kClavesEngine, u"errorAlProcesarOperacion");
inline constexpr const Clave& kAbonoPendiente = Entrada(kClavesEngine, u"abonoPendiente");
inline constexpr const Clave& kRetireElCambio = Entrada(kClavesEngine, u"retireElCambio");
inline constexpr const Clave& kRetireElCambio2 = Entrada(kClavesEngine, u"retireElCambio2");
inline constexpr const Clave& kRetireElCambio3 = Entrada(kClavesEngine, u"retireElCambio3");
inline constexpr const Clave& kImporteDosPuntos = Entrada(kClavesEngine, u"importe");
inline constexpr const Clave& kAnular = Entrada(kClavesEngine, u"anular");
inline constexpr const Clave& kFechaVenta = Entrada(kClavesEngine, u"fechaVenta");
inline constexpr const Clave& kIdVenta = Entrada(kClavesEngine, u"idVenta");
inline constexpr const Clave& kCaja = Entrada(kClavesEngine, u"caja2");
inline constexpr const Clave& kTerminal = Entrada(kClavesEngine, u"terminal");
inline constexpr const Clave& kVendedor = Entrada(kClavesEngine, u"vendedor");
inline constexpr const Clave& kFormaPago = Entrada(kClavesEngine, u"formapago");
inline constexpr const Clave& kImporte = Entrada(kClavesEngine, u"importe2");
inline constexpr const Clave& kEnviar = Entrada(kClavesEngine, u"enviar");
inline constexpr const Clave& kCerrarTitulo = Entrada(kClavesEngine, u"cerrar0");
inline constexpr const Clave& kCerrarTexto = Entrada(kClavesEngine, u"cerrar1");

} // namespace zv::texto
