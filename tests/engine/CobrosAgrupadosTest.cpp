// Grouped charges: what stands in cola, in procesados and in the log after each outcome at the
// device.
#include "engine/CobrosAgrupados.h"

#include "BancoAgrupar.h"
#include "store/Palabras.h"
#include "store/dades.h"
#include "support/GanchoFallos.h"
#include "till/ResultadoEnvio.h"

#include <limits>

namespace zv::test {

// ---- the charge

class CobrosAgrupadosTest : public BancoAgrupar {
  protected:
    CobrosAgrupadosTest() : sujeto(entorno, controles, grid, estado, pulso) {}

    // Two rows of one sale each.
    void DosFilas() {
        PonerVenta(1000, u"A"_s);
        PonerVenta(250, u"B"_s, u"L2"_s);
        log.Toma();
    }
    bool Procesar(const QString& ids = u"1,2"_s) { return sujeto.ProcesarAgrupadas(ids); }
    Row Ultimo() {
        return motor.Consultar(u"SELECT * FROM procesados ORDER BY idZV DESC"_s).front();
    }
    Row DeFila(qint32 idZV) {
        return motor
            .Consultar(u"SELECT * FROM procesados WHERE idcola = "_s + QString::number(idZV))
            .front();
    }
    static QStringList LineasDelGrupo() {
        return {u"ZVCHARGE_AGR_MAN_OK: VALUEINCENTS=1250 PAIDINVALUE=2000 PAIDOUTVALUE=750"_s,
                u"AGR_MAN_BEGINTRANS"_s,
                u"ADDPROC_OK_1_AGR_MAN"_s,
                u"ADDPROC_OK_2_AGR_MAN_DELCOLA_GRUPO_MANUAL"_s,
                u"PROCCOLA_DELCOLA_OK_1 [AGR_MAN_DELCOLA_GRUPO_MANUAL]"_s,
                u"ADDPROC_OK_3_AGR_MAN_DELCOLA_GRUPO_MANUAL"_s,
                u"PROCCOLA_DELCOLA_OK_2 [AGR_MAN_DELCOLA_GRUPO_MANUAL]"_s,
                u"AGR_MAN_COMMIT"_s};
    }
    // That text of a group's record, which its rows' own texts make.
    QString TerminalDe(const QStringList& terminales) {
        QStringList ids;
        for (const QString& terminal : terminales) {
            ids << QString::number(PonerVenta(100, u"T"_s, {}, terminal));
        }
        cliente.EsperaCharge(static_cast<qint32>(100 * terminales.size()), 0, 0);
        EXPECT_TRUE(Procesar(ids.join(u',')));
        return motor.Consultar(u"SELECT * FROM procesados WHERE idcola = 0 ORDER BY idZV DESC"_s)
            .front()
            .LeerTexto(u"terminal"_s);
    }

    CobrosAgrupados sujeto;
};

TEST_F(CobrosAgrupadosTest, AGroupIsChargedOnceAndFiledWithItsRowsCancelled) {
    DosFilas();
    cliente.EsperaCharge(1250, 2000, 750, FinGuion::Ok().Durante([this] {
        cliente.PonerTotal(51250);
        EXPECT_EQ(motor.Nivel(), 0);
        EXPECT_FALSE(C().boton[BotonPie::DarCambio]);
        EXPECT_FALSE(C().boton[BotonPie::AgruparCobros]);
    }));
    EXPECT_TRUE(Procesar());
    EXPECT_TRUE(Cola().empty());
    const auto filas = Procesados();
    ASSERT_EQ(filas.size(), 3U);
    const Row& g = filas[0];
    EXPECT_EQ(g.LeerTexto(u"estado"_s), u"OK"_s);
    EXPECT_EQ(g.LeerFecha(u"fechaVenta"_s), reloj.Ahora());
    EXPECT_EQ(g.LeerCurrency(u"importeVenta"_s), Currency(1250));
    EXPECT_EQ(g.LeerCurrency(u"cobrado"_s), Currency(2000));
    EXPECT_EQ(g.LeerCurrency(u"devuelto"_s), Currency(750));
    EXPECT_EQ(g.LeerTexto(u"id1"_s), u"A + B/L2"_s);
    EXPECT_EQ(g.LeerTexto(u"id2"_s), QString());
    EXPECT_EQ(g.LeerLong(u"idcaja"_s), 0);
    EXPECT_EQ(g.LeerTexto(u"terminal"_s), u"TPV1"_s);
    EXPECT_EQ(g.LeerTexto(u"vendedor"_s), QString());
    EXPECT_EQ(g.LeerTexto(u"formapago"_s), QString());
    EXPECT_EQ(g.LeerTexto(u"error"_s), u"Cobro agrupado"_s);
    EXPECT_EQ(g.LeerCurrency(u"saldoZV"_s), Currency(51250));
    EXPECT_EQ(g.LeerLong(u"idcola"_s), 0);
    EXPECT_EQ(g.LeerTexto(u"usuario"_s), QString());
    for (const int n : {1, 2}) {
        const Row& f = filas[static_cast<std::size_t>(n)];
        EXPECT_EQ(f.LeerTexto(u"estado"_s), u"CANCEL"_s);
        EXPECT_EQ(f.LeerLong(u"idcola"_s), n);
        EXPECT_EQ(f.LeerTexto(u"error"_s), u"Anulada por cobro agrupado MANUAL"_s);
        EXPECT_EQ(f.LeerCurrency(u"importeVenta"_s), Currency(n == 1 ? 1000 : 250));
        EXPECT_EQ(f.LeerCurrency(u"cobrado"_s), Currency(0));
        EXPECT_EQ(f.LeerCurrency(u"devuelto"_s), Currency(0));
        EXPECT_EQ(f.LeerCurrency(u"saldoZV"_s), Currency(0));
    }
    EXPECT_EQ(log.lineas, LineasDelGrupo());
    EXPECT_EQ(registry.LeerValor(registry_name::kSaldoExit, QString()), u"51250"_s);
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kBien);
    EXPECT_EQ(motor.Nivel(), 0);
    // The connector is not told.
    EXPECT_EQ(Activo(), u"-"_s);
}

