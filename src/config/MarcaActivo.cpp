// The busy mark.
#include "config/MarcaActivo.h"

namespace zv {

void MarcaActivo::MarcarActivo(bool activo) {
    const QString clave = QStringLiteral("Zorvex\\ZVMonitor");
    const QString valor = QStringLiteral("Activo");
    if (activo) {
        registro_.GuardarValor(clave, valor, QStringLiteral("1"));
        return;
    }
    // Looked at first: this runs at every idle step, and a quiet system must not write.
    if (registro_.LeerValor(clave, valor, QStringLiteral("0")).toDouble() == 1.0) {
        registro_.GuardarValor(clave, valor, QStringLiteral("0"));
    }
}

} // namespace zv
