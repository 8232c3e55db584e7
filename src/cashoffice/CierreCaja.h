// The close of a cash period from the device's side: it brings its recycler to a target, what it
// moved out is filed, and the period ends (FinPeriodo).
#pragma once

#include "cashoffice/FinPeriodo.h"
#include "device/DeviceJournal.h"

namespace zv {

// What tells the two closes apart.
struct VarianteCierre {
    QLatin1StringView nombre; // in the log
    qint32 modo = 0;          // of CashBoxControl
    bool pideImporte = false; // that is to stay in the recycler; otherwise a yes is asked for
};

inline constexpr VarianteCierre kCierreNiveles{QLatin1StringView("INICIALES"), 7, false};
inline constexpr VarianteCierre kCierreValor{QLatin1StringView("PORVALOR"), 15, true};

class CierreCaja {
  public:
    explicit CierreCaja(Caja& caja)
        : caja_(caja), entorno_(caja.ElEntorno()), fin_(caja), diario_(caja.ElEntorno().log) {}

    // From the question on. A failure after the question is told and ends the close: nothing is
    // undone, neither a transaction nor the busy mark, and nothing is shown anew. TransactionOwner
    // ends the transaction: at the next armed tick, or before the cash office does anything more.
    void Cerrar(const VarianteCierre& variante);

  private:
    // The value for the device, or nothing when the operator has given it up.
    std::optional<qint32> Preguntar(const VarianteCierre& variante);
    void Ejecutar(const VarianteCierre& variante, qint32 remainingChange);
    void AvisarRechazo(qint16 codigo);
    void MostrarResultado(const CuatroSaldos& antes, const CuatroSaldos& despues);
    void Terminar();

    Caja& caja_;
    Entorno& entorno_;
    FinPeriodo fin_;
    DeviceJournal diario_;
};

} // namespace zv
