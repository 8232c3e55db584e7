// The table of users: who is found by which name and password, how one is saved, and who guards the
// last administrator.
#include "BancoUsuarios.h"

namespace zv::test {
namespace {

constexpr int kSintaxis = 1;
constexpr int kRestriccion = 275; // a CHECK of the table

class UsuariosTest : public BancoUsuarios {
  protected:
    void EsperaGuardado() {
        dialogos.EsperaMensaje(u"Usuario guardado"_s, u"Usuario guardado correctamente"_s,
                               Respuesta::Aceptar, EstiloMensaje::Aceptar);
    }
    void EsperaRechazado() {
        dialogos.EsperaMensaje(u"Error guardado"_s,
                               u"No puedes canviar el rol al unico usuario administrador"_s,
                               Respuesta::Aceptar, EstiloMensaje::Aceptar);
    }
    bool Entra(const QString& nombre, const QString& password) {
        return usuarios.Identificar(nombre, password).has_value();
    }
};

TEST_F(UsuariosTest, NamesComeInTheirOrder) {
    EXPECT_EQ(usuarios.Nombres(), QStringList());
    for (const char* nombre : {"luis", "EVA", "Ana", "jose"}) {
        Poner(QString::fromLatin1(nombre), u"1234"_s, 2);
    }
    EXPECT_EQ(usuarios.Nombres(), (QStringList{u"Ana"_s, u"EVA"_s, u"jose"_s, u"luis"_s}));
}

TEST_F(UsuariosTest, NameAndPasswordCompareWithoutCase) {
    Poner(u"Ana"_s, u"Clave1"_s, 1);
    EXPECT_TRUE(Entra(u"ANA"_s, u"cLAVE1"_s));
    EXPECT_FALSE(Entra(u"ANA"_s, u"Clave2"_s));
    EXPECT_FALSE(Entra(u"ANA"_s, QString()));
    EXPECT_FALSE(Entra(u"OTRA"_s, u"Clave1"_s));
    const auto ana = usuarios.Identificar(u"aNa"_s, u"clave1"_s);
    ASSERT_TRUE(ana);
    EXPECT_EQ(ana->nombre, u"Ana"_s);
    EXPECT_EQ(ana->password, u"Clave1"_s);
    EXPECT_EQ(ana->rol, 1);
}

TEST_F(UsuariosTest, BlanksAndAccentsCount) {
    Poner(u"José Ñandú"_s, u"pass word"_s, 2);
    EXPECT_TRUE(Entra(u"José Ñandú"_s, u"pass word"_s));
    EXPECT_TRUE(Entra(u"josé Ñandú"_s, u"PASS word"_s));
    EXPECT_FALSE(Entra(u"Jose Nandu"_s, u"pass word"_s));
    EXPECT_FALSE(Entra(u"José Ñandú "_s, u"pass word"_s));
    EXPECT_FALSE(Entra(u"José Ñandú"_s, u"password"_s));
}

TEST_F(UsuariosTest, AnEmptyPasswordOfTheTableIsAPassword) {
    Poner(u"ANA"_s, QString(), 0);
    EXPECT_TRUE(Entra(u"ANA"_s, QString()));
    EXPECT_FALSE(Entra(u"ANA"_s, u" "_s));
}

TEST_F(UsuariosTest, ARoleThatIsMissingIsNoneAndOneBeyondItsTypeFails) {
    Poner(u"NULO"_s, u"1234"_s, {});
    Poner(u"ENORME"_s, u"1234"_s, 40000);
    EXPECT_EQ(usuarios.Buscar(u"NULO"_s)->rol, kSinNivel);
    EXPECT_EQ(NumeroError([&] { usuarios.Buscar(u"ENORME"_s); }), 6);
}

TEST_F(UsuariosTest, AQuoteBreaksEachStatementWithTheEnginesOwnFailure) {
    Poner(u"O'Brien"_s, u"pa'ss"_s, 0);
    Poner(u"ANA"_s, u"1234"_s, 0);
    const QStringList antes = Tabla();
    const ErrorEjecucion propio = [this] {
        try {
            motor.Consultar(u"SELECT * FROM Usuarios WHERE nombre = 'O'Brien'"_s);
        } catch (const ErrorEjecucion& e) {
            return e;
        }
        return ErrorEjecucion(0, {});
    }();
    EXPECT_EQ(propio.Numero(), kSintaxis);
    for (const char* malo : {"O'Brien", "'", "''", "O''Brien", "' or '1'='1", "x' or 1=1 --",
                             "ANA'; DELETE FROM Usuarios; --"}) {
        const QString texto = QString::fromLatin1(malo);
        EXPECT_EQ(NumeroError([&] { usuarios.Buscar(texto); }), propio.Numero()) << malo;
        EXPECT_EQ(NumeroError([&] { usuarios.Identificar(texto, u"pa'ss"_s); }), propio.Numero());
        EXPECT_EQ(NumeroError([&] { usuarios.Identificar(u"ANA"_s, texto); }), propio.Numero());
        EXPECT_EQ(NumeroError([&] { usuarios.CambiarPassword(u"ANA"_s, texto, u"x"_s); }),
                  propio.Numero());
        EXPECT_EQ(NumeroError([&] { usuarios.OtrosAdministradores(texto); }), propio.Numero());
        EXPECT_EQ(NumeroError([&] { usuarios.Eliminar(texto); }), propio.Numero());
        EXPECT_EQ(NumeroError([&] { usuarios.GuardarUsuario(texto, u"1234"_s, 0); }),
                  propio.Numero());
    }
    EXPECT_EQ(Tabla(), antes);
}

TEST_F(UsuariosTest, ANulBreaksEachStatementToo) {
    Poner(u"ANA"_s, u"1234"_s, 0);
    const QString nulo(u"ANA\0X"_s);
    const QString clave(u"1234\0X"_s);
    ASSERT_EQ(nulo.size(), 5);
    EXPECT_EQ(NumeroError([&] { usuarios.Identificar(nulo, u"1234"_s); }), kSintaxis);
    EXPECT_EQ(NumeroError([&] { usuarios.Identificar(u"ANA"_s, clave); }), kSintaxis);
    EXPECT_EQ(NumeroError([&] { usuarios.Eliminar(nulo); }), kSintaxis);
    EXPECT_EQ(NumeroError([&] { usuarios.GuardarUsuario(nulo, u"1234"_s, 0); }), kSintaxis);
    // The password of a save stands in no statement: the table refuses it.
    EXPECT_EQ(NumeroError([&] { usuarios.GuardarUsuario(u"EVA"_s, clave, 2); }), kRestriccion);
    EXPECT_EQ(Tabla(), QStringList{u"ANA/1234/0"_s});
}

TEST_F(UsuariosTest, AFailedStatementTellsNoPassword) {
    try {
        usuarios.Identificar(u"ANA"_s, u"secreto'1"_s);
        FAIL();
    } catch (const ErrorEjecucion& e) {
        EXPECT_FALSE(e.Descripcion().contains(u"secreto"_s)) << e.what();
    }
}

TEST_F(UsuariosTest, ANewNameIsAdded) {
    EsperaGuardado();
    usuarios.GuardarUsuario(u"ANA"_s, u"1234"_s, 0);
    EsperaGuardado();
    usuarios.GuardarUsuario(u" Luis Ñ "_s, u"5678"_s, 1);
    EXPECT_EQ(Tabla(), (QStringList{u"ANA/1234/0"_s, u" Luis Ñ /5678/1"_s}));
}

TEST_F(UsuariosTest, APasswordStaysReadableInTheTable) {
    EsperaGuardado();
    usuarios.GuardarUsuario(u"ANA"_s, u"Clave Ñ 1"_s, 0);
    EXPECT_EQ(motor.Consultar(u"SELECT password FROM Usuarios"_s).at(0).LeerTexto(0),
              u"Clave Ñ 1"_s);
    EXPECT_EQ(motor.Columnas(u"Usuarios"_s),
              (QStringList{u"idUser"_s, u"nombre"_s, u"password"_s, u"rol"_s}));
}

TEST_F(UsuariosTest, ANameThatStandsInAnyCaseIsChangedAndKeepsItsCase) {
    Poner(u"ANA"_s, u"1234"_s, 0);
    Poner(u"EVA"_s, u"1111"_s, 2);
    EsperaGuardado();
    usuarios.GuardarUsuario(u"eva"_s, u"2222"_s, 1);
    EXPECT_EQ(Tabla(), (QStringList{u"ANA/1234/0"_s, u"EVA/2222/1"_s}));
}

TEST_F(UsuariosTest, TheOnlyAdministratorKeepsRoleAndPassword) {
    Poner(u"ANA"_s, u"1234"_s, 0);
    Poner(u"EVA"_s, u"1111"_s, 2);
    for (const qint16 rol : {qint16{1}, qint16{2}}) {
        EsperaRechazado();
        usuarios.GuardarUsuario(u"ana"_s, u"9999"_s, rol);
    }
    EXPECT_EQ(Tabla(), (QStringList{u"ANA/1234/0"_s, u"EVA/1111/2"_s}));
    EsperaGuardado();
    usuarios.GuardarUsuario(u"ANA"_s, u"9999"_s, 0);
    EXPECT_EQ(Tabla(), (QStringList{u"ANA/9999/0"_s, u"EVA/1111/2"_s}));
}

TEST_F(UsuariosTest, OneOfTwoAdministratorsMayLoseTheRole) {
    Poner(u"ANA"_s, u"1234"_s, 0);
    Poner(u"LUIS"_s, u"1111"_s, 0);
    EsperaGuardado();
    usuarios.GuardarUsuario(u"ANA"_s, u"9999"_s, 2);
    EsperaRechazado();
    usuarios.GuardarUsuario(u"LUIS"_s, u"9999"_s, 2);
    EXPECT_EQ(Tabla(), (QStringList{u"ANA/9999/2"_s, u"LUIS/1111/0"_s}));
}

// The test looks at the count and the new role alone.
TEST_F(UsuariosTest, WithNoAdministratorAtAllOnlyThatRoleIsSaved) {
    Poner(u"EVA"_s, u"1111"_s, 2);
    EsperaRechazado();
    usuarios.GuardarUsuario(u"EVA"_s, u"2222"_s, 2);
    EXPECT_EQ(Tabla(), QStringList{u"EVA/1111/2"_s});
    EsperaGuardado();
    usuarios.GuardarUsuario(u"EVA"_s, u"2222"_s, 0);
    EXPECT_EQ(Tabla(), QStringList{u"EVA/2222/0"_s});
}

TEST_F(UsuariosTest, OtherAdministratorsAreCountedWithoutCase) {
    Poner(u"ANA"_s, u"1234"_s, 0);
    Poner(u"LUIS"_s, u"1234"_s, 0);
    Poner(u"EVA"_s, u"1234"_s, 2);
    EXPECT_EQ(usuarios.OtrosAdministradores(u"ana"_s), 1);
    EXPECT_EQ(usuarios.OtrosAdministradores(u"eva"_s), 2);
    EXPECT_EQ(usuarios.OtrosAdministradores(QString()), 2);
}

TEST_F(UsuariosTest, ADeletionTakesTheNameInAnyCaseAndNoOther) {
    Poner(u"ANA"_s, u"1234"_s, 0);
    Poner(u"ANABEL"_s, u"1234"_s, 2);
    usuarios.Eliminar(u"ana"_s);
    usuarios.Eliminar(u"nadie"_s);
    EXPECT_EQ(Tabla(), QStringList{u"ANABEL/1234/2"_s});
}

TEST_F(UsuariosTest, APasswordIsChangedByTheOldOne) {
    Poner(u"ANA"_s, u"1234"_s, 0);
    EXPECT_FALSE(usuarios.CambiarPassword(u"ANA"_s, u"4321"_s, u"9999"_s));
    EXPECT_FALSE(usuarios.CambiarPassword(u"EVA"_s, u"1234"_s, u"9999"_s));
    EXPECT_EQ(Tabla(), QStringList{u"ANA/1234/0"_s});
    EXPECT_TRUE(usuarios.CambiarPassword(u"ana"_s, u"1234"_s, u"9'99"_s));
    EXPECT_EQ(Tabla(), QStringList{u"ANA/9'99/0"_s});
}

TEST_F(UsuariosTest, LengthsOfTheTableAreTheEnginesFailure) {
    EsperaGuardado();
    usuarios.GuardarUsuario(QString(20, u'n'), QString(40, u'p'), 0);
    EXPECT_EQ(NumeroError([&] { usuarios.GuardarUsuario(QString(21, u'n'), u"1234"_s, 0); }),
              kRestriccion);
    EXPECT_EQ(NumeroError([&] { usuarios.GuardarUsuario(u"ANA"_s, QString(50, u'p'), 0); }),
              kRestriccion);
    EXPECT_EQ(base.Cuenta(u"Usuarios"_s), 1);
}

TEST_F(UsuariosTest, ALockedTableLosesNothing) {
    Poner(u"ANA"_s, u"1234"_s, 0);
    Poner(u"LUIS"_s, u"1234"_s, 0);
    const auto otro = base.Otro();
    otro->Comenzar();
    otro->Ejecutar(u"DELETE FROM cola"_s);
    EXPECT_EQ(NumeroError([&] { usuarios.GuardarUsuario(u"ANA"_s, u"9999"_s, 2); }), 5);
    EXPECT_EQ(NumeroError([&] { usuarios.GuardarUsuario(u"EVA"_s, u"9999"_s, 2); }), 5);
    EXPECT_EQ(NumeroError([&] { usuarios.Eliminar(u"ANA"_s); }), 5);
    EXPECT_EQ(NumeroError([&] { usuarios.CambiarPassword(u"ANA"_s, u"1234"_s, u"9999"_s); }), 5);
    otro->Deshacer();
    EXPECT_EQ(Tabla(), (QStringList{u"ANA/1234/0"_s, u"LUIS/1234/0"_s}));
}

TEST_F(UsuariosTest, OneNameAsTheTableTakesIt) {
    for (const char* otro : {"ana ñ", "ANA ñ", "aNa ñ"}) {
        EXPECT_TRUE(Usuarios::MismoNombre(u"Ana ñ"_s, QString::fromUtf8(otro))) << otro;
    }
    for (const char* otro : {"ana Ñ", "ana", "ana ñ ", "[na ñ", ""}) {
        EXPECT_FALSE(Usuarios::MismoNombre(u"Ana ñ"_s, QString::fromUtf8(otro))) << otro;
        Poner(u"Ana ñ"_s, u"1"_s, 2);
        EXPECT_FALSE(usuarios.Buscar(QString::fromUtf8(otro))) << otro;
        usuarios.Eliminar(u"Ana ñ"_s);
    }
}

} // namespace
} // namespace zv::test
