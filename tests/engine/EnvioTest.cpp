// Sending of one sale: what stands in cola, in procesados and in the log after each outcome.
#include "engine/Envio.h"

#include "BancoEngine.h"
#include "platform/StringLiterals.h"
#include "store/Palabras.h"
#include "support/GanchoFallos.h"
#include "support/NumeroError.h"
#include "till/ResultadoEnvio.h"

namespace zv::test {

namespace {

constexpr int kSiempre = 1000; // failures, more than any operation tries

} // namespace

class EnvioTest : public BancoEngine {
  protected:
    EnvioTest() : sujeto(entorno) {}

    void SetUp() override { ConectarCon(50000); }

    int Enviar(qint32 idZV) { return sujeto.EnviarOperacion(u"ENVIARCOLA"_s, cliente, idZV); }
    // Another program on the same file: it can write at once, or not.
    bool OtroPuedeEscribir() const {
        SqliteEngine otroSQLite({std::chrono::milliseconds(0)});
        DatabaseEngine& otro = otroSQLite;
        otro.Abrir(CadenaConexion(u"MDB"_s, {}, conexion.RutaFichero(), {}, {}));
        return NumeroError(
                   [&] { otro.Ejecutar(u"INSERT INTO historial (id) VALUES ('POS')"_s); }) == 0;
    }
    // The wait for a lock, in milliseconds, at each begin that is issued.
    std::vector<qint32> EsperasAlEnviar(qint32 idZV) {
        std::vector<qint32> esperas;
        motor.PonerGancho([&](const Statement& s) {
            if (s.sql == u"BEGIN IMMEDIATE"_s) {
                esperas.push_back(motor.Consultar(u"PRAGMA busy_timeout"_s).front().LeerLong(0));
            }
        });
        Enviar(idZV);
        motor.PonerGancho({});
        return esperas;
    }
    static QString TextoFallo() {
        return u"Error al procesar la operación, consulte con el técnico de Zorvex"_s;
    }
    static QString TituloCredito() { return u"Confirmación de Operación Parcial"_s; }

