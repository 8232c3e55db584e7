// The keys of the language file that the program's own sources ask for, found by reading them: a
// new text in the code is known to the tests without a list that somebody must keep.
#pragma once

#include <QString>
#include <QStringList>

#include <map>

namespace zv::test {

struct ClavesDelCodigo {
    // By section and key, the file that asks for it. "COMMON" and the names of screens.
    std::map<std::pair<QString, QString>, QString> claves;
    // Beginnings of keys that are put together at run time, by section and beginning.
    std::map<std::pair<QString, QString>, QString> comienzos;
    // Look-ups whose key could not be read: "file: the call".
    QStringList ilegibles;

    // Reads all *.cpp and *.h below the folder.
    static ClavesDelCodigo Leer(const QString& carpeta);
};

} // namespace zv::test
