// What the five record operations write, answer and log when nothing fails.
#include "platform/StringLiterals.h"
#include "store/BancoOperaciones.h"

namespace zv {
namespace {

class OperacionesRegistroTest : public test::BancoOperaciones {
  protected:
    qint32 Procesar(qint32 idZV, const QString& origen = u"ENVIARCOLA"_s,
                    const QString& error = {}) {
        return ops.AñadirColaProcesada(origen, idZV, u"OK"_s, 2000, 1000, 5000, error);
    }
};

TEST_F(OperacionesRegistroTest, AProcessedRecordHoldsWhatItIsGiven) {
    EXPECT_EQ(ops.AñadirProcesado(u"PAGO"_s, UnRegistro()), 1);
    const Row f = Unica(u"procesados"_s);
    EXPECT_EQ(f.LeerLong(u"idZV"_s), 1);
    EXPECT_EQ(f.LeerFecha(u"fechaZV"_s), reloj.Ahora());
    EXPECT_EQ(f.LeerFecha(u"fechaVenta"_s), Fecha());
    EXPECT_EQ(f.LeerCurrency(u"importeVenta"_s), Currency(1250));
    EXPECT_EQ(f.LeerCurrency(u"cobrado"_s), Currency(2000));
    EXPECT_EQ(f.LeerCurrency(u"devuelto"_s), Currency(750));
    EXPECT_EQ(f.LeerCurrency(u"saldoZV"_s), Currency(123456));
    EXPECT_EQ(f.LeerTexto(u"estado"_s), u"OK"_s);
    EXPECT_EQ(f.LeerTexto(u"id1"_s), u"T1"_s);
    EXPECT_EQ(f.LeerTexto(u"id2"_s), u"R2"_s);
    EXPECT_EQ(f.LeerLong(u"idcaja"_s), 3);
    EXPECT_EQ(f.LeerTexto(u"terminal"_s), u"term"_s);
    EXPECT_EQ(f.LeerTexto(u"vendedor"_s), u"vend"_s);
    EXPECT_EQ(f.LeerTexto(u"formapago"_s), u"efec"_s);
    EXPECT_EQ(f.LeerTexto(u"error"_s), u"concepto"_s);
    EXPECT_FALSE(f.EsNulo(u"idCierre"_s));
    EXPECT_EQ(f.LeerLong(u"idCierre"_s), 0);
    EXPECT_EQ(f.LeerLong(u"idcola"_s), 9);
    EXPECT_EQ(f.LeerTexto(u"usuario"_s), u"ana"_s);
    EXPECT_EQ(log.lineas, QStringList{u"ADDPROC_OK_1_PAGO"_s});
}

TEST_F(OperacionesRegistroTest, WithoutAnOriginTheLineEndsWithTheNumber) {
    ops.AñadirProcesado({}, UnRegistro());
    EXPECT_EQ(log.lineas, QStringList{u"ADDPROC_OK_1"_s});
}

TEST_F(OperacionesRegistroTest, TheFastLinkSignsItsOwn) {
    firma.fast = true;
    ops.AñadirProcesado({}, UnRegistro());
    EXPECT_EQ(Unica(u"procesados"_s).LeerTexto(u"usuario"_s), u"ZVFast"_s);
}

TEST_F(OperacionesRegistroTest, NobodyLoggedInIsAnEmptyText) {
    firma.nombre = QString();
    ops.AñadirProcesado({}, UnRegistro());
    const Row f = Unica(u"procesados"_s);
    EXPECT_FALSE(f.EsNulo(u"usuario"_s));
    EXPECT_EQ(f.LeerTexto(u"usuario"_s), QString());
}

TEST_F(OperacionesRegistroTest, LongTextsAreCutToFiftyCharacters) {
    RegistroProcesado r = UnRegistro();
    const QString larga(60, u'x');
    r.venta = {larga, larga, 3, larga, larga, larga};
    r.error = larga;
    ASSERT_EQ(ops.AñadirProcesado({}, r), 1);
    const Row f = Unica(u"procesados"_s);
    for (const char* c : {"id1", "id2", "terminal", "vendedor", "formapago", "error"}) {
        EXPECT_EQ(f.LeerTexto(QString::fromLatin1(c)), QString(50, u'x')) << c;
    }
}

TEST_F(OperacionesRegistroTest, CharactersOfTwoUnitsCountOnceAndStayWhole) {
    const QString billete = QString::fromUcs4(U"\U0001F4B6");
    RegistroProcesado r = UnRegistro();
    r.venta.id1 = billete.repeated(50);
    r.venta.id2 = billete.repeated(51);
    r.error = QString(49, u'x') + billete + u'y';
    ASSERT_EQ(ops.AñadirProcesado({}, r), 1);
    const Row f = Unica(u"procesados"_s);
    EXPECT_EQ(f.LeerTexto(u"id1"_s), billete.repeated(50));
    EXPECT_EQ(f.LeerTexto(u"id2"_s), billete.repeated(50));
    EXPECT_EQ(f.LeerTexto(u"error"_s), QString(QString(49, u'x') + billete));
}

TEST_F(OperacionesRegistroTest, AStateIsNotCut) {
    RegistroProcesado r = UnRegistro();
    r.estado = QString(21, u'x');
    EXPECT_EQ(ops.AñadirProcesado({}, r), 0);
    EXPECT_EQ(base.Cuenta(u"procesados"_s), 0);
}

TEST_F(OperacionesRegistroTest, AnAmountBeyond32BitsIsStored) {
    RegistroProcesado r = UnRegistro();
    r.importeVenta = Currency::DeEntero(9000000000LL);
    EXPECT_EQ(ops.AñadirProcesado({}, r), 1);
    EXPECT_EQ(Unica(u"procesados"_s).LeerCurrency(u"importeVenta"_s), r.importeVenta);
}

TEST_F(OperacionesRegistroTest, FilingMovesTheRowFromTheQueue) {
    const qint32 id = PonerVenta();
    EXPECT_EQ(Procesar(id, u"ENVIARCOLA"_s, u"aviso"_s), 1);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 0);
    const Row f = Unica(u"procesados"_s);
    EXPECT_EQ(f.LeerFecha(u"fechaVenta"_s), reloj.Ahora());
    EXPECT_EQ(f.LeerCurrency(u"importeVenta"_s), Currency(1000));
    EXPECT_EQ(f.LeerCurrency(u"cobrado"_s), Currency(2000));
    EXPECT_EQ(f.LeerCurrency(u"devuelto"_s), Currency(1000));
    EXPECT_EQ(f.LeerCurrency(u"saldoZV"_s), Currency(5000));
    EXPECT_EQ(f.LeerTexto(u"id1"_s), u"T1"_s);
    EXPECT_EQ(f.LeerTexto(u"id2"_s), u"R2"_s);
    EXPECT_EQ(f.LeerLong(u"idcaja"_s), 3);
    EXPECT_EQ(f.LeerTexto(u"terminal"_s), u"term"_s);
    EXPECT_EQ(f.LeerTexto(u"vendedor"_s), u"vend"_s);
    EXPECT_EQ(f.LeerTexto(u"formapago"_s), u"efec"_s);
    EXPECT_EQ(f.LeerTexto(u"error"_s), u"aviso"_s);
    EXPECT_EQ(f.LeerLong(u"idcola"_s), id);
    EXPECT_EQ(log.lineas,
              QStringList({u"ADDPROC_OK_1_ENVIARCOLA"_s, u"PROCCOLA_DELCOLA_OK_1 [ENVIARCOLA]"_s}));
}

TEST_F(OperacionesRegistroTest, FilingWithoutAnOriginLosesTheBracket) {
    Procesar(PonerVenta(), {});
    EXPECT_EQ(log.lineas, QStringList({u"ADDPROC_OK_1"_s, u"PROCCOLA_DELCOLA_OK_1"_s}));
}

TEST_F(OperacionesRegistroTest, FilingARowThatIsNoLongerQueuedDoesNothing) {
    PonerVenta();
    EXPECT_EQ(Procesar(77), 0);
    EXPECT_EQ(base.Cuenta(u"procesados"_s), 0);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(OperacionesRegistroTest, ACreditIsTakenOffTheAmount) {
    Procesar(PonerFila(u"importe,creditoError"_s, u"1000,300"_s));
    EXPECT_EQ(Unica(u"procesados"_s).LeerCurrency(u"importeVenta"_s), Currency(700));
}

TEST_F(OperacionesRegistroTest, ACreditOfNoValueTakesNothingOff) {
    Procesar(PonerFila(u"importe,creditoError"_s, u"1000,NULL"_s));
    EXPECT_EQ(Unica(u"procesados"_s).LeerCurrency(u"importeVenta"_s), Currency(1000));
}

TEST_F(OperacionesRegistroTest, ARowWithNothingInItCanBeFiled) {
    const qint32 id = PonerFila(u"idZV"_s, u"NULL"_s);
    EXPECT_EQ(Procesar(id), 1);
    const Row f = Unica(u"procesados"_s);
    EXPECT_EQ(f.LeerCurrency(u"importeVenta"_s), Currency(0));
    EXPECT_EQ(f.LeerTexto(u"id1"_s), QString());
    EXPECT_EQ(f.LeerLong(u"idcaja"_s), 0);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 0);
}

TEST_F(OperacionesRegistroTest, ALongDeviceMessageIsNeverStoredWhole) {
    Procesar(PonerVenta(), {}, QString(200, u'e'));
    EXPECT_EQ(Unica(u"procesados"_s).LeerTexto(u"error"_s), QString(50, u'e'));
}

TEST_F(OperacionesRegistroTest, ATextEndsAtItsNulAndTheRecordIsFiled) {
    const QString nul(QChar(u'\0'));
    motor.Ejecutar(u"DROP TABLE cola"_s);
    motor.Ejecutar(u"CREATE TABLE cola (idZV INTEGER PRIMARY KEY, importe, creditoError, id1, id2, "
                   "idcaja, terminal, vendedor, formapago)"_s);
    motor.Ejecutar(u"INSERT INTO cola (importe,id1,id2,terminal) VALUES (1000,?,?,?)"_s,
                   {u"T1"_s + nul + QString(200000, u'x'), nul, QString(60, u't')});
    EXPECT_EQ(Procesar(1, {}, u"Puerta"_s + nul + u"abierta"_s), 1);
    const Row f = Unica(u"procesados"_s);
    EXPECT_EQ(f.LeerTexto(u"id1"_s), u"T1"_s);
    EXPECT_EQ(f.LeerTexto(u"id2"_s), QString());
    EXPECT_EQ(f.LeerTexto(u"terminal"_s), QString(50, u't'));
    EXPECT_EQ(f.LeerTexto(u"error"_s), u"Puerta"_s);
    EXPECT_EQ(base.Cuenta(u"cola"_s), 0);
    EXPECT_GT(ops.AñadirHistorial({}, u"T"_s + nul, {}, 0, Fecha(), 0), 0);
}

TEST_F(OperacionesRegistroTest, AQueuedAmountBeyond32BitsIsFiled) {
    Procesar(PonerFila(u"importe"_s, u"9000000000"_s));
    EXPECT_EQ(Unica(u"procesados"_s).LeerCurrency(u"importeVenta"_s),
              Currency::DeEntero(9000000000LL));
}

TEST_F(OperacionesRegistroTest, ACallersRollbackUndoesFilingAndDeleting) {
    const qint32 id = PonerVenta();
    motor.Comenzar();
    EXPECT_EQ(Procesar(id), 1);
    motor.Deshacer();
    EXPECT_EQ(base.Cuenta(u"cola"_s), 1);
    EXPECT_EQ(base.Cuenta(u"procesados"_s), 0);
}

TEST_F(OperacionesRegistroTest, NoneStartsOrEndsATransactionOfTheCaller) {
    const qint32 id = PonerVenta();
    motor.Comenzar();
    Procesar(id);
    ops.BorrarColaGrupo({}, PonerVenta(), u"MANUAL"_s);
    ops.AñadirCola({}, Fecha(), 1, Venta(), false);
    EXPECT_EQ(motor.Nivel(), 1);
    motor.Confirmar();
}

TEST_F(OperacionesRegistroTest, AGroupedRowIsFiledAsCancelled) {
    const qint32 id = PonerVenta();
    EXPECT_EQ(ops.BorrarColaGrupo(u"AGR_MAN"_s, id, u"MANUAL"_s), 1);
    const Row f = Unica(u"procesados"_s);
    EXPECT_EQ(f.LeerTexto(u"estado"_s), u"CANCEL"_s);
    EXPECT_EQ(f.LeerTexto(u"error"_s), u"Anulada por cobro agrupado MANUAL"_s);
    EXPECT_EQ(f.LeerCurrency(u"importeVenta"_s), Currency(1000));
    for (const char* c : {"cobrado", "devuelto", "saldoZV"}) {
        EXPECT_EQ(f.LeerCurrency(QString::fromLatin1(c)), Currency(0)) << c;
    }
    EXPECT_EQ(log.lineas, QStringList({u"ADDPROC_OK_1_AGR_MAN_DELCOLA_GRUPO_MANUAL"_s,
                                       u"PROCCOLA_DELCOLA_OK_1 [AGR_MAN_DELCOLA_GRUPO_MANUAL]"_s}));
}

TEST_F(OperacionesRegistroTest, AGroupedRowWithoutAnOriginHasNoUnderscoreBefore) {
    ops.BorrarColaGrupo({}, PonerVenta(), u"MANUAL"_s);
    EXPECT_EQ(log.lineas[0], u"ADDPROC_OK_1_DELCOLA_GRUPO_MANUAL"_s);
}

TEST_F(OperacionesRegistroTest, AGroupedRowThatHasGoneIsNotMissed) {
    EXPECT_EQ(ops.BorrarColaGrupo(u"AGR_MAN"_s, 5, u"MANUAL"_s), 0);
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(OperacionesRegistroTest, HistoryKeepsTheKeyTextOfTheOperation) {
    EXPECT_EQ(ops.AñadirHistorial(u"ADDCOLA"_s, u"T1"_s, u"R2"_s, 3, Fecha(), 123450), 1);
    const Row f = Unica(u"historial"_s);
    EXPECT_EQ(f.LeerTexto(u"id"_s), u"2026/T1/R2/3 1.234,50 €"_s);
    EXPECT_EQ(f.LeerFecha(u"fecha"_s), reloj.Ahora());
    EXPECT_EQ(log.lineas, QStringList{u"ADDHIS_OK_1: 2026/T1/R2/3 1.234,50 € [ADDCOLA]"_s});
}

TEST_F(OperacionesRegistroTest, HistoryKeepsItsBracketWithoutAnOrigin) {
    ops.AñadirHistorial({}, {}, {}, 0, Fecha(), 0);
    EXPECT_EQ(log.lineas, QStringList{u"ADDHIS_OK_1: 2026///0 0,00 € []"_s});
}

TEST_F(OperacionesRegistroTest, AKeyTextIsCutToFiftyCharacters) {
    ops.AñadirHistorial({}, QString(40, u'a'), QString(40, u'b'), 3, Fecha(), 1);
    const QString clave = u"2026/"_s + QString(40, u'a') + u'/' + QString(4, u'b');
    EXPECT_EQ(Unica(u"historial"_s).LeerTexto(u"id"_s), clave);
    EXPECT_EQ(log.lineas, QStringList{u"ADDHIS_OK_1: "_s + clave + u" []"_s});
}

TEST_F(OperacionesRegistroTest, ARowGoesBackToTheQueueAfterItsHistory) {
    motor.Ejecutar(u"INSERT INTO cola (idZV) VALUES (6)"_s);
    motor.Ejecutar(u"DELETE FROM cola"_s);
    EXPECT_EQ(ops.AñadirCola(u"REENVIAR"_s, Fecha(), 1250, Venta(), true), 7);
    const Row f = Unica(u"cola"_s);
    EXPECT_EQ(f.LeerFecha(u"fecha"_s), Fecha());
    EXPECT_EQ(f.LeerCurrency(u"importe"_s), Currency(1250));
    EXPECT_EQ(f.LeerTexto(u"id1"_s), u"T1"_s);
    EXPECT_EQ(f.LeerTexto(u"id2"_s), u"R2"_s);
    EXPECT_EQ(f.LeerLong(u"idcaja"_s), 3);
    EXPECT_EQ(f.LeerTexto(u"terminal"_s), u"term"_s);
    EXPECT_EQ(f.LeerTexto(u"vendedor"_s), u"vend"_s);
    EXPECT_EQ(f.LeerTexto(u"formapago"_s), u"efec"_s);
    EXPECT_FALSE(f.EsNulo(u"creditoError"_s));
    EXPECT_EQ(f.LeerCurrency(u"creditoError"_s), Currency(0));
    EXPECT_FALSE(f.LeerBooleano(u"manual"_s));
    EXPECT_EQ(log.lineas, QStringList({u"ADDHIS_OK_1: 2026/T1/R2/3 12,50 € [ADDCOLA]"_s,
                                       u"ADDCOLA_OK_7 FECHA(01/03/2026 9:30:00) ID1(T1) ID2(R2) "
                                       "IDCAJA(3) IMPORTE(12,50 €) [REENVIAR]"_s}));
}

TEST_F(OperacionesRegistroTest, ADateAtMidnightShowsNoTime) {
    ops.AñadirCola(u"REENVIAR"_s, QDateTime(QDate(2026, 3, 1), QTime(0, 0)), 0, Venta(), false);
    EXPECT_TRUE(log.lineas[1].contains(u" FECHA(01/03/2026) "_s));
}

TEST_F(OperacionesRegistroTest, LongIdentifiersOfAQueuedRowAreCut) {
    DatosVenta venta = Venta();
    venta.id1 = QString(60, u'x');
    venta.formapago = QString::fromUcs4(U"\U0001F4B6").repeated(60);
    ASSERT_GT(ops.AñadirCola({}, Fecha(), 1, venta, false), 0);
    const Row f = Unica(u"cola"_s);
    EXPECT_EQ(f.LeerTexto(u"id1"_s), QString(50, u'x'));
    EXPECT_EQ(f.LeerTexto(u"formapago"_s), QString::fromUcs4(U"\U0001F4B6").repeated(50));
}

} // namespace
} // namespace zv
