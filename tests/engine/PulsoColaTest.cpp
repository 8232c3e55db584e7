// The queue pulse: what it looks at, what it sends by the mode, and what it leaves alone.
#include "BancoEngine.h"
#include "config/Modo.h"
#include "platform/StringLiterals.h"
#include "support/NumeroError.h"
#include "till/ResultadoEnvio.h"

#include <QElapsedTimer>

namespace zv::test {

namespace {
const QString kTextoAbono =
    u"RETIRE EL CAMBIO DE\r\nLA OPERACION ANTERIOR\r\n\r\nPulse 'Aceptar' para continuar con el "
    "ABONO\r\n\r\nImporte:8,00 €"_s;
} // namespace

class PulsoColaTest : public BancoEngine {
  protected:
    void Modo(const QString& modo) { configuracio->Modo = modo; }
    // Another program on the same file, which waits for nobody.
    std::unique_ptr<SqliteEngine> Otro() const {
        auto otro = std::make_unique<SqliteEngine>(SqliteOptions{std::chrono::milliseconds(0)});
        otro->Abrir(CadenaConexion(u"MDB"_s, {}, conexion.RutaFichero(), {}, {}));
        return otro;
    }
    bool OtroPuedeEscribir() const {
        const auto otro = Otro();
        return NumeroError([&] {
                   static_cast<DatabaseEngine&>(*otro).Ejecutar(
                       u"UPDATE cola SET id2='POS' WHERE idZV=0"_s);
               }) == 0;
    }
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

TEST_F(PulsoColaTest, ASaleOfNothingIsNoRefundThatSomebodyHasToConfirm) {
    ConectarCon(10000);
    PonerFila(0);
    pulso.ProcesarCola();
    EXPECT_TRUE(Cola().empty());
    EXPECT_EQ(Procesados().size(), 1U);
}

TEST_F(PulsoColaTest, NoCounterLimitsTheWaysBackFromALostLink) {
    ConectarCon(10000);
    PonerFila(500);
    for (int i = 0; i < 5; ++i) {
        cliente.EsperaCharge(500, 0, 0, FinGuion::EnlacePerdido());
        cliente.EsperaDisconnect();
        cliente.EsperaConnect(FinGuion::Ok());
    }
    cliente.EsperaCharge(500, 500, 0);
    pulso.ProcesarCola();
    EXPECT_TRUE(Cola().empty());
    EXPECT_EQ(Procesados().size(), 6U);
}

TEST_F(PulsoColaTest, ARefundIsConfirmedAsTheDeviceWillPayIt) {
    ConectarCon(10000);
    const qint32 id = PonerFila(-800);
    motor.Ejecutar(u"UPDATE cola SET importe = -800.5 WHERE idZV = ?"_s, {id});
    dialogos.EsperaMensaje(u"Abono pendiente"_s, testing::Truly([](const QString& texto) {
                               return texto.endsWith(u"8,00 €"_s);
                           }));
    cliente.EsperaCharge(-800, 0, 800);
    pulso.ProcesarCola();
    EXPECT_TRUE(Cola().empty());
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

TEST_F(PulsoColaTest, AnArmedTickEndsWhatWasLeftOpenBeforeItDoesAnything) {
    PonerFila(500, u"M"_s, true);
    motor.Comenzar();
    motor.Ejecutar(u"UPDATE cola SET creditoError = 77"_s);
    EXPECT_FALSE(OtroPuedeEscribir());
    pulso.ProcesarCola();
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_TRUE(OtroPuedeEscribir());
    EXPECT_EQ(Cola().front().LeerCurrency(u"creditoError"_s), Currency(0));
}

TEST_F(PulsoColaTest, SoDoesATickThatYieldsToTheConnector) {
    registry.GuardarValor(registry_name::kConectorActivo, u"1"_s);
    PonerFila(500, u"M"_s, true);
    motor.Comenzar();
    motor.Ejecutar(u"UPDATE cola SET creditoError = 77"_s);
    pulso.ProcesarCola();
    EXPECT_TRUE(OtroPuedeEscribir());
}

TEST_F(PulsoColaTest, WorkThatAnInnerLevelHasCommittedIsKept) {
    motor.Comenzar();
    motor.Comenzar();
    PonerFila(500, u"M"_s, true);
    motor.Confirmar();
    pulso.ProcesarCola();
    EXPECT_EQ(Otro()->Consultar(u"SELECT * FROM cola"_s).size(), 1U);
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(PulsoColaTest, NothingIsSettledWhileAnOperationRuns) {
    pulso.ParaTimer();
    motor.Comenzar();
    PonerFila(500);
    pulso.SaldarAbandonadas();
    EXPECT_EQ(motor.Nivel(), 1);
    pulso.ArrancaTimer();
    pulso.SaldarAbandonadas();
    EXPECT_EQ(motor.Nivel(), 0);
}

TEST_F(PulsoColaTest, ARowThatVanishesBeforeItsCreditLocksNobodyOut) {
    ConectarCon(10000);
    EscribirIni("[ZVMONITOR]\r\nMODO=MANUAL\r\n");
    PonerFila(500);
    cliente.EsperaCharge(500, 300, 0, FinGuion::Error(5, u"Atasco"_s));
    const auto otro = Otro();
    bool borrada = false;
    motor.PonerGancho([&](const Statement& s) {
        if (s.sql == u"BEGIN IMMEDIATE"_s && !borrada) {
            borrada = true;
            static_cast<DatabaseEngine&>(*otro).Ejecutar(u"DELETE FROM cola"_s);
        }
    });
    // The operator is told; meanwhile the point of sale can write.
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, u"5 - Atasco"_s, Respuesta::Aceptar,
                           EstiloMensaje::Aceptar, [&] {
                               EXPECT_TRUE(borrada);
                               EXPECT_EQ(motor.Nivel(), 0);
                               EXPECT_TRUE(OtroPuedeEscribir());
                           });
    pulso.ProcesarCola();
    motor.PonerGancho({});
    EXPECT_EQ(log.Cuenta(u">>> Error nº 12 al procesar operación nº 1 - la fila ya no está en la "
                         "tabla"_s),
              1);
    EXPECT_EQ(configuracio->Modo, modo::kManual);
    EXPECT_TRUE(Procesados().empty());
}

TEST_F(PulsoColaTest, ARefundBeyondTheDeviceIsToldWithItsAmountAndFailsLikeAnySend) {
    const std::pair<const char*, const char16_t*> casos[] = {
        {"-2147483648", u"21.474.836,48 €"},
        {"-3000000000", u"30.000.000,00 €"},
        {"-922337203685477", u"9.223.372.036.854,77 €"}};
    ConectarCon(10000);
    EscribirIni("[ZVMONITOR]\r\nMODO=AUTO\r\n");
    for (const auto& [importe, mostrado] : casos) {
        entorno.ResultadoEnvio = envio::kBien;
        configuracio->Modo = modo::kAuto;
        motor.Ejecutar(u"DELETE FROM cola"_s);
        motor.Ejecutar(
            u"INSERT INTO cola (importe,id1) VALUES (%1,'R')"_s.arg(QLatin1String(importe)));
        dialogos.EsperaMensaje(
            u"Abono pendiente"_s,
            testing::Truly([fin = QString::fromUtf16(mostrado)](const QString& texto) {
                return texto.endsWith(u"Importe:"_s + fin);
            }),
            Respuesta::Aceptar, EstiloMensaje::Aceptar);
        pulso.ProcesarCola();
        EXPECT_EQ(Cola().size(), 1U) << importe;
        EXPECT_EQ(entorno.ResultadoEnvio, envio::kError) << importe;
        EXPECT_EQ(configuracio->Modo, modo::kManual) << importe;
        EXPECT_EQ(controles.Estado().lbEstado, u"Error de Zorvex. Consulte con su técnico"_s);
        EXPECT_TRUE(pulso.Armado());
        pulso.ProcesarCola(); // nothing is asked again
    }
    EXPECT_TRUE(Procesados().empty());
    EXPECT_EQ(log.CuentaInicio(u">>> Error nº 6 al procesar operación nº "_s), 3);
}

TEST_F(PulsoColaTest, ASearchThatFoundNoRowIsRepeatedOnlyAfterAChange) {
    ConectarCon(10000);
    const qint32 id = PonerFila(500, u"M"_s, true);
    pulso.ProcesarCola();
    int busquedas = 0;
    motor.PonerGancho([&](const Statement& s) {
        busquedas += s.sql.contains(u"ORDER BY idZv LIMIT"_s, Qt::CaseInsensitive) ? 1 : 0;
    });
    pulso.ProcesarCola();
    EXPECT_EQ(busquedas, 0);
    motor.PonerGancho({});
    // A change that the look does not call one: number, id and sum are the same.
    static_cast<DatabaseEngine&>(*Otro()).Ejecutar(u"UPDATE cola SET manual=0 WHERE idZV=?"_s,
                                                   {id});
    cliente.EsperaCharge(500, 500, 0);
    pulso.ProcesarCola();
    EXPECT_TRUE(Cola().empty());
}

TEST_F(PulsoColaTest, TheWindowComesUpOnlyWhereTheOperatorIsNeeded) {
    struct Caso {
        QString modo;
        int filas;
        bool sube;
    };
    EscribirIni("[ZVMONITOR]\r\nMODO=MANUAL\r\n");
    const Caso casos[] = {{modo::kManual, 1, true}, {modo::kManual, 2, true},
                          {modo::kSemi, 1, false},  {modo::kSemi, 2, true},
                          {modo::kAuto, 1, false},  {modo::kAuto, 2, false}};
    for (const Caso& caso : casos) {
        motor.Ejecutar(u"DELETE FROM cola"_s);
        pulso.DetectarCambiosCola();
        Modo(caso.modo);
        ventana.estado = ventana::kMinimizada;
        for (int i = 0; i < caso.filas; ++i) {
            PonerFila(500, u"T"_s, true);
        }
        pulso.ProcesarCola();
        EXPECT_EQ(ventana.estado, caso.sube ? ventana::kMaximizada : ventana::kMinimizada)
            << caso.modo.toStdString() << ' ' << caso.filas;
    }
}

TEST_F(PulsoColaTest, AnEmptyQueueBringsTheWindowDownInEveryModeIfTheSettingIsOne) {
    for (const int minimizado : {0, 1, 2}) {
        for (const QString& m : {modo::kAuto, modo::kManual, modo::kSemi}) {
            PonerFila(500, u"T"_s, true);
            pulso.DetectarCambiosCola();
            motor.Ejecutar(u"DELETE FROM cola"_s);
            Modo(m);
            configuracio->MINIMIZADO = static_cast<quint8>(minimizado);
            ventana.estado = ventana::kNormal;
            pulso.ProcesarCola();
            EXPECT_EQ(ventana.estado, minimizado == 1 ? ventana::kMinimizada : ventana::kNormal)
                << minimizado << ' ' << m.toStdString();
        }
    }
    // A window that is down already is left alone, and one over rows stays up.
    configuracio->MINIMIZADO = 1;
    PonerFila(500, u"T"_s, true);
    ventana.estado = ventana::kNormal;
    pulso.ProcesarCola();
    EXPECT_EQ(ventana.estado, ventana::kNormal);
    motor.Ejecutar(u"DELETE FROM cola"_s);
    ventana.estado = ventana::kMinimizada;
    ventana.llamadas.clear();
    pulso.ProcesarCola();
    EXPECT_TRUE(ventana.llamadas.isEmpty());
}

TEST_F(PulsoColaTest, TheBalanceIsKeptAfterEachSend) {
    ConectarCon(10000);
    PonerFila(500);
    cliente.EsperaCharge(500, 500, 0, FinGuion::Ok().Durante([&] { cliente.PonerTotal(10500); }));
    pulso.ProcesarCola();
    EXPECT_EQ(registry.LeerValor(registry_name::kSaldoExit, QString()), u"10500"_s);
}

TEST_F(PulsoColaTest, WhileTheConnectorWorksNothingRunsButOneLineASecond) {
    ConectarCon(10000);
    PonerFila(500);
    registry.GuardarValor(registry_name::kConectorActivo, u"1"_s);
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

    registry.GuardarValor(registry_name::kConectorActivo, u"0"_s);
    cliente.EsperaCharge(500, 500, 0);
    pulso.ProcesarCola();
    EXPECT_TRUE(Cola().empty());
}

TEST_F(PulsoColaTest, TheConnectorsMarkShowsAtTheNextTickHoweverLongThePulseHasBeatInVain) {
    ConectarCon(10000);
    QElapsedTimer real;
    for (const QString& activo : {u"1"_s, u"0"_s}) {
        for (real.start(); real.elapsed() < 120;) {
            pulso.ProcesarCola();
        }
        registry.GuardarValor(registry_name::kConectorActivo, activo);
        if (activo == u"1"_s) {
            PonerFila(500);
        } else {
            cliente.EsperaCharge(500, 500, 0);
        }
        pulso.ProcesarCola();
    }
    EXPECT_TRUE(Cola().empty());
}

TEST_F(PulsoColaTest, TheConnectorsMarkIsANumber) {
    ConectarCon(10000);
    PonerFila(500);
    for (const QString& activo : {u"01"_s, u" 1 "_s}) {
        registry.GuardarValor(registry_name::kConectorActivo, activo);
        pulso.ProcesarCola();
        EXPECT_EQ(Cola().size(), 1U) << activo.toStdString();
    }
    registry.GuardarValor(registry_name::kConectorActivo, u"2"_s);
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
    ventana.estado = ventana::kMinimizada;
    pulso.RestaurarVentana();
    EXPECT_FALSE(controles.Estado().botonAccesoEncima);
    controles.Poner(&EstadoControles::botonAccesoEncima, true);
    pulso.ParaTimer();
    EXPECT_TRUE(controles.Estado().botonAccesoEncima);
    controles.Poner(&EstadoControles::botonAccesoEncima, false);
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
    EngineGraph sinBase(ServiciosEn(carpeta.filePath(u"no"_s)));
    PulsoCola& otro = sinBase.Partes().pulso;
    otro.PonerVentana(&ventana);
    dialogos.EsperaMensaje(u"Error de configuración"_s,
                           u"No se encuentra la base de datos de ZVMonitor"_s);
    otro.ProcesarCola();
    EXPECT_TRUE(otro.Armado());
}

} // namespace zv::test
