// Both closes of a cash period, with no window.
#include "BancoCierreCaja.h"
#include "support/IdiomaIngles.h"

#include <limits>

namespace zv::test {

TEST_F(CierreCajaTest, EverythingComesInItsOrder) {
    for (const CasoCierre& caso : Casos()) {
        log.Toma();
        PonerDinero(DeLaCaja());
        EsperaCierre(caso);
        Cerrar(caso);
        const std::vector<Row> cierres = Cierres();
        const QString id = cierres.back().LeerTexto(u"idCierre"_s);
        EXPECT_EQ(log.lineas,
                  (QStringList{caso.variante.pideImporte ? u"#Cierre"_s : u"#Cierre de caja"_s,
                               u"CIERRE_LLAMADA_"_s + caso.variante.nombre, Llamada(caso),
                               Diario(caso, u"OK"_s), u"ADDPROC_OK_"_s + id + u"_ARQUEOCAJA"_s,
                               Tag(caso) + u"_BEGINTRANS"_s, Tag(caso) + u'_' + id + u"_COMMIT"_s,
                               u"#Zorvex"_s}));
        ComprobarReposo();
    }
    ComprobarMovimientos({{tipo::kArqueoCaja, -kMovido, 0, kMovido, kQueda.Suma(), 1},
                          {tipo::kArqueoCaja, -kMovido, 0, kMovido, kQueda.Suma(), 2}});
}

TEST_F(CierreCajaTest, TheExitBalanceIsStoredBeforeTheButtonsGoOff) {
    EsperaCierre(Casos()[0]);
    QStringList alApagar;
    caja.AlCambiar([&] {
        if (!Boton(BotonCaja::CierreNiveles) && alApagar.isEmpty()) {
            alApagar << SaldoExit();
        }
    });
    Cerrar(Casos()[0]);
    EXPECT_EQ(alApagar, QStringList{QString::number(kQueda.Suma())});
}

TEST_F(CierreCajaTest, TheHistoryNeverShowsACloseThatHasFailed) {
    motor.Comenzar();
    motor.Ejecutar(u"INSERT INTO cierres (cobros) VALUES (1)"_s);
    pantallas.EsperaAbrir(Pantalla::Historial, [this] {
        EXPECT_EQ(motor.Nivel(), 0);
        EXPECT_TRUE(Cierres().empty());
    });
    caja.AbrirHistorial();
    EXPECT_EQ(pantallas.Pendientes(), 0U);
}

// Seen by the line of a settings file that cannot be written.
TEST_F(CierreCajaTest, TheMarkGoesDownBeforeTheTimeOfTheCloseIsWritten) {
    QFile::remove(entorno.rutaIni);
    ASSERT_TRUE(QDir().mkpath(entorno.rutaIni + u"/dentro"_s));
    EsperaCierre(Casos()[0]);
    QStringList marcas;
    log.alEscribir = [&](const QString& linea) {
        if (linea.startsWith(u"GRABARINI"_s)) {
            marcas << Activo();
        }
    };
    Cerrar(Casos()[0]);
    EXPECT_EQ(marcas, QStringList{u"0"_s});
    EXPECT_EQ(Cierres().size(), 1U);
    ComprobarReposo();
}

// Kinds are told apart by what each single question answers.
TEST_F(CierreCajaTest, TheBalancesAreReadInTheirOrder) {
    const auto niveles = [this](qint32 tipo, int monedas, int billetes) {
        cliente.EsperaGetLevels(tipo, u"1,500"_s,
                                QString::number(monedas) + u',' + QString::number(billetes));
    };
    dialogos.EsperaMensaje(testing::_, testing::_);
    niveles(2, 10, 99); // before: coins of the recycler
    niveles(3, 20, 99); // coins of the boxes
    niveles(2, 99, 4);  // notes of the recycler
    niveles(3, 99, 6);  // notes of the boxes
    cliente.EsperaCashBoxControl(7, 0, 0, 0, 0);
    niveles(2, 88, 2); // after: notes of the recycler
    niveles(2, 7, 88); // coins of the recycler
    niveles(3, 88, 3); // notes of the boxes
    niveles(3, 5, 88); // coins of the boxes
    niveles(3, 5, 3);  // the start of the next period: all of it
    niveles(2, 7, 2);
    dialogos.EsperaMensaje(u"Zorvex"_s, testing::_);
    Cerrar(Casos()[0]);
    const Row fila = Cierres().at(0);
    EXPECT_EQ(fila.LeerCurrency(u"cambioMonedas"_s), Currency(7));
    EXPECT_EQ(fila.LeerCurrency(u"cambioBilletes"_s), Currency(1000));
    EXPECT_EQ(fila.LeerCurrency(u"cajonMonedas"_s), Currency(10 + 20 - 7 - 5));
    EXPECT_EQ(fila.LeerCurrency(u"cajonBilletes"_s), Currency(2000 + 3000 - 1000 - 1500));
    EXPECT_EQ(fila.LeerCurrency(u"importeCierre"_s), Currency(7 + 5 + 1000 + 1500));
    EXPECT_EQ(SaldoInicial(), u"2512"_s);
    ComprobarReposo();
}

TEST_F(CierreCajaTest, TheRowHoldsWhatTheLastRefreshAndTheDeviceSay) {
    for (const CasoCierre& caso : Casos()) {
        PonerDinero(DeLaCaja());
        EsperaCierre(caso);
        caja.totales.cobros = 11;
        caja.totales.abonos = 12;
        caja.totales.pagos = 13;
        caja.totales.ingresos = 14;
        caja.totales.saldoFinal = 15;
        caja.saldos.contenido = 16;
        registry.GuardarValor(registry_name::kSaldoInicial, u"4321"_s);
        entorno.supervision.LeerSaldoInicial();
        Cerrar(caso);
        const Row fila = Cierres().back();
        EXPECT_EQ(fila.LeerFecha(u"fecha"_s), reloj.Ahora());
        EXPECT_EQ(fila.LeerCurrency(u"saldoInicial"_s), Currency(4321));
        EXPECT_EQ(fila.LeerCurrency(u"cobros"_s), Currency(11));
        EXPECT_EQ(fila.LeerCurrency(u"abonos"_s), Currency(12));
        EXPECT_EQ(fila.LeerCurrency(u"pagos"_s), Currency(13));
        EXPECT_EQ(fila.LeerCurrency(u"ingresos"_s), Currency(14));
        EXPECT_EQ(fila.LeerCurrency(u"saldoZV"_s), Currency(16));
        EXPECT_EQ(fila.LeerCurrency(u"importeCierre"_s), Currency(3000));
        EXPECT_EQ(fila.LeerCurrency(u"cambioBilletes"_s), Currency(2000));
        EXPECT_EQ(fila.LeerCurrency(u"cambioMonedas"_s), Currency(1000));
        EXPECT_EQ(fila.LeerCurrency(u"cajonBilletes"_s), Currency(4500));
        EXPECT_EQ(fila.LeerCurrency(u"cajonMonedas"_s), Currency(2200));
    }
    EXPECT_EQ(Cierres().size(), 2U);
}

// What the device holds is that of the last refresh, whatever has changed since.
TEST_F(CierreCajaTest, TheContentIsNotReadAgain) {
    PonerDinero({1, 0, 0, 0});
    EsperaPregunta(Casos()[0]);
    cliente.EsperaCashBoxControl(7, 0, 0, 0, 0);
    Cerrar(Casos()[0]);
    EXPECT_EQ(Cierres().at(0).LeerCurrency(u"saldoZV"_s), Currency(DeLaCaja().Suma()));
}

TEST_F(CierreCajaTest, TheWholePeriodGetsTheNumberOfTheClose) {
    const qint32 venta = PonerVenta(500);
    const qint32 error = PonerVenta(300, 0, u"ERROR_7"_s);
    const qint32 cancelada = PonerVenta(0, 0, estado::kCancel);
    const qint32 retirada = PonerVenta(100, -1, estado::kError);
    const qint32 anterior = PonerVenta(200, 77);
    caja.RefrescarCaja();
    EsperaCierre(Casos()[0]);
    Cerrar(Casos()[0]);
    const auto numero = [this](qint32 id) {
        return motor
            .Consultar(u"SELECT idCierre FROM procesados WHERE idZV="_s + QString::number(id))
            .front()
            .LeerLong(0);
    };
    EXPECT_EQ(numero(venta), 1);
    EXPECT_EQ(numero(error), 1);
    EXPECT_EQ(numero(cancelada), 1);
    EXPECT_EQ(numero(retirada), -1);
    EXPECT_EQ(numero(anterior), 77);
    EXPECT_EQ(caja.totales, TotalesPeriodo());
    EXPECT_EQ(caja.grdZV().FilasDatos(), 0);
}

TEST_F(CierreCajaTest, TheStatementThatClosesThePeriodIsTheToldOne) {
    EsperaCierre(Casos()[0]);
    QStringList escritas;
    motor.PonerGancho([&](const Statement& s) {
        if (s.sql.startsWith(u"UPDATE procesados"_s)) {
            escritas << s.sql;
            EXPECT_EQ(motor.Nivel(), 1);
            EXPECT_EQ(Activo(), u"1"_s);
        }
    });
    Cerrar(Casos()[0]);
    motor.PonerGancho({});
    EXPECT_EQ(escritas, QStringList{u"UPDATE procesados SET idcierre=1 WHERE Idcierre=0"_s});
    EXPECT_EQ(Activo(), u"0"_s);
}

TEST_F(CierreCajaTest, WhenTheDeviceMovesNothingThereIsNoMovementButAClose) {
    PonerVenta(500);
    EsperaPregunta(Casos()[0]);
    cliente.EsperaCashBoxControl(7, 0, 0, 0, 8000);
    Cerrar(Casos()[0]);
    EXPECT_EQ(log.lineas,
              (QStringList{u"#Cierre de caja"_s, u"CIERRE_LLAMADA_INICIALES"_s,
                           u"@CashBoxControl(7, 0)"_s,
                           u"ZVCASHBOXCONTROL_CIERRE_INICIALES_OK: COINSVALUEINCB=0 "
                           "NOTESVALUEINCB=0 REMAININGCHANGE=8000"_s,
                           u"CIERRE_INICIALES_BEGINTRANS"_s, u"CIERRE_INICIALES_1_COMMIT"_s}));
    ComprobarMovimientos({});
    EXPECT_EQ(Procesados().at(0).LeerLong(u"idCierre"_s), 1);
    EXPECT_EQ(Cierres().at(0).LeerCurrency(u"cajonMonedas"_s), Currency(0));
    ComprobarReposo();
}

// Coins one way and notes the other: their sum is what counts.
TEST_F(CierreCajaTest, AmountsThatCancelEachOtherAreNoMovement) {
    EsperaPregunta(Casos()[0]);
    cliente.EsperaCashBoxControl(7, 0, 500, -500, 0);
    Cerrar(Casos()[0]);
    ComprobarMovimientos({});
    EXPECT_EQ(Cierres().size(), 1U);
}

TEST_F(CierreCajaTest, APeriodWithoutMovementsClosesWithZeroTotals) {
    EsperaPregunta(Casos()[0]);
    cliente.EsperaCashBoxControl(7, 0, 0, 0, 0);
    Cerrar(Casos()[0]);
    const Row fila = Cierres().at(0);
    for (const QString& total : {u"cobros"_s, u"abonos"_s, u"ingresos"_s, u"pagos"_s}) {
        EXPECT_FALSE(fila.EsNulo(total));
        EXPECT_TRUE(fila.LeerCurrency(total).EsCero());
    }
    EXPECT_EQ(fila.LeerCurrency(u"saldoInicial"_s), Currency(4321));
}

// The movement of the close was not there at the last refresh, and is of no later period.
TEST_F(CierreCajaTest, ThePaymentsOfTheCloseDoNotHoldItsOwnMovement) {
    entorno.registros.AñadirProcesado(u"PAGO"_s, [this] {
        RegistroProcesado pago;
        pago.fechaVenta = reloj.Ahora();
        pago.devuelto = 150;
        pago.estado = estado::kOk;
        pago.venta.id1 = tipo::kPago;
        pago.venta.terminal = u"ZV"_s;
        return pago;
    }());
    caja.RefrescarCaja();
    ASSERT_EQ(caja.totales.pagos, Currency(150));
    EsperaCierre(Casos()[0]);
    Cerrar(Casos()[0]);
    EXPECT_EQ(Cierres().at(0).LeerCurrency(u"pagos"_s), Currency(150));
    EXPECT_EQ(Procesados().back().LeerLong(u"idCierre"_s), 1);
    EXPECT_TRUE(caja.totales.pagos.EsCero());

    EsperaPregunta(Casos()[0]);
    cliente.EsperaCashBoxControl(7, 0, 0, 0, 0);
    Cerrar(Casos()[0]);
    EXPECT_TRUE(Cierres().at(1).LeerCurrency(u"pagos"_s).EsCero());
}

TEST_F(CierreCajaTest, AfterTheCloseTheScreenShowsWhatIsThere) {
    EsperaPregunta(Casos()[0]);
    EsperaDispositivo(Casos()[0], Deja({1000, 2000, 100, 500}));
    QStringList pintado;
    caja.AlPintar([&] {
        const EstadoCaja& e = caja.Estado();
        pintado << e.lbSaldoCierre + u'|' + e.lbCambioMonedas + u'|' + e.lbCambioBilletes + u'|' +
                       e.lbCBMonedas + u'|' + e.lbCBBilletes;
    });
    dialogos.EsperaMensaje(u"Zorvex"_s,
                           u"Recuerde vaciar los cajones de recaudación:\r\n"
                           "Monedas:21,00 €\r\nBilletes:40,00 €"_s,
                           Respuesta::Aceptar, EstiloMensaje::Aceptar, [&] {
                               EXPECT_EQ(pintado.last(),
                                         u"36,00 €|10,00 €|20,00 €|21,00 €|40,00 €"_s);
                               EXPECT_EQ(SaldoInicial(), u"3600"_s);
                               EXPECT_EQ(SaldoExit(), u"9700"_s); // comes later
                               EXPECT_TRUE(Boton(BotonCaja::CierreValor));
                           });
    Cerrar(Casos()[0]);
    // Later ones are the refresh's.
    EXPECT_EQ(pintado.mid(0, 2), (QStringList{u"36,00 €|10,00 €|20,00 €|21,00 €|15,00 €"_s,
                                              u"36,00 €|10,00 €|20,00 €|21,00 €|40,00 €"_s}));
    const EstadoCaja& e = caja.Estado();
    EXPECT_EQ(e.lbSaldoCierre, u"36,00 €"_s); // the refresh leaves it
    EXPECT_EQ(e.lbContenido, u"36,00 €"_s);
    EXPECT_EQ(e.lbCambioMonedas, u"10,00 €"_s);
    EXPECT_EQ(e.lbCambioBilletes, u"20,00 €"_s);
    EXPECT_EQ(e.lbCBMonedas, u"1,00 €"_s);
    EXPECT_EQ(e.lbCBBilletes, u"5,00 €"_s);
    EXPECT_EQ(SaldoExit(), u"3600"_s);
    EXPECT_EQ(entorno.supervision.SaldoExit(), Currency(3600));
    EXPECT_EQ(entorno.supervision.SaldoInicial(), 3600);
    // One close per opening; the boxes can be emptied, because their captions have changed.
    EXPECT_FALSE(Boton(BotonCaja::CierreNiveles));
    EXPECT_FALSE(Boton(BotonCaja::CierreValor));
    EXPECT_TRUE(Boton(BotonCaja::VaciarMonedas));
    EXPECT_TRUE(Boton(BotonCaja::VaciarBilletes));
    EXPECT_TRUE(Boton(BotonCaja::Cuadrar));
}

// A caption that the refresh does not change leaves the button as the close has put it.
TEST_F(CierreCajaTest, TheButtonsOfTheBoxesFollowACaptionThatChanges) {
    EsperaPregunta(Casos()[0]);
    // Left the device: 2,00 of coins and 15,00 of notes, as much as is in the boxes afterwards.
    EsperaDispositivo(Casos()[0], Deja({2800, 3500, 200, 1500}));
    EsperaRecordatorio(u"2,00 €"_s, u"15,00 €"_s);
    Cerrar(Casos()[0]);
    EXPECT_EQ(caja.Estado().lbCBMonedas, u"2,00 €"_s);
    EXPECT_FALSE(Boton(BotonCaja::VaciarMonedas));
    EXPECT_FALSE(Boton(BotonCaja::VaciarBilletes));
}

TEST_F(CierreCajaTest, TheReminderComesForCoinsAloneAndForNotesAloneAndForLess) {
    struct Caso {
        Dinero queda;
        QString monedas;
        QString billetes;
    };
    for (const Caso& caso : {Caso{{3000, 5000, 0, 1500}, u"2,00 €"_s, u"0,00 €"_s},
                             Caso{{3000, 5000, 200, 1000}, u"0,00 €"_s, u"5,00 €"_s},
                             Caso{{3001, 5000, 200, 1500}, u"-0,01 €"_s, u"0,00 €"_s},
                             Caso{{2800, 5500, 200, 1500}, u"2,00 €"_s, u"-5,00 €"_s}}) {
        PonerDinero(DeLaCaja());
        EsperaPregunta(Casos()[0]);
        EsperaDispositivo(Casos()[0], Deja(caso.queda));
        EsperaRecordatorio(caso.monedas, caso.billetes);
        Cerrar(Casos()[0]);
        ComprobarReposo();
    }
}

// From the recycler to its box, coins for coins: nothing has left the device.
TEST_F(CierreCajaTest, NothingToRemindOfWhenEverythingIsStillThere) {
    EsperaPregunta(Casos()[0]);
    EsperaDispositivo(Casos()[0], Deja({2300, 2500, 900, 4000}));
    Cerrar(Casos()[0]);
    ComprobarMovimientos({{tipo::kArqueoCaja, -kMovido, 0, kMovido, 9700, 1}});
    ComprobarReposo();
}

TEST_F(CierreCajaTest, TheFocusGoesToThePrinterOrToTheHistory) {
    const auto cerrar = [this] {
        EsperaPregunta(Casos()[0]);
        cliente.EsperaCashBoxControl(7, 0, 0, 0, 0);
        Cerrar(Casos()[0]);
        return caja.Estado().foco;
    };
    EXPECT_EQ(cerrar(), BotonCaja::Imprimir);
    entorno.configuracio->SINIMPRESORA = 1;
    EXPECT_EQ(cerrar(), BotonCaja::Historico);
    entorno.configuracio->SINIMPRESORA = 2;
    EXPECT_EQ(cerrar(), BotonCaja::Imprimir);
}

TEST_F(CierreCajaTest, TheTimeIsDroppedOnlyWhenTheSettingIsExactlyOne) {
    const auto cerrar = [this](quint8 sinHora) {
        entorno.configuracio->SINHORA = sinHora;
        EsperaPregunta(Casos()[0]);
        cliente.EsperaCashBoxControl(7, 0, 0, 0, 0);
        Cerrar(Casos()[0]);
        return Cierres().back().LeerFecha(u"fecha"_s);
    };
    EXPECT_EQ(cerrar(0), QDateTime(QDate(2026, 3, 14), QTime(18, 4, 11)));
    EXPECT_EQ(UltimoCierre(), u"14/03/26 18:04:11"_s);
    reloj.Avanzar(20000);
    const QDateTime dia(QDate(2026, 3, 14), QTime(0, 0));
    EXPECT_EQ(cerrar(1), dia);
    EXPECT_EQ(UltimoCierre(), u"14/03/26"_s);
    reloj.Avanzar(20000); // a second close within the minute
    EXPECT_EQ(cerrar(1), dia);
    EXPECT_EQ(UltimoCierre(), u"14/03/26"_s);
    EXPECT_EQ(Cierres().size(), 3U);
    EXPECT_EQ(cerrar(2), QDateTime(QDate(2026, 3, 14), QTime(18, 4, 51)));
    EXPECT_EQ(UltimoCierre(), u"14/03/26 18:04:51"_s);
    // A time of one digit has its zero.
    reloj.Fijar(QDateTime(QDate(2026, 11, 2), QTime(7, 5, 9)));
    cerrar(0);
    EXPECT_EQ(UltimoCierre(), u"02/11/26 07:05:09"_s);
}

TEST_F(CierreCajaTest, WithoutADeviceItIsToldAndNothingHappens) {
    cliente.EsperaDisconnect();
    entorno.supervision.Cortar();
    for (const CasoCierre& caso : Casos()) {
        log.Toma();
        EsperaSinConexion();
        Cerrar(caso);
        EXPECT_EQ(log.lineas, QStringList{u"#Zorvex"_s});
        ComprobarReposo();
    }
    EXPECT_TRUE(Cierres().empty());
}

TEST_F(CierreCajaTest, ACancelLeavesEverythingUntouched) {
    dialogos.EsperaMensaje(u"Cierre de caja"_s, testing::_, Respuesta::Cancelar);
    Cerrar(Casos()[0]);
    dialogos.EsperaImporte(u"Cierre"_s, u"Importe:"_s, 2500, true);
    Cerrar(Casos()[1]);
    EXPECT_EQ(log.lineas, QStringList());
    EXPECT_TRUE(Cierres().empty());
    EXPECT_NE(Activo(), u"1"_s);
    ComprobarSinRematar();
}

TEST_F(CierreCajaTest, WhatTheRecyclerHoldsIsProposed) {
    dialogos.EsperaImporte(u"Cierre"_s, u"Importe:"_s, 0, true);
    Cerrar(Casos()[1]);
    EXPECT_EQ(dialogos.UltimoImportePorDefecto(), Currency(8000));
    EXPECT_FALSE(dialogos.UltimoSinImporte());
}

// The device is the one to say what it can leave.
TEST_F(CierreCajaTest, AnyAmountThatIsAcceptedGoesToTheDevice) {
    for (const qint32 importe : {0, 1, 9701, std::numeric_limits<qint32>::max()}) {
        dialogos.EsperaImporte(u"Cierre"_s, u"Importe:"_s, importe);
        cliente.EsperaCashBoxControl(15, importe, 0, 0, 0);
        Cerrar(Casos()[1]);
        ComprobarReposo();
    }
    EXPECT_EQ(Cierres().size(), 4U);
}

TEST_F(CierreCajaTest, AFractionIsRoundedHalvesToEven) {
    dialogos.EsperaImporte(u"Cierre"_s, u"Importe:"_s, Currency::DeDiezmilesimas(125000));
    cliente.EsperaCashBoxControl(15, 12, 0, 0, 0);
    Cerrar(Casos()[1]);
    ComprobarReposo();
}

TEST_F(CierreCajaTest, ARefusalOfTheDeviceIsToldAndThePeriodStaysOpen) {
    for (const CasoCierre& caso : Casos()) {
        log.Toma();
        PonerVenta(500);
        EsperaPregunta(caso);
        // Part of the money has moved.
        EsperaDispositivo(caso, Deja({2900, 5000, 300, 1500}, FinGuion::Error(31, u"Lleno"_s)));
        EsperaAviso(u"Error de Zorvex31"_s, kTextoRechazo);
        Cerrar(caso);
        EXPECT_EQ(log.lineas,
                  (QStringList{caso.variante.pideImporte ? u"#Cierre"_s : u"#Cierre de caja"_s,
                               u"CIERRE_LLAMADA_"_s + caso.variante.nombre, Llamada(caso),
                               Diario(caso, u"ERROR_31"_s), u"#Error de Zorvex31"_s}));
        EXPECT_EQ(Procesados().back().LeerLong(u"idCierre"_s), 0);
        ComprobarMovimientos({});
        EXPECT_EQ(SaldoInicial(), u"4321"_s);
        EXPECT_EQ(UltimoCierre(), u"-"_s);
        EXPECT_EQ(SaldoExit(), u"9700"_s);
        EXPECT_FALSE(Boton(BotonCaja::CierreNiveles));
        EXPECT_FALSE(Boton(BotonCaja::CierreValor));
        EXPECT_EQ(caja.Estado().foco, std::nullopt);
        EXPECT_EQ(caja.Estado().lbCambioMonedas, u"29,00 €"_s); // refreshed
        EXPECT_EQ(caja.Estado().lbSaldoCierre, QString());
        ComprobarReposo();
    }
    EXPECT_TRUE(Cierres().empty());
    EXPECT_EQ(caja.totales.cobros, Currency(1000));
}

TEST_F(CierreCajaTest, ACancelAtTheDeviceIsARefusalWithNumberZero) {
    EsperaPregunta(Casos()[0]);
    EsperaDispositivo(Casos()[0], FinGuion::Cancelado());
    EsperaAviso(u"Error de Zorvex0"_s, kTextoRechazo);
    Cerrar(Casos()[0]);
    EXPECT_TRUE(log.lineas.contains(Diario(Casos()[0], u"ERROR_0"_s)));
    EXPECT_EQ(caja.Estado().foco, BotonCaja::Imprimir);
    EXPECT_TRUE(Cierres().empty());
    ComprobarReposo();
}

// The link is lost in the close: the session is ended, and the refresh tells that there is none.
TEST_F(CierreCajaTest, ALostLinkDisconnectsBeforeTheRefresh) {
    EsperaPregunta(Casos()[0]);
    EsperaDispositivo(Casos()[0], FinGuion::EnlacePerdido());
    EsperaAviso(u"Error de Zorvex1"_s, kTextoRechazo);
    cliente.EsperaDisconnect();
    EsperaSinConexion();
    Cerrar(Casos()[0]);
    EXPECT_EQ(log.lineas,
              (QStringList{u"#Cierre de caja"_s, u"CIERRE_LLAMADA_INICIALES"_s,
                           u"@CashBoxControl(7, 0)"_s, Diario(Casos()[0], u"ERROR_1"_s),
                           u"#Error de Zorvex1"_s, u"@Disconnect()"_s,
                           u"ZVCONNECT_DESCONECTARZORV_DISCONNECT_OK"_s, u"#Zorvex"_s}));
    EXPECT_FALSE(entorno.supervision.Conectado());
    for (const BotonCaja boton :
         {BotonCaja::CierreNiveles, BotonCaja::CierreValor, BotonCaja::Cuadrar,
          BotonCaja::VaciarMonedas, BotonCaja::VaciarBilletes}) {
        EXPECT_FALSE(Boton(boton));
    }
    EXPECT_EQ(caja.saldos, SaldosCaja());
    // The device still says what has gone wrong.
    EXPECT_EQ(caja.Estado().foco, std::nullopt);
    EXPECT_TRUE(Cierres().empty());
    ComprobarReposo();
}

// The device has done its part and is gone when its levels are asked for.
TEST_F(CierreCajaTest, ALinkLostAfterTheDeviceHasWorkedStillClosesThePeriod) {
    PonerVenta(500);
    EsperaPregunta(Casos()[0]);
    EsperaDispositivo(Casos()[0], FinGuion::Ok().Durante([this] {
        cliente.FallarNiveles(2, 1, u"Enlace perdido"_s);
        cliente.FallarNiveles(3, 1, u"Enlace perdido"_s);
    }));
    for (int i = 0; i < 3; ++i) { // notes and coins of the recycler, the start of the next period
        EsperaAviso(u"Operación anulada"_s, u"Enlace perdido"_s);
    }
    EsperaRecordatorio(u"32,00 €"_s, u"65,00 €"_s);
    EsperaAviso(u"Operación anulada"_s, u"Enlace perdido"_s); // the exit balance
    EsperaAviso(u"Operación anulada"_s, u"Enlace perdido"_s); // and again when it is disconnected
    cliente.EsperaDisconnect();
    EsperaSinConexion();
    Cerrar(Casos()[0]);
    ComprobarReposo();
    EXPECT_EQ(Cierres().size(), 1U);
    ComprobarMovimientos({{tipo::kArqueoCaja, -kMovido, 0, kMovido, 0, 1}});
    EXPECT_EQ(Procesados().at(0).LeerLong(u"idCierre"_s), 1);
    EXPECT_EQ(SaldoInicial(), u"0"_s);
    EXPECT_FALSE(entorno.supervision.Conectado());
}

class CierreCajaInglesTest : public CierreCajaTest {
  protected:
    void SetUp() override {
        ingles_.PonerEn(carpeta.path());
        CierreCajaTest::SetUp();
    }
    IdiomaIngles ingles_;
};

TEST_F(CierreCajaInglesTest, WhatIsAskedAndToldIsInEnglish) {
    dialogos.EsperaMensaje(u"Till close"_s,
                           u"The till is about to be closed by levels. Do you want to continue?"_s);
    EsperaDispositivo(Casos()[0], FinGuion::Error(31, u"Full"_s));
    dialogos.EsperaMensaje(u"Zorvex error\u00a031"_s,
                           u"The till close could not be sent to Zorvex. Please call your "
                           "technician"_s);
    Cerrar(Casos()[0]);

    // These two come with the program.
    dialogos.EsperaImporte(u"Cierre"_s, u"Importe:"_s, 2500);
    EsperaDispositivo(Casos()[1], Deja(kQueda));
    dialogos.EsperaMensaje(u"Zorvex"_s, u"Remember to empty the collection boxes:\r\n"
                                        "Coins:\u00a022,00 €\r\nNotes:\u00a045,00 €"_s);
    Cerrar(Casos()[1]);

    dialogos.EsperaMensaje(u"Till close"_s, testing::_);
    cliente.EsperaCashBoxControl(7, 0, std::numeric_limits<qint32>::max(), 1, 0);
    dialogos.EsperaMensaje(u"The till could not be closed"_s, Empieza(u"Error nº 6:"_s));
    Cerrar(Casos()[0]);

    cliente.EsperaDisconnect();
    entorno.supervision.Cortar();
    dialogos.EsperaMensaje(u"Zorvex"_s, u"Not connected to Zorvex"_s);
    Cerrar(Casos()[0]);
    ComprobarReposo();
}

} // namespace zv::test
