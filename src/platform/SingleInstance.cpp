#include "platform/SingleInstance.h"

#include "platform/Files.h"
#include "platform/StringLiterals.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace zv {

SingleInstance::SingleInstance(const QString& carpeta)
    : carpeta_(QFile::encodeName(carpeta)), ruta_(carpeta_ + "/ZVMonitor.lock") {}

FileDescriptor SingleInstance::Abrir() const {
    // Closed in programs that this one starts: they must not hold the lock on.
    constexpr int kModo = O_CLOEXEC | O_NONBLOCK;
    FileDescriptor fichero(::open(ruta_.constData(), kModo | O_CREAT | O_RDWR, 0600));
    if (!fichero.Abierto()) {
        // Another user's lock file can be locked without writing.
        fichero = FileDescriptor(::open(ruta_.constData(), kModo | O_RDONLY));
    }
    return fichero;
}

// For a file that cannot be opened: the system's list of locks names it by its inode.
bool SingleInstance::CogidoPorOtro() const {
    struct stat datos {};
    QByteArray cerrojos;
    if (::stat(ruta_.constData(), &datos) != 0 || LeerFicheroEntero("/proc/locks", cerrojos) != 0) {
        return false;
    }
    const QByteArray nodo = ':' + QByteArray::number(static_cast<qulonglong>(datos.st_ino)) + ' ';
    for (const QByteArray& linea : cerrojos.split('\n')) {
        if (linea.contains(" FLOCK ") && linea.contains(nodo)) {
            return true;
        }
    }
    return false;
}

// The file gets the owner of the folder, and its rights to write. What the system does not allow
// stays as it is: the file is another user's then.
void SingleInstance::Reservar(int fichero) const {
    struct stat suyo {};
    struct stat carpeta {};
    if (::fstat(fichero, &suyo) != 0 || !S_ISREG(suyo.st_mode) ||
        ::stat(carpeta_.constData(), &carpeta) != 0) {
        return;
    }
    if (suyo.st_uid != carpeta.st_uid || suyo.st_gid != carpeta.st_gid) {
        // Only an administrator may give a file away; anybody may hand it to a group of theirs.
        if (::fchown(fichero, carpeta.st_uid, carpeta.st_gid) != 0) {
            [[maybe_unused]] const int ignorado =
                ::fchown(fichero, static_cast<uid_t>(-1), carpeta.st_gid);
        }
    }
    const mode_t escribir = carpeta.st_mode & 0222;
    ::fchmod(fichero, 0600 | escribir | escribir << 1U);
}

bool SingleInstance::OtraInstancia() {
    if (cerrojo_.Abierto()) {
        return false;
    }
    FileDescriptor fichero = Abrir();
    if (!fichero.Abierto() && errno == EACCES) {
        if (CogidoPorOtro()) {
            return true;
        }
        // Left behind by somebody who has closed it to this user: it guards nothing any more.
        ::unlink(ruta_.constData());
        fichero = Abrir();
    }
    if (!fichero.Abierto()) {
        return false;
    }
    Reservar(fichero.Numero());
    if (::flock(fichero.Numero(), LOCK_EX | LOCK_NB) != 0) {
        return errno == EWOULDBLOCK;
    }
    cerrojo_ = std::move(fichero);
    return false;
}

} // namespace zv
