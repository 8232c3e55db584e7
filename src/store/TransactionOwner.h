// Ends the transaction levels that nobody ended.
#pragma once

#include "store/DatabaseEngine.h"
#include "ui/Log.h"

namespace zv {

class TransactionOwner {
  public:
    TransactionOwner(DatabaseEngine& motor, Log& log) : motor_(motor), log_(log) {}

    // Ends every open level, the innermost first: one that has written something itself is rolled
    // back, with a log line; any other is committed, with what inner levels have committed into
    // it, because the log has already said so of them. Call it only while no operation runs.
    // Never raises: what cannot be committed is rolled back, and a log that cannot be written is
    // often the reason why a level stands open.
    void Saldar();
    // A level stands open: what is written now is not durable before it ends.
    bool HayNivelAbierto() const { return motor_.Nivel() > 0; }

  private:
    bool SaldarNivel();

    DatabaseEngine& motor_;
    Log& log_;
};

} // namespace zv
