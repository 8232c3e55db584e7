// A monitor without other screens than its main one, for measurements and tests: nobody can be
// asked who they are, so that nobody passes a guarded place.
#pragma once

#include "till/Pantallas.h"

namespace zv {

class PantallasCerradas final : public Pantallas {
  public:
    bool Existe(Pantalla) const override { return false; }
    void Abrir(Pantalla) override {}
    void AbrirBalanza(Configuracio&) override {}
    bool ValidarUsuari(qint16, const QString&) override { return false; }
};

} // namespace zv
