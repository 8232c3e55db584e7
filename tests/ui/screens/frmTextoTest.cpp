// The text prompt and the choice of printouts.
#include "ui/screens/frmTexto.h"

#include "ui/screens/DialogosPrueba.h"
#include "ui/screens/frmImpresio.h"

namespace zv::test {
namespace {

class frmTextoTest : public DialogosPrueba {
  protected:
    QString Pedir(const QString& porDefecto = {}) {
        return dialogos_.PedirTexto(QStringLiteral("Pago"), QStringLiteral("Concepto"), porDefecto);
    }
    static void Escribir(QDialog& d, const char* texto) {
        QTest::keyClicks(&Control<QLineEdit>(d, "tbTexto"), QString::fromLatin1(texto));
    }
};

TEST_F(frmTextoTest, ShowsTitleTextAndDefault) {
    const AlAbrir abierto([](QDialog& d) {
        EXPECT_EQ(d.objectName(), QStringLiteral("frmTexto"));
        EXPECT_EQ(Texto(d, "lbTitulo"), QStringLiteral("Pago"));
        EXPECT_EQ(Texto(d, "lbTexto"), QStringLiteral("Concepto"));
        EXPECT_EQ(Control<QLineEdit>(d, "tbTexto").text(), QStringLiteral("Gasoil"));
        EXPECT_EQ(Boton(d, "boton_0").text(), QStringLiteral("Aceptar"));
        EXPECT_EQ(Boton(d, "boton_1").text(), QStringLiteral("Cancelar"));
        EXPECT_EQ(d.focusWidget(), &Control<QLineEdit>(d, "tbTexto"));
        ComprobarTactil(d);
        Tocar(d, "boton_0");
    });
    EXPECT_EQ(Pedir(QStringLiteral("Gasoil")), QStringLiteral("Gasoil"));
}

TEST_F(frmTextoTest, TypingReplacesTheDefault) {
    const AlAbrir abierto([](QDialog& d) {
        Escribir(d, "Pan");
        Tocar(d, "boton_0");
    });
    EXPECT_EQ(Pedir(QStringLiteral("Gasoil")), QStringLiteral("Pan"));
}

TEST_F(frmTextoTest, EnterAccepts) {
    const AlAbrir abierto([](QDialog& d) {
        Escribir(d, "Pan");
        Tecla(d, Qt::Key_Return);
    });
    EXPECT_EQ(Pedir(), QStringLiteral("Pan"));
}

TEST_F(frmTextoTest, CancellingInAnyWayReturnsAnEmptyText) {
    for (const char* boton : {"boton_1", "btnW_1"}) {
        const AlAbrir abierto([boton](QDialog& d) {
            Escribir(d, "Pan");
            Tocar(d, boton);
        });
        EXPECT_EQ(Pedir(), QString()) << boton;
    }
    const AlAbrir abierto([](QDialog& d) {
        Escribir(d, "Pan");
        Tecla(d, Qt::Key_Escape);
    });
    EXPECT_EQ(Pedir(), QString());
}

TEST_F(frmTextoTest, EmptyEntryLooksLikeACancel) {
    const AlAbrir abierto([](QDialog& d) { Tocar(d, "boton_0"); });
    EXPECT_EQ(Pedir(), QString());
}

TEST_F(frmTextoTest, ResultIs0WhileOpenThen1Or2) {
    for (const auto& [boton, resultado] : {std::pair{"boton_0", 1}, {"boton_1", 2}}) {
        frmTexto pantalla(textos_, {});
        const AlAbrir abierto([&pantalla, boton = boton](QDialog& d) {
            EXPECT_EQ(pantalla.resultado, 0);
            Tocar(d, boton);
        });
        pantalla.exec();
        EXPECT_EQ(pantalla.resultado, resultado);
    }
}

TEST_F(frmTextoTest, KeyboardButtonOpensTheKeyboardAndLeavesTheDialogOpen) {
    int veces = 0;
    dialogos_.PonerTecladoPantalla([&veces] { ++veces; });
    const AlAbrir abierto([](QDialog& d) {
        Tocar(d, "boton_2");
        EXPECT_TRUE(d.isVisible());
        EXPECT_EQ(d.focusWidget(), &Control<QLineEdit>(d, "tbTexto"));
        EXPECT_LE(d.y(), d.screen()->availableGeometry().top() + 24) << "hidden by the keyboard";
        Escribir(d, "Pan");
        Tocar(d, "boton_0");
    });
    EXPECT_EQ(Pedir(), QStringLiteral("Pan"));
    EXPECT_EQ(veces, 1);
}

TEST_F(frmTextoTest, LongPromptIsNotCut) {
    const QString largo = QStringLiteral("Introduzca la causa de la anulación. ").repeated(12);
    const AlAbrir abierto([](QDialog& d) {
        QCoreApplication::processEvents();
        auto& texto = Control<QLabel>(d, "lbTexto");
        EXPECT_GE(texto.height(), texto.heightForWidth(texto.width()));
        ComprobarTactil(d);
        Tocar(d, "boton_0");
    });
    dialogos_.PedirTexto(QStringLiteral("Anular"), largo);
}

TEST_F(frmTextoTest, CaptionsAreTranslatedAndTheDialogIsAboveAllWindows) {
    Fichero(QStringLiteral("[frmTexto]\r\nboton_0=Accept\r\n[GEN]\r\nFrmCaption=Caja\r\n"));
    const AlAbrir abierto([](QDialog& d) {
        EXPECT_EQ(Boton(d, "boton_0").text(), QStringLiteral("Accept"));
        EXPECT_EQ(Boton(d, "boton_1").text(), QStringLiteral("Cancelar"));
        EXPECT_EQ(d.windowTitle(), QStringLiteral("Caja"));
        EXPECT_TRUE(d.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
        Tocar(d, "boton_1");
    });
    Pedir();
}

class frmImpresioTest : public DialogosPrueba {};

TEST_F(frmImpresioTest, EachButtonGivesItsNumber) {
    for (const auto& [boton, numero] : {std::pair{"boton_0", 1}, {"boton_1", 2}, {"boton_2", 3}}) {
        frmImpresio pantalla(textos_);
        const AlAbrir abierto([boton = boton](QDialog& d) { Tocar(d, boton); });
        pantalla.exec();
        EXPECT_EQ(pantalla.eleccion, numero);
    }
}

TEST_F(frmImpresioTest, LeftOtherwiseItGives0) {
    frmImpresio pantalla(textos_);
    {
        const AlAbrir abierto([](QDialog& d) { Tocar(d, "btnW_1"); });
        pantalla.exec();
    }
    EXPECT_EQ(pantalla.eleccion, 0);
    const AlAbrir abierto([](QDialog& d) { Tecla(d, Qt::Key_Escape); });
    pantalla.exec();
    EXPECT_EQ(pantalla.eleccion, 0);
}

TEST_F(frmImpresioTest, ShowsItsTexts) {
    frmImpresio pantalla(textos_);
    const AlAbrir abierto([](QDialog& d) {
        EXPECT_EQ(d.objectName(), QStringLiteral("frmImpresio"));
        EXPECT_EQ(Texto(d, "lbTitulo"), QStringLiteral("Imprimir"));
        EXPECT_EQ(Texto(d, "lbTexto"), QStringLiteral("¿Que desea imprimir?"));
        EXPECT_EQ(Boton(d, "boton_0").text(), QStringLiteral("Resumen Caja"));
        EXPECT_EQ(Boton(d, "boton_1").text(), QStringLiteral("Listado Movimientos"));
        EXPECT_EQ(Boton(d, "boton_2").text(), QStringLiteral("Todo"));
        ComprobarTactil(d);
        Tecla(d, Qt::Key_Return);
    });
    pantalla.exec();
    EXPECT_EQ(pantalla.eleccion, 1) << "Enter takes the default button";
}

} // namespace
} // namespace zv::test
