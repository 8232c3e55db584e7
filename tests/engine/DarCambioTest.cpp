// Giving change: every end of the device with its record, its lines, its message.
#include "BancoManual.h"

namespace zv::test {

class DarCambioTest : public BancoManual {
  protected:
    void Dar() { Pulsar(BotonPie::DarCambio); }
    static ApunteEsperado Bueno() {
        return {tipo::kDarCambio, estado::kOk, 2000, 2000, 1990, {}, 50000};
    }
};

TEST_F(DarCambioTest, GoodChangeIsFiled) {
    cliente.EsperaChange(2000, 1990, FinGuion::Ok().Durante([this] { ComprobarEnMarcha(); }));
    Dar();
    EXPECT_EQ(log.lineas,
              (QStringList{u"DARCAMBIO_BEGINTRANS"_s,
                           u"ZVCHANGE_DARCAMBIO_OK: PAIDINVALUE=2000 PAIDOUTVALUE=1990"_s,
                           u"ADDPROC_OK_1_DARCAMBIO"_s, u"DARCAMBIO_COMMIT"_s}));
    ComprobarApuntes({Bueno()});
    EXPECT_EQ(Activo(), u"0"_s);
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kBien);
}

TEST_F(DarCambioTest, NobodyIsAskedWhoTheyAre) {
    cliente.EsperaChange(500, 500);
    Dar();
    EXPECT_TRUE(pantallas.Llamadas().isEmpty());
    EXPECT_TRUE(dialogos.Llamadas().isEmpty());
}

TEST_F(DarCambioTest, NothingPutInWritesNoRecordAndNoJournal) {
    cliente.EsperaChange(0, 0);
    Dar();
    EXPECT_EQ(log.lineas, (QStringList{u"DARCAMBIO_BEGINTRANS"_s, u"DARCAMBIO_COMMIT"_s}));
    ComprobarApuntes({});
}

TEST_F(DarCambioTest, WhatCameInDecidesWhetherThereIsARecord) {
    cliente.EsperaChange(1000, 0);
    Dar();
    cliente.EsperaChange(0, 1000);
    Dar();
    ComprobarApuntes({{tipo::kDarCambio, estado::kOk, 1000, 1000, 0, {}, 50000}});
}

TEST_F(DarCambioTest, ADeviceErrorIsFiledAndToldWhenTheBooksAreClosed) {
    cliente.EsperaChange(2000, 500, FinGuion::Error(12, u"Atasco"_s));
    dialogos.EsperaMensaje(u"Dar cambio anulado"_s, u"12: Atasco"_s, Respuesta::Aceptar,
                           EstiloMensaje::Aceptar, [this] {
                               EXPECT_EQ(log.lineas.last(), u"DARCAMBIO_COMMIT"_s);
                               EXPECT_EQ(ApuntesEnElFichero(), 1);
                               ComprobarEnMarcha(0); // the busy mark stands until it is read
                           });
    Dar();
    EXPECT_EQ(log.lineas,
              (QStringList{u"DARCAMBIO_BEGINTRANS"_s,
                           u"ZVCHANGE_DARCAMBIO_ERRORZV12: PAIDINVALUE=2000 PAIDOUTVALUE=500"_s,
                           u"ADDPROC_OK_1_DARCAMBIO_ERRORZV"_s, u"DARCAMBIO_COMMIT"_s}));
    ComprobarApuntes({{tipo::kDarCambio, estado::kError, 2000, 2000, 500,
                       u"Error al dar cambio ZV: 12 - Atasco"_s}});
    // Only a send or a charge tells the state line of its end.
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kBien);
}

TEST_F(DarCambioTest, ANegativeCodeIsAnErrorToo) {
    cliente.EsperaChange(0, 0, FinGuion::Error(-7, u"raro"_s));
    dialogos.EsperaMensaje(u"Dar cambio anulado"_s, u"-7: raro"_s);
    Dar();
    EXPECT_EQ(log.CuentaInicio(u"ZVCHANGE_DARCAMBIO_ERRORZV-7: "_s), 1);
    ComprobarApuntes(
        {{tipo::kDarCambio, estado::kError, 0, 0, 0, u"Error al dar cambio ZV: -7 - raro"_s}});
}

