// A queue that another program has made or filled as it liked: the tick survives all of it.
#include "BancoEngine.h"
#include "config/Modo.h"
#include "platform/StringLiterals.h"
#include "till/ResultadoEnvio.h"

namespace zv::test {

class ColaAjenaTest : public BancoEngine {
  protected:
    void SetUp() override {
        ConectarCon(10000);
        EscribirIni("[ZVMONITOR]\r\nMODO=MANUAL\r\n"); // no return to "AUTO" by itself
    }
    // Without a word on what a column takes.
    void PonerColaAjena() {
        motor.Ejecutar(u"DROP TABLE cola"_s);
        motor.Ejecutar(u"CREATE TABLE cola (idZV INTEGER PRIMARY KEY, fecha, importe, id1, id2, "
                       "idcaja, terminal, vendedor, formapago, creditoError, manual)"_s);
    }
};

TEST_F(ColaAjenaTest, ARefundThatCannotBeReadIsToldAsItStands) {
    PonerColaAjena();
    motor.Ejecutar(u"INSERT INTO cola (importe,id1,manual) VALUES (-1e300,'R',0)"_s);
    dialogos.EsperaMensaje(u"Abono pendiente"_s, testing::Truly([](const QString& texto) {
                               return texto.endsWith(u"Importe:-1e+300"_s);
                           }),
                           Respuesta::Aceptar, EstiloMensaje::Aceptar);
    pulso.ProcesarCola();
    EXPECT_EQ(Cola().size(), 1U);
    EXPECT_EQ(configuracio->Modo, modo::kManual);
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kError);
}

TEST_F(ColaAjenaTest, AmountsAtTheEndsOfTheTypeFailAsASendAndNotTheTill) {
    for (const char* importe : {"922337203685477.5807", "922337203685477", "2147483648"}) {
        entorno.ResultadoEnvio = envio::kBien;
        configuracio->Modo = modo::kAuto;
        motor.Ejecutar(u"DELETE FROM cola"_s);
        PonerColaAjena();
        motor.Ejecutar(u"INSERT INTO cola (importe,id1,manual) VALUES (%1,'C',0)"_s.arg(
            QLatin1String(importe)));
        EXPECT_NO_THROW(pulso.ProcesarCola()) << importe;
        EXPECT_EQ(Cola().size(), 1U);
        EXPECT_EQ(entorno.ResultadoEnvio, envio::kError) << importe;
        EXPECT_EQ(configuracio->Modo, modo::kManual) << importe;
    }
}

TEST_F(ColaAjenaTest, ANumberOfARowThatIsNoneOfOursFailsAsASend) {
    PonerColaAjena();
    motor.Ejecutar(u"INSERT INTO cola (idZV,importe,manual) VALUES (3000000000,500,0)"_s);
    dialogos.EsperaMensaje(QString(), u"Error nº 6 - Desbordamiento"_s); // the grid cannot show it
    EXPECT_NO_THROW(pulso.ProcesarCola());
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kError);
    EXPECT_EQ(configuracio->Modo, modo::kManual);
    EXPECT_EQ(log.CuentaInicio(u">>> Error nº 6 al leer la cola - "_s), 1);
    EXPECT_NE(Activo(), u"1"_s);
}

TEST_F(ColaAjenaTest, AQueueWhoseSumOverflowsCountsAsChanged) {
    // As whole numbers the sum is too large for SQLite, as money for the type.
    for (const char* importe : {"9000000000000000000", "900000000000000"}) {
        motor.Ejecutar(u"DELETE FROM cola"_s);
        PonerColaAjena();
        for (int i = 0; i < 2; ++i) {
            motor.Ejecutar(
                u"INSERT INTO cola (importe,manual) VALUES (%1,1)"_s.arg(QLatin1String(importe)));
        }
        EXPECT_TRUE(pulso.DetectarCambiosCola()) << importe;
        EXPECT_EQ(estado.UltimaCuenta(), 2);
        EXPECT_FALSE(pulso.DetectarCambiosCola()) << importe; // nothing has been written
        motor.Ejecutar(u"UPDATE cola SET id1='x' WHERE idZV=1"_s);
        EXPECT_TRUE(pulso.DetectarCambiosCola()) << importe;
    }
}

TEST_F(ColaAjenaTest, ANullInManualIsNoManualRow) {
    PonerColaAjena();
    motor.Ejecutar(u"INSERT INTO cola (importe,id1,manual) VALUES (100,'M',1)"_s);
    motor.Ejecutar(u"INSERT INTO cola (importe,id1) VALUES (500,'N')"_s);
    cliente.EsperaCharge(500, 500, 0);
    pulso.ProcesarCola();
    ASSERT_EQ(Cola().size(), 1U);
    EXPECT_EQ(Cola().front().LeerTexto(u"id1"_s), u"M"_s);
}

TEST_F(ColaAjenaTest, BytesThatReadLikeARefundFailAsASend) {
    PonerColaAjena();
    motor.Ejecutar(u"INSERT INTO cola (importe,id1,manual) VALUES (X'2D35','R',0)"_s);
    dialogos.EsperaMensaje(u"Abono pendiente"_s, testing::_);
    EXPECT_NO_THROW(pulso.ProcesarCola());
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kError);
    EXPECT_TRUE(pulso.Armado());
}

// The device's last error has nothing to do with a row that never reached it.
TEST_F(ColaAjenaTest, AFailureBeforeTheDeviceWasAskedIsNotToldAsItsErrorAndLastsInAuto) {
    EscribirIni("[ZVMONITOR]\r\nMODO=AUTO\r\n");
    PonerFila(500);
    cliente.EsperaCharge(500, 500, 500, FinGuion::Error(33, u"Atasco"_s));
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, u"33 - Atasco"_s);
    pulso.ProcesarCola();
    motor.Ejecutar(u"DELETE FROM cola"_s);
    PonerFila(3000000000LL);
    configuracio->Modo = modo::kAuto;
    for (int i = 0; i < 3; ++i) {
        pulso.ProcesarCola(); // no dialog
    }
    EXPECT_EQ(configuracio->Modo, modo::kManual);
    EXPECT_EQ(controles.Estado().lbEstado, u"Error de Zorvex. Consulte con su técnico"_s);
    EXPECT_EQ(log.CuentaInicio(u">>> Error nº 6 al procesar operación nº "_s), 1);
}

TEST_F(ColaAjenaTest, ARowWithoutAUsableNumberFailsThoughTheLogIsDeadToo) {
    PonerColaAjena();
    motor.Ejecutar(u"INSERT INTO cola (idZV,importe,manual) VALUES (3000000000,500,0)"_s);
    dialogos.EsperaMensaje(QString(), u"Error nº 6 - Desbordamiento"_s);
    log.fallosPendientes = 1;
    EXPECT_NO_THROW(pulso.ProcesarCola());
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kError);
    EXPECT_EQ(configuracio->Modo, modo::kManual);
}

TEST_F(ColaAjenaTest, TextsWhereNumbersBelongFailAsASend) {
    PonerColaAjena();
    motor.Ejecutar(u"INSERT INTO cola (fecha,importe,idcaja,creditoError,manual) VALUES "
                   "('ayer','diez','x','y','no')"_s);
    // The grid tells that it cannot show the row, at the look and after the send.
    for (int i = 0; i < 2; ++i) {
        dialogos.EsperaMensaje(QString(), u"Error nº 13 - No coinciden los tipos"_s);
    }
    EXPECT_NO_THROW(pulso.ProcesarCola());
    EXPECT_EQ(Cola().size(), 1U);
    EXPECT_TRUE(Procesados().empty());
}

} // namespace zv::test
