// The queue pulse: what it looks at, what it sends by the mode, and what it leaves alone.
#include "BancoEngine.h"
#include "config/Modo.h"
#include "platform/StringLiterals.h"
#include "till/ResultadoEnvio.h"

namespace zv::test {

namespace {
const QString kTextoAbono =
    u"RETIRE EL CAMBIO DE\r\nLA OPERACION ANTERIOR\r\n\r\nPulse 'Aceptar' para continuar con el "
    "ABONO\r\n\r\nImporte:8,00 €"_s;
} // namespace

class PulsoColaTest : public BancoEngine {
  protected:
    void Modo(const QString& modo) { configuracio->Modo = modo; }
    // Statements that the engine runs while it does something.
    int Sentencias(const std::function<void()>& hacer) {
        int cuenta = 0;
        motor.PonerGancho([&](const Statement&) { ++cuenta; });
        hacer();
        motor.PonerGancho({});
        return cuenta;
    }
};

TEST_F(PulsoColaTest, AutoSendsTheOldestRowAndFilesIt) {
    ConectarCon(10000);
    PonerFila(500, u"A"_s);
    PonerFila(700, u"B"_s);
    cliente.EsperaCharge(500, 500, 0);
    pulso.ProcesarCola();
    ASSERT_EQ(Cola().size(), 1U);
    EXPECT_EQ(grid.FilasDatos(), 1);
    EXPECT_EQ(controles.Estado().lbContador, u"1 cobros"_s);
    cliente.EsperaCharge(700, 1000, 300);
    pulso.ProcesarCola();
    EXPECT_TRUE(Cola().empty());
    EXPECT_EQ(Procesados().size(), 2U);
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kBien);
    EXPECT_TRUE(pulso.Armado());
    EXPECT_EQ(Activo(), u"0"_s);
}

TEST_F(PulsoColaTest, TheBusyMarkStandsWhileTheDeviceWorks) {
    ConectarCon(10000);
    PonerFila(500);
    cliente.EsperaCharge(500, 500, 0, FinGuion::Ok().Durante([&] { EXPECT_EQ(Activo(), u"1"_s); }));
    pulso.ProcesarCola();
    EXPECT_EQ(Activo(), u"0"_s);
}

TEST_F(PulsoColaTest, ThePulseFooterAndGridRestWhileTheDeviceWorks) {
    ConectarCon(10000);
    PonerFila(500);
    cliente.EsperaCharge(500, 500, 0, FinGuion::Ok().Durante([&] {
        EXPECT_FALSE(controles.Estado().timerCola);
        EXPECT_FALSE(controles.Estado().framePie);
        EXPECT_FALSE(controles.Estado().grdZV);
        EXPECT_FALSE(controles.Estado().boton[BotonPie::DarCambio]);
        EXPECT_FALSE(controles.Estado().boton[BotonPie::Pago]);
    }));
    pulso.ProcesarCola();
    EXPECT_TRUE(controles.Estado().timerCola);
    EXPECT_TRUE(controles.Estado().framePie);
    EXPECT_TRUE(controles.Estado().grdZV);
    EXPECT_TRUE(controles.Estado().boton[BotonPie::DarCambio]);
}

TEST_F(PulsoColaTest, ManualSendsNothingButShowsTheRows) {
    ConectarCon(10000);
    Modo(modo::kManual);
    EscribirIni("[ZVMONITOR]\r\nMODO=MANUAL\r\n");
    PonerFila(500);
    pulso.ProcesarCola();
    EXPECT_EQ(grid.FilasDatos(), 1);
    EXPECT_EQ(Cola().size(), 1U);
}

TEST_F(PulsoColaTest, SemiSendsASingleRow) {
    ConectarCon(10000);
    Modo(modo::kSemi);
    PonerFila(500);
    cliente.EsperaCharge(500, 500, 0);
    pulso.ProcesarCola();
    EXPECT_TRUE(Cola().empty());
}

TEST_F(PulsoColaTest, SemiSendsNothingOfTwoRowsAndRestoresTheWindow) {
    ConectarCon(10000);
    Modo(modo::kSemi);
    ventana.estado = ventana::kMinimizada;
    PonerFila(500);
    PonerFila(600);
    pulso.ProcesarCola();
    EXPECT_EQ(Cola().size(), 2U);
    EXPECT_EQ(ventana.llamadas, (QStringList{u"estado 2"_s, u"al frente"_s}));
}

