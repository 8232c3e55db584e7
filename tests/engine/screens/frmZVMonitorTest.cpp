// The main screen: what the widgets show, and what keys, buttons and mouse do.
#include "BancoPantalla.h"
#include "config/Modo.h"
#include "platform/StringLiterals.h"
#include "ui/screens/Accesible.h"

#include <QSocketNotifier>
#include <QTimer>
#include <QWindow>

#include <unistd.h>

namespace zv::test {

class frmZVMonitorTest : public BancoPantalla {};

TEST_F(frmZVMonitorTest, ControlsCarryTheirNames) {
    const QStringList nombres =
        u"frameCab btnLogo lbVer btnModo_0 btnModo_1 btnModo_2 btnW_0 btnW_1 btnW_2 frmEstado "
        "lbContador lbEstado ShapeOK ShapeAlert ShapeCritico grdZV pctScrollBar btnArriba "
        "btnAbajo framePie boton_0 boton_12 TextIni btnCobro btnAbono btnCancelar"_s.split(
            QLatin1Char(' '));
    for (const QString& nombre : nombres) {
        EXPECT_NE(pantalla->findChild<QWidget*>(nombre), nullptr) << nombre.toStdString();
    }
}

TEST_F(frmZVMonitorTest, TellsWhatItIsAndWhatItsGridAndItsLampsAre) {
    EXPECT_EQ(PapelDe(*pantalla), QAccessible::Window);
    EXPECT_EQ(NombreDe(*D().grdZV), u"Operaciones pendientes"_s);
    for (Lampara* lampara : {D().ShapeOK, D().ShapeAlert, D().ShapeCritico}) {
        EXPECT_EQ(PapelDe(*lampara), QAccessible::Graphic);
    }
    EXPECT_EQ(NombreDe(*D().ShapeCritico), u"Niveles críticos o sin conexión"_s);
}

TEST_F(frmZVMonitorTest, ShowsTheQueueAndItsCounter) {
    PonerFila(1250);
    PonerFila(-300);
    Mostrar();
    EXPECT_EQ(D().grdZV->model()->rowCount(), 2);
    EXPECT_EQ(D().lbContador->text(), u"1 cobros / 1 abonos"_s);
    EXPECT_EQ(D().grdZV->model()->index(0, 9).data().toString(), u"12,50 €"_s);
}

TEST_F(frmZVMonitorTest, ColumnsFillTheGridAndHideByTheirSettings) {
    const auto ancho = [&] {
        int suma = 0;
        for (int i = 0; i < ColumnaCola::Cuantas; ++i) {
            suma += D().grdZV->columnWidth(i);
        }
        return suma;
    };
    EXPECT_TRUE(D().grdZV->isColumnHidden(1));
    EXPECT_TRUE(D().grdZV->isColumnHidden(4));
    EXPECT_EQ(D().grdZV->columnWidth(0), 1300 / 15);
    EXPECT_LE(ancho(), D().grdZV->viewport()->width());
    EXPECT_GE(ancho(), D().grdZV->viewport()->width() - 12);
    configuracio->COLID2 = 1;
    configuracio->COLTERMINAL = 1;
    pantalla->PrepararGrid();
    EXPECT_FALSE(D().grdZV->isColumnHidden(4));
    EXPECT_FALSE(D().grdZV->isColumnHidden(6));
    EXPECT_LE(ancho(), D().grdZV->viewport()->width());
}

TEST_F(frmZVMonitorTest, WidgetsFollowOnlyWhenTheEventLoopRuns) {
    pulso.ArrancaTimer();
    Vuelta();
    EXPECT_TRUE(D().framePie->isEnabled());
    pulso.ParaTimer();
    EXPECT_TRUE(D().framePie->isEnabled());
    pulso.ArrancaTimer();
    Vuelta();
    EXPECT_TRUE(D().framePie->isEnabled());
    pulso.ParaTimer();
    Vuelta();
    EXPECT_FALSE(D().framePie->isEnabled());
    EXPECT_FALSE(D().grdZV->isEnabled());
}

// Counts what reaches the objects that it is put before.
class Testigo final : public QObject {
  public:
    bool eventFilter(QObject* /*objeto*/, QEvent* evento) override {
        pinturas += evento->type() == QEvent::Paint ? 1 : 0;
        movimientos += evento->type() == QEvent::MouseMove ? 1 : 0;
        return false;
    }
    int pinturas = 0;
    int movimientos = 0;
};

TEST_F(frmZVMonitorTest, IsPaintedWithTheWaitCursorBeforeACallThatBlocks) {
    estado.ActualizarBotonesMonitor(false);
    Vuelta();
    ASSERT_TRUE(D().boton[BotonPie::Conectar]->isEnabled());
    Testigo testigo;
    D().boton[BotonPie::Conectar]->installEventFilter(&testigo);
    estado.HabilitarConectar(false);
    estado.MostrarEspera(true);
    EXPECT_FALSE(D().boton[BotonPie::Conectar]->isEnabled());
    EXPECT_EQ(pantalla->cursor().shape(), Qt::WaitCursor);
    EXPECT_EQ(testigo.pinturas, 1);
    estado.MostrarEspera(false);
    Vuelta();
    EXPECT_EQ(pantalla->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(frmZVMonitorTest, NothingButPaintingHappensBeforeACallThatBlocks) {
    pantalla->hide();
    QWidget otra;
    otra.setGeometry(10, 10, 100, 100);
    otra.show();
    Vuelta();
    bool pasado = false;
    QTimer tic;
    QObject::connect(&tic, &QTimer::timeout, &tic, [&] { pasado = true; });
    tic.start(0);
    int tubo[2] = {-1, -1};
    ASSERT_EQ(::pipe(tubo), 0);
    ASSERT_EQ(::write(tubo[1], "x", 1), 1);
    QSocketNotifier mensaje(tubo[0], QSocketNotifier::Read);
    QObject::connect(&mensaje, &QSocketNotifier::activated, &mensaje, [&] { pasado = true; });
    Testigo testigo;
    D().grdZV->viewport()->installEventFilter(&testigo);
    pantalla->show();
    EXPECT_FALSE(pantalla->windowHandle()->isExposed());
    otra.windowHandle()->installEventFilter(&testigo);
    QCursor::setPos(50, 50); // the mouse moves over the other window
    estado.MostrarEspera(true);
    EXPECT_TRUE(pantalla->windowHandle()->isExposed());
    EXPECT_GT(testigo.pinturas, 0);
    EXPECT_EQ(testigo.movimientos, 0);
    EXPECT_FALSE(pasado);
    Vuelta();
    EXPECT_TRUE(pasado);
    EXPECT_GT(testigo.movimientos, 0);
    ::close(tubo[0]);
    ::close(tubo[1]);
}

TEST_F(frmZVMonitorTest, AScreenThatHasGoneIsNotPainted) {
    pulso.PonerVentana(nullptr);
    pantalla.reset();
    estado.MostrarEspera(true);
    EXPECT_TRUE(controles.Estado().punteroEspera);
}

TEST_F(frmZVMonitorTest, AWindowThatIsNotThereIsNotWaitedFor) {
    Testigo testigo;
    pantalla->installEventFilter(&testigo);
    pantalla->PonerWindowState(ventana::kMinimizada);
    Vuelta();
    testigo.pinturas = 0;
    estado.MostrarEspera(true);
    pantalla->hide();
    estado.MostrarEspera(true);
    EXPECT_EQ(testigo.pinturas, 0);
    EXPECT_EQ(pantalla->cursor().shape(), Qt::WaitCursor);
}

TEST_F(frmZVMonitorTest, AWindowThatWasNeverShownIsNotPainted) {
    pantalla.reset();
    pantalla = std::make_unique<frmZVMonitor>(
        PartesMonitor{entorno, controles, grid, estado, pulso, botones, clic}, AccionesVentana{});
    estado.MostrarEspera(true);
    EXPECT_FALSE(pantalla->isVisible());
    EXPECT_EQ(pantalla->cursor().shape(), Qt::WaitCursor);
}

TEST_F(frmZVMonitorTest, OnlyButtonsWithAnOperationAreEnabled) {
    pantallas.faltan = {Pantalla::Caja};
    pulso.ArrancaTimer();
    estado.ActualizarBotonesMonitor(true);
    Vuelta();
    EXPECT_TRUE(D().boton[BotonPie::Conectar]->isEnabled());
    EXPECT_FALSE(D().boton[BotonPie::Desconectar]->isEnabled());
    EXPECT_TRUE(D().boton[BotonPie::DarCambio]->isEnabled());
    EXPECT_TRUE(D().boton[BotonPie::Registro]->isEnabled());
    EXPECT_FALSE(D().boton[BotonPie::Caja]->isEnabled());
    cliente.PonerTotal(0);
    cliente.EsperaConnect();
    Clic(D().boton[BotonPie::Conectar]);
    EXPECT_TRUE(supervision.Conectado());
    Vuelta();
    EXPECT_FALSE(D().boton[BotonPie::Conectar]->isEnabled());
    EXPECT_TRUE(D().boton[BotonPie::Desconectar]->isEnabled());
}

TEST_F(frmZVMonitorTest, ModeButtonsShowTheMode) {
    Mostrar();
    EXPECT_TRUE(D().btnModo[1]->isChecked());
    Clic(D().btnModo[2]);
    EXPECT_EQ(configuracio->Modo, modo::kSemi);
    EXPECT_TRUE(D().btnModo[2]->isChecked());
    EXPECT_FALSE(D().btnModo[1]->isChecked());
    Clic(D().btnModo[2]); // pressed again it stays pressed
    EXPECT_TRUE(D().btnModo[2]->isChecked());
}

TEST_F(frmZVMonitorTest, LampsShowOneLevel) {
    estado.MostrarLamparas(false, true, false);
    Vuelta();
    EXPECT_FALSE(D().ShapeOK->isVisible());
    EXPECT_TRUE(D().ShapeAlert->isVisible());
    EXPECT_FALSE(D().ShapeCritico->isVisible());
}

TEST_F(frmZVMonitorTest, PageButtonsScrollAndGoOutAtTheEnds) {
    pulso.ArrancaTimer();
    PonerFilas(40);
    EXPECT_FALSE(D().btnArriba->isEnabled());
    EXPECT_TRUE(D().btnAbajo->isEnabled());
    Clic(D().btnAbajo);
    EXPECT_EQ(grid.Celdas().FilaSuperior(), 1 + grid.Celdas().Pagina());
    EXPECT_EQ(D().grdZV->verticalScrollBar()->value(), grid.Celdas().Pagina());
    EXPECT_TRUE(D().btnArriba->isEnabled());
    Clic(D().btnArriba);
    EXPECT_EQ(D().grdZV->verticalScrollBar()->value(), 0);
}

TEST_F(frmZVMonitorTest, ScrollingTheGridMovesTheTopRow) {
    PonerFilas(40);
    D().grdZV->verticalScrollBar()->setValue(5);
    Vuelta();
    EXPECT_EQ(grid.Celdas().FilaSuperior(), 6);
    EXPECT_TRUE(D().btnArriba->isEnabled());
    // It is a good refresh.
    EscribirIni("[ZVMONITOR]\r\nMODO=AUTO\r\n");
    D().grdZV->verticalScrollBar()->setValue(4);
    EXPECT_EQ(configuracio->Modo, modo::kAuto);
}

TEST_F(frmZVMonitorTest, TheViewKeepsToTheLogicalTopRowBehindTheLastPage) {
    const auto arriba = [this] {
        Vuelta();
        const int fila = D().grdZV->rowAt(0);
        EXPECT_EQ(D().grdZV->rowViewportPosition(fila), 0);
        return fila + 1;
    };
    pulso.ArrancaTimer();
    PonerFilas(40);
    while (D().btnAbajo->isEnabled()) {
        Clic(D().btnAbajo);
        EXPECT_EQ(arriba(), grid.Celdas().FilaSuperior());
    }
    const int ultima = grid.Celdas().FilaSuperior();
    EXPECT_GT(ultima, 40 - grid.Celdas().Pagina());
    for (int i = 1; i <= 3; ++i) {
        QTest::keyClick(D().TextIni, Qt::Key_Up);
        EXPECT_EQ(grid.Celdas().FilaSuperior(), ultima - i);
        EXPECT_EQ(arriba(), ultima - i);
    }
    for (int i = 0; i < 50; ++i) {
        QTest::keyClick(D().TextIni, Qt::Key_Down);
    }
    EXPECT_EQ(grid.Celdas().FilaSuperior(), 40);
    EXPECT_EQ(arriba(), 40);
}

TEST_F(frmZVMonitorTest, AListThatFitsHasNoPages) {
    PonerFilas(3);
    QTest::keyClick(D().TextIni, Qt::Key_Down);
    Vuelta();
    EXPECT_EQ(grid.Celdas().FilaSuperior(), 1);
    EXPECT_FALSE(D().btnArriba->isEnabled());
    EXPECT_FALSE(D().btnAbajo->isEnabled());
    EXPECT_EQ(D().grdZV->rowAt(0), 0);
}

TEST_F(frmZVMonitorTest, AWindowThatGrowsTakesThePagesOfAListThatFitsThen) {
    pulso.ArrancaTimer();
    PonerFilas(grid.Celdas().Pagina() + 2);
    Clic(D().btnAbajo);
    EXPECT_TRUE(D().btnArriba->isEnabled());
    pantalla->resize(1024, 1000);
    Vuelta();
    EXPECT_EQ(grid.Celdas().FilaSuperior(), 1);
    EXPECT_EQ(D().grdZV->rowAt(0), 0);
    EXPECT_FALSE(D().btnArriba->isEnabled());
    EXPECT_FALSE(D().btnAbajo->isEnabled());
}

TEST_F(frmZVMonitorTest, UpAndDownMoveTheListAndOtherKeysReachTheBox) {
    PonerFilas(40);
    D().TextIni->setFocus();
    QTest::keyClick(D().TextIni, Qt::Key_Down);
    QTest::keyClick(D().TextIni, Qt::Key_Down);
    EXPECT_EQ(grid.Celdas().FilaSuperior(), 3);
    QTest::keyClick(D().TextIni, Qt::Key_Up);
    EXPECT_EQ(grid.Celdas().FilaSuperior(), 2);
    QTest::keyClick(D().TextIni, Qt::Key_7);
    EXPECT_EQ(D().TextIni->text(), u"7"_s);
}

TEST_F(frmZVMonitorTest, EachTickGivesTheBarcodeBoxTheFocusAlsoWhileTheConnectorWorks) {
    for (const QString& activo : {u"0"_s, u"1"_s}) {
        registry.GuardarValor(registry_name::kConectorActivo, activo);
        pantalla->setFocusPolicy(Qt::StrongFocus);
        pantalla->setFocus();
        ASSERT_NE(pantalla->focusWidget(), D().TextIni);
        pulso.ArrancaTimer();
        EXPECT_TRUE(Esperar([&] { return pantalla->focusWidget() == D().TextIni; }, 2000));
        pulso.ParaTimer();
    }
}

TEST_F(frmZVMonitorTest, TheStateLineBlinksOnlyWhileItSaysSomething) {
    controles.Poner(&EstadoControles::lbEstado, u"Aviso"_s);
    Vuelta();
    EXPECT_EQ(D().lbEstado->text(), u"Aviso"_s);
    EXPECT_TRUE(pantalla->Parpadeando());
    controles.Poner(&EstadoControles::lbEstado, QString());
    Vuelta();
    EXPECT_FALSE(pantalla->Parpadeando());
}

TEST_F(frmZVMonitorTest, ClosingAsksAndEndsOnlyOnAccept) {
    const QString titulo = u"Cerrar aplicativo"_s;
    const QString texto = u"¿Desea cerrar ZVMonitor?"_s;
    controles.Poner(&EstadoControles::timerCola, true);
    dialogos.EsperaMensaje(titulo, texto, Respuesta::Cancelar, EstiloMensaje::AceptarCancelar);
    QTest::mouseClick(D().btnW[1], Qt::LeftButton);
    EXPECT_EQ(descargas, 0);
    EXPECT_TRUE(pulso.Armado());
    dialogos.EsperaMensaje(titulo, texto, Respuesta::Cancelar, EstiloMensaje::AceptarCancelar);
    pantalla->close();
    EXPECT_TRUE(pantalla->isVisible());
    dialogos.EsperaMensaje(titulo, texto, Respuesta::Aceptar, EstiloMensaje::AceptarCancelar);
    QTest::mouseClick(D().btnW[1], Qt::LeftButton);
    EXPECT_EQ(descargas, 1);
    EXPECT_FALSE(pulso.Armado());
}

TEST_F(frmZVMonitorTest, MinimisingArmsThePulseAndRestoringMaximises) {
    QTest::mouseClick(D().btnW[0], Qt::LeftButton);
    EXPECT_EQ(pantalla->WindowState(), ventana::kMinimizada);
    EXPECT_TRUE(pulso.Armado());
    pulso.RestaurarVentana();
    EXPECT_EQ(pantalla->WindowState(), ventana::kMaximizada);
}

TEST_F(frmZVMonitorTest, TheManualsButtonOpensThem) {
    Clic(D().btnW[2]);
    EXPECT_EQ(manuales, 1);
}

TEST_F(frmZVMonitorTest, ADoubleClickOnTheHeaderMaximisesAndIsNoDrag) {
    QTest::mouseDClick(D().frameCab, Qt::LeftButton, {}, QPoint(300, 3));
    EXPECT_EQ(pantalla->WindowState(), ventana::kMaximizada);
    const QPoint antes = pantalla->pos();
    QTest::mousePress(D().frameCab, Qt::LeftButton, {}, QPoint(300, 3));
    QTest::mouseMove(D().frameCab, QPoint(340, 40));
    QTest::mouseRelease(D().frameCab, Qt::LeftButton, {}, QPoint(340, 40));
    EXPECT_EQ(pantalla->pos(), antes);
}

TEST_F(frmZVMonitorTest, NothingToTouchIsSmallerThanAFinger) {
    for (const QToolButton* boton : pantalla->findChildren<QToolButton*>()) {
        if (boton->isVisible() && boton != D().btnLogo) {
            EXPECT_GE(boton->width(), tema::kToqueMinimo) << boton->objectName().toStdString();
            EXPECT_GE(boton->height(), tema::kToqueMinimo) << boton->objectName().toStdString();
            EXPECT_FALSE(boton->accessibleName().isEmpty()) << boton->objectName().toStdString();
        }
    }
    for (const QToolButton* boton : D().boton) {
        if (boton->isVisible()) {
            EXPECT_GE(boton->width(), tema::kTeclaMinima) << boton->objectName().toStdString();
            EXPECT_GE(boton->height(), tema::kTeclaMinima) << boton->objectName().toStdString();
        }
    }
}

TEST_F(frmZVMonitorTest, BuiltInCaptionsStandByTheirNumbers) {
    const QStringList pie{u"Registro"_s,        u"Caja"_s,       u"Dar\nCambio"_s,
                          u"Añadir\nCambio"_s,  u"Pago"_s,       u"Incidencias"_s,
                          u"Desconectar"_s,     u"Conectar"_s,   u"Cobro\nManual"_s,
                          u"Agrupar\ncobros"_s, u"Contraseña"_s, QString(),
                          u"Configurar"_s};
    const QStringList modos{u"Automático"_s, u"Manual"_s, u"Semiautomático"_s};
    const QStringList ventanas{u"Minimizar"_s, u"Cerrar"_s, u"Manuales"_s};
    for (const BotonPie boton : kBotonesPie) {
        const auto i = static_cast<int>(boton);
        EXPECT_EQ(D().boton[boton]->objectName(), u"boton_%1"_s.arg(i));
        // Where a caption breaks is the button's business.
        EXPECT_EQ(D().boton[boton]->text().replace(u'\n', u' '),
                  QString(pie[i]).replace(u'\n', u' '));
        EXPECT_EQ(D().boton[boton]->accessibleName(), QString(pie[i]).replace(u'\n', u' '));
    }
    for (std::size_t i = 0; i < 3; ++i) {
        const auto n = static_cast<int>(i);
        EXPECT_EQ(D().btnModo[i]->text(), modos[n]);
        EXPECT_EQ(D().btnW[i]->accessibleName(), ventanas[n]);
        EXPECT_EQ(D().btnW[i]->toolTip(), ventanas[n]);
    }
    EXPECT_EQ(D().ShapeOK->toolTip(), u"Niveles normales"_s);
    EXPECT_EQ(D().ShapeAlert->toolTip(), u"Niveles en alerta"_s);
    EXPECT_EQ(D().ShapeCritico->toolTip(), u"Niveles críticos o sin conexión"_s);
    EXPECT_EQ(D().TextIni->placeholderText(), u"Código de barras"_s);
}

TEST_F(frmZVMonitorTest, CaptionsComeFromTheLanguageFile) {
    QFile fichero(carpeta.filePath(u"RWLang.ini"_s));
    ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
    fichero.write("[GEN]\r\nFrmCaption=Till\r\n[frmZVMonitor]\r\nboton_2=Give change\r\n"
                  "btnModo_1=By hand\r\n");
    fichero.close();
    pantalla->Traducir();
    EXPECT_EQ(pantalla->windowTitle(), u"Till"_s);
    pantalla->setWindowState(Qt::WindowMinimized);
    EXPECT_EQ(NombreDe(*pantalla), u"Till"_s);
    EXPECT_EQ(D().boton[BotonPie::DarCambio]->text(), u"Give change"_s);
    EXPECT_EQ(D().btnModo[1]->text(), u"By hand"_s);
    EXPECT_EQ(D().boton[BotonPie::Registro]->text(), u"Registro"_s);
}

} // namespace zv::test
