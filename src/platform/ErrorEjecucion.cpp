#include "platform/ErrorEjecucion.h"

#include "platform/StringLiterals.h"

namespace zv {

ErrorEjecucion::ErrorEjecucion(int numero, QString descripcion)
    : numero_(numero), descripcion_(std::move(descripcion)),
      what_((QString::number(numero) + u" - "_s + descripcion_).toUtf8()) {}

namespace errores {

ErrorEjecucion Desbordamiento() {
    return {6, u"Desbordamiento"_s};
}

ErrorEjecucion FueraDeIntervalo() {
    return {9, u"El subíndice está fuera del intervalo"_s};
}

ErrorEjecucion DivisionPorCero() {
    return {11, u"División por cero"_s};
}

ErrorEjecucion TipoNoCoincide() {
    return {13, u"No coinciden los tipos"_s};
}

ErrorEjecucion ErrorDeArchivo(const QString& ruta, const QString& detalle) {
    return {75, u"Error de acceso a la ruta o al archivo: "_s + ruta + u" ("_s + detalle + u")"_s};
}

ErrorEjecucion ErrorDeImpresora(const QString& detalle) {
    return {482, u"Error de impresora ("_s + detalle + u")"_s};
}

} // namespace errores
} // namespace zv
