// The operating modes, as the settings hold them: compared exactly.
#pragma once

#include "platform/StringLiterals.h"

namespace zv::modo {

inline const QString kAuto = u"AUTO"_s;
inline const QString kManual = u"MANUAL"_s;
inline const QString kSemi = u"SEMI"_s;

} // namespace zv::modo
