// zvpos: puts sales into the monitor's queue over its fast link and asks how they stand. The exit
// code tells scripts the outcome; see --help.
#include "platform/Consola.h"
#include "zvpos/Ejecucion.h"

#include <QCoreApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    using namespace zv::zvpos;
    using zv::consola::Decir;
    const QCoreApplication app(argc, argv);
    Opciones opciones;
    QString error;
    if (!LeerOpciones(zv::consola::Argumentos(argc, argv), opciones, error)) {
        Decir(stderr, u"zvpos: %1\nzvpos --help dice cómo se usa.\n"_s.arg(error));
        return MalEscrita;
    }
    if (!opciones.aviso.isEmpty()) {
        Decir(stdout, opciones.aviso);
        return Bien;
    }
    EnlaceTcp enlace(opciones.servidor, opciones.puerto, opciones.plazoMs);
    TiempoReal tiempo;
    const Veredicto veredicto = Ejecutar(opciones, enlace, tiempo);
    if (!veredicto.salida.isEmpty()) {
        Decir(stdout, veredicto.salida + QLatin1Char('\n'));
    }
    if (!veredicto.error.isEmpty()) {
        Decir(stderr, u"zvpos: %1\n"_s.arg(veredicto.error));
    }
    return veredicto.codigo;
}
