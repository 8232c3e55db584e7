// What other programs may and may not write: the limits of the column types, the same for an SQL
// shell, an ODBC client or the program itself.
#include "platform/StringLiterals.h"
#include "support/BaseDeDatosTemporal.h"
#include "support/ImprimeQt.h"
#include "support/NumeroError.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using test::BaseDeDatosTemporal;
using test::NumeroError;

constexpr int kRestriccion = 275;

class TiposTest : public testing::Test {
  protected:
    int Insertar(const char* columna, const char* valor) {
        return NumeroError([&] {
            otro->Ejecutar(u"INSERT INTO cola (%1) VALUES (%2)"_s.arg(QLatin1String(columna),
                                                                      QString::fromUtf8(valor)));
        });
    }
    int InsertarValor(const char* columna, const QVariant& valor) {
        return NumeroError([&] {
            otro->Ejecutar(u"INSERT INTO cola (%1) VALUES (?)"_s.arg(QLatin1String(columna)),
                           {valor});
        });
    }
    Row Ultima() {
        return base.Database().Consultar(u"SELECT TOP 1 * FROM cola ORDER BY idZV DESC"_s).at(0);
    }

    BaseDeDatosTemporal base;
    std::unique_ptr<SqliteEngine> otro = base.Otro();
};

TEST_F(TiposTest, ALongHas32Bits) {
    EXPECT_EQ(Insertar("idcaja", "2147483647"), 0);
    EXPECT_EQ(Insertar("idcaja", "-2147483648"), 0);
    EXPECT_EQ(Insertar("idcaja", "' 12 '"), 0); // a number in a text is one
    EXPECT_EQ(Ultima().LeerLong(u"idcaja"_s), 12);
    EXPECT_EQ(Insertar("idcaja", "2147483648"), kRestriccion);
    EXPECT_EQ(Insertar("idcaja", "-2147483649"), kRestriccion);
    EXPECT_EQ(Insertar("idcaja", "1.5"), kRestriccion);
    EXPECT_EQ(Insertar("idcaja", "'doce'"), kRestriccion);
    EXPECT_EQ(Insertar("idcaja", "NULL"), 0);
}

TEST_F(TiposTest, AKeyHas32BitsToo) {
    EXPECT_EQ(Insertar("idZV", "2147483647"), 0);
    EXPECT_EQ(Insertar("idZV", "2147483648"), kRestriccion);
    EXPECT_NE(Insertar("idZV", "2147483647"), 0);
}

TEST_F(TiposTest, CurrencyIsANumberWithinItsRange) {
    EXPECT_EQ(Insertar("importe", "1250"), 0);
    EXPECT_EQ(Insertar("importe", "9000000000"), 0);
    EXPECT_EQ(Ultima().LeerCurrency(u"importe"_s), Currency::DeEntero(9000000000LL));
    EXPECT_EQ(Insertar("importe", "-12.3456"), 0);
    EXPECT_EQ(Ultima().LeerCurrency(u"importe"_s), Currency::DeDiezmilesimas(-123456));
    EXPECT_EQ(Insertar("importe", "'1250.5'"), 0);
    EXPECT_EQ(Ultima().LeerCurrency(u"importe"_s), Currency::DeDiezmilesimas(12505000));
    EXPECT_EQ(Insertar("importe", "1e15"), kRestriccion);
    EXPECT_EQ(Insertar("importe", "-922337203685478"), kRestriccion);
    EXPECT_EQ(Insertar("importe", "'mucho'"), kRestriccion);
    EXPECT_EQ(Insertar("importe", "x'00'"), kRestriccion);
    EXPECT_EQ(Insertar("importe", "NULL"), 0);
}

TEST_F(TiposTest, TheEndsOfCurrencyThatAreTakenCanBeRead) {
    for (const char* signo : {"", "-"}) {
        const QByteArray dentro = QByteArray(signo) + "922337203685477.5";
        EXPECT_EQ(Insertar("importe", dentro), 0);
        // Near the ends a double tells tenths no more.
        EXPECT_NEAR(Ultima().LeerCurrency(u"importe"_s).ADoble(), dentro.toDouble(), 0.1);
        // The next double is no Currency any more.
        EXPECT_EQ(Insertar("importe", QByteArray(signo) + "922337203685477.5807"), kRestriccion);
    }
}

