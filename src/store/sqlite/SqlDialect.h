// Adapts a statement of the system's dialect to SQLite: TOP n, text joined with +, parameters by
// name. Literals, quoted names and whatever is unknown stay as they are, so that SQLite refuses
// what it does not know.
#pragma once

#include <QSet>
#include <QString>

#include <functional>

namespace zv {

// columnasTexto: lower-case names of the columns that hold text, asked for only when the statement
// has a + outside its literals. Raises 13 for a text join mixed with arithmetic.
QString AdaptToSqlite(const QString& sql, const std::function<QSet<QString>()>& columnasTexto);

} // namespace zv
