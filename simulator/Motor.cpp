// The beat of the simulated device.
#include "simulator/Motor.h"

namespace zv::simulador {

Motor::Motor(Aparato& aparato, Guion guion, int ritmo, QObject* padre)
    : QObject(padre), aparato_(aparato), guion_(guion) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setInterval(ritmo);
    connect(&timer_, &QTimer::timeout, this, [this] {
        Pulso();
        Despertar();
    });
    connect(&aparato_, &Aparato::cambiado, this, &Motor::Despertar);
}

void Motor::PonerGuion(Guion guion) {
    guion_ = guion;
    Despertar();
}

bool Motor::HayTrabajo() const {
    if (aparato_.TienePaso()) {
        return true;
    }
    return aparato_.Admite() &&
           Siguiente(guion_, *aparato_.Abierta(), aparato_.PiezasMetidas()).tipo !=
               Gesto::Tipo::Nada;
}

void Motor::Despertar() {
    if (!timer_.isActive() && HayTrabajo()) {
        timer_.start();
    }
}

bool Motor::Pulso() {
    if (aparato_.TienePaso()) {
        aparato_.Paso();
        return true;
    }
    if (!aparato_.Admite()) {
        return false;
    }
    const Gesto gesto = Siguiente(guion_, *aparato_.Abierta(), aparato_.PiezasMetidas());
    if (gesto.tipo == Gesto::Tipo::Terminar) {
        aparato_.Terminar();
    } else if (gesto.tipo == Gesto::Tipo::Pieza && !aparato_.Meter(gesto.valor)) {
        aparato_.Rendirse();
    }
    return gesto.tipo != Gesto::Tipo::Nada;
}

} // namespace zv::simulador
