// Currency: range, rounding and text.
#include "platform/Currency.h"

#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"
#include "support/NumeroError.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace zv {
namespace {

using test::NumeroError;

TEST(Currency, HoldsEveryWhole32BitAmountExactly) {
    EXPECT_EQ(Currency(std::numeric_limits<qint32>::max()).AEntero32(), 2147483647);
    EXPECT_EQ(Currency(std::numeric_limits<qint32>::min()).AEntero32(), -2147483647 - 1);
    EXPECT_EQ(Currency(1250).Diezmilesimas(), 12500000);
}

TEST(Currency, WholeNumberIsRoundedHalvesToEven) {
    EXPECT_EQ(Currency::DeDiezmilesimas(5000).AEntero32(), 0);
    EXPECT_EQ(Currency::DeDiezmilesimas(15000).AEntero32(), 2);
    EXPECT_EQ(Currency::DeDiezmilesimas(25000).AEntero32(), 2);
    EXPECT_EQ(Currency::DeDiezmilesimas(25001).AEntero32(), 3);
    EXPECT_EQ(Currency::DeDiezmilesimas(-5000).AEntero32(), 0);
    EXPECT_EQ(Currency::DeDiezmilesimas(-15000).AEntero32(), -2);
    EXPECT_EQ(Currency::DeDiezmilesimas(-25001).AEntero32(), -3);
}

TEST(Currency, BeyondThe32BitRangeIsAFailureAfterRounding) {
    EXPECT_EQ(Currency::DeDiezmilesimas(21474836474999).AEntero32(), 2147483647);
    EXPECT_EQ(NumeroError([] { Currency::DeDiezmilesimas(21474836475000).AEntero32(); }), 6);
    EXPECT_EQ(NumeroError([] { Currency::DeEntero(-2147483649).AEntero32(); }), 6);
}

TEST(Currency, FromADoubleRoundsToFourDecimalsHalvesToEven) {
    EXPECT_EQ(Currency::DeDoble(12.5).Diezmilesimas(), 125000);
    EXPECT_EQ(Currency::DeDoble(0.03125).Diezmilesimas(), 312);
    EXPECT_EQ(Currency::DeDoble(0.09375).Diezmilesimas(), 938);
    EXPECT_EQ(Currency::DeDoble(-0.03125).Diezmilesimas(), -312);
}

TEST(Currency, FromADoubleBeyondTheRangeIsAFailure) {
    EXPECT_EQ(NumeroError([] { Currency::DeDoble(1e15); }), 6);
    EXPECT_EQ(NumeroError([] { Currency::DeDoble(-1e300); }), 6);
    EXPECT_EQ(NumeroError([] { Currency::DeDoble(std::nan("")); }), 6);
    EXPECT_EQ(NumeroError([] { Currency::DeDoble(INFINITY); }), 6);
}

TEST(Currency, ArithmeticNeverWraps) {
    const Currency maximo = Currency::DeDiezmilesimas(std::numeric_limits<qint64>::max());
    const Currency minimo = Currency::DeDiezmilesimas(std::numeric_limits<qint64>::min());
    EXPECT_EQ(NumeroError([&] { maximo + Currency(1); }), 6);
    EXPECT_EQ(NumeroError([&] { minimo - Currency(1); }), 6);
    EXPECT_EQ(NumeroError([&] { -minimo; }), 6);
    EXPECT_EQ(NumeroError([&] { minimo.Absoluto(); }), 6);
    EXPECT_EQ(NumeroError([] { Currency::DeEntero(922337203685478); }), 6);
    EXPECT_EQ(Currency::DeEntero(922337203685477).ATexto(), u"922337203685477"_s);
    EXPECT_EQ((Currency(5) - Currency(7)).AEntero32(), -2);
    EXPECT_EQ(Currency(-7).Absoluto(), Currency(7));
}

TEST(Currency, AFailedSumLeavesTheValue) {
    Currency suma = Currency::DeDiezmilesimas(std::numeric_limits<qint64>::max());
    const Currency antes = suma;
    EXPECT_EQ(NumeroError([&] { suma += Currency(1); }), 6);
    EXPECT_EQ(suma, antes);
}

TEST(Currency, PlainTextHasAPointAndNoTrailingZeros) {
    EXPECT_EQ(Currency(1250).ATexto(), u"1250"_s);
    EXPECT_EQ(Currency::DeDiezmilesimas(-5000).ATexto(), u"-0.5"_s);
    EXPECT_EQ(Currency::DeDiezmilesimas(10001).ATexto(), u"1.0001"_s);
    EXPECT_EQ(Currency().ATexto(), u"0"_s);
    EXPECT_EQ(Currency::DeDiezmilesimas(std::numeric_limits<qint64>::min()).ATexto(),
              u"-922337203685477.5808"_s);
}

TEST(Currency, AsADoubleIsTheNearestOne) {
    EXPECT_EQ(Currency::DeDiezmilesimas(123400).ADoble(), 12.34);
    EXPECT_EQ(Currency::DeEntero(-132523472106134).ADoble(), -132523472106134.0);
    EXPECT_EQ(Currency::DeDiezmilesimas(9007199254740993001).ADoble(), 900719925474099.3001);
}

TEST(Currency, OrdersByValue) {
    EXPECT_LT(Currency(-1), Currency());
    EXPECT_GT(Currency::DeDiezmilesimas(1), Currency());
    EXPECT_TRUE(Currency().EsCero());
    EXPECT_FALSE(Currency::DeDiezmilesimas(1).EsCero());
}

} // namespace
} // namespace zv
