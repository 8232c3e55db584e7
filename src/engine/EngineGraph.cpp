#include "engine/EngineGraph.h"

namespace zv {

EngineGraph::EngineGraph(const TillServices& servicios)
    : till_(servicios), grid_(servicios.textos, servicios.importes),
      estado_(till_.Entorno(), controles_, grid_),
      pulso_(till_.Entorno(), controles_, grid_, estado_),
      agrupados_(till_.Entorno(), controles_, grid_, estado_, pulso_),
      botones_(till_.Entorno(), controles_, estado_, pulso_, agrupados_),
      clic_(till_.Entorno(), controles_, grid_, estado_, pulso_, agrupados_),
      partes_{till_.Entorno(), controles_, grid_, estado_, pulso_, botones_, clic_} {
    till_.Entorno().supervision.PonerVista(&estado_);
}

} // namespace zv
