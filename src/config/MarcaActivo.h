// The monitor's busy mark in the registry, for the connector's benefit.
#pragma once

#include "platform/Registro.h"

namespace zv {

class MarcaActivo {
  public:
    explicit MarcaActivo(Registro& registro) : registro_(registro) {}

    // True writes "1" at once; false writes "0" only if "1" stands there.
    void MarcarActivo(bool activo);

  private:
    Registro& registro_;
};

} // namespace zv
