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
    // manual operations
    {u"darCambioAnulado", u"Dar cambio anulado"},
    {u"pago11", u"Pago"},
    {u"pago12", u"Introduzca el concepto del pago"},
    {u"pagoAnulado", u"Pago anulado"},
    {u"pagoAnulado2", u"No se puede realizar un pago sin indicar el concepto"},
    {u"cobroManual2", u"Cobro manual"},
    {u"conceptoCobroManual", u"Introduzca el concepto del cobro manual"},
    {u"cobroManualAnulado", u"Cobro manual anulado"},
    {u"noSePuedeRealizarCobroManual",
     u"No se puede realizar un cobro manual sin indicar el concepto"},
    {u"introduzcaImporte", u"Introduzca el importe"},
    // grouped charges
    {u"marqueCobros", u"Toque los cobros que se pagan juntos, o pulse Agrupar cobros para dejarlo"},
    {u"marcados", u"Marcados:"},
    {u"pulseAgrupar", u"Pulse Agrupar cobros para cobrarlos"},
    {u"sumaMarcados", u"Suma:"},
    {u"sinSuma", u"No se pueden sumar"},
    {u"cobrosNoAgrupados", u"No se han cobrado los cobros marcados"},
    // annulling; the cause stands behind the first
    {u"anularMovimiento", u"Anular movimiento"},
    {u"introduzcaCausa", u"Introduzca la causa de la anulación"},
    {u"anulacionCancelada", u"Anulación cancelada"},
    {u"anulacionCancelada2", u"No se puede anular un movimiento sin indicar la causa"},
    {u"cobroAnulado", u"Cobro Anulado: "},
    {u"cobroAnulado", u"Cobro Anulado"},
    // why nothing moves, and what to press
    {u"pulseConectar", u"Sin conexión: pulse Conectar"},
    {u"colaParada",
     u"Sin conexión y con la cola parada: minimice y abra la ventana, y pulse Conectar"},
    // titles of the grid
    {u"anular", u"Anular"},
    {u"fechaVenta", u"Fecha Venta"},
    {u"idVenta", u"Id. Venta"},
    {u"caja2", u"Caja"},
    {u"formapago", u"Forma Pago"},
    {u"importe2", u"Importe"},
    {u"enviar", u"Enviar"},
    // closing
    {u"cerrar0", u"Cerrar aplicativo"},
    {u"cerrar1", u"¿Desea cerrar ZVMonitor?"},
    // captions of the main screen
    {u"frmZVMonitor", u"lbVer", u"Monitor"},
    {u"frmZVMonitor", u"btnModo_0", u"Automático"},
    {u"frmZVMonitor", u"btnModo_1", u"Manual"},
    {u"frmZVMonitor", u"btnModo_2", u"Semiautomático"},
    {u"frmZVMonitor", u"btnW_0", u"Minimizar"},
    {u"frmZVMonitor", u"btnW_2", u"Manuales"},
    {u"frmZVMonitor", u"lbContador", u"Comprobando operaciones pendientes..."},
    {u"frmZVMonitor", u"lbEstado", u"Inicializando..."},
    {u"frmZVMonitor", u"boton_0", u"Registro"},
    {u"frmZVMonitor", u"boton_1", u"Caja"},
    {u"frmZVMonitor", u"boton_2", u"Dar Cambio"},
    {u"frmZVMonitor", u"boton_3", u"Añadir Cambio"},
    {u"frmZVMonitor", u"boton_4", u"Pago"},
    {u"frmZVMonitor", u"boton_5", u"Incidencias"},
    {u"frmZVMonitor", u"boton_6", u"Desconectar"},
    {u"frmZVMonitor", u"boton_7", u"Conectar"},
    {u"frmZVMonitor", u"boton_8", u"Cobro¬Manual"},
    {u"frmZVMonitor", u"boton_9", u"Agrupar¬cobros"},
    {u"frmZVMonitor", u"boton_10", u"Contraseña"},
    {u"frmZVMonitor", u"boton_12", u"Configurar"},
    // what its grid, its box and its lamps mean
    {u"frmZVMonitor", u"grdZV", u"Operaciones pendientes"},
    {u"frmZVMonitor", u"TextIni", u"Código de barras"},
    {u"frmZVMonitor", u"ShapeOK", u"Niveles normales"},
    {u"frmZVMonitor", u"ShapeAlert", u"Niveles en alerta"},
    {u"frmZVMonitor", u"ShapeCritico", u"Niveles críticos o sin conexión"},
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
inline constexpr const Clave& kDarCambioAnulado = Entrada(kClavesEngine, u"darCambioAnulado");
inline constexpr const Clave& kPagoTitulo = Entrada(kClavesEngine, u"pago11");
inline constexpr const Clave& kPagoConcepto = Entrada(kClavesEngine, u"pago12");
inline constexpr const Clave& kPagoAnulado = Entrada(kClavesEngine, u"pagoAnulado");
inline constexpr const Clave& kPagoSinConcepto = Entrada(kClavesEngine, u"pagoAnulado2");
inline constexpr const Clave& kCobroManual = Entrada(kClavesEngine, u"cobroManual2");
inline constexpr const Clave& kCobroConcepto = Entrada(kClavesEngine, u"conceptoCobroManual");
inline constexpr const Clave& kCobroAnulado = Entrada(kClavesEngine, u"cobroManualAnulado");
inline constexpr const Clave& kCobroSinConcepto =
    Entrada(kClavesEngine, u"noSePuedeRealizarCobroManual");
