// A click in the queue grid: which cell becomes the current one, and what annulling and sending by
// touch leave in cola, in procesados, in the log and on the screen.
#include "BancoEngine.h"
#include "config/Modo.h"
#include "store/Palabras.h"
#include "support/GanchoFallos.h"
#include "till/ResultadoEnvio.h"

namespace zv::test {

class ClicGridTest : public BancoEngine {
  protected:
    void SetUp() override {
        EscribirIni("[ZVMONITOR]\r\nMODO=MANUAL\r\n"); // no return to "AUTO" by itself
        configuracio->Modo = modo::kManual;
        configuracio->PREGUNTARANULAR = 0;
        ConectarCon(50000);
        PonerFila(1250, u"A"_s);
        PonerFila(250, u"B"_s);
        pulso.ProcesarCola();
        log.Toma();
    }

    const EstadoControles& C() const { return controles.Estado(); }
    std::pair<int, int> Actual() const {
        return {grid.Celdas().FilaActual(), grid.Celdas().ColumnaActual()};
    }
    void Clic(int fila, int columna) { clic.grdZV_MouseUp(fila, columna, false); }
    void ClicAnular(int fila = 1) { Clic(fila, ColumnaCola::Anular); }
    void ClicEnviar(int fila = 1) { Clic(fila, ColumnaCola::Enviar); }
    void EsperaAnular(bool pasa = true, PantallasGuion::Accion mientras = {}) {
        pantallas.EsperaValidar(1, u"authRegistro"_s, pasa, std::move(mientras));
    }
    void EsperaEnviar(bool pasa = true, PantallasGuion::Accion mientras = {}) {
        pantallas.EsperaValidar(2, u"authCobroManual"_s, pasa, std::move(mientras));
    }
    void EsperaCausa(const QString& causa, DialogosGuion::Accion mientras = {}) {
        dialogos.EsperaTexto(u"Anular movimiento"_s, u"Introduzca la causa de la anulación"_s,
                             causa, QString(), std::move(mientras));
    }
    void Desconectar() {
        cliente.EsperaDisconnect();
        supervision.Desconectar();
        log.Toma();
    }
    QString SaldoExit() const { return registry.LeerValor(registry_name::kSaldoExit, QString()); }
    static QString TextoFallo() {
        return u"Error al procesar la operación, consulte con el técnico de Zorvex"_s;
    }
    static QStringList LineasAnular() {
        return {u"ANULARCOBRO_BEGINTRANS"_s, u"ADDPROC_OK_1_ZVMONITOR_CLICK"_s,
                u"PROCCOLA_DELCOLA_OK_1 [ZVMONITOR_CLICK]"_s, u"ANULARCOBRO_COMMIT"_s};
    }
};

// ---- which clicks count

TEST_F(ClicGridTest, TheClickedCellBecomesCurrent) {
    Clic(2, ColumnaCola::Id1);
    EXPECT_EQ(Actual(), std::pair(2, int{ColumnaCola::Id1}));
    Clic(1, ColumnaCola::Importe);
    EXPECT_EQ(Actual(), std::pair(1, int{ColumnaCola::Importe}));
}

TEST_F(ClicGridTest, AClickOnNoCellOfARowChangesNothing) {
    Clic(2, 3);
    cliente.PonerTotal(1); // would show in "Saldo_Exit"
    for (const int columna : {0, 5, 10}) {
        clic.grdZV_MouseUp(0, columna, false);
        clic.grdZV_MouseUp(0, columna, true);
        clic.grdZV_MouseUp(1, columna, true);
    }
    clic.grdZV_MouseUp(1, -1, false);
    EXPECT_EQ(Actual(), std::pair(2, 3));
    EXPECT_EQ(SaldoExit(), u"50000"_s);
    EXPECT_EQ(Cola().size(), 2U);
}

TEST_F(ClicGridTest, AClickUnderTheLastRowStopsNoTimer) {
    bool parado = false;
    controles.AlCambiar([&] { parado = parado || !pulso.Armado(); });
    clic.grdZV_MouseUp(0, 0, true);
    EXPECT_FALSE(parado);
    Clic(1, 3);
    EXPECT_TRUE(parado);
    controles.AlCambiar({});
}

TEST_F(ClicGridTest, AClickThatComesTooLateChangesNothing) {
    Clic(2, 3);
    pulso.ParaTimer();
    ClicAnular(1);
    EXPECT_EQ(Actual(), std::pair(2, 3));
    pulso.ArrancaTimer();
    Clic(1, 4);
    EXPECT_EQ(Actual(), std::pair(1, 4));
}

TEST_F(ClicGridTest, AClickOnAMiddleColumnStopsAndStartsThePulseAndStoresTheBalance) {
    bool parado = false;
    controles.AlCambiar([&] { parado = parado || !pulso.Armado(); });
    cliente.PonerTotal(60000);
    Clic(1, ColumnaCola::Fecha);
    controles.AlCambiar({});
    EXPECT_TRUE(parado);
    EXPECT_TRUE(pulso.Armado());
    EXPECT_TRUE(C().framePie);
    EXPECT_TRUE(C().grdZV);
    EXPECT_EQ(SaldoExit(), u"60000"_s);
    EXPECT_EQ(Cola().size(), 2U);
    EXPECT_TRUE(log.lineas.isEmpty());
}

// ---- send

TEST_F(ClicGridTest, ATouchOnTheLastColumnSendsThatRow) {
    EsperaEnviar(true, [this] {
        EXPECT_FALSE(pulso.Armado());
        EXPECT_FALSE(C().framePie);
        EXPECT_FALSE(C().grdZV);
    });
    cliente.EsperaCharge(250, 250, 0, FinGuion::Ok().Durante([this] {
        cliente.PonerTotal(50250);
        EXPECT_FALSE(pulso.Armado());
        ClicEnviar(2); // a second touch
        ClicAnular(1);
    }));
    ClicEnviar(2);
    ASSERT_EQ(Cola().size(), 1U);
    EXPECT_EQ(Cola().front().LeerTexto(u"id1"_s), u"A"_s);
    ASSERT_EQ(Procesados().size(), 1U);
    EXPECT_EQ(Procesados().front().LeerLong(u"idcola"_s), 2);
    EXPECT_EQ(grid.FilasDatos(), 1);
    EXPECT_EQ(C().lbContador, u"1 cobros"_s);
    EXPECT_TRUE(pulso.Armado());
    EXPECT_EQ(SaldoExit(), u"50250"_s);
    EXPECT_EQ(log.lineas.last(), u"ZVGETLEVELS_MOSTRARNIVEL_OK: LEVELTYPE=4 NOMS=1 LEVELS=0"_s);
    EXPECT_EQ(LineasDe(u"ENVIARZV1_2_COMMIT"_s).size(), 1);
}

TEST_F(ClicGridTest, ItIsSentInAnyModeAndThoughItIsManual) {
    for (const QString& cada : {modo::kAuto, modo::kSemi, modo::kManual}) {
        motor.Ejecutar(u"DELETE FROM cola"_s);
        const qint32 id = PonerFila(700, u"M"_s, true);
        configuracio->Modo = cada;
        pulso.ProcesarCola();
        EsperaEnviar();
        cliente.EsperaCharge(700, 700, 0);
        ClicEnviar();
        EXPECT_TRUE(Cola().empty()) << id;
        EXPECT_EQ(configuracio->Modo, cada);
    }
}

TEST_F(ClicGridTest, ARefundIsSentWithoutAQuestion) {
    motor.Ejecutar(u"UPDATE cola SET importe = -300 WHERE idZV = 1"_s);
    pulso.ProcesarCola();
    EsperaEnviar();
    cliente.EsperaCharge(-300, 0, 300);
    ClicEnviar();
    EXPECT_EQ(Cola().size(), 1U);
}

TEST_F(ClicGridTest, ARefusedUserSendsNothingAndThePulseGoesOn) {
    EsperaEnviar(false);
    cliente.PonerTotal(60000);
    ClicEnviar();
    EXPECT_EQ(Cola().size(), 2U);
    EXPECT_TRUE(pulso.Armado());
    EXPECT_EQ(SaldoExit(), u"60000"_s);
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(ClicGridTest, ACancelLeavesTheRowAndSaysSo) {
    EsperaEnviar();
    configuracio->Modo = modo::kSemi;
    cliente.EsperaCharge(1250, 0, 0, FinGuion::Cancelado());
    ClicEnviar();
    EXPECT_EQ(Cola().size(), 2U);
    EXPECT_EQ(configuracio->Modo, modo::kManual);
    EXPECT_EQ(C().lbEstado, u"Última operación cancelada. Cambiado a modo MANUAL"_s);
    EXPECT_TRUE(pulso.Armado());
}

TEST_F(ClicGridTest, ARowThatHasGoneIsToldAndTheGridFollows) {
    motor.Ejecutar(u"DELETE FROM cola WHERE idZV = 1"_s);
    EsperaEnviar();
    dialogos.EsperaCaja(TextoFallo());
    ClicEnviar();
    EXPECT_EQ(grid.FilasDatos(), 1);
    EXPECT_TRUE(Procesados().empty());
    EXPECT_TRUE(pulso.Armado());
}

TEST_F(ClicGridTest, ALostLinkThatComesBackIsSentAgain) {
    EsperaEnviar();
    cliente.EsperaCharge(1250, 0, 0, FinGuion::EnlacePerdido());
    cliente.EsperaDisconnect();
    cliente.EsperaConnect();
    cliente.EsperaCharge(1250, 1250, 0);
    ClicEnviar();
    EXPECT_EQ(Cola().size(), 1U);
    EXPECT_TRUE(pulso.Armado());
    EXPECT_EQ(C().aviso, LineaAviso());
}

TEST_F(ClicGridTest, ALostLinkThatStaysLostLeavesThePulseStopped) {
    EsperaEnviar();
    cliente.EsperaCharge(1250, 0, 0, FinGuion::EnlacePerdido());
    cliente.EsperaDisconnect();
    cliente.EsperaConnect(FinGuion::Error(1, u"No responde"_s));
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, testing::_);
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, u"1 - Enlace perdido"_s);
    ClicEnviar();
    EXPECT_FALSE(supervision.Conectado());
    EXPECT_FALSE(pulso.Armado());
    EXPECT_EQ(C().aviso.tono, LineaAviso::Tono::Parada);
}

