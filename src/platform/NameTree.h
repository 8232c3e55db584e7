// A folder tree whose names ignore case on a file system that does not: finds the entry that a name
// means, the exact one first.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace zv::arbol {

enum class Kind { Carpeta, Fichero };

// The entry of this kind in the folder whose name is nombre; without an exact one, the first in
// byte order that is equal but for case. Nothing when there is none.
std::optional<QByteArray> Entrada(const QByteArray& carpeta, const QByteArray& nombre, Kind kind);

// The parts of a key, which back-slashes and slashes divide; nothing when one of them could leave
// the tree.
std::optional<QList<QByteArray>> PartesDeClave(const QString& clave);
// True for a name of one entry: not empty, not "." or "..", no separator, no NUL.
bool NombreValido(const QString& nombre);

} // namespace zv::arbol
