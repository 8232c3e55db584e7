// Numbers and money as the machine's region writes and reads them, in both directions.
// Spanish money is "1.234,50 €": thousands mark always, plain blank before the sign.
#pragma once

#include "platform/Currency.h"

#include <QChar>
#include <QLocale>
#include <QString>

#include <optional>

namespace zv {

class FormatoRegional {
  public:
    // The machine's region; es_ES when the machine has none (C, POSIX).
    static FormatoRegional DelSistema();
    // A region by name, such as "es_ES" or "en_US".
    explicit FormatoRegional(const QString& region);

    // The "Currency" format: symbol, the region's decimals, grouping; the value is in main units.
    QString FormatoCurrency(Currency valor) const;
    // The same from a double already rounded to four decimals.
    QString FormatoCurrency(double valor) const;

    // Reads a number leniently: blanks around it, leading or trailing sign, parentheses for
    // negative, thousands marks, decimal mark, currency symbol, exponent. Nothing on any doubt.
    std::optional<double> LeerNumero(const QString& texto) const;
    bool EsNumerico(const QString& texto) const { return LeerNumero(texto).has_value(); }
    // Text to Currency with four decimals, halves to even. Raises 13 for no number, 6 beyond range.
    Currency LeerCurrency(const QString& texto) const;

    QChar MarcaDecimal() const { return marcaDecimal_; }
    QChar MarcaMiles() const { return marcaMiles_; }
    const QLocale& Region() const { return region_; }

  private:
    QLocale region_;
    QChar marcaDecimal_;
    QChar marcaMiles_;
    QString simbolo_;
};

} // namespace zv