TEST_F(ClicGridTest, WithoutADeviceNothingIsSentAndNobodyAsked) {
    Desconectar();
    ClicEnviar();
    EXPECT_EQ(Cola().size(), 2U);
    EXPECT_TRUE(pantallas.Llamadas().isEmpty());
    EXPECT_FALSE(pulso.Armado());
}

// ---- annul

TEST_F(ClicGridTest, ATouchOnTheFirstColumnFilesTheRowWithoutTheDevice) {
    motor.Ejecutar(u"UPDATE cola SET creditoError = 250 WHERE idZV = 1"_s);
    pulso.ProcesarCola();
    log.Toma();
    QStringList marcas;
    motor.PonerGancho([&](const Statement& s) {
        if (s.kind == Statement::Kind::Escritura || s.kind == Statement::Kind::Confirmar) {
            marcas << Activo();
        }
    });
    cliente.PonerTotal(60000);
    EsperaAnular(true, [this] { EXPECT_FALSE(pulso.Armado()); });
    ClicAnular();
    motor.PonerGancho({});
    ASSERT_EQ(Cola().size(), 1U);
    EXPECT_EQ(Cola().front().LeerTexto(u"id1"_s), u"B"_s);
    const auto filas = Procesados();
    ASSERT_EQ(filas.size(), 1U);
    const Row& f = filas.front();
    EXPECT_EQ(f.LeerTexto(u"estado"_s), u"CANCEL"_s);
    // A credit that the row holds is not given back.
    EXPECT_EQ(f.LeerCurrency(u"importeVenta"_s), Currency(1000));
    EXPECT_EQ(f.LeerCurrency(u"cobrado"_s), Currency(0));
    EXPECT_EQ(f.LeerCurrency(u"devuelto"_s), Currency(0));
    EXPECT_EQ(f.LeerCurrency(u"saldoZV"_s), Currency(0));
    EXPECT_EQ(f.LeerTexto(u"id1"_s), u"A"_s);
    EXPECT_EQ(f.LeerTexto(u"id2"_s), u"L2"_s);
    EXPECT_EQ(f.LeerTexto(u"terminal"_s), u"TPV1"_s);
    EXPECT_EQ(f.LeerLong(u"idcola"_s), 1);
    EXPECT_EQ(f.LeerTexto(u"error"_s), u"Cobro Anulado"_s);
    EXPECT_EQ(log.lineas, LineasAnular());
    EXPECT_FALSE(marcas.isEmpty());
    EXPECT_EQ(marcas.count(u"1"_s), marcas.size());
    EXPECT_EQ(Activo(), u"0"_s);
    EXPECT_EQ(grid.FilasDatos(), 1);
    EXPECT_EQ(C().lbContador, u"1 cobros"_s);
    EXPECT_TRUE(pulso.Armado());
    EXPECT_EQ(SaldoExit(), u"60000"_s);
    EXPECT_EQ(cliente.Llamadas().filter(u"Charge"_s).size(), 0);
    EXPECT_EQ(motor.Nivel(), 0);
}

