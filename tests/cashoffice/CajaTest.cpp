// The period and its balances: what the screen shows of them, and when.
#include "BancoCaja.h"
#include "store/Palabras.h"
#include "support/GanchoFallos.h"

namespace zv::test {
namespace {

using CajaTest = BancoCaja;

// ---- the period

TEST_F(CajaTest, AnEmptyTableLeavesTheTitlesAloneAndNothingToPrint) {
    Conectar();
    caja.AlMostrar();
    EXPECT_EQ(caja.grdZV().Filas(), 1);
    EXPECT_EQ(FilaDe(0), (QStringList{u"Fecha"_s, u"Concepto"_s, u"Vendedor"_s, u"Terminal"_s,
                                      u"Venta"_s, u"Saldo ZV"_s}));
    EXPECT_EQ(caja.totales, TotalesPeriodo());
    for (QString EstadoCaja::*etiqueta :
         {&EstadoCaja::lbCobros, &EstadoCaja::lbAbonos, &EstadoCaja::lbPagos,
          &EstadoCaja::lbIngresos, &EstadoCaja::lbSaldoFinal}) {
        EXPECT_EQ(E().*etiqueta, u"0,00 €"_s);
    }
    EXPECT_FALSE(Boton(BotonCaja::Imprimir));
    EXPECT_FALSE(Boton(BotonCaja::ExportCsv));
}

TEST_F(CajaTest, AlignmentsOfTheColumns) {
    for (int i = 0; i < ColumnaCaja::Cuantas; ++i) {
        EXPECT_EQ(caja.grdZV().ColumnaDe(i).alineacion,
                  (i < ColumnaCaja::Venta ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter)
            << i;
    }
}

TEST_F(CajaTest, ARowCrossesTerminalAndSellerAndShowsTheRunningBalance) {
    Conectar();
    Poner({.importeVenta = 1250, .cobrado = 2000, .devuelto = 750});
    Poner({.fechaZV = u"2026-12-01"_s,
           .importeVenta = -800,
           .devuelto = 800,
           .terminal = u"TPV2"_s,
           .vendedor = u"Luis"_s});
    caja.AlMostrar();
    ASSERT_EQ(caja.grdZV().Filas(), 3);
    EXPECT_EQ(FilaDe(1), (QStringList{u"14/03/2026 9:05:03"_s, u"Cobro Venta"_s, u"TPV1"_s,
                                      u"Ana"_s, u"12,50 €"_s, u"12,50 €"_s}));
    EXPECT_EQ(FilaDe(2), (QStringList{u"01/12/2026"_s, u"Abono Venta"_s, u"TPV2"_s, u"Luis"_s,
                                      u"-8,00 €"_s, u"4,50 €"_s}));
    EXPECT_TRUE(Boton(BotonCaja::Imprimir));
    EXPECT_TRUE(Boton(BotonCaja::ExportCsv));
    EXPECT_EQ(E().movimientos, 2);
    EXPECT_EQ(E().rellenados, 2);
}

TEST_F(CajaTest, ARowWithAnErrorIsListedWithItAndItsMoneyCounts) {
    Conectar();
    Poner({.importeVenta = 500, .cobrado = 500, .estado = u"ERROR_7"_s});
    Poner({.importeVenta = 100, .cobrado = 100, .estado = u"XERRORX"_s});
    caja.RefrescarCaja();
    ASSERT_EQ(caja.grdZV().Filas(), 3);
    EXPECT_EQ(caja.grdZV().Texto(1, ColumnaCaja::Concepto), u"Cobro Venta [ERROR_7]"_s);
    EXPECT_EQ(caja.grdZV().Texto(2, ColumnaCaja::Concepto), u"Cobro Venta [XERRORX]"_s);
    EXPECT_EQ(E().lbCobros, u"6,00 €"_s);
    EXPECT_EQ(E().lbSaldoFinal, u"6,00 €"_s);
}

TEST_F(CajaTest, ALongDetailDoesNotHideTheError) {
    Conectar();
    Poner({.estado = u"ERROR_7"_s,
           .id1 = u"PAGO"_s,
           .terminal = u"ZV"_s,
           .error = QString(255, u'x')});
    caja.RefrescarCaja();
    EXPECT_TRUE(caja.grdZV().Texto(1, ColumnaCaja::Concepto).endsWith(u"x [ERROR_7]"_s));
}

TEST_F(CajaTest, RowsOfNoPeriodLeaveNoTrace) {
    Conectar();
    const std::pair<QVariant, QVariant> fuera[] = {
        {estado::kReenviado, 0}, {estado::kCancel, 0}, {u"ok"_s, 0},
        {u"error"_s, 0},         {u"Error_7"_s, 0},    {QString(), 0},
        {QVariant(), 0},         {u"OK"_s, -1},        {u"OK"_s, 3},
        {u"OK"_s, QVariant()}};
    for (const auto& [cual, cierre] : fuera) {
        Poner({.importeVenta = 500, .cobrado = 500, .estado = cual, .idCierre = cierre});
    }
    caja.AlMostrar();
    EXPECT_EQ(caja.grdZV().Filas(), 1);
    EXPECT_EQ(caja.totales, TotalesPeriodo());
    EXPECT_FALSE(Boton(BotonCaja::Imprimir));
}

TEST_F(CajaTest, ChangeGivenRaisesTheFinalBalanceAlone) {
    Conectar();
    Poner({.cobrado = 2000, .devuelto = 2000, .id1 = tipo::kDarCambio, .terminal = u"ZV"_s});
    caja.RefrescarCaja();
    EXPECT_EQ(caja.grdZV().Texto(1, ColumnaCaja::Concepto), u"Cambio"_s);
    TotalesPeriodo esperados;
    esperados.movimientos = 1;
    EXPECT_EQ(caja.totales, esperados);
    Poner({.cobrado = 2000, .devuelto = 1500, .id1 = tipo::kDarCambio, .terminal = u"ZV"_s});
    caja.RefrescarCaja();
    esperados.movimientos = 2;
    esperados.saldoFinal = 500;
    EXPECT_EQ(caja.totales, esperados);
}

TEST_F(CajaTest, ASaleOfNothingIsARefund) {
    Conectar();
    Poner({.importeVenta = 0, .cobrado = 300, .devuelto = 100});
    caja.RefrescarCaja();
    EXPECT_EQ(caja.grdZV().Texto(1, ColumnaCaja::Concepto), u"Abono Venta"_s);
    EXPECT_EQ(caja.totales.abonos, Currency(100));
    EXPECT_EQ(caja.totales.cobros, Currency(0));
    EXPECT_EQ(caja.totales.saldoFinal, Currency(200));
}

TEST_F(CajaTest, TotalsNeedNotMakeTheFinalBalance) {
    Conectar();
    Poner({.cobrado = 50, .devuelto = 1000, .id1 = tipo::kPago, .terminal = u"ZV"_s});
    caja.RefrescarCaja();
    EXPECT_EQ(caja.totales.pagos, Currency(1000));
    EXPECT_EQ(caja.totales.saldoFinal, Currency(-950));
    EXPECT_EQ(E().lbPagos, u"10,00 €"_s); // without a sign
    EXPECT_EQ(E().lbSaldoFinal, u"-9,50 €"_s);
}

TEST_F(CajaTest, ARefreshStartsAnew) {
    Conectar();
    Poner({.importeVenta = 500, .cobrado = 500});
    caja.RefrescarCaja();
    caja.RefrescarCaja();
    EXPECT_EQ(caja.grdZV().Filas(), 2);
    EXPECT_EQ(caja.totales.cobros, Currency(500));
    EXPECT_EQ(caja.totales.saldoFinal, Currency(500));
    motor.Ejecutar(u"UPDATE procesados SET idCierre=1"_s);
    caja.RefrescarCaja();
    EXPECT_EQ(caja.grdZV().Filas(), 1);
    EXPECT_EQ(caja.totales, TotalesPeriodo());
}

TEST_F(CajaTest, ATextOfAnotherProgramIsCutToACell) {
    Conectar();
    Poner({.cobrado = 1,
           .estado = estado::kOk,
           .id1 = tipo::kPago,
           .terminal = u"ZV"_s,
           .vendedor = QVariant(),
           .error = QString(255, u'x')});
    caja.RefrescarCaja();
    EXPECT_EQ(caja.grdZV().Texto(1, ColumnaCaja::Concepto), u"Pago -"_s + QString(255, u'x'));
    EXPECT_EQ(caja.grdZV().Texto(1, ColumnaCaja::Terminal), QString());
}

// ---- failures go up

TEST_F(CajaTest, ATableThatCannotBeReadGoesUpWithTheTotalsOfBefore) {
    Conectar();
    Poner({.importeVenta = 500, .cobrado = 500});
    caja.RefrescarCaja();
    const QString pinta = E().lbCobros;
    GanchoFallos fallos(motor);
    fallos.Falla(Statement::Kind::Lectura, u"procesados"_s, 1);
    EXPECT_EQ(NumeroError([&] { caja.RefrescarCaja(); }), 5);
    EXPECT_EQ(caja.grdZV().Filas(), 1);
    EXPECT_TRUE(caja.grdZV().Dibujo());
    EXPECT_EQ(caja.totales.saldoFinal, Currency(0));
    EXPECT_EQ(caja.totales.cobros, Currency(500));
    EXPECT_EQ(E().lbCobros, pinta); // no label is written
    EXPECT_FALSE(E().punteroEspera);
}

TEST_F(CajaTest, AnAmountBeyondTheDeviceGoesUpWithTheRowsBefore) {
    Conectar();
    Poner({.importeVenta = 500, .cobrado = 500});
    Poner({.importeVenta = 3000000000LL});
    Poner({.importeVenta = 700, .cobrado = 700});
    EXPECT_EQ(NumeroError([&] { caja.RefrescarCaja(); }), 6);
    EXPECT_EQ(caja.grdZV().Filas(), 2);
    EXPECT_TRUE(caja.grdZV().Dibujo());
    EXPECT_EQ(caja.totales.cobros, Currency(500));
}

TEST_F(CajaTest, WithoutAMultiplierNoAmountCanBeShown) {
    Conectar();
    Poner({.importeVenta = 500, .cobrado = 500});
    cliente.PonerMultiplier(0);
    EXPECT_EQ(NumeroError([&] { caja.RefrescarCaja(); }), 11);
    EXPECT_EQ(caja.grdZV().Filas(), 1);
}

TEST_F(CajaTest, AnOpeningBalanceThatIsNoNumberGoesUp) {
    Conectar();
    registry.GuardarValor(registry_name::kSaldoInicial, u"abc"_s);
    EXPECT_EQ(NumeroError([&] { caja.RefrescarCaja(); }), 13);
    EXPECT_FALSE(E().punteroEspera);
}

TEST_F(CajaTest, EveryRefreshReadsTheOpeningBalanceAnew) {
    Conectar();
    registry.GuardarValor(registry_name::kSaldoInicial, u"777"_s);
    caja.RefrescarCaja();
    EXPECT_EQ(entorno.supervision.SaldoInicial(), 777);
    EXPECT_EQ(caja.totales.saldoFinal, Currency(0));
    entorno.supervision.RenovarSaldoInicial(Currency(888));
    EXPECT_EQ(registry.LeerValor(registry_name::kSaldoInicial, {}), u"888"_s);
    EXPECT_EQ(entorno.supervision.SaldoInicial(), 888);
    registry.GuardarValor(registry_name::kSaldoInicial, u"999"_s); // another program
    caja.RefrescarCaja();
    EXPECT_EQ(entorno.supervision.SaldoInicial(), 999);
}

// ---- the balances

TEST_F(CajaTest, BalancesComeFromTheDeviceInTheirOrder) {
    Conectar();
    for (const int tipo : {2, 2, 3, 3}) {
        cliente.EsperaGetLevels(tipo, tipo == 2 ? u"1,100,5000"_s : u"100,2000"_s,
                                tipo == 2 ? u"10,42,7"_s : u"12,43"_s);
    }
    caja.RefrescarCaja();
    EXPECT_TRUE(cliente.Agotado());
    EXPECT_EQ(E().lbCambioMonedas, u"42,10 €"_s);
    EXPECT_EQ(E().lbCambioBilletes, u"350,00 €"_s);
    EXPECT_EQ(E().lbCBMonedas, u"12,00 €"_s);
    EXPECT_EQ(E().lbCBBilletes, u"860,00 €"_s);
    EXPECT_EQ(E().lbContenido, u"1.264,10 €"_s);
    EXPECT_EQ(caja.saldos.contenido, Currency(126410));
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(CajaTest, ThePiecesBehindTheBalancesAreKnownWithoutFurtherCalls) {
    Conectar();
    caja.RefrescarCaja();
    EXPECT_EQ(E().niveles.reciclador, (std::vector<NivelPiezas>{{1, 10}, {100, 42}, {5000, 7}}));
    EXPECT_EQ(E().niveles.cajones, (std::vector<NivelPiezas>{{100, 12}, {2000, 43}}));
}

TEST_F(CajaTest, OnlyACloseWritesItsBalance) {
    Conectar();
    caja.PonerEtiqueta(&EstadoCaja::lbSaldoCierre, u"1,00 €"_s);
    caja.RefrescarCaja();
    EXPECT_EQ(E().lbSaldoCierre, u"1,00 €"_s);
}

TEST_F(CajaTest, BoxesThatHoldSomethingCanBeEmptied) {
    EXPECT_FALSE(Boton(BotonCaja::VaciarMonedas));
    EXPECT_FALSE(Boton(BotonCaja::VaciarBilletes));
    Conectar();
    caja.AlMostrar();
    EXPECT_TRUE(Boton(BotonCaja::VaciarMonedas));
    EXPECT_TRUE(Boton(BotonCaja::VaciarBilletes));
    PonerNiveles(42, 7, 0, 43);
    caja.RefrescarCaja();
    EXPECT_FALSE(Boton(BotonCaja::VaciarMonedas));
    EXPECT_TRUE(Boton(BotonCaja::VaciarBilletes));
    PonerNiveles(42, 7, 3, 0);
    caja.RefrescarCaja();
    EXPECT_TRUE(Boton(BotonCaja::VaciarMonedas));
    EXPECT_FALSE(Boton(BotonCaja::VaciarBilletes));
}

TEST_F(CajaTest, OnlyACaptionThatChangesDecidesOnEmptying) {
    Conectar();
    caja.AlMostrar();
    caja.PonerBoton(BotonCaja::VaciarMonedas, false);
    caja.RefrescarCaja(); // the same caption
    EXPECT_FALSE(Boton(BotonCaja::VaciarMonedas));
    for (const auto& [texto, puede] :
         {std::pair(u"sin"_s, false), std::pair(u"0,01 €"_s, true), std::pair(u"-1,00 €"_s, false),
          std::pair(u"5"_s, true), std::pair(QString(), false)}) {
        caja.PonerEtiqueta(&EstadoCaja::lbCBMonedas, texto);
        caja.PonerEtiqueta(&EstadoCaja::lbCBBilletes, texto);
        EXPECT_EQ(Boton(BotonCaja::VaciarMonedas), puede) << texto.toStdString();
        EXPECT_EQ(Boton(BotonCaja::VaciarBilletes), puede) << texto.toStdString();
    }
}

TEST_F(CajaTest, TheLossLineGoesAtTheFirstRefreshAndNeverComesBack) {
    Conectar();
    EXPECT_TRUE(E().quebrantoVisible);
    caja.RefrescarCaja();
    EXPECT_FALSE(E().quebrantoVisible);
    EXPECT_EQ(E().lbQuebranto, QString());
    Poner({.importeVenta = 500, .cobrado = 200, .devuelto = 50});
    caja.RefrescarCaja();
    EXPECT_FALSE(E().quebrantoVisible);
}

TEST_F(CajaTest, WithoutTheDeviceItsButtonsAreOffAndItsBalancesNothing) {
    Poner({.importeVenta = 500, .cobrado = 500});
    EsperaSinConexion();
    caja.AlMostrar();
    for (const BotonCaja boton :
         {BotonCaja::CierreNiveles, BotonCaja::CierreValor, BotonCaja::VaciarMonedas,
          BotonCaja::VaciarBilletes, BotonCaja::Cuadrar}) {
        EXPECT_FALSE(Boton(boton));
    }
    for (const BotonCaja boton : {BotonCaja::Salir, BotonCaja::Imprimir, BotonCaja::Configuracion,
                                  BotonCaja::Historico, BotonCaja::ExportCsv}) {
        EXPECT_TRUE(Boton(boton));
    }
    EXPECT_EQ(caja.saldos, SaldosCaja());
    EXPECT_EQ(E().niveles, NivelesDispositivo());
    EXPECT_EQ(E().lbContenido, u"0,00 €"_s);
    EXPECT_EQ(E().lbCobros, u"5,00 €"_s);
    EXPECT_EQ(cliente.Llamadas(), QStringList());
}

TEST_F(CajaTest, ADeviceThatComesBackLeavesTheButtonsOff) {
    EsperaSinConexion();
    caja.AlMostrar();
    Conectar();
    caja.RefrescarCaja();
    EXPECT_FALSE(Boton(BotonCaja::CierreNiveles));
    EXPECT_FALSE(Boton(BotonCaja::Cuadrar));
    EXPECT_EQ(E().lbContenido, u"1.264,10 €"_s);
}

TEST_F(CajaTest, ADeviceThatRefusesItsLevelsIsToldByTheBalances) {
    Conectar();
    cliente.FallarNiveles(2, 7, u"Atasco"_s);
    dialogos.EsperaMensaje(u"Operación anulada"_s, u"Atasco"_s);
    dialogos.EsperaMensaje(u"Operación anulada"_s, u"Atasco"_s);
    caja.RefrescarCaja();
    EXPECT_EQ(E().lbCambioMonedas, u"0,00 €"_s);
    EXPECT_EQ(E().lbContenido, u"872,00 €"_s);
    EXPECT_TRUE(E().niveles.reciclador.empty());
    EXPECT_TRUE(Boton(BotonCaja::CierreNiveles));
}

TEST_F(CajaTest, TheWaitCursorIsShownBeforeTheDeviceIsAskedAndGoes) {
    Conectar();
    QStringList orden;
    caja.AlPintar([&] { orden << (E().punteroEspera ? u"pinta espera"_s : u"pinta"_s); });
    cliente.EsperaGetLevels(2, u"100"_s, u"1"_s);
    cliente.EsperaGetLevels(2, u"100"_s, u"1"_s);
    cliente.EsperaGetLevels(3, u"100"_s, u"1"_s);
    cliente.EsperaGetLevels(3, u"100"_s, u"1"_s);
    cliente.AlLlamar([&](const QString& llamada) { orden << llamada; });
    caja.RellenarSaldos();
    ASSERT_EQ(orden.size(), 5);
    EXPECT_EQ(orden.first(), u"pinta espera"_s);
    EXPECT_FALSE(E().punteroEspera);
}

// ---- buttons and columns

TEST_F(CajaTest, WithoutAPrinterNothingIsPrinted) {
    Conectar();
    Poner({.importeVenta = 500, .cobrado = 500});
    entorno.configuracio->SINIMPRESORA = 1;
    caja.AlMostrar();
    EXPECT_FALSE(Boton(BotonCaja::Imprimir));
    EXPECT_TRUE(Boton(BotonCaja::ExportCsv));
    entorno.configuracio->SINIMPRESORA = 2; // only 1 says so
    caja.AlMostrar();
    EXPECT_TRUE(Boton(BotonCaja::Imprimir));
}

TEST_F(CajaTest, ButtonsWhenTheLinkDrops) {
    Conectar();
    Poner({.importeVenta = 500, .cobrado = 500});
    caja.AlMostrar();
    caja.ActualizarBotones(false);
    EXPECT_FALSE(Boton(BotonCaja::Imprimir));
    EXPECT_TRUE(Boton(BotonCaja::ExportCsv));
    EXPECT_FALSE(Boton(BotonCaja::CierreNiveles));
    EXPECT_FALSE(Boton(BotonCaja::CierreValor));
    EXPECT_FALSE(Boton(BotonCaja::Cuadrar));
    EXPECT_TRUE(Boton(BotonCaja::VaciarMonedas));
    caja.ActualizarBotones(true);
    EXPECT_TRUE(Boton(BotonCaja::Imprimir));
    EXPECT_TRUE(Boton(BotonCaja::CierreNiveles));
    EXPECT_TRUE(Boton(BotonCaja::CierreValor));
    EXPECT_TRUE(Boton(BotonCaja::Cuadrar));
    motor.Ejecutar(u"DELETE FROM procesados"_s);
    caja.RefrescarCaja();
    caja.ActualizarBotones(true);
    EXPECT_FALSE(Boton(BotonCaja::Imprimir));
    EXPECT_FALSE(Boton(BotonCaja::ExportCsv));
}

TEST_F(CajaTest, DisconnectingKeepsTheBalanceAndTurnsTheButtonsOff) {
    Conectar();
    caja.AlMostrar();
    registry.GuardarValor(registry_name::kSaldoExit, u"1"_s);
    cliente.EsperaDisconnect();
    qint16 resultado = 7;
    caja.Desconnectar(resultado);
    EXPECT_EQ(resultado, 0);
    EXPECT_FALSE(entorno.supervision.Conectado());
    EXPECT_EQ(registry.LeerValor(registry_name::kSaldoExit, {}), u"126410"_s);
    EXPECT_EQ(log.Toma(), QStringList{u"ZVCONNECT_DESCONECTARZORV_DISCONNECT_OK"_s});
    EXPECT_FALSE(Boton(BotonCaja::CierreNiveles));
}

TEST_F(CajaTest, ColumnsShareTheWidthByTheSettings) {
    const auto anchos = [this](int vendedor, int terminal) {
        entorno.configuracio->COLVENDEDOR = static_cast<quint8>(vendedor);
        entorno.configuracio->COLTERMINAL = static_cast<quint8>(terminal);
        caja.AjustarColumnas(9195, 195);
        QList<int> twips;
        for (int i = 0; i < ColumnaCaja::Cuantas; ++i) {
            twips << caja.grdZV().ColumnaDe(i).ancho;
        }
        return twips;
    };
    EXPECT_EQ(anchos(1, 1), (QList<int>{1500, 1500, 1500, 1500, 1500, 1500}));
    EXPECT_EQ(anchos(0, 1), (QList<int>{1800, 1800, 0, 1800, 1800, 1800}));
    EXPECT_EQ(anchos(1, 0), (QList<int>{1800, 1800, 1800, 0, 1800, 1800}));
    EXPECT_EQ(anchos(0, 0), (QList<int>{2250, 2250, 0, 0, 2250, 2250}));
    caja.AjustarColumnas(100, 195); // narrower than its bar
    EXPECT_EQ(caja.grdZV().ColumnaDe(0).ancho, 0);
}

TEST_F(CajaTest, TheScreenIsToldOfEachChange) {
    int avisos = 0;
    caja.AlCambiar([&] { ++avisos; });
    caja.PonerBoton(BotonCaja::Cuadrar, true); // it is
    caja.PonerEtiqueta(&EstadoCaja::lbCobros, QString());
    EXPECT_EQ(avisos, 0);
    caja.PonerBoton(BotonCaja::Cuadrar, false);
    caja.PonerEtiqueta(&EstadoCaja::lbCobros, u"1"_s);
    caja.Enfocar(BotonCaja::Historico);
    EXPECT_EQ(avisos, 3);
    EXPECT_EQ(E().foco, BotonCaja::Historico);
}

// ---- a long period

TEST_F(CajaTest, ALongPeriodFillsTheGridInStepsWithItsTotalsAtOnce) {
    Conectar();
    PonerVentas(2000);
    int pedidos = 0;
    caja.PorPasos([&] { ++pedidos; });
    caja.AlMostrar();
    EXPECT_EQ(pedidos, 1);
    EXPECT_EQ(E().movimientos, 2000);
    EXPECT_EQ(E().rellenados, 500);
    EXPECT_EQ(caja.grdZV().FilasDatos(), 500);
    EXPECT_EQ(caja.totales.cobros, Currency(100 * 2000 + 1999 * 1000));
    EXPECT_EQ(E().lbSaldoFinal, importes.FormatoImporte(caja.totales.saldoFinal));
    EXPECT_TRUE(Boton(BotonCaja::ExportCsv));
    int antes = 500;
    while (caja.SeguirRellenando()) {
        EXPECT_GT(E().rellenados, antes);
        antes = E().rellenados;
    }
    EXPECT_EQ(E().rellenados, 2000);
    EXPECT_EQ(caja.grdZV().FilasDatos(), 2000);
    EXPECT_EQ(FilaDe(2000),
              (QStringList{u"14/03/2026 9:05:03"_s, u"Cobro Venta"_s, u"TPV1"_s, u"Ana"_s,
                           u"20,99 €"_s, importes.FormatoImporte(caja.totales.saldoFinal)}));
    EXPECT_EQ(pedidos, 1);
    EXPECT_FALSE(caja.SeguirRellenando());
    EXPECT_EQ(caja.grdZV().FilasDatos(), 2000);
}

TEST_F(CajaTest, ALongTableIsReadInPiecesAndNoRecordIsLost) {
    Conectar();
    for (const qint64 clave : {-3LL, 1LL, 49996LL, 49997LL, 50000LL, 99997LL, 2147483647LL}) {
        motor.Ejecutar(u"INSERT INTO procesados (idZV,importeVenta,cobrado,devuelto,estado,id1,"
                       "terminal,idCierre) VALUES (?,1,1,0,'OK','T','TPV1',0)"_s,
                       {clave});
    }
    caja.RefrescarCaja();
    EXPECT_EQ(caja.totales.movimientos, 7);
    EXPECT_EQ(caja.totales.cobros, Currency(7));
}

TEST_F(CajaTest, ALongPeriodIsReadInPiecesAndNoRecordIsCountedTwice) {
    Conectar();
    PonerVentas(12001); // three full pieces and one record
    caja.PorPasos([] {});
    caja.RefrescarCaja();
    EXPECT_EQ(caja.totales.movimientos, 12001);
    EXPECT_EQ(caja.totales.cobros, Currency(12001 * 100 + 12001 * 6000));
}

TEST_F(CajaTest, WhoPrintsOrExportsHasTheWholeGrid) {
    Conectar();
    PonerVentas(1200);
    caja.PorPasos([] {});
    caja.RefrescarCaja();
    EXPECT_EQ(caja.grdZV().FilasDatos(), 500);
    caja.Completar();
    EXPECT_EQ(caja.grdZV().FilasDatos(), 1200);
    caja.Completar();
    EXPECT_EQ(caja.grdZV().FilasDatos(), 1200);
    // The step that was asked for before comes all the same.
    EXPECT_FALSE(caja.SeguirRellenando());
    EXPECT_EQ(E().rellenados, 1200);
}

TEST_F(CajaTest, ARefreshInTheMiddleOfTheStepsBeginsAnew) {
    Conectar();
    PonerVentas(1200);
    caja.PorPasos([] {});
    caja.RefrescarCaja();
    motor.Ejecutar(u"DELETE FROM procesados WHERE idZV>600"_s);
    caja.RefrescarCaja();
    while (caja.SeguirRellenando()) {
    }
    EXPECT_EQ(caja.grdZV().FilasDatos(), 600);
    EXPECT_EQ(E().movimientos, 600);
}

} // namespace
} // namespace zv::test