TEST_F(DarCambioTest, ACancelIsFiledWithWhatMoved) {
    cliente.EsperaChange(1000, 1000, FinGuion::Cancelado());
    Dar();
    EXPECT_EQ(log.lineas,
              (QStringList{u"DARCAMBIO_BEGINTRANS"_s,
                           u"ZVCHANGE_DARCAMBIO_CANCEL: PAIDINVALUE=1000 PAIDOUTVALUE=1000"_s,
                           u"ADDPROC_OK_1_DARCAMBIO_CANCEL"_s, u"DARCAMBIO_COMMIT"_s}));
    ComprobarApuntes(
        {{tipo::kDarCambio, estado::kCancel, 1000, 1000, 1000, u"Cambio cancelado"_s}});
}

TEST_F(DarCambioTest, ACancelWithNothingPutInIsFiledToo) {
    cliente.EsperaChange(0, 0, FinGuion::Cancelado());
    Dar();
    ComprobarApuntes({{tipo::kDarCambio, estado::kCancel, 0, 0, 0, u"Cambio cancelado"_s}});
}

TEST_F(DarCambioTest, TheBalanceIsStoredWhenTheMarkIsDown) {
    cliente.EsperaChange(2000, 1990, FinGuion::Ok().Durante([this] { cliente.PonerTotal(50010); }));
    Dar();
    EXPECT_EQ(SaldoExit(), u"50010"_s);
    EXPECT_EQ(Procesados().front().LeerCurrency(u"saldoZV"_s), Currency(50010));
}

TEST_F(DarCambioTest, AfterAReconnectionItBeginsAnewNestedInTheFirst) {
    cliente.EsperaChange(300, 0, EnlacePerdido().Durante([this] { ComprobarEnMarcha(1); }));
    EsperaReconexion();
    cliente.EsperaChange(2000, 1990, FinGuion::Ok().Durante([this] { ComprobarEnMarcha(2); }));
    Dar();
    EXPECT_EQ(log.lineas,
              (QStringList{u"DARCAMBIO_BEGINTRANS"_s} + LineasReconexion() +
               QStringList{u"DARCAMBIO_BEGINTRANS"_s,
                           u"ZVCHANGE_DARCAMBIO_OK: PAIDINVALUE=2000 PAIDOUTVALUE=1990"_s,
                           u"ADDPROC_OK_1_DARCAMBIO"_s, u"DARCAMBIO_COMMIT"_s}));
    ComprobarApuntes({Bueno()});
}

TEST_F(DarCambioTest, WhatTheLastAttemptMovedIsNotThatOfAnEarlierOne) {
    cliente.EsperaChange(300, 20, EnlacePerdido());
    EsperaReconexion();
    cliente.EsperaChange(0, 0);
    Dar();
    ComprobarApuntes({});
}

TEST_F(DarCambioTest, ThreeReconnectionsInARowNestThreeTimes) {
    for (int nivel = 1; nivel <= 3; ++nivel) {
        cliente.EsperaChange(0, 0,
                             EnlacePerdido().Durante([this, nivel] { ComprobarEnMarcha(nivel); }));
        EsperaReconexion();
    }
    cliente.EsperaChange(2000, 1990, FinGuion::Ok().Durante([this] { ComprobarEnMarcha(4); }));
    Dar();
    EXPECT_EQ(log.Cuenta(u"DARCAMBIO_BEGINTRANS"_s), 4);
    EXPECT_EQ(log.Cuenta(u"DARCAMBIO_COMMIT"_s), 1);
    ComprobarApuntes({Bueno()});
}

TEST_F(DarCambioTest, ALinkThatDoesNotComeBackIsTheErrorOfTheOperation) {
    cliente.EsperaChange(2000, 0, EnlacePerdido());
    EsperaReconexion(false);
    dialogos.EsperaMensaje(u"Dar cambio anulado"_s, u"1: Enlace perdido"_s);
    Dar();
    EXPECT_EQ(log.lineas,
              (QStringList{u"DARCAMBIO_BEGINTRANS"_s} + LineasSinReconexion() +
               QStringList{u"ZVCHANGE_DARCAMBIO_ERRORZV1: PAIDINVALUE=2000 PAIDOUTVALUE=0"_s,
                           u"ADDPROC_OK_1_DARCAMBIO_ERRORZV"_s, u"DARCAMBIO_COMMIT"_s}));
    ComprobarApuntes({{tipo::kDarCambio, estado::kError, 2000, 2000, 0,
                       u"Error al dar cambio ZV: 1 - Enlace perdido"_s, 0}});
    EXPECT_FALSE(supervision.Conectado());
    EXPECT_EQ(SaldoExit(), u"50000"_s); // that of the last connection
}

