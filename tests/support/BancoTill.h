// A till of a test: real database in a temporary folder, scripted device and operator, a clock that
// stands still.
#pragma once

#include "platform/RegistryNames.h"
#include "platform/StringLiterals.h"
#include "store/Esquema.h"
#include "store/sqlite/SqliteEngine.h"
#include "support/DeviceGuion.h"
#include "support/DialogosGuion.h"
#include "support/FixedClock.h"
#include "support/ImprimeQt.h"
#include "support/LogMemoria.h"
#include "support/NumeroError.h"
#include "support/PantallasGuion.h"
#include "till/TillGraph.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace zv::test {

class BancoTill : public testing::Test {
  protected:
    BancoTill()
        : carpeta(Plantilla()), textos(carpeta.path()), registry(carpeta.filePath(u"Registro"_s)),
          importes(FormatoRegional(u"es_ES"_s), [this] { return cliente.Multiplier(); }),
          graph({carpeta.path(), cliente, registry, log, dialogos, textos, importes, reloj,
                 pantallas}) {
        bool existe = false;
        entorno.configuracio->LeerCfgIni(entorno.rutaIni, existe);
        SqliteEngine catalogo;
        CrearBaseDatos(catalogo, carpeta.path(), log, dialogos, textos);
        EXPECT_TRUE(entorno.conexion.ConectarBD());
        log.Toma();
    }

    // Connected with that balance left by the session before.
    void ConectarCon(qint32 saldo) {
        registry.GuardarValor(registry_name::kSaldoExit, QString::number(saldo));
        cliente.EsperaConnect();
        entorno.supervision.Conectar();
        ASSERT_TRUE(entorno.supervision.Conectado());
    }

  private:
    static QString Plantilla() {
        const QString memoria = u"/dev/shm"_s;
        return (QFileInfo(memoria).isWritable() ? memoria : QDir::tempPath()) + u"/zv-XXXXXX"_s;
    }

  protected:
    QTemporaryDir carpeta;
    FixedClock reloj;
    LogMemoria log;
    DialogosGuion dialogos;
    PantallasGuion pantallas;
    DeviceGuion cliente;
    Textos textos;
    RegistryTree registry;
    Importes importes;
    TillGraph graph;
    Entorno& entorno = graph.Entorno();
    DatabaseEngine& motor = entorno.Database();
};

} // namespace zv::test
