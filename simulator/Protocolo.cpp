// Requests of the gateway protocol, as docs/gateway-protocol.md tells them.
#include "simulator/Protocolo.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cmath>
#include <limits>
#include <optional>

namespace zv::simulador {

namespace {

constexpr int kVersionProtocolo = 1;
constexpr qsizetype kOpIdMaximo = 64;

enum Error {
    NoEsJson = -32700,
    MalaPeticion = -32600,
    MetodoDesconocido = -32601,
    MalosParametros = -32602,
    Interno = -32603,
    SinSaludo = -32002,
    OtraVersion = -32003,
    OtraOperacion = -32010,
    OperacionDesconocida = -32011,
    NoListo = -32020,
};

QJsonObject Sobre(const QJsonValue& id) {
    return {{QStringLiteral("jsonrpc"), QStringLiteral("2.0")}, {QStringLiteral("id"), id}};
}

QByteArray Resultado(const QJsonValue& id, const QJsonValue& resultado) {
    QJsonObject mensaje = Sobre(id);
    mensaje.insert(QStringLiteral("result"), resultado);
    return Linea(mensaje);
}

QByteArray Fallo(const QJsonValue& id, Error codigo, const QString& texto,
                 const QJsonValue& data = QJsonValue::Undefined) {
    QJsonObject error{{QStringLiteral("code"), static_cast<int>(codigo)},
                      {QStringLiteral("message"), texto}};
    if (!data.isUndefined())
        error.insert(QStringLiteral("data"), data);
    QJsonObject mensaje = Sobre(id);
    mensaje.insert(QStringLiteral("error"), error);
    return Linea(mensaje);
}

QByteArray NoEstaListo(const QJsonValue& id, qint32 codigo) {
    return Fallo(id, Error::NoListo, TextoError(codigo),
                 QJsonObject{{QStringLiteral("errorCode"), codigo}});
}

// An integer of 32 bits; nothing when it is something else.
std::optional<qint32> Entero(const QJsonValue& valor) {
    const double numero = valor.toDouble(std::numeric_limits<double>::quiet_NaN());
    if (!(numero >= std::numeric_limits<qint32>::min() &&
          numero <= std::numeric_limits<qint32>::max()) ||
        numero != std::floor(numero))
        return std::nullopt;
    return static_cast<qint32>(numero);
}

// Amount, mode or box, where the method has one and it is in range.
bool LeerParametros(const QJsonObject& params, Operacion& op) {
    const auto leer = [&params](const QString& nombre, qint32& destino, auto vale) {
        const auto numero = Entero(params.value(nombre));
        if (!numero || !vale(*numero))
            return false;
        destino = *numero;
        return true;
    };
    switch (op.metodo) {
    case Metodo::Cobro:
        return leer(QStringLiteral("value"), op.valor, [](qint32) { return true; });
    case Metodo::Pago:
        return leer(QStringLiteral("value"), op.valor, [](qint32 v) { return v > 0; });
    case Metodo::Cajones: {
        const auto modo = [](qint32 v) { return v == 0 || v == 7 || v == 15; };
        if (!leer(QStringLiteral("mode"), op.valor, modo))
            return false;
        // Only a close by value leaves something that the client chooses.
        return op.valor != 15 ||
               leer(QStringLiteral("remainingChange"), op.dejar, [](qint32 v) { return v >= 0; });
    }
    case Metodo::Vaciado:
        return leer(QStringLiteral("device"), op.valor, [](qint32 v) { return v == 0 || v == 1; });
    default:
        return true;
    }
}

Punto PuntoDe(const Operacion& op) {
    switch (op.metodo) {
    case Metodo::Cobro:
        return op.valor < 0 ? Punto::Abono : Punto::Cobro;
    case Metodo::Cambio:
        return Punto::Cambio;
    case Metodo::Ingreso:
        return Punto::Ingreso;
    case Metodo::Pago:
        return Punto::Pago;
    case Metodo::Cajones:
        return op.valor == 0 ? Punto::Cuadre : Punto::Cierre;
    default:
        return Punto::Vaciado;
    }
}

// The kill that comes before anything has been done travels with the answer that never goes out.
bool SinProcesar(const Acciones& acciones) {
    return Buscar(acciones, TipoFallo::Cortar, Momento::Antes) ||
           Buscar(acciones, TipoFallo::Matar, Momento::Antes);
}

} // namespace

QByteArray Linea(const QJsonObject& mensaje) {
    return QJsonDocument(mensaje).toJson(QJsonDocument::Compact) + '\n';
}

QByteArray Notificacion(const QString& metodo, const Operacion& op) {
    return Linea({{QStringLiteral("jsonrpc"), QStringLiteral("2.0")},
                  {QStringLiteral("method"), metodo},
                  {QStringLiteral("params"), op.Estado()}});
}

Protocolo::Atencion Protocolo::Atender(const QByteArray& linea, bool& saludado,
                                       const Acciones& alConectar) {
    const QJsonDocument documento = QJsonDocument::fromJson(linea);
    if (!documento.isObject())
        return {
            Fallo(QJsonValue::Null, Error::NoEsJson, QStringLiteral("una línea es un objeto JSON")),
            true,
            false,
            {}};
    const QJsonObject mensaje = documento.object();
    const QJsonValue id = mensaje.value(QStringLiteral("id"));
    const QJsonValue metodo = mensaje.value(QStringLiteral("method"));
    const QJsonValue params = mensaje.value(QStringLiteral("params"));
    const bool idVale = id.isUndefined() || id.isString() || id.isDouble() || id.isNull();
    if (mensaje.value(QStringLiteral("jsonrpc")).toString() != QLatin1String("2.0") ||
        !metodo.isString() || !idVale)
        return {Fallo(idVale && !id.isUndefined() ? id : QJsonValue(QJsonValue::Null),
                      Error::MalaPeticion, QStringLiteral("petición mal formada")),
                false,
                false,
                {}};
    if (id.isUndefined())
        return {}; // the protocol has no notification of the client
    if (!params.isUndefined() && !params.isObject())
        return {Fallo(id, Error::MalosParametros, QStringLiteral("params es un objeto")),
                false,
                false,
                {}};
    if (metodo.toString() == QLatin1String("session.hello")) {
        Atencion atencion;
        atencion.acciones = alConectar;
        if (const auto error = Buscar(alConectar, TipoFallo::Error))
            atencion.respuesta = NoEstaListo(id, error->valor);
        else if (!SinProcesar(alConectar))
            atencion.respuesta = Saludo(id, params.toObject(), saludado);
        return atencion;
    }
    if (!saludado)
        return {
            Fallo(id, Error::SinSaludo, QStringLiteral("falta session.hello")), false, false, {}};
    return Peticion(metodo.toString(), id, params.toObject());
}

QByteArray Protocolo::Saludo(const QJsonValue& id, const QJsonObject& params,
                             bool& saludado) const {
    const auto version = Entero(params.value(QStringLiteral("protocol")));
    if (!version)
        return Fallo(id, Error::MalosParametros, QStringLiteral("falta protocol"));
    if (*version != kVersionProtocolo)
        return Fallo(id, Error::OtraVersion, QStringLiteral("sólo se habla la versión 1"));
    saludado = true;
    const Operacion* const abierta = aparato_.Abierta();
    return Resultado(id, QJsonObject{
                             {QStringLiteral("protocol"), kVersionProtocolo},
                             {QStringLiteral("device"), QStringLiteral("ZVSimulador")},
                             {QStringLiteral("storeId"), aparato_.Ver().storeId},
                             {QStringLiteral("currency"), QStringLiteral("EUR")},
                             {QStringLiteral("decimals"), 2},
                             {QStringLiteral("multiplier"), 100},
                             {QStringLiteral("openOp"), abierta ? QJsonValue(abierta->Estado())
                                                                : QJsonValue(QJsonValue::Null)},
                         });
}

Protocolo::Atencion Protocolo::Peticion(const QString& metodo, const QJsonValue& id,
                                        const QJsonObject& params) {
    if (const auto arranque = MetodoDeNombre(metodo))
        return Arranque(*arranque, id, params);
    if (metodo == QLatin1String("levels.get") || metodo == QLatin1String("device.configuration"))
        return Consulta(metodo, id, params);

    const auto responder = [](QByteArray linea) {
        return Atencion{std::move(linea), false, false, {}};
    };
    if (metodo == QLatin1String("ping"))
        return responder(Resultado(id, QJsonObject()));
    if (metodo == QLatin1String("op.last")) {
        const Operacion* const abierta = aparato_.Abierta();
        return responder(
            Resultado(id, abierta ? QJsonValue(abierta->Estado()) : QJsonValue(QJsonValue::Null)));
    }
    const bool cancelar = metodo == QLatin1String("op.cancel");
    const bool acusar = metodo == QLatin1String("op.ack");
    if (!cancelar && !acusar && metodo != QLatin1String("op.status"))
        return responder(
            Fallo(id, Error::MetodoDesconocido, QStringLiteral("método desconocido: ") + metodo));

    const QString opId = params.value(QStringLiteral("opId")).toString();
    if (opId.isEmpty())
        return responder(Fallo(id, Error::MalosParametros, QStringLiteral("falta opId")));
    if (acusar)
        aparato_.Acusar(opId);
    if (acusar)
        return responder(Resultado(id, QJsonObject()));
    const auto op = aparato_.Conocida(opId);
    if (!op)
        return responder(
            Fallo(id, Error::OperacionDesconocida, QStringLiteral("operación desconocida")));
    if (cancelar)
        aparato_.Cancelar(opId);
    return responder(Resultado(id, op->Estado()));
}

Protocolo::Atencion Protocolo::Arranque(Metodo metodo, const QJsonValue& id,
                                        const QJsonObject& params) {
    const auto responder = [](QByteArray linea) {
        return Atencion{std::move(linea), false, false, {}};
    };
    Operacion op;
    op.metodo = metodo;
    op.opId = params.value(QStringLiteral("opId")).toString();
    if (op.opId.isEmpty() || op.opId.size() > kOpIdMaximo)
        return responder(
            Fallo(id, Error::MalosParametros, QStringLiteral("opId tiene de 1 a 64 letras")));
    // The same operation again, whatever else is said of it.
    if (const auto conocida = aparato_.Conocida(op.opId))
        return responder(Resultado(id, conocida->Estado()));
    if (aparato_.Abierta() != nullptr)
        return responder(
            Fallo(id, Error::OtraOperacion, QStringLiteral("hay otra operación abierta")));
    if (!LeerParametros(params, op))
        return responder(
            Fallo(id, Error::MalosParametros, QStringLiteral("parámetros fuera de rango")));

    Atencion atencion;
    atencion.acciones = fallos_.Toca(PuntoDe(op));
    if (SinProcesar(atencion.acciones))
        return atencion;
    if (const auto noListo = Buscar(atencion.acciones, TipoFallo::NoListo)) {
        atencion.respuesta = NoEstaListo(id, noListo->valor);
        return atencion;
    }
    if (!aparato_.Empezar(op, atencion.acciones)) {
        atencion.respuesta =
            Fallo(id, Error::Interno, QStringLiteral("no se puede guardar la operación"));
        return atencion;
    }
    atencion.operacion = true;
    atencion.respuesta = Resultado(id, op.Estado());
    return atencion;
}

Protocolo::Atencion Protocolo::Consulta(const QString& metodo, const QJsonValue& id,
                                        const QJsonObject& params) {
    const bool niveles = metodo == QLatin1String("levels.get");
    Atencion atencion;
    atencion.acciones = fallos_.Toca(niveles ? Punto::Niveles : Punto::Configuracion);
    if (SinProcesar(atencion.acciones))
        return atencion;
    if (const auto descuadre = Buscar(atencion.acciones, TipoFallo::Descuadre))
        aparato_.Descuadrar(descuadre->valor);
    if (const auto error = Buscar(atencion.acciones, TipoFallo::Error))
        atencion.respuesta = NoEstaListo(id, error->valor);
    else
        atencion.respuesta = niveles ? Niveles(id, params) : Resultado(id, QJsonObject());
    return atencion;
}

QByteArray Protocolo::Niveles(const QJsonValue& id, const QJsonObject& params) const {
    const auto tipo = Entero(params.value(QStringLiteral("type")));
    if (!tipo || *tipo < 2 || *tipo > 4)
        return Fallo(id, Error::MalosParametros, QStringLiteral("type es 2, 3 o 4"));
    const Mezcla cuentas = aparato_.Niveles(*tipo);
    QJsonArray noms;
    QJsonArray levels;
    for (std::size_t i = 0; i < kCuantas; ++i) {
        noms.append(kDenominaciones.at(i).valor);
        levels.append(cuentas.at(i));
    }
    return Resultado(
        id, QJsonObject{{QStringLiteral("noms"), noms}, {QStringLiteral("levels"), levels}});
}

} // namespace zv::simulador
