// The one seam through which every caller reaches the operator. Screens answer it in the program,
// a script answers it in tests.
#pragma once

#include "platform/Currency.h"

#include <QString>

namespace zv {

// Results of MostrarMensaje, the platform message box's own numbers.
namespace resultado {
inline constexpr int kAceptar = 1;
inline constexpr int kCancelar = 2;
inline constexpr int kReintentar = 4;
inline constexpr int kSi = 6;
inline constexpr int kNo = 7;
} // namespace resultado

class Dialogos {
  public:
    virtual ~Dialogos() = default;

    // Shared message dialog, modal. estilo: 0, 16, 32, 48, 64 one button; 1 accept and cancel;
    // 3, 4 yes and no; 5 retry and cancel. Answers the number of the button.
    virtual int MostrarMensaje(const QString& titulo, const QString& texto, int estilo = 0) = 0;
    // One line of text; empty when cancelled.
    virtual QString PedirTexto(const QString& titulo, const QString& texto,
                               const QString& porDefecto = {}) = 0;
    // An amount in minor units, default in minor units too; cancelado tells how it ended.
    virtual Currency PedirImporte(const QString& titulo, const QString& prompt, Currency porDefecto,
                                  bool sinImporte, bool& cancelado) = 0;
    // The platform's plain message box with one button.
    virtual void CajaSimple(const QString& texto) = 0;
};

} // namespace zv
