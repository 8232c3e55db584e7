// The desktop's on-screen keyboard, started as a program of its own.
#pragma once

#include <QString>
#include <QStringList>

namespace zv {

// Path of the first on-screen keyboard found in the folders given (the PATH when there are none);
// empty when the machine has none.
QString BuscarTecladoPantalla(const QStringList& carpetas = {});
// Starts it. False when there is none or it does not start; callers may ignore that.
bool AbrirTecladoPantalla(const QStringList& carpetas = {});

} // namespace zv
