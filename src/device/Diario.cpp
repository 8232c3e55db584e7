// Wording of the device journal.
#include "device/Diario.h"

namespace zv {

void Diario::Escribir(const QString& prefijo, const QString& etiqueta, const QString& resultado,
                      const QString& campos) {
    QString linea = prefijo;
    if (!etiqueta.isEmpty()) {
        linea += etiqueta + u'_';
    }
    log_.LogLinea(linea + resultado + campos);
}

void Diario::Connect(const QString& etiqueta, const QString& resultado) {
    Escribir(QStringLiteral("ZVCONNECT_"), etiqueta, resultado, {});
}

void Diario::Charge(const QString& etiqueta, const QString& resultado, qint32 valueInCents,
                    qint32 paidIn, qint32 paidOut) {
    Escribir(QStringLiteral("ZVCHARGE_"), etiqueta, resultado,
             QStringLiteral(": VALUEINCENTS=%1 PAIDINVALUE=%2 PAIDOUTVALUE=%3")
                 .arg(valueInCents)
                 .arg(paidIn)
                 .arg(paidOut));
}

void Diario::GetLevels(const QString& etiqueta, const QString& resultado, qint32 levelType,
                       const QString& noms, const QString& levels) {
    // One replacement for all texts: a list from the device is never read as a place marker.
    Escribir(QStringLiteral("ZVGETLEVELS_"), etiqueta, resultado,
             QStringLiteral(": LEVELTYPE=%1 NOMS=%2 LEVELS=%3")
                 .arg(QString::number(levelType), noms, levels));
}

void Diario::Change(const QString& etiqueta, const QString& resultado, qint32 paidIn,
                    qint32 paidOut) {
    Escribir(QStringLiteral("ZVCHANGE_"), etiqueta, resultado,
             QStringLiteral(": PAIDINVALUE=%1 PAIDOUTVALUE=%2").arg(paidIn).arg(paidOut));
}

void Diario::AddChange(const QString& etiqueta, const QString& resultado, qint32 paidIn) {
    Escribir(QStringLiteral("ZVADDCHANGE_"), etiqueta, resultado,
             QStringLiteral(": PAIDINVALUE=%1").arg(paidIn));
}

void Diario::Pay(const QString& etiqueta, const QString& resultado, qint32 valueInCents,
                 qint32 paidOut) {
    Escribir(QStringLiteral("ZVPAY_"), etiqueta, resultado,
             QStringLiteral(": VALUEINCENTS=%1 PAIDOUTVALUE=%2").arg(valueInCents).arg(paidOut));
}

void Diario::CashBoxControl(const QString& etiqueta, const QString& resultado, qint32 /*modo*/,
                            qint32 coinsValueInCB, qint32 notesValueInCB, qint32 remainingChange) {
    Escribir(QStringLiteral("ZVCASHBOXCONTROL_"), etiqueta, resultado,
             QStringLiteral(": COINSVALUEINCB=%1 NOTESVALUEINCB=%2 REMAININGCHANGE=%3")
                 .arg(coinsValueInCB)
                 .arg(notesValueInCB)
                 .arg(remainingChange));
}

void Diario::EmptyCB(const QString& etiqueta, const QString& resultado, qint32 device,
                     qint32 value) {
    Escribir(QStringLiteral("ZVEMPTYCB_"), etiqueta, resultado,
             QStringLiteral(": DEVICE=%1 VALUE=%2").arg(device).arg(value));
}

} // namespace zv
