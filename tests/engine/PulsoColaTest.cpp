// The queue pulse: what it looks at, what it sends by the mode, and what it leaves alone.
#include "BancoMotor.h"

namespace zv::test {

namespace {
const QString kTextoAbono = QStringLiteral(
    "RETIRE EL CAMBIO DE\r\nLA OPERACION ANTERIOR\r\n\r\nPulse 'Aceptar' para continuar con el "
    "ABONO\r\n\r\nImporte:8,00 €");
} // namespace

class PulsoColaTest : public BancoMotor {
  protected:
    void Modo(const QString& modo) { configuracio->Modo = modo; }
    // Statements that the engine runs while it does something.
    int Sentencias(const std::function<void()>& hacer) {
        int cuenta = 0;
        motor.PonerGancho([&](const Sentencia&) { ++cuenta; });
        hacer();
        motor.PonerGancho({});
        return cuenta;
    }
};

TEST_F(PulsoColaTest, AutoSendsTheOldestRowAndFilesIt) {
    ConectarCon(10000);
    PonerFila(500, QStringLiteral("A"));
    PonerFila(700, QStringLiteral("B"));
    cliente.EsperaCharge(500, 500, 0);
    pulso.ProcesarCola();
    ASSERT_EQ(Cola().size(), 1U);
    EXPECT_EQ(grid.FilasDatos(), 1);
    EXPECT_EQ(controles.Estado().lbContador, QStringLiteral("1 cobros"));
    cliente.EsperaCharge(700, 1000, 300);
    pulso.ProcesarCola();
    EXPECT_TRUE(Cola().empty());
    EXPECT_EQ(Procesados().size(), 2U);
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kBien);
    EXPECT_TRUE(pulso.Armado());
    EXPECT_EQ(Activo(), QStringLiteral("0"));
}

TEST_F(PulsoColaTest, TheBusyMarkStandsWhileTheDeviceWorks) {
    ConectarCon(10000);
    PonerFila(500);
    cliente.EsperaCharge(500, 500, 0,
                         FinGuion::Ok().Durante([&] { EXPECT_EQ(Activo(), QStringLiteral("1")); }));
    pulso.ProcesarCola();
    EXPECT_EQ(Activo(), QStringLiteral("0"));
}

TEST_F(PulsoColaTest, ThePulseFooterAndGridRestWhileTheDeviceWorks) {
    ConectarCon(10000);
    PonerFila(500);
    cliente.EsperaCharge(500, 500, 0, FinGuion::Ok().Durante([&] {
        EXPECT_FALSE(controles.Estado().timerCola);
        EXPECT_FALSE(controles.Estado().framePie);
        EXPECT_FALSE(controles.Estado().grdZV);
        EXPECT_FALSE(controles.Estado().boton[2]);
        EXPECT_FALSE(controles.Estado().boton[4]);
    }));
    pulso.ProcesarCola();
    EXPECT_TRUE(controles.Estado().timerCola);
    EXPECT_TRUE(controles.Estado().framePie);
    EXPECT_TRUE(controles.Estado().grdZV);
    EXPECT_TRUE(controles.Estado().boton[2]);
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
    EXPECT_EQ(ventana.llamadas,
              (QStringList{QStringLiteral("estado 2"), QStringLiteral("al frente")}));
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
    PonerFila(500, QStringLiteral("M"), true);
    for (const QString& modo : {modo::kAuto, modo::kManual, modo::kSemi}) {
        Modo(modo);
        pulso.ProcesarCola();
        EXPECT_EQ(grid.FilasDatos(), 1);
        EXPECT_EQ(Cola().size(), 1U);
    }
}

TEST_F(PulsoColaTest, ARowBehindManualRowsIsTaken) {
    ConectarCon(10000);
    PonerFila(100, QStringLiteral("M"), true);
    PonerFila(500, QStringLiteral("N"));
    cliente.EsperaCharge(500, 500, 0);
    pulso.ProcesarCola();
    ASSERT_EQ(Cola().size(), 1U);
    EXPECT_EQ(Cola().front().LeerTexto(QStringLiteral("id1")), QStringLiteral("M"));
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
    dialogos.EsperaMensaje(QStringLiteral("Abono pendiente"), kTextoAbono, resultado::kAceptar, 0,
                           [&] {
                               EXPECT_FALSE(pulso.Armado());
                               EXPECT_EQ(Activo(), QStringLiteral("1"));
                           });
    cliente.EsperaCharge(-800, 0, 800);
    pulso.ProcesarCola();
    EXPECT_TRUE(Cola().empty());
    const auto filas = Procesados();
    ASSERT_EQ(filas.size(), 1U);
    EXPECT_EQ(filas.front().LeerLong(QStringLiteral("idcola")), id);
    EXPECT_EQ(filas.front().LeerCurrency(QStringLiteral("importeVenta")), Currency(-800));
}

