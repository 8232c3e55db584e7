// Requests of the gateway protocol, as docs/gateway-protocol.md tells them.
#include "simulator/Protocolo.h"

#include "platform/StringLiterals.h"

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
    NoSeTermina = -32012,
    NoListo = -32020,
};

QJsonObject Sobre(const QJsonValue& id) {
    return {{u"jsonrpc"_s, u"2.0"_s}, {u"id"_s, id}};
}

QByteArray Resultado(const QJsonValue& id, const QJsonValue& resultado) {
    QJsonObject mensaje = Sobre(id);
    mensaje.insert(u"result"_s, resultado);
    return Linea(mensaje);
}

QByteArray Fallo(const QJsonValue& id, Error codigo, const QString& texto,
                 const QJsonValue& data = QJsonValue::Undefined) {
    QJsonObject error{{u"code"_s, static_cast<int>(codigo)}, {u"message"_s, texto}};
    if (!data.isUndefined()) {
        error.insert(u"data"_s, data);
    }
    QJsonObject mensaje = Sobre(id);
    mensaje.insert(u"error"_s, error);
    return Linea(mensaje);
}

QByteArray NoEstaListo(const QJsonValue& id, qint32 codigo) {
    return Fallo(id, Error::NoListo, TextoError(codigo), QJsonObject{{u"errorCode"_s, codigo}});
}

// An integer of 32 bits; nothing when it is something else.
std::optional<qint32> Entero(const QJsonValue& valor) {
    const double numero = valor.toDouble(std::numeric_limits<double>::quiet_NaN());
    if (!(numero >= std::numeric_limits<qint32>::min() &&
          numero <= std::numeric_limits<qint32>::max()) ||
        numero != std::floor(numero)) {
        return std::nullopt;
    }
    return static_cast<qint32>(numero);
}