    Envio sujeto;
};

TEST_F(EnvioTest, ACollectedSaleIsFiledAndLeavesTheQueue) {
    const qint32 id = PonerFila(1250);
    cliente.EsperaCharge(1250, 2000, 750);

    EXPECT_EQ(Enviar(id), envio::kBien);

    EXPECT_TRUE(Cola().empty());
    const auto filas = Procesados();
    ASSERT_EQ(filas.size(), 1U);
    const Row& f = filas.front();
    EXPECT_EQ(f.LeerTexto(u"estado"_s), u"OK"_s);
    EXPECT_EQ(f.LeerCurrency(u"importeVenta"_s), Currency(1250));
    EXPECT_EQ(f.LeerCurrency(u"cobrado"_s), Currency(2000));
    EXPECT_EQ(f.LeerCurrency(u"devuelto"_s), Currency(750));
    EXPECT_EQ(f.LeerCurrency(u"saldoZV"_s), Currency(50000));
    EXPECT_EQ(f.LeerTexto(u"id1"_s), u"T1"_s);
    EXPECT_EQ(f.LeerTexto(u"id2"_s), u"L2"_s);
    EXPECT_EQ(f.LeerLong(u"idcaja"_s), 3);
    EXPECT_EQ(f.LeerTexto(u"terminal"_s), u"TPV1"_s);
    EXPECT_EQ(f.LeerTexto(u"vendedor"_s), u"Ana"_s);
    EXPECT_EQ(f.LeerTexto(u"formapago"_s), u"EFECTIVO"_s);
    EXPECT_EQ(f.LeerTexto(u"error"_s), QString());
    EXPECT_EQ(f.LeerLong(u"idCierre"_s), 0);
    EXPECT_EQ(f.LeerLong(u"idcola"_s), id);
    EXPECT_EQ(f.LeerTexto(u"usuario"_s), u"ZVFast"_s);
    EXPECT_FALSE(seguretat.UsuarioFast());
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(log.lineas,
              (QStringList{u"ENVIARZV_INICIO_CHARGE: 1250"_s,
                           u"ZVCHARGE_ENVIARZV_1_OK: VALUEINCENTS=1250 "
                           "PAIDINVALUE=2000 PAIDOUTVALUE=750"_s,
                           u"ENVIARZV1_1_BEGINTRANS"_s, u"ADDPROC_OK_1_ENVIARCOLA"_s,
                           u"PROCCOLA_DELCOLA_OK_1 [ENVIARCOLA]"_s, u"ENVIARZV1_1_COMMIT"_s}));
}

TEST_F(EnvioTest, IdZeroSendsTheOldestRow) {
    PonerFila(300, u"A"_s);
    PonerFila(400, u"B"_s);
    cliente.EsperaCharge(300, 300, 0);
    EXPECT_EQ(Enviar(0), envio::kBien);
    ASSERT_EQ(Cola().size(), 1U);
    EXPECT_EQ(Cola().front().LeerTexto(u"id1"_s), u"B"_s);
}

TEST_F(EnvioTest, TheBusyMarkStandsDuringTheFilingAndFallsAfterIt) {
    const qint32 id = PonerFila(100);
    QStringList marcas;
    cliente.EsperaCharge(100, 100, 0, FinGuion::Ok().Durante([&] { marcas << Activo(); }));
    motor.PonerGancho([&](const Statement& s) {
        if (s.kind == Statement::Kind::Escritura) {
            marcas << Activo();
        }
    });
    EXPECT_EQ(Enviar(id), envio::kBien);
    motor.PonerGancho({});
    EXPECT_EQ(marcas.first(), u"-"_s);
    EXPECT_EQ(marcas.last(), u"1"_s);
    EXPECT_EQ(Activo(), u"0"_s);
}

TEST_F(EnvioTest, NothingIsLockedWhileTheCustomerPays) {
    const qint32 id = PonerFila(100);
    cliente.EsperaCharge(100, 100, 0, FinGuion::Ok().Durante([&] {
        SqliteEngine otroSQLite;
        DatabaseEngine& otro = otroSQLite;
        otro.Abrir(CadenaConexion(u"MDB"_s, {}, conexion.RutaFichero(), {}, {}));
        EXPECT_EQ(motor.Nivel(), 0);
        EXPECT_EQ(otro.Ejecutar(u"INSERT INTO cola (importe,id1) VALUES (1,'POS')"_s), 1);
    }));
    EXPECT_EQ(Enviar(id), envio::kBien);
    EXPECT_EQ(Cola().size(), 1U);
}

TEST_F(EnvioTest, AZeroAmountIsFiledWithoutTheDevice) {
    const qint32 id = PonerFila(0);
    EXPECT_EQ(Enviar(id), envio::kBien);
    EXPECT_TRUE(Cola().empty());
    const auto filas = Procesados();
    ASSERT_EQ(filas.size(), 1U);
    EXPECT_EQ(filas.front().LeerTexto(u"estado"_s), u"OK"_s);
    EXPECT_EQ(filas.front().LeerCurrency(u"cobrado"_s), Currency(0));
    EXPECT_EQ(filas.front().LeerCurrency(u"devuelto"_s), Currency(0));
    EXPECT_EQ(filas.front().LeerCurrency(u"saldoZV"_s), Currency(50000));
    EXPECT_EQ(filas.front().LeerTexto(u"usuario"_s), QString());
    EXPECT_EQ(log.lineas,
              (QStringList{u"ENVIARZV0_BEGINTRANS"_s, u"ADDPROC_OK_1_ENVIARCOLA"_s,
                           u"PROCCOLA_DELCOLA_OK_1 [ENVIARCOLA]"_s, u"ENVIARZV0_1_COMMIT"_s}));
}

TEST_F(EnvioTest, AnEarlierCreditIsConfirmedAndOnlyTheRestIsCharged) {
    const qint32 id = PonerFila(1000);
    PonerCredito(id, 400);
    dialogos.EsperaMensaje(TituloCredito(),
                           u"Se ha detectado un cobro parcial anterior en esta "
                           "operación de \r\n4,00 €"_s,
                           Respuesta::Reintentar, EstiloMensaje::ReintentarCancelar);
    cliente.EsperaCharge(600, 600, 0);
    EXPECT_EQ(Enviar(id), envio::kBien);
    ASSERT_EQ(Procesados().size(), 1U);
    EXPECT_EQ(Procesados().front().LeerCurrency(u"importeVenta"_s), Currency(600));
    EXPECT_EQ(log.lineas.first(), u"ENVIARZV_CREDITO_OK: 400"_s);
    EXPECT_EQ(log.lineas.at(1), u"ENVIARZV_INICIO_CHARGE: 600"_s);
}

TEST_F(EnvioTest, ARefusedCreditWritesNothing) {
    const qint32 id = PonerFila(1000);
    PonerCredito(id, 400);
    dialogos.EsperaMensaje(TituloCredito(), testing::_, Respuesta::Cancelar,
                           EstiloMensaje::ReintentarCancelar);
    int comienzos = 0;
    motor.PonerGancho([&](const Statement& s) {
        comienzos +=
            s.kind == Statement::Kind::Comenzar || s.kind == Statement::Kind::Escritura ? 1 : 0;
    });
    EXPECT_EQ(Enviar(id), envio::kCancelado);
    motor.PonerGancho({});
    EXPECT_EQ(comienzos, 0);
    EXPECT_TRUE(Procesados().empty());
    EXPECT_EQ(Cola().front().LeerCurrency(u"creditoError"_s), Currency(400));
    EXPECT_EQ(log.lineas,
              QStringList{u"ENVIARZV_CREDITO_CANCEL: Importe Venta 1000 - Crédito anterior "
                          "400"_s});
}

TEST_F(EnvioTest, ARefusedCreditLeavesTheBusyMarkToWhoSetIt) {
    const qint32 id = PonerFila(1000);
    PonerCredito(id, 400);
    entorno.marca.MarcarActivo(true);
    dialogos.EsperaMensaje(TituloCredito(), testing::_, Respuesta::Cancelar,
                           EstiloMensaje::ReintentarCancelar);
    EXPECT_EQ(Enviar(id), envio::kCancelado);
    EXPECT_EQ(Activo(), u"1"_s);
}

TEST_F(EnvioTest, ACreditOfTheWholeAmountIsFiledWithoutTheDevice) {
    const qint32 id = PonerFila(1000);
    PonerCredito(id, 1000);
    dialogos.EsperaMensaje(TituloCredito(), testing::_, Respuesta::Reintentar,
                           EstiloMensaje::ReintentarCancelar);
    EXPECT_EQ(Enviar(id), envio::kBien);
    ASSERT_EQ(Procesados().size(), 1U);
    const auto filas = Procesados();
    EXPECT_EQ(filas.front().LeerTexto(u"estado"_s), u"OK"_s);
    EXPECT_EQ(filas.front().LeerCurrency(u"importeVenta"_s), Currency(0));
    EXPECT_EQ(filas.front().LeerCurrency(u"cobrado"_s), Currency(0));
    EXPECT_EQ(filas.front().LeerCurrency(u"devuelto"_s), Currency(0));
}

TEST_F(EnvioTest, ACreditOnAZeroAmountIsGivenBackWithoutAsking) {
    const qint32 id = PonerFila(0);
    PonerCredito(id, 500);
    cliente.EsperaCharge(-500, 0, 500);
    EXPECT_EQ(Enviar(id), envio::kBien);
    EXPECT_TRUE(Cola().empty());
    EXPECT_EQ(Procesados().front().LeerCurrency(u"importeVenta"_s), Currency(-500));
}

TEST_F(EnvioTest, ANullCreditIsNoCredit) {
    const qint32 id = PonerFila(700);
    PonerCredito(id, QVariant());
    cliente.EsperaCharge(700, 700, 0);
    EXPECT_EQ(Enviar(id), envio::kBien);
    EXPECT_EQ(Procesados().front().LeerCurrency(u"importeVenta"_s), Currency(700));
}

TEST_F(EnvioTest, ADeviceErrorKeepsTheRowAndReplacesItsCredit) {
    const qint32 id = PonerFila(3000);
    PonerCredito(id, 300);
    dialogos.EsperaMensaje(TituloCredito(), testing::_, Respuesta::Reintentar,
                           EstiloMensaje::ReintentarCancelar);
    cliente.EsperaCharge(2700, 2000, 500, FinGuion::Error(5, u"Billete atascado"_s));
    EXPECT_EQ(Enviar(id), envio::kError);

    ASSERT_EQ(Cola().size(), 1U);
    EXPECT_EQ(Cola().front().LeerCurrency(u"creditoError"_s), Currency(1500));
    EXPECT_EQ(Cola().front().LeerCurrency(u"importe"_s), Currency(3000));
    ASSERT_EQ(Procesados().size(), 1U);
    const auto filas = Procesados();
    const Row& f = filas.front();
    EXPECT_EQ(f.LeerTexto(u"estado"_s), u"ERROR"_s);
    EXPECT_EQ(f.LeerCurrency(u"importeVenta"_s), Currency(2700));
    EXPECT_EQ(f.LeerCurrency(u"cobrado"_s), Currency(2000));
    EXPECT_EQ(f.LeerCurrency(u"devuelto"_s), Currency(500));
    EXPECT_EQ(f.LeerTexto(u"error"_s), u"5 - Billete atascado"_s);
    EXPECT_EQ(f.LeerLong(u"idcola"_s), 0);
    EXPECT_EQ(f.LeerTexto(u"usuario"_s), QString());
    EXPECT_EQ(
        log.lineas.mid(2),
        (QStringList{u"ENVIARZV2_1_BEGINTRANS"_s, u"EDIT_COLA_CREDITO_1_OK"_s,
                     u"ZVCHARGE_ENVIARZV2_1_ERROR_5: VALUEINCENTS=2700 "
                     "PAIDINVALUE=2000 PAIDOUTVALUE=500"_s,
                     u"ADDPROC_OK_1_ENVIARCOLA_ERRORZV"_s,
                     u">>> Error en Zorvex: 5 - Billete atascado"_s, u"ENVIARZV2_1_COMMIT"_s}));
}

TEST_F(EnvioTest, ADeviceErrorThatMovedNothingClearsTheCredit) {
    const qint32 id = PonerFila(1000);
    PonerCredito(id, 300);
    dialogos.EsperaMensaje(TituloCredito(), testing::_, Respuesta::Reintentar,
                           EstiloMensaje::ReintentarCancelar);
    cliente.EsperaCharge(700, 0, 0, FinGuion::Error(9, u"x"_s));
    EXPECT_EQ(Enviar(id), envio::kError);
    EXPECT_FALSE(Cola().front().EsNulo(u"creditoError"_s));
    EXPECT_EQ(Cola().front().LeerCurrency(u"creditoError"_s), Currency(0));
}

TEST_F(EnvioTest, ACancelKeepsTheRowAndItsCredit) {
    const qint32 id = PonerFila(1000);
    cliente.EsperaCharge(1000, 500, 500, FinGuion::Cancelado());
    EXPECT_EQ(Enviar(id), envio::kCancelado);
    ASSERT_EQ(Cola().size(), 1U);
    EXPECT_EQ(Cola().front().LeerCurrency(u"creditoError"_s), Currency(0));
    const auto filas = Procesados();
    ASSERT_EQ(filas.size(), 1U);
    EXPECT_EQ(filas.front().LeerTexto(u"estado"_s), u"CANCEL"_s);
    EXPECT_EQ(filas.front().LeerTexto(u"error"_s), u"Cobro cancelado"_s);
    EXPECT_EQ(filas.front().LeerCurrency(u"cobrado"_s), Currency(500));
    EXPECT_EQ(filas.front().LeerCurrency(u"devuelto"_s), Currency(500));
    EXPECT_EQ(log.lineas.mid(1),
              (QStringList{u"ENVIARZV2_1_BEGINTRANS"_s,
                           u"ZVCHARGE_ENVIARZV2_1_CANCEL: VALUEINCENTS=1000 "
                           "PAIDINVALUE=500 PAIDOUTVALUE=500"_s,
                           u"ADDPROC_OK_1_ENVIARCOLA_CANCEL"_s, u"ENVIARZV2_1_COMMIT"_s}));
}

TEST_F(EnvioTest, ACancelWithMoneyInFilesTheAmountsAndWritesNoCredit) {
    const qint32 id = PonerFila(1000);
    cliente.EsperaCharge(1000, 700, 200, FinGuion::Cancelado());
    EXPECT_EQ(Enviar(id), envio::kCancelado);
    EXPECT_EQ(Cola().front().LeerCurrency(u"creditoError"_s), Currency(0));
    EXPECT_EQ(Procesados().front().LeerCurrency(u"cobrado"_s), Currency(700));
}

TEST_F(EnvioTest, ACancelledRefundSaysSo) {
    const qint32 id = PonerFila(-800);
    cliente.EsperaCharge(-800, 0, 0, FinGuion::Cancelado());
    EXPECT_EQ(Enviar(id), envio::kCancelado);
    EXPECT_EQ(Procesados().front().LeerTexto(u"error"_s), u"Abono cancelado"_s);
}

TEST_F(EnvioTest, ANegativeErrorCodeIsACancel) {
    const qint32 id = PonerFila(800);
    cliente.EsperaCharge(800, 500, 0, FinGuion::Error(-3, u"fuera"_s));
    EXPECT_EQ(Enviar(id), envio::kCancelado);
    EXPECT_EQ(Procesados().front().LeerTexto(u"estado"_s), u"CANCEL"_s);
    EXPECT_EQ(Cola().front().LeerCurrency(u"creditoError"_s), Currency(0));
    EXPECT_EQ(log.CuentaInicio(u"ZVCHARGE_ENVIARZV2_1_CANCEL: "_s), 1);
}

TEST_F(EnvioTest, EachAttemptLeavesItsOwnRecord) {
    const qint32 id = PonerFila(800);
    cliente.EsperaCharge(800, 0, 0, FinGuion::Cancelado());
    cliente.EsperaCharge(800, 0, 0, FinGuion::Cancelado());
    Enviar(id);
    Enviar(id);
    EXPECT_EQ(Procesados().size(), 2U);
    EXPECT_EQ(Cola().size(), 1U);
}

TEST_F(EnvioTest, AVanishedRowReachesTheFilingAndTellsTheOperator) {
    dialogos.EsperaCaja(u"Error al procesar la operación, consulte con el técnico de Zorvex"_s);
    EXPECT_EQ(Enviar(77), envio::kBien);
    EXPECT_TRUE(Procesados().empty());
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(log.lineas, (QStringList{u"ENVIARZV0_BEGINTRANS"_s, u"ENVIARZV0_77_ROLLBACK"_s}));
}

TEST_F(EnvioTest, AFailureOfTheCommitIsAnErrorOfTheSend) {
    const qint32 id = PonerFila(500);
    cliente.EsperaCharge(500, 500, 0);
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Confirmar, u""_s, kSiempre, {13, u"database or disk is full"_s});
    EXPECT_EQ(Enviar(id), envio::kError);
    motor.PonerGancho({});
    EXPECT_EQ(log.lineas.last(),
              u">>> Error nº 13 al procesar operación nº 1 - database or disk is "
              "full"_s);
    EXPECT_EQ(Cola().size(), 1U);
    EXPECT_TRUE(Procesados().empty());
    EXPECT_EQ(Activo(), u"0"_s);
}

