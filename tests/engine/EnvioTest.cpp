// Sending of one sale: what stands in cola, in procesados and in the log after each outcome.
#include "engine/Envio.h"

#include "BancoMotor.h"

namespace zv::test {

class EnvioTest : public BancoMotor {
  protected:
    EnvioTest() : sujeto(entorno) {}

    void SetUp() override { ConectarCon(50000); }

    int Enviar(qint32 idZV) {
        return sujeto.EnviarOperacion(QStringLiteral("ENVIARCOLA"), cliente, idZV);
    }
    static QString TituloCredito() { return QStringLiteral("Confirmación de Operación Parcial"); }

    Envio sujeto;
};

TEST_F(EnvioTest, ACollectedSaleIsFiledAndLeavesTheQueue) {
    const qint32 id = PonerFila(1250);
    cliente.EsperaCharge(1250, 2000, 750);

    EXPECT_EQ(Enviar(id), envio::kBien);

    EXPECT_TRUE(Cola().empty());
    const auto filas = Procesados();
    ASSERT_EQ(filas.size(), 1U);
    const Fila& f = filas.front();
    EXPECT_EQ(f.LeerTexto(QStringLiteral("estado")), QStringLiteral("OK"));
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("importeVenta")), Currency(1250));
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("cobrado")), Currency(2000));
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("devuelto")), Currency(750));
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("saldoZV")), Currency(50000));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("id1")), QStringLiteral("T1"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("id2")), QStringLiteral("L2"));
    EXPECT_EQ(f.LeerLong(QStringLiteral("idcaja")), 3);
    EXPECT_EQ(f.LeerTexto(QStringLiteral("terminal")), QStringLiteral("TPV1"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("vendedor")), QStringLiteral("Ana"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("formapago")), QStringLiteral("EFECTIVO"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("error")), QString());
    EXPECT_EQ(f.LeerLong(QStringLiteral("idCierre")), 0);
    EXPECT_EQ(f.LeerLong(QStringLiteral("idcola")), id);
    EXPECT_EQ(f.LeerTexto(QStringLiteral("usuario")), QStringLiteral("ZVFast"));
    EXPECT_FALSE(seguretat.UsuarioFast);
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(log.lineas, (QStringList{QStringLiteral("ENVIARZV_INICIO_CHARGE: 1250"),
                                       QStringLiteral("ZVCHARGE_ENVIARZV_1_OK: VALUEINCENTS=1250 "
                                                      "PAIDINVALUE=2000 PAIDOUTVALUE=750"),
                                       QStringLiteral("ENVIARZV1_1_BEGINTRANS"),
                                       QStringLiteral("ADDPROC_OK_1_ENVIARCOLA"),
                                       QStringLiteral("PROCCOLA_DELCOLA_OK_1 [ENVIARCOLA]"),
                                       QStringLiteral("ENVIARZV1_1_COMMIT")}));
}

TEST_F(EnvioTest, IdZeroSendsTheOldestRow) {
    PonerFila(300, QStringLiteral("A"));
    PonerFila(400, QStringLiteral("B"));
    cliente.EsperaCharge(300, 300, 0);
    EXPECT_EQ(Enviar(0), envio::kBien);
    ASSERT_EQ(Cola().size(), 1U);
    EXPECT_EQ(Cola().front().LeerTexto(QStringLiteral("id1")), QStringLiteral("B"));
}

TEST_F(EnvioTest, TheBusyMarkStandsDuringTheFilingAndFallsAfterIt) {
    const qint32 id = PonerFila(100);
    QStringList marcas;
    cliente.EsperaCharge(100, 100, 0, FinGuion::Ok().Durante([&] { marcas << Activo(); }));
    motor.PonerGancho([&](const Sentencia& s) {
        if (s.clase == Sentencia::Clase::Escritura) {
            marcas << Activo();
        }
    });
    EXPECT_EQ(Enviar(id), envio::kBien);
    motor.PonerGancho({});
    EXPECT_EQ(marcas.first(), QStringLiteral("-"));
    EXPECT_EQ(marcas.last(), QStringLiteral("1"));
    EXPECT_EQ(Activo(), QStringLiteral("0"));
}

