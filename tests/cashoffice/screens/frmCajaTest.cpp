// The cash office on the screen.
#include "cashoffice/screens/frmCaja.h"

#include "../BancoCaja.h"
#include "support/GanchoFallos.h"
#include "support/PantallaInglesa.h"
#include "ui/screens/Tema.h"
#include "ui/screens/VistaRejilla.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QTest>
#include <QToolButton>

#include <memory>

namespace zv::test {
namespace {

class frmCajaTest : public BancoCaja {
  protected:
    static void SetUpTestSuite() { tema::Aplicar(*qApp); }

    frmCajaTest() {
        for (const BotonCaja boton : kBotonesCaja) {
            if (boton != BotonCaja::Salir && boton != BotonCaja::Historico) {
                acciones[boton] = [this, boton] {
                    pulsados << static_cast<int>(boton);
                    if (durante) {
                        durante();
                    }
                };
            }
        }
    }
    static void Turnos() {
        for (int i = 0; i < 4; ++i) {
            QApplication::processEvents();
        }
    }
    frmCaja& Abrir(const QSize& tamano = QSize(1024, 768)) {
        pantalla = std::make_unique<frmCaja>(caja, acciones);
        pantalla->show();
        pantalla->resize(tamano);
        Turnos();
        return *pantalla;
    }
    template <typename T = QLabel>
    T& Control(const QByteArray& nombre) {
        auto* control = pantalla->findChild<T*>(QString::fromLatin1(nombre));
        if (control == nullptr) {
            throw std::runtime_error(nombre.toStdString());
        }
        return *control;
    }
    QString Texto(const char* nombre) { return Control(nombre).text(); }
    static QString NombreDe(QWidget& control) {
        return QAccessible::queryAccessibleInterface(&control)->text(QAccessible::Name);
    }
    QToolButton& Boton(int n) { return Control<QToolButton>("boton_" + QByteArray::number(n)); }
    void Tocar(int n) {
        QTest::mouseClick(&Boton(n), Qt::LeftButton);
        Turnos();
    }
    int AnchoColumnas() {
        int suma = 0;
        for (int columna = 0; columna < ColumnaCaja::Cuantas; ++columna) {
            auto& vista = Control<VistaRejilla>("grdZV");
            suma += vista.isColumnHidden(columna) ? 0 : vista.columnWidth(columna);
        }
        return suma;
    }

