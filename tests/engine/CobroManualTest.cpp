// The manual charge: with an amount, without one, from its button and from the floating one.
#include "BancoManual.h"

namespace zv::test {

class CobroManualTest : public BancoManual {
  protected:
    void Cobrar() { Pulsar(BotonPie::CobroManual); }
    void EsperaAutorizacion(bool pasa = true, PantallasGuion::Accion mientras = {}) {
        pantallas.EsperaValidar(2, u"authCobro"_s, pasa, std::move(mientras));
    }
    void EsperaConcepto(const QString& respuesta) {
        dialogos.EsperaTexto(u"Cobro manual"_s, u"Introduzca el concepto del cobro manual"_s,
                             respuesta, QString());
    }
    void EsperaImporte(Currency importe, bool cancelado = false,
                       DialogosGuion::Accion mientras = {}) {
        dialogos.EsperaImporte(u"Cobro manual"_s, u"Introduzca el importe"_s, importe, cancelado,
                               std::move(mientras));
    }
    void EsperaPreguntas(Currency importe, const QString& concepto = u"Pan"_s) {
        EsperaAutorizacion();
        EsperaConcepto(concepto);
        EsperaImporte(importe);
    }
    void EsperaErrorDeZorvex(const QString& texto) {
        dialogos.EsperaMensaje(u"Error de Zorvex"_s, texto);
    }
    // Nothing of an operation; the handler leaves as after any other.
    void ComprobarSinOperacion() {
        ComprobarApuntes({});
        EXPECT_TRUE(log.lineas.isEmpty()) << log.lineas.join(u'\n').toStdString();
        EXPECT_EQ(Activo(), u"-"_s);
        EXPECT_EQ(C().lbEstado, QString());
        EXPECT_EQ(entorno.ResultadoEnvio, envio::kBien);
    }
};

TEST_F(CobroManualTest, GoodChargeIsFiledUnderItsConcept) {
    EsperaAutorizacion(true, [this] { EXPECT_FALSE(pulso.Armado()); });
    EsperaConcepto(u"Pan"_s);
    EsperaImporte(1250, false, [this] {
        EXPECT_FALSE(pulso.Armado());
        EXPECT_EQ(motor.Nivel(), 0);
    });
    cliente.EsperaCharge(1250, 2000, 750, FinGuion::Ok().Durante([this] { ComprobarEnMarcha(); }));
    Cobrar();
    EXPECT_EQ(dialogos.UltimoImportePorDefecto(), Currency(0));
    EXPECT_TRUE(dialogos.UltimoSinImporte());
    EXPECT_EQ(log.lineas, (QStringList{u"COBROMAN_BEGINTRANS"_s,
                                       u"ZVCHARGE_COBROMAN_OK: VALUEINCENTS=1250 PAIDINVALUE=2000 "
                                       "PAIDOUTVALUE=750"_s,
                                       u"ADDPROC_OK_1_COBROMAN_OK"_s, u"COBROMAN_COMMIT"_s}));
    ComprobarApuntes({{tipo::kCobroManual, estado::kOk, 1250, 2000, 750, u"Pan"_s}});
    EXPECT_EQ(Activo(), u"0"_s);
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kBien);
}

TEST_F(CobroManualTest, ANegativeAmountIsARefund) {
    EsperaPreguntas(-800);
    cliente.EsperaCharge(-800, 0, 800);
    Cobrar();
    ComprobarApuntes({{tipo::kCobroManual, estado::kOk, -800, 0, 800, u"Pan"_s}});
}

TEST_F(CobroManualTest, WithoutTheSettingNoConceptIsAskedFor) {
    configuracio->PREGUNTARCTO = 0;
    EsperaAutorizacion();
    EsperaImporte(1250);
    cliente.EsperaCharge(1250, 1250, 0);
    Cobrar();
    ComprobarApuntes({{tipo::kCobroManual, estado::kOk, 1250, 1250, 0, {}}});
}

TEST_F(CobroManualTest, ARefusedUserChargesNothingAndTheTimerRestarts) {
    EsperaAutorizacion(false);
    Cobrar();
    ComprobarSinOperacion();
}

