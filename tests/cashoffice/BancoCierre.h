// What the cash office does with the device. What the device is asked and what the operator sees
// stand among the lines of the log, so that one list tells the order of everything.
#pragma once

#include "BancoOficina.h"
#include "cashoffice/OperacionesCaja.h"
#include "platform/ErrorEjecucion.h"
#include "store/Palabras.h"
#include "support/GanchoFallos.h"

namespace zv::test {

// What the device holds, part by part, minor units: coins of 1, notes of 500.
struct Dinero {
    qint32 cambioMonedas = 0;
    qint32 cambioBilletes = 0;
    qint32 cajonMonedas = 0;
    qint32 cajonBilletes = 0;
    qint32 Suma() const { return cambioMonedas + cambioBilletes + cajonMonedas + cajonBilletes; }
};

// What a movement of the cash office tells of itself; the other columns are the same in all.
struct Movimiento {
    QString id1;
    qint32 importeVenta = 0;
    qint32 cobrado = 0;
    qint32 devuelto = 0;
    qint32 saldoZV = 0;
    qint32 idCierre = 0;
    QString formapago = {};
};

class BancoCierre : public BancoOficina {
  protected:
    void SetUp() override {
        Abrir({3000, 5000, 200, 1500});
        cliente.AlLlamar([this](const QString& llamada) {
            if (!llamada.startsWith(u"Ge"_s)) {
                log.lineas << u'@' + llamada;
            }
        });
    }

    static Dinero DeLaCaja() { return {3000, 5000, 200, 1500}; }
    // Connected with that much money in the device, and the cash office as it comes up.
    void Abrir(const Dinero& dinero) {
        PonerDinero(dinero);
        registry.GuardarValor(registry_name::kSaldoInicial, u"4321"_s);
        ConectarCon(dinero.Suma());
        caja.AlMostrar();
        log.Toma();
    }
    void PonerDinero(const Dinero& d) {
        const auto poner = [this](qint32 tipo, qint32 monedas, qint32 billetes) {
            cliente.PonerNiveles(tipo, u"1,500"_s,
                                 QString::number(monedas) + u',' + QString::number(billetes / 500));
        };
        poner(2, d.cambioMonedas, d.cambioBilletes);
        poner(3, d.cajonMonedas, d.cajonBilletes);
    }
    // The device's content changes while it works.
    FinGuion Deja(const Dinero& d, const FinGuion& fin = {}) {
        return fin.Durante([this, d] { PonerDinero(d); });
    }
    DialogosGuion::Accion Visto(const QString& titulo) {
        return [this, titulo] {
            log.lineas << u'#' + titulo;
            EXPECT_EQ(motor.Nivel(), 0);
            ComprobarSinBloqueo();
        };
    }
    void EsperaAviso(const QString& titulo, const QString& texto) {
        dialogos.EsperaMensaje(titulo, texto, Respuesta::Aceptar, EstiloMensaje::Aceptar,
                               Visto(titulo));
    }
    void EsperaSinConexion() { EsperaAviso(u"Zorvex"_s, u"No hay conexión con Zorvex"_s); }

