// The schema in SQLite's words: column types with the limits of the system's own types, and the
// physical names of indexes, which SQLite keeps in one list for the whole file.
#pragma once

#include "store/DatabaseEngine.h"

namespace zv::sqliteschema {

// An identifier, quoted.
QString Citar(const QString& nombre);

QString SqlCrearTabla(const TableDef& tabla);
QString SqlCrearIndice(const IndexDef& indice);
QString SqlAñadirColumna(const QString& tabla, const ColumnDef& columna);

QString IndiceFisico(const QString& tabla, const QString& indice);
// A name that IndiceFisico did not make stands for itself.
QString IndiceLogico(const QString& tabla, const QString& fisico);

} // namespace zv::sqliteschema
