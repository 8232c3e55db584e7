// The buttons of the cash office that work with the device.
#include "BancoCierre.h"

namespace zv::test {

class OperacionesCajaTest : public BancoCierre {
  protected:
    void Pulsar(BotonCaja boton) { operaciones.boton_Click(boton); }
    // Everything that a hand can touch; none of it may do anything.
    void TocarTodo() {
        const QStringList lineas = log.lineas;
        for (const BotonCaja boton : kBotonesCaja) {
            Pulsar(boton);
        }
        EXPECT_EQ(log.lineas, lineas);
        ++tocados_;
    }
    DialogosGuion::Accion Tocando() {
        return [this] { TocarTodo(); };
    }
    FinGuion OkTocando() { return FinGuion::Ok().Durante(Tocando()); }

    int tocados_ = 0;
};

TEST_F(OperacionesCajaTest, EachButtonHasItsOperation) {
    dialogos.EsperaMensaje(u"Cierre de caja"_s, testing::_);
    cliente.EsperaCashBoxControl(7, 0, 0, 0, 0);
    Pulsar(BotonCaja::CierreNiveles);
    caja.PonerBoton(BotonCaja::CierreValor, true);
    dialogos.EsperaImporte(u"Cierre"_s, testing::_, 100);
    cliente.EsperaCashBoxControl(15, 100, 0, 0, 0);
    Pulsar(BotonCaja::CierreValor);
    cliente.EsperaCashBoxControl(0, 0, 0, 0, 0);
    Pulsar(BotonCaja::Cuadrar);
    caja.PonerBoton(BotonCaja::VaciarMonedas, true);
    cliente.EsperaEmptyCB(0, 0);
    Pulsar(BotonCaja::VaciarMonedas);
    caja.PonerBoton(BotonCaja::VaciarBilletes, true);
    cliente.EsperaEmptyCB(1, 0);
    Pulsar(BotonCaja::VaciarBilletes);
    ComprobarReposo();
}

TEST_F(OperacionesCajaTest, TheOtherButtonsHaveNoneHere) {
    for (const BotonCaja boton :
         {BotonCaja::Salir, BotonCaja::Imprimir, BotonCaja::Historico, BotonCaja::ExportCsv}) {
        caja.PonerBoton(boton, true);
        Pulsar(boton);
    }
    EXPECT_EQ(log.lineas, QStringList());
}

TEST_F(OperacionesCajaTest, ADisabledButtonDoesNothing) {
    for (const BotonCaja boton : kBotonesCaja) {
        caja.PonerBoton(boton, false);
    }
    TocarTodo();
}

// One close for each time that the cash office is opened.
TEST_F(OperacionesCajaTest, ASecondCloseIsNotPossible) {
    dialogos.EsperaMensaje(u"Cierre de caja"_s, testing::_);
    cliente.EsperaCashBoxControl(7, 0, 0, 0, 0);
    Pulsar(BotonCaja::CierreNiveles);
    Pulsar(BotonCaja::CierreNiveles);
    Pulsar(BotonCaja::CierreValor);
    EXPECT_EQ(Cierres().size(), 1U);
}

TEST_F(OperacionesCajaTest, NothingIsBegunWithinAnother) {
    dialogos.EsperaMensaje(u"Cierre de caja"_s, testing::_, Respuesta::Aceptar, std::nullopt,
                           Tocando());
    cliente.EsperaCashBoxControl(7, 0, 0, 0, 0, OkTocando());
    Pulsar(BotonCaja::CierreNiveles);
    dialogos.EsperaImporte(u"Cierre"_s, testing::_, 0, true, Tocando());
    caja.PonerBoton(BotonCaja::CierreValor, true);
    Pulsar(BotonCaja::CierreValor);
    cliente.EsperaCashBoxControl(0, 0, 0, 0, 0, OkTocando());
    Pulsar(BotonCaja::Cuadrar);
    caja.PonerBoton(BotonCaja::VaciarMonedas, true);
    cliente.EsperaEmptyCB(0, 200, OkTocando());
    Pulsar(BotonCaja::VaciarMonedas);
    cliente.EsperaConfiguration(OkTocando());
    Pulsar(BotonCaja::Configuracion);
    EXPECT_EQ(tocados_, 6);
    ComprobarReposo();
}

TEST_F(OperacionesCajaTest, AFailureLeavesTheHandlerUsable) {
    cliente.EsperaEmptyCB(0, 200,
                          FinGuion::Ok().Durante([] { throw ErrorEjecucion(429, u"x"_s); }));
    EXPECT_EQ(NumeroError([this] { Pulsar(BotonCaja::VaciarMonedas); }), 429);
    cliente.EsperaCashBoxControl(0, 0, 0, 0, 0);
    Pulsar(BotonCaja::Cuadrar);
    ComprobarReposo();
}

TEST_F(OperacionesCajaTest, TheConfigurationIsTheDevicesOwn) {
    for (const FinGuion& fin : {FinGuion::Ok(), FinGuion::Error(5, u"No"_s)}) {
        log.Toma();
        cliente.EsperaConfiguration(fin);
        Pulsar(BotonCaja::Configuracion);
        EXPECT_EQ(log.lineas, (QStringList{u"@Configuration()"_s, u"ZV_CONFIGURATION"_s}));
    }
    // Without a connection it is asked all the same.
    cliente.EsperaDisconnect();
    entorno.supervision.Cortar();
    log.Toma();
    cliente.EsperaConfiguration(FinGuion::Error(1, u"Sin enlace"_s));
    Pulsar(BotonCaja::Configuracion);
    EXPECT_EQ(log.lineas, (QStringList{u"@Configuration()"_s, u"ZV_CONFIGURATION"_s}));
    ComprobarReposo();
}

} // namespace zv::test
