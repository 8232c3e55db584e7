// The buttons of the cash office that work with the device: both closes, reconciling, emptying a
// box, the device's own configuration.
#pragma once

#include "cashoffice/CierreCaja.h"
#include "cashoffice/CuadreCaja.h"
#include "cashoffice/VaciadoCaja.h"

namespace zv {

class OperacionesCaja {
  public:
    explicit OperacionesCaja(Caja& caja)
        : caja_(caja), cierre_(caja), vaciado_(caja), cuadre_(caja) {}

    // Does nothing while the button is disabled or another of them runs, nor for a button that has
    // no operation here.
    void boton_Click(BotonCaja boton);

  private:
    void Ejecutar(BotonCaja boton);
    void Configurar();

    Caja& caja_;
    CierreCaja cierre_;
    VaciadoCaja vaciado_;
    CuadreCaja cuadre_;
    bool ocupado_ = false; // between the click and the end of what it has started
};

} // namespace zv
