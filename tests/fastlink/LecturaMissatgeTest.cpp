// Fields of a message: positions, cuts, conversions.
#include "fastlink/LecturaMissatge.h"

#include "support/ImprimeQt.h"

#include <gtest/gtest.h>

namespace zv::test {
namespace {

const FormatoRegional kEspaña(QStringLiteral("es_ES"));

std::optional<Missatge> Leer(const QString& texto) {
    return LeerMissatge(texto, kEspaña);
}
// The amount of a message, or "error".
QString Importe(const QString& campo) {
    const Missatge m = Leer(QStringLiteral("C|A|") + campo).value();
    return m.ImporteError ? QStringLiteral("error") : m.Importe.ATexto();
}
qint32 Caja(const QString& campo) {
    return Leer(QStringLiteral("C|A|1|B|") + campo).value().IDcaja;
}

TEST(LecturaMissatgeTest, AWholeMessage) {
    const Missatge m =
        Leer(QStringLiteral("C|T0001|1250|A|3|TPV1|ANA|EFECTIVO|de más|todavía")).value();
    EXPECT_EQ(m.Comanda, QStringLiteral("C"));
    EXPECT_EQ(m.ID1, QStringLiteral("T0001"));
    EXPECT_EQ(m.Importe, Currency(1250));
    EXPECT_FALSE(m.ImporteError);
    EXPECT_EQ(m.ID2, QStringLiteral("A"));
    EXPECT_EQ(m.IDcaja, 3);
    EXPECT_EQ(m.Terminal, QStringLiteral("TPV1"));
    EXPECT_EQ(m.Vendedor, QStringLiteral("ANA"));
    EXPECT_EQ(m.Formapago, QStringLiteral("EFECTIVO"));
}

TEST(LecturaMissatgeTest, WithoutABarItIsNoMessage) {
    EXPECT_FALSE(Leer(QStringLiteral("HELLO")));
    EXPECT_FALSE(Leer(QString()));
}

TEST(LecturaMissatgeTest, MissingFieldsKeepTheirDefaults) {
    const Missatge m = Leer(QStringLiteral("s|")).value();
    EXPECT_EQ(m.Comanda, QStringLiteral("s"));
    EXPECT_EQ(m.ID1, QString());
    EXPECT_EQ(m.Importe, Currency(0));
    EXPECT_FALSE(m.ImporteError);
    EXPECT_EQ(m.IDcaja, 0);
    EXPECT_EQ(m.Formapago, QString());
}

TEST(LecturaMissatgeTest, AMessageMayEndAfterAnyField) {
    const QStringList campos{QStringLiteral("C"),   QStringLiteral("A"),   QStringLiteral("12"),
                             QStringLiteral("B"),   QStringLiteral("3"),   QStringLiteral("TPV1"),
                             QStringLiteral("ANA"), QStringLiteral("VISA")};
    for (qsizetype n = 2; n <= campos.size(); ++n) {
        const Missatge m = Leer(campos.first(n).join(u'|')).value();
        const QStringList leidos{
            m.Comanda,  m.ID1,      m.Importe.ATexto(), m.ID2, QString::number(m.IDcaja),
            m.Terminal, m.Vendedor, m.Formapago};
        QStringList esperados{QString(),           QString(), QStringLiteral("0"), QString(),
                              QStringLiteral("0"), QString(), QString(),           QString()};
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
    const Missatge m = Leer(QStringLiteral("C|%1|1|%1|1|%1|%1|%1").arg(largo)).value();
    for (const QString& campo : {m.ID1, m.ID2, m.Terminal, m.Vendedor, m.Formapago}) {
        EXPECT_EQ(campo, corto);
    }
    EXPECT_EQ(Leer(largo + QStringLiteral("|A")).value().Comanda, largo);
}

TEST(LecturaMissatgeTest, ALineEndingStaysInTheLastField) {
    EXPECT_EQ(Leer(QStringLiteral("S|A\r\n")).value().ID1, QStringLiteral("A\r\n"));
}

TEST(LecturaMissatgeTest, AmountsAreReadInTheRegionAndRoundedHalvesToEven) {
    EXPECT_EQ(Importe(QStringLiteral("1250")), QStringLiteral("1250"));
    EXPECT_EQ(Importe(QStringLiteral("-450")), QStringLiteral("-450"));
    EXPECT_EQ(Importe(QStringLiteral(" 12 ")), QStringLiteral("12"));
    EXPECT_EQ(Importe(QStringLiteral("1.250")), QStringLiteral("1250"));
    EXPECT_EQ(Importe(QStringLiteral("12,5")), QStringLiteral("12"));
    EXPECT_EQ(Importe(QStringLiteral("13,5")), QStringLiteral("14"));
    EXPECT_EQ(Importe(QStringLiteral("12,50001")), QStringLiteral("12"));
    EXPECT_EQ(Importe(QStringLiteral("12,5001")), QStringLiteral("13"));
}

TEST(LecturaMissatgeTest, AmountsBeyondThirtyTwoBitsAreErrors) {
    EXPECT_EQ(Importe(QStringLiteral("2147483647")), QStringLiteral("2147483647"));
    EXPECT_EQ(Importe(QStringLiteral("-2147483648")), QStringLiteral("-2147483648"));
    EXPECT_EQ(Importe(QStringLiteral("2147483648")), QStringLiteral("error"));
    EXPECT_EQ(Importe(QStringLiteral("-2147483649")), QStringLiteral("error"));
    EXPECT_EQ(Importe(QStringLiteral("2147483647,4")), QStringLiteral("2147483647"));
    EXPECT_EQ(Importe(QStringLiteral("2147483647,5")), QStringLiteral("error"));
    EXPECT_EQ(Importe(QStringLiteral("1e30")), QStringLiteral("error"));
}

TEST(LecturaMissatgeTest, WhatIsNoNumberIsAnError) {
    for (const char* campo : {"", "abc", "12abc", "12.50", "--1"}) {
        EXPECT_EQ(Importe(QString::fromLatin1(campo)), QStringLiteral("error")) << campo;
    }
    const Missatge m = Leer(QStringLiteral("C|A|abc|B|3")).value();
    EXPECT_EQ(m.Importe, Currency(0));
    EXPECT_EQ(m.ID2, QStringLiteral("B"));
    EXPECT_EQ(m.IDcaja, 3);
}

TEST(LecturaMissatgeTest, ATillThatIsNoNumberIsZero) {
    EXPECT_EQ(Caja(QStringLiteral("7")), 7);
    EXPECT_EQ(Caja(QStringLiteral("-2")), -2);
    EXPECT_EQ(Caja(QStringLiteral("2,5")), 2);
    EXPECT_EQ(Caja(QStringLiteral("3,5")), 4);
    EXPECT_EQ(Caja(QStringLiteral("x")), 0);
    EXPECT_EQ(Caja(QString()), 0);
    EXPECT_EQ(Caja(QStringLiteral("2147483648")), 0);
}

TEST(LecturaMissatgeTest, TenThousandFieldsAndAMegabyteAreOneMessage) {
    const Missatge m = Leer(QStringLiteral("C|A") + QString(10000, u'|')).value();
    EXPECT_EQ(m.ID1, QStringLiteral("A"));
    EXPECT_TRUE(m.ImporteError);
    EXPECT_EQ(Leer(QStringLiteral("C|") + QString(1 << 20, u'y')).value().ID1, QString(50, u'y'));
}

} // namespace
} // namespace zv::test
