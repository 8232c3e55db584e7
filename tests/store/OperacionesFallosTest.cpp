// The record operations under failures: every statement of each fails once, often, or for good.
// Answers, rows, log lines and the number of attempts are counted.
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
    qint32 Procesado() { return ops.AñadirProcesado(QStringLiteral("PAGO"), Registro()); }
    qint32 ColaProcesada(qint32 idZV) {
        return ops.AñadirColaProcesada(QStringLiteral("ENV"), idZV, QStringLiteral("OK"), 2000,
                                       1000, 5000, {});
    }
    qint32 Cola(bool mostrarError = false) {
        return ops.AñadirCola(QStringLiteral("REENVIAR"), Fecha(), 1250, Venta(), mostrarError);
    }
    int Intentos(Clase clase, const char* texto) const {
        return gancho->Cuenta(clase, QString::fromLatin1(texto));
    }
    // One operation's own statements, apart from those of the operations that it calls.
    void Falla(Clase clase, const char* texto, int veces) {
        gancho->Falla(clase, QString::fromLatin1(texto), veces);
    }

    std::unique_ptr<test::GanchoFallos> gancho;
};

// --- AñadirProcesado: four attempts in all.

struct Paso {
    const char* nombre;
    const char* texto;
    Sentencia::Clase clase;
    bool despuesDeLeer; // the number had been read
};
void PrintTo(const Paso& paso, std::ostream* salida) {
    *salida << paso.nombre;
}

class ProcesadoFallosTest : public OperacionesFallosTest,
                            public testing::WithParamInterface<std::tuple<Paso, int>> {};

TEST_P(ProcesadoFallosTest, RetriesFromTheFailedStatement) {
    const auto& [paso, veces] = GetParam();
    Falla(paso.clase, paso.texto, veces);
    motor.Comenzar();
    const qint32 resultado = Procesado();
    EXPECT_EQ(motor.Nivel(), 1);
    motor.Confirmar();

    QStringList lineas =
        Reintentos(QStringLiteral("ADDPROC_ERROR_5_RESUME_%1 [PAGO]"), qMin(veces, 3));
    if (veces >= 4) {
        lineas.append(QStringLiteral("ADDPROC_ERROR_5 - database is locked [PAGO]"));
        EXPECT_EQ(resultado, 0);
        EXPECT_EQ(base.Cuenta(QStringLiteral("procesados")), 0);
        EXPECT_EQ(Intentos(paso.clase, paso.texto), 4);
    } else {
        const qint32 esperado = paso.despuesDeLeer ? 0 : 1;
        lineas.append(QStringLiteral("ADDPROC_OK_%1_PAGO").arg(esperado));
        EXPECT_EQ(resultado, esperado);
        // Stored once, also when the number is lost.
        EXPECT_EQ(base.Cuenta(QStringLiteral("procesados")), 1);
        EXPECT_EQ(Intentos(paso.clase, paso.texto), veces + 1);
    }
    EXPECT_EQ(log.lineas, lineas);
}

const Paso kPasosProcesado[] = {
    {"Open", "schema_version", Sentencia::Clase::Catalogo, false},
    {"Lock", "BEGIN IMMEDIATE", Sentencia::Clase::Comenzar, false},
    {"Key", "sqlite_sequence", Sentencia::Clase::Lectura, false},
    {"Update", "INSERT INTO \"procesados\"", Sentencia::Clase::Escritura, true},
};

INSTANTIATE_TEST_SUITE_P(CadaPaso, ProcesadoFallosTest,
                         testing::Combine(testing::ValuesIn(kPasosProcesado),
                                          testing::Values(1, 2, 3, 4)));

TEST_F(OperacionesFallosTest, TheCountLivesInTheCallAndNotInTheStatement) {
    Falla(Clase::Catalogo, "schema_version", 2);
    Falla(Clase::Escritura, "INSERT", 2);
    EXPECT_EQ(Procesado(), 0);
    EXPECT_EQ(log.Toma(), Reintentos(QStringLiteral("ADDPROC_ERROR_5_RESUME_%1 [PAGO]"), 3)
                              << QStringLiteral("ADDPROC_ERROR_5 - database is locked [PAGO]"));
    EXPECT_EQ(Procesado(), 1); // the next call begins anew
    EXPECT_EQ(log.lineas, QStringList{QStringLiteral("ADDPROC_OK_1_PAGO")});
}

