#include "platform/Currency.h"

#include "platform/ErrorEjecucion.h"

#include <cmath>
#include <limits>

namespace zv {

Currency Currency::DeEntero(qint64 entero) {
    qint64 valor = 0;
    if (__builtin_mul_overflow(entero, kEscala, &valor)) {
        throw errores::Desbordamiento();
    }
    return DeDiezmilesimas(valor);
}

Currency Currency::DeDoble(double valor) {
    // The default rounding mode of nearbyint is halves to even.
    const double escalado = std::nearbyint(valor * static_cast<double>(kEscala));
    constexpr double kLimite = 9223372036854775808.0; // 2^63
    if (!(escalado >= -kLimite && escalado < kLimite)) {
        throw errores::Desbordamiento();
    }
    return DeDiezmilesimas(static_cast<qint64>(escalado));
}

qint32 Currency::AEntero32() const {
    qint64 entero = valor_ / kEscala;
    const qint64 resto = valor_ % kEscala;
    const qint64 mitad = kEscala / 2;
    const qint64 distancia = resto < 0 ? -resto : resto;
    if (distancia > mitad || (distancia == mitad && entero % 2 != 0)) {
        entero += valor_ < 0 ? -1 : 1;
    }
    if (entero < std::numeric_limits<qint32>::min() ||
        entero > std::numeric_limits<qint32>::max()) {
        throw errores::Desbordamiento();
    }
    return static_cast<qint32>(entero);
}

double Currency::ADoble() const {
    constexpr qint64 kExactos = qint64{1} << std::numeric_limits<double>::digits;
    if (valor_ >= -kExactos && valor_ <= kExactos) {
        return static_cast<double>(valor_) / static_cast<double>(kEscala);
    }
    // Taken as a whole, such a value would be rounded before the division too.
    const qint64 entero = valor_ / kEscala;
    const qint64 resto = valor_ % kEscala;
    return static_cast<double>(entero) + static_cast<double>(resto) / static_cast<double>(kEscala);
}

QString Currency::ATexto() const {
    const bool negativo = valor_ < 0;
    const quint64 magnitud =
        negativo ? 0 - static_cast<quint64>(valor_) : static_cast<quint64>(valor_);
    QString texto = QString::number(magnitud / kEscala);
    quint64 resto = magnitud % kEscala;
    if (resto != 0) {
        QString decimales = QString::number(resto).rightJustified(4, QLatin1Char('0'));
        while (decimales.endsWith(QLatin1Char('0'))) {
            decimales.chop(1);
        }
        texto += QLatin1Char('.') + decimales;
    }
    return negativo ? QLatin1Char('-') + texto : texto;
}

Currency Currency::operator+(Currency otro) const {
    qint64 suma = 0;
    if (__builtin_add_overflow(valor_, otro.valor_, &suma)) {
        throw errores::Desbordamiento();
    }
    return DeDiezmilesimas(suma);
}

Currency Currency::operator-(Currency otro) const {
    qint64 resta = 0;
    if (__builtin_sub_overflow(valor_, otro.valor_, &resta)) {
        throw errores::Desbordamiento();
    }
    return DeDiezmilesimas(resta);
}

Currency Currency::operator-() const {
    return Currency() - *this;
}

} // namespace zv