TEST_F(PulsoColaTest, ManualRestoresAMinimisedWindowForOneRow) {
    Modo(modo::kManual);
    EscribirIni("[ZVMONITOR]\r\nMODO=MANUAL\r\n");
    ventana.estado = ventana::kMinimizada;
    PonerFila(500);
    pulso.ProcesarCola();
    EXPECT_EQ(ventana.estado, ventana::kMaximizada);
}

TEST_F(PulsoColaTest, AnEmptiedQueueMinimisesTheWindowWhenTheSettingSaysSo) {
    ConectarCon(10000);
    configuracio->MINIMIZADO = 1;
    PonerFila(500);
    cliente.EsperaCharge(500, 500, 0);
    pulso.ProcesarCola();
    EXPECT_EQ(ventana.estado, ventana::kNormal);
    pulso.ProcesarCola();
    EXPECT_EQ(ventana.estado, ventana::kMinimizada);
}

TEST_F(PulsoColaTest, AManualRowIsShownButNeverTaken) {
    ConectarCon(10000);
    PonerFila(500, u"M"_s, true);
    for (const QString& modo : {modo::kAuto, modo::kManual, modo::kSemi}) {
        Modo(modo);
        pulso.ProcesarCola();
        EXPECT_EQ(grid.FilasDatos(), 1);
        EXPECT_EQ(Cola().size(), 1U);
    }
}

TEST_F(PulsoColaTest, ARowBehindManualRowsIsTaken) {
    ConectarCon(10000);
    PonerFila(100, u"M"_s, true);
    PonerFila(500, u"N"_s);
    cliente.EsperaCharge(500, 500, 0);
    pulso.ProcesarCola();
    ASSERT_EQ(Cola().size(), 1U);
    EXPECT_EQ(Cola().front().LeerTexto(u"id1"_s), u"M"_s);
}

TEST_F(PulsoColaTest, NothingIsSentWithoutADevice) {
    PonerFila(500);
    pulso.ProcesarCola();
    EXPECT_EQ(Cola().size(), 1U);
    EXPECT_EQ(grid.FilasDatos(), 1);
}

TEST_F(PulsoColaTest, NothingIsSentWhileTheLastResultStands) {
    ConectarCon(10000);
    PonerFila(500);
    pulso.DetectarCambiosCola(); // the look is done: ActualizarEstado will not run in the tick
    entorno.ResultadoEnvio = envio::kCancelado;
    pulso.ProcesarCola();
    EXPECT_EQ(Cola().size(), 1U);
}

TEST_F(PulsoColaTest, ARefundWaitsForTheOperatorAndIsThenPaid) {
    ConectarCon(10000);
    const qint32 id = PonerFila(-800);
    dialogos.EsperaMensaje(u"Abono pendiente"_s, kTextoAbono, Respuesta::Aceptar,
                           EstiloMensaje::Aceptar, [&] {
                               EXPECT_FALSE(pulso.Armado());
                               EXPECT_EQ(Activo(), u"1"_s);
                           });
    cliente.EsperaCharge(-800, 0, 800);
    pulso.ProcesarCola();
    EXPECT_TRUE(Cola().empty());
    const auto filas = Procesados();
    ASSERT_EQ(filas.size(), 1U);
    EXPECT_EQ(filas.front().LeerLong(u"idcola"_s), id);
    EXPECT_EQ(filas.front().LeerCurrency(u"importeVenta"_s), Currency(-800));
}

TEST_F(PulsoColaTest, ARefundThatIsNotAcceptedStaysAndTheModeGoesToManual) {
    ConectarCon(10000);
    ventana.estado = ventana::kMinimizada;
    PonerFila(-800);
    dialogos.EsperaMensaje(u"Abono pendiente"_s, kTextoAbono, Respuesta::Ninguna);
    pulso.ProcesarCola();
    EXPECT_EQ(Cola().size(), 1U);
    EXPECT_TRUE(Procesados().empty());
    EXPECT_EQ(configuracio->Modo, modo::kManual);
    EXPECT_EQ(configuracio->ModoAnterior, modo::kAuto);
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kCancelado);
    EXPECT_EQ(controles.Estado().lbEstado, u"Última operación cancelada. Cambiado a modo MANUAL"_s);
    EXPECT_EQ(ventana.estado, ventana::kMaximizada);
    EXPECT_EQ(Activo(), u"0"_s);
    EXPECT_TRUE(pulso.Armado());
    pulso.ProcesarCola(); // nothing is asked again
}