TEST_F(OperacionesFallosTest, WithoutAnOriginTheErrorLinesHaveNoBracket) {
    Falla(Clase::Escritura, "INSERT", 4);
    EXPECT_EQ(ops.AñadirProcesado({}, Registro()), 0);
    EXPECT_EQ(log.lineas, Reintentos(QStringLiteral("ADDPROC_ERROR_5_RESUME_%1"), 3)
                              << QStringLiteral("ADDPROC_ERROR_5 - database is locked"));
}

TEST_F(OperacionesFallosTest, WithNoTransactionOfTheCallerGivingUpLeavesNoLock) {
    Falla(Clase::Escritura, "INSERT", 4);
    EXPECT_EQ(Procesado(), 0);
    EXPECT_EQ(motor.Nivel(), 0);
    base.Otro()->Ejecutar(QStringLiteral("INSERT INTO cola (importe) VALUES (1)"));
}

TEST_F(OperacionesFallosTest, AFailedCommitOfALoneRecordIsRetriedToo) {
    Falla(Clase::Confirmar, "COMMIT", 2);
    EXPECT_EQ(Procesado(), 0);
    EXPECT_EQ(base.Cuenta(QStringLiteral("procesados")), 1);
    EXPECT_EQ(log.lineas, Reintentos(QStringLiteral("ADDPROC_ERROR_5_RESUME_%1 [PAGO]"), 2)
                              << QStringLiteral("ADDPROC_OK_0_PAGO"));
}

TEST_F(OperacionesFallosTest, ALogThatCannotBeWrittenIsAFailureOfTheOperation) {
    // The line of success fails once; the handler's own line goes through.
    log.fallosPendientes = 1;
    EXPECT_EQ(Procesado(), 0);
    EXPECT_EQ(log.lineas, QStringList({QStringLiteral("ADDPROC_ERROR_75_RESUME_1 [PAGO]"),
                                       QStringLiteral("ADDPROC_OK_0_PAGO")}));
    EXPECT_EQ(base.Cuenta(QStringLiteral("procesados")), 1);
}

TEST_F(OperacionesFallosTest, NothingIsEverRaisedNotEvenByADeadLog) {
    log.fallosPendientes = 1000;
    const qint32 id = PonerVenta();
    EXPECT_EQ(Procesado(), 0);
    EXPECT_EQ(ColaProcesada(id), 0);
    EXPECT_EQ(ops.BorrarColaGrupo({}, id, QStringLiteral("MANUAL")), 0);
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
    Falla(paso.clase, paso.texto, veces);
    motor.Comenzar();
    const qint32 resultado = ColaProcesada(id);
    EXPECT_EQ(motor.Nivel(), 1);
    motor.Confirmar();

    const QStringList archivada =
        paso.despuesDeLeer ? QStringList{QStringLiteral("ADDPROC_OK_1_ENV")} : QStringList();
    QStringList lineas =
        archivada + Reintentos(QStringLiteral("ADDPROC_COLA_ERROR_5_RESUME_%1"), qMin(veces, 9));
    if (veces >= 10) {
        lineas.append(QStringLiteral("ADDPROC_COLA_ERROR_5 - database is locked"));
        EXPECT_EQ(resultado, 0);
        EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 1);
        // What was filed before the give-up is the caller's to roll back.
        EXPECT_EQ(base.Cuenta(QStringLiteral("procesados")), paso.despuesDeLeer ? 1 : 0);
        EXPECT_EQ(Intentos(paso.clase, paso.texto), 10);
    } else {
        if (!paso.despuesDeLeer) {
            lineas.append(QStringLiteral("ADDPROC_OK_1_ENV"));
        }
        lineas.append(QStringLiteral("PROCCOLA_DELCOLA_OK_1 [ENV]"));
        EXPECT_EQ(resultado, paso.despuesDeLeer ? 0 : 1);
        EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 0);
        EXPECT_EQ(base.Cuenta(QStringLiteral("procesados")), 1);
    }
    EXPECT_EQ(log.lineas, lineas);
}

const Paso kPasosCola[] = {
    {"Open", "schema_version", Sentencia::Clase::Catalogo, false},
    {"Seek", "FROM \"cola\"", Sentencia::Clase::Lectura, false},
    {"Delete", "DELETE FROM \"cola\"", Sentencia::Clase::Escritura, true},
};

INSTANTIATE_TEST_SUITE_P(CadaPaso, ColaProcesadaFallosTest,
                         testing::Combine(testing::ValuesIn(kPasosCola),
                                          testing::Values(1, 5, 9, 10)));