TEST_F(EnvioTest, NothingIsLockedWhileTheCustomerPays) {
    const qint32 id = PonerFila(100);
    cliente.EsperaCharge(100, 100, 0, FinGuion::Ok().Durante([&] {
        MotorSQLite otroSQLite;
        MotorBD& otro = otroSQLite;
        otro.Abrir(CadenaConexion(QStringLiteral("MDB"), {}, conexion.RutaFichero(), {}, {}));
        EXPECT_EQ(motor.Nivel(), 0);
        EXPECT_EQ(otro.Ejecutar(QStringLiteral("INSERT INTO cola (importe,id1) VALUES (1,'POS')")),
                  1);
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
    EXPECT_EQ(filas.front().LeerTexto(QStringLiteral("estado")), QStringLiteral("OK"));
    EXPECT_EQ(filas.front().LeerCurrency(QStringLiteral("cobrado")), Currency(0));
    EXPECT_EQ(filas.front().LeerCurrency(QStringLiteral("devuelto")), Currency(0));
    EXPECT_EQ(filas.front().LeerCurrency(QStringLiteral("saldoZV")), Currency(50000));
    EXPECT_EQ(filas.front().LeerTexto(QStringLiteral("usuario")), QString());
    EXPECT_EQ(log.lineas, (QStringList{QStringLiteral("ENVIARZV0_BEGINTRANS"),
                                       QStringLiteral("ADDPROC_OK_1_ENVIARCOLA"),
                                       QStringLiteral("PROCCOLA_DELCOLA_OK_1 [ENVIARCOLA]"),
                                       QStringLiteral("ENVIARZV0_1_COMMIT")}));
}

TEST_F(EnvioTest, AnEarlierCreditIsConfirmedAndOnlyTheRestIsCharged) {
    const qint32 id = PonerFila(1000);
    PonerCredito(id, 400);
    dialogos.EsperaMensaje(TituloCredito(),
                           QStringLiteral("Se ha detectado un cobro parcial anterior en esta "
                                          "operación de \r\n4,00 €"),
                           resultado::kReintentar, 5);
    cliente.EsperaCharge(600, 600, 0);
    EXPECT_EQ(Enviar(id), envio::kBien);
    ASSERT_EQ(Procesados().size(), 1U);
    EXPECT_EQ(Procesados().front().LeerCurrency(QStringLiteral("importeVenta")), Currency(600));
    EXPECT_EQ(log.lineas.first(), QStringLiteral("ENVIARZV_CREDITO_OK: 400"));
    EXPECT_EQ(log.lineas.at(1), QStringLiteral("ENVIARZV_INICIO_CHARGE: 600"));
}

TEST_F(EnvioTest, ARefusedCreditWritesNothing) {
    const qint32 id = PonerFila(1000);
    PonerCredito(id, 400);
    dialogos.EsperaMensaje(TituloCredito(), testing::_, resultado::kCancelar, 5);
    int comienzos = 0;
    motor.PonerGancho([&](const Sentencia& s) {
        comienzos +=
            s.clase == Sentencia::Clase::Comenzar || s.clase == Sentencia::Clase::Escritura ? 1 : 0;
    });
    EXPECT_EQ(Enviar(id), envio::kCancelado);
    motor.PonerGancho({});
    EXPECT_EQ(comienzos, 0);
    EXPECT_TRUE(Procesados().empty());
    EXPECT_EQ(Cola().front().LeerCurrency(QStringLiteral("creditoError")), Currency(400));
    EXPECT_EQ(log.lineas, QStringList{QStringLiteral(
                              "ENVIARZV_CREDITO_CANCEL: Importe Venta 1000 - Crédito anterior "
                              "400")});
}

TEST_F(EnvioTest, ACreditOfTheWholeAmountIsFiledWithoutTheDevice) {
    const qint32 id = PonerFila(1000);
    PonerCredito(id, 1000);
    dialogos.EsperaMensaje(TituloCredito(), testing::_, resultado::kReintentar, 5);
    EXPECT_EQ(Enviar(id), envio::kBien);
    ASSERT_EQ(Procesados().size(), 1U);
    const auto filas = Procesados();
    EXPECT_EQ(filas.front().LeerTexto(QStringLiteral("estado")), QStringLiteral("OK"));
    EXPECT_EQ(filas.front().LeerCurrency(QStringLiteral("importeVenta")), Currency(0));
    EXPECT_EQ(filas.front().LeerCurrency(QStringLiteral("cobrado")), Currency(0));
    EXPECT_EQ(filas.front().LeerCurrency(QStringLiteral("devuelto")), Currency(0));
}

TEST_F(EnvioTest, ACreditOnAZeroAmountIsGivenBackWithoutAsking) {
    const qint32 id = PonerFila(0);
    PonerCredito(id, 500);
    cliente.EsperaCharge(-500, 0, 500);
    EXPECT_EQ(Enviar(id), envio::kBien);
    EXPECT_TRUE(Cola().empty());
    EXPECT_EQ(Procesados().front().LeerCurrency(QStringLiteral("importeVenta")), Currency(-500));
}

TEST_F(EnvioTest, ANullCreditIsNoCredit) {
    const qint32 id = PonerFila(700);
    PonerCredito(id, QVariant());
    cliente.EsperaCharge(700, 700, 0);
    EXPECT_EQ(Enviar(id), envio::kBien);
    EXPECT_EQ(Procesados().front().LeerCurrency(QStringLiteral("importeVenta")), Currency(700));
}

TEST_F(EnvioTest, ADeviceErrorKeepsTheRowAndReplacesItsCredit) {
    const qint32 id = PonerFila(3000);
    PonerCredito(id, 300);
    dialogos.EsperaMensaje(TituloCredito(), testing::_, resultado::kReintentar, 5);
    cliente.EsperaCharge(2700, 2000, 500, FinGuion::Error(5, QStringLiteral("Billete atascado")));
    EXPECT_EQ(Enviar(id), envio::kError);

    ASSERT_EQ(Cola().size(), 1U);
    EXPECT_EQ(Cola().front().LeerCurrency(QStringLiteral("creditoError")), Currency(1500));
    EXPECT_EQ(Cola().front().LeerCurrency(QStringLiteral("importe")), Currency(3000));
    ASSERT_EQ(Procesados().size(), 1U);
    const auto filas = Procesados();
    const Fila& f = filas.front();
    EXPECT_EQ(f.LeerTexto(QStringLiteral("estado")), QStringLiteral("ERROR"));
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("importeVenta")), Currency(2700));
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("cobrado")), Currency(2000));
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("devuelto")), Currency(500));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("error")), QStringLiteral("5 - Billete atascado"));
    EXPECT_EQ(f.LeerLong(QStringLiteral("idcola")), 0);
    EXPECT_EQ(f.LeerTexto(QStringLiteral("usuario")), QString());
    EXPECT_EQ(log.lineas.mid(2),
              (QStringList{QStringLiteral("ENVIARZV2_1_BEGINTRANS"),
                           QStringLiteral("EDIT_COLA_CREDITO_1_OK"),
                           QStringLiteral("ZVCHARGE_ENVIARZV2_1_ERROR_5: VALUEINCENTS=2700 "
                                          "PAIDINVALUE=2000 PAIDOUTVALUE=500"),
                           QStringLiteral("ADDPROC_OK_1_ENVIARCOLA_ERRORZV"),
                           QStringLiteral(">>> Error en Zorvex: 5 - Billete atascado"),
                           QStringLiteral("ENVIARZV2_1_COMMIT")}));
}

