// From the commit of a row by another process until the device receives the charge:
// bench_charge_latency DATABASE TRACE-OF-THE-SIMULATOR SALES. A monitor in "AUTO" and a simulator
// with a customer must be at work on them.
#include "Medida.h"

#include <QFile>
#include <QString>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <sqlite3.h>
#include <unistd.h>

namespace {

constexpr int kEsperaMaximaMs = 10000;

qint64 AhoraNs() {
    timespec t{};
    clock_gettime(CLOCK_REALTIME, &t);
    return static_cast<qint64>(t.tv_sec) * 1000000000 + t.tv_nsec;
}

[[noreturn]] void Fin(const char* texto) {
    std::fprintf(stderr, "%s\n", texto);
    std::exit(EXIT_FAILURE);
}

// Time of the next "inicio charge.start <value> <ns>" line of the trace.
qint64 SiguienteInicio(QFile& traza) {
    static QByteArray resto;
    for (int i = 0; i < kEsperaMaximaMs * 10; ++i) {
        resto += traza.readLine();
        if (!resto.endsWith('\n')) {
            usleep(100);
            continue;
        }
        const QList<QByteArray> campos = resto.trimmed().split(' ');
        resto.clear();
        if (campos.size() >= 4 && campos[0] == "inicio" && campos[1] == "charge.start") {
            return campos[3].toLongLong();
        }
    }
    Fin("no charge reached the device");
}

void EsperarColaVacia(sqlite3* base) {
    for (int i = 0; i < kEsperaMaximaMs; ++i) {
        sqlite3_stmt* sentencia = nullptr;
        sqlite3_prepare_v2(base, "SELECT 1 FROM cola LIMIT 1", -1, &sentencia, nullptr);
        const bool vacia = sqlite3_step(sentencia) == SQLITE_DONE;
        sqlite3_finalize(sentencia);
        if (vacia) {
            // The monitor settles between two customers; a row must not find it in mid-filing.
            usleep(20000);
            return;
        }
        usleep(1000);
    }
    Fin("the sale was not filed");
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        Fin("usage: bench_charge_latency DATABASE TRACE SALES");
    }
    const int ventas = std::atoi(argv[3]); // NOLINT(cert-err34-c)
    sqlite3* base = nullptr;
    if (sqlite3_open(argv[1], &base) != SQLITE_OK) {
        Fin("the database does not open");
    }
    sqlite3_busy_timeout(base, 5000);
    QFile traza(QString::fromLocal8Bit(argv[2]));
    if (!traza.open(QIODevice::ReadOnly) || !traza.seek(traza.size())) {
        Fin("the trace does not open");
    }
    std::vector<double> esperas;
    std::vector<double> confirmaciones;
    for (int i = 0; i < ventas; ++i) {
        const QByteArray sql =
            QByteArrayLiteral("INSERT INTO cola (fecha,importe,id1,terminal) VALUES "
                              "(datetime('now','localtime'),") +
            QByteArray::number(500 + i % 7 * 5) + ",'L" + QByteArray::number(i) + "','TPV1')";
        const qint64 antes = AhoraNs();
        if (sqlite3_exec(base, sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK) {
            Fin(sqlite3_errmsg(base));
        }
        const qint64 escrita = AhoraNs();
        confirmaciones.push_back(static_cast<double>(escrita - antes) / 1000);
        esperas.push_back(static_cast<double>(SiguienteInicio(traza) - escrita) / 1000);
        EsperarColaVacia(base);
    }
    sqlite3_close(base);
    const auto medida = zv::bench::Resumir(esperas);
    std::printf("commit to Charge at the device, %d sales: median %.2f ms, worst %.2f ms (limit: "
                "median 5 ms, worst 30 ms)\n",
                ventas, medida.medianaUs / 1000, medida.peorUs / 1000);
    std::printf("beside it: the commit itself %.2f ms\n",
                zv::bench::Resumir(confirmaciones).medianaUs / 1000);
    return medida.medianaUs <= 5000 && medida.peorUs <= 30000 ? EXIT_SUCCESS : EXIT_FAILURE;
}
