// Record sets: the key that a new row will have, changes of the current row, and what a failure
// leaves behind.
#include "platform/StringLiterals.h"
#include "support/BaseDeDatosTemporal.h"
#include "support/GanchoFallos.h"
#include "support/ImprimeQt.h"
#include "support/NumeroError.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

using test::BaseDeDatosTemporal;
using test::GanchoFallos;
using test::NumeroError;
using Kind = Statement::Kind;

class ConjuntoTest : public testing::Test {
  protected:
    std::unique_ptr<RecordSet> Cola() { return motor.AbrirTabla(u"cola"_s); }
    static std::unique_ptr<RecordSet> ConFilaNueva(DatabaseEngine& motor, int importe) {
        auto filas = motor.AbrirTabla(u"cola"_s);
        filas->Nuevo();
        filas->Poner(u"importe"_s, importe);
        return filas;
    }
    qint64 Añadir(int importe) {
        auto filas = ConFilaNueva(motor, importe);
        const qint64 clave = filas->ClaveNueva();
        filas->Actualizar();
        return clave;
    }
    Row Leer(qint64 clave) {
        auto filas = Cola();
        EXPECT_TRUE(filas->Buscar(clave));
        return filas->Actual();
    }

    BaseDeDatosTemporal base;
    DatabaseEngine& motor = base.Database();
};

TEST_F(ConjuntoTest, TheRowIsStoredWithTheKeyThatWasTold) {
    EXPECT_EQ(Añadir(10), 1);
    EXPECT_EQ(Añadir(20), 2);
    EXPECT_EQ(Leer(2).LeerLong(u"importe"_s), 20);
}

TEST_F(ConjuntoTest, ANumberIsNeverUsedTwice) {
    Añadir(10);
    motor.Ejecutar(u"DELETE FROM cola"_s);
    EXPECT_EQ(Añadir(20), 2);
    base.Otro()->Ejecutar(u"INSERT INTO cola (idZV) VALUES (40)"_s);
    motor.Ejecutar(u"DELETE FROM cola"_s);
    EXPECT_EQ(Añadir(30), 41);
}

TEST_F(ConjuntoTest, ARowWithoutAQuestionForItsKeyIsNumberedByTheEngine) {
    Añadir(10);
    ConFilaNueva(motor, 20)->Actualizar();
    EXPECT_EQ(Leer(2).LeerLong(u"importe"_s), 20);
}

TEST_F(ConjuntoTest, ARowWithoutAnyValueTakesTheDefaults) {
    auto filas = Cola();
    filas->Nuevo();
    filas->Actualizar();
    EXPECT_TRUE(Leer(1).EsNulo(u"importe"_s));
    EXPECT_FALSE(Leer(1).EsNulo(u"manual"_s));
}

TEST_F(ConjuntoTest, FromTheKeyToTheRowNobodyElseWrites) {
    const auto otro = base.Otro();
    auto filas = ConFilaNueva(motor, 10);
    const auto insertar = [&] { otro->Ejecutar(u"INSERT INTO cola (importe) VALUES (5)"_s); };
    insertar();
    EXPECT_EQ(filas->ClaveNueva(), 2);
    EXPECT_EQ(filas->ClaveNueva(), 2);
    EXPECT_EQ(NumeroError(insertar) & 0xff, 5);
    filas->Actualizar();
    insertar();
    EXPECT_EQ(base.Cuenta(u"cola"_s), 3);
}

TEST_F(ConjuntoTest, LeavingARowThatWasNotStoredLetsTheLockGo) {
    const auto otro = base.Otro();
    for (const bool cerrar : {true, false}) {
        auto filas = ConFilaNueva(motor, 10);
        filas->ClaveNueva();
        if (cerrar) {
            filas->Cerrar();
        } else {
            filas.reset();
        }
        otro->Ejecutar(u"INSERT INTO cola (importe) VALUES (5)"_s);
    }
    EXPECT_EQ(base.Cuenta(u"cola"_s), 2);
}

TEST_F(ConjuntoTest, NothingElseOfOursIsMixedIntoARowThatWaits) {
    auto filas = ConFilaNueva(motor, 10);
    filas->ClaveNueva();
    EXPECT_EQ(NumeroError([&] { motor.Ejecutar(u"DELETE FROM cola"_s); }), 21);
    EXPECT_EQ(NumeroError([&] { motor.Comenzar(); }), 21);
    filas->Actualizar();
    EXPECT_EQ(motor.Ejecutar(u"DELETE FROM cola"_s), 1);
}