TEST_F(OperacionesFallosTest, WhenTheRecordCannotBeWrittenTheRowStaysQueued) {
    const qint32 id = PonerVenta();
    Falla(Clase::Escritura, "INSERT INTO \"procesados\"", 4);
    EXPECT_EQ(ColaProcesada(id), 0);
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 1);
    // It has no failure of its own.
    EXPECT_EQ(log.lineas, Reintentos(QStringLiteral("ADDPROC_ERROR_5_RESUME_%1 [ENV]"), 3)
                              << QStringLiteral("ADDPROC_ERROR_5 - database is locked [ENV]"));
}

TEST_F(OperacionesFallosTest, WhenTheRecordIsStoredButItsNumberLostTheRowStaysQueued) {
    const qint32 id = PonerVenta();
    Falla(Clase::Escritura, "INSERT INTO \"procesados\"", 1);
    motor.Comenzar();
    EXPECT_EQ(ColaProcesada(id), 0);
    motor.Deshacer();
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 1);
    EXPECT_EQ(base.Cuenta(QStringLiteral("procesados")), 0);
}

TEST_F(OperacionesFallosTest, ACallersRollbackUndoesAFilingWhoseNumberWasLost) {
    const qint32 id = PonerVenta();
    Falla(Clase::Escritura, "DELETE FROM \"cola\"", 1);
    motor.Comenzar();
    EXPECT_EQ(ColaProcesada(id), 0);
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 0);
    motor.Deshacer();
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 1);
    EXPECT_EQ(base.Cuenta(QStringLiteral("procesados")), 0);
}

TEST_F(OperacionesFallosTest, AValueOfTheWrongKindGivesUpAfterTenAttempts) {
    motor.Ejecutar(QStringLiteral("DROP TABLE cola"));
    motor.Ejecutar(QStringLiteral("CREATE TABLE cola (idZV INTEGER PRIMARY KEY, importe, id1, id2, "
                                  "idcaja, terminal, vendedor, formapago, creditoError)"));
    motor.Ejecutar(QStringLiteral("INSERT INTO cola (idZV, importe) VALUES (1,'mucho')"));
    EXPECT_EQ(ColaProcesada(1), 0);
    EXPECT_EQ(log.lineas, Reintentos(QStringLiteral("ADDPROC_COLA_ERROR_13_RESUME_%1"), 9)
                              << QStringLiteral("ADDPROC_COLA_ERROR_13 - No coinciden los tipos"));
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 1);
}

TEST_F(OperacionesFallosTest, ALockOfAnotherProgramIsAFailedStatement) {
    const qint32 id = PonerVenta();
    const auto otro = base.Otro();
    otro->Comenzar();
    otro->Ejecutar(QStringLiteral("INSERT INTO cola (importe) VALUES (1)"));
    EXPECT_EQ(ColaProcesada(id), 0);
    EXPECT_EQ(log.Toma(), Reintentos(QStringLiteral("ADDPROC_ERROR_5_RESUME_%1 [ENV]"), 3)
                              << QStringLiteral("ADDPROC_ERROR_5 - ") + QLatin1String(kOcupada) +
                                     QStringLiteral(" [ENV]"));
    otro->Deshacer();
    EXPECT_EQ(ColaProcesada(id), 1);
}

TEST_F(OperacionesFallosTest, ALostTransactionIsNeverHalfRepeated) {
    // SQLite rolls the record back on its own while the queue row is being deleted: deleting it
    // now would lose the sale.
    const qint32 id = PonerVenta();
    motor.Ejecutar(QStringLiteral("CREATE TEMP TRIGGER t BEFORE DELETE ON main.cola BEGIN SELECT "
                                  "RAISE(ROLLBACK, 'disk trouble'); END"));
    motor.Comenzar();
    EXPECT_EQ(ColaProcesada(id), 0);
    EXPECT_EQ(log.lineas.last(), QStringLiteral("ADDPROC_COLA_ERROR_516 - el motor de la base de "
                                                "datos ha deshecho la transacción"));
    EXPECT_EQ(test::NumeroError([&] { motor.Confirmar(); }), 516);
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 1);
    EXPECT_EQ(base.Cuenta(QStringLiteral("procesados")), 0);
}

TEST_F(OperacionesFallosTest, ADeletedFileTakesNoBooks) {
    const qint32 id = PonerVenta();
    ASSERT_TRUE(QFile::remove(base.Ruta()));
    EXPECT_EQ(ColaProcesada(id), 0);
    EXPECT_EQ(log.lineas.last(), QStringLiteral("ADDPROC_ERROR_1032 - el fichero de la base de "
                                                "datos ha sido movido o borrado [ENV]"));
}

// --- BorrarColaGrupo: no retry.

