// The busy mark.
#include "config/MarcaActivo.h"

namespace zv {

// The mark speaks to programs that run now; a wait for the disk would stand between a sale and its
// charge.
void MarcaActivo::MarcarActivo(bool activo) {
    // Its last part is the application's title, whatever the program's file is called.
    const QString clave = QStringLiteral("Zorvex\\ZVMonitor");
    const QString valor = QStringLiteral("Activo");
    if (activo) {
        registro_.GuardarValor(clave, valor, QStringLiteral("1"), Guardado::Pasajero);
        return;
    }
    // Looked at first: a quiet system must not write.
    if (registro_.LeerValor(clave, valor, QStringLiteral("0")).toDouble() == 1.0) {
        registro_.GuardarValor(clave, valor, QStringLiteral("0"), Guardado::Pasajero);
    }
}

} // namespace zv
