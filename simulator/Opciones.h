// The command line of ZVSimulador.
#pragma once

#include "simulator/Cliente.h"
#include "simulator/Fallos.h"
#include "simulator/Inventario.h"

#include <QString>
#include <QStringList>

namespace zv::simulador {

struct Opciones {
    quint16 puerto = 0;
    QString carpeta;
    QString traza; // file; empty is stdout
    bool ventana = true;
    bool saldo = false;
    Cliente cliente;
    int ritmo = 0; // milliseconds
    CapacidadCajones cajones;
    Fallos fallos;

    // What is to be printed instead of running: --help or --version.
    QString aviso;
};

// Reads the arguments after the program's name. False with a text for people when they are wrong.
// `hayVentana` tells whether this build has one.
bool LeerOpciones(const QStringList& argumentos, bool hayVentana, Opciones& opciones,
                  QString& error);

} // namespace zv::simulador
