// Amounts for the screen: minor units divided by the device's multiplier, in the region's
// currency format.
#pragma once

#include "platform/FormatoRegional.h"

#include <functional>

namespace zv {

class Importes {
  public:
    // multiplicador: minor units in one main unit, asked of the device for every amount.
    Importes(FormatoRegional formato, std::function<quint8()> multiplicador);

    // importe in minor units. Raises 11 when the multiplier is 0.
    QString FormatoImporte(qint32 importe) const;
    // The same for an amount held as Currency. Raises 6 beyond 32 bits.
    QString FormatoImporte(Currency importe) const { return FormatoImporte(importe.AEntero32()); }
    // The same for any amount, also one that is larger than the device can take.
    QString FormatoImporteLargo(Currency importe) const;

    const FormatoRegional& Formato() const { return formato_; }
    quint8 Multiplicador() const { return multiplicador_(); }

  private:
    FormatoRegional formato_;
    std::function<quint8()> multiplicador_;
};

// Removes every "€", in place, and also returns the text.
QString& QuitaEuro(QString& texto);

} // namespace zv
