// The settings on the screen.
#include "settings/screens/frmCfgMonitor.h"

#include "../BancoCfg.h"
#include "support/PantallaInglesa.h"
#include "ui/screens/Interruptor.h"
#include "ui/screens/Tema.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>

#include <memory>

namespace zv::test {
namespace {

constexpr auto kIni = "[ZORVEX]\r\nIP=10.0.0.7\r\n[ZVMONITOR]\r\nMODO=SEMI\r\nREFRESCO=12\r\n"
                      "[CONECTOR]\r\nZVFastPort=17000\r\n";

class frmCfgMonitorTest : public BancoCfg {
  protected:
    static void SetUpTestSuite() { tema::Aplicar(*qApp); }

    frmCfgMonitor& Mostrar(const QByteArray& ini = kIni, const QSize& tamano = QSize(1024, 768)) {
        pantalla.reset();
        Cargar(ini);
        pantalla = std::make_unique<frmCfgMonitor>(*cfg, nullptr, [this](QWidget& sobre) {
            EXPECT_EQ(&sobre, pantalla.get());
            return elegido;
        });
        pantalla->show();
        pantalla->resize(tamano);
        Turnos();
        return *pantalla;
    }
    static void Turnos() {
        for (int i = 0; i < 4; ++i) {
            QApplication::processEvents();
        }
    }
    template <typename T = QWidget>
    T& Control(const QByteArray& nombre) {
        auto* control = pantalla->findChild<T*>(QString::fromLatin1(nombre));
        if (control == nullptr) {
            throw std::runtime_error(nombre.toStdString());
        }
        return *control;
    }
    QLineEdit& Campo(int n) { return Control<QLineEdit>("tbCfg_" + QByteArray::number(n)); }
    QToolButton& Boton(int n) { return Control<QToolButton>("boton_" + QByteArray::number(n)); }
    bool Guardable() { return Boton(1).isEnabled(); }
    void Tocar(const QByteArray& nombre) {
        QTest::mouseClick(&Control(nombre), Qt::LeftButton);
        Turnos();
    }
    void Teclear(int campo, const QString& texto) {
        Campo(campo).setFocus();
        Campo(campo).selectAll();
        QTest::keyClicks(&Campo(campo), texto);
    }
    static QAccessibleInterface& Accesible(QWidget& control) {
        return *QAccessible::queryAccessibleInterface(&control);
    }
    static QString NombreDe(QWidget& control) { return Accesible(control).text(QAccessible::Name); }

