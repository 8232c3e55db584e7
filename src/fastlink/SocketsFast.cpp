// Listening, accepting into the lowest closed index, receiving, closing.
#include "fastlink/SocketsFast.h"

#include "platform/ErrorEjecucion.h"

#include <QTimer>

#include <algorithm>
#include <limits>
#include <sys/resource.h>

namespace zv {

namespace {

// The socket layer's own numbers.
constexpr int kPuertoNoPermitido = 10013;
constexpr int kNoSePuedeEscuchar = 10022;
constexpr int kPuertoEnUso = 10048;
constexpr int kValorNoValido = 380;

constexpr int kColaDeEntrada = 256;
constexpr int kReanudarMs = 1000;

// Connections must never take the descriptors that database, log and device need.
int MaximoAbiertos() {
    constexpr rlim_t kReserva = 128;
    constexpr int kIndices = std::numeric_limits<qint16>::max();
    rlimit limite{};
    if (getrlimit(RLIMIT_NOFILE, &limite) != 0 || limite.rlim_cur == RLIM_INFINITY) {
        return kIndices;
    }
    const rlim_t sitio = limite.rlim_cur > 2 * kReserva ? limite.rlim_cur - kReserva : kReserva;
    return static_cast<int>(std::min<rlim_t>(sitio, kIndices));
}

} // namespace

SocketsFast::SocketsFast(const QHostAddress& direccion, OyenteSockets oyente)
    : direccion_(direccion), oyente_(std::move(oyente)), maximoAbiertos_(MaximoAbiertos()) {
    setListenBacklogSize(kColaDeEntrada);
    // Without descriptors the listener rests, or it would be woken without end.
    connect(this, &QTcpServer::acceptError, this, [this](QAbstractSocket::SocketError) {
        QTimer::singleShot(kReanudarMs, this, [this] { resumeAccepting(); });
    });
}

SocketsFast::~SocketsFast() {
    for (const Hueco& hueco : huecos_) {
        if (hueco.socket != nullptr) {
            hueco.socket->disconnect(this);
            delete hueco.socket;
        }
    }
}

void SocketsFast::Escuchar(qint32 puerto) {
    if (puerto < 0 || puerto > std::numeric_limits<quint16>::max()) {
        throw ErrorEjecucion(
            kValorNoValido,
            QStringLiteral("El puerto %1 del ZVFast no es válido").arg(QString::number(puerto)));
    }
    if (listen(direccion_, static_cast<quint16>(puerto))) {
        return;
    }
    const QString cual = QString::number(puerto);
    switch (serverError()) {
    case QAbstractSocket::AddressInUseError:
        throw ErrorEjecucion(kPuertoEnUso,
                             QStringLiteral("El puerto %1 del ZVFast ya está en uso").arg(cual));
    case QAbstractSocket::SocketAccessError:
        throw ErrorEjecucion(kPuertoNoPermitido,
                             QStringLiteral("El puerto %1 del ZVFast no está permitido").arg(cual));
    default:
        throw ErrorEjecucion(kNoSePuedeEscuchar,
                             QStringLiteral("No se puede escuchar en el puerto %1 del ZVFast: %2")
                                 .arg(cual, errorString()));
    }
}

void SocketsFast::DejarDeEscuchar() {
    close();
}

const SocketsFast::Hueco* SocketsFast::Buscar(qint16 indice) const {
    const auto i = static_cast<std::size_t>(indice) - 1;
    return indice >= 1 && i < huecos_.size() ? &huecos_[i] : nullptr;
}

SocketsFast::Hueco* SocketsFast::Buscar(qint16 indice) {
    return const_cast<Hueco*>(std::as_const(*this).Buscar(indice));
}

bool SocketsFast::Conectado(qint16 indice) const {
    const Hueco* hueco = Buscar(indice);
    return hueco != nullptr && hueco->socket != nullptr &&
           hueco->socket->state() == QAbstractSocket::ConnectedState;
}

quint64 SocketsFast::Serie(qint16 indice) const {
    const Hueco* hueco = Buscar(indice);
    return hueco != nullptr ? hueco->serie : 0;
}

void SocketsFast::Enviar(qint16 indice, const QByteArray& datos) {
    if (Conectado(indice)) {
        QTcpSocket* socket = Buscar(indice)->socket;
        socket->write(datos);
        // Out now, and not at the next turn of the event loop.
        socket->flush();
    }
}

int SocketsFast::Abiertos() const {
    return static_cast<int>(std::count_if(huecos_.begin(), huecos_.end(),
                                          [](const Hueco& h) { return h.socket != nullptr; }));
}

// The lowest closed index, or a new one; 0 when no number is left.
qint16 SocketsFast::LibreOMas() {
    const auto libre = std::find_if(huecos_.begin(), huecos_.end(),
                                    [](const Hueco& h) { return h.socket == nullptr; });
    if (libre == huecos_.end()) {
        if (huecos_.size() >= static_cast<std::size_t>(std::numeric_limits<qint16>::max())) {
            return 0;
        }
        huecos_.emplace_back();
        return static_cast<qint16>(huecos_.size());
    }
    return static_cast<qint16>(libre - huecos_.begin() + 1);
}

void SocketsFast::incomingConnection(qintptr descriptor) {
    auto* socket = new QTcpSocket;
    if (!socket->setSocketDescriptor(descriptor)) {
        delete socket;
        return;
    }
    const qint16 indice = Abiertos() < maximoAbiertos_ ? LibreOMas() : qint16(0);
    if (indice == 0) {
        // Beyond its means the till refuses; those that are connected are served.
        delete socket;
        return;
    }
    // Answers are short and waited for.
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    const quint64 serie = ++series_;
    *Buscar(indice) = Hueco{socket, serie};
    connect(socket, &QTcpSocket::readyRead, this, [=, this] { Recibir(indice, serie); });
    connect(socket, &QTcpSocket::disconnected, this, [=, this] { Cerrar(indice, serie); });
    if (socket->bytesAvailable() > 0) {
        Recibir(indice, serie);
    }
}

void SocketsFast::Recibir(qint16 indice, quint64 serie) {
    const Hueco* hueco = Buscar(indice);
    if (hueco == nullptr || hueco->serie != serie || hueco->socket == nullptr) {
        return;
    }
    const QByteArray datos = hueco->socket->readAll();
    if (!datos.isEmpty()) {
        oyente_.llegada(indice, datos);
    }
}

void SocketsFast::Cerrar(qint16 indice, quint64 serie) {
    Hueco* hueco = Buscar(indice);
    if (hueco == nullptr || hueco->serie != serie || hueco->socket == nullptr) {
        return;
    }
    // What came with the farewell is a message too.
    Recibir(indice, serie);
    hueco->socket->deleteLater();
    hueco->socket = nullptr;
}

} // namespace zv
