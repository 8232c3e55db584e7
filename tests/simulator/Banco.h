// A device on a store in memory, with everything it tells written down.
#pragma once

#include "platform/StringLiterals.h"
#include "simulator/Aparato.h"

#include <QStringList>

#include <utility>
#include <vector>

namespace zv::simulador {

// Keeps the last state that was committed; refuses from `fallaDesde` commits on.
class AlmacenMemoria final : public Almacen {
  public:
    AlmacenMemoria() : Almacen(u"/nowhere"_s) {}

    bool Guardar(const Estado& estado, QString& error) override {
        if (fallaDesde >= 0 && guardados >= fallaDesde) {
            error = u"disco lleno"_s;
            return false;
        }
        ++guardados;
        ultimo = estado;
        return true;
    }

    Estado ultimo;
    int guardados = 0;
    int fallaDesde = -1;
};

inline Estado EstadoCon(const Inventario& inventario) {
    Estado estado;
    estado.storeId = u"prueba"_s;
    estado.inventario = inventario;
    return estado;
}

inline Estado EstadoInicial() {
    return EstadoCon(Inventario::Inicial());
}

inline Operacion Pedir(Metodo metodo, qint32 valor = 0, qint32 dejar = 0,
                       const QString& opId = u"op"_s) {
    Operacion op;
    op.opId = opId;
    op.metodo = metodo;
    op.valor = valor;
    op.dejar = dejar;
    return op;
}

class Banco {
  public:
    explicit Banco(Estado estado = EstadoInicial(), CapacidadCajones capacidad = {})
        : aparato(almacen, std::move(estado), capacidad) {
        QObject::connect(&aparato, &Aparato::progreso, &aparato, [this](const Operacion& op) {
            // Nothing is told that the store does not hold.
            durables = durables && almacen.ultimo.abierta &&
                       almacen.ultimo.abierta->entrado >= op.entrado &&
                       almacen.ultimo.abierta->salido >= op.salido;
            progresos.push_back(op);
        });
        QObject::connect(&aparato, &Aparato::acabada, &aparato, [this](const Operacion& op) {
            durables = durables && almacen.ultimo.abierta && almacen.ultimo.abierta->acabada;
            fines.push_back(op);
        });
        QObject::connect(&aparato, &Aparato::suceso, &aparato,
                         [this](const QString& linea) { sucesos.append(linea); });
        QObject::connect(&aparato, &Aparato::roto, &aparato,
                         [this](const QString& error) { roturas.append(error); });
    }

    // Starts with the faults of a script, and takes all steps that wait for nobody.
    void Empezar(const Operacion& op, const QString& guion = {}, Punto punto = Punto::Cobro) {
        Fallos fallos;
        QString error;
        fallos.Añadir(guion, error);
        aparato.Empezar(op, fallos.Toca(punto));
        Correr();
    }
    void Correr() {
        while (aparato.TienePaso()) {
            aparato.Paso();
        }
    }
    // Puts pieces in, taking the device's steps in between.
    void Meter(std::initializer_list<qint32> piezas) {
        for (const qint32 pieza : piezas) {
            aparato.Meter(pieza);
            Correr();
        }
    }
    const Operacion& Fin() const { return fines.back(); }
    qint64 Saldo() const { return aparato.Ver().inventario.Saldo(); }
    int EnReciclador(qint32 valor) const {
        return aparato.Ver().inventario.reciclador.at(*Indice(valor));
    }
    int EnCajon(qint32 valor) const { return aparato.Ver().inventario.cajon.at(*Indice(valor)); }

    AlmacenMemoria almacen;
    Aparato aparato;
    std::vector<Operacion> progresos;
    std::vector<Operacion> fines;
    QStringList sucesos;
    QStringList roturas;
    bool durables = true;
};

} // namespace zv::simulador
