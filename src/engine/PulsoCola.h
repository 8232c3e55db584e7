// The engine's pulse: watches cola, keeps the grid up to date, decides by the mode whether the
// oldest row may go to the device, and does nothing while the connector has the device.
#pragma once

#include "engine/Controles.h"
#include "engine/Envio.h"
#include "engine/EstadoMonitor.h"
#include "engine/GridCola.h"
#include "engine/VentanaPrincipal.h"
#include "platform/WatchedValue.h"
#include "till/Entorno.h"

#include <optional>

namespace zv {

class PulsoCola {
  public:
    PulsoCola(Entorno& entorno, Controles& controles, GridCola& grid, EstadoMonitor& estado);

    // The main window; it must be set before the pulse is armed.
    void PonerVentana(VentanaPrincipal* ventana) { ventana_ = ventana; }

    // The bracket of every operation that uses the device. While rows are being marked the pulse
    // itself stays stopped.
    void ParaTimer();
    void ArrancaTimer();
    // At the end of an operation after which the pulse stays stopped: until something arms it the
    // screen tells so.
    void DejarParado();
    // Ends the transaction that a failed operation has left open, unless an operation runs now.
    void SaldarAbandonadas();
    // No operation is under way: the pulse is armed, or it stands stopped and the operator's turn
    // has come.
    bool NadieTrabaja() const;
    bool Armado() const { return controles_.Estado().timerCola; }

    // One tick of timerCola. Raises what no routine inside it is told to catch.
    void ProcesarCola();
    // True when cola differs from the last look.
    bool DetectarCambiosCola();
    // True unless the device was not connected.
    bool EnviarConReconexion(qint32 idZV);
    // Brings a minimised window up.
    void RestaurarVentana();

  private:
    bool ConectorActivo();
    void ReflejarCambios();
    bool PuedeEnviar() const;
    void EnviarPrimera();
    // mostrado: the amount as the operator is to read it.
    bool ConfirmarAbono(const QString& mostrado);
    void FallarSinEnviar(const ErrorEjecucion& e);
    // The amount of a refund as the operator is to read it, or what stands in the table if it is no
    // amount; nothing for a charge.
    std::optional<QString> AbonoDe(const Row& fila) const;
    void EnviarYRefrescar(qint32 idZV);

    Entorno& entorno_;
    Controles& controles_;
    GridCola& grid_;
    EstadoMonitor& estado_;
    Envio envio_;
    WatchedValue conectorActivo_;
    VentanaPrincipal* ventana_ = nullptr;

    // What a look at cola finds; without a sum when the amounts are too large for one.
    struct Mirada {
        bool sinFila = true;
        std::optional<qint64> id;
        qint32 cuenta = 0;
        std::optional<Currency> suma;
        bool sumaIlegible = false;
    };
    Mirada MirarCola();

    // Last look at cola.
    qint64 ultimoId_ = 0;
    Currency ultimaSuma_;

    // Marks of the database at the last look and at the last search that found no row to send:
    // while they stand, neither needs to be repeated, however many rows wait.
    std::optional<quint64> marcaMirada_;
    std::optional<quint64> marcaSinFila_;
    std::optional<qint64> ultimoAvisoConector_; // ticks of the last line, milliseconds
};

} // namespace zv
