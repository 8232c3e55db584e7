// What the main screen says: counters, state line, buttons, lamps, modes and paging. It works on
// the logical controls and on the grid's contents.
#pragma once

#include "engine/Controles.h"
#include "engine/GridCola.h"
#include "till/Entorno.h"

#include <optional>

namespace zv {

class EstadoMonitor final : public VistaConexion {
  public:
    EstadoMonitor(Entorno& entorno, Controles& controles, GridCola& grid);

    // Refills grdZV from cola. A failure is shown, not raised.
    void RellenarGrid();
    // Counter, state line, page buttons, mode buttons. automatico: a mode forced to "MANUAL" may
    // return to "AUTO" when the settings file says so.
    void ActualizarEstado(bool automatico);
    void ActualizarBotonesMonitor(bool habilitado) override;
    // Other settings are in force: columns of the grid and buttons.
    void SeguirConfiguracion();
    // btnModo(i).
    void PulsarModo(int indice);

    // Previous mode := mode, then the new mode.
    void CambiarModo(const QString& nuevo);

    void PaginaArriba();
    void PaginaAbajo();
    // Keys Up and Down.
    void FilaArriba();
    void FilaAbajo();
    // The page buttons alone: the size of a page has changed.
    void ActualizarPaginas();

    // Data rows of the grid.
    int FilasGrid() const { return grid_.FilasDatos(); }
    // Rows at the last look at cola, kept by the pulse.
    qint32 UltimaCuenta() const { return ultimaCuenta_; }
    void PonerUltimaCuenta(qint32 cuenta) { ultimaCuenta_ = cuenta; }

    void HabilitarConectar(bool habilitado) override;
    void MostrarEspera(bool espera) override;
    void MostrarLamparas(bool ok, bool alerta, bool critico) override;
    bool Agrupando() const override { return agrupando_; }
    void PonerAgrupando(bool agrupando);
    // Rows are being marked: the operations' buttons are off, but for the one that ends it. Ends
    // before Agrupando does, with the press of that button.
    bool Marcando() const { return marcando_; }
    void DejarDeMarcar() { marcando_ = false; }
    // The line that tells how many rows are marked; without a sum when there is none to tell.
    void PonerMarcas(int cuantas, const std::optional<Currency>& suma);
    // The pulse stays stopped, with footer and grid disabled, until something arms it.
    bool Parada() const { return parada_; }
    void PonerParada(bool parada) {
        if (parada_ != parada) {
            parada_ = parada;
            ActualizarAviso();
        }
    }

  private:
    LineaAviso::Tono TonoAviso() const;
    // The line above the footer, and what the columns "Anular" and "Enviar" can do.
    void ActualizarAviso();
    void ActualizarContador();
    void ActualizarTexto(bool automatico);
    void ContarError();
    void Desplazar(int filas);

    Entorno& entorno_;
    Controles& controles_;
    GridCola& grid_;
    qint32 ultimaCuenta_ = 0;
    bool agrupando_ = false;
    bool marcando_ = false;
    bool parada_ = false;
    bool contandoError_ = false; // its box is up
};

} // namespace zv
