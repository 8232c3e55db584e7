// boton_Click: the one handler of the footer's buttons. What each of them does is registered by
// index; a button without an operation stays disabled on the screen.
#pragma once

#include "engine/Controles.h"
#include "engine/EstadoMonitor.h"
#include "till/Entorno.h"

#include <array>
#include <functional>

namespace zv {

class BotonesMonitor {
  public:
    static constexpr std::size_t kBotones = 13;

    BotonesMonitor(Entorno& entorno, Controles& controles, EstadoMonitor& estado);

    void Registrar(std::size_t indice, std::function<void()> operacion);
    bool TieneOperacion(std::size_t indice) const {
        return static_cast<bool>(operaciones_[indice]);
    }
    // Does nothing while the footer or the button is disabled.
    void boton_Click(std::size_t indice);

  private:
    Entorno& entorno_;
    Controles& controles_;
    EstadoMonitor& estado_;
    std::array<std::function<void()>, kBotones> operaciones_;
};

} // namespace zv
