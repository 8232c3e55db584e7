// How a copied row gives its values, whatever an older or foreign file holds in them.
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "store/DatabaseEngine.h"
#include "support/ImprimeQt.h"
#include "support/NumeroError.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using test::NumeroError;

Row Con(const QVariant& valor) {
    return {std::make_shared<const QStringList>(QStringList{u"idZV"_s}), {valor}};
}

TEST(FilaTest, ColumnsAreFoundWithoutRegardToCase) {
    EXPECT_EQ(Con(7).LeerLong(u"IDzv"_s), 7);
    EXPECT_EQ(NumeroError([] { Con(7).LeerLong(u"idCierre"_s); }), 9);
}

TEST(FilaTest, AnIndexBeyondTheColumnsRaises9) {
    EXPECT_EQ(NumeroError([] { Con(7).LeerLong(1); }), 9);
    EXPECT_EQ(NumeroError([] { Con(7).EsNulo(-1); }), 9);
    EXPECT_EQ(NumeroError([] { Con(7).Cambiar(1, 0); }), 9);
}

TEST(FilaTest, NullHasAValueOfEachKind) {
    const Row fila = Con(QVariant());
    EXPECT_TRUE(fila.EsNulo(0));
    EXPECT_EQ(fila.LeerLong(0), 0);
    EXPECT_EQ(fila.LeerLong(0, -1), -1);
    EXPECT_EQ(fila.LeerCurrency(0), Currency(0));
    EXPECT_EQ(fila.LeerCurrency(0, Currency(5)), Currency(5));
    EXPECT_EQ(fila.LeerTexto(0), QString());
    EXPECT_FALSE(fila.LeerBooleano(0));
    EXPECT_FALSE(fila.LeerFecha(0).isValid());
}

TEST(FilaTest, AWholeNumberBeyond32BitsIsNoLong) {
    EXPECT_EQ(Con(2147483647LL).LeerLong(0), 2147483647);
    EXPECT_EQ(Con(-2147483648LL).LeerLong(0), -2147483647 - 1);
    EXPECT_EQ(NumeroError([] { Con(2147483648LL).LeerLong(0); }), 6);
    EXPECT_EQ(NumeroError([] { Con(-2147483649LL).LeerLong(0); }), 6);
    EXPECT_EQ(NumeroError([] { Con(1e300).LeerLong(0); }), 6);
    EXPECT_EQ(NumeroError([] { Con(qQNaN()).LeerLong(0); }), 6);
}

TEST(FilaTest, FractionsRoundHalvesToEven) {
    EXPECT_EQ(Con(2.5).LeerLong(0), 2);
    EXPECT_EQ(Con(3.5).LeerLong(0), 4);
    EXPECT_EQ(Con(-2.5).LeerLong(0), -2);
}

TEST(FilaTest, CurrencyComesFromWholeNumbersAndFractions) {
    EXPECT_EQ(Con(9000000000LL).LeerCurrency(0), Currency::DeEntero(9000000000LL));
    EXPECT_EQ(Con(12.3456).LeerCurrency(0), Currency::DeDiezmilesimas(123456));
    EXPECT_EQ(NumeroError([] { Con(922337203685478LL).LeerCurrency(0); }), 6);
    EXPECT_EQ(NumeroError([] { Con(1e15).LeerCurrency(0); }), 6);
}

TEST(FilaTest, AnyNumberButZeroIsTrue) {
    EXPECT_TRUE(Con(1).LeerBooleano(0));
    EXPECT_TRUE(Con(-1LL).LeerBooleano(0));
    EXPECT_TRUE(Con(0.5).LeerBooleano(0));
    EXPECT_FALSE(Con(0LL).LeerBooleano(0));
}

TEST(FilaTest, NumbersReadAsText) {
    EXPECT_EQ(Con(42LL).LeerTexto(0), u"42"_s);
    EXPECT_EQ(Con(0.5).LeerTexto(0), u"0.5"_s);
}

