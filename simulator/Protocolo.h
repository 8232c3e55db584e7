// The gateway protocol without its socket: one line in, the answer and what a fault does to it out.
#pragma once

#include "simulator/Aparato.h"
#include "simulator/Fallos.h"

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>

namespace zv::simulador {

inline constexpr quint16 kPuertoNormal = 16510;

// A message as it goes over the wire, with its LF.
QByteArray Linea(const QJsonObject& mensaje);
QByteArray Notificacion(const QString& metodo, const Operacion& op);

class Protocolo {
  public:
    Protocolo(Aparato& aparato, Fallos& fallos) : aparato_(aparato), fallos_(fallos) {}

    struct Atencion {
        QByteArray respuesta;   // empty: nothing to answer
        bool cerrar = false;    // the connection ends after the answer
        bool operacion = false; // an operation began; `acciones` go with it to its end
        Acciones acciones;      // what strikes the answer
    };

    // `saludado` tells whether the connection has said hello, and is set when it does.
    // `alConectar` are the faults that struck its coming.
    Atencion Atender(const QByteArray& linea, bool& saludado, const Acciones& alConectar);

  private:
    Atencion Peticion(const QString& metodo, const QJsonValue& id, const QJsonObject& params);
    Atencion Arranque(Metodo metodo, const QJsonValue& id, const QJsonObject& params);
    Atencion Termino(const QJsonValue& id, const QString& opId);
    Atencion Consulta(const QString& metodo, const QJsonValue& id, const QJsonObject& params);
    QByteArray Saludo(const QJsonValue& id, const QJsonObject& params, bool& saludado) const;
    QByteArray Niveles(const QJsonValue& id, const QJsonObject& params) const;

    Aparato& aparato_;
    Fallos& fallos_;
};

} // namespace zv::simulador