TEST_F(DarCambioTest, TheLinkThatComesBackTwiceAndThenNot) {
    cliente.EsperaChange(0, 0, EnlacePerdido());
    EsperaReconexion();
    cliente.EsperaChange(0, 0, EnlacePerdido());
    EsperaReconexion();
    cliente.EsperaChange(700, 0, EnlacePerdido());
    EsperaReconexion(false);
    dialogos.EsperaMensaje(u"Dar cambio anulado"_s, u"1: Enlace perdido"_s, Respuesta::Aceptar,
                           std::nullopt, [this] {
                               EXPECT_EQ(motor.Nivel(), 0);
                               EXPECT_EQ(ApuntesEnElFichero(), 1);
                               ComprobarSinBloqueo();
                           });
    Dar();
    ComprobarApuntes({{tipo::kDarCambio, estado::kError, 700, 700, 0,
                       u"Error al dar cambio ZV: 1 - Enlace perdido"_s, 0}});
}

// The records are in the file when the log says so, whatever stood open around them.
TEST_F(DarCambioTest, TheCommitLineComesWhenTheRecordStandsInTheFile) {
    cliente.EsperaChange(0, 0, EnlacePerdido());
    EsperaReconexion();
    cliente.EsperaChange(2000, 1990);
    QStringList ordenes;
    motor.PonerGancho([&](const Statement& s) {
        if (s.kind == Statement::Kind::Confirmar) {
            ordenes << s.sql;
            EXPECT_EQ(log.Cuenta(u"DARCAMBIO_COMMIT"_s), 0);
        }
    });
    Dar();
    motor.PonerGancho({});
    EXPECT_EQ(ordenes, (QStringList{u"RELEASE zv2"_s, u"COMMIT"_s}));
    EXPECT_EQ(log.lineas.last(), u"DARCAMBIO_COMMIT"_s);
}

TEST_F(DarCambioTest, LevelsThatCannotBeReadAreToldWhenTheBooksAreClosedAndBeforeTheError) {
    cliente.EsperaChange(2000, 500, FinGuion::Error(12, u"Atasco"_s).Durante([this] {
        cliente.FallarNiveles(2, 31, u"Puerta abierta"_s);
    }));
    const auto cerrados = [this] {
        EXPECT_EQ(log.lineas.last(), u"DARCAMBIO_COMMIT"_s);
        ComprobarEnMarcha(0);
    };
    dialogos.EsperaMensaje(u"Operación anulada"_s, u"Puerta abierta"_s, Respuesta::Aceptar,
                           std::nullopt, cerrados);
    dialogos.EsperaMensaje(u"Dar cambio anulado"_s, u"12: Atasco"_s, Respuesta::Aceptar,
                           std::nullopt, cerrados);
    // The balance that is stored at the end.
    dialogos.EsperaMensaje(u"Operación anulada"_s, u"Puerta abierta"_s, Respuesta::Aceptar,
                           std::nullopt, [this] { EXPECT_EQ(Activo(), u"0"_s); });
    Dar();
    ComprobarApuntes({{tipo::kDarCambio, estado::kError, 2000, 2000, 500,
                       u"Error al dar cambio ZV: 12 - Atasco"_s, 0}});
}

TEST_F(DarCambioTest, ADeviceThatRaisesLeavesItsLevelToTheOwner) {
    cliente.EsperaChange(0, 0, FinGuion::Ok().Durante([] {
        throw ErrorEjecucion(429, u"El componente no responde"_s);
    }));
    EXPECT_EQ(NumeroError([this] { Dar(); }), 429);
    EXPECT_EQ(log.lineas, QStringList{u"DARCAMBIO_BEGINTRANS"_s});
    EXPECT_EQ(motor.Nivel(), 1);
    pulso.ArrancaTimer();
    pulso.ProcesarCola();
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(log.lineas.size(), 1); // it had written nothing: nothing is told of it
}

} // namespace zv::test
