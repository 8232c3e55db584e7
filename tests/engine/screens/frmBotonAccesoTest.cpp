// The floating button on the screen, and how it follows the pulse.
#include "engine/screens/frmBotonAcceso.h"

#include "BancoPantalla.h"
#include "support/AlAbrir.h"
#include "support/ImprimeQt.h"
#include "ui/screens/DialogosPantalla.h"

#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QWindow>

#include <cmath>

namespace zv::test {
namespace {

// The one that is shown.
frmBotonAcceso* Boton() {
    for (QWidget* tope : QApplication::topLevelWidgets()) {
        if (auto* este = qobject_cast<frmBotonAcceso*>(tope)) {
            return este;
        }
    }
    return nullptr;
}

class frmBotonAccesoTest : public BancoPantalla {
  protected:
    void SetUp() override {
        configuracio->BOTONACCESO = 1;
        pulso.ParaTimer(); // as the start leaves it
        pantalla->MostrarBotonAcceso();
        boton = Boton();
        ASSERT_NE(boton, nullptr);
        Vuelta();
    }
    bool Encima() const { return boton->windowFlags().testFlag(Qt::WindowStaysOnTopHint); }
    // Presses, draws and lets go, with that button of the mouse.
    void Llevar(Qt::MouseButton con, const QPoint& desde, const QPoint& trecho) const {
        const QPoint esquina = boton->pos();
        const auto raton = [&](QEvent::Type tipo, const QPoint& donde, Qt::MouseButton cual,
                               Qt::MouseButtons abajo) {
            QMouseEvent evento(tipo, donde - boton->pos(), donde, cual, abajo, Qt::NoModifier);
            QApplication::sendEvent(boton, &evento);
        };
        raton(QEvent::MouseButtonPress, esquina + desde, con, con);
        raton(QEvent::MouseMove, esquina + desde + trecho, Qt::NoButton, con);
        raton(QEvent::MouseButtonRelease, esquina + desde + trecho, con, Qt::NoButton);
    }
    // The amount is asked for, and the operator gives up.
    void EsperaCobro(DialogosGuion::Accion mientras = {}) {
        dialogos.EsperaImporte(u"Cobro manual"_s, testing::_, 0, true, std::move(mientras));
    }