TEST_F(ClicGridTest, TheCauseIsAskedForAndFiled) {
    configuracio->PREGUNTARANULAR = 1;
    EsperaAnular();
    EsperaCausa(u"Se lo ha pensado"_s, [this] {
        EXPECT_FALSE(pulso.Armado());
        EXPECT_EQ(motor.Nivel(), 0);
        EXPECT_NE(Activo(), u"1"_s);
    });
    ClicAnular();
    ASSERT_EQ(Procesados().size(), 1U);
    // The blank at the end of the text goes like that of every text.
    EXPECT_EQ(Procesados().front().LeerTexto(u"error"_s), u"Cobro Anulado:Se lo ha pensado"_s);
    EXPECT_EQ(log.lineas, LineasAnular());
}

TEST_F(ClicGridTest, ALanguageFileGivesTheSameWordsWithAndWithoutACause) {
    QFile fichero(carpeta.filePath(u"RWLang.ini"_s));
    ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
    fichero.write("[COMMON]\r\ncobroAnulado=Voided. \r\n");
    fichero.close();
    EsperaAnular();
    ClicAnular();
    configuracio->PREGUNTARANULAR = 1;
    EsperaAnular();
    EsperaCausa(u"x"_s);
    ClicAnular();
    ASSERT_EQ(Procesados().size(), 2U);
    EXPECT_EQ(Procesados()[0].LeerTexto(u"error"_s), u"Voided."_s);
    EXPECT_EQ(Procesados()[1].LeerTexto(u"error"_s), u"Voided.x"_s);
}

