// A bench for the engine: real database in a temporary folder, scripted device and operator, a
// clock that stands still. One call of Pulso().ProcesarCola() is one tick.
#pragma once

#include "engine/EngineGraph.h"
#include "platform/ErrorEjecucion.h"
#include "platform/RegistryNames.h"
#include "platform/StringLiterals.h"
#include "store/Esquema.h"
#include "store/sqlite/SqliteEngine.h"
#include "support/DeviceGuion.h"
#include "support/DialogosGuion.h"
#include "support/FixedClock.h"
#include "support/ImprimeQt.h"
#include "support/LogMemoria.h"
#include "support/PantallasGuion.h"
#include "support/VentanaFalsa.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zv::test {

class BancoEngine : public testing::Test {
  protected:
    BancoEngine()
        : textos(carpeta.path()), registry(carpeta.filePath(u"Registro"_s)),
          importes(FormatoRegional(u"es_ES"_s), [this] { return cliente.Multiplier(); }),
          graph(ServiciosEn(carpeta.path())) {
        bool existe = false;
        configuracio->LeerCfgIni(RutaIni(), existe);
        SqliteEngine catalogo;
        CrearBaseDatos(catalogo, carpeta.path(), log, dialogos, textos);
        EXPECT_TRUE(conexion.ConectarBD());
        pulso.PonerVentana(&ventana);
        grid.PonerTitulos();
        log.Toma();
    }

    // What a till in that folder stands on.
    TillServices ServiciosEn(const QString& donde) {
        return {donde, cliente, registry, log, dialogos, textos, importes, reloj, pantallas};
    }
    QString RutaIni() const { return carpeta.filePath(u"ZVMonitor.ini"_s); }

    // Connected, with that much money in the device, and the pulse armed.
    void ConectarCon(qint32 total) {
        cliente.PonerTotal(total);
        registry.GuardarValor(registry_name::kSaldoExit, QString::number(total));
        cliente.EsperaConnect();
        supervision.Conectar();
        ASSERT_TRUE(supervision.Conectado());
        pulso.ArrancaTimer();
        log.Toma();
    }

    // A row as a point of sale writes it; answers its idZV.
    qint32 PonerFila(qint64 importe, const QString& id1 = u"T1"_s, bool manual = false) {
        motor.Ejecutar(u"INSERT INTO cola (fecha,importe,id1,id2,idcaja,terminal,vendedor,"
                       "formapago,creditoError,manual) VALUES (?,?,?,?,?,?,?,?,?,?)"_s,
                       {u"2026-03-14 10:20:30"_s, importe, id1, u"L2"_s, 3, u"TPV1"_s, u"Ana"_s,
                        u"EFECTIVO"_s, 0, manual});
        return motor.Consultar(u"SELECT Max(idZV) AS id FROM cola"_s).front().LeerLong(0);
    }
    void PonerCredito(qint32 idZV, const QVariant& credito) {
        motor.Ejecutar(u"UPDATE cola SET creditoError = ? WHERE idZV = ?"_s, {credito, idZV});
    }
    std::vector<Row> Cola() { return motor.Consultar(u"SELECT * FROM cola ORDER BY idZV"_s); }
    std::vector<Row> Procesados() {
        return motor.Consultar(u"SELECT * FROM procesados ORDER BY idZV"_s);
    }
    QString Activo() const { return registry.LeerValor(registry_name::kActivo, u"-"_s); }
    void EscribirIni(const QByteArray& contenido) {
        QFile fichero(RutaIni());
        ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
        fichero.write(contenido);
    }
    // Lines of the log that begin with one of the engine's own prefixes.
    QStringList LineasDe(const QString& inicio) const {
        QStringList lineas;
        for (const QString& linea : log.lineas) {
            if (linea.startsWith(inicio)) {
                lineas << linea;
            }
        }
        return lineas;
    }

    QTemporaryDir carpeta;
    FixedClock reloj;
    LogMemoria log;
    DialogosGuion dialogos;
    PantallasGuion pantallas;
    DeviceGuion cliente;
    Textos textos;
    RegistryTree registry;
    Importes importes;
    EngineGraph graph;
    Entorno& entorno = graph.Partes().entorno;
    DatabaseEngine& motor = entorno.Database();
    ConexionBD& conexion = entorno.conexion;
    TransactionOwner& transacciones = entorno.transacciones;
    Seguretat& seguretat = entorno.seguretat;
    ConfiguracioGlobal& configuracio = entorno.configuracio;
    SupervisionConexion& supervision = entorno.supervision;
    Controles& controles = graph.Partes().controles;
    GridCola& grid = graph.Partes().grid;
    EstadoMonitor& estado = graph.Partes().estado;
    PulsoCola& pulso = graph.Partes().pulso;
    BotonesMonitor& botones = graph.Partes().botones;
    ClicGrid& clic = graph.Partes().clic;
    VentanaFalsa ventana;
};

} // namespace zv::test
