// What a close of a cash period leaves when something fails on its way.
#include "BancoCierreCaja.h"

#include <QThread>

#include <atomic>
#include <limits>

namespace zv::test {

using CierreCajaFallosTest = CierreCajaTest;

TEST_F(CierreCajaFallosTest, AFailureLeavesEverythingAsItStands) {
    for (const CasoCierre& caso : Casos()) {
        log.Toma();
        PonerDinero(DeLaCaja());
        PonerVenta(500);
        EsperaPregunta(caso);
        EsperaDispositivo(caso, Deja(kQueda));
        EsperaFallo(10, u"disk I/O error"_s, [this] {
            EXPECT_EQ(motor.Nivel(), 1);
            EXPECT_TRUE(motor.NivelEscrito());
            EXPECT_EQ(Activo(), u"1"_s);
        });
        {
            GanchoFallos gancho(motor);
            gancho.Falla(Statement::Kind::Escritura, u"UPDATE procesados"_s, 1,
                         {10, u"disk I/O error"_s});
            Cerrar(caso);
        }
        EXPECT_EQ(log.lineas.last(), Tag(caso) + u"_BEGINTRANS"_s);
        EXPECT_EQ(motor.Nivel(), 1);
        EXPECT_EQ(Activo(), u"1"_s);
        ComprobarSinRematar();
        EXPECT_EQ(caja.Estado().lbContenido, u"97,00 €"_s); // not refreshed
        entorno.transacciones.Saldar();
        EXPECT_EQ(log.lineas.last(), u">>> Transacción abandonada: deshecha"_s);
        EXPECT_TRUE(Cierres().empty());
        EXPECT_EQ(Procesados().back().LeerTexto(u"id1"_s), tipo::kArqueoCaja);
        EXPECT_EQ(Procesados().back().LeerLong(u"idCierre"_s), 0);
        EXPECT_EQ(dialogos.Pendientes(), 0U);
        caja.PonerBoton(BotonCaja::VaciarMonedas, true);
        registry.GuardarValor(registry_name::kActivo, u"0"_s);
    }
}

// Otherwise the second one would stand within what the first has left, and go with it.
TEST_F(CierreCajaFallosTest, ACloseAfterAFailedOneStandsOnItsOwn) {
    PonerVenta(500);
    EsperaPregunta(Casos()[0]);
    EsperaDispositivo(Casos()[0], Deja(kQueda));
    EsperaFallo(10, u"disk I/O error"_s);
    {
        GanchoFallos gancho(motor);
        gancho.Falla(Statement::Kind::Escritura, u"UPDATE procesados"_s, 1,
                     {10, u"disk I/O error"_s});
        Cerrar(Casos()[0]);
    }
    log.Toma();
    EsperaPregunta(Casos()[1]);
    cliente.EsperaCashBoxControl(15, 2500, 0, 0, 0);
    Cerrar(Casos()[1]);
    EXPECT_EQ(log.lineas.first(), u">>> Transacción abandonada: deshecha"_s);
    EXPECT_EQ(log.lineas.last(), u"CIERRE_PORVALOR_1_COMMIT"_s);
    ComprobarReposo();
    entorno.transacciones.Saldar();
    EXPECT_EQ(Cierres().size(), 1U);
    for (const Row& fila : Procesados()) {
        EXPECT_EQ(fila.LeerLong(u"idCierre"_s), 1);
    }
}

TEST_F(CierreCajaFallosTest, ADiskThatIsFullAtTheCommitLeavesThePeriodOpen) {
    PonerVenta(500);
    EsperaPregunta(Casos()[0]);
    cliente.EsperaCashBoxControl(7, 0, 0, 0, 0, Deja(kQueda));
    EsperaFallo(13, u"database or disk is full"_s, [this] {
        EXPECT_EQ(motor.Nivel(), 0); // the engine ends a level whose commit fails
        EXPECT_EQ(Activo(), u"1"_s);
        ComprobarSinBloqueo();
    });
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Confirmar, u"COMMIT"_s, 1, {13, u"database or disk is full"_s});
    Cerrar(Casos()[0]);
    EXPECT_EQ(log.CuentaInicio(u"CIERRE_INICIALES_1_COMMIT"_s), 0);
    EXPECT_TRUE(Cierres().empty());
    EXPECT_EQ(Procesados().at(0).LeerLong(u"idCierre"_s), 0);
    EXPECT_EQ(Activo(), u"1"_s);
    ComprobarSinRematar();
}

