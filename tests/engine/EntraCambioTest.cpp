// What giving change and adding float have in common: money goes into the device first, and
// whatever comes of it, a lost link or an error, is booked and told in the same order. Each has its
// own calls, words and records; what only one of them does stands in its own tests.
#include "BancoManual.h"

namespace zv::test {

namespace {

struct OperacionCambio {
    const char* nombre;
    BotonPie boton;
    QString tag;
    QString diario;
    QString origenBueno;
    QString tipo;
    QString titulo;
    QString error;
    bool sale; // change goes out, too
};

std::vector<OperacionCambio> Operaciones() {
    return {{"DarCambio", BotonPie::DarCambio, u"DARCAMBIO"_s, u"ZVCHANGE_DARCAMBIO_"_s,
             u"DARCAMBIO"_s, tipo::kDarCambio, u"Dar cambio anulado"_s,
             u"Error al dar cambio ZV: "_s, true},
            {"AnadirCambio", BotonPie::AnadirCambio, u"AÑADIRCAMBIO"_s,
             u"ZVADDCHANGE_AÑADIRCAMBIO_"_s, u"AÑADIRCAMBIO_OK"_s, tipo::kMeterCambio,
             u"Añadir cambio anulado"_s, u"Error al añadir cambio: "_s, false}};
}

} // namespace

class EntraCambioTest : public BancoManual, public testing::WithParamInterface<OperacionCambio> {
  protected:
    const OperacionCambio& O() const { return GetParam(); }
    void Operar() { Pulsar(O().boton); }
    // What the device will do; of a float nothing goes out.
    void Espera(qint32 entra, qint32 sale, const FinGuion& fin = FinGuion::Ok()) {
        if (O().sale) {
            cliente.EsperaChange(entra, sale, fin);
        } else {
            cliente.EsperaAddChange(entra, fin);
        }
    }
    // A good end with money in: of a float somebody is asked.
    void EsperaBueno(const FinGuion& fin = FinGuion::Ok(), PantallasGuion::Accion mientras = {}) {
        Espera(2000, 1990, fin);
        if (!O().sale) {
            pantallas.EsperaValidar(2, u"authCambio"_s, true, std::move(mientras));
        }
    }
    void EsperaAviso(const QString& texto, DialogosGuion::Accion mientras = {}) {
        dialogos.EsperaMensaje(O().titulo, texto, Respuesta::Aceptar, EstiloMensaje::Aceptar,
                               std::move(mientras));
    }
    QString Begin() const { return O().tag + u"_BEGINTRANS"_s; }
    QString Commit() const { return O().tag + u"_COMMIT"_s; }
    QString Diario(const QString& fin, qint32 entra, qint32 sale) const {
        const QString linea = O().diario + fin + u": PAIDINVALUE="_s + QString::number(entra);
        return O().sale ? linea + u" PAIDOUTVALUE="_s + QString::number(sale) : linea;
    }
    ApunteEsperado Bueno(qint32 saldo = 50000) const {
        return {O().tipo, estado::kOk, 2000, 2000, O().sale ? 1990 : 0, {}, saldo};
    }
    ApunteEsperado Error(qint32 entra, qint32 sale, const QString& texto,
                         qint32 saldo = 50000) const {
        return {O().tipo,          estado::kError, entra, entra, O().sale ? sale : 0,
                O().error + texto, saldo};
    }
};

TEST_P(EntraCambioTest, NothingPutInWritesNoRecordAndNoJournal) {
    Espera(0, 0);
    Operar();
    EXPECT_EQ(log.lineas, (QStringList{Begin(), Commit()}));
    EXPECT_TRUE(pantallas.Llamadas().isEmpty());
    ComprobarApuntes({});
}

TEST_P(EntraCambioTest, ADeviceErrorIsFiledAndToldWhenTheBooksAreClosed) {
    Espera(2000, 500, FinGuion::Error(12, u"Atasco"_s));
    EsperaAviso(u"12: Atasco"_s, [this] {
        EXPECT_EQ(log.lineas.last(), Commit());
        EXPECT_EQ(ApuntesEnElFichero(), 1);
        ComprobarEnMarcha(0); // the busy mark stands until it is read
    });
    Operar();
    EXPECT_EQ(log.lineas, (QStringList{Begin(), Diario(u"ERRORZV12"_s, 2000, 500),
                                       u"ADDPROC_OK_1_"_s + O().tag + u"_ERRORZV"_s, Commit()}));
    ComprobarApuntes({Error(2000, 500, u"12 - Atasco"_s)});
    // Only a send or a charge tells the state line of its end.
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kBien);
}

