// A whole gateway in a thread of its own, for clients that block their thread while they wait.
#pragma once

#include "Mostrador.h"

#include <QThread>

#include <memory>

namespace zv::simulador {

class MostradorEnHilo {
  public:
    explicit MostradorEnHilo(const Cliente& cliente, const QString& guionFallos = {}) {
        contexto_.moveToThread(&hilo_);
        hilo_.start();
        EnHilo([&] {
            mostrador_ = std::make_unique<Mostrador>(cliente, guionFallos);
            bien = mostrador_->bien;
            puerto = mostrador_->servidor.Puerto();
        });
    }
    ~MostradorEnHilo() {
        EnHilo([this] { mostrador_.reset(); });
        hilo_.quit();
        hilo_.wait();
    }
    MostradorEnHilo(const MostradorEnHilo&) = delete;
    MostradorEnHilo& operator=(const MostradorEnHilo&) = delete;

    qint64 Saldo() {
        qint64 saldo = 0;
        EnHilo([&] { saldo = mostrador_->banco.Saldo(); });
        return saldo;
    }
    QStringList Sucesos() {
        QStringList sucesos;
        EnHilo([&] { sucesos = mostrador_->banco.sucesos; });
        return sucesos;
    }

    bool bien = false;
    quint16 puerto = 0;

  private:
    template <typename Accion>
    void EnHilo(Accion accion) {
        QMetaObject::invokeMethod(&contexto_, accion, Qt::BlockingQueuedConnection);
    }

    QThread hilo_;
    QObject contexto_;
    std::unique_ptr<Mostrador> mostrador_; // lives in hilo_
};

} // namespace zv::simulador
