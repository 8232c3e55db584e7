#include "app/screens/Aplicacion.h"
#include "app/screens/Programa.h"
#include "ui/screens/Tema.h"

#include <cstdio>

namespace {

int Ejecutar(zv::Aplicacion& app, const zv::Opciones& opciones) {
    const zv::SystemClock reloj;
    zv::Programa programa(opciones, reloj);
    app.PonerAlFallar([&](const QString& texto) { programa.ContarFallo(texto); });
    try {
        const int codigo = programa.Arrancar() ? QApplication::exec() : EXIT_FAILURE;
        app.PonerAlFallar({}); // what it refers to ends here
        return codigo;
    } catch (const std::exception& e) {
        app.Fallar(zv::TextoDeError(e));
    }
}

} // namespace

int main(int argc, char** argv) {
    // The command line is answered before there is a window system to fail.
    QStringList argumentos;
    for (int i = 0; i < argc; ++i) {
        argumentos << QString::fromLocal8Bit(argv[i]);
    }
    zv::LecturaOpciones lectura;
    {
        QCoreApplication consola(argc, argv);
        argumentos[0] = QCoreApplication::applicationFilePath();
        lectura = zv::LeerOpciones(argumentos);
    }
    if (!lectura.opciones) {
        std::fputs(qPrintable(lectura.respuesta.texto),
                   lectura.respuesta.codigo == 0 ? stdout : stderr);
        return lectura.respuesta.codigo;
    }
    zv::Aplicacion app(argc, argv);
    app.setApplicationName(lectura.opciones->programa);
    zv::tema::Aplicar(app);
    return Ejecutar(app, *lectura.opciones);
}
