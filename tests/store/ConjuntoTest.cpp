// Record sets: the key that a new row will have, changes of the current row, and what a failure
// leaves behind.
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
using Clase = Sentencia::Clase;

class ConjuntoTest : public testing::Test {
  protected:
    std::unique_ptr<ConjuntoRegistros> Cola() { return motor.AbrirTabla(QStringLiteral("cola")); }
    static std::unique_ptr<ConjuntoRegistros> ConFilaNueva(MotorBD& motor, int importe) {
        auto filas = motor.AbrirTabla(QStringLiteral("cola"));
        filas->Nuevo();
        filas->Poner(QStringLiteral("importe"), importe);
        return filas;
    }
    qint64 Añadir(int importe) {
        auto filas = ConFilaNueva(motor, importe);
        const qint64 clave = filas->ClaveNueva();
        filas->Actualizar();
        return clave;
    }
    Fila Leer(qint64 clave) {
        auto filas = Cola();
        EXPECT_TRUE(filas->Buscar(clave));
        return filas->Actual();
    }

    BaseDeDatosTemporal base;
    MotorBD& motor = base.Motor();
};

TEST_F(ConjuntoTest, TheRowIsStoredWithTheKeyThatWasTold) {
    EXPECT_EQ(Añadir(10), 1);
    EXPECT_EQ(Añadir(20), 2);
    EXPECT_EQ(Leer(2).LeerLong(QStringLiteral("importe")), 20);
}

TEST_F(ConjuntoTest, ANumberIsNeverUsedTwice) {
    Añadir(10);
    motor.Ejecutar(QStringLiteral("DELETE FROM cola"));
    EXPECT_EQ(Añadir(20), 2);
    base.Otro()->Ejecutar(QStringLiteral("INSERT INTO cola (idZV) VALUES (40)"));
    motor.Ejecutar(QStringLiteral("DELETE FROM cola"));
    EXPECT_EQ(Añadir(30), 41);
}

TEST_F(ConjuntoTest, ARowWithoutAQuestionForItsKeyIsNumberedByTheEngine) {
    Añadir(10);
    ConFilaNueva(motor, 20)->Actualizar();
    EXPECT_EQ(Leer(2).LeerLong(QStringLiteral("importe")), 20);
}

TEST_F(ConjuntoTest, ARowWithoutAnyValueTakesTheDefaults) {
    auto filas = Cola();
    filas->Nuevo();
    filas->Actualizar();
    EXPECT_TRUE(Leer(1).EsNulo(QStringLiteral("importe")));
    EXPECT_FALSE(Leer(1).EsNulo(QStringLiteral("manual")));
}

TEST_F(ConjuntoTest, FromTheKeyToTheRowNobodyElseWrites) {
    const auto otro = base.Otro();
    auto filas = ConFilaNueva(motor, 10);
    const auto insertar = [&] {
        otro->Ejecutar(QStringLiteral("INSERT INTO cola (importe) VALUES (5)"));
    };
    insertar();
    EXPECT_EQ(filas->ClaveNueva(), 2);
    EXPECT_EQ(filas->ClaveNueva(), 2);
    EXPECT_EQ(NumeroError(insertar) & 0xff, 5);
    filas->Actualizar();
    insertar();
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 3);
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
        otro->Ejecutar(QStringLiteral("INSERT INTO cola (importe) VALUES (5)"));
    }
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 2);
}

TEST_F(ConjuntoTest, NothingElseOfOursIsMixedIntoARowThatWaits) {
    auto filas = ConFilaNueva(motor, 10);
    filas->ClaveNueva();
    EXPECT_EQ(NumeroError([&] { motor.Ejecutar(QStringLiteral("DELETE FROM cola")); }), 21);
    EXPECT_EQ(NumeroError([&] { motor.Comenzar(); }), 21);
    filas->Actualizar();
    EXPECT_EQ(motor.Ejecutar(QStringLiteral("DELETE FROM cola")), 1);
}

TEST_F(ConjuntoTest, InsideATransactionTheRowGoesWithIt) {
    motor.Comenzar();
    EXPECT_EQ(Añadir(10), 1);
    EXPECT_EQ(motor.Nivel(), 1);
    motor.Deshacer();
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 0);
    motor.Comenzar();
    Añadir(20);
    motor.Confirmar();
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 1);
}