    frmBotonAcceso* boton = nullptr;
};

TEST_F(frmBotonAccesoTest, IsARoundPictureWithANameAndNoText) {
    EXPECT_EQ(boton->accessibleName(), u"Cobro manual"_s);
    EXPECT_EQ(boton->windowTitle(), u"Cobro manual"_s);
    for (const Qt::WindowType marca : {Qt::FramelessWindowHint, Qt::NoDropShadowWindowHint}) {
        EXPECT_TRUE(boton->windowFlags().testFlag(marca)) << marca;
    }
    // Round, no entry in a task bar, and no reason for a program to stay.
    EXPECT_TRUE(boton->testAttribute(Qt::WA_TranslucentBackground));
    EXPECT_TRUE(boton->testAttribute(Qt::WA_X11NetWmWindowTypeUtility));
    EXPECT_FALSE(boton->testAttribute(Qt::WA_QuitOnClose));
    EXPECT_TRUE(boton->text().isEmpty());
    EXPECT_GE(boton->width(), 96);
    EXPECT_EQ(boton->width(), boton->height());
    EXPECT_TRUE(boton->mask().contains(boton->rect().center()));
    EXPECT_FALSE(boton->mask().contains(QPoint(2, 2)));
    EXPECT_FALSE(boton->mask().contains(QPoint(boton->width() - 3, boton->height() - 3)));
}

TEST_F(frmBotonAccesoTest, TakesTheKeyboardFromNobody) {
    EXPECT_TRUE(boton->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
    EXPECT_TRUE(boton->testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_EQ(boton->focusPolicy(), Qt::NoFocus);
}

TEST_F(frmBotonAccesoTest, ComesUpWholeInTheHeadersBand) {
    const QRect toda = boton->screen()->geometry();
    EXPECT_EQ(boton->pos(), QPoint(toda.width() - 5 * boton->width(), 0));
    EXPECT_TRUE(toda.contains(boton->geometry()));
}

TEST_F(frmBotonAccesoTest, StandsOutFromAnyGround) {
    for (const QColor fondo : {QColor(Qt::white), QColor(Qt::black), QColor(128, 128, 128),
                               tema::kCabecera, tema::kAmbar}) {
        QImage imagen(boton->size(), QImage::Format_ARGB32);
        imagen.fill(fondo);
        QPainter p(&imagen);
        boton->render(&p, {}, {}, QWidget::DrawChildren);
        p.end();
        // From the edge to the middle: somewhere a contrast of at least 3:1 with the ground.
        double mayor = 0;
        for (int x = 0; x < imagen.width() / 2; ++x) {
            const auto luz = [](const QColor& c) {
                const auto parte = [](double v) {
                    return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
                };
                return 0.2126 * parte(c.redF()) + 0.7152 * parte(c.greenF()) +
                       0.0722 * parte(c.blueF()) + 0.05;
            };
            const double a = luz(imagen.pixelColor(x, imagen.height() / 2));
            const double b = luz(fondo);
            mayor = std::max(mayor, std::max(a, b) / std::min(a, b));
        }
        EXPECT_GE(mayor, 3.0) << fondo.name().toStdString();
    }
}

TEST_F(frmBotonAccesoTest, ALeftPressChargesByHandAtOnce) {
    ConectarCon(10000);
    EsperaCobro();
    QTest::mousePress(boton, Qt::LeftButton);
    EXPECT_EQ(dialogos.Pendientes(), 0U);
    EXPECT_FALSE(boton->isDown());
    QTest::mouseRelease(boton, Qt::LeftButton); // no second one
}

TEST_F(frmBotonAccesoTest, ShowsThatItIsPressed) {
    ConectarCon(10000);
    const auto imagen = [this] { return boton->grab().toImage(); };
    // Of its rim, at the left.
    const auto aro = [&] {
        return imagen().pixelColor(boton->width() * 8 / 96, boton->height() * 45 / 96);
    };
    const QImage antes = imagen();
    EXPECT_EQ(aro(), tema::kCuerpo);
    struct Mirador : QObject {
        bool eventFilter(QObject*, QEvent* evento) override {
            pintadas += evento->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
        int pintadas = 0;
    } mirador;
    boton->installEventFilter(&mirador);
    EsperaCobro([&] {
        // Before anything else keeps the event loop.
        EXPECT_EQ(mirador.pintadas, 1);
        EXPECT_TRUE(boton->isDown());
        EXPECT_EQ(aro(), tema::kAmbar);
    });
    QTest::mousePress(boton, Qt::LeftButton);
    EXPECT_EQ(imagen(), antes);
}

TEST_F(frmBotonAccesoTest, ALeftPressBringsAMinimisedMainScreenUpFirst) {
    ConectarCon(10000);
    pantalla->PonerWindowState(ventana::kMinimizada);
    int comoEstaba = -1;
    EsperaCobro([&] { comoEstaba = pantalla->WindowState(); });
    QTest::mousePress(boton, Qt::LeftButton);
    EXPECT_EQ(comoEstaba, ventana::kMaximizada);
}

TEST_F(frmBotonAccesoTest, ItsNameOnTheBusCanBePressedToo) {
    ConectarCon(10000);
    EsperaCobro();
    boton->click();
    EXPECT_EQ(dialogos.Pendientes(), 0U);
}

TEST_F(frmBotonAccesoTest, APressBesideTheDiscIsNone) {
    ConectarCon(10000);
    QTest::mousePress(boton, Qt::LeftButton, {}, QPoint(2, 2));
    EXPECT_FALSE(boton->isDown());
}

TEST_F(frmBotonAccesoTest, ARightPressAloneChangesNothing) {
    ConectarCon(10000);
    const QPoint antes = boton->pos();
    Llevar(Qt::RightButton, {48, 48}, {0, 0});
    EXPECT_EQ(boton->pos(), antes);
    EXPECT_FALSE(boton->isDown());
}

TEST_F(frmBotonAccesoTest, IsDrawnWithTheRightButtonAloneAndStaysWhole) {
    boton->move(300, 300);
    Llevar(Qt::RightButton, {48, 48}, {-20, 35});
    EXPECT_EQ(boton->pos(), QPoint(280, 335));
    Llevar(Qt::RightButton, {10, 50}, {-5000, 40});
    EXPECT_EQ(boton->pos(), QPoint(0, 375));
    Llevar(Qt::RightButton, {10, 50}, {5000, 5000});
    const QRect cabe = boton->screen()->availableGeometry();
    EXPECT_TRUE(cabe.contains(boton->geometry()));
    EXPECT_EQ(boton->geometry().bottomRight(), cabe.bottomRight());
}

TEST_F(frmBotonAccesoTest, ComesBackWhenItsScreenGrowsSmaller) {
    boton->move(-40, 10'000);
    Q_EMIT boton->screen()->availableGeometryChanged({});
    EXPECT_TRUE(boton->screen()->availableGeometry().contains(boton->geometry()));
}

TEST_F(frmBotonAccesoTest, IsNotClosedByTheWindowSystem) {
    boton->windowHandle()->close();
    EXPECT_TRUE(boton->isVisible());
}

TEST_F(frmBotonAccesoTest, LeavesTheTopLevelWhileAnOperationRuns) {
    pulso.ArrancaTimer();
    Vuelta();
    EXPECT_TRUE(Encima());
    EXPECT_TRUE(boton->windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
    pulso.ParaTimer();
    Vuelta();
    EXPECT_FALSE(Encima());
    EXPECT_FALSE(boton->windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(boton->isVisible());
    struct Mirador : QObject {
        bool eventFilter(QObject*, QEvent* evento) override {
            alzada = alzada || evento->type() == QEvent::ZOrderChange;
            return false;
        }
        bool alzada = false;
    } mirador;
    boton->installEventFilter(&mirador);
    pulso.ArrancaTimer();
    Vuelta();
    EXPECT_TRUE(Encima());
    EXPECT_TRUE(mirador.alzada);
}

TEST_F(frmBotonAccesoTest, IsBelowTheDialogsOfAnOperation) {
    ConectarCon(10000);
    Vuelta();
    ASSERT_TRUE(Encima());
    bool encima = true;
    EsperaCobro([&] {
        Vuelta(); // what a dialog's own loop does first
        encima = Encima();
    });
    QTest::mousePress(boton, Qt::LeftButton);
    EXPECT_FALSE(encima);
    Vuelta();
    EXPECT_TRUE(Encima());
}

TEST_F(frmBotonAccesoTest, ComesBackAboveWithARestoredMainScreen) {
    pantalla->PonerWindowState(ventana::kMinimizada);
    pulso.RestaurarVentana();
    Vuelta();
    EXPECT_TRUE(Encima());
}

// Its real window is not touched by the thousand changes a second of an idle pulse.
TEST_F(frmBotonAccesoTest, DoesNotMoveWithTheTicks) {
    ConectarCon(10000);
    Vuelta();
    ASSERT_TRUE(Encima());
    struct Mirador : QObject {
        bool eventFilter(QObject*, QEvent* evento) override {
            ++sucesos;
            tipos << QString::number(evento->type());
            return false;
        }
        int sucesos = 0;
        QStringList tipos;
    } mirador;
    boton->installEventFilter(&mirador);
    boton->windowHandle()->installEventFilter(&mirador);
    int cambios = 0;
    QObject::connect(boton->windowHandle(), &QWindow::visibilityChanged, &mirador,
                     [&] { ++cambios; });
    for (int i = 0; i < 50; ++i) {
        pulso.ProcesarCola();
        Vuelta();
    }
    EXPECT_EQ(mirador.sucesos, 0) << mirador.tipos.join(u' ').toStdString();
    EXPECT_EQ(cambios, 0);
}

// A box of the program holds its other windows, by the mouse and by name; the pulse beats under it,
// so that nothing but the box keeps a charge from beginning.
TEST_F(frmBotonAccesoTest, APressWhileABoxIsUpIsLostAndTheNextOneIsNot) {
    ConectarCon(10000);
    DialogosPantalla reales(u"ZVMonitor"_s, textos, importes, [this] { return pantalla.get(); });
    const std::function<void()> cajas[] = {
        [&] { reales.MostrarMensaje(u"Cerrar"_s, u"¿?"_s, EstiloMensaje::AceptarCancelar); },
        [&] { reales.CajaSimple(u"Código no admitido"_s); },
    };
    const QPoint medio = boton->rect().center();
    for (const auto& caja : cajas) {
        const AlAbrir abierto([&](QDialog& dialogo) {
            QTest::mousePress(boton->windowHandle(), Qt::LeftButton, {}, medio);
            QTest::mouseRelease(boton->windowHandle(), Qt::LeftButton, {}, medio);
            boton->click();
            EXPECT_TRUE(pulso.Armado());
            EXPECT_EQ(pantalla->WindowState(), ventana::kNormal);
            dialogo.reject();
        });
        caja();
        EXPECT_EQ(dialogos.Llamadas(), QStringList());
        EXPECT_FALSE(boton->isDown());
    }
    EsperaCobro();
    QTest::mousePress(boton->windowHandle(), Qt::LeftButton, {}, medio);
    EXPECT_EQ(dialogos.Pendientes(), 0U);
    QTest::mouseRelease(boton->windowHandle(), Qt::LeftButton, {}, medio);
}

// However it may have begun, a charge ends before the program does, and the answer to the question
// beneath it counts afterwards.
TEST_F(frmBotonAccesoTest, AChargeWhileTheClosingIsAskedEndsBeforeTheProgram) {
    ConectarCon(10000);
    dialogos.EsperaMensaje(u"Cerrar aplicativo"_s, testing::_, Respuesta::Aceptar,
                           EstiloMensaje::AceptarCancelar, [this] {
                               EXPECT_TRUE(pulso.Armado());
                               dialogos.EsperaImporte(u"Cobro manual"_s, testing::_, 500);
                               cliente.EsperaCharge(500, 500, 0, FinGuion::Ok().Durante([this] {
                                   EXPECT_EQ(descargas, 0);
                                   EXPECT_EQ(Activo(), u"1"_s);
                               }));
                               QTest::mousePress(boton, Qt::LeftButton);
                               EXPECT_EQ(Procesados().size(), 1U);
                               EXPECT_EQ(motor.Nivel(), 0);
                               EXPECT_EQ(Activo(), u"0"_s);
                               EXPECT_EQ(descargas, 0);
                           });
    Clic(D().btnW[1]);
    EXPECT_EQ(descargas, 1);
    EXPECT_FALSE(pulso.Armado());
}

TEST_F(frmBotonAccesoTest, AChargeWhileTheClosingIsAskedAndRefusedLeavesTheTillAtWork) {
    ConectarCon(10000);
    dialogos.EsperaMensaje(u"Cerrar aplicativo"_s, testing::_, Respuesta::Cancelar,
                           EstiloMensaje::AceptarCancelar, [this] {
                               dialogos.EsperaImporte(u"Cobro manual"_s, testing::_, 500);
                               cliente.EsperaCharge(500, 0, 0, FinGuion::Error(12, u"Atasco"_s));
                               QTest::mousePress(boton, Qt::LeftButton);
                           });
    Clic(D().btnW[1]);
    EXPECT_EQ(descargas, 0);
    EXPECT_TRUE(pulso.Armado());
    EXPECT_TRUE(controles.Estado().framePie);
    EXPECT_EQ(motor.Nivel(), 0);
    EXPECT_EQ(Activo(), u"0"_s);
}

// Its name on the bus reaches the key of the window though an operation's window holds it.
TEST_F(frmBotonAccesoTest, WhileAnOperationHasItsWindowUpTheClosingIsNotAsked) {
    ConectarCon(10000);
    dialogos.EsperaImporte(u"Cobro manual"_s, testing::_, 500);
    cliente.EsperaCharge(500, 500, 0, FinGuion::Ok().Durante([this] {
        QDialog operacion(pantalla.get());
        operacion.setWindowModality(Qt::ApplicationModal);
        operacion.show();
        D().btnW[1]->click();
        pantalla->close();
        EXPECT_TRUE(pantalla->isVisible());
    }));
    QTest::mousePress(boton, Qt::LeftButton);
    EXPECT_EQ(descargas, 0);
    EXPECT_EQ(Procesados().size(), 1U);
}

TEST_F(BancoPantalla, AButtonThatIsShownWhileThePulseIsArmedIsAboveAtOnce) {
    configuracio->BOTONACCESO = 1;
    pulso.ArrancaTimer();
    Vuelta();
    pantalla->MostrarBotonAcceso();
    ASSERT_NE(Boton(), nullptr);
    EXPECT_TRUE(Boton()->isVisible());
    EXPECT_TRUE(Boton()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

// Between a change of the pulse's state and the turn of the event loop that follows it.
TEST_F(BancoPantalla, AButtonThatIsShownWhileThePulseStopsFollowsItAfterwards) {
    configuracio->BOTONACCESO = 1;
    pulso.ArrancaTimer();
    Vuelta();
    pulso.ParaTimer();
    pantalla->MostrarBotonAcceso();
    ASSERT_NE(Boton(), nullptr);
    EXPECT_FALSE(Boton()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    pulso.ArrancaTimer();
    Vuelta();
    EXPECT_TRUE(Boton()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

TEST_F(BancoPantalla, WithoutTheSettingTheButtonIsLeftAlone) {
    configuracio->BOTONACCESO = 0;
    pantalla->MostrarBotonAcceso(); // whoever shows it all the same
    ASSERT_NE(Boton(), nullptr);
    pulso.ArrancaTimer();
    Vuelta();
    EXPECT_FALSE(Boton()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

TEST_F(frmBotonAccesoTest, IsShownOnce) {
    const QPointer<frmBotonAcceso> antes(boton);
    pantalla->MostrarBotonAcceso();
    EXPECT_EQ(antes, boton);
    int cuantos = 0;
    for (QWidget* tope : QApplication::topLevelWidgets()) {
        cuantos += qobject_cast<frmBotonAcceso*>(tope) != nullptr ? 1 : 0;
    }
    EXPECT_EQ(cuantos, 1);
}

} // namespace
} // namespace zv::test
