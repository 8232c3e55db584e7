// The login in its two shapes.
#include "access/screens/frmLogin.h"

#include "BancoPantallas.h"
#include "support/CarpetaTemporal.h"
#include "support/GanchoFallos.h"
#include "ui/Importes.h"
#include "ui/screens/DialogosPantalla.h"
#include "ui/screens/TecladoNumerico.h"

#include <QPushButton>

#include <optional>

namespace zv::test {
namespace {

class frmLoginTest : public BancoPantallas {
  protected:
    frmLoginTest() {
        Poner(u"ANA"_s, u"1234"_s, 0);
        Poner(u"LUIS"_s, u"5678"_s, 1);
        Poner(u"EVA"_s, u"9012"_s, 2);
    }

    frmLogin& Abrir(bool devuelveDinero = false) {
        pantalla.emplace(usuarios, dialogos, textos);
        pantalla->FormaIdentificacion(devuelveDinero);
        Mostrar(*pantalla);
        return *pantalla;
    }
    frmLogin& AbrirCambio() {
        pantalla.emplace(usuarios, dialogos, textos);
        pantalla->FormaCambioContrasena();
        Mostrar(*pantalla);
        return *pantalla;
    }
    QLineEdit& Password() { return Campo(*pantalla, "txtPassword"); }
    QLineEdit& Nueva() { return Campo(*pantalla, "txtNewPassword"); }
    QLineEdit& Repetida() { return Campo(*pantalla, "txtRepeatPassword"); }
    void Rellenar(const QString& nombre, const QString& password, const QString& nueva = {},
                  const QString& repetida = {}) {
        Elegir(*pantalla, nombre);
        Password().setText(password);
        Nueva().setText(nueva);
        Repetida().setText(repetida);
    }
    void Entrar() { Tocar(*pantalla, "teci_10"); }
    void Cancelar() { Tocar(*pantalla, "teci_11"); }
    void EsperaIncorrecta() {
        dialogos.EsperaMensaje(u"Contraseña incorrecta"_s,
                               u"La contraseña introducida es incorrecta"_s, Respuesta::Aceptar,
                               EstiloMensaje::Aceptar);
    }
    void EsperaCorta() {
        dialogos.EsperaMensaje(u"Crear Usuario"_s,
                               u"Debes introducir una contraseña de mas de 4 digitos"_s,
                               Respuesta::Aceptar, EstiloMensaje::Aceptar);
    }
    void EsperaDistintas() {
        dialogos.EsperaMensaje(u"Contraseña incorrecta"_s,
                               u"Las contraseñas introducidas no coinciden"_s, Respuesta::Aceptar,
                               EstiloMensaje::Aceptar);
    }
    void EsperaDevolver(Respuesta respuesta) {
        dialogos.EsperaMensaje(u"Añadir cambio anulado"_s,
                               u"Se va a devolver el dinero introducido"_s, respuesta,
                               EstiloMensaje::AceptarCancelar);
    }
    void EsNadie() {
        EXPECT_EQ(pantalla->Quien().nombre, QString());
        EXPECT_EQ(pantalla->Quien().nivel, kSinNivel);
    }
    // The screen stands, with its two new fields empty and the keypad at the first of them.
    void SigueConNuevasVacias() {
        EXPECT_TRUE(pantalla->isVisible());
        EXPECT_EQ(Password().text(), u"1234"_s);
        EXPECT_EQ(Nueva().text(), QString());
        EXPECT_EQ(Repetida().text(), QString());
        EXPECT_EQ(pantalla->focusWidget(), &Nueva());
        EXPECT_EQ(Tabla().first(), u"ANA/1234/0"_s);
    }

