// How a sale stands, and whether it can be queued.
#include "store/dades.h"

#include "support/BaseDeDatosTemporal.h"
#include "support/GanchoFallos.h"
#include "support/ImprimeQt.h"
#include "support/RelojFijo.h"

#include <gtest/gtest.h>

namespace zv::test {
namespace {

class DadesTest : public testing::Test {
  protected:
    using Clase = Sentencia::Clase;

    DadesTest() { datos.Inicialitza(); }

    static Missatge Sobre(const QString& id1, const QString& comanda = QStringLiteral("C")) {
        Missatge m;
        m.Comanda = comanda;
        m.ID1 = id1;
        return m;
    }
    // "estado|resultado"
    QString Estat(const QString& id1, const QString& comanda = QStringLiteral("C")) {
        QString estado;
        bool resultado = false;
        datos.EstatComanda(Sobre(id1, comanda), estado, resultado);
        return estado + (resultado ? QStringLiteral("|si") : QStringLiteral("|no"));
    }
    bool Inserta(const Missatge& m) {
        bool resultado = true;
        datos.Inserta(m, resultado);
        return resultado;
    }
    void PonerProcesado(const QString& id1, const QString& estado) {
        motor.Ejecutar(QStringLiteral("INSERT INTO procesados (id1,id2,estado) VALUES (?,'',?)"),
                       {id1, estado});
    }
    void PonerCola(const QString& id1) {
        motor.Ejecutar(QStringLiteral("INSERT INTO cola (id1,id2,importe) VALUES (?,'',1)"), {id1});
    }

    BaseDeDatosTemporal base;
    MotorBD& motor = base.Motor();
    RelojFijo reloj{QDateTime(QDate(2026, 3, 14), QTime(18, 4, 11))};
    dades datos{motor, reloj};
};

TEST_F(DadesTest, AnEmptyIdIsRefusedAndItsStateStays) {
    QString estado = QStringLiteral("antes");
    bool resultado = true;
    datos.EstatComanda(Sobre(QString()), estado, resultado);
    EXPECT_FALSE(resultado);
    EXPECT_EQ(estado, QStringLiteral("antes"));
}

TEST_F(DadesTest, AnUnknownSaleIsNotFoundAndOnlyTheExactCommandSIsRefused) {
    EXPECT_EQ(Estat(QStringLiteral("T1"), QStringLiteral("S")), QStringLiteral("NOT FOUND|no"));
    EXPECT_EQ(Estat(QStringLiteral("T1"), QStringLiteral("s")), QStringLiteral("NOT FOUND|si"));
    EXPECT_EQ(Estat(QStringLiteral("T1"), QStringLiteral("C")), QStringLiteral("NOT FOUND|si"));
}

TEST_F(DadesTest, AQueuedSaleIsPending) {
    PonerCola(QStringLiteral("T1"));
    EXPECT_EQ(Estat(QStringLiteral("T1"), QStringLiteral("S")), QStringLiteral("PENDING|si"));
}

TEST_F(DadesTest, AnErrorRecordAndAQueuedRowArePending) {
    PonerProcesado(QStringLiteral("T1"), QStringLiteral("ERROR"));
    EXPECT_EQ(Estat(QStringLiteral("T1")), QStringLiteral("ERROR|si"));
    PonerCola(QStringLiteral("T1"));
    EXPECT_EQ(Estat(QStringLiteral("T1")), QStringLiteral("PENDING|si"));
}

TEST_F(DadesTest, APaidRecordWinsOverAQueuedRow) {
    PonerProcesado(QStringLiteral("T1"), QStringLiteral("OK"));
    PonerCola(QStringLiteral("T1"));
    EXPECT_EQ(Estat(QStringLiteral("T1"), QStringLiteral("S")), QStringLiteral("OK|si"));
}

TEST_F(DadesTest, OnlyExactlyOkCountsAsPaid) {
    PonerProcesado(QStringLiteral("T1"), QStringLiteral("ok"));
    PonerCola(QStringLiteral("T1"));
    EXPECT_EQ(Estat(QStringLiteral("T1")), QStringLiteral("PENDING|si"));
}

TEST_F(DadesTest, OnlyTheNewestRecordCounts) {
    PonerProcesado(QStringLiteral("T1"), QStringLiteral("OK"));
    PonerProcesado(QStringLiteral("T1"), QStringLiteral("ERROR"));
    EXPECT_EQ(Estat(QStringLiteral("T1")), QStringLiteral("ERROR|si"));
    PonerCola(QStringLiteral("T1"));
    EXPECT_EQ(Estat(QStringLiteral("T1")), QStringLiteral("PENDING|si"));
}

TEST_F(DadesTest, IdsCompareWithoutCase) {
    PonerCola(QStringLiteral("abc"));
    EXPECT_EQ(Estat(QStringLiteral("ABC")), QStringLiteral("PENDING|si"));
    EXPECT_FALSE(Inserta(Sobre(QStringLiteral("ABC"))));
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 1);
}

TEST_F(DadesTest, InsertsEveryFieldAtThePresentTime) {
    Missatge m = Sobre(QStringLiteral("T1"));
    m.Importe = -1250;
    m.ID2 = QStringLiteral("A");
    m.IDcaja = 3;
    m.Terminal = QStringLiteral("TPV1");
    m.Vendedor = QStringLiteral("Ana");
    m.Formapago = QStringLiteral("EFECTIVO");
    ASSERT_TRUE(Inserta(m));
    const auto filas = motor.Consultar(QStringLiteral("SELECT * FROM cola"));
    ASSERT_EQ(filas.size(), 1u);
    const Fila& f = filas[0];
    EXPECT_EQ(f.LeerFecha(QStringLiteral("fecha")), reloj.Ahora());
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("importe")), Currency(-1250));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("id1")), QStringLiteral("T1"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("id2")), QStringLiteral("A"));
    EXPECT_EQ(f.LeerLong(QStringLiteral("idcaja")), 3);
    EXPECT_EQ(f.LeerTexto(QStringLiteral("terminal")), QStringLiteral("TPV1"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("vendedor")), QStringLiteral("Ana"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("formapago")), QStringLiteral("EFECTIVO"));
    EXPECT_FALSE(f.EsNulo(QStringLiteral("creditoError")));
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("creditoError")), Currency(0));
    EXPECT_FALSE(f.LeerBooleano(QStringLiteral("manual")));
    EXPECT_EQ(base.Cuenta(QStringLiteral("historial")), 0);
}

