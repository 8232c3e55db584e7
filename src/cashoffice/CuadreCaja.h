// The reconciling run: the device tells what has been taken out of its boxes, its total is compared
// with what it ought to be, a difference can be filed, and a total that has changed ends the
// period.
#pragma once

#include "cashoffice/FinPeriodo.h"
#include "device/DeviceJournal.h"

namespace zv {

class CuadreCaja {
  public:
    explicit CuadreCaja(Caja& caja)
        : caja_(caja), entorno_(caja.ElEntorno()), fin_(caja), diario_(caja.ElEntorno().log) {}

    // A failure of the database goes up and leaves everything as it stands.
    void Cuadrar();

  private:
    // What the device says that its boxes have lost, minor units.
    qint32 Preguntar();
    // The difference between the totals, with what has been taken out of the boxes taken into
    // account; filed when the operator wants to.
    void ApuntarDescuadre(Currency antes, Currency despues, qint32 retirado);
    // Closes the period by itself.
    void CerrarPeriodo(const CuatroSaldos& antes, qint32 retirado);

    Caja& caja_;
    Entorno& entorno_;
    FinPeriodo fin_;
    DeviceJournal diario_;
};

} // namespace zv