// The movement is durable on its own, so that its own commit may fail too.
TEST_F(CierreCajaFallosTest, TheCommitOfTheMovementIsTriedAgain) {
    EsperaCierre(Casos()[0]);
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Confirmar, u"COMMIT"_s, 3, {13, u"database or disk is full"_s});
    Cerrar(Casos()[0]);
    EXPECT_EQ(log.lineas.filter(u"ADDPROC_ERROR"_s),
              (QStringList{u"ADDPROC_ERROR_13_RESUME_1 [ARQUEOCAJA]"_s,
                           u"ADDPROC_ERROR_13_RESUME_2 [ARQUEOCAJA]"_s,
                           u"ADDPROC_ERROR_13_RESUME_3 [ARQUEOCAJA]"_s}));
    ComprobarMovimientos({{tipo::kArqueoCaja, -kMovido, 0, kMovido, kQueda.Suma(), 1}});
    EXPECT_EQ(Cierres().size(), 1U);
    ComprobarReposo();
}

TEST_F(CierreCajaFallosTest, AMovementThatCannotBeCommittedIsInTheLogAndStopsNothing) {
    EsperaCierre(Casos()[0]);
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Confirmar, u"COMMIT"_s, 4, {13, u"database or disk is full"_s});
    Cerrar(Casos()[0]);
    EXPECT_EQ(log.Cuenta(u"ADDPROC_ERROR_13 - database or disk is full [ARQUEOCAJA]"_s), 1);
    ComprobarMovimientos({});
    EXPECT_EQ(Cierres().size(), 1U);
    ComprobarReposo();
}

TEST_F(CierreCajaFallosTest, AMovementThatCannotBeFiledStopsNothing) {
    EsperaCierre(Casos()[0]);
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Escritura, u"INSERT INTO"_s, 4, {10, u"disk I/O error"_s});
    Cerrar(Casos()[0]);
    EXPECT_EQ(log.CuentaInicio(u"ADDPROC_ERROR_10_RESUME_"_s), 3);
    EXPECT_EQ(log.Cuenta(u"ADDPROC_ERROR_10 - disk I/O error [ARQUEOCAJA]"_s), 1);
    ComprobarMovimientos({});
    EXPECT_EQ(Cierres().size(), 1U);
    ComprobarReposo();
}

// Both filings wait: that of the movement and that of the close.
TEST_F(CierreCajaFallosTest, AfterTheDeviceHasWorkedALockIsWaitedForUpToTenSeconds) {
    for (const CasoCierre& caso : Casos()) {
        PonerDinero(DeLaCaja());
        std::vector<qint32> esperas;
        EsperaCierre(caso);
        motor.PonerGancho([&](const Statement& s) {
            if (s.sql == u"BEGIN IMMEDIATE"_s) {
                esperas.push_back(motor.Consultar(u"PRAGMA busy_timeout"_s).front().LeerLong(0));
            }
        });
        Cerrar(caso);
        motor.PonerGancho({});
        EXPECT_EQ(esperas, (std::vector<qint32>{10000, 10000}));
    }
}

// Another program holds the lock and lets it go after a while.
TEST_F(CierreCajaFallosTest, ALockOfAnotherProgramIsWaitedFor) {
    EsperaPregunta(Casos()[0]);
    const QString cadena = CadenaConexion(u"MDB"_s, {}, entorno.conexion.RutaFichero(), {}, {});
    std::atomic_bool tomado = false;
    std::unique_ptr<QThread> otro(QThread::create([&] {
        SqliteEngine motorAjeno;
        DatabaseEngine& ajeno = motorAjeno;
        ajeno.Abrir(cadena);
        ajeno.Comenzar();
        ajeno.Ejecutar(u"INSERT INTO historial (id) VALUES ('ajeno')"_s);
        tomado = true;
        QThread::msleep(1300); // longer than a statement waits by itself
        ajeno.Confirmar();
    }));
    EsperaDispositivo(Casos()[0], FinGuion::Ok().Durante([&] {
        PonerDinero(kQueda);
        otro->start();
        while (!tomado) {
            QThread::msleep(1);
        }
    }));
    dialogos.EsperaMensaje(u"Zorvex"_s, testing::_);
    Cerrar(Casos()[0]);
    otro->wait();
    EXPECT_EQ(log.CuentaInicio(u"ADDPROC_ERROR"_s), 0);
    EXPECT_EQ(Cierres().size(), 1U);
    ComprobarMovimientos({{tipo::kArqueoCaja, -kMovido, 0, kMovido, kQueda.Suma(), 1}});
    ComprobarReposo();
}

