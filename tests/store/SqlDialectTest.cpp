// What the adaptation of statements changes, and above all what it leaves alone.
#include "store/sqlite/SqlDialect.h"

#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"
#include "support/NumeroError.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

struct Caso {
    const char* nombre;
    const char* entra;
    const char* sale;
};

void PrintTo(const Caso& caso, std::ostream* salida) {
    *salida << caso.nombre;
}

QSet<QString> ColumnasTexto() {
    return {u"id1"_s, u"id2"_s, u"nombre"_s};
}

class SqlDialectTest : public testing::TestWithParam<Caso> {};

TEST_P(SqlDialectTest, Adapts) {
    EXPECT_EQ(AdaptToSqlite(QString::fromUtf8(GetParam().entra), ColumnasTexto),
              QString::fromUtf8(GetParam().sale));
}

INSTANTIATE_TEST_SUITE_P(
    Top, SqlDialectTest,
    testing::Values(
        Caso{"Simple", "SELECT TOP 1 * FROM cola WHERE NOT manual ORDER BY idZv",
             "SELECT * FROM cola WHERE NOT manual ORDER BY idZv LIMIT 1"},
        Caso{"AnyCase", "select top 12 id1 from cola", "select id1 from cola LIMIT 12"},
        Caso{"Distinct", "SELECT DISTINCT TOP 3 rol FROM Usuarios",
             "SELECT DISTINCT rol FROM Usuarios LIMIT 3"},
        Caso{"Semicolon", "SELECT TOP 1 a FROM b ;", "SELECT a FROM b LIMIT 1 ;"},
        Caso{"SubSelect", "SELECT * FROM t WHERE a IN (SELECT TOP 2 a FROM u ORDER BY a) AND b=1",
             "SELECT * FROM t WHERE a IN (SELECT a FROM u ORDER BY a LIMIT 2) AND b=1"},
        Caso{"Both", "SELECT TOP 1 * FROM (SELECT TOP 5 a FROM u)",
             "SELECT * FROM (SELECT a FROM u LIMIT 5) LIMIT 1"},
        Caso{"BeforeTrailingBlank", "SELECT TOP 1 a FROM b  ", "SELECT a FROM b LIMIT 1  "}));

INSTANTIATE_TEST_SUITE_P(
    TextJoin, SqlDialectTest,
    testing::Values(
        Caso{"View",
             "SELECT * FROM cola WHERE id1+' '+id2 IN (SELECT Cola.id1+' '+Cola.id2 FROM Cola)",
             "SELECT * FROM cola WHERE id1||' '||id2 COLLATE NOCASE IN (SELECT Cola.id1||' "
             "'||Cola.id2 COLLATE NOCASE FROM Cola)"},
        Caso{"ColumnsAlone", "SELECT id1 + Cola.ID2 FROM Cola",
             "SELECT id1 || Cola.ID2 COLLATE NOCASE FROM Cola"},
        Caso{"QuotedColumns", "SELECT [id1]+\"id2\" FROM c",
             "SELECT [id1]||\"id2\" COLLATE NOCASE FROM c"},
        Caso{"LiteralWithUnknown", "SELECT 'x'+y FROM c", "SELECT 'x'||y COLLATE NOCASE FROM c"},
        Caso{"Group", "SELECT ('a'+'b')+y FROM c",
             "SELECT ('a'||'b' COLLATE NOCASE)||y COLLATE NOCASE FROM c"},
        Caso{"Function", "SELECT upper(y)+'x' FROM c",
             "SELECT upper(y)||'x' COLLATE NOCASE FROM c"},
        Caso{"Parameter", "SELECT ?+id1 FROM c", "SELECT ?||id1 COLLATE NOCASE FROM c"},
        Caso{"PlusInsideLiteral", "SELECT 'a+b'+id1 FROM c",
             "SELECT 'a+b'||id1 COLLATE NOCASE FROM c"},
        Caso{"AtTheEndOfTop", "SELECT TOP 1 a FROM c ORDER BY id1+'x'",
             "SELECT a FROM c ORDER BY id1||'x' COLLATE NOCASE LIMIT 1"}));

