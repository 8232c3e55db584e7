#include "simulator/Servidor.h"

#include "platform/StringLiterals.h"

#include <QHostAddress>

#include <algorithm>
#include <utility>

namespace zv::simulador {

namespace {

constexpr qint64 kSinLeerMaximo = qint64{8} * 1024 * 1024; // bytes that a client may leave unread
constexpr int kDespedidaMs = 2000; // for what a dropped client has not read yet

} // namespace

Servidor::Servidor(Aparato& aparato, Fallos& fallos, Tiempos tiempos, std::function<void()> matar,
                   QObject* padre)
    : QObject(padre), aparato_(aparato), protocolo_(aparato, fallos), fallos_(fallos),
      matar_(std::move(matar)) {
    for (QTimer* const timer : {&pausa_, &ausente_, &silencio_}) {
        timer->setSingleShot(true);
    }
    pausa_.setTimerType(Qt::PreciseTimer);
    ausente_.setInterval(tiempos.ausenteMs);
    silencio_.setInterval(tiempos.silencioMs);
    connect(&pausa_, &QTimer::timeout, this, [this] {
        for (const QByteArray& linea : std::exchange(retenidas_, {})) {
            Enviar(linea);
        }
    });
    connect(&ausente_, &QTimer::timeout, this, [this] {
        if (!aparato_.EnMarcha()) {
            return;
        }
        Q_EMIT suceso(u"ausente"_s);
        aparato_.Cancelar(aparato_.Abierta()->opId);
    });
    connect(&silencio_, &QTimer::timeout, this, [this] {
        if (aparato_.EnMarcha()) {
            Soltar();
        }
    });
    connect(&tcp_, &QTcpServer::newConnection, this, &Servidor::AlConectar);
    connect(&aparato_, &Aparato::progreso, this, &Servidor::AlProgresar);
    connect(&aparato_, &Aparato::acabada, this, &Servidor::AlAcabar);
    connect(&aparato_, &Aparato::cambiado, this, &Servidor::VigilarAusencia);
}

Servidor::~Servidor() {
    if (cliente_) {
        cliente_->disconnect(this);
    }
}

bool Servidor::Escuchar(quint16 puerto, QString& error) {
    if (tcp_.listen(QHostAddress::LocalHost, puerto)) {
        return true;
    }
    error = tcp_.serverError() == QAbstractSocket::AddressInUseError
                ? u"el puerto %1 está ocupado"_s.arg(puerto)
                : u"no se puede escuchar en el puerto %1: %2"_s.arg(puerto).arg(tcp_.errorString());
    return false;
}

void Servidor::AlConectar() {
    while (QTcpSocket* const nuevo = tcp_.nextPendingConnection()) {
        if (!fuera_.hasExpired()) {
            nuevo->abort();
            nuevo->deleteLater();
            continue;
        }
        Soltar(); // the new one takes the place of the old one
        cliente_ = nuevo;
        nuevo->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        alConectar_ = fallos_.Toca(Punto::Conexion);
        Q_EMIT suceso(u"conexión"_s);
        if (const auto rechazo = Buscar(alConectar_, TipoFallo::Rechazar)) {
            Q_EMIT suceso(u"fallo "_s + rechazo->regla);
            Soltar();
            continue;
        }
        connect(nuevo, &QTcpSocket::readyRead, this, &Servidor::AlLeer);
        connect(nuevo, &QTcpSocket::disconnected, this, &Servidor::Soltar);
        silencio_.start();
        Q_EMIT cambiado();
        if (nuevo->bytesAvailable() > 0) {
            AlLeer();
        }
    }
}

void Servidor::Soltar() {
    if (!cliente_) {
        return;
    }
    QTcpSocket* const viejo = std::exchange(cliente_, nullptr);
    viejo->disconnect(this);
    // What has been written still goes out, but a peer that reads nothing is not waited for.
    connect(viejo, &QTcpSocket::disconnected, viejo, &QObject::deleteLater);
    QTimer::singleShot(kDespedidaMs, viejo, [viejo] {
        viejo->abort();
        viejo->deleteLater();
    });
    viejo->disconnectFromHost();
    if (viejo->state() == QAbstractSocket::UnconnectedState) {
        viejo->deleteLater();
    }
    cortador_.Vaciar();
    retenidas_.clear();
    alConectar_.clear();
    saludado_ = false;
    mudo_ = false;
    pausa_.stop();
    silencio_.stop();
    Q_EMIT suceso(u"desconexión"_s);
    VigilarAusencia();
    Q_EMIT cambiado();
}

void Servidor::CortarEnlace() {
    Soltar();
}

void Servidor::Cortar(const Accion& corte) {
    Soltar();
    fuera_.setRemainingTime(corte.valor);
}

void Servidor::VigilarAusencia() {
    if (!aparato_.EnMarcha() || HayCliente()) {
        ausente_.stop();
    } else if (!ausente_.isActive()) {
        ausente_.start();
    }
}

void Servidor::AlLeer() {
    silencio_.start();
    cortador_.Anadir(cliente_->readAll());
    const QPointer<QTcpSocket> este = cliente_;
    // An answer may drop the client, and its lines with it.
    while (este && cliente_ == este) {
        const std::optional<QByteArray> linea = cortador_.Siguiente();
        if (!linea) {
            break;
        }
        Atender(*linea);
    }
    if (cortador_.Desbordado()) {
        Soltar();
    }
}

void Servidor::Atender(const QByteArray& linea) {
    const bool antes = saludado_;
    const Protocolo::Atencion atencion = protocolo_.Atender(linea, saludado_, alConectar_);
    if (saludado_ != antes) {
        VigilarAusencia();
        Q_EMIT cambiado();
    }
    if (atencion.operacion) {
        enMarcha_ = atencion.acciones;
    }
    if (!AntesDeResponder(atencion.acciones, atencion.operacion)) {
        return;
    }
    Enviar(atencion.respuesta);
    if (Buscar(atencion.acciones, TipoFallo::Repetir) && !atencion.operacion) {
        Enviar(atencion.respuesta);
    }
    const auto despues = atencion.operacion
                             ? std::nullopt
                             : Buscar(atencion.acciones, TipoFallo::Cortar, Momento::Despues);
    if (!atencion.operacion && Buscar(atencion.acciones, TipoFallo::Matar, Momento::Despues)) {
        if (cliente_) {
            cliente_->flush();
        }
        matar_();
    }
    if (despues) {
        Cortar(*despues);
    }
    if (atencion.cerrar) {
        Soltar();
    }
}

bool Servidor::AntesDeResponder(const Acciones& acciones, bool operacion) {
    for (const Accion& accion : acciones) {
        Q_EMIT suceso(u"fallo "_s + accion.regla);
        // In an operation only "before" strikes here; its other moments come with its progress.
        const bool ahora =
            accion.momento == Momento::Antes || (accion.momento == Momento::Durante && !operacion);
        switch (accion.tipo) {
        case TipoFallo::Cortar:
            if (ahora) {
                Cortar(accion);
                return false;
            }
            break;
        case TipoFallo::Matar:
            if (ahora) {
                matar_();
                return false;
            }
            break;
        case TipoFallo::Lento:
            pausa_.start(accion.valor);
            break;
        case TipoFallo::Basura:
            Enviar("esto no es un mensaje\n");
            break;
        case TipoFallo::Mudo:
            mudo_ = true;
            break;
        default:
            break;
        }
    }
    return true;
}

bool Servidor::FallaEn(Momento momento) {
    const auto corte = Buscar(enMarcha_, TipoFallo::Cortar, momento);
    const auto muerte = Buscar(enMarcha_, TipoFallo::Matar, momento);
    std::erase_if(enMarcha_, [momento](const Accion& a) {
        return (a.tipo == TipoFallo::Cortar || a.tipo == TipoFallo::Matar) && a.momento == momento;
    });
    if (muerte) {
        matar_();
    }
    if (corte) {
        Cortar(*corte);
    }
    return corte || muerte;
}

void Servidor::AlProgresar(const Operacion& op) {
    if (FallaEn(Momento::Durante)) {
        return;
    }
    Notificar(u"op.progress"_s, op);
}

void Servidor::AlAcabar(const Operacion& op) {
    // An operation that moved nothing has had no middle.
    const bool durante = FallaEn(Momento::Durante);
    const bool despues = FallaEn(Momento::Despues);
    if (!durante && !despues) {
        Notificar(u"op.result"_s, op);
    }
    enMarcha_.clear();
}

void Servidor::Notificar(const QString& metodo, const Operacion& op) {
    if (!HayCliente()) {
        return; // its hello will tell
    }
    const QByteArray linea = Notificacion(metodo, op);
    Enviar(linea);
    if (Buscar(enMarcha_, TipoFallo::Repetir)) {
        Enviar(linea);
    }
}

void Servidor::Enviar(const QByteArray& linea) {
    if (!cliente_ || linea.isEmpty() || mudo_) {
        return;
    }
    if (pausa_.isActive()) {
        retenidas_.append(linea);
        return;
    }
    if (cliente_->bytesToWrite() > kSinLeerMaximo) {
        return Soltar();
    }
    cliente_->write(linea);
}

} // namespace zv::simulador
