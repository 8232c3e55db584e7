#include "simulator/Operacion.h"

#include "platform/StringLiterals.h"

#include <array>
#include <utility>

namespace zv::simulador {

namespace {

constexpr std::array<std::pair<Metodo, const char*>, 6> kNombres{{
    {Metodo::Cobro, "charge.start"},
    {Metodo::Cambio, "change.start"},
    {Metodo::Ingreso, "addChange.start"},
    {Metodo::Pago, "pay.start"},
    {Metodo::Cajones, "cashBox.control"},
    {Metodo::Vaciado, "box.empty"},
}};

// The numbers that the durable form keeps beside the state.
using Campo = std::pair<const char*, qint32 Operacion::*>;
constexpr std::array<Campo, 9> kNumeros{{
    {"valor", &Operacion::valor},
    {"dejar", &Operacion::dejar},
    {"codigo", &Operacion::codigo},
    {"entrado", &Operacion::entrado},
    {"salido", &Operacion::salido},
    {"monedasCajon", &Operacion::monedasCajon},
    {"billetesCajon", &Operacion::billetesCajon},
    {"resta", &Operacion::resta},
    {"vaciado", &Operacion::vaciado},
}};

} // namespace

QString NombreMetodo(Metodo metodo) {
    for (const auto& [este, nombre] : kNombres) {
        if (este == metodo) {
            return QString::fromLatin1(nombre);
        }
    }
    return {};
}

std::optional<Metodo> MetodoDeNombre(const QString& nombre) {
    for (const auto& [metodo, este] : kNombres) {
        if (nombre == QLatin1String(este)) {
            return metodo;
        }
    }
    return std::nullopt;
}

QString TextoError(qint32 codigo) {
    switch (codigo) {
    case kSinCambioExacto:
        return u"No hay piezas para el importe exacto"_s;
    case kAtasco:
        return u"Pieza atascada"_s;
    case kCobroSinCambio:
        return u"No hay cambio para el cobro"_s;
    case kCajonLleno:
        return u"Cajón de recaudación lleno"_s;
    case kReinicio:
        return u"El equipo se ha reiniciado durante la operación"_s;
    default:
        return u"Fallo del equipo"_s;
    }
}

QJsonObject Operacion::Estado() const {
    QJsonObject estado{
        {u"opId"_s, opId},
        {u"method"_s, NombreMetodo(metodo)},
        {u"state"_s, acabada ? u"done"_s : u"running"_s},
        {u"paidIn"_s, entrado},
        {u"paidOut"_s, salido},
    };
    if (!acabada) {
        return estado;
    }
    estado.insert(u"ok"_s, ok);
    estado.insert(u"errorCode"_s, codigo);
    estado.insert(u"errorMessage"_s, mensaje);
    if (metodo == Metodo::Cajones) {
        estado.insert(u"coinsValueInCB"_s, monedasCajon);
        estado.insert(u"notesValueInCB"_s, billetesCajon);
        estado.insert(u"remainingChange"_s, resta);
    }
    if (metodo == Metodo::Vaciado) {
        estado.insert(u"value"_s, vaciado);
    }
    return estado;
}

QJsonObject Operacion::AJson() const {
    QJsonObject objeto{
        {u"opId"_s, opId},       {u"metodo"_s, NombreMetodo(metodo)},
        {u"acabada"_s, acabada}, {u"ok"_s, ok},
        {u"mensaje"_s, mensaje},
    };
    for (const auto& [nombre, miembro] : kNumeros) {
        objeto.insert(QLatin1String(nombre), this->*miembro);
    }
    return objeto;
}

std::optional<Operacion> Operacion::DeJson(const QJsonObject& objeto) {
    Operacion op;
    const QJsonValue opId = objeto.value(u"opId"_s);
    const QJsonValue acabada = objeto.value(u"acabada"_s);
    const QJsonValue ok = objeto.value(u"ok"_s);
    const QJsonValue mensaje = objeto.value(u"mensaje"_s);
    const auto metodo = MetodoDeNombre(objeto.value(u"metodo"_s).toString());
    if (!metodo || !opId.isString() || !acabada.isBool() || !ok.isBool() || !mensaje.isString()) {
        return std::nullopt;
    }
    op.opId = opId.toString();
    op.metodo = *metodo;
    op.acabada = acabada.toBool();
    op.ok = ok.toBool();
    op.mensaje = mensaje.toString();
    for (const auto& [nombre, miembro] : kNumeros) {
        const QJsonValue numero = objeto.value(QLatin1String(nombre));
        if (!numero.isDouble()) {
            return std::nullopt;
        }
        op.*miembro = numero.toInt();
    }
    return op;
}

} // namespace zv::simulador