TEST_F(EnvioTest, ARaisingDeviceIsLoggedAndAnsweredAsAnError) {
    const qint32 id = PonerFila(500);
    cliente.EsperaCharge(500, 0, 0, FinGuion::Ok().Durante([] {
        throw ErrorEjecucion(429, u"El componente no responde"_s);
    }));
    EXPECT_EQ(Enviar(id), envio::kError);
    EXPECT_EQ(log.lineas.last(), u">>> Error nº 429 al procesar operación nº 1 - El componente no "
                                 "responde"_s);
    EXPECT_EQ(Cola().size(), 1U);
    EXPECT_TRUE(Procesados().empty());
}

TEST_F(EnvioTest, ACommitLineThatCannotBeWrittenIsAnErrorOfASaleThatIsFiled) {
    const qint32 id = PonerFila(500);
    cliente.EsperaCharge(500, 500, 0);
    // The commit line cannot be written: the commit itself has been done.
    int lineas = 0;
    motor.PonerGancho([&](const Statement& s) {
        if (s.kind == Statement::Kind::Confirmar) {
            ++lineas;
            log.fallosPendientes = 1;
        }
    });
    EXPECT_EQ(Enviar(id), envio::kError);
    motor.PonerGancho({});
    EXPECT_EQ(lineas, 1);
    EXPECT_TRUE(Cola().empty());
    EXPECT_EQ(Procesados().size(), 1U);
    EXPECT_TRUE(seguretat.UsuarioFast());
}

