// The screens that the program has, each opened through the port over a whole till.
#include "app/screens/PantallasPrograma.h"

#include "../BancoMonitor.h"
#include "support/AlAbrir.h"
#include "support/NumeroError.h"
#include "ui/screens/Tema.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

namespace zv::test {
namespace {

class PantallasProgramaTest : public BancoMonitor {
  protected:
    static void SetUpTestSuite() { tema::Aplicar(*qApp); }

    PantallasProgramaTest() {
        EscribirIni();
        PonerSaldo(0);
        cliente.EsperaConnect();
        EXPECT_TRUE(monitor->Cargar());
        programa.PonerEntorno(monitor->Partes().entorno);
    }
    void PonerUsuario(const char* nombre, const char* password, int rol) {
        Database().Ejecutar(u"INSERT INTO Usuarios (nombre,password,rol) VALUES (?,?,?)"_s,
                            {QString::fromLatin1(nombre), QString::fromLatin1(password), rol});
        monitor->Partes().entorno.seguretat.PonerRecargar(true);
    }
    void Abrir(Pantalla pantalla, std::function<void(QDialog&)> accion) {
        const AlAbrir abierto(std::move(accion));
        programa.Abrir(pantalla);
    }
    static void Tocar(QDialog& d, const char* nombre) {
        d.findChild<QAbstractButton*>(QString::fromLatin1(nombre))->click();
    }
    static void Entrar(QDialog& d, const char* password) {
        EXPECT_EQ(d.objectName(), u"frmLogin"_s);
        d.findChild<QComboBox*>(u"cmbNom"_s)->setCurrentIndex(0);
        d.findChild<QLineEdit*>(u"txtPassword"_s)->setText(QString::fromLatin1(password));
        Tocar(d, "teci_10");
    }
    qint32 Cuenta(const QString& tabla) {
        return Database().Consultar(u"SELECT count(*) FROM "_s + tabla).front().LeerLong(0);
    }

