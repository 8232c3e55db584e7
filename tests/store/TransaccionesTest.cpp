// Transaction levels: the lazy begin, nesting, and what stands after each way in which a begin, a
// write, a commit or a rollback can fail.
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

class TransaccionesTest : public testing::Test {
  protected:
    static void Insertar(MotorBD& motor, int importe) {
        motor.Ejecutar(QStringLiteral("INSERT INTO cola (importe) VALUES (?)"), {importe});
    }
    void Insertar(int importe) { Insertar(motor, importe); }
    // Amounts that another program sees.
    QString Guardado() {
        QStringList importes;
        for (const Fila& fila :
             otro->Consultar(QStringLiteral("SELECT importe FROM cola ORDER BY importe"))) {
            importes.append(fila.LeerTexto(0));
        }
        return importes.join(QLatin1Char(','));
    }
    // Nothing more fits into the file.
    void LlenarDisco() {
        const qint32 paginas =
            motor.Consultar(QStringLiteral("PRAGMA page_count")).at(0).LeerLong(0);
        motor.Consultar(QStringLiteral("PRAGMA max_page_count=%1").arg(paginas));
    }
    void InsertarMucho() {
        for (int i = 0; i < 1000; ++i) {
            motor.Ejecutar(QStringLiteral("INSERT INTO cola (id1,id2) VALUES (?,?)"),
                           {QString(50, u'x'), QString(50, u'y')});
        }
    }

    BaseDeDatosTemporal base;
    MotorBD& motor = base.Motor();
    std::unique_ptr<MotorSQLite> otro = base.Otro();
};

TEST_F(TransaccionesTest, AnOpenLevelThatHasNotWrittenLocksNobodyOut) {
    motor.Comenzar();
    motor.Consultar(QStringLiteral("SELECT * FROM cola"));
    Insertar(*otro, 1);
    EXPECT_EQ(Guardado(), QStringLiteral("1"));
    // Nor is it held to an old view: its first write works on what stands now.
    Insertar(2);
    motor.Confirmar();
    EXPECT_EQ(Guardado(), QStringLiteral("1,2"));
}

TEST_F(TransaccionesTest, TheFirstWriteTakesTheLock) {
    motor.Comenzar();
    Insertar(1);
    EXPECT_EQ(NumeroError([&] { Insertar(*otro, 2); }) & 0xff, 5);
    EXPECT_EQ(Guardado(), QString());
    motor.Confirmar();
    Insertar(*otro, 2);
    EXPECT_EQ(Guardado(), QStringLiteral("1,2"));
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
    EXPECT_EQ(Guardado(), QStringLiteral("1,3"));
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
    EXPECT_EQ(Guardado(), QStringLiteral("1,2"));
}

TEST_F(TransaccionesTest, ARollbackUndoesTheInnermostLevelOnly) {
    motor.Comenzar();
    Insertar(1);
    motor.Comenzar();
    Insertar(2);
    motor.Deshacer();
    Insertar(3);
    motor.Confirmar();
    EXPECT_EQ(Guardado(), QStringLiteral("1,3"));
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
    EXPECT_EQ(Guardado(), QStringLiteral("2"));
}

TEST_F(TransaccionesTest, LevelsWithoutAWriteIssueNothing) {
    GanchoFallos gancho(motor);
    motor.Comenzar();
    motor.Comenzar();
    motor.Deshacer();
    motor.Confirmar();
    ASSERT_EQ(gancho.vistas.size(), 4u);
    for (const Sentencia& s : gancho.vistas) {
        EXPECT_EQ(s.sql, QString());
    }
    EXPECT_EQ(gancho.vistas[0].clase, Clase::Comenzar);
    EXPECT_EQ(gancho.vistas[2].clase, Clase::Deshacer);
    EXPECT_EQ(gancho.vistas[3].clase, Clase::Confirmar);
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
    for (const Sentencia& s : gancho.vistas) {
        vistas.append(s.sql.section(QLatin1Char(' '), 0, 1));
    }
    EXPECT_EQ(vistas, QStringList({QString(), QStringLiteral("BEGIN IMMEDIATE"),
                                   QStringLiteral("INSERT INTO"), QString(),
                                   QStringLiteral("SAVEPOINT zv2"), QStringLiteral("INSERT INTO"),
                                   QStringLiteral("RELEASE zv2"), QStringLiteral("COMMIT")}));
}

