#include "app/Monitor.h"

#include "barcode/Espera.h"

namespace zv {

namespace {

QHostAddress DireccionFast(const Opciones& opciones) {
    return opciones.fastDireccion.isEmpty() ? QHostAddress(QHostAddress::Any)
                                            : QHostAddress(opciones.fastDireccion);
}

TillServices ServiciosTill(Servicios& servicios, const Exterior& exterior) {
    servicios.PonerDispositivo(exterior.cliente);
    return {servicios.opciones.carpeta, exterior.cliente, servicios.registry, servicios.log,
            exterior.dialogos,          servicios.textos, servicios.importes, servicios.reloj,
            exterior.pantallas};
}

} // namespace

Monitor::Monitor(Servicios& servicios, const Exterior& exterior)
    : engine_(ServiciosTill(servicios, exterior)),
      fast_(Partes().entorno.configuracio, servicios.importes.Formato(), servicios.log, BombaDe(),
            DireccionFast(servicios.opciones)),
      barras_(
          Partes().entorno.configuracio, [this] { return dades_.get(); }, servicios.importes,
          servicios.reloj, exterior.dialogos, servicios.textos, Espera,
          [this] { Partes().pulso.SaldarAbandonadas(); }),
      instancia_(servicios.opciones.carpeta),
      conector_(Partes().entorno.configuracio, exterior.procesos, exterior.shell, exterior.dialogos,
                servicios.textos),
      arranque_(Partes(), conector_, instancia_, servicios.log, fast_, [this] {
          dades_ = std::make_unique<dades>(Partes().entorno.Database(), Partes().entorno.reloj);
          dades_->Inicialitza();
      }) {
    Partes().botones.PonerAbrirFast([this] { fast_.AbrirFast(); });
}

FastPump Monitor::BombaDe() {
    FastPump bomba;
    bomba.datos = [this] { return dades_.get(); };
    bomba.preparar = [this] { Partes().pulso.SaldarAbandonadas(); };
    bomba.esperar = [this] { return Partes().entorno.transacciones.HayNivelAbierto(); };
    return bomba;
}

void Monitor::PonerVentana(VentanaPrincipal& ventana) {
    ventana_ = &ventana;
    Partes().pulso.PonerVentana(&ventana);
}

void Monitor::Detener() {
    Partes().pulso.ParaTimer();
    // What the failure has left open would hold the lock for as long as nobody answers the box.
    Partes().entorno.transacciones.Saldar();
    Partes().entorno.marca.MarcarActivo(false);
}

} // namespace zv
