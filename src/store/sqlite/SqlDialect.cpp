// One pattern for each form; neither looks further than the form that the system writes.
#include "store/sqlite/SqlDialect.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"

#include <QRegularExpression>

namespace zv {

QString AdaptToSqlite(const QString& sql) {
    // Behind literals, parentheses, comments or a second SELECT a LIMIT could mean another thing.
    static const QRegularExpression top(
        uR"(^\s*(SELECT)\s+TOP\s+(\d+)\s+(?!PERCENT\b)((?:(?!\bSELECT\b)[\w\s.,*=<>?@])+)$)"_s,
        QRegularExpression::CaseInsensitiveOption);
    QString adaptada = sql;
    return adaptada.replace(top, uR"(\1 \3 LIMIT \2)"_s);
}

QString AdaptViewToSqlite(const QString& sql) {
    // Joined text would otherwise compare with regard to case.
    static const QRegularExpression unidos(uR"(([\w.]+)\+('[^'+]*')\+([\w.]+))"_s);
    QString adaptada = sql;
    adaptada.replace(unidos, uR"(\1||\2||\3 COLLATE NOCASE)"_s);
    if (adaptada.contains(u'+')) {
        throw errores::TipoNoCoincide();
    }
    return adaptada;
}

} // namespace zv