TEST_F(CobrosAgrupadosTest, ByTheButtonTheScreenFollows) {
    DosFilas();
    PonerVenta(30, u"C"_s);
    Mirar();
    Marcar({1, 2});
    cliente.EsperaCharge(1250, 1250, 0, FinGuion::Ok().Durante([this] {
        EXPECT_TRUE(estado.Agrupando());
        EXPECT_FALSE(C().framePie);
        ClicEnFila(3); // nobody marks any more
    }));
    Cobrar();
    EXPECT_EQ(grid.FilasDatos(), 1);
    EXPECT_EQ(C().lbContador, u"1 cobros"_s);
    EXPECT_EQ(C().lbEstado, QString());
    EXPECT_FALSE(estado.Agrupando());
    EXPECT_TRUE(pulso.Armado());
    EXPECT_TRUE(C().framePie);
    EXPECT_EQ(C().aviso, LineaAviso());
    EXPECT_EQ(configuracio->Modo, modo::kManual);
}

TEST_F(CobrosAgrupadosTest, IdentifiersAreJoinedInTheOrderOfTheQueue) {
    PonerVenta(100, u"A"_s, u"1"_s);
    PonerVenta(100, QString(), QString());
    PonerVenta(100, u"C"_s);
    PonerVenta(100, QString(), u"4"_s);
    cliente.EsperaCharge(400, 400, 0);
    EXPECT_TRUE(Procesar(u"4,3,1,2"_s));
    EXPECT_EQ(Procesados().front().LeerTexto(u"id1"_s), u"A/1 +  + C + /4"_s);
    // The rows go in the order of their marks.
    EXPECT_EQ(LineasDe(u"PROCCOLA_DELCOLA_OK_4"_s).size(), 1);
    EXPECT_EQ(Procesados()[1].LeerLong(u"idcola"_s), 4);
    EXPECT_EQ(Procesados()[4].LeerLong(u"idcola"_s), 2);
}

TEST_F(CobrosAgrupadosTest, LongIdentifiersAreCutInTheRecordAlone) {
    for (int i = 0; i < 10; ++i) {
        PonerVenta(100, u"FACTURA-2026-00%1"_s.arg(i));
    }
    cliente.EsperaCharge(1000, 1000, 0);
    EXPECT_TRUE(Procesar(u"1,2,3,4,5,6,7,8,9,10"_s));
    EXPECT_EQ(Procesados().front().LeerTexto(u"id1"_s),
              u"FACTURA-2026-000 + FACTURA-2026-001 + FACTURA-2026-002"_s.left(50));
    EXPECT_EQ(Procesados().size(), 11U);
}

