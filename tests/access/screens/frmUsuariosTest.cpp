// The screen that creates, changes and deletes users.
#include "access/screens/frmUsuarios.h"

#include "BancoPantallas.h"

#include <optional>

namespace zv::test {
namespace {

class frmUsuariosTest : public BancoPantallas {
  protected:
    void PonerTres() {
        Poner(u"ANA"_s, u"1234"_s, 0);
        Poner(u"LUIS"_s, u"5678"_s, 1);
        Poner(u"EVA"_s, u"9012"_s, 2);
    }
    frmUsuarios& Abrir() {
        pantalla.emplace(usuarios, seguretat, dialogos, textos);
        Mostrar(*pantalla);
        return *pantalla;
    }
    QLineEdit& Nombre() { return *Lista(*pantalla).lineEdit(); }
    QLineEdit& Password() { return Campo(*pantalla, "txtPassword"); }
    QAbstractButton& Eliminar() { return Boton(*pantalla, "btnEliminar"); }
    // Types over what stands there.
    static void EscribirEn(QLineEdit& campo, const QString& texto) {
        campo.setFocus();
        campo.selectAll();
        QTest::keyClick(&campo, Qt::Key_Delete);
        for (const QChar letra : texto) {
            // The keys of the tests know plain letters only.
            letra.unicode() < 0x80 ? QTest::keyClick(&campo, letra.toLatin1())
                                   : campo.insert(QString(letra));
        }
    }
    void Escribir(const QString& nombre) { EscribirEn(Nombre(), nombre); }
    void EscribirPassword(const QString& password) { EscribirEn(Password(), password); }
    void Rellenar(const QString& nombre, const QString& password, int rol) {
        Escribir(nombre);
        EscribirPassword(password);
        Rol(rol);
    }
    void Rol(int rol) { Tocar(*pantalla, QByteArray("btnAdmin_") + QByteArray::number(rol)); }
    void Guardar() { Tocar(*pantalla, "btnGuardar"); }
    // The role whose button is pressed; -1 for none.
    int Pulsado() {
        for (int i = 0; i < 3; ++i) {
            if (Boton(*pantalla, QByteArray("btnAdmin_") + QByteArray::number(i)).isChecked()) {
                return i;
            }
        }
        return -1;
    }
    void EsperaReparo(const char* texto) {
        dialogos.EsperaMensaje(u"Crear Usuario"_s, QString::fromUtf8(texto), Respuesta::Aceptar,
                               EstiloMensaje::Aceptar);
    }
    void EsperaGuardado() {
        dialogos.EsperaMensaje(u"Usuario guardado"_s, u"Usuario guardado correctamente"_s);
    }
    // A refused save: told, the screen as it was, nothing written.
    void Rechaza(const char* texto) {
        const QStringList antes = Tabla();
        const QString nombre = Nombre().text();
        const QString password = Password().text();
        const int rol = Pulsado();
        EsperaReparo(texto);
        Guardar();
        EXPECT_EQ(dialogos.Pendientes(), 0U) << texto;
        EXPECT_TRUE(pantalla->isVisible());
        EXPECT_EQ(Nombre().text(), nombre);
        EXPECT_EQ(Password().text(), password);
        EXPECT_EQ(Pulsado(), rol);
        EXPECT_EQ(Tabla(), antes);
        EXPECT_FALSE(seguretat.Recargar());
    }
    // The screen has gone, and the kind of protection is to be worked out again.
    void Cerrada() {
        EXPECT_FALSE(pantalla->isVisible());
        EXPECT_TRUE(seguretat.Recargar());
        EXPECT_EQ(NumeroError([&] { pantalla->LanzarFallo(); }), 0);
    }
    void CerradaConFallo(int numero) {
        EXPECT_FALSE(pantalla->isVisible());
        EXPECT_EQ(NumeroError([&] { pantalla->LanzarFallo(); }), numero);
    }

    static constexpr const char* kPrimero = "El primer usuario a crear debe ser un Administrador";
    static constexpr const char* kNombre = "Debes introducir una nombre valido";
    static constexpr const char* kCorta = "Debes introducir una contraseña de mas de 4 digitos";
    static constexpr const char* kRol = "Debes seleccionar un tipo de rol";

