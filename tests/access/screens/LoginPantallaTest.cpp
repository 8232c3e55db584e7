// The login on the screen behind its port, and places that ask for it.
#include "access/screens/LoginPantalla.h"

#include "BancoPantallas.h"

namespace zv::test {
namespace {

class LoginPantallaTest : public BancoPantallas {
  protected:
    LoginPantallaTest() {
        Poner(u"ANA"_s, u"1234"_s, 0);
        Poner(u"EVA"_s, u"9012"_s, 2);
        seguretat.PonerLogin(real);
    }
    static std::function<void(QDialog&)> Entra(const char* nombre, const char* password) {
        return [nombre, password](QDialog& d) {
            EXPECT_EQ(d.objectName(), u"frmLogin"_s);
            EXPECT_EQ(Texto(d, "lbTitulo"), u"Identificación"_s);
            QApplication::setActiveWindow(&d);
            Elegir(d, QString::fromLatin1(nombre));
            Cifras(d, password);
            Tocar(d, "teci_10");
        };
    }
    bool Validar(qint16 nivel, const QString& lugar, std::function<void(QDialog&)> accion) {
        const AlAbrir abierto(std::move(accion));
        return seguretat.ValidarUsuari(nivel, lugar);
    }

    LoginPantalla real{motor, dialogos, textos};
};

TEST_F(LoginPantallaTest, WhoIdentifiesHimselfGoesOn) {
    EXPECT_TRUE(Validar(1, u"authCaja"_s, Entra("ANA", "1234")));
    EXPECT_EQ(seguretat.GetNom(), u"ANA"_s);
    EXPECT_EQ(Accesos(), QStringList{u"ANA-authCaja"_s});
}

TEST_F(LoginPantallaTest, WhoMayNotEnterIsTold) {
    dialogos.EsperaMensaje(u"Usuarios"_s, u"Usuario no autorizado"_s);
    EXPECT_FALSE(Validar(1, u"authCaja"_s, Entra("EVA", "9012")));
    EXPECT_EQ(seguretat.GetNom(), u"EVA"_s);
}

TEST_F(LoginPantallaTest, ACancelledLoginAndThenTheSamePlaceAgain) {
    EXPECT_FALSE(Validar(1, u"authCaja"_s, [](QDialog& d) { Tocar(d, "teci_11"); }));
    EXPECT_EQ(seguretat.GetNom(), QString());
    EXPECT_TRUE(Validar(1, u"authCaja"_s, Entra("ANA", "1234")));
}

TEST_F(LoginPantallaTest, OnlyTheFloatAsksBeforeACancel) {
    dialogos.EsperaMensaje(u"Añadir cambio anulado"_s, testing::_, Respuesta::Aceptar);
    EXPECT_FALSE(Validar(2, u"authCambio"_s, [](QDialog& d) { Tocar(d, "teci_11"); }));
    EXPECT_FALSE(Validar(2, u"authCobroManual"_s, [](QDialog& d) { Tocar(d, "teci_11"); }));
}

TEST_F(LoginPantallaTest, AChangeOfPasswordAsksForNoPlace) {
    {
        const AlAbrir abierto([](QDialog& d) {
            EXPECT_EQ(Texto(d, "lbTitulo"), u"Modificar contraseña"_s);
            QApplication::setActiveWindow(&d);
            Elegir(d, u"EVA"_s);
            Cifras(d, "9012");
            Campo(d, "txtNewPassword").setText(u"4444"_s);
            Campo(d, "txtRepeatPassword").setText(u"4444"_s);
            Tocar(d, "teci_10");
        });
        EXPECT_TRUE(real.CambiarContrasena());
    }
    EXPECT_EQ(Tabla().last(), u"EVA/4444/2"_s);
    EXPECT_EQ(Accesos(), QStringList());
    EXPECT_EQ(seguretat.GetNom(), QString());
}

TEST_F(LoginPantallaTest, AChangeThatWasGivenUpIsNone) {
    dialogos.EsperaMensaje(u"Crear Usuario"_s, testing::_);
    const AlAbrir abierto([](QDialog& d) {
        QApplication::setActiveWindow(&d);
        Elegir(d, u"EVA"_s);
        Cifras(d, "9012");
        Tocar(d, "teci_10"); // who it is has been told, but no new password
        Tocar(d, "teci_11");
    });
    EXPECT_FALSE(real.CambiarContrasena());
    EXPECT_EQ(Tabla().last(), u"EVA/9012/2"_s);
}

TEST_F(LoginPantallaTest, AFailureOfTheScreenIsTheCallers) {
    EXPECT_EQ(NumeroError([&] {
                  Validar(1, u"authCaja"_s, [this](QDialog& d) {
                      QuitarTabla();
                      Elegir(d, u"ANA"_s);
                      Tocar(d, "teci_10");
                  });
              }),
              1);
    EXPECT_EQ(NumeroError([&] { real.CambiarContrasena(); }), 1);
    EXPECT_EQ(Accesos(), QStringList());
}

TEST_F(LoginPantallaTest, ComesUpOverItsParent) {
    QWidget ventana;
    ventana.setGeometry(0, 0, 700, 500);
    ventana.show();
    LoginPantalla sobre(motor, dialogos, textos, [&ventana] { return &ventana; });
    const AlAbrir abierto([&ventana](QDialog& d) {
        EXPECT_EQ(d.parentWidget(), &ventana);
        d.reject();
    });
    sobre.Identificar(u"authCaja"_s);
}

// It would be as hidden as its parent, and somebody's money may be in the device.
TEST_F(LoginPantallaTest, IsNotHiddenWithAMinimisedOrHiddenParent) {
    QWidget ventana;
    LoginPantalla sobre(motor, dialogos, textos, [&ventana] { return &ventana; });
    const auto sinPadre = [](QDialog& d) {
        EXPECT_EQ(d.parentWidget(), nullptr);
        EXPECT_TRUE(d.isVisible());
        d.reject();
    };
    for (const bool minimizada : {false, true}) {
        if (minimizada) {
            ventana.showMinimized();
        }
        {
            const AlAbrir abierto(sinPadre);
            sobre.Identificar(u"authCaja"_s);
        }
        const AlAbrir abierto(sinPadre);
        sobre.CambiarContrasena();
    }
}

} // namespace
} // namespace zv::test
