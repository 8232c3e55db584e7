// The order of the load, and of the unload.
#include "app/Arranque.h"

#include "app/Opciones.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "store/Esquema.h"

namespace zv {

Arranque::Arranque(Entorno& entorno, EstadoMonitor& estado, PulsoCola& pulso, Conector& conector,
                   SingleInstance& instancia, LogFiles& ficherosLog, QString carpeta,
                   std::function<std::unique_ptr<DatabaseEngine>()> crearCatalogo)
    : entorno_(entorno), estado_(estado), pulso_(pulso), conector_(conector), instancia_(instancia),
      ficherosLog_(ficherosLog), carpeta_(std::move(carpeta)),
      crearCatalogo_(std::move(crearCatalogo)) {}

QString Arranque::Traduce(const char16_t* clave, const char16_t* porDefecto) const {
    return entorno_.textos.Traduce(QString::fromUtf16(clave), QString::fromUtf16(porDefecto));
}

Respuesta Arranque::Mensaje(const char16_t* claveTitulo, const char16_t* titulo,
                            const char16_t* claveTexto, const char16_t* texto) {
    return entorno_.dialogos.MostrarMensaje(Traduce(claveTitulo, titulo),
                                            Traduce(claveTexto, texto));
}

bool Arranque::Cargar(VentanaPrincipal& ventana) {
    ficherosLog_.LimpiarLogs(entorno_.dialogos);
    ventana.Traducir();
    if (instancia_.OtraInstancia()) {
        entorno_.dialogos.MostrarMensaje(
            QString(), Traduce(u"zvMonitorYaEjecutado",
                               u"ZVMonitor ya está funcionando y no puede ser ejecutado de nuevo"));
        return false;
    }
    ventana.PonerIcono();
    entorno_.log.LogLinea(u"INICIADO"_s);
    try {
        if (!CargarProtegido(ventana)) {
            return false;
        }
    } catch (const ErrorEjecucion& e) {
        entorno_.dialogos.MostrarMensaje(
            Traduce(u"errorDeInicio", u"Error al iniciar la aplicación"),
            u"Error nº "_s + QString::number(e.Numero()) + u" - "_s + e.Descripcion());
        return false;
    }
    // Past the handler: from here on a failure is nobody's, as in any other event.
    if (entorno_.configuracio->BOTONACCESO == 1 && pasos_.mostrarBotonAcceso) {
        pasos_.mostrarBotonAcceso();
    }
    pulso_.ArrancaTimer();
    return true;
}

bool Arranque::LeerConfiguracion() {
    bool existe = false;
    entorno_.configuracio->LeerCfgIni(entorno_.rutaIni, existe);
    return existe;
}

bool Arranque::CargarProtegido(VentanaPrincipal& ventana) {
    if (!LeerConfiguracion()) {
        Mensaje(u"iniciando", u"Iniciando...", u"primerUso",
                u"Configura la aplicación para su primer uso");
        if (pasos_.abrirConfiguracion) {
            pasos_.abrirConfiguracion();
        }
        if (!LeerConfiguracion()) {
            // Title and text share their key, so a language file gives both the same words.
            Mensaje(u"errorDeConfiguracion", u"Error de configuración", u"errorDeConfiguracion",
                    u"No se han encontrado los datos de configuración de ZVMonitor");
            return false;
        }
    }
    entorno_.supervision.LeerSaldos();
    ventana.PrepararGrid();
    CrearBaseDatos(*crearCatalogo_(), carpeta_, entorno_.log, entorno_.dialogos, entorno_.textos);
    if (pasos_.abrirFast) {
        pasos_.abrirFast();
    }
    conector_.ArrancarConector();
    if (!entorno_.conexion.ConectarBD()) {
        Mensaje(u"errorDeConfiguracion", u"Error de configuración", u"errorDeConfiguracion3",
                u"Revise el fichero LOG de la aplicación");
        return false;
    }
    if (pasos_.inicializarDades) {
        pasos_.inicializarDades();
    }
    estado_.PonerAgrupando(false);
    SupervisionConexion& supervision = entorno_.supervision;
    estado_.ActualizarBotonesMonitor(supervision.Conectado());
    pulso_.ParaTimer();
    ventana.PonerVersion(u"Monitor v"_s + VersionPrograma());
    ventana.Mostrar();

    supervision.Conectar();
    supervision.MostrarNivel();
    estado_.RellenarGrid();
    estado_.ActualizarEstado(true);
    estado_.ActualizarBotonesMonitor(supervision.Conectado());
    ficherosLog_.LimpiarLogs(entorno_.dialogos);
    if (entorno_.configuracio->MINIMIZADO == 1 && estado_.FilasGrid() == 0) {
        ventana.PonerWindowState(ventana::kMinimizada);
    }
    return true;
}

void Arranque::Descargar() {
    pulso_.ParaTimer();
    entorno_.marca.MarcarActivo(false);
    conector_.PararConector();
}

} // namespace zv