TEST_F(EnvioTest, ADeviceErrorThatMovedNothingClearsTheCredit) {
    const qint32 id = PonerFila(1000);
    PonerCredito(id, 300);
    dialogos.EsperaMensaje(TituloCredito(), testing::_, resultado::kReintentar, 5);
    cliente.EsperaCharge(700, 0, 0, FinGuion::Error(9, QStringLiteral("x")));
    EXPECT_EQ(Enviar(id), envio::kError);
    EXPECT_FALSE(Cola().front().EsNulo(QStringLiteral("creditoError")));
    EXPECT_EQ(Cola().front().LeerCurrency(QStringLiteral("creditoError")), Currency(0));
}

TEST_F(EnvioTest, ACancelKeepsTheRowAndItsCredit) {
    const qint32 id = PonerFila(1000);
    cliente.EsperaCharge(1000, 500, 500, FinGuion::Cancelado());
    EXPECT_EQ(Enviar(id), envio::kCancelado);
    ASSERT_EQ(Cola().size(), 1U);
    EXPECT_EQ(Cola().front().LeerCurrency(QStringLiteral("creditoError")), Currency(0));
    const auto filas = Procesados();
    ASSERT_EQ(filas.size(), 1U);
    EXPECT_EQ(filas.front().LeerTexto(QStringLiteral("estado")), QStringLiteral("CANCEL"));
    EXPECT_EQ(filas.front().LeerTexto(QStringLiteral("error")), QStringLiteral("Cobro cancelado"));
    EXPECT_EQ(filas.front().LeerCurrency(QStringLiteral("cobrado")), Currency(500));
    EXPECT_EQ(filas.front().LeerCurrency(QStringLiteral("devuelto")), Currency(500));
    EXPECT_EQ(log.lineas.mid(1),
              (QStringList{QStringLiteral("ENVIARZV2_1_BEGINTRANS"),
                           QStringLiteral("ZVCHARGE_ENVIARZV2_1_CANCEL: VALUEINCENTS=1000 "
                                          "PAIDINVALUE=500 PAIDOUTVALUE=500"),
                           QStringLiteral("ADDPROC_OK_1_ENVIARCOLA_CANCEL"),
                           QStringLiteral("ENVIARZV2_1_COMMIT")}));
}

