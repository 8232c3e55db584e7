// Amounts as the screen shows them.
#include "ui/Importes.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"

#include <gtest/gtest.h>
#include <limits>

namespace zv::test {
namespace {

Importes Con(quint8 multiplicador, const QString& region = u"es_ES"_s) {
    return {FormatoRegional(region), [multiplicador] { return multiplicador; }};
}

TEST(ImportesTest, DividesMinorUnitsByTheMultiplierInTheRegionsFormat) {
    EXPECT_EQ(Con(100).FormatoImporte(qint32{123450}), u"1.234,50 €"_s);
    EXPECT_EQ(Con(100).FormatoImporte(qint32{0}), u"0,00 €"_s);
    EXPECT_EQ(Con(100).FormatoImporte(qint32{-5}), u"-0,05 €"_s);
    EXPECT_EQ(Con(10).FormatoImporte(qint32{125}), u"12,50 €"_s);
    EXPECT_EQ(Con(1).FormatoImporte(qint32{7}), u"7,00 €"_s);
}

TEST(ImportesTest, HoldsTheWholeRangeOf32Bits) {
    EXPECT_EQ(Con(1).FormatoImporte(std::numeric_limits<qint32>::max()), u"2.147.483.647,00 €"_s);
    EXPECT_EQ(Con(100).FormatoImporte(std::numeric_limits<qint32>::min()), u"-21.474.836,48 €"_s);
}

TEST(ImportesTest, QuotientIsRoundedToFourDecimalsBeforeTheFormat) {
    // 1049 / 210 = 4.995238...: four decimals give 4.9952, the format 5,00.
    EXPECT_EQ(Con(210).FormatoImporte(qint32{1049}), u"5,00 €"_s);
    EXPECT_EQ(Con(3).FormatoImporte(qint32{1}), u"0,33 €"_s);
}

TEST(ImportesTest, AsksTheDeviceForTheMultiplierEachTime) {
    quint8 multiplicador = 100;
    const Importes importes(FormatoRegional(u"es_ES"_s),
                            [&multiplicador] { return multiplicador; });
    EXPECT_EQ(importes.FormatoImporte(qint32{500}), u"5,00 €"_s);
    multiplicador = 10;
    EXPECT_EQ(importes.FormatoImporte(qint32{500}), u"50,00 €"_s);
}

TEST(ImportesTest, MultiplierOfZeroRaisesADivisionFailure) {
    try {
        Con(0).FormatoImporte(qint32{100});
        FAIL() << "nothing was raised";
    } catch (const ErrorEjecucion& e) {
        EXPECT_EQ(e.Numero(), 11);
    }
}

TEST(ImportesTest, ALargeAmountKeepsAllItsDigits) {
    const auto largo = [](quint8 multiplicador, qint64 diezmilesimas) {
        return Con(multiplicador).FormatoImporteLargo(Currency::DeDiezmilesimas(diezmilesimas));
    };
    const qint64 maximo = std::numeric_limits<qint64>::max();
    EXPECT_EQ(largo(1, maximo), u"922.337.203.685.477,58 €"_s);
    EXPECT_EQ(largo(100, maximo), u"9.223.372.036.854,78 €"_s);
    EXPECT_EQ(largo(100, -maximo - 1), u"-9.223.372.036.854,78 €"_s);
    // Rounded to four decimals first, halves to even, as the short form.
    EXPECT_EQ(largo(210, 10490000), u"5,00 €"_s);
    EXPECT_EQ(largo(4, 199998), u"5,00 €"_s); // 4,99995 is 5,0000
    EXPECT_EQ(largo(4, 199994), u"5,00 €"_s); // 4,99985 is 4,9998
    EXPECT_EQ(largo(4, -199998), u"-5,00 €"_s);
    for (const qint32 importe : {0, 1, -1, 5, 123450, -8}) {
        EXPECT_EQ(Con(100).FormatoImporteLargo(importe), Con(100).FormatoImporte(importe));
    }
    EXPECT_THROW(Con(0).FormatoImporteLargo(1), ErrorEjecucion);
}

TEST(ImportesTest, CurrencyBeyond32BitsOverflows) {
    const Currency grande = Currency::DeEntero(qint64{1} << 31);
    try {
        Con(100).FormatoImporte(grande);
        FAIL() << "nothing was raised";
    } catch (const ErrorEjecucion& e) {
        EXPECT_EQ(e.Numero(), 6);
    }
}

TEST(QuitaEuroTest, RemovesEveryEuroSignInPlaceAndReturnsTheText) {
    QString texto = u"€1.234,50 €€"_s;
    EXPECT_EQ(QuitaEuro(texto), u"1.234,50 "_s);
    EXPECT_EQ(texto, u"1.234,50 "_s);
    QString sin = u"12,00"_s;
    EXPECT_EQ(QuitaEuro(sin), u"12,00"_s);
}

} // namespace
} // namespace zv::test
