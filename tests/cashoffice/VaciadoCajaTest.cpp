// Emptying a collection box, with no window.
#include "BancoCierre.h"
#include "support/IdiomaIngles.h"

namespace zv::test {

namespace {

struct CasoVaciado {
    CajonRecaudacion cajon;
    QString nombre;
    QString palabra;
    qint32 device;
    qint32 habia;
    Dinero queda;
};

std::vector<CasoVaciado> Casos() {
    return {{kCajonMonedas, u"MONEDAS"_s, u"monedas"_s, 0, 200, {3000, 5000, 0, 1500}},
            {kCajonBilletes, u"BILLETES"_s, u"billetes"_s, 1, 1500, {3000, 5000, 200, 0}}};
}

} // namespace

class VaciadoCajaTest : public BancoCierre {
  protected:
    void EsperaDispositivo(const CasoVaciado& caso, const FinGuion& fin = {}) {
        cliente.EsperaEmptyCB(caso.device, caso.habia, fin);
    }
    void Vaciar(const CasoVaciado& caso) { VaciadoCaja(caja).Vaciar(caso.cajon); }
    static QString Llamada(const CasoVaciado& caso) { return u"@EmptyCB(%1)"_s.arg(caso.device); }
    static QString Diario(const CasoVaciado& caso, const QString& estado) {
        return u"ZVEMPTYCB_VACIAR_%1_%2: DEVICE=%3 VALUE=%4"_s.arg(caso.nombre, estado)
            .arg(caso.device)
            .arg(caso.habia);
    }
};

TEST_F(VaciadoCajaTest, TheMoneyOfTheBoxIsFiledAndThePeriodGoesOn) {
    for (const CasoVaciado& caso : Casos()) {
        motor.Ejecutar(u"DELETE FROM procesados"_s);
        PonerVenta(500);
        PonerDinero(DeLaCaja());
        caja.RefrescarCaja();
        log.Toma();
        EsperaDispositivo(caso, Deja(caso.queda));
        Vaciar(caso);
        const QString id = Procesados().back().LeerTexto(u"idZV"_s);
        EXPECT_EQ(
            log.lineas,
            (QStringList{Llamada(caso), Diario(caso, u"OK"_s), u"VACIARCAJON_BEGINTRANS"_s,
                         u"ADDPROC_OK_"_s + id + u"_VACIAR_CAJON"_s, u"VACIARCAJON_COMMIT"_s}));
        ComprobarMovimientos(
            {{tipo::kVaciado, -caso.habia, 0, caso.habia, caso.queda.Suma(), 0, caso.nombre}});
        EXPECT_EQ(Procesados().at(0).LeerLong(u"idCierre"_s), 0);
        // Refreshed, and the exit balance stored after it.
        EXPECT_EQ(caja.totales.pagos, Currency(caso.habia));
        EXPECT_EQ(caja.totales.cobros, Currency(500));
        EXPECT_EQ(caja.saldos.contenido, Currency(caso.queda.Suma()));
        EXPECT_EQ(SaldoExit(), QString::number(caso.queda.Suma()));
        EXPECT_FALSE(
            Boton(caso.device == 0 ? BotonCaja::VaciarMonedas : BotonCaja::VaciarBilletes));
        ComprobarReposo();
    }
    EXPECT_EQ(SaldoInicial(), u"4321"_s);
    EXPECT_TRUE(Cierres().empty());
}

TEST_F(VaciadoCajaTest, TheExitBalanceIsStoredAfterTheRefresh) {
    EsperaDispositivo(Casos()[0], Deja(Casos()[0].queda));
    QStringList alRefrescar;
    caja.AlPintar([&] { alRefrescar << SaldoExit(); });
    Vaciar(Casos()[0]);
    EXPECT_EQ(alRefrescar, QStringList{u"9700"_s});
    EXPECT_EQ(SaldoExit(), QString::number(Casos()[0].queda.Suma()));
}

// What the device says that it has removed is filed, whatever the balance said before.
TEST_F(VaciadoCajaTest, TheAmountIsTheDevices) {
    cliente.EsperaEmptyCB(0, 177, Deja({3000, 5000, 23, 1500}));
    Vaciar(Casos()[0]);
    ComprobarMovimientos({{tipo::kVaciado, -177, 0, 177, 9523, 0, u"MONEDAS"_s}});
}

TEST_F(VaciadoCajaTest, WithoutADeviceItIsToldAndNothingHappens) {
    cliente.EsperaDisconnect();
    entorno.supervision.Cortar();
    for (const CasoVaciado& caso : Casos()) {
        log.Toma();
        EsperaSinConexion();
        Vaciar(caso);
        EXPECT_EQ(log.lineas, QStringList{u"#Zorvex"_s});
        ComprobarReposo();
    }
    ComprobarMovimientos({});
}

// The caption is stale: the button was enabled, and the box has been emptied meanwhile.
TEST_F(VaciadoCajaTest, AnEmptyBoxIsToldAndTheDeviceIsNotCalled) {
    for (const CasoVaciado& caso : Casos()) {
        PonerDinero(caso.queda);
        log.Toma();
        EXPECT_TRUE(Boton(BotonCaja::VaciarMonedas));
        EsperaAviso(u"Zorvex"_s, u"No hay "_s + caso.palabra + u" en el cajón de recaudación"_s);
        Vaciar(caso);
        EXPECT_EQ(log.lineas, QStringList{u"#Zorvex"_s});
        EXPECT_EQ(SaldoExit(), u"9700"_s);
        ComprobarReposo();
    }
    ComprobarMovimientos({});
}

TEST_F(VaciadoCajaTest, ARefusalIsToldWithNumberAndWordsAndNothingIsFiled) {
    for (const CasoVaciado& caso : Casos()) {
        PonerDinero(DeLaCaja());
        registry.GuardarValor(registry_name::kSaldoExit, u"1"_s);
        log.Toma();
        EsperaDispositivo(caso, FinGuion::Error(12, u"Atasco"_s));
        EsperaAviso(u"Zorvex: Error de vaciado"_s, u"Error al marcar como vaciado el cajón de "_s +
                                                       caso.palabra + u": 12: Atasco"_s);
        Vaciar(caso);
        EXPECT_EQ(log.lineas, (QStringList{Llamada(caso), Diario(caso, u"ERROR_12"_s),
                                           u"#Zorvex: Error de vaciado"_s}));
        EXPECT_EQ(SaldoExit(), u"9700"_s);
        ComprobarReposo();
    }
    ComprobarMovimientos({});
}

TEST_F(VaciadoCajaTest, ARefusalRefreshesNothing) {
    EsperaDispositivo(Casos()[0], Deja(Casos()[0].queda, FinGuion::Error(12, u"Atasco"_s)));
    dialogos.EsperaMensaje(u"Zorvex: Error de vaciado"_s, testing::_);
    Vaciar(Casos()[0]);
    EXPECT_EQ(caja.Estado().lbCBMonedas, u"2,00 €"_s);
    EXPECT_EQ(SaldoExit(), u"9500"_s);
}

TEST_F(VaciadoCajaTest, ACancelAtTheDeviceIsARefusalWithNumberZero) {
    EsperaDispositivo(Casos()[0], FinGuion::Cancelado());
    EsperaAviso(u"Zorvex: Error de vaciado"_s,
                u"Error al marcar como vaciado el cajón de monedas: 0: "_s);
    Vaciar(Casos()[0]);
    EXPECT_EQ(log.Cuenta(Diario(Casos()[0], u"ERROR_0"_s)), 1);
    ComprobarMovimientos({});
    ComprobarReposo();
}

// A lost link is a refusal like any other here: nothing is disconnected.
TEST_F(VaciadoCajaTest, ALostLinkIsTold) {
    EsperaDispositivo(Casos()[1], FinGuion::EnlacePerdido().Durante([this] {
        cliente.FallarNiveles(2, 1, u"Enlace perdido"_s);
        cliente.FallarNiveles(3, 1, u"Enlace perdido"_s);
    }));
    EsperaAviso(u"Zorvex: Error de vaciado"_s,
                u"Error al marcar como vaciado el cajón de billetes: 1: Enlace perdido"_s);
    EsperaAviso(u"Operación anulada"_s, u"Enlace perdido"_s); // the exit balance
    Vaciar(Casos()[1]);
    EXPECT_TRUE(entorno.supervision.Conectado());
    EXPECT_EQ(SaldoExit(), u"0"_s);
    ComprobarMovimientos({});
    ComprobarReposo();
}

TEST_F(VaciadoCajaTest, ABalanceThatReadsTheSameFilesNothingAndLeavesTheGrid) {
    for (const CasoVaciado& caso : Casos()) {
        registry.GuardarValor(registry_name::kSaldoExit, u"1"_s);
        PonerVenta(500); // would show in the grid
        log.Toma();
        EsperaDispositivo(caso);
        Vaciar(caso);
        EXPECT_EQ(log.lineas, (QStringList{Llamada(caso), Diario(caso, u"OK"_s)}));
        EXPECT_EQ(caja.grdZV().FilasDatos(), 0);
        EXPECT_EQ(SaldoExit(), u"9700"_s);
        EXPECT_NE(Activo(), u"1"_s);
        ComprobarReposo();
    }
    ComprobarMovimientos({});
}

TEST_F(VaciadoCajaTest, TheBalancesAreReadInTheirOrder) {
    const auto niveles = [this](qint32 tipo, int monedas, int billetes) {
        cliente.EsperaGetLevels(tipo, u"1,500"_s,
                                QString::number(monedas) + u',' + QString::number(billetes));
    };
    niveles(3, 0, 3); // notes of the boxes
    cliente.EsperaEmptyCB(1, 1500);
    niveles(3, 0, 1); // has changed
    niveles(3, 5, 6); // all that is left
    niveles(2, 7, 8);
    Vaciar(Casos()[1]);
    ComprobarMovimientos({{tipo::kVaciado, -1500, 0, 1500, 5 + 3000 + 7 + 4000, 0, u"BILLETES"_s}});
    EXPECT_TRUE(cliente.Agotado());
}

TEST_F(VaciadoCajaTest, TheMarkStandsWhileTheMovementIsWritten) {
    EsperaDispositivo(Casos()[0], FinGuion::Ok().Durante([this] {
        PonerDinero(Casos()[0].queda);
        EXPECT_NE(Activo(), u"1"_s);
        EXPECT_EQ(motor.Nivel(), 0);
        ComprobarSinBloqueo();
    }));
    int insertadas = 0;
    motor.PonerGancho([&](const Statement& s) {
        if (s.sql.startsWith(u"INSERT"_s) && s.sql.contains(u"devuelto"_s)) {
            ++insertadas;
            EXPECT_EQ(Activo(), u"1"_s);
            EXPECT_EQ(motor.Nivel(), 1);
        }
        if (s.sql == u"BEGIN IMMEDIATE"_s) {
            EXPECT_EQ(motor.Consultar(u"PRAGMA busy_timeout"_s).front().LeerLong(0), 10000);
        }
    });
    Vaciar(Casos()[0]);
    motor.PonerGancho({});
    EXPECT_EQ(insertadas, 1);
    EXPECT_EQ(Activo(), u"0"_s);
}

// Nobody waits for the operator under the write lock.
TEST_F(VaciadoCajaTest, ABalanceThatCannotBeReadIsToldAfterTheCommit) {
    cliente.EsperaGetLevels(3, u"1"_s, u"200"_s);
    cliente.EsperaEmptyCB(0, 200, FinGuion::Ok().Durante([this] {
        PonerDinero(Casos()[0].queda);
        cliente.FallarNiveles(2, 5, u"Ocupado"_s);
    }));
    // The movement's, the refresh's two, the exit balance's.
    dialogos.EsperaMensaje(u"Operación anulada"_s, u"Ocupado"_s, Respuesta::Aceptar, std::nullopt,
                           [this] {
                               EXPECT_EQ(log.lineas.last(), u"VACIARCAJON_COMMIT"_s);
                               EXPECT_EQ(Activo(), u"0"_s);
                               ComprobarSinBloqueo();
                           });
    for (int i = 0; i < 3; ++i) {
        EsperaAviso(u"Operación anulada"_s, u"Ocupado"_s);
    }
    Vaciar(Casos()[0]);
    ComprobarMovimientos({{tipo::kVaciado, -200, 0, 200, 1500, 0, u"MONEDAS"_s}});
    ComprobarReposo();
}

// ---- failures: nobody takes them on here

TEST_F(VaciadoCajaTest, ALockThatOutlastsTheWaitLosesTheMovementAndTheLogTellsIt) {
    EsperaDispositivo(Casos()[0], Deja(Casos()[0].queda));
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Comenzar, u"BEGIN IMMEDIATE"_s, 4);
    Vaciar(Casos()[0]);
    EXPECT_EQ(
        log.lineas.mid(2),
        (QStringList{u"VACIARCAJON_BEGINTRANS"_s, u"ADDPROC_ERROR_5_RESUME_1 [VACIAR_CAJON]"_s,
                     u"ADDPROC_ERROR_5_RESUME_2 [VACIAR_CAJON]"_s,
                     u"ADDPROC_ERROR_5_RESUME_3 [VACIAR_CAJON]"_s,
                     u"ADDPROC_ERROR_5 - database is locked [VACIAR_CAJON]"_s,
                     u"VACIARCAJON_COMMIT"_s}));
    ComprobarMovimientos({});
    ComprobarReposo();
}

