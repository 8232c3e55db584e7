// Files: existence tests used before they are touched, reading of whole files, and replacing a file
// so that whoever reads it, or a crash, finds the old text or the new one and never a part.
#pragma once

#include "platform/ErrorEjecucion.h"

#include <QByteArray>
#include <QString>

namespace zv {

// True if the path names an existing file (not a folder).
bool ExisteFichero(const QString& ruta);
// True if the path names an existing folder.
bool ExisteCarpeta(const QString& ruta);

// The three below take paths in the system's encoding and answer 0 or an error number of the system
// (errno.h); they never raise.

// The whole file into contenido, which is empty after a failure. A folder is EISDIR; more than
// limite bytes is EFBIG.
int LeerFicheroEntero(const QByteArray& ruta, QByteArray& contenido,
                      qsizetype limite = qsizetype{1} << 28);
// Makes the folder when it is not there; the one above it must be. Something else in its place, or
// a link that leads to no folder, is ENOTDIR.
int CrearCarpeta(const QByteArray& ruta);

// Whether a replaced file must outlive a power cut. One that need not (Pasajero) costs no wait for
// the disk; every reader still finds it whole.
enum class Guardado { Duradero, Pasajero };

// Writes a temporary file beside it, flushes it to disk if it is to last, and renames it. Keeps
// owner and permissions of an old file and follows a link to it; a file that nobody may write stays
// (EACCES).
int ReemplazarFichero(const QByteArray& ruta, QByteArrayView contenido,
                      Guardado guardado = Guardado::Duradero);

// What such a number means, in Spanish, for messages and logs.
QString TextoErrorSistema(int numero);
// The failure to raise for it: 61 for a full disk, 70 when it is not permitted, 76 when the path is
// not there, 75 for any other.
ErrorEjecucion FalloDeFichero(int numero, const QByteArray& ruta);

} // namespace zv
