// One whole monitor without its windows: the engine on its till, the two other ways in, start and
// end. Two of them can live side by side.
#pragma once

#include "app/Arranque.h"
#include "app/Conector.h"
#include "app/Servicios.h"
#include "barcode/CobroCodigoBarras.h"
#include "engine/EngineGraph.h"
#include "fastlink/ServidorFast.h"
#include "platform/SingleInstance.h"
#include "store/dades.h"

namespace zv {

// What reaches outside the process: replaced in tests.
struct Exterior {
    DeviceClient& cliente;
    Dialogos& dialogos;
    ProcessList& procesos;
    Shell& shell;
    Pantallas& pantallas;
};

class Monitor {
  public:
    // The amounts of servicios are counted in the units of this monitor's device from here on.
    Monitor(Servicios& servicios, const Exterior& exterior);
    Monitor(const Monitor&) = delete;
    Monitor& operator=(const Monitor&) = delete;

    // The main window, which must outlive the last tick.
    void PonerVentana(VentanaPrincipal& ventana);
    // Start-up; false when the program is to end at once.
    bool Cargar() { return arranque_.Cargar(*ventana_); }
    // Unload: after it the process ends.
    void Descargar() { arranque_.Descargar(); }
    // For a program that is about to end: stops the pulse, so that no send starts any more, and
    // clears the busy mark, or the connector would wait for ever.
    void Detener();

    const PartesMonitor& Partes() const { return engine_.Partes(); }
    ServidorFast& Fast() { return fast_; }
    CobroCodigoBarras& Barras() { return barras_; }
    zv::Conector& Conector() { return conector_; }

  private:
    FastPump BombaDe();

    EngineGraph engine_;
    std::unique_ptr<dades> dades_; // made by the start, once the database is open
    ServidorFast fast_;
    CobroCodigoBarras barras_;
    SingleInstance instancia_;
    zv::Conector conector_;
    Arranque arranque_;
    VentanaPrincipal* ventana_ = nullptr;
};

} // namespace zv
