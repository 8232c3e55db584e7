// How an operation of the device ended. It is taken from the client as soon as the call is back: a
// balance that fails, or a new connection, changes what the client says of its last operation.
#pragma once

#include "device/DeviceClient.h"
#include "platform/StringLiterals.h"
#include "till/ResultadoEnvio.h"

namespace zv {

struct FinOperacion {
    bool bien = false;
    qint16 codigo = 0; // of an end that is not good; 0: cancelled
    QString mensaje;
    qint32 paidIn = 0; // minor units, as is paidOut
    qint32 paidOut = 0;

    // Right behind the call that has set bien and the amounts.
    void Tomar(const DeviceClient& cliente) {
        if (!bien) {
            codigo = cliente.ErrorCode();
            mensaje = cliente.ErrorMessage();
        }
    }
    bool EnlacePerdido() const { return !bien && codigo == envio::kEnlacePerdido; }
    // "12 - Atasco", as records and log lines have it.
    QString Detalle() const { return QString::number(codigo) + u" - "_s + mensaje; }
};

} // namespace zv