TEST_F(TransaccionesTest, EndingALevelThatIsNotOpenFails) {
    EXPECT_EQ(NumeroError([&] { motor.Confirmar(); }), 1);
    EXPECT_EQ(NumeroError([&] { motor.Deshacer(); }), 1);
    EXPECT_EQ(motor.Nivel(), 0);
}

TEST_F(TransaccionesTest, AFailedBeginOpensNoLevel) {
    GanchoFallos gancho(motor);
    gancho.Falla(Clase::Comenzar, {}, 1);
    EXPECT_EQ(NumeroError([&] { motor.Comenzar(); }), 5);
    EXPECT_EQ(motor.Nivel(), 0);
    motor.Comenzar();
    EXPECT_EQ(motor.Nivel(), 1);
}

TEST_F(TransaccionesTest, AFailedLockFailsTheWriteWhichMayBeRepeated) {
    GanchoFallos gancho(motor);
    gancho.Falla(Clase::Comenzar, QStringLiteral("SAVEPOINT"), 1);
    motor.Comenzar();
    motor.Comenzar();
    EXPECT_EQ(NumeroError([&] { Insertar(1); }), 5);
    EXPECT_EQ(motor.Nivel(), 2);
    Insertar(2);
    motor.Deshacer();
    Insertar(3);
    motor.Confirmar();
    EXPECT_EQ(Guardado(), QStringLiteral("3"));
}

TEST_F(TransaccionesTest, AFailedCommitRollsBackEndsTheLevelAndIsRaised) {
    GanchoFallos gancho(motor);
    gancho.Falla(Clase::Confirmar, QStringLiteral("COMMIT"), 1,
                 {13, QStringLiteral("database or disk is full")});
    motor.Comenzar();
    Insertar(1);
    EXPECT_EQ(NumeroError([&] { motor.Confirmar(); }), 13);
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 0);
    Insertar(*otro, 2); // no lock was left behind
    Insertar(3);
    EXPECT_EQ(Guardado(), QStringLiteral("2,3"));
}

TEST_F(TransaccionesTest, AFailedInnerCommitUndoesThatLevelOnly) {
    GanchoFallos gancho(motor);
    gancho.Falla(Clase::Confirmar, QStringLiteral("RELEASE"), 1);
    motor.Comenzar();
    Insertar(1);
    motor.Comenzar();
    Insertar(2);
    EXPECT_EQ(NumeroError([&] { motor.Confirmar(); }), 5);
    EXPECT_EQ(motor.Nivel(), 1);
    motor.Confirmar();
    EXPECT_EQ(Guardado(), QStringLiteral("1"));
}

TEST_F(TransaccionesTest, ACommitThatHadNothingToWriteCanFailToo) {
    GanchoFallos gancho(motor);
    gancho.Falla(Clase::Confirmar, {}, 1);
    motor.Comenzar();
    EXPECT_EQ(NumeroError([&] { motor.Confirmar(); }), 5);
    EXPECT_EQ(motor.Nivel(), 0);
}

TEST_F(TransaccionesTest, AFailedRollbackIsRaisedAndLeavesNothingBehind) {
    GanchoFallos gancho(motor);
    gancho.Falla(Clase::Deshacer, {}, 1);
    motor.Comenzar();
    Insertar(1);
    EXPECT_EQ(NumeroError([&] { motor.Deshacer(); }), 5);
    EXPECT_EQ(motor.Nivel(), 0);
    Insertar(*otro, 2);
    EXPECT_EQ(Guardado(), QStringLiteral("2"));
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
    motor.Consultar(QStringLiteral("PRAGMA max_page_count=1000000"));
    Insertar(1);
    EXPECT_EQ(Guardado(), QStringLiteral("1"));
}

// SQLite may roll a whole transaction back by itself; a hook does it here at the moment of choice.
class DeshechaPorElMotorTest : public TransaccionesTest {
  protected:
    // The next write finds its transaction gone, and fails for it.
    void Perder() {
        motor.Ejecutar(QStringLiteral("CREATE TEMP TABLE disparo (a)"));
        motor.Ejecutar(QStringLiteral("CREATE TEMP TRIGGER t BEFORE INSERT ON disparo BEGIN SELECT "
                                      "RAISE(ROLLBACK, 'gone'); END"));
    }
    int Disparar() {
        return NumeroError(
            [&] { motor.Ejecutar(QStringLiteral("INSERT INTO disparo VALUES (1)")); });
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
    EXPECT_EQ(Guardado(), QStringLiteral("3"));
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
    EXPECT_EQ(Guardado(), QStringLiteral("5"));
}

TEST_F(DeshechaPorElMotorTest, AStatementThatFailsAloneLosesNothing) {
    motor.Comenzar();
    Insertar(1);
    EXPECT_EQ(NumeroError([&] { motor.Ejecutar(QStringLiteral("INSERT INTO nada VALUES (1)")); }),
              1);
    Insertar(2);
    motor.Confirmar();
    EXPECT_EQ(Guardado(), QStringLiteral("1,2"));
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
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 0);
}

