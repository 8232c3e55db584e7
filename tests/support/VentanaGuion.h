// An operation window that keeps what it is shown, and presses its keys when the test says.
#pragma once

#include "device/VentanaOperacion.h"
#include "platform/StringLiterals.h"

#include <QStringList>

namespace zv {

class VentanaGuion final : public VentanaOperacion {
  public:
    void Abrir(OperationKind kind, qint32 importe, std::function<void()> cancelar,
               std::function<void()> terminar) override {
        lineas << u"abrir %1 %2%3%4"_s.arg(static_cast<int>(kind))
                      .arg(importe)
                      .arg(cancelar ? QString() : u" sin cancelar"_s)
                      .arg(terminar ? u" con terminar"_s : QString());
        cancelar_ = std::move(cancelar);
        terminar_ = std::move(terminar);
        if (alAbrir) {
            alAbrir();
        }
    }
    void Progreso(qint32 paidIn, qint32 paidOut) override {
        lineas << u"progreso %1 %2"_s.arg(paidIn).arg(paidOut);
        if (alProgresar) {
            alProgresar();
        }
    }
    void Aviso(const QString& texto) override {
        lineas << u"aviso "_s + texto;
        if (alAvisar) {
            alAvisar();
        }
    }
    void SinTerminar() override {
        lineas << u"sin terminar"_s;
        if (alNegar) {
            alNegar();
        }
    }
    void Cerrar() override {
        lineas << u"cerrar"_s;
        cancelar_ = {};
        terminar_ = {};
        if (alCerrar) {
            alCerrar();
        }
    }
    void Cancelar() const { cancelar_(); }
    void Terminar() const { terminar_(); }

    QStringList lineas;
    std::function<void()> alAbrir;
    std::function<void()> alProgresar;
    std::function<void()> alAvisar;
    std::function<void()> alNegar;
    std::function<void()> alCerrar;

  private:
    std::function<void()> cancelar_;
    std::function<void()> terminar_;
};

} // namespace zv
