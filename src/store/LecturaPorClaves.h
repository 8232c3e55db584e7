// A long table is read in pieces, by its keys: no statement stays open for long, and what happens
// in between (a screen that is painted) never waits for all of it.
#pragma once

#include "store/DatabaseEngine.h"

#include <functional>
#include <optional>

namespace zv {

struct RangoClaves {
    qint64 primera;
    qint64 ultima;
};

// Nothing for an empty table.
std::optional<RangoClaves> LeerRangoClaves(DatabaseEngine& motor, const QString& tabla,
                                           const QString& clave);

// Rows one by one. sql asks for those whose key lies between its two parameters, the ends among
// them, in the order of the key, which is its first column. pausa runs now and then, with no
// statement open.
void RecorrerPorClaves(DatabaseEngine& motor, const RangoClaves& rango, const QString& sql,
                       const std::function<void(const Row&)>& visitar,
                       const std::function<void()>& pausa);

} // namespace zv