    // A movement of a point of sale; answers its idZV.
    qint32 PonerVenta(qint32 cobrado, qint32 idCierre = 0, const QString& comoAcaba = estado::kOk) {
        motor.Ejecutar(
            u"INSERT INTO procesados (fechaZV,fechaVenta,importeVenta,cobrado,devuelto,estado,id1,"
            "id2,idcaja,terminal,vendedor,formapago,error,idCierre,saldoZV,idcola) "
            "VALUES (?,?,?,?,0,?,?,'',1,?,?,?,'',?,0,0)"_s,
            {reloj.Ahora(), reloj.Ahora(), cobrado, cobrado, comoAcaba, u"T1"_s, u"TPV1"_s,
             u"Ana"_s, u"EFECTIVO"_s, idCierre});
        return motor.Consultar(u"SELECT Max(idZV) AS id FROM procesados"_s).front().LeerLong(0);
    }
    std::vector<Row> Procesados() {
        return motor.Consultar(u"SELECT * FROM procesados ORDER BY idZV"_s);
    }
    std::vector<Row> Cierres() {
        return motor.Consultar(u"SELECT * FROM cierres ORDER BY idCierre"_s);
    }
    // The movements of the cash office itself.
    void ComprobarMovimientos(const std::vector<Movimiento>& esperados) {
        const auto filas =
            motor.Consultar(u"SELECT * FROM procesados WHERE terminal='ZV' ORDER BY idZV"_s);
        ASSERT_EQ(filas.size(), esperados.size());
        for (std::size_t i = 0; i < filas.size(); ++i) {
            SCOPED_TRACE(i);
            ComprobarMovimiento(filas[i], esperados[i]);
        }
    }
    void ComprobarMovimiento(const Row& fila, const Movimiento& esperado) {
        EXPECT_EQ(fila.LeerTexto(u"id1"_s), esperado.id1);
        EXPECT_EQ(fila.LeerCurrency(u"importeVenta"_s), Currency(esperado.importeVenta));
        EXPECT_EQ(fila.LeerCurrency(u"cobrado"_s), Currency(esperado.cobrado));
        EXPECT_EQ(fila.LeerCurrency(u"devuelto"_s), Currency(esperado.devuelto));
        EXPECT_EQ(fila.LeerCurrency(u"saldoZV"_s), Currency(esperado.saldoZV));
        EXPECT_EQ(fila.LeerLong(u"idCierre"_s), esperado.idCierre);
        EXPECT_EQ(fila.LeerTexto(u"formapago"_s), esperado.formapago);
        EXPECT_EQ(fila.LeerTexto(u"estado"_s), u"OK"_s);
        EXPECT_EQ(fila.LeerTexto(u"error"_s), QString());
        EXPECT_EQ(fila.LeerTexto(u"id2"_s), QString());
        EXPECT_EQ(fila.LeerTexto(u"vendedor"_s), QString());
        EXPECT_EQ(fila.LeerLong(u"idcaja"_s), 0);
        EXPECT_EQ(fila.LeerLong(u"idcola"_s), 0);
        EXPECT_EQ(fila.LeerFecha(u"fechaVenta"_s), reloj.Ahora());
        EXPECT_EQ(fila.LeerFecha(u"fechaZV"_s), reloj.Ahora());
    }
    void ComprobarSinBloqueo() const {
        SqliteEngine otroSQLite({std::chrono::milliseconds(0)});
        DatabaseEngine& otro = otroSQLite;
        otro.Abrir(CadenaConexion(u"MDB"_s, {}, entorno.conexion.RutaFichero(), {}, {}));
        EXPECT_EQ(
            NumeroError([&] { otro.Ejecutar(u"INSERT INTO historial (id) VALUES ('otro')"_s); }),
            0);
    }
    // Nothing of an operation still stands.
    void ComprobarReposo() const {
        EXPECT_EQ(motor.Nivel(), 0);
        EXPECT_NE(Activo(), u"1"_s);
        EXPECT_TRUE(cliente.Agotado());
        EXPECT_EQ(dialogos.Pendientes(), 0U);
    }
    // The operation has ended where a failure has met it, and left what it had begun.
    void Olvidar() {
        cliente.Olvida();
        dialogos.Olvida();
    }
    QString Activo() const { return registry.LeerValor(registry_name::kActivo, u"-"_s); }
    QString SaldoExit() const { return registry.LeerValor(registry_name::kSaldoExit, u"-"_s); }
    QString SaldoInicial() const {
        return registry.LeerValor(registry_name::kSaldoInicial, u"-"_s);
    }
    QString UltimoCierre() const {
        return entorno.ini.LeerIni(entorno.rutaIni, u"FILTROS"_s, u"ULTCIERRE"_s, u"-"_s);
    }

    OperacionesCaja operaciones{caja};
};

} // namespace zv::test
