// The main screen as a window: its timers, dragging, resizing, the focus, the cells as painted.
#include "BancoPantalla.h"
#include "platform/StringLiterals.h"

#include <QKeyEvent>
#include <QTimer>

namespace zv::test {

class frmZVMonitorVentanaTest : public BancoPantalla {
  protected:
    QTimer* Timer(const char* nombre) const {
        return pantalla->findChild<QTimer*>(QString::fromLatin1(nombre));
    }
    static void Vencer(QTimer* timer) { QMetaObject::invokeMethod(timer, "timeout"); }

    // Presses the header, draws it by that much and lets it go.
    void Arrastrar(QPoint cuanto) {
        const QPoint desde(300, 3);
        QTest::mousePress(D().frameCab, Qt::LeftButton, {}, desde);
        QMouseEvent mover(QEvent::MouseMove, desde + cuanto,
                          D().frameCab->mapToGlobal(desde + cuanto), Qt::NoButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(D().frameCab, &mover);
        QTest::mouseRelease(D().frameCab, Qt::LeftButton, {}, desde);
    }

    // Points of exactly that colour in one cell, as painted. Row 1 is the first data row.
    int Puntos(int fila, int columna, const QColor& color) const {
        const QTableView& vista = *D().grdZV;
        const QRect celda = vista.visualRect(vista.model()->index(fila - 1, columna));
        const QImage imagen = vista.viewport()->grab(celda).toImage();
        int puntos = 0;
        for (int y = 0; y < imagen.height(); ++y) {
            for (int x = 0; x < imagen.width(); ++x) {
                puntos += imagen.pixelColor(x, y) == color ? 1 : 0;
            }
        }
        return puntos;
    }
};

TEST_F(frmZVMonitorVentanaTest, TimersStandAsTheLoadLeavesThem) {
    EXPECT_EQ(Timer("timerCola")->interval(), 1);
    EXPECT_FALSE(Timer("timerCola")->isActive());
    EXPECT_EQ(Timer("timerParpadeo")->interval(), 500);
    EXPECT_TRUE(Timer("timerParpadeo")->isActive()); // "Inicializando..."
    EXPECT_EQ(Timer("timerMaximitzat")->interval(), 1000);
    EXPECT_FALSE(Timer("timerMaximitzat")->isActive());
    pulso.ArrancaTimer();
    Vuelta();
    EXPECT_TRUE(Timer("timerCola")->isActive());
    EXPECT_EQ(Timer("timerCola")->interval(), 1);
}

TEST_F(frmZVMonitorVentanaTest, TheStateLineBlinksBetweenAmberAndGreen) {
    const auto color = [this] {
        D().lbEstado->ensurePolished();
        return D().lbEstado->palette().color(QPalette::WindowText);
    };
    Vencer(Timer("timerParpadeo"));
    EXPECT_EQ(color(), QColor(255, 190, 0));
    Vencer(Timer("timerParpadeo"));
    EXPECT_EQ(color(), QColor(145, 207, 77));
    Vencer(Timer("timerParpadeo"));
    EXPECT_EQ(color(), QColor(255, 190, 0));
}

TEST_F(frmZVMonitorVentanaTest, TheHeaderDrawsTheWindow) {
    const QPoint antes = pantalla->pos();
    Arrastrar(QPoint(40, 25));
    EXPECT_EQ(pantalla->pos(), antes + QPoint(40, 25));
}

TEST_F(frmZVMonitorVentanaTest, AMaximisedWindowIsNotMaximisedAgain) {
    pantalla->PonerWindowState(ventana::kMaximizada);
    QTest::mouseDClick(D().frameCab, Qt::LeftButton, {}, QPoint(300, 3));
    EXPECT_FALSE(Timer("timerMaximitzat")->isActive());
}

TEST_F(frmZVMonitorVentanaTest, AfterASecondADoubleClickIsOverAndTheHeaderDrawsAgain) {
    QTest::mouseDClick(D().frameCab, Qt::LeftButton, {}, QPoint(300, 3));
    ASSERT_TRUE(Timer("timerMaximitzat")->isActive());
    pantalla->PonerWindowState(ventana::kNormal);
    const QPoint antes = pantalla->pos();
    Arrastrar(QPoint(30, 30));
    EXPECT_EQ(pantalla->pos(), antes);
    Vencer(Timer("timerMaximitzat"));
    Arrastrar(QPoint(30, 30));
    EXPECT_EQ(pantalla->pos(), antes + QPoint(30, 30));
}

TEST_F(frmZVMonitorVentanaTest, ARestoredWindowIsMaximisedAndNotKeptOnTop) {
    pantalla->PonerWindowState(ventana::kMinimizada);
    pulso.RestaurarVentana();
    EXPECT_EQ(pantalla->WindowState(), ventana::kMaximizada);
    EXPECT_TRUE(pantalla->isVisible());
    EXPECT_FALSE(pantalla->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(pantalla->windowFlags().testFlag(Qt::FramelessWindowHint));
}

TEST_F(frmZVMonitorVentanaTest, AResizeSharesTheColumnsAnew) {
    const int antes = D().grdZV->columnWidth(3);
    const int pagina = grid.Celdas().Pagina();
    pantalla->resize(1300, 768);
    Vuelta();
    EXPECT_GT(D().grdZV->columnWidth(3), antes);
    pantalla->resize(1024, 900); // higher, but not wide enough for larger rows
    Vuelta();
    EXPECT_GT(grid.Celdas().Pagina(), pagina);
    EXPECT_EQ(grid.Celdas().Pagina(), D().grdZV->height() / tema::kAltoFila - 1);
}

TEST_F(frmZVMonitorVentanaTest, AClickInTheGridSendsATab) {
    struct Oido final : QObject {
        bool eventFilter(QObject* objeto, QEvent* evento) override {
            if (evento->type() == QEvent::KeyPress) {
                teclas << static_cast<QKeyEvent*>(evento)->key();
            }
            return QObject::eventFilter(objeto, evento);
        }
        QList<int> teclas;
    } oido;
    PonerFilas(2);
    pulso.ArrancaTimer();
    pantalla->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(pantalla.get()));
    D().TextIni->setFocus();
    pulso.ParaTimer();
    controles.Poner(&EstadoControles::grdZV, true);
    Vuelta();
    D().TextIni->installEventFilter(&oido);
    const QTableView& vista = *D().grdZV;
    QTest::mouseClick(vista.viewport(), Qt::LeftButton, {},
                      vista.visualRect(vista.model()->index(1, 3)).center());
    EXPECT_EQ(oido.teclas, QList<int>{Qt::Key_Tab});
    EXPECT_EQ(grid.Celdas().FilaActual(), 2);
    EXPECT_EQ(grid.Celdas().ColumnaActual(), 3);
}

TEST_F(frmZVMonitorVentanaTest, PicturesAreReadAloudByTheWordOfTheirColumn) {
    PonerFilas(1);
    const auto palabra = [this](int columna) {
        return D().grdZV->model()->index(0, columna).data(Qt::AccessibleTextRole).toString();
    };
    EXPECT_EQ(palabra(0), u"Anular"_s);
    EXPECT_EQ(palabra(10), u"Enviar"_s);
}

TEST_F(frmZVMonitorVentanaTest, ColumnsAreAlignedByTheirKind) {
    PonerFilas(1);
    const auto alineacion = [this](int columna) {
        return D().grdZV->model()
                   ->index(0, columna)
                   .data(Qt::TextAlignmentRole)
                   .value<Qt::Alignment>() &
               Qt::AlignHorizontal_Mask;
    };
    for (const int columna : {0, 10}) {
        EXPECT_EQ(alineacion(columna), Qt::AlignHCenter) << columna;
    }
    for (const int columna : {2, 9}) {
        EXPECT_EQ(alineacion(columna), Qt::AlignRight) << columna;
    }
    for (const int columna : {3, 4, 5, 6, 7, 8}) {
        EXPECT_EQ(alineacion(columna), Qt::AlignLeft) << columna;
    }
}

TEST_F(frmZVMonitorVentanaTest, EveryCellOfAManualRowIsRed) {
    configuracio->COLTERMINAL = 1;
    pantalla->PrepararGrid();
    PonerFila(100);
    PonerFila(100, u"T1"_s, true);
    Mostrar();
    const QColor rojo(255, 0, 0);
    for (const int columna : {2, 3, 6, 9}) {
        EXPECT_EQ(Puntos(1, columna, rojo), 0) << columna;
        EXPECT_GT(Puntos(2, columna, rojo), 0) << columna;
    }
}

TEST_F(frmZVMonitorVentanaTest, PicturesTellChargesFromRefunds) {
    PonerFila(100);
    PonerFila(0);
    PonerFila(-100);
    Mostrar();
    for (const int fila : {1, 2}) {
        EXPECT_GT(Puntos(fila, 10, tema::kVerde), 100) << fila;
        EXPECT_EQ(Puntos(fila, 10, tema::kAmbar), 0) << fila;
    }
    EXPECT_GT(Puntos(3, 10, tema::kAmbar), 100);
    EXPECT_EQ(Puntos(3, 10, tema::kVerde), 0);
    for (const int fila : {1, 2, 3}) {
        EXPECT_GT(Puntos(fila, 0, tema::kFondoAnular), 100) << fila;
    }
}

TEST_F(frmZVMonitorVentanaTest, IsNeverAtDesignTime) {
    bool resultado = true;
    pantalla->ModoDiseño(resultado);
    EXPECT_FALSE(resultado);
}

} // namespace zv::test
