// A grid on the screen: which row stands on top, what a click tells, and the cells as painted.
#include "ui/screens/VistaRejilla.h"

#include "Accesible.h"
#include "Contraste.h"
#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"
#include "ui/screens/Paginador.h"
#include "ui/screens/Tema.h"

#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace zv::test {

class VistaRejillaTest : public testing::Test {
  protected:
    VistaRejillaTest() {
        tema::Aplicar(*qApp);
        boton.setIcon(tema::Icono(u"list-add"_s));
        vista.PonerImagen(Imagen::Cobro, boton, tema::kVerde);
        // Ten rows and a little.
        vista.resize(600, kTitulos + 10 * tema::kAltoFila + 20);
        rejilla.PonerPagina(vista.height() / vista.AltoFila() - 1);
        vista.show();
        QApplication::processEvents();
    }
    void Filas(int cuantas) {
        {
            const SinDibujo sinDibujo(rejilla);
            for (int i = 0; i < cuantas; ++i) {
                rejilla.PonerTexto(rejilla.AñadirFila(), 0, u"Fila"_s);
            }
        }
        QApplication::processEvents();
    }
    // The row whose upper edge stands exactly at the top, 1 the first data row; 0 when none does.
    int ArribaDelTodo() {
        QApplication::processEvents();
        const int fila = vista.rowAt(0);
        return vista.rowViewportPosition(fila) == 0 ? fila + 1 : 0;
    }
    QPoint Centro(int fila, int columna) const {
        return vista.visualRect(vista.model()->index(fila - 1, columna)).center();
    }
    void Clic(QPoint punto, Qt::MouseButton cual = Qt::LeftButton) {
        QTest::mouseClick(vista.viewport(), cual, {}, punto);
    }
    int Puntos(int fila, int columna, const QColor& color) const {
        const QImage imagen = vista.viewport()
                                  ->grab(vista.visualRect(vista.model()->index(fila - 1, columna)))
                                  .toImage();
        int puntos = 0;
        for (int y = 0; y < imagen.height(); ++y) {
            for (int x = 0; x < imagen.width(); ++x) {
                puntos += imagen.pixelColor(x, y) == color ? 1 : 0;
            }
        }
        return puntos;
    }

    static constexpr int kTitulos = 44;
    QToolButton boton;
    Rejilla rejilla{{{.ancho = 3000},
                     {.ancho = 0},
                     {.alineacion = Qt::AlignRight | Qt::AlignVCenter,
                      .contenido = Contenido::Importe,
                      .ancho = 1800},
                     {.contenido = Contenido::Imagen, .ancho = 1300}}};
    VistaRejilla vista{rejilla, u"grdPrueba"_s, nullptr};
    QSignalSpy desplazada{&vista, &VistaRejilla::Desplazada};
    QSignalSpy soltado{&vista, &VistaRejilla::Soltado};
};

TEST_F(VistaRejillaTest, AnyRowThatTheGridPutsOnTopStandsThere) {
    Filas(40);
    for (const int fila : {1, 2, 30, 31, 32, 39, 40, 39, 31, 30, 1}) {
        rejilla.PonerFilaSuperior(fila);
        EXPECT_EQ(ArribaDelTodo(), fila);
    }
    EXPECT_EQ(desplazada.size(), 0);
}

TEST_F(VistaRejillaTest, ItStaysThereWhenTheWindowOrTheRowsChange) {
    Filas(40);
    rejilla.PonerFilaSuperior(38);
    EXPECT_EQ(ArribaDelTodo(), 38);
    vista.resize(620, vista.height() - 100);
    EXPECT_EQ(ArribaDelTodo(), 38);
    Filas(1);
    EXPECT_EQ(ArribaDelTodo(), 38);
    EXPECT_EQ(rejilla.FilaSuperior(), 38);
    rejilla.PonerTexto(39, 0, u"x"_s);
    EXPECT_EQ(ArribaDelTodo(), 38);
    vista.Escalar(1.2);
    EXPECT_EQ(ArribaDelTodo(), 38);
    EXPECT_EQ(desplazada.size(), 0);
}

