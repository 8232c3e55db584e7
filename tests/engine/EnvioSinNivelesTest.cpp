// Sending while the device's levels cannot be read, as after a lost link, or make no sense: the
// balance is too small, the books are written all the same, and the reason of the end stays.
#include "BancoEngine.h"
#include "config/Modo.h"
#include "engine/Envio.h"
#include "platform/StringLiterals.h"
#include "till/ResultadoEnvio.h"

namespace zv::test {

class EnvioSinNivelesTest : public BancoEngine {
  protected:
    EnvioSinNivelesTest() : sujeto(entorno) {}

    void SetUp() override {
        EscribirIni("[ZVMONITOR]\r\nMODO=MANUAL\r\n"); // no return to "AUTO" by itself
        ConectarCon(10000);
    }

    int Enviar(qint32 idZV) { return sujeto.EnviarOperacion(u"ENVIARCOLA"_s, cliente, idZV); }
    // The link goes within the charge: from there on no level can be read.
    FinGuion EnlacePerdido(qint16 codigo = 1) {
        return FinGuion::Error(codigo, u"Enlace perdido"_s).Durante([this] {
            for (const qint32 tipo : {2, 3, 4}) {
                cliente.FallarNiveles(tipo, 1, u"Sin conexión"_s);
            }
        });
    }
    void EsperaAnulada(DialogosGuion::Accion mientras = {}) {
        dialogos.EsperaMensaje(u"Operación anulada"_s, u"Sin conexión"_s, Respuesta::Aceptar,
                               EstiloMensaje::Aceptar, std::move(mientras));
    }
    QString SaldoExit() const { return registry.LeerValor(registry_name::kSaldoExit, QString()); }

    Envio sujeto;
};

TEST_F(EnvioSinNivelesTest, ALostLinkIsFiledWithItsMoneyAndWithoutABalance) {
    const qint32 id = PonerFila(1250);
    cliente.EsperaCharge(1250, 1000, 0, EnlacePerdido());
    EsperaAnulada([this] {
        EXPECT_EQ(Activo(), u"1"_s);
        // The books are closed: nothing is locked while the operator reads.
        EXPECT_EQ(motor.Nivel(), 0);
        EXPECT_EQ(log.lineas.last(), u"ENVIARZV2_1_COMMIT"_s);
        EXPECT_EQ(Procesados().size(), 1U);
    });

    EXPECT_EQ(Enviar(id), envio::kError);

    ASSERT_EQ(Cola().size(), 1U);
    EXPECT_EQ(Cola().front().LeerCurrency(u"creditoError"_s), Currency(1000));
    const auto filas = Procesados();
    ASSERT_EQ(filas.size(), 1U);
    const Row& f = filas.front();
    EXPECT_EQ(f.LeerTexto(u"estado"_s), u"ERROR"_s);
    EXPECT_EQ(f.LeerCurrency(u"importeVenta"_s), Currency(1250));
    EXPECT_EQ(f.LeerCurrency(u"cobrado"_s), Currency(1000));
    EXPECT_EQ(f.LeerCurrency(u"saldoZV"_s), Currency(0));
    // The code is that of the charge; the text is read after the balance.
    EXPECT_EQ(f.LeerTexto(u"error"_s), u"1 - Sin conexión"_s);
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(Activo(), u"0"_s);
    EXPECT_EQ(log.lineas,
              (QStringList{u"ENVIARZV_INICIO_CHARGE: 1250"_s, u"ENVIARZV2_1_BEGINTRANS"_s,
                           u"EDIT_COLA_CREDITO_1_OK"_s,
                           u"ZVCHARGE_ENVIARZV2_1_ERROR_1: "
                           "VALUEINCENTS=1250 PAIDINVALUE=1000 "
                           "PAIDOUTVALUE=0"_s,
                           u"ADDPROC_OK_1_ENVIARCOLA_ERRORZV"_s,
                           u">>> Error en Zorvex: 1 - Sin conexión"_s, u"ENVIARZV2_1_COMMIT"_s}));
}

TEST_F(EnvioSinNivelesTest, TheCodeOfAnErrorOutlivesTheLevelsThatFailAfterIt) {
    const qint32 id = PonerFila(1250);
    cliente.EsperaCharge(1250, 0, 0, EnlacePerdido(33));
    EsperaAnulada();
    EXPECT_EQ(Enviar(id), envio::kError);
    EXPECT_EQ(Procesados().front().LeerTexto(u"error"_s), u"33 - Sin conexión"_s);
}

TEST_F(EnvioSinNivelesTest, ACancelStaysACancel) {
    PonerFila(1250);
    FinGuion fin = EnlacePerdido();
    fin.errorCode = 0;
    cliente.EsperaCharge(1250, 500, 500, fin);
    for (int i = 0; i < 2; ++i) { // at the filing, and at the balance kept after it
        EsperaAnulada();
    }
    pulso.ProcesarCola();
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kCancelado);
    EXPECT_EQ(Procesados().size(), 1U);
    EXPECT_EQ(Procesados().front().LeerTexto(u"estado"_s), u"CANCEL"_s);
    EXPECT_TRUE(supervision.Conectado()); // nothing but an operation finds a lost link
}