TEST_F(ClicGridTest, ALongCauseIsCutInTheRecord) {
    configuracio->PREGUNTARANULAR = 1;
    EsperaAnular();
    EsperaCausa(QString(300, u'x'));
    ClicAnular();
    ASSERT_EQ(Procesados().size(), 1U);
    EXPECT_EQ(Procesados().front().LeerTexto(u"error"_s), u"Cobro Anulado:"_s + QString(36, u'x'));
}

TEST_F(ClicGridTest, WithoutACauseNothingIsAnnulled) {
    configuracio->PREGUNTARANULAR = 1;
    EsperaAnular();
    EsperaCausa({});
    dialogos.EsperaMensaje(
        u"Anulación cancelada"_s, u"No se puede anular un movimiento sin indicar la causa"_s,
        Respuesta::Aceptar, EstiloMensaje::Aceptar, [this] { EXPECT_FALSE(pulso.Armado()); });
    cliente.PonerTotal(60000);
    ClicAnular();
    EXPECT_EQ(Cola().size(), 2U);
    EXPECT_TRUE(Procesados().empty());
    EXPECT_TRUE(pulso.Armado());
    EXPECT_TRUE(log.lineas.isEmpty());
    EXPECT_EQ(Activo(), u"-"_s);
    // This way out stores no balance.
    EXPECT_EQ(SaldoExit(), u"50000"_s);
}

TEST_F(ClicGridTest, ARefusedUserAnnulsNothingAndThePulseGoesOn) {
    configuracio->PREGUNTARANULAR = 1;
    cliente.PonerTotal(60000);
    EsperaAnular(false);
    ClicAnular();
    EXPECT_EQ(Cola().size(), 2U);
    EXPECT_TRUE(pulso.Armado());
    EXPECT_EQ(SaldoExit(), u"50000"_s);
    EXPECT_TRUE(log.lineas.isEmpty());
    // Also without a device.
    Desconectar();
    EsperaAnular(false);
    ClicAnular();
    EXPECT_TRUE(pulso.Armado());
}

