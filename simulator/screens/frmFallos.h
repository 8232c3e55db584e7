// Faults for the next operation, at the touch of a button.
#pragma once

#include "simulator/Simulador.h"
#include "ui/screens/FramelessWindow.h"

namespace zv::simulador {

class frmFallos final : public FramelessWindow {
    Q_OBJECT

  public:
    explicit frmFallos(Simulador& simulador, QWidget* padre = nullptr);

  Q_SIGNALS:
    // The rules that wait have changed.
    void cambiados();

  private:
    void Añadir(const QString& regla);

    Simulador& simulador_;
};

} // namespace zv::simulador