TEST_F(CobrosAgrupadosTest, OnlyTheFirstTerminalIsKnownAgain) {
    EXPECT_EQ(TerminalDe({u"A"_s, u"B"_s, u"B"_s}), u"A, B, B"_s);
    EXPECT_EQ(TerminalDe({u"A"_s, u"A"_s}), u"A"_s);
    EXPECT_EQ(TerminalDe({u"A"_s, u"B"_s, u"A"_s, u"C"_s, u"B"_s}), u"A, B, C, B"_s);
    EXPECT_EQ(TerminalDe({u"A"_s, u"a"_s}), u"A, a"_s);
    // One that begins with a blank is what the parting finds.
    EXPECT_EQ(TerminalDe({u"A"_s, u"B"_s, u" B"_s}), u"A, B"_s);
    EXPECT_EQ(TerminalDe({u"A"_s, QString()}), u"A, "_s);
    EXPECT_EQ(TerminalDe({QString(), u"B"_s, u"B"_s}), u"B"_s);
}

TEST_F(CobrosAgrupadosTest, ACreditOfARowIsNotLookedAt) {
    DosFilas();
    PonerCredito(1, 400);
    cliente.EsperaCharge(1250, 1250, 0);
    EXPECT_TRUE(Procesar());
    EXPECT_EQ(Procesados().front().LeerCurrency(u"importeVenta"_s), Currency(1250));
    // The row's own record counts it.
    EXPECT_EQ(DeFila(1).LeerCurrency(u"importeVenta"_s), Currency(600));
}

TEST_F(CobrosAgrupadosTest, AmountsThatAddUpToNothingAreChargedAsNothing) {
    PonerVenta(500, u"A"_s);
    PonerVenta(-500, u"B"_s);
    log.Toma();
    cliente.EsperaCharge(0, 0, 0);
    EXPECT_TRUE(Procesar());
    EXPECT_TRUE(Cola().empty());
    EXPECT_EQ(Procesados().front().LeerCurrency(u"importeVenta"_s), Currency(0));
    EXPECT_EQ(log.lineas.first(),
              u"ZVCHARGE_AGR_MAN_OK: VALUEINCENTS=0 PAIDINVALUE=0 PAIDOUTVALUE=0"_s);
}

TEST_F(CobrosAgrupadosTest, ARefundIsANegativeCharge) {
    PonerVenta(500, u"A"_s);
    PonerVenta(-800, u"B"_s);
    cliente.EsperaCharge(-300, 0, 300);
    EXPECT_TRUE(Procesar());
    EXPECT_EQ(Procesados().front().LeerCurrency(u"importeVenta"_s), Currency(-300));
    EXPECT_EQ(Procesados().front().LeerCurrency(u"devuelto"_s), Currency(300));
}

TEST_F(CobrosAgrupadosTest, WithoutADeviceNothingHappens) {
    DosFilas();
    supervision.MarcarDesconectado();
    EXPECT_FALSE(Procesar());
    EXPECT_EQ(Cola().size(), 2U);
    EXPECT_TRUE(log.lineas.isEmpty());
    EXPECT_TRUE(dialogos.Llamadas().isEmpty());
}

TEST_F(CobrosAgrupadosTest, ARowThatAnotherProgramHasDeletedIsNotCharged) {
    DosFilas();
    Otro()->Ejecutar(u"DELETE FROM cola WHERE idZV = 1"_s);
    cliente.EsperaCharge(250, 250, 0);
    EXPECT_TRUE(Procesar());
    EXPECT_TRUE(Cola().empty());
    ASSERT_EQ(Procesados().size(), 2U);
    EXPECT_EQ(Procesados().front().LeerTexto(u"id1"_s), u"B/L2"_s);
    EXPECT_EQ(log.lineas,
              (QStringList{
                  u"ZVCHARGE_AGR_MAN_OK: VALUEINCENTS=250 PAIDINVALUE=250 PAIDOUTVALUE=0"_s,
                  u"AGR_MAN_BEGINTRANS"_s, u"ADDPROC_OK_1_AGR_MAN"_s,
                  u"ADDPROC_OK_2_AGR_MAN_DELCOLA_GRUPO_MANUAL"_s,
                  u"PROCCOLA_DELCOLA_OK_2 [AGR_MAN_DELCOLA_GRUPO_MANUAL]"_s, u"AGR_MAN_COMMIT"_s}));
}

TEST_F(CobrosAgrupadosTest, WhenAllRowsHaveBeenDeletedNothingIsCharged) {
    DosFilas();
    Otro()->Ejecutar(u"DELETE FROM cola"_s);
    cliente.EsperaCharge(0, 0, 0);
    EXPECT_TRUE(Procesar());
    ASSERT_EQ(Procesados().size(), 1U);
    EXPECT_EQ(Ultimo().LeerTexto(u"estado"_s), u"OK"_s);
    EXPECT_EQ(Ultimo().LeerTexto(u"id1"_s), QString());
    EXPECT_EQ(Ultimo().LeerTexto(u"terminal"_s), QString());
    EXPECT_EQ(Ultimo().LeerCurrency(u"importeVenta"_s), Currency(0));
    EXPECT_EQ(log.lineas.last(), u"AGR_MAN_COMMIT"_s);
}

