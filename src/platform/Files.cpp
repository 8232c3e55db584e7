#include "platform/Files.h"

#include "platform/FileDescriptor.h"
#include "platform/StringLiterals.h"

#include <QFile>
#include <QFileInfo>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>

namespace zv {
namespace {

QByteArray CarpetaDe(const QByteArray& ruta) {
    const qsizetype barra = ruta.lastIndexOf('/');
    return barra < 0 ? QByteArray(".") : ruta.first(std::max<qsizetype>(barra, 1));
}

int EscribirTodo(int fichero, QByteArrayView contenido) {
    while (!contenido.isEmpty()) {
        const ssize_t escritos =
            ::write(fichero, contenido.data(), static_cast<size_t>(contenido.size()));
        if (escritos < 0) {
            if (errno == EINTR) {
                continue;
            }
            return errno;
        }
        contenido = contenido.sliced(escritos);
    }
    return 0;
}

// The file that a link points to; the path itself when it is no link or leads nowhere.
QByteArray SinEnlace(const QByteArray& ruta) {
    struct stat datos {};
    if (::lstat(ruta.constData(), &datos) != 0 || !S_ISLNK(datos.st_mode)) {
        return ruta;
    }
    std::array<char, PATH_MAX> destino{};
    return ::realpath(ruta.constData(), destino.data()) == nullptr ? ruta
                                                                   : QByteArray(destino.data());
}

// A new file of its own name in the folder, with the permissions that new files get.
FileDescriptor CrearTemporal(const QByteArray& carpeta, QByteArray& ruta) {
    constexpr int kIntentos = 1000; // a name is taken only by the rest of a killed program
    for (int i = 0; i < kIntentos; ++i) {
        ruta = carpeta + "/.zv" + QByteArray::number(::getpid()) + '-' + QByteArray::number(i) +
               ".tmp";
        constexpr int kModo = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
        FileDescriptor fichero(::open(ruta.constData(), kModo, 0666));
        if (fichero.Abierto() || errno != EEXIST) {
            return fichero;
        }
    }
    return FileDescriptor();
}

int EscribirTemporal(const FileDescriptor& fichero, QByteArrayView contenido,
                     const struct stat* antiguo, Guardado guardado) {
    if (antiguo != nullptr) {
        // Another owner's file is kept theirs where the system allows it.
        [[maybe_unused]] const int ignorado =
            ::fchown(fichero.Numero(), antiguo->st_uid, antiguo->st_gid);
        if (::fchmod(fichero.Numero(), antiguo->st_mode & 07777) != 0) {
            return errno;
        }
    }
    if (const int error = EscribirTodo(fichero.Numero(), contenido); error != 0) {
        return error;
    }
    if (guardado == Guardado::Pasajero) {
        return 0;
    }
    return ::fsync(fichero.Numero()) == 0 ? 0 : errno;
}

} // namespace

bool ExisteFichero(const QString& ruta) {
    return QFileInfo(ruta).isFile();
}

bool ExisteCarpeta(const QString& ruta) {
    return QFileInfo(ruta).isDir();
}

int LeerFicheroEntero(const QByteArray& ruta, QByteArray& contenido, qsizetype limite) {
    contenido.clear();
    // Without blocking: a pipe in the place of a file must not stop the program.
    const FileDescriptor fichero(::open(ruta.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!fichero.Abierto()) {
        return errno;
    }
    struct stat datos {};
    if (::fstat(fichero.Numero(), &datos) != 0) {
        return errno;
    }
    if (S_ISDIR(datos.st_mode)) {
        return EISDIR;
    }
    // The size is a hint only: some files of the system say 0, and a file may grow meanwhile.
    qsizetype leidos = 0;
    contenido.resize(std::clamp<qsizetype>(datos.st_size, 0, limite) + 1);
    while (true) {
        if (leidos == contenido.size()) {
            contenido.resize(std::max<qsizetype>(contenido.size() * 2, 4096));
        }
        const ssize_t n = ::read(fichero.Numero(), contenido.data() + leidos,
                                 static_cast<size_t>(contenido.size() - leidos));
        if (n < 0 && errno == EINTR) {
            continue;
        }
        leidos += std::max<ssize_t>(n, 0);
        if (n < 0 || leidos > limite) {
            const int error = n < 0 ? errno : EFBIG;
            contenido.clear();
            return error;
        }
        if (n == 0) {
            contenido.truncate(leidos);
            return 0;
        }
    }
}

int CrearCarpeta(const QByteArray& ruta) {
    if (::mkdir(ruta.constData(), 0777) == 0) {
        return 0;
    }
    if (errno != EEXIST) {
        return errno;
    }
    struct stat datos {};
    return ::stat(ruta.constData(), &datos) == 0 && S_ISDIR(datos.st_mode) ? 0 : ENOTDIR;
}

int ReemplazarFichero(const QByteArray& ruta, QByteArrayView contenido, Guardado guardado) {
    const QByteArray destino = SinEnlace(ruta);
    struct stat antiguo {};
    const bool existe = ::stat(destino.constData(), &antiguo) == 0;
    if (existe) {
        if (!S_ISREG(antiguo.st_mode)) {
            return S_ISDIR(antiguo.st_mode) ? EISDIR : EINVAL;
        }
        // The rename would get past the file's own protection.
        if ((antiguo.st_mode & 0222) == 0) {
            return EACCES;
        }
        if (::access(destino.constData(), W_OK) != 0) {
            return errno;
        }
    } else if (errno != ENOENT) {
        return errno;
    }

    const QByteArray carpeta = CarpetaDe(destino);
    QByteArray temporal;
    {
        const FileDescriptor fichero = CrearTemporal(carpeta, temporal);
        if (!fichero.Abierto()) {
            return errno;
        }
        int error = EscribirTemporal(fichero, contenido, existe ? &antiguo : nullptr, guardado);
        if (error == 0 && ::rename(temporal.constData(), destino.constData()) != 0) {
            error = errno;
        }
        if (error != 0) {
            ::unlink(temporal.constData());
            return error;
        }
    }
    if (guardado == Guardado::Pasajero) {
        return 0;
    }
    // The new name is on disk only with its folder. Some file systems cannot flush one: no failure.
    const FileDescriptor abierta(::open(carpeta.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (abierta.Abierto()) {
        ::fsync(abierta.Numero());
    }
    return 0;
}

QString TextoErrorSistema(int numero) {
    switch (numero) {
    case EACCES:
    case EPERM:
        return u"permiso denegado"_s;
    case ENOENT:
        return u"no existe el fichero o la carpeta"_s;
    case EISDIR:
        return u"es una carpeta"_s;
    case ENOTDIR:
        return u"no es una carpeta"_s;
    case EROFS:
        return u"sistema de ficheros de solo lectura"_s;
    case ENOSPC:
    case EDQUOT:
        return u"no queda espacio en el disco"_s;
    case ENAMETOOLONG:
        return u"nombre demasiado largo"_s;
    case EMFILE:
    case ENFILE:
        return u"demasiados ficheros abiertos"_s;
    case EFBIG:
        return u"fichero demasiado grande"_s;
    case ENXIO:
        return u"no es un fichero normal"_s;
    case EIO:
        return u"error de entrada o salida"_s;
    default:
        return qt_error_string(numero);
    }
}

ErrorEjecucion FalloDeFichero(int error, const QByteArray& ruta) {
    const QString nombre = QFile::decodeName(ruta);
    switch (error) {
    case ENOSPC:
    case EDQUOT:
        return {61, u"Disco lleno: "_s + nombre};
    case EACCES:
    case EPERM:
        return {70, u"Permiso denegado: "_s + nombre};
    case ENOENT:
    case ENOTDIR:
        return {76, u"No se ha encontrado la ruta de acceso: "_s + nombre};
    default:
        return errores::ErrorDeArchivo(nombre, TextoErrorSistema(error));
    }
}

} // namespace zv
