// Texts of the settings screen.
#pragma once

#include "ui/Clave.h"

namespace zv::texto {

inline constexpr Clave kClavesSettings[] = {
    {u"atencion", u"¡Atención!"},
    {u"deseaGuardar", u"¿Desea guardar los cambios?"},
    {u"deseaSalir", u"¿Desea salir sin guardar los cambios?"},
    {u"errorConfiguracion", u"Error de configuración"},
    {u"errorConfiguracion2", u"Se esperaba un valor númerico"},
    {u"errorConfiguracion2", u"Se requiere un valor numérico"},
    {u"errorConfiguracion4", u"¿Desea continuar igualmente?"},
    {u"errorConfiguracion5", u"Falta el puerto del ZVFast"},
    {u"errorConfiguracion6", u"No se encuentra el ZVConnector.exe en la ubicación especificada"},
    {u"exploradorWindows1", u"Escoger conector"},
    {u"conexionEstablecida", u"Conexión establecida"},
    {u"NoSePuedeConectar", u"No se puede conectar con Zorvex"},
    {u"errorConectarZorvex", u"Error al conectar con Zorvex"},
    // what the screen says beside a field, without a dialog
    {u"probandoConexion", u"Probando la conexión..."},
    {u"sinTecladoPantalla", u"Este equipo no tiene teclado en pantalla"},
    {u"puertoFueraDeRango", u"Un puerto va de 1 a 65535"},
    {u"puertoOcupado", u"Otro programa usa este puerto"},
    {u"conectorEsCarpeta", u"Es una carpeta: escoja el programa"},
    {u"conectorNoEsta", u"No hay ningún fichero en esa ruta"},
    {u"conectorNoEjecutable", u"Ese fichero no es un programa que se pueda iniciar"},
    {u"frmCfgMonitor", u"lbTitulo", u"Monitor - Configuración"},
    {u"frmCfgMonitor", u"lblModo", u"Iniciar en modo"},
    {u"frmCfgMonitor", u"fraModo", u"Iniciar en modo"},
    {u"frmCfgMonitor", u"btnModo_0", u"AUTO"},
    {u"frmCfgMonitor", u"btnModo_1", u"MANUAL"},
    {u"frmCfgMonitor", u"btnModo_2", u"SEMIAUTO"},
    {u"frmCfgMonitor", u"lblZorvex", u"Zorvex"},
    {u"frmCfgMonitor", u"lblIP", u"IP Zorvex:"},
    {u"frmCfgMonitor", u"btnTestZV", u"Test"},
    {u"frmCfgMonitor", u"lblRefresco", u"Refresco:"},
    {u"frmCfgMonitor", u"lblSegundos", u"seg."},
    {u"frmCfgMonitor", u"lblColumnas", u"Columnas/texto a mostrar:"},
    {u"frmCfgMonitor", u"btnCol_1", u"Id. Caja"},
    {u"frmCfgMonitor", u"btnCol_2", u"Id. 2"},
    {u"frmCfgMonitor", u"btnCol_3", u"Terminal"},
    {u"frmCfgMonitor", u"btnCol_4", u"Vendedor"},
    {u"frmCfgMonitor", u"btnCol_5", u"FormaPago"},
    {u"frmCfgMonitor", u"lblPersonalizacion", u"Personalización:"},
    {u"frmCfgMonitor", u"btnCfg_0", u"Minimiza al iniciar"},
    {u"frmCfgMonitor", u"btnCfg_1", u"Acceso directo flotante "},
    {u"frmCfgMonitor", u"btnCfg_2", u"Sin impresora"},
    {u"frmCfgMonitor", u"btnCfg_3", u"No permitir pagos"},
    {u"frmCfgMonitor", u"btnCfg_5", u"Preguntar concepto en pagos/cobros manuales"},
    {u"frmCfgMonitor", u"btnCfg_6", u"Preguntar causa anulación"},
    {u"frmCfgMonitor", u"lblConector", u"Tipo de Conector:"},
    {u"frmCfgMonitor", u"btnConector_0", u"ZVFast"},
    {u"frmCfgMonitor", u"btnConector_1", u"Conector"},
    {u"frmCfgMonitor", u"lblPuerto", u"Puerto ZVFast:"},
    {u"frmCfgMonitor", u"lblRuta", u"Ruta Conector:"},
    {u"frmCfgMonitor", u"btnExplorer1_0", u"..."},
    {u"frmCfgMonitor", u"lblUsuarios", u"Usuarios:"},
    {u"frmCfgMonitor", u"btnUsuarios", u"Gestión de usuarios"},
    {u"frmCfgMonitor", u"btnAccesos", u"Registro de accesos"},
    {u"frmCfgMonitor", u"boton_0", u"Salir"},
    {u"frmCfgMonitor", u"boton_1", u"Guardar"},
    {u"frmCfgMonitor", u"boton_2", u"Teclado"},
    {u"frmCfgMonitor", u"boton_13", u"Conf. Código de Barras"},
};

inline constexpr const Clave& kAtencion = Entrada(kClavesSettings, u"atencion");
inline constexpr const Clave& kDeseaGuardar = Entrada(kClavesSettings, u"deseaGuardar");
inline constexpr const Clave& kDeseaSalir = Entrada(kClavesSettings, u"deseaSalir");
inline constexpr const Clave& kErrorConfiguracion = Entrada(kClavesSettings, u"errorConfiguracion");
inline constexpr const Clave& kSeEsperabaNumero =
    Entrada(kClavesSettings, u"errorConfiguracion2", 0);
inline constexpr const Clave& kSeRequiereNumero =
    Entrada(kClavesSettings, u"errorConfiguracion2", 1);
inline constexpr const Clave& kContinuarIgualmente =
    Entrada(kClavesSettings, u"errorConfiguracion4");
inline constexpr const Clave& kFaltaPuerto = Entrada(kClavesSettings, u"errorConfiguracion5");
inline constexpr const Clave& kFaltaConector = Entrada(kClavesSettings, u"errorConfiguracion6");
inline constexpr const Clave& kEscogerConector = Entrada(kClavesSettings, u"exploradorWindows1");
inline constexpr const Clave& kConexionEstablecida =
    Entrada(kClavesSettings, u"conexionEstablecida");
inline constexpr const Clave& kNoSePuedeConectar = Entrada(kClavesSettings, u"NoSePuedeConectar");
inline constexpr const Clave& kErrorConectar = Entrada(kClavesSettings, u"errorConectarZorvex");
inline constexpr const Clave& kProbandoConexion = Entrada(kClavesSettings, u"probandoConexion");
inline constexpr const Clave& kSinTeclado = Entrada(kClavesSettings, u"sinTecladoPantalla");
inline constexpr const Clave& kPuertoFuera = Entrada(kClavesSettings, u"puertoFueraDeRango");
inline constexpr const Clave& kPuertoOcupado = Entrada(kClavesSettings, u"puertoOcupado");
inline constexpr const Clave& kConectorCarpeta = Entrada(kClavesSettings, u"conectorEsCarpeta");
inline constexpr const Clave& kConectorNoEsta = Entrada(kClavesSettings, u"conectorNoEsta");
inline constexpr const Clave& kConectorNoEjecutable =
    Entrada(kClavesSettings, u"conectorNoEjecutable");

// An entry of the screen itself.
consteval const Clave& DeCfgMonitor(std::u16string_view clave) {
    return Entrada(kClavesSettings, u"frmCfgMonitor", clave);
}

} // namespace zv::texto
