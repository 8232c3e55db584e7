// ZVSimulador: options, the simulator, and its window where one is wanted. Exit codes: 0 well
// ended, 1 something of the machine failed, 2 a wrong command line.
#include "platform/Consola.h"
#include "platform/TerminationSignal.h"
#include "simulator/Opciones.h"
#include "simulator/Simulador.h"
#ifdef ZV_SCREENS
#include "simulator/screens/frmSimulador.h"
#include "ui/screens/Tema.h"
#endif

#include <QCoreApplication>
#ifdef ZV_SCREENS
#include <QApplication>
#endif

#include <cstdio>
#include <cstdlib>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMalaOrden = 2;

int Fallar(const QString& error, int codigo) {
    zv::consola::Decir(stderr, u"ZVSimulador: %1\n"_s.arg(error));
    return codigo;
}

std::unique_ptr<QCoreApplication> HacerAplicacion(int& argc, char** argv, bool ventana) {
#ifdef ZV_SCREENS
    if (ventana) {
        auto app = std::make_unique<QApplication>(argc, argv);
        zv::tema::Aplicar(*app);
        return app;
    }
#else
    static_cast<void>(ventana);
#endif
    return std::make_unique<QCoreApplication>(argc, argv);
}

} // namespace

int main(int argc, char** argv) {
    using namespace zv::simulador;
#ifdef ZV_SCREENS
    constexpr bool kHayVentana = true;
#else
    constexpr bool kHayVentana = false;
#endif
    Opciones opciones;
    QString error;
    if (!LeerOpciones(zv::consola::Argumentos(argc, argv), kHayVentana, opciones, error)) {
        return Fallar(error, kMalaOrden);
    }
    if (!opciones.aviso.isEmpty()) {
        zv::consola::Decir(stdout, opciones.aviso);
        return EXIT_SUCCESS;
    }
    if (opciones.saldo) {
        qint64 saldo = 0;
        if (!LeerSaldo(opciones.carpeta, saldo, error)) {
            return Fallar(error, EXIT_FAILURE);
        }
        zv::consola::Decir(stdout, u"%1\n"_s.arg(saldo));
        return EXIT_SUCCESS;
    }

    const bool ventana = opciones.ventana;
    const auto app = HacerAplicacion(argc, argv, ventana);
    QCoreApplication::setApplicationName(u"ZVSimulador"_s);
    Simulador simulador(std::move(opciones));
    if (!simulador.Arrancar(error)) {
        return Fallar(error, EXIT_FAILURE);
    }
    const zv::TerminationSignal senal([] { QCoreApplication::quit(); });
    QObject::connect(
        &simulador, &Simulador::roto, app.get(),
        [](const QString& porque) { QCoreApplication::exit(Fallar(porque, EXIT_FAILURE)); },
        Qt::QueuedConnection);
    zv::consola::Decir(stdout,
                       u"escuchando en 127.0.0.1:%1\n"_s.arg(simulador.ElServidor().Puerto()));
#ifdef ZV_SCREENS
    std::unique_ptr<frmSimulador> ventanaPrincipal;
    if (ventana) {
        ventanaPrincipal = std::make_unique<frmSimulador>(simulador);
        ventanaPrincipal->show();
    }
#endif
    return QCoreApplication::exec();
}
