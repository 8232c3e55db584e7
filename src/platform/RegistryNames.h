// Every value of the registry that this program reads or writes, each named once. Other programs
// know them by these names. They stand here because the folders that use them share nothing
// higher.
#pragma once

#include "platform/RegistryTree.h"
#include "platform/StringLiterals.h"

namespace zv::registry_name {

// The last part is the application's title, whatever the program's file is called.
inline const QString kMonitor = u"Zorvex\\ZVMonitor"_s;
inline const QString kConector = u"Zorvex\\ZVConnector"_s;

// Balances in minor units.
inline const RegistryName kSaldoInicial{kMonitor, u"Saldo_Inicial"_s};
inline const RegistryName kSaldoExit{kMonitor, u"Saldo_Exit"_s};
// "1" while the monitor works with the device.
inline const RegistryName kActivo{kMonitor, u"Activo"_s};
inline const RegistryName kClaveAdmin{kMonitor, u"CLAVE_ADMIN"_s};
inline const RegistryName kClaveAutorizado{kMonitor, u"CLAVE_AUTORIZADO"_s};
inline const RegistryName kClaveTecnico{kMonitor, u"CLAVE_TECNICO"_s};

// Of the connector program; never written here. kConectorPath: its folder. kConectorActivo: "1"
// while it is busy.
inline const RegistryName kConectorPath{kConector, u"Path"_s};
inline const RegistryName kConectorActivo{kConector, u"Activo"_s};

} // namespace zv::registry_name
