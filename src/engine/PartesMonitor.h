// What the main screen and whoever drives the engine without it stand on.
#pragma once

#include "engine/BotonesMonitor.h"
#include "engine/ClicGrid.h"
#include "engine/Controles.h"
#include "engine/EstadoMonitor.h"
#include "engine/GridCola.h"
#include "engine/PulsoCola.h"
#include "till/Entorno.h"

namespace zv {

struct PartesMonitor {
    Entorno& entorno;
    Controles& controles;
    GridCola& grid;
    EstadoMonitor& estado;
    PulsoCola& pulso;
    BotonesMonitor& botones;
    ClicGrid& clic;
};

} // namespace zv
