// The services that everything else stands on, built from the command line.
#pragma once

#include "app/Opciones.h"
#include "platform/Clock.h"
#include "platform/FormatoRegional.h"
#include "platform/RegistryTree.h"
#include "ui/LogFiles.h"
#include "ui/Textos.h"

namespace zv {

struct Servicios {
    Servicios(Opciones lasOpciones, const Clock& elReloj);

    Opciones opciones;
    const Clock& reloj;
    LogFiles log;
    Textos textos;
    RegistryTree registro;
    FormatoRegional formato;
};

} // namespace zv
