// Adding float: the authorisation with the money in the device, the money that goes back, the two
// records of a cancel.
#include "BancoManual.h"

namespace zv::test {

class AnadirCambioTest : public BancoManual {
  protected:
    void Anadir() { Pulsar(BotonPie::AnadirCambio); }
    void EsperaAutorizacion(bool pasa, PantallasGuion::Accion mientras = {}) {
        pantallas.EsperaValidar(2, u"authCambio"_s, pasa, std::move(mientras));
    }
    static ApunteEsperado Bueno() {
        return {tipo::kMeterCambio, estado::kOk, 3000, 3000, 0, {}, 50000};
    }
};

TEST_F(AnadirCambioTest, AuthorisedFloatIsFiled) {
    cliente.EsperaAddChange(3000, FinGuion::Ok().Durante([this] { ComprobarEnMarcha(); }));
    EsperaAutorizacion(true, [this] {
        ComprobarEnMarcha();
        EXPECT_EQ(log.lineas, QStringList{u"AÑADIRCAMBIO_BEGINTRANS"_s});
    });
    Anadir();
    EXPECT_EQ(log.lineas,
              (QStringList{u"AÑADIRCAMBIO_BEGINTRANS"_s,
                           u"ZVADDCHANGE_AÑADIRCAMBIO_OK: PAIDINVALUE=3000"_s,
                           u"ADDPROC_OK_1_AÑADIRCAMBIO_OK"_s, u"AÑADIRCAMBIO_COMMIT"_s}));
    ComprobarApuntes({Bueno()});
    EXPECT_EQ(Activo(), u"0"_s);
}

// Its row of the access log belongs to the float: it is written in its transaction.
TEST_F(AnadirCambioTest, WhoAuthorisedStandsInTheSameTransaction) {
    cliente.EsperaAddChange(3000);
    EsperaAutorizacion(true, [this] {
        motor.Ejecutar(u"INSERT INTO Accesos (usuario, lugar) VALUES ('ANA', 'authCambio')"_s);
    });
    GanchoFallos gancho(motor);
    Anadir();
    EXPECT_EQ(gancho.Cuenta(Statement::Kind::Comenzar, u"BEGIN"_s), 1);
    EXPECT_EQ(gancho.Cuenta(Statement::Kind::Confirmar, u"COMMIT"_s), 1);
    ComprobarApuntes({Bueno()});
}

TEST_F(AnadirCambioTest, RefusedFloatGoesBack) {
    cliente.EsperaAddChange(3000);
    EsperaAutorizacion(false);
    cliente.EsperaPay(3000, 2990, FinGuion::Ok().Durante([this] { ComprobarEnMarcha(); }));
    Anadir();
    EXPECT_EQ(log.lineas,
              (QStringList{u"AÑADIRCAMBIO_BEGINTRANS"_s,
                           u"ZVPAY_AÑADIRCAMBIO_NOAUTH_OK: VALUEINCENTS=3000 PAIDOUTVALUE=2990"_s,
                           u"ADDPROC_OK_1_AÑADIRCAMBIO_AUTH"_s, u"AÑADIRCAMBIO_COMMIT"_s}));
    ComprobarApuntes({{tipo::kPagoCambio, estado::kOk, -3000, 0, 2990,
                       u"Añadir Cambio Devuelto por no autorización"_s}});
}

TEST_F(AnadirCambioTest, RefusedFloatThatTheDeviceCannotGiveBackIsAnError) {
    cliente.EsperaAddChange(3000);
    EsperaAutorizacion(false);
    cliente.EsperaPay(3000, 500, FinGuion::Error(12, u"Atasco"_s));
    Anadir();
    EXPECT_EQ(
        log.lineas,
        (QStringList{u"AÑADIRCAMBIO_BEGINTRANS"_s,
                     u"ZVPAY_AÑADIRCAMBIO_NOAUTH_ERRORZV12: VALUEINCENTS=3000 PAIDOUTVALUE=500"_s,
                     u"ADDPROC_OK_1_AÑADIRCAMBIO_AUTH_ERRORZV"_s, u"AÑADIRCAMBIO_COMMIT"_s}));
    ComprobarApuntes({{tipo::kMeterCambio, estado::kError, -3000, 0, 500, u"12 - Atasco"_s}});
}

TEST_F(AnadirCambioTest, RefusedFloatWhoseReturnIsCancelled) {
    cliente.EsperaAddChange(3000);
    EsperaAutorizacion(false);
    cliente.EsperaPay(3000, 0, FinGuion::Cancelado());
    Anadir();
    EXPECT_EQ(log.lineas,
              (QStringList{u"AÑADIRCAMBIO_BEGINTRANS"_s,
                           u"ZVPAY_AÑADIRCAMBIO_NOAUTH_CANCEL: VALUEINCENTS=3000 PAIDOUTVALUE=0"_s,
                           u"ADDPROC_OK_1_AÑADIRCAMBIO_AUTH_CANCEL"_s, u"AÑADIRCAMBIO_COMMIT"_s}));
    ComprobarApuntes(
        {{tipo::kMeterCambio, estado::kCancel, -3000, 0, 0, u"Devolución de Cambio Cancelado"_s}});
}

// The money goes back once: a link that is lost then brings no new attempt.
TEST_F(AnadirCambioTest, ALinkLostWhileTheMoneyGoesBackIsAnErrorWithoutAnotherAttempt) {
    cliente.EsperaAddChange(3000);
    EsperaAutorizacion(false);
    cliente.EsperaPay(3000, 1000, EnlacePerdido());
    Anadir();
    ComprobarApuntes(
        {{tipo::kMeterCambio, estado::kError, -3000, 0, 1000, u"1 - Enlace perdido"_s}});
}

TEST_F(AnadirCambioTest, ACancelWithMoneyInIsTwoRecordsWhoseSumIsNil) {
    cliente.EsperaAddChange(1500, FinGuion::Cancelado());
    Anadir();
    EXPECT_EQ(log.lineas,
              (QStringList{u"AÑADIRCAMBIO_BEGINTRANS"_s,
                           u"ZVADDCHANGE_AÑADIRCAMBIO_CANCEL: PAIDINVALUE=1500"_s,
                           u"ADDPROC_OK_1_AÑADIRCAMBIO_CANCEL"_s,
                           u"ADDPROC_OK_2_AÑADIRCAMBIO_CANCEL"_s, u"AÑADIRCAMBIO_COMMIT"_s}));
    ComprobarApuntes({{tipo::kMeterCambio, estado::kOk, 1500, 1500, 0, {}, 51500},
                      {tipo::kPagoCambio, estado::kOk, -1500, 0, 1500, u"Cambio cancelado"_s}});
}

TEST_F(AnadirCambioTest, ACancelWithNothingInIsOneRecordOfZeros) {
    cliente.EsperaAddChange(0, FinGuion::Cancelado());
    Anadir();
    EXPECT_EQ(log.lineas,
              (QStringList{u"AÑADIRCAMBIO_BEGINTRANS"_s,
                           u"ZVADDCHANGE_AÑADIRCAMBIO_CANCEL: PAIDINVALUE=0"_s,
                           u"ADDPROC_OK_1_AÑADIRCAMBIO_CANCEL"_s, u"AÑADIRCAMBIO_COMMIT"_s}));
    ComprobarApuntes({{tipo::kMeterCambio, estado::kOk, 0, 0, 0, {}, 50000}});
}

TEST_F(AnadirCambioTest, ABalanceThatCannotBeReadInACancelIsToldWhenTheBooksAreClosed) {
    cliente.EsperaAddChange(1500, FinGuion::Cancelado().Durante([this] {
        cliente.FallarNiveles(2, 31, u"Puerta abierta"_s);
    }));
    dialogos.EsperaMensaje(u"Operación anulada"_s, u"Puerta abierta"_s, Respuesta::Aceptar,
                           std::nullopt, [this] {
                               EXPECT_EQ(log.lineas.last(), u"AÑADIRCAMBIO_COMMIT"_s);
                               ComprobarEnMarcha(0);
                           });
    dialogos.EsperaMensaje(u"Operación anulada"_s, u"Puerta abierta"_s);
    Anadir();
    ComprobarApuntes({{tipo::kMeterCambio, estado::kOk, 1500, 1500, 0, {}, 1500},
                      {tipo::kPagoCambio, estado::kOk, -1500, 0, 1500, u"Cambio cancelado"_s, 0}});
}

} // namespace zv::test
