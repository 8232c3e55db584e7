// Names, texts and the JSON forms of an operation.
#include "simulator/Operacion.h"

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
        if (este == metodo)
            return QString::fromLatin1(nombre);
    }
    return {};
}

std::optional<Metodo> MetodoDeNombre(const QString& nombre) {
    for (const auto& [metodo, este] : kNombres) {
        if (nombre == QLatin1String(este))
            return metodo;
    }
    return std::nullopt;
}

QString TextoError(qint32 codigo) {
    switch (codigo) {
    case kSinCambioExacto:
        return QStringLiteral("No hay piezas para el importe exacto");
    case kAtasco:
        return QStringLiteral("Pieza atascada");
    case kCobroSinCambio:
        return QStringLiteral("No hay cambio para el cobro");
    case kCajonLleno:
        return QStringLiteral("Cajón de recaudación lleno");
    case kReinicio:
        return QStringLiteral("El equipo se ha reiniciado durante la operación");
    default:
        return QStringLiteral("Fallo del equipo");
    }
}

QJsonObject Operacion::Estado() const {
    QJsonObject estado{
        {QStringLiteral("opId"), opId},
        {QStringLiteral("method"), NombreMetodo(metodo)},
        {QStringLiteral("state"), acabada ? QStringLiteral("done") : QStringLiteral("running")},
        {QStringLiteral("paidIn"), entrado},
        {QStringLiteral("paidOut"), salido},
    };
    if (!acabada)
        return estado;
    estado.insert(QStringLiteral("ok"), ok);
    estado.insert(QStringLiteral("errorCode"), codigo);
    estado.insert(QStringLiteral("errorMessage"), mensaje);
    if (metodo == Metodo::Cajones) {
        estado.insert(QStringLiteral("coinsValueInCB"), monedasCajon);
        estado.insert(QStringLiteral("notesValueInCB"), billetesCajon);
        estado.insert(QStringLiteral("remainingChange"), resta);
    }
    if (metodo == Metodo::Vaciado)
        estado.insert(QStringLiteral("value"), vaciado);
    return estado;
}

QJsonObject Operacion::AJson() const {
    QJsonObject objeto{
        {QStringLiteral("opId"), opId},       {QStringLiteral("metodo"), NombreMetodo(metodo)},
        {QStringLiteral("acabada"), acabada}, {QStringLiteral("ok"), ok},
        {QStringLiteral("mensaje"), mensaje},
    };
    for (const auto& [nombre, miembro] : kNumeros)
        objeto.insert(QLatin1String(nombre), this->*miembro);
    return objeto;
}

std::optional<Operacion> Operacion::DeJson(const QJsonObject& objeto) {
    Operacion op;
    const QJsonValue opId = objeto.value(QStringLiteral("opId"));
    const QJsonValue acabada = objeto.value(QStringLiteral("acabada"));
    const QJsonValue ok = objeto.value(QStringLiteral("ok"));
    const QJsonValue mensaje = objeto.value(QStringLiteral("mensaje"));
    const auto metodo = MetodoDeNombre(objeto.value(QStringLiteral("metodo")).toString());
    if (!metodo || !opId.isString() || !acabada.isBool() || !ok.isBool() || !mensaje.isString())
        return std::nullopt;
    op.opId = opId.toString();
    op.metodo = *metodo;
    op.acabada = acabada.toBool();
    op.ok = ok.toBool();
    op.mensaje = mensaje.toString();
    for (const auto& [nombre, miembro] : kNumeros) {
        const QJsonValue numero = objeto.value(QLatin1String(nombre));
        if (!numero.isDouble())
            return std::nullopt;
        op.*miembro = numero.toInt();
    }
    return op;
}

} // namespace zv::simulador
