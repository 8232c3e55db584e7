// The borderless windows: dragging, closing, top-most order.
#include "ui/screens/FramelessWindow.h"

#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"
#include "ui/screens/Tema.h"

#include <QFrame>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QWindow>

#include <gtest/gtest.h>

namespace zv::test {
namespace {

class Ventana final : public FramelessWindow {
  public:
    Ventana() : FramelessWindow(u"frmPrueba"_s, nullptr) {
        PonerTitulo(u"Título"_s);
        logo = PonerLogo(tema::Icono(u"zvmonitor"_s));
        setGeometry(100, 100, 400, 300);
        show();
    }
    using FramelessWindow::AnchoCabecera;
    using FramelessWindow::btnW;
    using FramelessWindow::frameCab;
    using FramelessWindow::lbTitulo;
    QToolButton* logo;
};

void Raton(QWidget& control, QEvent::Type tipo, const QPoint& global, Qt::MouseButton boton,
           Qt::MouseButtons pulsados) {
    QMouseEvent evento(tipo, control.mapFromGlobal(QPointF(global)), QPointF(global), boton,
                       pulsados, Qt::NoModifier);
    QCoreApplication::sendEvent(&control, &evento);
}

void Arrastrar(QWidget& control, const QPoint& cuanto, Qt::MouseButton boton = Qt::LeftButton) {
    const QPoint desde = control.mapToGlobal(QPoint(3, 3));
    Raton(control, QEvent::MouseButtonPress, desde, boton, boton);
    Raton(control, QEvent::MouseMove, desde + cuanto / 2, Qt::NoButton, boton);
    Raton(control, QEvent::MouseMove, desde + cuanto, Qt::NoButton, boton);
    Raton(control, QEvent::MouseButtonRelease, desde + cuanto, boton, Qt::NoButton);
}

TEST(FramelessWindowTest, HeaderTitleAndLogoDragTheWindow) {
    Ventana ventana;
    QPoint sitio = ventana.pos();
    for (QWidget* asidero :
         {static_cast<QWidget*>(ventana.frameCab()), static_cast<QWidget*>(ventana.lbTitulo()),
          static_cast<QWidget*>(ventana.logo)}) {
        Arrastrar(*asidero, QPoint(30, -20));
        sitio += QPoint(30, -20);
        EXPECT_EQ(ventana.pos(), sitio) << asidero->objectName().toStdString();
    }
}

TEST(FramelessWindowTest, OnlyTheLeftButtonDrags) {
    Ventana ventana;
    const QPoint sitio = ventana.pos();
    Arrastrar(*ventana.frameCab(), QPoint(30, 30), Qt::RightButton);
    EXPECT_EQ(ventana.pos(), sitio);
    Raton(*ventana.frameCab(), QEvent::MouseMove, sitio + QPoint(80, 10), Qt::NoButton,
          Qt::NoButton);
    EXPECT_EQ(ventana.pos(), sitio);
}

TEST(FramelessWindowTest, BodyDoesNotDrag) {
    Ventana ventana;
    const QPoint sitio = ventana.pos();
    const QPoint desde = sitio + QPoint(200, 200);
    Raton(ventana, QEvent::MouseButtonPress, desde, Qt::LeftButton, Qt::LeftButton);
    Raton(ventana, QEvent::MouseMove, desde + QPoint(9, 9), Qt::NoButton, Qt::LeftButton);
    EXPECT_EQ(ventana.pos(), sitio);
}

TEST(FramelessWindowTest, TwoWindowsDragApart) {
    Ventana una;
    Ventana otra;
    const QPoint sitio = otra.pos();
    Arrastrar(*una.frameCab(), QPoint(15, 15));
    EXPECT_EQ(otra.pos(), sitio);
}

TEST(FramelessWindowTest, AWindowThatMustNotMoveStays) {
    QWidget ventana;
    ventana.move(50, 50);
    Arrastre arrastre(ventana, [] { return false; });
    arrastre.Añadir(ventana);
    Arrastrar(ventana, QPoint(20, 20));
    EXPECT_EQ(ventana.pos(), QPoint(50, 50));
}

TEST(FramelessWindowTest, CloseButtonAndEscapeLeaveIt) {
    Ventana ventana;
    QTest::mouseClick(ventana.btnW(1), Qt::LeftButton);
    EXPECT_FALSE(ventana.isVisible());
    ventana.show();
    QTest::keyClick(&ventana, Qt::Key_Escape);
    EXPECT_FALSE(ventana.isVisible());
}

TEST(FramelessWindowTest, HasNoFrameOfTheDesktopAndBlocksTheProgram) {
    Ventana ventana;
    EXPECT_TRUE(ventana.windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(ventana.windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(ventana.frameCab()->height(), tema::kAltoCabecera);
    EXPECT_GE(ventana.btnW(1)->width(), tema::kToqueMinimo);
    EXPECT_GE(ventana.btnW(1)->height(), tema::kToqueMinimo);
}

TEST(FramelessWindowTest, TitleWiderThanTheWindowTakesASecondLine) {
    Ventana ventana;
    EXPECT_FALSE(ventana.lbTitulo()->wordWrap());
    ventana.PonerTitulo(u"Un título mucho más ancho que toda la ventana que lo lleva"_s);
    EXPECT_TRUE(ventana.lbTitulo()->wordWrap());
    ventana.resize(ventana.AnchoCabecera(), 300);
    EXPECT_FALSE(ventana.lbTitulo()->wordWrap());
}

TEST(VentanaEncimaTest, PutsAboveAndTakesDownWithoutHidingOrRecreating) {
    QWidget ventana;
    ventana.show();
    QWindow* nativa = ventana.windowHandle();
    VentanaEncima(ventana, true);
    EXPECT_TRUE(ventana.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(nativa->flags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(ventana.isVisible());
    EXPECT_EQ(ventana.windowHandle(), nativa);
    VentanaEncima(ventana, false);
    EXPECT_FALSE(ventana.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_FALSE(nativa->flags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(ventana.isVisible());
    EXPECT_EQ(ventana.windowHandle(), nativa);
}

TEST(VentanaEncimaTest, BeforeTheFirstShowItTakesEffectWithIt) {
    QWidget ventana;
    VentanaEncima(ventana, true);
    ventana.show();
    EXPECT_TRUE(ventana.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
}

TEST(BordesTest, AreLeftPlusWidthAndTopPlusHeight) {
    QWidget control;
    control.setGeometry(10, 20, 30, 40);
    EXPECT_EQ(BordeDerecho(control), 40);
    EXPECT_EQ(BordeInferior(control), 60);
}

} // namespace
} // namespace zv::test