TEST_F(ConjuntoTest, InsideATransactionTheRowGoesWithIt) {
    motor.Comenzar();
    EXPECT_EQ(Añadir(10), 1);
    EXPECT_EQ(motor.Nivel(), 1);
    motor.Deshacer();
    EXPECT_EQ(base.Cuenta(u"cola"_s), 0);
    motor.Comenzar();
    Añadir(20);
    motor.Confirmar();
    EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
}

TEST_F(ConjuntoTest, AFailedUpdateMayBeRepeated) {
    GanchoFallos gancho(motor);
    gancho.Falla(Kind::Escritura, u"INSERT"_s, 1);
    auto filas = ConFilaNueva(motor, 10);
    filas->ClaveNueva();
    EXPECT_EQ(NumeroError([&] { filas->Actualizar(); }), 5);
    filas->Actualizar();
    EXPECT_EQ(Leer(1).LeerLong(u"importe"_s), 10);
}

TEST_F(ConjuntoTest, AFailedCommitOfTheRowLeavesNoLockAndMayBeRepeated) {
    const auto otro = base.Otro();
    GanchoFallos gancho(motor);
    gancho.Falla(Kind::Confirmar, u"COMMIT"_s, 1);
    auto filas = ConFilaNueva(motor, 10);
    filas->ClaveNueva();
    EXPECT_EQ(NumeroError([&] { filas->Actualizar(); }), 5);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 0);
    otro->Ejecutar(u"INSERT INTO Accesos (lugar) VALUES ('x')"_s);
    filas->Actualizar();
    EXPECT_EQ(Leer(1).LeerLong(u"importe"_s), 10);
    EXPECT_EQ(motor.Nivel(), 0);
}

TEST_F(ConjuntoTest, ANumberTakenAfterAFailedCommitIsNotGivenAgain) {
    const auto otro = base.Otro();
    GanchoFallos gancho(motor);
    gancho.Falla(Kind::Confirmar, u"COMMIT"_s, 1);
    auto filas = ConFilaNueva(motor, 10);
    filas->ClaveNueva();
    EXPECT_EQ(NumeroError([&] { filas->Actualizar(); }), 5);
    otro->Ejecutar(u"INSERT INTO cola (importe) VALUES (5)"_s);
    EXPECT_EQ(NumeroError([&] { filas->Actualizar(); }), 1555);
    filas->Cerrar();
    EXPECT_EQ(Leer(1).LeerLong(u"importe"_s), 5);
}

TEST_F(ConjuntoTest, SeekingARowThatIsNotThereLeavesNoCurrentOne) {
    Añadir(10);
    auto filas = Cola();
    EXPECT_TRUE(filas->Buscar(1));
    EXPECT_FALSE(filas->Buscar(2));
    EXPECT_FALSE(filas->HayActual());
    EXPECT_EQ(NumeroError([&] { filas->Actual(); }), 21);
    EXPECT_EQ(NumeroError([&] { filas->Borrar(); }), 21);
    EXPECT_EQ(NumeroError([&] { filas->Poner(u"importe"_s, 1); }), 21);
    EXPECT_EQ(NumeroError([&] { filas->Actualizar(); }), 21);
    EXPECT_EQ(NumeroError([&] { filas->ClaveNueva(); }), 21);
}

TEST_F(ConjuntoTest, TheCurrentRowIsChangedColumnByColumn) {
    Añadir(10);
    Añadir(20);
    auto filas = Cola();
    ASSERT_TRUE(filas->Buscar(2));
    filas->Poner(u"CREDITOERROR"_s, ValorBD(300));
    filas->Poner(u"creditoError"_s, ValorBD(400));
    filas->Poner(u"fecha"_s, QDateTime(QDate(2026, 3, 14), QTime(18, 4, 11)));
    filas->Actualizar();
    EXPECT_EQ(filas->Actual().LeerCurrency(u"creditoError"_s), Currency(400));
    EXPECT_EQ(filas->Actual().LeerFecha(u"fecha"_s),
              QDateTime(QDate(2026, 3, 14), QTime(18, 4, 11)));
    EXPECT_EQ(Leer(2).LeerCurrency(u"creditoError"_s), Currency(400));
    EXPECT_EQ(Leer(2).LeerLong(u"importe"_s), 20);
    EXPECT_TRUE(Leer(1).EsNulo(u"creditoError"_s));
}

TEST_F(ConjuntoTest, AnUnknownColumnRaises9) {
    auto filas = Cola();
    filas->Nuevo();
    EXPECT_EQ(NumeroError([&] { filas->Poner(u"nada"_s, 1); }), 9);
}

TEST_F(ConjuntoTest, AnUnknownTableCannotBeOpened) {
    EXPECT_EQ(NumeroError([&] { motor.AbrirTabla(u"nada"_s); }), 1);
}

