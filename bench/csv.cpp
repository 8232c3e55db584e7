// The export of a grid of 20,000 movements, beside the same bytes by bare calls of the system.
#include "Medida.h"
#include "store/ExportarCSV.h"
#include "ui/Rejilla.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFilas = 20000;
constexpr int kVeces = 15;
constexpr double kLimiteMs = 150;

class SinOperador final : public zv::Dialogos {
  public:
    zv::Respuesta MostrarMensaje(const QString&, const QString&, zv::EstiloMensaje) override {
        return zv::Respuesta::Aceptar;
    }
    QString PedirTexto(const QString&, const QString&, const QString&) override { return {}; }
    zv::Currency PedirImporte(const QString&, const QString&, zv::Currency, bool*,
                              bool& cancelado) override {
        cancelado = true;
        return {};
    }
    zv::Impresion ElegirImpresion() override { return zv::Impresion::Nada; }
    void CajaSimple(const QString&) override {}
};

void Llenar(zv::Rejilla& rejilla) {
    for (int i = 0; i < kFilas; ++i) {
        const int fila = rejilla.AñadirFila();
        rejilla.PonerTexto(fila, 0, u"14/03/2026 18:04:11"_s);
        rejilla.PonerTexto(fila, 1, u"Cobro Venta"_s);
        rejilla.PonerTexto(fila, 2, u"TPV1"_s);
        rejilla.PonerTexto(fila, 3, u"Íñigo"_s);
        rejilla.PonerTexto(fila, 4, u"1.234,50 €"_s);
        rejilla.PonerTexto(fila, 5, u"12.345.678,90 €"_s);
    }
}

bool EscribirDirecto(const QByteArray& ruta, const QByteArray& bytes) {
    const int fd = ::open(ruta.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    const bool bien =
        fd >= 0 &&
        ::write(fd, bytes.constData(), static_cast<std::size_t>(bytes.size())) == bytes.size() &&
        ::fsync(fd) == 0;
    ::close(fd);
    return bien;
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication app(argc, argv);
    const QTemporaryDir carpeta(QDir::currentPath() + u"/csv-XXXXXX"_s); // on a disk, not in memory
    zv::Rejilla rejilla(std::vector<zv::Columna>(6));
    Llenar(rejilla);
    const zv::SystemClock reloj;
    SinOperador operador;
    const zv::Textos textos(carpeta.path());
    const auto medida = zv::bench::Medir(kVeces, [&] {
        zv::ExportarCSV(rejilla, u"Caja"_s, carpeta.path(), reloj, operador, textos);
    });
    const QDir exports(carpeta.filePath(u"exports"_s));
    QFile fichero(exports.filePath(exports.entryList(QDir::Files).value(0)));
    if (!fichero.open(QIODevice::ReadOnly)) {
        return EXIT_FAILURE;
    }
    const QByteArray bytes = fichero.readAll();
    bool bien = bytes.count('\n') == kFilas + 1;
    const auto directo = zv::bench::Medir(kVeces, [&] {
        bien = EscribirDirecto(QFile::encodeName(carpeta.filePath(u"bare"_s)), bytes) && bien;
    });
    std::printf("CSV of %d rows, on disk: median %.1f ms, worst %.1f ms (limit: %.0f ms)\n", kFilas,
                medida.medianaUs / 1000, medida.peorUs / 1000, kLimiteMs);
    std::printf("beside it: the same %.1f MB by write and fsync %.1f ms; ratio %.1f\n",
                static_cast<double>(bytes.size()) / 1e6, directo.medianaUs / 1000,
                medida.medianaUs / directo.medianaUs);
    return bien && medida.medianaUs <= kLimiteMs * 1000 ? EXIT_SUCCESS : EXIT_FAILURE;
}