TEST_F(EnvioTest, AFailedCreditLeavesTheTransactionOpen) {
    const qint32 id = PonerFila(500);
    cliente.EsperaCharge(500, 300, 0, FinGuion::Error(5, u"Atasco"_s));
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Escritura, u"UPDATE"_s, kSiempre, {5, u"database is locked"_s});
    EXPECT_EQ(Enviar(id), envio::kError);
    motor.PonerGancho({});
    EXPECT_EQ(motor.Nivel(), 1);
    motor.Deshacer();
}

TEST_F(EnvioTest, ALogThatCannotBeWrittenEndsTheSendAsAnErrorWithTheMarkDown) {
    const qint32 id = PonerFila(500);
    log.fallosPendientes = 1000;
    EXPECT_EQ(Enviar(id), envio::kError);
    log.fallosPendientes = 0;
    EXPECT_EQ(Cola().size(), 1U);
    EXPECT_NE(Activo(), u"1"_s);
}

TEST_F(EnvioTest, AnAmountBeyondTheDeviceIsAnErrorThatMovesNothing) {
    const qint32 id = PonerFila(3000000000LL);
    EXPECT_EQ(Enviar(id), envio::kError);
    EXPECT_EQ(log.lineas,
              (QStringList{u"ENVIARZV_INICIO_CHARGE: 3000000000"_s,
                           u">>> Error nº 6 al procesar operación nº 1 - Desbordamiento"_s}));
    EXPECT_EQ(Cola().size(), 1U);
    EXPECT_TRUE(Procesados().empty());
}