TEST_F(PulsoColaTest, ARefundThatIsNotAcceptedStaysAndTheModeGoesToManual) {
    ConectarCon(10000);
    ventana.estado = ventana::kMinimizada;
    PonerFila(-800);
    dialogos.EsperaMensaje(QStringLiteral("Abono pendiente"), kTextoAbono, 0);
    pulso.ProcesarCola();
    EXPECT_EQ(Cola().size(), 1U);
    EXPECT_TRUE(Procesados().empty());
    EXPECT_EQ(configuracio->Modo, modo::kManual);
    EXPECT_EQ(configuracio->ModoAnterior, modo::kAuto);
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kCancelado);
    EXPECT_EQ(controles.Estado().lbEstado,
              QStringLiteral("Última operación cancelada. Cambiado a modo MANUAL"));
    EXPECT_EQ(ventana.estado, ventana::kMaximizada);
    EXPECT_EQ(Activo(), QStringLiteral("0"));
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
    dialogos.EsperaMensaje(QStringLiteral("Confirmación de Operación Parcial"), testing::_,
                           resultado::kCancelar);
    pulso.ProcesarCola();
    EXPECT_EQ(configuracio->Modo, modo::kManual);
    EXPECT_TRUE(Procesados().empty());
    EXPECT_EQ(Activo(), QStringLiteral("0"));
}

TEST_F(PulsoColaTest, ADeviceErrorIsShownOnceAndTheRowWaitsInManual) {
    ConectarCon(10000);
    EscribirIni("[ZVMONITOR]\r\nMODO=MANUAL\r\n");
    PonerFila(500);
    cliente.EsperaCharge(500, 0, 0, FinGuion::Error(5, QStringLiteral("Atasco")));
    dialogos.EsperaMensaje(QStringLiteral("Error de Zorvex"), QStringLiteral("5 - Atasco"));
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
    cliente.EsperaCharge(500, 0, 0, FinGuion::Error(5, QStringLiteral("Atasco")));
    dialogos.EsperaMensaje(QStringLiteral("Error de Zorvex"), testing::_);
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
    EXPECT_EQ(filas.front().LeerTexto(QStringLiteral("estado")), QStringLiteral("ERROR"));
    EXPECT_EQ(filas.back().LeerTexto(QStringLiteral("estado")), QStringLiteral("OK"));
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
    dialogos.EsperaMensaje(QStringLiteral("Error de Zorvex"), testing::Truly([](const QString& t) {
                               return t.startsWith(QStringLiteral("Existe un problema"));
                           }));
    dialogos.EsperaMensaje(QStringLiteral("Error de Zorvex"), QStringLiteral("1 - Enlace perdido"));
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
    motor.Ejecutar(QStringLiteral("UPDATE cola SET creditoError = 77 WHERE idZV = ?"), {id});
    cliente.EsperaCharge(500, 500, 0);
    EXPECT_TRUE(pulso.EnviarConReconexion(id));
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(log.Cuenta(QStringLiteral(">>> Transacción abandonada: deshecha")), 1);
    MotorSQLite otroSQLite;
    MotorBD& otro = otroSQLite;
    otro.Abrir(CadenaConexion(QStringLiteral("MDB"), {}, conexion.RutaFichero(), {}, {}));
    EXPECT_EQ(otro.Consultar(QStringLiteral("SELECT * FROM procesados")).size(), 1U);
    EXPECT_TRUE(otro.Consultar(QStringLiteral("SELECT * FROM cola")).empty());
}

TEST_F(PulsoColaTest, TheBalanceIsKeptAfterEachSend) {
    ConectarCon(10000);
    PonerFila(500);
    cliente.EsperaCharge(500, 500, 0, FinGuion::Ok().Durante([&] { cliente.PonerTotal(10500); }));
    pulso.ProcesarCola();
    EXPECT_EQ(registro.LeerValor(QStringLiteral("Zorvex\\ZVMonitor"), QStringLiteral("Saldo_Exit"),
                                 QString()),
              QStringLiteral("10500"));
}

TEST_F(PulsoColaTest, WhileTheConnectorWorksNothingRunsButOneLineASecond) {
    ConectarCon(10000);
    PonerFila(500);
    registro.GuardarValor(QStringLiteral("Zorvex\\ZVConnector"), QStringLiteral("Activo"),
                          QStringLiteral("1"));
    EXPECT_EQ(Sentencias([&] {
                  for (int i = 0; i < 50; ++i) {
                      pulso.ProcesarCola();
                  }
              }),
              0);
    EXPECT_EQ(log.Cuenta(QStringLiteral("TIMER_COLA_ZVCONNECTOR_ACTIVO")), 1);
    EXPECT_TRUE(pulso.Armado());
    reloj.Avanzar(1000);
    pulso.ProcesarCola();
    EXPECT_EQ(log.Cuenta(QStringLiteral("TIMER_COLA_ZVCONNECTOR_ACTIVO")), 2);

    registro.GuardarValor(QStringLiteral("Zorvex\\ZVConnector"), QStringLiteral("Activo"),
                          QStringLiteral("0"));
    cliente.EsperaCharge(500, 500, 0);
    pulso.ProcesarCola();
    EXPECT_TRUE(Cola().empty());
}

