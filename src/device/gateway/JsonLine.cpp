#include "device/gateway/JsonLine.h"

#include "platform/StringLiterals.h"

#include <QJsonDocument>

#include <cmath>
#include <limits>

namespace zv {

namespace {

std::optional<qint64> LeerId(const QJsonValue& valor) {
    constexpr double kLimite = 9007199254740992.0; // 2^53, beyond which a double skips integers
    if (!valor.isDouble()) {
        return std::nullopt;
    }
    const double id = valor.toDouble();
    if (id != std::floor(id) || std::abs(id) > kLimite) {
        return std::nullopt;
    }
    return static_cast<qint64>(id);
}

} // namespace

std::optional<RpcMessage> DescodificarRpc(const QByteArray& linea) {
    QJsonParseError fallo{};
    const QJsonDocument documento = QJsonDocument::fromJson(linea, &fallo);
    if (fallo.error != QJsonParseError::NoError || !documento.isObject()) {
        return std::nullopt;
    }
    const QJsonObject objeto = documento.object();
    RpcMessage mensaje;
    const QJsonValue metodo = objeto.value(QLatin1String("method"));
    if (metodo.isString()) {
        if (!objeto.contains(QLatin1String("id"))) {
            mensaje.kind = RpcMessage::Kind::Notificacion;
            mensaje.metodo = metodo.toString();
            mensaje.params = objeto.value(QLatin1String("params")).toObject();
        }
        return mensaje;
    }
    const std::optional<qint64> id = LeerId(objeto.value(QLatin1String("id")));
    if (!id) {
        return mensaje;
    }
    mensaje.id = *id;
    const QJsonValue error = objeto.value(QLatin1String("error"));
    if (error.isObject()) {
        const QJsonObject detalle = error.toObject();
        mensaje.kind = RpcMessage::Kind::Error;
        mensaje.codigo = detalle.value(QLatin1String("code")).toInt();
        mensaje.mensaje = detalle.value(QLatin1String("message")).toString();
        mensaje.datos = detalle.value(QLatin1String("data")).toObject();
    } else if (objeto.contains(QLatin1String("result"))) {
        mensaje.kind = RpcMessage::Kind::Respuesta;
        mensaje.resultado = objeto.value(QLatin1String("result"));
    }
    return mensaje;
}

QByteArray CodificarPeticion(qint64 id, const QString& metodo, const QJsonObject& params) {
    QJsonObject objeto{{u"jsonrpc"_s, u"2.0"_s}, {u"id"_s, id}, {u"method"_s, metodo}};
    if (!params.isEmpty()) {
        objeto.insert(u"params"_s, params);
    }
    return QJsonDocument(objeto).toJson(QJsonDocument::Compact) + '\n';
}

} // namespace zv