TEST_F(CobroManualTest, NoConceptStopsItWithAMessage) {
    EsperaAutorizacion();
    EsperaConcepto({});
    dialogos.EsperaMensaje(u"Cobro manual anulado"_s,
                           u"No se puede realizar un cobro manual sin indicar el concepto"_s,
                           Respuesta::Aceptar, EstiloMensaje::Aceptar,
                           [this] { EXPECT_FALSE(pulso.Armado()); });
    Cobrar();
    ComprobarSinOperacion();
}

TEST_F(CobroManualTest, ACancelledAmountStopsIt) {
    EsperaAutorizacion();
    EsperaConcepto(u"Pan"_s);
    EsperaImporte(0, true);
    Cobrar();
    ComprobarSinOperacion();
}

TEST_F(CobroManualTest, AFractionOfTheSmallestUnitIsNoZeroThatWasMeant) {
    EsperaAutorizacion();
    EsperaConcepto(u"Pan"_s);
    EsperaImporte(Currency::DeDiezmilesimas(4000));
    Cobrar();
    ComprobarSinOperacion();
}

TEST_F(CobroManualTest, TheBooksTellWhatTheDeviceWasAsked) {
    EsperaPreguntas(Currency::DeDiezmilesimas(12496000)); // 12,496
    cliente.EsperaCharge(1250, 1250, 0);
    Cobrar();
    ComprobarApuntes({{tipo::kCobroManual, estado::kOk, 1250, 1250, 0, u"Pan"_s}});
}

TEST_F(CobroManualTest, AnAmountBeyond32BitsIsAFailureThatMovesNothing) {
    EsperaAutorizacion();
    EsperaConcepto(u"Pan"_s);
    EsperaImporte(Currency::DeEntero(-2147483649LL));
    EXPECT_EQ(NumeroError([this] { Cobrar(); }), 6);
    EXPECT_TRUE(log.lineas.isEmpty());
    EXPECT_EQ(motor.Nivel(), 0);
}

TEST_F(CobroManualTest, AZeroThatWasAcceptedTakesWhatIsPutIn) {
    EsperaPreguntas(0);
    cliente.EsperaAddChange(1870, FinGuion::Ok().Durante([this] { ComprobarEnMarcha(); }));
    Cobrar();
    EXPECT_EQ(
        log.lineas,
        (QStringList{u"COBROMAN_BEGINTRANS"_s,
                     u"ZVCHARGE_COBROMAN_OK: VALUEINCENTS=0 PAIDINVALUE=1870 PAIDOUTVALUE=0"_s,
                     u"ADDPROC_OK_1_COBROMAN_OK"_s, u"COBROMAN_COMMIT"_s}));
    ComprobarApuntes({{tipo::kCobroManual, estado::kOk, 1870, 1870, 0, u"Pan"_s}});
}

TEST_F(CobroManualTest, NoAmountIsTheSameAnswer) {
    EsperaAutorizacion();
    EsperaConcepto(u"Pan"_s);
    dialogos.EsperaSinImporte(u"Cobro manual"_s, u"Introduzca el importe"_s);
    cliente.EsperaAddChange(500);
    Cobrar();
    ComprobarApuntes({{tipo::kCobroManual, estado::kOk, 500, 500, 0, u"Pan"_s}});
}

TEST_F(CobroManualTest, AnAcceptedZeroWithNothingPutInIsARecordOfZeros) {
    EsperaPreguntas(0);
    cliente.EsperaAddChange(0);
    Cobrar();
    ComprobarApuntes({{tipo::kCobroManual, estado::kOk, 0, 0, 0, u"Pan"_s}});
}

