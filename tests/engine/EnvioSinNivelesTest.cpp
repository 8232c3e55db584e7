// Sending while the device's levels cannot be read, as after a lost link, or make no sense: the
// balance is too small, the books are written all the same, and the reason of the end stays.
#include "BancoMotor.h"
#include "engine/Envio.h"

namespace zv::test {

class EnvioSinNivelesTest : public BancoMotor {
  protected:
    EnvioSinNivelesTest() : sujeto(entorno) {}

    void SetUp() override {
        EscribirIni("[ZVMONITOR]\r\nMODO=MANUAL\r\n"); // no return to "AUTO" by itself
        ConectarCon(10000);
    }

    int Enviar(qint32 idZV) {
        return sujeto.EnviarOperacion(QStringLiteral("ENVIARCOLA"), cliente, idZV);
    }
    // The link goes within the charge: from there on no level can be read.
    FinGuion EnlacePerdido(qint16 codigo = 1) {
        return FinGuion::Error(codigo, QStringLiteral("Enlace perdido")).Durante([this] {
            for (const qint32 tipo : {2, 3, 4}) {
                cliente.FallarNiveles(tipo, 1, QStringLiteral("Sin conexión"));
            }
        });
    }
    void EsperaAnulada(DialogosGuion::Accion mientras = {}) {
        dialogos.EsperaMensaje(QStringLiteral("Operación anulada"), QStringLiteral("Sin conexión"),
                               resultado::kAceptar, 0, std::move(mientras));
    }
    QString SaldoExit() const {
        return registro.LeerValor(QStringLiteral("Zorvex\\ZVMonitor"), QStringLiteral("Saldo_Exit"),
                                  QString());
    }

    Envio sujeto;
};

TEST_F(EnvioSinNivelesTest, ALostLinkIsFiledWithItsMoneyAndWithoutABalance) {
    const qint32 id = PonerFila(1250);
    cliente.EsperaCharge(1250, 1000, 0, EnlacePerdido());
    EsperaAnulada([this] { EXPECT_EQ(Activo(), QStringLiteral("1")); });

    EXPECT_EQ(Enviar(id), envio::kError);

    ASSERT_EQ(Cola().size(), 1U);
    EXPECT_EQ(Cola().front().LeerCurrency(QStringLiteral("creditoError")), Currency(1000));
    const auto filas = Procesados();
    ASSERT_EQ(filas.size(), 1U);
    const Fila& f = filas.front();
    EXPECT_EQ(f.LeerTexto(QStringLiteral("estado")), QStringLiteral("ERROR"));
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("importeVenta")), Currency(1250));
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("cobrado")), Currency(1000));
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("saldoZV")), Currency(0));
    // The code is that of the charge; the text is read after the balance.
    EXPECT_EQ(f.LeerTexto(QStringLiteral("error")), QStringLiteral("1 - Sin conexión"));
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(Activo(), QStringLiteral("0"));
    EXPECT_EQ(log.lineas, (QStringList{QStringLiteral("ENVIARZV_INICIO_CHARGE: 1250"),
                                       QStringLiteral("ENVIARZV2_1_BEGINTRANS"),
                                       QStringLiteral("EDIT_COLA_CREDITO_1_OK"),
                                       QStringLiteral("ZVCHARGE_ENVIARZV2_1_ERROR_1: "
                                                      "VALUEINCENTS=1250 PAIDINVALUE=1000 "
                                                      "PAIDOUTVALUE=0"),
                                       QStringLiteral("ADDPROC_OK_1_ENVIARCOLA_ERRORZV"),
                                       QStringLiteral(">>> Error en Zorvex: 1 - Sin conexión"),
                                       QStringLiteral("ENVIARZV2_1_COMMIT")}));
}

TEST_F(EnvioSinNivelesTest, TheCodeOfAnErrorOutlivesTheLevelsThatFailAfterIt) {
    const qint32 id = PonerFila(1250);
    cliente.EsperaCharge(1250, 0, 0, EnlacePerdido(33));
    EsperaAnulada();
    EXPECT_EQ(Enviar(id), envio::kError);
    EXPECT_EQ(Procesados().front().LeerTexto(QStringLiteral("error")),
              QStringLiteral("33 - Sin conexión"));
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
    EXPECT_EQ(Procesados().front().LeerTexto(QStringLiteral("estado")), QStringLiteral("CANCEL"));
    EXPECT_TRUE(supervision.Conectado()); // nothing but an operation finds a lost link
}

