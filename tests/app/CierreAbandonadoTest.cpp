// What a close that has failed leaves open, in a whole monitor: the pulse ends it at its first tick
// after the cash office has been left, and until then nobody is told that anything is durable.
#include "BancoMonitor.h"
#include "cashoffice/OperacionesCaja.h"
#include "support/Esperas.h"
#include "support/GanchoFallos.h"

#include <QTcpSocket>

namespace zv::test {

class CierreAbandonadoTest : public BancoMonitor {
  protected:
    CierreAbandonadoTest() {
        PonerSaldo(5000);
        EscribirIni("[ZORVEX]\r\nIP=127.0.0.1\r\n[ZVMONITOR]\r\nMODO=MANUAL\r\n"
                    "[CONECTOR]\r\nZVFastPort=16501\r\n");
        cliente.EsperaConnect();
        EXPECT_TRUE(monitor->Cargar());
        Pulso().ProcesarCola(); // enables the buttons
    }
    // The cash office is opened, and a close fails where it says so, with the row of the close
    // written.
    void CerrarYFallar(const std::function<void()>& despues) {
        pantallas.EsperaValidar(1, u"authCaja"_s, true);
        pantallas.EsperaAbrir(Pantalla::Caja, [this, despues] {
            Caja caja(monitor->Partes().entorno);
            caja.AlMostrar();
            dialogos.EsperaMensaje(u"Cierre de caja"_s, testing::_);
            cliente.EsperaCashBoxControl(7, 0, 0, 0, 0);
            dialogos.EsperaMensaje(u"Error al realizar el cierre"_s,
                                   u"Error nº 10:\r\ndisk I/O error"_s, Respuesta::Aceptar,
                                   EstiloMensaje::Critico);
            {
                GanchoFallos gancho(Database());
                gancho.Falla(Statement::Kind::Escritura, u"UPDATE procesados"_s, 1,
                             {10, u"disk I/O error"_s});
                CierreCaja(caja).Cerrar(kCierreNiveles);
            }
            EXPECT_EQ(Database().Nivel(), 1);
            despues();
        });
        monitor->Partes().botones.boton_Click(BotonPie::Caja);
    }
    int Cierres() const {
        return Database().Consultar(u"SELECT Count(*) FROM cierres"_s).front().LeerLong(0);
    }
};

TEST_F(CierreAbandonadoTest, TheNextArmedTickEndsIt) {
    CerrarYFallar([this] {
        EXPECT_FALSE(Pulso().Armado());
        EXPECT_EQ(Cierres(), 1); // seen by this program alone
    });
    ASSERT_TRUE(Pulso().Armado());
    EXPECT_EQ(Database().Nivel(), 1);
    EXPECT_EQ(LeerValor(u"Activo"_s), u"1"_s);
    Pulso().ProcesarCola();
    EXPECT_EQ(Database().Nivel(), 0);
    EXPECT_EQ(Cierres(), 0);
    EXPECT_EQ(LineasLog().last(), u">>> Transacción abandonada: deshecha"_s);
    EXPECT_EQ(LeerValor(u"Activo"_s), u"1"_s); // until the next operation puts it down
}

TEST_F(CierreAbandonadoTest, ASaleOfTheFastLinkWaitsForItsEnd) {
    QTcpSocket socket;
    CerrarYFallar([&] {
        socket.connectToHost(DireccionPropia(), 16501);
        ASSERT_TRUE(Esperar([&] { return socket.state() == QAbstractSocket::ConnectedState; }));
        socket.write("C|T1|1250");
        ASSERT_TRUE(Esperar([&] { return monitor->Fast().MensajesEnCola() == 1; }));
        monitor->Fast().Tick();
        EXPECT_EQ(monitor->Fast().MensajesEnCola(), 1U);
        EXPECT_EQ(Database().Nivel(), 1);
    });
    Pulso().ProcesarCola();
    ASSERT_TRUE(Esperar([&] { return socket.bytesAvailable() > 0; }));
    EXPECT_EQ(socket.readAll(), QByteArray("OK|Added"));
    EXPECT_EQ(Cierres(), 0);
}

TEST_F(CierreAbandonadoTest, ACloseThatHasGoneWellLeavesNothing) {
    pantallas.EsperaValidar(1, u"authCaja"_s, true);
    pantallas.EsperaAbrir(Pantalla::Caja, [this] {
        Caja caja(monitor->Partes().entorno);
        caja.AlMostrar();
        dialogos.EsperaMensaje(u"Cierre de caja"_s, testing::_);
        cliente.EsperaCashBoxControl(7, 0, 0, 0, 0);
        OperacionesCaja(caja).boton_Click(BotonCaja::CierreNiveles);
    });
    monitor->Partes().botones.boton_Click(BotonPie::Caja);
    EXPECT_EQ(Database().Nivel(), 0);
    EXPECT_TRUE(LineasLog().contains(u"CIERRE_INICIALES_1_COMMIT"_s));
    EXPECT_EQ(LeerValor(u"Activo"_s), u"0"_s);
    EXPECT_EQ(LeerValor(u"Saldo_Inicial"_s), u"5000"_s);
}

} // namespace zv::test
