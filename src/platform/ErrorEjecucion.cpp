// Run-time failures of the platform, with their numbers and texts.
#include "platform/ErrorEjecucion.h"

namespace zv {

ErrorEjecucion::ErrorEjecucion(int numero, QString descripcion)
    : numero_(numero), descripcion_(std::move(descripcion)),
      what_((QString::number(numero) + QStringLiteral(" - ") + descripcion_).toUtf8()) {}

namespace errores {

ErrorEjecucion Desbordamiento() {
    return {6, QStringLiteral("Desbordamiento")};
}

ErrorEjecucion FueraDeIntervalo() {
    return {9, QStringLiteral("El subíndice está fuera del intervalo")};
}

ErrorEjecucion DivisionPorCero() {
    return {11, QStringLiteral("División por cero")};
}

ErrorEjecucion TipoNoCoincide() {
    return {13, QStringLiteral("No coinciden los tipos")};
}

ErrorEjecucion ErrorDeArchivo(const QString& ruta, const QString& detalle) {
    return {75, QStringLiteral("Error de acceso a la ruta o al archivo: ") + ruta +
                    QStringLiteral(" (") + detalle + QStringLiteral(")")};
}

} // namespace errores
} // namespace zv
