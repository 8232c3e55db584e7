// Everything of a running simulator put together, without a window.
#pragma once

#include "simulator/Aparato.h"
#include "simulator/Motor.h"
#include "simulator/Opciones.h"
#include "simulator/Servidor.h"
#include "simulator/Traza.h"

#include <QObject>

#include <functional>
#include <memory>

namespace zv::simulador {

// The money of a folder; a first start makes the float and stores it. False with a text for people.
bool AbrirDinero(Almacen& almacen, Estado& estado, QString& error);

// The total that a folder holds, in cents, without disturbing a simulator that runs on it.
bool LeerSaldo(const QString& carpeta, qint64& saldo, QString& error);

class Simulador : public QObject {
    Q_OBJECT

  public:
    explicit Simulador(Opciones opciones, QObject* padre = nullptr);

    // Takes the folder and the port. False with a text for people; nothing listens then.
    bool Arrancar(QString& error);

    Aparato& ElAparato() { return *aparato_; }
    Motor& ElMotor() { return *motor_; }
    Servidor& ElServidor() { return *servidor_; }
    Fallos& LosFallos() { return opciones_.fallos; }

  Q_SIGNALS:
    void suceso(const QString& linea);
    // The store has failed: the program must end.
    void roto(const QString& error);

  private:
    Opciones opciones_;
    Traza traza_;
    Almacen almacen_;
    std::unique_ptr<Aparato> aparato_;
    std::unique_ptr<Motor> motor_;
    std::unique_ptr<Servidor> servidor_;
};

} // namespace zv::simulador
