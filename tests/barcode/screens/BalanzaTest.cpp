// The barcode layout on the screen.
#include "barcode/screens/Balanza.h"

#include "../BancoBalanza.h"
#include "barcode/Claves.h"
#include "barcode/screens/TiraCodigo.h"
#include "support/PantallaInglesa.h"
#include "ui/screens/Interruptor.h"
#include "ui/screens/Tema.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>

#include <memory>

namespace zv::test {
namespace {

class BalanzaTest : public BancoBalanza {
  protected:
    static void SetUpTestSuite() { tema::Aplicar(*qApp); }

    static void Turnos() {
        for (int i = 0; i < 4; ++i) {
            QApplication::processEvents();
        }
    }
    void Abrir(const QSize& tamano = QSize(1024, 768)) {
        pantalla = std::make_unique<Balanza>(
            importes, [this] { return decimales; }, reloj, dialogos, textos);
        pantalla->CarregaConfig(cfg);
        pantalla->show();
        pantalla->resize(tamano);
        QApplication::setActiveWindow(pantalla.get());
        Turnos();
    }
    template <typename T = QLabel>
    T& Control(const char* nombre) {
        auto* control = pantalla->findChild<T*>(QString::fromLatin1(nombre));
        if (control == nullptr) {
            throw std::runtime_error(nombre);
        }
        return *control;
    }
    QLineEdit& TBal(int i) { return Control<QLineEdit>(("TBal_" + std::to_string(i)).c_str()); }
    QString Campos() {
        QStringList valores;
        for (int i = 0; i < CamposBalanza::kCuantos; ++i) {
            valores << TBal(i).text();
        }
        return valores.join(u' ');
    }
    static QColor Fondo(QWidget& control) {
        const QPixmap foto = control.grab();
        return foto.toImage().pixelColor(control.width() - 8, control.height() / 2);
    }
    void Escribir(QLineEdit& caja, const QString& texto) {
        caja.setFocus();
        caja.selectAll();
        texto.isEmpty() ? QTest::keyClick(&caja, Qt::Key_Delete) : QTest::keyClicks(&caja, texto);
    }
    int Foco() {
        for (int i = 0; i < CamposBalanza::kCuantos; ++i) {
            if (pantalla->focusWidget() == &TBal(i)) {
                return i;
            }
        }
        return -1;
    }
    void Tocar(const char* boton) {
        QTest::mouseClick(&Control<QToolButton>(boton), Qt::LeftButton);
        Turnos();
    }
    QString Tira() { return Control<TiraCodigo>("tira_Lit").Letras(); }
    static QString NombreDe(QWidget& control) {
        return QAccessible::queryAccessibleInterface(&control)->text(QAccessible::Name);
    }
    void Escanear(const QString& codigo) {
        Escribir(Control<QLineEdit>("tbPrueba_Lit"), codigo);
        QTest::keyClick(&Control<QLineEdit>("tbPrueba_Lit"), Qt::Key_Return);
    }

