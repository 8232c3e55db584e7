// A bench for the operations that do not come from the queue: connected, with 500,00 in the device
// and the pulse armed.
#pragma once

#include "BancoEngine.h"
#include "store/Palabras.h"
#include "support/GanchoFallos.h"
#include "support/NumeroError.h"
#include "till/ResultadoEnvio.h"

namespace zv::test {

// What an operation tells of itself in a record; the other columns are the same in all of them.
struct ApunteEsperado {
    QString id1;
    QString estado;
    qint32 importeVenta = 0;
    qint32 cobrado = 0;
    qint32 devuelto = 0;
    QString error;
    qint32 saldoZV = 50000;
};

class BancoManual : public BancoEngine {
  protected:
    void SetUp() override {
        EscribirIni("[ZVMONITOR]\r\nMODO=MANUAL\r\n"); // no return to "AUTO" by itself
        ConectarCon(50000);
        estado.ActualizarBotonesMonitor(true);
    }

    void Pulsar(BotonPie boton) { botones.boton_Click(boton); }
    const EstadoControles& C() const { return controles.Estado(); }

    static void ComprobarFila(const Row& fila, const ApunteEsperado& apunte,
                              const QDateTime& ahora) {
        EXPECT_EQ(fila.LeerTexto(u"id1"_s), apunte.id1);
        EXPECT_EQ(fila.LeerTexto(u"estado"_s), apunte.estado);
        EXPECT_EQ(fila.LeerCurrency(u"importeVenta"_s), Currency(apunte.importeVenta));
        EXPECT_EQ(fila.LeerCurrency(u"cobrado"_s), Currency(apunte.cobrado));
        EXPECT_EQ(fila.LeerCurrency(u"devuelto"_s), Currency(apunte.devuelto));
        EXPECT_EQ(fila.LeerTexto(u"error"_s), apunte.error);
        EXPECT_EQ(fila.LeerCurrency(u"saldoZV"_s), Currency(apunte.saldoZV));
        EXPECT_EQ(fila.LeerFecha(u"fechaVenta"_s), ahora);
        EXPECT_EQ(fila.LeerFecha(u"fechaZV"_s), ahora);
        EXPECT_EQ(fila.LeerTexto(u"id2"_s), QString());
        EXPECT_EQ(fila.LeerLong(u"idcaja"_s), 0);
        EXPECT_EQ(fila.LeerTexto(u"terminal"_s), u"ZV"_s);
        EXPECT_EQ(fila.LeerTexto(u"vendedor"_s), QString());
        EXPECT_EQ(fila.LeerTexto(u"formapago"_s), QString());
        EXPECT_EQ(fila.LeerLong(u"idCierre"_s), 0);
        EXPECT_EQ(fila.LeerLong(u"idcola"_s), 0);
        EXPECT_EQ(fila.LeerTexto(u"usuario"_s), QString());
    }
    // The records there are, and that nothing of the operation still stands.
    void ComprobarApuntes(const std::vector<ApunteEsperado>& apuntes) {
        const auto filas = Procesados();
        ASSERT_EQ(filas.size(), apuntes.size());
        for (std::size_t i = 0; i < filas.size(); ++i) {
            SCOPED_TRACE(i);
            ComprobarFila(filas[i], apuntes[i], reloj.Ahora());
        }
        ComprobarReposo();
    }
    void ComprobarReposo() const {
        EXPECT_EQ(motor.Nivel(), 0);
        EXPECT_NE(Activo(), u"1"_s);
        EXPECT_TRUE(pulso.Armado());
        EXPECT_TRUE(C().framePie);
        EXPECT_TRUE(cliente.Agotado());
        EXPECT_EQ(dialogos.Pendientes(), 0U);
        EXPECT_EQ(pantallas.Pendientes(), 0U);
    }
    // The state in which the device works, or somebody is asked with the transaction open.
    void ComprobarEnMarcha(int nivel = 1) const {
        EXPECT_FALSE(pulso.Armado());
        EXPECT_FALSE(C().framePie);
        EXPECT_EQ(Activo(), u"1"_s);
        EXPECT_EQ(motor.Nivel(), nivel);
        ComprobarSinBloqueo();
    }
    // Another program can write at once.
    void ComprobarSinBloqueo() const {
        SqliteEngine otroSQLite({std::chrono::milliseconds(0)});
        DatabaseEngine& otro = otroSQLite;
        otro.Abrir(CadenaConexion(u"MDB"_s, {}, conexion.RutaFichero(), {}, {}));
        EXPECT_EQ(
            NumeroError([&] { otro.Ejecutar(u"INSERT INTO historial (id) VALUES ('otro')"_s); }),
            0);
    }
    // What stands in the file for another program.
    qint32 ApuntesEnElFichero() const {
        SqliteEngine otroSQLite;
        DatabaseEngine& otro = otroSQLite;
        otro.Abrir(CadenaConexion(u"MDB"_s, {}, conexion.RutaFichero(), {}, {}));
        return otro.Consultar(u"SELECT Count(*) AS n FROM procesados"_s).front().LeerLong(0);
    }

    // The link is lost in an operation, and the program connects anew.
    static FinGuion EnlacePerdido() { return FinGuion::EnlacePerdido(); }
    void EsperaReconexion(bool acepta = true) {
        cliente.EsperaDisconnect();
        if (acepta) {
            cliente.EsperaConnect();
            return;
        }
        cliente.EsperaConnect(FinGuion::Error(1, u"Nadie responde"_s));
        dialogos.EsperaMensaje(u"Error de Zorvex"_s,
                               u"Existe un problema de comunicación con Zorvex.\r\n"
                               "Consulte con su técnico el siguiente error:\r\n"
                               "1: Nadie responde"_s);
    }
    static QStringList LineasReconexion() {
        return {u"ZVCONNECT_DESCONECTARZORV_DISCONNECT_OK"_s,
                u"ZVCONNECT_CONECTARZORV_CONNECT_OK"_s};
    }
    static QStringList LineasSinReconexion() {
        return {u"ZVCONNECT_DESCONECTARZORV_DISCONNECT_OK"_s,
                u"ZVCONNECT_CONECTARZORV_CONNECT_ERRORZV1"_s,
                u">>> Error Zorvex: 1 - Nadie responde"_s};
    }
    QString SaldoExit() const { return registry.LeerValor(registry_name::kSaldoExit, QString()); }
};

} // namespace zv::test
