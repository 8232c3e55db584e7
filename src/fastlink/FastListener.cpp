#include "fastlink/FastListener.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"

#include <QTimer>

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/epoll.h>
#include <sys/resource.h>
#include <sys/socket.h>

namespace zv {

namespace {

// The socket layer's own numbers.
constexpr int kPuertoNoPermitido = 10013;
constexpr int kNoSePuedeEscuchar = 10022;
constexpr int kSinDescriptores = 10024;
constexpr int kPuertoEnUso = 10048;
constexpr int kValorNoValido = 380;

constexpr int kColaDeEntrada = 256;
constexpr std::size_t kEventosPorVez = 64;
constexpr std::size_t kTrozo = 65536;
constexpr qsizetype kEntradaMaxima = qsizetype(4) << 20; // one message of one receive event
constexpr qsizetype kSalidaMaxima = qsizetype(1) << 20;  // thousands of answers that nobody takes

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

// What the system hands back with each event: the index and the number of the connection. An event
// of a connection that has been closed meanwhile is so told from one of the next on that index.
constexpr int kBitsIndice = 16;
quint64 Clave(qint16 indice, quint64 serie) {
    return (serie << kBitsIndice) | static_cast<quint16>(indice);
}

FileDescriptor CrearEpoll() {
    FileDescriptor epoll(::epoll_create1(EPOLL_CLOEXEC));
    if (!epoll.Abierto()) {
        throw ErrorEjecucion(kSinDescriptores, u"No quedan descriptores para el ZVFast"_s);
    }
    return epoll;
}

} // namespace

FastListener::FastListener(const QHostAddress& direccion, ListenerCallbacks oyente, int reanudarMs)
    : direccion_(direccion), oyente_(std::move(oyente)), maximoAbiertos_(MaximoAbiertos()),
      epoll_(CrearEpoll()), aviso_(epoll_.Numero(), QSocketNotifier::Read) {
    setListenBacklogSize(kColaDeEntrada);
    connect(&aviso_, &QSocketNotifier::activated, this, [this] { Atender(); });
    // Without descriptors the listener rests, or it would be woken without end.
    connect(this, &QTcpServer::acceptError, this, [this, reanudarMs] {
        QTimer::singleShot(reanudarMs, this, [this] {
            // Qt asks for a listener that stands; the settings may have closed it meanwhile.
            if (isListening()) {
                resumeAccepting();
            }
        });
    });
}

FastListener::~FastListener() = default;

void FastListener::Escuchar(qint32 puerto) {
    if (puerto < 0 || puerto > std::numeric_limits<quint16>::max()) {
        throw ErrorEjecucion(
            kValorNoValido, u"El puerto %1 del ZVFast no es válido"_s.arg(QString::number(puerto)));
    }
    if (listen(direccion_, static_cast<quint16>(puerto))) {
        return;
    }
    const QString cual = QString::number(puerto);
    switch (serverError()) {
    case QAbstractSocket::AddressInUseError:
        throw ErrorEjecucion(kPuertoEnUso, u"El puerto %1 del ZVFast ya está en uso"_s.arg(cual));
    case QAbstractSocket::SocketAccessError:
        throw ErrorEjecucion(kPuertoNoPermitido,
                             u"El puerto %1 del ZVFast no está permitido"_s.arg(cual));
    default:
        throw ErrorEjecucion(
            kNoSePuedeEscuchar,
            u"No se puede escuchar en el puerto %1 del ZVFast: %2"_s.arg(cual, errorString()));
    }
}

void FastListener::DejarDeEscuchar() {
    close();
}

const FastListener::Hueco* FastListener::Buscar(qint16 indice) const {
    const auto i = static_cast<std::size_t>(indice) - 1;
    return indice >= 1 && i < huecos_.size() ? &huecos_[i] : nullptr;
}

bool FastListener::Conectado(qint16 indice) const {
    const Hueco* hueco = Buscar(indice);
    return hueco != nullptr && hueco->socket.Abierto();
}

quint64 FastListener::Serie(qint16 indice) const {
    const Hueco* hueco = Buscar(indice);
    return hueco != nullptr ? hueco->serie : 0;
}

// The lowest closed index, or a new one; 0 when no number is left.
qint16 FastListener::LibreOMas() {
    const auto libre = std::find_if(huecos_.begin(), huecos_.end(),
                                    [](const Hueco& h) { return !h.socket.Abierto(); });
    if (libre == huecos_.end()) {
        if (huecos_.size() >= static_cast<std::size_t>(std::numeric_limits<qint16>::max())) {
            return 0;
        }
        huecos_.emplace_back();
        return static_cast<qint16>(huecos_.size());
    }
    return static_cast<qint16>(libre - huecos_.begin() + 1);
}

void FastListener::incomingConnection(qintptr descriptor) {
    FileDescriptor socket(static_cast<int>(descriptor));
    const qint16 indice = abiertos_ < maximoAbiertos_ ? LibreOMas() : qint16(0);
    if (indice == 0) {
        // No descriptor to spare: the new connection is closed, so that the others can be served.
        return;
    }
    // Answers are short and waited for.
    const int si = 1;
    ::setsockopt(socket.Numero(), IPPROTO_TCP, TCP_NODELAY, &si, sizeof si);
    Hueco& hueco = En(indice);
    hueco = Hueco{std::move(socket), ++series_, {}, false};
    ++abiertos_;
    Vigilar(indice, EPOLL_CTL_ADD);
}

void FastListener::Vigilar(qint16 indice, int operacion) const {
    const Hueco& hueco = *Buscar(indice);
    epoll_event evento{};
    evento.events = EPOLLIN | EPOLLRDHUP;
    if (hueco.esperaSitio) {
        evento.events |= EPOLLOUT;
    }
    evento.data.u64 = Clave(indice, hueco.serie);
    ::epoll_ctl(epoll_.Numero(), operacion, hueco.socket.Numero(), &evento);
}

void FastListener::Atender() {
    std::array<epoll_event, kEventosPorVez> eventos{};
    const int cuantos = ::epoll_wait(epoll_.Numero(), eventos.data(), kEventosPorVez, 0);
    for (int i = 0; i < cuantos; ++i) {
        const epoll_event& evento = eventos[static_cast<std::size_t>(i)];
        const auto indice = static_cast<qint16>(evento.data.u64 & 0xFFFFU);
        const auto sigue = [&] {
            return Conectado(indice) && Clave(indice, Serie(indice)) == evento.data.u64;
        };
        if ((evento.events & EPOLLOUT) != 0 && sigue()) {
            Vaciar(indice);
        }
        if ((evento.events & ~static_cast<quint32>(EPOLLOUT)) != 0 && sigue()) {
            Recibir(indice);
        }
    }
}

void FastListener::Recibir(qint16 indice) {
    const int socket = En(indice).socket.Numero();
    QByteArray datos;
    bool fin = false;
    std::array<char, kTrozo>
        trozo; // NOLINT(cppcoreguidelines-pro-type-member-init): filled by recv
    while (datos.size() < kEntradaMaxima) {
        const ssize_t n = ::recv(socket, trozo.data(), trozo.size(), MSG_DONTWAIT);
        if (n > 0) {
            datos.append(trozo.data(), n);
        } else if (n < 0 && errno == EINTR) {
            continue;
        } else {
            fin = n == 0 || (errno != EAGAIN && errno != EWOULDBLOCK);
            break;
        }
    }
    // What came together with the close is a message too.
    if (!datos.isEmpty()) {
        oyente_.llegada(indice, datos);
    }
    if (fin) {
        Cerrar(indice);
    }
}

void FastListener::Enviar(qint16 indice, const QByteArray& datos) {
    if (!Conectado(indice)) {
        return;
    }
    Hueco& hueco = En(indice);
    hueco.salida += datos;
    if (hueco.salida.size() > kSalidaMaxima) {
        Cerrar(indice);
    } else if (!hueco.esperaSitio) {
        Vaciar(indice);
    }
}

void FastListener::Vaciar(qint16 indice) {
    Hueco& hueco = En(indice);
    while (!hueco.salida.isEmpty()) {
        const ssize_t n =
            ::send(hueco.socket.Numero(), hueco.salida.constData(),
                   static_cast<std::size_t>(hueco.salida.size()), MSG_DONTWAIT | MSG_NOSIGNAL);
        if (n >= 0) {
            hueco.salida.remove(0, n);
        } else if (errno == EAGAIN || errno == EWOULDBLOCK) {
            break;
        } else if (errno != EINTR) {
            Cerrar(indice);
            return;
        }
    }
    const bool queda = !hueco.salida.isEmpty();
    if (queda != hueco.esperaSitio) {
        hueco.esperaSitio = queda;
        Vigilar(indice, EPOLL_CTL_MOD);
    }
}

void FastListener::Cerrar(qint16 indice) {
    Hueco& hueco = En(indice);
    // Closing takes it out of what is watched.
    hueco.socket = FileDescriptor();
    hueco.salida.clear();
    hueco.esperaSitio = false;
    --abiertos_;
}

} // namespace zv
