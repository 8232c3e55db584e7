// The device journal: one line of the daily log for each device operation, after its return.
#pragma once

#include "ui/Log.h"

namespace zv {

class DeviceJournal {
  public:
    explicit DeviceJournal(Log& log) : log_(log) {}

    // etiqueta: the caller's tag, may be empty; resultado: "OK", "CANCEL", "ERROR_5", ...
    void Connect(const QString& etiqueta, const QString& resultado);
    void Charge(const QString& etiqueta, const QString& resultado, qint32 valueInCents,
                qint32 paidIn, qint32 paidOut);
    void GetLevels(const QString& etiqueta, const QString& resultado, qint32 levelType,
                   const QString& noms, const QString& levels);
    void Change(const QString& etiqueta, const QString& resultado, qint32 paidIn, qint32 paidOut);
    void AddChange(const QString& etiqueta, const QString& resultado, qint32 paidIn);
    void Pay(const QString& etiqueta, const QString& resultado, qint32 valueInCents,
             qint32 paidOut);
    void CashBoxControl(const QString& etiqueta, const QString& resultado, qint32 modo,
                        qint32 coinsValueInCB, qint32 notesValueInCB, qint32 remainingChange);
    void EmptyCB(const QString& etiqueta, const QString& resultado, qint32 device, qint32 value);

  private:
    void Escribir(const QString& prefijo, const QString& etiqueta, const QString& resultado,
                  const QString& campos);

    Log& log_;
};

} // namespace zv
