// The history of closes on the screen.
#include "registers/screens/frmHistorial.h"

#include "../BancoHistorial.h"
#include "support/GanchoFallos.h"
#include "support/PantallaInglesa.h"
#include "ui/screens/Paginador.h"
#include "ui/screens/Tema.h"
#include "ui/screens/VistaRejilla.h"

#include <QAccessible>
#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>

#include <memory>

namespace zv::test {
namespace {

class frmHistorialTest : public BancoHistorial {
  protected:
    static void SetUpTestSuite() { tema::Aplicar(*qApp); }

    static void Turnos() {
        for (int i = 0; i < 6; ++i) {
            QApplication::processEvents();
        }
    }
    frmHistorial& Abrir(const QSize& tamano = QSize(1024, 768)) {
        pantalla = std::make_unique<frmHistorial>(historial);
        pantalla->show();
        pantalla->resize(tamano);
        Turnos();
        return *pantalla;
    }
    template <typename T = QLabel>
    T& Control(const QString& nombre) {
        auto* control = pantalla->findChild<T*>(nombre);
        if (control == nullptr) {
            throw std::runtime_error(nombre.toStdString());
        }
        return *control;
    }
    VistaRejilla& Vista(const char* nombre) {
        return Control<VistaRejilla>(QString::fromLatin1(nombre));
    }
    QToolButton& Boton(int n) { return Control<QToolButton>(u"boton_%1"_s.arg(n)); }
    // Of the closes, then of the movements.
    Paginador& Pagina(int n) { return *pantalla->findChildren<Paginador*>().at(n); }
    static QString NombreDe(QWidget& control) {
        return QAccessible::queryAccessibleInterface(&control)->text(QAccessible::Name);
    }
    void TocarFila(const char* vista, int fila) {
        VistaRejilla& v = Vista(vista);
        const QRect celda = v.visualRect(v.model()->index(fila - 1, 1));
        QTest::mouseClick(v.viewport(), Qt::LeftButton, {}, celda.center());
        Turnos();
    }
    void Tecla(Qt::Key tecla) {
        QTest::keyClick(pantalla.get(), tecla);
        Turnos();
    }
    int Elegida() { return historial.grdCierres().FilaActual(); }
    void PonerDosCierres() {
        PonerCierre(100, u"2026-03-13 22:00:05"_s);
        PonerCierre(126410);
        Poner({.idCierre = 1, .cobrado = 250, .importeVenta = 250});
        Poner({.idCierre = 1, .devuelto = 50, .importeVenta = -50});
        Poner({.idCierre = 2, .cobrado = 3});
    }