TEST_F(ClicGridTest, ARowThatHasGoneIsToldWhenTheTransactionIsCommitted) {
    motor.Ejecutar(u"DELETE FROM cola WHERE idZV = 1"_s);
    EsperaAnular();
    dialogos.EsperaCaja(TextoFallo(), [this] {
        EXPECT_EQ(motor.Nivel(), 0);
        EXPECT_EQ(Activo(), u"1"_s);
        EXPECT_EQ(log.lineas, QStringList{u"ANULARCOBRO_BEGINTRANS"_s});
    });
    ClicAnular();
    EXPECT_EQ(log.lineas, (QStringList{u"ANULARCOBRO_BEGINTRANS"_s, u"ANULARCOBRO_COMMIT"_s}));
    EXPECT_EQ(Activo(), u"0"_s);
    EXPECT_TRUE(Procesados().empty());
    EXPECT_EQ(grid.FilasDatos(), 2); // the next look will see it
    EXPECT_TRUE(pulso.Armado());
}

TEST_F(ClicGridTest, AFilingThatFailsIsToldAndCommittedAsFarAsItWent) {
    struct Caso {
        QString sentencia;
        int veces;
        std::size_t enCola;
        std::size_t archivadas;
    };
    for (const Caso& caso : {Caso{u"INSERT INTO"_s, 4, 2, 0},
                             // Stored at the second attempt, which answers no key.
                             Caso{u"INSERT INTO"_s, 1, 2, 1},
                             // Deleted at the second attempt.
                             Caso{u"DELETE FROM"_s, 1, 1, 1}}) {
        motor.Ejecutar(u"DELETE FROM procesados"_s);
        log.Toma();
        EsperaAnular();
        dialogos.EsperaCaja(TextoFallo(), [this] { EXPECT_EQ(motor.Nivel(), 0); });
        {
            GanchoFallos gancho(motor);
            gancho.Falla(Statement::Kind::Escritura, caso.sentencia, caso.veces);
            ClicAnular();
            EXPECT_EQ(gancho.Pendientes(), 0);
        }
        EXPECT_EQ(Cola().size(), caso.enCola);
        EXPECT_EQ(Procesados().size(), caso.archivadas);
        ASSERT_FALSE(log.lineas.isEmpty());
        EXPECT_EQ(log.lineas.first(), u"ANULARCOBRO_BEGINTRANS"_s);
        EXPECT_EQ(log.lineas.last(), u"ANULARCOBRO_COMMIT"_s);
        EXPECT_EQ(Activo(), u"0"_s);
        EXPECT_TRUE(pulso.Armado());
    }
}

TEST_F(ClicGridTest, ALockThatSomebodyHoldsIsToldAndTheRowStays) {
    SqliteEngine otro({std::chrono::milliseconds(0)});
    otro.Abrir(CadenaConexion(u"MDB"_s, {}, conexion.RutaFichero(), {}, {}));
    motor.Ejecutar(u"PRAGMA busy_timeout = 0"_s);
    static_cast<DatabaseEngine&>(otro).Comenzar();
    otro.Ejecutar(u"UPDATE cola SET id1 = id1"_s);
    EsperaAnular();
    dialogos.EsperaCaja(TextoFallo());
    ClicAnular();
    otro.Deshacer();
    EXPECT_EQ(Cola().size(), 2U);
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(log.lineas.last(), u"ANULARCOBRO_COMMIT"_s);
}

TEST_F(ClicGridTest, NobodyIsToldAnythingUnderTheWriteLock) {
    // The refill and the state line may have something to tell.
    entorno.ResultadoEnvio = envio::kError;
    entorno.codigoEnvio = 5;
    entorno.mensajeEnvio = u"Atasco"_s;
    EsperaAnular();
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, u"5 - Atasco"_s, Respuesta::Aceptar, std::nullopt,
                           [this] { EXPECT_EQ(motor.Nivel(), 0); });
    ClicAnular();
    EXPECT_EQ(Cola().size(), 1U);
}

TEST_F(ClicGridTest, AnAmountThatNobodyCanFileStaysAndIsTold) {
    motor.Ejecutar(u"UPDATE cola SET importe = '-922337203685477', creditoError = '900000000000' "
                   "WHERE idZV = 1"_s);
    pulso.ProcesarCola();
    EsperaAnular();
    dialogos.EsperaCaja(TextoFallo());
    ClicAnular();
    EXPECT_EQ(Cola().size(), 2U);
    EXPECT_TRUE(pulso.Armado());
}