// Amount, mode or box, where the method has one and it is in range.
bool LeerParametros(const QJsonObject& params, Operacion& op) {
    const auto leer = [&params](const QString& nombre, qint32& destino, auto vale) {
        const auto numero = Entero(params.value(nombre));
        if (!numero || !vale(*numero)) {
            return false;
        }
        destino = *numero;
        return true;
    };
    switch (op.metodo) {
    case Metodo::Cobro:
        return leer(u"value"_s, op.valor, [](qint32) { return true; });
    case Metodo::Pago:
        return leer(u"value"_s, op.valor, [](qint32 v) { return v > 0; });
    case Metodo::Cajones: {
        const auto modo = [](qint32 v) { return v == 0 || v == 7 || v == 15; };
        if (!leer(u"mode"_s, op.valor, modo)) {
            return false;
        }
        // Only a close by value leaves something that the client chooses.
        return op.valor != 15 ||
               leer(u"remainingChange"_s, op.dejar, [](qint32 v) { return v >= 0; });
    }
    case Metodo::Vaciado:
        return leer(u"device"_s, op.valor, [](qint32 v) { return v == 0 || v == 1; });
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
    return Linea({{u"jsonrpc"_s, u"2.0"_s}, {u"method"_s, metodo}, {u"params"_s, op.Estado()}});
}

Protocolo::Atencion Protocolo::Atender(const QByteArray& linea, bool& saludado,
                                       const Acciones& alConectar) {
    const QJsonDocument documento = QJsonDocument::fromJson(linea);
    if (!documento.isObject()) {
        return {Fallo(QJsonValue::Null, Error::NoEsJson, u"una línea es un objeto JSON"_s),
                true,
                false,
                {}};
    }
    const QJsonObject mensaje = documento.object();
    const QJsonValue id = mensaje.value(u"id"_s);
    const QJsonValue metodo = mensaje.value(u"method"_s);
    const QJsonValue params = mensaje.value(u"params"_s);
    const bool idVale = id.isUndefined() || id.isString() || id.isDouble() || id.isNull();
    if (mensaje.value(u"jsonrpc"_s).toString() != QLatin1String("2.0") || !metodo.isString() ||
        !idVale) {
        return {Fallo(idVale && !id.isUndefined() ? id : QJsonValue(QJsonValue::Null),
                      Error::MalaPeticion, u"petición mal formada"_s),
                false,
                false,
                {}};
    }
    if (id.isUndefined()) {
        return {}; // the protocol has no notification of the client
    }
    if (!params.isUndefined() && !params.isObject()) {
        return {Fallo(id, Error::MalosParametros, u"params es un objeto"_s), false, false, {}};
    }
    if (metodo.toString() == QLatin1String("session.hello")) {
        Atencion atencion;
        atencion.acciones = alConectar;
        if (const auto error = Buscar(alConectar, TipoFallo::Error)) {
            atencion.respuesta = NoEstaListo(id, error->valor);
        } else if (!SinProcesar(alConectar)) {
            atencion.respuesta = Saludo(id, params.toObject(), saludado);
        }
        return atencion;
    }
    if (!saludado) {
        return {Fallo(id, Error::SinSaludo, u"falta session.hello"_s), false, false, {}};
    }
    return Peticion(metodo.toString(), id, params.toObject());
}

QByteArray Protocolo::Saludo(const QJsonValue& id, const QJsonObject& params,
                             bool& saludado) const {
    const auto version = Entero(params.value(u"protocol"_s));
    if (!version) {
        return Fallo(id, Error::MalosParametros, u"falta protocol"_s);
    }
    if (*version != kVersionProtocolo) {
        return Fallo(id, Error::OtraVersion, u"sólo se habla la versión 1"_s);
    }
    saludado = true;
    const Operacion* const abierta = aparato_.Abierta();
    return Resultado(id, QJsonObject{
                             {u"protocol"_s, kVersionProtocolo},
                             {u"device"_s, u"ZVSimulador"_s},
                             {u"storeId"_s, aparato_.Ver().storeId},
                             {u"currency"_s, u"EUR"_s},
                             {u"decimals"_s, 2},
                             {u"multiplier"_s, 100},
                             {u"openOp"_s, abierta ? QJsonValue(abierta->Estado())
                                                   : QJsonValue(QJsonValue::Null)},
                         });
}

Protocolo::Atencion Protocolo::Peticion(const QString& metodo, const QJsonValue& id,
                                        const QJsonObject& params) {
    if (const auto arranque = MetodoDeNombre(metodo)) {
        return Arranque(*arranque, id, params);
    }
    if (metodo == QLatin1String("levels.get") || metodo == QLatin1String("device.configuration")) {
        return Consulta(metodo, id, params);
    }

    const auto responder = [](QByteArray linea) {
        return Atencion{std::move(linea), false, false, {}};
    };
    if (metodo == QLatin1String("ping")) {
        return responder(Resultado(id, QJsonObject()));
    }
    if (metodo == QLatin1String("op.last")) {
        const Operacion* const abierta = aparato_.Abierta();
        return responder(
            Resultado(id, abierta ? QJsonValue(abierta->Estado()) : QJsonValue(QJsonValue::Null)));
    }
    const bool cancelar = metodo == QLatin1String("op.cancel");
    const bool acusar = metodo == QLatin1String("op.ack");
    const bool terminar = metodo == QLatin1String("op.finish");
    if (!cancelar && !acusar && !terminar && metodo != QLatin1String("op.status")) {
        return responder(Fallo(id, Error::MetodoDesconocido, u"método desconocido: "_s + metodo));
    }

    const QString opId = params.value(u"opId"_s).toString();
    if (opId.isEmpty()) {
        return responder(Fallo(id, Error::MalosParametros, u"falta opId"_s));
    }
    if (acusar) {
        aparato_.Acusar(opId);
        return responder(Resultado(id, QJsonObject()));
    }
    if (terminar) {
        return Termino(id, opId);
    }
    const auto op = aparato_.Conocida(opId);
    if (!op) {
        return responder(Fallo(id, Error::OperacionDesconocida, u"operación desconocida"_s));
    }
    if (cancelar) {
        aparato_.Cancelar(opId);
    }
    return responder(Resultado(id, op->Estado()));
}

Protocolo::Atencion Protocolo::Termino(const QJsonValue& id, const QString& opId) {
    Atencion atencion;
    const auto op = aparato_.Conocida(opId);
    if (!op) {
        atencion.respuesta = Fallo(id, Error::OperacionDesconocida, u"operación desconocida"_s);
        return atencion;
    }
    if (!SeTermina(op->metodo)) {
        atencion.respuesta = Fallo(id, Error::NoSeTermina, u"esta operación acaba sola"_s);
        return atencion;
    }
    atencion.acciones = fallos_.Toca(Punto::Terminar);
    if (SinProcesar(atencion.acciones)) {
        return atencion;
    }
    if (const auto error = Buscar(atencion.acciones, TipoFallo::Error)) {
        atencion.respuesta = NoEstaListo(id, error->valor);
        return atencion;
    }
    aparato_.PedirTermino(opId);
    atencion.respuesta = Resultado(id, op->Estado());
    return atencion;
}

Protocolo::Atencion Protocolo::Arranque(Metodo metodo, const QJsonValue& id,
                                        const QJsonObject& params) {
    const auto responder = [](QByteArray linea) {
        return Atencion{std::move(linea), false, false, {}};
    };
    Operacion op;
    op.metodo = metodo;
    op.opId = params.value(u"opId"_s).toString();
    if (op.opId.isEmpty() || op.opId.size() > kOpIdMaximo) {
        return responder(Fallo(id, Error::MalosParametros, u"opId tiene de 1 a 64 letras"_s));
    }
    // The same operation again, whatever else is said of it.
    if (const auto conocida = aparato_.Conocida(op.opId)) {
        return responder(Resultado(id, conocida->Estado()));
    }
    if (aparato_.Abierta() != nullptr) {
        return responder(Fallo(id, Error::OtraOperacion, u"hay otra operación abierta"_s));
    }
    if (!LeerParametros(params, op)) {
        return responder(Fallo(id, Error::MalosParametros, u"parámetros fuera de rango"_s));
    }

    Atencion atencion;
    atencion.acciones = fallos_.Toca(PuntoDe(op));
    if (SinProcesar(atencion.acciones)) {
        return atencion;
    }
    if (const auto noListo = Buscar(atencion.acciones, TipoFallo::NoListo)) {
        atencion.respuesta = NoEstaListo(id, noListo->valor);
        return atencion;
    }
    if (!aparato_.Empezar(op, atencion.acciones)) {
        atencion.respuesta = Fallo(id, Error::Interno, u"no se puede guardar la operación"_s);
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
    if (SinProcesar(atencion.acciones)) {
        return atencion;
    }
    if (const auto descuadre = Buscar(atencion.acciones, TipoFallo::Descuadre)) {
        aparato_.Descuadrar(descuadre->valor);
    }
    if (const auto error = Buscar(atencion.acciones, TipoFallo::Error)) {
        atencion.respuesta = NoEstaListo(id, error->valor);
    } else {
        atencion.respuesta = niveles ? Niveles(id, params) : Resultado(id, QJsonObject());
    }
    return atencion;
}

QByteArray Protocolo::Niveles(const QJsonValue& id, const QJsonObject& params) const {
    const auto tipo = Entero(params.value(u"type"_s));
    if (!tipo || *tipo < 2 || *tipo > 4) {
        return Fallo(id, Error::MalosParametros, u"type es 2, 3 o 4"_s);
    }
    const Mezcla cuentas = aparato_.Niveles(*tipo);
    QJsonArray noms;
    QJsonArray levels;
    for (std::size_t i = 0; i < kCuantas; ++i) {
        noms.append(kDenominaciones.at(i).valor);
        levels.append(cuentas.at(i));
    }
    return Resultado(id, QJsonObject{{u"noms"_s, noms}, {u"levels"_s, levels}});
}

} // namespace zv::simulador
