// A text that stands between quotes in a statement of the system: bound, and broken by what would
// have broken the statement.
#include "store/TextoCitado.h"

#include "platform/StringLiterals.h"
#include "support/BaseDeDatosTemporal.h"
#include "support/GanchoFallos.h"
#include "support/ImprimeQt.h"
#include "support/NumeroError.h"

#include <gtest/gtest.h>

namespace zv::test {
namespace {

class TextoCitadoTest : public testing::Test {
  protected:
    TextoCitadoTest() {
        motor.Ejecutar(u"INSERT INTO Usuarios (nombre,password,rol) VALUES ('Ana','1234',0)"_s);
    }
    qsizetype Hallados(const QVariant& nombre) {
        return static_cast<qsizetype>(
            motor.Consultar(u"SELECT * FROM Usuarios WHERE nombre = ?"_s, {nombre}).size());
    }
    // The failure that the engine itself raises for the text within the statement.
    ErrorEjecucion Propio(const QString& texto) {
        try {
            motor.Consultar(u"SELECT * FROM Usuarios WHERE nombre = '"_s + texto + u'\'');
        } catch (const ErrorEjecucion& e) {
            return e;
        }
        return {0, {}};
    }

    BaseDeDatosTemporal base;
    DatabaseEngine& motor = base.Database();
};

TEST_F(TextoCitadoTest, IsFoundLikeAnyText) {
    EXPECT_EQ(Hallados(Citado(u"Ana"_s)), 1);
    EXPECT_EQ(Hallados(Citado(u"ANA"_s)), 1);
    for (const char* otro : {"", "An", "Ana ", "A%", "A_a", "\"Ana\"", "Ana\\"}) {
        EXPECT_EQ(Hallados(Citado(QString::fromUtf8(otro))), 0) << otro;
    }
    EXPECT_EQ(Hallados(Citado(QString())), 0);
}

TEST_F(TextoCitadoTest, AQuoteOrANulRaisesTheFailureOfALiteralThatDoesNotEnd) {
    const ErrorEjecucion propio = Propio(u"'"_s);
    EXPECT_EQ(propio.Numero(), 1);
    for (const QString& malo : {u"'"_s, u"O'Brien"_s, u"''"_s, u"' or '1'='1"_s, u"Ana\0"_s,
                                u"\0"_s, u"Ana\0' or 1=1"_s}) {
        EXPECT_EQ(NumeroError([&] { Hallados(Citado(malo)); }), propio.Numero());
    }
    // In the engine's words, to the letter, for the shortest of them.
    motor.PonerGancho({});
    try {
        Hallados(Citado(u"'"_s));
        FAIL();
    } catch (const ErrorEjecucion& e) {
        const QString sinTexto = u"unrecognized token: \"'\""_s;
        EXPECT_EQ(e.Descripcion(), sinTexto);
        EXPECT_TRUE(propio.Descripcion().startsWith(sinTexto.chopped(1)))
            << propio.Descripcion().toStdString();
    }
}

TEST_F(TextoCitadoTest, BreaksWritesAndPreparedQueriesAndNothingElse) {
    EXPECT_EQ(NumeroError([&] {
                  motor.Ejecutar(u"DELETE FROM Usuarios WHERE nombre = ?"_s, {Citado(u"A'"_s)});
              }),
              1);
    const auto consulta = motor.Preparar(u"SELECT * FROM Usuarios WHERE nombre = ?"_s, 1);
    EXPECT_EQ(NumeroError([&] { consulta->Primera({Citado(u"A'"_s)}); }), 1);
    EXPECT_EQ(NumeroError([&] { consulta->AbrirConjunto(u"Usuarios"_s, {Citado(u"A'"_s)}); }), 1);
    EXPECT_TRUE(consulta->Primera({Citado(u"ana"_s)}));
    // A value of a row is no part of a statement.
    EXPECT_EQ(Hallados(u"A'"_s), 0);
    EXPECT_EQ(base.Cuenta(u"Usuarios"_s), 1);
}

TEST_F(TextoCitadoTest, InATransactionTheLevelStaysAndCanBeUndone) {
    motor.Comenzar();
    motor.Ejecutar(u"DELETE FROM Usuarios WHERE nombre = ?"_s, {Citado(u"Ana"_s)});
    EXPECT_EQ(NumeroError([&] {
                  motor.Ejecutar(u"DELETE FROM Usuarios WHERE nombre = ?"_s, {Citado(u"A'"_s)});
              }),
              1);
    EXPECT_EQ(motor.Nivel(), 1);
    motor.Deshacer();
    EXPECT_EQ(base.Cuenta(u"Usuarios"_s), 1);
}

TEST_F(TextoCitadoTest, IsStoredLikeAnyText) {
    motor.Ejecutar(u"UPDATE Usuarios SET nombre = ?"_s, {Citado(u"Eva"_s)});
    EXPECT_EQ(Hallados(u"Eva"_s), 1);
}

} // namespace
} // namespace zv::test
