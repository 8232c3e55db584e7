// The window of a running operation, clicked and read.
#include "device/screens/frmOperacion.h"

#include "platform/FormatoRegional.h"
#include "platform/StringLiterals.h"
#include "support/ImprimeQt.h"
#include "ui/Importes.h"
#include "ui/Textos.h"
#include "ui/screens/Accesible.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace zv {
namespace {

class frmOperacionTest : public testing::Test {
  protected:
    void Abrir(OperationKind kind, qint32 importe) {
        ventana.Abrir(kind, importe, [this] { ++cancelaciones; }, {});
    }
    void AbrirConTerminar(OperationKind kind) {
        ventana.Abrir(
            kind, 0, [this] { ++cancelaciones; }, [this] { ++terminos; });
    }
    QString Texto(const char* nombre) const {
        const auto* etiqueta = ventana.findChild<QLabel*>(QString::fromLatin1(nombre));
        return etiqueta->isVisible() ? etiqueta->text() : u"(oculto)"_s;
    }
    QPushButton& Boton() const { return *ventana.findChild<QPushButton*>(u"btnCancelar"_s); }
    QPushButton& Terminar() const { return *ventana.findChild<QPushButton*>(u"btnTerminar"_s); }

    QTemporaryDir carpeta;
    Textos textos{carpeta.path()};
    Importes importes{FormatoRegional(u"es_ES"_s), [] { return quint8{100}; }};
    frmOperacion ventana{textos, importes};
    int cancelaciones = 0;
    int terminos = 0;
};

TEST_F(frmOperacionTest, ShowsWhatAChargeAsksForAndWhatIsStillMissing) {
    Abrir(OperationKind::Cobro, 1250);
    EXPECT_TRUE(ventana.isVisible());
    EXPECT_EQ(ventana.Titulo(), u"Cobro"_s);
    EXPECT_EQ(Texto("lbInstruccion"), u"Introduzca el dinero en Zorvex"_s);
    EXPECT_EQ(Texto("lbImportePedido"), u"12,50 €"_s);
    EXPECT_EQ(Texto("lbImporteEntrado"), u"0,00 €"_s);
    EXPECT_EQ(Texto("lbImporteFalta"), u"12,50 €"_s);
    ventana.Progreso(1000, 0);
    EXPECT_EQ(Texto("lbImporteEntrado"), u"10,00 €"_s);
    EXPECT_EQ(Texto("lbImporteFalta"), u"2,50 €"_s);
    ventana.Progreso(2000, 750);
    EXPECT_EQ(Texto("lbImporteSalido"), u"7,50 €"_s);
    EXPECT_EQ(Texto("lbImporteFalta"), u"0,00 €"_s);
}

TEST_F(frmOperacionTest, ReadsEachAmountAloudWithWhatItIs) {
    const auto nombre = [this](const char* control) {
        return test::NombreDe(*ventana.findChild<QLabel*>(QString::fromLatin1(control)));
    };
    Abrir(OperationKind::Cobro, 1250);
    EXPECT_EQ(test::NombreDe(ventana), u"Cobro"_s);
    EXPECT_EQ(nombre("lbImportePedido"), u"A cobrar 12,50 €"_s);
    ventana.Progreso(2000, 750);
    EXPECT_EQ(nombre("lbImporteEntrado"), u"Introducido 20,00 €"_s);
    EXPECT_EQ(nombre("lbImporteSalido"), u"Devuelto 7,50 €"_s);
    EXPECT_EQ(nombre("lbImporteFalta"), u"Pendiente 0,00 €"_s);
}

TEST_F(frmOperacionTest, HasTheTitleOfEveryWindow) {
    Abrir(OperationKind::Cobro, 1250);
    EXPECT_EQ(ventana.windowTitle(), u"Zorvex ®"_s);
}

TEST_F(frmOperacionTest, CountsWhatGoesOutOfAPayment) {
    Abrir(OperationKind::Pago, 1500);
    EXPECT_EQ(Texto("lbPedido"), u"A pagar"_s);
    EXPECT_EQ(Texto("lbImporteEntrado"), u"(oculto)"_s);
    ventana.Progreso(0, 500);
    EXPECT_EQ(Texto("lbImporteSalido"), u"5,00 €"_s);
    EXPECT_EQ(Texto("lbImporteFalta"), u"10,00 €"_s);
}

TEST_F(frmOperacionTest, ShowsTheLinesOfEachOperation) {
    struct Caso {
        OperationKind kind;
        bool pedido, entrado, salido, falta;
    };
    for (const Caso& caso : {Caso{OperationKind::Cobro, true, true, true, true},
                             Caso{OperationKind::Abono, true, false, true, true},
                             Caso{OperationKind::Cambio, false, true, true, false},
                             Caso{OperationKind::MeterCambio, false, true, false, false},
                             Caso{OperationKind::Pago, true, false, true, true},
                             Caso{OperationKind::ControlCajones, false, false, false, false},
                             Caso{OperationKind::VaciadoCajon, false, false, false, false},
                             Caso{OperationKind::Pendiente, false, true, true, false}}) {
        Abrir(caso.kind, 100);
        const auto visible = [this](const char* nombre) {
            return Texto(nombre) != QLatin1String("(oculto)");
        };
        EXPECT_EQ(visible("lbImportePedido"), caso.pedido) << static_cast<int>(caso.kind);
        EXPECT_EQ(visible("lbImporteEntrado"), caso.entrado) << static_cast<int>(caso.kind);
        EXPECT_EQ(visible("lbImporteSalido"), caso.salido) << static_cast<int>(caso.kind);
        EXPECT_EQ(visible("lbImporteFalta"), caso.falta) << static_cast<int>(caso.kind);
        EXPECT_FALSE(ventana.Titulo().isEmpty());
        EXPECT_FALSE(Texto("lbInstruccion").isEmpty());
        ventana.Cerrar();
        EXPECT_FALSE(ventana.isVisible());
    }
}

TEST_F(frmOperacionTest, SaysWhatToDoInEachOperation) {
    struct Caso {
        OperationKind kind;
        QString titulo, instruccion, pedido, entrado, salido, falta;
    };
    const QString oculto = u"(oculto)"_s;
    for (const Caso& caso :
         {Caso{OperationKind::Cobro, u"Cobro"_s, u"Introduzca el dinero en Zorvex"_s, u"A cobrar"_s,
               u"Introducido"_s, u"Devuelto"_s, u"Pendiente"_s},
          Caso{OperationKind::Abono, u"Abono"_s, u"Retire el dinero de Zorvex"_s, u"A devolver"_s,
               oculto, u"Devuelto"_s, u"Pendiente"_s},
          Caso{OperationKind::Pago, u"Pago"_s, u"Retire el dinero de Zorvex"_s, u"A pagar"_s,
               oculto, u"Entregado"_s, u"Pendiente"_s},
          Caso{OperationKind::Cambio, u"Dar cambio"_s, u"Introduzca el dinero que quiere cambiar"_s,
               oculto, u"Introducido"_s, u"Devuelto"_s, oculto},
          Caso{OperationKind::MeterCambio, u"Añadir cambio"_s, u"Introduzca el cambio en Zorvex"_s,
               oculto, u"Introducido"_s, oculto, oculto},
          Caso{OperationKind::ControlCajones, u"Cierre de caja"_s,
               u"Zorvex está pasando dinero a los cajones"_s, oculto, oculto, oculto, oculto},
          Caso{OperationKind::VaciadoCajon, u"Vaciado de cajón"_s, u"Vacíe el cajón de Zorvex"_s,
               oculto, oculto, oculto, oculto},
          Caso{OperationKind::Pendiente, u"Operación pendiente"_s,
               u"Se está cancelando una operación anterior que seguía abierta en Zorvex"_s, oculto,
               u"Introducido"_s, u"Devuelto"_s, oculto}}) {
        SCOPED_TRACE(static_cast<int>(caso.kind));
        Abrir(caso.kind, 100);
        EXPECT_EQ(ventana.Titulo(), caso.titulo);
        EXPECT_EQ(Texto("lbInstruccion"), caso.instruccion);
        EXPECT_EQ(Texto("lbPedido"), caso.pedido);
        EXPECT_EQ(Texto("lbEntrado"), caso.entrado);
        EXPECT_EQ(Texto("lbSalido"), caso.salido);
        EXPECT_EQ(Texto("lbFalta"), caso.falta);
        ventana.Cerrar();
    }
}

TEST_F(frmOperacionTest, CancelsOnceAndStays) {
    Abrir(OperationKind::Cobro, 1250);
    EXPECT_EQ(Boton().text(), u"Cancelar"_s);
    QTest::mouseClick(&Boton(), Qt::LeftButton);
    EXPECT_EQ(cancelaciones, 1);
    EXPECT_FALSE(Boton().isEnabled());
    EXPECT_EQ(Boton().text(), u"Cancelando…"_s);
    EXPECT_TRUE(ventana.isVisible());
    QTest::mouseClick(&Boton(), Qt::LeftButton);
    QTest::keyClick(&ventana, Qt::Key_Escape);
    EXPECT_EQ(cancelaciones, 1);
    // The next operation begins anew.
    ventana.Cerrar();
    Abrir(OperationKind::Cobro, 500);
    EXPECT_TRUE(Boton().isEnabled());
    EXPECT_EQ(Boton().text(), u"Cancelar"_s);
    EXPECT_EQ(Texto("lbImporteEntrado"), u"0,00 €"_s);
    QTest::keyClick(&ventana, Qt::Key_Escape);
    EXPECT_EQ(cancelaciones, 2);
    EXPECT_TRUE(ventana.isVisible());
}

TEST_F(frmOperacionTest, IsNotCancelledByABarcodeScanner) {
    Abrir(OperationKind::Cobro, 1250);
    QTest::keyClicks(&ventana, u"8412345678905 \t"_s);
    QTest::keyClick(&ventana, Qt::Key_Return);
    QTest::keyClick(&ventana, Qt::Key_Enter);
    QTest::keyClick(&ventana, Qt::Key_Space);
    EXPECT_EQ(cancelaciones, 0);
    EXPECT_FALSE(Boton().hasFocus());
    EXPECT_TRUE(ventana.isVisible());
}

TEST_F(frmOperacionTest, EndsAChangeOnceAndSaysWhatComesNext) {
    AbrirConTerminar(OperationKind::Cambio);
    EXPECT_EQ(Texto("lbInstruccion"), u"Introduzca el dinero que quiere cambiar"_s);
    EXPECT_EQ(Texto("lbTerminar"), u"Pulse Terminar cuando acabe"_s);
    EXPECT_EQ(Terminar().text(), u"Terminar"_s);
    EXPECT_EQ(Boton().text(), u"Cancelar"_s);
    ventana.Progreso(2000, 0);
    QTest::mouseClick(&Terminar(), Qt::LeftButton);
    EXPECT_EQ(terminos, 1);
    EXPECT_FALSE(Terminar().isEnabled());
    EXPECT_EQ(Terminar().text(), u"Terminando…"_s);
    EXPECT_EQ(Texto("lbInstruccion"), u"Recoja el cambio"_s);
    EXPECT_EQ(Texto("lbTerminar"), QString());
    // What is on its way out is not called back.
    EXPECT_FALSE(Boton().isEnabled());
    QTest::mouseClick(&Terminar(), Qt::LeftButton);
    QTest::keyClick(&ventana, Qt::Key_Escape);
    EXPECT_EQ(terminos, 1);
    EXPECT_EQ(cancelaciones, 0);
    // The next operation begins anew.
    ventana.Cerrar();
    AbrirConTerminar(OperationKind::MeterCambio);
    EXPECT_TRUE(Terminar().isEnabled());
    EXPECT_TRUE(Boton().isEnabled());
    EXPECT_EQ(Terminar().text(), u"Terminar"_s);
    EXPECT_EQ(Texto("lbInstruccion"), u"Introduzca el cambio en Zorvex"_s);
    EXPECT_EQ(Texto("lbTerminar"), u"Pulse Terminar cuando acabe"_s);
    QTest::mouseClick(&Terminar(), Qt::LeftButton);
    EXPECT_EQ(terminos, 2);
    EXPECT_EQ(Texto("lbInstruccion"), u"Espere a que Zorvex termine"_s);
}

TEST_F(frmOperacionTest, PromisesNoChangeForNothing) {
    AbrirConTerminar(OperationKind::Cambio);
    Terminar().click();
    EXPECT_EQ(Texto("lbInstruccion"), u"Espere a que Zorvex termine"_s);
}

TEST_F(frmOperacionTest, HasTheKeyThatEndsOnlyWhereItIsGiven) {
    Abrir(OperationKind::Pago, 500);
    EXPECT_FALSE(Terminar().isVisible());
    EXPECT_EQ(Texto("lbTerminar"), u"(oculto)"_s);
    AbrirConTerminar(OperationKind::Cambio);
    EXPECT_TRUE(Terminar().isVisible());
    Abrir(OperationKind::Cobro, 500);
    EXPECT_FALSE(Terminar().isVisible());
    EXPECT_EQ(Texto("lbTerminar"), u"(oculto)"_s);
}

TEST_F(frmOperacionTest, SaysSoWhenOnlyTheDeviceItselfCanEndIt) {
    AbrirConTerminar(OperationKind::Cambio);
    ventana.Progreso(2000, 0);
    Terminar().click();
    ventana.SinTerminar();
    EXPECT_FALSE(Terminar().isVisible());
    EXPECT_EQ(Texto("lbInstruccion"), u"Introduzca el dinero que quiere cambiar"_s);
    EXPECT_EQ(Texto("lbTerminar"), u"Termine en el propio Zorvex cuando acabe"_s);
    EXPECT_TRUE(Boton().isEnabled());
    QTest::keyClick(&ventana, Qt::Key_Escape);
    EXPECT_EQ(cancelaciones, 1);
    // A refusal that comes after the cancel gives nothing back.
    ventana.SinTerminar();
    EXPECT_FALSE(Boton().isEnabled());
    EXPECT_EQ(Boton().text(), u"Cancelando…"_s);
    ventana.Cerrar();
    AbrirConTerminar(OperationKind::Cambio);
    EXPECT_TRUE(Terminar().isVisible());
}

TEST_F(frmOperacionTest, SaysWhatACancelDoesWithTheMoney) {
    AbrirConTerminar(OperationKind::MeterCambio);
    QTest::keyClick(&ventana, Qt::Key_Escape);
    EXPECT_EQ(Texto("lbInstruccion"), u"Introduzca el cambio en Zorvex"_s); // nothing is inside
    EXPECT_EQ(Texto("lbTerminar"), QString());
    EXPECT_FALSE(Terminar().isEnabled());
    EXPECT_EQ(terminos, 0);
    ventana.Cerrar();
    AbrirConTerminar(OperationKind::MeterCambio);
    ventana.Progreso(500, 0);
    Boton().click();
    EXPECT_EQ(Texto("lbInstruccion"), u"Zorvex está devolviendo el dinero"_s);
}

TEST_F(frmOperacionTest, KeepsANoteOverWhatThePressedKeySays) {
    AbrirConTerminar(OperationKind::Cambio);
    ventana.Progreso(2000, 0);
    ventana.Aviso(u"Recuperando"_s);
    Terminar().click();
    EXPECT_EQ(Texto("lbInstruccion"), u"Recuperando"_s);
    ventana.Aviso({});
    EXPECT_EQ(Texto("lbInstruccion"), u"Recoja el cambio"_s);
    // A note of an operation before goes with it.
    ventana.Aviso(u"Recuperando"_s);
    ventana.Cerrar();
    AbrirConTerminar(OperationKind::Cambio);
    EXPECT_EQ(Texto("lbInstruccion"), u"Introduzca el dinero que quiere cambiar"_s);
}

TEST_F(frmOperacionTest, DoesNotMoveItsAmountsWhenAKeyIsPressed) {
    AbrirConTerminar(OperationKind::Cambio);
    QTest::qWait(0);
    const auto* entrado = ventana.findChild<QLabel*>(u"lbImporteEntrado"_s);
    const QPoint antes = entrado->pos();
    ventana.Progreso(2000, 0);
    Terminar().click();
    ventana.layout()->activate();
    EXPECT_EQ(entrado->pos(), antes);
    ventana.SinTerminar();
    ventana.layout()->activate();
    EXPECT_EQ(entrado->pos(), antes);
}

TEST_F(frmOperacionTest, IsNeitherEndedNorCancelledByABarcodeScannerDuringAChange) {
    AbrirConTerminar(OperationKind::Cambio);
    // To whatever has the keyboard.
    for (const auto tecla :
         {Qt::Key_8, Qt::Key_Tab, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Enter, Qt::Key_Space}) {
        QTest::keyClick(ventana.windowHandle(), tecla);
    }
    EXPECT_EQ(terminos, 0);
    EXPECT_EQ(cancelaciones, 0);
    EXPECT_FALSE(Terminar().hasFocus());
    EXPECT_FALSE(Terminar().isDefault());
}

TEST_F(frmOperacionTest, HasNothingToPressWhenItCannotBeCancelled) {
    ventana.Abrir(OperationKind::Pendiente, 0, {}, {});
    EXPECT_FALSE(Boton().isVisible());
    EXPECT_FALSE(Terminar().isVisible());
    QTest::keyClick(&ventana, Qt::Key_Escape);
    EXPECT_TRUE(ventana.isVisible());
}

TEST_F(frmOperacionTest, ShowsANoteAndTakesItAway) {
    Abrir(OperationKind::Cobro, 1250);
    const int alto = ventana.height();
    ventana.Aviso(u"Recuperando la comunicación con Zorvex…"_s);
    EXPECT_EQ(Texto("lbInstruccion"), u"Recuperando la comunicación con Zorvex…"_s);
    EXPECT_EQ(ventana.height(), alto);
    ventana.Aviso({});
    EXPECT_EQ(Texto("lbInstruccion"), u"Introduzca el dinero en Zorvex"_s);
}

TEST_F(frmOperacionTest, BlocksTheRestOfTheProgramWhileItStands) {
    EXPECT_EQ(ventana.windowModality(), Qt::ApplicationModal);
    EXPECT_TRUE(ventana.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    Abrir(OperationKind::Cobro, 1250);
    EXPECT_EQ(QApplication::activeModalWidget(), &ventana);
    ventana.Cerrar();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(frmOperacionTest, DoesNotHoldUpTheEndOfTheProgram) {
    Abrir(OperationKind::Cobro, 1250);
    EXPECT_TRUE(ventana.close());
    EXPECT_EQ(cancelaciones, 0);
}

TEST_F(frmOperacionTest, TakesItsTextsFromTheLanguageFile) {
    QFile idioma(carpeta.filePath(u"RWLang.ini"_s));
    ASSERT_TRUE(idioma.open(QIODevice::WriteOnly));
    idioma.write("[frmOperacion]\r\nTituloCobro=Charge\r\nCobro=Insert the money\r\n"
                 "lbACobrar=To pay\r\nlbFalta=Missing\r\nbtnCancelar=Cancel\r\n"
                 "Cancelando=Cancelling\r\n");
    idioma.close();
    Abrir(OperationKind::Cobro, 1250);
    EXPECT_EQ(ventana.Titulo(), u"Charge"_s);
    EXPECT_EQ(Texto("lbInstruccion"), u"Insert the money"_s);
    EXPECT_EQ(Texto("lbPedido"), u"To pay"_s);
    EXPECT_EQ(Texto("lbFalta"), u"Missing"_s);
    EXPECT_EQ(Boton().text(), u"Cancel"_s);
    Boton().click();
    EXPECT_EQ(Boton().text(), u"Cancelling"_s);
}

TEST_F(frmOperacionTest, IsBigEnoughForAFinger) {
    Abrir(OperationKind::Cobro, 2147483647);
    EXPECT_GE(Boton().height(), 64);
    AbrirConTerminar(OperationKind::Cambio);
    EXPECT_GE(Terminar().height(), 64);
    EXPECT_GE(Terminar().x() - Boton().geometry().right(), 16);
    Abrir(OperationKind::Cobro, 2147483647);
    EXPECT_LE(ventana.width(), 1024);
    EXPECT_LE(ventana.height(), 768);
    for (const auto* etiqueta : ventana.findChildren<QLabel*>()) {
        EXPECT_GE(etiqueta->width(), etiqueta->minimumSizeHint().width())
            << etiqueta->text().toStdString();
    }
}

} // namespace
} // namespace zv
