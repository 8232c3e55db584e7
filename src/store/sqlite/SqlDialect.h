// The two places where the statements of the system differ from SQLite's own: TOP at the head of a
// simple SELECT, and + between texts in a view. Whatever is not exactly that stays as it is, so
// that SQLite refuses what it does not know. Parameters need nothing: SQLite takes ? and @x.
#pragma once

#include <QString>

namespace zv {

// "SELECT TOP n ... FROM ..." over plain names, with LIMIT in its place.
QString AdaptToSqlite(const QString& sql);

// The text of a view, with || where two names are joined around a literal. Raises 13 for any other
// +: stored as it stands it would add up numbers without a word.
QString AdaptViewToSqlite(const QString& sql);

} // namespace zv
