// The services that everything else stands on, built from the command line.
#pragma once

#include "app/Opciones.h"
#include "platform/FormatoRegional.h"
#include "platform/Registro.h"
#include "platform/Reloj.h"
#include "ui/LogFicheros.h"
#include "ui/Textos.h"

namespace zv {

struct Servicios {
    Servicios(Opciones lasOpciones, const Reloj& elReloj);

    Opciones opciones;
    const Reloj& reloj;
    LogFicheros log;
    Textos textos;
    Registro registro;
    FormatoRegional formato;
};

} // namespace zv
