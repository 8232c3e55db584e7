// The cash office's refresh over a million records, a period of 20,000 movements on the screen, and
// their close.
#include "TablaLarga.h"
#include "cashoffice/CierreCaja.h"
#include "cashoffice/screens/frmCaja.h"

namespace {

using namespace zv::bench;
using namespace Qt::StringLiterals;

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

// From the device's answer on: the row of the close, its number into every open record, the commit,
// and the period read again.
bool Cierre(const TablaLarga& tabla, zv::Entorno& till, int abiertas) {
    constexpr double kLimiteVeces = 1.5;
    constexpr int kVeces = 7;
    tabla.Llenar(1000000, abiertas);
    DialogosQueAceptan dialogos;
    zv::Entorno entorno{{till.carpeta, till.cliente, till.registry, till.log, dialogos, till.textos,
                         till.importes, till.reloj, till.pantallas},
                        till.conexion,
                        till.transacciones,
                        till.registros,
                        till.supervision,
                        till.saldos,
                        till.seguretat,
                        till.configuracio,
                        till.ini,
                        till.rutaIni,
                        till.marca};
    const auto& dispositivo = static_cast<DispositivoListo&>(till.cliente);
    std::vector<double> propios;
    std::vector<double> desnudos;
    for (int i = 0; i < kVeces; ++i) {
        const auto abrir = [&] {
            tabla.Hacer(u"UPDATE procesados SET idCierre=0 WHERE idZV>(SELECT max(idZV) FROM "
                        "procesados)-%1"_s.arg(abiertas));
            tabla.Hacer(u"PRAGMA wal_checkpoint(TRUNCATE)"_s);
        };
        abrir();
        zv::Caja caja(entorno);
        caja.PorPasos([] {}); // the grid of the screen, too, fills behind it
        caja.RefrescarCaja();
        zv::CierreCaja(caja).Cerrar(zv::kCierreNiveles);
        propios.push_back(MsDesde(dispositivo.respuesta));
        if (caja.totales.movimientos != 0) {
            std::fputs("the period has not ended\n", stderr);
            return false;
        }
        abrir();
        const auto inicio = Reloj::now();
        tabla.Hacer(u"BEGIN IMMEDIATE"_s);
        tabla.Hacer(u"INSERT INTO cierres (fecha,saldoInicial,cobros,abonos,ingresos,pagos,saldoZV,"
                    "importeCierre,cambioBilletes,cambioMonedas,cajonBilletes,cajonMonedas) VALUES "
                    "('2026-03-14 22:00:05',0,1,2,3,4,5,6,7,8,9,10)"_s);
        tabla.Hacer(u"UPDATE procesados SET idcierre=(SELECT max(idCierre) FROM cierres) WHERE "
                    "Idcierre=0"_s);
        tabla.Hacer(u"COMMIT"_s);
        tabla.Hacer(u"SELECT * FROM procesados WHERE idCierre=0 ORDER BY idZV"_s);
        desnudos.push_back(MsDesde(inicio));
    }
    const double propio = Resumir(propios).medianaUs;
    const double desnudo = Resumir(desnudos).medianaUs;
    std::printf(
        "close of %d records out of 1,000,000, from the device's answer: median %.0f ms, by "
        "bare sqlite3 %.0f ms: %.2f times (limit: %.1f)\n",
        abiertas, propio, desnudo, propio / desnudo, kLimiteVeces);
    return propio / desnudo <= kLimiteVeces;
}

} // namespace

int main(int argc, char** argv) {
    return ConTabla(argc, argv, [](const TablaLarga& tabla, zv::Entorno& entorno) {
        const bool millon = Millon(tabla, entorno);
        const bool larga = Larga(tabla, entorno, 20000);
        const bool cierre = Cierre(tabla, entorno, 20000);
        return millon && larga && cierre;
    });
}
