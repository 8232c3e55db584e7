// One connection to the gateway at a time: socket, lines, request ids. Serves both ways of
// waiting: the event loop (messages go to the listener) and a blocking wait for one answer that
// runs no event loop. Everything that arrives goes through one function, whoever waits.
#pragma once

#include "device/gateway/GatewayMessages.h"
#include "device/gateway/JsonLine.h"
#include "platform/LineSplitter.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>

class QTcpSocket;

namespace zv {

// Makes the socket of a connection. Without one it is a plain QTcpSocket.
using FabricaSocket = std::function<std::unique_ptr<QTcpSocket>()>;

class GatewaySession : public QObject {
  public:
    class Oyente {
      public:
        virtual ~Oyente() = default;
        virtual void AlConectar() = 0;
        virtual void AlMensaje(const RpcMessage& mensaje) = 0;
        // The connection is gone, or was never made.
        virtual void AlCaer() = 0;
    };

    explicit GatewaySession(FabricaSocket fabrica = {});
    ~GatewaySession() override;

    // May be nullptr: what arrives and is not waited for is then ignored.
    void PonerOyente(Oyente* oyente) { oyente_ = oyente; }

    // Starts to connect; drops a former connection. The listener hears how it ends.
    void Abrir(const GatewayAddress& direccion);
    // Blocks, without the event loop, until the connection stands. False on failure or deadline.
    bool EsperarConexion(const QDeadlineTimer& limite);
    // Sends what is waiting and closes. The listener is not told.
    void Cerrar();
    // Closes at once, and the listener is told.
    void Tirar();

    bool Abierta() const;
    // Connected and greeted: operations may be asked for.
    bool Lista() const { return lista_ && Abierta(); }
    void PonerLista() { lista_ = true; }

    // Writes one request and hands it to the system before returning. Answers its id, 0 when
    // nothing is open.
    qint64 Enviar(const QString& metodo, const QJsonObject& params = {});
    // Blocks, without the event loop, until that answer has come. Nothing on deadline or when the
    // connection is lost.
    std::optional<RpcMessage> EsperarRespuesta(qint64 id, const QDeadlineTimer& limite);

    // Reads what has arrived already, without waiting.
    void Drenar();
    // Milliseconds since something was sent with nothing at all heard after it; 0 when nothing is
    // owed.
    qint64 MsSinOir() const;

  private:
    void Soltar();
    void AlFallar(int error);
    void Procesar();
    bool Despachar(const QByteArray& linea);

    FabricaSocket fabrica_;
    std::unique_ptr<QTcpSocket> socket_;
    Oyente* oyente_ = nullptr;
    LineSplitter cortador_;
    QElapsedTimer esperando_; // valid while something is owed
    qint64 ultimoId_ = 0;
    qint64 idEsperado_ = 0;
    std::optional<RpcMessage> respuesta_;
    bool lista_ = false;
    bool procesando_ = false;
    bool caidaPendiente_ = false;
};

} // namespace zv