TEST_F(EnvioTest, ACancelWithMoneyInFilesTheAmountsAndWritesNoCredit) {
    const qint32 id = PonerFila(1000);
    cliente.EsperaCharge(1000, 700, 200, FinGuion::Cancelado());
    EXPECT_EQ(Enviar(id), envio::kCancelado);
    EXPECT_EQ(Cola().front().LeerCurrency(QStringLiteral("creditoError")), Currency(0));
    EXPECT_EQ(Procesados().front().LeerCurrency(QStringLiteral("cobrado")), Currency(700));
}

TEST_F(EnvioTest, ACancelledRefundSaysSo) {
    const qint32 id = PonerFila(-800);
    cliente.EsperaCharge(-800, 0, 0, FinGuion::Cancelado());
    EXPECT_EQ(Enviar(id), envio::kCancelado);
    EXPECT_EQ(Procesados().front().LeerTexto(QStringLiteral("error")),
              QStringLiteral("Abono cancelado"));
}

TEST_F(EnvioTest, ANegativeErrorCodeIsACancel) {
    const qint32 id = PonerFila(800);
    cliente.EsperaCharge(800, 0, 0, FinGuion::Error(-3, QStringLiteral("fuera")));
    EXPECT_EQ(Enviar(id), envio::kCancelado);
    EXPECT_EQ(Procesados().front().LeerTexto(QStringLiteral("estado")), QStringLiteral("CANCEL"));
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
    dialogos.EsperaCaja(
        QStringLiteral("Error al procesar la operación, consulte con el técnico de Zorvex"));
    EXPECT_EQ(Enviar(77), envio::kBien);
    EXPECT_TRUE(Procesados().empty());
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(log.lineas, (QStringList{QStringLiteral("ENVIARZV0_BEGINTRANS"),
                                       QStringLiteral("ENVIARZV0_77_ROLLBACK")}));
}

