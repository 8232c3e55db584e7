// What the adaptation of statements changes, and above all what it leaves alone.
#include "store/sqlite/SqlDialect.h"

#include "platform/StringLiterals.h"
#include "support/BaseDeDatosTemporal.h"
#include "support/ImprimeQt.h"
#include "support/NumeroError.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using test::NumeroError;

struct Caso {
    const char* nombre;
    const char* entra;
    const char* sale;
};

void PrintTo(const Caso& caso, std::ostream* salida) {
    *salida << caso.nombre;
}

class SqlDialectTest : public testing::TestWithParam<Caso> {};

TEST_P(SqlDialectTest, Adapts) {
    EXPECT_EQ(AdaptToSqlite(QString::fromUtf8(GetParam().entra)),
              QString::fromUtf8(GetParam().sale));
}

INSTANTIATE_TEST_SUITE_P(
    Top, SqlDialectTest,
    testing::Values(Caso{"OldestThatIsNotManual",
                         "SELECT TOP 1 * FROM cola WHERE NOT manual ORDER BY idZv",
                         "SELECT * FROM cola WHERE NOT manual ORDER BY idZv LIMIT 1"},
                    Caso{"Oldest", "SELECT TOP 1 * FROM cola ORDER BY idZV",
                         "SELECT * FROM cola ORDER BY idZV LIMIT 1"},
                    Caso{"AnyCaseAndBlanks", " select\ttop  12 id1 from cola ",
                         "select id1 from cola  LIMIT 12"},
                    Caso{"Parameters", "SELECT TOP 2 a FROM b WHERE c=? AND d>=@e",
                         "SELECT a FROM b WHERE c=? AND d>=@e LIMIT 2"}));

TEST(SqlDialect, AnyOtherStatementStaysToTheLetter) {
    for (const char* otra :
         {"SELECT * FROM cola", "", "SELECT a, top FROM b", "select * from Cola where ID1= @idI",
          "UPDATE c SET n=n+1, m=(a+b)*2", "SELECT 'SELECT TOP 1 x' FROM c",
          "DELETE FROM c WHERE SELECT TOP 1 x", "SELECT TOP 1 a FROM b WHERE c='-- x'",
          "SELECT DISTINCT TOP 3 rol FROM Usuarios", "SELECT TOP 10 PERCENT a FROM b",
          "SELECT TOP x a FROM b", "SELECT TOP 1 a FROM b; DELETE FROM b",
          "SELECT TOP 1 a FROM b -- x", "SELECT TOP 1 a FROM b /* x",
          "SELECT TOP 1 a FROM (SELECT TOP 2 a FROM u)",
          "SELECT TOP 1 a FROM b UNION SELECT a FROM c", "SELECT TOP 1 [a] FROM b",
          "DELETE FROM cierres'"}) {
        const QString sql = QString::fromLatin1(otra);
        EXPECT_EQ(AdaptToSqlite(sql), sql);
    }
}

TEST(SqlDialect, WhatSqliteDoesNotKnowIsItsOwnFailure) {
    test::BaseDeDatosTemporal base;
    DatabaseEngine& motor = base.Database();
    for (const char* sql :
         {"SELECT DISTINCT TOP 3 id1 FROM cola", "SELECT TOP 10 PERCENT id1 FROM cola",
          "SELECT TOP 1 id1 FROM cola -- x", "SELECT TOP 1 id1 FROM cola LIMIT 5",
          "SELECT TOP 1 id1 FROM cola UNION SELECT id1 FROM procesados",
          "SELECT * FROM (SELECT TOP 2 id1 FROM cola)", "SELECT TOP 1 id1 FROM cola WHERE id1='a",
          "SELECT * FROM cola'", "SELECT id1 & id2 AS x FROM cola WHERE id1 ALIKE 'a'"}) {
        EXPECT_EQ(NumeroError([&] { motor.Consultar(QString::fromLatin1(sql)); }), 1) << sql;
    }
    EXPECT_EQ(NumeroError([&] { motor.Ejecutar(u"DELETE FROM cierres'"_s); }), 1);
}

TEST(SqlDialect, ParametersByNameAreTakenByTheirPosition) {
    test::BaseDeDatosTemporal base;
    DatabaseEngine& motor = base.Database();
    motor.Ejecutar(u"INSERT INTO cola (id1,id2) VALUES ('a','b'),('b','a')"_s);
    EXPECT_EQ(motor.Consultar(u"SELECT idZV FROM cola WHERE id2=@x AND id1=@y"_s, {u"b"_s, u"a"_s})
                  .at(0)
                  .LeerLong(0),
              1);
    EXPECT_NE(NumeroError([&] { motor.Consultar(u"SELECT @a, @b"_s, {1}); }), 0);
}

TEST(SqlDialect, TextsThatAViewJoinsCompareWithoutCase) {
    EXPECT_EQ(AdaptViewToSqlite(u"SELECT * FROM cola WHERE id1+' '+id2 IN (SELECT Cola.id1+' "
                                "'+Cola.id2 FROM Cola)"_s),
              u"SELECT * FROM cola WHERE id1||' '||id2 COLLATE NOCASE IN (SELECT Cola.id1||' "
              "'||Cola.id2 COLLATE NOCASE FROM Cola)"_s);
    EXPECT_EQ(AdaptViewToSqlite(u"SELECT sum(importe) FROM Cola"_s),
              u"SELECT sum(importe) FROM Cola"_s);
}

TEST(SqlDialect, AViewThatJoinsAnythingElseIsRefused) {
    for (const char* sql : {"SELECT id1+id2 FROM c", "SELECT id1+' '+id2+id3 FROM c",
                            "SELECT 'a'+1 FROM c", "SELECT a+1 FROM c", "SELECT '+' FROM c"}) {
        EXPECT_EQ(NumeroError([&] { AdaptViewToSqlite(QString::fromLatin1(sql)); }), 13) << sql;
    }
    test::BaseDeDatosTemporal base;
    DatabaseEngine& motor = base.Database();
    EXPECT_EQ(NumeroError([&] { motor.CrearVista(u"v"_s, u"SELECT id1+id2 FROM cola"_s); }), 13);
    EXPECT_FALSE(motor.Tablas().contains(u"v"_s));
}

} // namespace
} // namespace zv
