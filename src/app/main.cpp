// ZVMonitor: builds the monitor and its windows, runs the event loop.
#include "app/Monitor.h"
#include "app/TerminationSignal.h"
#include "app/screens/Aplicacion.h"
#include "device/gateway/GatewayClient.h"
#include "device/screens/frmOperacion.h"
#include "engine/screens/frmZVMonitor.h"
#include "platform/ProcessList.h"
#include "platform/Shell.h"
#include "ui/screens/DialogosPantalla.h"
#include "ui/screens/Tema.h"

#include <QPointer>
#include <QScopeGuard>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

// Page of the operating manuals.
const QString kDireccionManuales = u"https://zorvex.example/manuales"_s;

int Ejecutar(zv::Aplicacion& app, const zv::Opciones& opciones) {
    using namespace zv;

    const SystemClock reloj;
    Servicios servicios(opciones, reloj);
    DeviceClient* dispositivo = nullptr;
    const Importes importes(servicios.formato, [&] { return dispositivo->Multiplier(); });
    QPointer<QWidget> principal;
    const auto padre = [&]() -> QWidget* {
        return principal && principal->isVisible() ? principal.data() : nullptr;
    };
    frmOperacion ventanaOperacion(servicios.textos, importes, padre);
    GatewayClient cliente(servicios.log, servicios.textos, &ventanaOperacion);
    dispositivo = &cliente;

    DialogosPantalla dialogos(opciones.programa, servicios.textos, importes, padre);
    SystemProcessList procesos;
    ShellSistema shell;
    Monitor* enMarcha = nullptr;
    app.PonerAlFallar([&](const QString& texto) {
        if (enMarcha != nullptr) {
            // No sale may start under the box of a program that is about to end.
            enMarcha->pulso.ParaTimer();
            enMarcha->marca.MarcarActivo(false);
        }
        try {
            servicios.log.LogLinea(texto);
        } catch (const ErrorEjecucion&) {
            // The log cannot be written; the operator is told all the same.
        }
        dialogos.CajaSimple(texto);
    });

    try {
        Monitor monitor(servicios, importes, Exterior{cliente, dialogos, procesos, shell});
        const auto terminar = [&] {
            monitor.arranque.Descargar();
            // The end of the process: modal windows that stand open go with it.
            std::_Exit(EXIT_SUCCESS);
        };
        frmZVMonitor pantalla(
            PartesMonitor{monitor.entorno, monitor.controles, monitor.grid, monitor.estado,
                          monitor.pulso, monitor.botones, monitor.clic},
            AccionesVentana{terminar, [&] { shell.AbrirDireccion(kDireccionManuales); },
                            [&](const QString& codigo, const std::function<void()>& vaciar) {
                                monitor.barras.Enter(codigo, vaciar);
                            }});
        principal = &pantalla;
        monitor.PonerVentana(pantalla);
        enMarcha = &monitor;
        const auto fuera = qScopeGuard([&] { enMarcha = nullptr; });
        const TerminationSignal senal(terminar);
        if (!monitor.Cargar()) {
            return EXIT_FAILURE;
        }
        const int codigo = QApplication::exec();
        app.PonerAlFallar({}); // what it refers to ends here
        return codigo;
    } catch (const std::exception& e) {
        app.Fallar(TextoDeError(e));
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