    std::optional<frmUsuarios> pantalla;
};

// ---- how it comes up

TEST_F(frmUsuariosTest, WithNobodyTheFirstComesUpAsAnAdministrator) {
    Abrir();
    EXPECT_EQ(pantalla->Titulo(), u"Gestion de usuarios"_s);
    EXPECT_EQ(pantalla->objectName(), u"frmUsuarios"_s);
    EXPECT_EQ(Lista(*pantalla).count(), 0);
    EXPECT_EQ(Nombre().text(), QString());
    EXPECT_EQ(Pulsado(), 0);
    EXPECT_FALSE(Eliminar().isEnabled());
}

TEST_F(frmUsuariosTest, WithUsersNoButtonIsPressedAndTheChosenRoleIsAdministrator) {
    PonerTres();
    Abrir();
    QStringList nombres;
    for (int i = 0; i < Lista(*pantalla).count(); ++i) {
        nombres << Lista(*pantalla).itemText(i);
    }
    EXPECT_EQ(nombres, (QStringList{u"ANA"_s, u"EVA"_s, u"LUIS"_s}));
    EXPECT_EQ(Lista(*pantalla).currentIndex(), -1);
    EXPECT_EQ(Pulsado(), -1);
    EXPECT_FALSE(Eliminar().isEnabled());
    // What is chosen is told below the buttons all the same.
    EXPECT_TRUE(Texto(*pantalla, "lbRol").startsWith(u"Administrador"_s));
    Escribir(u"NUEVO"_s);
    EscribirPassword(u"1234"_s);
    EsperaGuardado();
    Guardar();
    EXPECT_EQ(Tabla().last(), u"NUEVO/1234/0"_s);
}

TEST_F(frmUsuariosTest, CaptionsAndNames) {
    Abrir();
    const std::pair<const char*, const char*> captions[] = {
        {"btnAdmin_0", "Administrador"}, {"btnAdmin_1", "Autorizado"}, {"btnAdmin_2", "Usuario"},
        {"btnGuardar", "Guardar"},       {"btnEliminar", "Eliminar"},  {"btnSortir", "Salir"}};
    for (const auto& [nombre, caption] : captions) {
        EXPECT_EQ(Boton(*pantalla, nombre).text(), QString::fromUtf8(caption));
        EXPECT_EQ(Boton(*pantalla, nombre).accessibleName(), QString::fromUtf8(caption));
    }
    EXPECT_EQ(Boton(*pantalla, "btnTancar").accessibleName(), u"Cerrar"_s);
    EXPECT_EQ(Lista(*pantalla).accessibleName(), u"Usuario"_s);
    EXPECT_EQ(Nombre().accessibleName(), u"Usuario"_s);
    EXPECT_EQ(Password().accessibleName(), u"Contraseña"_s);
    EXPECT_EQ(pantalla->accessibleName(), u"Gestion de usuarios"_s);
    EXPECT_EQ(pantalla->windowTitle(), u"Zorvex ®"_s);
    ComprobarTactil(*pantalla);
}

TEST_F(frmUsuariosTest, TheRolesAreLargeAndSayWhatTheyMayEnter) {
    Abrir();
    const char* empiezan[] = {"Administrador", "Autorizado", "Usuario"};
    for (int i = 2; i >= 0; --i) {
        EXPECT_GE(Boton(*pantalla, QByteArray("btnAdmin_") + QByteArray::number(i)).height(),
                  tema::kTeclaMinima);
        Rol(i);
        EXPECT_EQ(Pulsado(), i);
        EXPECT_TRUE(Texto(*pantalla, "lbRol").startsWith(QString::fromLatin1(empiezan[i])));
    }
}

TEST_F(frmUsuariosTest, ThePasswordIsShownInClear) {
    Abrir();
    Password().setText(u"1234"_s);
    EXPECT_EQ(Password().displayText(), u"1234"_s);
}

// ---- choosing and typing a name

TEST_F(frmUsuariosTest, AChosenNameBringsItsPasswordAndItsRole) {
    PonerTres();
    Abrir();
    const struct {
        const char* nombre;
        const char* password;
        int rol;
    } casos[] = {{"EVA", "9012", 2}, {"ANA", "1234", 0}, {"LUIS", "5678", 1}};
    for (const auto& caso : casos) {
        Elegir(*pantalla, QString::fromLatin1(caso.nombre));
        EXPECT_EQ(Nombre().text(), QString::fromLatin1(caso.nombre));
        EXPECT_EQ(Password().text(), QString::fromLatin1(caso.password));
        EXPECT_EQ(Pulsado(), caso.rol);
        EXPECT_TRUE(Eliminar().isEnabled());
    }
    // The chosen role follows.
    EsperaGuardado();
    Guardar();
    EXPECT_EQ(Tabla(), (QStringList{u"ANA/1234/0"_s, u"LUIS/5678/1"_s, u"EVA/9012/2"_s}));
}

TEST_F(frmUsuariosTest, ATypedNameThatIsNoneEmptiesThePasswordAndCannotBeDeleted) {
    PonerTres();
    Abrir();
    Elegir(*pantalla, u"EVA"_s);
    QTest::keyClicks(&Nombre(), u"X"_s);
    EXPECT_EQ(Nombre().text(), u"EVAX"_s);
    EXPECT_EQ(Password().text(), QString());
    EXPECT_FALSE(Eliminar().isEnabled());
    // The buttons of the roles stay.
    EXPECT_EQ(Pulsado(), 2);
    EXPECT_EQ(Lista(*pantalla).count(), 3);
}

TEST_F(frmUsuariosTest, ATypedNameThatIsOneIsShownWhenItsFieldIsLeft) {
    PonerTres();
    Abrir();
    Escribir(u"eva"_s);
    EXPECT_TRUE(Eliminar().isEnabled());
    EXPECT_EQ(Password().text(), QString());
    EXPECT_EQ(Pulsado(), -1);
    Password().setFocus();
    EXPECT_EQ(Nombre().text(), u"eva"_s);
    EXPECT_EQ(Password().text(), u"9012"_s);
    EXPECT_EQ(Pulsado(), 2);
    // And once only: what is typed afterwards stays.
    EscribirPassword(u"7777"_s);
    Rol(1);
    Nombre().setFocus();
    Password().setFocus();
    EXPECT_EQ(Password().text(), u"7777"_s);
    EXPECT_EQ(Pulsado(), 1);
    EsperaGuardado();
    Guardar();
    EXPECT_EQ(Tabla().last(), u"EVA/7777/1"_s);
}

TEST_F(frmUsuariosTest, ANameOnTheWayToALongerOneChangesNoRole) {
    PonerTres();
    Abrir();
    Rol(1);
    Escribir(u"EVARISTO"_s);
    EXPECT_EQ(Pulsado(), 1);
    EXPECT_FALSE(Eliminar().isEnabled());
}

TEST_F(frmUsuariosTest, TheNextNameOfTwoThatDifferInOneLetterHasNoPasswordOfTheFirst) {
    Poner(u"ANA"_s, u"1111"_s, 0);
    Poner(u"ANA1"_s, u"2222"_s, 0);
    Abrir();
    Elegir(*pantalla, u"ANA1"_s);
    QTest::keyClick(&Nombre(), Qt::Key_Backspace);
    EXPECT_EQ(Nombre().text(), u"ANA"_s);
    EXPECT_EQ(Password().text(), QString());
    EXPECT_TRUE(Eliminar().isEnabled());
    Password().setFocus();
    EXPECT_EQ(Password().text(), u"1111"_s);
}

TEST_F(frmUsuariosTest, NothingIsAddedToWhatIsTyped) {
    PonerTres();
    Abrir();
    Escribir(u"e"_s);
    EXPECT_EQ(Nombre().text(), u"e"_s);
    QTest::keyClick(&Nombre(), Qt::Key_Return);
    EXPECT_EQ(Nombre().text(), u"e"_s);
    EXPECT_EQ(Lista(*pantalla).count(), 3);
    EXPECT_TRUE(pantalla->isVisible());
}

TEST_F(frmUsuariosTest, ANameIsCutToTwentyCharacters) {
    Abrir();
    const QString veinte = u"abcdefghijklmnopqrst"_s;
    Escribir(veinte);
    EXPECT_EQ(Nombre().text(), veinte);
    QTest::keyClicks(&Nombre(), u"u"_s);
    EXPECT_EQ(Nombre().text(), veinte);
    Nombre().setText(veinte + u"uvw"_s);
    EXPECT_EQ(Nombre().text(), veinte);
    // Characters that take two units count once and stay whole.
    const QString llave = QString::fromUtf8("🔑");
    Nombre().setText(llave.repeated(21));
    EXPECT_EQ(Nombre().text(), llave.repeated(20));
    EscribirPassword(u"1234"_s);
    EsperaGuardado();
    Guardar();
    EXPECT_EQ(Tabla(), QStringList{llave.repeated(20) + u"/1234/0"_s});
}

TEST_F(frmUsuariosTest, InAFullNameALetterPushesTheLastOneOutAndTheCursorGoesOn) {
    Abrir();
    Escribir(u"abcdefghijklmnopqrst"_s);
    Nombre().setCursorPosition(3);
    QTest::keyClicks(&Nombre(), u"XY"_s);
    EXPECT_EQ(Nombre().text(), u"abcXYdefghijklmnopqr"_s);
    EXPECT_EQ(Nombre().cursorPosition(), 5);
}

TEST_F(frmUsuariosTest, AShownUserStaysShownInOtherCaseAndIsNotReadAnew) {
    PonerTres();
    Abrir();
    Elegir(*pantalla, u"LUIS"_s);
    Elegir(*pantalla, u"EVA"_s);
    EscribirPassword(u"7777"_s);
    GanchoFallos gancho(motor);
    Nombre().setText(u"eva"_s);
    EXPECT_EQ(Password().text(), u"7777"_s);
    EXPECT_TRUE(Eliminar().isEnabled());
    Nombre().setFocus();
    Password().setFocus();
    EXPECT_EQ(Password().text(), u"7777"_s);
    EXPECT_TRUE(gancho.vistas.empty());
    // Another one's name is another one's password.
    Nombre().setText(u"luis"_s);
    EXPECT_EQ(Password().text(), QString());
    EXPECT_TRUE(Eliminar().isEnabled());
    // And the first one is not shown any more when his name comes back.
    Nombre().setText(u"eva"_s);
    EXPECT_EQ(Password().text(), QString());
    Nombre().setFocus();
    Password().setFocus();
    EXPECT_EQ(Password().text(), u"9012"_s);
    EXPECT_EQ(Pulsado(), 2);
}

TEST_F(frmUsuariosTest, TabGoesFromTheNameToThePasswordTheRolesAndTheOrders) {
    PonerTres();
    Abrir();
    Elegir(*pantalla, u"ANA"_s);
    Lista(*pantalla).setFocus();
    for (const char* siguiente : {"txtPassword", "btnAdmin_0", "btnGuardar", "btnEliminar",
                                  "btnSortir", "btnTancar", "cmbNom"}) {
        QTest::keyClick(pantalla->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(pantalla->focusWidget()->objectName(), QString::fromLatin1(siguiente));
    }
}

TEST_F(frmUsuariosTest, TheListShowsEightNamesAtOnce) {
    Abrir();
    EXPECT_EQ(Lista(*pantalla).maxVisibleItems(), 8);
}

TEST_F(frmUsuariosTest, APasswordTakesAsManyCharactersAsTheTable) {
    Abrir();
    Rellenar(u"ANA"_s, QString(50, u'p'), 0);
    EXPECT_EQ(Password().text(), QString(40, u'p'));
    EsperaGuardado();
    Guardar();
    EXPECT_EQ(Tabla(), QStringList{u"ANA/"_s + QString(40, u'p') + u"/0"_s});
}

TEST_F(frmUsuariosTest, AUserOfNoKnownRoleHasNoButtonAndNeedsOne) {
    Poner(u"ANA"_s, u"1234"_s, 0);
    Poner(u"RARA"_s, u"1234"_s, 7);
    Poner(u"NULA"_s, u"1234"_s, {});
    for (const char* nombre : {"RARA", "NULA"}) {
        Abrir();
        Elegir(*pantalla, QString::fromLatin1(nombre));
        EXPECT_EQ(Pulsado(), -1);
        EXPECT_EQ(Texto(*pantalla, "lbRol"), QString());
        Rechaza(kRol);
        Rol(2);
        EsperaGuardado();
        Guardar();
        Cerrada();
    }
    EXPECT_EQ(Tabla(), (QStringList{u"ANA/1234/0"_s, u"RARA/1234/2"_s, u"NULA/1234/2"_s}));
}

// ---- saving: what is refused, in its order

TEST_F(frmUsuariosTest, TheFirstUserMustBeAnAdministrator) {
    Abrir();
    for (const int rol : {1, 2}) {
        Rellenar(u"EVA"_s, u"1234"_s, rol);
        Rechaza(kPrimero);
    }
    Rol(0);
    EsperaGuardado();
    Guardar();
    Cerrada();
    EXPECT_EQ(Tabla(), QStringList{u"EVA/1234/0"_s});
    EXPECT_EQ(seguretat.GetTipoS(), 1);
}

TEST_F(frmUsuariosTest, AnAutorizadoAloneStillLeavesTheFirstAdministratorToCome) {
    Poner(u"LUIS"_s, u"5678"_s, 1);
    Abrir();
    EXPECT_EQ(Pulsado(), 0);
    Rellenar(u"EVA"_s, u"1234"_s, 2);
    Rechaza(kPrimero);
}

TEST_F(frmUsuariosTest, TheRoleIsLookedAtBeforeTheName) {
    Abrir();
    Rellenar(QString(), QString(), 2);
    Rechaza(kPrimero);
}

TEST_F(frmUsuariosTest, ANameIsNeeded) {
    Abrir();
    Rellenar(QString(), u"1"_s, 0);
    Rechaza(kNombre);
    PonerTres();
    seguretat.PonerRecargar(true);
    Abrir();
    Elegir(*pantalla, u"EVA"_s);
    Escribir(QString());
    Rechaza(kNombre);
}

TEST_F(frmUsuariosTest, TheNameOfTheFastLinkIsReserved) {
    Abrir();
    for (const char* nombre : {"ZVFast", "zvfast", "ZVFAST", "  zvFast", "ZVFAST ", " zvfast  "}) {
        Rellenar(QString::fromLatin1(nombre), u"1234"_s, 0);
        Rechaza(kNombre);
    }
    for (const char* nombre : {"zv fast", "zvfast1"}) {
        Rellenar(QString::fromLatin1(nombre), u"123"_s, 0);
        Rechaza(kCorta);
    }
}

TEST_F(frmUsuariosTest, AChosenUserWithoutANameMayBeSaved) {
    Poner(QString(), u"1234"_s, 0);
    Abrir();
    Elegir(*pantalla, QString());
    EXPECT_EQ(Password().text(), u"1234"_s);
    EscribirPassword(u"5678"_s);
    EsperaGuardado();
    Guardar();
    EXPECT_EQ(Tabla(), QStringList{u"/5678/0"_s});
}

TEST_F(frmUsuariosTest, APasswordNeedsFourCharactersWhateverTheWordsSay) {
    Abrir();
    for (const char* corta : {"", "1", "123"}) {
        Rellenar(u"ANA"_s, QString::fromLatin1(corta), 0);
        Rechaza(kCorta);
    }
    EscribirPassword(u"1234"_s);
    EsperaGuardado();
    Guardar();
    Cerrada();
    EXPECT_EQ(Tabla(), QStringList{u"ANA/1234/0"_s});
}

TEST_F(frmUsuariosTest, TheNameIsLookedAtBeforeThePasswordAndThatBeforeTheRole) {
    Poner(u"ANA"_s, u"1234"_s, 0);
    Poner(u"RARA"_s, u"1"_s, 7);
    Abrir();
    Rellenar(u"zvfast"_s, u"1"_s, 1);
    Rechaza(kNombre);
    Elegir(*pantalla, u"RARA"_s);
    Rechaza(kCorta);
    EscribirPassword(u"1234"_s);
    Rechaza(kRol);
}

TEST_F(frmUsuariosTest, AReproachLeavesTheFocusWhereItIsToBeMended) {
    Abrir();
    const auto foco = [this] { return pantalla->focusWidget()->objectName(); };
    Rellenar(u"ANA"_s, u"1234"_s, 1);
    Rechaza(kPrimero);
    EXPECT_EQ(foco(), u"btnAdmin_0"_s);
    Rellenar(u"zvfast"_s, u"1234"_s, 0);
    Rechaza(kNombre);
    EXPECT_EQ(foco(), u"cmbNom"_s);
    Rellenar(u"ANA"_s, u"123"_s, 0);
    Boton(*pantalla, "btnSortir").setFocus();
    Rechaza(kCorta);
    EXPECT_EQ(foco(), u"txtPassword"_s);
    Poner(u"ANA"_s, u"1234"_s, 0);
    Poner(u"RARA"_s, u"1234"_s, 7);
    seguretat.PonerRecargar(true);
    Abrir();
    Elegir(*pantalla, u"RARA"_s);
    Rechaza(kRol);
    EXPECT_EQ(foco(), u"btnAdmin_0"_s);
}

TEST_F(frmUsuariosTest, ANameIsSavedAsItWasTyped) {
    Abrir();
    Rellenar(u"  José Ñ  "_s, u"cláve"_s, 0);
    EsperaGuardado();
    Guardar();
    EXPECT_EQ(Tabla(), QStringList{u"  José Ñ  /cláve/0"_s});
}

TEST_F(frmUsuariosTest, ANameInOtherCaseIsTheSameUser) {
    PonerTres();
    Abrir();
    Rellenar(u"luis"_s, u"0000"_s, 2);
    EsperaGuardado();
    Guardar();
    EXPECT_EQ(Tabla(), (QStringList{u"ANA/1234/0"_s, u"LUIS/0000/2"_s, u"EVA/9012/2"_s}));
}

TEST_F(frmUsuariosTest, TheLastAdministratorKeepsHisRoleAndTheScreenGoes) {
    PonerTres();
    for (const int rol : {1, 2}) {
        Abrir();
        Elegir(*pantalla, u"ANA"_s);
        EscribirPassword(u"9999"_s);
        Rol(rol);
        dialogos.EsperaMensaje(u"Error guardado"_s,
                               u"No puedes canviar el rol al unico usuario administrador"_s);
        Guardar();
        EXPECT_EQ(dialogos.Pendientes(), 0U);
        Cerrada();
    }
    EXPECT_EQ(Tabla().first(), u"ANA/1234/0"_s);
}

TEST_F(frmUsuariosTest, AListIsFreshAtEachOpening) {
    Abrir();
    Rellenar(u"ANA"_s, u"1234"_s, 0);
    EsperaGuardado();
    Guardar();
    Abrir();
    EXPECT_EQ(Lista(*pantalla).count(), 1);
    EXPECT_EQ(Pulsado(), -1);
}

// ---- deleting

TEST_F(frmUsuariosTest, AUserIsDeletedWhileAnAdministratorRemains) {
    PonerTres();
    Abrir();
    Elegir(*pantalla, u"EVA"_s);
    Tocar(*pantalla, "btnEliminar");
    Cerrada();
    EXPECT_EQ(Tabla(), (QStringList{u"ANA/1234/0"_s, u"LUIS/5678/1"_s}));
    EXPECT_EQ(seguretat.GetTipoS(), 1);
}

TEST_F(frmUsuariosTest, TheOnlyAdministratorIsNotDeletedWhileThereAreOthers) {
    PonerTres();
    Abrir();
    Elegir(*pantalla, u"ANA"_s);
    dialogos.EsperaMensaje(
        u"Error borrar"_s,
        u"No puedes eliminar el usuario administrador mientras existan otros usuarios"_s,
        Respuesta::Aceptar, EstiloMensaje::Aceptar);
    Tocar(*pantalla, "btnEliminar");
    EXPECT_EQ(dialogos.Pendientes(), 0U);
    Cerrada();
    EXPECT_EQ(base.Cuenta(u"Usuarios"_s), 3);
}

TEST_F(frmUsuariosTest, OneOfTwoAdministratorsIsDeletedAndTheOtherIsNot) {
    Poner(u"ANA"_s, u"1234"_s, 0);
    Poner(u"LUIS"_s, u"1234"_s, 0);
    Poner(u"EVA"_s, u"1234"_s, 2);
    Abrir();
    Elegir(*pantalla, u"LUIS"_s);
    Tocar(*pantalla, "btnEliminar");
    Cerrada();
    Abrir();
    Escribir(u"ana"_s);
    dialogos.EsperaMensaje(testing::_, testing::_);
    Tocar(*pantalla, "btnEliminar");
    EXPECT_EQ(Tabla(), (QStringList{u"ANA/1234/0"_s, u"EVA/1234/2"_s}));
}

// With no administrator nobody may be deleted but the last one.
TEST_F(frmUsuariosTest, WithoutAnAdministratorOnlyTheLastUserIsDeleted) {
    Poner(u"EVA"_s, u"1234"_s, 2);
    Poner(u"LUIS"_s, u"1234"_s, 1);
    Abrir();
    Elegir(*pantalla, u"EVA"_s);
    dialogos.EsperaMensaje(u"Error borrar"_s, testing::_);
    Tocar(*pantalla, "btnEliminar");
    EXPECT_EQ(base.Cuenta(u"Usuarios"_s), 2);
    motor.Ejecutar(u"DELETE FROM Usuarios WHERE nombre = 'LUIS'"_s);
    Abrir();
    Elegir(*pantalla, u"EVA"_s);
    Tocar(*pantalla, "btnEliminar");
    Cerrada();
    EXPECT_EQ(base.Cuenta(u"Usuarios"_s), 0);
}

TEST_F(frmUsuariosTest, WithTheLastUserTheProtectionEnds) {
    Poner(u"ANA"_s, u"1234"_s, 0);
    seguretat.PonerLogin(login);
    login.Espera(u"ANA"_s, 0);
    EXPECT_TRUE(seguretat.ValidarUsuari(0, u"authConfiguracion"_s));
    EXPECT_EQ(seguretat.GetNom(), u"ANA"_s);
    Abrir();
    Elegir(*pantalla, u"ANA"_s);
    Tocar(*pantalla, "btnEliminar");
    Cerrada();
    EXPECT_EQ(base.Cuenta(u"Usuarios"_s), 0);
    EXPECT_EQ(seguretat.GetNom(), QString());
    EXPECT_EQ(seguretat.GetTipoS(), 0);
    EXPECT_TRUE(seguretat.ValidarUsuari(0, u"authConfiguracion"_s));
    EXPECT_EQ(base.Cuenta(u"Accesos"_s), 1);
}

TEST_F(frmUsuariosTest, DeletingOneOfSeveralLeavesTheNameOfTheSession) {
    PonerTres();
    seguretat.PonerLogin(login);
    login.Espera(u"EVA"_s, 2);
    EXPECT_TRUE(seguretat.ValidarUsuari(2, u"authCobro"_s));
    Abrir();
    Elegir(*pantalla, u"EVA"_s);
    Tocar(*pantalla, "btnEliminar");
    EXPECT_EQ(seguretat.GetNom(), u"EVA"_s);
}

TEST_F(frmUsuariosTest, NothingIsReadAfterAnEnd) {
    PonerTres();
    Abrir();
    // As a screen reader may do it: no field has been left.
    Nombre().setText(u"EVA"_s);
    Nombre().setFocus();
    GanchoFallos gancho(motor);
    Boton(*pantalla, "btnEliminar").click();
    Cerrada();
    const auto vistas = gancho.vistas.size();
    pantalla.reset();
    EXPECT_EQ(gancho.vistas.size(), vistas);
    EXPECT_EQ(gancho.Cuenta(Kind::Lectura, u"SELECT * FROM Usuarios"_s), 0);
    EXPECT_EQ(base.Cuenta(u"Usuarios"_s), 2);
}

// ---- touched twice: the second touch comes when the first has ended the screen

TEST_F(frmUsuariosTest, GuardarTouchedTwiceSavesAndTellsOnce) {
    PonerTres();
    Abrir();
    Rellenar(u"LEO"_s, u"1234"_s, 2);
    EsperaGuardado();
    Boton(*pantalla, "btnGuardar").click();
    Boton(*pantalla, "btnGuardar").click();
    Boton(*pantalla, "btnEliminar").click();
    Cerrada();
    EXPECT_EQ(dialogos.Llamadas().size(), 1);
    EXPECT_EQ(Tabla().last(), u"LEO/1234/2"_s);
}

TEST_F(frmUsuariosTest, EliminarTouchedTwiceDeletesAndTellsOnce) {
    PonerTres();
    Abrir();
    Elegir(*pantalla, u"EVA"_s);
    GanchoFallos gancho(motor);
    Boton(*pantalla, "btnEliminar").click();
    Boton(*pantalla, "btnEliminar").click();
    Boton(*pantalla, "btnGuardar").click();
    Cerrada();
    EXPECT_EQ(gancho.Cuenta(Kind::Escritura, u"DELETE"_s), 1);
    EXPECT_EQ(Tabla(), (QStringList{u"ANA/1234/0"_s, u"LUIS/5678/1"_s}));
    motor.PonerGancho({});
    Abrir();
    Elegir(*pantalla, u"ANA"_s);
    dialogos.EsperaMensaje(u"Error borrar"_s, testing::_);
    Boton(*pantalla, "btnEliminar").click();
    Boton(*pantalla, "btnEliminar").click();
    Cerrada();
    EXPECT_EQ(dialogos.Llamadas().size(), 1);
}

// ---- leaving

TEST_F(frmUsuariosTest, LeavingSavesNothing) {
    PonerTres();
    const std::function<void()> salidas[] = {
        [this] { Tocar(*pantalla, "btnSortir"); },
        [this] { Tocar(*pantalla, "btnTancar"); },
        [this] { QTest::keyClick(&Password(), Qt::Key_Escape); },
        [this] { pantalla->close(); },
    };
    for (const auto& salir : salidas) {
        Abrir();
        Elegir(*pantalla, u"EVA"_s);
        EscribirPassword(u"7777"_s);
        salir();
        EXPECT_FALSE(pantalla->isVisible());
        EXPECT_FALSE(seguretat.Recargar());
        EXPECT_EQ(Tabla().last(), u"EVA/9012/2"_s);
    }
}

TEST_F(frmUsuariosTest, EnterSavesNothing) {
    Abrir();
    Rellenar(u"ANA"_s, u"1234"_s, 0);
    QTest::keyClick(&Password(), Qt::Key_Return);
    QTest::keyClick(&Nombre(), Qt::Key_Return);
    EXPECT_TRUE(pantalla->isVisible());
    EXPECT_EQ(base.Cuenta(u"Usuarios"_s), 0);
}

// ---- what other programs do meanwhile, and bad texts: a clear end, nothing lost

TEST_F(frmUsuariosTest, AUserDeletedMeanwhileIsNotShown) {
    PonerTres();
    Abrir();
    base.Otro()->Ejecutar(u"DELETE FROM Usuarios WHERE nombre = 'EVA'"_s);
    Elegir(*pantalla, u"EVA"_s);
    EXPECT_EQ(Password().text(), QString());
    EXPECT_FALSE(Eliminar().isEnabled());
    EXPECT_TRUE(pantalla->isVisible());
}

TEST_F(frmUsuariosTest, ATableThatIsMissingIsTheFailureOfWhoeverOpens) {
    QuitarTabla();
    EXPECT_EQ(NumeroError([&] { frmUsuarios(usuarios, seguretat, dialogos, textos); }), 1);
}

TEST_F(frmUsuariosTest, ATableThatGoesMeanwhileEndsTheScreenWithItsFailure) {
    PonerTres();
    Abrir();
    QuitarTabla();
    Elegir(*pantalla, u"EVA"_s);
    CerradaConFallo(1);
}

TEST_F(frmUsuariosTest, ALockedTableEndsASaveAndADeletionAndLosesNothing) {
    PonerTres();
    const QStringList antes = Tabla();
    for (const char* boton : {"btnGuardar", "btnEliminar"}) {
        Abrir();
        Elegir(*pantalla, u"EVA"_s);
        EscribirPassword(u"7777"_s);
        const auto otro = base.Otro();
        otro->Comenzar();
        otro->Ejecutar(u"DELETE FROM cola"_s);
        Tocar(*pantalla, boton);
        otro->Deshacer();
        CerradaConFallo(5);
        EXPECT_EQ(Tabla(), antes) << boton;
    }
}

TEST_F(frmUsuariosTest, AFileThatHasBeenDeletedIsNotWritten) {
    PonerTres();
    Abrir();
    Elegir(*pantalla, u"EVA"_s);
    QFile::remove(base.Ruta());
    Guardar();
    CerradaConFallo(1032);
}

TEST_F(frmUsuariosTest, AQuoteInTheNameIsTheFailureOfItsStatement) {
    PonerTres();
    Poner(u"O'Brien"_s, u"1234"_s, 0);
    const QStringList antes = Tabla();
    Abrir();
    Rellenar(u"X' or '1'='1"_s, u"1234"_s, 0);
    EXPECT_TRUE(pantalla->isVisible()) << "typing it is no statement";
    Guardar();
    CerradaConFallo(1);
    Abrir();
    Elegir(*pantalla, u"O'Brien"_s);
    CerradaConFallo(1);
    EXPECT_EQ(Tabla(), antes);
}

TEST_F(frmUsuariosTest, ANulInTheNameIsTheFailureOfItsStatement) {
    Abrir();
    Nombre().setText(u"ANA\0X"_s);
    ASSERT_EQ(Nombre().text().size(), 5);
    EscribirPassword(u"1234"_s);
    Guardar();
    CerradaConFallo(1);
    EXPECT_EQ(base.Cuenta(u"Usuarios"_s), 0);
}

TEST_F(frmUsuariosTest, AQuoteInThePasswordIsKeptAsItIs) {
    Abrir();
    Rellenar(u"ANA"_s, u"pa'ss"_s, 0);
    EsperaGuardado();
    Guardar();
    Cerrada();
    EXPECT_EQ(Tabla(), QStringList{u"ANA/pa'ss/0"_s});
}

TEST_F(frmUsuariosTest, IsModalAndAboveAllWindows) {
    Abrir();
    EXPECT_EQ(pantalla->windowModality(), Qt::ApplicationModal);
    EXPECT_TRUE(pantalla->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

} // namespace
} // namespace zv::test
