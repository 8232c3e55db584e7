// Operations, queries and sessions of the gateway client.
#include "device/ClientePasarela.h"

#include "platform/ErrorEjecucion.h"

#include <QScopeGuard>
#include <QUuid>

#include <cstdlib>
#include <limits>

namespace zv {

namespace {

QString NuevoOpId() {
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

// What is asked, without its sign; the one amount that has no counterpart is cut by a unit.
qint32 ImporteMostrado(qint32 importe) {
    return importe == std::numeric_limits<qint32>::min() ? std::numeric_limits<qint32>::max()
                                                         : std::abs(importe);
}

} // namespace

ClientePasarela::ClientePasarela(Log& log, const Textos& textos, VentanaOperacion* ventana,
                                 const OpcionesPasarela& opciones, FabricaSocket fabrica)
    : log_(log), textos_(textos), ventana_(ventana), opciones_(opciones),
      sesion_(std::move(fabrica)) {
    reposo_.setInterval(opciones_.pingReposo);
    QObject::connect(&reposo_, &QTimer::timeout, &reposo_, [this] { PingEnReposo(); });
}

ClientePasarela::~ClientePasarela() = default;

void ClientePasarela::FallarSinConexion() {
    Fallar(errorpasarela::kEnlacePerdido,
           Texto("pasarelaNoConectado", QStringLiteral("Zorvex no está conectado")));
}

QString ClientePasarela::Texto(const char* clave, const QString& porDefecto) const {
    return textos_.Traduce(QString::fromLatin1(clave), porDefecto);
}

void ClientePasarela::Fallar(qint16 codigo, const QString& mensaje) {
    errorCode_ = codigo;
    errorMessage_ = mensaje;
}

// ---- sessions

void ClientePasarela::Connect(bool& result) {
    result = false;
    if (ocupado_) {
        Fallar(errorpasarela::kEnCurso,
               Texto("pasarelaEnCurso", QStringLiteral("Zorvex está ocupado con otra operación")));
        return;
    }
    Disconnect();
    if (address_.trimmed().isEmpty()) {
        Fallar(errorpasarela::kEnlacePerdido,
               Texto("pasarelaSinDireccion",
                     QStringLiteral("Falta la dirección IP de Zorvex en la configuración")));
        return;
    }
    const std::optional<DireccionPasarela> direccion = LeerDireccion(address_);
    if (!direccion) {
        Fallar(
            errorpasarela::kEnlacePerdido,
            Texto("pasarelaDireccionMala", QStringLiteral("La dirección de Zorvex no es válida:")) +
                u' ' + address_);
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

void ClientePasarela::Disconnect() {
    if (ocupado_) {
        return;
    }
    reposo_.stop();
    conectado_ = false;
    sesion_.Cerrar();
}

// Blocks without the event loop. On failure the link is closed and ErrorCode is 1.
std::optional<Saludo> ClientePasarela::AbrirYSaludar(int milisegundos) {
    const QDeadlineTimer limite(milisegundos);
    const QString destino = direccion_.host + u':' + QString::number(direccion_.puerto);
    sesion_.Abrir(direccion_);
    if (!sesion_.EsperarConexion(limite)) {
        sesion_.Cerrar();
        Fallar(errorpasarela::kEnlacePerdido,
               Texto("pasarelaNoResponde", QStringLiteral("No se puede conectar con Zorvex en")) +
                   u' ' + destino);
        return std::nullopt;
    }
    const qint64 id = sesion_.Enviar(QStringLiteral("session.hello"), ParamsSaludo());
    const std::optional<MensajeRpc> respuesta = sesion_.EsperarRespuesta(id, limite);
    std::optional<Saludo> saludo;
    if (!respuesta) {
        Fallar(errorpasarela::kEnlacePerdido,
               Texto("pasarelaSinSaludo",
                     QStringLiteral("Zorvex no contesta al saludo de la sesión en")) +
                   u' ' + destino);
    } else if (respuesta->clase == MensajeRpc::Clase::Error) {
        Fallar(errorpasarela::kEnlacePerdido, respuesta->mensaje);
    } else {
        saludo = LeerSaludo(respuesta->resultado);
        if (!saludo) {
            Fallar(errorpasarela::kEnlacePerdido,
                   Texto("pasarelaProtocolo",
                         QStringLiteral("Zorvex ha dado una respuesta que no es válida")));
        }
    }
    if (saludo) {
        sesion_.PonerLista();
    } else {
        sesion_.Cerrar();
    }
    return saludo;
}

void ClientePasarela::TomarSaludo(const Saludo& saludo) {
    decimals_ = saludo.decimals;
    multiplier_ = saludo.multiplier;
}

// An operation that has ended and waits for its acknowledgement: it goes to the log, unless its
// amounts are known to the caller already.
void ClientePasarela::Reconocer(const EstadoOperacion& abierta) {
    if (abierta.opId != ultimaEntregada_) {
        log_.LogLinea(QStringLiteral(">>> Operación pendiente en Zorvex: ") + TextoEstado(abierta));
    }
    sesion_.Enviar(QStringLiteral("op.ack"), {{QStringLiteral("opId"), abierta.opId}});
}

// Leaves no open operation behind. False, with ErrorCode 1, when it would not end.
bool ClientePasarela::ResolverPendiente(const EstadoOperacion& abierta) {
    if (abierta.terminada) {
        Reconocer(abierta);
        return true;
    }
    OperacionPasarela operacion(sesion_, opciones_, EntornoOperacion());
    opIdActual_ = abierta.opId;
    operacion.Adoptar(abierta);
    const OperacionPasarela::Fin fin = Correr(operacion, ClaseOperacion::Pendiente, 0, false);
    if (fin.motivo == OperacionPasarela::Fin::Motivo::Terminada) {
        Reconocer(fin.estado);
        return true;
    }
    log_.LogLinea(QStringLiteral(">>> Operación pendiente en Zorvex: ") + TextoEstado(fin.estado));
    Fallar(errorpasarela::kEnlacePerdido,
           Texto("pasarelaPendiente",
                 QStringLiteral("Zorvex no termina una operación anterior que sigue abierta")));
    return false;
}

// The one attempt of a query on a link that was lost at rest. Runs no event loop, so an operation
// that is still running there is left to Connect.
bool ClientePasarela::Reabrir() {
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
        Reconocer(*saludo->openOp);
    }
    return true;
}

// A gateway may close a silent link after 15 s; and a peer that has died without a word is
// noticed before the next sale.
void ClientePasarela::PingEnReposo() {
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
    sesion_.Enviar(QStringLiteral("ping"));
}

// ---- long operations

OperacionPasarela::Entorno ClientePasarela::EntornoOperacion() {
    return {direccion_, storeId_,
            textos_.TextoForm(QStringLiteral("frmOperacion"), QStringLiteral("Reconectando"),
                              QStringLiteral("Recuperando la comunicación con Zorvex…")),
            [this](const Saludo& saludo) { SaludoEnMarcha(saludo); }};
}

// A greeting while an operation recovers its link. One that has ended before it and still waits for
// its acknowledgement would keep this one from starting.
void ClientePasarela::SaludoEnMarcha(const Saludo& saludo) {
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
OperacionPasarela::Fin ClientePasarela::Correr(OperacionPasarela& operacion, ClaseOperacion clase,
                                               qint32 importe, bool cancelable) {
    ocupado_ = true;
    // Also when the window or the log raises: a later operation must not find this one running.
    const auto libre = qScopeGuard([this] {
        ocupado_ = false;
        opIdActual_.clear();
    });
    if (ventana_ != nullptr) {
        std::function<void()> cancelar;
        if (cancelable) {
            cancelar = [&operacion] { operacion.Cancelar(); };
        }
        ventana_->Abrir(clase, importe, std::move(cancelar));
        operacion.MostrarEn(ventana_);
    }
    OperacionPasarela::Fin fin = operacion.Esperar();
    if (ventana_ != nullptr) {
        ventana_->Cerrar();
    }
    return fin;
}

EstadoOperacion ClientePasarela::Ejecutar(const QString& metodo, const QJsonObject& params,
                                          ClaseOperacion clase, qint32 importe, bool& result) {
    result = false;
    if (ocupado_) {
        Fallar(errorpasarela::kEnCurso,
               Texto("pasarelaEnCurso", QStringLiteral("Zorvex está ocupado con otra operación")));
        return {};
    }
    if (!conectado_) {
        FallarSinConexion();
        return {};
    }
    opIdActual_ = NuevoOpId();
    const QString opId = opIdActual_;
    OperacionPasarela operacion(sesion_, opciones_, EntornoOperacion());
    operacion.Iniciar(metodo, opId, params);
    const OperacionPasarela::Fin fin = Correr(operacion, clase, importe, true);
    TomarFin(fin);
    if (fin.motivo == OperacionPasarela::Fin::Motivo::Terminada) {
        // The answer is not waited for; an acknowledgement that is lost is repeated after the
        // next greeting.
        ultimaEntregada_ = opId;
        Reconocer(fin.estado);
        result = fin.estado.ok;
    }
    return fin.estado;
}

void ClientePasarela::TomarFin(const OperacionPasarela::Fin& fin) {
    using Motivo = OperacionPasarela::Fin::Motivo;
    const bool sigue = fin.motivo == Motivo::Terminada || fin.motivo == Motivo::Rechazada;
    if (!sigue) {
        // Whatever stands at the other end now, the next session begins with a greeting that
        // looks for it.
        conectado_ = false;
        reposo_.stop();
        sesion_.Cerrar();
    }
    switch (fin.motivo) {
    case Motivo::Terminada:
        Fallar(fin.estado.errorCode, fin.estado.errorMessage);
        break;
    case Motivo::Rechazada:
        Fallar(fin.codigo > errorpasarela::kEnlacePerdido ? fin.codigo : errorpasarela::kRechazada,
               fin.mensaje);
        break;
    case Motivo::EnlacePerdido:
        Fallar(errorpasarela::kEnlacePerdido,
               Texto("pasarelaEnlacePerdido",
                     QStringLiteral("Se ha perdido la comunicación con Zorvex")));
        break;
    case Motivo::OtroAlmacen:
        Fallar(errorpasarela::kEnlacePerdido,
               Texto("pasarelaOtroAlmacen",
                     QStringLiteral("Tras perder la comunicación ha contestado otro Zorvex")));
        break;
    case Motivo::Protocolo:
        Fallar(errorpasarela::kProtocolo,
               Texto("pasarelaProtocolo",
                     QStringLiteral("Zorvex ha dado una respuesta que no es válida")));
        break;
    case Motivo::Cerrando:
        Fallar(errorpasarela::kCerrando,
               Texto("pasarelaCerrando",
                     QStringLiteral("La aplicación se cierra con la operación en curso")));
        break;
    case Motivo::NoTermina:
        Fallar(errorpasarela::kNoTermina,
               Texto("pasarelaNoTermina",
                     QStringLiteral("Zorvex no ha terminado la operación cancelada")));
        break;
    }
}

void ClientePasarela::Change(qint32& paidIn, qint32& paidOut, bool& result) {
    const EstadoOperacion estado =
        Ejecutar(QStringLiteral("change.start"), {}, ClaseOperacion::Cambio, 0, result);
    paidIn = estado.paidIn;
    paidOut = estado.paidOut;
}

void ClientePasarela::AddChange(qint32& paidIn, bool& result) {
    paidIn = Ejecutar(QStringLiteral("addChange.start"), {}, ClaseOperacion::MeterCambio, 0, result)
                 .paidIn;
}

void ClientePasarela::Pay(qint32 valueInCents, qint32& paidOut, bool& result) {
    paidOut = Ejecutar(QStringLiteral("pay.start"), {{QStringLiteral("value"), valueInCents}},
                       ClaseOperacion::Pago, ImporteMostrado(valueInCents), result)
                  .paidOut;
}

void ClientePasarela::Charge(qint32 valueInCents, qint32& paidIn, qint32& paidOut, bool& result) {
    const EstadoOperacion estado =
        Ejecutar(QStringLiteral("charge.start"), {{QStringLiteral("value"), valueInCents}},
                 valueInCents < 0 ? ClaseOperacion::Abono : ClaseOperacion::Cobro,
                 ImporteMostrado(valueInCents), result);
    paidIn = estado.paidIn;
    paidOut = estado.paidOut;
}

void ClientePasarela::CashBoxControl(qint32 mode, qint32& coinsValueInCB, qint32& notesValueInCB,
                                     qint32& remainingChange, bool& result) {
    const EstadoOperacion estado = Ejecutar(
        QStringLiteral("cashBox.control"),
        {{QStringLiteral("mode"), mode}, {QStringLiteral("remainingChange"), remainingChange}},
        ClaseOperacion::ControlCajones, 0, result);
    coinsValueInCB = estado.coinsValueInCB;
    notesValueInCB = estado.notesValueInCB;
    // Untold, it stays as the caller has it.
    remainingChange = estado.remainingChange.value_or(remainingChange);
}

void ClientePasarela::EmptyCB(qint32 device, qint32& value, bool& result) {
    value = Ejecutar(QStringLiteral("box.empty"), {{QStringLiteral("device"), device}},
                     ClaseOperacion::VaciadoCajon, 0, result)
                .value;
}

// ---- queries

// Blocks for at most opciones.respuesta (and opciones.reapertura). Nothing, with ErrorCode set, on
// failure; on success ErrorCode is left alone.
std::optional<QJsonValue> ClientePasarela::Consultar(const QString& metodo,
                                                     const QJsonObject& params) {
    // While an operation recovers the link, the link is its business.
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
    const std::optional<MensajeRpc> respuesta =
        sesion_.EsperarRespuesta(id, QDeadlineTimer(opciones_.respuesta));
    if (!respuesta) {
        sesion_.Tirar(); // tells an operation that runs
        Fallar(errorpasarela::kEnlacePerdido,
               Texto("pasarelaEnlacePerdido",
                     QStringLiteral("Se ha perdido la comunicación con Zorvex")));
        return std::nullopt;
    }
    if (respuesta->clase == MensajeRpc::Clase::Error) {
        const QJsonValue dado = respuesta->datos.value(QLatin1String("errorCode"));
        const qint16 codigo = dado.isDouble() ? AjustarCodigo(dado.toDouble()) : qint16(0);
        Fallar(codigo > errorpasarela::kEnlacePerdido ? codigo : errorpasarela::kRechazada,
               respuesta->mensaje);
        return std::nullopt;
    }
    return respuesta->resultado;
}

void ClientePasarela::GetLevels(qint32 levelType, QString& noms, QString& levels, bool& result) {
    result = false;
    noms.clear();
    levels.clear();
    const std::optional<QJsonValue> valor =
        Consultar(QStringLiteral("levels.get"), {{QStringLiteral("type"), levelType}});
    if (!valor) {
        return;
    }
    const std::optional<NivelesPasarela> niveles = LeerNiveles(*valor);
    if (!niveles) {
        Fallar(errorpasarela::kProtocolo,
               Texto("pasarelaProtocolo",
                     QStringLiteral("Zorvex ha dado una respuesta que no es válida")));
        return;
    }
    noms = niveles->noms;
    levels = niveles->levels;
    result = true;
}

void ClientePasarela::Configuration(bool& result) {
    result = Consultar(QStringLiteral("device.configuration"), {}).has_value();
    if (result) {
        Bien();
    }
}

} // namespace zv
