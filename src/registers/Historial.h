// The closes of the past, a line for each, and the movements that the chosen one has taken in with
// a running balance. No widget: the screen follows both grids.
#pragma once

#include "platform/Impresora.h"
#include "till/ConceptoRegistro.h"
#include "till/Entorno.h"
#include "ui/Rejilla.h"

#include <functional>

namespace zv {

// The columns of grdCierres.
struct ColumnaCierres {
    enum : int {
        IdCierre, // never seen
        Fecha,
        Inicial,
        Cobros,
        Abonos,
        Ingresos,
        Pagos,
        Saldo,
        Cierre,
        CambioBilletes,
        CambioMonedas,
        Cajon, // the two behind it together
        CajonBilletes,
        CajonMonedas,
        Cuantas
    };
};

// The columns of grdHis.
struct ColumnaHis {
    enum : int { Fecha, Concepto, Terminal, Vendedor, Venta, SaldoZV, Cuantas };
};

class Historial {
  public:
    Historial(Entorno& entorno, Impresora& impresora);
    Historial(const Historial&) = delete;
    Historial& operator=(const Historial&) = delete;

    Entorno& ElEntorno() { return entorno_; }
    Rejilla& grdCierres() { return grdCierres_; }
    Rejilla& grdHis() { return grdHis_; }

    // The screen comes up: titles, the closes, oldest first, the last one chosen. Failures of the
    // database go up, here and below.
    void AlMostrar();
    // That row of grdCierres is chosen, unless it is already, and shown; its movements follow.
    // Nothing happens while the drawing of the grid is off, nor for a row that is not there.
    void Elegir(int fila);
    // The movements of a chosen close cost a pass over procesados. With someone to ask they are
    // asked for, and read by Completar, so that several choices in a row cost one; otherwise they
    // are read at once.
    void PorTurnos(std::function<void()> pedir) { pedirTurno_ = std::move(pedir); }
    void Completar();
    // The chosen row comes into view.
    void MostrarElegido();

    // Widths in twips for a grid of that width and a scroll bar of that width. The closes need more
    // than a small window has: they are to be moved sideways there.
    void AjustarCierres(int anchoGrid, int anchoBarra);
    void AjustarMovimientos(int anchoGrid, int anchoBarra);

    bool PuedeImprimir() const { return entorno_.configuracio->SINIMPRESORA != 1; }
    bool HayCierres() const { return grdCierres_.FilasDatos() > 0; }
    bool HayMovimientos() const { return grdHis_.FilasDatos() > 0; }
    // The buttons.
    void Imprimir();
    void Limpiar();
    void ExportarCierres();
    void ExportarMovimientos();

    // The screen is painted, in the middle of a long reading.
    void AlPintar(std::function<void()> pintor) { pintor_ = std::move(pintor); }

  private:
    void Rellenar();
    void RellenarCierres();
    void RellenarMovimientos(qint32 idCierre, Currency inicial);
    void PonerCierre(const Row& fila);
    void PonerMovimiento(const Row& fila, const TextosConcepto& conceptos, Currency& saldo);
    void PedirMovimientos();
    Currency InicialDe(int fila) const;
    void Exportar(const Rejilla& grid, const QString& nombre);
    void Pintar() const {
        if (pintor_) {
            pintor_();
        }
    }

    Entorno& entorno_;
    Impresora& impresora_;
    Rejilla grdCierres_;
    Rejilla grdHis_;
    // Of the movements shown.
    QDateTime primera_;
    QDateTime ultima_;
    bool pendiente_ = false; // the movements are those of a close chosen before
    std::function<void()> pedirTurno_;
    std::function<void()> pintor_;
};

} // namespace zv