TEST_F(OperacionesFallosTest, AGroupedRowThatCannotBeReadGivesUpAtOnce) {
    const qint32 id = PonerVenta();
    Falla(Clase::Lectura, "WHERE idzv=", 1);
    EXPECT_EQ(ops.BorrarColaGrupo(QStringLiteral("AGR_MAN"), id, QStringLiteral("MANUAL")), 0);
    EXPECT_EQ(log.lineas,
              QStringList{QStringLiteral("DELCOLA_GRUPO_ERROR_5 - database is locked [AGR_MAN]")});
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 1);
    EXPECT_EQ(Intentos(Clase::Lectura, "WHERE idzv="), 1);
}

TEST_F(OperacionesFallosTest, AGroupedRowsErrorHasNoBracketWithoutAnOrigin) {
    Falla(Clase::Lectura, "WHERE idzv=", 1);
    EXPECT_EQ(ops.BorrarColaGrupo({}, 1, QStringLiteral("MANUAL")), 0);
    EXPECT_EQ(log.lineas,
              QStringList{QStringLiteral("DELCOLA_GRUPO_ERROR_5 - database is locked")});
}

TEST_F(OperacionesFallosTest, AGroupedRowThatCannotBeFiledIsSaidSo) {
    const qint32 id = PonerVenta();
    Falla(Clase::Escritura, "INSERT INTO \"procesados\"", 4);
    EXPECT_EQ(ops.BorrarColaGrupo(QStringLiteral("AGR_MAN"), id, QStringLiteral("MANUAL")), 0);
    EXPECT_EQ(log.lineas.last(), QStringLiteral("DELCOLA_GRUPO: AñadirColaProcesada FAIL"));
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 1);
}

// --- AñadirHistorial: no retry, and the number that was read is kept.

TEST_F(OperacionesFallosTest, HistoryThatFailsBeforeItsNumberAnswers0) {
    for (const Paso& paso : kPasosProcesado) {
        if (paso.despuesDeLeer) {
            continue;
        }
        SCOPED_TRACE(paso.nombre);
        Falla(paso.clase, paso.texto, 1);
        EXPECT_EQ(ops.AñadirHistorial(QStringLiteral("X"), {}, {}, 0, Fecha(), 0), 0);
        EXPECT_EQ(log.Toma(),
                  QStringList{QStringLiteral("ADDHIS_ERROR_5 - database is locked [X]")});
        EXPECT_EQ(base.Cuenta(QStringLiteral("historial")), 0);
    }
}

TEST_F(OperacionesFallosTest, HistoryThatFailsAfterItsNumberAnswersIt) {
    Falla(Clase::Escritura, "INSERT INTO \"historial\"", 1);
    EXPECT_EQ(ops.AñadirHistorial(QStringLiteral("X"), {}, {}, 0, Fecha(), 0), 1);
    EXPECT_EQ(log.lineas, QStringList{QStringLiteral("ADDHIS_ERROR_5 - database is locked [X]")});
    EXPECT_EQ(base.Cuenta(QStringLiteral("historial")), 0);
    EXPECT_EQ(Intentos(Clase::Escritura, "INSERT"), 1);
}

TEST_F(OperacionesFallosTest, HistoryOfAnAmountThatCannotBeShownFails) {
    EXPECT_EQ(ops.AñadirHistorial(QStringLiteral("X"), {}, {}, 0, Fecha(),
                                  Currency::DeEntero(3000000000LL)),
              0);
    EXPECT_EQ(log.Toma(), QStringList{QStringLiteral("ADDHIS_ERROR_6 - Desbordamiento [X]")});
    multiplicador = 0;
    EXPECT_EQ(ops.AñadirHistorial({}, {}, {}, 0, Fecha(), 1), 0);
    EXPECT_EQ(log.Toma(), QStringList{QStringLiteral("ADDHIS_ERROR_11 - División por cero []")});
}

// --- AñadirCola: ten attempts in all.

class ColaFallosTest : public OperacionesFallosTest,
                       public testing::WithParamInterface<std::tuple<Paso, int>> {};