TEST_F(CobrosAgrupadosTest, ABalanceThatFailsAfterTheErrorDoesNotLendItItsWords) {
    DosFilas();
    Mirar();
    Marcar({1, 2});
    cliente.EsperaCharge(1250, 0, 0, FinGuion::Error(12, u"Atasco"_s).Durante([this] {
        cliente.FallarNiveles(2, 31, u"Puerta abierta"_s);
    }));
    dialogos.EsperaMensaje(u"Operación anulada"_s, u"Puerta abierta"_s);
    dialogos.EsperaMensaje(u"Operación anulada"_s, u"Puerta abierta"_s);
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, u"12 - Atasco"_s);
    Cobrar();
}

TEST_F(CobrosAgrupadosTest, ARowThatGoesWhileTheCustomerPaysLeavesNoRecordOfItsOwn) {
    DosFilas();
    cliente.EsperaCharge(1250, 1250, 0, FinGuion::Ok().Durante([this] {
        Otro()->Ejecutar(u"DELETE FROM cola WHERE idZV = 2"_s);
        Otro()->Ejecutar(u"INSERT INTO cola (importe,id1) VALUES (5,'NUEVA')"_s);
    }));
    EXPECT_TRUE(Procesar());
    EXPECT_EQ(Procesados().size(), 2U);
    ASSERT_EQ(Cola().size(), 1U);
    EXPECT_EQ(Cola().front().LeerTexto(u"id1"_s), u"NUEVA"_s);
}

// ---- the device refuses, fails or is cancelled

TEST_F(CobrosAgrupadosTest, ADeviceErrorIsFiledOnceAndKeepsTheRows) {
    DosFilas();
    PonerCredito(1, 400);
    log.Toma();
    cliente.EsperaCharge(1250, 1000, 300, FinGuion::Error(5, u"Billete atascado"_s));
    EXPECT_FALSE(Procesar());
    ASSERT_EQ(Cola().size(), 2U);
    // Money kept by a failed group stands only in the record.
    EXPECT_EQ(Cola()[0].LeerCurrency(u"creditoError"_s), Currency(400));
    EXPECT_EQ(Cola()[1].LeerCurrency(u"creditoError"_s), Currency(0));
    ASSERT_EQ(Procesados().size(), 1U);
    const Row f = Ultimo();
    EXPECT_EQ(f.LeerTexto(u"estado"_s), u"ERROR"_s);
    EXPECT_EQ(f.LeerFecha(u"fechaVenta"_s), reloj.Ahora());
    EXPECT_EQ(f.LeerCurrency(u"importeVenta"_s), Currency(1250));
    EXPECT_EQ(f.LeerCurrency(u"cobrado"_s), Currency(1000));
    EXPECT_EQ(f.LeerCurrency(u"devuelto"_s), Currency(300));
    EXPECT_EQ(f.LeerTexto(u"id1"_s), u"A + B/L2"_s);
    EXPECT_EQ(f.LeerTexto(u"terminal"_s), u"TPV1"_s);
    EXPECT_EQ(f.LeerCurrency(u"saldoZV"_s), Currency(50000));
    EXPECT_EQ(f.LeerLong(u"idcola"_s), 0);
    EXPECT_EQ(f.LeerTexto(u"error"_s), u"Error cobro agrupado: 5 - Billete atascado"_s);
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kError);
    EXPECT_EQ(entorno.codigoEnvio, 5);
    EXPECT_EQ(log.lineas,
              (QStringList{u"AGR_MAN_BEGINTRANS"_s,
                           u"ZVCHARGE_AGR_MAN_ERROR_5: VALUEINCENTS=1250 PAIDINVALUE=1000 "
                           "PAIDOUTVALUE=300"_s,
                           u"AGR_MAN_ERRORZV_5 - Billete atascado"_s, u"ADDPROC_OK_1_AGR_MAN"_s,
                           u"AGR_MAN_COMMIT"_s}));
    EXPECT_EQ(Activo(), u"-"_s);
}

TEST_F(CobrosAgrupadosTest, AnErrorIsToldByTheScreenAndTheModeStays) {
    DosFilas();
    Mirar();
    configuracio->Modo = modo::kSemi;
    entorno.codigoEnvio = 44; // of an earlier send
    Marcar({1, 2});
    cliente.EsperaCharge(1250, 0, 0, FinGuion::Error(12, u"Sin cambio"_s));
    dialogos.EsperaMensaje(
        u"Error de Zorvex"_s, u"12 - Sin cambio"_s, Respuesta::Aceptar, std::nullopt, [this] {
            EXPECT_EQ(motor.Nivel(), 0);
            EXPECT_EQ(C().lbEstado, u"Error 12 - Sin cambio. Consulte con su técnico"_s);
        });
    Cobrar();
    EXPECT_EQ(configuracio->Modo, modo::kSemi);
    EXPECT_EQ(Cola().size(), 2U);
    EXPECT_TRUE(pulso.Armado());
}

