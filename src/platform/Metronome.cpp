// The kernel counts the intervals; the event loop learns of them by a descriptor.
#include "platform/Metronome.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"

#include <algorithm>
#include <cstdint>
#include <sys/timerfd.h>

namespace zv {

namespace {

constexpr int kErrorSinMemoria = 7;
constexpr std::uint64_t kSeguidos = 4; // then the rest of the event loop has its turn
constexpr int kMilisegundosPorSegundo = 1000;
constexpr long kNanosegundosPorMs = 1'000'000;

FileDescriptor CrearReloj() {
    FileDescriptor reloj(::timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC));
    if (!reloj.Abierto()) {
        throw ErrorEjecucion(kErrorSinMemoria, u"No quedan temporizadores"_s);
    }
    return reloj;
}

} // namespace

Metronome::Metronome(int intervaloMs, std::function<void()> tic)
    : intervaloMs_(intervaloMs), tic_(std::move(tic)), reloj_(CrearReloj()),
      aviso_(reloj_.Numero(), QSocketNotifier::Read) {
    aviso_.setEnabled(false);
    QObject::connect(&aviso_, &QSocketNotifier::activated, &aviso_, [this] { Vencido(); });
}

void Metronome::Poner(int intervaloMs) {
    itimerspec plazo{};
    plazo.it_interval.tv_sec = intervaloMs / kMilisegundosPorSegundo;
    plazo.it_interval.tv_nsec = intervaloMs % kMilisegundosPorSegundo * kNanosegundosPorMs;
    plazo.it_value = plazo.it_interval;
    ::timerfd_settime(reloj_.Numero(), 0, &plazo, nullptr);
}

void Metronome::Arrancar() {
    if (!activo_) {
        activo_ = true;
        Poner(intervaloMs_);
        aviso_.setEnabled(true);
    }
}

void Metronome::Parar() {
    activo_ = false;
    aviso_.setEnabled(false);
    Poner(0);
}

void Metronome::Vencido() {
    std::uint64_t vencidos = 0;
    if (::read(reloj_.Numero(), &vencidos, sizeof vencidos) != sizeof vencidos) {
        return;
    }
    for (std::uint64_t i = 0; i < std::min(vencidos, kSeguidos) && activo_; ++i) {
        tic_();
    }
}

} // namespace zv
