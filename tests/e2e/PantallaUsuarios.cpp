// The screen of the users alone, until the settings open it: zv_users_screen FOLDER; or the
// register of accesses: zv_users_screen FOLDER accesos. It works on the database of that
// application folder, beside a monitor or without one, and ends when the screen closes. A monitor
// that runs already works its kind of protection out again at its next start only.
#include "app/Monitor.h"
#include "app/screens/Aplicacion.h"
#include "app/screens/PantallasPrograma.h"
#include "device/gateway/GatewayClient.h"
#include "platform/StringLiterals.h"
#include "support/FakeProcessList.h"
#include "ui/screens/DialogosPantalla.h"
#include "ui/screens/Tema.h"

#include <cstdio>

namespace zv {
namespace {

int Ejecutar(const QString& carpeta, Pantalla pantalla) {
    Opciones opciones;
    opciones.carpeta = carpeta;
    opciones.registro = carpeta + u"/Registro"_s;
    opciones.region = u"es_ES"_s;
    opciones.programa = u"ZVMonitor"_s;
    const SystemClock reloj;
    Aplicacion::setApplicationName(opciones.programa);
    Servicios servicios(opciones, reloj);
    GatewayClient cliente(servicios.log, servicios.textos, nullptr);
    DialogosPantalla dialogos(opciones.programa, servicios.textos, servicios.importes);
    test::FakeProcessList procesos;
    test::ShellFalsa shell(procesos);
    PantallasPrograma pantallas({});
    Monitor monitor(servicios, Exterior{cliente, dialogos, procesos, shell, pantallas});
    Entorno& entorno = monitor.Partes().entorno;
    if (!entorno.conexion.ConectarBD()) {
        return EXIT_FAILURE;
    }
    pantallas.PonerEntorno(entorno);
    pantallas.Abrir(pantalla);
    return EXIT_SUCCESS;
}

} // namespace
} // namespace zv

int main(int argc, char** argv) {
    zv::Aplicacion app(argc, argv);
    const QStringList argumentos = zv::Aplicacion::arguments();
    const bool accesos = argumentos.value(2) == QLatin1String("accesos");
    if (argumentos.size() != (accesos ? 3 : 2)) {
        std::fputs("usage: zv_users_screen FOLDER [accesos]\n", stderr);
        return EXIT_FAILURE;
    }
    zv::tema::Aplicar(app);
    try {
        return zv::Ejecutar(argumentos.at(1),
                            accesos ? zv::Pantalla::Accesos : zv::Pantalla::Usuarios);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s\n", qPrintable(zv::TextoDeError(e)));
        return EXIT_FAILURE;
    }
}