TEST_P(EntraCambioTest, ANegativeCodeIsAnErrorToo) {
    Espera(0, 0, FinGuion::Error(-7, u"raro"_s));
    EsperaAviso(u"-7: raro"_s);
    Operar();
    EXPECT_EQ(log.CuentaInicio(O().diario + u"ERRORZV-7: "_s), 1);
    ComprobarApuntes({Error(0, 0, u"-7 - raro"_s)});
}

TEST_P(EntraCambioTest, TheBalanceIsThatAfterTheMoneyCameInAndIsStoredWhenTheMarkIsDown) {
    EsperaBueno(FinGuion::Ok().Durante([this] { cliente.PonerTotal(53000); }));
    Operar();
    ComprobarApuntes({Bueno(53000)});
    EXPECT_EQ(SaldoExit(), u"53000"_s);
}

TEST_P(EntraCambioTest, AfterAReconnectionItBeginsAnewNestedInTheFirst) {
    Espera(300, 20, EnlacePerdido().Durante([this] { ComprobarEnMarcha(1); }));
    EsperaReconexion();
    Espera(300, 20, EnlacePerdido().Durante([this] { ComprobarEnMarcha(2); }));
    EsperaReconexion();
    const auto enMarcha = [this] { ComprobarEnMarcha(3); };
    EsperaBueno(FinGuion::Ok().Durante(enMarcha), enMarcha);
    Operar();
    EXPECT_EQ(log.lineas, (QStringList{Begin()} + LineasReconexion() + QStringList{Begin()} +
                           LineasReconexion() +
                           QStringList{Begin(), Diario(u"OK"_s, 2000, 1990),
                                       u"ADDPROC_OK_1_"_s + O().origenBueno, Commit()}));
    ComprobarApuntes({Bueno()});
}

TEST_P(EntraCambioTest, WhatTheLastAttemptMovedIsNotThatOfAnEarlierOne) {
    Espera(300, 20, EnlacePerdido());
    EsperaReconexion();
    Espera(0, 0);
    Operar();
    ComprobarApuntes({});
}

TEST_P(EntraCambioTest, ThreeReconnectionsInARowNestThreeTimes) {
    for (int nivel = 1; nivel <= 3; ++nivel) {
        Espera(0, 0, EnlacePerdido().Durante([this, nivel] { ComprobarEnMarcha(nivel); }));
        EsperaReconexion();
    }
    EsperaBueno(FinGuion::Ok().Durante([this] { ComprobarEnMarcha(4); }));
    Operar();
    EXPECT_EQ(log.Cuenta(Begin()), 4);
    EXPECT_EQ(log.Cuenta(Commit()), 1);
    ComprobarApuntes({Bueno()});
}

TEST_P(EntraCambioTest, ALinkThatDoesNotComeBackIsTheErrorOfTheOperation) {
    Espera(2000, 0, EnlacePerdido());
    EsperaReconexion(false);
    EsperaAviso(u"1: Enlace perdido"_s);
    Operar();
    EXPECT_EQ(log.lineas, (QStringList{Begin()} + LineasSinReconexion() +
                           QStringList{Diario(u"ERRORZV1"_s, 2000, 0),
                                       u"ADDPROC_OK_1_"_s + O().tag + u"_ERRORZV"_s, Commit()}));
    ComprobarApuntes({Error(2000, 0, u"1 - Enlace perdido"_s, 0)});
    EXPECT_FALSE(supervision.Conectado());
    EXPECT_EQ(SaldoExit(), u"50000"_s); // that of the last connection
}

