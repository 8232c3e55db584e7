// Texts of the database and of the export.
#pragma once

#include "ui/Clave.h"

namespace zv::texto {

inline constexpr Clave kClavesStore[] = {
    {u"errorDeConfiguracion", u"Error de configuración"},
    {u"errorMDB", u"Error al crear el fichero MDB, el archivo ya esta en uso"},
    {u"exportar0", u"Exportar datos"},
    {u"exportar1", u"Se han exportado los datos correctamente"},
};

inline constexpr const Clave& kErrorDeConfiguracion =
    Entrada(kClavesStore, u"errorDeConfiguracion");
inline constexpr const Clave& kErrorMDB = Entrada(kClavesStore, u"errorMDB");
inline constexpr const Clave& kExportarTitulo = Entrada(kClavesStore, u"exportar0");
inline constexpr const Clave& kExportarHecho = Entrada(kClavesStore, u"exportar1");

} // namespace zv::texto