TEST_F(CobrosAgrupadosTest, ALostLinkIsAnErrorLikeAnyOther) {
    DosFilas();
    Mirar();
    Marcar({1, 2});
    cliente.EsperaCharge(1250, 0, 0, FinGuion::EnlacePerdido());
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, u"1 - Enlace perdido"_s);
    Cobrar();
    // No reconnection, no retry.
    EXPECT_EQ(cliente.Llamadas().count(u"Charge(1250)"_s), 1);
    EXPECT_EQ(cliente.Llamadas().filter(u"onnect("_s), QStringList{u"Connect()"_s});
    EXPECT_TRUE(supervision.Conectado());
    EXPECT_EQ(Ultimo().LeerTexto(u"error"_s), u"Error cobro agrupado: 1 - Enlace perdido"_s);
}

TEST_F(CobrosAgrupadosTest, ACancelIsFiledOnceAndKeepsTheRows) {
    DosFilas();
    for (const qint16 codigo : {qint16{0}, qint16{-3}}) {
        log.Toma();
        cliente.EsperaCharge(1250, 500, 500, FinGuion::Error(codigo, u"fuera"_s));
        EXPECT_FALSE(Procesar());
        EXPECT_EQ(Cola().size(), 2U);
        const Row f = Ultimo();
        EXPECT_EQ(f.LeerTexto(u"estado"_s), u"CANCEL"_s);
        EXPECT_EQ(f.LeerTexto(u"error"_s), u"Cobro agrupado cancelado"_s);
        EXPECT_EQ(f.LeerCurrency(u"importeVenta"_s), Currency(1250));
        EXPECT_EQ(f.LeerCurrency(u"cobrado"_s), Currency(500));
        EXPECT_EQ(f.LeerCurrency(u"devuelto"_s), Currency(500));
        EXPECT_EQ(f.LeerTexto(u"id1"_s), u"A + B/L2"_s);
        EXPECT_EQ(f.LeerTexto(u"terminal"_s), u"TPV1"_s);
        EXPECT_EQ(f.LeerCurrency(u"saldoZV"_s), Currency(50000));
        EXPECT_EQ(entorno.ResultadoEnvio, envio::kCancelado);
        EXPECT_EQ(log.lineas, (QStringList{u"AGR_MAN_BEGINTRANS"_s,
                                           u"ZVCHARGE_AGR_MAN_CANCEL: VALUEINCENTS=1250 "
                                           "PAIDINVALUE=500 PAIDOUTVALUE=500"_s,
                                           u"AGR_MAN_CANCEL_%1 - fuera"_s.arg(codigo),
                                           u"ADDPROC_OK_%1_AGR_MAN"_s.arg(Procesados().size()),
                                           u"AGR_MAN_COMMIT"_s}));
    }
}

TEST_F(CobrosAgrupadosTest, ACancelIsToldByTheStateLine) {
    DosFilas();
    Mirar();
    Marcar({1, 2});
    cliente.EsperaCharge(1250, 0, 0, FinGuion::Cancelado());
    Cobrar();
    EXPECT_EQ(C().lbEstado, u"Última operación cancelada. Cambiado a modo MANUAL"_s);
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kCancelado);
}

TEST_F(CobrosAgrupadosTest, ABalanceThatCannotBeReadIsToldWhenTheBooksAreClosed) {
    DosFilas();
    const auto enlace = [this] {
        for (const qint32 tipo : {2, 3, 4}) {
            cliente.FallarNiveles(tipo, 1, u"Sin conexión"_s);
        }
    };
    const auto cerrados = [this] {
        EXPECT_EQ(motor.Nivel(), 0);
        EXPECT_EQ(log.lineas.last(), u"AGR_MAN_COMMIT"_s);
    };
    cliente.EsperaCharge(1250, 0, 0, FinGuion::Error(5, u"Atasco"_s).Durante(enlace));
    for (int i = 0; i < 2; ++i) { // of the record, of "Saldo_Exit"
        dialogos.EsperaMensaje(u"Operación anulada"_s, u"Sin conexión"_s, Respuesta::Aceptar,
                               std::nullopt, cerrados);
    }
    EXPECT_FALSE(Procesar());
    EXPECT_EQ(Ultimo().LeerCurrency(u"saldoZV"_s), Currency(0));
    // The record tells of the charge, not of the balance.
    EXPECT_EQ(Ultimo().LeerTexto(u"error"_s), u"Error cobro agrupado: 5 - Atasco"_s);
}

