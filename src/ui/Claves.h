// Texts that all screens share.
#pragma once

#include "ui/Clave.h"

namespace zv::texto {

inline constexpr Clave kClavesUi[] = {
    {u"GEN", u"FrmCaption", u"Zorvex ®"},
    {u"boton_0", u"Aceptar"},
};

inline constexpr const Clave& kTituloVentana = Entrada(kClavesUi, u"GEN", u"FrmCaption");
inline constexpr const Clave& kAceptar = Entrada(kClavesUi, u"boton_0");

} // namespace zv::texto
