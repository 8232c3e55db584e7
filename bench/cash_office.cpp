// The cash office's refresh over a million records, and a period of 20,000 movements on the screen.
#include "TablaLarga.h"
#include "cashoffice/screens/frmCaja.h"

namespace {

using namespace zv::bench;

bool Millon(const TablaLarga& tabla, zv::Entorno& entorno) {
    constexpr double kLimiteMs = 100;
    tabla.Llenar(1000000, 300);
    zv::Caja caja(entorno);
    const auto medida = Medir(10, [&] { caja.RefrescarCaja(); });
    std::printf("RefrescarCaja, 1,000,000 records, %d of them open: median %.1f ms, worst %.1f ms "
                "(limit: %.0f ms)\nbeside it: a bare scan for the open ones %.1f ms\n",
                caja.totales.movimientos, medida.medianaUs / 1000, medida.peorUs / 1000, kLimiteMs,
                tabla.ScanMs());
    return medida.medianaUs / 1000 <= kLimiteMs && caja.totales.movimientos == 300;
}

// What the screen is like while a long period comes up.
bool Larga(const TablaLarga& tabla, zv::Entorno& entorno, int abiertas) {
    tabla.Llenar(1000000, abiertas);
    const double antesMB = MemoriaMB();
    zv::Caja caja(entorno);
    zv::frmCaja pantalla(caja, {});
    const auto inicio = Reloj::now();
    const Pinturas pinturas(pantalla);
    double desplazableMs = 0;
    pantalla.show();
    while (caja.totales.movimientos == 0 || caja.Estado().rellenados < caja.totales.movimientos) {
        QApplication::processEvents();
        pantalla.repaint();
        if (desplazableMs == 0 && caja.grdZV().HaySiguiente()) {
            desplazableMs = MsDesde(inicio);
        }
    }
    const double todoMs = MsDesde(inicio);
    const double memoriaMB = MemoriaMB() - antesMB;
    std::printf("the screen, 1,000,000 records, %d of them open: can be scrolled after %.0f ms "
                "(limit: 250 ms), all in place after %.0f ms (limit: 1000 ms), longest wait for a "
                "repaint %.0f ms (limit: 100 ms), %.1f MB more (limit: 60 MB)\n",
                caja.totales.movimientos, desplazableMs, todoMs, pinturas.mayorEsperaMs, memoriaMB);
    return desplazableMs <= 250 && todoMs <= 1000 && pinturas.mayorEsperaMs <= 100 &&
           memoriaMB <= 60;
}

} // namespace

int main(int argc, char** argv) {
    return ConTabla(argc, argv, [](const TablaLarga& tabla, zv::Entorno& entorno) {
        const bool millon = Millon(tabla, entorno);
        const bool larga = Larga(tabla, entorno, 20000);
        return millon && larga;
    });
}