    QString elegido;
    std::unique_ptr<frmCfgMonitor> pantalla;
};

TEST_F(frmCfgMonitorTest, ShowsTheSettingsWithTheirCaptions) {
    Mostrar();
    EXPECT_EQ(pantalla->Titulo(), u"Monitor - Configuración"_s);
    EXPECT_EQ(pantalla->windowTitle(), u"Zorvex ®"_s);
    const std::pair<const char*, const char*> nombres[] = {
        {"btnModo_0", "AUTO"},
        {"btnModo_1", "MANUAL"},
        {"btnModo_2", "SEMIAUTO"},
        {"tbCfg_0", "IP Zorvex:"},
        {"btnTestZV", "Test"},
        {"tbCfg_1", "Refresco:"},
        {"lblSegundos", "seg."},
        {"btnCol_1", "Id. Caja"},
        {"btnCol_2", "Id. 2"},
        {"btnCol_3", "Terminal"},
        {"btnCol_4", "Vendedor"},
        {"btnCol_5", "FormaPago"},
        {"btnCfg_0", "Minimiza al iniciar"},
        {"btnCfg_1", "Acceso directo flotante"},
        {"btnCfg_2", "Sin impresora"},
        {"btnCfg_3", "No permitir pagos"},
        {"btnCfg_5", "Preguntar concepto en pagos/cobros manuales"},
        {"btnCfg_6", "Preguntar causa anulación"},
        {"btnConector_0", "ZVFast"},
        {"btnConector_1", "Conector"},
        {"tbCfg_3", "Puerto ZVFast:"},
        {"tbCfg_2", "Ruta Conector:"},
        {"btnExplorer1_0", "Escoger conector"},
        {"lblUsuarios", "Usuarios:"},
        {"btnUsuarios", "Gestión de usuarios"},
        {"btnAccesos", "Registro de accesos"},
        {"boton_0", "Salir"},
        {"boton_1", "Guardar"},
        {"boton_2", "Teclado"},
        {"boton_13", "Conf. Código de Barras"},
        {"lblModo", "Iniciar en modo"},
        {"lblColumnas", "Columnas/texto a mostrar:"},
        {"lblPersonalizacion", "Personalización:"},
        {"lblConector", "Tipo de Conector:"}};
    for (const auto& [control, nombre] : nombres) {
        EXPECT_EQ(NombreDe(Control(control)), QString::fromUtf8(nombre)) << control;
    }
    EXPECT_EQ(Control<QPushButton>("btnExplorer1_0").text(), u"..."_s);
    EXPECT_EQ(Campo(0).text(), u"10.0.0.7"_s);
    EXPECT_EQ(Campo(1).text(), u"12"_s);
    EXPECT_EQ(Campo(3).text(), u"17000"_s);
    EXPECT_TRUE(Control<QPushButton>("btnModo_2").isChecked());
    EXPECT_FALSE(Guardable());
}

TEST_F(frmCfgMonitorTest, TogglesAreCheckBoxesAndModesRadioButtonsWithTheirState) {
    Mostrar();
    for (const InterruptorAjuste& cada : kInterruptoresCfg) {
        QWidget& control = Control(cada.rotulo->Nombre().toLatin1());
        EXPECT_EQ(Accesible(control).role(), QAccessible::CheckBox);
        EXPECT_EQ(Accesible(control).state().checked, Pulsado(cada.ajuste->clave.data()));
    }
    for (int i = 0; i < 3; ++i) {
        QWidget& control = Control("btnModo_" + QByteArray::number(i));
        EXPECT_EQ(Accesible(control).role(), QAccessible::RadioButton);
        EXPECT_EQ(Accesible(control).state().checked, i == 2);
    }
}

TEST_F(frmCfgMonitorTest, EachToggleTurnsItsSettingAndLightsTheSaveButton) {
    for (std::size_t i = 0; i < kInterruptoresCfg.size(); ++i) {
        Mostrar();
        const QByteArray nombre = kInterruptoresCfg[i].rotulo->Nombre().toLatin1();
        const bool antes = E().pulsado[i];
        Tocar(nombre);
        EXPECT_EQ(E().pulsado[i], !antes) << nombre.constData();
        EXPECT_EQ(Control<Interruptor>(nombre).isChecked(), !antes);
        EXPECT_TRUE(Guardable());
        Tocar(nombre);
        EXPECT_EQ(Control<Interruptor>(nombre).isChecked(), antes);
        EXPECT_TRUE(Guardable());
    }
}

TEST_F(frmCfgMonitorTest, OneOfThreeModes) {
    Mostrar();
    Tocar("btnModo_2");
    EXPECT_FALSE(Guardable());
    Tocar("btnModo_0");
    EXPECT_EQ(E().modo, 0);
    EXPECT_FALSE(Control<QPushButton>("btnModo_2").isChecked());
    EXPECT_TRUE(Guardable());
}

TEST_F(frmCfgMonitorTest, PortAndPathAreThereWhileTheirSwitchIsOn) {
    Mostrar();
    const auto visible = [this](const char* nombre) { return Control(nombre).isVisible(); };
    EXPECT_TRUE(visible("tbCfg_3") && visible("lblPuerto"));
    EXPECT_FALSE(visible("tbCfg_2") || visible("lblRuta") || visible("btnExplorer1_0"));
    Tocar("btnConector_1");
    EXPECT_TRUE(visible("tbCfg_2") && visible("lblRuta") && visible("btnExplorer1_0"));
    Tocar("btnConector_0");
    EXPECT_FALSE(visible("tbCfg_3") || visible("lblPuerto"));
    EXPECT_TRUE(visible("tbCfg_2"));
}

TEST_F(frmCfgMonitorTest, WhatIsTypedGoesToItsSetting) {
    Mostrar(QByteArray(kIni) + "ZVConectorActive=1\r\n");
    Teclear(0, u"caja-7:9000"_s);
    Teclear(1, u"12345"_s); // three at most
    Teclear(3, u"16777"_s);
    Teclear(2, u"/opt/x"_s);
    EXPECT_TRUE(Guardable());
    EXPECT_EQ(E().Texto(CampoCfg::IP), u"caja-7:9000"_s);
    EXPECT_EQ(E().Texto(CampoCfg::Refresco), u"123"_s);
    EXPECT_EQ(E().Texto(CampoCfg::Puerto), u"16777"_s);
    EXPECT_EQ(E().Texto(CampoCfg::Ruta), u"/opt/x"_s);
}

TEST_F(frmCfgMonitorTest, ALongTextAndAPastedOneOfSeveralLinesAreCut) {
    Mostrar();
    for (const int campo : {0, 3}) {
        QApplication::clipboard()->setText(QString(3000, u'7'));
        Campo(campo).selectAll();
        Campo(campo).paste();
        EXPECT_EQ(Campo(campo).text(), QString(255, u'7')); // what a file gives back
        QApplication::clipboard()->setText(u"10.0.0.8\r\nIP=1.1.1.1"_s);
        Campo(campo).selectAll();
        Campo(campo).paste();
        EXPECT_EQ(Campo(campo).text(), u"10.0.0.8"_s);
        EXPECT_EQ(E().tbCfg[static_cast<std::size_t>(campo)], u"10.0.0.8"_s);
    }
    QApplication::clipboard()->setText(u"1\r\n2"_s);
    Campo(1).selectAll();
    Campo(1).paste();
    EXPECT_EQ(Campo(1).text(), u"1"_s);
}

TEST_F(frmCfgMonitorTest, TypingInTheMiddleOfATextKeepsTheCursor) {
    Mostrar();
    Campo(0).setFocus();
    Campo(0).setCursorPosition(2);
    QTest::keyClicks(&Campo(0), u"123"_s);
    EXPECT_EQ(Campo(0).text(), u"10123.0.0.7"_s);
    EXPECT_EQ(Campo(0).cursorPosition(), 5);
}

TEST_F(frmCfgMonitorTest, EnterInTheAddressTestsTheDevice) {
    Mostrar();
    for (const bool tecla : {true, false}) {
        cliente.EsperaConnect();
        cliente.EsperaDisconnect();
        dialogos.EsperaMensaje(u"Zorvex"_s, u"Conexión establecida"_s, Respuesta::Aceptar,
                               EstiloMensaje::Informacion, [&] {
                                   // The test's box stands: nothing else goes on under it.
                                   Tocar("btnTestZV");
                                   Tocar("btnCol_2");
                                   EXPECT_FALSE(Control<QAbstractButton>("btnCol_2").isChecked());
                                   Tocar("btnModo_0");
                                   EXPECT_FALSE(Control<QAbstractButton>("btnModo_0").isChecked());
                                   pantalla->reject();
                                   EXPECT_TRUE(pantalla->isVisible());
                               });
        if (tecla) {
            QTest::keyClick(&Campo(0), Qt::Key_Return);
        } else {
            Tocar("btnTestZV");
        }
        EXPECT_TRUE(cliente.Agotado());
    }
    EXPECT_EQ(Control<QLabel>("lbPrueba").text(), u"Conexión establecida"_s);
    EXPECT_TRUE(Control("lbPrueba").isVisible());
    EXPECT_TRUE(pantalla->isVisible());
    EXPECT_FALSE(Guardable());
}

TEST_F(frmCfgMonitorTest, WithoutAnAddressTheTestIsOff) {
    Mostrar();
    Campo(0).clear();
    EXPECT_FALSE(Control("btnTestZV").isEnabled());
    QTest::keyClick(&Campo(0), Qt::Key_Return);
    EXPECT_EQ(cliente.Llamadas(), QStringList());
}

TEST_F(frmCfgMonitorTest, AFailedTestPutsTheFocusInTheAddress) {
    Mostrar();
    pantalla->activateWindow();
    cliente.EsperaConnect(FinGuion::Error(7, {}));
    dialogos.EsperaMensaje(u"Zorvex"_s, u"No se puede conectar con Zorvex"_s);
    Tocar("btnTestZV");
    EXPECT_EQ(pantalla->focusWidget(), &Campo(0));
}

TEST_F(frmCfgMonitorTest, EnterInTheRefreshFieldChecksIt) {
    Mostrar();
    Teclear(1, u"x"_s);
    dialogos.EsperaMensaje(u"Error de configuración"_s, u"Se esperaba un valor númerico"_s);
    QTest::keyClick(&Campo(1), Qt::Key_Return);
    EXPECT_EQ(Campo(1).text(), u"12"_s);
    EXPECT_EQ(pantalla->focusWidget(), &Campo(1));
    EXPECT_TRUE(pantalla->isVisible()); // nor does Enter press anything
}

TEST_F(frmCfgMonitorTest, TheChosenFileGoesToThePath) {
    Mostrar(QByteArray(kIni) + "ZVConectorActive=1\r\nZVConectorPath=/opt/x\r\n");
    Tocar("btnExplorer1_0");
    EXPECT_EQ(Campo(2).text(), u"/opt/x"_s); // none was chosen
    EXPECT_FALSE(Guardable());
    elegido = u"/opt/otro"_s;
    Tocar("btnExplorer1_0");
    EXPECT_EQ(Campo(2).text(), u"/opt/otro"_s);
    EXPECT_TRUE(Guardable());
}

TEST_F(frmCfgMonitorTest, SavingLeavesTheScreenAndANoStays) {
    Mostrar();
    Tocar("btnCol_2");
    PreguntaGuardar(Respuesta::No);
    Tocar("boton_1");
    EXPECT_TRUE(pantalla->isVisible());
    EXPECT_TRUE(Guardable());
    PreguntaGuardar();
    Tocar("boton_1");
    EXPECT_FALSE(pantalla->isVisible());
    EXPECT_EQ(Global().COLID2, 1);
    EXPECT_EQ(dialogos.Pendientes(), 0U);
}

TEST_F(frmCfgMonitorTest, ASecondTouchOnTheEndedScreenDoesNothing) {
    Mostrar();
    Tocar("btnCol_2");
    PreguntaGuardar();
    Tocar("boton_1");
    ASSERT_FALSE(pantalla->isVisible());
    for (const char* nombre : {"boton_1", "boton_13", "btnConector_1", "btnCol_3"}) {
        Control<QAbstractButton>(nombre).click();
        Turnos();
    }
    EXPECT_EQ(Global().COLTERMINAL, 0);
    EXPECT_FALSE(Control<QAbstractButton>("btnCol_3").isChecked());
    EXPECT_EQ(dialogos.Pendientes(), 0U);
}

TEST_F(frmCfgMonitorTest, EveryWayOutAsksWhenSomethingIsUnsaved) {
    const std::function<void()> salidas[] = {
        [this] { Tocar("boton_0"); }, [this] { Tocar("btnW_1"); },
        [this] { QTest::keyClick(pantalla.get(), Qt::Key_Escape); }, [this] { pantalla->close(); }};
    for (const auto& salir : salidas) {
        Mostrar();
        Tocar("btnCol_2");
        PreguntaSalir(Respuesta::No);
        salir();
        EXPECT_TRUE(pantalla->isVisible());
        PreguntaSalir(Respuesta::Si);
        salir();
        EXPECT_FALSE(pantalla->isVisible());
        Mostrar();
        salir();
        EXPECT_FALSE(pantalla->isVisible());
        EXPECT_EQ(dialogos.Pendientes(), 0U);
    }
    EXPECT_EQ(Global().COLID2, 0);
}

TEST_F(frmCfgMonitorTest, ARefusedFieldHasTheFocus) {
    Mostrar();
    Teclear(3, u"x"_s);
    PreguntaGuardar();
    dialogos.EsperaMensaje(u"Error de configuración"_s, u"Falta el puerto del ZVFast"_s);
    Tocar("boton_1");
    EXPECT_EQ(pantalla->focusWidget(), &Campo(3));
    EXPECT_TRUE(pantalla->isVisible());
}

TEST_F(frmCfgMonitorTest, DoorsThatLeadNowhereAreOff) {
    pantallas.faltan = {Pantalla::Balanza};
    Mostrar();
    EXPECT_FALSE(Control("btnUsuarios").isEnabled()); // without a database
    EXPECT_FALSE(Control("btnAccesos").isEnabled());
    EXPECT_FALSE(Boton(13).isEnabled());
    AbrirBase();
    pantallas.faltan = {Pantalla::Accesos};
    Mostrar();
    EXPECT_TRUE(Control("btnUsuarios").isEnabled());
    EXPECT_FALSE(Control("btnAccesos").isEnabled());
    EXPECT_TRUE(Boton(13).isEnabled());
    pantallas.faltan.clear();
    Mostrar();
    pantallas.EsperaAbrir(Pantalla::Usuarios);
    Tocar("btnUsuarios");
    pantallas.EsperaAbrir(Pantalla::Accesos);
    Tocar("btnAccesos");
    EXPECT_FALSE(Guardable());
    pantallas.EsperaBalanza();
    Tocar("boton_13");
    EXPECT_TRUE(Guardable());
}

TEST_F(frmCfgMonitorTest, TheKeyboardOpensOrTheScreenSaysThatThereIsNone) {
    Mostrar();
    EXPECT_FALSE(Control("lbAviso").isVisible());
    Tocar("boton_2");
    EXPECT_EQ(teclados, 1);
    EXPECT_FALSE(Control("lbAviso").isVisible());
    hayTeclado = false;
    Tocar("boton_2");
    EXPECT_TRUE(Control("lbAviso").isVisible());
    EXPECT_EQ(Control<QLabel>("lbAviso").text(), u"Este equipo no tiene teclado en pantalla"_s);
}

TEST_F(frmCfgMonitorTest, SaysBesideAFieldWhatIsWrongWithIt) {
    ocupados = {8080};
    Mostrar(QByteArray(kIni) + "ZVConectorActive=1\r\n");
    EXPECT_FALSE(Control("lbNotaPuerto").isVisible());
    Teclear(3, u"8080"_s);
    EXPECT_TRUE(Control("lbNotaPuerto").isVisible());
    EXPECT_EQ(Control<QLabel>("lbNotaPuerto").text(), u"Otro programa usa este puerto"_s);
    Teclear(2, u"/"_s);
    EXPECT_EQ(Control<QLabel>("lbNotaRuta").text(), u"Es una carpeta: escoja el programa"_s);
}

TEST_F(frmCfgMonitorTest, AFailureOfASaveEndsTheScreenAndIsTheCallers) {
    Mostrar();
    Teclear(1, u"9e9"_s);
    PreguntaGuardar();
    Tocar("boton_1");
    EXPECT_FALSE(pantalla->isVisible());
    EXPECT_EQ(NumeroError([&] { pantalla->LanzarFallo(); }), 6);
}

TEST_F(frmCfgMonitorTest, NothingIsScrolledAtTheSmallestTillAndAllCanBeTouched) {
    for (const QSize& tamano : {QSize(1024, 768), QSize(1366, 768), QSize(1920, 1080)}) {
        Mostrar(QByteArray(kIni) + "ZVConectorActive=1\r\nZVConectorPath=/\r\n", tamano);
        EXPECT_EQ(Control<QScrollArea>("").verticalScrollBar()->maximum(), 0) << tamano.width();
        for (QWidget* control : pantalla->findChildren<QWidget*>()) {
            const bool tactil = qobject_cast<QAbstractButton*>(control) != nullptr ||
                                qobject_cast<QLineEdit*>(control) != nullptr;
            if (tactil && control->isVisible() && !control->objectName().startsWith(u"qt_")) {
                EXPECT_GE(control->height(), 44) << control->objectName().toStdString();
                EXPECT_GE(control->width(), 44) << control->objectName().toStdString();
            }
        }
    }
}

TEST_F(frmCfgMonitorTest, ALanguageFileMakesItEnglish) {
    Mostrar();
    const auto suyo = std::move(cfg); // outlives its screen
    const std::unique_ptr<frmCfgMonitor> castellana = std::move(pantalla);
    const IdiomaIngles idioma;
    carpeta.Pon(u"RWLang.ini"_s, idioma.bytes);
    Mostrar();
    ComprobarEnIngles(*castellana, *pantalla,
                      {u"btnModo_0"_s, u"btnModo_1"_s, u"btnModo_2"_s, u"lblZorvex"_s,
                       u"btnTestZV"_s, u"btnCol_3"_s, u"btnConector_0"_s, u"btnLogo"_s});
}

} // namespace
} // namespace zv::test
