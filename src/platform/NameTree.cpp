#include "platform/NameTree.h"

#include "platform/StringLiterals.h"

#include <QFile>

#include <algorithm>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>

namespace zv::arbol {
namespace {

bool EsDeClase(const QByteArray& ruta, Kind kind) {
    struct stat datos {};
    return ::stat(ruta.constData(), &datos) == 0 &&
           S_ISDIR(datos.st_mode) == (kind == Kind::Carpeta);
}

struct CierraCarpeta {
    void operator()(DIR* carpeta) const { ::closedir(carpeta); }
};

} // namespace

std::optional<QByteArray> Entrada(const QByteArray& carpeta, const QByteArray& nombre, Kind kind) {
    if (EsDeClase(carpeta + '/' + nombre, kind)) {
        return nombre;
    }
    const std::unique_ptr<DIR, CierraCarpeta> abierta(::opendir(carpeta.constData()));
    if (!abierta) {
        return std::nullopt;
    }
    const QString buscado = QFile::decodeName(nombre);
    std::optional<QByteArray> hallado;
    // One thread reads this folder: readdir keeps its state in the handle.
    while (const dirent* entrada = ::readdir(abierta.get())) { // NOLINT(concurrency-mt-unsafe)
        const QByteArray candidato(entrada->d_name);
        if (QFile::decodeName(candidato).compare(buscado, Qt::CaseInsensitive) == 0 &&
            (!hallado || candidato < *hallado) && EsDeClase(carpeta + '/' + candidato, kind)) {
            hallado = candidato;
        }
    }
    return hallado;
}

std::optional<QList<QByteArray>> PartesDeClave(const QString& clave) {
    QList<QByteArray> partes;
    qsizetype inicio = 0;
    while (inicio <= clave.size()) {
        const auto* const corte = std::find_if(clave.cbegin() + inicio, clave.cend(),
                                               [](QChar c) { return c == u'\\' || c == u'/'; });
        const qsizetype fin = corte - clave.cbegin();
        const QString parte = clave.sliced(inicio, fin - inicio);
        inicio = fin + 1;
        if (parte.isEmpty()) {
            continue; // a separator at an end, or two together
        }
        if (!NombreValido(parte)) {
            return std::nullopt;
        }
        partes << QFile::encodeName(parte);
    }
    return partes;
}

bool NombreValido(const QString& nombre) {
    return !nombre.isEmpty() && nombre != u"."_s && nombre != u".."_s &&
           std::none_of(nombre.cbegin(), nombre.cend(),
                        [](QChar c) { return c == u'\\' || c == u'/' || c.isNull(); });
}

} // namespace zv::arbol
