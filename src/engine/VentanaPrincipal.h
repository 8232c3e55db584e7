// What the engine and the start-up ask of the main window.
#pragma once

#include <QString>

namespace zv {

// Window states, the platform's own numbers.
namespace ventana {
inline constexpr int kNormal = 0;
inline constexpr int kMinimizada = 1;
inline constexpr int kMaximizada = 2;
} // namespace ventana

class VentanaPrincipal {
  public:
    virtual ~VentanaPrincipal() = default;

    virtual int WindowState() const = 0;
    virtual void PonerWindowState(int estado) = 0;
    // Shows the window and raises it above the others once.
    virtual void TraerAlFrente() = 0;

    // Start-up, in this order.
    virtual void Traducir() = 0;     // captions from the language file
    virtual void PonerIcono() = 0;   // "ICOZVCON"
    virtual void PrepararGrid() = 0; // titles and widths of the columns
    virtual void PonerVersion(const QString& caption) = 0;
    virtual void Mostrar() = 0;
};

} // namespace zv
