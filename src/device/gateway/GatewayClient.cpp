#include "device/gateway/GatewayClient.h"

#include "device/Claves.h"
#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"

#include <QScopeGuard>
#include <QUuid>

#include <cstdlib>
#include <limits>

namespace zv {

namespace {

QString NuevoOpId() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

// What is asked, without its sign. The lowest amount has no opposite: it is shown as one unit less.
qint32 ImporteMostrado(qint32 importe) {
    return importe == std::numeric_limits<qint32>::min() ? std::numeric_limits<qint32>::max()
                                                         : std::abs(importe);
}

// What ErrorCode says of an end.
qint16 CodigoDe(const GatewayOperation::Fin& fin) {
    using Motivo = GatewayOperation::Fin::Motivo;
    switch (fin.motivo) {
    case Motivo::Terminada:
        return fin.estado.errorCode;
    case Motivo::Rechazada:
        return fin.codigo > errorpasarela::kEnlacePerdido ? fin.codigo : errorpasarela::kRechazada;
    case Motivo::EnlacePerdido:
    case Motivo::OtroAlmacen:
        return errorpasarela::kEnlacePerdido;
    case Motivo::Protocolo:
        return errorpasarela::kProtocolo;
    case Motivo::Cerrando:
        return errorpasarela::kCerrando;
    case Motivo::NoTermina:
        return errorpasarela::kNoTermina;
    }
    return errorpasarela::kProtocolo;
}

} // namespace

GatewayClient::GatewayClient(Log& log, const Textos& textos, VentanaOperacion* ventana,
                             const GatewayOptions& opciones, FabricaSocket fabrica)
    : log_(log), textos_(textos), ventana_(ventana), opciones_(opciones),
      sesion_(std::move(fabrica)) {
    reposo_.setInterval(opciones_.pingReposo);
    QObject::connect(&reposo_, &QTimer::timeout, &reposo_, [this] { PingEnReposo(); });
}

GatewayClient::~GatewayClient() = default;

void GatewayClient::FallarSinConexion() {
    Fallar(errorpasarela::kEnlacePerdido, texto::kPasarelaNoConectado);
}

void GatewayClient::Fallar(qint16 codigo, const Clave& mensaje) {
    Fallar(codigo, textos_.Traduce(mensaje));
}

void GatewayClient::Fallar(qint16 codigo, const QString& mensaje) {
    errorCode_ = codigo;
    errorMessage_ = mensaje;
}

// ---- sessions

void GatewayClient::Connect(bool& result) {
    result = false;
    if (ocupado_) {
        Fallar(errorpasarela::kEnCurso, texto::kPasarelaEnCurso);
        return;
    }
    Disconnect();
    if (address_.trimmed().isEmpty()) {
        Fallar(errorpasarela::kEnlacePerdido, texto::kPasarelaSinDireccion);
        return;
    }
    const std::optional<GatewayAddress> direccion = LeerDireccion(address_);
    if (!direccion) {
        Fallar(errorpasarela::kEnlacePerdido,
               textos_.Traduce(texto::kPasarelaDireccionMala) + u' ' + address_);
        return;
    }
    direccion_ = *direccion;
    const std::optional<Saludo> saludo = AbrirYSaludar(opciones_.conexion);
    if (!saludo) {
        return;
    }
    storeId_ = saludo->storeId;
    TomarSaludo(*saludo);
    if (saludo->openOp && !ResolverPendiente(*saludo->openOp)) {
        sesion_.Cerrar();
        return;
    }
    conectado_ = true;
    reposo_.start();
    Bien();
    result = true;
}

void GatewayClient::Disconnect() {
    if (ocupado_) {
        return;
    }
    reposo_.stop();
    conectado_ = false;
    sesion_.Cerrar();
}

// Blocks without the event loop. On failure the link is closed and ErrorCode is 1.
std::optional<Saludo> GatewayClient::AbrirYSaludar(int milisegundos) {
    const QDeadlineTimer limite(milisegundos);
    const QString destino = direccion_.host + u':' + QString::number(direccion_.puerto);
    sesion_.Abrir(direccion_);
    if (!sesion_.EsperarConexion(limite)) {
        sesion_.Cerrar();
        Fallar(errorpasarela::kEnlacePerdido,
               textos_.Traduce(texto::kPasarelaNoResponde) + u' ' + destino);
        return std::nullopt;
    }
    const qint64 id = sesion_.Enviar(u"session.hello"_s, ParamsSaludo());
    const std::optional<RpcMessage> respuesta = sesion_.EsperarRespuesta(id, limite);
    std::optional<Saludo> saludo;
    if (!respuesta) {
        Fallar(errorpasarela::kEnlacePerdido,
               textos_.Traduce(texto::kPasarelaSinSaludo) + u' ' + destino);
    } else if (respuesta->kind == RpcMessage::Kind::Error) {
        Fallar(errorpasarela::kEnlacePerdido, respuesta->mensaje);
    } else {
        saludo = LeerSaludo(respuesta->resultado);
        if (!saludo) {
            Fallar(errorpasarela::kEnlacePerdido, texto::kPasarelaProtocolo);
        }
    }
    if (saludo) {
        sesion_.PonerLista();
    } else {
        sesion_.Cerrar();
    }
    return saludo;
}

void GatewayClient::TomarSaludo(const Saludo& saludo) {
    decimals_ = saludo.decimals;
    multiplier_ = saludo.multiplier;
}

// An operation that has ended and waits for its acknowledgement: it goes to the log, unless its
// amounts are known to the caller already.
void GatewayClient::Reconocer(const EstadoOperacion& abierta) {
    if (abierta.opId != ultimaEntregada_) {
        log_.LogLinea(u">>> Operación pendiente en Zorvex: "_s + TextoEstado(abierta));
    }
    sesion_.Enviar(u"op.ack"_s, {{u"opId"_s, abierta.opId}});
}

// Leaves no open operation behind. False, with ErrorCode 1, when it would not end.
bool GatewayClient::ResolverPendiente(const EstadoOperacion& abierta) {
    if (abierta.terminada) {
        Reconocer(abierta);
        return true;
    }
    GatewayOperation operacion(sesion_, opciones_, EntornoOperacion());
    opIdActual_ = abierta.opId;
    operacion.Adoptar(abierta);
    const GatewayOperation::Fin fin = Correr(operacion, OperationKind::Pendiente, 0, false);
    if (fin.motivo == GatewayOperation::Fin::Motivo::Terminada) {
        Reconocer(fin.estado);
        return true;
    }
    log_.LogLinea(u">>> Operación pendiente en Zorvex: "_s + TextoEstado(fin.estado));
    Fallar(errorpasarela::kEnlacePerdido, texto::kPasarelaPendiente);
    return false;
}

// Opens again, once, a link that was lost while nothing ran. It runs no event loop and so cannot
// wait for an operation that still runs at the other end: that is left to Connect.
bool GatewayClient::Reabrir() {
    if (reapertura_.isValid() && reapertura_.elapsed() < opciones_.pausaReapertura) {
        return false;
    }
    const std::optional<Saludo> saludo = AbrirYSaludar(opciones_.reapertura);
    const bool bien =
        saludo && saludo->storeId == storeId_ && (!saludo->openOp || saludo->openOp->terminada);
    if (!bien) {
        sesion_.Cerrar();
        reapertura_.start();
        return false;
    }
    TomarSaludo(*saludo);
    if (saludo->openOp) {
        // Without its log line it is not acknowledged; the next greeting has to tell of it again.
        auto sinRegistrar = qScopeGuard([this] { sesion_.Cerrar(); });
        Reconocer(*saludo->openOp);
        sinRegistrar.dismiss();
    }
    return true;
}

// A gateway may close a silent link after 15 s; and a peer that has died without a word is
// noticed before the next sale.
void GatewayClient::PingEnReposo() {
    if (ocupado_ || !sesion_.Lista()) {
        return;
    }
    if (sesion_.MsSinOir() >= opciones_.silencio) {
        sesion_.Drenar();
        if (sesion_.MsSinOir() >= opciones_.silencio) {
            sesion_.Cerrar();
            return;
        }
    }
    sesion_.Enviar(u"ping"_s);
}

// ---- long operations

GatewayOperation::Entorno GatewayClient::EntornoOperacion() {
    return {direccion_, storeId_, textos_.Traduce(texto::kReconectando),
            [this](const Saludo& saludo) { SaludoEnMarcha(saludo); }};
}

// A greeting while an operation recovers its link. One that has ended before it and still waits for
// its acknowledgement would keep this one from starting.
void GatewayClient::SaludoEnMarcha(const Saludo& saludo) {
    TomarSaludo(saludo);
    if (!saludo.openOp || saludo.openOp->opId == opIdActual_ || !saludo.openOp->terminada) {
        return;
    }
    try {
        Reconocer(*saludo.openOp);
    } catch (const ErrorEjecucion&) {
        // No failure may leave through the event loop. Without its log line it has not been
        // acknowledged either, so the next greeting tells of it again.
        return;
    }
}

// The window comes after the start has gone out: the device need not wait for it.
GatewayOperation::Fin GatewayClient::Correr(GatewayOperation& operacion, OperationKind kind,
                                            qint32 importe, bool cancelable) {
    ocupado_ = true;
    // Also when the window or the log raises: a later operation must not find this one running.
    const auto libre = qScopeGuard([this] {
        ocupado_ = false;
        opIdActual_.clear();
    });
    if (ventana_ != nullptr) {
        std::function<void()> cancelar;
        std::function<void()> terminar;
        if (cancelable) {
            cancelar = [&operacion] { operacion.Cancelar(); };
        }
        // The others end by themselves.
        if (kind == OperationKind::Cambio || kind == OperationKind::MeterCambio) {
            terminar = [&operacion] { operacion.Terminar(); };
        }
        ventana_->Abrir(kind, importe, std::move(cancelar), std::move(terminar));
        operacion.MostrarEn(ventana_);
    }
    GatewayOperation::Fin fin = operacion.Esperar();
    if (kind != OperationKind::Pendiente) { // that one has a line of its own
        Anotar(fin);
    }
    if (ventana_ != nullptr) {
        ventana_->Cerrar();
    }
    return fin;
}

EstadoOperacion GatewayClient::Ejecutar(const QString& metodo, const QJsonObject& params,
                                        OperationKind kind, qint32 importe, bool& result) {
    result = false;
    if (ocupado_) {
        Fallar(errorpasarela::kEnCurso, texto::kPasarelaEnCurso);
        return {};
    }
    if (!conectado_) {
        FallarSinConexion();
        return {};
    }
    opIdActual_ = NuevoOpId();
    const QString opId = opIdActual_;
    GatewayOperation operacion(sesion_, opciones_, EntornoOperacion());
    operacion.Iniciar(metodo, opId, params);
    const GatewayOperation::Fin fin = Correr(operacion, kind, importe, true);
    TomarFin(fin);
    if (fin.motivo == GatewayOperation::Fin::Motivo::Terminada) {
        // The answer is not waited for; an acknowledgement that is lost is repeated after the
        // next greeting.
        ultimaEntregada_ = opId;
        Reconocer(fin.estado);
        result = fin.estado.ok;
    }
    return fin.estado;
}

// The amounts must outlive whatever fails from here on: the window, the caller, its books.
void GatewayClient::Anotar(const GatewayOperation::Fin& fin) {
    EstadoOperacion estado = fin.estado;
    // Without an end of its own: the last amounts known, with the reason why no more will come.
    estado.terminada = true;
    estado.errorCode = CodigoDe(fin);
    estado.errorMessage = MensajeDe(fin);
    using Motivo = GatewayOperation::Fin::Motivo;
    const bool acabada = fin.motivo == Motivo::Terminada || fin.motivo == Motivo::Rechazada;
    try {
        log_.LogLinea((acabada ? u">>> Operación terminada en Zorvex: "_s
                               : u">>> Operación interrumpida en Zorvex: "_s) +
                      TextoEstado(estado));
    } catch (const ErrorEjecucion&) {
        // Money has moved: what came of it goes to the caller all the same.
        return;
    }
}

void GatewayClient::TomarFin(const GatewayOperation::Fin& fin) {
    using Motivo = GatewayOperation::Fin::Motivo;
    const bool sigue = fin.motivo == Motivo::Terminada || fin.motivo == Motivo::Rechazada;
    if (!sigue) {
        // Whatever stands at the other end now, the next session begins with a greeting that
        // looks for it.
        conectado_ = false;
        reposo_.stop();
        sesion_.Cerrar();
    }
    Fallar(CodigoDe(fin), MensajeDe(fin));
}

QString GatewayClient::MensajeDe(const GatewayOperation::Fin& fin) const {
    using Motivo = GatewayOperation::Fin::Motivo;
    switch (fin.motivo) {
    case Motivo::Terminada:
        return fin.estado.errorMessage;
    case Motivo::Rechazada:
        return fin.mensaje;
    case Motivo::EnlacePerdido:
        return textos_.Traduce(texto::kPasarelaEnlacePerdido);
    case Motivo::OtroAlmacen:
        return textos_.Traduce(texto::kPasarelaOtroAlmacen);
    case Motivo::Protocolo:
        return textos_.Traduce(texto::kPasarelaProtocolo);
    case Motivo::Cerrando:
        return textos_.Traduce(texto::kPasarelaCerrando);
    case Motivo::NoTermina:
        return textos_.Traduce(texto::kPasarelaNoTermina);
    }
    return {};
}

void GatewayClient::Change(qint32& paidIn, qint32& paidOut, bool& result) {
    const EstadoOperacion estado =
        Ejecutar(u"change.start"_s, {}, OperationKind::Cambio, 0, result);
    paidIn = estado.paidIn;
    paidOut = estado.paidOut;
}

void GatewayClient::AddChange(qint32& paidIn, bool& result) {
    paidIn = Ejecutar(u"addChange.start"_s, {}, OperationKind::MeterCambio, 0, result).paidIn;
}

void GatewayClient::Pay(qint32 valueInCents, qint32& paidOut, bool& result) {
    paidOut = Ejecutar(u"pay.start"_s, {{u"value"_s, valueInCents}}, OperationKind::Pago,
                       ImporteMostrado(valueInCents), result)
                  .paidOut;
}

void GatewayClient::Charge(qint32 valueInCents, qint32& paidIn, qint32& paidOut, bool& result) {
    const EstadoOperacion estado =
        Ejecutar(u"charge.start"_s, {{u"value"_s, valueInCents}},
                 valueInCents < 0 ? OperationKind::Abono : OperationKind::Cobro,
                 ImporteMostrado(valueInCents), result);
    paidIn = estado.paidIn;
    paidOut = estado.paidOut;
}

void GatewayClient::CashBoxControl(qint32 mode, qint32& coinsValueInCB, qint32& notesValueInCB,
                                   qint32& remainingChange, bool& result) {
    const EstadoOperacion estado =
        Ejecutar(u"cashBox.control"_s, {{u"mode"_s, mode}, {u"remainingChange"_s, remainingChange}},
                 OperationKind::ControlCajones, 0, result);
    coinsValueInCB = estado.coinsValueInCB;
    notesValueInCB = estado.notesValueInCB;
    // Untold, it stays as the caller has it.
    remainingChange = estado.remainingChange.value_or(remainingChange);
}

void GatewayClient::EmptyCB(qint32 device, qint32& value, bool& result) {
    value =
        Ejecutar(u"box.empty"_s, {{u"device"_s, device}}, OperationKind::VaciadoCajon, 0, result)
            .value;
}

// ---- queries

// Blocks for at most opciones.respuesta (and opciones.reapertura). Nothing, with ErrorCode set, on
// failure; on success ErrorCode is left alone.
std::optional<QJsonValue> GatewayClient::Consultar(const QString& metodo,
                                                   const QJsonObject& params) {
    // While an operation recovers the link (ocupado_), nobody else opens it.
    if (!conectado_ && errorCode_ > errorpasarela::kEnlacePerdido) {
        // The operation that gave the link up has said why. Code 1 in its place would have the
        // caller send it again.
        return std::nullopt;
    }
    if (!conectado_ || (!sesion_.Lista() && (ocupado_ || !Reabrir()))) {
        FallarSinConexion();
        return std::nullopt;
    }
    const qint64 id = sesion_.Enviar(metodo, params);
    const std::optional<RpcMessage> respuesta =
        sesion_.EsperarRespuesta(id, QDeadlineTimer(opciones_.respuesta));
    if (!respuesta) {
        sesion_.Tirar(); // tells an operation that runs
        Fallar(errorpasarela::kEnlacePerdido, texto::kPasarelaEnlacePerdido);
        return std::nullopt;
    }
    if (respuesta->kind == RpcMessage::Kind::Error) {
        const QJsonValue dado = respuesta->datos.value(QLatin1String("errorCode"));
        const qint16 codigo = dado.isDouble() ? AjustarCodigo(dado.toDouble()) : qint16(0);
        Fallar(codigo > errorpasarela::kEnlacePerdido ? codigo : errorpasarela::kRechazada,
               respuesta->mensaje);
        return std::nullopt;
    }
    return respuesta->resultado;
}

void GatewayClient::GetLevels(qint32 levelType, QString& noms, QString& levels, bool& result) {
    result = false;
    noms.clear();
    levels.clear();
    const std::optional<QJsonValue> valor = Consultar(u"levels.get"_s, {{u"type"_s, levelType}});
    if (!valor) {
        return;
    }
    const std::optional<GatewayLevels> niveles = LeerNiveles(*valor);
    if (!niveles) {
        Fallar(errorpasarela::kProtocolo, texto::kPasarelaProtocolo);
        return;
    }
    noms = niveles->noms;
    levels = niveles->levels;
    result = true;
}

void GatewayClient::Configuration(bool& result) {
    result = Consultar(u"device.configuration"_s, {}).has_value();
    if (result) {
        Bien();
    }
}

} // namespace zv