TEST_F(PulsoColaTest, TheConnectorsMarkIsANumber) {
    ConectarCon(10000);
    PonerFila(500);
    for (const QString& activo : {QStringLiteral("01"), QStringLiteral(" 1 ")}) {
        registro.GuardarValor(QStringLiteral("Zorvex\\ZVConnector"), QStringLiteral("Activo"),
                              activo);
        pulso.ProcesarCola();
        EXPECT_EQ(Cola().size(), 1U) << activo.toStdString();
    }
    registro.GuardarValor(QStringLiteral("Zorvex\\ZVConnector"), QStringLiteral("Activo"),
                          QStringLiteral("2"));
    cliente.EsperaCharge(500, 500, 0);
    pulso.ProcesarCola();
    EXPECT_TRUE(Cola().empty());
}

TEST_F(PulsoColaTest, AnEmptyQueueIsNoChangeAndAnEmptiedOneIs) {
    EXPECT_FALSE(pulso.DetectarCambiosCola());
    PonerFila(500);
    EXPECT_TRUE(pulso.DetectarCambiosCola());
    EXPECT_FALSE(pulso.DetectarCambiosCola());
    motor.Ejecutar(QStringLiteral("DELETE FROM cola"));
    EXPECT_TRUE(pulso.DetectarCambiosCola());
    EXPECT_FALSE(pulso.DetectarCambiosCola());
}

TEST_F(PulsoColaTest, ARowReplacedByAnotherOfTheSameAmountIsAChange) {
    PonerFila(500);
    EXPECT_TRUE(pulso.DetectarCambiosCola());
    motor.Ejecutar(QStringLiteral("DELETE FROM cola"));
    PonerFila(500);
    EXPECT_TRUE(pulso.DetectarCambiosCola());
}

TEST_F(PulsoColaTest, ACorrectedAmountIsAChange) {
    const qint32 id = PonerFila(500);
    pulso.DetectarCambiosCola();
    motor.Ejecutar(QStringLiteral("UPDATE cola SET importe = 600 WHERE idZV = ?"), {id});
    EXPECT_TRUE(pulso.DetectarCambiosCola());
}

TEST_F(PulsoColaTest, RowsOfNullAmountsAreSeenByTheirNumber) {
    motor.Ejecutar(QStringLiteral("INSERT INTO cola (id1) VALUES ('x')"));
    EXPECT_TRUE(pulso.DetectarCambiosCola());
    EXPECT_FALSE(pulso.DetectarCambiosCola());
}

TEST_F(PulsoColaTest, ARowOfAnotherProgramIsSeen) {
    pulso.ProcesarCola();
    MotorSQLite otroSQLite;
    MotorBD& otro = otroSQLite;
    otro.Abrir(CadenaConexion(QStringLiteral("MDB"), {}, conexion.RutaFichero(), {}, {}));
    otro.Ejecutar(QStringLiteral("INSERT INTO cola (importe,id1) VALUES (900,'POS')"));
    pulso.ProcesarCola();
    EXPECT_EQ(grid.FilasDatos(), 1);
}

TEST_F(PulsoColaTest, AnIdleTickReadsNoRows) {
    ConectarCon(10000);
    for (int i = 0; i < 20; ++i) {
        PonerFila(100, QStringLiteral("M"), true);
    }
    pulso.ProcesarCola();
    pulso.ProcesarCola();
    int consultas = 0;
    motor.PonerGancho([&](const Sentencia& s) {
        consultas += s.sql.contains(QStringLiteral("cola"), Qt::CaseInsensitive) ? 1 : 0;
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
    MotorSQLite cerrado;
    ConexionBD rota(cerrado, carpeta.filePath(QStringLiteral("no")), log, dialogos, textos);
    Entorno e{rota,     registros, cliente, supervision, seguretat, configuracio, ini,  RutaIni(),
              registro, marca,     log,     dialogos,    textos,    importes,     reloj};
    PulsoCola otro(e, controles, grid, estado);
    otro.PonerVentana(&ventana);
    dialogos.EsperaMensaje(QStringLiteral("Error de configuración"),
                           QStringLiteral("No se encuentra la base de datos de ZVMonitor"));
    otro.ProcesarCola();
    EXPECT_TRUE(otro.Armado());
}

} // namespace zv::test
