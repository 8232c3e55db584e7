// The scripted customer: what he does next in front of the device.
#pragma once

#include "simulator/Operacion.h"

#include <optional>

namespace zv::simulador {

enum class Guion {
    Exacto,   // pays with the pieces that make the amount
    Redondeo, // pays with notes, rounding up
    Manual,   // nobody, or the window
};

std::optional<Guion> GuionDeNombre(const QString& nombre);

struct Gesto {
    enum class Tipo { Nada, Pieza, Terminar };
    Tipo tipo = Tipo::Nada;
    qint32 valor = 0;
};

// The next gesture for a running operation, `piezas` pieces after its start.
Gesto Siguiente(Guion guion, const Operacion& op, int piezas);

} // namespace zv::simulador
