#include "engine/BotonesMonitor.h"

#include "till/ResultadoEnvio.h"

namespace zv {

BotonesMonitor::BotonesMonitor(Entorno& entorno, Controles& controles, EstadoMonitor& estado)
    : entorno_(entorno), controles_(controles), estado_(estado) {}

void BotonesMonitor::Registrar(BotonPie boton, std::function<void()> operacion) {
    operaciones_[boton] = std::move(operacion);
}

void BotonesMonitor::boton_Click(BotonPie boton) {
    const EstadoControles& estado = controles_.Estado();
    // A click that was under way when the pulse disabled the footer comes too late.
    if (!operaciones_[boton] || !estado.framePie || !estado.boton[boton]) {
        return;
    }
    controles_.Poner(&EstadoControles::framePie, false);
    entorno_.ResultadoEnvio = envio::kBien;
    operaciones_[boton]();
    estado_.ActualizarEstado(true);
    controles_.Poner(&EstadoControles::framePie, true);
}

} // namespace zv
