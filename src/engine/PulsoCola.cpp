#include "engine/PulsoCola.h"

#include "config/Modo.h"
#include "engine/Claves.h"
#include "platform/RegistryNames.h"
#include "platform/StringLiterals.h"
#include "store/Tablas.h"
#include "till/ResultadoEnvio.h"

#include <algorithm>
#include <limits>

namespace zv {

namespace {

const QString kCero = u"0"_s;
constexpr qint64 kPausaAvisoMs = 1000; // one line a second, or the log would fill the disk

} // namespace

PulsoCola::PulsoCola(Entorno& entorno, Controles& controles, GridCola& grid, EstadoMonitor& estado)
    : entorno_(entorno), controles_(controles), grid_(grid), estado_(estado), envio_(entorno),
      conectorActivo_(entorno.registry, registry_name::kConectorActivo, kCero) {}

void PulsoCola::ParaTimer() {
    estado_.PonerParada(false);
    controles_.Poner(&EstadoControles::timerCola, false);
    controles_.Poner(&EstadoControles::framePie, false);
    controles_.Poner(&EstadoControles::grdZV, false);
    if (entorno_.configuracio->BOTONACCESO == 1) {
        controles_.Poner(&EstadoControles::botonAccesoEncima, false);
    }
}

void PulsoCola::ArrancaTimer() {
    estado_.PonerParada(false);
    // For as long as rows are being marked cola is not looked at and nothing is sent, whatever
    // screen the operator comes back from.
    controles_.Poner(&EstadoControles::timerCola, !estado_.Agrupando());
    controles_.Poner(&EstadoControles::framePie, true);
    controles_.Poner(&EstadoControles::grdZV, true);
    if (entorno_.configuracio->BOTONACCESO == 1) {
        controles_.Poner(&EstadoControles::botonAccesoEncima, true);
    }
}

bool PulsoCola::ConectorActivo() {
    const QString& activo = conectorActivo_.Leer();
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
    // A level that stands open now holds the lock against the point of sale.
    entorno_.transacciones.Saldar();
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
    const Mirada mirada = MirarCola();
    // A comparison with Null is no difference; without any row the three count as 0. A sum that
    // cannot be told may be any other.
    bool cambio = (mirada.sinFila || mirada.id) && mirada.id.value_or(0) != ultimoId_;
    cambio = mirada.cuenta != estado_.UltimaCuenta() || cambio;
    cambio = mirada.sumaIlegible ||
             ((mirada.sinFila || mirada.suma) && mirada.suma.value_or(0) != ultimaSuma_) || cambio;
    ultimoId_ = mirada.id.value_or(0);
    estado_.PonerUltimaCuenta(mirada.cuenta);
    ultimaSuma_ = mirada.suma.value_or(0);
    marcaMirada_ = marca;
    return cambio;
}

PulsoCola::Mirada PulsoCola::MirarCola() {
    const auto consultar = [this](const QString& sql) {
        const std::vector<Row> filas = entorno_.Database().Consultar(sql);
        return filas.empty() ? std::nullopt : std::optional<Row>(filas.front());
    };
    Mirada mirada;
    std::optional<Row> fila;
    try {
        fila = consultar(
            u"SELECT Max(idZV) AS id,Count(idZv) AS cnt,Sum(Importe) as Importe FROM cola"_s);
        if (fila && !fila->EsNulo(2)) {
            mirada.suma = fila->LeerCurrency(2);
        }
    } catch (const ErrorEjecucion&) {
        // Each row fits, but not their sum. Anything else that ails the table fails again here.
        fila = consultar(u"SELECT Max(idZV) AS id,Count(idZv) AS cnt FROM cola"_s);
        mirada.sumaIlegible = true;
    }
    if (fila) {
        mirada.sinFila = false;
        if (!fila->EsNulo(0)) {
            mirada.id = fila->Valor(0).toLongLong();
        }
        mirada.cuenta = fila->LeerLong(1);
    }
    return mirada;
}

void PulsoCola::EnviarPrimera() {
    // The mark of this tick's look: nothing has been written by this program since.
    if (marcaSinFila_ == marcaMirada_) {
        return;
    }
    // A table that another program has made may hold Null for a row that is not manual.
    const std::vector<Row> filas = entorno_.Database().Consultar(
        u"SELECT TOP 1 * FROM cola WHERE manual IS NULL OR NOT manual ORDER BY idZv"_s);
    if (filas.empty()) {
        marcaSinFila_ = marcaMirada_;
        return;
    }
    const Row& fila = filas.front();
    qint32 idZV = 0;
    try {
        idZV = fila.LeerLong(columna::kIdZV);
    } catch (const ErrorEjecucion& e) {
        FallarSinEnviar(e);
        return;
    }
    const std::optional<QString> abono = AbonoDe(fila);
    entorno_.marca.MarcarActivo(true);
    if (abono && !ConfirmarAbono(*abono)) {
        RestaurarVentana();
        entorno_.ResultadoEnvio = envio::kCancelado;
        estado_.CambiarModo(modo::kManual);
        estado_.ActualizarEstado(true);
    } else {
        EnviarYRefrescar(idZV);
    }
    entorno_.marca.MarcarActivo(false);
}

// A row that cannot even be named fails like any other send: the till goes on in "MANUAL".
void PulsoCola::FallarSinEnviar(const ErrorEjecucion& e) {
    entorno_.ResultadoEnvio = envio::kError;
    entorno_.codigoEnvio = 0;
    estado_.CambiarModo(modo::kManual);
    try {
        entorno_.log.LogLinea(u">>> Error nº "_s + QString::number(e.Numero()) +
                              u" al leer la cola - "_s + e.Descripcion());
    } catch (const ErrorEjecucion&) {
        // The log itself has failed; the operator is told all the same.
        entorno_.ResultadoEnvio = envio::kError;
    }
    RestaurarVentana();
    estado_.ActualizarEstado(true);
}

std::optional<QString> PulsoCola::AbonoDe(const Row& fila) const {
    const int campo = fila.Indice(columna::kImporte);
    Currency importe;
    try {
        importe = fila.LeerCurrency(campo);
    } catch (const ErrorEjecucion&) {
        // The send fails on it; until then the operator reads what stands in the table.
        const double valor = fila.Valor(campo).toDouble();
        return valor < 0 ? std::optional(fila.Valor(campo).toString()) : std::nullopt;
    }
    if (importe >= Currency(0)) {
        return std::nullopt;
    }
    // The lowest amount has no opposite; one ten-thousandth less reads the same.
    const Currency opuesto = Currency::DeDiezmilesimas(
        -std::max(importe.Diezmilesimas(), -std::numeric_limits<qint64>::max()));
    try {
        // Rounded as the device will get it.
        return entorno_.importes.FormatoImporte(opuesto.AEntero32());
    } catch (const ErrorEjecucion&) {
        // Too large for the device: the send fails, and the operator is told what was asked.
        return entorno_.importes.FormatoImporteLargo(opuesto);
    }
}

bool PulsoCola::ConfirmarAbono(const QString& mostrado) {
    const auto t = [this](const Clave& clave) { return entorno_.textos.Traduce(clave); };
    const QString salto = u"\r\n"_s;
    const QString texto = t(texto::kRetireElCambio) + salto + t(texto::kRetireElCambio2) + salto +
                          salto + t(texto::kRetireElCambio3) + salto + salto +
                          t(texto::kImporteDosPuntos) + mostrado;
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
        entorno_.transacciones.Saldar();
        entorno_.ResultadoEnvio = envio_.EnviarOperacion(u"ENVIARCOLA"_s, entorno_.cliente, idZV);
        // What it may have left open must not outlast the dialogs that follow.
        entorno_.transacciones.Saldar();
        if (entorno_.codigoEnvio != envio::kEnlacePerdido ||
            entorno_.ResultadoEnvio != envio::kError) {
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

void PulsoCola::DejarParado() {
    // No tick will come to do it.
    entorno_.transacciones.Saldar();
    estado_.PonerParada(true);
}

bool PulsoCola::NadieTrabaja() const {
    const bool marcando = estado_.Marcando() && controles_.Estado().framePie;
    return Armado() || estado_.Parada() || marcando;
}

void PulsoCola::SaldarAbandonadas() {
    if (NadieTrabaja()) {
        entorno_.transacciones.Saldar();
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
