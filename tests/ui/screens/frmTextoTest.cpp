// The text prompt and the choice of printouts.
#include "ui/screens/frmTexto.h"

#include "platform/StringLiterals.h"
#include "ui/screens/DialogosPrueba.h"
#include "ui/screens/frmImpresio.h"

#include <QToolButton>

namespace zv::test {
namespace {

class frmTextoTest : public DialogosPrueba {
  protected:
    QString Pedir(const QString& porDefecto = {}) {
        return dialogos_.PedirTexto(u"Pago"_s, u"Concepto"_s, porDefecto);
    }
    static void Escribir(QDialog& d, const char* texto) {
        QTest::keyClicks(&Control<QLineEdit>(d, "tbTexto"), QString::fromLatin1(texto));
    }
};

TEST_F(frmTextoTest, ShowsTitleTextAndDefault) {
    const AlAbrir abierto([](QDialog& d) {
        EXPECT_EQ(d.objectName(), u"frmTexto"_s);
        EXPECT_EQ(Texto(d, "lbTitulo"), u"Pago"_s);
        EXPECT_EQ(Texto(d, "lbTexto"), u"Concepto"_s);
        EXPECT_EQ(Control<QLineEdit>(d, "tbTexto").text(), u"Gasoil"_s);
        EXPECT_EQ(Boton(d, "boton_0").text(), u"Aceptar"_s);
        EXPECT_EQ(Boton(d, "boton_1").text(), u"Cancelar"_s);
        EXPECT_EQ(Control<QToolButton>(d, "boton_2").toolTip(), u"Teclado en pantalla"_s);
        EXPECT_EQ(d.focusWidget(), &Control<QLineEdit>(d, "tbTexto"));
        ComprobarTactil(d);
        Tocar(d, "boton_0");
    });
    EXPECT_EQ(Pedir(u"Gasoil"_s), u"Gasoil"_s);
}

TEST_F(frmTextoTest, TypingReplacesTheDefault) {
    const AlAbrir abierto([](QDialog& d) {
        Escribir(d, "Pan");
        Tocar(d, "boton_0");
    });
    EXPECT_EQ(Pedir(u"Gasoil"_s), u"Pan"_s);
}

TEST_F(frmTextoTest, EnterAccepts) {
    const AlAbrir abierto([](QDialog& d) {
        Escribir(d, "Pan");
        Tecla(d, Qt::Key_Return);
    });
    EXPECT_EQ(Pedir(), u"Pan"_s);
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
    EXPECT_EQ(Pedir(), u"Pan"_s);
    EXPECT_EQ(veces, 1);
}

TEST_F(frmTextoTest, LongPromptIsNotCut) {
    const QString largo = u"Introduzca la causa de la anulación. "_s.repeated(12);
    const AlAbrir abierto([](QDialog& d) {
        QCoreApplication::processEvents();
        auto& texto = Control<QLabel>(d, "lbTexto");
        EXPECT_GE(texto.height(), texto.heightForWidth(texto.width()));
        ComprobarTactil(d);
        Tocar(d, "boton_0");
    });
    dialogos_.PedirTexto(u"Anular"_s, largo);
}

TEST_F(frmTextoTest, CaptionsAreTranslatedAndTheDialogIsAboveAllWindows) {
    Fichero(u"[frmTexto]\r\nboton_0=Accept\r\n[GEN]\r\nFrmCaption=Caja\r\n"_s);
    const AlAbrir abierto([](QDialog& d) {
        EXPECT_EQ(Boton(d, "boton_0").text(), u"Accept"_s);
        EXPECT_EQ(Boton(d, "boton_1").text(), u"Cancelar"_s);
        EXPECT_EQ(d.windowTitle(), u"Caja"_s);
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

TEST_F(frmImpresioTest, TheChoiceReachesWhoAsks) {
    const std::pair<const char*, Impresion> elecciones[] = {{"boton_0", Impresion::Resumen},
                                                            {"boton_1", Impresion::Listado},
                                                            {"boton_2", Impresion::Todo},
                                                            {"btnW_1", Impresion::Nada}};
    for (const auto& [boton, eleccion] : elecciones) {
        const AlAbrir abierto([tocado = boton](QDialog& d) { Tocar(d, tocado); });
        EXPECT_EQ(dialogos_.ElegirImpresion(), eleccion);
    }
}

TEST_F(frmImpresioTest, ShowsItsTexts) {
    frmImpresio pantalla(textos_);
    const AlAbrir abierto([](QDialog& d) {
        EXPECT_EQ(d.objectName(), u"frmImpresio"_s);
        EXPECT_EQ(Texto(d, "lbTitulo"), u"Imprimir"_s);
        EXPECT_EQ(Texto(d, "lbTexto"), u"¿Que desea imprimir?"_s);
        EXPECT_EQ(Boton(d, "boton_0").text(), u"Resumen Caja"_s);
        EXPECT_EQ(Boton(d, "boton_1").text(), u"Listado Movimientos"_s);
        EXPECT_EQ(Boton(d, "boton_2").text(), u"Todo"_s);
        ComprobarTactil(d);
        Tecla(d, Qt::Key_Return);
    });
    pantalla.exec();
    EXPECT_EQ(pantalla.eleccion, 1) << "Enter takes the default button";
}

} // namespace
} // namespace zv::test
