// Text to whole numbers as the platform converts.
#include "platform/Conversiones.h"

#include "support/NumeroError.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using test::NumeroError;

const FormatoRegional& Es() {
    static const FormatoRegional formato(QStringLiteral("es_ES"));
    return formato;
}

int ErrorDeByte(const char* texto) {
    return NumeroError([&] { AByte(QString::fromUtf8(texto), Es()); });
}

TEST(Conversiones, WholeNumbersOfEachType) {
    EXPECT_EQ(AByte(QStringLiteral("255"), Es()), 255);
    EXPECT_EQ(AEntero16(QStringLiteral("-32768"), Es()), -32768);
    EXPECT_EQ(AEntero32(QStringLiteral("2147483647"), Es()), 2147483647);
    EXPECT_EQ(AEntero16(QStringLiteral(" 1.250 "), Es()), 1250);
    EXPECT_EQ(AEntero16(QStringLiteral("1e2"), Es()), 100);
}

TEST(Conversiones, HalvesGoToTheEvenNumber) {
    EXPECT_EQ(AByte(QStringLiteral("0,5"), Es()), 0);
    EXPECT_EQ(AByte(QStringLiteral("1,5"), Es()), 2);
    EXPECT_EQ(AByte(QStringLiteral("2,5"), Es()), 2);
    EXPECT_EQ(AEntero16(QStringLiteral("-2,5"), Es()), -2);
    EXPECT_EQ(AByte(QStringLiteral("254,5"), Es()), 254);
    EXPECT_EQ(AByte(QStringLiteral("-0,5"), Es()), 0);
    EXPECT_EQ(ErrorDeByte("255,5"), 6);
}

TEST(Conversiones, NoNumberIsATypeFailure) {
    EXPECT_EQ(ErrorDeByte(""), 13);
    EXPECT_EQ(ErrorDeByte("   "), 13);
    EXPECT_EQ(ErrorDeByte("uno"), 13);
    EXPECT_EQ(ErrorDeByte("1 2"), 13);
}

TEST(Conversiones, BeyondTheTypeIsAnOverflow) {
    EXPECT_EQ(ErrorDeByte("256"), 6);
    EXPECT_EQ(ErrorDeByte("-1"), 6);
    EXPECT_EQ(ErrorDeByte("1e300"), 6);
    EXPECT_EQ(NumeroError([] { AEntero16(QStringLiteral("32768"), Es()); }), 6);
    EXPECT_EQ(NumeroError([] { AEntero32(QStringLiteral("2147483647,5"), Es()); }), 6);
}

} // namespace
} // namespace zv
