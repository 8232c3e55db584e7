// The barcode box of the real window: what Enter hands over, and who has the keys while the pulse
// beats.
#include "BancoPantalla.h"
#include "platform/StringLiterals.h"
#include "support/AlAbrir.h"
#include "ui/screens/DialogosPantalla.h"

namespace zv::test {

class CodigoBarrasTest : public BancoPantalla {
  protected:
    CodigoBarrasTest() {
        Montar([this](const QString& codigo, const auto& vaciar) {
            codigos << codigo;
            vaciar_ = vaciar;
        });
    }

    // The window anew, with that handler of Enter.
    void Montar(decltype(AccionesVentana::codigoLeido) alLeer) {
        pantalla.reset();
        pantalla = std::make_unique<frmZVMonitor>(graph.Partes(),
                                                  AccionesVentana{[] {}, [] {}, std::move(alLeer)});
        pulso.PonerVentana(pantalla.get());
        pantalla->show();
        pantalla->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(pantalla.get()));
        D().TextIni->setFocus();
    }
    // Keys as they come from the desktop: to the window that has them.
    static void Teclear(const QString& texto) {
        for (const QChar c : texto) {
            QTest::keyClick(QGuiApplication::focusWindow(), c.toLatin1());
        }
    }
    static void Tecla(Qt::Key tecla) { QTest::keyClick(QGuiApplication::focusWindow(), tecla); }
    // Lets the pulse beat at least once; the form's own focus shows it.
    bool Late() {
        pantalla->setFocusPolicy(Qt::StrongFocus);
        pantalla->setFocus();
        EXPECT_NE(pantalla->focusWidget(), D().TextIni);
        return QTest::qWaitFor([&] { return pantalla->focusWidget() == D().TextIni; }, 5000);
    }

    QStringList codigos;
    std::function<void()> vaciar_;
};

TEST_F(CodigoBarrasTest, EnterHandsOverTheBoxWhichIsEmptiedOnlyWhenAsked) {
    Teclear(u"2012345012508"_s);
    EXPECT_EQ(codigos, QStringList());
    Tecla(Qt::Key_Return);
    EXPECT_EQ(codigos, QStringList{u"2012345012508"_s});
    EXPECT_EQ(D().TextIni->text(), u"2012345012508"_s);
    Teclear(u"9"_s); // during the wait: into the box, and emptied with it
    vaciar_();
    EXPECT_EQ(D().TextIni->text(), QString());
    Teclear(u"77"_s);
    Tecla(Qt::Key_Enter); // of the keypad
    EXPECT_EQ(codigos.mid(1), QStringList{u"77"_s});
}

TEST_F(CodigoBarrasTest, AnEmptyBoxIsHandedOverTooAndLeavingItIsNoEnter) {
    Tecla(Qt::Key_Return);
    EXPECT_EQ(codigos, QStringList{QString()});
    Teclear(u"5"_s);
    D().TextIni->clearFocus();
    EXPECT_EQ(codigos.size(), 1);
    EXPECT_EQ(D().TextIni->text(), u"5"_s);
}

TEST_F(CodigoBarrasTest, WithoutAHandlerEnterDoesNothing) {
    Montar({});
    Teclear(u"5"_s);
    Tecla(Qt::Key_Return);
    EXPECT_EQ(D().TextIni->text(), u"5"_s);
}

TEST_F(CodigoBarrasTest, TheBoxHearsTheScannerAlsoWhileThePulseIsStopped) {
    pulso.ParaTimer();
    Vuelta();
    Teclear(u"123"_s);
    Tecla(Qt::Key_Return);
    EXPECT_EQ(codigos, QStringList{u"123"_s});
}

TEST_F(CodigoBarrasTest, AStoppedPulseLeavesTheFocusWhereItIs) {
    pulso.ArrancaTimer();
    Vuelta();
    auto* timerCola = pantalla->findChild<QTimer*>(u"timerCola"_s);
    const auto tic = [timerCola] {
        QTimerEvent evento(timerCola->timerId());
        QCoreApplication::sendEvent(timerCola, &evento);
    };
    pantalla->setFocusPolicy(Qt::StrongFocus);
    pantalla->setFocus();
    // Stopped by an operation before the event loop could stop the real timer.
    pulso.ParaTimer();
    tic();
    EXPECT_EQ(pantalla->focusWidget(), pantalla.get());
    pulso.ArrancaTimer();
    tic();
    EXPECT_EQ(pantalla->focusWidget(), D().TextIni);
}

TEST_F(CodigoBarrasTest, ADialogKeepsTheKeysWhileThePulseBeats) {
    DialogosPantalla reales(u"ZVMonitor"_s, textos, importes, [this] { return pantalla.get(); });
    pulso.ArrancaTimer();
    const AlAbrir abierto([this](QDialog& dialogo) {
        auto* texto = dialogo.findChild<QLineEdit*>(u"tbTexto"_s);
        ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::focusWidget() == texto; }));
        ASSERT_TRUE(Late());
        ASSERT_TRUE(Late());
        // The queue is looked at meanwhile.
        PonerFila(100);
        EXPECT_TRUE(QTest::qWaitFor([&] { return grid.FilasDatos() == 1; }));
        EXPECT_EQ(QApplication::activeWindow(), &dialogo);
        EXPECT_EQ(QApplication::focusWidget(), texto);
        Teclear(u"Pan"_s);
        EXPECT_EQ(texto->text(), u"Pan"_s);
        EXPECT_EQ(D().TextIni->text(), QString());
        Tecla(Qt::Key_Return);
    });
    EXPECT_EQ(reales.PedirTexto(u"Pago"_s, u"Concepto"_s), u"Pan"_s);
    EXPECT_EQ(codigos, QStringList());
    // And the scanner is heard again once the desktop gives the window its keys back.
    pantalla->activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == pantalla.get(); }));
    ASSERT_TRUE(Late());
    Teclear(u"1"_s);
    EXPECT_EQ(D().TextIni->text(), u"1"_s);
}

} // namespace zv::test
