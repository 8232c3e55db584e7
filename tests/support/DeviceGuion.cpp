// The queue of the scripted DeviceClient.
#include "support/DeviceGuion.h"

#include "platform/StringLiterals.h"

#include <gtest/gtest.h>

namespace zv {

namespace {

QString Texto(const char* operacion) {
    return QString::fromLatin1(operacion) + u"()"_s;
}

QString Texto(const char* operacion, qint32 valor) {
    return QString::fromLatin1(operacion) + u"(%1)"_s.arg(valor);
}

QString Texto(const char* operacion, qint32 valor, qint32 otro) {
    return QString::fromLatin1(operacion) + u"(%1, %2)"_s.arg(valor).arg(otro);
}

} // namespace

DeviceGuion::~DeviceGuion() {
    for (const Llamada& llamada : cola_) {
        ADD_FAILURE() << "the device was never asked for " << llamada.texto.toStdString();
    }
}

void DeviceGuion::EsperaConnect(const FinGuion& fin) {
    cola_.push_back({Texto("Connect"), fin, 0, 0, 0, {}, {}});
}

void DeviceGuion::EsperaDisconnect(const FinGuion& fin) {
    cola_.push_back({Texto("Disconnect"), fin, 0, 0, 0, {}, {}});
}

void DeviceGuion::EsperaChange(qint32 paidIn, qint32 paidOut, const FinGuion& fin) {
    cola_.push_back({Texto("Change"), fin, paidIn, paidOut, 0, {}, {}});
}

void DeviceGuion::EsperaAddChange(qint32 paidIn, const FinGuion& fin) {
    cola_.push_back({Texto("AddChange"), fin, paidIn, 0, 0, {}, {}});
}

void DeviceGuion::EsperaPay(qint32 valueInCents, qint32 paidOut, const FinGuion& fin) {
    cola_.push_back({Texto("Pay", valueInCents), fin, paidOut, 0, 0, {}, {}});
}

void DeviceGuion::EsperaCharge(qint32 valueInCents, qint32 paidIn, qint32 paidOut,
                               const FinGuion& fin) {
    cola_.push_back({Texto("Charge", valueInCents), fin, paidIn, paidOut, 0, {}, {}});
}

void DeviceGuion::EsperaCashBoxControl(qint32 modo, qint32 remainingChange, qint32 coinsValueInCB,
                                       qint32 notesValueInCB, qint32 queda, const FinGuion& fin) {
    cola_.push_back({Texto("CashBoxControl", modo, remainingChange),
                     fin,
                     coinsValueInCB,
                     notesValueInCB,
                     queda,
                     {},
                     {}});
}

void DeviceGuion::EsperaConfiguration(const FinGuion& fin) {
    cola_.push_back({Texto("Configuration"), fin, 0, 0, 0, {}, {}});
}

void DeviceGuion::EsperaEmptyCB(qint32 device, qint32 value, const FinGuion& fin) {
    cola_.push_back({Texto("EmptyCB", device), fin, value, 0, 0, {}, {}});
}

void DeviceGuion::EsperaGetLevels(qint32 levelType, const QString& noms, const QString& levels,
                                  const FinGuion& fin) {
    cola_.push_back({Texto("GetLevels", levelType), fin, 0, 0, 0, noms, levels});
}

void DeviceGuion::PonerNiveles(qint32 levelType, const QString& noms, const QString& levels) {
    niveles_.insert(levelType, {noms, levels, {}});
}

void DeviceGuion::FallarNiveles(qint32 levelType, qint16 codigo, const QString& mensaje) {
    niveles_.insert(levelType, {{}, {}, FinGuion::Error(codigo, mensaje)});
}

void DeviceGuion::PonerTotal(qint32 total) {
    PonerNiveles(2, u"1"_s, QString::number(total));
    PonerNiveles(3, u"1"_s, u"0"_s);
    PonerNiveles(4, u"1"_s, u"0"_s);
}

void DeviceGuion::PonerError(qint16 codigo, const QString& mensaje) {
    errorCode_ = codigo;
    errorMessage_ = mensaje;
}

void DeviceGuion::Anotar(const QString& texto) {
    llamadas_.append(texto);
    if (alLlamar_) {
        alLlamar_(texto);
    }
}

DeviceGuion::Llamada DeviceGuion::Tomar(const QString& texto) {
    Anotar(texto);
    if (cola_.empty() || cola_.front().texto != texto) {
        ADD_FAILURE() << "the device was asked for " << texto.toStdString() << ", expected was "
                      << (cola_.empty() ? "nothing" : cola_.front().texto.toStdString());
        errorCode_ = 999;
        errorMessage_ = u"unexpected call"_s;
        return {texto, FinGuion::Error(999, errorMessage_), 0, 0, 0, {}, {}};
    }
    Llamada llamada = std::move(cola_.front());
    cola_.pop_front();
    if (llamada.fin.durante) {
        llamada.fin.durante();
    }
    // They leave the end of the last operation as it was.
    const bool callada = texto == QLatin1String("Disconnect()") ||
                         (llamada.fin.result && texto.startsWith(QLatin1String("GetLevels")));
    if (!callada) {
        errorCode_ = llamada.fin.errorCode;
        errorMessage_ = llamada.fin.errorMessage;
    }
    return llamada;
}

void DeviceGuion::Address(const QString& direccion) {
    Anotar(u"Address(%1)"_s.arg(direccion));
}

void DeviceGuion::SessionFlag(bool valor) {
    Anotar(Texto("SessionFlag", valor ? 1 : 0));
}

void DeviceGuion::Connect(bool& result) {
    result = Tomar(Texto("Connect")).fin.result;
}

void DeviceGuion::Disconnect() {
    Tomar(Texto("Disconnect"));
}

void DeviceGuion::Change(qint32& paidIn, qint32& paidOut, bool& result) {
    const Llamada llamada = Tomar(Texto("Change"));
    paidIn = llamada.salida1;
    paidOut = llamada.salida2;
    result = llamada.fin.result;
}

void DeviceGuion::AddChange(qint32& paidIn, bool& result) {
    const Llamada llamada = Tomar(Texto("AddChange"));
    paidIn = llamada.salida1;
    result = llamada.fin.result;
}

void DeviceGuion::Pay(qint32 valueInCents, qint32& paidOut, bool& result) {
    const Llamada llamada = Tomar(Texto("Pay", valueInCents));
    paidOut = llamada.salida1;
    result = llamada.fin.result;
}

void DeviceGuion::Charge(qint32 valueInCents, qint32& paidIn, qint32& paidOut, bool& result) {
    const Llamada llamada = Tomar(Texto("Charge", valueInCents));
    paidIn = llamada.salida1;
    paidOut = llamada.salida2;
    result = llamada.fin.result;
}

void DeviceGuion::CashBoxControl(qint32 mode, qint32& coinsValueInCB, qint32& notesValueInCB,
                                 qint32& remainingChange, bool& result) {
    const Llamada llamada = Tomar(Texto("CashBoxControl", mode, remainingChange));
    if (coinsValueInCB != 0 || notesValueInCB != 0) {
        ADD_FAILURE() << "the values of the boxes go in as 0";
    }
    coinsValueInCB = llamada.salida1;
    notesValueInCB = llamada.salida2;
    remainingChange = llamada.salida3;
    result = llamada.fin.result;
}

void DeviceGuion::Configuration(bool& result) {
    result = Tomar(Texto("Configuration")).fin.result;
}

void DeviceGuion::EmptyCB(qint32 device, qint32& value, bool& result) {
    const Llamada llamada = Tomar(Texto("EmptyCB", device));
    value = llamada.salida1;
    result = llamada.fin.result;
}

void DeviceGuion::GetLevels(qint32 levelType, QString& noms, QString& levels, bool& result) {
    const QString texto = Texto("GetLevels", levelType);
    const bool esperada = !cola_.empty() && cola_.front().texto == texto;
    const auto fijo = niveles_.constFind(levelType);
    if (!esperada && fijo != niveles_.constEnd()) {
        noms = fijo->noms;
        levels = fijo->levels;
        result = fijo->fin.result;
        if (!result) {
            errorCode_ = fijo->fin.errorCode;
            errorMessage_ = fijo->fin.errorMessage;
        }
        return;
    }
    const Llamada llamada = Tomar(texto);
    noms = llamada.noms;
    levels = llamada.levels;
    result = llamada.fin.result;
}

} // namespace zv
