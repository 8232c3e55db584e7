#include "device/gateway/GatewayOperation.h"

#include "platform/StringLiterals.h"

namespace zv {

GatewayOperation::GatewayOperation(GatewaySession& sesion, const GatewayOptions& opciones,
                                   Entorno entorno)
    : sesion_(sesion), opciones_(opciones), entorno_(std::move(entorno)) {
    sesion_.PonerOyente(this);
    tic_.setInterval(opciones_.tic);
    QObject::connect(&tic_, &QTimer::timeout, &tic_, [this] { Tic(); });
}

GatewayOperation::~GatewayOperation() {
    sesion_.PonerOyente(nullptr);
}

QJsonObject GatewayOperation::ParamsOpId() const {
    return {{u"opId"_s, opId_}};
}

void GatewayOperation::Iniciar(const QString& metodo, const QString& opId,
                               const QJsonObject& params) {
    metodo_ = metodo;
    opId_ = opId;
    params_ = params;
    params_.insert(u"opId"_s, opId);
    fin_.estado.opId = opId;
    fin_.estado.method = metodo;
    if (sesion_.Lista()) {
        EnviarInicio();
    } else {
        EnlaceCaido();
    }
}

void GatewayOperation::Adoptar(const EstadoOperacion& estado) {
    metodo_ = estado.method;
    opId_ = estado.opId;
    fin_.estado = estado;
    confirmada_ = true;
    fase_ = Fase::EnMarcha;
    limiteFin_.setRemainingTime(opciones_.pendiente);
    ping_.start();
    cancelar_ = true;
    PedirFin();
}

void GatewayOperation::MostrarEn(VentanaOperacion* ventana) {
    ventana_ = ventana;
    if (fin_.estado.paidIn != 0 || fin_.estado.paidOut != 0) {
        ventana_->Progreso(fin_.estado.paidIn, fin_.estado.paidOut);
    }
    if (Reanudando()) {
        ventana_->Aviso(entorno_.avisoReconectando);
    }
}

GatewayOperation::Fin GatewayOperation::Esperar() {
    tic_.start();
    while (fase_ != Fase::Acabada) {
        bucle_.exec();
        if (fase_ != Fase::Acabada) {
            // The loop was left without an end of the operation: the program is ending.
            Acabar(Fin::Motivo::Cerrando);
        }
    }
    tic_.stop();
    return fin_;
}

void GatewayOperation::Cancelar() {
    if (cancelar_ || fase_ == Fase::Acabada) {
        return;
    }
    cancelar_ = true;
    limiteFin_.setRemainingTime(opciones_.cancelacion);
    if (fase_ == Fase::EnMarcha) {
        PedirFin();
    }
}

void GatewayOperation::Terminar() {
    if (terminar_ || cancelar_ || fase_ == Fase::Acabada) {
        return;
    }
    terminar_ = true;
    limiteFin_.setRemainingTime(opciones_.cancelacion);
    if (fase_ == Fase::EnMarcha) {
        PedirFin();
    }
}

// What the cashier has asked for: at once, and again after each loss of the link. Both requests may
// come twice.
void GatewayOperation::PedirFin() {
    if (cancelar_) {
        idCancelar_ = sesion_.Enviar(u"op.cancel"_s, ParamsOpId());
    } else if (terminar_) {
        idTerminar_ = sesion_.Enviar(u"op.finish"_s, ParamsOpId());
    }
}

void GatewayOperation::AlNegarTermino() {
    terminar_ = false;
    if (!cancelar_) {
        limiteFin_ = QDeadlineTimer(QDeadlineTimer::Forever);
    }
    if (ventana_ != nullptr) {
        ventana_->SinTerminar();
    }
}

void GatewayOperation::Pedir(Fase fase, const QString& metodo, const QJsonObject& params) {
    fase_ = fase;
    peticion_.start();
    idPeticion_ = sesion_.Enviar(metodo, params);
}

void GatewayOperation::EnviarInicio() {
    ping_.start();
    Pedir(Fase::Iniciando, metodo_, params_);
}

// ---- what arrives

void GatewayOperation::AlConectar() {
    if (fase_ == Fase::Conectando) {
        ping_.start();
        Pedir(Fase::Saludando, u"session.hello"_s, ParamsSaludo());
    }
}

void GatewayOperation::AlCaer() {
    if (fase_ != Fase::Acabada) {
        EnlaceCaido();
    }
}

void GatewayOperation::AlMensaje(const RpcMessage& mensaje) {
    if (fase_ == Fase::Acabada) {
        return;
    }
    if (mensaje.kind == RpcMessage::Kind::Notificacion) {
        // Before the greeting nobody knows whose money it speaks of.
        const bool conocida = mensaje.metodo == QLatin1String("op.progress") ||
                              mensaje.metodo == QLatin1String("op.result");
        if (conocida && sesion_.Lista()) {
            Notificacion(mensaje.params);
        }
        return;
    }
    if (mensaje.id == idPeticion_) {
        idPeticion_ = 0;
        AlContestar(mensaje);
    } else if (mensaje.id == idTerminar_ && mensaje.kind == RpcMessage::Kind::Error) {
        AlNegarTermino();
    } else if ((mensaje.id == idCancelar_ || mensaje.id == idTerminar_) &&
               mensaje.kind == RpcMessage::Kind::Respuesta) {
        Aceptar(mensaje.resultado);
    }
}

void GatewayOperation::Notificacion(const QJsonObject& params) {
    if (params.value(QLatin1String("opId")).toString() == opId_) {
        Aceptar(params);
    }
}

void GatewayOperation::AlContestar(const RpcMessage& mensaje) {
    switch (fase_) {
    case Fase::Iniciando:
        if (mensaje.kind == RpcMessage::Kind::Error) {
            Rechazar(mensaje);
        } else {
            Aceptar(mensaje.resultado);
        }
        break;
    case Fase::Saludando:
        AlSaludo(mensaje);
        break;
    case Fase::Consultando:
        AlConsultar(mensaje);
        break;
    default:
        break;
    }
}

void GatewayOperation::AlSaludo(const RpcMessage& mensaje) {
    if (mensaje.kind == RpcMessage::Kind::Error) {
        PerderEnlace();
        return;
    }
    const std::optional<Saludo> saludo = LeerSaludo(mensaje.resultado);
    if (!saludo) {
        Acabar(Fin::Motivo::Protocolo);
        return;
    }
    if (saludo->storeId != entorno_.storeId) {
        Acabar(Fin::Motivo::OtroAlmacen);
        return;
    }
    sesion_.PonerLista();
    if (entorno_.alSaludar) {
        entorno_.alSaludar(*saludo);
    }
    Pedir(Fase::Consultando, u"op.status"_s, ParamsOpId());
}

void GatewayOperation::AlConsultar(const RpcMessage& mensaje) {
    if (mensaje.kind == RpcMessage::Kind::Respuesta) {
        Aceptar(mensaje.resultado);
    } else if (mensaje.codigo != rpc::kOperacionDesconocida) {
        PerderEnlace();
    } else if (confirmada_) {
        // It has told of this operation and knows nothing of it now: money may have moved, so
        // it is not started a second time.
        Acabar(Fin::Motivo::Protocolo);
    } else if (cancelar_) {
        // It never started, and the cashier has given up: a cancellation with nothing moved.
        fin_.estado.terminada = true;
        Acabar(Fin::Motivo::Terminada);
    } else {
        EnviarInicio();
    }
}

void GatewayOperation::Aceptar(const QJsonValue& valor) {
    const std::optional<EstadoOperacion> estado = LeerEstado(valor);
    if (!estado || estado->opId != opId_) {
        Acabar(Fin::Motivo::Protocolo);
        return;
    }
    if (fin_.estado.paidIn != estado->paidIn || fin_.estado.paidOut != estado->paidOut) {
        avance_ = true;
        if (ventana_ != nullptr) {
            ventana_->Progreso(estado->paidIn, estado->paidOut);
        }
    }
    fin_.estado = *estado;
    fin_.estado.method = metodo_;
    confirmada_ = true;
    if (estado->terminada) {
        Acabar(Fin::Motivo::Terminada);
        return;
    }
    if (fase_ == Fase::Iniciando || fase_ == Fase::Consultando) {
        fase_ = Fase::EnMarcha;
        idPeticion_ = 0;
        enlaceBueno_.start();
        if (ventana_ != nullptr) {
            ventana_->Aviso({});
        }
        PedirFin();
    }
}

void GatewayOperation::Rechazar(const RpcMessage& mensaje) {
    const QJsonValue codigo = mensaje.datos.value(QLatin1String("errorCode"));
    fin_.codigo = codigo.isDouble() ? AjustarCodigo(codigo.toDouble()) : qint16(0);
    fin_.mensaje = mensaje.mensaje;
    Acabar(Fin::Motivo::Rechazada);
}

// ---- the link

bool GatewayOperation::Reanudando() const {
    return fase_ == Fase::Pausa || fase_ == Fase::Conectando || fase_ == Fase::Saludando ||
           fase_ == Fase::Consultando;
}

void GatewayOperation::PerderEnlace() {
    sesion_.Cerrar();
    EnlaceCaido();
}

void GatewayOperation::EnlaceCaido() {
    const bool yaReanudando = Reanudando();
    idPeticion_ = 0;
    idCancelar_ = 0;
    idTerminar_ = 0;
    fase_ = Fase::Pausa;
    // A link that drops again and again without getting anywhere shares one limit, or it would
    // never end.
    const bool estable = enlaceBueno_.isValid() && enlaceBueno_.elapsed() >= opciones_.silencio;
    if (limiteReanudar_.isForever() || estable || avance_) {
        limiteReanudar_.setRemainingTime(opciones_.reanudar);
    }
    avance_ = false;
    enlaceBueno_.invalidate();
    if (ventana_ != nullptr && !yaReanudando) {
        ventana_->Aviso(entorno_.avisoReconectando);
    }
}

void GatewayOperation::Tic() {
    if (fase_ == Fase::Acabada) {
        return;
    }
    if (sesion_.Abierta()) {
        VigilarEnlace();
    } else if (!Reanudando()) {
        EnlaceCaido(); // whoever closed it: nothing more would ever arrive
    }
    if (fase_ == Fase::Acabada) {
        return;
    }
    if (limiteFin_.hasExpired()) {
        Acabar(Fin::Motivo::NoTermina);
    } else if (Reanudando() && limiteReanudar_.hasExpired()) {
        Acabar(Fin::Motivo::EnlacePerdido);
    } else if (fase_ == Fase::Conectando && intento_.elapsed() >= opciones_.intento) {
        sesion_.Cerrar();
        fase_ = Fase::Pausa;
    } else if (fase_ == Fase::Pausa &&
               (!intento_.isValid() || intento_.elapsed() >= opciones_.reintento)) {
        fase_ = Fase::Conectando;
        intento_.start();
        sesion_.Abrir(entorno_.direccion);
    }
}

void GatewayOperation::VigilarEnlace() {
    const auto perdido = [this] {
        return (idPeticion_ != 0 && peticion_.elapsed() >= opciones_.respuesta) ||
               sesion_.MsSinOir() >= opciones_.silencio;
    };
    if (perdido()) {
        // This thread may have been busy elsewhere: what the system holds counts first.
        sesion_.Drenar();
        if (fase_ != Fase::Acabada && sesion_.Abierta() && perdido()) {
            PerderEnlace();
            return;
        }
    }
    if (fase_ != Fase::Acabada && sesion_.Lista() && ping_.elapsed() >= opciones_.ping) {
        ping_.start();
        sesion_.Enviar(u"ping"_s);
    }
}

void GatewayOperation::Acabar(Fin::Motivo motivo) {
    fase_ = Fase::Acabada;
    fin_.motivo = motivo;
    bucle_.quit();
}

} // namespace zv
