#include "store/sqlite/FileIdentity.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zv {

FileIdentity FileIdentity::De(const QByteArray& ruta) {
    struct stat datos {};
    if (stat(ruta.constData(), &datos) != 0) {
        return {};
    }
    return {static_cast<quint64>(datos.st_dev), static_cast<quint64>(datos.st_ino), true};
}

bool SePuedeEscribir(const QByteArray& ruta) {
    return faccessat(AT_FDCWD, ruta.constData(), W_OK, AT_EACCESS) == 0;
}

} // namespace zv
