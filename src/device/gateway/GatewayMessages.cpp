#include "device/gateway/GatewayMessages.h"

#include "platform/StringLiterals.h"

#include <QJsonArray>

#include <algorithm>
#include <cmath>
#include <limits>

namespace zv {

namespace {

std::optional<qint32> LeerImporte(const QJsonValue& valor) {
    if (!valor.isDouble()) {
        return std::nullopt;
    }
    const double importe = valor.toDouble();
    if (importe != std::floor(importe) || importe < std::numeric_limits<qint32>::min() ||
        importe > std::numeric_limits<qint32>::max()) {
        return std::nullopt;
    }
    return static_cast<qint32>(importe);
}

// A member that must be an amount.
bool Leer(const QJsonObject& objeto, QLatin1String nombre, qint32& destino) {
    const std::optional<qint32> importe = LeerImporte(objeto.value(nombre));
    if (importe) {
        destino = *importe;
    }
    return importe.has_value();
}

// A member that may be missing, but not wrong.
bool LeerOpcional(const QJsonObject& objeto, QLatin1String nombre, bool exigido, qint32& destino) {
    return objeto.contains(nombre) ? Leer(objeto, nombre, destino) : !exigido;
}

// Breaks in a text for people would break the line of the log.
QString UnaLinea(const QString& texto) {
    return texto.simplified();
}

std::optional<QString> LeerLista(const QJsonValue& valor, qsizetype& cuantos) {
    if (!valor.isArray()) {
        return std::nullopt;
    }
    const QJsonArray lista = valor.toArray();
    cuantos = lista.size();
    QString texto;
    for (qsizetype i = 0; i < cuantos; ++i) {
        const std::optional<qint32> numero = LeerImporte(lista.at(i));
        if (!numero) {
            return std::nullopt;
        }
        if (i > 0) {
            texto += u',';
        }
        texto += QString::number(*numero);
    }
    return texto;
}

} // namespace

std::optional<GatewayAddress> LeerDireccion(const QString& texto) {
    const QString limpio = texto.trimmed();
    GatewayAddress direccion;
    QString puerto;
    bool conPuerto = false;
    if (limpio.startsWith(u'[')) {
        const qsizetype cierre = limpio.indexOf(u']');
        if (cierre < 0) {
            return std::nullopt;
        }
        direccion.host = limpio.mid(1, cierre - 1);
        const QString resto = limpio.mid(cierre + 1);
        conPuerto = !resto.isEmpty();
        if (conPuerto && !resto.startsWith(u':')) {
            return std::nullopt;
        }
        puerto = resto.mid(1);
    } else if (limpio.count(u':') == 1) {
        conPuerto = true;
        direccion.host = limpio.section(u':', 0, 0);
        puerto = limpio.section(u':', 1);
    } else {
        direccion.host = limpio;
    }
    direccion.host = direccion.host.trimmed();
    if (direccion.host.isEmpty() || direccion.host.contains(u' ')) {
        return std::nullopt;
    }
    if (conPuerto) {
        bool bien = false;
        const uint numero = puerto.trimmed().toUInt(&bien);
        if (!bien || numero == 0 || numero > 65535) {
            return std::nullopt;
        }
        direccion.puerto = static_cast<quint16>(numero);
    }
    return direccion;
}

qint16 AjustarCodigo(double codigo) {
    if (std::isnan(codigo)) {
        return errorpasarela::kRechazada;
    }
    return static_cast<qint16>(std::clamp(codigo, -32768.0, 32767.0));
}

std::optional<EstadoOperacion> LeerEstado(const QJsonValue& valor) {
    if (!valor.isObject()) {
        return std::nullopt;
    }
    const QJsonObject objeto = valor.toObject();
    EstadoOperacion estado;
    estado.opId = objeto.value(QLatin1String("opId")).toString();
    estado.method = objeto.value(QLatin1String("method")).toString();
    const QString nombre = objeto.value(QLatin1String("state")).toString();
    estado.terminada = nombre == QLatin1String("done");
    if (estado.opId.isEmpty() || (!estado.terminada && nombre != QLatin1String("running")) ||
        !Leer(objeto, QLatin1String("paidIn"), estado.paidIn) ||
        !Leer(objeto, QLatin1String("paidOut"), estado.paidOut)) {
        return std::nullopt;
    }
    if (!estado.terminada) {
        return estado;
    }
    const QJsonValue ok = objeto.value(QLatin1String("ok"));
    const QJsonValue codigo = objeto.value(QLatin1String("errorCode"));
    if (!ok.isBool() || (!ok.toBool() && !codigo.isDouble())) {
        return std::nullopt;
    }
    estado.ok = ok.toBool();
    if (!estado.ok) {
        estado.errorCode = AjustarCodigo(codigo.toDouble());
        if (estado.errorCode == errorpasarela::kEnlacePerdido) {
            // A device that says 1 would have its operation repeated as after a lost link.
            estado.errorCode = errorpasarela::kRechazada;
        }
        estado.errorMessage = objeto.value(QLatin1String("errorMessage")).toString();
    }
    const bool cajones = estado.ok && estado.method == QLatin1String("cashBox.control");
    const bool vaciado = estado.ok && estado.method == QLatin1String("box.empty");
    qint32 queda = 0;
    const bool hayResto = objeto.contains(QLatin1String("remainingChange"));
    if (!LeerOpcional(objeto, QLatin1String("coinsValueInCB"), cajones, estado.coinsValueInCB) ||
        !LeerOpcional(objeto, QLatin1String("notesValueInCB"), cajones, estado.notesValueInCB) ||
        !LeerOpcional(objeto, QLatin1String("remainingChange"), cajones, queda) ||
        !LeerOpcional(objeto, QLatin1String("value"), vaciado, estado.value)) {
        return std::nullopt;
    }
    if (hayResto) {
        estado.remainingChange = queda;
    }
    return estado;
}

QString TextoEstado(const EstadoOperacion& estado) {
    QString texto = UnaLinea(estado.method) + u' ' + UnaLinea(estado.opId) + u' ';
    if (!estado.terminada) {
        texto += u"EN CURSO"_s;
    } else if (estado.ok) {
        texto += u"OK"_s;
    } else if (estado.errorCode > 0) {
        texto += u"ERROR_"_s + QString::number(estado.errorCode);
    } else {
        texto += u"CANCEL"_s;
    }
    texto += u" PAIDINVALUE="_s + QString::number(estado.paidIn) + u" PAIDOUTVALUE="_s +
             QString::number(estado.paidOut);
    if (estado.method == QLatin1String("cashBox.control")) {
        texto += u" COINSVALUEINCB="_s + QString::number(estado.coinsValueInCB) +
                 u" NOTESVALUEINCB="_s + QString::number(estado.notesValueInCB) +
                 u" REMAININGCHANGE="_s + QString::number(estado.remainingChange.value_or(0));
    } else if (estado.method == QLatin1String("box.empty")) {
        texto += u" VALUE="_s + QString::number(estado.value);
    }
    if (estado.terminada) {
        texto += u" ERRORCODE="_s + QString::number(estado.errorCode);
    }
    if (estado.terminada && !estado.ok && estado.errorCode > 0) {
        texto += u" - "_s + UnaLinea(estado.errorMessage);
    }
    return texto;
}

QJsonObject ParamsSaludo() {
    return {{u"protocol"_s, kVersionProtocolo}, {u"client"_s, u"ZVMonitor"_s}};
}

std::optional<Saludo> LeerSaludo(const QJsonValue& valor) {
    if (!valor.isObject()) {
        return std::nullopt;
    }
    const QJsonObject objeto = valor.toObject();
    Saludo saludo;
    saludo.device = objeto.value(QLatin1String("device")).toString();
    saludo.storeId = objeto.value(QLatin1String("storeId")).toString();
    qint32 version = 0;
    qint32 decimales = 0;
    qint32 multiplicador = 0;
    if (saludo.storeId.isEmpty() || !Leer(objeto, QLatin1String("protocol"), version) ||
        !Leer(objeto, QLatin1String("decimals"), decimales) ||
        !Leer(objeto, QLatin1String("multiplier"), multiplicador) || version != kVersionProtocolo ||
        decimales < 0 || decimales > 4 || multiplicador < 1 || multiplicador > 255) {
        return std::nullopt;
    }
    saludo.decimals = static_cast<quint8>(decimales);
    saludo.multiplier = static_cast<quint8>(multiplicador);
    const QJsonValue abierta = objeto.value(QLatin1String("openOp"));
    if (!abierta.isNull() && !abierta.isUndefined()) {
        saludo.openOp = LeerEstado(abierta);
        if (!saludo.openOp) {
            return std::nullopt;
        }
    }
    return saludo;
}

std::optional<GatewayLevels> LeerNiveles(const QJsonValue& valor) {
    if (!valor.isObject()) {
        return std::nullopt;
    }
    const QJsonObject objeto = valor.toObject();
    qsizetype denominaciones = 0;
    qsizetype niveles = 0;
    const auto noms = LeerLista(objeto.value(QLatin1String("noms")), denominaciones);
    const auto levels = LeerLista(objeto.value(QLatin1String("levels")), niveles);
    // Lists of different lengths are handed on: the balance tells that fault itself.
    if (!noms || !levels) {
        return std::nullopt;
    }
    return GatewayLevels{*noms, *levels};
}

} // namespace zv
