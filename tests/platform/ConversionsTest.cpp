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

// ---- dates

QString Fecha(const char* texto, const char* region = "es_ES") {
    return AFecha(QString::fromUtf8(texto), FormatoRegional(QString::fromLatin1(region)),
                  QDate(2026, 3, 14))
        .toString(u"yyyy-MM-dd HH:mm:ss"_s);
}

TEST(Conversiones, DatesInTheOrderOfTheRegionOrTheYearFirst) {
    EXPECT_EQ(Fecha("14/03/2026"), u"2026-03-14 00:00:00"_s);
    EXPECT_EQ(Fecha(" 1-2-2026 9:05:03 "), u"2026-02-01 09:05:03"_s);
    EXPECT_EQ(Fecha("2026-03-14 18:04"), u"2026-03-14 18:04:00"_s);
    EXPECT_EQ(Fecha("3/14/2026", "en_US"), u"2026-03-14 00:00:00"_s);
    EXPECT_EQ(Fecha("3/4/2026 9:05 PM", "en_US"), u"2026-03-04 21:05:00"_s);
    EXPECT_EQ(Fecha("3/4/2026 12:05:01 am", "en_US"), u"2026-03-04 00:05:01"_s);
    // Only one of the two orders makes a date.
    EXPECT_EQ(Fecha("3/14/2026"), u"2026-03-14 00:00:00"_s);
    EXPECT_EQ(Fecha("29/2/24"), u"2024-02-29 00:00:00"_s);
}

TEST(Conversiones, DatesThatAreNotWhole) {
    EXPECT_EQ(Fecha("1/2/29"), u"2029-02-01 00:00:00"_s);
    EXPECT_EQ(Fecha("1/2/30"), u"1930-02-01 00:00:00"_s);
    EXPECT_EQ(Fecha("1/2"), u"2026-02-01 00:00:00"_s);
    EXPECT_EQ(Fecha("1/2", "en_US"), u"2026-01-02 00:00:00"_s);
    EXPECT_EQ(Fecha("12:30"), u"1899-12-30 12:30:00"_s);
}

TEST(Conversiones, NumbersAreDaysOfTheirOwn) {
    EXPECT_EQ(Fecha("0"), u"1899-12-30 00:00:00"_s);
    EXPECT_EQ(Fecha("7"), u"1900-01-06 00:00:00"_s);
    EXPECT_EQ(Fecha("46095,5"), u"2026-03-14 12:00:00"_s);
    EXPECT_EQ(Fecha("-1,25"), u"1899-12-29 06:00:00"_s);
    EXPECT_EQ(Fecha("2.958.465"), u"9999-12-31 00:00:00"_s);
}

TEST(Conversiones, WhatIsNoDateRaises13) {
    for (const char* texto :
         {"",          " ",        "ANA",           "ZVFast",    "14/03/2026 ANA",
          "31/2/2026", "0/1/2026", "1/2/3/4",       "1//2",      "25:00",
          "12:60",     "13:00 pm", "14/03/2026 9",  "1;2;2026",  "2958466",
          "-657435",   "T1/T2",    "14 marzo 2026", "1/2/99999", "1/2/99 :"}) {
        EXPECT_EQ(NumeroError([&] { Fecha(texto); }), 13) << texto;
    }
}

} // namespace
} // namespace zv