    std::unique_ptr<Balanza> pantalla;
};

TEST_F(BalanzaTest, ShowsTheLayout) {
    Abrir();
    EXPECT_EQ(pantalla->Titulo(), u"Configuración - Codigo de barras"_s);
    EXPECT_EQ(Campos(), u"13 2 7 8 12 2"_s);
    EXPECT_TRUE(Control<Interruptor>("Check1_Lit").isChecked());
    EXPECT_EQ(Tira(), u".TTTTTTIIIII."_s);
    EXPECT_EQ(Foco(), 0);
    const std::pair<const char*, const char*> esperados[] = {
        {"TBal_0_Lit", "Longitud código EAN (base 1)"},
        {"TBal_1_Lit", "De:"},
        {"TBal_2_Lit", "a:"},
        {"lblValor_Lit", "Incluir valor del ticket"},
        {"TBal_3_Lit", "De:"},
        {"TBal_4_Lit", "a:"},
        {"TBal_5_Lit", "Numero de decimales en el importe"},
        {"lbNota_Lit", "Al escanear un ticket se ve aquí lo que se cobraría"}};
    for (const auto& [nombre, texto] : esperados) {
        EXPECT_EQ(Control(nombre).text(), QString::fromUtf8(texto));
        EXPECT_TRUE(Control(nombre).isVisible()) << nombre;
    }
    for (const char* nombre : {"lbTicket", "lbImporte", "lblTicket_Lit", "lblImporte_Lit"}) {
        EXPECT_FALSE(Control(nombre).isVisible()) << nombre;
    }
}

TEST_F(BalanzaTest, EachControlHasAName) {
    Abrir();
    const char* const nombres[] = {
        "Longitud código EAN (base 1)", "Incluir codigo del tícket De:",
        "Incluir codigo del tícket a:", "Incluir valor del ticket De:",
        "Incluir valor del ticket a:",  "Numero de decimales en el importe"};
    for (int i = 0; i < CamposBalanza::kCuantos; ++i) {
        EXPECT_EQ(NombreDe(TBal(i)), QString::fromUtf8(nombres[i]));
    }
    auto& check = Control<Interruptor>("Check1_Lit");
    EXPECT_EQ(NombreDe(check), u"Incluir codigo del tícket"_s);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&check)->state().checked);
    EXPECT_EQ(NombreDe(Control<QToolButton>("boton_0_Lit")), u"Salir"_s);
    EXPECT_EQ(NombreDe(Control<QToolButton>("boton_1_Lit")), u"Aceptar"_s);
    EXPECT_EQ(NombreDe(Control<QLineEdit>("tbPrueba_Lit")), u"Escanee un ticket"_s);
    auto* tira = QAccessible::queryAccessibleInterface(&Control<TiraCodigo>("tira_Lit"));
    EXPECT_EQ(tira->text(QAccessible::Name), u"Celdas del código"_s);
    EXPECT_EQ(tira->text(QAccessible::Description), u".TTTTTTIIIII."_s);
    EXPECT_EQ(tira->role(), QAccessible::StaticText);
    EXPECT_EQ(pantalla->accessibleName(), pantalla->Titulo());
}

TEST_F(BalanzaTest, KeysTestTheFieldAndMoveOn) {
    Abrir();
    const std::tuple<Qt::Key, const char*, int> pasos[] = {
        {Qt::Key_Return, "13", 1}, {Qt::Key_Enter, "2", 2}, {Qt::Key_Up, "7", 1},
        {Qt::Key_Up, "2", 0},      {Qt::Key_Up, "13", 0},   {Qt::Key_Down, "13", 1}};
    for (const auto& [tecla, texto, foco] : pasos) {
        Escribir(TBal(Foco()), QString::fromLatin1(texto));
        QTest::keyClick(pantalla->focusWidget(), tecla);
        EXPECT_EQ(Foco(), foco);
    }
    // What stands behind a changed position of the ticket is set anew.
    EXPECT_EQ(Campos(), u"13 2 0 0 0 0"_s);
    EXPECT_TRUE(pantalla->isVisible());
}

TEST_F(BalanzaTest, ARefusedFieldIsRedAGoodOneGrey) {
    Abrir();
    EXPECT_EQ(Fondo(TBal(3)), QColor(0xCC, 0xCC, 0xCC));
    Escribir(TBal(3), u"7"_s);
    QTest::keyClick(&TBal(3), Qt::Key_Return);
    EXPECT_EQ(Foco(), 3);
    EXPECT_EQ(TBal(3).text(), u"0"_s);
    EXPECT_EQ(Fondo(TBal(4)), QColor(0xCC, 0xCC, 0xCC));
    TBal(4).setFocus(); // a selection has a colour of its own
    EXPECT_EQ(Fondo(TBal(3)), QColor(0xC0, 0, 0));
    Escribir(TBal(3), u"9"_s);
    QTest::keyClick(&TBal(3), Qt::Key_Return);
    EXPECT_EQ(Foco(), 4);
    EXPECT_EQ(Fondo(TBal(3)), QColor(0xCC, 0xCC, 0xCC));
}

TEST_F(BalanzaTest, TheStripFollowsWhatIsTyped) {
    Abrir();
    Escribir(TBal(0), u"15"_s);
    EXPECT_EQ(Tira(), u".TTTTTTIIIII..."_s);
    Escribir(TBal(4), u"14"_s);
    EXPECT_EQ(Tira(), u".TTTTTTIIIIIII."_s);
    Control<Interruptor>("Check1_Lit").click();
    EXPECT_EQ(Tira(), u".......IIIIIII."_s);
    Escribir(TBal(0), u""_s);
    EXPECT_EQ(Tira(), QString());
    Escribir(TBal(0), u"9999"_s);
    EXPECT_EQ(Tira().size(), 255);
}

