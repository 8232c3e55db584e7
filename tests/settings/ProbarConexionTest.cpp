// The test of the device from within the settings.
#include "BancoCfg.h"

namespace zv::test {
namespace {

class ProbarConexionTest : public BancoCfg {
  protected:
    ProbarConexionTest() { Cargar("[ZORVEX]\r\nIP=10.0.0.7\r\n"); }

    void Conectar() {
        cliente.PonerTotal(0);
        registry.GuardarValor(registry_name::kSaldoExit, u"0"_s);
        cliente.EsperaConnect();
        entorno.supervision.Conectar();
        ASSERT_TRUE(entorno.supervision.Conectado());
        antes = cliente.Llamadas().size();
        log.Toma();
    }
    QStringList Llamadas() const { return cliente.Llamadas().mid(antes); }
    void EsperaConectada(DialogosGuion::Accion mientras = {}) {
        dialogos.EsperaMensaje(u"Zorvex"_s, u"Conexión establecida"_s, Respuesta::Aceptar,
                               EstiloMensaje::Informacion, std::move(mientras));
    }
    void EsperaSinConexion(DialogosGuion::Accion mientras = {}) {
        dialogos.EsperaMensaje(u"Zorvex"_s, u"No se puede conectar con Zorvex"_s,
                               Respuesta::Aceptar, EstiloMensaje::Aviso, std::move(mientras));
    }
    void EsperaFallo(const QString& texto) {
        dialogos.EsperaMensaje(u"Error al conectar con Zorvex"_s, texto, Respuesta::Aceptar,
                               EstiloMensaje::Aceptar);
    }

    qsizetype antes = 0;
};

TEST_F(ProbarConexionTest, WithoutAnAddressNothingHappens) {
    cfg->Escribir(CampoCfg::IP, {});
    cfg->ProbarConexion();
    EXPECT_EQ(Llamadas(), QStringList());
    EXPECT_EQ(E().prueba, QString());
}

TEST_F(ProbarConexionTest, ADeviceThatAnswersIsLeftAgain) {
    cfg->Escribir(CampoCfg::IP, u"10.0.0.9"_s);
    cliente.EsperaConnect();
    cliente.EsperaDisconnect();
    EsperaConectada([&] {
        EXPECT_TRUE(cliente.Agotado()); // left before it is told
        EXPECT_EQ(E().prueba, u"Conexión establecida"_s);
        EXPECT_FALSE(E().punteroEspera);
    });
    cfg->ProbarConexion();
    EXPECT_EQ(Llamadas(), (QStringList{u"Address(10.0.0.9)"_s, u"Connect()"_s, u"Disconnect()"_s}));
    EXPECT_FALSE(entorno.supervision.Conectado());
    EXPECT_EQ(Global().IP, u"10.0.0.7"_s);
    EXPECT_TRUE(log.lineas.isEmpty());
}

TEST_F(ProbarConexionTest, AConnectedSystemIsDisconnectedFirstAndStaysSo) {
    Conectar();
    cliente.EsperaDisconnect();
    cliente.EsperaConnect();
    cliente.EsperaDisconnect();
    EsperaConectada();
    cfg->ProbarConexion();
    EXPECT_EQ(Llamadas(), (QStringList{u"Disconnect()"_s, u"Address(10.0.0.7)"_s, u"Connect()"_s,
                                       u"Disconnect()"_s}));
    EXPECT_FALSE(entorno.supervision.Conectado());
}

TEST_F(ProbarConexionTest, ADeviceThatDoesNotAnswerIsToldAndTheAddressHasTheFocus) {
    Conectar();
    cliente.EsperaDisconnect();
    cliente.EsperaConnect(FinGuion::Error(7, u"Sin respuesta"_s));
    std::optional<CampoCfg> foco;
    cfg->AlCambiar([&] { foco = E().foco ? E().foco : foco; });
    EsperaSinConexion([&] { EXPECT_FALSE(foco); });
    cfg->ProbarConexion();
    EXPECT_EQ(foco, CampoCfg::IP);
    EXPECT_EQ(E().prueba, u"No se puede conectar con Zorvex"_s);
    EXPECT_FALSE(entorno.supervision.Conectado());
    EXPECT_FALSE(cfg->Cambios());
}

TEST_F(ProbarConexionTest, WhatIsBeingDoneStandsOnTheScreenBeforeTheDeviceIsAsked) {
    QStringList visto;
    cfg->AlPintar([&] {
        EXPECT_TRUE(E().punteroEspera);
        visto << E().prueba;
    });
    cliente.EsperaConnect(FinGuion::Error(7, {}).Durante(
        [&] { EXPECT_EQ(visto, QStringList{u"Probando la conexión..."_s}); }));
    EsperaSinConexion();
    cfg->ProbarConexion();
}

TEST_F(ProbarConexionTest, AFailureOfTheClientIsToldWhereverItComes) {
    const auto falla = [] { throw ErrorEjecucion(53, u"No hay ruta"_s); };
    const QString texto = u"Error nº 53 - No hay ruta"_s;
    cliente.EsperaConnect(FinGuion::Ok().Durante(falla));
    EsperaFallo(texto);
    cfg->ProbarConexion();
    EXPECT_EQ(E().prueba, u"No se puede conectar con Zorvex"_s);

    cliente.EsperaConnect();
    cliente.EsperaDisconnect(FinGuion::Ok().Durante(falla));
    EsperaFallo(texto);
    cfg->ProbarConexion();

    Conectar();
    cliente.EsperaDisconnect(FinGuion::Ok().Durante(falla));
    EsperaFallo(texto);
    cfg->ProbarConexion();
    EXPECT_FALSE(entorno.supervision.Conectado()); // nobody knows what is left of the session
    EXPECT_FALSE(E().punteroEspera);
}

TEST_F(ProbarConexionTest, AnotherAddressTakesTheResultAway) {
    cliente.EsperaConnect();
    cliente.EsperaDisconnect();
    EsperaConectada();
    cfg->ProbarConexion();
    cfg->Escribir(CampoCfg::Refresco, u"9"_s);
    EXPECT_FALSE(E().prueba.isEmpty());
    cfg->Escribir(CampoCfg::IP, u"10.0.0.8"_s);
    EXPECT_EQ(E().prueba, QString());
}

} // namespace
} // namespace zv::test