TEST_F(TiposTest, ADateIsIsoTextOrANumberOfDays) {
    const QDateTime fecha(QDate(2026, 3, 14), QTime(18, 4, 11));
    for (const char* valor :
         {"'2026-03-14 18:04:11'", "'2026-03-14T18:04:11'", "datetime('2026-03-14 18:04:11')"}) {
        EXPECT_EQ(Insertar("fecha", valor), 0) << valor;
        EXPECT_EQ(Ultima().LeerFecha(u"fecha"_s), fecha) << valor;
    }
    EXPECT_EQ(Insertar("fecha", "'2026-03-14'"), 0);
    EXPECT_EQ(Insertar("fecha", "46095.5"), 0);
    EXPECT_EQ(Ultima().LeerFecha(u"fecha"_s), QDateTime(QDate(2026, 3, 14), QTime(12, 0)));
    EXPECT_EQ(Insertar("fecha", "NULL"), 0);
    for (const char* valor :
         {"'14/03/2026'", "'hoy'", "''", "'2026-02-30 10:00:00'", "'12:00'", "3000000", "x'00'",
          "'2026-13-01'", "'2026-03-14 25:00'", "'2026-03-14 18:04Z'",
          "'2026-03-14 18:04:11+02:00'", "'2026-03-14  18:04'", "'2026-03-14 '"}) {
        EXPECT_EQ(Insertar("fecha", valor), kRestriccion) << valor;
    }
    EXPECT_NE(Insertar("fecha", "'now'"), 0);
    EXPECT_EQ(InsertarValor("fecha", u"2026-03-14 18:04:11."_s + QString(200000, u'1')),
              kRestriccion);
}

TEST_F(TiposTest, EveryDateThatIsTakenCanBeRead) {
    for (const char* valor :
         {"'2026-03-14 18:04:11.5'", "'2026-03-14 18:04'", "'2026-03-14 18:04:11.9999999'",
          "'0001-01-01'", "'9999-12-31 23:59:59'", "-657434", "2958465.9", "0"}) {
        if (Insertar("fecha", valor) == 0) {
            EXPECT_TRUE(Ultima().LeerFecha(u"fecha"_s).isValid()) << valor;
        } else {
            ADD_FAILURE() << valor;
        }
    }
}

TEST_F(TiposTest, DatesAreWrittenAsLocalIsoText) {
    EXPECT_EQ(InsertarValor("fecha", QDateTime(QDate(2026, 3, 4), QTime(8, 4, 1, 999))), 0);
    EXPECT_EQ(Ultima().LeerTexto(u"fecha"_s), u"2026-03-04 08:04:01"_s);
    EXPECT_EQ(InsertarValor("fecha", QDateTime()), 0);
    EXPECT_TRUE(Ultima().EsNulo(u"fecha"_s));
    EXPECT_EQ(InsertarValor("fecha", QDate(2026, 3, 4)), 0);
    EXPECT_EQ(Ultima().LeerFecha(u"fecha"_s), QDateTime(QDate(2026, 3, 4), QTime(0, 0)));
}

TEST_F(TiposTest, TextIsMeasuredInCharacters) {
    const QString cuatroBytes = QString::fromUcs4(U"\U0001F4B6").repeated(50);
    EXPECT_EQ(InsertarValor("id1", cuatroBytes), 0);
    EXPECT_EQ(Ultima().LeerTexto(u"id1"_s), cuatroBytes);
    EXPECT_EQ(InsertarValor("id1", QString(cuatroBytes + u'x')), kRestriccion);
    EXPECT_EQ(InsertarValor("id1", QString(51, u'ñ')), kRestriccion);
    EXPECT_EQ(InsertarValor("id1", QByteArray("bytes")), kRestriccion);
    EXPECT_EQ(Insertar("id1", "12345"), 0); // a number becomes its text
    EXPECT_EQ(Ultima().LeerTexto(u"id1"_s), u"12345"_s);
}

// length(), substr() and the comparison of texts stop at a NUL.
TEST_F(TiposTest, NoTextHidesAnythingBehindANul) {
    const QString nul(QChar(u'\0'));
    for (const QString& texto :
         {nul, u"T1"_s + nul, nul + u"T1"_s, u"T1"_s + nul + QString(200000, u'x')}) {
        for (const char* columna : {"id1", "id2", "terminal", "vendedor", "formapago"}) {
            EXPECT_EQ(InsertarValor(columna, texto), kRestriccion) << columna;
        }
        EXPECT_EQ(NumeroError([&] {
                      otro->Ejecutar(u"INSERT INTO Usuarios (nombre) VALUES (?)"_s, {texto});
                  }),
                  kRestriccion);
        EXPECT_EQ(NumeroError([&] {
                      otro->Ejecutar(u"INSERT INTO procesados (usuario) VALUES (?)"_s, {texto});
                  }),
                  kRestriccion);
    }
    for (const char* fecha : {"2026-03-14", "2026-03-14 18:04:11", "2026-03-14 18:04:11.5"}) {
        EXPECT_EQ(InsertarValor("fecha", QString::fromLatin1(fecha) + nul + u"x"_s), kRestriccion);
    }
    for (const char* columna : {"idcaja", "importe", "manual"}) {
        EXPECT_EQ(InsertarValor(columna, u"1"_s + nul + u"2"_s), kRestriccion) << columna;
    }
    EXPECT_EQ(base.Cuenta(u"cola"_s), 0);
}