TEST_F(ConjuntoTest, DeletingTakesTheCurrentRowOnly) {
    Añadir(10);
    Añadir(20);
    auto filas = Cola();
    ASSERT_TRUE(filas->Buscar(1));
    filas->Borrar();
    EXPECT_FALSE(filas->HayActual());
    EXPECT_FALSE(filas->Buscar(1));
    EXPECT_TRUE(filas->Buscar(2));
}

TEST_F(ConjuntoTest, ARowThatAnotherProgramTookAwayFailsItsChange) {
    Añadir(10);
    auto filas = Cola();
    ASSERT_TRUE(filas->Buscar(1));
    base.Otro()->Ejecutar(u"DELETE FROM cola"_s);
    EXPECT_EQ(NumeroError([&] { filas->Borrar(); }), 12);
    filas->Poner(u"importe"_s, 5);
    EXPECT_EQ(NumeroError([&] { filas->Actualizar(); }), 12);
}

TEST_F(ConjuntoTest, AQueryStandsOnItsFirstRow) {
    Añadir(10);
    Añadir(20);
    const auto abrir = [&](const QVariant& importe) {
        return motor.Preparar(u"select * from Cola where IMPORTE= @imp"_s, 1)
            ->AbrirConjunto(u"Cola"_s, {importe});
    };
    auto filas = abrir(20);
    ASSERT_TRUE(filas->HayActual());
    EXPECT_EQ(filas->Actual().LeerLong(u"idZV"_s), 2);
    filas->Borrar();
    filas = abrir(20);
    EXPECT_FALSE(filas->HayActual());
    filas->Nuevo();
    filas->Poner(u"importe"_s, 20);
    filas->Actualizar();
    EXPECT_TRUE(abrir(20)->HayActual());
}

TEST_F(ConjuntoTest, ATableWithoutNumberingStillTellsTheNextKey) {
    motor.Ejecutar(u"CREATE TABLE vieja (n INTEGER PRIMARY KEY, x TEXT)"_s);
    motor.Ejecutar(u"INSERT INTO vieja VALUES (7,'a')"_s);
    auto filas = motor.AbrirTabla(u"vieja"_s);
    filas->Nuevo();
    EXPECT_EQ(filas->ClaveNueva(), 8);
    filas->Actualizar();
    EXPECT_EQ(base.Cuenta(u"vieja"_s), 2);
}

TEST_F(ConjuntoTest, AColumnThatAnotherProgramAddsIsKnownAtOnce) {
    Leer(Añadir(10));
    base.Otro()->Ejecutar(u"ALTER TABLE Cola ADD COLUMN notas TEXT"_s);
    auto filas = Cola();
    ASSERT_TRUE(filas->Buscar(1));
    filas->Poner(u"notas"_s, u"x"_s);
    filas->Actualizar();
    EXPECT_EQ(Leer(1).LeerTexto(u"notas"_s), u"x"_s);
}

TEST_F(ConjuntoTest, ATableIsLookedUpOnce) {
    Cola();
    GanchoFallos gancho(motor);
    Cola();
    EXPECT_EQ(gancho.Cuenta(Kind::Catalogo, u"pragma_table_info"_s), 0);
}

TEST_F(ConjuntoTest, NoViewIsFrozenByAnOpenRecordSet) {
    Añadir(10);
    auto filas = Cola();
    ASSERT_TRUE(filas->Buscar(1));
    const auto otro = base.Otro();
    otro->Ejecutar(u"INSERT INTO cola (importe) VALUES (5)"_s);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 2);
    filas->Borrar(); // a frozen view would fail with "busy"
    EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
}

class ConsultasTest : public ConjuntoTest {};

TEST_F(ConsultasTest, ValuesAreBoundSoThatAQuoteChangesNothing) {
    const QString traviesa = u"a' OR 1=1 --"_s;
    motor.Ejecutar(u"INSERT INTO cola (id1) VALUES (?)"_s, {traviesa});
    Añadir(10);
    const auto filas = motor.Consultar(u"SELECT * FROM cola WHERE id1 = ?"_s, {traviesa});
    ASSERT_EQ(filas.size(), 1u);
    EXPECT_EQ(filas[0].LeerTexto(u"id1"_s), traviesa);
}

TEST_F(ConsultasTest, AStrayQuoteIsTheEnginesOwnFailure) {
    Añadir(10);
    EXPECT_EQ(NumeroError([&] { motor.Ejecutar(u"DELETE FROM cola'"_s); }), 1);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
}

