#include "settings/CfgMonitor.h"

#include "config/Modo.h"
#include "platform/ErrorEjecucion.h"
#include "platform/Files.h"
#include "platform/RegistryNames.h"
#include "platform/StringLiterals.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <limits>

namespace zv {

namespace {

const QString kTituloZorvex = u"Zorvex"_s;

const QString* const kModos[] = {&modo::kAuto, &modo::kManual, &modo::kSemi};

const QString kPulsado = u"1"_s;
const QString kSuelto = u"0"_s;

const ajustes::Ajuste& AjusteDe(CampoCfg campo) {
    return *kAjusteDeCampo[static_cast<std::size_t>(campo)].ajuste;
}

// A value of the file cannot hold more.
QString PrimeraLinea(const QString& texto) {
    const auto* const fin = std::find_if(texto.cbegin(), texto.cend(), [](QChar c) {
        return c == u'\r' || c == u'\n' || c == QChar::LineSeparator || c.isNull();
    });
    return texto.first(fin - texto.cbegin());
}

} // namespace

CfgMonitor::CfgMonitor(Entorno& entorno, ExteriorCfg exterior)
    : entorno_(entorno), exterior_(std::move(exterior)),
      cfg_(std::make_unique<Configuracio>(entorno.ini, entorno.registry, entorno.carpeta,
                                          entorno.importes.Formato())) {
    cfg_->CopyFrom(*entorno_.configuracio);
    Cargar();
}

void CfgMonitor::Cargar() {
    for (int i = 0; i < 3; ++i) {
        if (*kModos[i] == cfg_->ModoInicial) {
            estado_.modo = i;
        }
    }
    for (std::size_t i = 0; i < kInterruptoresCfg.size(); ++i) {
        estado_.pulsado[i] = ajustes::Valor(*cfg_, *kInterruptoresCfg[i].ajuste) == kPulsado;
    }
    for (const CampoCfg campo : kCamposCfg) {
        estado_.tbCfg[static_cast<std::size_t>(campo)] = ajustes::Valor(*cfg_, AjusteDe(campo));
        AnotarCampo(campo);
    }
    estado_.cambios = false;
    if (estado_.ConectorPulsado() && estado_.Texto(CampoCfg::Ruta).isEmpty()) {
        // What comes from here is not in the file: it can be saved.
        const QString path = entorno_.registry.LeerValor(registry_name::kConectorPath, {});
        if (!path.isEmpty()) {
            Escribir(CampoCfg::Ruta, path);
        }
    }
}

void CfgMonitor::Avisar() {
    if (alCambiar_) {
        alCambiar_();
    }
}

bool CfgMonitor::EsNumerico(CampoCfg campo) const {
    return entorno_.importes.Formato().EsNumerico(estado_.Texto(campo));
}

void CfgMonitor::ElegirModo(int indice) {
    if (indice == estado_.modo) {
        return;
    }
    estado_.modo = indice;
    estado_.cambios = true;
    Avisar();
}

void CfgMonitor::Conmutar(std::size_t indice) {
    bool& pulsado = estado_.pulsado[indice];
    pulsado = !pulsado;
    estado_.cambios = true;
    if (indice == kInterruptorFast) {
        cfg_->zvFastActive = pulsado;
        AnotarCampo(CampoCfg::Puerto);
    } else if (indice == kInterruptorConector) {
        cfg_->ZVConectorActive = pulsado;
        const QString path = entorno_.registry.LeerValor(registry_name::kConectorPath, {});
        if (!path.isEmpty() && ExisteFichero(path + u"/ZVConnector.exe"_s)) {
            PonerTexto(CampoCfg::Ruta, path);
        }
        AnotarCampo(CampoCfg::Ruta);
    }
    Avisar();
}

void CfgMonitor::Escribir(CampoCfg campo, const QString& texto) {
    const QString linea = PrimeraLinea(texto);
    if (linea != estado_.Texto(campo)) {
        PonerTexto(campo, linea);
    }
    // Also when what was cut off is all that was new: the field shows more than the state.
    if (linea != texto || estado_.cambios) {
        Avisar();
    }
}

void CfgMonitor::PonerTexto(CampoCfg campo, const QString& texto) {
    QString& actual = estado_.tbCfg[static_cast<std::size_t>(campo)];
    if (actual == texto) {
        return;
    }
    actual = texto;
    estado_.cambios = true;
    if (campo == CampoCfg::IP) {
        estado_.prueba.clear(); // it was another address
    }
    AnotarCampo(campo);
}

void CfgMonitor::Enfocar(CampoCfg campo) {
    estado_.foco = campo;
    Avisar();
    estado_.foco.reset();
}

Respuesta CfgMonitor::Mensaje(const Clave& titulo, const QString& texto, EstiloMensaje estilo) {
    return entorno_.dialogos.MostrarMensaje(Traduce(titulo), texto, estilo);
}

void CfgMonitor::ComprobarRefresco() {
    if (EsNumerico(CampoCfg::Refresco)) {
        return;
    }
    Mensaje(texto::kErrorConfiguracion, Traduce(texto::kSeEsperabaNumero), EstiloMensaje::Aceptar);
    PonerTexto(CampoCfg::Refresco, ajustes::Valor(*cfg_, AjusteDe(CampoCfg::Refresco)));
    Enfocar(CampoCfg::Refresco);
}

bool CfgMonitor::Conectar(const QString& direccion) {
    if (entorno_.supervision.Conectado()) {
        entorno_.cliente.Disconnect();
    }
    entorno_.cliente.Address(direccion);
    bool bien = false;
    entorno_.cliente.Connect(bien);
    if (bien) {
        entorno_.cliente.Disconnect();
    }
    return bien;
}

void CfgMonitor::ProbarConexion() {
    const QString direccion = estado_.Texto(CampoCfg::IP);
    if (direccion.isEmpty()) {
        return;
    }
    // The device may be silent for seconds: what is being done stands on the screen before.
    estado_.prueba = Traduce(texto::kProbandoConexion);
    estado_.punteroEspera = true;
    Avisar();
    if (alPintar_) {
        alPintar_();
    }
    bool bien = false;
    std::optional<ErrorEjecucion> fallo;
    try {
        bien = Conectar(direccion);
    } catch (const ErrorEjecucion& e) {
        fallo = e;
    }
    estado_.punteroEspera = false;
    estado_.prueba = Traduce(bien ? texto::kConexionEstablecida : texto::kNoSePuedeConectar);
    Avisar();
    if (fallo) {
        Mensaje(texto::kErrorConectar,
                u"Error nº "_s + QString::number(fallo->Numero()) + u" - "_s + fallo->Descripcion(),
                EstiloMensaje::Aceptar);
    } else {
        entorno_.dialogos.MostrarMensaje(kTituloZorvex, estado_.prueba,
                                         bien ? EstiloMensaje::Informacion : EstiloMensaje::Aviso);
        if (!bien) {
            Enfocar(CampoCfg::IP);
        }
    }
    // After a failure too: nobody knows then what is left of the session.
    entorno_.supervision.MarcarDesconectado();
}

bool CfgMonitor::CamposBien() {
    if (!EsNumerico(CampoCfg::Refresco)) {
        Mensaje(texto::kErrorConfiguracion, Traduce(texto::kSeRequiereNumero),
                EstiloMensaje::Critico);
        Enfocar(CampoCfg::Refresco);
        return false;
    }
    if (estado_.FastPulsado() && !EsNumerico(CampoCfg::Puerto)) {
        Mensaje(texto::kErrorConfiguracion, Traduce(texto::kFaltaPuerto), EstiloMensaje::Aviso);
        Enfocar(CampoCfg::Puerto);
        return false;
    }
    if (estado_.ConectorPulsado() && !ExisteFichero(estado_.Texto(CampoCfg::Ruta)) &&
        Mensaje(texto::kErrorConfiguracion,
                Traduce(texto::kFaltaConector) + u"\r\n"_s + Traduce(texto::kContinuarIgualmente),
                EstiloMensaje::SiNo) != Respuesta::Si) {
        Enfocar(CampoCfg::Ruta);
        return false;
    }
    return true;
}

void CfgMonitor::GuardarCfg() {
    const FormatoRegional& formato = entorno_.importes.Formato();
    const auto tomar = [&](CampoCfg campo) {
        ajustes::Poner(*cfg_, AjusteDe(campo), estado_.Texto(campo), formato);
    };
    tomar(CampoCfg::IP);
    cfg_->ModoAnterior = cfg_->Modo;
    if (estado_.modo != EstadoCfg::kNingunModo) {
        cfg_->Modo = *kModos[estado_.modo];
    }
    tomar(CampoCfg::Refresco);
    for (std::size_t i = 0; i < kInterruptoresCfg.size(); ++i) {
        ajustes::Poner(*cfg_, *kInterruptoresCfg[i].ajuste, estado_.pulsado[i] ? kPulsado : kSuelto,
                       formato);
    }
    tomar(CampoCfg::Puerto);
    tomar(CampoCfg::Ruta);
}

bool CfgMonitor::Guardar() {
    if (Mensaje(texto::kAtencion, Traduce(texto::kDeseaGuardar), EstiloMensaje::SiNo) !=
            Respuesta::Si ||
        !CamposBien()) {
        return false;
    }
    GuardarCfg();
    cfg_->GuardarConfig(entorno_.rutaIni);
    entorno_.configuracio.Reemplazar(std::move(cfg_));
    estado_.cambios = false;
    return true;
}

bool CfgMonitor::PuedeSalir() {
    return !estado_.cambios || Mensaje(texto::kAtencion, Traduce(texto::kDeseaSalir),
                                       EstiloMensaje::SiNo) == Respuesta::Si;
}

void CfgMonitor::AbrirCodigoBarras() {
    entorno_.pantallas.AbrirBalanza(*cfg_);
    estado_.cambios = true;
    Avisar();
}

void CfgMonitor::AbrirTeclado() {
    estado_.aviso = exterior_.abrirTeclado && exterior_.abrirTeclado()
                        ? QString()
                        : Traduce(texto::kSinTeclado);
    Avisar();
}

bool CfgMonitor::PuedeAbrir(Pantalla pantalla) const {
    return entorno_.pantallas.Existe(pantalla) &&
           (pantalla == Pantalla::Balanza || entorno_.Database().Abierta());
}

void CfgMonitor::Abrir(Pantalla pantalla) {
    if (PuedeAbrir(pantalla)) {
        entorno_.pantallas.Abrir(pantalla);
    }
}

// Notes tell what the tests at saving let pass, and what would fail only later.
void CfgMonitor::AnotarCampo(CampoCfg campo) {
    if (campo == CampoCfg::Puerto) {
        estado_.notaPuerto = NotaPuerto();
    } else if (campo == CampoCfg::Ruta) {
        estado_.notaRuta = NotaRuta();
    }
}

QString CfgMonitor::NotaPuerto() const {
    const auto numero = entorno_.importes.Formato().LeerNumero(estado_.Texto(CampoCfg::Puerto));
    if (!estado_.FastPulsado() || !numero) {
        return {};
    }
    const double puerto = std::nearbyint(*numero);
    if (puerto < 1 || puerto > std::numeric_limits<quint16>::max()) {
        return Traduce(texto::kPuertoFuera);
    }
    return exterior_.puertoLibre && !exterior_.puertoLibre(static_cast<quint16>(puerto))
               ? Traduce(texto::kPuertoOcupado)
               : QString();
}

QString CfgMonitor::NotaRuta() const {
    const QString& ruta = estado_.Texto(CampoCfg::Ruta);
    if (!estado_.ConectorPulsado() || ruta.isEmpty()) {
        return {};
    }
    if (ExisteCarpeta(ruta)) {
        return Traduce(texto::kConectorCarpeta);
    }
    if (!ExisteFichero(ruta)) {
        return Traduce(texto::kConectorNoEsta);
    }
    return QFileInfo(ruta).isExecutable() ? QString() : Traduce(texto::kConectorNoEjecutable);
}

} // namespace zv
