// Entry and exit of every footer button.
#include "engine/BotonesMonitor.h"

#include "till/ResultadoEnvio.h"

namespace zv {

BotonesMonitor::BotonesMonitor(Entorno& entorno, Controles& controles, EstadoMonitor& estado)
    : entorno_(entorno), controles_(controles), estado_(estado) {}

void BotonesMonitor::Registrar(std::size_t indice, std::function<void()> operacion) {
    operaciones_[indice] = std::move(operacion);
}

void BotonesMonitor::boton_Click(std::size_t indice) {
    const EstadoControles& estado = controles_.Estado();
    // A click that was under way when the pulse disabled the footer comes too late.
    if (!operaciones_[indice] || !estado.framePie || !estado.boton[indice]) {
        return;
    }
    controles_.Poner(&EstadoControles::framePie, false);
    entorno_.ResultadoEnvio = envio::kBien;
    operaciones_[indice]();
    estado_.ActualizarEstado(true);
    controles_.Poner(&EstadoControles::framePie, true);
}

} // namespace zv
