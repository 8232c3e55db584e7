// What the main screen says: counters, state line, buttons, modes and paging.
#include "BancoEngine.h"
#include "config/Modo.h"
#include "platform/StringLiterals.h"
#include "till/ResultadoEnvio.h"

namespace zv::test {

class EstadoMonitorTest : public BancoEngine {
  protected:
    const EstadoControles& C() const { return controles.Estado(); }
    void PonerFilas(int cuantas) {
        for (int i = 0; i < cuantas; ++i) {
            PonerFila(100 + i);
        }
        estado.RellenarGrid();
    }
    // The operation's own end; the client has failed once more since.
    void PonerFallo(qint16 codigo, const QString& mensaje) {
        entorno.codigoEnvio = codigo;
        entorno.mensajeEnvio = mensaje;
        cliente.PonerError(31, u"Puerta abierta"_s);
    }
};

TEST_F(EstadoMonitorTest, StartsWithTheWordsOfTheStart) {
    EXPECT_EQ(C().lbContador, u"Comprobando operaciones pendientes..."_s);
    EXPECT_EQ(C().lbEstado, u"Inicializando..."_s);
}

TEST_F(EstadoMonitorTest, AnEmptyQueueHasNoPages) {
    estado.RellenarGrid();
    estado.ActualizarEstado(true);
    EXPECT_EQ(C().lbContador, u"0 cobros"_s);
    EXPECT_FALSE(C().btnArriba);
    EXPECT_FALSE(C().btnAbajo);
    EXPECT_EQ(C().lbEstado, QString());
}

TEST_F(EstadoMonitorTest, ChargesAndRefundsAreCountedApart) {
    PonerFila(100);
    PonerFila(0);
    PonerFila(-100);
    estado.RellenarGrid();
    estado.ActualizarEstado(true);
    EXPECT_EQ(C().lbContador, u"2 cobros / 1 abonos"_s);
}

TEST_F(EstadoMonitorTest, ACancelWithOtherRowsStaysInManual) {
    configuracio->Modo = modo::kManual;
    configuracio->ModoAnterior = modo::kAuto;
    estado.PonerUltimaCuenta(2);
    entorno.ResultadoEnvio = envio::kCancelado;
    estado.ActualizarEstado(true);
    EXPECT_EQ(C().lbEstado, u"Última operación cancelada. Cambiado a modo MANUAL"_s);
    EXPECT_EQ(configuracio->Modo, modo::kManual);
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kCancelado);
}

TEST_F(EstadoMonitorTest, ACancelInAModeThatWasNotAutoStaysInManual) {
    configuracio->Modo = modo::kManual;
    configuracio->ModoAnterior = modo::kSemi;
    entorno.ResultadoEnvio = envio::kCancelado;
    estado.ActualizarEstado(true);
    EXPECT_EQ(C().lbEstado, u"Última operación cancelada. Cambiado a modo MANUAL"_s);
    EXPECT_EQ(configuracio->Modo, modo::kManual);
}

TEST_F(EstadoMonitorTest, ACancelWithAnEmptyQueueReturnsToAuto) {
    configuracio->Modo = modo::kManual;
    configuracio->ModoAnterior = modo::kAuto;
    entorno.ResultadoEnvio = envio::kCancelado;
    estado.ActualizarEstado(true);
    EXPECT_EQ(C().lbEstado, u"Última operación cancelada. Cambiado a modo AUTOMATICO"_s);
    EXPECT_EQ(configuracio->Modo, modo::kAuto);
    EXPECT_EQ(configuracio->ModoAnterior, modo::kManual);
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kBien);
    EXPECT_TRUE(C().btnModo[0]);
}

TEST_F(EstadoMonitorTest, ADeviceErrorIsShownOnceWithItsWords) {
    entorno.ResultadoEnvio = envio::kError;
    PonerFallo(12, u"Sin cambio"_s);
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, u"12 - Sin cambio"_s);
    estado.ActualizarEstado(true);
    EXPECT_EQ(C().lbEstado, u"Error 12 - Sin cambio. Consulte con su técnico"_s);
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kBien);
    estado.ActualizarEstado(true);
    EXPECT_EQ(C().lbEstado, QString());
}

