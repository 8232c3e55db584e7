#include "platform/Conversions.h"

#include "platform/ErrorEjecucion.h"

#include <cmath>
#include <limits>

namespace zv {
namespace {

template <typename Entero>
Entero Convertir(const QString& texto, const FormatoRegional& formato) {
    // The default rounding mode of nearbyint is halves to even.
    const double valor = std::nearbyint(ADoble(texto, formato));
    if (valor < std::numeric_limits<Entero>::min() || valor > std::numeric_limits<Entero>::max()) {
        throw errores::Desbordamiento();
    }
    return static_cast<Entero>(valor);
}

} // namespace

double ADoble(const QString& texto, const FormatoRegional& formato) {
    const auto numero = formato.LeerNumero(texto);
    if (!numero) {
        throw errores::TipoNoCoincide();
    }
    return *numero;
}

quint8 AByte(const QString& texto, const FormatoRegional& formato) {
    return Convertir<quint8>(texto, formato);
}

qint16 AEntero16(const QString& texto, const FormatoRegional& formato) {
    return Convertir<qint16>(texto, formato);
}

qint32 AEntero32(const QString& texto, const FormatoRegional& formato) {
    return Convertir<qint32>(texto, formato);
}

} // namespace zv
