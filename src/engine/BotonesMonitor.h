// boton_Click: the one handler of the footer's buttons, and what each of them does.
#pragma once

#include "engine/BotonPie.h"
#include "engine/CobrosAgrupados.h"
#include "engine/Controles.h"
#include "engine/EstadoMonitor.h"
#include "engine/OperacionesManuales.h"
#include "engine/PulsoCola.h"
#include "till/Entorno.h"
#include "till/Pantallas.h"

#include <functional>
#include <optional>

namespace zv {

class BotonesMonitor {
  public:
    // How an operation leaves the handler.
    enum class Salida {
        Completa,     // counters and state line are brought up to date, the footer comes back
        SoloArrancar, // ArrancaTimer alone, which brings the footer back too
    };
    using Operacion = std::function<Salida()>;

    BotonesMonitor(Entorno& entorno, Controles& controles, EstadoMonitor& estado, PulsoCola& pulso,
                   CobrosAgrupados& agrupados);

    // What opens the fast link anew when its port or its switch has changed. A failure of it is
    // that of the button which leads to the settings.
    void PonerAbrirFast(std::function<void()> abrirFast) { abrirFast_ = std::move(abrirFast); }

    // False where the button would do nothing: it stays disabled on the screen.
    bool TieneOperacion(BotonPie boton) const;
    // Does nothing while the footer or the button is disabled.
    void boton_Click(BotonPie boton);
    // Entry and exit of the handler around an operation.
    void Envolver(const Operacion& operacion);
    // The manual charge of the floating button, which stands above other programs and can be
    // touched at any time: it does nothing while an operation runs or a dialog of one is up.
    void cobroManual(const QString& concepto);

  private:
    struct Boton {
        Operacion operacion;
        std::optional<Pantalla> pantalla; // that the operation opens
    };
    // lugar empty: nobody is asked.
    Boton Puerta(Pantalla pantalla, qint16 nivel = 0, const QString& lugar = {});
    void AbrirPuerta(Pantalla pantalla, qint16 nivel, const QString& lugar);
    void AbrirConfiguracion();
    // The four operations of the device, by their buttons.
    void PonerManuales();

    Entorno& entorno_;
    Controles& controles_;
    EstadoMonitor& estado_;
    PulsoCola& pulso_;
    OperacionesManuales manuales_;
    std::function<void()> abrirFast_;
    bool ocupado_ = false; // between the entry of the handler and its exit
    PorBotonPie<Boton> botones_;
};

} // namespace zv