    std::optional<frmLogin> pantalla;
};

// ---- how it comes up

TEST_F(frmLoginTest, ListsAllUsersInTheirOrderAndChoosesNone) {
    Abrir();
    QStringList nombres;
    for (int i = 0; i < Lista(*pantalla).count(); ++i) {
        nombres << Lista(*pantalla).itemText(i);
    }
    EXPECT_EQ(nombres, (QStringList{u"ANA"_s, u"EVA"_s, u"LUIS"_s}));
    EXPECT_EQ(Lista(*pantalla).currentIndex(), -1);
    EXPECT_EQ(Lista(*pantalla).placeholderText(), u"Elija un usuario"_s);
    EXPECT_FALSE(Lista(*pantalla).isEditable());
    EsNadie();
}

TEST_F(frmLoginTest, ForIdentificationTheFieldsOfANewPasswordAreNotThere) {
    Abrir();
    EXPECT_EQ(pantalla->Titulo(), u"Identificación"_s);
    EXPECT_EQ(pantalla->objectName(), u"frmLogin"_s);
    EXPECT_EQ(pantalla->windowTitle(), u"Zorvex ®"_s);
    for (const char* oculto :
         {"lblNewPassword", "txtNewPassword", "lblRepeatPassword", "txtRepeatPassword", "lbNota"}) {
        EXPECT_FALSE(Control<QWidget>(*pantalla, oculto).isVisible()) << oculto;
    }
    for (const char* visible : {"lblUsuario", "cmbNom", "lblPassword", "txtPassword"}) {
        EXPECT_TRUE(Control<QWidget>(*pantalla, visible).isVisible()) << visible;
    }
}

TEST_F(frmLoginTest, ForAChangeOfPasswordAllFieldsAreThere) {
    AbrirCambio();
    EXPECT_EQ(pantalla->Titulo(), u"Modificar contraseña"_s);
    for (const char* visible :
         {"lblUsuario", "cmbNom", "lblPassword", "txtPassword", "lblNewPassword", "txtNewPassword",
          "lblRepeatPassword", "txtRepeatPassword"}) {
        EXPECT_TRUE(Control<QWidget>(*pantalla, visible).isVisible()) << visible;
    }
}

TEST_F(frmLoginTest, CaptionsAreTheBuiltInOnes) {
    AbrirCambio();
    EXPECT_EQ(Texto(*pantalla, "lblUsuario"), u"Usuario"_s);
    EXPECT_EQ(Texto(*pantalla, "lblPassword"), u"Contraseña"_s);
    EXPECT_EQ(Texto(*pantalla, "lblNewPassword"), u"Nueva contraseña"_s);
    EXPECT_EQ(Texto(*pantalla, "lblRepeatPassword"), u"Repetir contraseña"_s);
    const char* captions[] = {"9", "4", "5", "6",      "1",        "2",        "3",
                              "7", "8", "0", "Entrar", "Cancelar", "Retroceso"};
    for (int i = 0; i < 13; ++i) {
        const QAbstractButton& tecla =
            Boton(*pantalla, QByteArray("teci_") + QByteArray::number(i));
        EXPECT_EQ(tecla.text(), QString::fromLatin1(captions[i])) << i;
        EXPECT_EQ(tecla.accessibleName().isEmpty() ? tecla.text() : tecla.accessibleName(),
                  QString::fromLatin1(captions[i]));
        if (i < 10) {
            EXPECT_EQ(tecla.property("Tag").toString(), QString::fromLatin1(captions[i])) << i;
        }
    }
    frmLogin sinForma(usuarios, dialogos, textos);
    EXPECT_EQ(sinForma.Titulo(), u"Login"_s);
}

TEST_F(frmLoginTest, FieldsAreCalledLikeTheirLabels) {
    AbrirCambio();
    EXPECT_EQ(Lista(*pantalla).accessibleName(), u"Usuario"_s);
    EXPECT_EQ(Password().accessibleName(), u"Contraseña"_s);
    EXPECT_EQ(Nueva().accessibleName(), u"Nueva contraseña"_s);
    EXPECT_EQ(Repetida().accessibleName(), u"Repetir contraseña"_s);
    EXPECT_EQ(pantalla->accessibleName(), u"Modificar contraseña"_s);
}

TEST_F(frmLoginTest, WhatIsTypedIsShownAsAsterisks) {
    AbrirCambio();
    for (QLineEdit* campo : {&Password(), &Nueva(), &Repetida()}) {
        campo->setText(u"1234"_s);
        EXPECT_EQ(campo->displayText(), u"****"_s) << campo->objectName().toStdString();
    }
}

TEST_F(frmLoginTest, TheShapeThatIdentifiesIs2000TwipsLowerAndSoAreItsKeysHigher) {
    for (const int cuantos : {0, 3, 6, 7}) {
        motor.Ejecutar(u"DELETE FROM Usuarios"_s);
        for (int i = 0; i < cuantos; ++i) {
            Poner(u"USUARIO%1"_s.arg(i), u"1234"_s, 2);
        }
        Abrir();
        const QSize baja = pantalla->size();
        const int teclas = Boton(*pantalla, "teci_7").mapTo(&*pantalla, QPoint()).y();
        ComprobarTactil(*pantalla);
        AbrirCambio();
        EXPECT_EQ(pantalla->height() - baja.height(), tema::TwipsAPixeles(2000)) << cuantos;
        EXPECT_EQ(pantalla->width(), baja.width()) << cuantos;
        EXPECT_EQ(Boton(*pantalla, "teci_7").mapTo(&*pantalla, QPoint()).y() - teclas,
                  tema::TwipsAPixeles(2000))
            << cuantos;
        EXPECT_LE(pantalla->height(), 744) << cuantos;
        ComprobarTactil(*pantalla);
    }
}

TEST_F(frmLoginTest, KeysAreLargeAndLieLikeATills) {
    Abrir();
    const auto sitio = [this](const char* nombre) {
        return Boton(*pantalla, nombre).mapTo(&*pantalla, QPoint());
    };
    EXPECT_TRUE(sitio("teci_7").x() < sitio("teci_8").x() &&
                sitio("teci_8").x() < sitio("teci_0").x());
    EXPECT_TRUE(sitio("teci_7").y() < sitio("teci_1").y() &&
                sitio("teci_1").y() < sitio("teci_4").y() &&
                sitio("teci_4").y() < sitio("teci_9").y());
    for (int i = 0; i < 13; ++i) {
        const QAbstractButton& tecla =
            Boton(*pantalla, QByteArray("teci_") + QByteArray::number(i));
        EXPECT_GE(tecla.width(), tema::kTeclaMinima) << i;
        EXPECT_GE(tecla.height(), tema::kTeclaMinima) << i;
    }
}

// ---- a user is chosen

TEST_F(frmLoginTest, ChoosingAUserMovesTheFocusToThePassword) {
    Abrir();
    Lista(*pantalla).setFocus();
    Elegir(*pantalla, u"LUIS"_s);
    EXPECT_EQ(pantalla->focusWidget(), &Password());
    Lista(*pantalla).setFocus();
    Elegir(*pantalla, u"LUIS"_s);
    EXPECT_EQ(pantalla->focusWidget(), &Password());
}

TEST_F(frmLoginTest, FewUsersHaveTilesBesideTheList) {
    Abrir();
    const char* nombres[] = {"ANA", "EVA", "LUIS"};
    for (int i = 0; i < 3; ++i) {
        QAbstractButton& azulejo =
            Boton(*pantalla, QByteArray("btnUsuario_") + QByteArray::number(i));
        EXPECT_EQ(azulejo.accessibleName(), QString::fromLatin1(nombres[i]));
        EXPECT_FALSE(azulejo.isChecked());
        EXPECT_GE(azulejo.height(), tema::kTeclaMinima);
        EXPECT_LT(azulejo.mapTo(&*pantalla, QPoint()).y(),
                  Lista(*pantalla).mapTo(&*pantalla, QPoint()).y());
    }
    Tocar(*pantalla, "btnUsuario_1");
    EXPECT_EQ(Lista(*pantalla).currentText(), u"EVA"_s);
    EXPECT_EQ(pantalla->focusWidget(), &Password());
    Elegir(*pantalla, u"LUIS"_s);
    EXPECT_FALSE(Boton(*pantalla, "btnUsuario_1").isChecked());
    EXPECT_TRUE(Boton(*pantalla, "btnUsuario_2").isChecked());
    Tocar(*pantalla, "btnUsuario_0");
    Cifras(*pantalla, "1234");
    Entrar();
    EXPECT_EQ(pantalla->Quien().nombre, u"ANA"_s);
}

TEST_F(frmLoginTest, SixUsersHaveTilesAndSevenDoNot) {
    for (const char* nombre : {"D", "E", "F"}) {
        Poner(QString::fromLatin1(nombre), u"1234"_s, 2);
    }
    Abrir();
    EXPECT_NE(pantalla->findChild<QAbstractButton*>(u"btnUsuario_5"_s), nullptr);
    ComprobarTactil(*pantalla);
    Poner(u"G"_s, u"1234"_s, 2);
    Abrir();
    EXPECT_EQ(pantalla->findChild<QAbstractButton*>(u"btnUsuario_0"_s), nullptr);
    EXPECT_EQ(Lista(*pantalla).count(), 7);
}

TEST_F(frmLoginTest, ATileShowsItsNameAsItIs) {
    motor.Ejecutar(u"DELETE FROM Usuarios"_s);
    Poner(u"A¬B"_s, u"1234"_s, 0);
    Poner(u"Tú & Yo"_s, u"1234"_s, 0);
    Poner(u"WWWWWWWWWWWWWWWWWWWW"_s, u"1234"_s, 0);
    Abrir();
    EXPECT_EQ(Boton(*pantalla, "btnUsuario_0").text(), u"A¬B"_s);
    EXPECT_EQ(Boton(*pantalla, "btnUsuario_1").text(), u"Tú && Yo"_s);
    EXPECT_EQ(Boton(*pantalla, "btnUsuario_1").accessibleName(), u"Tú & Yo"_s);
    QAbstractButton& larga = Boton(*pantalla, "btnUsuario_2");
    EXPECT_TRUE(larga.text().endsWith(QChar(u'…'))) << larga.text().toStdString();
    EXPECT_LE(larga.fontMetrics().horizontalAdvance(larga.text()), larga.width() - 16);
    EXPECT_EQ(larga.accessibleName(), u"WWWWWWWWWWWWWWWWWWWW"_s);
    ComprobarTactil(*pantalla);
}

TEST_F(frmLoginTest, WithNoUsersTheListSaysSo) {
    motor.Ejecutar(u"DELETE FROM Usuarios"_s);
    AbrirCambio();
    EXPECT_EQ(Lista(*pantalla).count(), 0);
    EXPECT_EQ(Lista(*pantalla).placeholderText(), u"No hay usuarios"_s);
    EXPECT_FALSE(Lista(*pantalla).isEnabled());
    Password().setText(u"1234"_s);
    Entrar();
    EXPECT_TRUE(pantalla->isVisible());
    Cancelar();
    EXPECT_FALSE(pantalla->isVisible());
}

TEST_F(frmLoginTest, EnterWithNoUserChosenDoesNothingAtAll) {
    GanchoFallos gancho(motor);
    Abrir();
    const auto leidas = gancho.vistas.size();
    Password().setText(u"1234"_s);
    EXPECT_FALSE(Boton(*pantalla, "teci_10").isEnabled());
    Entrar();
    QTest::keyClick(&Password(), Qt::Key_Return);
    QTest::keyClick(&*pantalla, Qt::Key_Enter);
    EXPECT_TRUE(pantalla->isVisible());
    EXPECT_EQ(Password().text(), u"1234"_s);
    EXPECT_EQ(gancho.vistas.size(), leidas);
    EsNadie();
    Elegir(*pantalla, u"ANA"_s);
    EXPECT_TRUE(Boton(*pantalla, "teci_10").isEnabled());
}

// ---- the keypad

TEST_F(frmLoginTest, KeysWriteIntoTheFieldLastActive) {
    AbrirCambio();
    Elegir(*pantalla, u"ANA"_s);
    Cifras(*pantalla, "1234");
    Nueva().setFocus();
    Cifras(*pantalla, "9876");
    Repetida().setFocus();
    Cifras(*pantalla, "50");
    // The focus on no field at all.
    Boton(*pantalla, "teci_11").setFocus();
    Cifras(*pantalla, "3");
    EXPECT_EQ(Password().text(), u"1234"_s);
    EXPECT_EQ(Nueva().text(), u"9876"_s);
    EXPECT_EQ(Repetida().text(), u"503"_s);
    Tocar(*pantalla, "teci_12");
    EXPECT_EQ(Repetida().text(), u"50"_s);
    Password().setFocus();
    Tocar(*pantalla, "teci_12");
    EXPECT_EQ(Password().text(), u"123"_s);
    EXPECT_EQ(Repetida().text(), u"50"_s);
}

TEST_F(frmLoginTest, TheFieldThatTheKeysWriteIntoIsSeenToBe) {
    AbrirCambio();
    const auto activo = [](const QLineEdit& campo) { return campo.property("activo").toBool(); };
    EXPECT_TRUE(activo(Password()));
    Nueva().setFocus();
    EXPECT_FALSE(activo(Password()));
    EXPECT_TRUE(activo(Nueva()));
    Lista(*pantalla).setFocus();
    EXPECT_TRUE(activo(Nueva()));
}

TEST_F(frmLoginTest, AllTenKeysWriteTheirDigits) {
    Abrir();
    Cifras(*pantalla, "0123456789");
    EXPECT_EQ(Password().text(), u"0123456789"_s);
}

TEST_F(frmLoginTest, AFieldTakesAsManyCharactersAsTheTable) {
    AbrirCambio();
    for (QLineEdit* campo : {&Password(), &Nueva(), &Repetida()}) {
        campo->setFocus();
        QTest::keyClicks(campo, QString(50, u'x'));
        EXPECT_EQ(campo->text().size(), 40);
    }
}

// ---- identification

TEST_F(frmLoginTest, TheRightPasswordIdentifies) {
    const struct {
        const char* nombre;
        const char* password;
        qint16 nivel;
    } casos[] = {{"ANA", "1234", 0}, {"LUIS", "5678", 1}, {"EVA", "9012", 2}};
    for (const auto& caso : casos) {
        Abrir();
        Rellenar(QString::fromLatin1(caso.nombre), QString::fromLatin1(caso.password));
        Entrar();
        EXPECT_FALSE(pantalla->isVisible());
        EXPECT_EQ(pantalla->Quien().nombre, QString::fromLatin1(caso.nombre));
        EXPECT_EQ(pantalla->Quien().nivel, caso.nivel);
    }
}

TEST_F(frmLoginTest, AWrongPasswordIsToldAndCanBeRepeatedWithoutLimit) {
    Abrir();
    Rellenar(u"ANA"_s, u"4321"_s);
    for (int vez = 0; vez < 20; ++vez) {
        EsperaIncorrecta();
        Entrar();
        EXPECT_EQ(dialogos.Pendientes(), 0U);
        EXPECT_TRUE(pantalla->isVisible());
        EXPECT_EQ(Password().text(), u"4321"_s);
        EXPECT_EQ(Lista(*pantalla).currentText(), u"ANA"_s);
        EsNadie();
    }
    // The next keys write over it.
    Cifras(*pantalla, "1234");
    Entrar();
    EXPECT_EQ(pantalla->Quien().nombre, u"ANA"_s);
}

TEST_F(frmLoginTest, AnEmptyPasswordIsAWrongOne) {
    Abrir();
    Rellenar(u"ANA"_s, QString());
    EsperaIncorrecta();
    Entrar();
    EXPECT_TRUE(pantalla->isVisible());
}

TEST_F(frmLoginTest, ThePasswordOfAnotherUserIsAWrongOne) {
    Abrir();
    Rellenar(u"ANA"_s, u"9012"_s);
    EsperaIncorrecta();
    Entrar();
    EsNadie();
}

TEST_F(frmLoginTest, PasswordsCompareWithoutCase) {
    Poner(u"RAÚL"_s, u"Clave"_s, 2);
    Abrir();
    Rellenar(u"RAÚL"_s, u"cLAVE"_s);
    Entrar();
    EXPECT_EQ(pantalla->Quien().nombre, u"RAÚL"_s);
}

TEST_F(frmLoginTest, EnterInThePasswordEntersAndEscapeCancels) {
    for (const Qt::Key tecla : {Qt::Key_Return, Qt::Key_Enter}) {
        Abrir();
        Rellenar(u"ANA"_s, u"1234"_s);
        QTest::keyClick(&Password(), tecla);
        EXPECT_EQ(pantalla->Quien().nombre, u"ANA"_s);
    }
    Abrir();
    Rellenar(u"ANA"_s, u"1234"_s);
    QTest::keyClick(&Password(), Qt::Key_Escape);
    EXPECT_FALSE(pantalla->isVisible());
    EsNadie();
}

TEST_F(frmLoginTest, EnterInAnyFieldPressesTheFilledKeyAndNoOther) {
    AbrirCambio();
    for (const QPushButton* boton : pantalla->findChildren<QPushButton*>()) {
        EXPECT_FALSE(boton->autoDefault()) << boton->objectName().toStdString();
        EXPECT_EQ(boton->isDefault(), boton->objectName() == u"teci_10"_s);
    }
    for (const char* campo : {"cmbNom", "txtPassword", "txtNewPassword", "txtRepeatPassword"}) {
        AbrirCambio();
        Rellenar(u"ANA"_s, u"1234"_s, u"1234"_s, u"1234"_s);
        auto& este = Control<QWidget>(*pantalla, campo);
        este.setFocus();
        QTest::keyClick(&este, Qt::Key_Return);
        EXPECT_FALSE(pantalla->isVisible()) << campo;
        EXPECT_EQ(pantalla->Quien().nombre, u"ANA"_s) << campo;
    }
}

TEST_F(frmLoginTest, TabGoesFromFieldToFieldAndThenToTheKeys) {
    AbrirCambio();
    Elegir(*pantalla, u"ANA"_s);
    Lista(*pantalla).setFocus();
    for (const char* siguiente :
         {"txtPassword", "txtNewPassword", "txtRepeatPassword", "teci_10", "teci_11"}) {
        QTest::keyClick(pantalla->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(pantalla->focusWidget()->objectName(), QString::fromLatin1(siguiente));
    }
    for (const QLabel* rotulo : pantalla->findChildren<QLabel*>()) {
        if (rotulo->objectName().startsWith(u"lbl"_s)) {
            ASSERT_NE(rotulo->buddy(), nullptr) << rotulo->objectName().toStdString();
            EXPECT_EQ(rotulo->buddy()->accessibleName(), rotulo->text());
        }
    }
}

TEST_F(frmLoginTest, ATileTakesTheKeyboardByTabAloneAndATouchTwiceIsOne) {
    Abrir();
    QAbstractButton& azulejo = Boton(*pantalla, "btnUsuario_1");
    QTest::mousePress(&azulejo, Qt::LeftButton);
    EXPECT_EQ(pantalla->focusWidget(), &Password());
    QTest::mouseRelease(&azulejo, Qt::LeftButton);
    QTest::mouseDClick(&azulejo, Qt::LeftButton);
    EXPECT_TRUE(azulejo.isChecked());
    EXPECT_EQ(Lista(*pantalla).currentText(), u"EVA"_s);
    EXPECT_EQ(pantalla->focusWidget(), &Password());
    EXPECT_TRUE(azulejo.focusPolicy() & Qt::TabFocus);
}

// ---- touched twice: the second touch comes when the first has ended the login, or with its box up

TEST_F(frmLoginTest, EntrarTouchedTwiceIdentifiesOnce) {
    Abrir();
    Rellenar(u"EVA"_s, u"9012"_s);
    GanchoFallos gancho(motor);
    Boton(*pantalla, "teci_10").click();
    const auto preguntas = gancho.vistas.size();
    EXPECT_GT(preguntas, 0U);
    Boton(*pantalla, "teci_10").click();
    Boton(*pantalla, "teci_11").click();
    EXPECT_EQ(gancho.vistas.size(), preguntas);
    EXPECT_EQ(pantalla->result(), QDialog::Accepted);
    EXPECT_EQ(pantalla->Quien().nombre, u"EVA"_s);
}

// The old password is none any more.
TEST_F(frmLoginTest, EntrarTouchedTwiceChangesAPasswordWithoutAReproach) {
    AbrirCambio();
    Rellenar(u"ANA"_s, u"1234"_s, u"4321"_s, u"4321"_s);
    Boton(*pantalla, "teci_10").click();
    Boton(*pantalla, "teci_10").click();
    EXPECT_EQ(dialogos.Llamadas(), QStringList());
    EXPECT_EQ(pantalla->Quien().nombre, u"ANA"_s);
    EXPECT_EQ(Tabla().first(), u"ANA/4321/0"_s);
}

TEST_F(frmLoginTest, CancelarTouchedTwiceAsksOnceAndLeavesNobody) {
    Abrir(true);
    Rellenar(u"EVA"_s, u"9012"_s);
    EsperaDevolver(Respuesta::Aceptar);
    Boton(*pantalla, "teci_11").click();
    Boton(*pantalla, "teci_11").click();
    Boton(*pantalla, "teci_10").click();
    EXPECT_EQ(dialogos.Llamadas().size(), 1);
    EXPECT_EQ(pantalla->result(), QDialog::Rejected);
    EsNadie();
}

TEST_F(frmLoginTest, ASecondTouchWhileItsBoxIsUpIsLost) {
    const Importes importes(FormatoRegional(u"es_ES"_s), [] { return 100; });
    DialogosPantalla reales(u"ZVMonitor"_s, textos, importes);
    frmLogin ventana(usuarios, reales, textos);
    ventana.FormaIdentificacion(true);
    Mostrar(ventana);
    Elegir(ventana, u"EVA"_s);
    for (const char* tecla : {"teci_10", "teci_11"}) {
        const QPoint sitio = Boton(ventana, tecla).mapTo(&ventana, QPoint(10, 10));
        int cajas = 0;
        const AlAbrir abierto([&](QDialog& caja) {
            ++cajas;
            QTest::mouseClick(ventana.windowHandle(), Qt::LeftButton, {}, sitio);
            QTest::mouseDClick(ventana.windowHandle(), Qt::LeftButton, {}, sitio);
            EXPECT_EQ(QApplication::activeModalWidget(), &caja);
            caja.reject();
        });
        QTest::mouseClick(ventana.windowHandle(), Qt::LeftButton, {}, sitio);
        EXPECT_EQ(cajas, 1) << tecla;
        EXPECT_TRUE(ventana.isVisible()) << tecla;
        EXPECT_EQ(QApplication::activeModalWidget(), &ventana) << tecla;
    }
}

TEST_F(frmLoginTest, TheListShowsEightNamesAtOnce) {
    Abrir();
    EXPECT_EQ(Lista(*pantalla).maxVisibleItems(), 8);
}

TEST_F(frmLoginTest, CancelEscapeAndCloseLeaveNobody) {
    const std::function<void()> salidas[] = {
        [this] { Cancelar(); },
        [this] { Tocar(*pantalla, "btnW_1"); },
        [this] { QTest::keyClick(&Lista(*pantalla), Qt::Key_Escape); },
        [this] { pantalla->close(); },
    };
    for (const auto& salir : salidas) {
        Abrir();
        Rellenar(u"ANA"_s, u"1234"_s);
        salir();
        EXPECT_FALSE(pantalla->isVisible());
        EsNadie();
    }
}

TEST_F(frmLoginTest, AtTheFloatACancelIsAskedForAndGivesTheMoneyBack) {
    const std::function<void()> salidas[] = {
        [this] { Cancelar(); },
        [this] { Tocar(*pantalla, "btnW_1"); },
        [this] { QTest::keyClick(&Password(), Qt::Key_Escape); },
        [this] { pantalla->close(); },
    };
    for (const auto& salir : salidas) {
        Abrir(true);
        for (const Respuesta otra : {Respuesta::Cancelar, Respuesta::Ninguna}) {
            EsperaDevolver(otra);
            salir();
            EXPECT_EQ(dialogos.Pendientes(), 0U);
            EXPECT_TRUE(pantalla->isVisible());
        }
        EsperaDevolver(Respuesta::Aceptar);
        salir();
        EXPECT_EQ(dialogos.Pendientes(), 0U);
        EXPECT_FALSE(pantalla->isVisible());
        EsNadie();
    }
}

TEST_F(frmLoginTest, AtTheFloatARightPasswordAsksNothing) {
    Abrir(true);
    Rellenar(u"EVA"_s, u"9012"_s);
    Entrar();
    EXPECT_EQ(pantalla->Quien().nivel, 2);
}

// ---- a new password

TEST_F(frmLoginTest, AChangeNeedsTheOldPassword) {
    AbrirCambio();
    Rellenar(u"ANA"_s, u"0000"_s, u"9999"_s, u"9999"_s);
    EsperaIncorrecta();
    Entrar();
    EXPECT_TRUE(pantalla->isVisible());
    EXPECT_EQ(Password().text(), u"0000"_s);
    EXPECT_EQ(Nueva().text(), u"9999"_s);
    EXPECT_EQ(Repetida().text(), u"9999"_s);
    EXPECT_EQ(Tabla().first(), u"ANA/1234/0"_s);
}

TEST_F(frmLoginTest, AChangeIsWrittenAndTellsWhoItWas) {
    AbrirCambio();
    Rellenar(u"LUIS"_s, u"5678"_s, u"9999"_s, u"9999"_s);
    Entrar();
    EXPECT_FALSE(pantalla->isVisible());
    EXPECT_EQ(Tabla(), (QStringList{u"ANA/1234/0"_s, u"LUIS/9999/1"_s, u"EVA/9012/2"_s}));
    EXPECT_EQ(pantalla->Quien().nombre, u"LUIS"_s);
    EXPECT_EQ(pantalla->Quien().nivel, 1);
}

TEST_F(frmLoginTest, ANewPasswordNeedsFourCharactersWhateverTheWordsSay) {
    AbrirCambio();
    for (const char* corta : {"", "1", "123"}) {
        Rellenar(u"ANA"_s, u"1234"_s, QString::fromLatin1(corta), QString::fromLatin1(corta));
        EsperaCorta();
        Entrar();
        EXPECT_EQ(dialogos.Pendientes(), 0U);
        SigueConNuevasVacias();
    }
    Rellenar(u"ANA"_s, u"1234"_s, u"9876"_s, u"9876"_s);
    Entrar();
    EXPECT_FALSE(pantalla->isVisible());
    EXPECT_EQ(Tabla().first(), u"ANA/9876/0"_s);
}

TEST_F(frmLoginTest, TheLengthIsLookedAtBeforeTheRepetition) {
    AbrirCambio();
    Rellenar(u"ANA"_s, u"1234"_s, u"123"_s, u"4567"_s);
    EsperaCorta();
    Entrar();
    SigueConNuevasVacias();
}

TEST_F(frmLoginTest, TheRepetitionMustBeTheSameToTheLetter) {
    AbrirCambio();
    for (const char* otra : {"abcdf", "ABCDE", "abcde ", ""}) {
        Rellenar(u"ANA"_s, u"1234"_s, u"abcde"_s, QString::fromLatin1(otra));
        EsperaDistintas();
        Entrar();
        EXPECT_EQ(dialogos.Pendientes(), 0U);
        SigueConNuevasVacias();
    }
}

TEST_F(frmLoginTest, ANewPasswordMayBeTheOldOneAndMayHoldAnything) {
    AbrirCambio();
    Rellenar(u"ANA"_s, u"1234"_s, u"1234"_s, u"1234"_s);
    Entrar();
    EXPECT_EQ(Tabla().first(), u"ANA/1234/0"_s);
    AbrirCambio();
    Rellenar(u"ANA"_s, u"1234"_s, u" ñ'% "_s, u" ñ'% "_s);
    Entrar();
    EXPECT_EQ(Tabla().first(), u"ANA/ ñ'% /0"_s);
}

TEST_F(frmLoginTest, ACancelledChangeWritesNothing) {
    AbrirCambio();
    Rellenar(u"ANA"_s, u"1234"_s, u"9999"_s, u"9999"_s);
    Cancelar();
    EXPECT_FALSE(pantalla->isVisible());
    EXPECT_EQ(Tabla().first(), u"ANA/1234/0"_s);
}

// ---- what other programs do meanwhile, and bad texts: a clear end, nothing lost

TEST_F(frmLoginTest, AUserDeletedMeanwhileCannotIdentifyHimself) {
    Abrir();
    Rellenar(u"EVA"_s, u"9012"_s);
    base.Otro()->Ejecutar(u"DELETE FROM Usuarios WHERE nombre = 'EVA'"_s);
    EsperaIncorrecta();
    Entrar();
    EXPECT_TRUE(pantalla->isVisible());
    EsNadie();
}

TEST_F(frmLoginTest, ATableThatIsMissingIsTheFailureOfWhoeverOpens) {
    QuitarTabla();
    EXPECT_EQ(NumeroError([&] { frmLogin(usuarios, dialogos, textos); }), 1);
}

TEST_F(frmLoginTest, ATableThatGoesMeanwhileEndsTheLoginWithItsFailure) {
    Abrir();
    Rellenar(u"EVA"_s, u"9012"_s);
    QuitarTabla();
    Entrar();
    EXPECT_FALSE(pantalla->isVisible());
    EXPECT_EQ(NumeroError([&] { pantalla->Quien(); }), 1);
}

TEST_F(frmLoginTest, AFileThatHasBeenDeletedIsNotWritten) {
    AbrirCambio();
    Rellenar(u"EVA"_s, u"9012"_s, u"9999"_s, u"9999"_s);
    QFile::remove(base.Ruta());
    Entrar();
    EXPECT_FALSE(pantalla->isVisible());
    EXPECT_EQ(NumeroError([&] { pantalla->Quien(); }), 1032);
}

TEST_F(frmLoginTest, ALockedTableEndsAChangeWithItsFailureAndThePasswordStays) {
    AbrirCambio();
    Rellenar(u"EVA"_s, u"9012"_s, u"9999"_s, u"9999"_s);
    const auto otro = base.Otro();
    otro->Comenzar();
    otro->Ejecutar(u"DELETE FROM cola"_s);
    Entrar();
    otro->Deshacer();
    EXPECT_FALSE(pantalla->isVisible());
    EXPECT_EQ(NumeroError([&] { pantalla->Quien(); }), 5);
    EXPECT_EQ(Tabla().last(), u"EVA/9012/2"_s);
}

TEST_F(frmLoginTest, AWriterInAnotherProgramDoesNotStopAnIdentification) {
    Abrir();
    Rellenar(u"EVA"_s, u"9012"_s);
    const auto otro = base.Otro();
    otro->Comenzar();
    otro->Ejecutar(u"UPDATE Usuarios SET password = 'x'"_s);
    Entrar();
    otro->Deshacer();
    EXPECT_EQ(pantalla->Quien().nombre, u"EVA"_s);
}

TEST_F(frmLoginTest, AQuoteInThePasswordIsTheFailureOfItsStatement) {
    for (const char* mala : {"'", "' or '1'='1", "1234' --"}) {
        Abrir();
        Rellenar(u"ANA"_s, QString::fromLatin1(mala));
        Entrar();
        EXPECT_FALSE(pantalla->isVisible()) << mala;
        EXPECT_EQ(NumeroError([&] { pantalla->Quien(); }), 1) << mala;
    }
    EXPECT_EQ(base.Cuenta(u"Usuarios"_s), 3);
}

TEST_F(frmLoginTest, AQuoteInANameIsTheFailureOfItsStatement) {
    Poner(u"O'Brien"_s, u"1234"_s, 0);
    Abrir();
    Rellenar(u"O'Brien"_s, u"1234"_s);
    Entrar();
    EXPECT_FALSE(pantalla->isVisible());
    EXPECT_EQ(NumeroError([&] { pantalla->Quien(); }), 1);
}

TEST_F(frmLoginTest, IsModalAndAboveAllWindows) {
    Abrir();
    EXPECT_EQ(pantalla->windowModality(), Qt::ApplicationModal);
    EXPECT_TRUE(pantalla->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

TEST_F(frmLoginTest, AThousandUsersFitTheScreen) {
    motor.Comenzar();
    for (int i = 0; i < 1000; ++i) {
        Poner(u"USUARIO %1"_s.arg(i), u"1234"_s, 2);
    }
    motor.Confirmar();
    Abrir();
    EXPECT_EQ(Lista(*pantalla).count(), 1003);
    ComprobarTactil(*pantalla);
    Elegir(*pantalla, u"USUARIO 777"_s);
    Cifras(*pantalla, "1234");
    Entrar();
    EXPECT_EQ(pantalla->Quien().nombre, u"USUARIO 777"_s);
}

} // namespace
} // namespace zv::test