TEST_F(EnvioTest, ARowOfNullsIsFiledAsNothingToCharge) {
    motor.Ejecutar(u"INSERT INTO cola (manual) VALUES (0)"_s);
    EXPECT_EQ(Enviar(1), envio::kBien);
    EXPECT_TRUE(Cola().empty());
    const auto filas = Procesados();
    ASSERT_EQ(filas.size(), 1U);
    EXPECT_EQ(filas.front().LeerTexto(u"id1"_s), QString());
    EXPECT_EQ(filas.front().LeerLong(u"idcaja"_s), 0);
}

TEST_F(EnvioTest, AnIdentifierOfFiftyFourByteCharactersStaysWhole) {
    const QString id1 = QString::fromUcs4(U"\U0001F4B6").repeated(50);
    const qint32 id = PonerFila(500, id1);
    cliente.EsperaCharge(500, 500, 0);
    EXPECT_EQ(Enviar(id), envio::kBien);
    EXPECT_EQ(Procesados().front().LeerTexto(u"id1"_s), id1);
}

TEST_F(EnvioTest, ALongDeviceMessageIsCutToFiftyCharacters) {
    const qint32 id = PonerFila(500);
    cliente.EsperaCharge(500, 0, 0, FinGuion::Error(5, QString(200, QLatin1Char('x'))));
    EXPECT_EQ(Enviar(id), envio::kError);
    EXPECT_EQ(Procesados().front().LeerTexto(u"error"_s).size(), 50);
}