TEST_F(BalanzaTest, CellsOfTicketAndAmountHaveTwoColours) {
    Abrir();
    auto& tira = Control<TiraCodigo>("tira_Lit");
    const QImage foto = tira.grab().toImage();
    const auto color = [&](int celda) {
        const int ancho = 52;
        return foto.pixelColor((celda - 1) * ancho + 6, 24 + 8);
    };
    EXPECT_EQ(color(2), tema::kAmbar);
    EXPECT_EQ(color(7), tema::kAmbar);
    EXPECT_EQ(color(8), tema::kVerde);
    EXPECT_EQ(color(12), tema::kVerde);
    EXPECT_EQ(color(1), QColor(Qt::white));
    EXPECT_EQ(color(13), QColor(Qt::white));
}

TEST_F(BalanzaTest, AScanShowsTheTicketAndTheAmount) {
    Abrir();
    Escanear(u"2ABCDEF012509"_s);
    EXPECT_EQ(Control("lbTicket").text(), u"ABCDEF"_s);
    EXPECT_EQ(Control("lbImporte").text(), u"12,50 €"_s);
    EXPECT_EQ(NombreDe(Control("lbImporte")), u"A cobrar 12,50 €"_s);
    EXPECT_EQ(NombreDe(Control("lbTicket")), u"Código ABCDEF"_s);
    for (const char* nombre : {"lbTicket", "lbImporte", "lblTicket_Lit", "lblImporte_Lit"}) {
        EXPECT_TRUE(Control(nombre).isVisible()) << nombre;
    }
    EXPECT_EQ(Control("lbNota_Lit").text(), QString());
    EXPECT_EQ(Ajustes(), u"13 1 2 7 8 12 2"_s);
    // Another layout reads it anew, as it is typed.
    Escribir(TBal(5), u"0"_s);
    EXPECT_EQ(Control("lbImporte").text(), u"1.250,00 €"_s);
    // The next scan takes its place.
    auto& prueba = Control<QLineEdit>("tbPrueba_Lit");
    prueba.setFocus();
    prueba.selectAll();
    QTest::keyClick(&prueba, Qt::Key_Return);
    QTest::keyClicks(&prueba, u"2GHIJKL000019"_s);
    EXPECT_EQ(Control("lbTicket").text(), u"GHIJKL"_s);
    EXPECT_TRUE(pantalla->isVisible());
}

TEST_F(BalanzaTest, AScanThatCannotBeChargedSaysWhy) {
    Abrir();
    const std::pair<QString, QString> casos[] = {
        {u"2ABCDEF01x509"_s, u"Configuración de importe en el codigo de barras no admitido"_s},
        {u"2ABCDEF"_s,
         u"El mensaje tiene que tener la misma lungitud que la de la configuración"_s},
    };
    for (const auto& [codigo, reparo] : casos) {
        Escanear(codigo);
        EXPECT_EQ(Control("lbNota_Lit").text(), reparo);
        EXPECT_FALSE(Control("lbImporte").isVisible());
        EXPECT_FALSE(Control("lbTicket").isVisible());
    }
    // While it is typed its length counts up.
    Escribir(Control<QLineEdit>("tbPrueba_Lit"), u"2ABCD"_s);
    EXPECT_EQ(Control("lbNota_Lit").text(), u"5 / 13"_s);
    Escribir(TBal(3), u"0"_s);
    Escanear(u"2ABCDEF012509"_s);
    EXPECT_EQ(Control("lbNota_Lit").text(),
              u"La configuración no corresponde con la longitud del còdigo de barras"_s);
}

TEST_F(BalanzaTest, WithoutALengthTheStripCountsTheScan) {
    PonerLayout(0, false, 0, 0, 0, 0, 0);
    Abrir();
    EXPECT_EQ(Tira(), QString());
    Escanear(u"2ABCDEF012509"_s);
    EXPECT_EQ(Tira(), QString(13, u'.'));
    EXPECT_EQ(Control<TiraCodigo>("tira_Lit").Celdas(), 13);
}

TEST_F(BalanzaTest, ADeviceWithoutMinorUnitsEndsNothing) {
    multiplicador = 0;
    Abrir();
    Escanear(u"2ABCDEF012509"_s);
    EXPECT_EQ(Control("lbImporte").text(), u"0"_s);
    EXPECT_TRUE(pantalla->isVisible());
}