// A tick under the box of a failure, with a sale that came in meanwhile.
TEST_F(EstadoMonitorTest, UnderTheBoxOfAFailureItIsNotToldAgainAndNothingIsSent) {
    ConectarCon(50000);
    entorno.ResultadoEnvio = envio::kError;
    PonerFallo(12, u"Sin cambio"_s);
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, u"12 - Sin cambio"_s, Respuesta::Aceptar,
                           std::nullopt, [this] {
                               PonerFila(100);
                               pulso.ProcesarCola();
                               pulso.ProcesarCola();
                               EXPECT_EQ(C().lbContador, u"1 cobros"_s);
                               EXPECT_EQ(entorno.ResultadoEnvio, envio::kError);
                           });
    estado.ActualizarEstado(true);
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kBien);
    EXPECT_EQ(configuracio->Modo, modo::kAuto);
    // And is sent afterwards.
    cliente.EsperaCharge(100, 100, 0);
    pulso.ProcesarCola();
    EXPECT_TRUE(Cola().empty());
}

TEST_F(EstadoMonitorTest, AnErrorWithoutACodeAsksNothingAndStands) {
    entorno.ResultadoEnvio = envio::kError;
    estado.ActualizarEstado(true);
    EXPECT_EQ(C().lbEstado, u"Error de Zorvex. Consulte con su técnico"_s);
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kError);
}

TEST_F(EstadoMonitorTest, AModeForcedToManualReturnsWhenTheFileSaysAuto) {
    EscribirIni("[ZVMONITOR]\r\nMODO=AUTO\r\n");
    configuracio->Modo = modo::kManual;
    estado.ActualizarEstado(false);
    EXPECT_EQ(configuracio->Modo, modo::kManual);
    estado.ActualizarEstado(true);
    EXPECT_EQ(configuracio->Modo, modo::kAuto);
    EXPECT_EQ(configuracio->ModoAnterior, modo::kManual);
}

TEST_F(EstadoMonitorTest, WithoutTheKeyManualStays) {
    configuracio->Modo = modo::kManual;
    estado.ActualizarEstado(true);
    EXPECT_EQ(configuracio->Modo, modo::kManual);
    EXPECT_TRUE(C().btnModo[1]);
}

TEST_F(EstadoMonitorTest, AModeButtonSetsItsModeAndClearsTheResult) {
    entorno.ResultadoEnvio = envio::kCancelado;
    estado.PulsarModo(2);
    EXPECT_EQ(configuracio->Modo, modo::kSemi);
    EXPECT_EQ(configuracio->ModoAnterior, modo::kAuto);
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kBien);
    EXPECT_EQ(C().btnModo, (std::array<bool, 3>{false, false, true}));
    estado.PulsarModo(1);
    EXPECT_EQ(configuracio->Modo, modo::kManual);
    estado.PulsarModo(0);
    EXPECT_EQ(configuracio->Modo, modo::kAuto);
}

TEST_F(EstadoMonitorTest, AModeSetByHandIsNotWrittenAndReturnsOnlyWithTheNextGoodRefresh) {
    const QByteArray contenido("[ZVMONITOR]\r\nMODO=AUTO\r\n");
    EscribirIni(contenido);
    estado.PulsarModo(1);
    EXPECT_EQ(configuracio->Modo, modo::kManual);
    EXPECT_TRUE(C().btnModo[1]);
    QFile fichero(RutaIni());
    ASSERT_TRUE(fichero.open(QIODevice::ReadOnly));
    EXPECT_EQ(fichero.readAll(), contenido);
    estado.ActualizarEstado(true);
    EXPECT_EQ(configuracio->Modo, modo::kAuto);
}

TEST_F(EstadoMonitorTest, OnlyManualReturnsByTheFile) {
    EscribirIni("[ZVMONITOR]\r\nMODO=AUTO\r\n");
    configuracio->Modo = modo::kSemi;
    estado.ActualizarEstado(true);
    EXPECT_EQ(configuracio->Modo, modo::kSemi);
    EscribirIni("[ZVMONITOR]\r\nMODO=SEMI\r\n");
    configuracio->Modo = modo::kManual;
    estado.ActualizarEstado(true);
    EXPECT_EQ(configuracio->Modo, modo::kManual);
}