TEST_F(EnvioSinNivelesTest, ASaleThatWasPaidIsFiledThoughItsBalanceCannotBeRead) {
    const qint32 id = PonerFila(1250);
    FinGuion fin = EnlacePerdido();
    fin.result = true;
    cliente.EsperaCharge(1250, 1250, 0, fin);
    EsperaAnulada();
    EXPECT_EQ(Enviar(id), envio::kBien);
    EXPECT_TRUE(Cola().empty());
    const auto filas = Procesados();
    ASSERT_EQ(filas.size(), 1U);
    EXPECT_EQ(filas.front().LeerTexto(QStringLiteral("estado")), QStringLiteral("OK"));
    EXPECT_EQ(filas.front().LeerCurrency(QStringLiteral("cobrado")), Currency(1250));
    EXPECT_EQ(filas.front().LeerCurrency(QStringLiteral("saldoZV")), Currency(0));
}

TEST_F(EnvioSinNivelesTest, LevelListsOfUnequalLengthAreToldAndTheSaleIsFiled) {
    const qint32 id = PonerFila(1250);
    cliente.EsperaCharge(1250, 1250, 0, FinGuion::Ok().Durante([this] {
        cliente.PonerNiveles(2, QStringLiteral("100,200"), QStringLiteral("5"));
    }));
    dialogos.EsperaCaja(QStringLiteral("Error al recuperar el saldo del Zorvex: 9 - El subíndice "
                                       "está fuera del intervalo"));
    EXPECT_EQ(Enviar(id), envio::kBien);
    EXPECT_TRUE(Cola().empty());
    EXPECT_EQ(Procesados().front().LeerCurrency(QStringLiteral("saldoZV")), Currency(0));
    EXPECT_EQ(motor.Nivel(), 0);
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
    cliente.EsperaConnect(FinGuion::Error(1, QStringLiteral("No responde")));
    dialogos.EsperaMensaje(QStringLiteral("Error de Zorvex"),
                           testing::Truly([](const QString& texto) {
                               return texto.endsWith(QStringLiteral("1: No responde"));
                           }));
    dialogos.EsperaMensaje(QStringLiteral("Error de Zorvex"), QStringLiteral("1 - No responde"));

    pulso.ProcesarCola();

    EXPECT_FALSE(supervision.Conectado());
    EXPECT_EQ(configuracio->Modo, modo::kManual);
    EXPECT_EQ(Cola().front().LeerCurrency(QStringLiteral("creditoError")), Currency(1000));
    EXPECT_EQ(Procesados().size(), 1U);
    EXPECT_TRUE(controles.Estado().ShapeCritico);
    // Too small a balance has been stored: the next connection tells the operator.
    EXPECT_EQ(SaldoExit(), QStringLiteral("0"));
    cliente.PonerTotal(11000);
    cliente.EsperaConnect();
    dialogos.EsperaMensaje(QStringLiteral("Inicialización"), testing::_);
    supervision.Conectar();
    EXPECT_EQ(SaldoExit(), QStringLiteral("11000"));
}

TEST_F(EnvioSinNivelesTest, ALinkThatComesBackSendsTheRestAfterTheQuestion) {
    PonerFila(1250);
    cliente.EsperaCharge(1250, 1000, 0, EnlacePerdido());
    EsperaAnulada();
    EsperaAnulada();
    cliente.EsperaDisconnect();
    cliente.EsperaConnect(FinGuion::Ok().Durante([this] { cliente.PonerTotal(11000); }));
    dialogos.EsperaMensaje(QStringLiteral("Inicialización"), testing::_);
    dialogos.EsperaMensaje(QStringLiteral("Confirmación de Operación Parcial"), testing::_,
                           resultado::kReintentar, 5);
    cliente.EsperaCharge(250, 250, 0);
    pulso.ProcesarCola();
    EXPECT_TRUE(Cola().empty());
    EXPECT_EQ(Procesados().size(), 2U);
    EXPECT_EQ(Procesados().back().LeerCurrency(QStringLiteral("importeVenta")), Currency(250));
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kBien);
}

} // namespace zv::test
