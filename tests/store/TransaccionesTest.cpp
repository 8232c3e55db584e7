// Transaction levels: the lazy begin, nesting, and what stands after each way in which a begin, a
// write, a commit or a rollback can fail.
#include "DosConexiones.h"
#include "platform/StringLiterals.h"
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

class TransaccionesTest : public test::DosConexiones {
  protected:
    // Nothing more fits into the file.
    void LlenarDisco() {
        const qint32 paginas = motor.Consultar(u"PRAGMA page_count"_s).at(0).LeerLong(0);
        motor.Consultar(u"PRAGMA max_page_count=%1"_s.arg(paginas));
    }
    void InsertarMucho() {
        for (int i = 0; i < 1000; ++i) {
            motor.Ejecutar(u"INSERT INTO cola (id1,id2) VALUES (?,?)"_s,
                           {QString(50, u'x'), QString(50, u'y')});
        }
    }
};

TEST_F(TransaccionesTest, AnOpenLevelThatHasNotWrittenLocksNobodyOut) {
    motor.Comenzar();
    motor.Consultar(u"SELECT * FROM cola"_s);
    Insertar(*otro, 1);
    EXPECT_EQ(Guardado(), u"1"_s);
    // Nor is it held to an old view: its first write works on what stands now.
    Insertar(2);
    motor.Confirmar();
    EXPECT_EQ(Guardado(), u"1,2"_s);
}

TEST_F(TransaccionesTest, TheFirstWriteTakesTheLock) {
    motor.Comenzar();
    Insertar(1);
    EXPECT_EQ(NumeroError([&] { Insertar(*otro, 2); }) & 0xff, 5);
    EXPECT_EQ(Guardado(), QString());
    motor.Confirmar();
    Insertar(*otro, 2);
    EXPECT_EQ(Guardado(), u"1,2"_s);
}

TEST_F(TransaccionesTest, ALockOfAnotherProgramFailsTheWriteAndTheLevelStays) {
    otro->Comenzar();
    Insertar(*otro, 1);
    motor.Comenzar();
    EXPECT_EQ(NumeroError([&] { Insertar(2); }) & 0xff, 5);
    EXPECT_EQ(motor.Nivel(), 1);
    otro->Confirmar();
    Insertar(3);
    motor.Confirmar();
    EXPECT_EQ(Guardado(), u"1,3"_s);
}

TEST_F(TransaccionesTest, ACommitClosesTheInnermostLevelOnly) {
    motor.Comenzar();
    Insertar(1);
    motor.Comenzar();
    EXPECT_EQ(motor.Nivel(), 2);
    Insertar(2);
    motor.Confirmar();
    EXPECT_EQ(motor.Nivel(), 1);
    EXPECT_EQ(Guardado(), QString());
    motor.Confirmar();
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(Guardado(), u"1,2"_s);
}

TEST_F(TransaccionesTest, ARollbackUndoesTheInnermostLevelOnly) {
    motor.Comenzar();
    Insertar(1);
    motor.Comenzar();
    Insertar(2);
    motor.Deshacer();
    Insertar(3);
    motor.Confirmar();
    EXPECT_EQ(Guardado(), u"1,3"_s);
}

TEST_F(TransaccionesTest, AnOuterRollbackUndoesCommittedInnerLevels) {
    motor.Comenzar();
    motor.Comenzar();
    Insertar(1);
    motor.Confirmar();
    motor.Deshacer();
    EXPECT_EQ(Guardado(), QString());
    EXPECT_EQ(motor.Nivel(), 0);
}

TEST_F(TransaccionesTest, AnInnerLevelThatWritesFirstCanBeUndoneAlone) {
    motor.Comenzar();
    motor.Comenzar();
    motor.Comenzar();
    Insertar(1);
    motor.Deshacer();
    Insertar(2);
    motor.Confirmar();
    motor.Confirmar();
    EXPECT_EQ(Guardado(), u"2"_s);
}

TEST_F(TransaccionesTest, LevelsWithoutAWriteIssueNothing) {
    GanchoFallos gancho(motor);
    motor.Comenzar();
    motor.Comenzar();
    motor.Deshacer();
    motor.Confirmar();
    ASSERT_EQ(gancho.vistas.size(), 4u);
    for (const Statement& s : gancho.vistas) {
        EXPECT_EQ(s.sql, QString());
    }
    EXPECT_EQ(gancho.vistas[0].kind, Kind::Comenzar);
    EXPECT_EQ(gancho.vistas[2].kind, Kind::Deshacer);
    EXPECT_EQ(gancho.vistas[3].kind, Kind::Confirmar);
}