TEST_F(ConjuntoTest, AFailedUpdateMayBeRepeated) {
    GanchoFallos gancho(motor);
    gancho.Falla(Clase::Escritura, QStringLiteral("INSERT"), 1);
    auto filas = ConFilaNueva(motor, 10);
    filas->ClaveNueva();
    EXPECT_EQ(NumeroError([&] { filas->Actualizar(); }), 5);
    filas->Actualizar();
    EXPECT_EQ(Leer(1).LeerLong(QStringLiteral("importe")), 10);
}

TEST_F(ConjuntoTest, AFailedCommitOfTheRowLeavesNoLockAndMayBeRepeated) {
    const auto otro = base.Otro();
    GanchoFallos gancho(motor);
    gancho.Falla(Clase::Confirmar, QStringLiteral("COMMIT"), 1);
    auto filas = ConFilaNueva(motor, 10);
    filas->ClaveNueva();
    EXPECT_EQ(NumeroError([&] { filas->Actualizar(); }), 5);
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 0);
    otro->Ejecutar(QStringLiteral("INSERT INTO Accesos (lugar) VALUES ('x')"));
    filas->Actualizar();
    EXPECT_EQ(Leer(1).LeerLong(QStringLiteral("importe")), 10);
    EXPECT_EQ(motor.Nivel(), 0);
}

TEST_F(ConjuntoTest, ANumberTakenAfterAFailedCommitIsNotGivenAgain) {
    const auto otro = base.Otro();
    GanchoFallos gancho(motor);
    gancho.Falla(Clase::Confirmar, QStringLiteral("COMMIT"), 1);
    auto filas = ConFilaNueva(motor, 10);
    filas->ClaveNueva();
    EXPECT_EQ(NumeroError([&] { filas->Actualizar(); }), 5);
    otro->Ejecutar(QStringLiteral("INSERT INTO cola (importe) VALUES (5)"));
    EXPECT_EQ(NumeroError([&] { filas->Actualizar(); }), 1555);
    filas->Cerrar();
    EXPECT_EQ(Leer(1).LeerLong(QStringLiteral("importe")), 5);
}

TEST_F(ConjuntoTest, SeekingARowThatIsNotThereLeavesNoCurrentOne) {
    Añadir(10);
    auto filas = Cola();
    EXPECT_TRUE(filas->Buscar(1));
    EXPECT_FALSE(filas->Buscar(2));
    EXPECT_FALSE(filas->HayActual());
    EXPECT_EQ(NumeroError([&] { filas->Actual(); }), 21);
    EXPECT_EQ(NumeroError([&] { filas->Borrar(); }), 21);
    EXPECT_EQ(NumeroError([&] { filas->Poner(QStringLiteral("importe"), 1); }), 21);
    EXPECT_EQ(NumeroError([&] { filas->Actualizar(); }), 21);
    EXPECT_EQ(NumeroError([&] { filas->ClaveNueva(); }), 21);
}

TEST_F(ConjuntoTest, TheCurrentRowIsChangedColumnByColumn) {
    Añadir(10);
    Añadir(20);
    auto filas = Cola();
    ASSERT_TRUE(filas->Buscar(2));
    filas->Poner(QStringLiteral("CREDITOERROR"), ValorBD(300));
    filas->Poner(QStringLiteral("creditoError"), ValorBD(400));
    filas->Poner(QStringLiteral("fecha"), QDateTime(QDate(2026, 3, 14), QTime(18, 4, 11)));
    filas->Actualizar();
    EXPECT_EQ(filas->Actual().LeerCurrency(QStringLiteral("creditoError")), Currency(400));
    EXPECT_EQ(filas->Actual().LeerFecha(QStringLiteral("fecha")),
              QDateTime(QDate(2026, 3, 14), QTime(18, 4, 11)));
    EXPECT_EQ(Leer(2).LeerCurrency(QStringLiteral("creditoError")), Currency(400));
    EXPECT_EQ(Leer(2).LeerLong(QStringLiteral("importe")), 20);
    EXPECT_TRUE(Leer(1).EsNulo(QStringLiteral("creditoError")));
}

TEST_F(ConjuntoTest, AnUnknownColumnRaises9) {
    auto filas = Cola();
    filas->Nuevo();
    EXPECT_EQ(NumeroError([&] { filas->Poner(QStringLiteral("nada"), 1); }), 9);
}

