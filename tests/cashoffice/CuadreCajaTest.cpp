// The reconciling run, with no window.
#include "BancoCierre.h"
#include "support/IdiomaIngles.h"

#include <limits>

namespace zv::test {

class CuadreCajaTest : public BancoCierre {
  protected:
    // B = 9700. What the device holds after it has counted, and what it says its boxes have lost.
    void EsperaDispositivo(const Dinero& queda, qint32 monedas, qint32 billetes) {
        cliente.EsperaCashBoxControl(0, 0, monedas, billetes, 0, Deja(queda));
    }
    void EsperaPregunta(const QString& importe, Respuesta respuesta) {
        dialogos.EsperaMensaje(
            u"Descuadre detectado"_s,
            u"Se ha detectado un descuadre entre el último saldo de Zorvex y el actual de:"_s +
                importe + u"\r\n\r\n¿Desea hacer un apunte de cuadre?"_s,
            respuesta, EstiloMensaje::SiNo, Visto(u"Descuadre"_s));
    }
    void Cuadrar() { CuadreCaja(caja).Cuadrar(); }
    static QStringList Principio(qint32 monedas, qint32 billetes) {
        return {u"@CashBoxControl(0, 0)"_s,
                u"ZVCASHBOXCONTROL_CASHBOXCONTROL_OK: COINSVALUEINCB=%1 NOTESVALUEINCB=%2 "
                "REMAININGCHANGE=0"_s.arg(monedas)
                    .arg(billetes)};
    }
    static QStringList Apunte(int id, const QString& origen) {
        return {u"CASHBOXCONTROL_BEGINTRANS"_s,
                u"ADDPROC_OK_%1_%2"_s.arg(QString::number(id), origen), u"CASHBOXCONTROL_COMMIT"_s};
    }
    static QStringList Cierre(int id, int idCierre) {
        return {u"ADDPROC_OK_%1_ARQUEOCAJA"_s.arg(id), u"CIERRE_CASHBOXCONTROL_BEGINTRANS"_s,
                u"CIERRE_CASHBOXCONTROL_%1_COMMIT"_s.arg(idCierre)};
    }
};

TEST_F(CuadreCajaTest, WhereNothingHasChangedNothingIsWrittenButTheScreenIsRefreshed) {
    PonerVenta(500);
    EsperaDispositivo(DeLaCaja(), 0, 0);
    Cuadrar();
    EXPECT_EQ(log.lineas, Principio(0, 0));
    ComprobarMovimientos({});
    EXPECT_TRUE(Cierres().empty());
    EXPECT_EQ(caja.totales.cobros, Currency(500));
    EXPECT_EQ(Procesados().at(0).LeerLong(u"idCierre"_s), 0);
    EXPECT_EQ(SaldoInicial(), u"4321"_s);
    EXPECT_NE(Activo(), u"1"_s);
    ComprobarReposo();
}

// The boxes have been taken out and nothing is missing: no question, the money twice, a close.
TEST_F(CuadreCajaTest, BoxesTakenOutAreFiledTwiceAndCloseThePeriod) {
    PonerVenta(500);
    caja.RefrescarCaja();
    EsperaDispositivo({3000, 5000, 0, 0}, 200, 1500);
    Cuadrar();
    EXPECT_EQ(log.lineas, Principio(200, 1500) + Apunte(2, u"VACIADOCAJONES"_s) + Cierre(3, 1));
    ComprobarMovimientos({{tipo::kVaciadoCajones, -1700, 0, 1700, 8000, 1},
                          {tipo::kArqueoCaja, -1700, 0, 1700, 8000, 1}});
    EXPECT_EQ(Procesados().at(0).LeerLong(u"idCierre"_s), 1);
    EXPECT_EQ(SaldoInicial(), u"8000"_s);
    EXPECT_EQ(entorno.supervision.SaldoInicial(), 8000);
    EXPECT_EQ(UltimoCierre(), u"14/03/26 18:04:11"_s);
    EXPECT_EQ(caja.totales, TotalesPeriodo());
    ComprobarReposo();
}

TEST_F(CuadreCajaTest, TheRowOfTheCloseHoldsWhatTheLastRefreshAndTheDeviceSay) {
    caja.totales.cobros = 11;
    caja.totales.abonos = 12;
    caja.totales.pagos = 13;
    caja.totales.ingresos = 14;
    caja.saldos.contenido = 16;
    EsperaDispositivo({2500, 4000, 100, 500}, 0, 0);
    EsperaPregunta(u"26,00 €"_s, Respuesta::No);
    Cuadrar();
    const Row fila = Cierres().at(0);
    EXPECT_EQ(fila.LeerFecha(u"fecha"_s), reloj.Ahora());
    EXPECT_EQ(fila.LeerCurrency(u"saldoInicial"_s), Currency(4321));
    EXPECT_EQ(fila.LeerCurrency(u"cobros"_s), Currency(11));
    EXPECT_EQ(fila.LeerCurrency(u"abonos"_s), Currency(12));
    EXPECT_EQ(fila.LeerCurrency(u"pagos"_s), Currency(13));
    EXPECT_EQ(fila.LeerCurrency(u"ingresos"_s), Currency(14));
    EXPECT_EQ(fila.LeerCurrency(u"saldoZV"_s), Currency(16));
    EXPECT_EQ(fila.LeerCurrency(u"importeCierre"_s), Currency(7100));
    EXPECT_EQ(fila.LeerCurrency(u"cambioBilletes"_s), Currency(4000));
    EXPECT_EQ(fila.LeerCurrency(u"cambioMonedas"_s), Currency(2500));
    EXPECT_EQ(fila.LeerCurrency(u"cajonBilletes"_s), Currency(6500 - 4500));
    EXPECT_EQ(fila.LeerCurrency(u"cajonMonedas"_s), Currency(3200 - 2600));
    // Filed with R = 0 too.
    ComprobarMovimientos({{tipo::kArqueoCaja, 0, 0, 0, 7100, 1}});
}

TEST_F(CuadreCajaTest, MoneyMissingIsFiledWhenTheOperatorSaysYes) {
    EsperaDispositivo({2900, 5000, 200, 1500}, 0, 0);
    EsperaPregunta(u"1,00 €"_s, Respuesta::Si);
    Cuadrar();
    EXPECT_EQ(log.lineas, Principio(0, 0) + QStringList{u"#Descuadre"_s} +
                              Apunte(1, u"CASHBOXCONTROL"_s) + Cierre(2, 1));
    ComprobarMovimientos(
        {{tipo::kVaciadoCajones, -100, 0, 100, 9600, 1}, {tipo::kArqueoCaja, 0, 0, 0, 9600, 1}});
    ComprobarReposo();
}

TEST_F(CuadreCajaTest, MoneyOverIsFiledWithANegativeSale) {
    EsperaDispositivo({3100, 5000, 200, 1500}, 0, 0);
    EsperaPregunta(u"-1,00 €"_s, Respuesta::Si);
    Cuadrar();
    EXPECT_EQ(log.lineas, Principio(0, 0) + QStringList{u"#Descuadre"_s} +
                              Apunte(1, u"CASHBOXCONTROL"_s) + Cierre(2, 1));
    ComprobarMovimientos(
        {{tipo::kCashBoxControl, -100, 100, 0, 9800, 1}, {tipo::kArqueoCaja, 0, 0, 0, 9800, 1}});
    ComprobarReposo();
}

// The question tells the difference between the totals; the entry leaves out what is explained.
TEST_F(CuadreCajaTest, TheQuestionAndTheEntryTellDifferentAmounts) {
    EsperaDispositivo({2990, 5000, 0, 0}, 200, 1500);
    EsperaPregunta(u"17,10 €"_s, Respuesta::Si);
    Cuadrar();
    EXPECT_EQ(log.lineas, Principio(200, 1500) + QStringList{u"#Descuadre"_s} +
                              Apunte(1, u"CASHBOXCONTROL"_s) + Apunte(2, u"VACIADOCAJONES"_s) +
                              Cierre(3, 1));
    ComprobarMovimientos({{tipo::kVaciadoCajones, -10, 0, 10, 7990, 1},
                          {tipo::kVaciadoCajones, -1700, 0, 1700, 7990, 1},
                          {tipo::kArqueoCaja, -1700, 0, 1700, 7990, 1}});
}

TEST_F(CuadreCajaTest, DecliningTheEntryStopsNothingElse) {
    EsperaDispositivo({2990, 5000, 0, 0}, 200, 1500);
    EsperaPregunta(u"17,10 €"_s, Respuesta::No);
    Cuadrar();
    EXPECT_EQ(log.lineas, Principio(200, 1500) + QStringList{u"#Descuadre"_s} +
                              Apunte(1, u"VACIADOCAJONES"_s) + Cierre(2, 1));
    ComprobarMovimientos({{tipo::kVaciadoCajones, -1700, 0, 1700, 7990, 1},
                          {tipo::kArqueoCaja, -1700, 0, 1700, 7990, 1}});
    EXPECT_EQ(Cierres().size(), 1U);
    ComprobarReposo();
}

// B = C, and yet something was taken out: the totals are the same, so that the period stays open.
TEST_F(CuadreCajaTest, SomethingTakenOutThatChangesNoTotalIsFiledWithoutAClose) {
    EsperaDispositivo(DeLaCaja(), 200, 0);
    EsperaPregunta(u"0,00 €"_s, Respuesta::Si);
    Cuadrar();
    EXPECT_EQ(log.lineas, Principio(200, 0) + QStringList{u"#Descuadre"_s} +
                              Apunte(1, u"CASHBOXCONTROL"_s) + Apunte(2, u"VACIADOCAJONES"_s));
    ComprobarMovimientos({{tipo::kCashBoxControl, -200, 200, 0, 9700, 0},
                          {tipo::kVaciadoCajones, -200, 0, 200, 9700, 0}});
    EXPECT_TRUE(Cierres().empty());
    ComprobarReposo();
}

// No label and no reminder: the refresh shows what there is.
TEST_F(CuadreCajaTest, TheCloseIsSilent) {
    EsperaDispositivo({3000, 5000, 0, 0}, 200, 1500);
    caja.AlPintar([&] {
        EXPECT_EQ(caja.Estado().lbSaldoCierre, QString());
        EXPECT_EQ(caja.Estado().lbCBMonedas, u"2,00 €"_s); // the refresh begins
    });
    Cuadrar();
    EXPECT_EQ(caja.Estado().lbSaldoCierre, QString());
    EXPECT_EQ(caja.Estado().lbCBMonedas, u"0,00 €"_s);
    EXPECT_EQ(caja.Estado().lbContenido, u"80,00 €"_s);
    EXPECT_TRUE(Boton(BotonCaja::CierreNiveles));
    EXPECT_TRUE(Boton(BotonCaja::CierreValor));
    EXPECT_EQ(caja.Estado().foco, std::nullopt);
}

TEST_F(CuadreCajaTest, TheExitBalanceIsKeptInMemoryAlone) {
    EsperaDispositivo({3000, 5000, 0, 0}, 200, 1500);
    std::vector<Currency> alRefrescar;
    caja.AlPintar([&] { alRefrescar.push_back(entorno.supervision.SaldoExit()); });
    Cuadrar();
    EXPECT_EQ(entorno.supervision.SaldoExit(), Currency(8000));
    EXPECT_EQ(alRefrescar, std::vector<Currency>{Currency(8000)}); // before the refresh
    EXPECT_EQ(SaldoExit(), u"9700"_s);
}

TEST_F(CuadreCajaTest, TheBalancesAreReadInTheirOrder) {
    const auto niveles = [this](qint32 tipo, int monedas, int billetes) {
        cliente.EsperaGetLevels(tipo, u"1,500"_s,
                                QString::number(monedas) + u',' + QString::number(billetes));
    };
    niveles(3, 9, 0); // B = 9 + 2000
    niveles(2, 0, 4);
    niveles(2, 10, 99); // before: coins of the recycler
    niveles(3, 20, 99); // coins of the boxes
    niveles(2, 99, 4);  // notes of the recycler
    niveles(3, 99, 6);  // notes of the boxes
    cliente.EsperaCashBoxControl(0, 0, 0, 0, 0);
    niveles(3, 9, 0); // C = 9 + 1500
    niveles(2, 0, 3);
    EsperaPregunta(u"5,00 €"_s, Respuesta::No);
    niveles(2, 88, 2); // after: notes of the recycler
    niveles(2, 7, 88); // coins of the recycler
    niveles(3, 88, 3); // notes of the boxes
    niveles(3, 5, 88); // coins of the boxes
    niveles(3, 5, 3);  // the start of the next period
    niveles(2, 7, 2);
    Cuadrar();
    const Row fila = Cierres().at(0);
    EXPECT_EQ(fila.LeerCurrency(u"cambioMonedas"_s), Currency(7));
    EXPECT_EQ(fila.LeerCurrency(u"cambioBilletes"_s), Currency(1000));
    EXPECT_EQ(fila.LeerCurrency(u"cajonMonedas"_s), Currency(10 + 20 - 7 - 5));
    EXPECT_EQ(fila.LeerCurrency(u"cajonBilletes"_s), Currency(2000 + 3000 - 1000 - 1500));
    EXPECT_EQ(entorno.supervision.SaldoExit(), Currency(1509));
    ComprobarMovimientos({{tipo::kArqueoCaja, 0, 0, 0, 2512, 1}});
    ComprobarReposo();
}

// The mark is raised for the entry and for the close, not for what was taken out of the boxes.
TEST_F(CuadreCajaTest, TheMarkStandsForTheEntryAndTheClose) {
    EsperaDispositivo({2990, 5000, 0, 0}, 200, 1500);
    EsperaPregunta(u"17,10 €"_s, Respuesta::Si);
    QStringList marcas;
    motor.PonerGancho([&](const Statement& s) {
        if (s.sql.startsWith(u"INSERT"_s) &&
            (s.sql.contains(u"devuelto"_s) || s.sql.contains(u"importeCierre"_s))) {
            marcas << Activo() + u'/' + QString::number(motor.Nivel());
        }
        if (s.sql == u"BEGIN IMMEDIATE"_s) {
            EXPECT_EQ(motor.Consultar(u"PRAGMA busy_timeout"_s).front().LeerLong(0), 10000);
        }
    });
    Cuadrar();
    motor.PonerGancho({});
    EXPECT_EQ(marcas, (QStringList{u"1/1"_s, u"0/1"_s, u"0/1"_s, u"1/1"_s}));
    EXPECT_EQ(Activo(), u"0"_s);
}

TEST_F(CuadreCajaTest, AMarkThatSomebodyHasLeftGoesDownAfterTheBoxes) {
    registry.GuardarValor(registry_name::kActivo, u"1"_s);
    EsperaDispositivo(DeLaCaja(), 200, 0);
    EsperaPregunta(u"0,00 €"_s, Respuesta::No);
    Cuadrar();
    EXPECT_EQ(Activo(), u"0"_s);
}

// Whether the device calls it good is not looked at.
TEST_F(CuadreCajaTest, ARefusalOfTheDeviceIsNotLookedAt) {
    cliente.EsperaCashBoxControl(0, 0, 0, 0, 0, FinGuion::Error(12, u"Atasco"_s));
    Cuadrar();
    EXPECT_EQ(log.lineas, Principio(0, 0));
    cliente.EsperaCashBoxControl(0, 0, 0, 1500, 0,
                                 Deja({3000, 5000, 200, 0}, FinGuion::Cancelado()));
    Cuadrar();
    EXPECT_EQ(Cierres().size(), 1U);
    EXPECT_TRUE(entorno.supervision.Conectado());
    ComprobarReposo();
}

// Everything is missing then, as the balances are 0.
TEST_F(CuadreCajaTest, ALostLinkDisconnectsAndGoesOnWithBalancesOfZero) {
    for (const Respuesta respuesta : {Respuesta::No, Respuesta::Si}) {
        motor.Ejecutar(u"DELETE FROM procesados"_s);
        motor.Ejecutar(u"DELETE FROM cierres"_s);
        if (!entorno.supervision.Conectado()) {
            cliente.EsperaConnect();
            registry.GuardarValor(registry_name::kSaldoExit, u"9700"_s);
            entorno.supervision.Conectar();
        }
        log.Toma();
        cliente.EsperaCashBoxControl(0, 0, 0, 0, 0, FinGuion::EnlacePerdido());
        cliente.EsperaDisconnect();
        EsperaPregunta(u"97,00 €"_s, respuesta);
        EsperaSinConexion();
        Cuadrar();
        EXPECT_EQ(log.lineas.mid(0, 4), (QStringList{u"@CashBoxControl(0, 0)"_s, u"@Disconnect()"_s,
                                                     u"ZVCONNECT_DESCONECTARZORV_DISCONNECT_OK"_s,
                                                     Principio(0, 0).last()}));
        std::vector<Movimiento> esperados;
        const qint32 idCierre = Cierres().at(0).LeerLong(u"idCierre"_s);
        if (respuesta == Respuesta::Si) {
            esperados.push_back({tipo::kVaciadoCajones, -9700, 0, 9700, 0, idCierre});
        }
        esperados.push_back({tipo::kArqueoCaja, 0, 0, 0, 0, idCierre});
        ComprobarMovimientos(esperados);
        const Row fila = Cierres().at(0);
        EXPECT_EQ(fila.LeerCurrency(u"importeCierre"_s), Currency(0));
        EXPECT_EQ(fila.LeerCurrency(u"cajonMonedas"_s), Currency(3200));
        EXPECT_EQ(fila.LeerCurrency(u"cajonBilletes"_s), Currency(6500));
        EXPECT_EQ(SaldoInicial(), u"0"_s);
        EXPECT_EQ(entorno.supervision.SaldoExit(), Currency(0));
        EXPECT_FALSE(entorno.supervision.Conectado());
        EXPECT_FALSE(Boton(BotonCaja::Cuadrar));
        EXPECT_EQ(caja.saldos, SaldosCaja());
        ComprobarReposo();
    }
}

TEST_F(CuadreCajaTest, WithoutADeviceItIsToldAndNothingHappens) {
    cliente.EsperaDisconnect();
    entorno.supervision.Cortar();
    log.Toma();
    EsperaSinConexion();
    Cuadrar();
    EXPECT_EQ(log.lineas, QStringList{u"#Zorvex"_s});
    EXPECT_EQ(entorno.supervision.SaldoExit(), Currency(9700));
    ComprobarReposo();
}

TEST_F(CuadreCajaTest, TheTimeIsDroppedOnlyWhenTheSettingIsExactlyOne) {
    entorno.configuracio->SINHORA = 1;
    EsperaDispositivo({3000, 5000, 0, 0}, 200, 1500);
    Cuadrar();
    EXPECT_EQ(UltimoCierre(), u"14/03/26"_s);
    EXPECT_EQ(Cierres().at(0).LeerFecha(u"fecha"_s), QDateTime(QDate(2026, 3, 14), QTime(0, 0)));
}

// ---- failures: nobody takes them on here

TEST_F(CuadreCajaTest, AFailureIsRaisedAndLeavesEverythingAsItStands) {
    PonerVenta(500);
    EsperaDispositivo({3000, 5000, 0, 0}, 200, 1500);
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Escritura, u"UPDATE procesados"_s, 1, {10, u"disk I/O error"_s});
    EXPECT_EQ(NumeroError([this] { Cuadrar(); }), 10);
    EXPECT_EQ(log.lineas.last(), u"CIERRE_CASHBOXCONTROL_BEGINTRANS"_s);
    EXPECT_EQ(motor.Nivel(), 1);
    EXPECT_EQ(Activo(), u"1"_s);
    EXPECT_EQ(SaldoInicial(), u"4321"_s);
    entorno.transacciones.Saldar();
    EXPECT_TRUE(Cierres().empty());
    // What was committed before stands.
    ComprobarMovimientos({{tipo::kVaciadoCajones, -1700, 0, 1700, 8000, 0},
                          {tipo::kArqueoCaja, -1700, 0, 1700, 8000, 0}});
}