TEST_F(VistaRejillaTest, TheRowAtTheEndOfTheBarStaysOnTopToo) {
    Filas(40);
    rejilla.PonerFilaSuperior(31);
    ASSERT_EQ(vista.verticalScrollBar()->maximum(), 30);
    vista.resize(620, vista.height());
    EXPECT_EQ(ArribaDelTodo(), 31);
    vista.verticalScrollBar()->setValue(29);
    vista.verticalScrollBar()->setValue(30);
    EXPECT_EQ(ArribaDelTodo(), 31);
}

TEST_F(VistaRejillaTest, TheBarEndsWhereTheLastPageIsFull) {
    Filas(40);
    QScrollBar& barra = *vista.verticalScrollBar();
    EXPECT_EQ(barra.maximum(), 30);
    barra.setValue(30);
    EXPECT_EQ(rejilla.FilaSuperior(), 31);
    EXPECT_EQ(desplazada.size(), 1);
    EXPECT_EQ(ArribaDelTodo(), 31);
    EXPECT_EQ(vista.rowViewportPosition(39) + tema::kAltoFila, 10 * tema::kAltoFila);
    rejilla.PonerFilaSuperior(40);
    EXPECT_EQ(barra.value(), 39);
    rejilla.PonerFilaSuperior(5);
    EXPECT_EQ(barra.maximum(), 30);
    EXPECT_EQ(desplazada.size(), 1);
}

