// A grid as a text file for a spreadsheet: what it shows, row by row, the titles first.
#pragma once

#include "platform/Clock.h"
#include "ui/Dialogos.h"
#include "ui/Textos.h"

namespace zv {

class Rejilla;

// Writes <carpeta>/exports/<nombre>_<yyyymmdd>_<hhmmss>.csv and tells the operator that it is done.
// carpeta: the application folder. Hidden columns too; every "€" goes; nothing is quoted. What a
// file name cannot hold stands as "_" in it. Raises 61, 70, 75 or 76 when folder or
// file cannot be written, and no file has that name then, or the one that had it before.
void ExportarCSV(const Rejilla& grid, const QString& nombre, const QString& carpeta,
                 const Clock& reloj, Dialogos& dialogos, const Textos& textos);

} // namespace zv
