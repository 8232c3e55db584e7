// Texts of the database.
#pragma once

#include "ui/Clave.h"

namespace zv::texto {

inline constexpr Clave kClavesStore[] = {
    {u"errorDeConfiguracion", u"Error de configuración"},
    {u"errorMDB", u"Error al crear el fichero MDB, el archivo ya esta en uso"},
};

inline constexpr const Clave& kErrorDeConfiguracion =
    Entrada(kClavesStore, u"errorDeConfiguracion");
inline constexpr const Clave& kErrorMDB = Entrada(kClavesStore, u"errorMDB");

} // namespace zv::texto
