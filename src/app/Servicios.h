// The services that everything else stands on, built from the command line.
#pragma once

#include "app/Opciones.h"
#include "device/DeviceClient.h"
#include "platform/Clock.h"
#include "platform/RegistryTree.h"
#include "ui/Importes.h"
#include "ui/LogFiles.h"
#include "ui/Textos.h"

namespace zv {

struct Servicios {
    Servicios(Opciones lasOpciones, const Clock& elReloj);
    Servicios(const Servicios&) = delete;
    Servicios& operator=(const Servicios&) = delete;

    // The windows need amounts before there is a device, and the device needs a window: whose
    // units the amounts are in is told last, and before the first of them is shown.
    void PonerDispositivo(const DeviceClient& dispositivo) { dispositivo_ = &dispositivo; }

    Opciones opciones;
    const Clock& reloj;
    LogFiles log;
    Textos textos;
    RegistryTree registry;
    Importes importes;

  private:
    const DeviceClient* dispositivo_ = nullptr;
};

} // namespace zv
