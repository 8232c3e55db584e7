// The frame of the full screens: place, scale, ways out.
#include "ui/screens/PantallaCompleta.h"

#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"
#include "ui/Clave.h"
#include "ui/screens/Accesible.h"
#include "ui/screens/Paginador.h"
#include "ui/screens/SelectorTres.h"
#include "ui/screens/Tarjeta.h"
#include "ui/screens/Tema.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace zv::test {
namespace {

constexpr Clave kClaves[] = {{u"frmPrueba", u"boton_0", u"Salir"},
                             {u"frmPrueba", u"boton_1", u"Guardar"},
                             {u"frmPrueba", u"lbTarjeta", u"Tarjeta"}};
constexpr EntradaPie kTabla[] = {{0, &kClaves[0], u"go-previous", false, EntradaPie::Clase::Salir},
                                 {1, &kClaves[1], u"document-save"}};

class Pantalla final : public PantallaCompleta {
  public:
    explicit Pantalla(QWidget* padre = nullptr) : PantallaCompleta(u"frmPrueba"_s, kTabla, padre) {
        PonerTitulo(u"Cierre de Caja"_s);
        tarjeta = new Tarjeta(kClaves[2], this);
        campo = new QLineEdit(tarjeta);
        tarjeta->Cuerpo()->addWidget(campo);
        accion = new QPushButton(u"Test"_s, tarjeta);
        tema::PonerPapel(*accion, tema::Papel::Normal);
        tarjeta->Cuerpo()->addWidget(accion);
        Cuerpo()->addWidget(tarjeta);
        paginador = PonerPaginador();
    }
    using FramelessWindow::btnW;
    using FramelessWindow::Escala;
    using FramelessWindow::frameCab;
    using FramelessWindow::lbTitulo;
    using PantallaCompleta::boton;
    using PantallaCompleta::Pie;

    QList<int> pulsados;
    bool puede = true;
    bool escape = true;
    int preguntas = 0;
    Tarjeta* tarjeta;
    QLineEdit* campo;
    QPushButton* accion;
    Paginador* paginador;