TEST_F(CierreCajaFallosTest, ALockThatOutlastsTheWaitIsAFailure) {
    PonerVenta(500);
    EsperaPregunta(Casos()[0]);
    EsperaDispositivo(Casos()[0], Deja(kQueda));
    EsperaFallo(5, u"database is locked"_s, [this] { ComprobarSinBloqueo(); });
    GanchoFallos gancho(motor);
    gancho.Falla(Statement::Kind::Comenzar, u"BEGIN IMMEDIATE"_s, 5);
    Cerrar(Casos()[0]);
    EXPECT_EQ(gancho.Pendientes(), 0);
    EXPECT_EQ(log.lineas.mid(4),
              (QStringList{u"ADDPROC_ERROR_5_RESUME_1 [ARQUEOCAJA]"_s,
                           u"ADDPROC_ERROR_5_RESUME_2 [ARQUEOCAJA]"_s,
                           u"ADDPROC_ERROR_5_RESUME_3 [ARQUEOCAJA]"_s,
                           u"ADDPROC_ERROR_5 - database is locked [ARQUEOCAJA]"_s,
                           u"CIERRE_INICIALES_BEGINTRANS"_s}));
    EXPECT_EQ(motor.Nivel(), 1);
    EXPECT_EQ(Activo(), u"1"_s);
    entorno.transacciones.Saldar(); // nothing was written: no line
    EXPECT_EQ(log.lineas.last(), u"CIERRE_INICIALES_BEGINTRANS"_s);
    EXPECT_TRUE(Cierres().empty());
    EXPECT_EQ(Procesados().back().LeerLong(u"idCierre"_s), 0);
}

TEST_F(CierreCajaFallosTest, ASumBeyondThirtyTwoBitsIsAFailure) {
    EsperaPregunta(Casos()[0]);
    cliente.EsperaCashBoxControl(7, 0, std::numeric_limits<qint32>::max(), 1, 0, Deja(kQueda));
    EsperaFallo(6, errores::Desbordamiento().Descripcion());
    Cerrar(Casos()[0]);
    EXPECT_TRUE(Procesados().empty());
    EXPECT_TRUE(Cierres().empty());
    EXPECT_NE(Activo(), u"1"_s); // it had not come so far
    ComprobarSinRematar();
}

TEST_F(CierreCajaFallosTest, TheEndsOfTheRangeAreFiled) {
    constexpr qint32 kMayor = std::numeric_limits<qint32>::max();
    constexpr qint32 kMenor = std::numeric_limits<qint32>::min();
    for (const qint32 extremo : {kMayor, kMenor}) {
        EsperaPregunta(Casos()[0]);
        cliente.EsperaCashBoxControl(7, 0, extremo, 0, 0);
        Cerrar(Casos()[0]);
        const Row fila = Procesados().back();
        EXPECT_EQ(fila.LeerCurrency(u"devuelto"_s), Currency(extremo));
        EXPECT_EQ(fila.LeerCurrency(u"importeVenta"_s), -Currency(extremo));
        // What another program writes there is not the matter of this test.
        motor.Ejecutar(u"DELETE FROM procesados"_s);
    }
    ComprobarReposo();
}

TEST_F(CierreCajaFallosTest, ALogThatCannotBeWrittenIsAFailureToo) {
    EsperaPregunta(Casos()[0]);
    EsperaDispositivo(Casos()[0], FinGuion::Ok().Durante([this] { log.fallosPendientes = 1; }));
    EsperaFallo(75, u"Error de acceso a la ruta o al archivo"_s);
    Cerrar(Casos()[0]); // the line of the journal is lost
    EXPECT_TRUE(Procesados().empty());
    EXPECT_TRUE(Cierres().empty());
    ComprobarSinRematar();
}

TEST_F(CierreCajaFallosTest, ADeviceThatRaisesIsAFailure) {
    EsperaPregunta(Casos()[0]);
    EsperaDispositivo(Casos()[0],
                      FinGuion::Ok().Durante([] { throw ErrorEjecucion(429, u"x"_s); }));
    EsperaFallo(429, u"x"_s);
    Cerrar(Casos()[0]);
    EXPECT_TRUE(Cierres().empty());
    ComprobarSinRematar();
}