TEST_F(ConjuntoTest, AnUnknownTableCannotBeOpened) {
    EXPECT_EQ(NumeroError([&] { motor.AbrirTabla(QStringLiteral("nada")); }), 1);
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
    base.Otro()->Ejecutar(QStringLiteral("DELETE FROM cola"));
    EXPECT_EQ(NumeroError([&] { filas->Borrar(); }), 12);
    filas->Poner(QStringLiteral("importe"), 5);
    EXPECT_EQ(NumeroError([&] { filas->Actualizar(); }), 12);
}

TEST_F(ConjuntoTest, AQueryStandsOnItsFirstRow) {
    Añadir(10);
    Añadir(20);
    const auto abrir = [&](const QVariant& importe) {
        return motor.AbrirConsulta(QStringLiteral("Cola"),
                                   QStringLiteral("select * from Cola where IMPORTE= @imp"),
                                   {importe});
    };
    auto filas = abrir(20);
    ASSERT_TRUE(filas->HayActual());
    EXPECT_EQ(filas->Actual().LeerLong(QStringLiteral("idZV")), 2);
    filas->Borrar();
    filas = abrir(20);
    EXPECT_FALSE(filas->HayActual());
    filas->Nuevo();
    filas->Poner(QStringLiteral("importe"), 20);
    filas->Actualizar();
    EXPECT_TRUE(abrir(20)->HayActual());
}

TEST_F(ConjuntoTest, ATableWithoutNumberingStillTellsTheNextKey) {
    motor.Ejecutar(QStringLiteral("CREATE TABLE vieja (n INTEGER PRIMARY KEY, x TEXT)"));
    motor.Ejecutar(QStringLiteral("INSERT INTO vieja VALUES (7,'a')"));
    auto filas = motor.AbrirTabla(QStringLiteral("vieja"));
    filas->Nuevo();
    EXPECT_EQ(filas->ClaveNueva(), 8);
    filas->Actualizar();
    EXPECT_EQ(base.Cuenta(QStringLiteral("vieja")), 2);
}

TEST_F(ConjuntoTest, AColumnThatAnotherProgramAddsIsKnownAtOnce) {
    Leer(Añadir(10));
    base.Otro()->Ejecutar(QStringLiteral("ALTER TABLE Cola ADD COLUMN notas TEXT"));
    auto filas = Cola();
    ASSERT_TRUE(filas->Buscar(1));
    filas->Poner(QStringLiteral("notas"), QStringLiteral("x"));
    filas->Actualizar();
    EXPECT_EQ(Leer(1).LeerTexto(QStringLiteral("notas")), QStringLiteral("x"));
}

TEST_F(ConjuntoTest, ATableIsLookedUpOnce) {
    Cola();
    GanchoFallos gancho(motor);
    Cola();
    EXPECT_EQ(gancho.Cuenta(Clase::Catalogo, QStringLiteral("pragma_table_info")), 0);
}

TEST_F(ConjuntoTest, NoViewIsFrozenByAnOpenRecordSet) {
    Añadir(10);
    auto filas = Cola();
    ASSERT_TRUE(filas->Buscar(1));
    const auto otro = base.Otro();
    otro->Ejecutar(QStringLiteral("INSERT INTO cola (importe) VALUES (5)"));
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 2);
    filas->Borrar(); // a frozen view would fail with "busy"
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 1);
}

class ConsultasTest : public ConjuntoTest {};

TEST_F(ConsultasTest, ValuesAreBoundSoThatAQuoteChangesNothing) {
    const QString traviesa = QStringLiteral("a' OR 1=1 --");
    motor.Ejecutar(QStringLiteral("INSERT INTO cola (id1) VALUES (?)"), {traviesa});
    Añadir(10);
    const auto filas =
        motor.Consultar(QStringLiteral("SELECT * FROM cola WHERE id1 = ?"), {traviesa});
    ASSERT_EQ(filas.size(), 1u);
    EXPECT_EQ(filas[0].LeerTexto(QStringLiteral("id1")), traviesa);
}

TEST_F(ConsultasTest, AStrayQuoteIsTheEnginesOwnFailure) {
    Añadir(10);
    EXPECT_EQ(NumeroError([&] { motor.Ejecutar(QStringLiteral("DELETE FROM cola'")); }), 1);
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 1);
}

TEST_F(ConsultasTest, AnEmptyTextIsNotNull) {
    motor.Ejecutar(QStringLiteral("INSERT INTO cola (id1,id2,terminal) VALUES (?,?,?)"),
                   {QString(), QVariant(), QStringLiteral("")});
    const Fila fila = motor.Consultar(QStringLiteral("SELECT * FROM cola")).at(0);
    EXPECT_FALSE(fila.EsNulo(QStringLiteral("id1")));
    EXPECT_TRUE(fila.EsNulo(QStringLiteral("id2")));
    EXPECT_FALSE(fila.EsNulo(QStringLiteral("terminal")));
}

