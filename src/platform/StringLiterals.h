// u"..."_s makes a QString at compile time, everywhere in this namespace.
#pragma once

#include <QString>

namespace zv {

using namespace Qt::StringLiterals;

} // namespace zv
