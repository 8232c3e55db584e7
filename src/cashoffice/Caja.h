// The period since the last close, and what the device holds now: totals, balances, the grid of the
// movements, and the logical state of the controls that show them. No widget: the screen follows.
// Closing, emptying and reconciling work on it and end with its refresh.
#pragma once

#include "cashoffice/BotonCaja.h"
#include "platform/Currency.h"
#include "till/ConceptoRegistro.h"
#include "till/Entorno.h"
#include "ui/Rejilla.h"
#include "ui/RellenoRejilla.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace zv {

// The columns of grdZV.
struct ColumnaCaja {
    enum : int { Fecha, Concepto, Vendedor, Terminal, Venta, SaldoZV, Cuantas };
};

// Totals of the movements that no close has taken yet, minor units.
struct TotalesPeriodo {
    Currency cobros;
    Currency abonos; // a positive sum, as is pagos
    Currency pagos;
    Currency ingresos;
    Currency quebranto; // always 0
    Currency saldoFinal;
    int movimientos = 0;
    bool operator==(const TotalesPeriodo&) const = default;
};

// What the device holds, minor units. The boxes are those of the collection.
struct SaldosCaja {
    Currency cambioMonedas; // in the recycler, as cambioBilletes
    Currency cambioBilletes;
    Currency cajonMonedas;
    Currency cajonBilletes;
    Currency contenido; // all of it, as of the last refresh
    bool operator==(const SaldosCaja&) const = default;
};

// Logical state of the screen's controls: right at once for every test of it.
struct EstadoCaja {
    QString lbCobros;
    QString lbAbonos;
    QString lbPagos;
    QString lbIngresos;
    QString lbSaldoFinal;
    QString lbSaldoCierre; // written by a close alone
    QString lbContenido;
    QString lbCambioMonedas;
    QString lbCambioBilletes;
    QString lbCBMonedas;
    QString lbCBBilletes;
    QString lbQuebranto;
    bool quebrantoVisible = true; // lbQuebranto and lblQuebranto; until the first refresh
    bool punteroEspera = false;
    PorBotonCaja<bool> boton = [] {
        PorBotonCaja<bool> habilitado;
        for (const BotonCaja cada : kBotonesCaja) {
            habilitado[cada] =
                cada != BotonCaja::VaciarMonedas && cada != BotonCaja::VaciarBilletes;
        }
        return habilitado;
    }();
    std::optional<BotonCaja> foco; // the button that has been given the focus
    int movimientos = 0;           // of the period
    int rellenados = 0;            // of them, those that the grid shows by now
    NivelesDispositivo niveles;    // what the balances are made of; none without a device
    bool operator==(const EstadoCaja&) const = default;
};

class Caja {
  public:
    explicit Caja(Entorno& entorno);
    Caja(const Caja&) = delete;
    Caja& operator=(const Caja&) = delete;

    Entorno& ElEntorno() { return entorno_; }
    const EstadoCaja& Estado() const { return estado_; }
    Rejilla& grdZV() { return grdZV_; }
    const Rejilla& grdZV() const { return grdZV_; }

    // The screen comes up: the refresh, and what printing and export depend on.
    void AlMostrar();
    // The period from procesados and the balances from the device. A failure of the database, an
    // amount beyond its type and a Saldo_Inicial that is no number go up.
    void RefrescarCaja();
    // The balances, and every label but lbSaldoCierre.
    void RellenarSaldos();
    // The grid of a long period fills in steps, so that the screen is never kept waiting: after the
    // first rows the refresh asks for the next step, which SeguirRellenando takes and answers
    // whether there is another. Totals and labels stand at once. Without someone to ask, the
    // refresh fills the whole grid.
    void PorPasos(std::function<void()> pedir) { relleno_.PorPasos(std::move(pedir)); }
    bool SeguirRellenando() { return relleno_.Seguir(); }
    // The rows that are still to come, at once: for who prints or exports them.
    void Completar() { relleno_.Completar(); }
    // Titles and alignments; the grid is empty after it.
    void PrepararRejilla();
    // Widths in twips for a grid of that width and a scroll bar of that width.
    void AjustarColumnas(int anchoGrid, int anchoBarra);
    void ActualizarBotones(bool habilitar);
    // The history of closes. The row of a close that has failed must not stand in it: what that has
    // left open is ended first.
    void AbrirHistorial();
    // Ends the session with the device; resultado becomes 0.
    void Desconnectar(qint16& resultado);
    void GuardarSaldoExit() { entorno_.supervision.GuardarSaldoExit(); }

    // A caption, with what hangs on its change: the buttons that empty a box, the line
    // "Quebranto". Nothing happens when the text is the same.
    void PonerEtiqueta(QString EstadoCaja::*etiqueta, const QString& texto);
    void PonerImporte(QString EstadoCaja::*etiqueta, Currency importe) {
        PonerEtiqueta(etiqueta, entorno_.importes.FormatoImporte(importe));
    }
    void PonerBoton(BotonCaja boton, bool habilitado);
    void PonerEspera(bool espera);
    void Enfocar(BotonCaja boton);

    // Called at each change of the state; the screen only notes that it has to follow.
    void AlCambiar(std::function<void()> aviso) { aviso_ = std::move(aviso); }
    // The screen follows at once and is painted, before something that lets no event loop run.
    void Pintar() const {
        if (pintor_) {
            pintor_();
        }
    }
    void AlPintar(std::function<void()> pintor) { pintor_ = std::move(pintor); }

    TotalesPeriodo totales;
    SaldosCaja saldos;

  private:
    // What a row of the grid still waits to be made of.
    struct Movimiento {
        QDateTime fecha;
        std::size_t regla; // of its concept
        QString detalle;
        QString estado; // empty for "OK"
        QString terminal;
        QString vendedor;
        qint32 venta; // minor units, as is saldo
        qint32 saldo; // running, after it
    };
    struct Campos;

    void LeerPeriodo();
    void LeerMovimiento(const Row& fila, const Campos& campos);
    void PonerFila(const Movimiento& movimiento);
    void LeerSaldosDispositivo();
    void EscribirEtiquetas();
    void Avisar() const {
        if (aviso_) {
            aviso_();
        }
    }

    Entorno& entorno_;
    EstadoCaja estado_;
    Rejilla grdZV_;
    std::vector<Movimiento> movimientos_; // the period; empty when all of them are in the grid
    std::optional<TextosConcepto> conceptos_;
    RellenoRejilla relleno_;
    std::function<void()> aviso_;
    std::function<void()> pintor_;
};

} // namespace zv