    PantallasPrograma programa{{}};
};

TEST_F(PantallasProgramaTest, HasThoseThatAreBuiltAndNoOtherYet) {
    for (const Pantalla pantalla :
         {Pantalla::CambioContrasena, Pantalla::Usuarios, Pantalla::Caja, Pantalla::Balanza,
          Pantalla::Cobros, Pantalla::Incidencias, Pantalla::Accesos, Pantalla::Configuracion,
          Pantalla::Historial}) {
        EXPECT_TRUE(programa.Existe(pantalla));
    }
    for (const Pantalla pantalla : {Pantalla::BotonAcceso}) {
        EXPECT_FALSE(programa.Existe(pantalla));
        programa.Abrir(pantalla); // nothing happens
    }
}

TEST_F(PantallasProgramaTest, TheHistoryStandsOverTheCashOfficeAndItsFailuresGoUp) {
    Database().Ejecutar(u"INSERT INTO cierres (fecha,importeCierre) VALUES "
                        "('2026-03-14 22:00:05',126410)"_s);
    Abrir(Pantalla::Historial, [this](QDialog& d) {
        EXPECT_EQ(d.objectName(), u"frmHistorial"_s);
        const auto* cierre = d.findChild<QLabel*>(u"lbCierre"_s);
        for (int i = 0; i < 100 && cierre->text().isEmpty(); ++i) {
            QCoreApplication::sendPostedEvents(); // among them the one behind this
            QApplication::processEvents();
        }
        EXPECT_EQ(cierre->text(), u"Fecha 14/03/26 22:00:05 CIERRE 1.264,10 €"_s);
        Abrir(Pantalla::Historial, [&d](QDialog& encima) {
            EXPECT_EQ(encima.parentWidget(), &d);
            Tocar(encima, "boton_0");
        });
        Tocar(d, "boton_0");
    });
    dialogos.EsperaMensaje(u"Limpiar historial"_s,
                           u"¿Desea eliminar el historial de los cierres?"_s, Respuesta::Si);
    EXPECT_NE(NumeroError(
                  [this] { Abrir(Pantalla::Historial, [](QDialog& d) { Tocar(d, "boton_2"); }); }),
              0);
    EXPECT_EQ(Cuenta(u"cierres"_s), 1);
}

TEST_F(PantallasProgramaTest, TheBarcodeLayoutIsEditedInTheConfigurationHandedOver) {
    Entorno& e = monitor->Partes().entorno;
    Configuracio cfg(e.ini, e.registry, e.carpeta);
    cfg.CopyFrom(*e.configuracio);
    const auto abrir = [&](std::function<void(QDialog&)> accion) {
        const AlAbrir abierto(std::move(accion));
        programa.AbrirBalanza(cfg);
    };
    abrir([](QDialog& d) {
        EXPECT_EQ(d.objectName(), u"Balanza"_s);
        const char* const valores[] = {"13", "0", "0", "1", "13", "2"};
        for (int i = 0; i < 6; ++i) {
            auto* campo = d.findChild<QLineEdit*>(u"TBal_%1"_s.arg(i));
            campo->selectAll();
            QTest::keyClicks(campo, QString::fromLatin1(valores[i]));
        }
        Tocar(d, "boton_1_Lit");
    });
    EXPECT_EQ(cfg.BCEAN, 13);
    EXPECT_EQ(cfg.BCIFIN, 13);
    EXPECT_EQ(cfg.BCDEC, 2); // as many as the device has
    EXPECT_EQ(e.configuracio->BCEAN, 0);
    abrir([](QDialog& d) { Tocar(d, "boton_0_Lit"); });
    EXPECT_EQ(cfg.BCEAN, 13);
}

TEST_F(PantallasProgramaTest, ShowsTheFloatingButtonOfWhoeverHasIt) {
    int veces = 0;
    PantallasPrograma conBoton{{}, [&] { ++veces; }};
    EXPECT_TRUE(conBoton.Existe(Pantalla::BotonAcceso));
    conBoton.Abrir(Pantalla::BotonAcceso);
    EXPECT_EQ(veces, 1);
}

TEST_F(PantallasProgramaTest, PlacesAskTheOneWhoGuardsThem) {
    EXPECT_TRUE(programa.ValidarUsuari(0, u"authConfiguracion"_s));
    PonerUsuario("ANA", "1234", 0);
    {
        const AlAbrir abierto([](QDialog& d) { Entrar(d, "1234"); });
        EXPECT_TRUE(programa.ValidarUsuari(0, u"authConfiguracion"_s));
    }
    EXPECT_EQ(monitor->Partes().entorno.seguretat.GetNom(), u"ANA"_s);
    EXPECT_EQ(Cuenta(u"Accesos"_s), 1);
    EXPECT_EQ(LineasLog().last(), u"APUNTA_ACCESS_ANA-authConfiguracion"_s);
    const AlAbrir abierto([](QDialog& d) { d.reject(); });
    EXPECT_FALSE(programa.ValidarUsuari(0, u"authConfiguracion"_s));
}

TEST_F(PantallasProgramaTest, AChangeOfPassword) {
    PonerUsuario("ANA", "1234", 0);
    Abrir(Pantalla::CambioContrasena, [](QDialog& d) {
        d.findChild<QLineEdit*>(u"txtNewPassword"_s)->setText(u"9999"_s);
        d.findChild<QLineEdit*>(u"txtRepeatPassword"_s)->setText(u"9999"_s);
        Entrar(d, "1234");
    });
    EXPECT_EQ(Database().Consultar(u"SELECT password FROM Usuarios"_s).front().LeerTexto(0),
              u"9999"_s);
}

TEST_F(PantallasProgramaTest, AfterAChangeOfPasswordTheUsersAreReadAgain) {
    PonerUsuario("ANA", "1234", 0);
    Seguretat& seguretat = monitor->Partes().entorno.seguretat;
    seguretat.PonerRecargar(false);
    Abrir(Pantalla::CambioContrasena, [](QDialog& d) { d.reject(); });
    EXPECT_FALSE(seguretat.Recargar());
    Abrir(Pantalla::CambioContrasena, [](QDialog& d) {
        d.findChild<QLineEdit*>(u"txtNewPassword"_s)->setText(u"9999"_s);
        d.findChild<QLineEdit*>(u"txtRepeatPassword"_s)->setText(u"9999"_s);
        Entrar(d, "1234");
    });
    EXPECT_TRUE(seguretat.Recargar());
}

TEST_F(PantallasProgramaTest, ScreensAreNotHiddenWithAMinimisedMainWindow) {
    QWidget principal;
    principal.showMinimized();
    PantallasPrograma sobre{[&principal] { return &principal; }};
    sobre.PonerEntorno(monitor->Partes().entorno);
    const AlAbrir abierto([](QDialog& d) {
        EXPECT_EQ(d.parentWidget(), nullptr);
        d.reject();
    });
    sobre.Abrir(Pantalla::Usuarios);
}

TEST_F(PantallasProgramaTest, TheFirstUserProtectsAtOnce) {
    EXPECT_TRUE(programa.ValidarUsuari(0, u"authConfiguracion"_s));
    dialogos.EsperaMensaje(u"Usuario guardado"_s, u"Usuario guardado correctamente"_s);
    Abrir(Pantalla::Usuarios, [](QDialog& d) {
        EXPECT_EQ(d.objectName(), u"frmUsuarios"_s);
        d.findChild<QComboBox*>(u"cmbNom"_s)->setEditText(u"ANA"_s);
        d.findChild<QLineEdit*>(u"txtPassword"_s)->setText(u"1234"_s);
        Tocar(d, "btnGuardar");
    });
    const AlAbrir abierto([](QDialog& d) { Entrar(d, "1234"); });
    EXPECT_TRUE(programa.ValidarUsuari(0, u"authConfiguracion"_s));
}

TEST_F(PantallasProgramaTest, TheCashOfficeShowsThePeriodAndExportsIt) {
    Database().Ejecutar(
        u"INSERT INTO procesados (importeVenta,cobrado,devuelto,estado,id1,terminal,"
        "idCierre) VALUES (1250,2000,750,'OK','T1','TPV1',0)"_s);
    dialogos.EsperaMensaje(testing::_, testing::_); // exported
    Abrir(Pantalla::Caja, [this](QDialog& d) {
        EXPECT_EQ(d.objectName(), u"frmCaja"_s);
        QTRY_COMPARE_WITH_TIMEOUT(d.findChild<QLabel*>(u"lbCobros"_s)->text(), u"12,50 €"_s, 5000);
        QTRY_VERIFY_WITH_TIMEOUT(d.findChild<QAbstractButton*>(u"boton_9"_s)->isEnabled(), 5000);
        Tocar(d, "boton_9");
        Tocar(d, "boton_0");
    });
    const QStringList ficheros =
        QDir(monitor->Partes().entorno.carpeta + u"/exports"_s).entryList({u"Caja_*.csv"_s});
    EXPECT_EQ(ficheros.size(), 1);
}

TEST_F(PantallasProgramaTest, EachRegisterShowsItsOwnRowsAndExportsThemUnderItsTitle) {
    Database().Ejecutar(
        u"INSERT INTO procesados (importeVenta,cobrado,estado,id1,usuario,idCierre) "
        "VALUES (1250,1250,'OK','1','7',0),(300,0,'ERROR','2','7',0),"
        "(400,0,'ERROR','3','7',0)"_s);
    Database().Ejecutar(u"INSERT INTO Accesos (usuario,lugar) VALUES ('ANA','authCaja')"_s);
    for (const auto& [pantalla, titulo, filas] :
         {std::tuple{Pantalla::Cobros, u"Registro de Cobros"_s, 1},
          std::tuple{Pantalla::Incidencias, u"Registro de Incidencias"_s, 2},
          std::tuple{Pantalla::Accesos, u"Registro de Accesos"_s, 1}}) {
        dialogos.EsperaMensaje(testing::_, testing::_); // exported
        Abrir(pantalla, [&](QDialog& d) {
            EXPECT_EQ(d.objectName(), u"frmListado"_s);
            auto* grid = d.findChild<QTableView*>(u"grdZV"_s);
            QTRY_COMPARE_WITH_TIMEOUT(grid->model()->rowCount(), filas, 5000);
            Tocar(d, "boton_3");
            Tocar(d, "boton_1");
        });
        EXPECT_EQ(QDir(monitor->Partes().entorno.carpeta + u"/exports"_s)
                      .entryList({titulo + u"_*.csv"_s})
                      .size(),
                  1);
    }
}

TEST_F(PantallasProgramaTest, AnIncidentIsResentFromItsRegister) {
    Database().Ejecutar(u"INSERT INTO procesados (importeVenta,estado,id1,usuario,idCierre) VALUES "
                        "(300,'ERROR','2','7',0)"_s);
    dialogos.EsperaMensaje(QString(), u"¿Desea reenviar esta operación a Zorvex?"_s, Respuesta::Si);
    Abrir(Pantalla::Incidencias, [](QDialog& d) {
        auto* grid = d.findChild<QTableView*>(u"grdZV"_s);
        QTRY_COMPARE_WITH_TIMEOUT(grid->model()->rowCount(), 1, 5000);
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {},
                          grid->visualRect(grid->model()->index(0, 13)).center());
        QTRY_VERIFY_WITH_TIMEOUT(!d.isVisible(), 5000); // it leaves by itself
    });
    EXPECT_EQ(Cuenta(u"cola WHERE id1='2'"_s), 1);
    EXPECT_EQ(Cuenta(u"procesados WHERE estado='REENVIADO'"_s), 1);
}

TEST_F(PantallasProgramaTest, AResendThatCannotBeDatedIsTheCallersFailure) {
    Database().Ejecutar(u"INSERT INTO procesados (importeVenta,estado,id1,usuario,idCierre) VALUES "
                        "(300,'ERROR','2','ANA',0)"_s);
    dialogos.EsperaMensaje(QString(), u"¿Desea reenviar esta operación a Zorvex?"_s, Respuesta::Si);
    EXPECT_EQ(NumeroError([&] {
                  Abrir(Pantalla::Incidencias, [](QDialog& d) {
                      auto* grid = d.findChild<QTableView*>(u"grdZV"_s);
                      QTRY_COMPARE_WITH_TIMEOUT(grid->model()->rowCount(), 1, 5000);
                      QTest::mouseClick(grid->viewport(), Qt::LeftButton, {},
                                        grid->visualRect(grid->model()->index(0, 13)).center());
                      QTRY_VERIFY_WITH_TIMEOUT(!d.isVisible(), 5000);
                  });
              }),
              13);
    EXPECT_EQ(Cuenta(u"cola"_s), 0);
    EXPECT_EQ(Cuenta(u"procesados WHERE estado='ERROR'"_s), 1);
}

TEST_F(PantallasProgramaTest, TheSettingsAreSavedAndInForce) {
    programa.PonerPuertoLibre(
        [this](quint16 puerto) { return monitor->Fast().PuertoLibre(puerto); });
    dialogos.EsperaMensaje(u"¡Atención!"_s, u"¿Desea guardar los cambios?"_s, Respuesta::Si);
    Abrir(Pantalla::Configuracion, [](QDialog& d) {
        EXPECT_EQ(d.objectName(), u"frmCfgMonitor"_s);
        EXPECT_EQ(d.findChild<QLabel*>(u"lbNotaPuerto"_s)->text(), QString()); // its own
        d.findChild<QLineEdit*>(u"tbCfg_0"_s)->setText(u"127.0.0.9"_s);
        Tocar(d, "boton_1");
    });
    EXPECT_EQ(Ajustes().IP, u"127.0.0.9"_s);
}

TEST_F(PantallasProgramaTest, AFailureOfTheSettingsIsTheCallers) {
    dialogos.EsperaMensaje(u"¡Atención!"_s, u"¿Desea guardar los cambios?"_s, Respuesta::Si);
    EXPECT_EQ(NumeroError([&] {
                  Abrir(Pantalla::Configuracion, [](QDialog& d) {
                      d.findChild<QLineEdit*>(u"tbCfg_1"_s)->setText(u"9e9"_s);
                      Tocar(d, "boton_1");
                  });
              }),
              6);
    EXPECT_EQ(Ajustes().REFRESCO, 2);
}

TEST_F(PantallasProgramaTest, AFailureWhileTheCashOfficeComesUpIsTheCallers) {
    Database().Ejecutar(u"DROP TABLE procesados"_s);
    const AlAbrir abierto([](QDialog& d) {
        QTRY_VERIFY_WITH_TIMEOUT(!d.isVisible(), 5000); // it ends by itself
    });
    EXPECT_EQ(NumeroError([&] { programa.Abrir(Pantalla::Caja); }), 1);
}

TEST_F(PantallasProgramaTest, AFailureOfAScreenIsTheCallers) {
    PonerUsuario("ANA", "1234", 0);
    Database().Ejecutar(u"DROP TABLE Usuarios"_s);
    EXPECT_EQ(NumeroError([&] { programa.Abrir(Pantalla::Usuarios); }), 1);
    EXPECT_EQ(NumeroError([&] { programa.Abrir(Pantalla::CambioContrasena); }), 1);
    EXPECT_EQ(NumeroError([&] { programa.ValidarUsuari(0, u"authConfiguracion"_s); }), 1);
}

TEST_F(PantallasProgramaTest, AFailureWhileAScreenIsUpEndsItAndIsTheCallers) {
    PonerUsuario("ANA", "1234", 0);
    EXPECT_EQ(NumeroError([&] {
                  Abrir(Pantalla::Usuarios, [this](QDialog& d) {
                      d.findChild<QComboBox*>(u"cmbNom"_s)->setEditText(u"EVA"_s);
                      d.findChild<QLineEdit*>(u"txtPassword"_s)->setText(u"1234"_s);
                      Database().Ejecutar(u"DROP TABLE Usuarios"_s);
                      Tocar(d, "btnGuardar");
                  });
              }),
              1);
}

} // namespace
} // namespace zv::test
