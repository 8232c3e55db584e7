// Text to whole numbers as the platform converts.
#include "platform/Conversions.h"

#include "platform/StringLiterals.h"
#include "support/NumeroError.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using test::NumeroError;

const FormatoRegional& Es() {
    static const FormatoRegional formato(u"es_ES"_s);
    return formato;
}

int ErrorDeByte(const char* texto) {
    return NumeroError([&] { AByte(QString::fromUtf8(texto), Es()); });
}

TEST(Conversiones, WholeNumbersOfEachType) {
    EXPECT_EQ(AByte(u"255"_s, Es()), 255);
    EXPECT_EQ(AEntero16(u"-32768"_s, Es()), -32768);
    EXPECT_EQ(AEntero32(u"2147483647"_s, Es()), 2147483647);
    EXPECT_EQ(AEntero16(u" 1.250 "_s, Es()), 1250);
    EXPECT_EQ(AEntero16(u"1e2"_s, Es()), 100);
}

TEST(Conversiones, HalvesGoToTheEvenNumber) {
    EXPECT_EQ(AByte(u"0,5"_s, Es()), 0);
    EXPECT_EQ(AByte(u"1,5"_s, Es()), 2);
    EXPECT_EQ(AByte(u"2,5"_s, Es()), 2);
    EXPECT_EQ(AEntero16(u"-2,5"_s, Es()), -2);
    EXPECT_EQ(AByte(u"254,5"_s, Es()), 254);
    EXPECT_EQ(AByte(u"-0,5"_s, Es()), 0);
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
    EXPECT_EQ(NumeroError([] { AEntero16(u"32768"_s, Es()); }), 6);
    EXPECT_EQ(NumeroError([] { AEntero32(u"2147483647,5"_s, Es()); }), 6);
}

} // namespace
} // namespace zv