TEST_F(ConsultasTest, TooFewValuesAreNotFilledUpFromTheLastRun) {
    const QString sql = QStringLiteral("INSERT INTO cola (importe,id1) VALUES (?,?)");
    EXPECT_NE(NumeroError([&] { motor.Ejecutar(sql, {1}); }), 0);
    motor.Ejecutar(sql, {1, QStringLiteral("a")});
    EXPECT_EQ(NumeroError([&] { motor.Ejecutar(sql, {2}); }), 25);
    EXPECT_NE(NumeroError([&] { motor.Ejecutar(sql, {2, 3, 4}); }), 0);
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 1);
}

TEST_F(ConsultasTest, TheQueryOfTheQueueTakesTheOldestRowThatIsNotManual) {
    motor.Ejecutar(QStringLiteral("INSERT INTO cola (importe,manual) VALUES (1,1),(2,-1),(3,0)"));
    Añadir(4);
    const auto filas =
        motor.Consultar(QStringLiteral("SELECT TOP 1 * FROM cola WHERE NOT manual ORDER BY idZv"));
    ASSERT_EQ(filas.size(), 1u);
    EXPECT_EQ(filas[0].LeerLong(QStringLiteral("importe")), 3);
}

TEST_F(ConsultasTest, TextComparesWithoutCase) {
    motor.Ejecutar(QStringLiteral("INSERT INTO cola (id1) VALUES ('Ticket')"));
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola"), QStringLiteral("id1='TICKET'")), 1);
}

TEST_F(ConsultasTest, AQueryThatWritesIsRefused) {
    Añadir(10);
    EXPECT_EQ(NumeroError([&] { motor.Consultar(QStringLiteral("DELETE FROM cola")); }), 1);
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 1);
}

TEST_F(ConsultasTest, WalkingEndsWhenTheVisitorSaysSo) {
    Añadir(10);
    Añadir(20);
    Añadir(30);
    QList<qint32> vistas;
    motor.Recorrer(QStringLiteral("SELECT importe FROM cola ORDER BY importe"), {},
                   [&](const Fila& fila) {
                       vistas.append(fila.LeerLong(0));
                       return vistas.size() < 2;
                   });
    EXPECT_EQ(vistas, QList<qint32>({10, 20}));
    Añadir(40); // the walk has left nothing open
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 4);
}

TEST_F(ConsultasTest, AVisitorThatRaisesOrUsesTheEngineLeavesNothingOpen) {
    Añadir(10);
    const auto recorrer = [&](const std::function<void()>& hacer) {
        motor.Recorrer(QStringLiteral("SELECT * FROM cola"), {}, [&](const Fila&) {
            hacer();
            return true;
        });
    };
    EXPECT_EQ(NumeroError([&] { recorrer([] { throw errores::TipoNoCoincide(); }); }), 13);
    EXPECT_EQ(NumeroError([&] { recorrer([&] { base.Cuenta(QStringLiteral("cola")); }); }), 21);
    base.Otro()->Ejecutar(QStringLiteral("DELETE FROM cola"));
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 0);
}

TEST_F(ConsultasTest, ManyDifferentStatementsDoNotPileUp) {
    for (int i = 0; i < 500; ++i) {
        EXPECT_EQ(motor.Consultar(QStringLiteral("SELECT %1").arg(i)).at(0).LeerLong(0), i);
    }
}

TEST_F(ConsultasTest, AStatementThatFailedRunsAgain) {
    const QString sql = QStringLiteral("INSERT INTO cola (idZV) VALUES (?)");
    motor.Ejecutar(sql, {1});
    EXPECT_EQ(NumeroError([&] { motor.Ejecutar(sql, {1}); }), 1555);
    EXPECT_EQ(motor.Ejecutar(sql, {2}), 1);
}

TEST_F(ConsultasTest, TwoEnginesInOneProcessDoNotMeet) {
    BaseDeDatosTemporal segunda;
    Añadir(10);
    EXPECT_EQ(segunda.Cuenta(QStringLiteral("cola")), 0);
    motor.Comenzar();
    EXPECT_EQ(segunda.Motor().Nivel(), 0);
}

} // namespace
} // namespace zv
