// The history of closes: both grids, the running balance, printing, exporting, and the statement
// that clears nothing.
#include "BancoHistorial.h"
#include "store/Palabras.h"
#include "support/GanchoFallos.h"
#include "support/IdiomaIngles.h"

#include <QFile>

#include <random>

namespace zv::test {
namespace {

class HistorialTest : public BancoHistorial {
  protected:
    QByteArray Exportado(const QString& nombre) {
        QFile fichero(carpeta.filePath(u"exports/%1_20260314_180411.csv"_s.arg(nombre)));
        EXPECT_TRUE(fichero.open(QIODevice::ReadOnly)) << nombre.toStdString();
        return fichero.readAll();
    }
    void EsperaExportado() {
        dialogos.EsperaMensaje(u"Exportar datos"_s, u"Se han exportado los datos correctamente"_s,
                               Respuesta::Aceptar, EstiloMensaje::Aceptar);
    }
    void EsperaLimpiar(Respuesta respuesta) {
        dialogos.EsperaMensaje(u"Limpiar historial"_s,
                               u"¿Desea eliminar el historial de los cierres?"_s, respuesta,
                               EstiloMensaje::SiNo);
    }
};

TEST_F(HistorialTest, AnEmptyTableLeavesTheTitles) {
    historial.AlMostrar();
    EXPECT_EQ(FilaDe(historial.grdCierres(), 0), (QStringList{{},
                                                              u"Fecha"_s,
                                                              u"INICIAL"_s,
                                                              u"Cobros"_s,
                                                              u"Abonos"_s,
                                                              u"Ingresos"_s,
                                                              u"Pagos"_s,
                                                              u"SALDO"_s,
                                                              u"CIERRE"_s,
                                                              u"Billetes"_s,
                                                              u"Monedas"_s,
                                                              u"CAJON"_s,
                                                              u"Billetes"_s,
                                                              u"Monedas"_s}));
    EXPECT_EQ(FilaDe(historial.grdHis(), 0),
              (QStringList{u"Fecha"_s, u"Concepto"_s, u"Terminal"_s, u"Vendedor"_s, u"Venta"_s,
                           u"Saldo ZV"_s}));
    EXPECT_EQ(historial.grdCierres().FilasDatos(), 0);
    EXPECT_EQ(historial.grdCierres().FilaActual(), 0);
    EXPECT_FALSE(historial.HayCierres());
    EXPECT_FALSE(historial.HayMovimientos());
    dialogos.EsperaMensaje(u"Sin datos"_s, u"No hay movimientos para imprimir"_s,
                           Respuesta::Aceptar, EstiloMensaje::Aceptar);
    historial.Imprimir();
    EXPECT_EQ(impresora.aperturas, 0);
}

TEST_F(HistorialTest, AlignsTheDateLeftAndTheAmountsRight) {
    const Rejilla& cierres = historial.grdCierres();
    ASSERT_EQ(cierres.Columnas(), 14);
    for (int columna = 0; columna < 14; ++columna) {
        EXPECT_EQ(cierres.ColumnaDe(columna).alineacion.testFlag(Qt::AlignRight), columna != 1);
    }
    for (const int ancho : {9000, 27000}) {
        historial.AjustarCierres(ancho, 300);
        EXPECT_EQ(cierres.ColumnaDe(0).ancho, 0);
        int suma = 0;
        for (int columna = 1; columna < 14; ++columna) {
            EXPECT_GE(cierres.ColumnaDe(columna).ancho, 1545);
            suma += cierres.ColumnaDe(columna).ancho;
        }
        EXPECT_NEAR(suma, std::max(ancho - 300, 2250 + 12 * 1545), 15);
    }
    historial.AjustarMovimientos(9000, 300);
    int suma = 0;
    for (int columna = 0; columna < 6; ++columna) {
        EXPECT_GT(historial.grdHis().ColumnaDe(columna).ancho, 0);
        suma += historial.grdHis().ColumnaDe(columna).ancho;
    }
    EXPECT_NEAR(suma, 8700, 22);
}

TEST_F(HistorialTest, EachColumnOfACloseHasItsPlace) {
    PonerCierre(100, u"2026-01-09 07:08:09"_s);
    historial.AlMostrar();
    EXPECT_EQ(FilaDe(historial.grdCierres(), 1),
              (QStringList{u"1"_s, u"09/01/26 07:08:09"_s, u"1,00 €"_s, u"1,01 €"_s, u"1,02 €"_s,
                           u"1,03 €"_s, u"1,04 €"_s, u"1,05 €"_s, u"1,06 €"_s, u"1,07 €"_s,
                           u"1,08 €"_s, u"2,19 €"_s, u"1,09 €"_s, u"1,10 €"_s}));
}

TEST_F(HistorialTest, NullsAndADateWithoutTimeAreShown) {
    motor.Ejecutar(u"INSERT INTO cierres (saldoInicial) VALUES (NULL)"_s);
    PonerCierre(0, u"2026-03-14"_s);
    historial.AlMostrar();
    QStringList nada{u"1"_s, {}};
    for (int i = 0; i < 12; ++i) {
        nada << u"0,00 €"_s;
    }
    EXPECT_EQ(FilaDe(historial.grdCierres(), 1), nada);
    EXPECT_EQ(historial.grdCierres().Texto(2, ColumnaCierres::Fecha), u"14/03/26 00:00:00"_s);
}

TEST_F(HistorialTest, OldestFirstAndTheLastOneChosenAndInView) {
    PonerCierres(30);
    Poner({.idCierre = 30, .cobrado = 5});
    Poner({.idCierre = 29, .cobrado = 7});
    historial.grdCierres().PonerPagina(10);
    historial.AlMostrar();
    EXPECT_EQ(Cierres().front(), u"1"_s);
    EXPECT_EQ(Cierres().back(), u"30"_s);
    EXPECT_EQ(historial.grdCierres().FilaActual(), 30);
    EXPECT_EQ(historial.grdCierres().FilaSuperior(), 21);
    EXPECT_EQ(Saldos(), QStringList{u"300,05 €"_s});
    EXPECT_EQ(historial.grdHis().FilaActual(), 1);
    historial.Elegir(5);
    EXPECT_EQ(historial.grdCierres().FilaSuperior(), 5);
    EXPECT_FALSE(historial.HayMovimientos());
    EXPECT_EQ(historial.grdHis().FilaActual(), 0);
    historial.Elegir(29);
    EXPECT_EQ(historial.grdCierres().FilaSuperior(), 20);
    EXPECT_EQ(Saldos(), QStringList{u"290,07 €"_s});
}

TEST_F(HistorialTest, TheBalanceRunsFromTheOpeningAmount) {
    PonerCierre(126410);
    PonerCierre(-5000);
    Poner({.cobrado = 2000, .devuelto = 315, .importeVenta = 1685, .vendedor = u"José"_s});
    Poner({.devuelto = 800, .importeVenta = -800});
    Poner({.cobrado = 100, .terminal = u"ZV"_s, .id1 = tipo::kMeterCambio});
    Poner({.devuelto = 130000, .terminal = u"ZV"_s, .id1 = tipo::kArqueoCaja});
    Poner({.idCierre = 2, .cobrado = 1});
    historial.AlMostrar();
    EXPECT_EQ(Saldos(), QStringList{u"-49,99 €"_s});
    historial.Elegir(1);
    EXPECT_EQ(FilaDe(historial.grdHis(), 1),
              (QStringList{u"14/03/2026 9:05:03"_s, u"Cobro venta"_s, u"TPV1"_s, u"José"_s,
                           u"16,85 €"_s, u"1.280,95 €"_s}));
    EXPECT_EQ(Conceptos(), (QStringList{u"Cobro venta"_s, u"Abono venta"_s, u"Cambio añadido"_s,
                                        u"Arqueo de caja"_s}));
    EXPECT_EQ(Saldos(),
              (QStringList{u"1.280,95 €"_s, u"1.272,95 €"_s, u"1.273,95 €"_s, u"-26,05 €"_s}));
    EXPECT_EQ(historial.grdHis().Texto(2, ColumnaHis::Venta), u"-8,00 €"_s);
}

TEST_F(HistorialTest, ByTheDevicesOwnUnits) {
    PonerCierre(1234);
    Poner({.cobrado = 1});
    cliente.PonerMultiplier(1);
    historial.AlMostrar();
    EXPECT_EQ(Saldos(), QStringList{u"1.235,00 €"_s});
}

TEST_F(HistorialTest, OnlyMovementsThatEndedWellAreListed) {
    PonerCierre(0);
    for (const QVariant& estado : {QVariant(u"ERROR"_s), QVariant(u"ok"_s), QVariant(u"CANCEL"_s),
                                   QVariant(), QVariant(u"OK "_s)}) {
        Poner({.cobrado = 100, .estado = estado});
    }
    for (const QVariant& cierre : {QVariant(0), QVariant(-1), QVariant(2), QVariant()}) {
        Poner({.idCierre = cierre, .cobrado = 100});
    }
    historial.AlMostrar();
    EXPECT_FALSE(historial.HayMovimientos());
    Poner({.cobrado = 3});
    historial.AlMostrar();
    EXPECT_EQ(Saldos(), QStringList{u"0,03 €"_s});
}

TEST_F(HistorialTest, NothingIsChosenWhileTheDrawingIsOffNorWhatIsNotThere) {
    PonerCierres(3);
    Poner({.idCierre = 1, .cobrado = 1});
    historial.AlMostrar();
    {
        const SinDibujo sinDibujo(historial.grdCierres());
        historial.Elegir(1);
    }
    for (const int fila : {0, -1, 4, 99}) {
        historial.Elegir(fila);
    }
    EXPECT_EQ(historial.grdCierres().FilaActual(), 3);
    EXPECT_FALSE(historial.HayMovimientos());
}

TEST_F(HistorialTest, SeveralChoicesInARowAreReadOnce) {
    PonerCierres(3);
    Poner({.idCierre = 1, .cobrado = 1});
    Poner({.idCierre = 2, .cobrado = 2});
    int pedidos = 0;
    historial.PorTurnos([&] { ++pedidos; });
    historial.AlMostrar();
    GanchoFallos gancho(motor);
    historial.Elegir(2);
    historial.Elegir(1);
    EXPECT_EQ(pedidos, 3);
    EXPECT_TRUE(gancho.vistas.empty());
    historial.Completar();
    EXPECT_EQ(Saldos(), QStringList{u"10,01 €"_s});
    EXPECT_EQ(gancho.Cuenta(Statement::Kind::Lectura, u"idCierre="_s), 1);
    historial.Completar();
    historial.Elegir(1);
    EXPECT_EQ(gancho.Cuenta(Statement::Kind::Lectura, u"idCierre="_s), 1);
    EXPECT_EQ(pedidos, 3);
}

TEST_F(HistorialTest, PrintsTheChosenCloseWithTheDatesOfItsMovements) {
    PonerCierres(2);
    Poner({.cobrado = 100, .importeVenta = 100, .fechaZV = u"2026-03-14 09:05:03"_s});
    Poner({.cobrado = 100, .importeVenta = 100, .fechaZV = u"2026-03-15 10:00:00"_s});
    Poner({.cobrado = 100, .importeVenta = 100, .fechaZV = u"2026-03-14 22:40:00"_s});
    historial.AjustarCierres(15000, 0);
    historial.AjustarMovimientos(15000, 0);
    historial.AlMostrar();
    historial.PorTurnos([] {}); // it prints what has been chosen, not what is shown still
    historial.Elegir(1);
    dialogos.EsperaMensaje(u"Cierre de Caja"_s, u"¿Desea imprimir el listado de ventas?"_s,
                           Respuesta::Si, EstiloMensaje::SiNo);
    historial.Imprimir();
    const QStringList lineas = impresora.Lineas();
    ASSERT_GT(lineas.size(), 9);
    EXPECT_EQ(lineas.front(),
              u"MOVIMIENTOS DE CAJA DEL 14/03/2026 09:05:03AL 14/03/2026 22:40:00"_s);
    EXPECT_EQ(lineas[1], u"Fecha | Concepto | Terminal | Vendedor | Venta"_s);
    EXPECT_EQ(lineas[2], u"14/03/2026 9:05:03 | Cobro venta | TPV1 | Ana | 1,00 €"_s);
    EXPECT_EQ(lineas[5], u"Cobros por ventas: 10,01 €"_s);
    EXPECT_EQ(lineas[9], u"SALDO FINAL: 10,05 €"_s);
}

TEST_F(HistorialTest, WithoutAPrinterItDoesNotPrint) {
    EXPECT_TRUE(historial.PuedeImprimir());
    entorno.configuracio->SINIMPRESORA = 1;
    EXPECT_FALSE(historial.PuedeImprimir());
}

TEST_F(HistorialTest, ExportsEitherGrid) {
    PonerCierre(100);
    Poner({.cobrado = 3, .importeVenta = 3});
    historial.PorTurnos([] {});
    historial.AlMostrar();
    EsperaExportado();
    historial.ExportarCierres();
    EXPECT_EQ(Exportado(u"Historial"_s),
              ";Fecha;INICIAL;Cobros;Abonos;Ingresos;Pagos;SALDO;CIERRE;Billetes;Monedas;CAJON;"
              "Billetes;Monedas\r\n1;14/03/26 22:00:05;1,00 ;1,01 ;1,02 ;1,03 ;1,04 ;1,05 ;1,06 ;"
              "1,07 ;1,08 ;2,19 ;1,09 ;1,10 \r\n");
    EsperaExportado();
    historial.ExportarMovimientos();
    EXPECT_EQ(Exportado(u"HistorialMovements"_s),
              "Fecha;Concepto;Terminal;Vendedor;Venta;Saldo ZV\r\n"
              "14/03/2026 9:05:03;Cobro venta;TPV1;Ana;0,03 ;1,03 \r\n");
}

TEST_F(HistorialTest, ClearingAsksAndANoLeavesAll) {
    PonerCierres(2);
    historial.AlMostrar();
    GanchoFallos gancho(motor);
    EsperaLimpiar(Respuesta::No);
    historial.Limpiar();
    EXPECT_TRUE(gancho.vistas.empty());
    EXPECT_EQ(historial.grdCierres().FilasDatos(), 2);
}

TEST_F(HistorialTest, ClearingNeverDeletesAndItsFailureGoesUp) {
    PonerCierres(2);
    historial.AlMostrar();
    GanchoFallos gancho(motor);
    EsperaLimpiar(Respuesta::Si);
    EXPECT_NE(NumeroError([&] { historial.Limpiar(); }), 0);
    EXPECT_EQ(gancho.vistas.back().sql, u"DELETE FROM cierres'"_s);
    EXPECT_EQ(CuentaCierres(), 2);
    EXPECT_EQ(historial.grdCierres().FilasDatos(), 2);
    EXPECT_EQ(motor.Nivel(), 0);
}

TEST_F(HistorialTest, FilledAgainItShowsWhatIsLeft) {
    PonerCierres(2);
    Poner({.idCierre = 2, .cobrado = 1});
    historial.AlMostrar();
    motor.Ejecutar(u"DELETE FROM cierres"_s);
    historial.AlMostrar();
    EXPECT_FALSE(historial.HayCierres());
    EXPECT_FALSE(historial.HayMovimientos());
    EXPECT_EQ(historial.grdCierres().FilaActual(), 0);
}

TEST_F(HistorialTest, FailuresOfTheTablesGoUp) {
    PonerCierres(1);
    GanchoFallos fallos(motor);
    fallos.Falla(Statement::Kind::Lectura, u"FROM cierres"_s, 1);
    EXPECT_EQ(NumeroError([&] { historial.AlMostrar(); }), 5);
    fallos.Falla(Statement::Kind::Lectura, u"FROM procesados"_s, 1);
    EXPECT_EQ(NumeroError([&] { historial.AlMostrar(); }), 5);
    EXPECT_EQ(fallos.Pendientes(), 0);
}

TEST_F(HistorialTest, AmountsBeyondTheDeviceGoUp) {
    motor.Ejecutar(u"INSERT INTO cierres (cajonBilletes,cajonMonedas) VALUES (2147483647,1)"_s);
    EXPECT_EQ(NumeroError([&] { historial.AlMostrar(); }), 6);
    motor.Ejecutar(u"DELETE FROM cierres"_s);
    PonerCierre(2147483630);
    Poner({.idCierre = 2, .cobrado = 2147483647});
    EXPECT_EQ(NumeroError([&] { historial.AlMostrar(); }), 6);
}

TEST_F(HistorialTest, OddTextsAreCutAsEverywhere) {
    PonerCierre(0);
    motor.Ejecutar(u"PRAGMA ignore_check_constraints=ON"_s); // as in a table of an older release
    Poner({.cobrado = 1,
           .terminal = u"ZV"_s,
           .id1 = tipo::kPago,
           .error = QString(u"caja\0oculta"_s),
           .vendedor = QString(400, u'v')});
    historial.AlMostrar();
    EXPECT_EQ(historial.grdHis().Texto(1, ColumnaHis::Vendedor), QString(255, u'v'));
    EXPECT_EQ(Conceptos(), QStringList{u"Pagocaja"_s});
}

TEST_F(HistorialTest, SpeaksTheLanguageOfTheFile) {
    IdiomaIngles().PonerEn(carpeta.path());
    PonerCierre(0);
    Poner({.cobrado = 1});
    historial.AlMostrar();
    for (const Rejilla* rejilla : {&historial.grdCierres(), &historial.grdHis()}) {
        const Rejilla& otra = *rejilla;
        for (int columna = &otra == &historial.grdCierres() ? 1 : 0; columna < otra.Columnas();
             ++columna) {
            EXPECT_FALSE(otra.Texto(0, columna).isEmpty());
        }
    }
    EXPECT_EQ(historial.grdCierres().Texto(0, ColumnaCierres::Cierre), u"CLOSE"_s);
    EXPECT_EQ(historial.grdHis().Texto(0, ColumnaHis::Vendedor), u"Cashier"_s);
    EXPECT_EQ(Conceptos(), QStringList{u"Sale charge"_s});
}

// The reading against a literal walk of the whole table.
TEST_F(HistorialTest, RandomTables) {
    static const QVariant kEstados[] = {u"OK"_s, u"OK"_s, u"OK"_s, u"ok"_s, u"ERROR"_s, QVariant()};
    static const QVariant kIds[] = {
        tipo::kDarCambio,      tipo::kMeterCambio, tipo::kPagoCambio, tipo::kPago,
        tipo::kCobroManual,    tipo::kVaciado,     tipo::kArqueoCaja, tipo::kVaciadoCajones,
        tipo::kCashBoxControl, u"T-7"_s,           QVariant()};
    static const QVariant kTerminales[] = {u"ZV"_s, u"ZV"_s, u"zv"_s, u"TPV1"_s, QVariant()};
    static const QVariant kImportes[] = {0, 0, 1, 250, 1999, -30, QVariant()};
    static const QVariant kCierres[] = {1, 2, 3, 0, -1, QVariant()};
    for (unsigned semilla = 1; semilla <= 20; ++semilla) {
        SCOPED_TRACE(semilla);
        std::mt19937 azar(semilla);
        const auto de = [&azar](const auto& lista) { return lista[azar() % std::size(lista)]; };
        motor.Ejecutar(u"DELETE FROM procesados"_s);
        motor.Ejecutar(u"DELETE FROM cierres"_s);
        motor.Ejecutar(u"DELETE FROM sqlite_sequence"_s);
        PonerCierres(3);
        motor.Comenzar();
        for (int i = 0; i < 80; ++i) {
            Poner({de(kCierres), de(kImportes), de(kImportes), de(kImportes), de(kEstados),
                   de(kTerminales), de(kIds), u"MONEDAS"_s, u"propina"_s});
        }
        motor.Confirmar();
        historial.AlMostrar();
        for (int cierre = 1; cierre <= 3; ++cierre) {
            historial.Elegir(cierre);
            qint64 saldo = 1000 * cierre;
            QStringList saldos;
            for (const Row& r : motor.Consultar(u"SELECT * FROM procesados ORDER BY idZV"_s)) {
                if (r.LeerLong(u"idCierre"_s) != cierre || r.LeerTexto(u"estado"_s) != u"OK"_s) {
                    continue;
                }
                const QString id1 = r.LeerTexto(u"id1"_s);
                const qint64 cobrado = r.LeerLong(u"cobrado"_s);
                const qint64 devuelto = r.LeerLong(u"devuelto"_s);
                const QStringList salidas{u"PAGO"_s, u"VACIADO"_s, u"VACIADOCAJONES"_s,
                                          u"ARQUEOCAJA"_s};
                const QStringList netos{u"CASHBOXCONTROL"_s, u"METER_CAMBIO"_s, u"DAR_CAMBIO"_s};
                const bool zv = r.LeerTexto(u"terminal"_s) == u"ZV"_s;
                const bool sale = zv && netos.contains(id1)     ? false
                                  : zv && salidas.contains(id1) ? true
                                                                : devuelto > 0 && cobrado == 0;
                saldo += sale ? -devuelto : cobrado - devuelto;
                saldos << importes.FormatoImporte(static_cast<qint32>(saldo));
            }
            EXPECT_EQ(Saldos(), saldos) << cierre;
        }
    }
}

} // namespace
} // namespace zv::test
