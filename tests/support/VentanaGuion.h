// An operation window that keeps what it is shown, and presses cancel when the test says.
#pragma once

#include "device/VentanaOperacion.h"

#include <QStringList>

namespace zv {

class VentanaGuion final : public VentanaOperacion {
  public:
    void Abrir(ClaseOperacion clase, qint32 importe, std::function<void()> cancelar) override {
        lineas << QStringLiteral("abrir %1 %2%3")
                      .arg(static_cast<int>(clase))
                      .arg(importe)
                      .arg(cancelar ? QString() : QStringLiteral(" sin cancelar"));
        cancelar_ = std::move(cancelar);
        if (alAbrir) {
            alAbrir();
        }
    }
    void Progreso(qint32 paidIn, qint32 paidOut) override {
        lineas << QStringLiteral("progreso %1 %2").arg(paidIn).arg(paidOut);
        if (alProgresar) {
            alProgresar();
        }
    }
    void Aviso(const QString& texto) override {
        lineas << QStringLiteral("aviso ") + texto;
        if (alAvisar) {
            alAvisar();
        }
    }
    void Cerrar() override {
        lineas << QStringLiteral("cerrar");
        cancelar_ = {};
    }
    void Cancelar() const { cancelar_(); }

    QStringList lineas;
    std::function<void()> alAbrir;
    std::function<void()> alProgresar;
    std::function<void()> alAvisar;

  private:
    std::function<void()> cancelar_;
};

} // namespace zv