TEST_F(PulsoColaTest, ACancelGoesToManualAndIsNotSentAgain) {
    ConectarCon(10000);
    PonerFila(500);
    cliente.EsperaCharge(500, 0, 0, FinGuion::Cancelado());
    pulso.ProcesarCola();
    EXPECT_EQ(configuracio->Modo, modo::kManual);
    EXPECT_EQ(configuracio->ModoAnterior, modo::kAuto);
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kCancelado);
    EXPECT_EQ(Cola().size(), 1U);
    pulso.ProcesarCola();
    EXPECT_EQ(Procesados().size(), 1U);
}

TEST_F(PulsoColaTest, ARefusedCreditGoesToManualWithNoRecord) {
    ConectarCon(10000);
    const qint32 id = PonerFila(1000);
    PonerCredito(id, 400);
    dialogos.EsperaMensaje(u"Confirmación de Operación Parcial"_s, testing::_, Respuesta::Cancelar);
    pulso.ProcesarCola();
    EXPECT_EQ(configuracio->Modo, modo::kManual);
    EXPECT_TRUE(Procesados().empty());
    EXPECT_EQ(Activo(), u"0"_s);
}

TEST_F(PulsoColaTest, ADeviceErrorIsShownOnceAndTheRowWaitsInManual) {
    ConectarCon(10000);
    EscribirIni("[ZVMONITOR]\r\nMODO=MANUAL\r\n");
    PonerFila(500);
    cliente.EsperaCharge(500, 0, 0, FinGuion::Error(5, u"Atasco"_s));
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, u"5 - Atasco"_s);
    pulso.ProcesarCola();
    EXPECT_EQ(configuracio->Modo, modo::kManual);
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kBien);
    pulso.ProcesarCola();
    EXPECT_EQ(Cola().size(), 1U);
}

TEST_F(PulsoColaTest, AnErrorRestoresAMinimisedWindow) {
    ConectarCon(10000);
    EscribirIni("[ZVMONITOR]\r\nMODO=MANUAL\r\n");
    ventana.estado = ventana::kMinimizada;
    PonerFila(500);
    cliente.EsperaCharge(500, 0, 0, FinGuion::Error(5, u"Atasco"_s));
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, testing::_);
    pulso.ProcesarCola();
    EXPECT_EQ(ventana.estado, ventana::kMaximizada);
}

TEST_F(PulsoColaTest, ALostLinkIsMendedAndTheSaleSentAgain) {
    ConectarCon(10000);
    PonerFila(500);
    cliente.EsperaCharge(500, 0, 0, FinGuion::EnlacePerdido());
    cliente.EsperaDisconnect();
    cliente.EsperaConnect(FinGuion::Ok());
    cliente.EsperaCharge(500, 500, 0);
    pulso.ProcesarCola();
    EXPECT_TRUE(Cola().empty());
    const auto filas = Procesados();
    ASSERT_EQ(filas.size(), 2U);
    EXPECT_EQ(filas.front().LeerTexto(u"estado"_s), u"ERROR"_s);
    EXPECT_EQ(filas.back().LeerTexto(u"estado"_s), u"OK"_s);
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kBien);
    EXPECT_EQ(configuracio->Modo, modo::kAuto);
}

TEST_F(PulsoColaTest, ALinkThatStaysLostLeavesTheRowInManual) {
    ConectarCon(10000);
    EscribirIni("[ZVMONITOR]\r\nMODO=MANUAL\r\n");
    PonerFila(500);
    cliente.EsperaCharge(500, 0, 0, FinGuion::EnlacePerdido());
    cliente.EsperaDisconnect();
    cliente.EsperaConnect(FinGuion::EnlacePerdido());
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, testing::Truly([](const QString& t) {
                               return t.startsWith(u"Existe un problema"_s);
                           }));
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, u"1 - Enlace perdido"_s);
    pulso.ProcesarCola();
    EXPECT_FALSE(supervision.Conectado());
    EXPECT_EQ(configuracio->Modo, modo::kManual);
    EXPECT_EQ(Cola().size(), 1U);
}