TEST_F(EnvioTest, AFailedFilingIsToldAndRolledBackWithTheRowKept) {
    const qint32 id = PonerFila(500);
    cliente.EsperaCharge(500, 500, 0);
    motor.PonerGancho([](const Sentencia& s) {
        if (s.clase == Sentencia::Clase::Escritura &&
            s.sql.contains(QStringLiteral("procesados"), Qt::CaseInsensitive)) {
            throw ErrorEjecucion(10, QStringLiteral("disk I/O error"));
        }
    });
    dialogos.EsperaCaja(
        QStringLiteral("Error al procesar la operación, consulte con el técnico de Zorvex"));
    EXPECT_EQ(Enviar(id), envio::kBien);
    motor.PonerGancho({});
    EXPECT_EQ(Cola().size(), 1U);
    EXPECT_TRUE(Procesados().empty());
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(log.lineas.last(), QStringLiteral("ENVIARZV1_1_ROLLBACK"));
    EXPECT_EQ(Activo(), QStringLiteral("0"));
    EXPECT_FALSE(seguretat.UsuarioFast);
}

TEST_F(EnvioTest, AFailedDeleteOfTheQueueRowRollsTheRecordBack) {
    const qint32 id = PonerFila(500);
    cliente.EsperaCharge(500, 500, 0);
    motor.PonerGancho([](const Sentencia& s) {
        if (s.clase == Sentencia::Clase::Escritura &&
            s.sql.startsWith(QStringLiteral("DELETE"), Qt::CaseInsensitive)) {
            throw ErrorEjecucion(10, QStringLiteral("disk I/O error"));
        }
    });
    dialogos.EsperaCaja(
        QStringLiteral("Error al procesar la operación, consulte con el técnico de Zorvex"));
    EXPECT_EQ(Enviar(id), envio::kBien);
    motor.PonerGancho({});
    EXPECT_EQ(Cola().size(), 1U);
    EXPECT_TRUE(Procesados().empty());
}

TEST_F(EnvioTest, AFailureOfTheCommitIsAnErrorOfTheSend) {
    const qint32 id = PonerFila(500);
    cliente.EsperaCharge(500, 500, 0);
    motor.PonerGancho([](const Sentencia& s) {
        if (s.clase == Sentencia::Clase::Confirmar) {
            throw ErrorEjecucion(13, QStringLiteral("database or disk is full"));
        }
    });
    EXPECT_EQ(Enviar(id), envio::kError);
    motor.PonerGancho({});
    EXPECT_EQ(log.lineas.last(),
              QStringLiteral(">>> Error nº 13 al procesar operación nº 1 - database or disk is "
                             "full"));
    EXPECT_EQ(Cola().size(), 1U);
    EXPECT_TRUE(Procesados().empty());
    EXPECT_EQ(Activo(), QStringLiteral("0"));
}

TEST_F(EnvioTest, ARaisingDeviceIsLoggedAndAnsweredAsAnError) {
    const qint32 id = PonerFila(500);
    cliente.EsperaCharge(500, 0, 0, FinGuion::Ok().Durante([] {
        throw ErrorEjecucion(429, QStringLiteral("El componente no responde"));
    }));
    EXPECT_EQ(Enviar(id), envio::kError);
    EXPECT_EQ(log.lineas.last(),
              QStringLiteral(">>> Error nº 429 al procesar operación nº 1 - El componente no "
                             "responde"));
    EXPECT_EQ(Cola().size(), 1U);
    EXPECT_TRUE(Procesados().empty());
}

