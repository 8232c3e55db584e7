// Words of the engine: modes, results of a send, outcomes of a record, kinds of record. All are
// plain upper-case text, compared exactly.
#pragma once

#include <QString>

namespace zv {

namespace modo {
inline const QString kAuto = QStringLiteral("AUTO");
inline const QString kManual = QStringLiteral("MANUAL");
inline const QString kSemi = QStringLiteral("SEMI");
} // namespace modo

namespace estado {
inline const QString kOk = QStringLiteral("OK");
inline const QString kError = QStringLiteral("ERROR");
inline const QString kCancel = QStringLiteral("CANCEL");
inline const QString kReenviado = QStringLiteral("REENVIADO");
} // namespace estado

// Column id1 of a record that is no sale from the queue.
namespace clase {
inline const QString kDarCambio = QStringLiteral("DAR_CAMBIO");
inline const QString kMeterCambio = QStringLiteral("METER_CAMBIO");
inline const QString kPagoCambio = QStringLiteral("PAGO_CAMBIO");
inline const QString kPago = QStringLiteral("PAGO");
inline const QString kCobroManual = QStringLiteral("COBRO_MANUAL");
inline const QString kVaciado = QStringLiteral("VACIADO");
inline const QString kVaciadoCajones = QStringLiteral("VACIADOCAJONES");
inline const QString kCashBoxControl = QStringLiteral("CASHBOXCONTROL");
inline const QString kArqueoCaja = QStringLiteral("ARQUEOCAJA");
} // namespace clase

// Results of a send.
namespace envio {
inline constexpr int kBien = 0;      // sent and filed, or nothing to do
inline constexpr int kCancelado = 1; // the row stays in cola
inline constexpr int kError = 2;     // the row stays in cola
} // namespace envio

} // namespace zv
