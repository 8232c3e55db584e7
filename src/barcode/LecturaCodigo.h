// What a scanned code says by its layout: a ticket and an amount. The scans that are charged and
// the screen on which the layout is set read it here.
#pragma once

#include "platform/Currency.h"

#include <QDateTime>
#include <QString>

namespace zv {

class Configuracio;
class Importes;
struct Clave;

// Where the fields stand in a code, positions from 1. The characters outside them say nothing.
struct LayoutCodigo {
    int largo = 0; // of the whole code; 0: codes are not read
    bool conTicket = false;
    int ticketDesde = 0;
    int ticketHasta = 0;
    int importeDesde = 0;
    int importeHasta = 0;
    int decimales = 0; // of the amount's digits

    bool operator==(const LayoutCodigo&) const = default;
};

LayoutCodigo LayoutDe(const Configuracio& cfg);

enum class ZonaCodigo { Ninguna, Ticket, Importe };
// What the character at a position is part of; of both, the amount.
ZonaCodigo ZonaDe(const LayoutCodigo& layout, int posicion);

struct LecturaCodigo {
    // Why nothing can be charged; null when it can.
    const Clave* reparo = nullptr;
    QString ticket;
    Currency importe; // minor units; 0 for one that does not fit
};

// ahora names the sale when its code holds no ticket.
LecturaCodigo LeerCodigo(const QString& codigo, const LayoutCodigo& layout,
                         const Importes& importes, const QDateTime& ahora);

} // namespace zv
