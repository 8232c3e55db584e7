// The platform's private-profile calls: one value of an INI file is read or written, the file is
// opened and closed for it. What a write does not concern stays as it is, byte for byte.
#pragma once

#include "platform/IniDocument.h"

#include <QString>

#include <optional>
#include <span>

namespace zv::perfil {

// The whole value by the rules of IniDocument; nothing when file, section or key are absent.
// Raises 75 for a file that is there and cannot be read.
std::optional<QString> Leer(const QString& fichero, const QString& seccion, const QString& clave);

// The whole file at once, for a reader of many keys; empty when it is not there. Raises 75
// likewise.
IniDocument LeerTodo(const QString& fichero);

// Writes one value and creates file, section and key as needed. The file keeps its encoding, line
// ends and permissions; only text of the code page that the new value would make look like UTF-8 is
// rewritten as UTF-8, or it would be read wrongly. Text behind a line break or a NUL is left out. A
// value that reads the same already leaves the file alone. After a crash the old or the new file
// stands. Raises 75 when it cannot be written; then the file is as it was.
void Escribir(const QString& fichero, const QString& seccion, const QString& clave,
              const QString& valor);

struct ValorIni {
    QString seccion;
    QString clave;
    QString valor;
};
// The same for many values in one writing: all of them stand in the file afterwards, or none.
// distintos: how many of them read otherwise before, also when it raises; all when the file cannot
// be read.
void EscribirVarios(const QString& fichero, std::span<const ValorIni> valores,
                    qsizetype& distintos);

} // namespace zv::perfil
