// Framing and JSON-RPC 2.0 of the gateway's link: bytes to lines, lines to messages, requests to
// bytes. Pure: knows no socket.
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>

#include <optional>

namespace zv {

// Longest line, in bytes, with its line feed.
inline constexpr qsizetype kMaxLinea = 1048576;

// Cuts a stream of bytes into lines.
class LineSplitter {
  public:
    void Anadir(const QByteArray& bytes);
    // The next whole line without its line feed; nothing when none is complete.
    std::optional<QByteArray> Siguiente();
    // A line is longer than allowed: nothing more can be read of this stream.
    bool Desbordado() const { return desbordado_; }
    void Vaciar();

  private:
    QByteArray buffer_;
    qsizetype inicio_ = 0; // first byte not handed out
    qsizetype mirado_ = 0; // no line feed stands before this one
    bool desbordado_ = false;
};

struct RpcMessage {
    enum class Kind { Respuesta, Error, Notificacion, Ajeno };

    Kind kind = Kind::Ajeno;
    qint64 id = 0;
    QJsonValue resultado; // Respuesta
    QString metodo;       // Notificacion
    QJsonObject params;   // Notificacion
    int codigo = 0;       // Error
    QString mensaje;      // Error
    QJsonObject datos;    // Error
};

// Nothing when the line is no JSON object. Objects that are no message for a client (requests,
// answers without a usable id) come as Ajeno, to be ignored.
std::optional<RpcMessage> DescodificarRpc(const QByteArray& linea);

// One request, with its line feed. Empty params are left out.
QByteArray CodificarPeticion(qint64 id, const QString& metodo, const QJsonObject& params);

} // namespace zv
