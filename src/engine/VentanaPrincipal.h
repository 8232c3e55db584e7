// What the engine asks of the main window.
#pragma once

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
};

} // namespace zv
