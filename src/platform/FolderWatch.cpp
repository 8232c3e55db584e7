#include "platform/FolderWatch.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <sys/inotify.h>

namespace zv {

namespace {

constexpr std::uint32_t kCambios = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_MODIFY |
                                   IN_CLOSE_WRITE | IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF |
                                   IN_ONLYDIR;

// Answers false with errno when no notice waits.
bool LeerAvisos(const FileDescriptor& avisos) {
    alignas(inotify_event) std::array<char, 4096>
        notas; // NOLINT(cppcoreguidelines-pro-type-member-init)
    return ::read(avisos.Numero(), notas.data(), notas.size()) > 0;
}

} // namespace

// Not without end: somebody may write faster than this reads. What is left counts as a change.
void FolderWatch::Vaciar() const {
    constexpr int kLecturas = 256;
    for (int i = 0; i < kLecturas && LeerAvisos(avisos_); ++i) {
    }
}

// One descriptor for good: to close one takes the system many milliseconds.
void FolderWatch::Vigilar(const QList<QByteArray>& carpetas) {
    puesta_ = !carpetas.isEmpty();
    if (puesta_ && !avisos_.Abierto()) {
        avisos_ = FileDescriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    }
    if (!avisos_.Abierto()) {
        puesta_ = false;
        return;
    }
    std::vector<int> nuevas;
    nuevas.reserve(static_cast<std::size_t>(carpetas.size()));
    for (const QByteArray& carpeta : carpetas) {
        const int numero = ::inotify_add_watch(avisos_.Numero(), carpeta.constData(), kCambios);
        if (numero >= 0) {
            nuevas.push_back(numero);
        } else {
            puesta_ = false;
        }
    }
    for (const int vieja : vigiladas_) {
        if (std::find(nuevas.cbegin(), nuevas.cend(), vieja) == nuevas.cend()) {
            ::inotify_rm_watch(avisos_.Numero(), vieja);
        }
    }
    vigiladas_ = std::move(nuevas);
    Vaciar();
}

bool FolderWatch::HaCambiado() {
    if (puesta_) {
        puesta_ = !LeerAvisos(avisos_) && errno == EAGAIN;
    }
    return !puesta_;
}

} // namespace zv
