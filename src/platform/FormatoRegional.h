// Numbers and money as the machine's region writes and reads them, in both directions, and dates.
// Spanish money is "1.234,50 €": thousands mark always, plain blank before the sign.
#pragma once

#include "platform/Currency.h"

#include <QChar>
#include <QDateTime>
#include <QString>
#include <QStringView>

#include <optional>

class QLocale;

namespace zv {

class FormatoRegional {
  public:
    // The machine's region; es_ES when the machine has none (C, POSIX).
    static FormatoRegional DelSistema();
    // A region by name, such as "es_ES" or "en_US".
    explicit FormatoRegional(const QString& region);

    // The "Currency" format: symbol, the region's decimals (halves away from zero), thousands marks
    // from 1.000 on, plain blanks only; the value is in main units.
    QString FormatoCurrency(Currency valor) const;
    // The same from a double already rounded to four decimals. Raises 6 beyond Currency's range.
    QString FormatoCurrency(double valor) const;

    // Reads a number leniently: blanks around it, leading or trailing sign, parentheses for
    // negative, thousands marks, decimal mark, currency symbol, exponent. Nothing on any doubt:
    // marks that do not part thousands ("12.50" where "." is the thousands mark), two signs.
    std::optional<double> LeerNumero(const QString& texto) const;
    bool EsNumerico(const QString& texto) const { return LeerNumero(texto).has_value(); }
    // Text to Currency with four decimals, halves to even. Raises 13 for no number, 6 beyond range.
    Currency LeerCurrency(const QString& texto) const;

    // Date and time in the region's order, with all digits of day, month and year:
    // "14/03/2026 9:05:03". A midnight has no time, the day 0 (1899-12-30) no date; no date is
    // empty.
    QString FechaGeneral(const QDateTime& fecha) const;

    QChar MarcaDecimal() const { return marcaDecimal_; }
    // Order of day, month and year, such as "dMy", and the mark between them.
    const QString& OrdenFecha() const { return ordenFecha_; }
    QChar MarcaFecha() const { return marcaFecha_; }
    // Of a day of twelve hours; empty where it has 24.
    const QString& Manana() const { return manana_; }
    const QString& Tarde() const { return tarde_; }

  private:
    struct Partes;
    explicit FormatoRegional(const QLocale& region);
    bool Analizar(QStringView texto, Partes& partes) const;
    bool AnalizarCifras(QStringView& texto, Partes& partes) const;
    int Cifra(QChar c) const;
    bool EsMarcaMiles(QChar c) const;
    bool BienAgrupado(const Partes& partes) const;

    // What stands around the digits of an amount.
    struct Marco {
        QString delante;
        QString detras;
    };
    static Marco MarcoDe(const QString& importe);
    void TomarFecha(const QLocale& region);

    QChar marcaDecimal_;
    QChar marcaMiles_; // null when the region has none
    QString simbolo_;
    Marco positivo_;
    Marco negativo_;
    QChar cero_ = u'0';
    int decimales_ = 2;
    int grupoFinal_ = 3; // digits between the last thousands mark and the decimal mark
    int grupo_ = 3;      // digits of the groups before
    QString ordenFecha_; // such as "dMy"
    QChar marcaFecha_ = u'/';
    QString manana_; // before and after noon; empty where the day has 24 hours
    QString tarde_;
};

} // namespace zv
