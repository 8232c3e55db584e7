// The history of closes over a million records: 3,000 closes shown, another one chosen.
#include "TablaLarga.h"
#include "platform/Impresora.h"
#include "registers/screens/frmHistorial.h"
#include "ui/screens/PintarYa.h"

namespace {

using namespace zv::bench;
using namespace Qt::StringLiterals;

constexpr int kCierres = 3000;
constexpr int kMovimientos = 300;

// Nothing is printed.
class SinImpresora final : public zv::Impresora {
  protected:
    void Abrir() override {}
    int Ancho(const QString& /*texto*/, const zv::FuenteImpresora& /*fuente*/) override {
        return 0;
    }
    int AltoLinea(const zv::FuenteImpresora& /*fuente*/) override { return 1; }
    QSize Pagina(zv::Orientacion /*orientacion*/) override { return {1, 1}; }
    void Enviar(const zv::DocumentoImpreso& /*documento*/) override {}
};

bool Historial(const TablaLarga& tabla, zv::Entorno& entorno) {
    SinImpresora impresora;
    zv::Historial historial(entorno, impresora);
    zv::frmHistorial pantalla(historial);
    pantalla.resize(1024, 768);
    const auto inicio = Reloj::now();
    pantalla.show();
    while (!historial.HayCierres()) {
        QApplication::processEvents();
    }
    zv::PintarYa(pantalla);
    const double mostradosMs = MsDesde(inicio);
    while (!historial.HayMovimientos()) {
        QApplication::processEvents();
    }
    const double todoMs = MsDesde(inicio);

    int cierre = kCierres;
    int movimientos = 0;
    const auto otro = Medir(
        10,
        [&] {
            historial.Elegir(cierre);
            historial.Completar();
            pantalla.repaint();
            movimientos = historial.grdHis().FilasDatos();
        },
        [&] { cierre -= 7; });
    std::printf(
        "history, 1,000,000 records: %d closes shown after %.0f ms (limit: 100 ms), with the "
        "movements of the last one after %.0f ms; another one with %d movements chosen: "
        "median %.1f ms, worst %.1f ms (limit: 120 ms)\nbeside it: a bare scan for the "
        "open ones %.1f ms\n",
        historial.grdCierres().FilasDatos(), mostradosMs, todoMs, movimientos,
        otro.medianaUs / 1000, otro.peorUs / 1000, tabla.ScanMs());
    return mostradosMs <= 100 && otro.medianaUs / 1000 <= 120 && movimientos == kMovimientos &&
           historial.grdCierres().FilasDatos() == kCierres;
}

} // namespace

int main(int argc, char** argv) {
    return ConTabla(argc, argv, [](const TablaLarga& tabla, zv::Entorno& entorno) {
        tabla.Llenar(1000000, 100000); // each close has 300, the first one short of one
        tabla.Hacer(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<3000) "
                    "INSERT INTO cierres (fecha,saldoInicial,cobros,abonos,ingresos,pagos,saldoZV,"
                    "importeCierre,cambioBilletes,cambioMonedas,cajonBilletes,cajonMonedas) SELECT "
                    "'2026-03-14 22:00:05',126410,300000+i,20000,5000,1000,410410+i,410410+i,"
                    "300000,100000,10000,410+i FROM n"_s);
        return Historial(tabla, entorno);
    });
}
