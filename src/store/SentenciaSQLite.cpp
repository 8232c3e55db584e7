// Runs of a prepared query, each finished before the call returns.
#include "store/SentenciaSQLite.h"

#include "store/ConjuntoSQLite.h"

namespace zv {

SentenciaSQLite::SentenciaSQLite(NucleoSQLite& nucleo, QString sql, std::size_t parametros)
    : nucleo_(nucleo), sql_(std::move(sql)) {
    nucleo_.Preparar(sql_, parametros);
}

std::optional<Fila> SentenciaSQLite::Primera(const Parametros& parametros) {
    std::optional<Fila> primera;
    nucleo_.Recorrer(sql_, parametros, [&primera](const Fila& fila) {
        primera = fila;
        return false;
    });
    return primera;
}

std::unique_ptr<ConjuntoRegistros> SentenciaSQLite::AbrirConjunto(const QString& tabla,
                                                                  const Parametros& parametros) {
    auto conjunto = std::make_unique<ConjuntoSQLite>(nucleo_, tabla);
    conjunto->Consultar(sql_, parametros);
    return conjunto;
}

} // namespace zv
