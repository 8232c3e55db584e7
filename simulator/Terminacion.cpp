// signalfd behind a socket notifier.
#include "simulator/Terminacion.h"

#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>

namespace zv::simulador {

Terminacion::Terminacion(QObject* padre) : QObject(padre) {
    sigset_t senales;
    sigemptyset(&senales);
    sigaddset(&senales, SIGTERM);
    sigaddset(&senales, SIGINT);
    if (pthread_sigmask(SIG_BLOCK, &senales, nullptr) == 0) {
        fd_ = signalfd(-1, &senales, SFD_CLOEXEC | SFD_NONBLOCK);
    }
}

Terminacion::~Terminacion() {
    aviso_.reset();
    if (fd_ >= 0) {
        ::close(fd_);
    }
}

void Terminacion::Escuchar() {
    if (fd_ < 0) {
        return;
    }
    aviso_ = std::make_unique<QSocketNotifier>(fd_, QSocketNotifier::Read);
    connect(aviso_.get(), &QSocketNotifier::activated, this, &Terminacion::pedida);
}

} // namespace zv::simulador