TEST_P(ColaFallosTest, RetriesFromTheFailedStatement) {
    const auto& [paso, veces] = GetParam();
    // The statements of the history come first and stay well.
    int saltar = paso.clase == Clase::Escritura ? 0 : 1;
    int quedan = veces;
    int intentos = 0;
    motor.PonerGancho(
        [&, clase = paso.clase, texto = QString::fromLatin1(paso.texto)](const Sentencia& s) {
            if (s.clase == clase && s.sql.contains(texto) && saltar-- <= 0) {
                ++intentos;
                if (quedan-- > 0) {
                    throw ErrorEjecucion(5, QLatin1String(kOcupada));
                }
            }
        });
    const qint32 resultado = Cola();
    motor.PonerGancho({});

    EXPECT_EQ(log.lineas[0], QStringLiteral("ADDHIS_OK_1: 2026/T1/R2/3 12,50 € [ADDCOLA]"));
    const QStringList lineas = log.lineas.mid(1);
    const QString campos = QStringLiteral(" FECHA(01/03/2026 9:30:00) ID1(T1) ID2(R2) IDCAJA(3) "
                                          "IMPORTE(12,50 €) [REENVIAR]");
    QStringList esperadas =
        Reintentos(QStringLiteral("ADDCOLA_ERROR_5 Reintentando %1 [REENVIAR]"), qMin(veces, 9));
    if (veces >= 10) {
        esperadas.append(QStringLiteral("ADDCOLA_ERROR_5 - database is locked") + campos);
        EXPECT_EQ(resultado, 0);
        EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 0);
        EXPECT_EQ(intentos, 10);
    } else {
        const qint32 esperado = paso.despuesDeLeer ? 0 : 1;
        esperadas.append(QStringLiteral("ADDCOLA_OK_%1").arg(esperado) + campos);
        EXPECT_EQ(resultado, esperado);
        EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 1);
        EXPECT_EQ(intentos, veces + 1);
    }
    EXPECT_EQ(lineas, esperadas);
    // The history stays unless the caller rolls back.
    EXPECT_EQ(base.Cuenta(QStringLiteral("historial")), 1);
}

const Paso kPasosAñadirCola[] = {
    {"Open", "schema_version", Sentencia::Clase::Catalogo, false},
    {"Lock", "BEGIN IMMEDIATE", Sentencia::Clase::Comenzar, false},
    {"Key", "sqlite_sequence", Sentencia::Clase::Lectura, false},
    {"Update", "INSERT INTO \"cola\"", Sentencia::Clase::Escritura, true},
};

INSTANTIATE_TEST_SUITE_P(CadaPaso, ColaFallosTest,
                         testing::Combine(testing::ValuesIn(kPasosAñadirCola),
                                          testing::Values(1, 9, 10)));

TEST_F(OperacionesFallosTest, WithoutItsHistoryNoRowIsQueued) {
    Falla(Clase::Escritura, "INSERT INTO \"historial\"", 1);
    // The number had been read: it counts, as told.
    EXPECT_EQ(Cola(), 1);
    Falla(Clase::Lectura, "sqlite_sequence", 1);
    EXPECT_EQ(Cola(true), 0);
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 1);
    EXPECT_EQ(log.lineas.last(), QStringLiteral("ADDHIS_ERROR_5 - database is locked [ADDCOLA]"));
}

TEST_F(OperacionesFallosTest, AnAmountThatCannotBeShownIsNotQueued) {
    EXPECT_EQ(ops.AñadirCola(QStringLiteral("REENVIAR"), Fecha(), Currency::DeEntero(3000000000LL),
                             Venta(), true),
              0);
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 0);
    EXPECT_EQ(log.lineas, QStringList{QStringLiteral("ADDHIS_ERROR_6 - Desbordamiento [ADDCOLA]")});
}

TEST_F(OperacionesFallosTest, GivingUpAQueuedRowIsShownWhenAskedFor) {
    Falla(Clase::Escritura, "INSERT INTO \"cola\"", 10);
    const auto otro = base.Otro();
    dialogos.EsperaMensaje(
        QStringLiteral("Error de base de datos"),
        QStringLiteral(
            "Se ha producido un error al añadir un registro en la cola: \r\n5 - database "
            "is locked"),
        resultado::kAceptar, 0, [&] {
            // The operator's thinking locks nobody out.
            otro->Ejecutar(QStringLiteral("INSERT INTO cola (importe) VALUES (1)"));
        });
    EXPECT_EQ(Cola(true), 0);
    EXPECT_EQ(dialogos.Pendientes(), 0u);
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 1);
}

TEST_F(OperacionesFallosTest, GivingUpSaysTheAmountPlainlyWhenTheDeviceCannotFormatIt) {
    // The device goes between the history and the row.
    motor.PonerGancho([&](const Sentencia& s) {
        if (s.sql.startsWith(QStringLiteral("INSERT INTO \"cola\""))) {
            multiplicador = 0;
        }
    });
    EXPECT_EQ(Cola(), 0);
    motor.PonerGancho({});
    EXPECT_EQ(
        log.lineas.last(),
        QStringLiteral("ADDCOLA_ERROR_11 - División por cero FECHA(01/03/2026 9:30:00) ID1(T1) "
                       "ID2(R2) IDCAJA(3) IMPORTE(1250) [REENVIAR]"));
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 1);
}

} // namespace
} // namespace zv
