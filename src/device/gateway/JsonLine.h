// JSON-RPC 2.0 of the gateway's link: lines to messages, requests to bytes. Pure: knows no socket.
#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>

#include <optional>

namespace zv {

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
