// The end of a cash period, whichever button brings it: the balances around it, the movement of
// what has left the recycler, the row of the close with the number that every open record gets, the
// balance that the next period starts from.
#pragma once

#include "cashoffice/Caja.h"

namespace zv {

// What the device holds, part by part, minor units.
struct CuatroSaldos {
    Currency cambioMonedas; // in the recycler, as cambioBilletes
    Currency cambioBilletes;
    Currency cajonMonedas;
    Currency cajonBilletes;

    Currency Monedas() const { return cambioMonedas + cajonMonedas; }
    Currency Billetes() const { return cambioBilletes + cajonBilletes; }
    Currency Suma() const { return Monedas() + Billetes(); }
};

class FinPeriodo {
  public:
    explicit FinPeriodo(Caja& caja) : caja_(caja), entorno_(caja.ElEntorno()) {}

    // Before the device is asked to work.
    CuatroSaldos LeerAntes();
    // After it has worked; the screen's balances become these, but for what it holds in all.
    CuatroSaldos LeerDespues();

    // The movement of what has left the recycler, minor units: durable on its own before the close
    // begins. Its failures stand in the log and stop nothing.
    void ArchivarArqueo(qint32 importe, const CuatroSaldos& despues);
    // The row of the close and the number of every open record, in one transaction, and the time of
    // the close in the settings. nombre: of the close in the log. Any failure is raised and leaves
    // everything as it stands, a transaction and the busy mark too: TransactionOwner settles it.
    void Cerrar(QLatin1StringView nombre, const CuatroSaldos& antes, const CuatroSaldos& despues);
    // The next period starts from all that the device holds.
    void RenovarSaldoInicial();

  private:
    Currency Saldo(QLatin1StringView etiqueta, TipoSaldo tipo);
    qint32 AñadirFila(RecordSet& filas, const QDateTime& fecha, const CuatroSaldos& antes,
                      const CuatroSaldos& despues);

    Caja& caja_;
    Entorno& entorno_;
};

// What has passed from the recycler to the boxes, minor units. Raises 6 beyond 32 bits.
qint32 SumaCajones(qint32 monedas, qint32 billetes);

} // namespace zv
