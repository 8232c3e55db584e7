// The registers on the screen.
#include "registers/screens/frmListado.h"

#include "../BancoListado.h"
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

using C = ColumnaListado;

class frmListadoTest : public BancoListado {
  protected:
    static void SetUpTestSuite() { tema::Aplicar(*qApp); }

    AccionesListado Acciones() {
        return {[this](int fila, int columna, bool debajo) {
                    toques << u"%1,%2%3"_s.arg(fila).arg(columna).arg(debajo ? u" debajo"_s
                                                                             : QString());
                    return alTocar ? alTocar() : false;
                },
                [this] { Pulsa(u"imprimir"_s); }, [this] { Pulsa(u"todas"_s); },
                [this] { Pulsa(u"exportar"_s); }};
    }
    void Pulsa(const QString& cual) {
        pulsados << cual;
        if (durante) {
            durante();
        }
    }
    static void Turnos() {
        for (int i = 0; i < 4; ++i) {
            QApplication::processEvents();
        }
    }
    frmListado& Abrir(ModoListado modo, const QSize& tamano = QSize(1024, 768)) {
        pantalla.reset(); // before the next one follows the register
        pantalla = std::make_unique<frmListado>(listado, modo, Acciones());
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
    VistaRejilla& Vista() { return Control<VistaRejilla>("grdZV"); }
    QToolButton& Boton(const QByteArray& nombre) { return Control<QToolButton>(nombre); }
    bool SeVe(const QByteArray& nombre) { return Control<QWidget>(nombre).isVisible(); }
    static QString NombreDe(QWidget& control) {
        return QAccessible::queryAccessibleInterface(&control)->text(QAccessible::Name);
    }
    void Tocar(int fila, int columna) {
        const QModelIndex celda = Vista().model()->index(fila - 1, columna);
        QTest::mouseClick(Vista().viewport(), Qt::LeftButton, {},
                          Vista().visualRect(celda).center());
        Turnos();
    }

    QStringList toques;
    QStringList pulsados;
    std::function<bool()> alTocar;
    std::function<void()> durante;
    std::unique_ptr<frmListado> pantalla;
};

TEST_F(frmListadoTest, Charges) {
    Poner({.cobrado = 2000, .devuelto = 750});
    Poner({.importeVenta = -800, .devuelto = 800});
    Abrir(ModoListado::Cobros);
    EXPECT_EQ(pantalla->Titulo(), u"Registro de Cobros"_s);
    EXPECT_EQ(Vista().model()->rowCount(), 2);
    EXPECT_EQ(Control("lblCobros").text(), u"Total Cobros:"_s);
    EXPECT_EQ(Control("lbCobros").text(), u"20,00 €"_s);
    EXPECT_EQ(Control("lblPagos").text(), u"Total Pagos:"_s);
    EXPECT_EQ(Control("lbPagos").text(), u"8,00 €"_s);
    for (const char* nombre : {"lblCobros", "lbCobros", "lblPagos", "lbPagos"}) {
        EXPECT_TRUE(SeVe(nombre)) << nombre;
    }
    EXPECT_FALSE(SeVe("boton_2"));
    EXPECT_FALSE(SeVe("lbVacia"));
    EXPECT_FALSE(SeVe("prgFilas"));
}

TEST_F(frmListadoTest, IncidentsAndAccessesHaveNoTotalsButAll) {
    PonerIncidencias(1);
    PonerAccesos(1);
    for (const auto& [modo, titulo] :
         {std::pair{ModoListado::Incidencias, u"Registro de Incidencias"_s},
          std::pair{ModoListado::Accesos, u"Registro de Accesos"_s}}) {
        Abrir(modo);
        EXPECT_EQ(pantalla->Titulo(), titulo);
        EXPECT_EQ(Vista().model()->rowCount(), 1);
        for (const char* nombre : {"lblCobros", "lbCobros", "lblPagos", "lbPagos"}) {
            EXPECT_FALSE(SeVe(nombre)) << nombre;
        }
        EXPECT_TRUE(SeVe("boton_2"));
        EXPECT_TRUE(Boton("boton_2").isEnabled());
        pantalla.reset();
    }
}

TEST_F(frmListadoTest, WhatAModeHasStandsBeforeItIsFilled) {
    pantalla = std::make_unique<frmListado>(listado, ModoListado::Cobros, Acciones());
    EXPECT_EQ(pantalla->Titulo(), u"Registro de Cobros"_s);
    EXPECT_TRUE(Boton("boton_2").isHidden());
    EXPECT_FALSE(Control("lbCobros").parentWidget()->isHidden());
    EXPECT_TRUE(Control("lbVacia").isHidden()); // nobody knows yet
    pantalla = std::make_unique<frmListado>(listado, ModoListado::Accesos, Acciones());
    EXPECT_FALSE(Boton("boton_2").isHidden());
    EXPECT_TRUE(Control("lbCobros").parentWidget()->isHidden());
}

TEST_F(frmListadoTest, AnEmptyRegisterSaysSo) {
    for (const ModoListado modo :
         {ModoListado::Cobros, ModoListado::Incidencias, ModoListado::Accesos}) {
        Abrir(modo);
        EXPECT_TRUE(SeVe("lbVacia"));
        EXPECT_FALSE(Boton("boton_2").isEnabled());
        for (const char* nombre : {"btnTop", "btnArriba", "btnAbajo", "btnBottom"}) {
            EXPECT_FALSE(Boton(nombre).isEnabled()) << nombre;
        }
        pantalla.reset();
    }
}

TEST_F(frmListadoTest, ATouchGoesWhereItsCellIs) {
    PonerIncidencias(3);
    Abrir(ModoListado::Incidencias);
    Tocar(2, C::Reenviar);
    Tocar(1, C::Descartar);
    Tocar(3, C::Operacion);
    EXPECT_EQ(toques, (QStringList{u"2,13"_s, u"1,0"_s, u"3,3"_s}));
    EXPECT_TRUE(pantalla->isVisible());
    toques.clear();
    QTest::mouseClick(Vista().viewport(), Qt::LeftButton, {},
                      QPoint(20, Vista().viewport()->height() - 5));
    Turnos();
    EXPECT_EQ(toques, QStringList{u"0,0 debajo"_s});
}

TEST_F(frmListadoTest, AColumnThatIsNotShownCannotBeTouched) {
    PonerAccesos(2);
    Abrir(ModoListado::Accesos);
    EXPECT_TRUE(Vista().isColumnHidden(ColumnaAccesos::Descartar));
    Vista().selectionModel()->select(Vista().model()->index(1, ColumnaAccesos::Descartar),
                                     QItemSelectionModel::Select);
    Turnos();
    EXPECT_EQ(toques, QStringList());
    Vista().selectionModel()->select(Vista().model()->index(1, ColumnaAccesos::Lugar),
                                     QItemSelectionModel::Select);
    Turnos();
    EXPECT_EQ(toques, QStringList{u"2,4"_s});
}

TEST_F(frmListadoTest, AResentOperationLeavesTheScreen) {
    PonerIncidencias(1);
    alTocar = [this] {
        pantalla->reject(); // not while it runs
        EXPECT_TRUE(pantalla->isVisible());
        return true;
    };
    Abrir(ModoListado::Incidencias);
    Tocar(1, C::Reenviar);
    EXPECT_FALSE(pantalla->isVisible());
    pantalla->LanzarFallo();
}

TEST_F(frmListadoTest, WhatComesWithTheTouchThatEndsTheScreenIsNone) {
    PonerIncidencias(2);
    alTocar = [] { return true; };
    Abrir(ModoListado::Incidencias);
    Tocar(1, C::Reenviar);
    ASSERT_FALSE(pantalla->isVisible());
    Q_EMIT Vista().Soltado(2, C::Reenviar, false);
    Boton("boton_2").click();
    EXPECT_EQ(toques, QStringList{u"1,13"_s});
    EXPECT_EQ(pulsados, QStringList());
}

TEST_F(frmListadoTest, AFailureOfATouchEndsTheScreenAndIsTheCallers) {
    PonerIncidencias(1);
    alTocar = []() -> bool { throw ErrorEjecucion(13, u"No coinciden los tipos"_s); };
    Abrir(ModoListado::Incidencias);
    Tocar(1, C::Reenviar);
    EXPECT_FALSE(pantalla->isVisible());
    EXPECT_EQ(NumeroError([&] { pantalla->LanzarFallo(); }), 13);
}

TEST_F(frmListadoTest, AFailureOfTheFillingToo) {
    GanchoFallos fallos(motor);
    fallos.Falla(Statement::Kind::Lectura, u"procesados"_s, 1);
    Abrir(ModoListado::Cobros);
    EXPECT_FALSE(pantalla->isVisible());
    EXPECT_EQ(NumeroError([&] { pantalla->LanzarFallo(); }), 5);
}

TEST_F(frmListadoTest, ButtonsLeadToTheirActions) {
    PonerIncidencias(1);
    Abrir(ModoListado::Incidencias);
    for (const char* nombre : {"boton_0", "boton_2", "boton_3"}) {
        QTest::mouseClick(&Boton(nombre), Qt::LeftButton);
        Turnos();
    }
    EXPECT_EQ(pulsados, (QStringList{u"imprimir"_s, u"todas"_s, u"exportar"_s}));
    QTest::mouseClick(&Boton("boton_1"), Qt::LeftButton);
    EXPECT_FALSE(pantalla->isVisible());
}

TEST_F(frmListadoTest, EscapeAndTheCrossLeave) {
    Abrir(ModoListado::Cobros);
    QTest::keyClick(pantalla.get(), Qt::Key_Escape);
    EXPECT_FALSE(pantalla->isVisible());
    Abrir(ModoListado::Cobros);
    QTest::mouseClick(&Boton("btnW_1"), Qt::LeftButton);
    EXPECT_FALSE(pantalla->isVisible());
}

TEST_F(frmListadoTest, NothingElseBeginsWhileAnActionRuns) {
    PonerIncidencias(1);
    Abrir(ModoListado::Incidencias);
    durante = [this] {
        durante = {};
        Boton("boton_0").click();
        Tocar(1, C::Descartar);
        pantalla->reject();
        EXPECT_TRUE(pantalla->isVisible());
    };
    Boton("boton_2").click();
    EXPECT_EQ(pulsados, QStringList{u"todas"_s});
    EXPECT_EQ(toques, QStringList());
}

TEST_F(frmListadoTest, WithoutAPrinterThereIsNoPrint) {
    entorno.configuracio->SINIMPRESORA = 1;
    Abrir(ModoListado::Cobros);
    EXPECT_FALSE(Boton("boton_0").isEnabled());
    EXPECT_TRUE(Boton("boton_3").isEnabled());
}

TEST_F(frmListadoTest, ExportingWaitsForTheWholeGrid) {
    PonerIncidencias(1500);
    Abrir(ModoListado::Incidencias);
    listado.PorPasos([] {}); // no step comes
    listado.RellenaGrdZv(ModoListado::Incidencias);
    ASSERT_LT(listado.grdZV().FilasDatos(), 1500);
    int filas = 0;
    durante = [&] { filas = listado.grdZV().FilasDatos(); };
    Boton("boton_3").click();
    EXPECT_EQ(filas, 1500);
}

TEST_F(frmListadoTest, ALongRegisterFillsWhileTheScreenLives) {
    constexpr int kMuchas = 30000;
    PonerIncidencias(kMuchas);
    pantalla = std::make_unique<frmListado>(listado, ModoListado::Incidencias, Acciones());
    pantalla->resize(1024, 768);
    pantalla->show();
    bool visto = false;
    for (int vuelta = 0; vuelta < 5000 && E().rellenadas < kMuchas; ++vuelta) {
        QApplication::processEvents();
        visto = visto || (E().rellenadas > 0 && SeVe("prgFilas"));
    }
    Turnos();
    EXPECT_TRUE(visto);
    EXPECT_EQ(Vista().model()->rowCount(), kMuchas);
    EXPECT_FALSE(SeVe("prgFilas"));
}

TEST_F(frmListadoTest, PagesEndsAndKeysMoveTheList) {
    PonerIncidencias(100);
    Abrir(ModoListado::Incidencias);
    Rejilla& rejilla = listado.grdZV();
    const int pagina = rejilla.Pagina();
    EXPECT_GT(pagina, 8);
    const auto habilitados = [this] {
        QStringList cuales;
        for (const char* nombre : {"btnTop", "btnArriba", "btnAbajo", "btnBottom"}) {
            cuales << (Boton(nombre).isEnabled() ? QString::fromLatin1(nombre) : QString());
        }
        return cuales.join(u' ').simplified();
    };
    EXPECT_EQ(habilitados(), u"btnAbajo btnBottom"_s);
    Boton("btnAbajo").click();
    EXPECT_EQ(rejilla.FilaSuperior(), 1 + pagina);
    EXPECT_EQ(habilitados(), u"btnTop btnArriba btnAbajo btnBottom"_s);
    Boton("btnBottom").click();
    EXPECT_EQ(rejilla.FilaSuperior(), 101 - pagina);
    EXPECT_EQ(habilitados(), u"btnTop btnArriba"_s);
    Boton("btnArriba").click();
    EXPECT_EQ(rejilla.FilaSuperior(), 101 - 2 * pagina);
    Boton("btnTop").click();
    EXPECT_EQ(rejilla.FilaSuperior(), 1);
    EXPECT_EQ(habilitados(), u"btnAbajo btnBottom"_s);

    const std::pair<Qt::Key, int> teclas[] = {{Qt::Key_Up, 1},
                                              {Qt::Key_Down, 2},
                                              {Qt::Key_Down, 3},
                                              {Qt::Key_Up, 2},
                                              {Qt::Key_End, 100},
                                              {Qt::Key_Down, 100},
                                              {Qt::Key_PageUp, 101 - 2 * pagina},
                                              {Qt::Key_Home, 1},
                                              {Qt::Key_PageDown, 1 + pagina}};
    for (const auto& [tecla, fila] : teclas) {
        QTest::keyClick(pantalla.get(), tecla);
        EXPECT_EQ(rejilla.FilaActual(), fila) << tecla;
    }
}

TEST_F(frmListadoTest, TheErrorOfTheSelectedIncidentIsSaidWhole) {
    PonerIncidencias(1);
    Poner({.estado = u"ERROR"_s, .error = u"12 - No se puede dar el cambio exacto"_s});
    Abrir(ModoListado::Incidencias);
    EXPECT_EQ(Control("lbDetalle").text(), QString());
    QTest::keyClick(pantalla.get(), Qt::Key_Down);
    EXPECT_EQ(Control("lbDetalle").text(), u"12 - No se puede dar el cambio exacto"_s);
    QTest::keyClick(pantalla.get(), Qt::Key_Up);
    EXPECT_EQ(Control("lbDetalle").text(), QString());
    alTocar = [this] {
        listado.grdZV().PonerFilaActual(2);
        return false;
    };
    Tocar(2, C::Operacion);
    EXPECT_EQ(Control("lbDetalle").text(), u"12 - No se puede dar el cambio exacto"_s);
    Abrir(ModoListado::Cobros);
    EXPECT_EQ(Control("lbDetalle").text(), QString());
}

TEST_F(frmListadoTest, AnAmountHasTheRoomItNeedsAtEverySize) {
    Poner({.importeVenta = 123450, .cobrado = 123450, .devuelto = 123450, .estado = u"ERROR"_s});
    for (const ModoListado modo : {ModoListado::Cobros, ModoListado::Incidencias}) {
        for (const QSize& tamano : {QSize(1024, 768), QSize(1920, 1080)}) {
            Abrir(modo, tamano);
            // The smallest letters that an amount is drawn in, with the margins of its cell.
            const QFontMetrics letras(tema::FuenteImporte(12));
            const int necesita = letras.horizontalAdvance(u"1.234,50 €"_s) + 13;
            for (const int columna : {C::Importe, C::Cobrado, C::Pagado}) {
                EXPECT_GE(Vista().columnWidth(columna), necesita);
            }
        }
    }
}

TEST_F(frmListadoTest, NamesOnTheBus) {
    PonerIncidencias(1);
    Poner({.cobrado = 1250});
    Abrir(ModoListado::Incidencias);
    const std::pair<const char*, const char*> nombres[] = {{"boton_0", "Imprimir"},
                                                           {"boton_1", "Salir"},
                                                           {"boton_2", "Todas"},
                                                           {"boton_3", "Export CSV"},
                                                           {"btnTop", "Primera fila"},
                                                           {"btnArriba", "Página anterior"},
                                                           {"btnAbajo", "Página siguiente"},
                                                           {"btnBottom", "Última fila"},
                                                           {"btnW_1", "Cerrar"}};
    for (const auto& [control, nombre] : nombres) {
        EXPECT_EQ(NombreDe(Boton(control)), QString::fromUtf8(nombre));
    }
    auto* tabla = QAccessible::queryAccessibleInterface(&Vista());
    ASSERT_NE(tabla->tableInterface(), nullptr);
    EXPECT_EQ(tabla->text(QAccessible::Name), u"Listado"_s);
    EXPECT_EQ(tabla->tableInterface()->cellAt(0, C::Descartar)->text(QAccessible::Name),
              u"Descartar"_s);
    EXPECT_EQ(tabla->tableInterface()->cellAt(0, C::Reenviar)->text(QAccessible::Name),
              u"Reenviar"_s);
    EXPECT_EQ(tabla->tableInterface()->cellAt(0, C::Estado)->text(QAccessible::Name), u"ERROR"_s);
    Abrir(ModoListado::Cobros);
    EXPECT_EQ(NombreDe(Control("lbCobros")), u"Total Cobros: 12,50 €"_s);
    EXPECT_EQ(NombreDe(Control("lbPagos")), u"Total Pagos: 0,00 €"_s);
}

TEST_F(frmListadoTest, ColumnsFillTheGridAndThePicturesAreLargeEnough) {
    PonerIncidencias(1);
    for (const QSize& tamano : {QSize(1024, 768), QSize(1920, 1080)}) {
        Abrir(ModoListado::Incidencias, tamano);
        int suma = 0;
        for (int columna = 0; columna < C::Cuantas; ++columna) {
            suma += Vista().isColumnHidden(columna) ? 0 : Vista().columnWidth(columna);
        }
        EXPECT_NEAR(suma, Vista().viewport()->width(), 8);
        EXPECT_TRUE(Vista().isColumnHidden(C::IdZV));
        for (const int columna : {C::Descartar, C::Reenviar}) {
            EXPECT_GE(Vista().columnWidth(columna), 80);
        }
        EXPECT_GE(Vista().AltoFila(), 48);
        pantalla.reset();
    }
}

TEST_F(frmListadoTest, EverythingLiesInTheWindowAndIsLargeEnough) {
    Poner({.importeVenta = 2147483647, .cobrado = 2147483647});
    Poner({.importeVenta = -1, .devuelto = 2147483647});
    for (const QSize& tamano : {QSize(1024, 768), QSize(1920, 1080)}) {
        Abrir(ModoListado::Cobros, tamano);
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
            }
        }
    }
}

TEST_F(frmListadoTest, InEnglish) {
    const QTemporaryDir inglesa;
    IdiomaIngles().PonerEn(inglesa.path());
    const Textos ingleses(inglesa.path());
    TillGraph otro(
        {carpeta.path(), cliente, registry, log, dialogos, ingleses, importes, reloj, pantallas});
    Listado listadoIngles(otro.Entorno());
    frmListado castellana(listado, ModoListado::Cobros, Acciones());
    frmListado enIngles(listadoIngles, ModoListado::Cobros, Acciones());
    ComprobarEnIngles(castellana, enIngles, {u"btnLogo"_s, u"lbTitulo"_s});
    EXPECT_EQ(enIngles.Titulo(), u"Charge records"_s);
}

} // namespace
} // namespace zv::test
