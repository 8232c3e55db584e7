// Change out of the pieces that are really there: finds an exact mixture whenever one exists.
#pragma once

#include "simulator/Dinero.h"

#include <optional>

namespace zv::simulador {

enum class Preferencia {
    MenosPiezas,   // as few pieces as possible
    CuidarNiveles, // spares units that run low, empties those that are full
};

// Pieces out of `disponible` worth exactly `importe` minor units, the best by the preference;
// nothing when no mixture of them makes the amount.
std::optional<Mezcla> CambioExacto(qint64 importe, const Mezcla& disponible,
                                   Preferencia preferencia);

// Pieces worth the largest amount that can be made and does not exceed `importe`; no piece when
// none fits.
Mezcla CambioMasCercano(qint64 importe, const Mezcla& disponible, Preferencia preferencia);

} // namespace zv::simulador