    AccionesCaja acciones;
    QList<int> pulsados;
    std::function<void()> durante;
    std::unique_ptr<frmCaja> pantalla;
};

TEST_F(frmCajaTest, ShowsThePeriodAndTheDevice) {
    Conectar();
    Poner({.importeVenta = 1250, .cobrado = 2000, .devuelto = 750});
    Poner({.importeVenta = -800, .devuelto = 800});
    Abrir();
    EXPECT_EQ(pantalla->Titulo(), u"Cierre de Caja"_s);
    const std::pair<const char*, const char*> esperados[] = {{"lbGrdZV", "LISTADO DE MOVIMIENTOS"},
                                                             {"lblCobros", "Cobros por ventas"},
                                                             {"lbCobros", "12,50 €"},
                                                             {"lblAbonos", "Abonos por ventas"},
                                                             {"lbAbonos", "8,00 €"},
                                                             {"lblPagos", "Pagos"},
                                                             {"lbPagos", "0,00 €"},
                                                             {"lblIngresos", "Ingresos"},
                                                             {"lbIngresos", "0,00 €"},
                                                             {"lblSaldoFinal", "SALDO FINAL"},
                                                             {"lbSaldoFinal", "4,50 €"},
                                                             {"lblSaldoCierre", "SALDO CIERRE"},
                                                             {"lbSaldoCierre", ""},
                                                             {"lblContenido", "CONTENIDO ZV"},
                                                             {"lbContenido", "1.264,10 €"},
                                                             {"lblCambio", "Cambio"},
                                                             {"lbCambioMonedas", "42,10 €"},
                                                             {"lbCambioBilletes", "350,00 €"},
                                                             {"lblCB", "Cajones"},
                                                             {"lbCBMonedas", "12,00 €"},
                                                             {"lbCBBilletes", "860,00 €"},
                                                             {"lblMonedas", "Monedas"},
                                                             {"lblBilletes", "Billetes"},
                                                             {"lbContador", "2"}};
    for (const auto& [nombre, texto] : esperados) {
        EXPECT_EQ(Texto(nombre), QString::fromUtf8(texto)) << nombre;
        EXPECT_TRUE(Control(nombre).isVisible()) << nombre;
    }
    for (const char* nombre : {"lbQuebranto", "lblQuebranto", "lbVacia"}) {
        EXPECT_FALSE(Control(nombre).isVisible()) << nombre;
    }
    EXPECT_FALSE(Control<QProgressBar>("prgMovimientos").isVisible());
}

TEST_F(frmCajaTest, TheFinalBalanceIsTheBiggestUnlessItIsTooLong) {
    Conectar();
    Poner({.importeVenta = 1250, .cobrado = 12345678});
    Abrir();
    const auto alto = [this](const char* nombre) { return Control(nombre).fontMetrics().height(); };
    EXPECT_EQ(Texto("lbSaldoFinal"), u"123.456,78 €"_s);
    EXPECT_GT(alto("lbSaldoFinal"), alto("lbCobros"));
    EXPECT_EQ(alto("lbContenido"), alto("lbCobros"));
    caja.PonerEtiqueta(&EstadoCaja::lbSaldoFinal, u"1.123.456,78 €"_s);
    Turnos();
    EXPECT_EQ(alto("lbSaldoFinal"), alto("lbCobros"));
    caja.PonerEtiqueta(&EstadoCaja::lbSaldoFinal, u"1,00 €"_s);
    Turnos();
    EXPECT_GT(alto("lbSaldoFinal"), alto("lbCobros"));
}

TEST_F(frmCajaTest, AnEmptyPeriodSaysSo) {
    Conectar();
    Abrir();
    EXPECT_TRUE(Control("lbVacia").isVisible());
    EXPECT_EQ(Texto("lbContador"), u"0"_s);
    EXPECT_FALSE(Boton(1).isEnabled());
    EXPECT_FALSE(Boton(9).isEnabled());
}

TEST_F(frmCajaTest, NamesOnTheBus) {
    Conectar();
    Poner({.importeVenta = 1250, .cobrado = 1250});
    Abrir();
    const char* nombres[] = {"Salir",
                             "Imprimir",
                             "Cierre Niveles Óptimos",
                             "Cierre por valor",
                             "Cuadrar con Zorvex",
                             "Vaciado Cajón Monedas",
                             "Vaciado Cajón Billetes",
                             "Configuración de Zorvex",
                             "Histórico",
                             "Export CSV"};
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(NombreDe(Boton(i)), QString::fromUtf8(nombres[i]));
    }
    EXPECT_EQ(NombreDe(Control("lbCobros")), u"Cobros por ventas 12,50 €"_s);
    EXPECT_EQ(NombreDe(Control("lbSaldoFinal")), u"SALDO FINAL 12,50 €"_s);
    EXPECT_EQ(NombreDe(Control("lbSaldoCierre")), u"SALDO CIERRE"_s);
    EXPECT_EQ(NombreDe(Control("lbCambioMonedas")), u"Cambio Monedas 42,10 €"_s);
    EXPECT_EQ(NombreDe(Control("lbCBBilletes")), u"Cajones Billetes 860,00 €"_s);
    EXPECT_EQ(NombreDe(Control("lbContenido")), u"CONTENIDO ZV 1.264,10 €"_s);
    EXPECT_EQ(NombreDe(Control<QWidget>("nivel_100")), u"1: Cambio 42, Cajones 12"_s);
    EXPECT_EQ(NombreDe(Control<QWidget>("nivel_1")), u"0,01: Cambio 10, Cajones 0"_s);
    EXPECT_EQ(NombreDe(Control<QWidget>("nivel_2000")), u"20: Cambio 0, Cajones 43"_s);
    auto* tabla = QAccessible::queryAccessibleInterface(&Control<VistaRejilla>("grdZV"));
    ASSERT_NE(tabla->tableInterface(), nullptr);
    EXPECT_EQ(tabla->text(QAccessible::Name), u"Listado de movimientos"_s);
    EXPECT_EQ(tabla->tableInterface()->cellAt(0, 1)->text(QAccessible::Name), u"Cobro Venta"_s);
}

TEST_F(frmCajaTest, ButtonsLeadToTheirActionsAndTheHistoryToItsScreen) {
    Conectar();
    Poner({.importeVenta = 1250, .cobrado = 1250});
    Abrir();
    for (const int n : {1, 2, 3, 4, 5, 6, 7, 9}) {
        Tocar(n);
    }
    EXPECT_EQ(pulsados, (QList<int>{1, 2, 3, 4, 5, 6, 7, 9}));
    pantallas.EsperaAbrir(Pantalla::Historial);
    Tocar(8);
    EXPECT_EQ(pantallas.Pendientes(), 0U);
    Tocar(0);
    EXPECT_FALSE(pantalla->isVisible());
}

TEST_F(frmCajaTest, WhatLeadsNowhereIsOff) {
    Conectar();
    Poner({.importeVenta = 1250, .cobrado = 1250});
    pantallas.faltan = {Pantalla::Historial};
    acciones[BotonCaja::CierreValor] = {};
    Abrir();
    EXPECT_FALSE(Boton(8).isEnabled());
    EXPECT_FALSE(Boton(3).isEnabled());
    EXPECT_TRUE(Boton(2).isEnabled());
}

TEST_F(frmCajaTest, FollowsTheStateAtTheNextTurn) {
    Conectar();
    Abrir();
    QApplication::setActiveWindow(pantalla.get());
    caja.PonerBoton(BotonCaja::CierreNiveles, false);
    caja.PonerEtiqueta(&EstadoCaja::lbSaldoCierre, u"7,00 €"_s);
    caja.PonerEtiqueta(&EstadoCaja::lbQuebranto, u"1,00 €"_s);
    caja.PonerEspera(true);
    caja.Enfocar(BotonCaja::Configuracion);
    Turnos();
    EXPECT_FALSE(Boton(2).isEnabled());
    EXPECT_EQ(Texto("lbSaldoCierre"), u"7,00 €"_s);
    EXPECT_EQ(NombreDe(Control("lbSaldoCierre")), u"SALDO CIERRE 7,00 €"_s);
    EXPECT_TRUE(Control("lbQuebranto").isVisible());
    EXPECT_EQ(pantalla->cursor().shape(), Qt::WaitCursor);
    EXPECT_EQ(pantalla->focusWidget(), &Boton(7));
    caja.PonerEspera(false);
    caja.Pintar(); // at once
    EXPECT_EQ(pantalla->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(frmCajaTest, WithoutTheDeviceTheWindowStandsBeforeItIsTold) {
    dialogos.EsperaMensaje(u"Zorvex"_s, u"No hay conexión con Zorvex"_s, Respuesta::Aceptar,
                           std::nullopt, [this] { EXPECT_TRUE(pantalla->isVisible()); });
    Abrir();
    EXPECT_EQ(dialogos.Pendientes(), 0U);
    for (const int n : {2, 3, 4, 5, 6}) {
        EXPECT_FALSE(Boton(n).isEnabled()) << n;
    }
    EXPECT_TRUE(Boton(7).isEnabled());
}

TEST_F(frmCajaTest, NothingElseBeginsWhileAnActionRunsNorIsItLeft) {
    Conectar();
    Abrir();
    durante = [this] {
        durante = {};
        Boton(3).click();
        pantalla->reject();
        EXPECT_TRUE(pantalla->isVisible());
    };
    Tocar(2);
    EXPECT_EQ(pulsados, QList<int>{2});
    QTest::keyClick(pantalla.get(), Qt::Key_Escape);
    EXPECT_FALSE(pantalla->isVisible());
}

TEST_F(frmCajaTest, AFailureOfTheRefreshEndsTheScreenAndIsTheCallers) {
    Conectar();
    GanchoFallos fallos(motor);
    fallos.Falla(Statement::Kind::Lectura, u"procesados"_s, 1);
    Abrir();
    EXPECT_FALSE(pantalla->isVisible());
    EXPECT_EQ(NumeroError([&] { pantalla->LanzarFallo(); }), 5);
}

TEST_F(frmCajaTest, AFailureOfAnActionToo) {
    Conectar();
    durante = [] { throw ErrorEjecucion(75, u"no"_s); };
    Abrir();
    Tocar(7);
    EXPECT_FALSE(pantalla->isVisible());
    EXPECT_EQ(NumeroError([&] { pantalla->LanzarFallo(); }), 75);
}

TEST_F(frmCajaTest, ALongPeriodFillsWhileTheScreenLives) {
    constexpr int kMuchas = 40000; // more than the fastest machine fills in one step
    Conectar();
    PonerVentas(kMuchas);
    pantalla = std::make_unique<frmCaja>(caja, acciones);
    pantalla->resize(1024, 768);
    pantalla->show();
    bool visto = false;
    for (int vuelta = 0; vuelta < 5000 && E().rellenados < kMuchas; ++vuelta) {
        QApplication::processEvents();
        if (E().rellenados > 0 && E().rellenados < kMuchas) {
            visto = visto || (Control<QProgressBar>("prgMovimientos").isVisible() &&
                              Texto("lbContador") == QString::number(kMuchas) &&
                              Texto("lbCobros") == importes.FormatoImporte(caja.totales.cobros));
        }
    }
    Turnos();
    EXPECT_TRUE(visto);
    EXPECT_EQ(Control<VistaRejilla>("grdZV").model()->rowCount(), kMuchas);
    EXPECT_FALSE(Control<QProgressBar>("prgMovimientos").isVisible());
}

TEST_F(frmCajaTest, ExportingWaitsForTheWholeGrid) {
    Conectar();
    PonerVentas(1500);
    int filas = 0;
    acciones[BotonCaja::ExportCsv] = [&] { filas = caja.grdZV().FilasDatos(); };
    pantalla = std::make_unique<frmCaja>(caja, acciones);
    caja.PorPasos([] {}); // no step comes
    pantalla->show();
    Turnos();
    ASSERT_EQ(caja.grdZV().FilasDatos(), 500);
    Boton(9).click();
    EXPECT_EQ(filas, 1500);
}

TEST_F(frmCajaTest, PagesAndKeysMoveTheList) {
    Conectar();
    PonerVentas(100);
    Abrir();
    Rejilla& rejilla = caja.grdZV();
    auto& arriba = Control<QToolButton>("btnArriba");
    auto& abajo = Control<QToolButton>("btnAbajo");
    const int pagina = rejilla.Pagina();
    EXPECT_GT(pagina, 4);
    EXPECT_FALSE(arriba.isEnabled());
    EXPECT_TRUE(abajo.isEnabled());
    abajo.click();
    EXPECT_EQ(rejilla.FilaSuperior(), 1 + pagina);
    EXPECT_TRUE(arriba.isEnabled());
    arriba.click();
    EXPECT_EQ(rejilla.FilaSuperior(), 1);
    const std::pair<Qt::Key, int> teclas[] = {{Qt::Key_Down, 2},
                                              {Qt::Key_PageDown, 2 + pagina},
                                              {Qt::Key_PageUp, 2},
                                              {Qt::Key_Up, 1},
                                              {Qt::Key_Up, 1},
                                              {Qt::Key_End, 101 - pagina},
                                              {Qt::Key_Home, 1},
                                              {Qt::Key_End, 101 - pagina},
                                              {Qt::Key_Down, 101 - pagina}};
    for (const auto& [tecla, fila] : teclas) {
        QTest::keyClick(pantalla.get(), tecla);
        EXPECT_EQ(rejilla.FilaSuperior(), fila) << tecla;
    }
    EXPECT_FALSE(abajo.isEnabled());
}

TEST_F(frmCajaTest, ColumnsFillTheGridByTheSettings) {
    Conectar();
    Abrir();
    auto& vista = Control<VistaRejilla>("grdZV");
    EXPECT_TRUE(vista.isColumnHidden(ColumnaCaja::Vendedor));
    EXPECT_TRUE(vista.isColumnHidden(ColumnaCaja::Terminal));
    EXPECT_NEAR(AnchoColumnas(), vista.viewport()->width(), 4);
    entorno.configuracio->COLVENDEDOR = 1;
    pantalla->resize(1600, 900);
    Turnos();
    EXPECT_FALSE(vista.isColumnHidden(ColumnaCaja::Vendedor));
    EXPECT_NEAR(AnchoColumnas(), vista.viewport()->width(), 5);
}

TEST_F(frmCajaTest, EverythingLiesInTheWindowAndIsLargeEnough) {
    Conectar();
    Poner({.importeVenta = 2147483647, .cobrado = 2147483647});
    caja.PonerEtiqueta(&EstadoCaja::lbSaldoCierre, u"21.474.836,47 €"_s);
    const QString todas = u"1,2,5,10,20,50,100,200,500,1000,2000,5000,10000,20000,50000"_s;
    for (const int tipo : {2, 3}) {
        cliente.PonerNiveles(tipo, todas, u"120,7,0,9,10,333,5,1,2,3,4,5,6,7,8"_s);
    }
    for (const QSize& tamano : {QSize(1024, 768), QSize(1920, 1080)}) {
        Abrir(tamano);
        EXPECT_EQ(pantalla->size(), tamano);
        for (QWidget* control : pantalla->findChildren<QWidget*>()) {
            const auto* etiqueta = qobject_cast<QLabel*>(control);
            const bool boton = qobject_cast<QAbstractButton*>(control) != nullptr;
            if (!control->isVisible() || control->objectName().isEmpty() ||
                (etiqueta == nullptr && !boton) || control->objectName().startsWith(u"qt_"_s)) {
                continue;
            }
            const std::string nombre = control->objectName().toStdString();
            const QRect sitio(control->mapTo(pantalla.get(), QPoint(0, 0)), control->size());
            EXPECT_TRUE(pantalla->rect().contains(sitio)) << nombre;
            if (boton) {
                EXPECT_GE(control->width(), tema::kToqueMinimo) << nombre;
                EXPECT_GE(control->height(), tema::kToqueMinimo) << nombre;
            } else if (!etiqueta->wordWrap()) {
                EXPECT_LE(etiqueta->fontMetrics().horizontalAdvance(etiqueta->text()),
                          etiqueta->width())
                    << nombre;
                EXPECT_GE(etiqueta->height(), etiqueta->fontMetrics().ascent()) << nombre;
            }
        }
    }
}

TEST_F(frmCajaTest, InEnglish) {
    const QTemporaryDir inglesa;
    IdiomaIngles().PonerEn(inglesa.path());
    const Textos ingleses(inglesa.path());
    TillGraph otro(
        {carpeta.path(), cliente, registry, log, dialogos, ingleses, importes, reloj, pantallas});
    Caja cajaInglesa(otro.Entorno());
    frmCaja castellana(caja, acciones);
    frmCaja enIngles(cajaInglesa, acciones);
    ComprobarEnIngles(castellana, enIngles, {u"btnLogo"_s});
    EXPECT_EQ(enIngles.Titulo(), u"Till close"_s);
}

} // namespace
} // namespace zv::test
