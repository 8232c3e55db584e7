// The answer of each command, in the order of its tests.
#include "fastlink/RespuestaFast.h"

#include "fastlink/LecturaMissatge.h"
#include "platform/StringLiterals.h"
#include "support/BaseDeDatosTemporal.h"
#include "support/FixedClock.h"
#include "support/GanchoFallos.h"
#include "support/ImprimeQt.h"

#include <gtest/gtest.h>

namespace zv::test {
namespace {

class RespuestaFastTest : public testing::Test {
  protected:
    RespuestaFastTest() { datos.Inicialitza(); }
    QString Contesta(const QString& texto) {
        return ContestarMissatge(datos, LeerMissatge(texto, FormatoRegional(u"es_ES"_s)).value());
    }
    void Archiva(const QString& id1, const QString& estado) {
        motor.Ejecutar(u"DELETE FROM cola WHERE id1=?"_s, {id1});
        motor.Ejecutar(u"INSERT INTO procesados (id1,id2,estado) VALUES (?,'',?)"_s, {id1, estado});
    }

    BaseDeDatosTemporal base;
    DatabaseEngine& motor = base.Database();
    FixedClock reloj;
    dades datos{motor, reloj};
};

TEST_F(RespuestaFastTest, ANewChargeIsAddedAndExistsFromThenOn) {
    EXPECT_EQ(Contesta(u"C|T0001|1250|A|3|TPV1|ANA|EFECTIVO"_s), u"OK|Added"_s);
    EXPECT_EQ(base.Cuenta(u"cola"_s, u"id1='T0001' AND importe=1250 AND "
                                     "idcaja=3 AND terminal='TPV1'"_s),
              1);
    EXPECT_EQ(Contesta(u"C|T0001|1250"_s), u"NOK|Already exists"_s);
    Archiva(u"T0001"_s, u"CANCEL"_s);
    EXPECT_EQ(Contesta(u"C|T0001|1250"_s), u"NOK|Already exists"_s);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 0);
}

TEST_F(RespuestaFastTest, WithoutAnAmountTheChargeIsOfZero) {
    EXPECT_EQ(Contesta(u"C|A"_s), u"OK|Added"_s);
    EXPECT_EQ(base.Cuenta(u"cola"_s, u"importe=0"_s), 1);
}

TEST_F(RespuestaFastTest, TheAmountIsTestedBeforeTheIdentifier) {
    EXPECT_EQ(Contesta(u"C|T0002|abc"_s), u"NOK|Amount too big"_s);
    EXPECT_EQ(Contesta(u"C||abc"_s), u"NOK|Amount too big"_s);
    EXPECT_EQ(Contesta(u"C||100"_s), u"NOK|Invalid ID"_s);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 0);
}

TEST_F(RespuestaFastTest, IdsThatDifferOnlyBehindTheFiftiethCharacterAreOneCharge) {
    const QString inicio(50, u'i');
    EXPECT_EQ(Contesta(u"C|%1aaaaaaaaaa|1"_s.arg(inicio)), u"OK|Added"_s);
    EXPECT_EQ(Contesta(u"C|%1bbbbbbbbbb|1"_s.arg(inicio)), u"NOK|Already exists"_s);
}

TEST_F(RespuestaFastTest, AStateIsPendingUntilItIsFiled) {
    Contesta(u"C|T0001|1250"_s);
    EXPECT_EQ(Contesta(u"S|T0001"_s), u"OK|PENDING"_s);
    EXPECT_EQ(Contesta(u"S|T0001|abc"_s), u"OK|PENDING"_s);
    Archiva(u"T0001"_s, u"OK"_s);
    EXPECT_EQ(Contesta(u"S|T0001"_s), u"OK|OK"_s);
    Archiva(u"T0002"_s, u"ERROR"_s);
    EXPECT_EQ(Contesta(u"S|T0002"_s), u"OK|ERROR"_s);
}

TEST_F(RespuestaFastTest, AnUnknownStateDependsOnTheCaseOfTheCommand) {
    EXPECT_EQ(Contesta(u"S|T0099"_s), u"NOK|Not found"_s);
    EXPECT_EQ(Contesta(u"s|T0099"_s), u"OK|NOT FOUND"_s);
    EXPECT_EQ(Contesta(u"S|"_s), u"NOK|Not found"_s);
    EXPECT_EQ(Contesta(u"s|"_s), u"NOK|Not found"_s);
    EXPECT_EQ(Contesta(u"c|T0099|5"_s), u"OK|Added"_s);
    EXPECT_EQ(Contesta(u"S|T0099\r\n"_s), u"NOK|Not found"_s);
}

TEST_F(RespuestaFastTest, AnyOtherCommandIsUnknown) {
    for (const char* texto : {"X|T0001", "|T0001", " C|T0001|1", "CC|T0001", "SS|T0001"}) {
        EXPECT_EQ(Contesta(QString::fromLatin1(texto)), u"NOK|Unknown command"_s) << texto;
    }
    EXPECT_EQ(base.Cuenta(u"cola"_s), 0);
}

TEST_F(RespuestaFastTest, AFailedInsertionIsToldAndLeavesNoRow) {
    GanchoFallos fallos(motor);
    fallos.Falla(Statement::Kind::Escritura, u"INSERT INTO"_s, 1);
    EXPECT_EQ(Contesta(u"C|T1|5"_s), u"NOK|Failed"_s);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 0);
    EXPECT_EQ(Contesta(u"S|T1"_s), u"NOK|Not found"_s);
    EXPECT_EQ(Contesta(u"C|T2|5"_s), u"NOK|Failed"_s);
}

} // namespace
} // namespace zv::test