TEST_F(EnvioSinNivelesTest, ASaleThatWasPaidIsFiledThoughItsBalanceCannotBeRead) {
    const qint32 id = PonerFila(1250);
    FinGuion fin = EnlacePerdido();
    fin.result = true;
    cliente.EsperaCharge(1250, 1250, 0, fin);
    EsperaAnulada([this] {
        // The books are closed: a kill while the operator reads charges nobody twice.
        EXPECT_EQ(motor.Nivel(), 0);
        EXPECT_EQ(log.lineas.last(), u"ENVIARZV1_1_COMMIT"_s);
        EXPECT_TRUE(Cola().empty());
        EXPECT_FALSE(seguretat.UsuarioFast());
    });
    EXPECT_EQ(Enviar(id), envio::kBien);
    EXPECT_TRUE(Cola().empty());
    const auto filas = Procesados();
    ASSERT_EQ(filas.size(), 1U);
    EXPECT_EQ(filas.front().LeerTexto(u"estado"_s), u"OK"_s);
    EXPECT_EQ(filas.front().LeerCurrency(u"cobrado"_s), Currency(1250));
    EXPECT_EQ(filas.front().LeerCurrency(u"saldoZV"_s), Currency(0));
}

TEST_F(EnvioSinNivelesTest, LevelListsOfUnequalLengthAreToldAndTheSaleIsFiled) {
    const qint32 id = PonerFila(1250);
    cliente.EsperaCharge(1250, 1250, 0, FinGuion::Ok().Durante([this] {
        cliente.PonerNiveles(2, u"100,200"_s, u"5"_s);
    }));
    dialogos.EsperaCaja(u"Error al recuperar el saldo del Zorvex: 9 - El subíndice "
                        "está fuera del intervalo"_s);
    EXPECT_EQ(Enviar(id), envio::kBien);
    EXPECT_TRUE(Cola().empty());
    EXPECT_EQ(Procesados().front().LeerCurrency(u"saldoZV"_s), Currency(0));
    EXPECT_EQ(motor.Nivel(), 0);
}

TEST_F(EnvioSinNivelesTest, LevelsWithoutSenseAreToldAfterTheCommitOfAnError) {
    const qint32 id = PonerFila(1250);
    cliente.EsperaCharge(1250, 300, 0, FinGuion::Error(5, u"Atasco"_s).Durante([this] {
        cliente.PonerNiveles(2, u"100,200"_s, u"5"_s);
    }));
    dialogos.EsperaCaja(u"Error al recuperar el saldo del Zorvex: 9 - El subíndice "
                        "está fuera del intervalo"_s,
                        [this] {
                            EXPECT_EQ(motor.Nivel(), 0);
                            EXPECT_EQ(log.lineas.last(), u"ENVIARZV2_1_COMMIT"_s);
                        });
    EXPECT_EQ(Enviar(id), envio::kError);
    EXPECT_EQ(Cola().front().LeerCurrency(u"creditoError"_s), Currency(300));
    EXPECT_EQ(Procesados().front().LeerCurrency(u"saldoZV"_s), Currency(0));
}

// What the device says after a balance that failed has nothing to do with the sale.
TEST_F(EnvioSinNivelesTest, AnErrorWhoseBalanceFailsIsNotTakenForALostLink) {
    PonerFila(1250);
    cliente.EsperaCharge(1250, 0, 0, EnlacePerdido(33));
    EsperaAnulada(); // of the record
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, testing::Truly([](const QString& texto) {
                               return texto.startsWith(u"33 - "_s);
                           }));
    EsperaAnulada(); // of the balance that is kept
    pulso.ProcesarCola();
    EXPECT_EQ(Procesados().size(), 1U);
    EXPECT_EQ(configuracio->Modo, modo::kManual);
}

