// Existence tests, used before files and folders are touched.
#pragma once

#include <QString>

namespace zv {

// True if the path names an existing file (not a folder).
bool ExisteFichero(const QString& ruta);
// True if the path names an existing folder.
bool ExisteCarpeta(const QString& ruta);

} // namespace zv
