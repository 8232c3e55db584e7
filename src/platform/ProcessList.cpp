// Reading of /proc. The kernel's short name is cut at 15 bytes and the program's file cannot be
// read for other users' processes, so each helps the other out. A script that its interpreter runs
// under the interpreter's own name is known by the arguments.
#include "platform/ProcessList.h"

#include "platform/FileDescriptor.h"
#include "platform/Files.h"
#include "platform/StringLiterals.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <array>
#include <climits>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>

namespace zv {
namespace {

constexpr qsizetype kLargoNombreCorto = 15; // bytes that the kernel keeps of a name

QString NombreBase(const QString& ruta) {
    // Back-slashes too: programs of other systems run here under a loader.
    const qsizetype corte = std::max(ruta.lastIndexOf(u'/'), ruta.lastIndexOf(u'\\'));
    return ruta.sliced(corte + 1);
}

QByteArrayList Orden(const QString& carpeta) {
    QByteArray orden;
    LeerFicheroEntero(QFile::encodeName(carpeta + u"/cmdline"_s), orden);
    return orden.split('\0');
}

// python3.11 is python3, and that is python.
QString SinVersion(const QByteArray& programa) {
    QString nombre = NombreBase(QFile::decodeName(programa));
    while (!nombre.isEmpty() && (nombre.back().isDigit() || nombre.back() == u'.')) {
        nombre.chop(1);
    }
    return nombre;
}

// The interpreter that a script's first line names, and its arguments. Empty for any other file.
QByteArrayList Interprete(const QByteArray& ruta) {
    struct stat datos {};
    // Looked at before it is opened: opening a device can do something to it.
    if (::stat(ruta.constData(), &datos) != 0 || !S_ISREG(datos.st_mode)) {
        return {};
    }
    const FileDescriptor fichero(::open(ruta.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    std::array<char, 256> inicio{}; // as far as the kernel looks
    const ssize_t largo =
        fichero.Abierto() ? ::read(fichero.Numero(), inicio.data(), inicio.size()) : 0;
    if (largo < 2 || inicio[0] != '#' || inicio[1] != '!') {
        return {};
    }
    QByteArray linea(inicio.data() + 2, largo - 2);
    linea.truncate(linea.indexOf('\n') < 0 ? linea.size() : linea.indexOf('\n'));
    QByteArrayList palabras = linea.simplified().split(' ');
    if (NombreBase(QFile::decodeName(palabras.front())) == u"env"_s) {
        // env puts the interpreter in its own place.
        do {
            palabras.removeFirst();
        } while (!palabras.isEmpty() &&
                 (palabras.front().startsWith('-') || palabras.front().contains('=')));
    }
    return palabras;
}

// Whether the process is the interpreter of the script that is its argument i. The script says so
// itself: an editor or a listing of it has the same argument.
bool Interpreta(const QString& carpeta, const QByteArrayList& orden, qsizetype i) {
    const QByteArray ruta =
        orden[i].startsWith('/') ? orden[i] : QFile::encodeName(carpeta) + "/cwd/" + orden[i];
    const QByteArrayList palabras = Interprete(ruta);
    const QString programa = SinVersion(orden[0]);
    if (palabras.isEmpty() || programa.isEmpty() || programa != SinVersion(palabras[0])) {
        return false;
    }
    const QByteArrayList antes = orden.sliced(1, i - 1);
    return antes == palabras.sliced(1) ||
           std::all_of(antes.cbegin(), antes.cend(),
                       [](const QByteArray& argumento) { return argumento.startsWith('-'); });
}

QString FicheroDelPrograma(const QString& carpeta) {
    std::array<char, PATH_MAX> destino{};
    const ssize_t largo = ::readlink(QFile::encodeName(carpeta + u"/exe"_s).constData(),
                                     destino.data(), destino.size());
    if (largo <= 0) {
        return {};
    }
    QString ruta = QFile::decodeName(QByteArray(destino.data(), largo));
    const QString borrado = u" (deleted)"_s; // replaced by an update meanwhile
    if (ruta.endsWith(borrado)) {
        ruta.chop(borrado.size());
    }
    return NombreBase(ruta);
}

} // namespace

SystemProcessList::SystemProcessList(QString procRoot, Fin fin)
    : procRoot_(std::move(procRoot)), fin_(std::move(fin)) {
    if (!fin_) {
        fin_ = [](qint64 pid) { ::kill(static_cast<pid_t>(pid), SIGTERM); };
    }
}

// Empty for a process that is gone or has ended and waits for its parent.
QStringList SystemProcessList::Nombres(const QString& carpeta) const {
    QByteArray estado;
    if (LeerFicheroEntero(QFile::encodeName(carpeta + u"/stat"_s), estado) != 0) {
        return {};
    }
    // "pid (name) state ...", where the name may hold parentheses and blanks.
    const qsizetype abre = estado.indexOf('(');
    const qsizetype cierra = estado.lastIndexOf(')');
    if (abre < 0 || cierra < abre) {
        return {};
    }
    const char letra = estado.size() > cierra + 2 ? estado[cierra + 2] : '\0';
    if (letra == 'Z' || letra == 'X') {
        return {};
    }

    QStringList nombres;
    const QString programa = FicheroDelPrograma(carpeta);
    if (!programa.isEmpty()) {
        nombres << programa;
    }
    const QByteArray corto = estado.sliced(abre + 1, cierra - abre - 1);
    if (corto.size() < kLargoNombreCorto) {
        nombres << QFile::decodeName(corto);
        return nombres;
    }
    // Perhaps cut: the whole name is the one that begins so.
    QString entero = QFile::decodeName(corto);
    for (const QByteArray& argumento : Orden(carpeta)) {
        const QString nombre = NombreBase(QFile::decodeName(argumento));
        if (QFile::encodeName(nombre).startsWith(corto)) {
            entero = nombre;
            break;
        }
    }
    if (!QFile::encodeName(programa).startsWith(corto)) {
        nombres << entero;
    }
    return nombres;
}

bool SystemProcessList::EsGuion(const QString& carpeta, const Coincide& coincide) const {
    const QByteArrayList orden = Orden(carpeta);
    for (qsizetype i = 1; i < orden.size(); ++i) {
        if (coincide(NombreBase(QFile::decodeName(orden[i]))) && Interpreta(carpeta, orden, i)) {
            return true;
        }
    }
    return false;
}

QList<qint64> SystemProcessList::Pids(const Coincide& coincide) const {
    QList<qint64> pids;
    const QStringList entradas = QDir(procRoot_).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& entrada : entradas) {
        bool esNumero = false;
        const qint64 pid = entrada.toLongLong(&esNumero);
        if (!esNumero || pid <= 0) {
            continue;
        }
        const QString carpeta = procRoot_ + u'/' + entrada;
        const QStringList nombres = Nombres(carpeta);
        if (std::any_of(nombres.cbegin(), nombres.cend(), coincide) ||
            (!nombres.isEmpty() && EsGuion(carpeta, coincide))) {
            pids.append(pid);
        }
    }
    return pids;
}

int SystemProcessList::Contar(const QString& nombre) const {
    return static_cast<int>(Pids([&nombre](const QString& suyo) {
                                return suyo.compare(nombre, Qt::CaseInsensitive) == 0;
                            }).size());
}

void SystemProcessList::Terminar(const QString& nombre) {
    const QString buscado = nombre.toLower();
    if (buscado.isEmpty()) {
        return;
    }
    const QList<qint64> pids = Pids(
        [&buscado](const QString& suyo) { return suyo.trimmed().toLower().contains(buscado); });
    for (const qint64 pid : pids) {
        if (pid != ::getpid()) {
            fin_(pid);
        }
    }
}

} // namespace zv