TEST_F(EnvioTest, ASaleNamedLikeAManualKindIsFiledLikeAnyOther) {
    const qint32 id = PonerFila(500, u"PAGO"_s);
    cliente.EsperaCharge(500, 500, 0);
    EXPECT_EQ(Enviar(id), envio::kBien);
    EXPECT_EQ(Procesados().front().LeerTexto(u"id1"_s), tipo::kPago);
    EXPECT_EQ(Procesados().front().LeerLong(u"idcola"_s), id);
}

TEST_F(EnvioTest, TheBusyMarkStandsWhileAZeroAmountIsFiled) {
    const qint32 id = PonerFila(0);
    QStringList marcas;
    motor.PonerGancho([&](const Statement& s) {
        if (s.kind == Statement::Kind::Escritura) {
            marcas << Activo();
        }
    });
    EXPECT_EQ(Enviar(id), envio::kBien);
    motor.PonerGancho({});
    EXPECT_EQ(marcas, (QStringList{u"1"_s, u"1"_s})); // the record, the row
    EXPECT_EQ(Activo(), u"0"_s);
}

TEST_F(EnvioTest, AnAmountThatTheDeviceCannotTakeIsFiledWithoutIt) {
    for (const char* importe : {"0.4", "-0.4", "0.5", "-0.5"}) {
        motor.Ejecutar(
            u"INSERT INTO cola (importe,id1) VALUES (%1,'T')"_s.arg(QLatin1String(importe)));
        EXPECT_EQ(Enviar(0), envio::kBien) << importe;
    }
    EXPECT_TRUE(Cola().empty());
    const auto filas = Procesados();
    ASSERT_EQ(filas.size(), 4U);
    EXPECT_EQ(filas.front().LeerTexto(u"estado"_s), u"OK"_s);
    EXPECT_EQ(filas.front().LeerCurrency(u"importeVenta"_s), Currency::DeDiezmilesimas(4000));
    EXPECT_EQ(filas.front().LeerCurrency(u"cobrado"_s), Currency(0));
    motor.Ejecutar(u"INSERT INTO cola (importe,id1) VALUES (0.5001,'T')"_s);
    cliente.EsperaCharge(1, 1, 0);
    EXPECT_EQ(Enviar(0), envio::kBien);
}

