// One operation of the device: what was asked, how far it has come, how it ended.
#pragma once

#include <QJsonObject>
#include <QString>
#include <QtGlobal>

#include <optional>

namespace zv::simulador {

enum class Metodo { Cobro, Cambio, Ingreso, Pago, Cajones, Vaciado };

// "charge.start" and its like.
QString NombreMetodo(Metodo metodo);
std::optional<Metodo> MetodoDeNombre(const QString& nombre);
// It takes in what is put in until somebody says that this was all.
constexpr bool SeTermina(Metodo metodo) {
    return metodo == Metodo::Cambio || metodo == Metodo::Ingreso;
}

// Device errors. 1 belongs to the client.
inline constexpr qint32 kSinCambioExacto = 4; // a payment that the pieces there cannot make
inline constexpr qint32 kAtasco = 12;         // a piece is stuck
inline constexpr qint32 kCobroSinCambio = 27; // a charge whose change cannot be made
inline constexpr qint32 kCajonLleno = 31;     // no room for a piece
inline constexpr qint32 kReinicio = 90;       // the device went down in the middle

QString TextoError(qint32 codigo);

struct Operacion {
    QString opId;
    Metodo metodo = Metodo::Cobro;
    qint32 valor = 0; // asked: amount, mode or box
    qint32 dejar = 0; // cashBox.control mode 15: the value that stays

    bool acabada = false;
    bool ok = false;
    qint32 codigo = 0; // above 0 a device error; 0 and not ok: cancelled
    QString mensaje;
    qint32 entrado = 0;
    qint32 salido = 0;
    qint32 monedasCajon = 0;
    qint32 billetesCajon = 0;
    qint32 resta = 0;
    qint32 vaciado = 0;

    // The operation state of the protocol.
    QJsonObject Estado() const;
    // The durable form, and back; nothing when a member is missing or of another type.
    QJsonObject AJson() const;
    static std::optional<Operacion> DeJson(const QJsonObject& objeto);
};

} // namespace zv::simulador
