// boton_Click: the one handler of the footer's buttons. What each of them does is registered; a
// button without an operation stays disabled on the screen.
#pragma once

#include "engine/BotonPie.h"
#include "engine/Controles.h"
#include "engine/EstadoMonitor.h"
#include "till/Entorno.h"

#include <functional>

namespace zv {

class BotonesMonitor {
  public:
    BotonesMonitor(Entorno& entorno, Controles& controles, EstadoMonitor& estado);

    void Registrar(BotonPie boton, std::function<void()> operacion);
    bool TieneOperacion(BotonPie boton) const { return static_cast<bool>(operaciones_[boton]); }
    // Does nothing while the footer or the button is disabled.
    void boton_Click(BotonPie boton);

  private:
    Entorno& entorno_;
    Controles& controles_;
    EstadoMonitor& estado_;
    PorBotonPie<std::function<void()>> operaciones_;
};

} // namespace zv