  protected:
    void Pulsado(int indice) override { pulsados << indice; }
    bool PuedeSalir() override {
        ++preguntas;
        return puede;
    }
    bool EscapeSale() const override { return escape; }
};

class PantallaCompletaTest : public testing::Test {
  protected:
    PantallaCompletaTest() { tema::Aplicar(*qApp); }
    static void Mostrar(QWidget& ventana) {
        ventana.show();
        QApplication::processEvents();
    }
    static void Medir(Pantalla& pantalla, int ancho, int alto) {
        pantalla.resize(ancho, alto);
        QApplication::processEvents();
    }
};

TEST_F(PantallaCompletaTest, ComesUpOverTheWholeTillAndNeverSmaller) {
    QWidget caja;
    caja.setGeometry(0, 0, 1024, 768);
    Mostrar(caja);
    Pantalla pantalla(&caja);
    Mostrar(pantalla);
    EXPECT_TRUE(pantalla.geometry().contains(caja.geometry()));
    EXPECT_TRUE(pantalla.geometry().contains(pantalla.screen()->availableGeometry()));
}

TEST_F(PantallaCompletaTest, WithoutATillOrOverAHiddenOneItTakesTheScreen) {
    QWidget escondida;
    escondida.setGeometry(0, 0, 5000, 5000);
    for (QWidget* padre : {static_cast<QWidget*>(nullptr), &escondida}) {
        Pantalla pantalla(padre);
        Mostrar(pantalla);
        EXPECT_EQ(pantalla.geometry(), pantalla.screen()->availableGeometry());
    }
}

TEST_F(PantallaCompletaTest, BlocksTheProgramWithoutAFrameOfTheDesktop) {
    Pantalla pantalla;
    Mostrar(pantalla);
    EXPECT_EQ(pantalla.windowModality(), Qt::ApplicationModal);
    EXPECT_TRUE(pantalla.windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(NombreDe(pantalla), u"Cierre de Caja"_s);
    EXPECT_EQ(PapelDe(pantalla), QAccessible::Dialog);
}

TEST_F(PantallaCompletaTest, HeaderBodyPagerAndFooterStandWhereTheyAreOnTheMainScreen) {
    Pantalla pantalla;
    pantalla.setGeometry(0, 0, 1024, 768);
    Mostrar(pantalla);
    EXPECT_EQ(pantalla.frameCab()->height(), tema::kAltoCabecera);
    EXPECT_EQ(pantalla.frameCab()->y(), 0);
    EXPECT_TRUE(pantalla.findChild<QToolButton*>(u"btnLogo"_s)->isVisible());
    EXPECT_EQ(pantalla.Pie().geometry().bottom(), pantalla.height() - 2);
    EXPECT_EQ(pantalla.Pie().width(), pantalla.width() - 2);
    EXPECT_EQ(pantalla.paginador->geometry().right(), pantalla.width() - 2);
    EXPECT_EQ(pantalla.paginador->y(), tema::kAltoCabecera);
    EXPECT_EQ(pantalla.paginador->geometry().bottom() + 1, pantalla.Pie().y());
    EXPECT_LT(pantalla.tarjeta->geometry().right(), pantalla.paginador->x());
}

TEST_F(PantallaCompletaTest, FooterButtonsTellTheirNumbersAndTheLeavingOneLeaves) {
    Pantalla pantalla;
    Mostrar(pantalla);
    QTest::mouseClick(pantalla.boton(1), Qt::LeftButton);
    EXPECT_EQ(pantalla.pulsados, QList<int>{1});
    EXPECT_TRUE(pantalla.isVisible());
    QTest::mouseClick(pantalla.boton(0), Qt::LeftButton);
    EXPECT_EQ(pantalla.pulsados, QList<int>{1});
    EXPECT_FALSE(pantalla.isVisible());
}

TEST_F(PantallaCompletaTest, EveryWayOutAsksTheScreenFirst) {
    Pantalla pantalla;
    pantalla.puede = false;
    Mostrar(pantalla);
    QTest::mouseClick(pantalla.boton(0), Qt::LeftButton);
    QTest::mouseClick(pantalla.btnW(1), Qt::LeftButton);
    QTest::keyClick(&pantalla, Qt::Key_Escape);
    EXPECT_FALSE(pantalla.close());
    EXPECT_TRUE(pantalla.isVisible());
    EXPECT_EQ(pantalla.preguntas, 4);
    pantalla.puede = true;
    QTest::mouseClick(pantalla.btnW(1), Qt::LeftButton);
    EXPECT_FALSE(pantalla.isVisible());
}

TEST_F(PantallaCompletaTest, EscapeLeavesOnlyWhereTheScreenSaysThatNothingIsLost) {
    Pantalla pantalla;
    pantalla.escape = false;
    Mostrar(pantalla);
    pantalla.campo->setFocus();
    QTest::keyClick(pantalla.campo, Qt::Key_Escape);
    EXPECT_TRUE(pantalla.isVisible());
    EXPECT_EQ(pantalla.preguntas, 0);
    pantalla.escape = true;
    QTest::keyClick(pantalla.campo, Qt::Key_Escape);
    EXPECT_FALSE(pantalla.isVisible());
}

// The Enter at the end of a scanned code must not press what happens to be a button.
TEST_F(PantallaCompletaTest, EnterInAFieldPressesNothing) {
    Pantalla pantalla;
    int pruebas = 0;
    QObject::connect(pantalla.accion, &QPushButton::clicked, [&] { ++pruebas; });
    Mostrar(pantalla);
    for (const Qt::Key tecla : {Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(pantalla.campo, tecla);
    }
    EXPECT_EQ(pruebas, 0);
    EXPECT_EQ(pantalla.pulsados, QList<int>());
    EXPECT_TRUE(pantalla.isVisible());
}

TEST_F(PantallaCompletaTest, NoButtonHasTheFocusOrIsFilledWhenItComesUp) {
    Pantalla pantalla;
    Mostrar(pantalla);
    QApplication::setActiveWindow(&pantalla);
    QApplication::processEvents();
    EXPECT_EQ(qobject_cast<QAbstractButton*>(pantalla.focusWidget()), nullptr);
    EXPECT_FALSE(pantalla.accion->isDefault());
    EXPECT_FALSE(pantalla.accion->autoDefault());
    Pantalla otra;
    otra.campo->setFocus();
    Mostrar(otra);
    EXPECT_EQ(otra.focusWidget(), otra.campo) << "what a screen has chosen stays";
}

TEST_F(PantallaCompletaTest, TheHeaderDragsTheWindow) {
    Pantalla pantalla;
    pantalla.setGeometry(0, 0, 1024, 768);
    Mostrar(pantalla);
    QTest::mousePress(pantalla.lbTitulo(), Qt::LeftButton, {}, QPoint(5, 5));
    QMouseEvent mover(QEvent::MouseMove, QPointF(45, 35),
                      pantalla.lbTitulo()->mapToGlobal(QPointF(45, 35)), Qt::NoButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(pantalla.lbTitulo(), &mover);
    EXPECT_EQ(pantalla.pos(), QPoint(40, 30));
}

TEST_F(PantallaCompletaTest, EverythingGrowsWithTheWindow) {
    Pantalla pantalla;
    pantalla.setGeometry(0, 0, 1024, 768);
    Mostrar(pantalla);
    const int cabecera = pantalla.frameCab()->height();
    const int pie = pantalla.Pie().height();
    const int campo = pantalla.campo->height();
    const int letraCampo = pantalla.campo->fontInfo().pixelSize();
    const int titulo = pantalla.lbTitulo()->fontInfo().pixelSize();
    const int cerrar = pantalla.btnW(1)->height();
    const int paginador = pantalla.paginador->width();
    Medir(pantalla, 1920, 1080);
    const double escala = 1080 / 768.0;
    EXPECT_DOUBLE_EQ(pantalla.Escala(), escala);
    EXPECT_EQ(pantalla.frameCab()->height(), qRound(cabecera * escala));
    EXPECT_EQ(pantalla.Pie().height(), qRound(pie * escala));
    EXPECT_NEAR(pantalla.campo->height(), campo * escala, 4);
    EXPECT_EQ(pantalla.campo->fontInfo().pixelSize(), qRound(letraCampo * escala));
    EXPECT_EQ(pantalla.lbTitulo()->fontInfo().pixelSize(), qRound(titulo * escala));
    EXPECT_EQ(pantalla.btnW(1)->minimumHeight(), qRound(cerrar * escala));
    EXPECT_EQ(pantalla.paginador->width(), qRound(paginador * escala));
    EXPECT_EQ(pantalla.accion->minimumHeight(), qRound(tema::kToqueMinimo * escala));
    Medir(pantalla, 1024, 768);
    EXPECT_EQ(pantalla.frameCab()->height(), cabecera);
    EXPECT_EQ(pantalla.campo->height(), campo);
    EXPECT_EQ(pantalla.accion->minimumHeight(), tema::kToqueMinimo);
}

// 9 mm on a full-HD screen of 15.6 inches: 141 pixels an inch.
TEST_F(PantallaCompletaTest, NothingToTouchFallsBelowAFingerOnAFullHdTill) {
    Pantalla pantalla;
    pantalla.setGeometry(0, 0, 1920, 1080);
    Mostrar(pantalla);
    constexpr int kNueveMilimetros = 50;
    for (QAbstractButton* boton : pantalla.findChildren<QAbstractButton*>()) {
        if (boton->isVisible()) {
            EXPECT_GE(boton->width(), kNueveMilimetros) << boton->objectName().toStdString();
            EXPECT_GE(boton->height(), kNueveMilimetros) << boton->objectName().toStdString();
        }
    }
    EXPECT_GE(pantalla.campo->height(), kNueveMilimetros);
}

TEST_F(PantallaCompletaTest, EveryControlOfItsFrameHasAName) {
    Pantalla pantalla;
    Mostrar(pantalla);
    for (QAbstractButton* boton : pantalla.findChildren<QAbstractButton*>()) {
        EXPECT_FALSE(NombreDe(*boton).isEmpty()) << boton->objectName().toStdString();
    }
}

} // namespace
} // namespace zv::test
