// The record operations under failures: every statement of each fails once, often, or for good.
// Answers, rows, log lines and the number of attempts are counted.
#include "platform/StringLiterals.h"
#include "store/BancoOperaciones.h"
#include "support/NumeroError.h"

#include <functional>

namespace zv {
namespace {

const char* const kOcupada = "database is locked";

class OperacionesFallosTest : public test::BancoOperaciones {
  protected:
    void SetUp() override { gancho = std::make_unique<test::GanchoFallos>(motor); }
    void TearDown() override {
        EXPECT_EQ(gancho->Pendientes(), 0);
        gancho.reset();
    }

    // "…_RESUME_1 [o]" to "…_RESUME_n [o]".
    static QStringList Reintentos(const QString& patron, int cuantos) {
        QStringList lineas;
        for (int i = 1; i <= cuantos; ++i) {
            lineas.append(patron.arg(i));
        }
        return lineas;
    }
    qint32 Procesado() { return ops.AñadirProcesado(u"PAGO"_s, UnRegistro()); }
    qint32 ColaProcesada(qint32 idZV) {
        return ops.AñadirColaProcesada(u"ENV"_s, idZV, u"OK"_s, 2000, 1000, 5000, {});
    }
    qint32 Cola(bool mostrarError = false) {
        return ops.AñadirCola(u"REENVIAR"_s, Fecha(), 1250, Venta(), mostrarError);
    }
    int Intentos(Kind kind, const char* texto) const {
        return gancho->Cuenta(kind, QString::fromLatin1(texto));
    }
    // One operation's own statements, apart from those of the operations that it calls.
    void Falla(Kind kind, const char* texto, int veces) {
        gancho->Falla(kind, QString::fromLatin1(texto), veces);
    }

