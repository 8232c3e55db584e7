// What the operations of the foot share: nothing is begun within one of them, the lock of another
// program is waited for, every statement may fail, and an English language file changes the words.
#include "BancoManual.h"
#include "support/IdiomaIngles.h"

#include <QThread>

#include <array>

namespace zv::test {

class OperacionesManualesTest : public BancoManual {
  protected:
    // One operation of each button that ends well, with all that is asked.
    void Preparar(BotonPie boton, const FinGuion& fin = {}) {
        switch (boton) {
        case BotonPie::DarCambio:
            cliente.EsperaChange(2000, 2000, fin);
            return;
        case BotonPie::AnadirCambio:
            cliente.EsperaAddChange(2000, fin);
            pantallas.EsperaValidar(2, u"authCambio"_s, true);
            return;
        case BotonPie::Pago:
            pantallas.EsperaValidar(1, u"authPago"_s, true);
            dialogos.EsperaTexto(u"Pago"_s, testing::_, u"Pan"_s);
            dialogos.EsperaImporte(u"Pago"_s, testing::_, 2000);
            cliente.EsperaPay(2000, 2000, fin);
            return;
        default:
            pantallas.EsperaValidar(2, u"authCobro"_s, true);
            dialogos.EsperaTexto(u"Cobro manual"_s, testing::_, u"Pan"_s);
            dialogos.EsperaImporte(u"Cobro manual"_s, testing::_, 2000);
            cliente.EsperaCharge(2000, 2000, 0, fin);
            return;
        }
    }
    // Everything that a hand can touch; none of it may do anything.
    void TocarTodo() {
        const QStringList llamadas = cliente.Llamadas();
        const QStringList lineas = log.lineas;
        const int nivel = motor.Nivel();
        const QString activo = Activo();
        const int resultado = entorno.ResultadoEnvio;
        for (const BotonPie boton : kBotonesPie) {
            botones.boton_Click(boton);
        }
        botones.cobroManual(u"VENTA"_s);
        pulso.SaldarAbandonadas();
        EXPECT_EQ(cliente.Llamadas(), llamadas);
        EXPECT_EQ(log.lineas, lineas);
        EXPECT_EQ(motor.Nivel(), nivel);
        EXPECT_EQ(Activo(), activo);
        EXPECT_EQ(entorno.ResultadoEnvio, resultado);
        ++tocados_;
    }
    PantallasGuion::Accion Tocando() {
        return [this] { TocarTodo(); };
    }

    // As its log lines begin.
    static QString Nombre(BotonPie boton) {
        switch (boton) {
        case BotonPie::DarCambio:
            return u"DARCAMBIO"_s;
        case BotonPie::AnadirCambio:
            return u"AÑADIRCAMBIO"_s;
        case BotonPie::Pago:
            return u"PAGO"_s;
        default:
            return u"COBROMAN"_s;
        }
    }