TEST_F(EnvioTest, AFailureInsideTheTransactionLeavesItOpenAndTheSignatureUp) {
    const qint32 id = PonerFila(500);
    cliente.EsperaCharge(500, 500, 0);
    // The commit line cannot be written: the commit itself has been done.
    int lineas = 0;
    motor.PonerGancho([&](const Sentencia& s) {
        if (s.clase == Sentencia::Clase::Confirmar) {
            ++lineas;
            log.fallosPendientes = 1;
        }
    });
    EXPECT_EQ(Enviar(id), envio::kError);
    motor.PonerGancho({});
    EXPECT_EQ(lineas, 1);
    EXPECT_TRUE(Cola().empty());
    EXPECT_EQ(Procesados().size(), 1U);
    EXPECT_TRUE(seguretat.UsuarioFast);
}

TEST_F(EnvioTest, AFailedCreditLeavesTheTransactionOpen) {
    const qint32 id = PonerFila(500);
    cliente.EsperaCharge(500, 300, 0, FinGuion::Error(5, QStringLiteral("Atasco")));
    motor.PonerGancho([](const Sentencia& s) {
        if (s.sql.startsWith(QStringLiteral("UPDATE"))) {
            throw ErrorEjecucion(5, QStringLiteral("database is locked"));
        }
    });
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
    EXPECT_NE(Activo(), QStringLiteral("1"));
}

TEST_F(EnvioTest, AnAmountBeyondTheDeviceIsAnErrorThatMovesNothing) {
    const qint32 id = PonerFila(3000000000LL);
    EXPECT_EQ(Enviar(id), envio::kError);
    EXPECT_EQ(log.lineas,
              (QStringList{
                  QStringLiteral("ENVIARZV_INICIO_CHARGE: 3000000000"),
                  QStringLiteral(">>> Error nº 6 al procesar operación nº 1 - Desbordamiento")}));
    EXPECT_EQ(Cola().size(), 1U);
    EXPECT_TRUE(Procesados().empty());
}

TEST_F(EnvioTest, ARowOfNullsIsFiledAsNothingToCharge) {
    motor.Ejecutar(QStringLiteral("INSERT INTO cola (manual) VALUES (0)"));
    EXPECT_EQ(Enviar(1), envio::kBien);
    EXPECT_TRUE(Cola().empty());
    const auto filas = Procesados();
    ASSERT_EQ(filas.size(), 1U);
    EXPECT_EQ(filas.front().LeerTexto(QStringLiteral("id1")), QString());
    EXPECT_EQ(filas.front().LeerLong(QStringLiteral("idcaja")), 0);
}

TEST_F(EnvioTest, AnIdentifierOfFiftyFourByteCharactersStaysWhole) {
    const QString id1 = QString::fromUcs4(U"\U0001F4B6").repeated(50);
    const qint32 id = PonerFila(500, id1);
    cliente.EsperaCharge(500, 500, 0);
    EXPECT_EQ(Enviar(id), envio::kBien);
    EXPECT_EQ(Procesados().front().LeerTexto(QStringLiteral("id1")), id1);
}

TEST_F(EnvioTest, ALongDeviceMessageIsCutToFiftyCharacters) {
    const qint32 id = PonerFila(500);
    cliente.EsperaCharge(500, 0, 0, FinGuion::Error(5, QString(200, QLatin1Char('x'))));
    EXPECT_EQ(Enviar(id), envio::kError);
    EXPECT_EQ(Procesados().front().LeerTexto(QStringLiteral("error")).size(), 50);
}

TEST_F(EnvioTest, ASaleNamedLikeAManualKindIsFiledLikeAnyOther) {
    const qint32 id = PonerFila(500, QStringLiteral("PAGO"));
    cliente.EsperaCharge(500, 500, 0);
    EXPECT_EQ(Enviar(id), envio::kBien);
    EXPECT_EQ(Procesados().front().LeerTexto(QStringLiteral("id1")), clase::kPago);
    EXPECT_EQ(Procesados().front().LeerLong(QStringLiteral("idcola")), id);
}

TEST_F(EnvioTest, EditarCreditoOfARowThatHasGoneWritesNothing) {
    sujeto.EditarCredito(5, 100);
    EXPECT_TRUE(log.lineas.isEmpty());
}

} // namespace zv::test
