#include "simulator/Motor.h"

#include <utility>

namespace zv::simulador {

Motor::Motor(Aparato& aparato, Cliente cliente, int ritmo, QObject* padre)
    : QObject(padre), aparato_(aparato), cliente_(std::move(cliente)) {
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
    cliente_.PonerHabito(guion);
    Despertar();
}

void Motor::Mirar() {
    if (aparato_.EnMarcha() && aparato_.Abierta()->opId != opId_) {
        opId_ = aparato_.Abierta()->opId;
        cliente_.AlEmpezar(*aparato_.Abierta());
    }
}

bool Motor::HayTrabajo() const {
    if (aparato_.TienePaso()) {
        return true;
    }
    return aparato_.Admite() &&
           cliente_.Siguiente(*aparato_.Abierta(), aparato_.PiezasMetidas()).tipo !=
               Gesto::Tipo::Nada;
}

void Motor::Despertar() {
    Mirar();
    if (!timer_.isActive() && HayTrabajo()) {
        timer_.start();
    }
}

bool Motor::Pulso() {
    Mirar();
    if (aparato_.TienePaso()) {
        aparato_.Paso();
        return true;
    }
    if (!aparato_.Admite()) {
        return false;
    }
    const Gesto gesto = cliente_.Siguiente(*aparato_.Abierta(), aparato_.PiezasMetidas());
    if (gesto.tipo == Gesto::Tipo::Terminar) {
        aparato_.Terminar();
    } else if (gesto.tipo == Gesto::Tipo::Cancelar) {
        aparato_.Cancelar(opId_);
    } else if (gesto.tipo == Gesto::Tipo::Pieza && !aparato_.Meter(gesto.valor)) {
        aparato_.Rendirse();
    }
    return gesto.tipo != Gesto::Tipo::Nada;
}

} // namespace zv::simulador