    std::unique_ptr<frmHistorial> pantalla;
};

TEST_F(frmHistorialTest, ShowsTheLastCloseAndItsMovements) {
    PonerDosCierres();
    Abrir();
    EXPECT_EQ(pantalla->Titulo(), u"Histórico de Cierres"_s);
    EXPECT_EQ(Control(u"lbHis"_s).text(), u"LISTADO DE MOVIMIENTOS"_s);
    EXPECT_EQ(Control(u"lbCierre"_s).text(), u"Fecha 14/03/26 22:00:05 CIERRE 1.264,16 €"_s);
    EXPECT_EQ(Vista("grdCierres").model()->rowCount(), 2);
    EXPECT_EQ(Saldos(), QStringList{u"1.264,13 €"_s});
    EXPECT_FALSE(Control(u"lbSinCierres"_s).isVisible());
    EXPECT_FALSE(Control(u"lbVacia"_s).isVisible());
    EXPECT_EQ(pantalla->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(frmHistorialTest, ATouchChoosesACloseAndMarksAMovement) {
    PonerDosCierres();
    Abrir();
    TocarFila("grdCierres", 1);
    EXPECT_EQ(Elegida(), 1);
    EXPECT_EQ(Saldos(), (QStringList{u"3,50 €"_s, u"3,00 €"_s}));
    EXPECT_EQ(Control(u"lbCierre"_s).text(), u"Fecha 13/03/26 22:00:05 CIERRE 1,06 €"_s);
    EXPECT_EQ(historial.grdHis().FilaActual(), 1);
    TocarFila("grdHis", 2);
    EXPECT_EQ(historial.grdHis().FilaActual(), 2);
    VistaRejilla& cierres = Vista("grdCierres");
    QTest::mouseClick(cierres.viewport(), Qt::LeftButton, {},
                      QPoint(20, cierres.viewport()->height() - 2)); // below the rows
    Turnos();
    EXPECT_EQ(Elegida(), 1);
}

TEST_F(frmHistorialTest, TheChosenRowsAreMarked) {
    PonerDosCierres();
    Abrir();
    VistaRejilla& cierres = Vista("grdCierres");
    const auto fondo = [&](int fila) {
        const QRect celda = cierres.visualRect(cierres.model()->index(fila - 1, 1));
        return cierres.viewport()->grab().toImage().pixelColor(celda.left() + 2,
                                                               celda.center().y());
    };
    EXPECT_EQ(fondo(2), tema::kFilaActual);
    EXPECT_NE(fondo(1), tema::kFilaActual);
    TocarFila("grdCierres", 1);
    EXPECT_EQ(fondo(1), tema::kFilaActual);
    EXPECT_NE(fondo(2), tema::kFilaActual);
}

TEST_F(frmHistorialTest, EmptyGridsSaySoAndHaveNothingToExport) {
    Abrir();
    EXPECT_TRUE(Control(u"lbSinCierres"_s).isVisible());
    EXPECT_FALSE(Control(u"lbVacia"_s).isVisible());
    EXPECT_EQ(Control(u"lbCierre"_s).text(), QString());
    EXPECT_FALSE(Boton(3).isEnabled());
    EXPECT_FALSE(Boton(4).isEnabled());
    EXPECT_TRUE(Boton(1).isEnabled()); // it says that there is nothing to print
    pantalla.reset();
    PonerCierre(100);
    Poner({.cobrado = 1, .estado = u"ERROR"_s});
    Abrir();
    EXPECT_FALSE(Control(u"lbSinCierres"_s).isVisible());
    EXPECT_TRUE(Control(u"lbVacia"_s).isVisible());
    EXPECT_TRUE(Boton(3).isEnabled());
    EXPECT_FALSE(Boton(4).isEnabled());
}

TEST_F(frmHistorialTest, WithoutAPrinterPrintingIsOff) {
    entorno.configuracio->SINIMPRESORA = 1;
    PonerDosCierres();
    Abrir();
    EXPECT_FALSE(Boton(1).isEnabled());
}

TEST_F(frmHistorialTest, ButtonsDoTheirWork) {
    PonerDosCierres();
    Abrir();
    dialogos.EsperaMensaje(u"Cierre de Caja"_s, testing::_, Respuesta::Si, EstiloMensaje::SiNo,
                           [this] {
                               // Nothing else begins while it asks.
                               Boton(3).click();
                               pantalla->reject();
                               TocarFila("grdCierres", 1);
                               Tecla(Qt::Key_Up);
                               EXPECT_TRUE(pantalla->isVisible());
                               EXPECT_EQ(Elegida(), 2);
                           });
    Boton(1).click();
    EXPECT_EQ(impresora.documentos.size(), 1U);
    const QString hecho = u"Se han exportado los datos correctamente"_s;
    dialogos.EsperaMensaje(testing::_, hecho);
    Boton(3).click();
    dialogos.EsperaMensaje(testing::_, hecho);
    Boton(4).click();
    EXPECT_THAT(QDir(carpeta.filePath(u"exports"_s)).entryList(QDir::Files),
                testing::UnorderedElementsAre(u"HistorialMovements_20260314_180411.csv"_s,
                                              u"Historial_20260314_180411.csv"_s));
    dialogos.EsperaMensaje(u"Limpiar historial"_s, testing::_, Respuesta::No);
    Boton(2).click();
    EXPECT_TRUE(pantalla->isVisible());
    Boton(0).click();
    EXPECT_FALSE(pantalla->isVisible());
}

TEST_F(frmHistorialTest, TheFailureOfClearingEndsTheScreenAndIsTheCallers) {
    PonerDosCierres();
    Abrir();
    dialogos.EsperaMensaje(u"Limpiar historial"_s, testing::_, Respuesta::Si);
    Boton(2).click();
    EXPECT_FALSE(pantalla->isVisible());
    EXPECT_NE(NumeroError([this] { pantalla->LanzarFallo(); }), 0);
    EXPECT_EQ(CuentaCierres(), 2);
}

TEST_F(frmHistorialTest, AFailureOfReadingToo) {
    PonerDosCierres();
    Abrir();
    GanchoFallos fallos(motor);
    fallos.Falla(Statement::Kind::Lectura, u"procesados"_s, 1);
    TocarFila("grdCierres", 1);
    EXPECT_FALSE(pantalla->isVisible());
    EXPECT_EQ(NumeroError([this] { pantalla->LanzarFallo(); }), 5);
}

TEST_F(frmHistorialTest, KeysChooseClosesAndTurnThePagesOfMovements) {
    PonerCierres(40);
    motor.Comenzar();
    for (int i = 0; i < 60; ++i) {
        Poner({.idCierre = 39, .cobrado = 1});
    }
    motor.Confirmar();
    Abrir();
    const Rejilla& cierres = historial.grdCierres();
    const Rejilla& his = historial.grdHis();
    EXPECT_EQ(Elegida(), 40);
    EXPECT_EQ(cierres.FilaSuperior(), 41 - cierres.Pagina());
    Tecla(Qt::Key_Down);
    EXPECT_EQ(Elegida(), 40);
    Tecla(Qt::Key_Up);
    EXPECT_EQ(Elegida(), 39);
    EXPECT_EQ(his.FilasDatos(), 60);
    EXPECT_GT(his.Pagina(), 3);
    Tecla(Qt::Key_PageDown);
    EXPECT_EQ(his.FilaSuperior(), 1 + his.Pagina());
    Tecla(Qt::Key_PageUp);
    EXPECT_EQ(his.FilaSuperior(), 1);
    Tecla(Qt::Key_Home);
    EXPECT_EQ(Elegida(), 1);
    EXPECT_EQ(cierres.FilaSuperior(), 1);
    Tecla(Qt::Key_Up);
    EXPECT_EQ(Elegida(), 1);
    Tecla(Qt::Key_End);
    EXPECT_EQ(Elegida(), 40);
    Tecla(Qt::Key_Escape);
    EXPECT_FALSE(pantalla->isVisible());
}

TEST_F(frmHistorialTest, EachPagerTurnsItsGridAndChoosesNothing) {
    PonerCierres(40);
    motor.Comenzar();
    for (int i = 0; i < 60; ++i) {
        Poner({.idCierre = 40, .cobrado = 1});
    }
    motor.Confirmar();
    Abrir();
    Rejilla& cierres = historial.grdCierres();
    const Rejilla& his = historial.grdHis();
    EXPECT_TRUE(Pagina(0).BtnArriba()->isEnabled());
    EXPECT_FALSE(Pagina(0).BtnAbajo()->isEnabled());
    EXPECT_FALSE(Pagina(1).BtnArriba()->isEnabled());
    const int arriba = cierres.FilaSuperior();
    Pagina(0).BtnArriba()->click();
    EXPECT_EQ(cierres.FilaSuperior(), arriba - cierres.Pagina());
    EXPECT_TRUE(Pagina(0).BtnAbajo()->isEnabled());
    Pagina(1).BtnAbajo()->click();
    EXPECT_EQ(his.FilaSuperior(), 1 + his.Pagina());
    EXPECT_TRUE(Pagina(1).BtnArriba()->isEnabled());
    EXPECT_EQ(Elegida(), 40);
}

TEST_F(frmHistorialTest, ASmallWindowMovesTheClosesSidewaysALargeOneShowsAll) {
    PonerDosCierres();
    Abrir();
    QScrollBar* barra = Vista("grdCierres").horizontalScrollBar();
    EXPECT_TRUE(barra->isVisible());
    EXPECT_FALSE(Vista("grdHis").horizontalScrollBar()->isVisible());
    Tecla(Qt::Key_Right);
    EXPECT_GT(barra->value(), 0);
    Tecla(Qt::Key_Left);
    EXPECT_EQ(barra->value(), 0);
    pantalla->resize(1920, 1080);
    Turnos();
    EXPECT_FALSE(barra->isVisible());
    EXPECT_EQ(historial.grdCierres().FilaActual(), 2);
}

TEST_F(frmHistorialTest, NamesOnTheBus) {
    PonerDosCierres();
    Abrir();
    const char* const nombres[] = {"Salir", "Imprimir", "Limpiar Historial", "Export Hist.",
                                   "Export Mov."};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(NombreDe(Boton(i)), QString::fromUtf8(nombres[i]));
    }
    EXPECT_EQ(NombreDe(Vista("grdCierres")), u"Cierres"_s);
    EXPECT_EQ(NombreDe(Vista("grdHis")), u"Listado de movimientos"_s);
    EXPECT_EQ(NombreDe(Control(u"lbCierre"_s)), u"Fecha 14/03/26 22:00:05 CIERRE 1.264,16 €"_s);
}

TEST_F(frmHistorialTest, EverythingLiesInTheWindowAndIsLargeEnough) {
    PonerDosCierres();
    for (const QSize& tamano : {QSize(1024, 768), QSize(1920, 1080)}) {
        Abrir(tamano);
        EXPECT_EQ(pantalla->size(), tamano);
        for (QWidget* control : pantalla->findChildren<QWidget*>()) {
            if (control->isVisible()) {
                const QRect sitio(control->mapTo(pantalla.get(), QPoint()), control->size());
                EXPECT_TRUE(pantalla->rect().contains(sitio) ||
                            qobject_cast<VistaRejilla*>(control->parentWidget()->parentWidget()))
                    << control->objectName().toStdString();
            }
        }
        for (const QAbstractButton* boton : pantalla->findChildren<QAbstractButton*>()) {
            if (boton->isVisible() && boton->objectName().startsWith(u"b"_s)) {
                EXPECT_GE(boton->height(), tema::kToqueMinimo) << boton->objectName().toStdString();
            }
        }
        const int cierres = Vista("grdCierres").height();
        const int his = Vista("grdHis").height();
        EXPECT_NEAR(100.0 * cierres / (cierres + his), 45, 2);
        pantalla.reset();
    }
}

TEST_F(frmHistorialTest, SpeaksTheLanguageOfTheFile) {
    PonerDosCierres();
    Abrir();
    const std::unique_ptr<frmHistorial> castellana = std::move(pantalla);
    IdiomaIngles().PonerEn(carpeta.path());
    Historial otro(entorno, impresora);
    frmHistorial inglesa(otro);
    inglesa.show();
    Turnos();
    ComprobarEnIngles(*castellana, inglesa, {u"lbCierre"_s, u"btnLogo"_s});
    EXPECT_EQ(inglesa.Titulo(), u"History of Till Closes"_s);
    EXPECT_EQ(inglesa.findChild<QLabel*>(u"lbCierre"_s)->text(),
              u"Date 14/03/26 22:00:05 CLOSE 1.264,16 €"_s);
}

} // namespace
} // namespace zv::test
