// The monitor's busy mark in the registry, for the connector's benefit.
#pragma once

#include "platform/RegistryTree.h"

namespace zv {

class MarcaActivo {
  public:
    explicit MarcaActivo(RegistryTree& registry) : registry_(registry) {}

    // True writes "1" at once; false writes "0" only if "1" stands there.
    void MarcarActivo(bool activo);

  private:
    RegistryTree& registry_;
};

} // namespace zv
