// What the operations of a till work with. Everything outlives them; there is one of each per
// monitor, put together by TillGraph.
#pragma once

#include "access/Seguretat.h"
#include "config/ConfiguracioGlobal.h"
#include "config/MarcaActivo.h"
#include "config/ModuloIni.h"
#include "device/DeviceClient.h"
#include "device/DeviceJournal.h"
#include "device/Saldos.h"
#include "device/SupervisionConexion.h"
#include "platform/Clock.h"
#include "platform/RegistryTree.h"
#include "store/ConexionBD.h"
#include "store/OperacionesRegistro.h"
#include "store/TransactionOwner.h"
#include "till/Pantallas.h"
#include "ui/Dialogos.h"
#include "ui/Importes.h"
#include "ui/Log.h"
#include "ui/Textos.h"

namespace zv {

// What reaches outside the till: the program hands in the real ones, a test what stands in for
// them.
struct TillServices {
    QString carpeta; // application folder, without a separator at its end
    DeviceClient& cliente;
    RegistryTree& registry;
    Log& log;
    Dialogos& dialogos;
    const Textos& textos;
    const Importes& importes;
    const Clock& reloj;
    Pantallas& pantallas;
};

struct Entorno : TillServices {
    ConexionBD& conexion;
    TransactionOwner& transacciones;
    OperacionesRegistro& registros;
    SupervisionConexion& supervision;
    Saldos& saldos;
    Seguretat& seguretat;
    ConfiguracioGlobal& configuracio;
    const ModuloIni& ini;
    QString rutaIni;
    MarcaActivo& marca;

    // Result of the last send, process-wide: 0 good, 1 cancelled, 2 error.
    int ResultadoEnvio = 0;
    // The device's code and words for it, taken as its operation ended: a balance that fails after
    // it changes what the client says. 0 when the device was not asked, or did its part well.
    qint16 codigoEnvio = 0;
    QString mensajeEnvio{};

    DatabaseEngine& Database() const { return conexion.Database(); }
};

} // namespace zv
