// A received text as a message: fields parted by "|", cut and converted.
#pragma once

#include "platform/FormatoRegional.h"
#include "store/Missatge.h"

#include <optional>

namespace zv {

// Nothing when the text has no "|". A field that is missing leaves the default; an amount that is
// no number, or that does not fit into 32 bits once rounded, sets ImporteError. Fields after the
// eighth are ignored. IdxSocket is left to the caller.
std::optional<Missatge> LeerMissatge(const QString& texto, const FormatoRegional& formato);

} // namespace zv
