// Reading of /proc. The kernel's short name is cut at 15 bytes and the program's file cannot be
// read for other users' processes, so each helps the other out.
#include "platform/ProcessList.h"

#include "platform/Files.h"
#include "platform/StringLiterals.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <array>
#include <climits>
#include <csignal>
#include <unistd.h>

namespace zv {
namespace {

constexpr qsizetype kLargoNombreCorto = 15; // bytes that the kernel keeps of a name

QString NombreBase(const QString& ruta) {
    // Back-slashes too: programs of other systems run here under a loader.
    const qsizetype corte = std::max(ruta.lastIndexOf(u'/'), ruta.lastIndexOf(u'\\'));
    return ruta.sliced(corte + 1);
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
    QByteArray orden;
    LeerFicheroEntero(QFile::encodeName(carpeta + u"/cmdline"_s), orden);
    QString entero = QFile::decodeName(corto);
    for (const QByteArray& argumento :
         orden.split('\0').first(std::min<qsizetype>(orden.count('\0') + 1, 2))) {
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

QList<SystemProcessList::Proceso> SystemProcessList::Lista() const {
    QList<Proceso> lista;
    const QStringList entradas = QDir(procRoot_).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& entrada : entradas) {
        bool esNumero = false;
        const qint64 pid = entrada.toLongLong(&esNumero);
        if (!esNumero || pid <= 0) {
            continue;
        }
        QStringList nombres = Nombres(procRoot_ + u'/' + entrada);
        if (!nombres.isEmpty()) {
            lista.append({pid, std::move(nombres)});
        }
    }
    return lista;
}

int SystemProcessList::Contar(const QString& nombre) const {
    const QList<Proceso> lista = Lista();
    return static_cast<int>(
        std::count_if(lista.cbegin(), lista.cend(), [&nombre](const Proceso& proceso) {
            return proceso.nombres.contains(nombre, Qt::CaseInsensitive);
        }));
}

void SystemProcessList::Terminar(const QString& nombre) {
    const QString buscado = nombre.toLower();
    if (buscado.isEmpty()) {
        return;
    }
    for (const Proceso& proceso : Lista()) {
        const bool coincide = std::any_of(
            proceso.nombres.cbegin(), proceso.nombres.cend(),
            [&buscado](const QString& suyo) { return suyo.trimmed().toLower().contains(buscado); });
        if (coincide && proceso.pid != ::getpid()) {
            fin_(proceso.pid);
        }
    }
}

} // namespace zv