TEST_F(ConsultasTest, AnEmptyTextIsNotNull) {
    motor.Ejecutar(u"INSERT INTO cola (id1,id2,terminal) VALUES (?,?,?)"_s,
                   {QString(), QVariant(), u""_s});
    const Row fila = motor.Consultar(u"SELECT * FROM cola"_s).at(0);
    EXPECT_FALSE(fila.EsNulo(u"id1"_s));
    EXPECT_TRUE(fila.EsNulo(u"id2"_s));
    EXPECT_FALSE(fila.EsNulo(u"terminal"_s));
}

TEST_F(ConsultasTest, TooFewValuesAreNotFilledUpFromTheLastRun) {
    const QString sql = u"INSERT INTO cola (importe,id1) VALUES (?,?)"_s;
    EXPECT_NE(NumeroError([&] { motor.Ejecutar(sql, {1}); }), 0);
    motor.Ejecutar(sql, {1, u"a"_s});
    EXPECT_EQ(NumeroError([&] { motor.Ejecutar(sql, {2}); }), 25);
    EXPECT_NE(NumeroError([&] { motor.Ejecutar(sql, {2, 3, 4}); }), 0);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
}

TEST_F(ConsultasTest, TheQueryOfTheQueueTakesTheOldestRowThatIsNotManual) {
    motor.Ejecutar(u"INSERT INTO cola (importe,manual) VALUES (1,1),(2,-1),(3,0)"_s);
    Añadir(4);
    const auto filas =
        motor.Consultar(u"SELECT TOP 1 * FROM cola WHERE NOT manual ORDER BY idZv"_s);
    ASSERT_EQ(filas.size(), 1u);
    EXPECT_EQ(filas[0].LeerLong(u"importe"_s), 3);
}

TEST_F(ConsultasTest, TextComparesWithoutCase) {
    motor.Ejecutar(u"INSERT INTO cola (id1) VALUES ('Ticket')"_s);
    EXPECT_EQ(base.Cuenta(u"cola"_s, u"id1='TICKET'"_s), 1);
}

TEST_F(ConsultasTest, AQueryThatWritesIsRefused) {
    Añadir(10);
    EXPECT_EQ(NumeroError([&] { motor.Consultar(u"DELETE FROM cola"_s); }), 1);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
}

TEST_F(ConsultasTest, WalkingEndsWhenTheVisitorSaysSo) {
    Añadir(10);
    Añadir(20);
    Añadir(30);
    QList<qint32> vistas;
    motor.Recorrer(u"SELECT importe FROM cola ORDER BY importe"_s, {}, [&](const Row& fila) {
        vistas.append(fila.LeerLong(0));
        return vistas.size() < 2;
    });
    EXPECT_EQ(vistas, QList<qint32>({10, 20}));
    Añadir(40); // the walk has left nothing open
    EXPECT_EQ(base.Cuenta(u"cola"_s), 4);
}

TEST_F(ConsultasTest, AVisitorThatRaisesOrUsesTheEngineLeavesNothingOpen) {
    Añadir(10);
    const auto recorrer = [&](const std::function<void()>& hacer) {
        motor.Recorrer(u"SELECT * FROM cola"_s, {}, [&](const Row&) {
            hacer();
            return true;
        });
    };
    EXPECT_EQ(NumeroError([&] { recorrer([] { throw errores::TipoNoCoincide(); }); }), 13);
    EXPECT_EQ(NumeroError([&] { recorrer([&] { base.Cuenta(u"cola"_s); }); }), 21);
    base.Otro()->Ejecutar(u"DELETE FROM cola"_s);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 0);
}

TEST_F(ConsultasTest, ManyDifferentStatementsDoNotPileUp) {
    for (int i = 0; i < 500; ++i) {
        EXPECT_EQ(motor.Consultar(u"SELECT %1"_s.arg(i)).at(0).LeerLong(0), i);
    }
}

TEST_F(ConsultasTest, AStatementThatFailedRunsAgain) {
    const QString sql = u"INSERT INTO cola (idZV) VALUES (?)"_s;
    motor.Ejecutar(sql, {1});
    EXPECT_EQ(NumeroError([&] { motor.Ejecutar(sql, {1}); }), 1555);
    EXPECT_EQ(motor.Ejecutar(sql, {2}), 1);
}

TEST_F(ConsultasTest, TwoEnginesInOneProcessDoNotMeet) {
    BaseDeDatosTemporal segunda;
    Añadir(10);
    EXPECT_EQ(segunda.Cuenta(u"cola"_s), 0);
    motor.Comenzar();
    EXPECT_EQ(segunda.Database().Nivel(), 0);
}

} // namespace
} // namespace zv
