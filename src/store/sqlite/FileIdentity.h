// Which file a path names, beyond its name: tells a file that was moved, deleted or replaced.
#pragma once

#include <QString>
#include <QtGlobal>

namespace zv {

struct FileIdentity {
    quint64 dispositivo = 0;
    quint64 nodo = 0;
    bool existe = false;

    // Never fails; a path that cannot be looked at does not exist.
    static FileIdentity De(const QByteArray& ruta);
    bool operator==(const FileIdentity&) const = default;
};

// Whether this process may write the file, with the rights it has now.
bool SePuedeEscribir(const QByteArray& ruta);

} // namespace zv
