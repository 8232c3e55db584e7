// The window of a running operation, clicked and read.
#include "device/screens/frmOperacion.h"

#include "platform/FormatoRegional.h"
#include "support/ImprimeQt.h"
#include "ui/Importes.h"
#include "ui/Textos.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace zv {
namespace {

class frmOperacionTest : public testing::Test {
  protected:
    void Abrir(ClaseOperacion clase, qint32 importe) {
        ventana.Abrir(clase, importe, [this] { ++cancelaciones; });
    }
    QString Texto(const char* nombre) const {
        const auto* etiqueta = ventana.findChild<QLabel*>(QString::fromLatin1(nombre));
        return etiqueta->isVisible() ? etiqueta->text() : QStringLiteral("(oculto)");
    }
    QPushButton& Boton() const {
        return *ventana.findChild<QPushButton*>(QStringLiteral("btnCancelar"));
    }

    QTemporaryDir carpeta;
    Textos textos{carpeta.path()};
    Importes importes{FormatoRegional(QStringLiteral("es_ES")), [] { return quint8{100}; }};
    frmOperacion ventana{textos, importes};
    int cancelaciones = 0;
};

TEST_F(frmOperacionTest, ShowsWhatAChargeAsksForAndWhatIsStillMissing) {
    Abrir(ClaseOperacion::Cobro, 1250);
    EXPECT_TRUE(ventana.isVisible());
    EXPECT_EQ(ventana.Titulo(), QStringLiteral("Cobro"));
    EXPECT_EQ(Texto("lbInstruccion"), QStringLiteral("Introduzca el dinero en Zorvex"));
    EXPECT_EQ(Texto("lbImportePedido"), QStringLiteral("12,50 €"));
    EXPECT_EQ(Texto("lbImporteEntrado"), QStringLiteral("0,00 €"));
    EXPECT_EQ(Texto("lbImporteFalta"), QStringLiteral("12,50 €"));
    ventana.Progreso(1000, 0);
    EXPECT_EQ(Texto("lbImporteEntrado"), QStringLiteral("10,00 €"));
    EXPECT_EQ(Texto("lbImporteFalta"), QStringLiteral("2,50 €"));
    ventana.Progreso(2000, 750);
    EXPECT_EQ(Texto("lbImporteSalido"), QStringLiteral("7,50 €"));
    EXPECT_EQ(Texto("lbImporteFalta"), QStringLiteral("0,00 €"));
}

TEST_F(frmOperacionTest, HasTheTitleOfEveryWindow) {
    Abrir(ClaseOperacion::Cobro, 1250);
    EXPECT_EQ(ventana.windowTitle(), QStringLiteral("Zorvex ®"));
}

TEST_F(frmOperacionTest, CountsWhatGoesOutOfAPayment) {
    Abrir(ClaseOperacion::Pago, 1500);
    EXPECT_EQ(Texto("lbPedido"), QStringLiteral("A pagar"));
    EXPECT_EQ(Texto("lbImporteEntrado"), QStringLiteral("(oculto)"));
    ventana.Progreso(0, 500);
    EXPECT_EQ(Texto("lbImporteSalido"), QStringLiteral("5,00 €"));
    EXPECT_EQ(Texto("lbImporteFalta"), QStringLiteral("10,00 €"));
}

TEST_F(frmOperacionTest, ShowsTheLinesOfEachOperation) {
    struct Caso {
        ClaseOperacion clase;
        bool pedido, entrado, salido, falta;
    };
    for (const Caso& caso : {Caso{ClaseOperacion::Cobro, true, true, true, true},
                             Caso{ClaseOperacion::Abono, true, false, true, true},
                             Caso{ClaseOperacion::Cambio, false, true, true, false},
                             Caso{ClaseOperacion::MeterCambio, false, true, false, false},
                             Caso{ClaseOperacion::Pago, true, false, true, true},
                             Caso{ClaseOperacion::ControlCajones, false, false, false, false},
                             Caso{ClaseOperacion::VaciadoCajon, false, false, false, false},
                             Caso{ClaseOperacion::Pendiente, false, true, true, false}}) {
        Abrir(caso.clase, 100);
        const auto visible = [this](const char* nombre) {
            return Texto(nombre) != QLatin1String("(oculto)");
        };
        EXPECT_EQ(visible("lbImportePedido"), caso.pedido) << static_cast<int>(caso.clase);
        EXPECT_EQ(visible("lbImporteEntrado"), caso.entrado) << static_cast<int>(caso.clase);
        EXPECT_EQ(visible("lbImporteSalido"), caso.salido) << static_cast<int>(caso.clase);
        EXPECT_EQ(visible("lbImporteFalta"), caso.falta) << static_cast<int>(caso.clase);
        EXPECT_FALSE(ventana.Titulo().isEmpty());
        EXPECT_FALSE(Texto("lbInstruccion").isEmpty());
        ventana.Cerrar();
        EXPECT_FALSE(ventana.isVisible());
    }
}

TEST_F(frmOperacionTest, CancelsOnceAndStays) {
    Abrir(ClaseOperacion::Cobro, 1250);
    EXPECT_EQ(Boton().text(), QStringLiteral("Cancelar"));
    QTest::mouseClick(&Boton(), Qt::LeftButton);
    EXPECT_EQ(cancelaciones, 1);
    EXPECT_FALSE(Boton().isEnabled());
    EXPECT_EQ(Boton().text(), QStringLiteral("Cancelando…"));
    EXPECT_TRUE(ventana.isVisible());
    QTest::mouseClick(&Boton(), Qt::LeftButton);
    QTest::keyClick(&ventana, Qt::Key_Escape);
    EXPECT_EQ(cancelaciones, 1);
    // The next operation begins anew.
    ventana.Cerrar();
    Abrir(ClaseOperacion::Cobro, 500);
    EXPECT_TRUE(Boton().isEnabled());
    EXPECT_EQ(Boton().text(), QStringLiteral("Cancelar"));
    EXPECT_EQ(Texto("lbImporteEntrado"), QStringLiteral("0,00 €"));
    QTest::keyClick(&ventana, Qt::Key_Escape);
    EXPECT_EQ(cancelaciones, 2);
    EXPECT_TRUE(ventana.isVisible());
}

TEST_F(frmOperacionTest, IsNotCancelledByABarcodeScanner) {
    Abrir(ClaseOperacion::Cobro, 1250);
    QTest::keyClicks(&ventana, QStringLiteral("8412345678905 \t"));
    QTest::keyClick(&ventana, Qt::Key_Return);
    QTest::keyClick(&ventana, Qt::Key_Enter);
    QTest::keyClick(&ventana, Qt::Key_Space);
    EXPECT_EQ(cancelaciones, 0);
    EXPECT_FALSE(Boton().hasFocus());
    EXPECT_TRUE(ventana.isVisible());
}

TEST_F(frmOperacionTest, HasNothingToPressWhenItCannotBeCancelled) {
    ventana.Abrir(ClaseOperacion::Pendiente, 0, {});
    EXPECT_FALSE(Boton().isVisible());
    QTest::keyClick(&ventana, Qt::Key_Escape);
    EXPECT_TRUE(ventana.isVisible());
}

TEST_F(frmOperacionTest, ShowsANoteAndTakesItAway) {
    Abrir(ClaseOperacion::Cobro, 1250);
    const int alto = ventana.height();
    ventana.Aviso(QStringLiteral("Recuperando la comunicación con Zorvex…"));
    EXPECT_EQ(Texto("lbInstruccion"), QStringLiteral("Recuperando la comunicación con Zorvex…"));
    EXPECT_EQ(ventana.height(), alto);
    ventana.Aviso({});
    EXPECT_EQ(Texto("lbInstruccion"), QStringLiteral("Introduzca el dinero en Zorvex"));
}

TEST_F(frmOperacionTest, BlocksTheRestOfTheProgramWhileItStands) {
    EXPECT_EQ(ventana.windowModality(), Qt::ApplicationModal);
    EXPECT_TRUE(ventana.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    Abrir(ClaseOperacion::Cobro, 1250);
    EXPECT_EQ(QApplication::activeModalWidget(), &ventana);
    ventana.Cerrar();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(frmOperacionTest, DoesNotHoldUpTheEndOfTheProgram) {
    Abrir(ClaseOperacion::Cobro, 1250);
    EXPECT_TRUE(ventana.close());
    EXPECT_EQ(cancelaciones, 0);
}

TEST_F(frmOperacionTest, TakesItsTextsFromTheLanguageFile) {
    QFile idioma(carpeta.filePath(QStringLiteral("RWLang.ini")));
    ASSERT_TRUE(idioma.open(QIODevice::WriteOnly));
    idioma.write("[frmOperacion]\r\nTituloCobro=Charge\r\nCobro=Insert the money\r\n"
                 "lbACobrar=To pay\r\nlbFalta=Missing\r\nbtnCancelar=Cancel\r\n"
                 "Cancelando=Cancelling\r\n");
    idioma.close();
    Abrir(ClaseOperacion::Cobro, 1250);
    EXPECT_EQ(ventana.Titulo(), QStringLiteral("Charge"));
    EXPECT_EQ(Texto("lbInstruccion"), QStringLiteral("Insert the money"));
    EXPECT_EQ(Texto("lbPedido"), QStringLiteral("To pay"));
    EXPECT_EQ(Texto("lbFalta"), QStringLiteral("Missing"));
    EXPECT_EQ(Boton().text(), QStringLiteral("Cancel"));
    Boton().click();
    EXPECT_EQ(Boton().text(), QStringLiteral("Cancelling"));
}

TEST_F(frmOperacionTest, IsBigEnoughForAFinger) {
    Abrir(ClaseOperacion::Cobro, 2147483647);
    EXPECT_GE(Boton().height(), 64);
    EXPECT_LE(ventana.width(), 1024);
    EXPECT_LE(ventana.height(), 768);
    for (const auto* etiqueta : ventana.findChildren<QLabel*>()) {
        EXPECT_GE(etiqueta->width(), etiqueta->minimumSizeHint().width())
            << etiqueta->text().toStdString();
    }
}

} // namespace
} // namespace zv
