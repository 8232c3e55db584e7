// Gives the device and its scripted customer their time: one step or one gesture a beat.
#pragma once

#include "simulator/Aparato.h"
#include "simulator/Cliente.h"

#include <QObject>
#include <QTimer>

namespace zv::simulador {

class Motor : public QObject {
    Q_OBJECT

  public:
    // `ritmo` in milliseconds between two beats. The device outlives the motor.
    Motor(Aparato& aparato, Cliente cliente, int ritmo, QObject* padre = nullptr);

    Guion ElGuion() const { return cliente_.Habito(); }
    void PonerGuion(Guion guion);

    // One beat at once. False when nobody has anything to do.
    bool Pulso();

  private:
    void Mirar();
    bool HayTrabajo() const;
    void Despertar();

    Aparato& aparato_;
    Cliente cliente_;
    QString opId_; // the operation that the customer knows of
    QTimer timer_;
};

} // namespace zv::simulador
