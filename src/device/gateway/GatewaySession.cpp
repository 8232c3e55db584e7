#include "device/gateway/GatewaySession.h"

#include <QNetworkProxy>
#include <QTcpSocket>

#include <algorithm>
#include <limits>

namespace zv {

namespace {

constexpr qint64 kTrozo = 65536;
// Twice the longest line: whole lines always fit, a flood stays in the peer's socket.
constexpr qint64 kBuffer = 2 * LineSplitter::kMaxLinea;

int MsRestantes(const QDeadlineTimer& limite) {
    return static_cast<int>(
        std::clamp<qint64>(limite.remainingTime(), 0, std::numeric_limits<int>::max()));
}

} // namespace

GatewaySession::GatewaySession(FabricaSocket fabrica) : fabrica_(std::move(fabrica)) {}

GatewaySession::~GatewaySession() {
    oyente_ = nullptr;
    Cerrar();
}

void GatewaySession::Abrir(const GatewayAddress& direccion) {
    Cerrar();
    cortador_.Vaciar();
    caidaPendiente_ = false;
    socket_ = fabrica_ ? fabrica_() : std::make_unique<QTcpSocket>();
    socket_->setProxy(QNetworkProxy::NoProxy);
    socket_->setReadBufferSize(kBuffer);
    connect(socket_.get(), &QTcpSocket::connected, this, [this] {
        socket_->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        if (oyente_ != nullptr) {
            oyente_->AlConectar();
        }
    });
    connect(socket_.get(), &QTcpSocket::readyRead, this, [this] { Procesar(); });
    connect(socket_.get(), &QTcpSocket::errorOccurred, this,
            [this](QAbstractSocket::SocketError error) { AlFallar(error); });
    connect(socket_.get(), &QTcpSocket::disconnected, this,
            [this] { AlFallar(QAbstractSocket::RemoteHostClosedError); });
    socket_->connectToHost(direccion.host, direccion.puerto);
}

bool GatewaySession::EsperarConexion(const QDeadlineTimer& limite) {
    return socket_ && socket_->waitForConnected(MsRestantes(limite)) && Abierta();
}

bool GatewaySession::Abierta() const {
    return socket_ && socket_->state() == QAbstractSocket::ConnectedState;
}

// The socket may be the sender of the signal that brought us here, so it goes later.
void GatewaySession::Soltar() {
    lista_ = false;
    esperando_.invalidate();
    if (socket_) {
        socket_->disconnect(this);
        QTcpSocket* socket = socket_.release();
        socket->abort();
        socket->deleteLater();
    }
}

void GatewaySession::Cerrar() {
    if (Abierta()) {
        socket_->disconnect(this);
        socket_->flush();
        socket_->close();
    }
    Soltar();
}

void GatewaySession::Tirar() {
    if (!socket_) {
        return;
    }
    Soltar();
    if (oyente_ != nullptr) {
        oyente_->AlCaer();
    }
}

void GatewaySession::AlFallar(int error) {
    if (error == QAbstractSocket::SocketTimeoutError || error == QAbstractSocket::TemporaryError) {
        return; // a blocking wait that ended without news
    }
    if (procesando_) {
        caidaPendiente_ = true; // what has arrived counts first
        return;
    }
    Procesar();
    Tirar();
}

qint64 GatewaySession::Enviar(const QString& metodo, const QJsonObject& params) {
    if (!Abierta()) {
        return 0;
    }
    const qint64 id = ++ultimoId_;
    if (!esperando_.isValid()) {
        esperando_.start();
    }
    socket_->write(CodificarPeticion(id, metodo, params));
    if (socket_) {
        socket_->flush();
    }
    return id;
}

std::optional<RpcMessage> GatewaySession::EsperarRespuesta(qint64 id,
                                                           const QDeadlineTimer& limite) {
    respuesta_.reset();
    idEsperado_ = id;
    while (id != 0) {
        Procesar();
        if (respuesta_ || !Abierta() || limite.hasExpired()) {
            break;
        }
        socket_->waitForReadyRead(MsRestantes(limite));
    }
    idEsperado_ = 0;
    return std::exchange(respuesta_, std::nullopt);
}

void GatewaySession::Drenar() {
    if (Abierta()) {
        socket_->waitForReadyRead(0);
        Procesar();
    }
}

qint64 GatewaySession::MsSinOir() const {
    return esperando_.isValid() ? esperando_.elapsed() : 0;
}

void GatewaySession::Procesar() {
    if (procesando_) {
        return;
    }
    procesando_ = true;
    const QTcpSocket* const actual = socket_.get();
    bool bien = true;
    while (bien && socket_ && socket_.get() == actual && socket_->bytesAvailable() > 0) {
        esperando_.invalidate();
        cortador_.Anadir(socket_->read(kTrozo));
        while (bien && socket_.get() == actual) {
            const std::optional<QByteArray> linea = cortador_.Siguiente();
            if (!linea) {
                bien = !cortador_.Desbordado();
                break;
            }
            bien = Despachar(*linea);
        }
    }
    procesando_ = false;
    if (socket_ && socket_.get() == actual && (!bien || caidaPendiente_)) {
        Tirar();
    }
    caidaPendiente_ = false;
}

bool GatewaySession::Despachar(const QByteArray& linea) {
    const std::optional<RpcMessage> mensaje = DescodificarRpc(linea);
    if (!mensaje) {
        return false;
    }
    const bool contesta =
        mensaje->kind == RpcMessage::Kind::Respuesta || mensaje->kind == RpcMessage::Kind::Error;
    if (contesta && idEsperado_ != 0 && mensaje->id == idEsperado_) {
        respuesta_ = *mensaje;
    } else if (oyente_ != nullptr && mensaje->kind != RpcMessage::Kind::Ajeno) {
        oyente_->AlMensaje(*mensaje);
    }
    return true;
}

} // namespace zv