TEST_F(CuadreCajaTest, ACommitThatFailsIsRaised) {
    for (int cual = 0; cual < 2; ++cual) {
        log.Toma();
        PonerDinero(DeLaCaja());
        EsperaDispositivo({2990, 5000, 0, 0}, 200, 1500);
        EsperaPregunta(u"17,10 €"_s, Respuesta::Si);
        int pasadas = 0;
        motor.PonerGancho([&](const Statement& s) {
            if (s.kind == Statement::Kind::Confirmar && pasadas++ == cual) {
                throw ErrorEjecucion(13, u"database or disk is full"_s);
            }
        });
        EXPECT_EQ(NumeroError([this] { Cuadrar(); }), 13);
        motor.PonerGancho({});
        EXPECT_EQ(log.Cuenta(u"CASHBOXCONTROL_COMMIT"_s), cual);
        EXPECT_EQ(motor.Nivel(), 0);
        Olvidar();
    }
    EXPECT_EQ(Procesados().size(), 1U);
}

TEST_F(CuadreCajaTest, ASumBeyondThirtyTwoBitsIsRaised) {
    EsperaDispositivo(DeLaCaja(), std::numeric_limits<qint32>::max(), 1);
    EXPECT_EQ(NumeroError([this] { Cuadrar(); }), 6);
    EXPECT_TRUE(Procesados().empty());
    EXPECT_EQ(motor.Nivel(), 0);
}

