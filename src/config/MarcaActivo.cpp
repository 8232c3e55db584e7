// The busy mark.
#include "config/MarcaActivo.h"

#include "platform/StringLiterals.h"

namespace zv {

// The mark speaks to programs that run now; a wait for the disk would stand between a sale and its
// charge.
void MarcaActivo::MarcarActivo(bool activo) {
    // Its last part is the application's title, whatever the program's file is called.
    const QString clave = u"Zorvex\\ZVMonitor"_s;
    const QString valor = u"Activo"_s;
    if (activo) {
        registro_.GuardarValor(clave, valor, u"1"_s, Guardado::Pasajero);
        return;
    }
    // Looked at first: a quiet system must not write.
    if (registro_.LeerValor(clave, valor, u"0"_s).toDouble() == 1.0) {
        registro_.GuardarValor(clave, valor, u"0"_s, Guardado::Pasajero);
    }
}

} // namespace zv
