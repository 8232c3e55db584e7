#include "zvpos/Mensajes.h"

#include "platform/CodePage.h"
#include "platform/StringLiterals.h"

#include <algorithm>

namespace zv::zvpos {

namespace {

const auto kAñadida = QByteArrayLiteral("OK|Added");
const auto kExiste = QByteArrayLiteral("NOK|Already exists");
const auto kFallo = QByteArrayLiteral("NOK|Failed");
const auto kSinVenta = QByteArrayLiteral("NOK|Not found");
const auto kAceptado = QLatin1String("OK|");
const auto kRechazado = QLatin1String("NOK|");

struct Motivo {
    const char* respuesta;
    const char* texto;
};
// Why a sale was not taken.
constexpr Motivo kMotivos[] = {
    {"NOK|Amount too big", "el monitor no admite ese importe"},
    {"NOK|Invalid ID", "el monitor no admite ese ID"},
    {"NOK|Failed", "el monitor no ha podido guardar la venta"},
};

// The answer's words on one line, whatever a record holds.
QString UnaLinea(const QString& texto) {
    QString linea = texto;
    std::replace_if(
        linea.begin(), linea.end(), [](QChar c) { return c.category() == QChar::Other_Control; },
        QLatin1Char(' '));
    return linea;
}

Veredicto NoEntendida(const QString& respuesta) {
    return {SinRespuesta,
            {},
            u"no se entiende la respuesta \"%1\"; ¿es un ZVMonitor?"_s.arg(UnaLinea(respuesta))};
}

} // namespace

QByteArray MensajeCobro(const Venta& venta) {
    QStringList campos{u"C"_s,
                       venta.id,
                       QString::number(venta.importe),
                       venta.id2,
                       QString::number(venta.caja),
                       venta.terminal,
                       venta.vendedor,
                       venta.formaPago};
    // What is left out is empty or 0 at the other end.
    constexpr qsizetype kCaja = 4;
    constexpr qsizetype kObligados = 3;
    while (campos.size() > kObligados &&
           (campos.last().isEmpty() ||
            (campos.size() == kCaja + 1 && campos.last() == QLatin1String("0")))) {
        campos.removeLast();
    }
    return ACodePage(campos.join(QLatin1Char('|')));
}

QByteArray MensajeEstado(const QString& id) {
    return "S|" + ACodePage(id);
}

QList<QByteArray> RespuestasCobro() {
    QList<QByteArray> todas{kAñadida, kExiste};
    for (const Motivo& motivo : kMotivos) {
        todas.append(motivo.respuesta);
    }
    return todas;
}

QList<QByteArray> RespuestasEstado() {
    return {"OK|PENDING", "OK|OK", "OK|ERROR", "OK|CANCEL", "OK|REENVIADO", kSinVenta, kFallo};
}

Avance MirarRespuesta(const QByteArray& recibido, const QList<QByteArray>& conocidas) {
    if (conocidas.contains(recibido)) {
        return Avance::Completa;
    }
    const bool empezada =
        std::any_of(conocidas.begin(), conocidas.end(),
                    [&](const QByteArray& conocida) { return conocida.startsWith(recibido); });
    return empezada ? Avance::Empezada : Avance::Otra;
}

Veredicto JuzgarCobro(const QString& respuesta) {
    if (respuesta == QLatin1String(kAñadida)) {
        return {Bien, u"Added"_s, {}};
    }
    if (!respuesta.startsWith(kRechazado)) {
        return NoEntendida(respuesta);
    }
    const QString salida = UnaLinea(respuesta.mid(kRechazado.size()));
    if (respuesta == QLatin1String(kExiste)) {
        return {YaExiste, salida, u"ya hay una venta con ese ID; no se ha puesto otra"_s};
    }
    for (const Motivo& motivo : kMotivos) {
        if (respuesta == QLatin1String(motivo.respuesta)) {
            return {NoAceptada, salida, QString::fromUtf8(motivo.texto)};
        }
    }
    return {NoAceptada, salida, u"el monitor no ha aceptado la venta"_s};
}

Veredicto JuzgarEstado(const QString& respuesta) {
    if (respuesta == QLatin1String(kSinVenta)) {
        return {Desconocida, u"Not found"_s, u"no hay ninguna venta con ese ID"_s};
    }
    if (respuesta == QLatin1String(kFallo)) {
        return {SinRespuesta, {}, u"el monitor no ha podido mirar en su base de datos"_s};
    }
    // "Added" answers another message: no state of a sale.
    if (!respuesta.startsWith(kAceptado) || respuesta == QLatin1String(kAñadida)) {
        return NoEntendida(respuesta);
    }
    const QString estado = respuesta.mid(kAceptado.size());
    const QString salida = UnaLinea(estado);
    if (estado == QLatin1String("OK")) {
        return {Bien, salida, {}};
    }
    if (estado == QLatin1String("PENDING")) {
        return {Pendiente, salida, {}};
    }
    return {NoAceptada, salida, {}};
}

} // namespace zv::zvpos
