// The gateway's messages as values: hello, operation state, levels, and the address it listens at.
// Each reader gives nothing for a message that breaks the protocol. Amounts in minor units.
#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QString>

#include <optional>

namespace zv {

inline constexpr int kVersionProtocolo = 1;
inline constexpr quint16 kPuertoPasarela = 16510;

// Error codes of the gateway's link as the client uses them.
namespace rpc {
inline constexpr int kOperacionDesconocida = -32011;
} // namespace rpc

// What the client itself puts in ErrorCode.
namespace errorpasarela {
inline constexpr qint16 kEnlacePerdido = 1;
inline constexpr qint16 kRechazada = 900; // refused without a code of its own
inline constexpr qint16 kProtocolo = 902; // the gateway broke the protocol
inline constexpr qint16 kEnCurso = 903;   // another operation of this client runs
inline constexpr qint16 kCerrando = 904;  // the program ends
inline constexpr qint16 kNoTermina = 905; // a cancelled operation that never ended
} // namespace errorpasarela

struct GatewayAddress {
    QString host;
    quint16 puerto = kPuertoPasarela;
};

// "host", "host:port", "[v6]:port" or a bare IPv6 address. Nothing when it is none of them.
std::optional<GatewayAddress> LeerDireccion(const QString& texto);

struct EstadoOperacion {
    QString opId;
    QString method;
    bool terminada = false;
    qint32 paidIn = 0;
    qint32 paidOut = 0;
    // From here on only of one that has ended.
    bool ok = false;
    qint16 errorCode = 0; // never 1, which is the client's
    QString errorMessage;
    qint32 coinsValueInCB = 0;
    qint32 notesValueInCB = 0;
    std::optional<qint32> remainingChange;
    qint32 value = 0;
};

std::optional<EstadoOperacion> LeerEstado(const QJsonValue& valor);

// The state for the log: method, opId, result, amounts, code. No line breaks.
QString TextoEstado(const EstadoOperacion& estado);

struct Saludo {
    QString device;
    QString storeId;
    quint8 decimals = 2;
    quint8 multiplier = 100;
    std::optional<EstadoOperacion> openOp;
};

std::optional<Saludo> LeerSaludo(const QJsonValue& valor);
QJsonObject ParamsSaludo();

struct GatewayLevels {
    QString noms;   // comma-separated
    QString levels; // comma-separated, as many
};

std::optional<GatewayLevels> LeerNiveles(const QJsonValue& valor);

// A code of the gateway as ErrorCode holds it: clamped to 16 bits.
qint16 AjustarCodigo(double codigo);

} // namespace zv
