// What the engine works with. The objects belong to whoever puts the program together and outlive
// the engine; there is one of each per monitor.
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
#include "ui/Dialogos.h"
#include "ui/Importes.h"
#include "ui/Log.h"
#include "ui/Textos.h"

namespace zv {

struct Entorno {
    ConexionBD& conexion;
    TransactionOwner& transacciones;
    OperacionesRegistro& registros;
    DeviceClient& cliente;
    SupervisionConexion& supervision;
    Saldos& saldos;
    Seguretat& seguretat;
    ConfiguracioGlobal& configuracio;
    const ModuloIni& ini;
    QString rutaIni;
    RegistryTree& registro;
    MarcaActivo& marca;
    Log& log;
    Dialogos& dialogos;
    const Textos& textos;
    const Importes& importes;
    const Clock& reloj;

    // Result of the last send, process-wide: 0 good, 1 cancelled, 2 error.
    int ResultadoEnvio = 0;

    DatabaseEngine& Database() const { return conexion.Database(); }
};

} // namespace zv
