// Creates the database file and whatever object it lacks, in a fixed order; nothing is ever
// altered or dropped.
#pragma once

#include "store/DatabaseEngine.h"
#include "ui/Dialogos.h"
#include "ui/Log.h"
#include "ui/Textos.h"

namespace zv {

// Names are compared in upper case. Views count as tables.
bool ExisteTabla(DatabaseEngine& catalogo, const QString& nombre);
bool ExisteIndice(DatabaseEngine& catalogo, const QString& tabla, const QString& nombre);
bool ExisteColumna(DatabaseEngine& catalogo, const QString& tabla, const QString& nombre);

// catalogo: an engine of its own, closed on return. A failure of any step abandons the rest,
// shows the message and returns normally; the log tells what stood in the way.
void CrearBaseDatos(DatabaseEngine& catalogo, const QString& carpeta, Log& log, Dialogos& dialogos,
                    const Textos& textos);

} // namespace zv