TEST_F(BalanzaTest, AcceptCopiesAndLeaves) {
    Abrir();
    Escribir(TBal(0), u"20"_s);
    Escribir(TBal(4), u"20"_s);
    Tocar("boton_1_Lit");
    EXPECT_FALSE(pantalla->isVisible());
    EXPECT_EQ(pantalla->result(), int{QDialog::Accepted});
    EXPECT_EQ(Ajustes(), u"20 1 2 7 8 20 2"_s);
    pantalla->LanzarFallo();
}

TEST_F(BalanzaTest, ASecondTouchOnAcceptDoesNothingMore) {
    Abrir();
    Tocar("boton_1_Lit");
    TBal(0).clear();
    QTest::keyClicks(&TBal(0), u"20"_s);
    Control<QToolButton>("boton_1_Lit").click();
    EXPECT_EQ(Ajustes(), u"13 1 2 7 8 12 2"_s);
}

TEST_F(BalanzaTest, AcceptStaysAtTheFieldThatIsRefused) {
    Abrir();
    Escribir(TBal(4), u"14"_s);
    Tocar("boton_1_Lit");
    EXPECT_TRUE(pantalla->isVisible());
    EXPECT_EQ(Foco(), 4);
    EXPECT_EQ(TBal(4).text(), u"0"_s);
    EXPECT_EQ(Ajustes(), u"13 1 2 7 8 12 2"_s);
    dialogos.EsperaCaja(u"El numero de decimales tiene que ser inferior a 2"_s);
    Escribir(TBal(4), u"12"_s);
    Escribir(TBal(5), u"3"_s);
    Tocar("boton_1_Lit");
    EXPECT_EQ(Foco(), 5);
    TBal(0).setFocus();
    EXPECT_EQ(Fondo(TBal(5)), QColor(0xC0, 0, 0));
}

TEST_F(BalanzaTest, LeavingKeepsTheSwitchAndNothingElse) {
    for (const char* boton : {"boton_0_Lit", "btnW_1"}) {
        PonerLayout(13, true, 2, 7, 8, 12, 2);
        Abrir();
        Escribir(TBal(0), u"20"_s);
        Control<Interruptor>("Check1_Lit").click();
        EXPECT_EQ(Ajustes(), u"13 0 2 7 8 12 2"_s);
        Tocar(boton);
        EXPECT_FALSE(pantalla->isVisible()) << boton;
        EXPECT_EQ(Ajustes(), u"13 0 2 7 8 12 2"_s) << boton;
    }
}

TEST_F(BalanzaTest, OpeningChangesNothing) {
    PonerLayout(13, true, 2, 7, 8, 12, 2);
    cfg.BCTPRE = false;
    Abrir();
    EXPECT_EQ(Ajustes(), u"13 0 2 7 8 12 2"_s);
    EXPECT_FALSE(Control<Interruptor>("Check1_Lit").isChecked());
    EXPECT_EQ(Control<Interruptor>("Check1_Lit").accessibleDescription(),
              Control<Interruptor>("Check1_Lit").Palabra());
}

TEST_F(BalanzaTest, EscapeLeavesOnlyWhereNothingIsLost) {
    Abrir();
    Escribir(TBal(0), u"20"_s);
    QTest::keyClick(pantalla.get(), Qt::Key_Escape);
    EXPECT_TRUE(pantalla->isVisible());
    Escribir(TBal(0), u"13"_s);
    QTest::keyClick(pantalla.get(), Qt::Key_Escape);
    EXPECT_FALSE(pantalla->isVisible());
}

TEST_F(BalanzaTest, PastedLineEndsAndLongTextsBreakNothing) {
    Abrir();
    QApplication::clipboard()->setText(u"1\r\n3\r\n"_s);
    TBal(0).setFocus();
    TBal(0).selectAll();
    TBal(0).paste();
    QTest::keyClick(&TBal(0), Qt::Key_Return);
    EXPECT_EQ(TBal(0).text(), u"0"_s);
    QApplication::clipboard()->setText(QString(3000, u'7'));
    for (int i = 0; i < CamposBalanza::kCuantos; ++i) {
        TBal(i).setFocus();
        TBal(i).selectAll();
        TBal(i).paste();
    }
    auto& prueba = Control<QLineEdit>("tbPrueba_Lit");
    prueba.setFocus();
    prueba.paste();
    QTest::keyClick(&prueba, Qt::Key_Return);
    Turnos();
    EXPECT_LE(pantalla->width(), 1024);
    EXPECT_FALSE(Control("lbImporte").isVisible());
    Tocar("boton_1_Lit");
    EXPECT_TRUE(pantalla->isVisible());
    EXPECT_EQ(Ajustes(), u"13 1 2 7 8 12 2"_s);
}

