#include "store/sqlite/WalFingerprint.h"

#include <sys/stat.h>

namespace zv {

namespace {

constexpr qint64 kReposoMs = 2000;
constexpr qint64 kPreguntaMs = 50; // the longest that a commit may stay unseen
constexpr qint64 kMsPorSegundo = 1000;
constexpr qint64 kNsPorMs = 1'000'000;

qint64 Milisegundos(const timespec& hasta, const timespec& desde) {
    return (hasta.tv_sec - desde.tv_sec) * kMsPorSegundo +
           (hasta.tv_nsec - desde.tv_nsec) / kNsPorMs;
}

} // namespace

WalFingerprint::WalFingerprint() : pausa_(kPreguntaMs) {}

void WalFingerprint::Vigilar(const QByteArray& ruta) {
    ruta_ = ruta + "-wal";
    carpeta_ = {ruta.left(ruta.lastIndexOf('/') + 1)};
    vigia_.Vigilar({});
    asentada_ = false;
}

bool WalFingerprint::HayQuePreguntar() {
    const bool reciente = !pausa_.Vencida();
    if (asentada_) {
        const bool cambiado = vigia_.HaCambiado();
        if (reciente && !cambiado) {
            return false;
        }
        if (!reciente && cambiado) {
            vigia_.Vigilar(carpeta_); // before the look, so that no change slips in between
        }
    }
    struct stat datos {};
    const bool existe = ::stat(ruta_.constData(), &datos) == 0;
    if (existe && asentada_ && reciente && datos.st_mtim.tv_sec == modificado_.tv_sec &&
        datos.st_mtim.tv_nsec == modificado_.tv_nsec) {
        return false;
    }
    timespec reloj{};
    clock_gettime(CLOCK_REALTIME_COARSE, &reloj);
    modificado_ = datos.st_mtim;
    asentada_ = existe && Milisegundos(reloj, modificado_) > kReposoMs;
    pausa_.Empezar();
    return true;
}

} // namespace zv
