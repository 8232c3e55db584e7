// Start-up and shutdown of the monitor, step by step in a fixed order.
#pragma once

#include "app/Conector.h"
#include "engine/EstadoMonitor.h"
#include "engine/PulsoCola.h"
#include "engine/VentanaPrincipal.h"
#include "platform/SingleInstance.h"
#include "till/Entorno.h"
#include "ui/LogFiles.h"

#include <functional>

namespace zv {

// What other folders do in the middle of the start; a step that nobody has taken is passed over.
struct PasosArranque {
    std::function<void()> abrirConfiguracion; // settings screen, modal
    std::function<void()> abrirFast;
    std::function<void()> inicializarDades;
    std::function<void()> mostrarBotonAcceso;
};

class Arranque {
  public:
    // crearCatalogo: an engine of its own for the schema.
    Arranque(Entorno& entorno, EstadoMonitor& estado, PulsoCola& pulso, Conector& conector,
             SingleInstance& instancia, LogFiles& ficherosLog, QString carpeta,
             std::function<std::unique_ptr<DatabaseEngine>()> crearCatalogo);

    void PonerPasos(PasosArranque pasos) { pasos_ = std::move(pasos); }

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
    QString carpeta_;
    std::function<std::unique_ptr<DatabaseEngine>()> crearCatalogo_;
    PasosArranque pasos_;
};

} // namespace zv
