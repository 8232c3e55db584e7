// What the registers show in each mode, and where.
#include "BancoListado.h"
#include "store/Palabras.h"
#include "support/GanchoFallos.h"
#include "support/IdiomaIngles.h"

#include <QThread>

namespace zv::test {
namespace {

using ListadoTest = BancoListado;
using C = ColumnaListado;

// ---- charges and incidents

TEST_F(ListadoTest, ColumnsOfTheCharges) {
    listado.RellenaGrdZv(ModoListado::Cobros);
    EXPECT_EQ(E().lbTitulo, u"Registro de Cobros"_s);
    EXPECT_EQ(FilaDe(0),
              (QStringList{u"Descartar"_s, u"IdZV"_s, u"Fecha ZV"_s, u"Id.Venta"_s, u"Usuario"_s,
                           u"Terminal"_s, u"Vendedor"_s, u"F.Pago"_s, u"Importe"_s, u"Cobrado"_s,
                           u"Pagado"_s, QString(), u"Concepto"_s, u"Reenviar"_s}));
    for (int i = 0; i < C::Cuantas; ++i) {
        const bool importe = i >= C::Importe && i <= C::Pagado;
        EXPECT_EQ(listado.grdZV().ColumnaDe(i).alineacion,
                  importe         ? Qt::AlignRight | Qt::AlignVCenter
                  : i == C::Error ? Qt::AlignLeft | Qt::AlignVCenter
                                  : Qt::AlignCenter)
            << i;
    }
    EXPECT_EQ(listado.grdZV().FilaActual(), 0);
}

TEST_F(ListadoTest, ColumnsOfTheIncidents) {
    listado.RellenaGrdZv(ModoListado::Incidencias);
    EXPECT_EQ(E().lbTitulo, u"Registro de Incidencias"_s);
    EXPECT_EQ(listado.grdZV().Texto(0, C::Estado), u"Estado"_s);
    EXPECT_EQ(listado.grdZV().Texto(0, C::Error), u"Error"_s);
    EXPECT_EQ(listado.grdZV().Columnas(), 14);
}

TEST_F(ListadoTest, ACharge) {
    Poner({.cobrado = 2000, .devuelto = 750, .id2 = u"A-17"_s, .error = u"nada"_s});
    listado.RellenaGrdZv(ModoListado::Cobros);
    ASSERT_EQ(listado.grdZV().FilasDatos(), 1);
    EXPECT_EQ(FilaDe(1), (QStringList{QString(), u"1"_s, u"14/03/26 09:05:03"_s, u"1001/A-17"_s,
                                      u"LUIS"_s, u"TPV1"_s, u"Ana"_s, u"EFECTIVO"_s, u"12,50 €"_s,
                                      u"20,00 €"_s, u"7,50 €"_s, QString(), u"nada"_s, QString()}));
    EXPECT_EQ(listado.grdZV().AspectoDe(1, C::Descartar).imagen, Imagen::Cancelar);
    EXPECT_EQ(listado.grdZV().AspectoDe(1, C::Reenviar).imagen, Imagen::Enviar);
    EXPECT_EQ(listado.grdZV().PalabraImagen(1, C::Descartar), u"Descartar"_s);
    EXPECT_EQ(listado.grdZV().PalabraImagen(1, C::Reenviar), u"Reenviar"_s);
    EXPECT_EQ(listado.grdZV().FilaActual(), 1);
}

TEST_F(ListadoTest, AnIncident) {
    Poner({.importeVenta = -800, .estado = u"ERROR"_s, .error = u"5 - Atasco"_s});
    listado.RellenaGrdZv(ModoListado::Incidencias);
    ASSERT_EQ(listado.grdZV().FilasDatos(), 1);
    EXPECT_EQ(FilaDe(1),
              (QStringList{QString(), u"1"_s, u"14/03/26 09:05:03"_s, u"1001"_s, u"LUIS"_s,
                           u"TPV1"_s, u"Ana"_s, u"EFECTIVO"_s, u"-8,00 €"_s, u"0,00 €"_s,
                           u"0,00 €"_s, u"ERROR"_s, u"5 - Atasco"_s, QString()}));
}

TEST_F(ListadoTest, OpenRowsStandInOneOfTheTwoByTheirExactState) {
    const std::pair<QVariant, QVariant> filas[] = {
        {u"OK"_s, 0},     {u"OK"_s, 3},         {u"OK"_s, -1},           {u"ERROR"_s, 0},
        {u"ERROR"_s, -1}, {estado::kCancel, 0}, {estado::kReenviado, 0}, {u"ok"_s, 0},
        {QVariant(), 0},  {u"OK"_s, QVariant()}};
    for (const auto& [cual, cierre] : filas) {
        Poner({.estado = cual, .idCierre = cierre});
    }
    listado.RellenaGrdZv(ModoListado::Cobros);
    EXPECT_EQ(Columna(C::IdZV), (QStringList{u"IdZV"_s, u"1"_s}));
    listado.RellenaGrdZv(ModoListado::Incidencias);
    EXPECT_EQ(Columna(C::IdZV), (QStringList{u"IdZV"_s, u"4"_s, u"6"_s, u"7"_s, u"8"_s}));
}

TEST_F(ListadoTest, ANumberIsItsSaleAnythingElseItsConcept) {
    struct Caso {
        const char* id1;
        const char* id2;
        int cobrado;
        int devuelto;
        const char* error;
        const char* formapago;
        const char* celda;
    };
    const Caso casos[] = {{"1001", "", 0, 0, "x", "", "1001"},
                          {"1001", "A", 0, 0, "x", "", "1001/A"},
                          {"12,5", "", 0, 0, "x", "", "12,5"},
                          {"T1", "A", 500, 0, "x", "", "Cobro agrupado"},
                          {"T1", "A", 0, 500, "x", "", "Abono agrupado"},
                          {"", "A", 0, 0, "x", "", "Cobro agrupado"},
                          {"COBRO_MANUAL", "", 500, 0, "Bolsas", "", "Cobro ManualBolsas"},
                          {"COBRO_MANUAL", "", 0, 500, "Bolsas", "", "Abono ManualBolsas"},
                          {"PAGO", "", 0, 500, "Mensajero", "", "PagoMensajero"},
                          {"VACIADO", "", 0, 500, "x", "MONEDAS", "VACIADO MONEDAS"},
                          {"VACIADO", "", 0, 500, "x", "BILLETES", "VACIADO BILLETES"},
                          {"VACIADO", "", 0, 500, "x", "", "VACIADO"},
                          {"VACIADOCAJONES", "", 0, 500, "x", "", "Vaciado de cajones"},
                          {"ARQUEOCAJA", "", 0, 500, "x", "", "Arqueo de caja"},
                          {"CASHBOXCONTROL", "", 0, 500, "x", "", "Ajuste por descuadre"},
                          {"METER_CAMBIO", "", 500, 0, "x", "", "Cambio añadido"},
                          {"PAGO_CAMBIO", "", 0, 500, "x", "", "Cambio cancelado/no autorizado"},
                          {"DAR_CAMBIO", "", 500, 500, "x", "", "Cambio"}};
    QStringList esperadas{u"Id.Venta"_s};
    for (const Caso& c : casos) {
        // The terminal tells nothing here.
        Poner({.cobrado = c.cobrado,
               .devuelto = c.devuelto,
               .id1 = QString::fromUtf8(c.id1),
               .id2 = QString::fromUtf8(c.id2),
               .terminal = esperadas.size() % 2 == 0 ? u"ZV"_s : u"TPV1"_s,
               .formapago = QString::fromUtf8(c.formapago),
               .error = QString::fromUtf8(c.error)});
        esperadas << QString::fromUtf8(c.celda);
    }
    listado.RellenaGrdZv(ModoListado::Cobros);
    EXPECT_EQ(Columna(C::Operacion), esperadas);
}

TEST_F(ListadoTest, NobodyIsNoUser) {
    for (const QVariant& usuario :
         {QVariant(u"Nulo"_s), QVariant(), QVariant(QString()), QVariant(u"nulo"_s)}) {
        Poner({.usuario = usuario});
    }
    listado.RellenaGrdZv(ModoListado::Cobros);
    EXPECT_EQ(Columna(C::Usuario),
              (QStringList{u"Usuario"_s, QString(), QString(), QString(), u"nulo"_s}));
}

TEST_F(ListadoTest, WhatHasNoValueIsEmpty) {
    Poner({.fechaZV = QVariant(),
           .importeVenta = QVariant(),
           .cobrado = QVariant(),
           .devuelto = QVariant(),
           .id1 = u"7"_s,
           .id2 = QVariant(),
           .terminal = QVariant(),
           .vendedor = QVariant(),
           .formapago = QVariant(),
           .error = QVariant()});
    listado.RellenaGrdZv(ModoListado::Cobros);
    EXPECT_EQ(FilaDe(1), (QStringList{QString(), u"1"_s, QString(), u"7"_s, u"LUIS"_s, QString(),
                                      QString(), QString(), u"0,00 €"_s, u"0,00 €"_s, u"0,00 €"_s,
                                      QString(), QString(), QString()}));
}

TEST_F(ListadoTest, TotalsOfTheCharges) {
    Poner({.importeVenta = 1250, .cobrado = 2000, .devuelto = 750});
    Poner({.importeVenta = -800, .cobrado = 50, .devuelto = 800});
    Poner({.importeVenta = 0, .cobrado = 300, .devuelto = 100}); // a refund
    Poner({.importeVenta = -1, .devuelto = -25});
    Poner({.importeVenta = 9999, .cobrado = 9999, .estado = u"ERROR"_s});
    listado.RellenaGrdZv(ModoListado::Cobros);
    EXPECT_EQ(E().lbCobros, u"20,00 €"_s);
    EXPECT_EQ(E().lbPagos, u"9,25 €"_s);
    EXPECT_TRUE(E().totalesVisibles);
    EXPECT_FALSE(E().todasVisible);
    EXPECT_EQ(E().filas, 4);
    listado.RellenaGrdZv(ModoListado::Incidencias);
    EXPECT_EQ(E().lbCobros, u"99,99 €"_s);
    EXPECT_EQ(E().lbPagos, u"0,00 €"_s);
    EXPECT_FALSE(E().totalesVisibles);
    EXPECT_TRUE(E().todasVisible);
}

TEST_F(ListadoTest, ATextOfAnotherProgramIsCutToACell) {
    Poner({.id1 = u"PAGO"_s, .error = QString(255, u'x')});
    listado.RellenaGrdZv(ModoListado::Cobros);
    EXPECT_EQ(listado.grdZV().Texto(1, C::Operacion), u"Pago"_s + QString(255, u'x'));
    EXPECT_EQ(listado.grdZV().Texto(1, C::Error), QString(255, u'x'));
}

TEST_F(ListadoTest, AnAmountBeyondWhatTheDeviceCountsGoesUp) {
    Poner({.importeVenta = 100});
    Poner({.importeVenta = 2147483648LL});
    EXPECT_EQ(NumeroError([&] { listado.RellenaGrdZv(ModoListado::Cobros); }), 6);
    EXPECT_EQ(listado.grdZV().FilasDatos(), 1); // the rows before it
    EXPECT_EQ(E().filas, 1);
}

TEST_F(ListadoTest, AFailureOfTheDatabaseGoesUp) {
    GanchoFallos fallos(motor);
    fallos.Falla(Statement::Kind::Lectura, u"Accesos"_s, 1);
    fallos.Falla(Statement::Kind::Lectura, u"procesados"_s, 1);
    EXPECT_EQ(NumeroError([&] { listado.RellenaGrdZv(ModoListado::Accesos); }), 5);
    EXPECT_EQ(NumeroError([&] { listado.RellenaGrdZv(ModoListado::Cobros); }), 5);
    listado.RellenaGrdZv(ModoListado::Cobros);
}

// ---- accesses

TEST_F(ListadoTest, TheAccesses) {
    PonerAccesos(2);
    motor.Ejecutar(u"INSERT INTO Accesos (Fecha,usuario,lugar) VALUES (NULL,NULL,NULL)"_s);
    Poner({});
    listado.RellenaGrdZv(ModoListado::Accesos);
    EXPECT_EQ(E().lbTitulo, u"Registro de Accesos"_s);
    ASSERT_EQ(listado.grdZV().FilasDatos(), 3);
    EXPECT_EQ(FilaDe(0), (QStringList{u"Descartar"_s, u"IdZV"_s, u"Fecha Acceso"_s, u"Usuario"_s,
                                      u"Lugar"_s}));
    EXPECT_EQ(FilaDe(1),
              (QStringList{QString(), u"1"_s, u"14/03/26 18:04:11"_s, u"ANA"_s, u"authCaja"_s}));
    EXPECT_EQ(FilaDe(2),
              (QStringList{QString(), u"2"_s, u"14/03/26 18:04:11"_s, u"ANA"_s, u"authPago"_s}));
    EXPECT_EQ(FilaDe(3), (QStringList{QString(), u"3"_s, QString(), QString(), QString()}));
    for (int columna = 0; columna < ColumnaAccesos::Cuantas; ++columna) {
        EXPECT_EQ(listado.grdZV().AspectoDe(1, columna).imagen, Imagen::Ninguna);
        EXPECT_EQ(listado.grdZV().ColumnaDe(columna).alineacion, Qt::AlignCenter);
    }
    EXPECT_FALSE(E().totalesVisibles);
    EXPECT_TRUE(E().todasVisible);
}

TEST_F(ListadoTest, APlaceIsLookedUpByItsOwnName) {
    IdiomaIngles().PonerEn(carpeta.path());
    PonerAccesos(1);
    motor.Ejecutar(u"INSERT INTO Accesos (usuario,lugar) VALUES ('ANA','authOtro')"_s);
    listado.RellenaGrdZv(ModoListado::Accesos);
    EXPECT_EQ(Columna(ColumnaAccesos::Lugar),
              (QStringList{u"Place"_s, u"Cash office"_s, u"authOtro"_s}));
    EXPECT_EQ(E().lbTitulo, u"Access records"_s);
}

// ---- filling

TEST_F(ListadoTest, AFillingStartsAnew) {
    PonerIncidencias(3);
    listado.RellenaGrdZv(ModoListado::Incidencias);
    motor.Ejecutar(u"DELETE FROM procesados WHERE idZV=1"_s);
    listado.RellenaGrdZv(ModoListado::Incidencias);
    EXPECT_EQ(Columna(C::IdZV), (QStringList{u"IdZV"_s, u"2"_s, u"3"_s}));
    EXPECT_EQ(E().lbCobros, u"0,00 €"_s);
    PonerAccesos(1);
    listado.RellenaGrdZv(ModoListado::Accesos);
    EXPECT_EQ(listado.grdZV().Columnas(), 5);
    EXPECT_EQ(listado.grdZV().FilasDatos(), 1);
}

TEST_F(ListadoTest, FilledOnceMoreInTheSameModeItKeepsItsPlace) {
    PonerIncidencias(2000);
    listado.grdZV().PonerPagina(10);
    listado.PorPasos([] {});
    listado.RellenaGrdZv(ModoListado::Incidencias);
    listado.Completar();
    listado.grdZV().PonerFilaSuperior(1500);
    listado.grdZV().PonerFilaActual(1503);
    listado.RellenaGrdZv(ModoListado::Incidencias);
    EXPECT_EQ(listado.grdZV().FilaSuperior(), 1500);
    EXPECT_EQ(listado.grdZV().FilaActual(), 1503);
    EXPECT_LT(E().rellenadas, 2001);
    listado.RellenaGrdZv(ModoListado::Cobros);
    EXPECT_EQ(listado.grdZV().FilaSuperior(), 1);
}

TEST_F(ListadoTest, ALongRegisterFillsInStepsAndItsTotalsStandAtOnce) {
    motor.Comenzar();
    for (int i = 0; i < 1500; ++i) {
        Poner({.importeVenta = 100, .cobrado = 100});
    }
    motor.Confirmar();
    int pedidos = 0;
    listado.PorPasos([&] { ++pedidos; });
    listado.RellenaGrdZv(ModoListado::Cobros);
    EXPECT_EQ(pedidos, 1);
    EXPECT_LT(listado.grdZV().FilasDatos(), 1500);
    EXPECT_EQ(E().rellenadas, listado.grdZV().FilasDatos());
    EXPECT_EQ(E().filas, 1500);
    EXPECT_EQ(E().lbCobros, u"1.500,00 €"_s);
    while (listado.SeguirRellenando()) {
    }
    EXPECT_EQ(listado.grdZV().FilasDatos(), 1500);
    EXPECT_EQ(listado.grdZV().Texto(1500, C::IdZV), u"1500"_s);
}

TEST_F(ListadoTest, TheScreenIsPaintedWhileALongTableIsRead) {
    PonerIncidencias(9000);
    int pintadas = 0;
    listado.AlPintar([&] {
        ++pintadas;
        EXPECT_EQ(listado.grdZV().FilasDatos(), 0);
    });
    motor.PonerGancho([](const Statement& s) {
        if (s.sql.contains(u">="_s)) {
            QThread::msleep(45);
        }
    });
    listado.RellenaGrdZv(ModoListado::Incidencias);
    EXPECT_EQ(pintadas, 3); // once a piece
    motor.PonerGancho({});
    listado.AlPintar({});
    EXPECT_EQ(listado.grdZV().FilasDatos(), 9000);
}

// ---- place on the screen

constexpr AnchosListado kAnchos{
    .grid = 14000, .barra = 210, .btnCancelar = 1290, .btnEnviar = 1300};

QList<int> Anchos(const Listado& listado) {
    QList<int> anchos;
    for (int i = 0; i < listado.grdZV().Columnas(); ++i) {
        anchos << listado.grdZV().ColumnaDe(i).ancho;
    }
    return anchos;
}

TEST_F(ListadoTest, WidthsOfTheColumns) {
    listado.AjustarColumnas(kAnchos); // before the first filling
    listado.RellenaGrdZv(ModoListado::Incidencias);
    const int parte = (14000 - 210 - 30 - 1290 - 1300 - 1500 - 1200 - 1200 - 1200 - 930) / 6;
    EXPECT_EQ(Anchos(listado), (QList<int>{1290, 0, parte, 1500, parte, 1200, 1200, 1200, parte,
                                           parte, parte, 930, parte, 1300}));
    listado.RellenaGrdZv(ModoListado::Cobros);
    const int mayor = (14000 - 210 - 30 - 1290 - 1300 - 1500 - 1200 - 1200 - 1200) / 6;
    EXPECT_EQ(Anchos(listado), (QList<int>{1290, 0, mayor, 1500, mayor, 1200, 1200, 1200, mayor,
                                           mayor, mayor, 0, mayor, 1300}));
    listado.RellenaGrdZv(ModoListado::Accesos);
    const int tercio = (14000 - 210 - 30) / 3;
    EXPECT_EQ(Anchos(listado), (QList<int>{0, 0, tercio, tercio, tercio}));
    AnchosListado estrecho = kAnchos;
    estrecho.grid = 100;
    listado.AjustarColumnas(estrecho);
    EXPECT_EQ(Anchos(listado), (QList<int>{0, 0, 0, 0, 0}));
}

TEST_F(ListadoTest, TheSelectedRowMovesByOneAndStaysInView) {
    listado.MoverFila(1); // an empty grid
    EXPECT_EQ(listado.grdZV().FilaActual(), 0);
    PonerIncidencias(30);
    listado.RellenaGrdZv(ModoListado::Incidencias);
    Rejilla& grd = listado.grdZV();
    grd.PonerPagina(10);
    listado.MoverFila(-1);
    EXPECT_EQ(grd.FilaActual(), 1);
    for (int i = 0; i < 10; ++i) {
        listado.MoverFila(1);
    }
    EXPECT_EQ(grd.FilaActual(), 11);
    EXPECT_EQ(grd.FilaSuperior(), 2);
    listado.IrAlFinal();
    EXPECT_EQ(grd.FilaSuperior(), 21);
    EXPECT_EQ(grd.FilaActual(), 30);
    listado.MoverFila(1);
    EXPECT_EQ(grd.FilaActual(), 30);
    EXPECT_FALSE(grd.HaySiguiente());
    listado.IrAlPrincipio();
    EXPECT_EQ(grd.FilaSuperior(), 1);
    EXPECT_EQ(grd.FilaActual(), 1);
    EXPECT_FALSE(grd.HayAnterior());
}

TEST_F(ListadoTest, TheLastRowIsWaitedFor) {
    PonerIncidencias(1500);
    listado.PorPasos([] {});
    listado.RellenaGrdZv(ModoListado::Incidencias);
    listado.grdZV().PonerPagina(10);
    listado.IrAlFinal();
    EXPECT_EQ(listado.grdZV().FilaActual(), 1500);
    EXPECT_EQ(listado.grdZV().FilaSuperior(), 1491);
}

TEST_F(ListadoTest, AMarkedRowIsColouredAndInView) {
    PonerIncidencias(30);
    listado.RellenaGrdZv(ModoListado::Incidencias);
    listado.grdZV().PonerPagina(10);
    listado.MarcarFila(25);
    for (int columna = 0; columna < C::Cuantas; ++columna) {
        EXPECT_EQ(listado.grdZV().AspectoDe(25, columna).fondo, ColorRGB(255, 190, 0)) << columna;
        EXPECT_EQ(listado.grdZV().AspectoDe(24, columna).fondo, 0U) << columna;
    }
    EXPECT_EQ(listado.grdZV().FilaSuperior(), 16);
}

} // namespace
} // namespace zv::test
