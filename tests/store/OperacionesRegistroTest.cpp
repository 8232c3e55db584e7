// What the five record operations write, answer and log when nothing fails.
#include "store/BancoOperaciones.h"

namespace zv {
namespace {

class OperacionesRegistroTest : public test::BancoOperaciones {
  protected:
    qint32 Procesar(qint32 idZV, const QString& origen = QStringLiteral("ENVIARCOLA"),
                    const QString& error = {}) {
        return ops.AñadirColaProcesada(origen, idZV, QStringLiteral("OK"), 2000, 1000, 5000, error);
    }
};

TEST_F(OperacionesRegistroTest, AProcessedRecordHoldsWhatItIsGiven) {
    EXPECT_EQ(ops.AñadirProcesado(QStringLiteral("PAGO"), Registro()), 1);
    const Fila f = Unica(QStringLiteral("procesados"));
    EXPECT_EQ(f.LeerLong(QStringLiteral("idZV")), 1);
    EXPECT_EQ(f.LeerFecha(QStringLiteral("fechaZV")), reloj.Ahora());
    EXPECT_EQ(f.LeerFecha(QStringLiteral("fechaVenta")), Fecha());
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("importeVenta")), Currency(1250));
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("cobrado")), Currency(2000));
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("devuelto")), Currency(750));
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("saldoZV")), Currency(123456));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("estado")), QStringLiteral("OK"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("id1")), QStringLiteral("T1"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("id2")), QStringLiteral("R2"));
    EXPECT_EQ(f.LeerLong(QStringLiteral("idcaja")), 3);
    EXPECT_EQ(f.LeerTexto(QStringLiteral("terminal")), QStringLiteral("term"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("vendedor")), QStringLiteral("vend"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("formapago")), QStringLiteral("efec"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("error")), QStringLiteral("concepto"));
    EXPECT_FALSE(f.EsNulo(QStringLiteral("idCierre")));
    EXPECT_EQ(f.LeerLong(QStringLiteral("idCierre")), 0);
    EXPECT_EQ(f.LeerLong(QStringLiteral("idcola")), 9);
    EXPECT_EQ(f.LeerTexto(QStringLiteral("usuario")), QStringLiteral("ana"));
    EXPECT_EQ(log.lineas, QStringList{QStringLiteral("ADDPROC_OK_1_PAGO")});
}

TEST_F(OperacionesRegistroTest, WithoutAnOriginTheLineEndsWithTheNumber) {
    ops.AñadirProcesado({}, Registro());
    EXPECT_EQ(log.lineas, QStringList{QStringLiteral("ADDPROC_OK_1")});
}

TEST_F(OperacionesRegistroTest, TheFastLinkSignsItsOwn) {
    firma.fast = true;
    ops.AñadirProcesado({}, Registro());
    EXPECT_EQ(Unica(QStringLiteral("procesados")).LeerTexto(QStringLiteral("usuario")),
              QStringLiteral("ZVFast"));
}

TEST_F(OperacionesRegistroTest, NobodyLoggedInIsAnEmptyText) {
    firma.nombre = QString();
    ops.AñadirProcesado({}, Registro());
    const Fila f = Unica(QStringLiteral("procesados"));
    EXPECT_FALSE(f.EsNulo(QStringLiteral("usuario")));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("usuario")), QString());
}

TEST_F(OperacionesRegistroTest, LongTextsAreCutToFiftyCharacters) {
    RegistroProcesado r = Registro();
    const QString larga(60, u'x');
    r.venta = {larga, larga, 3, larga, larga, larga};
    r.error = larga;
    ASSERT_EQ(ops.AñadirProcesado({}, r), 1);
    const Fila f = Unica(QStringLiteral("procesados"));
    for (const char* c : {"id1", "id2", "terminal", "vendedor", "formapago", "error"}) {
        EXPECT_EQ(f.LeerTexto(QString::fromLatin1(c)), QString(50, u'x')) << c;
    }
}

