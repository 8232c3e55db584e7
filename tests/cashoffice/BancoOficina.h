// What every bench of the cash office stands on.
#pragma once

#include "cashoffice/Caja.h"
#include "support/BancoTill.h"

namespace zv::test {

class BancoOficina : public BancoTill {
  protected:
    bool Boton(BotonCaja boton) const { return caja.Estado().boton[boton]; }

    Caja caja{entorno};
};

} // namespace zv::test
