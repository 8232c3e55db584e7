// One tick of the queue: look, refill, decide, send.
#include "engine/PulsoCola.h"

#include "config/Modo.h"
#include "engine/Claves.h"
#include "platform/StringLiterals.h"
#include "till/ResultadoEnvio.h"

namespace zv {

namespace {

const QString kClaveConector = u"Zorvex\\ZVConnector"_s;
const QString kValorActivo = u"Activo"_s;
const QString kCero = u"0"_s;
constexpr qint64 kPausaAvisoMs = 1000; // one line a second, or the log would fill the disk
constexpr qint16 kEnlacePerdido = 1;

} // namespace

PulsoCola::PulsoCola(Entorno& entorno, Controles& controles, GridCola& grid, EstadoMonitor& estado)
    : entorno_(entorno), controles_(controles), grid_(grid), estado_(estado), envio_(entorno) {}

void PulsoCola::ParaTimer() {
    controles_.Poner(&EstadoControles::timerCola, false);
    controles_.Poner(&EstadoControles::framePie, false);
    controles_.Poner(&EstadoControles::grdZV, false);
    if (entorno_.configuracio->BOTONACCESO == 1) {
        controles_.Poner(&EstadoControles::botonAccesoEncima, false);
    }
}

void PulsoCola::ArrancaTimer() {
    controles_.Poner(&EstadoControles::timerCola, true);
    controles_.Poner(&EstadoControles::framePie, true);
    controles_.Poner(&EstadoControles::grdZV, true);
    if (entorno_.configuracio->BOTONACCESO == 1) {
        controles_.Poner(&EstadoControles::botonAccesoEncima, true);
    }
}

bool PulsoCola::ConectorActivo() {
    const QString activo = entorno_.registro.LeerValor(kClaveConector, kValorActivo, kCero);
    // "0" is the common case; anything else is compared by its number, as "01" is 1 too.
    if (activo == kCero) {
        return false;
    }
    bool numero = false;
    if (activo.trimmed().toDouble(&numero) != 1.0 || !numero) {
        return false;
    }
    const qint64 ahora = entorno_.reloj.Ticks();
    if (!ultimoAvisoConector_ || ahora - *ultimoAvisoConector_ >= kPausaAvisoMs) {
        ultimoAvisoConector_ = ahora;
        entorno_.log.LogLinea(u"TIMER_COLA_ZVCONNECTOR_ACTIVO"_s);
    }
    return true;
}

void PulsoCola::ProcesarCola() {
    if (ConectorActivo()) {
        return;
    }
    ParaTimer();
    if (entorno_.conexion.ConectarBD()) {
        if (DetectarCambiosCola()) {
            ReflejarCambios();
        }
        if (PuedeEnviar()) {
            EnviarPrimera();
        }
    }
    ArrancaTimer();
    estado_.ActualizarBotonesMonitor(entorno_.supervision.Conectado());
}

void PulsoCola::ReflejarCambios() {
    estado_.RellenarGrid();
    estado_.ActualizarEstado(true);

    const int n = grid_.FilasDatos();
    const QString& actual = entorno_.configuracio->Modo;
    const bool minimizada = ventana_->WindowState() == ventana::kMinimizada;
    if (minimizada && n >= 1 && (actual == modo::kManual || (actual == modo::kSemi && n >= 2))) {
        RestaurarVentana();
    } else if (entorno_.configuracio->MINIMIZADO == 1 && n == 0 && !minimizada) {
        ventana_->PonerWindowState(ventana::kMinimizada);
    }
}

bool PulsoCola::PuedeEnviar() const {
    const QString& actual = entorno_.configuracio->Modo;
    return entorno_.ResultadoEnvio == envio::kBien && entorno_.supervision.Conectado() &&
           (actual == modo::kAuto || (actual == modo::kSemi && grid_.FilasDatos() == 1));
}

bool PulsoCola::DetectarCambiosCola() {
    if (!entorno_.conexion.ConectarBD()) {
        return false;
    }
    // The mark is taken before the look, so that a row written in between shows at the next one.
    const quint64 marca = entorno_.Database().ChangeStamp();
    if (marcaMirada_ == marca) {
        return false;
    }
    const std::vector<Row> filas = entorno_.Database().Consultar(
        u"SELECT Max(idZV) AS id,Count(idZv) AS cnt,Sum(Importe) as Importe FROM cola"_s);
    qint32 id = 0;
    qint32 cuenta = 0;
    Currency suma;
    bool idNulo = true;
    bool sumaNula = true;
    if (!filas.empty()) {
        const Row& fila = filas.front();
        idNulo = fila.EsNulo(0);
        sumaNula = fila.EsNulo(2);
        id = fila.LeerLong(0);
        cuenta = fila.LeerLong(1);
        suma = fila.LeerCurrency(2);
    }
    // A comparison with Null is no difference; without any row the three count as 0.
    const bool sinFila = filas.empty();
    bool cambio = (sinFila || !idNulo) && id != ultimoId_;
    cambio = cuenta != estado_.UltimaCuenta() || cambio;
    cambio = ((sinFila || !sumaNula) && suma != ultimaSuma_) || cambio;
    ultimoId_ = id;
    estado_.PonerUltimaCuenta(cuenta);
    ultimaSuma_ = suma;
    marcaMirada_ = marca;
    return cambio;
}

void PulsoCola::EnviarPrimera() {
    // The mark of this tick's look: nothing has been written by this program since.
    if (marcaSinFila_ == marcaMirada_) {
        return;
    }
    const std::vector<Row> filas =
        entorno_.Database().Consultar(u"SELECT TOP 1 * FROM cola WHERE NOT manual ORDER BY idZv"_s);
    if (filas.empty()) {
        marcaSinFila_ = marcaMirada_;
        return;
    }
    const qint32 idZV = filas.front().LeerLong(u"idZV"_s);
    const Currency importe = filas.front().LeerCurrency(u"importe"_s);
    entorno_.marca.MarcarActivo(true);
    if (importe < Currency(0) && !ConfirmarAbono(importe)) {
        RestaurarVentana();
        entorno_.ResultadoEnvio = envio::kCancelado;
        estado_.CambiarModo(modo::kManual);
        estado_.ActualizarEstado(true);
    } else {
        EnviarYRefrescar(idZV);
    }
    entorno_.marca.MarcarActivo(false);
}

bool PulsoCola::ConfirmarAbono(Currency importe) {
    const auto t = [this](const Clave& clave) { return entorno_.textos.Traduce(clave); };
    const QString salto = u"\r\n"_s;
    const QString texto = t(texto::kRetireElCambio) + salto + t(texto::kRetireElCambio2) + salto +
                          salto + t(texto::kRetireElCambio3) + salto + salto +
                          t(texto::kImporteDosPuntos) +
                          entorno_.importes.FormatoImporte(importe.Absoluto());
    return entorno_.dialogos.MostrarMensaje(t(texto::kAbonoPendiente), texto) == Respuesta::Aceptar;
}

void PulsoCola::EnviarYRefrescar(qint32 idZV) {
    if (EnviarConReconexion(idZV)) {
        estado_.RellenarGrid();
        estado_.ActualizarEstado(true);
    }
}

bool PulsoCola::EnviarConReconexion(qint32 idZV) {
    for (;;) {
        if (!entorno_.supervision.Conectado()) {
            entorno_.supervision.MostrarNivel();
            entorno_.supervision.GuardarSaldoExit();
            return false;
        }
        estado_.ActualizarBotonesMonitor(false);
        DeshacerAbandonadas();
        entorno_.ResultadoEnvio = envio_.EnviarOperacion(u"ENVIARCOLA"_s, entorno_.cliente, idZV);
        const qint16 codigo = entorno_.cliente.ErrorCode();
        if (codigo != kEnlacePerdido || entorno_.ResultadoEnvio != envio::kError) {
            break;
        }
        if (!entorno_.supervision.IntentarReconnectar()) {
            break;
        }
    }
    if (entorno_.ResultadoEnvio != envio::kBien) {
        if (entorno_.configuracio->Modo != modo::kManual) {
            estado_.CambiarModo(modo::kManual);
        }
        if (ventana_->WindowState() != ventana::kMaximizada) {
            RestaurarVentana();
        }
    }
    estado_.ActualizarEstado(true);
    estado_.ActualizarBotonesMonitor(entorno_.supervision.Conectado());
    entorno_.supervision.MostrarNivel();
    entorno_.supervision.GuardarSaldoExit();
    return true;
}

// A send that failed inside its transaction leaves it open. The next one would nest in it, and its
// books would go with it at the end of the process.
void PulsoCola::DeshacerAbandonadas() {
    while (entorno_.Database().Nivel() > 0) {
        entorno_.Database().Deshacer();
        entorno_.log.LogLinea(u">>> Transacción abandonada: deshecha"_s);
    }
}

void PulsoCola::RestaurarVentana() {
    if (ventana_->WindowState() != ventana::kMinimizada) {
        return;
    }
    ventana_->PonerWindowState(ventana::kMaximizada);
    ventana_->TraerAlFrente();
    if (entorno_.configuracio->BOTONACCESO == 1) {
        controles_.Poner(&EstadoControles::botonAccesoEncima, true);
    }
}

} // namespace zv