TEST_F(ClicGridTest, AnAbandonedTransactionDoesNotTakeTheAnnulmentWithIt) {
    motor.Comenzar();
    motor.Ejecutar(u"UPDATE cola SET id1 = 'X'"_s);
    EsperaAnular();
    ClicAnular();
    EXPECT_EQ(motor.Nivel(), 0);
    ASSERT_EQ(Procesados().size(), 1U);
    EXPECT_EQ(Procesados().front().LeerTexto(u"id1"_s), u"A"_s);
    pulso.ProcesarCola();
    EXPECT_EQ(Cola().size(), 1U);
}

// ---- without a device

TEST_F(ClicGridTest, WithoutADeviceTheAnnulmentWorksAndThePulseStaysStopped) {
    Desconectar();
    EsperaAnular();
    ClicAnular();
    EXPECT_EQ(Cola().size(), 1U);
    EXPECT_EQ(log.lineas, LineasAnular());
    EXPECT_EQ(grid.FilasDatos(), 1);
    EXPECT_FALSE(pulso.Armado());
    EXPECT_FALSE(C().framePie);
    EXPECT_FALSE(C().grdZV);
}

TEST_F(ClicGridTest, TheScreenSaysWhyNothingMovesAndWhatToPress) {
    EXPECT_EQ(C().aviso, LineaAviso());
    Desconectar();
    EXPECT_EQ(C().aviso.tono, LineaAviso::Tono::SinConexion);
    EXPECT_EQ(C().aviso.texto, u"Sin conexión: pulse Conectar"_s);
    EXPECT_TRUE(C().puedeAnular);
    EXPECT_FALSE(C().puedeEnviar);
    Clic(1, 5);
    EXPECT_FALSE(pulso.Armado());
    EXPECT_FALSE(C().puedeAnular);
    EXPECT_EQ(C().aviso.tono, LineaAviso::Tono::Parada);
    EXPECT_EQ(C().aviso.texto, u"Sin conexión y con la cola parada: minimice y abra la ventana, y "
                               "pulse Conectar"_s);
    // What it says to do.
    pulso.ArrancaTimer();
    EXPECT_TRUE(C().puedeAnular);
    EXPECT_EQ(C().aviso.texto, u"Sin conexión: pulse Conectar"_s);
    cliente.EsperaConnect();
    botones.boton_Click(BotonPie::Conectar);
    EXPECT_EQ(C().aviso, LineaAviso());
    EXPECT_TRUE(C().puedeEnviar);
}

TEST_F(ClicGridTest, TheFloatingButtonGetsAStoppedPulseGoing) {
    Desconectar();
    Clic(1, 5);
    ASSERT_FALSE(pulso.Armado());
    dialogos.EsperaImporte(u"Cobro manual"_s, testing::_, 0, true);
    botones.cobroManual(u"VENTA"_s);
    EXPECT_TRUE(pulso.Armado());
    EXPECT_FALSE(estado.Parada());
    EXPECT_TRUE(C().framePie);
}

TEST_F(ClicGridTest, WhileItIsBeingConnectedNothingIsToBePressed) {
    Desconectar();
    cliente.EsperaConnect(FinGuion::Error(1, u"No responde"_s).Durante([this] {
        EXPECT_EQ(C().aviso, LineaAviso());
    }));
    dialogos.EsperaMensaje(u"Error de Zorvex"_s, testing::_);
    botones.boton_Click(BotonPie::Conectar);
    EXPECT_EQ(C().aviso.tono, LineaAviso::Tono::SinConexion);
}

TEST_F(ClicGridTest, AStoppedPulseHoldsNoTransaction) {
    Desconectar();
    motor.Comenzar();
    motor.Ejecutar(u"UPDATE cola SET id1 = 'X'"_s);
    Clic(1, 5);
    EXPECT_EQ(motor.Nivel(), 0);
    // Nor one that comes later, such as a message's that has failed.
    motor.Comenzar();
    motor.Ejecutar(u"UPDATE cola SET id1 = 'X'"_s);
    pulso.SaldarAbandonadas();
    EXPECT_EQ(motor.Nivel(), 0);
    pulso.ParaTimer(); // somebody works again
    motor.Comenzar();
    pulso.SaldarAbandonadas();
    EXPECT_EQ(motor.Nivel(), 1);
    motor.Deshacer();
}

} // namespace zv::test