    static constexpr std::array kManuales{BotonPie::DarCambio, BotonPie::AnadirCambio,
                                          BotonPie::Pago, BotonPie::CobroManual};
    int tocados_ = 0;
};

TEST_F(OperacionesManualesTest, TheirButtonsHaveAnOperation) {
    for (const BotonPie boton : kManuales) {
        EXPECT_TRUE(botones.TieneOperacion(boton));
    }
}

TEST_F(OperacionesManualesTest, TheHandlerClearsTheResultOfTheLastSend) {
    for (const BotonPie boton : kManuales) {
        entorno.ResultadoEnvio = envio::kError;
        Preparar(boton);
        Pulsar(boton);
        EXPECT_EQ(entorno.ResultadoEnvio, envio::kBien);
        EXPECT_EQ(C().lbEstado, QString());
        ComprobarReposo();
    }
    EXPECT_EQ(Procesados().size(), 4U);
}

TEST_F(OperacionesManualesTest, ALevelThatSomebodyHasLeftOpenIsEndedFirst) {
    for (const BotonPie boton : kManuales) {
        log.Toma();
        motor.Comenzar();
        motor.Ejecutar(u"INSERT INTO historial (id) VALUES ('a medias')"_s);
        Preparar(boton, FinGuion::Ok().Durante([this] { ComprobarEnMarcha(); }));
        Pulsar(boton);
        EXPECT_EQ(log.lineas.first(), u">>> Transacción abandonada: deshecha"_s);
        EXPECT_EQ(log.lineas.last(), Nombre(boton) + u"_COMMIT"_s);
        ComprobarReposo();
    }
    EXPECT_EQ(ApuntesEnElFichero(), 4);
}

TEST_F(OperacionesManualesTest, NothingIsBegunWhileTheDeviceWorks) {
    for (const BotonPie boton : kManuales) {
        Preparar(boton, FinGuion::Ok().Durante(Tocando()));
        Pulsar(boton);
        ComprobarReposo();
    }
    EXPECT_EQ(tocados_, 4);
    EXPECT_EQ(Procesados().size(), 4U);
}

TEST_F(OperacionesManualesTest, NothingIsBegunWhileAnybodyIsAsked) {
    cliente.EsperaAddChange(2000);
    pantallas.EsperaValidar(2, u"authCambio"_s, true, Tocando());
    Pulsar(BotonPie::AnadirCambio);

    pantallas.EsperaValidar(1, u"authPago"_s, true, Tocando());
    dialogos.EsperaTexto(u"Pago"_s, testing::_, u"Pan"_s, testing::_, Tocando());
    dialogos.EsperaImporte(u"Pago"_s, testing::_, 0, true, Tocando());
    Pulsar(BotonPie::Pago);

    pantallas.EsperaValidar(2, u"authCobro"_s, true, Tocando());
    dialogos.EsperaTexto(u"Cobro manual"_s, testing::_, {}, testing::_, Tocando());
    dialogos.EsperaMensaje(u"Cobro manual anulado"_s, testing::_, Respuesta::Aceptar, std::nullopt,
                           Tocando());
    Pulsar(BotonPie::CobroManual);
    EXPECT_EQ(tocados_, 7);
    ComprobarReposo();
}

// The pulse is armed and the footer enabled when the state line tells of the end.
TEST_F(OperacionesManualesTest, NothingIsBegunWhileTheEndIsTold) {
    Preparar(BotonPie::CobroManual, FinGuion::Error(12, u"Atasco"_s));
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, testing::_, Respuesta::Aceptar, std::nullopt,
                           [this] {
                               EXPECT_TRUE(pulso.Armado());
                               EXPECT_TRUE(C().framePie);
                               TocarTodo();
                           });
    Pulsar(BotonPie::CobroManual);
    EXPECT_EQ(tocados_, 1);
    ComprobarReposo();
    Preparar(BotonPie::DarCambio);
    Pulsar(BotonPie::DarCambio); // afterwards everything works
    EXPECT_EQ(Procesados().size(), 1U);
}

TEST_F(OperacionesManualesTest, NothingIsBegunWithinTheFloatingButtonsCharge) {
    dialogos.EsperaImporte(u"Cobro manual"_s, testing::_, 2000, false, Tocando());
    cliente.EsperaCharge(2000, 2000, 0, FinGuion::Ok().Durante(Tocando()));
    botones.cobroManual(u"VENTA"_s);
    EXPECT_EQ(tocados_, 2);
    ComprobarReposo();
}

TEST_F(OperacionesManualesTest, TheFloatingButtonBeginsNothingWithinASendNorWithinAnythingElse) {
    configuracio->Modo = u"AUTO"_s;
    PonerFila(100);
    cliente.EsperaCharge(100, 100, 0, FinGuion::Ok().Durante(Tocando()));
    pulso.ProcesarCola();
    EXPECT_EQ(tocados_, 1);
    // Whoever has stopped the pulse works.
    pulso.ParaTimer();
    controles.Poner(&EstadoControles::framePie, true);
    botones.cobroManual(u"VENTA"_s);
    EXPECT_EQ(log.CuentaInicio(u"COBROMAN"_s), 0);
    EXPECT_FALSE(pulso.Armado());
}

TEST_F(OperacionesManualesTest, AFailureLeavesTheHandlerUsable) {
    cliente.EsperaChange(0, 0, FinGuion::Ok().Durante([] { throw ErrorEjecucion(429, u"x"_s); }));
    EXPECT_EQ(NumeroError([this] { Pulsar(BotonPie::DarCambio); }), 429);
    EXPECT_FALSE(pulso.Armado()); // the program ends; nothing has been armed by itself
    pulso.ArrancaTimer();
    Preparar(BotonPie::DarCambio);
    Pulsar(BotonPie::DarCambio);
    EXPECT_EQ(Procesados().size(), 1U);
}

