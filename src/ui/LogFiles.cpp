// Log lines are put together as bytes by hand and written with one call: the log stands on the
// path of every operation.
#include "ui/LogFiles.h"

#include "platform/CodePage.h"
#include "platform/ErrorEjecucion.h"
#include "platform/Files.h"
#include "platform/StringLiterals.h"
#include "ui/Dialogos.h"

#include <QFile>
#include <QStringList>

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace zv {

namespace {

int Abrir(const QByteArray& ruta, int modo) {
    int fd = -1;
    do {
        fd = ::open(ruta.constData(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | modo, 0666);
    } while (fd < 0 && errno == EINTR);
    return fd;
}

// -1 with errno set. A pipe in the place of the log must not hold the program up, and what goes
// into one is on no disk: it cannot be written, whether somebody reads it or not.
int AbrirParaAñadir(const QByteArray& ruta) {
    int fd = Abrir(ruta, O_NONBLOCK);
    if (fd < 0 && errno == EWOULDBLOCK) {
        // A file server has lent the file out and takes it back now, which is waited for.
        fd = Abrir(ruta, 0);
    }
    struct stat estado {};
    if (fd >= 0 && ::fstat(fd, &estado) == 0 && S_ISFIFO(estado.st_mode)) {
        ::close(fd);
        errno = ENXIO;
        return -1;
    }
    return fd;
}

// 0, or the system's error number. The line goes out in one call, so that lines of two programs
// never mix; what a call leaves over (a signal, a disk that has filled) is tried once more.
int Escribir(int fd, const QByteArray& linea) {
    qsizetype hecho = 0;
    while (hecho < linea.size()) {
        const ssize_t n =
            ::write(fd, linea.constData() + hecho, static_cast<size_t>(linea.size() - hecho));
        if (n < 0) {
            if (errno == EINTR) {
                continue;
            }
            return errno;
        }
        hecho += n;
    }
    return 0;
}

void DosCifras(QByteArray& a, int n) {
    a += static_cast<char>('0' + n / 10 % 10);
    a += static_cast<char>('0' + n % 10);
}

void Hora(QByteArray& a, const QTime& hora) {
    DosCifras(a, hora.hour());
    a += ':';
    DosCifras(a, hora.minute());
    a += ':';
    DosCifras(a, hora.second());
}

} // namespace

LogFiles::LogFiles(const QString& carpeta, const QString& programa, const QString& version,
                   const Clock& reloj)
    : carpetaDebug_(QFile::encodeName(carpeta)), programa_(programa),
      programaEnDisco_(QFile::encodeName(programa_)), version_(ACodePage(version)), reloj_(reloj) {
    if (!carpetaDebug_.endsWith('/')) {
        carpetaDebug_ += '/';
    }
    carpetaDebug_ += "Debug/";
}

QByteArray LogFiles::Fecha(const QDate& fecha) {
    QByteArray texto;
    texto.reserve(8);
    DosCifras(texto, fecha.year() / 100);
    DosCifras(texto, fecha.year() % 100);
    DosCifras(texto, fecha.month());
    DosCifras(texto, fecha.day());
    return texto;
}

void LogFiles::LogLinea(const QString& texto) {
    const QDateTime ahora = reloj_.Ahora();
    QByteArray linea;
    linea.reserve(texto.size() + 32);
    linea += 'v';
    linea += version_;
    linea += " - ";
    Hora(linea, ahora.time());
    linea += " - ";
    linea += ACodePage(texto);
    linea += "\r\n";

    const QByteArray ruta = carpetaDebug_ + programaEnDisco_ + Fecha(ahora.date()) + ".log";
    int fd = AbrirParaAñadir(ruta);
    if (fd < 0 && errno == ENOENT) {
        if (::mkdir(carpetaDebug_.constData(), 0777) != 0 && errno != EEXIST) {
            throw FalloDeFichero(errno, carpetaDebug_);
        }
        fd = AbrirParaAñadir(ruta);
    }
    if (fd < 0) {
        throw FalloDeFichero(errno, ruta);
    }
    int error = Escribir(fd, linea);
    // Some file systems tell of a failed write only here.
    if (::close(fd) != 0 && error == 0 && errno != EINTR) {
        error = errno;
    }
    if (error != 0) {
        throw FalloDeFichero(error, ruta);
    }
}

void LogFiles::LogFast(const QString& texto) {
    const QDateTime ahora = reloj_.Ahora();
    const int fd = AbrirParaAñadir(carpetaDebug_ + Fecha(ahora.date()) + "_Fast.log");
    if (fd < 0) {
        return;
    }
    QByteArray linea;
    linea.reserve(texto.size() + 32);
    Hora(linea, ahora.time());
    linea += '-';
    linea += QByteArray::number(reloj_.Ticks());
    linea += ' ';
    linea += ACodePage(texto);
    linea += "\r\n";
    Escribir(fd, linea);
    ::close(fd);
}

void LogFiles::LimpiarLogs(Dialogos& dialogos) const {
    try {
        Borrar();
    } catch (const ErrorEjecucion& e) {
        dialogos.MostrarMensaje(u"Error al eliminar los LOGS "_s, u"Error "_s +
                                                                      QString::number(e.Numero()) +
                                                                      u" - "_s + e.Descripcion());
    }
}

void LogFiles::Borrar() const {
    const QString fecha = QString::fromLatin1(Fecha(reloj_.Ahora().date().addDays(-7)));
    const QString limite = programa_ + fecha + u".log"_s;
    const QString limiteFast = fecha + u"_Fast.log"_s;
    const QString inicio = programa_.toUpper();

    const std::unique_ptr<DIR, int (*)(DIR*)> carpeta(::opendir(carpetaDebug_.constData()),
                                                      ::closedir);
    if (!carpeta) {
        if (errno == ENOENT || errno == ENOTDIR) {
            return;
        }
        throw FalloDeFichero(errno, carpetaDebug_);
    }
    while (true) {
        errno = 0;
        const dirent* entrada = ::readdir(carpeta.get()); // NOLINT(concurrency-mt-unsafe)
        if (entrada == nullptr) {
            if (errno != 0) {
                throw FalloDeFichero(errno, carpetaDebug_);
            }
            return;
        }
        const QByteArray enDisco(entrada->d_name);
        const QString nombre = QFile::decodeName(enDisco);
        const QString mayusculas = nombre.toUpper();
        if (!mayusculas.endsWith(QLatin1String(".LOG"))) {
            continue;
        }
        // Names carry the date in fixed width behind a fixed beginning: their order is the dates'.
        const bool general = mayusculas.startsWith(inicio) && nombre < limite;
        const bool fast = mayusculas.endsWith(QLatin1String("_FAST.LOG")) && nombre < limiteFast;
        if (!general && !fast) {
            continue;
        }
        const QByteArray ruta = carpetaDebug_ + enDisco;
        struct stat estado {};
        if (::stat(ruta.constData(), &estado) != 0 || !S_ISREG(estado.st_mode)) {
            continue;
        }
        if (::unlink(ruta.constData()) != 0 && errno != ENOENT) {
            throw FalloDeFichero(errno, ruta);
        }
    }
}

} // namespace zv