inline constexpr const Clave& kIntroduzcaImporte = Entrada(kClavesEngine, u"introduzcaImporte");
inline constexpr const Clave& kMarqueCobros = Entrada(kClavesEngine, u"marqueCobros");
inline constexpr const Clave& kMarcados = Entrada(kClavesEngine, u"marcados");
inline constexpr const Clave& kPulseAgrupar = Entrada(kClavesEngine, u"pulseAgrupar");
inline constexpr const Clave& kSumaMarcados = Entrada(kClavesEngine, u"sumaMarcados");
inline constexpr const Clave& kSinSuma = Entrada(kClavesEngine, u"sinSuma");
inline constexpr const Clave& kCobrosNoAgrupados = Entrada(kClavesEngine, u"cobrosNoAgrupados");
inline constexpr const Clave& kAnularMovimiento = Entrada(kClavesEngine, u"anularMovimiento");
inline constexpr const Clave& kIntroduzcaCausa = Entrada(kClavesEngine, u"introduzcaCausa");
inline constexpr const Clave& kAnulacionCancelada = Entrada(kClavesEngine, u"anulacionCancelada");
inline constexpr const Clave& kAnulacionCancelada2 = Entrada(kClavesEngine, u"anulacionCancelada2");
inline constexpr const Clave& kMotivoConCausa = Entrada(kClavesEngine, u"cobroAnulado", 0);
inline constexpr const Clave& kMotivoSinCausa = Entrada(kClavesEngine, u"cobroAnulado", 1);
inline constexpr const Clave& kPulseConectar = Entrada(kClavesEngine, u"pulseConectar");
inline constexpr const Clave& kColaParada = Entrada(kClavesEngine, u"colaParada");
inline constexpr const Clave& kAnular = Entrada(kClavesEngine, u"anular");
inline constexpr const Clave& kFechaVenta = Entrada(kClavesEngine, u"fechaVenta");
inline constexpr const Clave& kIdVenta = Entrada(kClavesEngine, u"idVenta");
inline constexpr const Clave& kCaja = Entrada(kClavesEngine, u"caja2");
inline constexpr const Clave& kFormaPago = Entrada(kClavesEngine, u"formapago");
inline constexpr const Clave& kImporte = Entrada(kClavesEngine, u"importe2");
inline constexpr const Clave& kEnviar = Entrada(kClavesEngine, u"enviar");
inline constexpr const Clave& kCerrarTitulo = Entrada(kClavesEngine, u"cerrar0");
inline constexpr const Clave& kCerrarTexto = Entrada(kClavesEngine, u"cerrar1");
inline constexpr const Clave& kLbVer = Entrada(kClavesEngine, u"frmZVMonitor", u"lbVer");
inline constexpr const Clave& kLbContador = Entrada(kClavesEngine, u"frmZVMonitor", u"lbContador");
inline constexpr const Clave& kLbEstado = Entrada(kClavesEngine, u"frmZVMonitor", u"lbEstado");
inline constexpr const Clave& kBtnMinimizar = Entrada(kClavesEngine, u"frmZVMonitor", u"btnW_0");
inline constexpr const Clave& kBtnManuales = Entrada(kClavesEngine, u"frmZVMonitor", u"btnW_2");
inline constexpr const Clave& kGrdZV = Entrada(kClavesEngine, u"frmZVMonitor", u"grdZV");
inline constexpr const Clave& kCodigoBarras = Entrada(kClavesEngine, u"frmZVMonitor", u"TextIni");
inline constexpr const Clave& kShapeOK = Entrada(kClavesEngine, u"frmZVMonitor", u"ShapeOK");
inline constexpr const Clave& kShapeAlert = Entrada(kClavesEngine, u"frmZVMonitor", u"ShapeAlert");
inline constexpr const Clave& kShapeCritico =
    Entrada(kClavesEngine, u"frmZVMonitor", u"ShapeCritico");
inline constexpr const Clave* kBtnModo[] = {&Entrada(kClavesEngine, u"frmZVMonitor", u"btnModo_0"),
                                            &Entrada(kClavesEngine, u"frmZVMonitor", u"btnModo_1"),
                                            &Entrada(kClavesEngine, u"frmZVMonitor", u"btnModo_2")};
// By number; the one without use has no caption.
inline constexpr const Clave* kBotones[] = {&Entrada(kClavesEngine, u"frmZVMonitor", u"boton_0"),
                                            &Entrada(kClavesEngine, u"frmZVMonitor", u"boton_1"),
                                            &Entrada(kClavesEngine, u"frmZVMonitor", u"boton_2"),
                                            &Entrada(kClavesEngine, u"frmZVMonitor", u"boton_3"),
                                            &Entrada(kClavesEngine, u"frmZVMonitor", u"boton_4"),
                                            &Entrada(kClavesEngine, u"frmZVMonitor", u"boton_5"),
                                            &Entrada(kClavesEngine, u"frmZVMonitor", u"boton_6"),
                                            &Entrada(kClavesEngine, u"frmZVMonitor", u"boton_7"),
                                            &Entrada(kClavesEngine, u"frmZVMonitor", u"boton_8"),
                                            &Entrada(kClavesEngine, u"frmZVMonitor", u"boton_9"),
                                            &Entrada(kClavesEngine, u"frmZVMonitor", u"boton_10"),
                                            nullptr,
                                            &Entrada(kClavesEngine, u"frmZVMonitor", u"boton_12")};

} // namespace zv::texto