// ---- failures

TEST_F(CobrosAgrupadosTest, AFailedRecordStillCommitsAndTheRowsStay) {
    DosFilas();
    cliente.EsperaCharge(1250, 1250, 0);
    dialogos.EsperaCaja(TextoFallo(), [this] {
        EXPECT_EQ(motor.Nivel(), 0);
        EXPECT_EQ(registry.LeerValor(registry_name::kSaldoExit, QString()), u"51250"_s);
    });
    cliente.PonerTotal(51250);
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Escritura, u"INSERT INTO"_s, 4);
    EXPECT_FALSE(Procesar());
    EXPECT_EQ(gancho.Pendientes(), 0);
    EXPECT_EQ(Cola().size(), 2U);
    EXPECT_TRUE(Procesados().empty());
    EXPECT_EQ(log.lineas.first().left(19), u"ZVCHARGE_AGR_MAN_OK"_s);
    EXPECT_EQ(log.lineas.last(), u"AGR_MAN_COMMIT"_s);
    EXPECT_EQ(LineasDe(u"AGR_MAN_ROLLBACK"_s).size(), 0);
}

TEST_F(CobrosAgrupadosTest, ARecordThatWasStoredAtTheSecondAttemptCountsAsNone) {
    DosFilas();
    cliente.EsperaCharge(1250, 1250, 0);
    dialogos.EsperaCaja(TextoFallo());
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Escritura, u"INSERT INTO"_s, 1);
    EXPECT_FALSE(Procesar());
    EXPECT_EQ(Cola().size(), 2U);
    EXPECT_EQ(Procesados().size(), 1U);
}

TEST_F(CobrosAgrupadosTest, ARowThatCannotBeCancelledStaysAndTheOthersGo) {
    DosFilas();
    cliente.EsperaCharge(1250, 1250, 0);
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Lectura, u"idzv=1"_s, 1);
    EXPECT_TRUE(Procesar());
    EXPECT_EQ(gancho.Pendientes(), 0);
    ASSERT_EQ(Cola().size(), 1U);
    EXPECT_EQ(Cola().front().LeerLong(u"idZV"_s), 1);
    EXPECT_EQ(Procesados().size(), 2U);
    EXPECT_EQ(log.CuentaInicio(u"DELCOLA_GRUPO_ERROR_5 - "_s), 1);
    EXPECT_EQ(log.lineas.last(), u"AGR_MAN_COMMIT"_s);
}

TEST_F(CobrosAgrupadosTest, AFailureWithoutAHandlerOfItsOwnRollsBack) {
    struct Caso {
        Statement::Kind kind;
        QString lineaAntes;
    };
    for (const Caso& caso :
         {Caso{Statement::Kind::Comenzar,
               u"ZVCHARGE_AGR_MAN_OK: VALUEINCENTS=1250 PAIDINVALUE=1250 PAIDOUTVALUE=0"_s},
          Caso{Statement::Kind::Confirmar,
               u"PROCCOLA_DELCOLA_OK_2 [AGR_MAN_DELCOLA_GRUPO_MANUAL]"_s}}) {
        motor.Ejecutar(u"DELETE FROM cola"_s);
        motor.Ejecutar(u"DELETE FROM sqlite_sequence"_s);
        DosFilas();
        cliente.EsperaCharge(1250, 1250, 0);
        dialogos.EsperaCaja(TextoFallo(), [this] { EXPECT_EQ(motor.Nivel(), 0); });
        {
            GanchoFallos gancho(motor);
            gancho.Falla(caso.kind, {}, 1, ErrorEjecucion(13, u"disk is full"_s));
            EXPECT_FALSE(Procesar());
            EXPECT_EQ(gancho.Pendientes(), 0);
        }
        EXPECT_EQ(Cola().size(), 2U);
        EXPECT_TRUE(Procesados().empty());
        EXPECT_EQ(log.lineas.last(), u"AGR_MAN_ROLLBACK_ERROR_13 - disk is full"_s);
        EXPECT_EQ(log.lineas.at(log.lineas.size() - 2), caso.lineaAntes);
    }
}

