#include "config/MarcaActivo.h"

#include "platform/RegistryNames.h"

namespace zv {

// The mark speaks to programs that run now; a wait for the disk would stand between a sale and its
// charge.
void MarcaActivo::MarcarActivo(bool activo) {
    using registry_name::kActivo;
    if (activo) {
        registry_.GuardarValor(kActivo, u"1"_s, Guardado::Pasajero);
        return;
    }
    // Looked at first: a quiet system must not write.
    if (registry_.LeerValor(kActivo, u"0"_s).toDouble() == 1.0) {
        registry_.GuardarValor(kActivo, u"0"_s, Guardado::Pasajero);
    }
}

} // namespace zv
