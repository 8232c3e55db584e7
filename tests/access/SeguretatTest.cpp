// Who may enter which place, what is noted of it, and whose name signs.
#include "BancoUsuarios.h"

namespace zv::test {
namespace {

struct Lugar {
    const char* nombre;
    qint16 nivel;
};
constexpr Lugar kLugares[] = {{"authConfiguracion", 0}, {"authIncidencias", 0}, {"authCaja", 1},
                              {"authRegistro", 1},      {"authPago", 1},        {"authCobro", 2},
                              {"authCobroManual", 2},   {"authCambio", 2}};

class SeguretatTest : public BancoUsuarios {
  protected:
    SeguretatTest() { seguretat.PonerLogin(login); }

    bool Validar(const Lugar& lugar) {
        return seguretat.ValidarUsuari(lugar.nivel, QString::fromLatin1(lugar.nombre));
    }
    bool Validar(qint16 nivel, const QString& lugar) {
        return seguretat.ValidarUsuari(nivel, lugar);
    }
    void EsperaNoAutorizado() {
        dialogos.EsperaMensaje(u"Usuarios"_s, u"Usuario no autorizado"_s, Respuesta::Aceptar,
                               EstiloMensaje::Aceptar);
    }
};

TEST_F(SeguretatTest, BeginsWithNobodyAndAReloadToDo) {
    EXPECT_FALSE(seguretat.UsuarioFast());
    EXPECT_TRUE(seguretat.Recargar());
    EXPECT_EQ(seguretat.GetNom(), QString());
    EXPECT_EQ(seguretat.GetTipoS(), 0);
    EXPECT_FALSE(seguretat.Recargar());
}

TEST_F(SeguretatTest, TheMarkOfTheFastLinkIsKeptAsItIsPut) {
    seguretat.PonerUsuarioFast(true);
    EXPECT_TRUE(seguretat.UsuarioFast());
    seguretat.PonerUsuarioFast(false);
    EXPECT_FALSE(seguretat.UsuarioFast());
}

TEST_F(SeguretatTest, WithNobodyDefinedEveryPlaceIsOpenAndNothingIsNoted) {
    for (const Lugar& lugar : kLugares) {
        EXPECT_TRUE(Validar(lugar)) << lugar.nombre;
    }
    EXPECT_EQ(Accesos(), QStringList());
    EXPECT_EQ(log.lineas, QStringList());
    EXPECT_EQ(seguretat.GetTipoS(), 0);
}

TEST_F(SeguretatTest, WithAnAutorizadoAloneNothingIsProtected) {
    Poner(u"LUIS"_s, u"1234"_s, 1);
    for (const Lugar& lugar : kLugares) {
        EXPECT_TRUE(Validar(lugar)) << lugar.nombre;
    }
    EXPECT_EQ(seguretat.GetTipoS(), 0);
    EXPECT_EQ(seguretat.GetNom(), QString());
    EXPECT_EQ(Accesos(), QStringList());
}

TEST_F(SeguretatTest, WithAdministratorsAlonePlacesOfLevelTwoOpenWithoutALogin) {
    Poner(u"ANA"_s, u"1234"_s, 0);
    EXPECT_EQ(seguretat.GetTipoS(), 1);
    for (const Lugar& lugar : kLugares) {
        if (lugar.nivel < 2) {
            login.Espera(u"ANA"_s, 0);
        }
        EXPECT_TRUE(Validar(lugar)) << lugar.nombre;
    }
    EXPECT_EQ(login.lugares, (QStringList{u"authConfiguracion"_s, u"authIncidencias"_s,
                                          u"authCaja"_s, u"authRegistro"_s, u"authPago"_s}));
    EXPECT_EQ(Accesos(),
              (QStringList{u"ANA-authConfiguracion"_s, u"ANA-authIncidencias"_s, u"ANA-authCaja"_s,
                           u"ANA-authRegistro"_s, u"ANA-authPago"_s, u"ANA-authCobro"_s,
                           u"ANA-authCobroManual"_s, u"ANA-authCambio"_s}));
}

TEST_F(SeguretatTest, AnEntryWithoutALoginCarriesTheAdministratorsName) {
    Poner(u"ANA"_s, u"1234"_s, 0);
    EXPECT_TRUE(Validar(2, u"authCobro"_s));
    EXPECT_EQ(Accesos(), QStringList{u"ANA-authCobro"_s});
    EXPECT_EQ(seguretat.GetNom(), u"ANA"_s);
}

TEST_F(SeguretatTest, WithAUsuarioEveryPlaceAsksEachTime) {
    Poner(u"ANA"_s, u"1234"_s, 0);
    Poner(u"EVA"_s, u"5678"_s, 2);
    EXPECT_EQ(seguretat.GetTipoS(), 2);
    QStringList todos;
    for (int vez = 0; vez < 2; ++vez) {
        for (const Lugar& lugar : kLugares) {
            login.Espera(u"ANA"_s, 0);
            EXPECT_TRUE(Validar(lugar)) << lugar.nombre;
            todos << QString::fromLatin1(lugar.nombre);
        }
    }
    EXPECT_EQ(login.lugares, todos);
}

// Who may enter where, by role and level: the whole table.
TEST_F(SeguretatTest, ARoleEntersPlacesOfItsLevelAndOfThoseBelow) {
    Poner(u"ANA"_s, u"1234"_s, 0);
    Poner(u"EVA"_s, u"5678"_s, 2);
    for (qint16 rol = 0; rol <= 2; ++rol) {
        for (const Lugar& lugar : kLugares) {
            const qint32 antes = base.Cuenta(u"Accesos"_s);
            login.Espera(u"QUIEN"_s, rol);
            const bool puede = rol <= lugar.nivel;
            if (!puede) {
                EsperaNoAutorizado();
            }
            EXPECT_EQ(Validar(lugar), puede) << rol << " " << lugar.nombre;
            EXPECT_EQ(dialogos.Pendientes(), 0U) << rol << " " << lugar.nombre;
            EXPECT_EQ(base.Cuenta(u"Accesos"_s), antes + (puede ? 1 : 0));
        }
    }
}

TEST_F(SeguretatTest, AUsuarioAtTheCashOfficeIsToldAndNothingIsNoted) {
    Poner(u"EVA"_s, u"5678"_s, 2);
    login.Espera(u"EVA"_s, 2);
    EsperaNoAutorizado();
    EXPECT_FALSE(Validar(1, u"authCaja"_s));
    EXPECT_EQ(Accesos(), QStringList());
    EXPECT_EQ(log.lineas, QStringList());
    EXPECT_EQ(seguretat.GetNom(), u"EVA"_s);
}

TEST_F(SeguretatTest, ACancelledLoginIsRefusedWithoutAWordAndEmptiesTheName) {
    Poner(u"EVA"_s, u"5678"_s, 2);
    login.Espera(u"EVA"_s, 2);
    EXPECT_TRUE(Validar(2, u"authCobro"_s));
    EXPECT_EQ(seguretat.GetNom(), u"EVA"_s);
    login.EsperaCancelado();
    EXPECT_FALSE(Validar(2, u"authCobro"_s));
    EXPECT_EQ(seguretat.GetNom(), QString());
    // The same place again.
    login.Espera(u"EVA"_s, 2);
    EXPECT_TRUE(Validar(2, u"authCobro"_s));
    EXPECT_EQ(seguretat.GetNom(), u"EVA"_s);
    EXPECT_EQ(Accesos(), (QStringList{u"EVA-authCobro"_s, u"EVA-authCobro"_s}));
}

TEST_F(SeguretatTest, WithoutALoginScreenNobodyCanIdentifyHimself) {
    Poner(u"EVA"_s, u"5678"_s, 2);
    Seguretat sinLogin(motor, log, dialogos, textos, reloj);
    EXPECT_FALSE(sinLogin.ValidarUsuari(2, u"authCobro"_s));
    EXPECT_EQ(sinLogin.GetNom(), QString());
}

TEST_F(SeguretatTest, TheDefaultNameIsThatOfTheLowestRank) {
    Poner(u"ANA"_s, u"1234"_s, 0);
    Poner(u"EVA"_s, u"5678"_s, 2);
    Poner(u"LUIS"_s, u"5678"_s, 1);
    EXPECT_EQ(seguretat.GetNom(), QString());
    EXPECT_EQ(seguretat.GetTipoS(), 2);
    EXPECT_EQ(seguretat.GetNom(), u"EVA"_s);
}

TEST_F(SeguretatTest, AReloadThatFindsNobodyLeavesTheName) {
    Poner(u"ANA"_s, u"1234"_s, 0);
    EXPECT_EQ(seguretat.GetTipoS(), 1);
    motor.Ejecutar(u"DELETE FROM Usuarios"_s);
    EXPECT_EQ(seguretat.GetTipoS(), 1) << "the table is read when that is asked for";
    seguretat.PonerRecargar(true);
    EXPECT_EQ(seguretat.GetTipoS(), 0);
    EXPECT_EQ(seguretat.GetNom(), u"ANA"_s);
    seguretat.BorrarNom();
    EXPECT_EQ(seguretat.GetNom(), QString());
}

TEST_F(SeguretatTest, ThePlaceItselfAsksForTheReload) {
    EXPECT_TRUE(Validar(0, u"authConfiguracion"_s));
    Poner(u"ANA"_s, u"1234"_s, 0);
    seguretat.PonerRecargar(true);
    login.EsperaCancelado();
    EXPECT_FALSE(Validar(0, u"authConfiguracion"_s));
    motor.Ejecutar(u"DELETE FROM Usuarios"_s);
    seguretat.PonerRecargar(true);
    EXPECT_TRUE(Validar(0, u"authConfiguracion"_s));
}

TEST_F(SeguretatTest, TheTableIsReadOnceUntilAReload) {
    Poner(u"ANA"_s, u"1234"_s, 0);
    GanchoFallos gancho(motor);
    EXPECT_EQ(seguretat.GetTipoS(), 1);
    EXPECT_EQ(seguretat.GetTipoS(), 1);
    EXPECT_TRUE(Validar(2, u"authCobro"_s));
    EXPECT_EQ(gancho.Cuenta(Kind::Lectura, u"SELECT DISTINCT Rol, Nombre FROM Usuarios WHERE Rol "
                                           "in (0, 2) ORDER BY 1 DESC"_s),
              1);
}

TEST_F(SeguretatTest, AnEntryIsNotedWithItsTimeAndInTheLog) {
    Poner(u"EVA"_s, u"5678"_s, 2);
    login.Espera(u"EVA"_s, 2);
    EXPECT_TRUE(Validar(2, u"authCobro"_s));
    const auto filas = motor.Consultar(u"SELECT * FROM Accesos"_s);
    ASSERT_EQ(filas.size(), 1U);
    EXPECT_EQ(filas[0].LeerFecha(u"fecha"_s), reloj.Ahora());
    EXPECT_EQ(filas[0].LeerTexto(u"usuario"_s), u"EVA"_s);
    EXPECT_EQ(filas[0].LeerTexto(u"lugar"_s), u"authCobro"_s);
    EXPECT_EQ(log.lineas, QStringList{u"APUNTA_ACCESS_EVA-authCobro"_s});
}

TEST_F(SeguretatTest, ANoteByItselfDependsOnTheKindOfProtection) {
    seguretat.ApuntarAccess(u"authCaja"_s);
    EXPECT_EQ(Accesos(), QStringList());
    Poner(u"ANA"_s, u"1234"_s, 0);
    seguretat.PonerRecargar(true);
    seguretat.GetTipoS();
    seguretat.ApuntarAccess(u"authCaja"_s);
    EXPECT_EQ(Accesos(), QStringList{u"ANA-authCaja"_s});
    EXPECT_EQ(log.lineas, QStringList{u"APUNTA_ACCESS_ANA-authCaja"_s});
}

TEST_F(SeguretatTest, AUserWithoutARoleEntersNowhere) {
    Poner(u"EVA"_s, u"5678"_s, 2);
    login.Espera(u"NADIE"_s, kSinNivel);
    EsperaNoAutorizado();
    EXPECT_FALSE(Validar(2, u"authCobro"_s));
}

TEST_F(SeguretatTest, TheRefusalIsInTheLanguageOfTheFile) {
    QFile fichero(base.Carpeta() + u"/RWLang.ini"_s);
    ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
    fichero.write("[COMMON]\r\nusuarios=Users\r\nusuarioNoAutorizado=Not allowed\r\n");
    fichero.close();
    Poner(u"EVA"_s, u"5678"_s, 2);
    login.Espera(u"EVA"_s, 2);
    dialogos.EsperaMensaje(u"Users"_s, u"Not allowed"_s);
    EXPECT_FALSE(Validar(0, u"authConfiguracion"_s));
}

// Failures of the database are the caller's, and nothing is left half done.
TEST_F(SeguretatTest, AMissingTableIsTheCallersFailure) {
    motor.Ejecutar(u"DROP TABLE Usuarios"_s);
    EXPECT_EQ(NumeroError([&] { seguretat.GetTipoS(); }), 1);
    EXPECT_EQ(NumeroError([&] { Validar(2, u"authCobro"_s); }), 1);
    EXPECT_TRUE(seguretat.Recargar());
    EXPECT_EQ(Accesos(), QStringList());
}

TEST_F(SeguretatTest, ALockedTableIsTheCallersFailureAndIsReadAgain) {
    Poner(u"ANA"_s, u"1234"_s, 0);
    GanchoFallos gancho(motor);
    gancho.Falla(Kind::Lectura, u"FROM Usuarios"_s, 1);
    EXPECT_EQ(NumeroError([&] { Validar(0, u"authConfiguracion"_s); }), 5);
    EXPECT_TRUE(seguretat.Recargar());
    login.EsperaCancelado();
    EXPECT_FALSE(Validar(0, u"authConfiguracion"_s));
}

TEST_F(SeguretatTest, AnEntryThatCannotBeNotedIsTheCallersFailure) {
    Poner(u"EVA"_s, u"5678"_s, 2);
    const auto otro = base.Otro();
    otro->Comenzar();
    otro->Ejecutar(u"DELETE FROM cola"_s);
    login.Espera(u"EVA"_s, 2);
    EXPECT_EQ(NumeroError([&] { Validar(2, u"authCobro"_s); }), 5);
    otro->Deshacer();
    EXPECT_EQ(Accesos(), QStringList());
    EXPECT_EQ(log.lineas, QStringList());
    EXPECT_EQ(seguretat.GetNom(), u"EVA"_s);
    login.Espera(u"EVA"_s, 2);
    EXPECT_TRUE(Validar(2, u"authCobro"_s));
}

TEST_F(SeguretatTest, ALoginThatFailsLeavesTheNameAsItWas) {
    Poner(u"EVA"_s, u"5678"_s, 2);
    login.Espera(u"EVA"_s, 2);
    EXPECT_TRUE(Validar(2, u"authCobro"_s));
    login.Espera(u"OTRA"_s, 2, [] { throw ErrorEjecucion(5, u"database is locked"_s); });
    EXPECT_EQ(NumeroError([&] { Validar(2, u"authCobro"_s); }), 5);
    EXPECT_EQ(seguretat.GetNom(), u"EVA"_s);
}

} // namespace
} // namespace zv::test
