// What the device holds: the recycler's units and the two boxes, and where a piece goes.
#pragma once

#include "simulator/Dinero.h"

#include <QJsonObject>

#include <optional>

namespace zv::simulador {

enum class Destino { Reciclador, Cajon, Rechazada };
enum class Cajon { Monedas = 0, Billetes = 1 };

// Pieces that fit into each box.
struct CapacidadCajones {
    int monedas = 5000;
    int billetes = 2000;
};

struct Inventario {
    Mezcla reciclador{};
    Mezcla cajon{};

    // The float of a new device: 20 of each coin, 10 notes each of 500, 1000 and 2000.
    static Inventario Inicial();

    qint64 Saldo() const { return Total(reciclador) + Total(cajon); }

    // Where the next piece of a denomination goes: the recycler up to the target of its unit (up to
    // its capacity when it is float), else the box; refused when that is full too.
    Destino DestinoDe(std::size_t indice, bool esCambio, const CapacidadCajones& capacidad) const;

    // Moves pieces of the recycler to the boxes, as many of `piezas` as fit. Answers what moved.
    Mezcla PasarACajon(const Mezcla& piezas, const CapacidadCajones& capacidad);

    // Pieces above the optimal levels.
    Mezcla SobreOptimo() const;

    // 0 normal, 1 alert, 2 critical: a unit that runs low, or a box that runs full.
    int EstadoDe(std::size_t indice, const CapacidadCajones& capacidad) const;

    // Takes everything out of a box; answers its value.
    qint64 Vaciar(Cajon cual);

    QJsonObject AJson() const;
    static std::optional<Inventario> DeJson(const QJsonObject& objeto);
};

} // namespace zv::simulador
