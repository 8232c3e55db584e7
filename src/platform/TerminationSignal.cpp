// The signal handler writes a byte into a pipe that the event loop reads.
#include "platform/TerminationSignal.h"

#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace zv {

namespace {

// A signal handler reaches nothing but what is static. Signals are not blocked instead: programs
// that this one starts would inherit that.
std::atomic<int> descriptorEscritura{-1};

void AlLlegarSenal(int) {
    const char byte = 1;
    [[maybe_unused]] const auto escritos = ::write(descriptorEscritura.load(), &byte, 1);
}

void PonerManejador(void (*manejador)(int)) {
    struct sigaction accion {};
    accion.sa_handler = manejador;
    accion.sa_flags = SA_RESTART;
    sigemptyset(&accion.sa_mask);
    sigaction(SIGTERM, &accion, nullptr);
    sigaction(SIGINT, &accion, nullptr);
}

} // namespace

TerminationSignal::TerminationSignal(std::function<void()> alTerminar)
    : alTerminar_(std::move(alTerminar)) {
    int tubo[2];
    if (::pipe2(tubo, O_CLOEXEC | O_NONBLOCK) != 0) {
        return; // the signals keep their default: the process ends at once
    }
    descriptorEscritura = tubo[1];
    aviso_ = std::make_unique<QSocketNotifier>(tubo[0], QSocketNotifier::Read);
    connect(aviso_.get(), &QSocketNotifier::activated, this, [this] {
        aviso_->setEnabled(false);
        const auto terminar = std::exchange(alTerminar_, {});
        if (terminar) {
            terminar();
        }
    });
    PonerManejador(AlLlegarSenal);
}

TerminationSignal::~TerminationSignal() {
    if (!aviso_) {
        return;
    }
    PonerManejador(SIG_DFL);
    const int lectura = static_cast<int>(aviso_->socket());
    aviso_.reset();
    ::close(lectura);
    ::close(descriptorEscritura.exchange(-1));
}

} // namespace zv
