// The command line of zvpos.
#pragma once

#include "platform/StringLiterals.h"

#include <QString>
#include <QStringList>

namespace zv::zvpos {

enum class Orden { Cobrar, Estado, Esperar };

// What one sale consists of; texts go to the wire in Windows-1252.
struct Venta {
    QString id;
    qint32 importe = 0; // minor units; negative is a refund
    QString id2;
    qint32 caja = 0;
    QString terminal;
    QString vendedor;
    QString formaPago;
};

struct Opciones {
    Orden orden = Orden::Estado;
    Venta venta; // Estado and Esperar use its id alone
    QString servidor = u"127.0.0.1"_s;
    quint16 puerto = 16501;
    int plazoMs = 5000; // for an answer
    int segundos = 0;   // Esperar: how long in all

    // What is to be printed instead of running: --help or --version.
    QString aviso;
};

// Reads the arguments after the program's name. False with a text for people when they are wrong,
// also when a text could not go through the link as it stands.
bool LeerOpciones(const QStringList& argumentos, Opciones& opciones, QString& error);

} // namespace zv::zvpos