TEST_F(EstadoMonitorTest, TheWordsComeFromTheLanguageFileEvenTheModes) {
    QFile fichero(carpeta.filePath(u"RWLang.ini"_s));
    ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
    fichero.write("[COMMON]\r\ncobros=charges\r\nabonos=refunds\r\noperacionCancelada=stopped\r\n"
                  "operacionCancelada2=stopped, auto\r\nerrorDeZorvex=Fault\r\n"
                  "errorDeZorvex3=see the technician\r\nbtnModo_2=HALF\r\n");
    fichero.close();
    PonerFila(-100);
    estado.RellenarGrid();
    estado.PonerUltimaCuenta(1);
    entorno.ResultadoEnvio = envio::kCancelado;
    estado.ActualizarEstado(true);
    EXPECT_EQ(C().lbContador, u"0 charges / 1 refunds"_s);
    EXPECT_EQ(C().lbEstado, u"stopped"_s);
    configuracio->ModoAnterior = modo::kAuto;
    estado.PonerUltimaCuenta(0);
    estado.ActualizarEstado(true);
    EXPECT_EQ(C().lbEstado, u"stopped, auto"_s);
    entorno.ResultadoEnvio = envio::kError;
    estado.ActualizarEstado(true);
    EXPECT_EQ(C().lbEstado, u"see the technician"_s);
    PonerFallo(12, u"Sin cambio"_s);
    dialogos.EsperaMensaje(u"Fault"_s, u"12 - Sin cambio"_s);
    estado.ActualizarEstado(true);
    EXPECT_EQ(C().lbEstado, u"see the technician"_s);
    estado.PulsarModo(2);
    EXPECT_EQ(configuracio->Modo, u"HALF"_s);
    EXPECT_EQ(C().btnModo, (std::array<bool, 3>{false, false, false}));
}

TEST_F(EstadoMonitorTest, ButtonsFollowTheConnectionAndThePermission) {
    estado.ActualizarBotonesMonitor(true);
    EXPECT_TRUE(C().boton[BotonPie::Conectar]);
    EXPECT_FALSE(C().boton[BotonPie::Desconectar]);
    for (const BotonPie i :
         {BotonPie::DarCambio, BotonPie::AnadirCambio, BotonPie::Pago, BotonPie::CobroManual}) {
        EXPECT_TRUE(C().boton[i]) << static_cast<std::size_t>(i);
    }
    EXPECT_FALSE(C().boton[BotonPie::AgruparCobros]);
    estado.PonerUltimaCuenta(1);
    estado.ActualizarBotonesMonitor(true);
    EXPECT_FALSE(C().boton[BotonPie::AgruparCobros]);
    estado.PonerUltimaCuenta(2);
    estado.ActualizarBotonesMonitor(true);
    EXPECT_TRUE(C().boton[BotonPie::AgruparCobros]);
    estado.ActualizarBotonesMonitor(false);
    for (const BotonPie i : {BotonPie::DarCambio, BotonPie::AnadirCambio, BotonPie::Pago,
                             BotonPie::CobroManual, BotonPie::AgruparCobros}) {
        EXPECT_FALSE(C().boton[i]) << static_cast<std::size_t>(i);
    }
    ConectarCon(100);
    EXPECT_FALSE(C().boton[BotonPie::Conectar]);
    EXPECT_TRUE(C().boton[BotonPie::Desconectar]);
}

TEST_F(EstadoMonitorTest, BlockedPaymentsDisableTheirButton) {
    configuracio->BLOQUEARPAGOS = 1;
    estado.ActualizarBotonesMonitor(true);
    EXPECT_FALSE(C().boton[BotonPie::Pago]);
    EXPECT_TRUE(C().boton[BotonPie::AnadirCambio]);
}

