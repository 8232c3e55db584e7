// Owns a till and the engine on it. Their objects are put together here and nowhere else.
#pragma once

#include "engine/PartesMonitor.h"
#include "till/TillGraph.h"

namespace zv {

class EngineGraph {
  public:
    explicit EngineGraph(const TillServices& servicios);

    const PartesMonitor& Partes() const { return partes_; }

  private:
    TillGraph till_;
    Controles controles_;
    GridCola grid_;
    EstadoMonitor estado_;
    PulsoCola pulso_;
    CobrosAgrupados agrupados_;
    BotonesMonitor botones_;
    ClicGrid clic_;
    PartesMonitor partes_;
};

} // namespace zv
