// A register of 20,000 rows out of a million, on the screen.
#include "TablaLarga.h"
#include "platform/StringLiterals.h"
#include "registers/screens/frmListado.h"

namespace {

using namespace zv::bench;
using namespace Qt::StringLiterals;

bool Registro(const TablaLarga& tabla, zv::Entorno& entorno, zv::ModoListado modo,
              const char* nombre) {
    const double antesMB = MemoriaMB();
    zv::Listado listado(entorno);
    zv::frmListado pantalla(listado, modo, {});
    pantalla.resize(1024, 768);
    const auto inicio = Reloj::now();
    const Pinturas pinturas(pantalla);
    double desplazableMs = 0;
    pantalla.show();
    while (!listado.Estado().leido || listado.Estado().rellenadas < listado.Estado().filas) {
        QApplication::processEvents();
        pantalla.repaint();
        if (desplazableMs == 0 && listado.grdZV().HaySiguiente()) {
            desplazableMs = MsDesde(inicio);
        }
    }
    const double todoMs = MsDesde(inicio);
    std::printf(
        "register of %s, 1,000,000 records, %d of them shown: can be scrolled after %.0f ms "
        "(limit: 250 ms), all in place after %.0f ms, longest wait for a repaint %.0f ms "
        "(limit: 100 ms), %.1f MB more\nbeside it: a bare scan for the open ones %.1f ms\n",
        nombre, listado.Estado().filas, desplazableMs, todoMs, pinturas.mayorEsperaMs,
        MemoriaMB() - antesMB, tabla.ScanMs());
    return listado.Estado().filas == 20000 && desplazableMs <= 250 && pinturas.mayorEsperaMs <= 100;
}

} // namespace

int main(int argc, char** argv) {
    return ConTabla(argc, argv, [](const TablaLarga& tabla, zv::Entorno& entorno) {
        tabla.Llenar(1000000, 20000);
        const bool cobros = Registro(tabla, entorno, zv::ModoListado::Cobros, "charges");
        tabla.Hacer(u"UPDATE procesados SET estado='ERROR' WHERE idCierre=0"_s);
        return Registro(tabla, entorno, zv::ModoListado::Incidencias, "incidents") && cobros;
    });
}