TEST_F(TransaccionesTest, EveryStatementPassesTheHookFirst) {
    GanchoFallos gancho(motor);
    motor.Comenzar();
    Insertar(1);
    motor.Comenzar();
    Insertar(2);
    motor.Confirmar();
    motor.Confirmar();
    QStringList vistas;
    for (const Statement& s : gancho.vistas) {
        vistas.append(s.sql.section(QLatin1Char(' '), 0, 1));
    }
    EXPECT_EQ(vistas,
              QStringList({QString(), u"BEGIN IMMEDIATE"_s, u"INSERT INTO"_s, QString(),
                           u"SAVEPOINT zv2"_s, u"INSERT INTO"_s, u"RELEASE zv2"_s, u"COMMIT"_s}));
}

TEST_F(TransaccionesTest, EndingALevelThatIsNotOpenFails) {
    EXPECT_EQ(NumeroError([&] { motor.Confirmar(); }), 1);
    EXPECT_EQ(NumeroError([&] { motor.Deshacer(); }), 1);
    EXPECT_EQ(motor.Nivel(), 0);
}

TEST_F(TransaccionesTest, AFailedBeginOpensNoLevel) {
    GanchoFallos gancho(motor);
    gancho.Falla(Kind::Comenzar, {}, 1);
    EXPECT_EQ(NumeroError([&] { motor.Comenzar(); }), 5);
    EXPECT_EQ(motor.Nivel(), 0);
    motor.Comenzar();
    EXPECT_EQ(motor.Nivel(), 1);
}

TEST_F(TransaccionesTest, AFailedLockFailsTheWriteWhichMayBeRepeated) {
    GanchoFallos gancho(motor);
    gancho.Falla(Kind::Comenzar, u"SAVEPOINT"_s, 1);
    motor.Comenzar();
    motor.Comenzar();
    EXPECT_EQ(NumeroError([&] { Insertar(1); }), 5);
    EXPECT_EQ(motor.Nivel(), 2);
    Insertar(2);
    motor.Deshacer();
    Insertar(3);
    motor.Confirmar();
    EXPECT_EQ(Guardado(), u"3"_s);
}

TEST_F(TransaccionesTest, AFailedCommitRollsBackEndsTheLevelAndIsRaised) {
    GanchoFallos gancho(motor);
    gancho.Falla(Kind::Confirmar, u"COMMIT"_s, 1, {13, u"database or disk is full"_s});
    motor.Comenzar();
    Insertar(1);
    EXPECT_EQ(NumeroError([&] { motor.Confirmar(); }), 13);
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 0);
    Insertar(*otro, 2); // no lock was left behind
    Insertar(3);
    EXPECT_EQ(Guardado(), u"2,3"_s);
}

TEST_F(TransaccionesTest, AFailedInnerCommitUndoesThatLevelOnly) {
    GanchoFallos gancho(motor);
    gancho.Falla(Kind::Confirmar, u"RELEASE"_s, 1);
    motor.Comenzar();
    Insertar(1);
    motor.Comenzar();
    Insertar(2);
    EXPECT_EQ(NumeroError([&] { motor.Confirmar(); }), 5);
    EXPECT_EQ(motor.Nivel(), 1);
    motor.Confirmar();
    EXPECT_EQ(Guardado(), u"1"_s);
}

TEST_F(TransaccionesTest, ACommitThatHadNothingToWriteCanFailToo) {
    GanchoFallos gancho(motor);
    gancho.Falla(Kind::Confirmar, {}, 1);
    motor.Comenzar();
    EXPECT_EQ(NumeroError([&] { motor.Confirmar(); }), 5);
    EXPECT_EQ(motor.Nivel(), 0);
}

TEST_F(TransaccionesTest, AFailedRollbackIsRaisedAndLeavesNothingBehind) {
    GanchoFallos gancho(motor);
    gancho.Falla(Kind::Deshacer, {}, 1);
    motor.Comenzar();
    Insertar(1);
    EXPECT_EQ(NumeroError([&] { motor.Deshacer(); }), 5);
    EXPECT_EQ(motor.Nivel(), 0);
    Insertar(*otro, 2);
    EXPECT_EQ(Guardado(), u"2"_s);
}