TEST_P(EntraCambioTest, ALinkThatComesBackTwiceAndThenNotIsOneError) {
    for (const bool vuelve : {true, true, false}) {
        Espera(700, 0, EnlacePerdido());
        EsperaReconexion(vuelve);
    }
    EsperaAviso(u"1: Enlace perdido"_s, [this] {
        EXPECT_EQ(motor.Nivel(), 0);
        EXPECT_EQ(ApuntesEnElFichero(), 1);
        ComprobarSinBloqueo();
    });
    Operar();
    EXPECT_EQ(log.Cuenta(Begin()), 3);
    EXPECT_EQ(log.Cuenta(Commit()), 1);
    ComprobarApuntes({Error(700, 0, u"1 - Enlace perdido"_s, 0)});
}

// The records are in the file when the log says so, whatever stood open around them.
TEST_P(EntraCambioTest, TheCommitLineComesWhenTheRecordStandsInTheFile) {
    Espera(0, 0, EnlacePerdido());
    EsperaReconexion();
    EsperaBueno();
    QStringList ordenes;
    motor.PonerGancho([&](const Statement& s) {
        if (s.kind == Statement::Kind::Confirmar) {
            ordenes << s.sql;
            EXPECT_EQ(log.Cuenta(Commit()), 0);
        }
    });
    Operar();
    motor.PonerGancho({});
    EXPECT_EQ(ordenes, (QStringList{u"RELEASE zv2"_s, u"COMMIT"_s}));
    EXPECT_EQ(log.lineas.last(), Commit());
}

TEST_P(EntraCambioTest, LevelsThatCannotBeReadAreToldWhenTheBooksAreClosedAndBeforeTheError) {
    Espera(2000, 500, FinGuion::Error(12, u"Atasco"_s).Durante([this] {
        cliente.FallarNiveles(2, 31, u"Puerta abierta"_s);
    }));
    const auto cerrados = [this] {
        EXPECT_EQ(log.lineas.last(), Commit());
        ComprobarEnMarcha(0);
    };
    dialogos.EsperaMensaje(u"Operación anulada"_s, u"Puerta abierta"_s, Respuesta::Aceptar,
                           std::nullopt, cerrados);
    EsperaAviso(u"12: Atasco"_s, cerrados);
    // The balance that is stored at the end.
    dialogos.EsperaMensaje(u"Operación anulada"_s, u"Puerta abierta"_s, Respuesta::Aceptar,
                           std::nullopt, [this] { EXPECT_EQ(Activo(), u"0"_s); });
    Operar();
    ComprobarApuntes({Error(2000, 500, u"12 - Atasco"_s, 0)});
}

TEST_P(EntraCambioTest, ADeviceThatRaisesLeavesItsLevelToTheOwner) {
    Espera(0, 0, FinGuion::Ok().Durante([] {
        throw ErrorEjecucion(429, u"El componente no responde"_s);
    }));
    EXPECT_EQ(NumeroError([this] { Operar(); }), 429);
    EXPECT_EQ(log.lineas, QStringList{Begin()});
    EXPECT_EQ(motor.Nivel(), 1);
    pulso.ArrancaTimer();
    pulso.ProcesarCola();
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(log.lineas.size(), 1); // it had written nothing: nothing is told of it
}

INSTANTIATE_TEST_SUITE_P(Operaciones, EntraCambioTest, testing::ValuesIn(Operaciones()),
                         [](const auto& caso) { return std::string(caso.param.nombre); });

} // namespace zv::test
