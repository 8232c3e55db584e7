// Texts of the registers and of the history of closes.
#pragma once

#include "ui/Clave.h"

namespace zv::texto {

inline constexpr Clave kClavesRegisters[] = {
    // titles
    {u"registroCobros", u"Registro de Cobros"},
    {u"registroIncidencias", u"Registro de Incidencias"},
    {u"registroAccesos", u"Registro de Accesos"},
    // titles of the grid
    {u"descartar", u"Descartar"},
    {u"fechaVenta", u"Fecha ZV"},
    {u"idVenta", u"Id.Venta"},
    {u"usuario", u"Usuario"},
    {u"fPago", u"F.Pago"},
    {u"importe", u"Importe"},
    {u"cobrado", u"Cobrado"},
    {u"pagado", u"Pagado"},
    {u"estado", u"Estado"},
    {u"error", u"Error"},
    {u"concepto", u"Concepto"},
    {u"reenviar", u"Reenviar"},
    {u"fechaAcceso", u"Fecha Acceso"},
    {u"lugar", u"Lugar"},
    // places of the register of accesses: the table has their names
    {u"authConfiguracion", u"authConfiguracion"},
    {u"authIncidencias", u"authIncidencias"},
    {u"authCaja", u"authCaja"},
    {u"authRegistro", u"authRegistro"},
    {u"authPago", u"authPago"},
    {u"authCobro", u"authCobro"},
    {u"authCobroManual", u"authCobroManual"},
    {u"authCambio", u"authCambio"},
    // captions
    {u"frmListado", u"lblCobros", u"Total Cobros:"},
    {u"frmListado", u"lblPagos", u"Total Pagos:"},
    {u"frmListado", u"boton_0", u"Imprimir"},
    {u"frmListado", u"boton_1", u"Salir"},
    {u"frmListado", u"boton_2", u"Todas"},
    {u"frmListado", u"boton_3", u"Export¬CSV"},
    {u"frmListado", u"grdZV", u"Listado"},
    {u"frmListado", u"lbVacia", u"No hay nada que mostrar"},
    {u"frmListado", u"prgFilas", u"Filas cargadas"},
    // printout
    {u"totalCobros", u"TOTAL COBROS: "},
    {u"totalAbonos", u"TOTAL ABONOS: "},
    // resending and discarding
    {u"operacionNoAutomatica", u"Esta operación no puede ser enviada automáticamente"},
    {u"operacionNoReenviada", u"No se puede reenviar una operación con importe 0"},
    {u"operacionYaReenviada", u"Esta operación ya ha sido reenviada"},
    {u"deseaReenviarOperacion", u"¿Desea reenviar esta operación a Zorvex?"},
    {u"operacionSinReenviar", u"La operación no se ha podido reenviar. Inténtelo otra vez"},
    {u"reenvioSinFecha",
     u"La operación no se ha reenviado: el usuario de su fila no es una fecha. Abra de nuevo el "
     u"programa y cóbrela con Cobro Manual"},
    {u"deseaEliminarIncidencia", u"¿Desea eliminar y descartar esta incidencia?"},
    {u"eliminarAccesos", u"Eliminar Accesos"},
    {u"eliminarAccesos1", u"¿Desea eliminar todo el historial de accesos?"},
    {u"descartarIncidencias", u"Descartar incidencias"},
    {u"descartarIncidencias2", u"¿Desea archivar todas las incidencias mostradas?"},
    // titles of the grids of the history
    {u"inicial2", u"INICIAL"},
    {u"cobros2", u"Cobros"},
    {u"abonos2", u"Abonos"},
    {u"ingresos2", u"Ingresos"},
    {u"pagos2", u"Pagos"},
    {u"saldo2", u"SALDO"},
    {u"cierre2", u"CIERRE"},
    {u"billetes2", u"Billetes"},
    {u"monedas2", u"Monedas"},
    {u"cajon2", u"CAJON"},
    {u"vendedor2", u"Vendedor"},
    // captions of the history
    {u"frmHistorial", u"lbTitulo", u"Histórico de Cierres"},
    {u"frmHistorial", u"lbHis", u"LISTADO DE MOVIMIENTOS"},
    {u"frmHistorial", u"boton_0", u"Salir"},
    {u"frmHistorial", u"boton_1", u"Imprimir"},
    {u"frmHistorial", u"boton_2", u"Limpiar¬Historial"},
    {u"frmHistorial", u"boton_3", u"Export¬Hist."},
    {u"frmHistorial", u"boton_4", u"Export¬Mov."},
    // its grids, and what they say when they are empty
    {u"frmHistorial", u"grdCierres", u"Cierres"},
    {u"frmHistorial", u"grdHis", u"Listado de movimientos"},
    {u"frmHistorial", u"lbSinCierres", u"No hay cierres"},
    {u"frmHistorial", u"lbVacia", u"Este cierre no tiene movimientos"},
    // its question
    {u"limpiarHistorial", u"Limpiar historial"},
    {u"limiarHistorial", u"¿Desea eliminar el historial de los cierres?"},
};

inline constexpr const Clave& kRegistroCobros = Entrada(kClavesRegisters, u"registroCobros");
inline constexpr const Clave& kRegistroIncidencias =
    Entrada(kClavesRegisters, u"registroIncidencias");
inline constexpr const Clave& kRegistroAccesos = Entrada(kClavesRegisters, u"registroAccesos");
inline constexpr const Clave& kDescartar = Entrada(kClavesRegisters, u"descartar");
inline constexpr const Clave& kFechaZV = Entrada(kClavesRegisters, u"fechaVenta");
inline constexpr const Clave& kIdVentaRegistro = Entrada(kClavesRegisters, u"idVenta");
inline constexpr const Clave& kUsuarioRegistro = Entrada(kClavesRegisters, u"usuario");
inline constexpr const Clave& kFPago = Entrada(kClavesRegisters, u"fPago");
inline constexpr const Clave& kImporteRegistro = Entrada(kClavesRegisters, u"importe");
inline constexpr const Clave& kCobrado = Entrada(kClavesRegisters, u"cobrado");
inline constexpr const Clave& kPagado = Entrada(kClavesRegisters, u"pagado");
inline constexpr const Clave& kEstado = Entrada(kClavesRegisters, u"estado");
inline constexpr const Clave& kError = Entrada(kClavesRegisters, u"error");
inline constexpr const Clave& kConcepto = Entrada(kClavesRegisters, u"concepto");
inline constexpr const Clave& kReenviar = Entrada(kClavesRegisters, u"reenviar");
inline constexpr const Clave& kFechaAcceso = Entrada(kClavesRegisters, u"fechaAcceso");
inline constexpr const Clave& kLugar = Entrada(kClavesRegisters, u"lugar");
inline constexpr const Clave& kTotalCobros = Entrada(kClavesRegisters, u"frmListado", u"lblCobros");
inline constexpr const Clave& kTotalPagos = Entrada(kClavesRegisters, u"frmListado", u"lblPagos");
// By number.
inline constexpr const Clave* kBotonesListado[] = {
    &Entrada(kClavesRegisters, u"frmListado", u"boton_0"),
    &Entrada(kClavesRegisters, u"frmListado", u"boton_1"),
    &Entrada(kClavesRegisters, u"frmListado", u"boton_2"),
    &Entrada(kClavesRegisters, u"frmListado", u"boton_3")};
inline constexpr const Clave& kListadoGrdZV = Entrada(kClavesRegisters, u"frmListado", u"grdZV");
inline constexpr const Clave& kListadoVacio = Entrada(kClavesRegisters, u"frmListado", u"lbVacia");
inline constexpr const Clave& kFilasCargadas =
    Entrada(kClavesRegisters, u"frmListado", u"prgFilas");
inline constexpr const Clave& kImpresionCobros = Entrada(kClavesRegisters, u"totalCobros");
inline constexpr const Clave& kImpresionAbonos = Entrada(kClavesRegisters, u"totalAbonos");
inline constexpr const Clave& kNoAutomatica = Entrada(kClavesRegisters, u"operacionNoAutomatica");
inline constexpr const Clave& kNoReenviada = Entrada(kClavesRegisters, u"operacionNoReenviada");
inline constexpr const Clave& kYaReenviada = Entrada(kClavesRegisters, u"operacionYaReenviada");
inline constexpr const Clave& kDeseaReenviar = Entrada(kClavesRegisters, u"deseaReenviarOperacion");
inline constexpr const Clave& kSinReenviar = Entrada(kClavesRegisters, u"operacionSinReenviar");
inline constexpr const Clave& kReenvioSinFecha = Entrada(kClavesRegisters, u"reenvioSinFecha");
inline constexpr const Clave& kDeseaEliminar =
    Entrada(kClavesRegisters, u"deseaEliminarIncidencia");
inline constexpr const Clave& kEliminarAccesos = Entrada(kClavesRegisters, u"eliminarAccesos");
inline constexpr const Clave& kEliminarAccesosPregunta =
    Entrada(kClavesRegisters, u"eliminarAccesos1");
inline constexpr const Clave& kDescartarIncidencias =
    Entrada(kClavesRegisters, u"descartarIncidencias");
inline constexpr const Clave& kDescartarIncidenciasPregunta =
    Entrada(kClavesRegisters, u"descartarIncidencias2");
inline constexpr const Clave& kTituloInicial = Entrada(kClavesRegisters, u"inicial2");
inline constexpr const Clave& kTituloCobros = Entrada(kClavesRegisters, u"cobros2");
inline constexpr const Clave& kTituloAbonos = Entrada(kClavesRegisters, u"abonos2");
inline constexpr const Clave& kTituloIngresos = Entrada(kClavesRegisters, u"ingresos2");
inline constexpr const Clave& kTituloPagos = Entrada(kClavesRegisters, u"pagos2");
inline constexpr const Clave& kTituloSaldo = Entrada(kClavesRegisters, u"saldo2");
inline constexpr const Clave& kTituloCierre = Entrada(kClavesRegisters, u"cierre2");
inline constexpr const Clave& kTituloBilletes = Entrada(kClavesRegisters, u"billetes2");
inline constexpr const Clave& kTituloMonedas = Entrada(kClavesRegisters, u"monedas2");
inline constexpr const Clave& kTituloCajon = Entrada(kClavesRegisters, u"cajon2");
inline constexpr const Clave& kTituloVendedor = Entrada(kClavesRegisters, u"vendedor2");
inline constexpr const Clave& kHistoricoTitulo =
    Entrada(kClavesRegisters, u"frmHistorial", u"lbTitulo");
inline constexpr const Clave& kLbHis = Entrada(kClavesRegisters, u"frmHistorial", u"lbHis");
// By number.
inline constexpr const Clave* kBotonesHistorial[] = {
    &Entrada(kClavesRegisters, u"frmHistorial", u"boton_0"),
    &Entrada(kClavesRegisters, u"frmHistorial", u"boton_1"),
    &Entrada(kClavesRegisters, u"frmHistorial", u"boton_2"),
    &Entrada(kClavesRegisters, u"frmHistorial", u"boton_3"),
    &Entrada(kClavesRegisters, u"frmHistorial", u"boton_4")};
inline constexpr const Clave& kGrdCierres =
    Entrada(kClavesRegisters, u"frmHistorial", u"grdCierres");
inline constexpr const Clave& kGrdHis = Entrada(kClavesRegisters, u"frmHistorial", u"grdHis");
inline constexpr const Clave& kSinCierres =
    Entrada(kClavesRegisters, u"frmHistorial", u"lbSinCierres");
inline constexpr const Clave& kCierreVacio = Entrada(kClavesRegisters, u"frmHistorial", u"lbVacia");
inline constexpr const Clave& kLimpiarTitulo = Entrada(kClavesRegisters, u"limpiarHistorial");
inline constexpr const Clave& kLimpiarPregunta = Entrada(kClavesRegisters, u"limiarHistorial");

} // namespace zv::texto
