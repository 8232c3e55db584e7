// The message dialog and the plain box.
#include "platform/StringLiterals.h"
#include "ui/screens/DialogosPrueba.h"

#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

namespace zv::test {
namespace {

class frmMensajeTest : public DialogosPrueba {
  protected:
    // By the numbers of the platform's message box, for styles and for answers.
    int Mostrar(const QString& titulo, const QString& texto, int estilo) {
        return static_cast<int>(
            dialogos_.MostrarMensaje(titulo, texto, static_cast<EstiloMensaje>(estilo)));
    }
};

TEST_F(frmMensajeTest, EmptyTitleShowsOnlyTheProgramsNameWithoutItsFirstTwoCharacters) {
    const AlAbrir abierto([](QDialog& d) {
        EXPECT_EQ(d.objectName(), u"frmMensaje"_s);
        EXPECT_EQ(Texto(d, "lbTitulo"), u"Monitor"_s);
        EXPECT_EQ(Texto(d, "lbTexto"), u"Hola"_s);
        EXPECT_EQ(d.windowTitle(), u"Zorvex ®"_s);
        Tocar(d, "boton_1");
    });
    Mostrar(QString(), u"Hola"_s, 0);
}

TEST_F(frmMensajeTest, TitleFollowsTheProgramsName) {
    DialogosPantalla otro(u"XXCaja"_s, textos_, importes_);
    const AlAbrir abierto([](QDialog& d) {
        EXPECT_EQ(Texto(d, "lbTitulo"), u"Caja - Atención"_s);
        Tocar(d, "boton_1");
    });
    otro.MostrarMensaje(u"Atención"_s, u"Hola"_s);
}

TEST_F(frmMensajeTest, StylesOfOneButtonShowItInThePlaceOfTheSecondAndReturn1) {
    QPoint sitio;
    {
        const AlAbrir abierto([&sitio](QDialog& d) {
            sitio = Boton(d, "boton_1").pos();
            Tocar(d, "boton_1");
        });
        Mostrar(u"T"_s, u"Hola"_s, 1);
    }
    for (const int estilo : {0, 16, 32, 48, 64}) {
        const AlAbrir abierto([sitio](QDialog& d) {
            EXPECT_FALSE(Boton(d, "boton_0").isVisible());
            EXPECT_TRUE(Boton(d, "boton_1").isVisible());
            EXPECT_EQ(Boton(d, "boton_1").text(), u"Aceptar"_s);
            EXPECT_EQ(Boton(d, "boton_1").pos(), sitio);
            Tocar(d, "boton_1");
        });
        EXPECT_EQ(Mostrar(u"T"_s, u"Hola"_s, estilo), 1) << estilo;
    }
}

TEST_F(frmMensajeTest, EachStyleReturnsTheNumbersOfItsButtons) {
    struct Caso {
        int estilo;
        int primero;
        int segundo;
    };
    for (const Caso caso :
         {Caso{1, 1, 2}, Caso{3, 6, 7}, Caso{4, 6, 7}, Caso{5, 4, 2}, Caso{2, 1, 7}}) {
        for (const char* boton : {"boton_0", "boton_1"}) {
            const AlAbrir abierto([boton](QDialog& d) {
                EXPECT_TRUE(Boton(d, "boton_0").isVisible());
                EXPECT_EQ(Boton(d, "boton_0").text(), u"Aceptar"_s);
                EXPECT_EQ(Boton(d, "boton_1").text(), u"Cancelar"_s);
                Tocar(d, boton);
            });
            EXPECT_EQ(Mostrar(QString(), u"¿?"_s, caso.estilo),
                      boton == std::string("boton_0") ? caso.primero : caso.segundo)
                << caso.estilo << boton;
        }
    }
}

TEST_F(frmMensajeTest, EnterPressesTheVisibleDefaultButton) {
    for (const auto& [estilo, respuesta] : {std::pair{0, 1}, {1, 1}, {4, 6}, {5, 4}}) {
        const AlAbrir abierto([](QDialog& d) { Tecla(d, Qt::Key_Return); });
        EXPECT_EQ(Mostrar(QString(), u"¿?"_s, estilo), respuesta);
    }
}

TEST_F(frmMensajeTest, EscapePressesTheSecondButton) {
    for (const auto& [estilo, respuesta] : {std::pair{0, 1}, {1, 2}, {4, 7}, {5, 2}}) {
        const AlAbrir abierto([](QDialog& d) { Tecla(d, Qt::Key_Escape); });
        EXPECT_EQ(Mostrar(QString(), u"¿?"_s, estilo), respuesta);
    }
}

TEST_F(frmMensajeTest, ClosingRefusesWhereThereIsAChoiceAndIsNoAnswerWhereThereIsNone) {
    for (const auto& [estilo, respuesta] : {std::pair{0, 0}, {64, 0}, {1, 2}, {4, 7}, {5, 2}}) {
        {
            const AlAbrir abierto([](QDialog& d) { Tocar(d, "btnW_1"); });
            EXPECT_EQ(Mostrar(QString(), u"¿?"_s, estilo), respuesta);
        }
        const AlAbrir abierto([](QDialog& d) { d.close(); });
        EXPECT_EQ(Mostrar(QString(), u"¿?"_s, estilo), respuesta);
    }
}

TEST_F(frmMensajeTest, CaptionOfTheOnlyButtonComesFromItsCommonKey) {
    Fichero(u"[COMMON]\r\nboton_0=OK\r\n[frmMensaje]\r\nboton_0=Yes\r\nboton_1=No\r\n"_s);
    {
        const AlAbrir abierto([](QDialog& d) {
            EXPECT_EQ(Boton(d, "boton_1").text(), u"OK"_s);
            Tocar(d, "boton_1");
        });
        Mostrar(QString(), u"Hola"_s, 0);
    }
    const AlAbrir abierto([](QDialog& d) {
        EXPECT_EQ(Boton(d, "boton_0").text(), u"Yes"_s);
        EXPECT_EQ(Boton(d, "boton_1").text(), u"No"_s);
        Tocar(d, "boton_0");
    });
    Mostrar(QString(), u"Hola"_s, 4);
}

TEST_F(frmMensajeTest, ShortMessageHasTheLeastSizeAndTheFollowingTextDecidesTheHeight) {
    int alto = 0;
    {
        const AlAbrir abierto([&alto](QDialog& d) {
            EXPECT_EQ(d.width(), 373);
            EXPECT_GE(d.height(), 185);
            EXPECT_LE(d.height(), 200);
            alto = d.height();
            Tocar(d, "boton_1");
        });
        Mostrar(QString(), u"Hola"_s, 0);
    }
    const AlAbrir abierto([alto](QDialog& d) {
        EXPECT_EQ(d.width(), 373);
        EXPECT_GE(d.height(), alto + 40);
        Tocar(d, "boton_1");
    });
    Mostrar(QString(), u"Hola\r\nadiós\r\ny más"_s, 0);
}

TEST_F(frmMensajeTest, WidthIsWhatTheTitleNeeds) {
    const AlAbrir abierto([](QDialog& d) {
        EXPECT_GT(d.width(), 373);
        const auto& titulo = Control<QLabel>(d, "lbTitulo");
        EXPECT_GE(titulo.width(), titulo.fontMetrics().horizontalAdvance(titulo.text()));
        EXPECT_FALSE(titulo.wordWrap());
        Tocar(d, "boton_1");
    });
    Mostrar(u"Un título que pide bastante más ancho"_s, u"Hola"_s, 0);
}

TEST_F(frmMensajeTest, LongTextStaysOnTheScreenAndCanBeScrolledToItsEnd) {
    const QString frase = u"La operación no se ha podido completar. "_s;
    const AlAbrir abierto([](QDialog& d) {
        QCoreApplication::processEvents();
        EXPECT_TRUE(d.screen()->availableGeometry().contains(d.geometry()));
        auto& texto = Control<QLabel>(d, "lbTexto");
        auto* zona = d.findChild<QScrollArea*>();
        EXPECT_TRUE(zona->verticalScrollBar()->isVisible());
        EXPECT_GE(texto.height(), texto.heightForWidth(texto.width()));
        EXPECT_LE(texto.width(), zona->viewport()->width());
        ComprobarTactil(d);
        Tocar(d, "boton_0");
    });
    EXPECT_EQ(Mostrar(u"Error"_s, frase.repeated(300), 4), 6);
}

TEST_F(frmMensajeTest, WordWiderThanTheWindowIsBrokenAndNotCut) {
    const AlAbrir abierto([](QDialog& d) {
        QCoreApplication::processEvents();
        auto& texto = Control<QLabel>(d, "lbTexto");
        EXPECT_LT(texto.width(), d.width());
        EXPECT_GT(texto.height(), 2 * texto.fontMetrics().height());
        EXPECT_GE(texto.height(), texto.heightForWidth(texto.width()));
        Tocar(d, "boton_1");
    });
    Mostrar(QString(), QString(200, QLatin1Char('W')), 0);
}

TEST_F(frmMensajeTest, TextIsShownAsItIsAndNotAsMarkUp) {
    const AlAbrir abierto([](QDialog& d) {
        EXPECT_EQ(Control<QLabel>(d, "lbTexto").textFormat(), Qt::PlainText);
        EXPECT_EQ(Texto(d, "lbTexto"), u"<b>importe</b> & más"_s);
        Tocar(d, "boton_1");
    });
    Mostrar(QString(), u"<b>importe</b> & más"_s, 0);
}

TEST_F(frmMensajeTest, IsModalToTheProgramAndAboveAllWindows) {
    const AlAbrir abierto([](QDialog& d) {
        EXPECT_EQ(d.windowModality(), Qt::ApplicationModal);
        EXPECT_TRUE(d.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
        ComprobarTactil(d);
        Tocar(d, "boton_1");
    });
    Mostrar(QString(), u"Hola"_s, 1);
}

TEST_F(frmMensajeTest, DefaultButtonHasTheFocusAndIsTheFilledOne) {
    const AlAbrir abierto([](QDialog& d) {
        EXPECT_EQ(d.focusWidget(), &Boton(d, "boton_0"));
        EXPECT_TRUE(static_cast<QPushButton&>(Boton(d, "boton_0")).isDefault());
        Tocar(d, "boton_1");
    });
    Mostrar(QString(), u"¿?"_s, 4);
}

TEST_F(frmMensajeTest, TimersRunWhileItIsOpen) {
    int tics = 0;
    QTimer reloj;
    QObject::connect(&reloj, &QTimer::timeout, [&tics] { ++tics; });
    reloj.start(0);
    const AlAbrir abierto([&tics](QDialog& d) {
        const int antes = tics;
        QCoreApplication::processEvents();
        EXPECT_GT(tics, antes);
        Tocar(d, "boton_1");
    });
    Mostrar(QString(), u"Hola"_s, 0);
}

TEST_F(frmMensajeTest, ComesUpOverItsWindowButNotOverOneThatIsHidden) {
    {
        const AlAbrir abierto([](QDialog& d) {
            EXPECT_EQ(d.parentWidget(), nullptr);
            Tocar(d, "boton_1");
        });
        Mostrar(QString(), u"Hola"_s, 0);
    }
    ventana_.show();
    const AlAbrir abierto([this](QDialog& d) {
        EXPECT_EQ(d.parentWidget(), &ventana_);
        Tocar(d, "boton_1");
    });
    Mostrar(QString(), u"Hola"_s, 0);
}

TEST_F(frmMensajeTest, PlainBoxHasTheProgramsNameTheTextAndOneButton) {
    const AlAbrir abierto([](QDialog& d) {
        auto& caja = dynamic_cast<QMessageBox&>(d);
        EXPECT_EQ(caja.windowTitle(), u"ZVMonitor"_s);
        EXPECT_EQ(caja.text(), u"Error nº 75 - <ruta>"_s);
        EXPECT_EQ(caja.textFormat(), Qt::PlainText);
        ASSERT_EQ(caja.buttons().size(), 1);
        EXPECT_EQ(caja.buttons().constFirst()->text(), u"Aceptar"_s);
        QTest::mouseClick(caja.buttons().constFirst(), Qt::LeftButton);
    });
    dialogos_.CajaSimple(u"Error nº 75 - <ruta>"_s);
}

} // namespace
} // namespace zv::test
