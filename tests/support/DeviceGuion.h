// The scripted DeviceClient of the tests: a queue of expected calls with their answers. A call that
// is not the next expected one fails the test, and so does an answer that nobody has asked for.
// It stands in for the device's rules too: ErrorCode and ErrorMessage keep their values until the
// next operation, and reading levels with success leaves them as they are.
#pragma once

#include "device/DeviceClient.h"
#include "platform/StringLiterals.h"

#include <QMap>
#include <QStringList>

#include <deque>
#include <functional>

namespace zv {

// How an expected call ends.
struct FinGuion {
    bool result = true;
    qint16 errorCode = 0;
    QString errorMessage;
    // Runs inside the call, before the answer; may throw, as a call that raises would.
    std::function<void()> durante;

    static FinGuion Ok() { return {}; }
    static FinGuion Error(qint16 codigo, const QString& mensaje) {
        return {false, codigo, mensaje, {}};
    }
    static FinGuion Cancelado() { return {false, 0, {}, {}}; }
    static FinGuion EnlacePerdido() { return {false, 1, u"Enlace perdido"_s, {}}; }
    FinGuion Durante(std::function<void()> accion) const {
        FinGuion copia = *this;
        copia.durante = std::move(accion);
        return copia;
    }
};

class DeviceGuion final : public DeviceClient {
  public:
    DeviceGuion() = default;
    ~DeviceGuion() override;
    DeviceGuion(const DeviceGuion&) = delete;
    DeviceGuion& operator=(const DeviceGuion&) = delete;

    // Expected calls, in the order in which they must come. Amounts in minor units.
    void EsperaConnect(const FinGuion& fin = {});
    void EsperaDisconnect(const FinGuion& fin = {});
    void EsperaChange(qint32 paidIn, qint32 paidOut, const FinGuion& fin = {});
    void EsperaAddChange(qint32 paidIn, const FinGuion& fin = {});
    void EsperaPay(qint32 valueInCents, qint32 paidOut, const FinGuion& fin = {});
    void EsperaCharge(qint32 valueInCents, qint32 paidIn, qint32 paidOut, const FinGuion& fin = {});
    // remainingChange: what the caller hands in; queda: what it gets back.
    void EsperaCashBoxControl(qint32 modo, qint32 remainingChange, qint32 coinsValueInCB,
                              qint32 notesValueInCB, qint32 queda, const FinGuion& fin = {});
    void EsperaConfiguration(const FinGuion& fin = {});
    void EsperaEmptyCB(qint32 device, qint32 value, const FinGuion& fin = {});
    void EsperaGetLevels(qint32 levelType, const QString& noms, const QString& levels,
                         const FinGuion& fin = {});

    // Levels that stand: GetLevels of that type is answered from here, any number of times, and
    // takes nothing from the queue. A failure stands until the levels are set again.
    void PonerNiveles(qint32 levelType, const QString& noms, const QString& levels);
    void FallarNiveles(qint32 levelType, qint16 codigo, const QString& mensaje);
    // Standing levels that make `total` minor units: pieces of 1 in the recycler, nothing in the
    // boxes, every state normal.
    void PonerTotal(qint32 total);

    void PonerError(qint16 codigo, const QString& mensaje);
    void PonerMultiplier(quint8 multiplier) { multiplier_ = multiplier; }
    void PonerDecimals(quint8 decimals) { decimals_ = decimals; }

    // What has been called, such as "Charge(1000)", with "SessionFlag(1)" and "Address(x)", but
    // without standing GetLevels.
    const QStringList& Llamadas() const { return llamadas_; }
    // Told of every line of Llamadas as it comes, to see it among log lines and dialogs.
    void AlLlamar(std::function<void(const QString&)> aviso) { alLlamar_ = std::move(aviso); }
    bool Agotado() const { return cola_.empty(); }
    // Forgets what still waits, for a test that stops half way.
    void Olvida() { cola_.clear(); }

    qint16 ErrorCode() const override { return errorCode_; }
    QString ErrorMessage() const override { return errorMessage_; }
    void Address(const QString& direccion) override;
    void Connect(bool& result) override;
    void Disconnect() override;
    void Change(qint32& paidIn, qint32& paidOut, bool& result) override;
    void AddChange(qint32& paidIn, bool& result) override;
    void Pay(qint32 valueInCents, qint32& paidOut, bool& result) override;
    void Charge(qint32 valueInCents, qint32& paidIn, qint32& paidOut, bool& result) override;
    void CashBoxControl(qint32 mode, qint32& coinsValueInCB, qint32& notesValueInCB,
                        qint32& remainingChange, bool& result) override;
    void Configuration(bool& result) override;
    void EmptyCB(qint32 device, qint32& value, bool& result) override;
    void GetLevels(qint32 levelType, QString& noms, QString& levels, bool& result) override;
    void SessionFlag(bool valor) override;
    quint8 Decimals() const override { return decimals_; }
    quint8 Multiplier() const override { return multiplier_; }

  private:
    struct Llamada {
        QString texto; // operation and what it is given, as Llamadas() shows it
        FinGuion fin;
        qint32 salida1 = 0;
        qint32 salida2 = 0;
        qint32 salida3 = 0;
        QString noms;
        QString levels;
    };
    struct Niveles {
        QString noms;
        QString levels;
        FinGuion fin;
    };

    void Anotar(const QString& texto);
    // Takes the next answer; on a call that is not expected the test fails and an error comes back.
    Llamada Tomar(const QString& texto);

    std::deque<Llamada> cola_;
    QMap<qint32, Niveles> niveles_;
    QStringList llamadas_;
    std::function<void(const QString&)> alLlamar_;
    qint16 errorCode_ = 0;
    QString errorMessage_;
    quint8 decimals_ = 2;
    quint8 multiplier_ = 100;
};

} // namespace zv
