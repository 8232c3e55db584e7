// How a sale stands, and whether it can be queued.
#include "store/dades.h"

#include "platform/StringLiterals.h"
#include "support/BaseDeDatosTemporal.h"
#include "support/FixedClock.h"
#include "support/GanchoFallos.h"
#include "support/ImprimeQt.h"

#include <gtest/gtest.h>

namespace zv::test {
namespace {

class DadesTest : public testing::Test {
  protected:
    using Kind = Statement::Kind;

    DadesTest() { datos.Inicialitza(); }

    static Missatge Sobre(const QString& id1, const QString& comanda = u"C"_s) {
        Missatge m;
        m.Comanda = comanda;
        m.ID1 = id1;
        return m;
    }
    // "estado|resultado"
    QString Estat(const QString& id1, const QString& comanda = u"C"_s) {
        QString estado;
        bool resultado = false;
        datos.EstatComanda(Sobre(id1, comanda), estado, resultado);
        return estado + (resultado ? u"|si"_s : u"|no"_s);
    }
    bool Inserta(const Missatge& m) {
        bool resultado = true;
        datos.Inserta(m, resultado);
        return resultado;
    }
    void PonerProcesado(const QString& id1, const QString& estado) {
        motor.Ejecutar(u"INSERT INTO procesados (id1,id2,estado) VALUES (?,'',?)"_s, {id1, estado});
    }
    void PonerCola(const QString& id1) {
        motor.Ejecutar(u"INSERT INTO cola (id1,id2,importe) VALUES (?,'',1)"_s, {id1});
    }

