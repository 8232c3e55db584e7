// The footer: which button does what, who is asked first, and how the handler is entered and left.
#include "BancoEngine.h"
#include "till/ResultadoEnvio.h"

namespace zv::test {

class BotonesMonitorTest : public BancoEngine {
  protected:
    BotonesMonitorTest() { pulso.ArrancaTimer(); }

    const EstadoControles& C() const { return controles.Estado(); }
    void PonEstado(const QString& texto) { controles.Poner(&EstadoControles::lbEstado, texto); }
};

TEST_F(BotonesMonitorTest, TheHandlerBracketsEveryOperation) {
    entorno.ResultadoEnvio = envio::kCancelado;
    PonEstado(u"antes"_s);
    PonerFila(100);
    estado.RellenarGrid();
    int veces = 0;
    botones.Envolver([&] {
        ++veces;
        EXPECT_FALSE(C().framePie);
        EXPECT_EQ(entorno.ResultadoEnvio, envio::kBien);
        botones.boton_Click(BotonPie::Contrasena); // disabled meanwhile: nothing is opened
        return BotonesMonitor::Salida::Completa;
    });
    EXPECT_EQ(veces, 1);
    EXPECT_TRUE(C().framePie);
    EXPECT_EQ(C().lbEstado, QString());
    EXPECT_EQ(C().lbContador, u"1 cobros"_s);
}

TEST_F(BotonesMonitorTest, AnOperationThatLeavesEarlyArmsThePulseAndNothingElseFollows) {
    PonEstado(u"antes"_s);
    PonerFila(100);
    estado.RellenarGrid();
    const QString contador = C().lbContador;
    botones.Envolver([&] {
        pulso.ParaTimer();
        return BotonesMonitor::Salida::SoloArrancar;
    });
    EXPECT_EQ(C().lbEstado, u"antes"_s);
    EXPECT_EQ(C().lbContador, contador);
    EXPECT_TRUE(pulso.Armado());
    EXPECT_TRUE(C().framePie);
}

TEST_F(BotonesMonitorTest, AnOperationThatDoesNotLeaveEarlyArmsNothingByItself) {
    botones.Envolver([&] {
        pulso.ParaTimer();
        return BotonesMonitor::Salida::Completa;
    });
    EXPECT_FALSE(pulso.Armado());
}

TEST_F(BotonesMonitorTest, ADoorAsksWhoIsThereAndOpensItsScreenWithThePulseStopped) {
    struct Caso {
        BotonPie boton;
        qint16 nivel;
        QString lugar;
        Pantalla pantalla;
    };
    for (const Caso& caso :
         {Caso{BotonPie::Registro, 1, u"authRegistro"_s, Pantalla::Cobros},
          Caso{BotonPie::Caja, 1, u"authCaja"_s, Pantalla::Caja},
          Caso{BotonPie::Incidencias, 0, u"authIncidencias"_s, Pantalla::Incidencias},
          Caso{BotonPie::Configurar, 0, u"authConfiguracion"_s, Pantalla::Configuracion}}) {
        SCOPED_TRACE(caso.lugar.toStdString());
        const auto parada = [this] {
            EXPECT_FALSE(pulso.Armado());
            EXPECT_FALSE(C().framePie);
        };
        pantallas.EsperaValidar(caso.nivel, caso.lugar, true, parada);
        pantallas.EsperaAbrir(caso.pantalla, parada);
        PonEstado(u"antes"_s);
        botones.boton_Click(caso.boton);
        EXPECT_EQ(pantallas.Pendientes(), 0U);
        EXPECT_TRUE(pulso.Armado());
        EXPECT_TRUE(C().framePie);
        EXPECT_EQ(C().lbEstado, QString());
    }
}

TEST_F(BotonesMonitorTest, ChangingOnesOwnPasswordAsksForNoPlace) {
    pantallas.EsperaAbrir(Pantalla::CambioContrasena, [this] { EXPECT_FALSE(pulso.Armado()); });
    botones.boton_Click(BotonPie::Contrasena);
    EXPECT_TRUE(pulso.Armado());
}

TEST_F(BotonesMonitorTest, ARefusedUserOpensNothingAndThePulseGoesOn) {
    PonEstado(u"antes"_s);
    for (const auto& [boton, nivel, lugar] : {std::tuple{BotonPie::Registro, 1, u"authRegistro"_s},
                                              std::tuple{BotonPie::Caja, 1, u"authCaja"_s}}) {
        pantallas.EsperaValidar(static_cast<qint16>(nivel), lugar, false);
        botones.boton_Click(boton);
        EXPECT_TRUE(pulso.Armado());
        EXPECT_TRUE(C().framePie);
    }
    // Only paying out leaves early.
    EXPECT_EQ(C().lbEstado, QString());
}

TEST_F(BotonesMonitorTest, TheCashOfficeLeavesLampsAndButtonsUpToDate) {
    ConectarCon(5000);
    pantallas.EsperaValidar(1, u"authCaja"_s, true);
    pantallas.EsperaAbrir(Pantalla::Caja, [this] {
        EXPECT_FALSE(C().ShapeCritico);
        supervision.MarcarDesconectado();
    });
    botones.boton_Click(BotonPie::Caja);
    EXPECT_TRUE(C().ShapeCritico);
    EXPECT_TRUE(C().boton[BotonPie::Conectar]);
    EXPECT_FALSE(C().boton[BotonPie::Desconectar]);
}

TEST_F(BotonesMonitorTest, SettingsThatHaveBeenSavedAreFollowedAtOnce) {
    ConectarCon(5000);
    grid.ColocarColumnas(*entorno.configuracio, 15000, 300, 480, 48);
    ASSERT_TRUE(C().boton[BotonPie::Pago]);
    ASSERT_EQ(grid.Celdas().ColumnaDe(ColumnaCola::Vendedor).ancho, 0);
    const int antes = grid.Celdas().ColumnaDe(ColumnaCola::Fecha).ancho;
    pantallas.EsperaValidar(0, u"authConfiguracion"_s, true);
    pantallas.EsperaAbrir(Pantalla::Configuracion, [this] {
        entorno.configuracio->BLOQUEARPAGOS = 1;
        entorno.configuracio->COLVENDEDOR = 1;
        entorno.configuracio->Modo = u"SEMI"_s;
    });
    botones.boton_Click(BotonPie::Configurar);
    EXPECT_FALSE(C().boton[BotonPie::Pago]);
    EXPECT_GT(grid.Celdas().ColumnaDe(ColumnaCola::Vendedor).ancho, 0);
    EXPECT_LT(grid.Celdas().ColumnaDe(ColumnaCola::Fecha).ancho, antes);
    EXPECT_TRUE(C().btnModo[2]);
    EXPECT_FALSE(C().ShapeCritico); // the levels have not been asked for
}

TEST_F(BotonesMonitorTest, ADeviceThatTheSettingsHaveLeftShowsSo) {
    ConectarCon(5000);
    pantallas.EsperaValidar(0, u"authConfiguracion"_s, true);
    pantallas.EsperaAbrir(Pantalla::Configuracion, [this] { supervision.MarcarDesconectado(); });
    botones.boton_Click(BotonPie::Configurar);
    EXPECT_TRUE(C().ShapeCritico);
    EXPECT_TRUE(C().boton[BotonPie::Conectar]);
    EXPECT_FALSE(C().boton[BotonPie::Desconectar]);
    EXPECT_FALSE(C().boton[BotonPie::Pago]);
}

TEST_F(BotonesMonitorTest, TheFastLinkIsOpenedAnewOnlyWhenItsPortOrItsSwitchHasChanged) {
    int veces = 0;
    const auto ajustar = [&](std::function<void(Configuracio&)> cambio) {
        veces = 0;
        botones.PonerAbrirFast([&] {
            ++veces;
            EXPECT_FALSE(pulso.Armado());
        });
        pantallas.EsperaValidar(0, u"authConfiguracion"_s, true);
        pantallas.EsperaAbrir(Pantalla::Configuracion, [&] { cambio(*entorno.configuracio); });
        botones.boton_Click(BotonPie::Configurar);
        return veces;
    };
    EXPECT_EQ(ajustar([](Configuracio&) {}), 0);
    EXPECT_EQ(ajustar([](Configuracio& cfg) { cfg.IP = u"otra"_s; }), 0);
    EXPECT_EQ(ajustar([](Configuracio& cfg) { cfg.ZVFastPort = u"17000"_s; }), 1);
    EXPECT_EQ(ajustar([](Configuracio& cfg) { cfg.zvFastActive = !cfg.zvFastActive; }), 1);
    EXPECT_EQ(ajustar([](Configuracio& cfg) { cfg.ZVFastPort = u"17000"_s; }), 0);
    // Another text for the same number is another setting.
    EXPECT_EQ(ajustar([](Configuracio& cfg) { cfg.ZVFastPort = u" 17000"_s; }), 1);
}

TEST_F(BotonesMonitorTest, ConnectAndDisconnectAreTheSupervisions) {
    ConectarCon(5000);
    cliente.EsperaDisconnect();
    botones.boton_Click(BotonPie::Desconectar);
    EXPECT_FALSE(supervision.Conectado());
    cliente.EsperaConnect();
    botones.boton_Click(BotonPie::Conectar);
    EXPECT_TRUE(supervision.Conectado());
    EXPECT_TRUE(C().framePie);
}

TEST_F(BotonesMonitorTest, ADisabledButtonDoesNothing) {
    ASSERT_FALSE(C().boton[BotonPie::Desconectar]);
    botones.boton_Click(BotonPie::Desconectar);
    pulso.ParaTimer();
    botones.boton_Click(BotonPie::Conectar);
    EXPECT_TRUE(cliente.Llamadas().isEmpty());
}

TEST_F(BotonesMonitorTest, ADoorToAScreenThatDoesNotExistIsClosed) {
    ASSERT_TRUE(botones.TieneOperacion(BotonPie::Caja));
    pantallas.faltan = {Pantalla::Caja};
    EXPECT_FALSE(botones.TieneOperacion(BotonPie::Caja));
    EXPECT_TRUE(botones.TieneOperacion(BotonPie::Registro));
    botones.boton_Click(BotonPie::Caja);
    EXPECT_TRUE(pantallas.Llamadas().isEmpty());
}

TEST_F(BotonesMonitorTest, AButtonWithoutAnOperationDoesNothing) {
    PonEstado(u"antes"_s);
    EXPECT_FALSE(botones.TieneOperacion(BotonPie::SinUso));
    botones.boton_Click(BotonPie::SinUso);
    EXPECT_EQ(C().lbEstado, u"antes"_s);
}

} // namespace zv::test
