// A whole gateway in a thread of its own, for clients that block their thread while they wait.
#pragma once

#include "Mostrador.h"

#include <QThread>

#include <memory>

namespace zv::simulador {

class MostradorEnHilo {
  public:
    explicit MostradorEnHilo(const Cliente& cliente = Guion::Redondeo,
                             const QString& guionFallos = {}) {
        contexto_.moveToThread(&hilo_);
        hilo_.start();
        Hacer([&] {
            mostrador_ = std::make_unique<Mostrador>(cliente, guionFallos);
            bien = mostrador_->bien;
            puerto = mostrador_->servidor.Puerto();
        });
    }
    ~MostradorEnHilo() {
        Hacer([this] { mostrador_.reset(); });
        hilo_.quit();
        hilo_.wait();
    }
    MostradorEnHilo(const MostradorEnHilo&) = delete;
    MostradorEnHilo& operator=(const MostradorEnHilo&) = delete;

    // What the work answers that is given the gateway in its thread.
    template <typename Trabajo>
    auto EnHilo(Trabajo trabajo) {
        decltype(trabajo(*mostrador_)) respuesta{};
        Hacer([&] { respuesta = trabajo(*mostrador_); });
        return respuesta;
    }
    qint64 Saldo() {
        return EnHilo([](Mostrador& m) { return m.banco.Saldo(); });
    }
    QStringList Sucesos() {
        return EnHilo([](Mostrador& m) { return m.banco.sucesos; });
    }

    bool bien = false;
    quint16 puerto = 0;

  private:
    template <typename Accion>
    void Hacer(Accion accion) {
        QMetaObject::invokeMethod(&contexto_, accion, Qt::BlockingQueuedConnection);
    }

    QThread hilo_;
    QObject contexto_;
    std::unique_ptr<Mostrador> mostrador_; // lives in hilo_
};

} // namespace zv::simulador
