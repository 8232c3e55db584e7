#include "simulator/Simulador.h"

#include <QUuid>

#include <csignal>
#include <utility>

namespace zv::simulador {

bool AbrirDinero(Almacen& almacen, Estado& estado, QString& error) {
    if (!almacen.Abrir(error)) {
        return false;
    }
    const Almacen::Lectura lectura = almacen.Leer(estado, error);
    if (lectura != Almacen::Lectura::NoExiste) {
        return lectura == Almacen::Lectura::Bien;
    }
    estado = {};
    estado.storeId = QUuid::createUuid().toString(QUuid::WithoutBraces);
    estado.inventario = Inventario::Inicial();
    return almacen.Guardar(estado, error);
}

bool LeerSaldo(const QString& carpeta, qint64& saldo, QString& error) {
    Almacen almacen(carpeta);
    Estado estado;
    const Almacen::Lectura lectura = almacen.Leer(estado, error);
    const bool bien = lectura == Almacen::Lectura::NoExiste ? AbrirDinero(almacen, estado, error)
                                                            : lectura == Almacen::Lectura::Bien;
    saldo = estado.inventario.Saldo();
    return bien;
}

Simulador::Simulador(Opciones opciones, QObject* padre)
    : QObject(padre), opciones_(std::move(opciones)), almacen_(opciones_.carpeta) {}

bool Simulador::Arrancar(QString& error) {
    Estado estado;
    if (!AbrirDinero(almacen_, estado, error)) {
        return false;
    }
    aparato_ = std::make_unique<Aparato>(almacen_, std::move(estado), opciones_.cajones);
    if (!aparato_->Recuperar(error) || !traza_.Abrir(opciones_.traza, error)) {
        return false;
    }
    // As a power cut: nothing is flushed, nothing is said.
    const auto matar = [] { std::raise(SIGKILL); };
    servidor_ = std::make_unique<Servidor>(*aparato_, opciones_.fallos, Servidor::Tiempos{}, matar);
    motor_ = std::make_unique<Motor>(*aparato_, opciones_.cliente, opciones_.ritmo);
    connect(aparato_.get(), &Aparato::suceso, this, &Simulador::suceso);
    connect(servidor_.get(), &Servidor::suceso, this, &Simulador::suceso);
    connect(aparato_.get(), &Aparato::roto, this, &Simulador::roto);
    connect(this, &Simulador::suceso, this,
            [this](const QString& linea) { traza_.Escribir(linea); });
    return servidor_->Escuchar(opciones_.puerto, error);
}

} // namespace zv::simulador