TEST_F(OperacionesRegistroTest, CharactersOfTwoUnitsCountOnceAndStayWhole) {
    const QString billete = QString::fromUcs4(U"\U0001F4B6");
    RegistroProcesado r = Registro();
    r.venta.id1 = billete.repeated(50);
    r.venta.id2 = billete.repeated(51);
    r.error = QString(49, u'x') + billete + u'y';
    ASSERT_EQ(ops.AñadirProcesado({}, r), 1);
    const Fila f = Unica(QStringLiteral("procesados"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("id1")), billete.repeated(50));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("id2")), billete.repeated(50));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("error")), QString(QString(49, u'x') + billete));
}

TEST_F(OperacionesRegistroTest, AStateIsNotCut) {
    RegistroProcesado r = Registro();
    r.estado = QString(21, u'x');
    EXPECT_EQ(ops.AñadirProcesado({}, r), 0);
    EXPECT_EQ(base.Cuenta(QStringLiteral("procesados")), 0);
}

TEST_F(OperacionesRegistroTest, AnAmountBeyond32BitsIsStored) {
    RegistroProcesado r = Registro();
    r.importeVenta = Currency::DeEntero(9000000000LL);
    EXPECT_EQ(ops.AñadirProcesado({}, r), 1);
    EXPECT_EQ(Unica(QStringLiteral("procesados")).LeerCurrency(QStringLiteral("importeVenta")),
              r.importeVenta);
}

TEST_F(OperacionesRegistroTest, FilingMovesTheRowFromTheQueue) {
    const qint32 id = PonerVenta();
    EXPECT_EQ(Procesar(id, QStringLiteral("ENVIARCOLA"), QStringLiteral("aviso")), 1);
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 0);
    const Fila f = Unica(QStringLiteral("procesados"));
    EXPECT_EQ(f.LeerFecha(QStringLiteral("fechaVenta")), reloj.Ahora());
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("importeVenta")), Currency(1000));
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("cobrado")), Currency(2000));
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("devuelto")), Currency(1000));
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("saldoZV")), Currency(5000));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("id1")), QStringLiteral("T1"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("id2")), QStringLiteral("R2"));
    EXPECT_EQ(f.LeerLong(QStringLiteral("idcaja")), 3);
    EXPECT_EQ(f.LeerTexto(QStringLiteral("terminal")), QStringLiteral("term"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("vendedor")), QStringLiteral("vend"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("formapago")), QStringLiteral("efec"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("error")), QStringLiteral("aviso"));
    EXPECT_EQ(f.LeerLong(QStringLiteral("idcola")), id);
    EXPECT_EQ(log.lineas, QStringList({QStringLiteral("ADDPROC_OK_1_ENVIARCOLA"),
                                       QStringLiteral("PROCCOLA_DELCOLA_OK_1 [ENVIARCOLA]")}));
}

TEST_F(OperacionesRegistroTest, FilingWithoutAnOriginLosesTheBracket) {
    Procesar(PonerVenta(), {});
    EXPECT_EQ(log.lineas, QStringList({QStringLiteral("ADDPROC_OK_1"),
                                       QStringLiteral("PROCCOLA_DELCOLA_OK_1")}));
}

TEST_F(OperacionesRegistroTest, FilingARowThatIsNoLongerQueuedDoesNothing) {
    PonerVenta();
    EXPECT_EQ(Procesar(77), 0);
    EXPECT_EQ(base.Cuenta(QStringLiteral("procesados")), 0);
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 1);
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(OperacionesRegistroTest, ACreditIsTakenOffTheAmount) {
    Procesar(PonerFila(QStringLiteral("importe,creditoError"), QStringLiteral("1000,300")));
    EXPECT_EQ(Unica(QStringLiteral("procesados")).LeerCurrency(QStringLiteral("importeVenta")),
              Currency(700));
}

TEST_F(OperacionesRegistroTest, ACreditOfNoValueTakesNothingOff) {
    Procesar(PonerFila(QStringLiteral("importe,creditoError"), QStringLiteral("1000,NULL")));
    EXPECT_EQ(Unica(QStringLiteral("procesados")).LeerCurrency(QStringLiteral("importeVenta")),
              Currency(1000));
}