TEST_F(CobrosAgrupadosTest, AnErrorOfTheDeviceWhoseRecordFailsIsCommittedAllTheSame) {
    DosFilas();
    cliente.EsperaCharge(1250, 0, 0, FinGuion::Error(5, u"Atasco"_s));
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Escritura, u"INSERT INTO"_s, 4);
    EXPECT_FALSE(Procesar());
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kError);
    EXPECT_EQ(log.lineas.last(), u"AGR_MAN_COMMIT"_s);
    EXPECT_TRUE(Procesados().empty());
}

TEST_F(CobrosAgrupadosTest, ALogThatFailsInTheFilingRollsBack) {
    DosFilas();
    cliente.EsperaCharge(1250, 1250, 0);
    dialogos.EsperaCaja(TextoFallo());
    motor.PonerGancho([this](const Statement& s) {
        if (s.kind == Statement::Kind::Comenzar && s.sql.isEmpty()) {
            log.fallosPendientes = 1; // "AGR_MAN_BEGINTRANS"
        }
    });
    EXPECT_FALSE(Procesar());
    motor.PonerGancho({});
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(Cola().size(), 2U);
    EXPECT_EQ(log.lineas.last().left(27), u"AGR_MAN_ROLLBACK_ERROR_75 -"_s);
}

TEST_F(CobrosAgrupadosTest, ALogThatFailsForGoodEndsNoTill) {
    DosFilas();
    cliente.EsperaCharge(1250, 1250, 0,
                         FinGuion::Ok().Durante([this] { log.fallosPendientes = 1000; }));
    dialogos.EsperaCaja(TextoFallo());
    EXPECT_FALSE(Procesar());
    log.fallosPendientes = 0;
    EXPECT_EQ(Cola().size(), 2U);
}

TEST_F(CobrosAgrupadosTest, ARollbackThatFailsEndsNoTill) {
    DosFilas();
    cliente.EsperaCharge(1250, 1250, 0);
    dialogos.EsperaCaja(TextoFallo());
    motor.PonerGancho([this](const Statement& s) {
        if (s.kind == Statement::Kind::Deshacer) {
            throw ErrorEjecucion(10, u"disk I/O error"_s);
        }
        if (s.kind == Statement::Kind::Comenzar && s.sql.isEmpty()) {
            log.fallosPendientes = 1;
        }
    });
    EXPECT_FALSE(Procesar());
    motor.PonerGancho({});
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(log.lineas.last().left(26), u"AGR_MAN_ROLLBACK_ERROR_75 "_s);
}

TEST_F(CobrosAgrupadosTest, ACommitLineThatCannotBeWrittenDoesNotTouchTheBooks) {
    DosFilas();
    cliente.EsperaCharge(1250, 1250, 0);
    motor.PonerGancho([this](const Statement& s) {
        if (s.kind == Statement::Kind::Confirmar) {
            log.fallosPendientes = 1;
        }
    });
    // Nothing is wrong that the operator could mend.
    EXPECT_FALSE(Procesar());
    motor.PonerGancho({});
    EXPECT_TRUE(Cola().empty());
    EXPECT_EQ(Procesados().size(), 3U);
    EXPECT_EQ(log.lineas.last().left(27), u"AGR_MAN_ROLLBACK_ERROR_75 -"_s);
}

TEST_F(CobrosAgrupadosTest, ADeviceThatRaisesIsLoggedAndTold) {
    DosFilas();
    cliente.EsperaCharge(1250, 0, 0, FinGuion::Ok().Durante([] {
        throw ErrorEjecucion(429, u"El componente no responde"_s);
    }));
    dialogos.EsperaCaja(TextoFallo());
    EXPECT_FALSE(Procesar());
    EXPECT_EQ(log.lineas, QStringList{u"AGR_MAN_ROLLBACK_ERROR_429 - El componente no responde"_s});
    EXPECT_EQ(Cola().size(), 2U);
}

TEST_F(CobrosAgrupadosTest, ASumBeyondTheDeviceIsLoggedAndToldAndMovesNothing) {
    for (const qint64 importe : {qint64{2147483647}, qint64{-1073741824}}) {
        motor.Ejecutar(u"DELETE FROM cola"_s);
        const qint32 una = PonerVenta(importe, u"A"_s);
        const qint32 otra = PonerVenta(importe, u"B"_s);
        Mirar();
        Marcar({1, 2});
        dialogos.EsperaMensaje(u"No se han cobrado los cobros marcados"_s,
                               u"Error nº 6 - Desbordamiento"_s, Respuesta::Aceptar, std::nullopt,
                               [this] { EXPECT_EQ(motor.Nivel(), 0); });
        Cobrar();
        EXPECT_EQ(log.lineas, QStringList{u"AGR_MAN_ROLLBACK_ERROR_6 - Desbordamiento"_s});
        ASSERT_EQ(Cola().size(), 2U);
        EXPECT_EQ(Cola()[0].LeerLong(u"idZV"_s), una);
        EXPECT_EQ(Cola()[1].LeerLong(u"idZV"_s), otra);
        EXPECT_TRUE(Procesados().empty());
        EXPECT_TRUE(pulso.Armado());
        EXPECT_FALSE(estado.Agrupando());
        EXPECT_EQ(entorno.ResultadoEnvio, envio::kBien);
    }
}