// The device has moved money: the wait begins when the first write meets the lock, however long
// the customer has taken.
TEST_F(OperacionesManualesTest, TheFilingWaitsUpToTenSecondsForAnotherProgramsLock) {
    for (const BotonPie boton : kManuales) {
        std::vector<qint32> esperas;
        motor.PonerGancho([&](const Statement& s) {
            if (s.sql == u"BEGIN IMMEDIATE"_s) {
                esperas.push_back(motor.Consultar(u"PRAGMA busy_timeout"_s).front().LeerLong(0));
            }
        });
        Preparar(boton, FinGuion::Ok().Durante([&] {
            QThread::msleep(20);
            EXPECT_TRUE(esperas.empty());
        }));
        Pulsar(boton);
        motor.PonerGancho({});
        EXPECT_EQ(esperas, std::vector<qint32>{10000});
    }
}

// Every statement of every operation fails, once and for good: the operation goes on or the failure
// is raised, and what the log tells of it stands in the file.
TEST_F(OperacionesManualesTest, EveryStatementMayFail) {
    int fallidos = 0;
    int lanzados = 0;
    for (const BotonPie boton : kManuales) {
        for (const bool siempre : {false, true}) {
            bool queda = true;
            for (int n = 1; queda; ++n) {
                SCOPED_TRACE(testing::Message() << static_cast<int>(boton) << " statement " << n
                                                << (siempre ? " and all after it" : ""));
                log.Toma();
                const std::size_t antes = Procesados().size();
                Preparar(boton);
                int pasadas = 0;
                motor.PonerGancho([&](const Statement&) {
                    ++pasadas;
                    if (pasadas == n || (siempre && pasadas > n)) {
                        throw ErrorEjecucion(10, u"disk I/O error"_s);
                    }
                });
                const int numero = NumeroError([&] { Pulsar(boton); });
                motor.PonerGancho({});
                queda = pasadas >= n;
                fallidos += queda ? 1 : 0;
                lanzados += numero != 0 ? 1 : 0;
                EXPECT_TRUE(numero == 0 || numero == 10);
                // The program ends on what is raised; here the next tick settles it.
                dialogos.Olvida();
                cliente.Olvida();
                pantallas.Olvida();
                entorno.marca.MarcarActivo(false);
                pulso.ArrancaTimer();
                pulso.ProcesarCola();
                EXPECT_EQ(motor.Nivel(), 0);
                ComprobarSinBloqueo();
                const bool dicho = log.lineas.contains(Nombre(boton) + u"_COMMIT"_s);
                const auto filas = static_cast<std::size_t>(log.CuentaInicio(u"ADDPROC_OK_"_s));
                EXPECT_EQ(dicho, numero == 0);
                if (dicho) {
                    EXPECT_EQ(Procesados().size() - antes, filas);
                }
                if (!queda) {
                    EXPECT_EQ(Procesados().size() - antes, 1U);
                }
            }
        }
    }
    EXPECT_GT(fallidos, 30);
    EXPECT_GT(lanzados, 10);
}

// As told: a record that cannot be written is in the log and nowhere else, and the operation ends
// like any other.
TEST_F(OperacionesManualesTest, ALockThatOutlastsTheWaitLosesTheRecordAndTheLogTellsIt) {
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Comenzar, u"BEGIN IMMEDIATE"_s, 4);
    Preparar(BotonPie::DarCambio);
    Pulsar(BotonPie::DarCambio);
    EXPECT_EQ(gancho.Pendientes(), 0);
    EXPECT_EQ(log.lineas,
              (QStringList{u"DARCAMBIO_BEGINTRANS"_s,
                           u"ZVCHANGE_DARCAMBIO_OK: PAIDINVALUE=2000 PAIDOUTVALUE=2000"_s,
                           u"ADDPROC_ERROR_5_RESUME_1 [DARCAMBIO]"_s,
                           u"ADDPROC_ERROR_5_RESUME_2 [DARCAMBIO]"_s,
                           u"ADDPROC_ERROR_5_RESUME_3 [DARCAMBIO]"_s,
                           u"ADDPROC_ERROR_5 - database is locked [DARCAMBIO]"_s,
                           u"DARCAMBIO_COMMIT"_s}));
    ComprobarApuntes({});
}