TEST_F(EstadoMonitorTest, PagesStopAtBothEnds) {
    PonerFilas(10);
    grid.ColocarColumnas(*configuracio, 15000, 300, 400, 100); // 3 rows a page
    estado.ActualizarEstado(true);
    EXPECT_EQ(grid.Celdas().Pagina(), 3);
    EXPECT_FALSE(C().btnArriba);
    EXPECT_TRUE(C().btnAbajo);
    estado.PaginaAbajo();
    EXPECT_EQ(grid.Celdas().FilaSuperior(), 4);
    EXPECT_EQ(grid.Celdas().FilaActual(), 4);
    EXPECT_TRUE(C().btnArriba);
    estado.PaginaAbajo();
    estado.PaginaAbajo();
    EXPECT_EQ(grid.Celdas().FilaSuperior(), 10);
    EXPECT_FALSE(C().btnAbajo);
    estado.PaginaAbajo();
    EXPECT_EQ(grid.Celdas().FilaSuperior(), 10);
    estado.PaginaArriba();
    EXPECT_EQ(grid.Celdas().FilaSuperior(), 7);
    estado.PaginaArriba();
    estado.PaginaArriba();
    estado.PaginaArriba();
    EXPECT_EQ(grid.Celdas().FilaSuperior(), 1);
}

TEST_F(EstadoMonitorTest, TheNextPageButtonGoesOutWhenTheLastRowIsInView) {
    PonerFilas(4);
    grid.ColocarColumnas(*configuracio, 15000, 300, 400, 100);
    estado.ActualizarEstado(true);
    EXPECT_TRUE(C().btnAbajo);
    estado.FilaAbajo();
    EXPECT_FALSE(C().btnAbajo);
}

TEST_F(EstadoMonitorTest, PagingAndScrollingAreGoodRefreshes) {
    PonerFilas(10);
    grid.ColocarColumnas(*configuracio, 15000, 300, 400, 100);
    EscribirIni("[ZVMONITOR]\r\nMODO=AUTO\r\n");
    const std::array<std::function<void()>, 3> gestos{[this] { estado.PaginaAbajo(); },
                                                      [this] { estado.PaginaArriba(); },
                                                      [this] { estado.FilaAbajo(); }};
    for (const auto& gesto : gestos) {
        configuracio->Modo = modo::kManual;
        gesto();
        EXPECT_EQ(configuracio->Modo, modo::kAuto);
    }
}

TEST_F(EstadoMonitorTest, KeysMoveTheTopRowByOne) {
    PonerFilas(2);
    estado.FilaArriba();
    EXPECT_EQ(grid.Celdas().FilaSuperior(), 1);
    estado.FilaAbajo();
    EXPECT_EQ(grid.Celdas().FilaSuperior(), 2);
    estado.FilaAbajo();
    EXPECT_EQ(grid.Celdas().FilaSuperior(), 2);
    estado.FilaArriba();
    EXPECT_EQ(grid.Celdas().FilaSuperior(), 1);
}

TEST_F(EstadoMonitorTest, AListThatFitsIntoAPageDoesNotMove) {
    PonerFilas(3);
    grid.ColocarColumnas(*configuracio, 15000, 300, 400, 100);
    for (const auto& gesto : std::array<std::function<void()>, 2>{
             [this] { estado.FilaAbajo(); }, [this] { estado.PaginaAbajo(); }}) {
        gesto();
        EXPECT_EQ(grid.Celdas().FilaSuperior(), 1);
        EXPECT_FALSE(C().btnArriba);
        EXPECT_FALSE(C().btnAbajo);
    }
}

TEST_F(EstadoMonitorTest, ALargerPageBringsAListThatFitsBackToItsStart) {
    PonerFilas(5);
    grid.ColocarColumnas(*configuracio, 15000, 300, 400, 100);
    estado.PaginaAbajo();
    EXPECT_TRUE(C().btnArriba);
    grid.ColocarColumnas(*configuracio, 15000, 300, 600, 100);
    estado.ActualizarPaginas();
    EXPECT_EQ(grid.Celdas().FilaSuperior(), 1);
    EXPECT_FALSE(C().btnArriba);
    EXPECT_FALSE(C().btnAbajo);
}

TEST_F(EstadoMonitorTest, AFailedRefillIsShownAndNotRaised) {
    motor.PonerGancho([](const Statement&) { throw ErrorEjecucion(10, u"roto"_s); });
    dialogos.EsperaMensaje(QString(), u"Error nº 10 - roto"_s);
    estado.RellenarGrid();
    motor.PonerGancho({});
    EXPECT_FALSE(C().punteroEspera);
}

} // namespace zv::test
