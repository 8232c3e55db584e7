// One idle pulse with nothing to do, at several lengths of a queue that no mode sends.
#include "BancoMedida.h"
#include "Medida.h"

#include <QCoreApplication>

#include <sqlite3.h>

namespace {

constexpr int kVeces = 20000;

class VentanaQuieta final : public zv::VentanaPrincipal {
  public:
    int WindowState() const override { return zv::ventana::kMaximizada; }
    void PonerWindowState(int) override {}
    void TraerAlFrente() override {}
    void Traducir() override {}
    void PonerIcono() override {}
    void PrepararGrid() override {}
    void PonerVersion(const QString&) override {}
    void Mostrar() override {}
};

// What a bare look at the change counter of the same file costs.
double DataVersionUs(const QString& ruta) {
    sqlite3* base = nullptr;
    sqlite3_stmt* sentencia = nullptr;
    if (sqlite3_open(ruta.toUtf8().constData(), &base) != SQLITE_OK ||
        sqlite3_prepare_v2(base, "PRAGMA data_version", -1, &sentencia, nullptr) != SQLITE_OK) {
        std::exit(EXIT_FAILURE);
    }
    const auto medida = zv::bench::Medir(kVeces, [&] {
        sqlite3_step(sentencia);
        sqlite3_reset(sentencia);
    });
    sqlite3_finalize(sentencia);
    sqlite3_close(base);
    return medida.medianaUs;
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication app(argc, argv);
    zv::bench::BancoMedida banco;
    VentanaQuieta ventana;
    banco.monitor.PonerVentana(ventana);
    if (!banco.monitor.Cargar()) {
        return EXIT_FAILURE;
    }
    bool bien = true;
    for (const int filas : {0, 1000, 10000}) {
        banco.PonerFilas(filas);
        for (int i = 0; i < 10; ++i) {
            banco.monitor.Partes().pulso.ProcesarCola();
        }
        const auto medida =
            zv::bench::Medir(kVeces, [&] { banco.monitor.Partes().pulso.ProcesarCola(); });
        std::printf("idle pulse, %5d rows: median %6.1f us, worst %8.1f us (limit: median 60 us)\n",
                    filas, medida.medianaUs, medida.peorUs);
        bien = bien && medida.medianaUs <= 60;
    }
    std::printf("beside it: bare PRAGMA data_version %.1f us\n", DataVersionUs(banco.RutaBase()));
    return bien ? EXIT_SUCCESS : EXIT_FAILURE;
}
