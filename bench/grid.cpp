// RellenarGrid with 1,000 rows on the real main screen.
#include "BancoMedida.h"
#include "Medida.h"
#include "engine/screens/frmZVMonitor.h"
#include "ui/screens/Tema.h"

#include <QApplication>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

// The same rows read by bare calls.
double LecturaUs(const QString& ruta) {
    sqlite3* base = nullptr;
    if (sqlite3_open(ruta.toUtf8().constData(), &base) != SQLITE_OK) {
        std::exit(EXIT_FAILURE);
    }
    const auto medida = zv::bench::Medir(100, [&] {
        sqlite3_stmt* sentencia = nullptr;
        sqlite3_prepare_v2(base, "SELECT * FROM cola ORDER BY idZV", -1, &sentencia, nullptr);
        while (sqlite3_step(sentencia) == SQLITE_ROW) {
            for (int i = 0; i < sqlite3_column_count(sentencia); ++i) {
                sqlite3_column_text(sentencia, i);
            }
        }
        sqlite3_finalize(sentencia);
    });
    sqlite3_close(base);
    return medida.medianaUs;
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    zv::tema::Aplicar(app);
    zv::bench::BancoMedida banco;
    zv::Monitor& m = banco.monitor;
    zv::frmZVMonitor pantalla(m.Partes(), {});
    m.PonerVentana(pantalla);
    if (!m.Cargar()) {
        return EXIT_FAILURE;
    }
    m.Partes().pulso.ParaTimer();
    banco.PonerFilas(1000);
    QApplication::processEvents();
    // Any change but an added row makes it read all of them.
    const auto cambiar = [&] {
        m.Partes().entorno.Database().Ejecutar(u"UPDATE cola SET importe=importe WHERE idZV=1"_s);
    };
    const auto medida = zv::bench::Medir(
        100, [&] { m.Partes().estado.RellenarGrid(); }, cambiar);
    const auto pintado = zv::bench::Medir(
        20,
        [&] {
            m.Partes().estado.RellenarGrid();
            pantalla.repaint();
        },
        cambiar);
    std::printf("RellenarGrid, 1000 rows: median %.2f ms, worst %.2f ms (limit: 15 ms)\n",
                medida.medianaUs / 1000, medida.peorUs / 1000);
    std::printf("beside it: the rows read by bare sqlite3 calls %.2f ms; refill and repaint of the "
                "window %.2f ms\n",
                LecturaUs(banco.RutaBase()) / 1000, pintado.medianaUs / 1000);
    return medida.medianaUs <= 15000 ? EXIT_SUCCESS : EXIT_FAILURE;
}
