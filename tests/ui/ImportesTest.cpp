// Amounts as the screen shows them.
#include "ui/Importes.h"

#include "platform/ErrorEjecucion.h"
#include "support/ImprimeQt.h"

#include <gtest/gtest.h>
#include <limits>

namespace zv::test {
namespace {

Importes Con(quint8 multiplicador, const QString& region = QStringLiteral("es_ES")) {
    return {FormatoRegional(region), [multiplicador] { return multiplicador; }};
}

TEST(ImportesTest, DividesMinorUnitsByTheMultiplierInTheRegionsFormat) {
    EXPECT_EQ(Con(100).FormatoImporte(qint32{123450}), QStringLiteral("1.234,50 €"));
    EXPECT_EQ(Con(100).FormatoImporte(qint32{0}), QStringLiteral("0,00 €"));
    EXPECT_EQ(Con(100).FormatoImporte(qint32{-5}), QStringLiteral("-0,05 €"));
    EXPECT_EQ(Con(10).FormatoImporte(qint32{125}), QStringLiteral("12,50 €"));
    EXPECT_EQ(Con(1).FormatoImporte(qint32{7}), QStringLiteral("7,00 €"));
}

TEST(ImportesTest, HoldsTheWholeRangeOf32Bits) {
    EXPECT_EQ(Con(1).FormatoImporte(std::numeric_limits<qint32>::max()),
              QStringLiteral("2.147.483.647,00 €"));
    EXPECT_EQ(Con(100).FormatoImporte(std::numeric_limits<qint32>::min()),
              QStringLiteral("-21.474.836,48 €"));
}

TEST(ImportesTest, QuotientIsRoundedToFourDecimalsBeforeTheFormat) {
    // 1049 / 210 = 4.995238...: four decimals give 4.9952, the format 5,00.
    EXPECT_EQ(Con(210).FormatoImporte(qint32{1049}), QStringLiteral("5,00 €"));
    EXPECT_EQ(Con(3).FormatoImporte(qint32{1}), QStringLiteral("0,33 €"));
}

TEST(ImportesTest, AsksTheDeviceForTheMultiplierEachTime) {
    quint8 multiplicador = 100;
    const Importes importes(FormatoRegional(QStringLiteral("es_ES")),
                            [&multiplicador] { return multiplicador; });
    EXPECT_EQ(importes.FormatoImporte(qint32{500}), QStringLiteral("5,00 €"));
    multiplicador = 10;
    EXPECT_EQ(importes.FormatoImporte(qint32{500}), QStringLiteral("50,00 €"));
}

TEST(ImportesTest, MultiplierOfZeroRaisesADivisionFailure) {
    try {
        Con(0).FormatoImporte(qint32{100});
        FAIL() << "nothing was raised";
    } catch (const ErrorEjecucion& e) {
        EXPECT_EQ(e.Numero(), 11);
    }
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
    QString texto = QStringLiteral("€1.234,50 €€");
    EXPECT_EQ(QuitaEuro(texto), QStringLiteral("1.234,50 "));
    EXPECT_EQ(texto, QStringLiteral("1.234,50 "));
    QString sin = QStringLiteral("12,00");
    EXPECT_EQ(QuitaEuro(sin), QStringLiteral("12,00"));
}

} // namespace
} // namespace zv::test
