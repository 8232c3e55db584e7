#include "engine/EstadoMonitor.h"

#include "config/Ajustes.h"
#include "config/Modo.h"
#include "device/Claves.h"
#include "engine/Claves.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"
#include "till/ResultadoEnvio.h"

#include <QScopedValueRollback>

namespace zv {

EstadoMonitor::EstadoMonitor(Entorno& entorno, Controles& controles, GridCola& grid)
    : entorno_(entorno), controles_(controles), grid_(grid) {
    controles_.Poner(&EstadoControles::lbContador, texto::kLbContador.PorDefecto());
    controles_.Poner(&EstadoControles::lbEstado, texto::kLbEstado.PorDefecto());
}

void EstadoMonitor::RellenarGrid() {
    controles_.Poner(&EstadoControles::punteroEspera, true);
    try {
        grid_.Rellenar(entorno_.Database(), entorno_.configuracio->SINHORA == 1);
        controles_.Poner(&EstadoControles::punteroEspera, false);
    } catch (const ErrorEjecucion& e) {
        controles_.Poner(&EstadoControles::punteroEspera, false);
        entorno_.dialogos.MostrarMensaje(QString(), u"Error nº "_s + QString::number(e.Numero()) +
                                                        u" - "_s + e.Descripcion());
    }
}

void EstadoMonitor::ActualizarEstado(bool automatico) {
    ActualizarContador();
    ActualizarTexto(automatico);

    ActualizarPaginas();

    const QString& actual = entorno_.configuracio->Modo;
    controles_.Poner(
        &EstadoControles::btnModo,
        std::array<bool, 3>{actual == modo::kAuto, actual == modo::kManual, actual == modo::kSemi});
}

void EstadoMonitor::ActualizarContador() {
    const int n = grid_.FilasDatos();
    const int a = grid_.Abonos();
    const Textos& textos = entorno_.textos;
    QString texto = QString::number(n - a) + QLatin1Char(' ') + textos.Traduce(texto::kCobros);
    if (a != 0) {
        texto += u" / "_s + QString::number(a) + QLatin1Char(' ') + textos.Traduce(texto::kAbonos);
    }
    controles_.Poner(&EstadoControles::lbContador, texto);
}

void EstadoMonitor::ActualizarTexto(bool automatico) {
    Configuracio& configuracio = *entorno_.configuracio;
    const Textos& textos = entorno_.textos;
    const auto poner = [this](const QString& texto) {
        controles_.Poner(&EstadoControles::lbEstado, texto);
    };
    switch (entorno_.ResultadoEnvio) {
    case envio::kBien:
        poner(QString());
        if (automatico && configuracio.Modo == modo::kManual &&
            entorno_.ini.LeerIni(entorno_.rutaIni, ajustes::kModo.seccion, ajustes::kModo.clave,
                                 modo::kManual) == modo::kAuto) {
            CambiarModo(modo::kAuto);
        }
        break;
    case envio::kCancelado:
        if (configuracio.ModoAnterior == modo::kAuto && ultimaCuenta_ == 0) {
            CambiarModo(modo::kAuto);
            entorno_.ResultadoEnvio = envio::kBien;
            poner(textos.Traduce(texto::kOperacionCanceladaAuto));
        } else {
            poner(textos.Traduce(texto::kOperacionCancelada));
        }
        break;
    case envio::kError:
        ContarError();
        break;
    default:
        break;
    }
}

void EstadoMonitor::ContarError() {
    const Textos& textos = entorno_.textos;
    if (entorno_.codigoEnvio == 0) {
        controles_.Poner(&EstadoControles::lbEstado, textos.Traduce(texto::kErrorZorvexSin));
        return;
    }
    const QString detalle =
        QString::number(entorno_.codigoEnvio) + u" - "_s + entorno_.mensajeEnvio;
    controles_.Poner(&EstadoControles::lbEstado, textos.Traduce(texto::kErrorZorvexCon, detalle));
    // A tick may come by here while the box is up. It does not tell it again, and the result stands
    // until the box has gone: no sale is sent below it.
    if (contandoError_) {
        return;
    }
    const QScopedValueRollback contando(contandoError_, true);
    entorno_.dialogos.MostrarMensaje(textos.Traduce(texto::kErrorDeZorvex), detalle);
    entorno_.ResultadoEnvio = envio::kBien;
}

void EstadoMonitor::ActualizarBotonesMonitor(bool habilitado) {
    const bool conectado = entorno_.supervision.Conectado();
    // While rows are being marked a door may come by here: only the marking can be ended then, also
    // when the device has gone meanwhile.
    const bool operaciones = habilitado && !marcando_;
    controles_.PonerBoton(BotonPie::Conectar, !conectado);
    controles_.PonerBoton(BotonPie::Desconectar, conectado);
    controles_.PonerBoton(BotonPie::Pago, entorno_.configuracio->BLOQUEARPAGOS == 0 && operaciones);
    controles_.PonerBoton(BotonPie::DarCambio, operaciones);
    controles_.PonerBoton(BotonPie::AnadirCambio, operaciones);
    controles_.PonerBoton(BotonPie::CobroManual, operaciones);
    controles_.PonerBoton(BotonPie::AgruparCobros, (ultimaCuenta_ >= 2 && habilitado) || marcando_);
    ActualizarAviso();
}

void EstadoMonitor::SeguirConfiguracion() {
    grid_.RecolocarColumnas(*entorno_.configuracio);
    ActualizarBotonesMonitor(entorno_.supervision.Conectado());
}

void EstadoMonitor::PonerAgrupando(bool agrupando) {
    agrupando_ = agrupando;
    marcando_ = agrupando;
    controles_.Poner(&EstadoControles::agrupando, agrupando);
    ActualizarAviso();
}

void EstadoMonitor::PonerMarcas(int cuantas, const std::optional<Currency>& suma) {
    const Textos& textos = entorno_.textos;
    LineaAviso aviso{LineaAviso::Tono::Agrupando, textos.Traduce(texto::kMarqueCobros), {}};
    if (cuantas > 0) {
        aviso.texto = textos.Traduce(texto::kMarcados) + QLatin1Char(' ') +
                      QString::number(cuantas) + u". "_s + textos.Traduce(texto::kPulseAgrupar);
        aviso.importe = suma ? textos.Traduce(texto::kSumaMarcados) + QLatin1Char(' ') +
                                   entorno_.importes.FormatoImporteLargo(*suma)
                             : textos.Traduce(texto::kSinSuma);
    }
    controles_.Poner(&EstadoControles::aviso, aviso);
}

LineaAviso::Tono EstadoMonitor::TonoAviso() const {
    if (agrupando_) {
        return LineaAviso::Tono::Agrupando;
    }
    if (entorno_.supervision.Conectado()) {
        return LineaAviso::Tono::Ninguno;
    }
    if (parada_) {
        return LineaAviso::Tono::Parada;
    }
    // While it is being connected the button is off.
    return controles_.Estado().boton[BotonPie::Conectar] ? LineaAviso::Tono::SinConexion
                                                         : LineaAviso::Tono::Ninguno;
}

void EstadoMonitor::ActualizarAviso() {
    controles_.Poner(&EstadoControles::puedeAnular, !agrupando_ && !parada_);
    controles_.Poner(&EstadoControles::puedeEnviar,
                     !agrupando_ && entorno_.supervision.Conectado());
    const LineaAviso::Tono tono = TonoAviso();
    // This is asked for at every tick: the texts are looked up when there is something new to say.
    if (tono == controles_.Estado().aviso.tono) {
        return;
    }
    if (tono == LineaAviso::Tono::Agrupando) {
        PonerMarcas(0, std::nullopt);
        return;
    }
    const Textos& textos = entorno_.textos;
    controles_.Poner(&EstadoControles::aviso, LineaAviso{tono,
                                                         tono == LineaAviso::Tono::Parada
                                                             ? textos.Traduce(texto::kColaParada)
                                                         : tono == LineaAviso::Tono::SinConexion
                                                             ? textos.Traduce(texto::kPulseConectar)
                                                             : QString(),
                                                         {}});
}

void EstadoMonitor::PulsarModo(int indice) {
    entorno_.ResultadoEnvio = envio::kBien;
    CambiarModo(entorno_.textos.Traduce(*texto::kModos[indice]));
    ActualizarEstado(false);
}

void EstadoMonitor::CambiarModo(const QString& nuevo) {
    Configuracio& configuracio = *entorno_.configuracio;
    configuracio.ModoAnterior = configuracio.Modo;
    configuracio.Modo = nuevo;
}

void EstadoMonitor::ActualizarPaginas() {
    controles_.Poner(&EstadoControles::btnArriba, grid_.Celdas().HayAnterior());
    controles_.Poner(&EstadoControles::btnAbajo, grid_.Celdas().HaySiguiente());
}

void EstadoMonitor::PaginaArriba() {
    grid_.Celdas().PaginaArriba();
    ActualizarEstado(true);
}

void EstadoMonitor::PaginaAbajo() {
    grid_.Celdas().PaginaAbajo();
    ActualizarEstado(true);
}

void EstadoMonitor::FilaArriba() {
    Desplazar(-1);
}

void EstadoMonitor::FilaAbajo() {
    Desplazar(1);
}

void EstadoMonitor::Desplazar(int filas) {
    Rejilla& celdas = grid_.Celdas();
    const int antes = celdas.FilaSuperior();
    celdas.PonerFilaSuperior(antes + filas);
    if (celdas.FilaSuperior() != antes) {
        ActualizarEstado(true);
    }
}

void EstadoMonitor::HabilitarConectar(bool habilitado) {
    controles_.PonerBoton(BotonPie::Conectar, habilitado);
    ActualizarAviso();
}

void EstadoMonitor::MostrarEspera(bool espera) {
    controles_.Poner(&EstadoControles::punteroEspera, espera);
    if (espera) {
        controles_.Pintar();
    }
}

void EstadoMonitor::MostrarLamparas(bool ok, bool alerta, bool critico) {
    controles_.Poner(&EstadoControles::ShapeOK, ok);
    controles_.Poner(&EstadoControles::ShapeAlert, alerta);
    controles_.Poner(&EstadoControles::ShapeCritico, critico);
}

} // namespace zv
