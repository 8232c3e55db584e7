// A whole gateway in this process: device, motor and server on a free port.
#pragma once

#include "Banco.h"
#include "ClientePrueba.h"
#include "platform/StringLiterals.h"
#include "simulator/Motor.h"
#include "simulator/Servidor.h"

namespace zv::simulador {

class Mostrador {
  public:
    explicit Mostrador(const Cliente& cliente = Guion::Redondeo, const QString& guionFallos = {},
                       Servidor::Tiempos tiempos = {}, Estado estado = EstadoInicial())
        : banco(std::move(estado)), motor(banco.aparato, cliente, 0),
          servidor(banco.aparato, fallos, tiempos, [this] { ++muertes; }) {
        QString error;
        bien = fallos.Añadir(guionFallos, error) && servidor.Escuchar(0, error);
    }

    Banco banco;
    Fallos fallos;
    Motor motor;
    int muertes = 0;
    Servidor servidor;
    bool bien = false;
};

inline QJsonObject Cobro(const QString& opId, int valor) {
    return {{u"opId"_s, opId}, {u"value"_s, valor}};
}

inline QJsonObject ConOpId(const QString& opId) {
    return {{u"opId"_s, opId}};
}

} // namespace zv::simulador