TEST_F(PulsoColaTest, SendingWithoutADeviceSaysNo) {
    const qint32 id = PonerFila(500);
    EXPECT_FALSE(pulso.EnviarConReconexion(id));
    EXPECT_TRUE(controles.Estado().ShapeCritico);
}

TEST_F(PulsoColaTest, AnAbandonedTransactionDoesNotSwallowTheNextSale) {
    ConectarCon(10000);
    const qint32 id = PonerFila(500);
    motor.Comenzar();
    motor.Ejecutar(u"UPDATE cola SET creditoError = 77 WHERE idZV = ?"_s, {id});
    cliente.EsperaCharge(500, 500, 0);
    EXPECT_TRUE(pulso.EnviarConReconexion(id));
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(log.Cuenta(u">>> Transacción abandonada: deshecha"_s), 1);
    SqliteEngine otroSQLite;
    DatabaseEngine& otro = otroSQLite;
    otro.Abrir(CadenaConexion(u"MDB"_s, {}, conexion.RutaFichero(), {}, {}));
    EXPECT_EQ(otro.Consultar(u"SELECT * FROM procesados"_s).size(), 1U);
    EXPECT_TRUE(otro.Consultar(u"SELECT * FROM cola"_s).empty());
}

TEST_F(PulsoColaTest, TheBalanceIsKeptAfterEachSend) {
    ConectarCon(10000);
    PonerFila(500);
    cliente.EsperaCharge(500, 500, 0, FinGuion::Ok().Durante([&] { cliente.PonerTotal(10500); }));
    pulso.ProcesarCola();
    EXPECT_EQ(registro.LeerValor(u"Zorvex\\ZVMonitor"_s, u"Saldo_Exit"_s, QString()), u"10500"_s);
}

TEST_F(PulsoColaTest, WhileTheConnectorWorksNothingRunsButOneLineASecond) {
    ConectarCon(10000);
    PonerFila(500);
    registro.GuardarValor(u"Zorvex\\ZVConnector"_s, u"Activo"_s, u"1"_s);
    EXPECT_EQ(Sentencias([&] {
                  for (int i = 0; i < 50; ++i) {
                      pulso.ProcesarCola();
                  }
              }),
              0);
    EXPECT_EQ(log.Cuenta(u"TIMER_COLA_ZVCONNECTOR_ACTIVO"_s), 1);
    EXPECT_TRUE(pulso.Armado());
    reloj.Avanzar(1000);
    pulso.ProcesarCola();
    EXPECT_EQ(log.Cuenta(u"TIMER_COLA_ZVCONNECTOR_ACTIVO"_s), 2);

    registro.GuardarValor(u"Zorvex\\ZVConnector"_s, u"Activo"_s, u"0"_s);
    cliente.EsperaCharge(500, 500, 0);
    pulso.ProcesarCola();
    EXPECT_TRUE(Cola().empty());
}

TEST_F(PulsoColaTest, TheConnectorsMarkIsANumber) {
    ConectarCon(10000);
    PonerFila(500);
    for (const QString& activo : {u"01"_s, u" 1 "_s}) {
        registro.GuardarValor(u"Zorvex\\ZVConnector"_s, u"Activo"_s, activo);
        pulso.ProcesarCola();
        EXPECT_EQ(Cola().size(), 1U) << activo.toStdString();
    }
    registro.GuardarValor(u"Zorvex\\ZVConnector"_s, u"Activo"_s, u"2"_s);
    cliente.EsperaCharge(500, 500, 0);
    pulso.ProcesarCola();
    EXPECT_TRUE(Cola().empty());
}

TEST_F(PulsoColaTest, AnEmptyQueueIsNoChangeAndAnEmptiedOneIs) {
    EXPECT_FALSE(pulso.DetectarCambiosCola());
    PonerFila(500);
    EXPECT_TRUE(pulso.DetectarCambiosCola());
    EXPECT_FALSE(pulso.DetectarCambiosCola());
    motor.Ejecutar(u"DELETE FROM cola"_s);
    EXPECT_TRUE(pulso.DetectarCambiosCola());
    EXPECT_FALSE(pulso.DetectarCambiosCola());
}

