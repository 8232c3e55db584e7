// Fields of a message: positions, cuts, conversions.
#include "fastlink/LecturaMissatge.h"

#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"

#include <gtest/gtest.h>

namespace zv::test {
namespace {

const FormatoRegional kEspaña(u"es_ES"_s);

std::optional<Missatge> Leer(const QString& texto) {
    return LeerMissatge(texto, kEspaña);
}
// The amount of a message, or "error".
QString Importe(const QString& campo) {
    const Missatge m = Leer(u"C|A|"_s + campo).value();
    return m.ImporteError ? u"error"_s : m.Importe.ATexto();
}
qint32 Caja(const QString& campo) {
    return Leer(u"C|A|1|B|"_s + campo).value().IDcaja;
}

TEST(LecturaMissatgeTest, AWholeMessage) {
    const Missatge m = Leer(u"C|T0001|1250|A|3|TPV1|ANA|EFECTIVO|de más|todavía"_s).value();
    EXPECT_EQ(m.Comanda, u"C"_s);
    EXPECT_EQ(m.ID1, u"T0001"_s);
    EXPECT_EQ(m.Importe, Currency(1250));
    EXPECT_FALSE(m.ImporteError);
    EXPECT_EQ(m.ID2, u"A"_s);
    EXPECT_EQ(m.IDcaja, 3);
    EXPECT_EQ(m.Terminal, u"TPV1"_s);
    EXPECT_EQ(m.Vendedor, u"ANA"_s);
    EXPECT_EQ(m.Formapago, u"EFECTIVO"_s);
}

TEST(LecturaMissatgeTest, WithoutABarItIsNoMessage) {
    EXPECT_FALSE(Leer(u"HELLO"_s));
    EXPECT_FALSE(Leer(QString()));
}

TEST(LecturaMissatgeTest, MissingFieldsKeepTheirDefaults) {
    const Missatge m = Leer(u"s|"_s).value();
    EXPECT_EQ(m.Comanda, u"s"_s);
    EXPECT_EQ(m.ID1, QString());
    EXPECT_EQ(m.Importe, Currency(0));
    EXPECT_FALSE(m.ImporteError);
    EXPECT_EQ(m.IDcaja, 0);
    EXPECT_EQ(m.Formapago, QString());
}

TEST(LecturaMissatgeTest, AMessageMayEndAfterAnyField) {
    const QStringList campos{u"C"_s, u"A"_s,    u"12"_s,  u"B"_s,
                             u"3"_s, u"TPV1"_s, u"ANA"_s, u"VISA"_s};
    for (qsizetype n = 2; n <= campos.size(); ++n) {
        const Missatge m = Leer(campos.first(n).join(u'|')).value();
        const QStringList leidos{
            m.Comanda,  m.ID1,      m.Importe.ATexto(), m.ID2, QString::number(m.IDcaja),
            m.Terminal, m.Vendedor, m.Formapago};
        QStringList esperados{QString(), QString(), u"0"_s,    QString(),
                              u"0"_s,    QString(), QString(), QString()};
        for (qsizetype i = 0; i < n; ++i) {
            esperados[i] = campos[i];
        }
        EXPECT_EQ(leidos, esperados) << n;
        EXPECT_FALSE(m.ImporteError) << n;
    }
}

TEST(LecturaMissatgeTest, TextsAreCutAtFiftyCharacters) {
    const QString largo(60, u'x');
    const QString corto(50, u'x');
    const Missatge m = Leer(u"C|%1|1|%1|1|%1|%1|%1"_s.arg(largo)).value();
    for (const QString& campo : {m.ID1, m.ID2, m.Terminal, m.Vendedor, m.Formapago}) {
        EXPECT_EQ(campo, corto);
    }
    EXPECT_EQ(Leer(largo + u"|A"_s).value().Comanda, largo);
}

TEST(LecturaMissatgeTest, ALineEndingStaysInTheLastField) {
    EXPECT_EQ(Leer(u"S|A\r\n"_s).value().ID1, u"A\r\n"_s);
}

TEST(LecturaMissatgeTest, AmountsAreReadInTheRegionAndRoundedHalvesToEven) {
    EXPECT_EQ(Importe(u"1250"_s), u"1250"_s);
    EXPECT_EQ(Importe(u"-450"_s), u"-450"_s);
    EXPECT_EQ(Importe(u" 12 "_s), u"12"_s);
    EXPECT_EQ(Importe(u"1.250"_s), u"1250"_s);
    EXPECT_EQ(Importe(u"12,5"_s), u"12"_s);
    EXPECT_EQ(Importe(u"13,5"_s), u"14"_s);
    EXPECT_EQ(Importe(u"12,50001"_s), u"12"_s);
    EXPECT_EQ(Importe(u"12,5001"_s), u"13"_s);
}

TEST(LecturaMissatgeTest, AmountsBeyondThirtyTwoBitsAreErrors) {
    EXPECT_EQ(Importe(u"2147483647"_s), u"2147483647"_s);
    EXPECT_EQ(Importe(u"-2147483648"_s), u"-2147483648"_s);
    EXPECT_EQ(Importe(u"2147483648"_s), u"error"_s);
    EXPECT_EQ(Importe(u"-2147483649"_s), u"error"_s);
    EXPECT_EQ(Importe(u"2147483647,4"_s), u"2147483647"_s);
    EXPECT_EQ(Importe(u"2147483647,5"_s), u"error"_s);
    EXPECT_EQ(Importe(u"1e30"_s), u"error"_s);
}

TEST(LecturaMissatgeTest, WhatIsNoNumberIsAnError) {
    for (const char* campo : {"", "abc", "12abc", "12.50", "--1"}) {
        EXPECT_EQ(Importe(QString::fromLatin1(campo)), u"error"_s) << campo;
    }
    const Missatge m = Leer(u"C|A|abc|B|3"_s).value();
    EXPECT_EQ(m.Importe, Currency(0));
    EXPECT_EQ(m.ID2, u"B"_s);
    EXPECT_EQ(m.IDcaja, 3);
}

TEST(LecturaMissatgeTest, ATillThatIsNoNumberIsZero) {
    EXPECT_EQ(Caja(u"7"_s), 7);
    EXPECT_EQ(Caja(u"-2"_s), -2);
    EXPECT_EQ(Caja(u"2,5"_s), 2);
    EXPECT_EQ(Caja(u"3,5"_s), 4);
    EXPECT_EQ(Caja(u"x"_s), 0);
    EXPECT_EQ(Caja(QString()), 0);
    EXPECT_EQ(Caja(u"2147483648"_s), 0);
}

TEST(LecturaMissatgeTest, TenThousandFieldsAndAMegabyteAreOneMessage) {
    const Missatge m = Leer(u"C|A"_s + QString(10000, u'|')).value();
    EXPECT_EQ(m.ID1, u"A"_s);
    EXPECT_TRUE(m.ImporteError);
    EXPECT_EQ(Leer(u"C|"_s + QString(1 << 20, u'y')).value().ID1, QString(50, u'y'));
}

} // namespace
} // namespace zv::test
