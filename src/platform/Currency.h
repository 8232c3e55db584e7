// Fixed-point money: a signed 64-bit count of ten-thousandths. Amounts of the system are whole
// minor units of the device, so the four decimals are normally zero. Every conversion that leaves
// the range raises ErrorEjecucion 6; nothing wraps.
#pragma once

#include <QString>
#include <QtGlobal>

#include <compare>

namespace zv {

class Currency {
  public:
    static constexpr qint64 kEscala = 10000;

    constexpr Currency() = default;
    // A small whole amount; 32 bits always fit.
    constexpr Currency(qint32 entero)
        : valor_(entero * kEscala) {} // NOLINT(google-explicit-constructor)

    static constexpr Currency DeDiezmilesimas(qint64 valor) {
        Currency c;
        c.valor_ = valor;
        return c;
    }
    // Whole amount of up to 64 bits. Raises 6 beyond the range of the type.
    static Currency DeEntero(qint64 entero);
    // Rounds to four decimals, halves to even. Raises 6 beyond the range and for no number.
    static Currency DeDoble(double valor);

    constexpr qint64 Diezmilesimas() const { return valor_; }
    // Rounds halves to even. Raises 6 beyond 32 bits.
    qint32 AEntero32() const;
    double ADoble() const;
    // Plain decimal text with a point and no trailing zeros: "1250", "-0.5".
    QString ATexto() const;

    constexpr bool EsCero() const { return valor_ == 0; }
    // AEntero32 would give 0.
    constexpr bool SeRedondeaACero() const {
        return valor_ >= -kEscala / 2 && valor_ <= kEscala / 2;
    }
    constexpr auto operator<=>(const Currency&) const = default; // NOLINT(modernize-use-nullptr)

    // Raise 6 on overflow.
    Currency operator+(Currency otro) const;
    Currency operator-(Currency otro) const;
    Currency operator-() const;
    Currency& operator+=(Currency otro) { return *this = *this + otro; }
    Currency Absoluto() const { return valor_ < 0 ? -*this : *this; }

  private:
    qint64 valor_ = 0;
};

} // namespace zv