TEST_F(OperacionesRegistroTest, ARowWithNothingInItCanBeFiled) {
    const qint32 id = PonerFila(QStringLiteral("idZV"), QStringLiteral("NULL"));
    EXPECT_EQ(Procesar(id), 1);
    const Fila f = Unica(QStringLiteral("procesados"));
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("importeVenta")), Currency(0));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("id1")), QString());
    EXPECT_EQ(f.LeerLong(QStringLiteral("idcaja")), 0);
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 0);
}

TEST_F(OperacionesRegistroTest, ALongDeviceMessageIsNeverStoredWhole) {
    Procesar(PonerVenta(), {}, QString(200, u'e'));
    EXPECT_EQ(Unica(QStringLiteral("procesados")).LeerTexto(QStringLiteral("error")),
              QString(50, u'e'));
}

TEST_F(OperacionesRegistroTest, AQueuedAmountBeyond32BitsIsFiled) {
    Procesar(PonerFila(QStringLiteral("importe"), QStringLiteral("9000000000")));
    EXPECT_EQ(Unica(QStringLiteral("procesados")).LeerCurrency(QStringLiteral("importeVenta")),
              Currency::DeEntero(9000000000LL));
}

TEST_F(OperacionesRegistroTest, ACallersRollbackUndoesFilingAndDeleting) {
    const qint32 id = PonerVenta();
    motor.Comenzar();
    EXPECT_EQ(Procesar(id), 1);
    motor.Deshacer();
    EXPECT_EQ(base.Cuenta(QStringLiteral("cola")), 1);
    EXPECT_EQ(base.Cuenta(QStringLiteral("procesados")), 0);
}

TEST_F(OperacionesRegistroTest, NoneStartsOrEndsATransactionOfTheCaller) {
    const qint32 id = PonerVenta();
    motor.Comenzar();
    Procesar(id);
    ops.BorrarColaGrupo({}, PonerVenta(), QStringLiteral("MANUAL"));
    ops.AñadirCola({}, Fecha(), 1, Venta(), false);
    EXPECT_EQ(motor.Nivel(), 1);
    motor.Confirmar();
}

TEST_F(OperacionesRegistroTest, AGroupedRowIsFiledAsCancelled) {
    const qint32 id = PonerVenta();
    EXPECT_EQ(ops.BorrarColaGrupo(QStringLiteral("AGR_MAN"), id, QStringLiteral("MANUAL")), 1);
    const Fila f = Unica(QStringLiteral("procesados"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("estado")), QStringLiteral("CANCEL"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("error")),
              QStringLiteral("Anulada por cobro agrupado MANUAL"));
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("importeVenta")), Currency(1000));
    for (const char* c : {"cobrado", "devuelto", "saldoZV"}) {
        EXPECT_EQ(f.LeerCurrency(QString::fromLatin1(c)), Currency(0)) << c;
    }
    EXPECT_EQ(
        log.lineas,
        QStringList({QStringLiteral("ADDPROC_OK_1_AGR_MAN_DELCOLA_GRUPO_MANUAL"),
                     QStringLiteral("PROCCOLA_DELCOLA_OK_1 [AGR_MAN_DELCOLA_GRUPO_MANUAL]")}));
}

TEST_F(OperacionesRegistroTest, AGroupedRowWithoutAnOriginHasNoUnderscoreBefore) {
    ops.BorrarColaGrupo({}, PonerVenta(), QStringLiteral("MANUAL"));
    EXPECT_EQ(log.lineas[0], QStringLiteral("ADDPROC_OK_1_DELCOLA_GRUPO_MANUAL"));
}