TEST(FilaTest, AValueOfAnotherKindRaises13) {
    const Row texto = Con(u"doce"_s);
    EXPECT_EQ(NumeroError([&] { texto.LeerLong(0); }), 13);
    EXPECT_EQ(NumeroError([&] { texto.LeerCurrency(0); }), 13);
    EXPECT_EQ(NumeroError([&] { texto.LeerBooleano(0); }), 13);
    EXPECT_EQ(NumeroError([&] { texto.LeerFecha(0); }), 13);
    const Row bytes = Con(QByteArray("\x00\xff", 2));
    EXPECT_EQ(NumeroError([&] { bytes.LeerLong(0); }), 13);
    EXPECT_EQ(NumeroError([&] { bytes.LeerCurrency(0); }), 13);
    EXPECT_EQ(NumeroError([&] { bytes.LeerTexto(0); }), 13);
    EXPECT_EQ(NumeroError([&] { bytes.LeerBooleano(0); }), 13);
    EXPECT_EQ(NumeroError([&] { bytes.LeerFecha(0); }), 13);
}

TEST(FilaTest, DatesReadInEveryIsoForm) {
    const QDateTime completa(QDate(2026, 3, 14), QTime(18, 4, 11));
    EXPECT_EQ(Con(u"2026-03-14 18:04:11"_s).LeerFecha(0), completa);
    EXPECT_EQ(Con(u"2026-03-14T18:04:11"_s).LeerFecha(0), completa);
    EXPECT_EQ(Con(u"2026-03-14 18:04"_s).LeerFecha(0), completa.addSecs(-11));
    EXPECT_EQ(Con(u"2026-03-14"_s).LeerFecha(0), QDateTime(QDate(2026, 3, 14), QTime(0, 0)));
    EXPECT_EQ(Con(u"2026-03-14 18:04:11.250"_s).LeerFecha(0), completa.addMSecs(250));
    EXPECT_EQ(Con(u"2026-03-14 18:04:11.5"_s).LeerFecha(0), completa.addMSecs(500));
    EXPECT_EQ(Con(u"2026-03-14T18:04:11.2509999"_s).LeerFecha(0), completa.addMSecs(250));
    EXPECT_EQ(Con(u"2026-03-14T18:04:11Z"_s).LeerFecha(0),
              QDateTime(QDate(2026, 3, 14), QTime(18, 4, 11), Qt::UTC).toLocalTime());
}

TEST(FilaTest, DatesThatAreNoneRaise13) {
    for (const char* texto : {"2026-02-30 10:00:00", "2026-03-14 25:00:00", "14/03/2026",
                              "2026-3-14", "", "2026-03-14 18:04:1x", "2026-03-14 18:04:11.25x",
                              "2026-03-14 18:04:11.2500000000000000000001"}) {
        EXPECT_EQ(NumeroError([&] { Con(QString::fromLatin1(texto)).LeerFecha(0); }), 13) << texto;
    }
}

TEST(FilaTest, ADateWrittenAsANumberCountsDaysFrom18991230) {
    EXPECT_EQ(Con(0LL).LeerFecha(0), QDateTime(QDate(1899, 12, 30), QTime(0, 0)));
    EXPECT_EQ(Con(46095.75).LeerFecha(0), QDateTime(QDate(2026, 3, 14), QTime(18, 0)));
    // A day before the origin still counts its hours forward.
    EXPECT_EQ(Con(-1.25).LeerFecha(0), QDateTime(QDate(1899, 12, 29), QTime(6, 0)));
    EXPECT_EQ(NumeroError([] { Con(3e6).LeerFecha(0); }), 6);
    EXPECT_EQ(NumeroError([] { Con(-7e5).LeerFecha(0); }), 6);
    EXPECT_EQ(NumeroError([] { Con(qQNaN()).LeerFecha(0); }), 6);
}

TEST(FilaTest, AnAmountGoesToTheFileAsAWholeNumberWhenItIsOne) {
    EXPECT_EQ(ValorBD(Currency(1250)).typeId(), QMetaType::LongLong);
    EXPECT_EQ(ValorBD(Currency::DeEntero(-9000000000LL)).toLongLong(), -9000000000LL);
    EXPECT_EQ(ValorBD(Currency::DeDiezmilesimas(5000)), QVariant(0.5));
}

} // namespace
} // namespace zv
