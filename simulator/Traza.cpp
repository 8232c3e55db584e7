// Unbuffered lines in UTF-8.
#include "simulator/Traza.h"

#include "platform/StringLiterals.h"

#include <cstdio>

namespace zv::simulador {

bool Traza::Abrir(const QString& fichero, QString& error) {
    const QIODevice::OpenMode modo = QIODevice::WriteOnly | QIODevice::Unbuffered;
    bool bien = false;
    if (fichero.isEmpty()) {
        bien = salida_.open(fileno(stdout), modo);
    } else {
        salida_.setFileName(fichero);
        bien = salida_.open(modo | QIODevice::Append);
    }
    if (!bien) {
        error = u"no se puede escribir la traza %1: %2"_s.arg(fichero, salida_.errorString());
    }
    return bien;
}

void Traza::Escribir(const QString& linea) {
    salida_.write(linea.toUtf8() + '\n');
}

} // namespace zv::simulador
