#include "device/DeviceJournal.h"

#include "platform/StringLiterals.h"

namespace zv {

void DeviceJournal::Escribir(const QString& prefijo, const QString& etiqueta,
                             const QString& resultado, const QString& campos) {
    QString linea = prefijo;
    if (!etiqueta.isEmpty()) {
        linea += etiqueta + u'_';
    }
    log_.LogLinea(linea + resultado + campos);
}

void DeviceJournal::Connect(const QString& etiqueta, const QString& resultado) {
    Escribir(u"ZVCONNECT_"_s, etiqueta, resultado, {});
}

void DeviceJournal::Charge(const QString& etiqueta, const QString& resultado, qint32 valueInCents,
                           qint32 paidIn, qint32 paidOut) {
    Escribir(u"ZVCHARGE_"_s, etiqueta, resultado,
             u": VALUEINCENTS=%1 PAIDINVALUE=%2 PAIDOUTVALUE=%3"_s.arg(valueInCents)
                 .arg(paidIn)
                 .arg(paidOut));
}

void DeviceJournal::GetLevels(const QString& etiqueta, const QString& resultado, qint32 levelType,
                              const QString& noms, const QString& levels) {
    // One replacement for all texts: a list from the device is never read as a place marker.
    Escribir(u"ZVGETLEVELS_"_s, etiqueta, resultado,
             u": LEVELTYPE=%1 NOMS=%2 LEVELS=%3"_s.arg(QString::number(levelType), noms, levels));
}

void DeviceJournal::Change(const QString& etiqueta, const QString& resultado, qint32 paidIn,
                           qint32 paidOut) {
    Escribir(u"ZVCHANGE_"_s, etiqueta, resultado,
             u": PAIDINVALUE=%1 PAIDOUTVALUE=%2"_s.arg(paidIn).arg(paidOut));
}

void DeviceJournal::AddChange(const QString& etiqueta, const QString& resultado, qint32 paidIn) {
    Escribir(u"ZVADDCHANGE_"_s, etiqueta, resultado, u": PAIDINVALUE=%1"_s.arg(paidIn));
}

void DeviceJournal::Pay(const QString& etiqueta, const QString& resultado, qint32 valueInCents,
                        qint32 paidOut) {
    Escribir(u"ZVPAY_"_s, etiqueta, resultado,
             u": VALUEINCENTS=%1 PAIDOUTVALUE=%2"_s.arg(valueInCents).arg(paidOut));
}

void DeviceJournal::CashBoxControl(const QString& etiqueta, const QString& resultado,
                                   qint32 /*modo*/, qint32 coinsValueInCB, qint32 notesValueInCB,
                                   qint32 remainingChange) {
    Escribir(u"ZVCASHBOXCONTROL_"_s, etiqueta, resultado,
             u": COINSVALUEINCB=%1 NOTESVALUEINCB=%2 REMAININGCHANGE=%3"_s.arg(coinsValueInCB)
                 .arg(notesValueInCB)
                 .arg(remainingChange));
}

void DeviceJournal::EmptyCB(const QString& etiqueta, const QString& resultado, qint32 device,
                            qint32 value) {
    Escribir(u"ZVEMPTYCB_"_s, etiqueta, resultado,
             u": DEVICE=%1 VALUE=%2"_s.arg(device).arg(value));
}

} // namespace zv