    BaseDeDatosTemporal base;
    DatabaseEngine& motor = base.Database();
    FixedClock reloj{QDateTime(QDate(2026, 3, 14), QTime(18, 4, 11))};
    dades datos{motor, reloj};
};

TEST_F(DadesTest, AnEmptyIdIsRefusedAndItsStateStays) {
    QString estado = u"antes"_s;
    bool resultado = true;
    datos.EstatComanda(Sobre(QString()), estado, resultado);
    EXPECT_FALSE(resultado);
    EXPECT_EQ(estado, u"antes"_s);
}

TEST_F(DadesTest, AnUnknownSaleIsNotFoundAndOnlyTheExactCommandSIsRefused) {
    EXPECT_EQ(Estat(u"T1"_s, u"S"_s), u"NOT FOUND|no"_s);
    EXPECT_EQ(Estat(u"T1"_s, u"s"_s), u"NOT FOUND|si"_s);
    EXPECT_EQ(Estat(u"T1"_s, u"C"_s), u"NOT FOUND|si"_s);
}

TEST_F(DadesTest, AQueuedSaleIsPending) {
    PonerCola(u"T1"_s);
    EXPECT_EQ(Estat(u"T1"_s, u"S"_s), u"PENDING|si"_s);
}

TEST_F(DadesTest, AnErrorRecordAndAQueuedRowArePending) {
    PonerProcesado(u"T1"_s, u"ERROR"_s);
    EXPECT_EQ(Estat(u"T1"_s), u"ERROR|si"_s);
    PonerCola(u"T1"_s);
    EXPECT_EQ(Estat(u"T1"_s), u"PENDING|si"_s);
}

TEST_F(DadesTest, APaidRecordWinsOverAQueuedRow) {
    PonerProcesado(u"T1"_s, u"OK"_s);
    PonerCola(u"T1"_s);
    EXPECT_EQ(Estat(u"T1"_s, u"S"_s), u"OK|si"_s);
}

TEST_F(DadesTest, OnlyExactlyOkCountsAsPaid) {
    PonerProcesado(u"T1"_s, u"ok"_s);
    PonerCola(u"T1"_s);
    EXPECT_EQ(Estat(u"T1"_s), u"PENDING|si"_s);
}

TEST_F(DadesTest, OnlyTheNewestRecordCounts) {
    PonerProcesado(u"T1"_s, u"OK"_s);
    PonerProcesado(u"T1"_s, u"ERROR"_s);
    EXPECT_EQ(Estat(u"T1"_s), u"ERROR|si"_s);
    PonerCola(u"T1"_s);
    EXPECT_EQ(Estat(u"T1"_s), u"PENDING|si"_s);
}

TEST_F(DadesTest, IdsCompareWithoutCase) {
    PonerCola(u"abc"_s);
    EXPECT_EQ(Estat(u"ABC"_s), u"PENDING|si"_s);
    EXPECT_FALSE(Inserta(Sobre(u"ABC"_s)));
    EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
}

TEST_F(DadesTest, InsertsEveryFieldAtThePresentTime) {
    Missatge m = Sobre(u"T1"_s);
    m.Importe = -1250;
    m.ID2 = u"A"_s;
    m.IDcaja = 3;
    m.Terminal = u"TPV1"_s;
    m.Vendedor = u"Ana"_s;
    m.Formapago = u"EFECTIVO"_s;
    ASSERT_TRUE(Inserta(m));
    const auto filas = motor.Consultar(u"SELECT * FROM cola"_s);
    ASSERT_EQ(filas.size(), 1u);
    const Row& f = filas[0];
    EXPECT_EQ(f.LeerFecha(u"fecha"_s), reloj.Ahora());
    EXPECT_EQ(f.LeerCurrency(u"importe"_s), Currency(-1250));
    EXPECT_EQ(f.LeerTexto(u"id1"_s), u"T1"_s);
    EXPECT_EQ(f.LeerTexto(u"id2"_s), u"A"_s);
    EXPECT_EQ(f.LeerLong(u"idcaja"_s), 3);
    EXPECT_EQ(f.LeerTexto(u"terminal"_s), u"TPV1"_s);
    EXPECT_EQ(f.LeerTexto(u"vendedor"_s), u"Ana"_s);
    EXPECT_EQ(f.LeerTexto(u"formapago"_s), u"EFECTIVO"_s);
    EXPECT_FALSE(f.EsNulo(u"creditoError"_s));
    EXPECT_EQ(f.LeerCurrency(u"creditoError"_s), Currency(0));
    EXPECT_FALSE(f.LeerBooleano(u"manual"_s));
    EXPECT_EQ(base.Cuenta(u"historial"_s), 0);
}

TEST_F(DadesTest, TheSecondInsertionOfAnIdAddsNothing) {
    EXPECT_TRUE(Inserta(Sobre(u"T1"_s)));
    EXPECT_FALSE(Inserta(Sobre(u"T1"_s)));
    EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
    // And is no failure: the next one is served.
    EXPECT_TRUE(Inserta(Sobre(u"T2"_s)));
}

TEST_F(DadesTest, InsertionLooksAtTheQueueOnly) {
    PonerProcesado(u"T1"_s, u"OK"_s);
    EXPECT_TRUE(Inserta(Sobre(u"T1"_s)));
}

TEST_F(DadesTest, AFailedInsertionAddsNothingAndMakesTheNextOnesFail) {
    {
        GanchoFallos fallos(motor);
        fallos.Falla(Kind::Escritura, u"INSERT INTO"_s, 1);
        EXPECT_FALSE(Inserta(Sobre(u"T1"_s)));
        EXPECT_EQ(fallos.Pendientes(), 0);
    }
    EXPECT_FALSE(Inserta(Sobre(u"T1"_s)));
    EXPECT_FALSE(Inserta(Sobre(u"T2"_s)));
    EXPECT_EQ(base.Cuenta(u"cola"_s), 0);
    // Questions go on, and an object made anew inserts.
    EXPECT_EQ(Estat(u"T1"_s), u"NOT FOUND|si"_s);
    dades otra(motor, reloj);
    otra.Inicialitza();
    bool resultado = false;
    otra.Inserta(Sobre(u"T1"_s), resultado);
    EXPECT_TRUE(resultado);
}

TEST_F(DadesTest, ARecordSetThatCouldNotBeOpenedStaysClosed) {
    {
        GanchoFallos fallos(motor);
        fallos.Falla(Kind::Lectura, u"from Cola where"_s, 1);
        EXPECT_FALSE(Inserta(Sobre(u"T1"_s)));
        EXPECT_EQ(fallos.Pendientes(), 0);
    }
    EXPECT_TRUE(Inserta(Sobre(u"T1"_s)));
}

TEST_F(DadesTest, AFailedLookUpIsTheCallersFailure) {
    GanchoFallos fallos(motor);
    fallos.Falla(Kind::Lectura, u"FROM Procesados"_s, 1);
    EXPECT_THROW(Estat(u"T1"_s), ErrorEjecucion);
    fallos.Falla(Kind::Lectura, u"'PENDING'"_s, 1);
    EXPECT_THROW(Estat(u"T1"_s), ErrorEjecucion);
}

TEST_F(DadesTest, PreparesOnceAndFailsWithoutTheTables) {
    {
        GanchoFallos vistas(motor);
        dades otra(motor, reloj);
        otra.Inicialitza();
        EXPECT_EQ(vistas.Cuenta(Kind::Catalogo, u"FROM Cola"_s), 2);
        EXPECT_EQ(vistas.Cuenta(Kind::Catalogo, u"FROM Procesados"_s), 1);
    }
    const auto otro = base.Otro();
    otro->Ejecutar(u"DROP TABLE procesados"_s);
    EXPECT_THROW(dades(*otro, reloj).Inicialitza(), ErrorEjecucion);
    EXPECT_FALSE([&] {
        bool resultado = true;
        dades(motor, reloj).Inserta(Sobre(u"T1"_s), resultado);
        return resultado;
    }());
}

TEST_F(DadesTest, LeavesNoStatementOpenThatWouldHideNewRows) {
    PonerCola(u"T1"_s);
    EXPECT_EQ(Estat(u"T1"_s), u"PENDING|si"_s);
    base.Otro()->Ejecutar(u"INSERT INTO cola (id1,id2,importe) VALUES ('T2','',1)"_s);
    EXPECT_EQ(Estat(u"T2"_s), u"PENDING|si"_s);
    EXPECT_TRUE(Inserta(Sobre(u"T3"_s)));
}

TEST_F(DadesTest, ANulInAnyTextIsRefusedAndHindersNobodyElse) {
    QString Missatge::*const textos[] = {&Missatge::ID1, &Missatge::ID2, &Missatge::Terminal,
                                         &Missatge::Vendedor, &Missatge::Formapago};
    for (QString Missatge::*const texto : textos) {
        Missatge m = Sobre(u"T1"_s);
        m.*texto = u"T1"_s + QChar(u'\0') + u"x"_s;
        EXPECT_FALSE(Inserta(m));
    }
    EXPECT_EQ(Estat(u"T1"_s), u"NOT FOUND|si"_s);
    EXPECT_TRUE(Inserta(Sobre(u"T1"_s)));
    EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
}

TEST_F(DadesTest, AQuoteInAnIdIsOnlyALetter) {
    const QString id = u"T' OR '1'='1"_s;
    EXPECT_EQ(Estat(id), u"NOT FOUND|si"_s);
    EXPECT_TRUE(Inserta(Sobre(id)));
    EXPECT_EQ(Estat(id), u"PENDING|si"_s);
    EXPECT_EQ(Estat(u"T"_s), u"NOT FOUND|si"_s);
}

} // namespace
} // namespace zv::test
