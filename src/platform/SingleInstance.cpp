// The lock of the application folder.
#include "platform/SingleInstance.h"

#include "platform/StringLiterals.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>

namespace zv {

SingleInstance::SingleInstance(const QString& carpeta)
    : ruta_(QFile::encodeName(carpeta + u"/ZVMonitor.lock"_s)) {}

bool SingleInstance::OtraInstancia() {
    if (cerrojo_.Abierto()) {
        return false;
    }
    // Closed in programs that this one starts: they must not hold the lock on.
    constexpr int kModo = O_CREAT | O_CLOEXEC | O_NONBLOCK;
    FileDescriptor fichero(::open(ruta_.constData(), kModo | O_RDWR, 0666));
    if (!fichero.Abierto()) {
        // Another user's lock file can be locked without writing.
        fichero = FileDescriptor(::open(ruta_.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    }
    if (!fichero.Abierto()) {
        return false;
    }
    if (::flock(fichero.Numero(), LOCK_EX | LOCK_NB) != 0) {
        return errno == EWOULDBLOCK;
    }
    cerrojo_ = std::move(fichero);
    return false;
}

} // namespace zv