TEST_F(CobrosAgrupadosTest, ASumThatIsNoneIsLoggedAndToldAndTheTillGoesOn) {
    // A table of another program's, without a word on what a column takes.
    motor.Ejecutar(u"DROP TABLE cola"_s);
    motor.Ejecutar(
        u"CREATE TABLE cola (idZV INTEGER PRIMARY KEY, fecha, importe, id1, id2, idcaja, "
        "terminal, vendedor, formapago, creditoError, manual)"_s);
    motor.Ejecutar(u"INSERT INTO cola (id1) VALUES ('A'), ('B')"_s);
    for (const auto& [valor, fallo] :
         {std::pair<QVariant, QString>{900000000000000LL, u"6 - Desbordamiento"_s},
          std::pair<QVariant, QString>{u"diez"_s, u"13 - No coinciden los tipos"_s}}) {
        motor.Ejecutar(u"UPDATE cola SET importe = ?"_s, {valor});
        Mirar();
        Marcar({1, 2});
        dialogos.EsperaMensaje(u"No se han cobrado los cobros marcados"_s, u"Error nº "_s + fallo);
        log.Toma();
        Cobrar();
        EXPECT_EQ(log.lineas, QStringList{u">>> Error nº "_s +
                                          QString(fallo).replace(
                                              u" - "_s, u" al leer los cobros marcados - "_s)});
        EXPECT_EQ(Cola().size(), 2U);
        EXPECT_TRUE(Procesados().empty());
        EXPECT_TRUE(pulso.Armado());
    }
    EXPECT_EQ(cliente.Llamadas().filter(u"Charge"_s).size(), 0);
}

TEST_F(CobrosAgrupadosTest, RowsThatCannotBeReadAreToldWithoutALogToo) {
    DosFilas();
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Lectura, u"idzv IN (1,2)"_s, 1);
    log.fallosPendientes = 1;
    dialogos.EsperaMensaje(u"No se han cobrado los cobros marcados"_s,
                           u"Error nº 5 - database is locked"_s);
    EXPECT_FALSE(Procesar());
    EXPECT_EQ(gancho.Pendientes(), 0);
}

// ---- locks

TEST_F(CobrosAgrupadosTest, NothingIsLockedWhileTheCustomerPays) {
    DosFilas();
    cliente.EsperaCharge(1250, 1250, 0, FinGuion::Ok().Durante([this] {
        EXPECT_EQ(Otro()->Ejecutar(u"INSERT INTO cola (importe,id1) VALUES (1,'POS')"_s), 1);
    }));
    EXPECT_TRUE(Procesar());
    EXPECT_EQ(Cola().size(), 1U);
}

TEST_F(CobrosAgrupadosTest, MoneyThatHasMovedIsFiledThoughTheLockIsHeldAWhile) {
    for (const bool bien : {true, false}) {
        motor.Ejecutar(u"DELETE FROM cola"_s);
        motor.Ejecutar(u"DELETE FROM sqlite_sequence"_s);
        DosFilas();
        cliente.EsperaCharge(1250, 1250, 0,
                             bien ? FinGuion::Ok() : FinGuion::Error(5, u"Atasco"_s));
        std::vector<qint32> esperas;
        motor.PonerGancho([&](const Statement& s) {
            if (s.sql == u"BEGIN IMMEDIATE"_s) {
                esperas.push_back(motor.Consultar(u"PRAGMA busy_timeout"_s).front().LeerLong(0));
            }
        });
        EXPECT_EQ(Procesar(), bien);
        motor.PonerGancho({});
        EXPECT_EQ(esperas, std::vector<qint32>{10000});
    }
}

TEST_F(CobrosAgrupadosTest, AnAbandonedTransactionEndsBeforeTheDeviceIsAsked) {
    DosFilas();
    motor.Comenzar();
    motor.Ejecutar(u"UPDATE cola SET id1 = 'X'"_s);
    cliente.EsperaCharge(1250, 1250, 0);
    EXPECT_TRUE(Procesar());
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(log.lineas.first(), u">>> Transacción abandonada: deshecha"_s);
    EXPECT_EQ(DeFila(1).LeerTexto(u"id1"_s), u"A"_s);
}

} // namespace zv::test