TEST_F(VaciadoCajaTest, ACommitThatFailsIsRaisedAndLeavesEverythingAsItStands) {
    registry.GuardarValor(registry_name::kSaldoExit, u"1"_s);
    EsperaDispositivo(Casos()[0], Deja(Casos()[0].queda));
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Confirmar, u"COMMIT"_s, 1, {13, u"database or disk is full"_s});
    EXPECT_EQ(NumeroError([this] { Vaciar(Casos()[0]); }), 13);
    EXPECT_EQ(log.Cuenta(u"VACIARCAJON_COMMIT"_s), 0);
    EXPECT_EQ(Activo(), u"1"_s);
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(SaldoExit(), u"1"_s);
    EXPECT_EQ(caja.Estado().lbCBMonedas, u"2,00 €"_s);
    ComprobarMovimientos({});
}

// Otherwise the movement would stand within what a failed close has left, and go with it.
TEST_F(VaciadoCajaTest, ALevelThatSomebodyHasLeftOpenIsEndedFirst) {
    for (const CasoVaciado& caso : Casos()) {
        PonerDinero(DeLaCaja());
        log.Toma();
        motor.Comenzar();
        motor.Ejecutar(u"INSERT INTO historial (id) VALUES ('a medias')"_s);
        EsperaDispositivo(caso, Deja(caso.queda));
        Vaciar(caso);
        EXPECT_EQ(log.lineas.first(), u">>> Transacción abandonada: deshecha"_s);
        EXPECT_EQ(log.lineas.last(), u"VACIARCAJON_COMMIT"_s);
        ComprobarReposo();
    }
    EXPECT_EQ(Procesados().size(), 2U);
}

class VaciadoCajaInglesTest : public VaciadoCajaTest {
  protected:
    void SetUp() override {
        ingles_.PonerEn(carpeta.path());
        VaciadoCajaTest::SetUp();
    }
    IdiomaIngles ingles_;
};

// The other messages come with the program.
TEST_F(VaciadoCajaInglesTest, TheMissingConnectionIsToldInEnglish) {
    cliente.EsperaDisconnect();
    entorno.supervision.Cortar();
    dialogos.EsperaMensaje(u"Zorvex"_s, u"Not connected to Zorvex"_s);
    Vaciar(Casos()[0]);
    PonerDinero({});
}

} // namespace zv::test