TEST_F(EnvioSinNivelesTest, APaidSaleThatCannotBeFiledIsNotChargedAgainByItself) {
    PonerFila(1250);
    FinGuion fin = EnlacePerdido();
    fin.result = true;
    cliente.EsperaCharge(1250, 1250, 0, fin);
    motor.PonerGancho([](const Statement& s) {
        if (s.kind == Statement::Kind::Confirmar) {
            throw ErrorEjecucion(13, u"database or disk is full"_s);
        }
    });
    EsperaAnulada(); // of the balance that is kept
    pulso.ProcesarCola();
    motor.PonerGancho({});
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kError);
    EXPECT_EQ(configuracio->Modo, modo::kManual);
    EXPECT_EQ(Cola().size(), 1U);
    EXPECT_TRUE(supervision.Conectado());
}

TEST_F(EnvioSinNivelesTest, ALostLinkWhoseMoneyCannotBeFiledIsNotSentAgainByItself) {
    PonerFila(1250);
    cliente.EsperaCharge(1250, 1000, 0, EnlacePerdido());
    motor.PonerGancho([](const Statement& s) {
        if (s.kind == Statement::Kind::Escritura) {
            throw ErrorEjecucion(5, u"database is locked"_s);
        }
    });
    EsperaAnulada(); // of the balance that is kept
    pulso.ProcesarCola();
    motor.PonerGancho({});
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kError);
    EXPECT_EQ(configuracio->Modo, modo::kManual);
    EXPECT_EQ(Cola().size(), 1U);
    EXPECT_EQ(controles.Estado().lbEstado, u"Error de Zorvex. Consulte con su técnico"_s);
}

TEST_F(EnvioSinNivelesTest, AMultiplierOfZeroKeepsARefundInTheQueue) {
    PonerFila(-500);
    cliente.PonerMultiplier(0);
    EXPECT_THROW(pulso.ProcesarCola(), ErrorEjecucion); // the question needs its amount
    EXPECT_EQ(Cola().size(), 1U);
    EXPECT_TRUE(Procesados().empty());
    EXPECT_EQ(motor.Nivel(), 0);
}

TEST_F(EnvioSinNivelesTest, ALinkThatStaysLostIsToldAtEachStepAndTheRowWaits) {
    PonerFila(1250);
    cliente.EsperaCharge(1250, 1000, 0, EnlacePerdido());
    EsperaAnulada(); // balance of the record
    EsperaAnulada(); // balance before the disconnection
    cliente.EsperaDisconnect();
    cliente.EsperaConnect(FinGuion::Error(1, u"No responde"_s));
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, testing::Truly([](const QString& texto) {
                               return texto.endsWith(u"1: No responde"_s);
                           }));
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, u"1 - Enlace perdido"_s);

    pulso.ProcesarCola();

    EXPECT_FALSE(supervision.Conectado());
    EXPECT_EQ(configuracio->Modo, modo::kManual);
    EXPECT_EQ(Cola().front().LeerCurrency(u"creditoError"_s), Currency(1000));
    EXPECT_EQ(Procesados().size(), 1U);
    EXPECT_TRUE(controles.Estado().ShapeCritico);
    // Too small a balance has been stored: the next connection tells the operator.
    EXPECT_EQ(SaldoExit(), u"0"_s);
    cliente.PonerTotal(11000);
    cliente.EsperaConnect();
    dialogos.EsperaMensaje(u"Inicialización"_s, testing::_);
    supervision.Conectar();
    EXPECT_EQ(SaldoExit(), u"11000"_s);
}

TEST_F(EnvioSinNivelesTest, ALinkThatComesBackSendsTheRestAfterTheQuestion) {
    PonerFila(1250);
    cliente.EsperaCharge(1250, 1000, 0, EnlacePerdido());
    EsperaAnulada();
    EsperaAnulada();
    cliente.EsperaDisconnect();
    cliente.EsperaConnect(FinGuion::Ok().Durante([this] { cliente.PonerTotal(11000); }));
    dialogos.EsperaMensaje(u"Inicialización"_s, testing::_);
    dialogos.EsperaMensaje(u"Confirmación de Operación Parcial"_s, testing::_,
                           Respuesta::Reintentar, EstiloMensaje::ReintentarCancelar);
    cliente.EsperaCharge(250, 250, 0);
    pulso.ProcesarCola();
    EXPECT_TRUE(Cola().empty());
    EXPECT_EQ(Procesados().size(), 2U);
    EXPECT_EQ(Procesados().back().LeerCurrency(u"importeVenta"_s), Currency(250));
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kBien);
}

} // namespace zv::test