TEST_F(TransaccionesTest, AFullDiskFailsTheWriteOrTheCommitAndStoresNothing) {
    LlenarDisco();
    motor.Comenzar();
    EXPECT_EQ(NumeroError([&] {
                  InsertarMucho();
                  motor.Confirmar();
              }),
              13);
    if (motor.Nivel() > 0) {
        motor.Deshacer();
    }
    EXPECT_EQ(Guardado(), QString());
    motor.Consultar(u"PRAGMA max_page_count=1000000"_s);
    Insertar(1);
    EXPECT_EQ(Guardado(), u"1"_s);
}

// SQLite may roll a whole transaction back by itself; a hook does it here at the moment of choice.
class DeshechaPorElMotorTest : public TransaccionesTest {
  protected:
    // The next write finds its transaction gone, and fails for it.
    void Perder() {
        motor.Ejecutar(u"CREATE TEMP TABLE disparo (a)"_s);
        motor.Ejecutar(u"CREATE TEMP TRIGGER t BEFORE INSERT ON disparo BEGIN SELECT "
                       "RAISE(ROLLBACK, 'gone'); END"_s);
    }
    int Disparar() {
        return NumeroError([&] { motor.Ejecutar(u"INSERT INTO disparo VALUES (1)"_s); });
    }
};

TEST_F(DeshechaPorElMotorTest, NothingMayBeWrittenUntilTheCallerHasRolledBack) {
    Perder();
    motor.Comenzar();
    Insertar(1);
    EXPECT_EQ(Disparar() & 0xff, 19);
    EXPECT_EQ(motor.Nivel(), 1);
    // A second half without its first would be worse than neither.
    EXPECT_EQ(NumeroError([&] { Insertar(2); }), 516);
    EXPECT_EQ(NumeroError([&] { motor.Confirmar(); }), 516);
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(Guardado(), QString());
    Insertar(3);
    EXPECT_EQ(Guardado(), u"3"_s);
}

TEST_F(DeshechaPorElMotorTest, EveryLevelIsGone) {
    Perder();
    motor.Comenzar();
    Insertar(1);
    motor.Comenzar();
    Insertar(2);
    Disparar();
    motor.Deshacer();
    EXPECT_EQ(motor.Nivel(), 1);
    EXPECT_EQ(NumeroError([&] { Insertar(3); }), 516);
    motor.Comenzar();
    EXPECT_EQ(NumeroError([&] { Insertar(4); }), 516);
    EXPECT_EQ(NumeroError([&] { motor.Confirmar(); }), 516);
    motor.Deshacer();
    EXPECT_EQ(Guardado(), QString());
    motor.Comenzar();
    Insertar(5);
    motor.Confirmar();
    EXPECT_EQ(Guardado(), u"5"_s);
}

TEST_F(DeshechaPorElMotorTest, AStatementThatFailsAloneLosesNothing) {
    motor.Comenzar();
    Insertar(1);
    EXPECT_EQ(NumeroError([&] { motor.Ejecutar(u"INSERT INTO nada VALUES (1)"_s); }), 1);
    Insertar(2);
    motor.Confirmar();
    EXPECT_EQ(Guardado(), u"1,2"_s);
}

class FicheroPerdidoTest : public TransaccionesTest {
  protected:
    void Borrar() { ASSERT_TRUE(QFile::remove(base.Ruta())); }
};

TEST_F(FicheroPerdidoTest, NothingIsWrittenIntoADeletedFile) {
    Borrar();
    EXPECT_EQ(NumeroError([&] { Insertar(1); }), 1032);
    motor.Comenzar();
    EXPECT_EQ(NumeroError([&] { Insertar(1); }), 1032);
    motor.Deshacer();
    EXPECT_EQ(base.Cuenta(u"cola"_s), 0);
}

TEST_F(FicheroPerdidoTest, AFileDeletedBeforeTheCommitFailsIt) {
    motor.Comenzar();
    Insertar(1);
    Borrar();
    EXPECT_EQ(NumeroError([&] { motor.Confirmar(); }), 1032);
    EXPECT_EQ(motor.Nivel(), 0);
}

