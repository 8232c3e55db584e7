// The one door to the cash recycler. Amounts are signed 32-bit minor units; denominations and
// levels are comma-separated texts with as many items in both. Operations are synchronous: Charge
// returns when the sale is finished, cancelled or failed.
//
// Results: true is success. False with ErrorCode above 0 is a device error, with ErrorCode 0 or
// below a cancellation; the amounts tell what had moved. ErrorCode 1 means the link was lost.
// ErrorCode and ErrorMessage keep their values until the next operation; GetLevels, when it
// succeeds, leaves them too, because callers read a balance before they file the error.
#pragma once

#include <QString>
#include <QtGlobal>

namespace zv {

class DeviceClient {
  public:
    virtual ~DeviceClient() = default;

    // The numbers are those of the members in the device's own interface, in its order; a number
    // that is missing is a member that nobody here calls.
    virtual qint16 ErrorCode() const = 0;                                     // 1
    virtual QString ErrorMessage() const = 0;                                 // 3
    virtual void Address(const QString& direccion) = 0;                       // 10
    virtual void Connect(bool& result) = 0;                                   // 11
    virtual void Disconnect() = 0;                                            // 12
    virtual void Change(qint32& paidIn, qint32& paidOut, bool& result) = 0;   // 13
    virtual void AddChange(qint32& paidIn, bool& result) = 0;                 // 14
    virtual void Pay(qint32 valueInCents, qint32& paidOut, bool& result) = 0; // 15
    // A negative value is a refund.
    virtual void Charge(qint32 valueInCents, qint32& paidIn, qint32& paidOut,
                        bool& result) = 0; // 16
    // mode 7: optimal levels; 15: the value in remainingChange; 0: reconciling run.
    virtual void CashBoxControl(qint32 mode, qint32& coinsValueInCB, qint32& notesValueInCB,
                                qint32& remainingChange, bool& result) = 0; // 17
    virtual void Configuration(bool& result) = 0;                           // 18
    // device 0: coin box, 1: note box.
    virtual void EmptyCB(qint32 device, qint32& value, bool& result) = 0; // 20
    // levelType 2: pieces in the recycler, 3: pieces in the boxes, 4: states "0", "1", "2".
    virtual void GetLevels(qint32 levelType, QString& noms, QString& levels,
                           bool& result) = 0; // 21
    virtual void SessionFlag(bool valor) = 0; // 26
    // Decimal places of the currency.
    virtual quint8 Decimals() const = 0; // 27
    // Minor units in one main unit.
    virtual quint8 Multiplier() const = 0; // 28
};

} // namespace zv