TEST_F(EnvioTest, AFilingAfterMoneyHasMovedWaitsTenSecondsForTheLock) {
    const std::vector<qint32> diezSegundos{10000};
    qint32 id = PonerFila(500);
    cliente.EsperaCharge(500, 500, 0);
    EXPECT_EQ(EsperasAlEnviar(id), diezSegundos);

    id = PonerFila(500);
    cliente.EsperaCharge(500, 300, 0, FinGuion::Error(5, u"Atasco"_s));
    EXPECT_EQ(EsperasAlEnviar(id), diezSegundos);

    PonerCredito(id, 0);
    cliente.EsperaCharge(500, 300, 300, FinGuion::Cancelado());
    EXPECT_EQ(EsperasAlEnviar(id), diezSegundos);
}

TEST_F(EnvioTest, WhereNoMoneyHasMovedTheFilingWaitsAsEveryStatementDoes) {
    const qint32 id = PonerFila(0);
    EXPECT_EQ(EsperasAlEnviar(id), std::vector<qint32>{1000});
}

TEST_F(EnvioTest, TheRecordOfAnErrorTellsOfItsRow) {
    PonerFila(100, u"OTRA"_s);
    const qint32 id = PonerFila(3000);
    reloj.Avanzar(5000);
    cliente.EsperaCharge(3000, 2000, 500, FinGuion::Error(5, u"Atasco"_s));
    EXPECT_EQ(Enviar(id), envio::kError);
    const auto filas = Procesados();
    ASSERT_EQ(filas.size(), 1U);
    const Row& f = filas.front();
    EXPECT_EQ(f.LeerFecha(u"fechaZV"_s), reloj.Ahora());
    EXPECT_EQ(f.LeerFecha(u"fechaVenta"_s), reloj.Ahora());
    EXPECT_EQ(f.LeerTexto(u"id1"_s), u"T1"_s);
    EXPECT_EQ(f.LeerTexto(u"id2"_s), u"L2"_s);
    EXPECT_EQ(f.LeerLong(u"idcaja"_s), 3);
    EXPECT_EQ(f.LeerTexto(u"terminal"_s), u"TPV1"_s);
    EXPECT_EQ(f.LeerTexto(u"vendedor"_s), u"Ana"_s);
    EXPECT_EQ(f.LeerTexto(u"formapago"_s), u"EFECTIVO"_s);
    EXPECT_EQ(f.LeerCurrency(u"saldoZV"_s), Currency(50000));
    EXPECT_EQ(f.LeerLong(u"idcola"_s), 0);
    // The credit is that of the row that was sent.
    EXPECT_EQ(Cola().front().LeerCurrency(u"creditoError"_s), Currency(0));
    EXPECT_EQ(Cola().back().LeerCurrency(u"creditoError"_s), Currency(1500));
}

TEST_F(EnvioTest, TheRecordOfACancelTellsOfItsRow) {
    PonerFila(100, u"OTRA"_s);
    const qint32 id = PonerFila(1000);
    reloj.Avanzar(5000);
    cliente.EsperaCharge(1000, 700, 200, FinGuion::Cancelado());
    EXPECT_EQ(Enviar(id), envio::kCancelado);
    const auto filas = Procesados();
    ASSERT_EQ(filas.size(), 1U);
    const Row& f = filas.front();
    EXPECT_EQ(f.LeerFecha(u"fechaZV"_s), reloj.Ahora());
    EXPECT_EQ(f.LeerFecha(u"fechaVenta"_s), reloj.Ahora());
    EXPECT_EQ(f.LeerTexto(u"id1"_s), u"T1"_s);
    EXPECT_EQ(f.LeerTexto(u"id2"_s), u"L2"_s);
    EXPECT_EQ(f.LeerLong(u"idcaja"_s), 3);
    EXPECT_EQ(f.LeerTexto(u"terminal"_s), u"TPV1"_s);
    EXPECT_EQ(f.LeerTexto(u"vendedor"_s), u"Ana"_s);
    EXPECT_EQ(f.LeerTexto(u"formapago"_s), u"EFECTIVO"_s);
    EXPECT_EQ(f.LeerCurrency(u"importeVenta"_s), Currency(1000));
    EXPECT_EQ(f.LeerCurrency(u"devuelto"_s), Currency(200));
    EXPECT_EQ(f.LeerCurrency(u"saldoZV"_s), Currency(50000));
    EXPECT_EQ(f.LeerLong(u"idcola"_s), 0);
}