TEST_F(VistaRejillaTest, TheWheelScrollsWholeRows) {
    Filas(40);
    const QPoint sitio(50, 50);
    QWheelEvent rueda(sitio, vista.viewport()->mapToGlobal(sitio), {}, QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(vista.viewport(), &rueda);
    EXPECT_GT(rejilla.FilaSuperior(), 1);
    EXPECT_EQ(ArribaDelTodo(), rejilla.FilaSuperior());
    EXPECT_EQ(desplazada.size(), 1);
}

TEST_F(VistaRejillaTest, WidthsComeFromTheGridAndHideAtZero) {
    EXPECT_EQ(vista.columnWidth(0), 200);
    EXPECT_TRUE(vista.isColumnHidden(1));
    rejilla.PonerAncho(0, 0);
    rejilla.PonerAncho(1, 1505);
    EXPECT_TRUE(vista.isColumnHidden(0));
    EXPECT_FALSE(vista.isColumnHidden(1));
    EXPECT_EQ(vista.columnWidth(1), 100);
    // Edges are rounded, not widths: 3305 twips are 220 pixels.
    EXPECT_EQ(vista.columnViewportPosition(3), 220);
}

TEST_F(VistaRejillaTest, OtherColumnsTakeTheirWidths) {
    Filas(2);
    rejilla.PonerColumnas({{.ancho = 1500}, {.ancho = 0}});
    EXPECT_EQ(vista.model()->columnCount(), 2);
    EXPECT_EQ(vista.columnWidth(0), 100);
    EXPECT_TRUE(vista.isColumnHidden(1));
}

// ---- clicks

TEST_F(VistaRejillaTest, AClickTellsItsCellWhenTheButtonGoesUp) {
    Filas(40);
    rejilla.PonerFilaSuperior(38);
    QApplication::processEvents();
    QTest::mousePress(vista.viewport(), Qt::LeftButton, {}, Centro(39, 2));
    EXPECT_EQ(soltado.size(), 0);
    QTest::mouseRelease(vista.viewport(), Qt::LeftButton, {}, Centro(39, 2));
    ASSERT_EQ(soltado.size(), 1);
    EXPECT_EQ(soltado[0], (QList<QVariant>{39, 2, false}));
    EXPECT_EQ(ArribaDelTodo(), 38);
}

TEST_F(VistaRejillaTest, AClickBelowTheRowsSaysSo) {
    Filas(2);
    Clic(QPoint(50, 2 * tema::kAltoFila - 1));
    Clic(QPoint(50, 2 * tema::kAltoFila));
    Clic(QPoint(50, vista.viewport()->height() - 1));
    ASSERT_EQ(soltado.size(), 3);
    EXPECT_EQ(soltado[0], (QList<QVariant>{2, 0, false}));
    EXPECT_EQ(soltado[1], (QList<QVariant>{0, 0, true}));
    EXPECT_EQ(soltado[2], (QList<QVariant>{0, 0, true}));
}

TEST_F(VistaRejillaTest, AClickBesideTheColumnsHasNone) {
    Filas(2);
    Clic(QPoint(vista.viewport()->width() - 2, 10));
    ASSERT_EQ(soltado.size(), 1);
    EXPECT_EQ(soltado[0], (QList<QVariant>{1, -1, false}));
}

TEST_F(VistaRejillaTest, AClickOnATitleIsOneOnRowZero) {
    Filas(2);
    QTest::mouseClick(vista.horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(250, 10));
    ASSERT_EQ(soltado.size(), 1);
    EXPECT_EQ(soltado[0], (QList<QVariant>{0, 2, false}));
}

TEST_F(VistaRejillaTest, AFingerThatSlidesElsewhereClicksNothing) {
    Filas(4);
    QTest::mousePress(vista.viewport(), Qt::LeftButton, {}, Centro(1, 0));
    QTest::mouseRelease(vista.viewport(), Qt::LeftButton, {}, Centro(2, 0));
    QTest::mousePress(vista.viewport(), Qt::LeftButton, {}, Centro(1, 0));
    QTest::mouseRelease(vista.viewport(), Qt::LeftButton, {}, Centro(1, 2));
    QTest::mousePress(vista.viewport(), Qt::LeftButton, {}, Centro(1, 0));
    QTest::mouseRelease(vista.viewport(), Qt::LeftButton, {}, QPoint(50, 400));
    QTest::mousePress(vista.viewport(), Qt::LeftButton, {}, QPoint(50, 400));
    QTest::mouseRelease(vista.viewport(), Qt::LeftButton, {}, QPoint(50, 4000));
    QTest::mousePress(vista.viewport(), Qt::LeftButton, {}, Centro(1, 0));
    QTest::mouseRelease(vista.horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(50, 10));
    QTest::mouseRelease(vista.viewport(), Qt::LeftButton, {}, Centro(1, 0)); // no press
    EXPECT_EQ(soltado.size(), 0);
    EXPECT_EQ(rejilla.FilaSuperior(), 1);
}

TEST_F(VistaRejillaTest, ARowThatComesUnderTheFingerIsNotClicked) {
    Filas(4);
    rejilla.PonerTexto(2, 1, u"oculto"_s);
    QTest::mousePress(vista.viewport(), Qt::LeftButton, {}, Centro(2, 0));
    rejilla.PonerTexto(2, 1, u"otro"_s);
    QTest::mouseRelease(vista.viewport(), Qt::LeftButton, {}, Centro(2, 0));
    QTest::mousePress(vista.viewport(), Qt::LeftButton, {}, Centro(2, 0));
    rejilla.Recortar(1);
    QTest::mouseRelease(vista.viewport(), Qt::LeftButton, {}, QPoint(50, 60));
    EXPECT_EQ(soltado.size(), 0);
    // The same row read again is the same row.
    QTest::mousePress(vista.viewport(), Qt::LeftButton, {}, Centro(1, 0));
    rejilla.Vaciar();
    Filas(2);
    QTest::mouseRelease(vista.viewport(), Qt::LeftButton, {}, Centro(1, 0));
    EXPECT_EQ(soltado.size(), 1);
}

TEST_F(VistaRejillaTest, OnlyTheLeftButtonClicks) {
    Filas(1);
    Clic(Centro(1, 0), Qt::RightButton);
    Clic(Centro(1, 0), Qt::MiddleButton);
    QTest::mousePress(vista.viewport(), Qt::RightButton, {}, Centro(1, 0));
    QTest::mouseRelease(vista.viewport(), Qt::LeftButton, {}, Centro(1, 0));
    EXPECT_EQ(soltado.size(), 0);
}

TEST_F(VistaRejillaTest, ADoubleClickIsTwo) {
    Filas(1);
    Clic(Centro(1, 0));
    QTest::mouseDClick(vista.viewport(), Qt::LeftButton, {}, Centro(1, 0));
    EXPECT_EQ(soltado.size(), 1);
    QTest::mouseRelease(vista.viewport(), Qt::LeftButton, {}, Centro(1, 0));
    EXPECT_EQ(soltado.size(), 2);
}

TEST_F(VistaRejillaTest, TheSecondOfTwoQuickTouchesIsNoneOnAnotherRow) {
    Filas(2);
    rejilla.PonerTexto(1, 0, u"Primera"_s);
    // The first touch makes its row go, and the next one comes up below the finger.
    QObject::connect(&vista, &VistaRejilla::Soltado, &vista, [this] {
        if (rejilla.FilasDatos() == 2) {
            rejilla.Recortar(1);
            rejilla.PonerTexto(1, 0, u"Segunda"_s);
        }
    });
    Clic(Centro(1, 0));
    QTest::mouseDClick(vista.viewport(), Qt::LeftButton, {}, Centro(1, 0));
    QTest::mouseRelease(vista.viewport(), Qt::LeftButton, {}, Centro(1, 0));
    EXPECT_EQ(soltado.size(), 1);
    // A touch of its own is one.
    Clic(Centro(1, 0));
    EXPECT_EQ(soltado.size(), 2);
}

TEST_F(VistaRejillaTest, WhatAScreenReaderChoosesIsTouched) {
    Filas(3);
    rejilla.PonerImagen(2, 3, Imagen::Cobro);
    QApplication::processEvents();
    const auto celda = [this](int fila, int columna) {
        return Accesible(vista).tableInterface()->cellAt(fila - 1, columna);
    };
    QAccessibleActionInterface* accion = celda(2, 3)->actionInterface();
    ASSERT_NE(accion, nullptr);
    accion->doAction(accion->actionNames().value(0));
    EXPECT_EQ(soltado.size(), 0); // who asks is not kept waiting
    QApplication::processEvents();
    ASSERT_EQ(soltado.size(), 1);
    EXPECT_EQ(soltado[0], (QList<QVariant>{2, 3, false}));
    EXPECT_FALSE(vista.selectionModel()->hasSelection());
    // Again, as often as it is chosen.
    accion->doAction(accion->actionNames().value(0));
    QApplication::processEvents();
    EXPECT_EQ(soltado.size(), 2);
    // Another row has come to its place, or the grid is disabled.
    accion->doAction(accion->actionNames().value(0));
    rejilla.PonerTexto(2, 0, u"Otra"_s);
    QApplication::processEvents();
    accion->doAction(accion->actionNames().value(0));
    vista.setEnabled(false);
    QApplication::processEvents();
    EXPECT_EQ(soltado.size(), 2);
    EXPECT_FALSE(vista.selectionModel()->hasSelection());
}

TEST_F(VistaRejillaTest, AMouseSelectsNothing) {
    Filas(3);
    Clic(Centro(2, 0));
    QTest::mouseDClick(vista.viewport(), Qt::LeftButton, {}, Centro(2, 0));
    EXPECT_FALSE(vista.selectionModel()->hasSelection());
}

TEST_F(VistaRejillaTest, ADisabledGridTellsNothing) {
    Filas(1);
    vista.setEnabled(false);
    Clic(Centro(1, 0));
    EXPECT_EQ(soltado.size(), 0);
}

// ---- as painted

TEST_F(VistaRejillaTest, CellsTakeTheColoursOfTheirLooks) {
    Filas(3);
    rejilla.PonerColorFila(2, ColorRGB(255, 0, 0), true);
    rejilla.PonerFondo(3, 0, ColorRGB(255, 190, 0));
    QApplication::processEvents();
    const QColor rojo(255, 0, 0);
    EXPECT_EQ(Puntos(1, 0, rojo), 0);
    EXPECT_GT(Puntos(2, 0, rojo), 0);
    EXPECT_EQ(Puntos(1, 0, tema::kAmbar), 0);
    EXPECT_GT(Puntos(3, 0, tema::kAmbar), 1000);
    rejilla.PonerFondo(3, 0, 0);
    EXPECT_EQ(Puntos(3, 0, tema::kAmbar), 0);
    EXPECT_GT(Puntos(2, 0, tema::kFilaPar), 1000);
    EXPECT_GT(Puntos(3, 0, tema::kCuerpo), 1000);
}

TEST_F(VistaRejillaTest, ARedTextOnAColouredGroundIsDarkEnoughToBeRead) {
    Filas(1);
    rejilla.PonerColorFila(1, ColorRGB(255, 0, 0), true);
    for (const QColor& fondo : {tema::kAmbar, tema::kVerde}) {
        rejilla.PonerFondo(1, 0, fondo.rgb());
        EXPECT_EQ(Puntos(1, 0, QColor(255, 0, 0)), 0);
        EXPECT_GT(Puntos(1, 0, QColor(150, 0, 0)), 0);
        EXPECT_GT(Contraste(QColor(150, 0, 0), fondo), 4.5);
    }
}

TEST_F(VistaRejillaTest, BoldRowsAreHeavier) {
    Filas(2);
    rejilla.PonerColorFila(1, ColorRGB(255, 0, 0), false);
    rejilla.PonerColorFila(2, ColorRGB(255, 0, 0), true);
    EXPECT_GT(Puntos(2, 0, QColor(255, 0, 0)), Puntos(1, 0, QColor(255, 0, 0)));
}

TEST_F(VistaRejillaTest, PicturesStandInTheirCellsAlone) {
    Filas(2);
    rejilla.PonerImagen(1, 3, Imagen::Cobro);
    rejilla.PonerImagen(2, 3, Imagen::Enviar); // no button lends it
    QApplication::processEvents();
    EXPECT_GT(Puntos(1, 3, tema::kVerde), 100);
    EXPECT_EQ(Puntos(2, 3, tema::kVerde), 0);
}

TEST_F(VistaRejillaTest, APictureUnderAFingerLooksPressed) {
    Filas(2);
    rejilla.PonerImagen(1, 3, Imagen::Cobro);
    rejilla.PonerImagen(2, 3, Imagen::Cobro);
    QApplication::processEvents();
    const int suelta = Puntos(1, 3, tema::kVerde);
    const auto pulsada = [&](int fila) {
        const int puntos = Puntos(fila, 3, tema::kVerde);
        EXPECT_TRUE(puntos == suelta || puntos == 0) << puntos;
        return puntos == 0;
    };
    QTest::mousePress(vista.viewport(), Qt::LeftButton, {}, Centro(1, 3));
    EXPECT_TRUE(pulsada(1));
    EXPECT_FALSE(pulsada(2));
    const auto deslizar = [this](QPoint donde) {
        QMouseEvent evento(QEvent::MouseMove, donde, vista.viewport()->mapToGlobal(donde),
                           Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(vista.viewport(), &evento);
    };
    deslizar(Centro(2, 3));
    EXPECT_FALSE(pulsada(1));
    EXPECT_FALSE(pulsada(2));
    deslizar(Centro(1, 3));
    EXPECT_TRUE(pulsada(1));
    QTest::mouseRelease(vista.viewport(), Qt::LeftButton, {}, Centro(1, 3));
    EXPECT_FALSE(pulsada(1));
    // A finger that rests on a text presses no picture.
    QTest::mousePress(vista.viewport(), Qt::LeftButton, {}, Centro(1, 0));
    EXPECT_FALSE(pulsada(1));
    QTest::mouseRelease(vista.viewport(), Qt::LeftButton, {}, Centro(1, 0));
}

TEST_F(VistaRejillaTest, PicturesOfAColumnThatDoesNothingAreFaint) {
    Filas(1);
    rejilla.PonerImagen(1, 3, Imagen::Cobro);
    QApplication::processEvents();
    vista.HabilitarImagenes(3, false);
    EXPECT_EQ(Puntos(1, 3, tema::kVerde), 0);
    EXPECT_GT(Puntos(1, 3, tema::kBotonApagado), 100);
    QTest::mousePress(vista.viewport(), Qt::LeftButton, {}, Centro(1, 3));
    EXPECT_GT(Puntos(1, 3, tema::kBotonApagado), 100);
    QTest::mouseRelease(vista.viewport(), Qt::LeftButton, {}, Centro(1, 3));
    vista.HabilitarImagenes(3, true);
    EXPECT_GT(Puntos(1, 3, tema::kVerde), 100);
}

TEST_F(VistaRejillaTest, AnAmountTooWideForItsColumnIsShrunkAndItsMarkGoesAbove) {
    const auto alto = [this](const QString& importe) {
        rejilla.PonerTexto(1, 2, importe);
        const QRect celda = vista.visualRect(vista.model()->index(0, 2));
        const QImage imagen = vista.viewport()->grab(celda).toImage();
        int primera = -1;
        int ultima = -1;
        for (int y = 0; y < imagen.height() - 1; ++y) {
            for (int x = 0; x < imagen.width(); ++x) {
                if (imagen.pixelColor(x, y).lightness() < 100) {
                    primera = primera < 0 ? y : primera;
                    ultima = y;
                }
            }
        }
        return ultima - primera + 1;
    };
    Filas(1);
    const int normal = alto(u"8,00 €"_s);
    EXPECT_LT(alto(u"88.888.888.888,00 €"_s), normal);
    EXPECT_LT(alto(u"! >>> 8,00"_s), normal + 6); // in one line
    EXPECT_GT(alto(u"! >>> 888.888,00 €"_s), normal + 6);
}

// ---- page buttons

TEST(PaginadorTest, ButtonsHaveNamesAndFollow) {
    tema::Aplicar(*qApp);
    Paginador paginador(u"pctScrollBar"_s, nullptr);
    EXPECT_EQ(paginador.objectName(), u"pctScrollBar"_s);
    EXPECT_EQ(paginador.BtnArriba(), paginador.findChild<QToolButton*>(u"btnArriba"_s));
    EXPECT_EQ(paginador.BtnAbajo(), paginador.findChild<QToolButton*>(u"btnAbajo"_s));
    EXPECT_EQ(paginador.BtnArriba()->accessibleName(), u"Página anterior"_s);
    EXPECT_EQ(paginador.BtnAbajo()->accessibleName(), u"Página siguiente"_s);
    paginador.Habilitar(false, true);
    EXPECT_FALSE(paginador.BtnArriba()->isEnabled());
    EXPECT_TRUE(paginador.BtnAbajo()->isEnabled());
    paginador.Habilitar(true, false);
    EXPECT_TRUE(paginador.BtnArriba()->isEnabled());
    EXPECT_FALSE(paginador.BtnAbajo()->isEnabled());
}

TEST(PaginadorTest, TheEndsAreThereWhereAScreenHasThem) {
    tema::Aplicar(*qApp);
    Paginador paginador(u"pctScrollBar"_s, nullptr);
    EXPECT_EQ(paginador.findChild<QToolButton*>(u"btnTop"_s), nullptr);
    paginador.PonerExtremos();
    EXPECT_EQ(paginador.BtnTop(), paginador.findChild<QToolButton*>(u"btnTop"_s));
    EXPECT_EQ(paginador.BtnBottom(), paginador.findChild<QToolButton*>(u"btnBottom"_s));
    EXPECT_EQ(paginador.BtnTop()->accessibleName(), u"Primera fila"_s);
    EXPECT_EQ(paginador.BtnBottom()->accessibleName(), u"Última fila"_s);
    paginador.Habilitar(false, true);
    EXPECT_FALSE(paginador.BtnTop()->isEnabled());
    EXPECT_TRUE(paginador.BtnBottom()->isEnabled());
    paginador.Habilitar(true, false);
    EXPECT_TRUE(paginador.BtnTop()->isEnabled());
    EXPECT_FALSE(paginador.BtnBottom()->isEnabled());
    paginador.Escalar(1.5);
    EXPECT_EQ(paginador.BtnTop()->size(), paginador.BtnArriba()->size());
}

} // namespace zv::test
