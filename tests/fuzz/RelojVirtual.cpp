// Takes the place of the C library's call in the whole process. The date's clock stays the
// machine's, which the fuzzer needs for its own limits.
#include "fuzz/RelojVirtual.h"

#include <ctime>
#include <sys/syscall.h>
#include <unistd.h>

namespace zv::reloj {
namespace {

constexpr qint64 kMilPorSegundo = 1000;
constexpr qint64 kNanosPorMil = 1000000;

// Never 0, which some callers take for no time at all.
qint64 ahora = kMilPorSegundo;

} // namespace

qint64 Ahora() {
    return ahora;
}

void Avanzar(qint64 milisegundos) {
    ahora += milisegundos;
}

} // namespace zv::reloj

extern "C" int clock_gettime(clockid_t reloj, timespec* hora) noexcept {
    if (reloj != CLOCK_MONOTONIC && reloj != CLOCK_MONOTONIC_COARSE) {
        return static_cast<int>(syscall(SYS_clock_gettime, reloj, hora));
    }
    const qint64 ahora = zv::reloj::Ahora();
    hora->tv_sec = ahora / zv::reloj::kMilPorSegundo;
    hora->tv_nsec = ahora % zv::reloj::kMilPorSegundo * zv::reloj::kNanosPorMil;
    return 0;
}
