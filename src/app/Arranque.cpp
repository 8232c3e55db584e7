#include "app/Arranque.h"

#include "app/Claves.h"
#include "app/Opciones.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "store/Claves.h"
#include "store/Esquema.h"
#include "store/sqlite/SqliteEngine.h"

namespace zv {

Arranque::Arranque(const PartesMonitor& partes, Conector& conector, SingleInstance& instancia,
                   LogFiles& ficherosLog, ServidorFast& fast,
                   std::function<void()> inicializarDades)
    : entorno_(partes.entorno), estado_(partes.estado), pulso_(partes.pulso), conector_(conector),
      instancia_(instancia), ficherosLog_(ficherosLog), fast_(fast),
      inicializarDades_(std::move(inicializarDades)) {}

Respuesta Arranque::Mensaje(const Clave& titulo, const Clave& texto) {
    return entorno_.dialogos.MostrarMensaje(entorno_.textos.Traduce(titulo),
                                            entorno_.textos.Traduce(texto));
}

bool Arranque::Cargar(VentanaPrincipal& ventana) {
    ficherosLog_.LimpiarLogs(entorno_.dialogos);
    ventana.Traducir();
    if (instancia_.OtraInstancia()) {
        entorno_.dialogos.MostrarMensaje(QString(), entorno_.textos.Traduce(texto::kYaEjecutado));
        return false;
    }
    ventana.PonerIcono();
    entorno_.log.LogLinea(u"INICIADO"_s);
    try {
        if (!CargarProtegido(ventana)) {
            return false;
        }
    } catch (const ErrorEjecucion& e) {
        entorno_.dialogos.MostrarMensaje(entorno_.textos.Traduce(texto::kErrorDeInicio),
                                         u"Error nº "_s + QString::number(e.Numero()) + u" - "_s +
                                             e.Descripcion());
        return false;
    }
    // Outside the handler on purpose: from here on a failure ends the program, as in any event.
    if (entorno_.configuracio->BOTONACCESO == 1) {
        entorno_.pantallas.Abrir(Pantalla::BotonAcceso);
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
        Mensaje(texto::kIniciando, texto::kPrimerUso);
        entorno_.pantallas.Abrir(Pantalla::Configuracion);
        if (!LeerConfiguracion()) {
            Mensaje(texto::kErrorDeConfiguracion, texto::kSinConfiguracion);
            return false;
        }
    }
    entorno_.supervision.LeerSaldos();
    ventana.PrepararGrid();
    {
        // The schema has a connection of its own, closed before the monitor's is opened.
        SqliteEngine catalogo;
        CrearBaseDatos(catalogo, entorno_.carpeta, entorno_.log, entorno_.dialogos,
                       entorno_.textos);
    }
    fast_.AbrirFast();
    conector_.ArrancarConector();
    if (!entorno_.conexion.ConectarBD()) {
        Mensaje(texto::kErrorDeConfiguracion, texto::kReviseElLog);
        return false;
    }
    inicializarDades_();
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
