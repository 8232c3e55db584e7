// One message of a point of sale: a sale to be queued, or a question about one.
#pragma once

#include "platform/Currency.h"

#include <QString>

namespace zv {

struct Missatge {
    qint16 IdxSocket = 0; // index in WS of the connection it came from
    QString Comanda;      // as received
    QString ID1;          // at most 50 characters, as all texts below
    Currency Importe;     // minor units
    QString ID2;
    qint32 IDcaja = 0;
    QString Terminal;
    QString Vendedor;
    QString Formapago;
    bool ImporteError = false; // the amount field could not be converted
};

} // namespace zv