TEST_F(OperacionesRegistroTest, AGroupedRowThatHasGoneIsNotMissed) {
    EXPECT_EQ(ops.BorrarColaGrupo(QStringLiteral("AGR_MAN"), 5, QStringLiteral("MANUAL")), 0);
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(OperacionesRegistroTest, HistoryKeepsTheKeyTextOfTheOperation) {
    EXPECT_EQ(ops.AñadirHistorial(QStringLiteral("ADDCOLA"), QStringLiteral("T1"),
                                  QStringLiteral("R2"), 3, Fecha(), 123450),
              1);
    const Fila f = Unica(QStringLiteral("historial"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("id")), QStringLiteral("2026/T1/R2/3 1.234,50 €"));
    EXPECT_EQ(f.LeerFecha(QStringLiteral("fecha")), reloj.Ahora());
    EXPECT_EQ(log.lineas,
              QStringList{QStringLiteral("ADDHIS_OK_1: 2026/T1/R2/3 1.234,50 € [ADDCOLA]")});
}

TEST_F(OperacionesRegistroTest, HistoryKeepsItsBracketWithoutAnOrigin) {
    ops.AñadirHistorial({}, {}, {}, 0, Fecha(), 0);
    EXPECT_EQ(log.lineas, QStringList{QStringLiteral("ADDHIS_OK_1: 2026///0 0,00 € []")});
}

TEST_F(OperacionesRegistroTest, AKeyTextIsCutToFiftyCharacters) {
    ops.AñadirHistorial({}, QString(40, u'a'), QString(40, u'b'), 3, Fecha(), 1);
    const QString clave = QStringLiteral("2026/") + QString(40, u'a') + u'/' + QString(4, u'b');
    EXPECT_EQ(Unica(QStringLiteral("historial")).LeerTexto(QStringLiteral("id")), clave);
    EXPECT_EQ(log.lineas,
              QStringList{QStringLiteral("ADDHIS_OK_1: ") + clave + QStringLiteral(" []")});
}

TEST_F(OperacionesRegistroTest, ARowGoesBackToTheQueueAfterItsHistory) {
    motor.Ejecutar(QStringLiteral("INSERT INTO cola (idZV) VALUES (6)"));
    motor.Ejecutar(QStringLiteral("DELETE FROM cola"));
    EXPECT_EQ(ops.AñadirCola(QStringLiteral("REENVIAR"), Fecha(), 1250, Venta(), true), 7);
    const Fila f = Unica(QStringLiteral("cola"));
    EXPECT_EQ(f.LeerFecha(QStringLiteral("fecha")), Fecha());
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("importe")), Currency(1250));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("id1")), QStringLiteral("T1"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("id2")), QStringLiteral("R2"));
    EXPECT_EQ(f.LeerLong(QStringLiteral("idcaja")), 3);
    EXPECT_EQ(f.LeerTexto(QStringLiteral("terminal")), QStringLiteral("term"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("vendedor")), QStringLiteral("vend"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("formapago")), QStringLiteral("efec"));
    EXPECT_FALSE(f.EsNulo(QStringLiteral("creditoError")));
    EXPECT_EQ(f.LeerCurrency(QStringLiteral("creditoError")), Currency(0));
    EXPECT_FALSE(f.LeerBooleano(QStringLiteral("manual")));
    EXPECT_EQ(log.lineas,
              QStringList({QStringLiteral("ADDHIS_OK_1: 2026/T1/R2/3 12,50 € [ADDCOLA]"),
                           QStringLiteral("ADDCOLA_OK_7 FECHA(01/03/2026 9:30:00) ID1(T1) ID2(R2) "
                                          "IDCAJA(3) IMPORTE(12,50 €) [REENVIAR]")}));
}

TEST_F(OperacionesRegistroTest, ADateAtMidnightShowsNoTime) {
    ops.AñadirCola(QStringLiteral("REENVIAR"), QDateTime(QDate(2026, 3, 1), QTime(0, 0)), 0,
                   Venta(), false);
    EXPECT_TRUE(log.lineas[1].contains(QStringLiteral(" FECHA(01/03/2026) ")));
}

TEST_F(OperacionesRegistroTest, LongIdentifiersOfAQueuedRowAreCut) {
    DatosVenta venta = Venta();
    venta.id1 = QString(60, u'x');
    venta.formapago = QString::fromUcs4(U"\U0001F4B6").repeated(60);
    ASSERT_GT(ops.AñadirCola({}, Fecha(), 1, venta, false), 0);
    const Fila f = Unica(QStringLiteral("cola"));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("id1")), QString(50, u'x'));
    EXPECT_EQ(f.LeerTexto(QStringLiteral("formapago")),
              QString::fromUcs4(U"\U0001F4B6").repeated(50));
}

} // namespace
} // namespace zv
