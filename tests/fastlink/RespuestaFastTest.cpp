// The answer of each command, in the order of its tests.
#include "fastlink/RespuestaFast.h"

#include "fastlink/LecturaMissatge.h"
#include "support/BaseDeDatosTemporal.h"
#include "support/GanchoFallos.h"
#include "support/ImprimeQt.h"
#include "support/RelojFijo.h"

#include <gtest/gtest.h>

namespace zv::test {
namespace {

class RespuestaFastTest : public testing::Test {
  protected:
    RespuestaFastTest() { datos.Inicialitza(); }
    QString Contesta(const QString& texto) {
        return ContestarMissatge(
            datos, LeerMissatge(texto, FormatoRegional(QStringLiteral("es_ES"))).value());
    }
    void Archiva(const QString& id1, const QString& estado) {
        motor.Ejecutar(QStringLiteral("DELETE FROM cola WHERE id1=?"), {id1});
        motor.Ejecutar(QStringLiteral("INSERT INTO procesados (id1,id2,estado) VALUES (?,'',?)"),
                       {id1, estado});
    }

    BaseDeDatosTemporal base;
    MotorBD& motor = base.Motor();
    RelojFijo reloj;
    dades datos{motor, reloj};
};

TEST_F(RespuestaFastTest, ANewChargeIsAddedAndExistsFromThenOn) {
    EXPECT_EQ(Contesta(QStringLiteral("C|T0001|1250|A|3|TPV1|ANA|EFECTIVO")),
              QStringLiteral("OK|Added"));
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola"), QStringLiteral("id1='T0001' AND importe=1250 AND "
                                                                 "idcaja=3 AND terminal='TPV1'")),
              1);
    EXPECT_EQ(Contesta(QStringLiteral("C|T0001|1250")), QStringLiteral("NOK|Already exists"));
    Archiva(QStringLiteral("T0001"), QStringLiteral("CANCEL"));
    EXPECT_EQ(Contesta(QStringLiteral("C|T0001|1250")), QStringLiteral("NOK|Already exists"));
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 0);
}

TEST_F(RespuestaFastTest, WithoutAnAmountTheChargeIsOfZero) {
    EXPECT_EQ(Contesta(QStringLiteral("C|A")), QStringLiteral("OK|Added"));
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola"), QStringLiteral("importe=0")), 1);
}

TEST_F(RespuestaFastTest, TheAmountIsTestedBeforeTheIdentifier) {
    EXPECT_EQ(Contesta(QStringLiteral("C|T0002|abc")), QStringLiteral("NOK|Amount too big"));
    EXPECT_EQ(Contesta(QStringLiteral("C||abc")), QStringLiteral("NOK|Amount too big"));
    EXPECT_EQ(Contesta(QStringLiteral("C||100")), QStringLiteral("NOK|Invalid ID"));
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 0);
}

TEST_F(RespuestaFastTest, IdsThatDifferOnlyBehindTheFiftiethCharacterAreOneCharge) {
    const QString inicio(50, u'i');
    EXPECT_EQ(Contesta(QStringLiteral("C|%1aaaaaaaaaa|1").arg(inicio)), QStringLiteral("OK|Added"));
    EXPECT_EQ(Contesta(QStringLiteral("C|%1bbbbbbbbbb|1").arg(inicio)),
              QStringLiteral("NOK|Already exists"));
}

TEST_F(RespuestaFastTest, AStateIsPendingUntilItIsFiled) {
    Contesta(QStringLiteral("C|T0001|1250"));
    EXPECT_EQ(Contesta(QStringLiteral("S|T0001")), QStringLiteral("OK|PENDING"));
    EXPECT_EQ(Contesta(QStringLiteral("S|T0001|abc")), QStringLiteral("OK|PENDING"));
    Archiva(QStringLiteral("T0001"), QStringLiteral("OK"));
    EXPECT_EQ(Contesta(QStringLiteral("S|T0001")), QStringLiteral("OK|OK"));
    Archiva(QStringLiteral("T0002"), QStringLiteral("ERROR"));
    EXPECT_EQ(Contesta(QStringLiteral("S|T0002")), QStringLiteral("OK|ERROR"));
}

TEST_F(RespuestaFastTest, AnUnknownStateDependsOnTheCaseOfTheCommand) {
    EXPECT_EQ(Contesta(QStringLiteral("S|T0099")), QStringLiteral("NOK|Not found"));
    EXPECT_EQ(Contesta(QStringLiteral("s|T0099")), QStringLiteral("OK|NOT FOUND"));
    EXPECT_EQ(Contesta(QStringLiteral("S|")), QStringLiteral("NOK|Not found"));
    EXPECT_EQ(Contesta(QStringLiteral("s|")), QStringLiteral("NOK|Not found"));
    EXPECT_EQ(Contesta(QStringLiteral("c|T0099|5")), QStringLiteral("OK|Added"));
    EXPECT_EQ(Contesta(QStringLiteral("S|T0099\r\n")), QStringLiteral("NOK|Not found"));
}

TEST_F(RespuestaFastTest, AnyOtherCommandIsUnknown) {
    for (const char* texto : {"X|T0001", "|T0001", " C|T0001|1", "CC|T0001", "SS|T0001"}) {
        EXPECT_EQ(Contesta(QString::fromLatin1(texto)), QStringLiteral("NOK|Unknown command"))
            << texto;
    }
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 0);
}

TEST_F(RespuestaFastTest, AFailedInsertionIsToldAndLeavesNoRow) {
    GanchoFallos fallos(motor);
    fallos.Falla(Sentencia::Clase::Escritura, QStringLiteral("INSERT INTO"), 1);
    EXPECT_EQ(Contesta(QStringLiteral("C|T1|5")), QStringLiteral("NOK|Failed"));
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 0);
    EXPECT_EQ(Contesta(QStringLiteral("S|T1")), QStringLiteral("NOK|Not found"));
    EXPECT_EQ(Contesta(QStringLiteral("C|T2|5")), QStringLiteral("NOK|Failed"));
}

} // namespace
} // namespace zv::test