TEST_F(FicheroPerdidoTest, AFileDeletedBeforeTheCommitFailsIt) {
    motor.Comenzar();
    Insertar(1);
    Borrar();
    EXPECT_EQ(NumeroError([&] { motor.Confirmar(); }), 1032);
    EXPECT_EQ(motor.Nivel(), 0);
}

TEST_F(FicheroPerdidoTest, AReplacedFileIsNotTheOpenedOne) {
    ASSERT_TRUE(QFile::rename(base.Ruta(), base.Ruta() + QStringLiteral(".old")));
    ASSERT_TRUE(QFile::copy(base.Ruta() + QStringLiteral(".old"), base.Ruta()));
    EXPECT_EQ(NumeroError([&] { Insertar(1); }), 1032);
    ASSERT_TRUE(QFile::remove(base.Ruta()));
    ASSERT_TRUE(QFile::rename(base.Ruta() + QStringLiteral(".old"), base.Ruta()));
    Insertar(2); // back again
}

TEST_F(FicheroPerdidoTest, ReadingAndTheMarkGoOn) {
    Insertar(1);
    Borrar();
    EXPECT_EQ(motor.MarcaCambios(), motor.MarcaCambios());
    EXPECT_EQ(motor.Consultar(QStringLiteral("SELECT * FROM cola")).size(), 1u);
    EXPECT_TRUE(motor.Abierta());
}

class MarcaCambiosTest : public TransaccionesTest {
  protected:
    template <class F>
    bool Cambia(F&& hacer) {
        const quint64 antes = motor.MarcaCambios();
        hacer();
        return motor.MarcaCambios() != antes;
    }
};

TEST_F(MarcaCambiosTest, StaysWhileNothingIsWritten) {
    EXPECT_FALSE(Cambia([] {}));
    EXPECT_FALSE(Cambia([&] { motor.Consultar(QStringLiteral("SELECT * FROM cola")); }));
    EXPECT_FALSE(Cambia([&] { otro->Consultar(QStringLiteral("SELECT * FROM cola")); }));
}

TEST_F(MarcaCambiosTest, ChangesWithEveryWriteOfOursOrOfOthers) {
    EXPECT_TRUE(Cambia([&] { Insertar(1); }));
    EXPECT_TRUE(Cambia([&] { Insertar(*otro, 2); }));
    EXPECT_TRUE(Cambia([&] { otro->Ejecutar(QStringLiteral("DELETE FROM cola")); }));
}

TEST_F(MarcaCambiosTest, ChangesWithWritesCommitsAndRollbacksOfATransaction) {
    motor.Comenzar();
    EXPECT_TRUE(Cambia([&] { Insertar(1); }));
    EXPECT_TRUE(Cambia([&] { motor.Deshacer(); }));
    motor.Comenzar();
    EXPECT_TRUE(Cambia([&] { Insertar(1); }));
    EXPECT_TRUE(Cambia([&] { motor.Confirmar(); }));
}

TEST_F(MarcaCambiosTest, TellsRowsThatARecordSetAddsFromAllOtherChanges) {
    const auto salvoAltas = [&](const std::function<void()>& hacer) {
        const quint64 antes = motor.MarcaSalvoAltas();
        EXPECT_TRUE(Cambia(hacer));
        return motor.MarcaSalvoAltas() != antes;
    };
    const auto tabla = motor.AbrirTabla(QStringLiteral("cola"));
    const auto alta = [&] {
        tabla->Nuevo();
        tabla->Poner(QStringLiteral("importe"), 1);
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
        tabla->Poner(QStringLiteral("importe"), 2);
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

TEST_F(MarcaCambiosTest, ChangesWhenTheFileIsOpenedAnew) {
    EXPECT_TRUE(Cambia([&] {
        motor.Cerrar();
        motor.Abrir(base.Cadena());
    }));
}

} // namespace
} // namespace zv
