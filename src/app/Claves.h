// Texts of the start, and of the connector.
#pragma once

#include "ui/Clave.h"

namespace zv::texto {

inline constexpr Clave kClavesApp[] = {
    {u"zvMonitorYaEjecutado", u"ZVMonitor ya está funcionando y no puede ser ejecutado de nuevo"},
    {u"errorDeInicio", u"Error al iniciar la aplicación"},
    {u"iniciando", u"Iniciando..."},
    {u"primerUso", u"Configura la aplicación para su primer uso"},
    // The key of its title too, so a language file gives both the same words.
    {u"errorDeConfiguracion", u"No se han encontrado los datos de configuración de ZVMonitor"},
    {u"errorDeConfiguracion3", u"Revise el fichero LOG de la aplicación"},
    {u"conectorNoCargado", u"Conector no cargado"},
    {u"conectorNoDisponible", u"El conector no está disponible en la ruta especificada en la "
                              u"configuración. Consulte con su técnico"},
    // The page that the manuals button opens.
    {u"GEN", u"Manual", u"manual.es.html"},
};

inline constexpr const Clave& kYaEjecutado = Entrada(kClavesApp, u"zvMonitorYaEjecutado");
inline constexpr const Clave& kErrorDeInicio = Entrada(kClavesApp, u"errorDeInicio");
inline constexpr const Clave& kIniciando = Entrada(kClavesApp, u"iniciando");
inline constexpr const Clave& kPrimerUso = Entrada(kClavesApp, u"primerUso");
inline constexpr const Clave& kSinConfiguracion = Entrada(kClavesApp, u"errorDeConfiguracion");
inline constexpr const Clave& kReviseElLog = Entrada(kClavesApp, u"errorDeConfiguracion3");
inline constexpr const Clave& kConectorNoCargado = Entrada(kClavesApp, u"conectorNoCargado");
inline constexpr const Clave& kConectorNoDisponible = Entrada(kClavesApp, u"conectorNoDisponible");
inline constexpr const Clave& kPaginaManual = Entrada(kClavesApp, u"GEN", u"Manual");

} // namespace zv::texto