// The refresh of a refused close meets it; that of a good one has put a new value there.
TEST_F(CierreCajaFallosTest, AStartingBalanceThatIsNoNumber) {
    registry.GuardarValor(registry_name::kSaldoInicial, u"mucho"_s);
    EsperaPregunta(Casos()[0]);
    EsperaDispositivo(Casos()[0], FinGuion::Error(31, u"Lleno"_s));
    dialogos.EsperaMensaje(u"Error de Zorvex31"_s, testing::_);
    EsperaFallo(13, errores::TipoNoCoincide().Descripcion());
    Cerrar(Casos()[0]);
    ComprobarReposo();

    EsperaCierre(Casos()[0]);
    Cerrar(Casos()[0]);
    // The close takes what the last refresh that could read it has read.
    EXPECT_EQ(Cierres().at(0).LeerCurrency(u"saldoInicial"_s), Currency(4321));
    EXPECT_EQ(SaldoInicial(), u"3000"_s);
    ComprobarReposo();
}

TEST_F(CierreCajaFallosTest, AFailureBeforeTheFirstBalanceIsNotTakenOn) {
    log.fallosPendientes = 0;
    dialogos.EsperaImporte(u"Cierre"_s, u"Importe:"_s, Currency::DeEntero(3'000'000'000));
    EXPECT_EQ(NumeroError([this] { Cerrar(Casos()[1]); }), 6);
    EXPECT_EQ(dialogos.Pendientes(), 0U);
}

// Every statement fails, once and for good: the period is open and whole or closed and whole, and
// closed when the log says so.
TEST_F(CierreCajaFallosTest, EveryStatementMayFail) {
    int fallidos = 0;
    int contados = 0;
    for (const bool siempre : {false, true}) {
        bool queda = true;
        for (int n = 1; queda; ++n) {
            SCOPED_TRACE(testing::Message() << "statement " << n << (siempre ? " and on" : ""));
            motor.Ejecutar(u"DELETE FROM procesados"_s);
            motor.Ejecutar(u"DELETE FROM cierres"_s);
            PonerVenta(500);
            PonerVenta(700);
            PonerDinero(DeLaCaja());
            log.Toma();
            EsperaPregunta(Casos()[0]);
            int pasadas = 0;
            // The dialogs look at the database with a connection of their own.
            EsperaDispositivo(Casos()[0], FinGuion::Ok().Durante([&, n, siempre] {
                PonerDinero(kQueda);
                motor.PonerGancho([&pasadas, n, siempre](const Statement&) {
                    ++pasadas;
                    if (pasadas == n || (siempre && pasadas > n)) {
                        throw ErrorEjecucion(10, u"disk I/O error"_s);
                    }
                });
            }));
            bool contado = false;
            bool recordado = false;
            dialogos.EsperaMensaje(testing::_, testing::_, Respuesta::Aceptar, std::nullopt, [&] {
                const QString visto = dialogos.Llamadas().last();
                contado = visto.startsWith(u"Mensaje|Error al realizar"_s);
                recordado = !contado;
            });
            // After the reminder the refresh may still fail.
            dialogos.EsperaMensaje(u"Error al realizar el cierre"_s, testing::_);
            Cerrar(Casos()[0]);
            motor.PonerGancho({});
            queda = pasadas >= n;
            fallidos += queda ? 1 : 0;
            contados += contado ? 1 : 0;
            Olvidar();
            entorno.transacciones.Saldar();
            EXPECT_EQ(motor.Nivel(), 0);
            ComprobarSinBloqueo();
            const bool cerrado = log.CuentaInicio(u"CIERRE_INICIALES_"_s) == 2;
            EXPECT_EQ(cerrado, recordado);
            EXPECT_EQ(Cierres().size(), cerrado ? 1U : 0U);
            const qint32 numero = cerrado ? Cierres().at(0).LeerLong(u"idCierre"_s) : 0;
            EXPECT_GE(Procesados().size(), 2U);
            for (const Row& fila : Procesados()) {
                EXPECT_EQ(fila.LeerLong(u"idCierre"_s), numero);
            }
        }
    }
    EXPECT_GT(fallidos, 12);
    EXPECT_GT(contados, 8);
}

} // namespace zv::test