    std::unique_ptr<test::GanchoFallos> gancho;
};

// --- AñadirProcesado: four attempts in all.

struct Paso {
    const char* nombre;
    const char* texto;
    Statement::Kind kind;
    bool despuesDeLeer; // the number had been read
};
void PrintTo(const Paso& paso, std::ostream* salida) {
    *salida << paso.nombre;
}

class ProcesadoFallosTest : public OperacionesFallosTest,
                            public testing::WithParamInterface<std::tuple<Paso, int>> {};

TEST_P(ProcesadoFallosTest, RetriesFromTheFailedStatement) {
    const auto& [paso, veces] = GetParam();
    Falla(paso.kind, paso.texto, veces);
    motor.Comenzar();
    const qint32 resultado = Procesado();
    EXPECT_EQ(motor.Nivel(), 1);
    motor.Confirmar();

    QStringList lineas = Reintentos(u"ADDPROC_ERROR_5_RESUME_%1 [PAGO]"_s, qMin(veces, 3));
    if (veces >= 4) {
        lineas.append(u"ADDPROC_ERROR_5 - database is locked [PAGO]"_s);
        EXPECT_EQ(resultado, 0);
        EXPECT_EQ(base.Cuenta(u"procesados"_s), 0);
        EXPECT_EQ(Intentos(paso.kind, paso.texto), 4);
    } else {
        const qint32 esperado = paso.despuesDeLeer ? 0 : 1;
        lineas.append(u"ADDPROC_OK_%1_PAGO"_s.arg(esperado));
        EXPECT_EQ(resultado, esperado);
        // Stored once, also when the number is lost.
        EXPECT_EQ(base.Cuenta(u"procesados"_s), 1);
        EXPECT_EQ(Intentos(paso.kind, paso.texto), veces + 1);
    }
    EXPECT_EQ(log.lineas, lineas);
}

const Paso kPasosProcesado[] = {
    {"Open", "schema_version", Statement::Kind::Catalogo, false},
    {"Lock", "BEGIN IMMEDIATE", Statement::Kind::Comenzar, false},
    {"Key", "sqlite_sequence", Statement::Kind::Lectura, false},
    {"Update", "INSERT INTO \"procesados\"", Statement::Kind::Escritura, true},
};

INSTANTIATE_TEST_SUITE_P(CadaPaso, ProcesadoFallosTest,
                         testing::Combine(testing::ValuesIn(kPasosProcesado),
                                          testing::Values(1, 2, 3, 4)));

TEST_F(OperacionesFallosTest, TheCountLivesInTheCallAndNotInTheStatement) {
    Falla(Kind::Catalogo, "schema_version", 2);
    Falla(Kind::Escritura, "INSERT", 2);
    EXPECT_EQ(Procesado(), 0);
    EXPECT_EQ(log.Toma(), Reintentos(u"ADDPROC_ERROR_5_RESUME_%1 [PAGO]"_s, 3)
                              << u"ADDPROC_ERROR_5 - database is locked [PAGO]"_s);
    EXPECT_EQ(Procesado(), 1); // the next call begins anew
    EXPECT_EQ(log.lineas, QStringList{u"ADDPROC_OK_1_PAGO"_s});
}

TEST_F(OperacionesFallosTest, WithoutAnOriginTheErrorLinesHaveNoBracket) {
    Falla(Kind::Escritura, "INSERT", 4);
    EXPECT_EQ(ops.AñadirProcesado({}, UnRegistro()), 0);
    EXPECT_EQ(log.lineas, Reintentos(u"ADDPROC_ERROR_5_RESUME_%1"_s, 3)
                              << u"ADDPROC_ERROR_5 - database is locked"_s);
}

TEST_F(OperacionesFallosTest, WithNoTransactionOfTheCallerGivingUpLeavesNoLock) {
    Falla(Kind::Escritura, "INSERT", 4);
    EXPECT_EQ(Procesado(), 0);
    EXPECT_EQ(motor.Nivel(), 0);
    base.Otro()->Ejecutar(u"INSERT INTO cola (importe) VALUES (1)"_s);
}

TEST_F(OperacionesFallosTest, AFailedCommitOfALoneRecordIsRetriedToo) {
    Falla(Kind::Confirmar, "COMMIT", 2);
    EXPECT_EQ(Procesado(), 0);
    EXPECT_EQ(base.Cuenta(u"procesados"_s), 1);
    EXPECT_EQ(log.lineas, Reintentos(u"ADDPROC_ERROR_5_RESUME_%1 [PAGO]"_s, 2)
                              << u"ADDPROC_OK_0_PAGO"_s);
}

TEST_F(OperacionesFallosTest, ALogThatCannotBeWrittenIsAFailureOfTheOperation) {
    // The line of success fails once; the handler's own line goes through.
    log.fallosPendientes = 1;
    EXPECT_EQ(Procesado(), 0);
    EXPECT_EQ(log.lineas,
              QStringList({u"ADDPROC_ERROR_75_RESUME_1 [PAGO]"_s, u"ADDPROC_OK_0_PAGO"_s}));
    EXPECT_EQ(base.Cuenta(u"procesados"_s), 1);
}

TEST_F(OperacionesFallosTest, NothingIsEverRaisedNotEvenByADeadLog) {
    log.fallosPendientes = 1000;
    const qint32 id = PonerVenta();
    EXPECT_EQ(Procesado(), 0);
    EXPECT_EQ(ColaProcesada(id), 0);
    EXPECT_EQ(ops.BorrarColaGrupo({}, id, u"MANUAL"_s), 0);
    EXPECT_GT(ops.AñadirHistorial({}, {}, {}, 0, Fecha(), 0), 0);
    EXPECT_EQ(Cola(), 0);
    log.fallosPendientes = 0;
}

// --- AñadirColaProcesada: ten attempts in all.

class ColaProcesadaFallosTest : public OperacionesFallosTest,
                                public testing::WithParamInterface<std::tuple<Paso, int>> {
  protected:
    void SetUp() override {
        id = PonerVenta();
        OperacionesFallosTest::SetUp();
    }
    qint32 id = 0;
};

TEST_P(ColaProcesadaFallosTest, RetriesFromTheFailedStatement) {
    const auto& [paso, veces] = GetParam();
    Falla(paso.kind, paso.texto, veces);
    motor.Comenzar();
    const qint32 resultado = ColaProcesada(id);
    EXPECT_EQ(motor.Nivel(), 1);
    motor.Confirmar();

    const QStringList archivada =
        paso.despuesDeLeer ? QStringList{u"ADDPROC_OK_1_ENV"_s} : QStringList();
    QStringList lineas =
        archivada + Reintentos(u"ADDPROC_COLA_ERROR_5_RESUME_%1"_s, qMin(veces, 9));
    if (veces >= 10) {
        lineas.append(u"ADDPROC_COLA_ERROR_5 - database is locked"_s);
        EXPECT_EQ(resultado, 0);
        EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
        // What was filed before the give-up is the caller's to roll back.
        EXPECT_EQ(base.Cuenta(u"procesados"_s), paso.despuesDeLeer ? 1 : 0);
        EXPECT_EQ(Intentos(paso.kind, paso.texto), 10);
    } else {
        if (!paso.despuesDeLeer) {
            lineas.append(u"ADDPROC_OK_1_ENV"_s);
        }
        lineas.append(u"PROCCOLA_DELCOLA_OK_1 [ENV]"_s);
        EXPECT_EQ(resultado, paso.despuesDeLeer ? 0 : 1);
        EXPECT_EQ(base.Cuenta(u"cola"_s), 0);
        EXPECT_EQ(base.Cuenta(u"procesados"_s), 1);
    }
    EXPECT_EQ(log.lineas, lineas);
}

const Paso kPasosCola[] = {
    {"Open", "schema_version", Statement::Kind::Catalogo, false},
    {"Seek", "FROM \"cola\"", Statement::Kind::Lectura, false},
    {"Delete", "DELETE FROM \"cola\"", Statement::Kind::Escritura, true},
};

INSTANTIATE_TEST_SUITE_P(CadaPaso, ColaProcesadaFallosTest,
                         testing::Combine(testing::ValuesIn(kPasosCola),
                                          testing::Values(1, 5, 9, 10)));

TEST_F(OperacionesFallosTest, WhenTheRecordCannotBeWrittenTheRowStaysQueued) {
    const qint32 id = PonerVenta();
    Falla(Kind::Escritura, "INSERT INTO \"procesados\"", 4);
    EXPECT_EQ(ColaProcesada(id), 0);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
    // It has no failure of its own.
    EXPECT_EQ(log.lineas, Reintentos(u"ADDPROC_ERROR_5_RESUME_%1 [ENV]"_s, 3)
                              << u"ADDPROC_ERROR_5 - database is locked [ENV]"_s);
}

TEST_F(OperacionesFallosTest, WhenTheRecordIsStoredButItsNumberLostTheRowStaysQueued) {
    const qint32 id = PonerVenta();
    Falla(Kind::Escritura, "INSERT INTO \"procesados\"", 1);
    motor.Comenzar();
    EXPECT_EQ(ColaProcesada(id), 0);
    motor.Deshacer();
    EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
    EXPECT_EQ(base.Cuenta(u"procesados"_s), 0);
}

TEST_F(OperacionesFallosTest, ACallersRollbackUndoesAFilingWhoseNumberWasLost) {
    const qint32 id = PonerVenta();
    Falla(Kind::Escritura, "DELETE FROM \"cola\"", 1);
    motor.Comenzar();
    EXPECT_EQ(ColaProcesada(id), 0);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 0);
    motor.Deshacer();
    EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
    EXPECT_EQ(base.Cuenta(u"procesados"_s), 0);
}

TEST_F(OperacionesFallosTest, AValueOfTheWrongKindGivesUpAfterTenAttempts) {
    motor.Ejecutar(u"DROP TABLE cola"_s);
    motor.Ejecutar(u"CREATE TABLE cola (idZV INTEGER PRIMARY KEY, importe, id1, id2, "
                   "idcaja, terminal, vendedor, formapago, creditoError)"_s);
    motor.Ejecutar(u"INSERT INTO cola (idZV, importe) VALUES (1,'mucho')"_s);
    EXPECT_EQ(ColaProcesada(1), 0);
    EXPECT_EQ(log.lineas, Reintentos(u"ADDPROC_COLA_ERROR_13_RESUME_%1"_s, 9)
                              << u"ADDPROC_COLA_ERROR_13 - No coinciden los tipos"_s);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
}

TEST_F(OperacionesFallosTest, ALockOfAnotherProgramIsAFailedStatement) {
    const qint32 id = PonerVenta();
    const auto otro = base.Otro();
    otro->Comenzar();
    otro->Ejecutar(u"INSERT INTO cola (importe) VALUES (1)"_s);
    EXPECT_EQ(ColaProcesada(id), 0);
    EXPECT_EQ(log.Toma(), Reintentos(u"ADDPROC_ERROR_5_RESUME_%1 [ENV]"_s, 3)
                              << u"ADDPROC_ERROR_5 - "_s + QLatin1String(kOcupada) + u" [ENV]"_s);
    otro->Deshacer();
    EXPECT_EQ(ColaProcesada(id), 1);
}

TEST_F(OperacionesFallosTest, ALostTransactionIsNeverHalfRepeated) {
    // SQLite rolls the record back on its own while the queue row is being deleted: deleting it
    // now would lose the sale.
    const qint32 id = PonerVenta();
    motor.Ejecutar(u"CREATE TEMP TRIGGER t BEFORE DELETE ON main.cola BEGIN SELECT "
                   "RAISE(ROLLBACK, 'disk trouble'); END"_s);
    motor.Comenzar();
    EXPECT_EQ(ColaProcesada(id), 0);
    EXPECT_EQ(log.lineas.last(), u"ADDPROC_COLA_ERROR_516 - el motor de la base de "
                                 "datos ha deshecho la transacción"_s);
    EXPECT_EQ(test::NumeroError([&] { motor.Confirmar(); }), 516);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
    EXPECT_EQ(base.Cuenta(u"procesados"_s), 0);
}

TEST_F(OperacionesFallosTest, ADeletedFileTakesNoBooks) {
    const qint32 id = PonerVenta();
    ASSERT_TRUE(QFile::remove(base.Ruta()));
    EXPECT_EQ(ColaProcesada(id), 0);
    EXPECT_EQ(log.lineas.last(), u"ADDPROC_ERROR_1032 - el fichero de la base de "
                                 "datos ha sido movido o borrado [ENV]"_s);
}

// --- BorrarColaGrupo: no retry.

TEST_F(OperacionesFallosTest, AGroupedRowThatCannotBeReadGivesUpAtOnce) {
    const qint32 id = PonerVenta();
    Falla(Kind::Lectura, "WHERE idzv=", 1);
    EXPECT_EQ(ops.BorrarColaGrupo(u"AGR_MAN"_s, id, u"MANUAL"_s), 0);
    EXPECT_EQ(log.lineas, QStringList{u"DELCOLA_GRUPO_ERROR_5 - database is locked [AGR_MAN]"_s});
    EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
    EXPECT_EQ(Intentos(Kind::Lectura, "WHERE idzv="), 1);
}

TEST_F(OperacionesFallosTest, AGroupedRowsErrorHasNoBracketWithoutAnOrigin) {
    Falla(Kind::Lectura, "WHERE idzv=", 1);
    EXPECT_EQ(ops.BorrarColaGrupo({}, 1, u"MANUAL"_s), 0);
    EXPECT_EQ(log.lineas, QStringList{u"DELCOLA_GRUPO_ERROR_5 - database is locked"_s});
}

TEST_F(OperacionesFallosTest, AGroupedRowThatCannotBeFiledIsSaidSo) {
    const qint32 id = PonerVenta();
    Falla(Kind::Escritura, "INSERT INTO \"procesados\"", 4);
    EXPECT_EQ(ops.BorrarColaGrupo(u"AGR_MAN"_s, id, u"MANUAL"_s), 0);
    EXPECT_EQ(log.lineas.last(), u"DELCOLA_GRUPO: AñadirColaProcesada FAIL"_s);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
}

// --- AñadirHistorial: no retry, and the number that was read is kept.

TEST_F(OperacionesFallosTest, HistoryThatFailsBeforeItsNumberAnswers0) {
    for (const Paso& paso : kPasosProcesado) {
        if (paso.despuesDeLeer) {
            continue;
        }
        SCOPED_TRACE(paso.nombre);
        Falla(paso.kind, paso.texto, 1);
        EXPECT_EQ(ops.AñadirHistorial(u"X"_s, {}, {}, 0, Fecha(), 0), 0);
        EXPECT_EQ(log.Toma(), QStringList{u"ADDHIS_ERROR_5 - database is locked [X]"_s});
        EXPECT_EQ(base.Cuenta(u"historial"_s), 0);
    }
}

TEST_F(OperacionesFallosTest, HistoryThatFailsAfterItsNumberAnswersIt) {
    Falla(Kind::Escritura, "INSERT INTO \"historial\"", 1);
    EXPECT_EQ(ops.AñadirHistorial(u"X"_s, {}, {}, 0, Fecha(), 0), 1);
    EXPECT_EQ(log.lineas, QStringList{u"ADDHIS_ERROR_5 - database is locked [X]"_s});
    EXPECT_EQ(base.Cuenta(u"historial"_s), 0);
    EXPECT_EQ(Intentos(Kind::Escritura, "INSERT"), 1);
}

TEST_F(OperacionesFallosTest, HistoryOfAnAmountThatCannotBeShownFails) {
    EXPECT_EQ(ops.AñadirHistorial(u"X"_s, {}, {}, 0, Fecha(), Currency::DeEntero(3000000000LL)), 0);
    EXPECT_EQ(log.Toma(), QStringList{u"ADDHIS_ERROR_6 - Desbordamiento [X]"_s});
    multiplicador = 0;
    EXPECT_EQ(ops.AñadirHistorial({}, {}, {}, 0, Fecha(), 1), 0);
    EXPECT_EQ(log.Toma(), QStringList{u"ADDHIS_ERROR_11 - División por cero []"_s});
}

// --- AñadirCola: ten attempts in all.

class ColaFallosTest : public OperacionesFallosTest,
                       public testing::WithParamInterface<std::tuple<Paso, int>> {};

TEST_P(ColaFallosTest, RetriesFromTheFailedStatement) {
    const auto& [paso, veces] = GetParam();
    // The statements of the history come first and stay well.
    int saltar = paso.kind == Kind::Escritura ? 0 : 1;
    int quedan = veces;
    int intentos = 0;
    motor.PonerGancho(
        [&, kind = paso.kind, texto = QString::fromLatin1(paso.texto)](const Statement& s) {
            if (s.kind == kind && s.sql.contains(texto) && saltar-- <= 0) {
                ++intentos;
                if (quedan-- > 0) {
                    throw ErrorEjecucion(5, QLatin1String(kOcupada));
                }
            }
        });
    const qint32 resultado = Cola();
    motor.PonerGancho({});

    EXPECT_EQ(log.lineas[0], u"ADDHIS_OK_1: 2026/T1/R2/3 12,50 € [ADDCOLA]"_s);
    const QStringList lineas = log.lineas.mid(1);
    const QString campos = u" FECHA(01/03/2026 9:30:00) ID1(T1) ID2(R2) IDCAJA(3) "
                           "IMPORTE(12,50 €) [REENVIAR]"_s;
    QStringList esperadas =
        Reintentos(u"ADDCOLA_ERROR_5 Reintentando %1 [REENVIAR]"_s, qMin(veces, 9));
    if (veces >= 10) {
        esperadas.append(u"ADDCOLA_ERROR_5 - database is locked"_s + campos);
        EXPECT_EQ(resultado, 0);
        EXPECT_EQ(base.Cuenta(u"cola"_s), 0);
        EXPECT_EQ(intentos, 10);
    } else {
        const qint32 esperado = paso.despuesDeLeer ? 0 : 1;
        esperadas.append(u"ADDCOLA_OK_%1"_s.arg(esperado) + campos);
        EXPECT_EQ(resultado, esperado);
        EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
        EXPECT_EQ(intentos, veces + 1);
    }
    EXPECT_EQ(lineas, esperadas);
    // The history stays unless the caller rolls back.
    EXPECT_EQ(base.Cuenta(u"historial"_s), 1);
}

const Paso kPasosAñadirCola[] = {
    {"Open", "schema_version", Statement::Kind::Catalogo, false},
    {"Lock", "BEGIN IMMEDIATE", Statement::Kind::Comenzar, false},
    {"Key", "sqlite_sequence", Statement::Kind::Lectura, false},
    {"Update", "INSERT INTO \"cola\"", Statement::Kind::Escritura, true},
};

INSTANTIATE_TEST_SUITE_P(CadaPaso, ColaFallosTest,
                         testing::Combine(testing::ValuesIn(kPasosAñadirCola),
                                          testing::Values(1, 9, 10)));

TEST_F(OperacionesFallosTest, WithoutItsHistoryNoRowIsQueued) {
    Falla(Kind::Escritura, "INSERT INTO \"historial\"", 1);
    // The number had been read: it counts, as told.
    EXPECT_EQ(Cola(), 1);
    Falla(Kind::Lectura, "sqlite_sequence", 1);
    EXPECT_EQ(Cola(true), 0);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
    EXPECT_EQ(log.lineas.last(), u"ADDHIS_ERROR_5 - database is locked [ADDCOLA]"_s);
}

TEST_F(OperacionesFallosTest, AnAmountThatCannotBeShownIsNotQueued) {
    EXPECT_EQ(
        ops.AñadirCola(u"REENVIAR"_s, Fecha(), Currency::DeEntero(3000000000LL), Venta(), true), 0);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 0);
    EXPECT_EQ(log.lineas, QStringList{u"ADDHIS_ERROR_6 - Desbordamiento [ADDCOLA]"_s});
}

