// A DeviceClient that hands every call on and keeps what the device has answered to those of the
// cash office: its books are worked out from these a second time.
#pragma once

#include "device/DeviceClient.h"

#include <QStringList>

#include <vector>

namespace zv::test {

struct Contestacion {
    enum class Que { Niveles, Cajones, Vaciado, Desconexion };
    Que que = Que::Niveles;
    qint32 cual = 0; // type of levels, mode, box
    bool bien = false;
    qint16 codigo = 0; // of an operation
    // Levels: value of coins and notes. Otherwise what has gone into the boxes, or out of one.
    qint64 monedas = 0;
    qint64 billetes = 0;
};

class ClienteEspia final : public DeviceClient {
  public:
    explicit ClienteEspia(DeviceClient& cliente) : cliente_(cliente) {}

    std::vector<Contestacion> contestaciones;

    qint16 ErrorCode() const override { return cliente_.ErrorCode(); }
    QString ErrorMessage() const override { return cliente_.ErrorMessage(); }
    void Address(const QString& direccion) override { cliente_.Address(direccion); }
    void Connect(bool& result) override { cliente_.Connect(result); }
    void Disconnect() override {
        cliente_.Disconnect();
        contestaciones.push_back({Contestacion::Que::Desconexion});
    }
    void Change(qint32& paidIn, qint32& paidOut, bool& result) override {
        cliente_.Change(paidIn, paidOut, result);
    }
    void AddChange(qint32& paidIn, bool& result) override { cliente_.AddChange(paidIn, result); }
    void Pay(qint32 valueInCents, qint32& paidOut, bool& result) override {
        cliente_.Pay(valueInCents, paidOut, result);
    }
    void Charge(qint32 valueInCents, qint32& paidIn, qint32& paidOut, bool& result) override {
        cliente_.Charge(valueInCents, paidIn, paidOut, result);
    }
    void CashBoxControl(qint32 mode, qint32& coinsValueInCB, qint32& notesValueInCB,
                        qint32& remainingChange, bool& result) override {
        cliente_.CashBoxControl(mode, coinsValueInCB, notesValueInCB, remainingChange, result);
        contestaciones.push_back({Contestacion::Que::Cajones, mode, result, cliente_.ErrorCode(),
                                  coinsValueInCB, notesValueInCB});
    }
    void Configuration(bool& result) override { cliente_.Configuration(result); }
    void EmptyCB(qint32 device, qint32& value, bool& result) override {
        cliente_.EmptyCB(device, value, result);
        contestaciones.push_back(
            {Contestacion::Que::Vaciado, device, result, cliente_.ErrorCode(), value, 0});
    }
    void GetLevels(qint32 levelType, QString& noms, QString& levels, bool& result) override {
        cliente_.GetLevels(levelType, noms, levels, result);
        Contestacion c{Contestacion::Que::Niveles, levelType, result};
        const QStringList valores = noms.split(u',');
        const QStringList piezas = levels.split(u',');
        for (qsizetype i = 0; result && i < piezas.size(); ++i) {
            const qint64 valor = valores.at(i).toLongLong();
            (valor > 200 ? c.billetes : c.monedas) += valor * piezas.at(i).toLongLong();
        }
        contestaciones.push_back(c);
    }
    void SessionFlag(bool valor) override { cliente_.SessionFlag(valor); }
    quint8 Decimals() const override { return cliente_.Decimals(); }
    quint8 Multiplier() const override { return cliente_.Multiplier(); }

  private:
    DeviceClient& cliente_;
};

} // namespace zv::test