TEST_F(OperacionesManualesTest, ACommitThatFailsIsRaisedWithoutItsLine) {
    for (const BotonPie boton : kManuales) {
        log.Toma();
        GanchoFallos gancho(motor);
        gancho.Falla(Statement::Kind::Confirmar, u"COMMIT"_s, 1, {13, u"disk is full"_s});
        Preparar(boton);
        EXPECT_EQ(NumeroError([&] { Pulsar(boton); }), 13);
        EXPECT_FALSE(log.lineas.contains(Nombre(boton) + u"_COMMIT"_s));
        EXPECT_EQ(motor.Nivel(), 0);
        EXPECT_TRUE(Procesados().empty());
        pulso.ArrancaTimer();
    }
}

// The commit of the levels around the innermost one is a commit like any other.
TEST_F(OperacionesManualesTest, TheCommitOfALevelLeftByAReconnectionMayFailToo) {
    cliente.EsperaChange(0, 0, EnlacePerdido());
    EsperaReconexion();
    Preparar(BotonPie::DarCambio);
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Confirmar, u"COMMIT"_s, 1, {13, u"disk is full"_s});
    EXPECT_EQ(NumeroError([&] { Pulsar(BotonPie::DarCambio); }), 13);
    EXPECT_EQ(log.Cuenta(u"DARCAMBIO_COMMIT"_s), 0);
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_TRUE(Procesados().empty());
}

class OperacionesManualesInglesTest : public OperacionesManualesTest {
  protected:
    void SetUp() override {
        ingles_.PonerEn(carpeta.path());
        OperacionesManualesTest::SetUp();
    }
    IdiomaIngles ingles_;
};

TEST_F(OperacionesManualesInglesTest, WhatIsAskedAndToldIsInEnglish) {
    cliente.EsperaChange(0, 0, FinGuion::Error(12, u"Jam"_s));
    dialogos.EsperaMensaje(u"Give change cancelled"_s, u"12: Jam"_s);
    Pulsar(BotonPie::DarCambio);

    cliente.EsperaAddChange(0, FinGuion::Error(12, u"Jam"_s));
    dialogos.EsperaMensaje(u"Add float cancelled"_s, u"12: Jam"_s);
    Pulsar(BotonPie::AnadirCambio);

    pantallas.EsperaValidar(1, u"authPago"_s, true);
    dialogos.EsperaTexto(u"Pay-out"_s, u"Enter a description of the pay-out"_s, u"Bread"_s);
    // These two come with the program.
    dialogos.EsperaImporte(u"Pago"_s, u"Importe a pagar"_s, 100);
    cliente.EsperaPay(100, 0, FinGuion::Error(12, u"Jam"_s));
    dialogos.EsperaMensaje(u"Pay-out cancelled"_s, u"12: Jam"_s);
    Pulsar(BotonPie::Pago);
    pantallas.EsperaValidar(1, u"authPago"_s, true);
    dialogos.EsperaTexto(u"Pay-out"_s, testing::_, {});
    dialogos.EsperaMensaje(u"Pay-out cancelled"_s,
                           u"A pay-out cannot be made without a description"_s);
    Pulsar(BotonPie::Pago);

    pantallas.EsperaValidar(2, u"authCobro"_s, true);
    dialogos.EsperaTexto(u"Manual charge"_s, u"Enter a description of the manual charge"_s,
                         u"Bread"_s);
    dialogos.EsperaImporte(u"Manual charge"_s, u"Enter the amount"_s, 0, true);
    Pulsar(BotonPie::CobroManual);
    pantallas.EsperaValidar(2, u"authCobro"_s, true);
    dialogos.EsperaTexto(u"Manual charge"_s, testing::_, {});
    dialogos.EsperaMensaje(u"Manual charge cancelled"_s,
                           u"A manual charge cannot be made without a description"_s);
    Pulsar(BotonPie::CobroManual);
    ComprobarReposo();
    // Records are in the program's own words, whatever the language.
    EXPECT_EQ(Procesados().front().LeerTexto(u"error"_s), u"Error al dar cambio ZV: 12 - Jam"_s);
}

} // namespace zv::test
