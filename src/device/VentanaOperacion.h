// What the gateway client shows while an operation of the device runs. The screens implement it;
// operations also run without a window (nullptr).
#pragma once

#include <QString>

#include <functional>

namespace zv {

enum class OperationKind {
    Cobro,          // charge
    Abono,          // charge of a negative amount
    Cambio,         // change
    MeterCambio,    // float taken in
    Pago,           // payment out
    ControlCajones, // money to the boxes
    VaciadoCajon,   // a box emptied
    Pendiente,      // an operation of a former run, being cancelled
};

class VentanaOperacion {
  public:
    virtual ~VentanaOperacion() = default;
    // Shows the window. importe: what is asked, in minor units, 0 or above; 0 when the operation
    // has no amount. cancelar: called, at most once, when the operator presses cancel; empty when
    // there is nothing to press. terminar: the same for the key that ends the operation well.
    // Returns at once.
    virtual void Abrir(OperationKind kind, qint32 importe, std::function<void()> cancelar,
                       std::function<void()> terminar) = 0;
    // Totals taken in and given out so far, minor units.
    virtual void Progreso(qint32 paidIn, qint32 paidOut) = 0;
    // A note below the amounts, such as that the link is being recovered; empty takes it away.
    virtual void Aviso(const QString& texto) = 0;
    // The operation cannot be ended from here, but by the device's own key: what has been pressed
    // was in vain, and the key goes.
    virtual void SinTerminar() = 0;
    // Hides the window. Neither action is called after this.
    virtual void Cerrar() = 0;
};

} // namespace zv
