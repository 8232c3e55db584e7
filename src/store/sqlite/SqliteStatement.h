// A prepared query of the SQLite engine: its text, adapted once; the connection keeps the compiled
// form by that text.
#pragma once

#include "store/sqlite/SqliteCore.h"

namespace zv {

class SqliteStatement final : public PreparedStatement {
  public:
    // sql: in SQLite's own words. Raises when it cannot be prepared.
    SqliteStatement(SqliteCore& nucleo, QString sql, std::size_t parametros);

    std::optional<Row> Primera(const Parametros& parametros) override;
    std::unique_ptr<RecordSet> AbrirConjunto(const QString& tabla,
                                             const Parametros& parametros) override;

  private:
    SqliteCore& nucleo_;
    QString sql_;
};

} // namespace zv
