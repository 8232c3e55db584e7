#include "store/sqlite/SqliteStatement.h"

#include "store/sqlite/SqliteRecordSet.h"

namespace zv {

SqliteStatement::SqliteStatement(SqliteCore& nucleo, QString sql, std::size_t parametros)
    : nucleo_(nucleo), sql_(std::move(sql)) {
    nucleo_.Preparar(sql_, parametros);
}

std::optional<Row> SqliteStatement::Primera(const Parametros& parametros) {
    std::optional<Row> primera;
    nucleo_.Recorrer(sql_, parametros, [&primera](const Row& fila) {
        primera = fila;
        return false;
    });
    return primera;
}

std::unique_ptr<RecordSet> SqliteStatement::AbrirConjunto(const QString& tabla,
                                                          const Parametros& parametros) {
    auto conjunto = std::make_unique<SqliteRecordSet>(nucleo_, tabla);
    conjunto->Consultar(sql_, parametros);
    return conjunto;
}

} // namespace zv
