// 50 rows grouped: from the device's answer until all is filed and the grid refilled, on the real
// main screen, beside the same rows read, written and deleted by bare sqlite3 calls in one
// transaction, taken in turns in the same run.
#include "BancoMedida.h"
#include "Desnuda.h"
#include "Medida.h"
#include "engine/screens/frmZVMonitor.h"
#include "store/ConexionBD.h"
#include "store/Esquema.h"
#include "store/sqlite/SqliteEngine.h"
#include "ui/screens/Tema.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

constexpr int kGrupo = 50;
constexpr int kQuedan = 50; // rows that stay in the grid
constexpr int kVeces = 100;
constexpr double kLimiteMs = 60;

using Reloj = std::chrono::steady_clock;

double Us(Reloj::time_point desde) {
    return std::chrono::duration<double, std::micro>(Reloj::now() - desde).count();
}

// A database like the till's, for the bare calls.
class OtraBase {
  public:
    OtraBase() {
        const zv::Textos textos(carpeta_.path());
        zv::bench::DialogosProhibidos dialogos;
        zv::CrearBaseDatos(motor_, carpeta_.path(), log_, dialogos, textos);
        motor_.Abrir(zv::CadenaConexion(u"MDB"_s, {}, Ruta(), {}, {}));
    }
    QString Ruta() const { return zv::RutaBaseDatos(carpeta_.path()); }
    // idZV of the first row.
    qint64 PonerFilas(int n) {
        zv::bench::PonerFilas(motor_, n);
        return motor_.Consultar(u"SELECT Min(idZV) AS id FROM cola"_s).front().LeerLong(0);
    }

  private:
    class LogNulo final : public zv::Log {
      public:
        void LogLinea(const QString&) override {}
        void LogFast(const QString&) override {}
    };
    QTemporaryDir carpeta_;
    LogNulo log_;
    zv::SqliteEngine sqlite_;
    zv::DatabaseEngine& motor_ = sqlite_;
};

} // namespace

int main(int argc, char** argv) {
    using namespace zv;
    // Beside the program: a temporary folder may be in memory, where nothing is durable.
    qputenv("TMPDIR", QDir::currentPath().toLocal8Bit());
    QApplication app(argc, argv);
    tema::Aplicar(app);
    bench::BancoMedida banco;
    OtraBase otra;
    const PartesMonitor& partes = banco.monitor.Partes();
    frmZVMonitor pantalla(partes, {});
    banco.monitor.PonerVentana(pantalla);
    if (!banco.monitor.Cargar() || !partes.entorno.supervision.Conectado()) {
        return EXIT_FAILURE;
    }
    bench::Desnuda desnuda(otra.Ruta());
    QApplication::processEvents();

    std::vector<double> nuestros;
    std::vector<double> dibujados;
    std::vector<double> desnudos;
    for (int i = 0; i < kVeces; ++i) {
        banco.PonerFilas(kGrupo + kQuedan);
        partes.pulso.ProcesarCola();
        partes.botones.boton_Click(BotonPie::AgruparCobros);
        for (int fila = 1; fila <= kGrupo; ++fila) {
            partes.clic.grdZV_MouseUp(fila, ColumnaCola::Importe, false);
        }
        QApplication::processEvents();
        partes.botones.boton_Click(BotonPie::AgruparCobros);
        nuestros.push_back(Us(banco.cliente.respuesta));
        QApplication::processEvents();
        dibujados.push_back(Us(banco.cliente.respuesta));
        if (partes.grid.FilasDatos() != kQuedan) {
            std::fputs("the group has not been filed\n", stderr);
            return EXIT_FAILURE;
        }

        const qint64 primera = otra.PonerFilas(kGrupo + kQuedan);
        const auto inicio = Reloj::now();
        desnuda.Comenzar();
        desnuda.Añadir();
        for (int n = 0; n < kGrupo; ++n) {
            desnuda.Mover(primera + n);
        }
        desnuda.Confirmar();
        desnuda.LeerCola();
        desnudos.push_back(Us(inicio));
    }
    const auto nuestro = bench::Resumir(std::move(nuestros));
    const auto desnudo = bench::Resumir(std::move(desnudos));
    std::printf("%d rows grouped, from the device's answer to all filed and the grid refilled, %d "
                "times: median %.2f ms, worst %.2f ms (limit: median %.0f ms)\n",
                kGrupo, kVeces, nuestro.medianaUs / 1000, nuestro.peorUs / 1000, kLimiteMs);
    std::printf("with the repaint: median %.2f ms\n",
                bench::Resumir(std::move(dibujados)).medianaUs / 1000);
    std::printf("the same statements by bare sqlite3: median %.2f ms, worst %.2f ms, ratio %.2f\n",
                desnudo.medianaUs / 1000, desnudo.peorUs / 1000,
                nuestro.medianaUs / desnudo.medianaUs);
    return nuestro.medianaUs / 1000 <= kLimiteMs ? EXIT_SUCCESS : EXIT_FAILURE;
}