TEST_F(OperacionesFallosTest, GivingUpAQueuedRowIsShownWhenAskedFor) {
    Falla(Kind::Escritura, "INSERT INTO \"cola\"", 10);
    const auto otro = base.Otro();
    dialogos.EsperaMensaje(
        u"Error de base de datos"_s,
        u"Se ha producido un error al añadir un registro en la cola: \r\n5 - database "
        "is locked"_s,
        Respuesta::Aceptar, EstiloMensaje::Aceptar, [&] {
            // The operator's thinking locks nobody out.
            otro->Ejecutar(u"INSERT INTO cola (importe) VALUES (1)"_s);
        });
    EXPECT_EQ(Cola(true), 0);
    EXPECT_EQ(dialogos.Pendientes(), 0u);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
}

TEST_F(OperacionesFallosTest, GivingUpSaysTheAmountPlainlyWhenTheDeviceCannotFormatIt) {
    // The device goes between the history and the row.
    motor.PonerGancho([&](const Statement& s) {
        if (s.sql.startsWith(u"INSERT INTO \"cola\""_s)) {
            multiplicador = 0;
        }
    });
    EXPECT_EQ(Cola(), 0);
    motor.PonerGancho({});
    EXPECT_EQ(log.lineas.last(),
              u"ADDCOLA_ERROR_11 - División por cero FECHA(01/03/2026 9:30:00) ID1(T1) "
              "ID2(R2) IDCAJA(3) IMPORTE(1250) [REENVIAR]"_s);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
}

} // namespace
} // namespace zv
