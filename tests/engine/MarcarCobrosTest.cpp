// Grouped charges: rows are marked, until the group is charged or the marking given up.
#include "BancoAgrupar.h"
#include "engine/CobrosAgrupados.h"
#include "store/Palabras.h"
#include "store/dades.h"
#include "support/GanchoFallos.h"
#include "till/ResultadoEnvio.h"

#include <limits>

namespace zv::test {

class MarcarCobrosTest : public BancoAgrupar {
  protected:
    void SetUp() override {
        BancoAgrupar::SetUp();
        PonerVenta(1000, u"A"_s);
        PonerVenta(250, u"B"_s);
        PonerVenta(-300, u"C"_s);
        Mirar();
    }
    // The row has the colours of marking; false when it has its own.
    bool Resaltada(int fila) const {
        int marcadas = 0;
        for (int columna = 0; columna < ColumnaCola::Cuantas; ++columna) {
            const bool boton = columna == 0 || columna == 10;
            const ColorCelda color = boton ? ColorRGB(145, 207, 77) : ColorRGB(255, 190, 0);
            const ColorCelda fondo = grid.Celdas().AspectoDe(fila, columna).fondo;
            EXPECT_TRUE(fondo == color || fondo == 0) << fila << " " << columna;
            marcadas += fondo == color ? 1 : 0;
        }
        EXPECT_TRUE(marcadas == 0 || marcadas == ColumnaCola::Cuantas) << marcadas;
        return marcadas > 0;
    }
    QString Linea() const { return C().aviso.texto + u" | "_s + C().aviso.importe; }
};

TEST_F(MarcarCobrosTest, TheButtonNeedsADeviceAndTwoRows) {
    EXPECT_TRUE(botones.TieneOperacion(BotonPie::AgruparCobros));
    EXPECT_TRUE(C().boton[BotonPie::AgruparCobros]);
    motor.Ejecutar(u"DELETE FROM cola WHERE idZV > 1"_s);
    Mirar();
    EXPECT_FALSE(C().boton[BotonPie::AgruparCobros]);
    Agrupar();
    EXPECT_FALSE(estado.Agrupando());
}

TEST_F(MarcarCobrosTest, ItsPressStopsThePulseAndLeavesGridFooterAndItselfOn) {
    motor.Ejecutar(u"INSERT INTO cola (importe,id1) VALUES (5,'D')"_s);
    entorno.ResultadoEnvio = envio::kCancelado;
    Agrupar();
    EXPECT_TRUE(estado.Agrupando());
    EXPECT_FALSE(pulso.Armado());
    EXPECT_TRUE(C().framePie);
    EXPECT_TRUE(C().grdZV);
    EXPECT_TRUE(C().agrupando);
    for (const BotonPie boton : {BotonPie::DarCambio, BotonPie::AnadirCambio, BotonPie::Pago,
                                 BotonPie::CobroManual, BotonPie::Conectar}) {
        EXPECT_FALSE(C().boton[boton]) << static_cast<int>(boton);
    }
    EXPECT_TRUE(C().boton[BotonPie::AgruparCobros]);
    EXPECT_TRUE(C().boton[BotonPie::Desconectar]);
    EXPECT_EQ(grid.FilasDatos(), 4); // refilled
    EXPECT_EQ(C().lbContador, u"3 cobros / 1 abonos"_s);
    EXPECT_EQ(C().lbEstado, QString());
    EXPECT_EQ(entorno.ResultadoEnvio, envio::kBien);
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(MarcarCobrosTest, AClickAnywhereInARowMarksItAndAnotherOneUnmarksIt) {
    Agrupar();
    ClicEnFila(2, ColumnaCola::Importe);
    EXPECT_FALSE(Resaltada(1));
    EXPECT_TRUE(Resaltada(2));
    ClicEnFila(1, ColumnaCola::Enviar); // nothing is sent
    ClicEnFila(3, ColumnaCola::Anular); // nor annulled
    EXPECT_TRUE(Resaltada(1));
    EXPECT_TRUE(Resaltada(3));
    ClicEnFila(2, ColumnaCola::Fecha);
    EXPECT_FALSE(Resaltada(2));
    EXPECT_TRUE(Resaltada(1));
    EXPECT_EQ(Cola().size(), 3U);
    EXPECT_TRUE(pantallas.Llamadas().isEmpty());
    EXPECT_FALSE(pulso.Armado());
}

TEST_F(MarcarCobrosTest, OnlyRowsOfDataAreMarked) {
    Agrupar();
    clic.grdZV_MouseUp(0, 5, false);
    clic.grdZV_MouseUp(3, 5, true);
    clic.grdZV_MouseUp(1, -1, false);
    EXPECT_FALSE(Resaltada(1));
    EXPECT_FALSE(Resaltada(3));
}

TEST_F(MarcarCobrosTest, IdsAreKeptInTheOrderOfMarking) {
    CobrosAgrupados sujeto(entorno, controles, grid, estado, pulso);
    sujeto.Pulsar();
    const auto marcar = [&](int fila) {
        grid.Celdas().PonerCeldaActual(fila, 3);
        sujeto.MarcarFila();
        return sujeto.Marcados();
    };
    EXPECT_EQ(marcar(3), u"3"_s);
    EXPECT_EQ(marcar(1), u"3,1"_s);
    EXPECT_EQ(marcar(2), u"3,1,2"_s);
    EXPECT_EQ(marcar(1), u"3,2"_s);
    EXPECT_EQ(marcar(1), u"3,2,1"_s);
    EXPECT_EQ(marcar(3), u"2,1"_s);
    EXPECT_EQ(marcar(2), u"1"_s);
    EXPECT_EQ(marcar(1), QString());
    EXPECT_EQ(marcar(2), u"2"_s);
    // The next marking begins with none.
    EsperaPermiso(false);
    sujeto.Pulsar();
    sujeto.Pulsar();
    EXPECT_EQ(sujeto.Marcados(), QString());
}

TEST_F(MarcarCobrosTest, AnIdWithinAnotherOneIsNotTakenForIt) {
    for (int i = 4; i <= 12; ++i) {
        PonerFila(100);
    }
    Mirar();
    CobrosAgrupados sujeto(entorno, controles, grid, estado, pulso);
    sujeto.Pulsar();
    for (const int fila : {12, 1, 2, 11, 1}) {
        grid.Celdas().PonerCeldaActual(fila, 3);
        sujeto.MarcarFila();
    }
    EXPECT_EQ(sujeto.Marcados(), u"12,2,11"_s);
}

TEST_F(MarcarCobrosTest, TheLineTellsHowManyAndWhatSum) {
    Agrupar();
    EXPECT_EQ(C().aviso.tono, LineaAviso::Tono::Agrupando);
    EXPECT_EQ(Linea(),
              u"Toque los cobros que se pagan juntos, o pulse Agrupar cobros para dejarlo | "_s);
    ClicEnFila(1);
    EXPECT_EQ(Linea(), u"Marcados: 1. Pulse Agrupar cobros para cobrarlos | Suma: 10,00 €"_s);
    ClicEnFila(2);
    ClicEnFila(3);
    EXPECT_EQ(Linea(), u"Marcados: 3. Pulse Agrupar cobros para cobrarlos | Suma: 9,50 €"_s);
    ClicEnFila(1);
    EXPECT_EQ(Linea(), u"Marcados: 2. Pulse Agrupar cobros para cobrarlos | Suma: -0,50 €"_s);
    ClicEnFila(2);
    ClicEnFila(3);
    EXPECT_EQ(C().aviso.importe, QString());
    EXPECT_EQ(C().aviso.texto.left(5), u"Toque"_s);
    Agrupar();
    EXPECT_EQ(C().aviso, LineaAviso());
}

TEST_F(MarcarCobrosTest, ASumTooLargeForTheDeviceIsToldWholeAndOneThatIsNoneIsToldToo) {
    motor.Ejecutar(u"UPDATE cola SET importe = 2147483647 WHERE idZV < 3"_s);
    Marcar({1, 2});
    EXPECT_EQ(C().aviso.importe, u"Suma: 42.949.672,94 €"_s);
    motor.Ejecutar(u"UPDATE cola SET importe = '900000000000000' WHERE idZV < 3"_s);
    ClicEnFila(3);
    EXPECT_EQ(Linea(), u"Marcados: 3. Pulse Agrupar cobros para cobrarlos | No se pueden sumar"_s);
}

TEST_F(MarcarCobrosTest, TheLineCountsWhatWouldBeCharged) {
    Marcar({1, 2});
    Otro()->Ejecutar(u"DELETE FROM cola WHERE idZV = 1"_s);
    ClicEnFila(3);
    EXPECT_EQ(Linea(), u"Marcados: 2. Pulse Agrupar cobros para cobrarlos | Suma: -0,50 €"_s);
}

TEST_F(MarcarCobrosTest, PicturesOfTheGridRestWhileItIsMarked) {
    EXPECT_TRUE(C().puedeAnular);
    EXPECT_TRUE(C().puedeEnviar);
    Agrupar();
    EXPECT_FALSE(C().puedeAnular);
    EXPECT_FALSE(C().puedeEnviar);
    Agrupar();
    EXPECT_TRUE(C().puedeAnular);
    EXPECT_TRUE(C().puedeEnviar);
}

TEST_F(MarcarCobrosTest, LeavingWithNothingMarkedAsksNobodyAndGoesOn) {
    Agrupar();
    motor.Ejecutar(u"INSERT INTO cola (importe,id1) VALUES (5,'D')"_s);
    Agrupar();
    EXPECT_FALSE(estado.Agrupando());
    EXPECT_TRUE(pulso.Armado());
    EXPECT_TRUE(C().framePie);
    EXPECT_TRUE(C().grdZV);
    EXPECT_FALSE(C().agrupando);
    EXPECT_EQ(grid.FilasDatos(), 4);
    EXPECT_TRUE(C().boton[BotonPie::DarCambio]);
    EXPECT_TRUE(C().boton[BotonPie::AgruparCobros]);
    EXPECT_TRUE(pantallas.Llamadas().isEmpty());
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(MarcarCobrosTest, ARowThatWasUnmarkedIsNotCharged) {
    Marcar({1, 2, 1});
    cliente.EsperaCharge(250, 250, 0);
    Cobrar();
    ASSERT_EQ(Cola().size(), 2U);
    EXPECT_EQ(Cola().front().LeerLong(u"idZV"_s), 1);
}

TEST_F(MarcarCobrosTest, ARefusedUserLeavesAllRowsAndTheMarkingEnds) {
    Marcar({1, 2});
    EsperaPermiso(false, [this] {
        EXPECT_TRUE(estado.Agrupando());
        EXPECT_FALSE(C().framePie);
        EXPECT_FALSE(pulso.Armado());
    });
    Agrupar();
    EXPECT_EQ(Cola().size(), 3U);
    EXPECT_TRUE(Procesados().empty());
    EXPECT_FALSE(estado.Agrupando());
    EXPECT_TRUE(pulso.Armado());
    EXPECT_FALSE(Resaltada(1));
    EXPECT_FALSE(Resaltada(2));
    // Nothing stays marked for the next time.
    Agrupar();
    Agrupar();
    EXPECT_EQ(pantallas.Llamadas().size(), 1);
}

TEST_F(MarcarCobrosTest, ARefillTakesTheColoursAwayAlsoFromRowsThatStand) {
    Marcar({1, 3});
    // A row of this program's own: those that stand are kept.
    dades datos(motor, reloj);
    datos.Inicialitza();
    Missatge missatge;
    missatge.ID1 = u"NUEVA"_s;
    missatge.Importe = 700;
    bool bien = false;
    datos.Inserta(missatge, bien);
    ASSERT_TRUE(bien);
    estado.RellenarGrid();
    EXPECT_EQ(grid.FilasDatos(), 4);
    for (int fila = 1; fila <= 4; ++fila) {
        EXPECT_FALSE(Resaltada(fila)) << fila;
    }
    // The marks themselves stand: a click on a marked row unmarks it.
    ClicEnFila(1);
    EXPECT_FALSE(Resaltada(1));
    EXPECT_EQ(C().aviso.importe, u"Suma: -3,00 €"_s);
}

TEST_F(MarcarCobrosTest, TheFirstRowIsCurrentAgainAfterARefillOfMarkedRows) {
    Marcar({3});
    EXPECT_EQ(grid.Celdas().FilaActual(), 3);
    EXPECT_EQ(grid.Celdas().ColumnaActual(), ColumnaCola::Enviar);
    EsperaPermiso(false);
    Agrupar();
    EXPECT_EQ(grid.Celdas().FilaActual(), 1);
}

TEST_F(MarcarCobrosTest, SalesThatArriveMeanwhileShowWhenItEnds) {
    Agrupar();
    Otro()->Ejecutar(u"INSERT INTO cola (importe,id1) VALUES (5,'D')"_s);
    for (int i = 0; i < 3; ++i) {
        ClicEnFila(1);
    }
    EXPECT_EQ(grid.FilasDatos(), 3);
    EsperaPermiso(false);
    Agrupar();
    EXPECT_EQ(grid.FilasDatos(), 4);
}

TEST_F(MarcarCobrosTest, DisconnectingIsRefusedMeanwhile) {
    Agrupar();
    dialogos.EsperaMensaje(u"Conflicto de operaciones"_s,
                           u"Esta agrupando pagos, finalize la operacion primero"_s);
    botones.boton_Click(BotonPie::Desconectar);
    EXPECT_TRUE(supervision.Conectado());
    EXPECT_TRUE(estado.Agrupando());
}

// ---- doors, modes and window buttons while rows are marked

TEST_F(MarcarCobrosTest, WhatComesBackFromAnotherScreenDoesNotStartThePulse) {
    Marcar({1});
    pantallas.EsperaValidar(1, u"authRegistro"_s, true);
    pantallas.EsperaAbrir(Pantalla::Cobros, [this] {
        EXPECT_FALSE(C().grdZV);
        ClicEnFila(2); // too late
    });
    botones.boton_Click(BotonPie::Registro);
    EXPECT_TRUE(estado.Agrupando());
    EXPECT_FALSE(pulso.Armado());
    EXPECT_TRUE(C().framePie);
    EXPECT_TRUE(C().grdZV);
    EXPECT_TRUE(Resaltada(1));
    EXPECT_EQ(C().aviso.importe, u"Suma: 10,00 €"_s);
    // Minimising arms the pulse too.
    pulso.ArrancaTimer();
    EXPECT_FALSE(pulso.Armado());
}

TEST_F(MarcarCobrosTest, TheFloatingButtonChargesAndTheMarksStand) {
    Marcar({1, 2});
    const LineaAviso aviso = C().aviso;
    dialogos.EsperaImporte(u"Cobro manual"_s, testing::_, 500, false, [this] {
        ClicEnFila(3); // too late
        EXPECT_FALSE(C().framePie);
    });
    cliente.EsperaCharge(500, 0, 0, FinGuion::EnlacePerdido());
    cliente.EsperaDisconnect();
    cliente.EsperaConnect();
    dialogos.EsperaImporte(u"Cobro manual"_s, testing::_, 500);
    cliente.EsperaCharge(500, 500, 0);
    botones.cobroManual(u"VENTA"_s);
    EXPECT_EQ(Procesados().size(), 1U);
    EXPECT_TRUE(estado.Marcando());
    EXPECT_FALSE(pulso.Armado());
    EXPECT_TRUE(C().framePie);
    EXPECT_TRUE(C().grdZV);
    EXPECT_TRUE(Resaltada(1) && Resaltada(2) && !Resaltada(3));
    EXPECT_EQ(C().aviso, aviso);
    EXPECT_TRUE(C().boton[BotonPie::AgruparCobros]);
    EXPECT_FALSE(C().boton[BotonPie::Pago]);
    cliente.EsperaCharge(1250, 1250, 0);
    Cobrar();
    EXPECT_EQ(Cola().size(), 1U);
    EXPECT_TRUE(pulso.Armado());
}

TEST_F(MarcarCobrosTest, ADeviceThatGoesMeanwhileLeavesTheMarkingToBeEnded) {
    Marcar({1, 2});
    pantallas.EsperaValidar(1, u"authCaja"_s, true);
    pantallas.EsperaAbrir(Pantalla::Caja, [this] { supervision.MarcarDesconectado(); });
    botones.boton_Click(BotonPie::Caja);
    EXPECT_FALSE(pulso.Armado());
    EXPECT_TRUE(C().boton[BotonPie::AgruparCobros]);
    EXPECT_TRUE(C().boton[BotonPie::Conectar]);
    EXPECT_EQ(C().aviso.tono, LineaAviso::Tono::Agrupando);
    EsperaPermiso();
    Agrupar();
    EXPECT_EQ(Cola().size(), 3U);
    EXPECT_TRUE(Procesados().empty());
    EXPECT_TRUE(pulso.Armado());
    EXPECT_FALSE(C().boton[BotonPie::AgruparCobros]);
    EXPECT_EQ(C().aviso.tono, LineaAviso::Tono::SinConexion);
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(MarcarCobrosTest, TheOperationsStayOffWhenADoorHasSetTheButtons) {
    Agrupar();
    pantallas.EsperaValidar(1, u"authCaja"_s, true);
    pantallas.EsperaAbrir(Pantalla::Caja);
    botones.boton_Click(BotonPie::Caja);
    EXPECT_TRUE(supervision.Conectado());
    for (const BotonPie boton :
         {BotonPie::DarCambio, BotonPie::AnadirCambio, BotonPie::Pago, BotonPie::CobroManual}) {
        EXPECT_FALSE(C().boton[boton]) << static_cast<int>(boton);
    }
    EXPECT_TRUE(C().boton[BotonPie::AgruparCobros]);
}

TEST_F(MarcarCobrosTest, AnotherModeSendsNothingBeforeTheMarkingEnds) {
    Agrupar();
    estado.PulsarModo(0);
    EXPECT_EQ(configuracio->Modo, modo::kAuto);
    EXPECT_FALSE(pulso.Armado());
    EXPECT_EQ(Cola().size(), 3U);
    EXPECT_TRUE(estado.Agrupando());
}

TEST_F(MarcarCobrosTest, AnAbandonedTransactionHoldsNobodyUpMeanwhile) {
    motor.Comenzar();
    motor.Ejecutar(u"UPDATE cola SET id1 = 'X'"_s);
    Agrupar();
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(log.Cuenta(u">>> Transacción abandonada: deshecha"_s), 1);
    // Nor does one that a screen has left.
    pantallas.EsperaValidar(1, u"authRegistro"_s, true);
    pantallas.EsperaAbrir(Pantalla::Cobros, [this] {
        motor.Comenzar();
        motor.Ejecutar(u"UPDATE cola SET id1 = 'X'"_s);
        pulso.SaldarAbandonadas(); // somebody works
        EXPECT_EQ(motor.Nivel(), 1);
    });
    botones.boton_Click(BotonPie::Registro);
    pulso.SaldarAbandonadas();
    EXPECT_EQ(motor.Nivel(), 0);
}

} // namespace zv::test