TEST_F(CuadreCajaTest, ALevelThatSomebodyHasLeftOpenIsEndedFirst) {
    motor.Comenzar();
    motor.Ejecutar(u"INSERT INTO historial (id) VALUES ('a medias')"_s);
    EsperaDispositivo({3000, 5000, 0, 0}, 200, 1500);
    Cuadrar();
    EXPECT_EQ(log.lineas.first(), u">>> Transacción abandonada: deshecha"_s);
    EXPECT_EQ(Cierres().size(), 1U);
    ComprobarReposo();
}

// Every statement fails, once and for good: the period is open and whole or closed and whole.
TEST_F(CuadreCajaTest, EveryStatementMayFail) {
    int fallidos = 0;
    int lanzados = 0;
    for (const bool siempre : {false, true}) {
        bool queda = true;
        for (int n = 1; queda; ++n) {
            SCOPED_TRACE(testing::Message() << "statement " << n << (siempre ? " and on" : ""));
            motor.Ejecutar(u"DELETE FROM procesados"_s);
            motor.Ejecutar(u"DELETE FROM cierres"_s);
            PonerVenta(500);
            PonerDinero(DeLaCaja());
            log.Toma();
            int pasadas = 0;
            const auto poner = [&, n, siempre] {
                motor.PonerGancho([&pasadas, n, siempre](const Statement&) {
                    ++pasadas;
                    if (pasadas == n || (siempre && pasadas > n)) {
                        throw ErrorEjecucion(10, u"disk I/O error"_s);
                    }
                });
            };
            EsperaDispositivo({2990, 5000, 0, 0}, 200, 1500);
            dialogos.EsperaMensaje(u"Descuadre detectado"_s, testing::_, Respuesta::Si,
                                   std::nullopt, poner);
            lanzados += NumeroError([this] { Cuadrar(); }) != 0 ? 1 : 0;
            motor.PonerGancho({});
            queda = pasadas >= n;
            fallidos += queda ? 1 : 0;
            Olvidar();
            entorno.transacciones.Saldar();
            ComprobarSinBloqueo();
            const bool cerrado =
                log.lineas.filter(u"CIERRE_CASHBOXCONTROL_"_s).filter(u"_COMMIT"_s).size() == 1;
            EXPECT_EQ(Cierres().size(), cerrado ? 1U : 0U);
            const qint32 numero = cerrado ? Cierres().at(0).LeerLong(u"idCierre"_s) : 0;
            for (const Row& fila : Procesados()) {
                EXPECT_EQ(fila.LeerLong(u"idCierre"_s), numero);
            }
        }
    }
    EXPECT_GT(fallidos, 30);
    EXPECT_GT(lanzados, 15);
}

class CuadreCajaInglesTest : public CuadreCajaTest {
  protected:
    void SetUp() override {
        ingles_.PonerEn(carpeta.path());
        CuadreCajaTest::SetUp();
    }
    IdiomaIngles ingles_;
};

TEST_F(CuadreCajaInglesTest, TheQuestionIsInEnglish) {
    EsperaDispositivo({2900, 5000, 200, 1500}, 0, 0);
    dialogos.EsperaMensaje(u"Discrepancy found"_s,
                           u"The current Zorvex balance differs from the last one by:\u00a01,00 €"
                           "\r\n\r\nDo you want to post an adjustment?"_s,
                           Respuesta::No);
    Cuadrar();
    cliente.EsperaDisconnect();
    entorno.supervision.Cortar();
    dialogos.EsperaMensaje(u"Zorvex"_s, u"Not connected to Zorvex"_s);
    Cuadrar();
    ComprobarReposo();
}

} // namespace zv::test