TEST_F(FicheroPerdidoTest, AReplacedFileIsNotTheOpenedOne) {
    ASSERT_TRUE(QFile::rename(base.Ruta(), base.Ruta() + u".old"_s));
    ASSERT_TRUE(QFile::copy(base.Ruta() + u".old"_s, base.Ruta()));
    EXPECT_EQ(NumeroError([&] { Insertar(1); }), 1032);
    ASSERT_TRUE(QFile::remove(base.Ruta()));
    ASSERT_TRUE(QFile::rename(base.Ruta() + u".old"_s, base.Ruta()));
    Insertar(2); // back again
}

TEST_F(FicheroPerdidoTest, ReadingAndTheMarkGoOn) {
    Insertar(1);
    Borrar();
    EXPECT_EQ(motor.ChangeStamp(), motor.ChangeStamp());
    EXPECT_EQ(motor.Consultar(u"SELECT * FROM cola"_s).size(), 1u);
    EXPECT_TRUE(motor.Abierta());
}

class ChangeStampTest : public TransaccionesTest {
  protected:
    template <class F>
    bool Cambia(F&& hacer) {
        const quint64 antes = motor.ChangeStamp();
        hacer();
        return motor.ChangeStamp() != antes;
    }
};

TEST_F(ChangeStampTest, StaysWhileNothingIsWritten) {
    EXPECT_FALSE(Cambia([] {}));
    EXPECT_FALSE(Cambia([&] { motor.Consultar(u"SELECT * FROM cola"_s); }));
    EXPECT_FALSE(Cambia([&] { otro->Consultar(u"SELECT * FROM cola"_s); }));
}

TEST_F(ChangeStampTest, ChangesWithEveryWriteOfOursOrOfOthers) {
    EXPECT_TRUE(Cambia([&] { Insertar(1); }));
    EXPECT_TRUE(Cambia([&] { Insertar(*otro, 2); }));
    EXPECT_TRUE(Cambia([&] { otro->Ejecutar(u"DELETE FROM cola"_s); }));
}

TEST_F(ChangeStampTest, ChangesWithWritesCommitsAndRollbacksOfATransaction) {
    motor.Comenzar();
    EXPECT_TRUE(Cambia([&] { Insertar(1); }));
    EXPECT_TRUE(Cambia([&] { motor.Deshacer(); }));
    motor.Comenzar();
    EXPECT_TRUE(Cambia([&] { Insertar(1); }));
    EXPECT_TRUE(Cambia([&] { motor.Confirmar(); }));
}

TEST_F(ChangeStampTest, TellsRowsThatARecordSetAddsFromAllOtherChanges) {
    const auto salvoAltas = [&](const std::function<void()>& hacer) {
        const quint64 antes = motor.ChangeStampExceptAdded();
        EXPECT_TRUE(Cambia(hacer));
        return motor.ChangeStampExceptAdded() != antes;
    };
    const auto tabla = motor.AbrirTabla(u"cola"_s);
    const auto alta = [&] {
        tabla->Nuevo();
        tabla->Poner(u"importe"_s, 1);
        tabla->Actualizar();
    };
    EXPECT_FALSE(salvoAltas(alta));
    EXPECT_TRUE(salvoAltas([&] { // the engine's own transaction around key and row
        tabla->Nuevo();
        tabla->ClaveNueva();
        tabla->Actualizar();
    }));
    EXPECT_TRUE(salvoAltas([&] {
        ASSERT_TRUE(tabla->Buscar(1));
        tabla->Poner(u"importe"_s, 2);
        tabla->Actualizar();
    }));
    EXPECT_TRUE(salvoAltas([&] { tabla->Borrar(); }));
    EXPECT_TRUE(salvoAltas([&] { Insertar(1); }));
    EXPECT_TRUE(salvoAltas([&] { Insertar(*otro, 2); }));
    motor.Comenzar();
    EXPECT_TRUE(salvoAltas(alta)); // it takes the lock
    EXPECT_FALSE(salvoAltas(alta));
    EXPECT_TRUE(salvoAltas([&] { motor.Deshacer(); }));
}

TEST_F(ChangeStampTest, ChangesWhenTheFileIsOpenedAnew) {
    EXPECT_TRUE(Cambia([&] {
        motor.Cerrar();
        motor.Abrir(base.Cadena());
    }));
}

} // namespace
} // namespace zv
