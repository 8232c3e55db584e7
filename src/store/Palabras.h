// The words of a record of procesados: plain upper-case text, compared exactly.
#pragma once

#include "platform/StringLiterals.h"

namespace zv {

// Column estado.
namespace estado {
inline const QString kOk = u"OK"_s;
inline const QString kError = u"ERROR"_s;
inline const QString kCancel = u"CANCEL"_s;
inline const QString kReenviado = u"REENVIADO"_s;
// Told of a sale that has no record, never stored.
inline const QString kPendiente = u"PENDING"_s;
inline const QString kDesconocida = u"NOT FOUND"_s;
} // namespace estado

// Column id1 of a record that is no sale from the queue.
namespace tipo {
inline const QString kDarCambio = u"DAR_CAMBIO"_s;
inline const QString kMeterCambio = u"METER_CAMBIO"_s;
inline const QString kPagoCambio = u"PAGO_CAMBIO"_s;
inline const QString kPago = u"PAGO"_s;
inline const QString kCobroManual = u"COBRO_MANUAL"_s;
inline const QString kVaciado = u"VACIADO"_s;
inline const QString kVaciadoCajones = u"VACIADOCAJONES"_s;
inline const QString kCashBoxControl = u"CASHBOXCONTROL"_s;
inline const QString kArqueoCaja = u"ARQUEOCAJA"_s;
} // namespace tipo

} // namespace zv
