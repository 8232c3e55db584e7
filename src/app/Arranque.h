// Start-up and shutdown of the monitor, step by step in a fixed order.
#pragma once

#include "app/Conector.h"
#include "engine/PartesMonitor.h"
#include "engine/VentanaPrincipal.h"
#include "fastlink/ServidorFast.h"
#include "platform/SingleInstance.h"
#include "ui/LogFiles.h"

#include <functional>

namespace zv {

class Arranque {
  public:
    // inicializarDades makes the service that both other ways in wait for.
    Arranque(const PartesMonitor& partes, Conector& conector, SingleInstance& instancia,
             LogFiles& ficherosLog, ServidorFast& fast, std::function<void()> inicializarDades);

    // Load of the main screen. False: the program is to end at once, without any saving.
    bool Cargar(VentanaPrincipal& ventana);
    // Unload: after it the process ends.
    void Descargar();

  private:
    bool CargarProtegido(VentanaPrincipal& ventana);
    bool LeerConfiguracion();
    Respuesta Mensaje(const Clave& titulo, const Clave& texto);

    Entorno& entorno_;
    EstadoMonitor& estado_;
    PulsoCola& pulso_;
    Conector& conector_;
    SingleInstance& instancia_;
    LogFiles& ficherosLog_;
    ServidorFast& fast_;
    std::function<void()> inicializarDades_;
};

} // namespace zv