// Of a language whose words are twice as long.
TEST_F(BalanzaTest, CaptionsTwiceAsLongStayInTheWindow) {
    QByteArray fichero = "[Balanza]\r\n";
    for (const Clave& clave : texto::kClavesBarcode) {
        if (clave.Seccion() == u"Balanza"_s) {
            fichero +=
                (clave.Nombre() + u'=' + clave.PorDefecto() + u' ' + clave.PorDefecto() + u"\r\n"_s)
                    .toUtf8();
        }
    }
    carpeta.Pon(u"RWLang.ini"_s, "\xEF\xBB\xBF" + fichero);
    for (const QSize& tamano : {QSize(1024, 768), QSize(1920, 1080)}) {
        Abrir(tamano);
        Escanear(u"2ABCDEF012509"_s);
        Turnos();
        EXPECT_EQ(Control("TBal_5_Lit").text(),
                  u"Numero de decimales en el importe Numero de decimales en el importe"_s);
        EXPECT_EQ(pantalla->size(), tamano);
        for (QLabel* etiqueta : pantalla->findChildren<QLabel*>()) {
            if (etiqueta->isVisible() && !etiqueta->objectName().isEmpty() &&
                etiqueta->objectName() != u"lbTicket"_s) {
                const QRect sitio = etiqueta->fontMetrics().boundingRect(
                    QRect(0, 0, etiqueta->width(), QWIDGETSIZE_MAX),
                    etiqueta->wordWrap() ? Qt::TextWordWrap : 0, etiqueta->text());
                EXPECT_LE(sitio.width(), etiqueta->width()) << etiqueta->text().toStdString();
                EXPECT_LE(sitio.height(), etiqueta->height()) << etiqueta->text().toStdString();
            }
        }
    }
}

TEST_F(BalanzaTest, EverythingLiesInTheWindowAndIsLargeEnough) {
    for (const bool largo : {false, true}) {
        if (largo) {
            PonerLayout(60, true, 1, 50, 51, 60, 2);
        }
        for (const QSize& tamano : {QSize(1024, 768), QSize(1920, 1080)}) {
            Abrir(tamano);
            Escanear(largo ? QString(50, u'W') + u"2147483647"_s : u"2ABCDEF012509"_s);
            Turnos();
            EXPECT_EQ(pantalla->size(), tamano);
            for (QWidget* control : pantalla->findChildren<QWidget*>()) {
                const bool toca = qobject_cast<QAbstractButton*>(control) != nullptr ||
                                  qobject_cast<QLineEdit*>(control) != nullptr;
                const auto* etiqueta = qobject_cast<QLabel*>(control);
                if (!control->isVisible() || (!toca && etiqueta == nullptr) ||
                    control->objectName().isEmpty()) {
                    continue;
                }
                const std::string nombre = control->objectName().toStdString();
                const QRect sitio(control->mapTo(pantalla.get(), QPoint(0, 0)), control->size());
                EXPECT_TRUE(pantalla->rect().contains(sitio)) << nombre;
                if (toca) {
                    EXPECT_GE(control->width(), tema::kToqueMinimo) << nombre;
                    EXPECT_GE(control->height(), tema::kToqueMinimo) << nombre;
                } else if (!etiqueta->wordWrap() && control->objectName() != u"lbTicket"_s) {
                    EXPECT_LE(etiqueta->fontMetrics().horizontalAdvance(etiqueta->text()),
                              etiqueta->width())
                        << nombre;
                }
            }
        }
    }
}

TEST_F(BalanzaTest, InEnglish) {
    const QTemporaryDir inglesa;
    IdiomaIngles().PonerEn(inglesa.path());
    const Textos ingleses(inglesa.path());
    Abrir();
    Balanza enIngles(
        importes, [] { return 2; }, reloj, dialogos, ingleses);
    enIngles.CarregaConfig(cfg);
    ComprobarEnIngles(*pantalla, enIngles, {u"btnLogo"_s});
    EXPECT_EQ(enIngles.Titulo(), u"Settings - Barcode"_s);
}

} // namespace
} // namespace zv::test
