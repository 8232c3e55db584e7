// Paying out: what is asked first, where it stops early, every end of the device.
#include "BancoManual.h"

namespace zv::test {

class PagoManualTest : public BancoManual {
  protected:
    void Pagar() { Pulsar(BotonPie::Pago); }
    void EsperaAutorizacion(bool pasa = true, PantallasGuion::Accion mientras = {}) {
        pantallas.EsperaValidar(1, u"authPago"_s, pasa, std::move(mientras));
    }
    void EsperaConcepto(const QString& respuesta, DialogosGuion::Accion mientras = {}) {
        dialogos.EsperaTexto(u"Pago"_s, u"Introduzca el concepto del pago"_s, respuesta, QString(),
                             std::move(mientras));
    }
    void EsperaImporte(Currency importe, DialogosGuion::Accion mientras = {}) {
        dialogos.EsperaImporte(u"Pago"_s, u"Importe a pagar"_s, importe, importe.EsCero(),
                               std::move(mientras));
    }
    void EsperaPreguntas(Currency importe = 1500, const QString& concepto = u"Pan"_s) {
        EsperaAutorizacion();
        EsperaConcepto(concepto);
        EsperaImporte(importe);
    }
    // Nothing of an operation, and the handler has left early.
    void ComprobarParadaTemprana(const QString& lbEstado) {
        ComprobarApuntes({});
        EXPECT_TRUE(log.lineas.isEmpty()) << log.lineas.join(u'\n').toStdString();
        EXPECT_EQ(C().lbEstado, lbEstado);
        EXPECT_EQ(Activo(), u"-"_s); // never written
    }
    void PonEstado(const QString& texto) { controles.Poner(&EstadoControles::lbEstado, texto); }
};

TEST_F(PagoManualTest, GoodPaymentIsFiledUnderItsConcept) {
    const auto parado = [this] {
        EXPECT_FALSE(pulso.Armado());
        EXPECT_EQ(motor.Nivel(), 0);
        EXPECT_EQ(Activo(), u"-"_s);
    };
    EsperaAutorizacion(true, parado);
    EsperaConcepto(u"Pan"_s, parado);
    EsperaImporte(1500, parado);
    cliente.EsperaPay(1500, 1500, FinGuion::Ok().Durante([this] { ComprobarEnMarcha(); }));
    Pagar();
    EXPECT_EQ(dialogos.UltimoImportePorDefecto(), Currency(0));
    EXPECT_FALSE(dialogos.UltimoSinImporte());
    EXPECT_EQ(log.lineas, (QStringList{u"PAGO_BEGINTRANS (1500)"_s,
                                       u"ZVPAY_PAGO_OK: VALUEINCENTS=1500 PAIDOUTVALUE=1500"_s,
                                       u"ADDPROC_OK_1_PAGO"_s, u"PAGO_COMMIT"_s}));
    ComprobarApuntes({{tipo::kPago, estado::kOk, -1500, 0, 1500, u"Pan"_s}});
    EXPECT_EQ(Activo(), u"0"_s);
}

TEST_F(PagoManualTest, WithoutTheSettingNoConceptIsAskedFor) {
    configuracio->PREGUNTARCTO = 0;
    EsperaAutorizacion();
    EsperaImporte(1500);
    cliente.EsperaPay(1500, 1500);
    Pagar();
    ComprobarApuntes({{tipo::kPago, estado::kOk, -1500, 0, 1500, {}}});
}

TEST_F(PagoManualTest, ARefusedUserStopsItEarly) {
    PonEstado(u"antes"_s);
    EsperaAutorizacion(false);
    Pagar();
    ComprobarParadaTemprana(u"antes"_s);
}

TEST_F(PagoManualTest, NoConceptStopsItEarlyWithAMessage) {
    PonEstado(u"antes"_s);
    EsperaAutorizacion();
    EsperaConcepto({});
    dialogos.EsperaMensaje(
        u"Pago anulado"_s, u"No se puede realizar un pago sin indicar el concepto"_s,
        Respuesta::Aceptar, EstiloMensaje::Aceptar, [this] { EXPECT_FALSE(pulso.Armado()); });
    Pagar();
    ComprobarParadaTemprana(u"antes"_s);
}

TEST_F(PagoManualTest, NoAmountStopsItEarly) {
    PonEstado(u"antes"_s);
    EsperaAutorizacion();
    EsperaConcepto(u"Pan"_s);
    EsperaImporte(0);
    Pagar();
    ComprobarParadaTemprana(u"antes"_s);
}

TEST_F(PagoManualTest, AZeroThatWasEnteredIsNoAmountEither) {
    EsperaAutorizacion();
    EsperaConcepto(u"Pan"_s);
    dialogos.EsperaImporte(u"Pago"_s, u"Importe a pagar"_s, 0, false);
    Pagar();
    ComprobarParadaTemprana(C().lbEstado);
}

TEST_F(PagoManualTest, AFractionOfTheSmallestUnitIsNoAmount) {
    EsperaAutorizacion();
    EsperaConcepto(u"Pan"_s);
    EsperaImporte(Currency::DeDiezmilesimas(4000));
    Pagar();
    ComprobarParadaTemprana(C().lbEstado);
}

TEST_F(PagoManualTest, TheBooksTellWhatTheDeviceWasAsked) {
    EsperaPreguntas(Currency::DeDiezmilesimas(15004000)); // 15,004
    cliente.EsperaPay(1500, 1500);
    Pagar();
    EXPECT_EQ(log.lineas.first(), u"PAGO_BEGINTRANS (1500)"_s);
    ComprobarApuntes({{tipo::kPago, estado::kOk, -1500, 0, 1500, u"Pan"_s}});
}

// The prompt raises it; nothing has begun, and the program ends.
TEST_F(PagoManualTest, AnAmountBeyond32BitsIsAFailureThatMovesNothing) {
    EsperaAutorizacion();
    EsperaConcepto(u"Pan"_s);
    EsperaImporte(1, [] { throw errores::Desbordamiento(); });
    EXPECT_EQ(NumeroError([this] { Pagar(); }), 6);
    EXPECT_TRUE(log.lineas.isEmpty());
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(Activo(), u"-"_s);
}

TEST_F(PagoManualTest, AnAmountThatIsNone32BitsFailsBeforeTheDevice) {
    EsperaAutorizacion();
    EsperaConcepto(u"Pan"_s);
    EsperaImporte(Currency::DeEntero(2147483648LL));
    EXPECT_EQ(NumeroError([this] { Pagar(); }), 6);
    EXPECT_EQ(motor.Nivel(), 0);
}

TEST_F(PagoManualTest, TheLargestAmountIsPaidAndTheSmallestOneReachesTheDevice) {
    EsperaPreguntas(2147483647);
    cliente.EsperaPay(2147483647, 2147483647);
    Pagar();
    EsperaPreguntas(std::numeric_limits<qint32>::min());
    cliente.EsperaPay(std::numeric_limits<qint32>::min(), 0, FinGuion::Error(12, u"No"_s));
    dialogos.EsperaMensaje(u"Pago anulado"_s, u"12: No"_s);
    Pagar();
    const auto filas = Procesados();
    ASSERT_EQ(filas.size(), 2U);
    EXPECT_EQ(filas[0].LeerCurrency(u"importeVenta"_s), Currency(-2147483647));
    EXPECT_EQ(filas[1].LeerCurrency(u"importeVenta"_s), Currency::DeEntero(2147483648LL));
}

TEST_F(PagoManualTest, ADeviceErrorIsFiledAndToldWhenTheBooksAreClosed) {
    EsperaPreguntas();
    cliente.EsperaPay(1500, 700, FinGuion::Error(12, u"Atasco"_s));
    dialogos.EsperaMensaje(u"Pago anulado"_s, u"12: Atasco"_s, Respuesta::Aceptar,
                           EstiloMensaje::Aceptar, [this] {
                               EXPECT_EQ(log.lineas.last(), u"PAGO_COMMIT"_s);
                               EXPECT_EQ(ApuntesEnElFichero(), 1);
                               ComprobarEnMarcha(0);
                           });
    Pagar();
    EXPECT_EQ(log.lineas,
              (QStringList{u"PAGO_BEGINTRANS (1500)"_s,
                           u"ZVPAY_PAGO_ERRORZV12: VALUEINCENTS=1500 PAIDOUTVALUE=700"_s,
                           u"ADDPROC_OK_1_PAGO_ERRORZV"_s, u"PAGO_COMMIT"_s}));
    ComprobarApuntes(
        {{tipo::kPago, estado::kError, -1500, 0, 700, u"Error en el pago: 12 - Atasco"_s}});
}

TEST_F(PagoManualTest, ACodeOf4IsToldAndHasNoRecord) {
    EsperaPreguntas();
    cliente.EsperaPay(1500, 0, FinGuion::Error(4, u"Sin cambio exacto"_s));
    dialogos.EsperaMensaje(u"Pago anulado"_s, u"4: Sin cambio exacto"_s, Respuesta::Aceptar,
                           EstiloMensaje::Aceptar,
                           [this] { EXPECT_EQ(log.lineas.last(), u"PAGO_COMMIT"_s); });
    Pagar();
    EXPECT_EQ(log.lineas, (QStringList{u"PAGO_BEGINTRANS (1500)"_s,
                                       u"ZVPAY_PAGO_ERRORZV4: VALUEINCENTS=1500 PAIDOUTVALUE=0"_s,
                                       u"PAGO_COMMIT"_s}));
    ComprobarApuntes({});
}

TEST_F(PagoManualTest, ACancelIsFiledWithItsConcept) {
    EsperaPreguntas();
    cliente.EsperaPay(1500, 200, FinGuion::Cancelado());
    Pagar();
    EXPECT_EQ(log.lineas, (QStringList{u"PAGO_BEGINTRANS (1500)"_s,
                                       u"ZVPAY_PAGO_CANCEL: VALUEINCENTS=1500 PAIDOUTVALUE=200"_s,
                                       u"ADDPROC_OK_1_PAGO_CANCEL"_s, u"PAGO_COMMIT"_s}));
    ComprobarApuntes({{tipo::kPago, estado::kCancel, -1500, 0, 200, u"Pago cancelado Pan"_s}});
}

// All is asked again, with no level open: who is there goes into the access log, and that row must
// neither hold the lock while the operator is asked nor go back with an attempt that was left.
TEST_F(PagoManualTest, AfterAReconnectionAllIsAskedAgain) {
    EsperaPreguntas(1500, u"Pan"_s);
    cliente.EsperaPay(1500, 100, EnlacePerdido());
    EsperaReconexion();
    EsperaAutorizacion(true, [this] {
        EXPECT_EQ(
            motor.Ejecutar(u"INSERT INTO Accesos (usuario, lugar) VALUES ('ANA', 'authPago')"_s),
            1);
    });
    EsperaConcepto(u"Leche"_s, [this] { ComprobarSinBloqueo(); });
    EsperaImporte(900, [this] { ComprobarSinBloqueo(); });
    cliente.EsperaPay(900, 900, FinGuion::Ok().Durante([this] { ComprobarEnMarcha(); }));
    Pagar();
    EXPECT_EQ(log.lineas, (QStringList{u"PAGO_BEGINTRANS (1500)"_s} + LineasReconexion() +
                           QStringList{u"PAGO_BEGINTRANS (900)"_s,
                                       u"ZVPAY_PAGO_OK: VALUEINCENTS=900 PAIDOUTVALUE=900"_s,
                                       u"ADDPROC_OK_1_PAGO"_s, u"PAGO_COMMIT"_s}));
    ComprobarApuntes({{tipo::kPago, estado::kOk, -900, 0, 900, u"Leche"_s}});
    pulso.ProcesarCola();
    EXPECT_EQ(Procesados().size(), 1U);
    EXPECT_EQ(motor.Consultar(u"SELECT * FROM Accesos"_s).size(), 1U);
}

TEST_F(PagoManualTest, ThreeReconnectionsInARowAskThreeTimesMore) {
    for (int i = 0; i < 3; ++i) {
        EsperaPreguntas(1500 + i, u"Pan"_s);
        cliente.EsperaPay(1500 + i, 0, EnlacePerdido().Durante([this] { ComprobarEnMarcha(); }));
        EsperaReconexion();
    }
    EsperaPreguntas(900, u"Leche"_s);
    cliente.EsperaPay(900, 900);
    Pagar();
    EXPECT_EQ(log.CuentaInicio(u"PAGO_BEGINTRANS ("_s), 4);
    EXPECT_EQ(log.Cuenta(u"PAGO_COMMIT"_s), 1);
    ComprobarApuntes({{tipo::kPago, estado::kOk, -900, 0, 900, u"Leche"_s}});
}

// Every early stop after a reconnection leaves nothing behind either.
TEST_F(PagoManualTest, WhoStopsAfterAReconnectionLeavesNoMarkAndNoTransaction) {
    enum class Parada { Autorizacion, Concepto, Importe };
    for (const Parada parada : {Parada::Autorizacion, Parada::Concepto, Parada::Importe}) {
        SCOPED_TRACE(static_cast<int>(parada));
        log.Toma();
        EsperaPreguntas();
        cliente.EsperaPay(1500, 0, EnlacePerdido());
        EsperaReconexion();
        EsperaAutorizacion(parada != Parada::Autorizacion);
        if (parada == Parada::Concepto) {
            EsperaConcepto({});
            dialogos.EsperaMensaje(u"Pago anulado"_s, testing::_);
        } else if (parada == Parada::Importe) {
            EsperaConcepto(u"Pan"_s);
            EsperaImporte(0);
        }
        PonEstado(u"antes"_s);
        Pagar();
        EXPECT_EQ(C().lbEstado, u"antes"_s);
        EXPECT_EQ(log.lineas, QStringList{u"PAGO_BEGINTRANS (1500)"_s} + LineasReconexion());
        EXPECT_EQ(Activo(), u"0"_s);
        ComprobarApuntes({});
    }
}

TEST_F(PagoManualTest, ALinkThatDoesNotComeBackIsTheErrorOfTheOperation) {
    EsperaPreguntas();
    cliente.EsperaPay(1500, 300, EnlacePerdido());
    EsperaReconexion(false);
    dialogos.EsperaMensaje(u"Pago anulado"_s, u"1: Enlace perdido"_s);
    Pagar();
    EXPECT_EQ(log.lineas, (QStringList{u"PAGO_BEGINTRANS (1500)"_s} + LineasSinReconexion() +
                           QStringList{u"ZVPAY_PAGO_ERRORZV1: VALUEINCENTS=1500 PAIDOUTVALUE=300"_s,
                                       u"ADDPROC_OK_1_PAGO_ERRORZV"_s, u"PAGO_COMMIT"_s}));
    ComprobarApuntes({{tipo::kPago, estado::kError, -1500, 0, 300,
                       u"Error en el pago: 1 - Enlace perdido"_s, 0}});
}

TEST_F(PagoManualTest, PaymentsThatAreNotAllowedAreNotMade) {
    configuracio->BLOQUEARPAGOS = 1;
    estado.ActualizarBotonesMonitor(true);
    Pagar();
    EXPECT_TRUE(pantallas.Llamadas().isEmpty());
}

} // namespace zv::test
