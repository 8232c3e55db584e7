#include "app/Servicios.h"

namespace zv {

namespace {

FormatoRegional FormatoDe(const Opciones& opciones) {
    return opciones.region.isEmpty() ? FormatoRegional::DelSistema()
                                     : FormatoRegional(opciones.region);
}

} // namespace

Servicios::Servicios(Opciones lasOpciones, const Clock& elReloj)
    : opciones(std::move(lasOpciones)), reloj(elReloj),
      log(opciones.carpeta, opciones.programa, VersionPrograma(), elReloj),
      textos(opciones.carpeta), registry(opciones.registro), importes(FormatoDe(opciones), [this] {
          // No amount is shown rather than a wrong one.
          return dispositivo_ != nullptr ? dispositivo_->Multiplier() : quint8{0};
      }) {}

} // namespace zv
