// What becomes of transaction levels that nobody ended, and how long a filing waits for a lock.
#include "store/TransactionOwner.h"

#include "DosConexiones.h"
#include "platform/StringLiterals.h"
#include "support/GanchoFallos.h"
#include "support/ImprimeQt.h"
#include "support/LogMemoria.h"
#include "support/NumeroError.h"

#include <condition_variable>
#include <gtest/gtest.h>
#include <mutex>
#include <thread>

namespace zv {
namespace {

using namespace std::chrono_literals;
using test::BaseDeDatosTemporal;
using test::GanchoFallos;
using test::LogMemoria;
using test::NumeroError;
using Kind = Statement::Kind;

const QString kDeshecha = u">>> Transacción abandonada: deshecha"_s;

class TransactionOwnerTest : public test::DosConexiones {
  protected:
    void EsperaQueOtroPuedaEscribir() { EXPECT_NO_THROW(Insertar(*otro, 99)); }

    LogMemoria log;
    TransactionOwner dueño{motor, log};
};

TEST_F(TransactionOwnerTest, WithoutAnOpenLevelNothingHappens) {
    GanchoFallos gancho(motor);
    dueño.Saldar();
    EXPECT_TRUE(gancho.vistas.empty());
    EXPECT_TRUE(log.lineas.isEmpty());
    EXPECT_FALSE(dueño.HayNivelAbierto());
}

TEST_F(TransactionOwnerTest, ALevelThatWroteNothingEndsWithoutAWord) {
    motor.Comenzar();
    motor.Consultar(u"SELECT * FROM cola"_s);
    EXPECT_TRUE(dueño.HayNivelAbierto());
    dueño.Saldar();
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(TransactionOwnerTest, ALevelThatWroteIsRolledBackWithALineAndTheLockGoes) {
    motor.Comenzar();
    Insertar(1);
    dueño.Saldar();
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(log.lineas, QStringList{kDeshecha});
    EXPECT_EQ(Guardado(), QString());
    EsperaQueOtroPuedaEscribir();
}

TEST_F(TransactionOwnerTest, WhatAnInnerLevelHasCommittedIsKept) {
    motor.Comenzar();
    motor.Comenzar();
    Insertar(1);
    motor.Confirmar();
    EXPECT_EQ(Guardado(), QString()); // its outer level holds it, and the lock
    EXPECT_EQ(NumeroError([&] { Insertar(*otro, 2); }) & 0xff, 5);
    dueño.Saldar();
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(Guardado(), u"1"_s);
    EXPECT_TRUE(log.lineas.isEmpty());
    EsperaQueOtroPuedaEscribir();
}

TEST_F(TransactionOwnerTest, TheInnermostOfThreeIsRolledBackAndTheCommittedWorkStays) {
    motor.Comenzar();
    motor.Comenzar();
    Insertar(1);
    motor.Confirmar();
    motor.Comenzar();
    Insertar(2);
    dueño.Saldar();
    EXPECT_EQ(Guardado(), u"1"_s);
    EXPECT_EQ(log.lineas, QStringList{kDeshecha});
}

TEST_F(TransactionOwnerTest, WhatALevelWroteItselfGoesThoughAnInnerOneWasCommitted) {
    motor.Comenzar();
    Insertar(1);
    motor.Comenzar();
    Insertar(2);
    motor.Confirmar();
    dueño.Saldar();
    EXPECT_EQ(Guardado(), QString());
    EXPECT_EQ(log.lineas, QStringList{kDeshecha});
}

TEST_F(TransactionOwnerTest, EachLevelRolledBackHasItsLine) {
    motor.Comenzar();
    Insertar(1);
    motor.Comenzar();
    Insertar(2);
    dueño.Saldar();
    EXPECT_EQ(log.lineas, (QStringList{kDeshecha, kDeshecha}));
    EXPECT_EQ(Guardado(), QString());
}

TEST_F(TransactionOwnerTest, AWriteThatFailedOrWasUndoneIsNoWriteOfTheLevel) {
    motor.Comenzar();
    motor.Comenzar();
    Insertar(1);
    motor.Confirmar();
    EXPECT_NE(NumeroError([&] { motor.Ejecutar(u"INSERT INTO cola (importe) VALUES ('x')"_s); }),
              0);
    motor.Comenzar();
    Insertar(3);
    motor.Deshacer();
    EXPECT_EQ(motor.Ejecutar(u"UPDATE cola SET importe=2 WHERE idZV=77"_s), 0);
    EXPECT_FALSE(motor.NivelEscrito());
    dueño.Saldar();
    EXPECT_EQ(Guardado(), u"1"_s);
}

TEST_F(TransactionOwnerTest, EveryWayOfWritingCounts) {
    const auto escribe = [&](const std::function<void()>& hacer) {
        motor.Comenzar();
        EXPECT_FALSE(motor.NivelEscrito());
        hacer();
        const bool escrito = motor.NivelEscrito();
        motor.Deshacer();
        return escrito;
    };
    Insertar(1);
    EXPECT_TRUE(escribe([&] {
        const auto cola = motor.AbrirTabla(u"cola"_s);
        cola->Nuevo();
        cola->Actualizar();
    }));
    EXPECT_TRUE(escribe([&] {
        const auto cola = motor.AbrirTabla(u"cola"_s);
        ASSERT_TRUE(cola->Buscar(1));
        cola->Borrar();
    }));
    EXPECT_TRUE(escribe([&] { motor.Ejecutar(u"UPDATE cola SET importe=2"_s); }));
    EXPECT_TRUE(escribe([&] { motor.CrearTabla({u"otra"_s, {{u"id"_s, ColumnType::AutoLong}}}); }));
    // The key of a new row takes the lock and writes nothing.
    EXPECT_FALSE(escribe([&] {
        const auto cola = motor.AbrirTabla(u"cola"_s);
        cola->Nuevo();
        cola->ClaveNueva();
    }));
    EXPECT_FALSE(motor.NivelEscrito());
}

TEST_F(TransactionOwnerTest, ACommitThatFailsEndsInARollbackAndALine) {
    motor.Comenzar();
    motor.Comenzar();
    Insertar(1);
    motor.Confirmar();
    GanchoFallos gancho(motor);
    gancho.Falla(Kind::Confirmar, u"COMMIT"_s, 1, {13, u"database or disk is full"_s});
    dueño.Saldar();
    EXPECT_EQ(gancho.Pendientes(), 0);
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(log.lineas, QStringList{kDeshecha});
    EsperaQueOtroPuedaEscribir();
    EXPECT_EQ(Guardado(), u"99"_s);
}

TEST_F(TransactionOwnerTest, ARollbackThatFailsEndsTheLevelAllTheSame) {
    motor.Comenzar();
    Insertar(1);
    GanchoFallos gancho(motor);
    gancho.Falla(Kind::Deshacer, u"ROLLBACK"_s, 1);
    dueño.Saldar();
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(log.lineas, QStringList{kDeshecha});
    EsperaQueOtroPuedaEscribir();
}

TEST_F(TransactionOwnerTest, ALogThatCannotBeWrittenDoesNotKeepALevelOpen) {
    motor.Comenzar();
    Insertar(1);
    motor.Comenzar();
    Insertar(2);
    log.fallosPendientes = 2;
    dueño.Saldar();
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(log.fallosPendientes, 0);
    EsperaQueOtroPuedaEscribir();
}

TEST_F(TransactionOwnerTest, ATransactionThatTheEngineHasLostIsToldAsRolledBack) {
    motor.Comenzar();
    Insertar(1);
    static_cast<DatabaseEngine&>(base.Database()).Consultar(u"SELECT 1"_s);
    GanchoFallos gancho(motor);
    const qint32 paginas = motor.Consultar(u"PRAGMA page_count"_s).at(0).LeerLong(0);
    motor.Consultar(u"PRAGMA max_page_count=%1"_s.arg(paginas));
    EXPECT_NE(NumeroError([&] {
                  for (int i = 0; i < 1000; ++i) {
                      motor.Ejecutar(u"INSERT INTO cola (id1) VALUES (?)"_s, {QString(50, u'x')});
                  }
              }),
              0);
    dueño.Saldar();
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(log.lineas, QStringList{kDeshecha});
    EXPECT_EQ(Guardado(), QString());
}

// How long a statement waits for a lock at the moment in which the begin is issued.
class EsperaBloqueoTest : public TransactionOwnerTest {
  protected:
    qint32 EsperaAhora() { return motor.Consultar(u"PRAGMA busy_timeout"_s).at(0).LeerLong(0); }
    void AlComenzar(const std::function<void()>& hacer) {
        motor.PonerGancho([hacer](const Statement& s) {
            if (s.sql == u"BEGIN IMMEDIATE"_s) {
                hacer();
            }
        });
    }
    ~EsperaBloqueoTest() override { motor.PonerGancho({}); }
};

TEST_F(EsperaBloqueoTest, ALevelWithAWaitOfItsOwnWaitsThatLongAndNobodyElseDoes) {
    std::vector<qint32> esperas;
    AlComenzar([&] { esperas.push_back(EsperaAhora()); });
    motor.Comenzar(10s);
    Insertar(1);
    EXPECT_EQ(EsperaAhora(), 0); // of the options, again
    motor.Confirmar();
    motor.Comenzar();
    Insertar(2);
    motor.Confirmar();
    EXPECT_EQ(esperas, (std::vector<qint32>{10000, 0}));
}

TEST_F(EsperaBloqueoTest, AnInnerLevelWaitsAsItsOuterOneDoes) {
    qint32 espera = -1;
    AlComenzar([&] { espera = EsperaAhora(); });
    motor.Comenzar(10s);
    motor.Comenzar();
    Insertar(1);
    EXPECT_EQ(espera, 10000);
    motor.Confirmar();
    motor.Confirmar();
}

TEST_F(EsperaBloqueoTest, TheWaitIsOneForAllThatIsTriedInTheLevel) {
    otro->Comenzar();
    Insertar(*otro, 1);
    std::vector<qint32> esperas;
    AlComenzar([&] { esperas.push_back(EsperaAhora()); });
    motor.Comenzar(60ms);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(NumeroError([&] { Insertar(2); }) & 0xff, 5);
    }
    ASSERT_EQ(esperas.size(), 3U);
    EXPECT_EQ(esperas[0], 60);
    EXPECT_LT(esperas[1], 30);
    EXPECT_EQ(esperas[2], 0);
    otro->Confirmar();
    Insertar(3);
    motor.Confirmar();
    EXPECT_EQ(Guardado(), u"1,3"_s);
}

TEST_F(EsperaBloqueoTest, ALockThatIsLetGoInTimeCostsNothing) {
    std::mutex cerrojo;
    std::condition_variable aviso;
    bool tomado = false;
    bool pedido = false;
    std::thread programa([&] {
        // Connections belong to their thread.
        const auto suyo = base.Otro();
        suyo->Comenzar();
        Insertar(*suyo, 1);
        {
            std::unique_lock paso(cerrojo);
            tomado = true;
            aviso.notify_all();
            aviso.wait(paso, [&] { return pedido; });
        }
        suyo->Confirmar();
    });
    {
        std::unique_lock paso(cerrojo);
        aviso.wait(paso, [&] { return tomado; });
    }
    AlComenzar([&] {
        const std::lock_guard paso(cerrojo);
        pedido = true;
        aviso.notify_all();
    });
    motor.Comenzar(10s);
    EXPECT_NO_THROW(Insertar(2));
    motor.Confirmar();
    programa.join();
    EXPECT_EQ(Guardado(), u"1,2"_s);
}

} // namespace
} // namespace zv