TEST_F(PulsoColaTest, ARowReplacedByAnotherOfTheSameAmountIsAChange) {
    PonerFila(500);
    EXPECT_TRUE(pulso.DetectarCambiosCola());
    motor.Ejecutar(u"DELETE FROM cola"_s);
    PonerFila(500);
    EXPECT_TRUE(pulso.DetectarCambiosCola());
}

TEST_F(PulsoColaTest, ACorrectedAmountIsAChange) {
    const qint32 id = PonerFila(500);
    pulso.DetectarCambiosCola();
    motor.Ejecutar(u"UPDATE cola SET importe = 600 WHERE idZV = ?"_s, {id});
    EXPECT_TRUE(pulso.DetectarCambiosCola());
}

TEST_F(PulsoColaTest, RowsOfNullAmountsAreSeenByTheirNumber) {
    motor.Ejecutar(u"INSERT INTO cola (id1) VALUES ('x')"_s);
    EXPECT_TRUE(pulso.DetectarCambiosCola());
    EXPECT_FALSE(pulso.DetectarCambiosCola());
}

TEST_F(PulsoColaTest, ARowOfAnotherProgramIsSeen) {
    pulso.ProcesarCola();
    SqliteEngine otroSQLite;
    DatabaseEngine& otro = otroSQLite;
    otro.Abrir(CadenaConexion(u"MDB"_s, {}, conexion.RutaFichero(), {}, {}));
    otro.Ejecutar(u"INSERT INTO cola (importe,id1) VALUES (900,'POS')"_s);
    pulso.ProcesarCola();
    EXPECT_EQ(grid.FilasDatos(), 1);
}

TEST_F(PulsoColaTest, AnIdleTickReadsNoRows) {
    ConectarCon(10000);
    for (int i = 0; i < 20; ++i) {
        PonerFila(100, u"M"_s, true);
    }
    pulso.ProcesarCola();
    pulso.ProcesarCola();
    int consultas = 0;
    motor.PonerGancho([&](const Statement& s) {
        consultas += s.sql.contains(u"cola"_s, Qt::CaseInsensitive) ? 1 : 0;
    });
    for (int i = 0; i < 10; ++i) {
        pulso.ProcesarCola();
    }
    motor.PonerGancho({});
    EXPECT_EQ(consultas, 0);
}

TEST_F(PulsoColaTest, TheBracketTouchesTheAccessButtonOnlyWhenItIsUsed) {
    pulso.ArrancaTimer();
    EXPECT_FALSE(controles.Estado().botonAccesoEncima);
    configuracio->BOTONACCESO = 1;
    pulso.ArrancaTimer();
    EXPECT_TRUE(controles.Estado().botonAccesoEncima);
    pulso.ParaTimer();
    EXPECT_FALSE(controles.Estado().botonAccesoEncima);
}

TEST_F(PulsoColaTest, RestoringConcernsOnlyAMinimisedWindow) {
    pulso.RestaurarVentana();
    EXPECT_TRUE(ventana.llamadas.isEmpty());
    ventana.estado = ventana::kMinimizada;
    pulso.RestaurarVentana();
    EXPECT_EQ(ventana.estado, ventana::kMaximizada);
}

TEST_F(PulsoColaTest, AMissingDatabaseIsToldAndThePulseGoesOn) {
    SqliteEngine cerrado;
    ConexionBD rota(cerrado, carpeta.filePath(u"no"_s), log, dialogos, textos);
    Entorno e{rota,      registros,    cliente,  supervision, supervision.LosSaldos(),
              seguretat, configuracio, ini,      RutaIni(),   registro,
              marca,     log,          dialogos, textos,      importes,
              reloj};
    PulsoCola otro(e, controles, grid, estado);
    otro.PonerVentana(&ventana);
    dialogos.EsperaMensaje(u"Error de configuración"_s,
                           u"No se encuentra la base de datos de ZVMonitor"_s);
    otro.ProcesarCola();
    EXPECT_TRUE(otro.Armado());
}

} // namespace zv::test
