// One message of a point of sale: a sale to be queued, or a question about one.
#pragma once

#include "platform/Currency.h"

#include <QString>

namespace zv {

// Characters of each of its texts but Comanda, as cola holds them: a longer one is refused there.
inline constexpr qsizetype kTextoMissatge = 50;

struct Missatge {
    qint16 IdxSocket = 0; // index in WS of the connection it came from
    QString Comanda;      // as received
    QString ID1;          // at most kTextoMissatge characters, as all texts below
    Currency Importe;     // minor units
    QString ID2;
    qint32 IDcaja = 0;
    QString Terminal;
    QString Vendedor;
    QString Formapago;
    bool ImporteError = false; // the amount field could not be converted
};

} // namespace zv