TEST_F(CobroManualTest, AnErrorIsALineInTheLogAndNoRecord) {
    for (const qint16 codigo : {4, 12, 31}) {
        SCOPED_TRACE(codigo);
        log.Toma();
        EsperaPreguntas(1250);
        cliente.EsperaCharge(1250, 1000, 0, FinGuion::Error(codigo, u"Atasco"_s));
        const QString detalle = QString::number(codigo) + u" - Atasco"_s;
        dialogos.EsperaMensaje(u"Error de Zorvex"_s, detalle, Respuesta::Aceptar, std::nullopt,
                               [&] {
                                   EXPECT_EQ(entorno.ResultadoEnvio, envio::kError);
                                   EXPECT_EQ(entorno.codigoEnvio, codigo);
                                   EXPECT_EQ(Activo(), u"0"_s);
                                   EXPECT_EQ(motor.Nivel(), 0);
                               });
        entorno.codigoEnvio = 44; // of an earlier send
        Cobrar();
        EXPECT_EQ(log.lineas,
                  (QStringList{u"COBROMAN_BEGINTRANS"_s,
                               u"ZVCHARGE_COBROMAN_ERROR_%1: VALUEINCENTS=1250 "
                               "PAIDINVALUE=1000 PAIDOUTVALUE=0"_s.arg(codigo),
                               u">>> Error en Zorvex: "_s + detalle, u"COBROMAN_COMMIT"_s}));
        ComprobarApuntes({});
        EXPECT_EQ(C().lbEstado, u"Error %1. Consulte con su técnico"_s.arg(detalle));
    }
}

TEST_F(CobroManualTest, ABalanceThatFailsAfterTheErrorDoesNotLendItItsWords) {
    EsperaPreguntas(1250);
    cliente.EsperaCharge(1250, 0, 0, FinGuion::Error(12, u"Atasco"_s).Durante([this] {
        cliente.FallarNiveles(2, 31, u"Puerta abierta"_s);
    }));
    dialogos.EsperaMensaje(u"Operación anulada"_s, u"Puerta abierta"_s);
    EsperaErrorDeZorvex(u"12 - Atasco"_s);
    Cobrar();
    EXPECT_EQ(C().lbEstado, u"Error 12 - Atasco. Consulte con su técnico"_s);
}

TEST_F(CobroManualTest, ACodeOf27WithAnotherAmountInHasARecord) {
    EsperaPreguntas(1250);
    cliente.EsperaCharge(1250, 2000, 2000, FinGuion::Error(27, u"Sin cambio"_s));
    EsperaErrorDeZorvex(u"27 - Sin cambio"_s);
    Cobrar();
    EXPECT_EQ(log.lineas,
              (QStringList{u"COBROMAN_BEGINTRANS"_s,
                           u"ZVCHARGE_COBROMAN_ERROR_27: VALUEINCENTS=1250 PAIDINVALUE=2000 "
                           "PAIDOUTVALUE=2000"_s,
                           u"ADDPROC_OK_1_COBROMAN_ERRORZV"_s,
                           u">>> Error en Zorvex: 27 - Sin cambio"_s, u"COBROMAN_COMMIT"_s}));
    ComprobarApuntes(
        {{tipo::kCobroManual, estado::kError, 1250, 2000, 2000, u"27 - Sin cambio"_s}});
}

TEST_F(CobroManualTest, ACodeOf27WithJustTheAmountInHasNone) {
    EsperaPreguntas(1250);
    cliente.EsperaCharge(1250, 1250, 0, FinGuion::Error(27, u"Sin cambio"_s));
    EsperaErrorDeZorvex(u"27 - Sin cambio"_s);
    Cobrar();
    ComprobarApuntes({});
}

TEST_F(CobroManualTest, ACodeOf27WithoutAnAmountTellsWhatWasPutIn) {
    EsperaPreguntas(0);
    cliente.EsperaAddChange(500, FinGuion::Error(27, u"Sin cambio"_s));
    EsperaErrorDeZorvex(u"27 - Sin cambio"_s);
    Cobrar();
    ComprobarApuntes({{tipo::kCobroManual, estado::kError, 500, 500, 0, u"27 - Sin cambio"_s}});
}

