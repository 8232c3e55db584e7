// The names of tables and columns, each once. They are an interface: the point of sale and the
// connector know them too.
#pragma once

#include "platform/StringLiterals.h"

namespace zv {

namespace tabla {
// As statements have them; the database compares names without case.
inline const QString kUsuarios = u"Usuarios"_s;
inline const QString kAccesos = u"Accesos"_s;
inline const QString kCola = u"cola"_s;
inline const QString kProcesados = u"procesados"_s;
inline const QString kCierres = u"Cierres"_s;
inline const QString kHistorial = u"historial"_s;
} // namespace tabla

namespace columna {
// Usuarios
inline const QString kIdUser = u"idUser"_s;
inline const QString kNombre = u"nombre"_s;
inline const QString kPassword = u"password"_s;
inline const QString kRol = u"rol"_s;
// Accesos
inline const QString kIdAcceso = u"idAcceso"_s;
inline const QString kUsuario = u"usuario"_s; // of procesados too
inline const QString kLugar = u"lugar"_s;
// several tables
inline const QString kFecha = u"fecha"_s;
inline const QString kSaldoZV = u"saldoZV"_s;
inline const QString kIdCierre = u"idCierre"_s;
// cola and procesados
inline const QString kIdZV = u"idZV"_s;
inline const QString kId1 = u"id1"_s;
inline const QString kId2 = u"id2"_s;
inline const QString kIdCaja = u"idcaja"_s;
inline const QString kTerminal = u"terminal"_s;
inline const QString kVendedor = u"vendedor"_s;
inline const QString kFormaPago = u"formapago"_s;
// cola
inline const QString kImporte = u"importe"_s;
inline const QString kCreditoError = u"creditoError"_s;
inline const QString kManual = u"manual"_s;
// procesados
inline const QString kFechaZV = u"fechaZV"_s;
inline const QString kFechaVenta = u"fechaVenta"_s;
inline const QString kImporteVenta = u"importeVenta"_s;
inline const QString kCobrado = u"cobrado"_s;
inline const QString kDevuelto = u"devuelto"_s;
inline const QString kEstado = u"estado"_s;
inline const QString kError = u"error"_s;
inline const QString kIdCola = u"idcola"_s;
// cierres
inline const QString kSaldoInicial = u"saldoInicial"_s;
inline const QString kCobros = u"cobros"_s;
inline const QString kAbonos = u"abonos"_s;
inline const QString kIngresos = u"ingresos"_s;
inline const QString kPagos = u"pagos"_s;
inline const QString kImporteCierre = u"importeCierre"_s;
inline const QString kCambioBilletes = u"cambioBilletes"_s;
inline const QString kCambioMonedas = u"cambioMonedas"_s;
inline const QString kCajonBilletes = u"cajonBilletes"_s;
inline const QString kCajonMonedas = u"cajonMonedas"_s;
// historial
inline const QString kIdHis = u"idHis"_s;
inline const QString kId = u"id"_s;
} // namespace columna

} // namespace zv