INSTANTIATE_TEST_SUITE_P(
    Parameters, SqlDialectTest,
    testing::Values(Caso{"ByName", "select * from Cola where ID1= @idI",
                         "select * from Cola where ID1= ?"},
                    Caso{"EachOccurrence", "SELECT @a, @b, @a", "SELECT ?, ?, ?"},
                    Caso{"ByPosition", "SELECT ? FROM c WHERE x=@y", "SELECT ? FROM c WHERE x=?"}));

INSTANTIATE_TEST_SUITE_P(
    LeftAlone, SqlDialectTest,
    testing::Values(
        Caso{"Plain", "SELECT * FROM cola", "SELECT * FROM cola"},
        Caso{"ParameterInLiteral", "SELECT '@a', x+1 FROM c", "SELECT '@a', x+1 FROM c"},
        Caso{"TopInLiteral", "SELECT 'SELECT TOP 1 x' FROM c", "SELECT 'SELECT TOP 1 x' FROM c"},
        Caso{"DoubledQuote", "SELECT 'it''s TOP @a' FROM c", "SELECT 'it''s TOP @a' FROM c"},
        Caso{"QuotedNames", "SELECT [TOP 1], \"@a\", `b+c` FROM d",
             "SELECT [TOP 1], \"@a\", `b+c` FROM d"},
        Caso{"ColumnNamedTop", "SELECT a, top FROM b", "SELECT a, top FROM b"},
        Caso{"Percent", "SELECT TOP 10 PERCENT a FROM b", "SELECT TOP 10 PERCENT a FROM b"},
        Caso{"TopBeforeUnion", "SELECT TOP 1 a FROM b UNION SELECT a FROM c",
             "SELECT TOP 1 a FROM b UNION SELECT a FROM c"},
        Caso{"TopOfNoNumber", "SELECT TOP x a FROM b", "SELECT TOP x a FROM b"},
        Caso{"Arithmetic", "UPDATE c SET n=n+1, m=(a+b)*2", "UPDATE c SET n=n+1, m=(a+b)*2"},
        Caso{"Sign", "SELECT +1, -2, +n FROM c", "SELECT +1, -2, +n FROM c"},
        Caso{"Exponent", "SELECT 1e+5, 'x' FROM c", "SELECT 1e+5, 'x' FROM c"},
        Caso{"Unterminated", "DELETE FROM cierres' @a + TOP", "DELETE FROM cierres' @a + TOP"},
        Caso{"LineComment", "SELECT a -- TOP @b 'x'+y\nFROM c", "SELECT a -- TOP @b 'x'+y\nFROM c"},
        Caso{"BlockComment", "SELECT a /* 'x'+@b */ FROM c", "SELECT a /* 'x'+@b */ FROM c"},
        Caso{"Dangling", "SELECT 'a' +", "SELECT 'a' +"},
        Caso{"OpenParenthesis", "SELECT ('a' + (", "SELECT ('a' + ("},
        Caso{"ClosingAlone", "SELECT ) + 'a'", "SELECT ) + 'a'"}, Caso{"Empty", "", ""}));

TEST(SqlDialect, ATextJoinMixedWithArithmeticIsRefused) {
    for (const char* sql : {"SELECT 'a'+1 FROM c", "SELECT 2*id1+'x' FROM c", "SELECT 'x'+id1*2",
                            "SELECT id1-'a'+'b'", "SELECT '5'+2+3"}) {
        EXPECT_EQ(test::NumeroError([&] { AdaptToSqlite(QString::fromUtf8(sql), ColumnasTexto); }),
                  13)
            << sql;
    }
}

TEST(SqlDialect, TheColumnsAreAskedForOnlyWhenSomethingIsJoined) {
    int veces = 0;
    const auto columnas = [&veces] {
        ++veces;
        return QSet<QString>();
    };
    AdaptToSqlite(u"SELECT TOP 1 '+' FROM cola WHERE a=@b"_s, columnas);
    EXPECT_EQ(veces, 0);
    AdaptToSqlite(u"SELECT a+b, c+d FROM cola"_s, columnas);
    EXPECT_EQ(veces, 1);
}

} // namespace
} // namespace zv