TEST_F(CobroManualTest, ACancelHasNoRecordAndIsToldByTheStateLine) {
    for (const FinGuion& fin : {FinGuion::Cancelado(), FinGuion::Error(-3, u"raro"_s)}) {
        log.Toma();
        EsperaPreguntas(1250);
        cliente.EsperaCharge(1250, 500, 500, fin);
        Cobrar();
        EXPECT_EQ(log.lineas,
                  (QStringList{u"COBROMAN_BEGINTRANS"_s,
                               u"ZVCHARGE_COBROMAN_CANCEL: VALUEINCENTS=1250 PAIDINVALUE=500 "
                               "PAIDOUTVALUE=500"_s,
                               u"COBROMAN_COMMIT"_s}));
        ComprobarApuntes({});
        EXPECT_EQ(entorno.ResultadoEnvio, envio::kCancelado);
        EXPECT_EQ(C().lbEstado, u"Última operación cancelada. Cambiado a modo MANUAL"_s);
    }
}

TEST_F(CobroManualTest, NeitherErrorNorCancelChangesTheMode) {
    estado.CambiarModo(u"SEMI"_s);
    estado.PonerUltimaCuenta(1); // with an empty queue a cancel returns to "AUTO"
    EsperaPreguntas(1250);
    cliente.EsperaCharge(1250, 0, 0, FinGuion::Cancelado());
    Cobrar();
    EXPECT_EQ(configuracio->Modo, u"SEMI"_s);
    EsperaPreguntas(1250);
    cliente.EsperaCharge(1250, 0, 0, FinGuion::Error(12, u"Atasco"_s));
    EsperaErrorDeZorvex(u"12 - Atasco"_s);
    Cobrar();
    EXPECT_EQ(configuracio->Modo, u"SEMI"_s);
}

TEST_F(CobroManualTest, AfterAReconnectionItRollsBackAndAsksTheAmountAgain) {
    EsperaPreguntas(1250, u"Pan"_s);
    cliente.EsperaCharge(1250, 700, 0, EnlacePerdido());
    EsperaReconexion();
    // The concept has been told; with no level open nobody waits.
    EsperaImporte(900, false, [this] {
        EXPECT_EQ(motor.Nivel(), 0);
        EXPECT_EQ(log.lineas.last(), u"COBROMAN_ROLLBACK"_s);
    });
    cliente.EsperaCharge(900, 900, 0, FinGuion::Ok().Durante([this] { ComprobarEnMarcha(1); }));
    Cobrar();
    EXPECT_EQ(
        log.lineas,
        (QStringList{u"COBROMAN_BEGINTRANS"_s} + LineasReconexion() +
         QStringList{u"COBROMAN_ROLLBACK"_s, u"COBROMAN_BEGINTRANS"_s,
                     u"ZVCHARGE_COBROMAN_OK: VALUEINCENTS=900 PAIDINVALUE=900 PAIDOUTVALUE=0"_s,
                     u"ADDPROC_OK_1_COBROMAN_OK"_s, u"COBROMAN_COMMIT"_s}));
    ComprobarApuntes({{tipo::kCobroManual, estado::kOk, 900, 900, 0, u"Pan"_s}});
}

TEST_F(CobroManualTest, ThreeReconnectionsInARowRollBackThreeTimes) {
    EsperaAutorizacion();
    EsperaConcepto(u"Pan"_s);
    for (int i = 0; i < 3; ++i) {
        EsperaImporte(0);
        cliente.EsperaAddChange(100, EnlacePerdido().Durante([this] { ComprobarEnMarcha(1); }));
        EsperaReconexion();
    }
    EsperaImporte(900);
    cliente.EsperaCharge(900, 900, 0);
    Cobrar();
    EXPECT_EQ(log.Cuenta(u"COBROMAN_ROLLBACK"_s), 3);
    EXPECT_EQ(log.Cuenta(u"COBROMAN_BEGINTRANS"_s), 4);
    EXPECT_EQ(log.Cuenta(u"COBROMAN_COMMIT"_s), 1);
    ComprobarApuntes({{tipo::kCobroManual, estado::kOk, 900, 900, 0, u"Pan"_s}});
}

