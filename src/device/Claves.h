// Texts of the device: its connection, its balances, and the window of a running operation.
#pragma once

#include "ui/Clave.h"

namespace zv::texto {

inline constexpr Clave kClavesDevice[] = {
    // connection and balances
    {u"errorDeZorvex", u"Error de Zorvex"},
    {u"inicializacion", u"Inicialización"},
    {u"inicializacion2",
     u"El saldo de Zorvex ha variado desde la última vez que se ejecutó la aplicación: "},
    {u"ultimoSaldoRegistrado", u"Último Saldo Registrado: "},
    {u"saldoActual", u"Saldo Actual: "},
    {u"problemaComunicacion", u"Existe un problema de comunicación con Zorvex."},
    {u"consulteConSuTecnico", u"Consulte con su técnico el siguiente error: "},
    {u"conflictoOperacion", u"Conflicto de operaciones"},
    {u"problemaAgrupacion", u"Esta agrupando pagos, finalize la operacion primero"},
    {u"errorAlRecuperarSaldo", u"Error al recuperar el saldo del Zorvex:"},
    {u"operacionAnulada", u"Operación anulada"},
    // errors of the gateway
    {u"pasarelaNoConectado", u"Zorvex no está conectado"},
    {u"pasarelaEnCurso", u"Zorvex está ocupado con otra operación"},
    {u"pasarelaSinDireccion", u"Falta la dirección IP de Zorvex en la configuración"},
    {u"pasarelaDireccionMala", u"La dirección de Zorvex no es válida:"},
    {u"pasarelaNoResponde", u"No se puede conectar con Zorvex en"},
    {u"pasarelaSinSaludo", u"Zorvex no contesta al saludo de la sesión en"},
    {u"pasarelaProtocolo", u"Zorvex ha dado una respuesta que no es válida"},
    {u"pasarelaPendiente", u"Zorvex no termina una operación anterior que sigue abierta"},
    {u"pasarelaEnlacePerdido", u"Se ha perdido la comunicación con Zorvex"},
    {u"pasarelaOtroAlmacen", u"Tras perder la comunicación ha contestado otro Zorvex"},
    {u"pasarelaCerrando", u"La aplicación se cierra con la operación en curso"},
    {u"pasarelaNoTermina", u"Zorvex no ha terminado la operación"},
    // window of an operation: titles and what to do
    {u"frmOperacion", u"TituloCobro", u"Cobro"},
    {u"frmOperacion", u"Cobro", u"Introduzca el dinero en Zorvex"},
    {u"frmOperacion", u"TituloAbono", u"Abono"},
    {u"frmOperacion", u"Abono", u"Retire el dinero de Zorvex"},
    {u"frmOperacion", u"TituloCambio", u"Dar cambio"},
    {u"frmOperacion", u"Cambio", u"Introduzca el dinero que quiere cambiar"},
    {u"frmOperacion", u"TituloMeterCambio", u"Añadir cambio"},
    {u"frmOperacion", u"MeterCambio", u"Introduzca el cambio en Zorvex"},
    {u"frmOperacion", u"TituloPago", u"Pago"},
    {u"frmOperacion", u"Pago", u"Retire el dinero de Zorvex"},
    {u"frmOperacion", u"TituloControlCajones", u"Cierre de caja"},
    {u"frmOperacion", u"ControlCajones", u"Zorvex está pasando dinero a los cajones"},
    {u"frmOperacion", u"TituloVaciadoCajon", u"Vaciado de cajón"},
    {u"frmOperacion", u"VaciadoCajon", u"Vacíe el cajón de Zorvex"},
    {u"frmOperacion", u"TituloPendiente", u"Operación pendiente"},
    {u"frmOperacion", u"Pendiente",
     u"Se está cancelando una operación anterior que seguía abierta en Zorvex"},
    {u"frmOperacion", u"Reconectando", u"Recuperando la comunicación con Zorvex…"},
    {u"frmOperacion", u"PulseTerminar", u"Pulse Terminar cuando acabe"},
    {u"frmOperacion", u"TermineEnZorvex", u"Termine en el propio Zorvex cuando acabe"},
    {u"frmOperacion", u"RecojaCambio", u"Recoja el cambio"},
    {u"frmOperacion", u"Espere", u"Espere a que Zorvex termine"},
    {u"frmOperacion", u"Devolviendo", u"Zorvex está devolviendo el dinero"},
    // its lines and its buttons
    {u"frmOperacion", u"lbACobrar", u"A cobrar"},
    {u"frmOperacion", u"lbADevolver", u"A devolver"},
    {u"frmOperacion", u"lbAPagar", u"A pagar"},
    {u"frmOperacion", u"lbEntrado", u"Introducido"},
    {u"frmOperacion", u"lbSalido", u"Devuelto"},
    {u"frmOperacion", u"lbPagado", u"Entregado"},
    {u"frmOperacion", u"lbFalta", u"Pendiente"},
    {u"frmOperacion", u"btnCancelar", u"Cancelar"},
    {u"frmOperacion", u"Cancelando", u"Cancelando…"},
    {u"frmOperacion", u"btnTerminar", u"Terminar"},
    {u"frmOperacion", u"Terminando", u"Terminando…"},
};

inline constexpr const Clave& kErrorDeZorvex = Entrada(kClavesDevice, u"errorDeZorvex");
inline constexpr const Clave& kInicializacion = Entrada(kClavesDevice, u"inicializacion");
inline constexpr const Clave& kSaldoHaVariado = Entrada(kClavesDevice, u"inicializacion2");
inline constexpr const Clave& kUltimoSaldo = Entrada(kClavesDevice, u"ultimoSaldoRegistrado");
inline constexpr const Clave& kSaldoActual = Entrada(kClavesDevice, u"saldoActual");
inline constexpr const Clave& kProblemaComunicacion =
    Entrada(kClavesDevice, u"problemaComunicacion");
inline constexpr const Clave& kConsulteConSuTecnico =
    Entrada(kClavesDevice, u"consulteConSuTecnico");
inline constexpr const Clave& kConflictoOperacion = Entrada(kClavesDevice, u"conflictoOperacion");
inline constexpr const Clave& kProblemaAgrupacion = Entrada(kClavesDevice, u"problemaAgrupacion");
inline constexpr const Clave& kErrorAlRecuperarSaldo =
    Entrada(kClavesDevice, u"errorAlRecuperarSaldo");
inline constexpr const Clave& kOperacionAnulada = Entrada(kClavesDevice, u"operacionAnulada");
inline constexpr const Clave& kPasarelaNoConectado = Entrada(kClavesDevice, u"pasarelaNoConectado");
inline constexpr const Clave& kPasarelaEnCurso = Entrada(kClavesDevice, u"pasarelaEnCurso");
inline constexpr const Clave& kPasarelaSinDireccion =
    Entrada(kClavesDevice, u"pasarelaSinDireccion");
inline constexpr const Clave& kPasarelaDireccionMala =
    Entrada(kClavesDevice, u"pasarelaDireccionMala");
inline constexpr const Clave& kPasarelaNoResponde = Entrada(kClavesDevice, u"pasarelaNoResponde");
inline constexpr const Clave& kPasarelaSinSaludo = Entrada(kClavesDevice, u"pasarelaSinSaludo");
inline constexpr const Clave& kPasarelaProtocolo = Entrada(kClavesDevice, u"pasarelaProtocolo");
inline constexpr const Clave& kPasarelaPendiente = Entrada(kClavesDevice, u"pasarelaPendiente");
inline constexpr const Clave& kPasarelaEnlacePerdido =
    Entrada(kClavesDevice, u"pasarelaEnlacePerdido");
inline constexpr const Clave& kPasarelaOtroAlmacen = Entrada(kClavesDevice, u"pasarelaOtroAlmacen");
inline constexpr const Clave& kPasarelaCerrando = Entrada(kClavesDevice, u"pasarelaCerrando");
inline constexpr const Clave& kPasarelaNoTermina = Entrada(kClavesDevice, u"pasarelaNoTermina");
inline constexpr const Clave& kTituloCobro =
    Entrada(kClavesDevice, u"frmOperacion", u"TituloCobro");
inline constexpr const Clave& kHacerCobro = Entrada(kClavesDevice, u"frmOperacion", u"Cobro");
inline constexpr const Clave& kTituloAbono =
    Entrada(kClavesDevice, u"frmOperacion", u"TituloAbono");
inline constexpr const Clave& kHacerAbono = Entrada(kClavesDevice, u"frmOperacion", u"Abono");
inline constexpr const Clave& kTituloCambio =
    Entrada(kClavesDevice, u"frmOperacion", u"TituloCambio");
inline constexpr const Clave& kHacerCambio = Entrada(kClavesDevice, u"frmOperacion", u"Cambio");
inline constexpr const Clave& kTituloMeterCambio =
    Entrada(kClavesDevice, u"frmOperacion", u"TituloMeterCambio");
inline constexpr const Clave& kHacerMeterCambio =
    Entrada(kClavesDevice, u"frmOperacion", u"MeterCambio");
inline constexpr const Clave& kTituloPago = Entrada(kClavesDevice, u"frmOperacion", u"TituloPago");
inline constexpr const Clave& kHacerPago = Entrada(kClavesDevice, u"frmOperacion", u"Pago");
inline constexpr const Clave& kTituloControlCajones =
    Entrada(kClavesDevice, u"frmOperacion", u"TituloControlCajones");
inline constexpr const Clave& kHacerControlCajones =
    Entrada(kClavesDevice, u"frmOperacion", u"ControlCajones");
inline constexpr const Clave& kTituloVaciadoCajon =
    Entrada(kClavesDevice, u"frmOperacion", u"TituloVaciadoCajon");
inline constexpr const Clave& kHacerVaciadoCajon =
    Entrada(kClavesDevice, u"frmOperacion", u"VaciadoCajon");
inline constexpr const Clave& kTituloPendiente =
    Entrada(kClavesDevice, u"frmOperacion", u"TituloPendiente");
inline constexpr const Clave& kHacerPendiente =
    Entrada(kClavesDevice, u"frmOperacion", u"Pendiente");
inline constexpr const Clave& kReconectando =
    Entrada(kClavesDevice, u"frmOperacion", u"Reconectando");
inline constexpr const Clave& kPulseTerminar =
    Entrada(kClavesDevice, u"frmOperacion", u"PulseTerminar");
inline constexpr const Clave& kTermineEnZorvex =
    Entrada(kClavesDevice, u"frmOperacion", u"TermineEnZorvex");
inline constexpr const Clave& kRecojaCambio =
    Entrada(kClavesDevice, u"frmOperacion", u"RecojaCambio");
inline constexpr const Clave& kEspere = Entrada(kClavesDevice, u"frmOperacion", u"Espere");
inline constexpr const Clave& kDevolviendo =
    Entrada(kClavesDevice, u"frmOperacion", u"Devolviendo");
inline constexpr const Clave& kLbACobrar = Entrada(kClavesDevice, u"frmOperacion", u"lbACobrar");
inline constexpr const Clave& kLbADevolver =
    Entrada(kClavesDevice, u"frmOperacion", u"lbADevolver");
inline constexpr const Clave& kLbAPagar = Entrada(kClavesDevice, u"frmOperacion", u"lbAPagar");
inline constexpr const Clave& kLbEntrado = Entrada(kClavesDevice, u"frmOperacion", u"lbEntrado");
inline constexpr const Clave& kLbSalido = Entrada(kClavesDevice, u"frmOperacion", u"lbSalido");
inline constexpr const Clave& kLbPagado = Entrada(kClavesDevice, u"frmOperacion", u"lbPagado");
inline constexpr const Clave& kLbFalta = Entrada(kClavesDevice, u"frmOperacion", u"lbFalta");
inline constexpr const Clave& kBtnCancelar =
    Entrada(kClavesDevice, u"frmOperacion", u"btnCancelar");
inline constexpr const Clave& kCancelando = Entrada(kClavesDevice, u"frmOperacion", u"Cancelando");
inline constexpr const Clave& kBtnTerminar =
    Entrada(kClavesDevice, u"frmOperacion", u"btnTerminar");
inline constexpr const Clave& kTerminando = Entrada(kClavesDevice, u"frmOperacion", u"Terminando");

} // namespace zv::texto