TEST_F(TiposTest, AYesNoIsNeverNull) {
    EXPECT_EQ(Insertar("importe", "1"), 0);
    EXPECT_FALSE(Ultima().EsNulo(u"manual"_s));
    EXPECT_FALSE(Ultima().LeerBooleano(u"manual"_s));
    EXPECT_EQ(Insertar("manual", "NULL"), 0);
    EXPECT_FALSE(Ultima().EsNulo(u"manual"_s));
    for (const char* si : {"1", "-1", "true"}) {
        EXPECT_EQ(Insertar("manual", si), 0);
        EXPECT_TRUE(Ultima().LeerBooleano(u"manual"_s)) << si;
    }
    EXPECT_EQ(Insertar("manual", "'si'"), kRestriccion);
}

TEST_F(TiposTest, EveryOtherColumnOfTheQueueMayBeNull) {
    ASSERT_EQ(Insertar("idZV", "NULL"), 0);
    const Row fila = Ultima();
    EXPECT_EQ(fila.LeerLong(u"idZV"_s), 1);
    for (const QString& columna : fila.Columnas()) {
        const bool siempre = columna == QLatin1String("idZV") || columna == QLatin1String("manual");
        EXPECT_EQ(fila.EsNulo(columna), !siempre) << columna.toStdString();
    }
    EXPECT_EQ(fila.LeerTexto(u"id1"_s), QString());
    EXPECT_EQ(fila.LeerCurrency(u"creditoError"_s), Currency(0));
}

// What a value of a foreign file reads as: the numbers of the failures, 0 for none.
struct Ajeno {
    const char* valor;
    int comoLong;
    int comoCurrency;
    int comoTexto;
    int comoBooleano;
    int comoFecha;
};

TEST_F(TiposTest, ValuesOfTheWrongKindInAForeignFileAreFailuresAndNotCrashes) {
    const Ajeno ajenos[] = {
        {"NULL", 0, 0, 0, 0, 0},
        {"7", 0, 0, 0, 0, 0},
        {"2147483648", 6, 0, 0, 0, 6},
        {"9223372036854775807", 6, 6, 0, 0, 6},
        {"-9223372036854775808", 6, 6, 0, 0, 6},
        {"46095.75", 0, 0, 0, 0, 0},
        {"922337203685477.5807", 6, 6, 0, 0, 6},
        {"-922337203685477.5808", 6, 0, 0, 0, 6},
        {"9e99", 6, 6, 0, 0, 6},
        {"9e999", 6, 6, 0, 0, 6},
        {"-9e999", 6, 6, 0, 0, 6},
        {"''", 13, 13, 0, 13, 13},
        {"'doce'", 13, 13, 0, 13, 13},
        {"'12'", 13, 13, 0, 13, 13},
        {"'2026-03-14'", 13, 13, 0, 13, 0},
        {"'2026-03-14 18:04:11.25x'", 13, 13, 0, 13, 13},
        {"'2026-03-14'||char(0)||hex(zeroblob(100000))", 13, 13, 0, 13, 13},
        {"'2026-03-14 18:04:11.'||hex(zeroblob(100000))", 13, 13, 0, 13, 13},
        {"hex(zeroblob(100000))", 13, 13, 0, 13, 13},
        {"x''", 13, 13, 13, 13, 13},
        {"zeroblob(200000)", 13, 13, 13, 13, 13},
    };
    otro->Ejecutar(u"CREATE TABLE ajena (valor)"_s);
    for (const Ajeno& a : ajenos) {
        SCOPED_TRACE(a.valor);
        otro->Ejecutar(u"DELETE FROM ajena"_s);
        otro->Ejecutar(u"INSERT INTO ajena VALUES (%1)"_s.arg(QLatin1String(a.valor)));
        const Row fila = base.Database().Consultar(u"SELECT * FROM ajena"_s).at(0);
        EXPECT_EQ(NumeroError([&] { fila.LeerLong(0); }), a.comoLong);
        EXPECT_EQ(NumeroError([&] { fila.LeerCurrency(0); }), a.comoCurrency);
        EXPECT_EQ(NumeroError([&] { fila.LeerTexto(0); }), a.comoTexto);
        EXPECT_EQ(NumeroError([&] { fila.LeerBooleano(0); }), a.comoBooleano);
        EXPECT_EQ(NumeroError([&] { fila.LeerFecha(0); }), a.comoFecha);
    }
}

} // namespace
} // namespace zv