TEST_F(EnvioTest, ACancelLeavesAFormerCreditAsItWas) {
    const qint32 id = PonerFila(1000);
    PonerCredito(id, 300);
    dialogos.EsperaMensaje(TituloCredito(), testing::_, Respuesta::Reintentar,
                           EstiloMensaje::ReintentarCancelar);
    cliente.EsperaCharge(700, 200, 0, FinGuion::Cancelado());
    EXPECT_EQ(Enviar(id), envio::kCancelado);
    EXPECT_EQ(Cola().front().LeerCurrency(u"creditoError"_s), Currency(300));
}

// The two roads of a send: with the device, and past it where there is nothing to charge.
struct CaminoEnvio {
    const char* nombre;
    qint32 importe;
    QString tag;
};

class RegistroFallidoTest : public EnvioTest, public testing::WithParamInterface<CaminoEnvio> {
  protected:
    // A row of it, and a filing in which a statement fails.
    qint32 Preparar(const QString& sentencia) {
        const qint32 id = PonerFila(GetParam().importe);
        if (GetParam().importe != 0) {
            cliente.EsperaCharge(GetParam().importe, GetParam().importe, 0);
        }
        gancho.Falla(Statement::Kind::Escritura, sentencia, kSiempre, {10, u"disk I/O error"_s});
        return id;
    }
    QString Rollback() const { return GetParam().tag + u"_1_ROLLBACK"_s; }
    // Nothing of the filing stands.
    void ComprobarDeshecho() {
        motor.PonerGancho({});
        EXPECT_EQ(Cola().size(), 1U);
        EXPECT_TRUE(Procesados().empty());
        EXPECT_EQ(motor.Nivel(), 0);
        EXPECT_EQ(log.lineas.last(), Rollback());
        EXPECT_EQ(Activo(), u"0"_s);
        EXPECT_FALSE(seguretat.UsuarioFast());
    }

    GanchoFallos gancho{motor};
};

TEST_P(RegistroFallidoTest, IsToldAndRolledBackWithTheRowKept) {
    const qint32 id = Preparar(u"procesados"_s);
    dialogos.EsperaCaja(TextoFallo());
    EXPECT_EQ(Enviar(id), envio::kBien);
    ComprobarDeshecho();
}

// The record is written, its row of the queue cannot be deleted.
TEST_P(RegistroFallidoTest, LocksNobodyOutWhileTheOperatorReadsOfIt) {
    const qint32 id = Preparar(u"DELETE"_s);
    dialogos.EsperaCaja(TextoFallo(), [&] {
        EXPECT_EQ(motor.Nivel(), 0);
        EXPECT_TRUE(OtroPuedeEscribir());
        EXPECT_EQ(log.Cuenta(Rollback()), 0);
        EXPECT_EQ(Activo(), u"1"_s);
    });
    EXPECT_EQ(Enviar(id), envio::kBien);
    ComprobarDeshecho();
}

INSTANTIATE_TEST_SUITE_P(Caminos, RegistroFallidoTest,
                         testing::Values(CaminoEnvio{"ConDispositivo", 500, u"ENVIARZV1"_s},
                                         CaminoEnvio{"SinNadaQueCobrar", 0, u"ENVIARZV0"_s}),
                         [](const auto& caso) { return std::string(caso.param.nombre); });

TEST_F(EnvioTest, ARollbackThatFailsIsAnErrorOfTheSendAfterTheBox) {
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Deshacer, u""_s, kSiempre, {10, u"disk I/O error"_s});
    dialogos.EsperaCaja(TextoFallo());
    EXPECT_EQ(Enviar(77), envio::kError);
    motor.PonerGancho({});
    EXPECT_EQ(log.Cuenta(u"ENVIARZV0_77_ROLLBACK"_s), 0);
    EXPECT_EQ(log.lineas.last(), u">>> Error nº 10 al procesar operación nº 77 - disk I/O error"_s);
    EXPECT_EQ(motor.Nivel(), 0);
}

TEST_F(EnvioTest, EditarCreditoOfARowThatHasGoneWritesNothing) {
    sujeto.EditarCredito(5, 100);
    EXPECT_TRUE(log.lineas.isEmpty());
}

} // namespace zv::test
