// What each order does with the link, and how it ends.
#pragma once

#include "zvpos/Enlace.h"
#include "zvpos/Mensajes.h"
#include "zvpos/Opciones.h"

namespace zv::zvpos {

class Tiempo {
  public:
    virtual ~Tiempo() = default;
    virtual qint64 AhoraMs() = 0; // never goes back
    virtual void Dormir(qint64 ms) = 0;
};

class TiempoReal final : public Tiempo {
  public:
    qint64 AhoraMs() override;
    void Dormir(qint64 ms) override;
};

// Does what the options say. `Esperar` asks again while the sale is pending; a connection lost on
// the way is made anew, one that is not there at the first question is an error at once.
Veredicto Ejecutar(const Opciones& opciones, Enlace& enlace, Tiempo& tiempo);

} // namespace zv::zvpos
