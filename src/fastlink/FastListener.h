// The array WS of the fast link: the listener and the growing array of client connections, of
// which the lowest closed one is used again. All connections hang on one descriptor of the event
// loop, so that hundreds of silent ones cost its thousand turns a second nothing.
#pragma once

#include "platform/FileDescriptor.h"

#include <QHostAddress>
#include <QSocketNotifier>
#include <QTcpServer>

#include <functional>
#include <vector>

namespace zv {

// What the connections tell their owner.
struct ListenerCallbacks {
    // All that was pending on WS(indice), in one piece.
    std::function<void(qint16 indice, const QByteArray& datos)> llegada;
};

class FastListener final : private QTcpServer {
    Q_OBJECT

  public:
    // direccion: where the listener binds; every interface unless told otherwise. Raises 10024 when
    // the system has no descriptor left.
    // reanudarMs: how long the listener rests when a connection cannot be taken.
    FastListener(const QHostAddress& direccion, ListenerCallbacks oyente, int reanudarMs = 1000);
    ~FastListener() override;

    // Raises 10048 for a port in use, 380 for a number that is no port, 10013 for one that is not
    // permitted, 10022 for any other failure. Port 0 takes a free one.
    void Escuchar(qint32 puerto);
    // Established connections go on.
    void DejarDeEscuchar();
    bool Escuchando() const { return isListening(); }
    quint16 Puerto() const { return serverPort(); }

    // Highest index in use so far; it never goes down.
    qint16 NumSockets() const { return static_cast<qint16>(huecos_.size()); }
    bool Conectado(qint16 indice) const;
    // Tells connections on one index apart; 0 when there has been none.
    quint64 Serie(qint16 indice) const;
    // What the peer does not take at once waits for it; one that takes nothing is closed.
    void Enviar(qint16 indice, const QByteArray& datos);

  protected:
    void incomingConnection(qintptr descriptor) override;

  private:
    struct Hueco {
        FileDescriptor socket; // invalid when closed
        quint64 serie = 0;
        QByteArray salida;        // not sent yet
        bool esperaSitio = false; // the system's buffer for it is full
    };
    qint16 LibreOMas();
    void Atender();
    void Recibir(qint16 indice);
    void Vaciar(qint16 indice);
    void Vigilar(qint16 indice, int operacion) const;
    void Cerrar(qint16 indice);
    const Hueco* Buscar(qint16 indice) const;
    Hueco& En(qint16 indice) { return huecos_[static_cast<std::size_t>(indice) - 1]; }

    QHostAddress direccion_;
    ListenerCallbacks oyente_;
    std::vector<Hueco> huecos_; // WS(1) is the first
    quint64 series_ = 0;
    int abiertos_ = 0;
    int maximoAbiertos_;
    FileDescriptor epoll_;
    QSocketNotifier aviso_;
};

} // namespace zv