TEST_F(CobroManualTest, WhoStopsAfterAReconnectionLeavesNoMarkAndNoTransaction) {
    EsperaPreguntas(1250);
    cliente.EsperaCharge(1250, 0, 0, EnlacePerdido());
    EsperaReconexion();
    EsperaImporte(0, true);
    Cobrar();
    EXPECT_EQ(log.lineas.last(), u"COBROMAN_ROLLBACK"_s);
    EXPECT_EQ(Activo(), u"0"_s);
    ComprobarApuntes({});
}

TEST_F(CobroManualTest, ALinkThatDoesNotComeBackIsAnErrorWithoutARecord) {
    EsperaPreguntas(1250);
    cliente.EsperaCharge(1250, 700, 0, EnlacePerdido());
    EsperaReconexion(false);
    EsperaErrorDeZorvex(u"1 - Enlace perdido"_s);
    Cobrar();
    EXPECT_EQ(log.lineas,
              (QStringList{u"COBROMAN_BEGINTRANS"_s} + LineasSinReconexion() +
               QStringList{u"ZVCHARGE_COBROMAN_ERROR_1: VALUEINCENTS=1250 PAIDINVALUE=700 "
                           "PAIDOUTVALUE=0"_s,
                           u">>> Error en Zorvex: 1 - Enlace perdido"_s, u"COBROMAN_COMMIT"_s}));
    ComprobarApuntes({});
}

// ---- from the floating button

TEST_F(CobroManualTest, TheFloatingButtonAsksForTheAmountAlone) {
    PonerFila(100);
    EsperaImporte(1250);
    cliente.EsperaCharge(1250, 1250, 0);
    entorno.ResultadoEnvio = envio::kCancelado;
    botones.cobroManual(u"VENTA"_s);
    ComprobarApuntes({{tipo::kCobroManual, estado::kOk, 1250, 1250, 0, u"VENTA"_s}});
    // It is no button of the foot: the handler's entry and exit are not passed.
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kCancelado);
}

// The handler's exit is not passed: the state line tells what has happened when the queue changes,
// and until then nothing is sent.
TEST_F(CobroManualTest, AFailedChargeOfTheFloatingButtonIsToldWithTheNextSale) {
    configuracio->Modo = u"AUTO"_s;
    pulso.ProcesarCola();
    EsperaImporte(1250);
    cliente.EsperaCharge(1250, 0, 0, FinGuion::Error(12, u"Atasco"_s));
    const QString antes = C().lbEstado;
    botones.cobroManual(u"VENTA"_s);
    pulso.ProcesarCola();
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kError);
    EXPECT_EQ(C().lbEstado, antes);
    PonerFila(100);
    EsperaErrorDeZorvex(u"12 - Atasco"_s);
    cliente.EsperaCharge(100, 100, 0);
    pulso.ProcesarCola();
    EXPECT_TRUE(Cola().empty());
}

TEST_F(CobroManualTest, ACancelledChargeOfTheFloatingButtonLeavesTheModeAndTheBooks) {
    configuracio->Modo = u"AUTO"_s;
    EsperaImporte(1250);
    cliente.EsperaCharge(1250, 500, 500, FinGuion::Cancelado());
    botones.cobroManual(u"VENTA"_s);
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kCancelado);
    EXPECT_EQ(configuracio->Modo, u"AUTO"_s);
    ComprobarApuntes({});
}

TEST_F(CobroManualTest, TheFloatingButtonConnectsALostLinkToo) {
    cliente.EsperaDisconnect();
    supervision.Cortar();
    log.Toma();
    EsperaImporte(1250);
    cliente.EsperaCharge(1250, 0, 0, FinGuion::Error(1, u"Zorvex no está conectado"_s));
    EsperaReconexion();
    EsperaImporte(1250);
    cliente.EsperaCharge(1250, 1250, 0);
    botones.cobroManual(u"VENTA"_s);
    ComprobarApuntes({{tipo::kCobroManual, estado::kOk, 1250, 1250, 0, u"VENTA"_s}});
}

} // namespace zv::test
