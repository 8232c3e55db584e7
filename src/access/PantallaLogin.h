// The port through which Seguretat asks who is there. A screen answers it in the program, a script
// in tests.
#pragma once

#include "platform/StringLiterals.h"

#include <QString>

namespace zv {

// The level of nobody; the roles are 0, 1 and 2, the lower the higher in rank.
inline constexpr qint16 kSinNivel = 999;

// Who has identified himself: nobody has an empty name and kSinNivel.
struct Identificado {
    QString nombre;
    qint16 nivel = kSinNivel;
};

// The place that is asked for with the money in the device already: a cancel gives it back.
inline const QString kAuthCambio = u"authCambio"_s;

class PantallaLogin {
  public:
    virtual ~PantallaLogin() = default;
    // Comes back when the login has gone. lugar: the place that asks.
    virtual Identificado Identificar(const QString& lugar) = 0;
};

} // namespace zv
