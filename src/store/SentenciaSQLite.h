// A prepared query of the SQLite engine: its text, adapted once; the connection keeps the compiled
// form by that text.
#pragma once

#include "store/NucleoSQLite.h"

namespace zv {

class SentenciaSQLite final : public SentenciaPreparada {
  public:
    // sql: in SQLite's own words. Raises when it cannot be prepared.
    SentenciaSQLite(NucleoSQLite& nucleo, QString sql, std::size_t parametros);

    std::optional<Fila> Primera(const Parametros& parametros) override;
    std::unique_ptr<ConjuntoRegistros> AbrirConjunto(const QString& tabla,
                                                     const Parametros& parametros) override;

  private:
    NucleoSQLite& nucleo_;
    QString sql_;
};

} // namespace zv
