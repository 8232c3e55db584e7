// Resending, discarding, and both for all rows at once.
#include "BancoListado.h"
#include "support/GanchoFallos.h"

namespace zv::test {
namespace {

using C = ColumnaListado;

const QString kReenviar = u"¿Desea reenviar esta operación a Zorvex?"_s;
const QString kEliminar = u"¿Desea eliminar y descartar esta incidencia?"_s;
const QString kNoAutomatica = u"Esta operación no puede ser enviada automáticamente"_s;
const QString kImporteCero = u"No se puede reenviar una operación con importe 0"_s;
const QString kYaReenviada = u"Esta operación ya ha sido reenviada"_s;

class OperacionesListadoTest : public BancoListado {
  protected:
    void Incidencias() {
        listado.RellenaGrdZv(ModoListado::Incidencias);
        listado.AjustarColumnas({14000, 210, 1290, 1290});
    }
    void Preguntan(const QString& texto, Respuesta respuesta, DialogosGuion::Accion mientras = {}) {
        dialogos.EsperaMensaje(QString(), texto, respuesta, EstiloMensaje::SiNo,
                               std::move(mientras));
    }
    void Dicen(const QString& texto) {
        dialogos.EsperaMensaje(QString(), texto, Respuesta::Aceptar, EstiloMensaje::Aceptar);
    }
    bool Tocar(int fila, int columna) { return operaciones.grdZV_Click(fila, columna, false); }
    bool ConFondo(int fila) const {
        return listado.grdZV().AspectoDe(fila, C::Importe).fondo == ColorRGB(255, 190, 0);
    }
    QVariant Cuenta(const char* tabla) {
        return Valor(u"SELECT count(*) FROM "_s + QString::fromLatin1(tabla));
    }
    void NadaEscrito() {
        EXPECT_EQ(Cuenta("cola"), 0);
        EXPECT_EQ(Cuenta("historial"), 0);
        EXPECT_EQ(Valor(u"SELECT count(*) FROM procesados WHERE estado='REENVIADO'"_s), 0);
        EXPECT_EQ(entorno.transacciones.HayNivelAbierto(), false);
    }
};

// ---- the click

TEST_F(OperacionesListadoTest, TitlesTheEmptyAreaAndOtherColumnsDoNothing) {
    Incidencias();
    EXPECT_FALSE(operaciones.grdZV_Click(1, C::Reenviar, false)); // no row
    EXPECT_FALSE(operaciones.grdZV_Click(0, C::Reenviar, true));
    PonerIncidencias(2);
    Incidencias();
    EXPECT_FALSE(Tocar(0, C::Reenviar));
    EXPECT_FALSE(Tocar(0, C::Descartar));
    EXPECT_FALSE(operaciones.grdZV_Click(2, C::Reenviar, true));
    EXPECT_FALSE(Tocar(3, C::Descartar));
    EXPECT_FALSE(Tocar(1, -1));
    for (int columna = C::IdZV; columna < C::Reenviar; ++columna) {
        EXPECT_FALSE(Tocar(2, columna));
    }
    EXPECT_EQ(listado.grdZV().FilaActual(), 2); // selected
    NadaEscrito();
}

// ---- resending

TEST_F(OperacionesListadoTest, AResentRowGoesIntoTheQueueAndOutOfThePeriod) {
    PonerIncidencias(1);
    Poner({.importeVenta = 123456,
           .estado = u"ERROR"_s,
           .id1 = u"1001"_s,
           .id2 = u"A"_s,
           .error = u"5"_s,
           .usuario = u"14/03/2026"_s});
    Incidencias();
    Preguntan(kReenviar, Respuesta::Si);
    EXPECT_TRUE(Tocar(2, C::Reenviar));
    const Row cola = motor.Consultar(u"SELECT * FROM cola"_s).at(0);
    EXPECT_EQ(cola.LeerFecha(u"fecha"_s), QDateTime(QDate(2026, 3, 14), QTime(0, 0)));
    EXPECT_EQ(cola.LeerCurrency(u"importe"_s), Currency(123456));
    EXPECT_EQ(cola.LeerTexto(u"id1"_s), u"1001/A"_s);
    EXPECT_EQ(cola.LeerTexto(u"id2"_s), QString());
    EXPECT_EQ(cola.LeerLong(u"idcaja"_s), 0);
    EXPECT_EQ(cola.LeerTexto(u"terminal"_s), u"TPV1"_s);
    EXPECT_EQ(cola.LeerTexto(u"vendedor"_s), u"Ana"_s);
    EXPECT_EQ(cola.LeerTexto(u"formapago"_s), u"EFECTIVO"_s);
    EXPECT_FALSE(cola.LeerBooleano(u"manual"_s));
    EXPECT_EQ(Cuenta("historial"), 1);
    EXPECT_EQ(EstadosYCierres(), u"ERROR 0;REENVIADO 0"_s);
    EXPECT_TRUE(ConFondo(2));
    EXPECT_FALSE(ConFondo(1));
    EXPECT_FALSE(entorno.transacciones.HayNivelAbierto());
    EXPECT_EQ(log.lineas.size(), 2);
    EXPECT_TRUE(log.lineas.at(0).endsWith(u"[ADDCOLA]"_s)) << log.lineas.at(0).toStdString();
    EXPECT_TRUE(log.lineas.at(1).startsWith(u"ADDCOLA_OK_1 "_s));
    EXPECT_TRUE(log.lineas.at(1).endsWith(u"[REENVIAR]"_s));
}

TEST_F(OperacionesListadoTest, ARefundKeepsItsSign) {
    Poner({.importeVenta = -850, .estado = u"CANCEL"_s, .usuario = u"1/2/2026 10:00"_s});
    Incidencias();
    Preguntan(kReenviar, Respuesta::Si);
    EXPECT_TRUE(Tocar(1, C::Reenviar));
    EXPECT_EQ(Valor(u"SELECT importe FROM cola"_s).toDouble(), -850);
}

TEST_F(OperacionesListadoTest, AChargeGoesAgainToo) {
    Poner({.usuario = u"7"_s});
    listado.RellenaGrdZv(ModoListado::Cobros);
    Preguntan(kReenviar, Respuesta::Si);
    EXPECT_TRUE(Tocar(1, C::Reenviar));
    EXPECT_EQ(EstadosYCierres(), u"REENVIADO 0"_s);
    EXPECT_EQ(Cuenta("cola"), 1);
}

TEST_F(OperacionesListadoTest, NoIsNothingDone) {
    Poner({.estado = u"ERROR"_s, .usuario = u"7"_s});
    Incidencias();
    Preguntan(kReenviar, Respuesta::No);
    EXPECT_FALSE(Tocar(1, C::Reenviar));
    EXPECT_FALSE(ConFondo(1));
    NadaEscrito();
}

// The tests in their order: each row fails all of those behind the one that answers.
TEST_F(OperacionesListadoTest, WhatCannotBeSentAgainSaysWhy) {
    Poner(
        {.importeVenta = 0, .estado = u"REENVIADO"_s, .id1 = u"VACIADO"_s, .formapago = QString()});
    Poner({.importeVenta = 0, .estado = u"REENVIADO"_s});
    Poner({.importeVenta = 1, .estado = u"REENVIADO"_s});
    Incidencias();
    Dicen(kNoAutomatica);
    EXPECT_FALSE(Tocar(1, C::Reenviar));
    Dicen(kImporteCero);
    EXPECT_FALSE(Tocar(2, C::Reenviar));
    Dicen(kYaReenviada);
    EXPECT_FALSE(Tocar(3, C::Reenviar));
    EXPECT_EQ(Cuenta("cola"), 0);
    EXPECT_FALSE(ConFondo(1) || ConFondo(2) || ConFondo(3));
}

TEST_F(OperacionesListadoTest, TheCellDecidesWhichOperationGoesNotItsKind) {
    int fila = 0;
    for (const QString& id1 :
         {u"PAGO_CAMBIO"_s, u"PAGO"_s, u"DAR_CAMBIO"_s, u"CASHBOXCONTROL"_s, u"METER_CAMBIO"_s}) {
        Poner({.estado = u"ERROR"_s, .id1 = id1, .usuario = u"7"_s});
        Incidencias();
        Preguntan(kReenviar, Respuesta::No);
        EXPECT_FALSE(Tocar(++fila, C::Reenviar));
        // Its cell as it would be, had it no concept.
        listado.grdZV().PonerTexto(fila, C::Operacion, id1);
        Dicen(kNoAutomatica);
        EXPECT_FALSE(Tocar(fila, C::Reenviar));
        listado.grdZV().PonerTexto(fila, C::Operacion, id1.toLower());
        Preguntan(kReenviar, Respuesta::No);
        EXPECT_FALSE(Tocar(fila, C::Reenviar));
    }
    listado.grdZV().PonerTexto(1, C::Operacion, u"VACIADO"_s);
    Dicen(kNoAutomatica);
    EXPECT_FALSE(Tocar(1, C::Reenviar));
}

TEST_F(OperacionesListadoTest, EachKindOfRecordGoesAsWhatItsCellSays) {
    const std::pair<const char*, const char*> casos[] = {{"COBRO_MANUAL", "Cobro ManualBolsas"},
                                                         {"PAGO", "PagoBolsas"},
                                                         {"DAR_CAMBIO", "Cambio"},
                                                         {"METER_CAMBIO", "Cambio añadido"},
                                                         {"VACIADO", "VACIADO EFECTIVO"},
                                                         {"T2001", "Cobro agrupado"},
                                                         {"2001", "2001"}};
    for (const auto& [id1, celda] : casos) {
        Poner({.estado = u"ERROR"_s,
               .id1 = QString::fromUtf8(id1),
               .error = u"Bolsas"_s,
               .usuario = u"7"_s});
        Incidencias();
        Preguntan(kReenviar, Respuesta::Si);
        EXPECT_TRUE(Tocar(listado.grdZV().FilasDatos(), C::Reenviar));
        EXPECT_EQ(Valor(u"SELECT TOP 1 id1 FROM cola ORDER BY idZV DESC"_s).toString(),
                  QString::fromUtf8(celda));
    }
}

TEST_F(OperacionesListadoTest, AUserWhoseNameIsNoDateFailsBeforeAnythingIsWritten) {
    for (const QVariant& usuario :
         {QVariant(u"ANA"_s), QVariant(u"Nulo"_s), QVariant(), QVariant(u"ZVFast"_s)}) {
        Poner({.estado = u"ERROR"_s, .usuario = usuario});
        Incidencias();
        Preguntan(kReenviar, Respuesta::Si);
        const int fila = listado.grdZV().FilasDatos();
        EXPECT_EQ(NumeroError([&] { EXPECT_TRUE(Tocar(fila, C::Reenviar)); }), 13);
        EXPECT_TRUE(ConFondo(fila)); // the row had been marked
    }
    NadaEscrito();
    EXPECT_EQ(EstadosYCierres(), u"ERROR 0;ERROR 0;ERROR 0;ERROR 0"_s);
    Preguntan(kReenviar, Respuesta::Si);
    try {
        EXPECT_TRUE(Tocar(1, C::Reenviar));
        FAIL();
    } catch (const ErrorEjecucion& e) {
        EXPECT_TRUE(e.Descripcion().endsWith(
            u". La operación no se ha reenviado: el usuario de su fila no es una fecha. Abra de "
            "nuevo el programa y cóbrela con Cobro Manual"_s));
    }
}

TEST_F(OperacionesListadoTest, TheMarkedRowComesIntoViewOnceItIsSaidYes) {
    PonerIncidencias(30);
    motor.Ejecutar(u"UPDATE procesados SET usuario='7'"_s);
    Incidencias();
    listado.grdZV().PonerPagina(10);
    Preguntan(kReenviar, Respuesta::Si, [this] {
        EXPECT_EQ(listado.grdZV().FilaSuperior(), 1);
        EXPECT_FALSE(ConFondo(25));
    });
    EXPECT_TRUE(Tocar(25, C::Reenviar));
    EXPECT_EQ(listado.grdZV().FilaSuperior(), 16);
}

TEST_F(OperacionesListadoTest, AnIncidentThatAnotherProgramHasDeletedGoesAllTheSame) {
    PonerIncidencias(2);
    motor.Ejecutar(u"UPDATE procesados SET usuario='7'"_s);
    Incidencias();
    motor.Ejecutar(u"DELETE FROM procesados"_s);
    Preguntan(kReenviar, Respuesta::Si);
    EXPECT_TRUE(Tocar(1, C::Reenviar));
    EXPECT_EQ(Cuenta("cola"), 1);
    EXPECT_EQ(Cuenta("procesados"), 0);
    Preguntan(kEliminar, Respuesta::Si);
    EXPECT_FALSE(Tocar(2, C::Descartar));
    EXPECT_EQ(listado.grdZV().FilasDatos(), 0);
}

TEST_F(OperacionesListadoTest, WhatCannotBeQueuedIsToldAndStaysAnIncident) {
    Poner({.estado = u"ERROR"_s, .usuario = u"7"_s});
    Incidencias();
    GanchoFallos fallos(motor);
    fallos.Falla(Statement::Kind::Escritura, u"cola"_s, 10);
    Preguntan(kReenviar, Respuesta::Si);
    dialogos.EsperaMensaje(u"Error de base de datos"_s,
                           testing::ResultOf([](const QString& t) { return t.toStdString(); },
                                             testing::HasSubstr("registro en la cola")),
                           Respuesta::Aceptar, std::nullopt, [this] {
                               // Nobody is kept from the database while it stands.
                               EXPECT_FALSE(entorno.transacciones.HayNivelAbierto());
                           });
    EXPECT_TRUE(Tocar(1, C::Reenviar));
    NadaEscrito();
    EXPECT_EQ(EstadosYCierres(), u"ERROR 0"_s);
}

// A retry that succeeds answers 0 all the same, and has no box of its own.
TEST_F(OperacionesListadoTest, AResendThatIsNotDoneIsAlwaysTold) {
    Poner({.estado = u"ERROR"_s, .usuario = u"7"_s});
    Incidencias();
    GanchoFallos fallos(motor);
    fallos.Falla(Statement::Kind::Escritura, u"cola"_s, 1);
    Preguntan(kReenviar, Respuesta::Si);
    dialogos.EsperaMensaje(QString(),
                           u"La operación no se ha podido reenviar. Inténtelo otra vez"_s,
                           Respuesta::Aceptar, std::nullopt,
                           [this] { EXPECT_FALSE(entorno.transacciones.HayNivelAbierto()); });
    EXPECT_TRUE(Tocar(1, C::Reenviar));
    EXPECT_EQ(fallos.Pendientes(), 0);
    NadaEscrito();
    EXPECT_EQ(EstadosYCierres(), u"ERROR 0"_s);
}

TEST_F(OperacionesListadoTest, ARowThatCannotBeMarkedIsNotQueuedEither) {
    Poner({.estado = u"ERROR"_s, .usuario = u"7"_s});
    Incidencias();
    {
        GanchoFallos fallos(motor);
        fallos.Falla(Statement::Kind::Escritura, u"REENVIADO"_s, 1);
        Preguntan(kReenviar, Respuesta::Si);
        EXPECT_EQ(NumeroError([&] { EXPECT_TRUE(Tocar(1, C::Reenviar)); }), 5);
    }
    entorno.transacciones.Saldar(); // as the next tick would
    NadaEscrito();
    EXPECT_EQ(EstadosYCierres(), u"ERROR 0"_s);
}

TEST_F(OperacionesListadoTest, ItsStatementIsAsOtherProgramsKnowIt) {
    Poner({.estado = u"ERROR"_s, .usuario = u"7"_s});
    Incidencias();
    GanchoFallos fallos(motor);
    Preguntan(kReenviar, Respuesta::Si);
    EXPECT_TRUE(Tocar(1, C::Reenviar));
    EXPECT_EQ(fallos.Cuenta(Statement::Kind::Escritura,
                            u"UPDATE procesados SET estado='REENVIADO' WHERE idZV=1"_s),
              1);
}

// What somebody has left open must not hold what is written here back, nor take it along.
TEST_F(OperacionesListadoTest, AnAbandonedLevelIsEndedFirst) {
    PonerIncidencias(1);
    Poner({.estado = u"ERROR"_s, .usuario = u"7"_s});
    const auto abandonar = [this] {
        motor.Comenzar();
        motor.Ejecutar(u"INSERT INTO Accesos (usuario) VALUES ('X')"_s);
    };
    Incidencias();
    abandonar();
    Preguntan(kReenviar, Respuesta::Si);
    EXPECT_TRUE(Tocar(2, C::Reenviar));
    EXPECT_FALSE(entorno.transacciones.HayNivelAbierto());
    abandonar();
    Preguntan(kEliminar, Respuesta::Si);
    EXPECT_FALSE(Tocar(1, C::Descartar));
    EXPECT_FALSE(entorno.transacciones.HayNivelAbierto());
    abandonar();
    dialogos.EsperaMensaje(testing::_, testing::_, Respuesta::Si);
    operaciones.Todas();
    EXPECT_FALSE(entorno.transacciones.HayNivelAbierto());
    EXPECT_EQ(EstadosYCierres(), u"ERROR -1;REENVIADO -1"_s);
    EXPECT_EQ(Cuenta("Accesos"), 0);
}

// ---- discarding

TEST_F(OperacionesListadoTest, ADiscardedIncidentIsInNoPeriod) {
    PonerIncidencias(3);
    Incidencias();
    GanchoFallos fallos(motor);
    Preguntan(kEliminar, Respuesta::Si);
    EXPECT_FALSE(Tocar(2, C::Descartar));
    EXPECT_EQ(EstadosYCierres(), u"ERROR 0;ERROR -1;ERROR 0"_s);
    EXPECT_EQ(Columna(C::IdZV), (QStringList{u"IdZV"_s, u"1"_s, u"3"_s}));
    EXPECT_FALSE(ConFondo(1) || ConFondo(2)); // filled again
    EXPECT_EQ(fallos.Cuenta(Statement::Kind::Escritura,
                            u"UPDATE procesados SET idcierre=-1  WHERE estado<>'OK' and idZV=2"_s),
              1);
}

TEST_F(OperacionesListadoTest, AnIncidentOfNothingIsDiscardedButNotResent) {
    Poner({.importeVenta = 0, .estado = u"ERROR"_s});
    Incidencias();
    Dicen(kImporteCero);
    EXPECT_FALSE(Tocar(1, C::Reenviar));
    Preguntan(kEliminar, Respuesta::Si);
    EXPECT_FALSE(Tocar(1, C::Descartar));
    EXPECT_EQ(EstadosYCierres(), u"ERROR -1"_s);
}

TEST_F(OperacionesListadoTest, ADiscardSaidNoToChangesNothing) {
    PonerIncidencias(1);
    Incidencias();
    for (const Respuesta respuesta : {Respuesta::No, Respuesta::Cancelar, Respuesta::Ninguna}) {
        Preguntan(kEliminar, respuesta);
        EXPECT_FALSE(Tocar(1, C::Descartar));
        EXPECT_FALSE(ConFondo(1));
    }
    EXPECT_EQ(EstadosYCierres(), u"ERROR 0"_s);
}

TEST_F(OperacionesListadoTest, AChargeIsAskedForButNeverWithdrawn) {
    Poner({});
    listado.RellenaGrdZv(ModoListado::Cobros);
    Preguntan(kEliminar, Respuesta::Si);
    EXPECT_FALSE(Tocar(1, C::Descartar));
    EXPECT_EQ(EstadosYCierres(), u"OK 0"_s);
    EXPECT_EQ(listado.grdZV().FilasDatos(), 1);
}

TEST_F(OperacionesListadoTest, AFailureOfADiscardGoesUp) {
    PonerIncidencias(1);
    Incidencias();
    GanchoFallos fallos(motor);
    fallos.Falla(Statement::Kind::Escritura, u"procesados"_s, 1);
    Preguntan(kEliminar, Respuesta::Si);
    EXPECT_EQ(NumeroError([&] { EXPECT_TRUE(Tocar(1, C::Descartar)); }), 5);
    EXPECT_EQ(EstadosYCierres(), u"ERROR 0"_s);
}

// ---- all at once

TEST_F(OperacionesListadoTest, AllIncidentsAreArchived) {
    PonerIncidencias(2);
    Poner({});
    Poner({.estado = u"ERROR"_s, .idCierre = 5});
    Incidencias();
    PonerIncidencias(1); // since the filling
    dialogos.EsperaMensaje(u"Descartar incidencias"_s,
                           u"¿Desea archivar todas las incidencias mostradas?"_s, Respuesta::Si,
                           EstiloMensaje::SiNo);
    operaciones.Todas();
    EXPECT_EQ(EstadosYCierres(), u"ERROR -1;ERROR -1;OK 0;ERROR 5;ERROR -1"_s);
    EXPECT_EQ(listado.grdZV().FilasDatos(), 0);
    EXPECT_EQ(listado.Modo(), ModoListado::Incidencias);
}

TEST_F(OperacionesListadoTest, AllAccessesGo) {
    PonerAccesos(5000);
    PonerIncidencias(1);
    listado.RellenaGrdZv(ModoListado::Accesos);
    ASSERT_EQ(listado.grdZV().FilasDatos(), 5000);
    dialogos.EsperaMensaje(u"Eliminar Accesos"_s,
                           u"¿Desea eliminar todo el historial de accesos?"_s, Respuesta::Si,
                           EstiloMensaje::SiNo);
    operaciones.Todas();
    EXPECT_EQ(Cuenta("Accesos"), 0);
    EXPECT_EQ(listado.grdZV().FilasDatos(), 0);
    EXPECT_EQ(EstadosYCierres(), u"ERROR 0"_s);
}

TEST_F(OperacionesListadoTest, SaidNoToAllOfThemStayAndAreReadAgain) {
    PonerIncidencias(1);
    PonerAccesos(1);
    for (const ModoListado modo : {ModoListado::Incidencias, ModoListado::Accesos}) {
        listado.RellenaGrdZv(modo);
        PonerIncidencias(1);
        PonerAccesos(1);
        const int antes = listado.grdZV().FilasDatos();
        dialogos.EsperaMensaje(testing::_, testing::_, Respuesta::No);
        operaciones.Todas();
        EXPECT_EQ(listado.grdZV().FilasDatos(), antes + 1);
    }
}

} // namespace
} // namespace zv::test