TEST_F(DadesTest, TheSecondInsertionOfAnIdAddsNothing) {
    EXPECT_TRUE(Inserta(Sobre(QStringLiteral("T1"))));
    EXPECT_FALSE(Inserta(Sobre(QStringLiteral("T1"))));
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 1);
    // And is no failure: the next one is served.
    EXPECT_TRUE(Inserta(Sobre(QStringLiteral("T2"))));
}

TEST_F(DadesTest, InsertionLooksAtTheQueueOnly) {
    PonerProcesado(QStringLiteral("T1"), QStringLiteral("OK"));
    EXPECT_TRUE(Inserta(Sobre(QStringLiteral("T1"))));
}

TEST_F(DadesTest, AFailedInsertionAddsNothingAndMakesTheNextOnesFail) {
    {
        GanchoFallos fallos(motor);
        fallos.Falla(Clase::Escritura, QStringLiteral("INSERT INTO"), 1);
        EXPECT_FALSE(Inserta(Sobre(QStringLiteral("T1"))));
        EXPECT_EQ(fallos.Pendientes(), 0);
    }
    EXPECT_FALSE(Inserta(Sobre(QStringLiteral("T1"))));
    EXPECT_FALSE(Inserta(Sobre(QStringLiteral("T2"))));
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 0);
    // Questions go on, and an object made anew inserts.
    EXPECT_EQ(Estat(QStringLiteral("T1")), QStringLiteral("NOT FOUND|si"));
    dades otra(motor, reloj);
    otra.Inicialitza();
    bool resultado = false;
    otra.Inserta(Sobre(QStringLiteral("T1")), resultado);
    EXPECT_TRUE(resultado);
}

TEST_F(DadesTest, ARecordSetThatCouldNotBeOpenedStaysClosed) {
    {
        GanchoFallos fallos(motor);
        fallos.Falla(Clase::Lectura, QStringLiteral("from Cola where"), 1);
        EXPECT_FALSE(Inserta(Sobre(QStringLiteral("T1"))));
        EXPECT_EQ(fallos.Pendientes(), 0);
    }
    EXPECT_TRUE(Inserta(Sobre(QStringLiteral("T1"))));
}

TEST_F(DadesTest, AFailedLookUpIsTheCallersFailure) {
    GanchoFallos fallos(motor);
    fallos.Falla(Clase::Lectura, QStringLiteral("FROM Procesados"), 1);
    EXPECT_THROW(Estat(QStringLiteral("T1")), ErrorEjecucion);
    fallos.Falla(Clase::Lectura, QStringLiteral("'PENDING'"), 1);
    EXPECT_THROW(Estat(QStringLiteral("T1")), ErrorEjecucion);
}

TEST_F(DadesTest, PreparesOnceAndFailsWithoutTheTables) {
    {
        GanchoFallos vistas(motor);
        dades otra(motor, reloj);
        otra.Inicialitza();
        EXPECT_EQ(vistas.Cuenta(Clase::Catalogo, QStringLiteral("FROM Cola")), 2);
        EXPECT_EQ(vistas.Cuenta(Clase::Catalogo, QStringLiteral("FROM Procesados")), 1);
    }
    const auto otro = base.Otro();
    otro->Ejecutar(QStringLiteral("DROP TABLE procesados"));
    EXPECT_THROW(dades(*otro, reloj).Inicialitza(), ErrorEjecucion);
    EXPECT_FALSE([&] {
        bool resultado = true;
        dades(motor, reloj).Inserta(Sobre(QStringLiteral("T1")), resultado);
        return resultado;
    }());
}

TEST_F(DadesTest, LeavesNoStatementOpenThatWouldHideNewRows) {
    PonerCola(QStringLiteral("T1"));
    EXPECT_EQ(Estat(QStringLiteral("T1")), QStringLiteral("PENDING|si"));
    base.Otro()->Ejecutar(QStringLiteral("INSERT INTO cola (id1,id2,importe) VALUES ('T2','',1)"));
    EXPECT_EQ(Estat(QStringLiteral("T2")), QStringLiteral("PENDING|si"));
    EXPECT_TRUE(Inserta(Sobre(QStringLiteral("T3"))));
}

TEST_F(DadesTest, AQuoteInAnIdIsOnlyALetter) {
    const QString id = QStringLiteral("T' OR '1'='1");
    EXPECT_EQ(Estat(id), QStringLiteral("NOT FOUND|si"));
    EXPECT_TRUE(Inserta(Sobre(id)));
    EXPECT_EQ(Estat(id), QStringLiteral("PENDING|si"));
    EXPECT_EQ(Estat(QStringLiteral("T")), QStringLiteral("NOT FOUND|si"));
}

} // namespace
} // namespace zv::test
