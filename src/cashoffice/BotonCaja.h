// The ten buttons at the foot of the cash office, boton(0) to boton(9), by name.
#pragma once

#include <array>
#include <cstddef>

namespace zv {

enum class BotonCaja : std::size_t {
    Salir = 0,
    Imprimir = 1,
    CierreNiveles = 2,
    CierreValor = 3,
    Cuadrar = 4,
    VaciarMonedas = 5,
    VaciarBilletes = 6,
    Configuracion = 7,
    Historico = 8,
    ExportCsv = 9
};

inline constexpr std::array<BotonCaja, 10> kBotonesCaja{
    BotonCaja::Salir,          BotonCaja::Imprimir,      BotonCaja::CierreNiveles,
    BotonCaja::CierreValor,    BotonCaja::Cuadrar,       BotonCaja::VaciarMonedas,
    BotonCaja::VaciarBilletes, BotonCaja::Configuracion, BotonCaja::Historico,
    BotonCaja::ExportCsv};

// One value for each of them.
template <typename T>
class PorBotonCaja {
  public:
    T& operator[](BotonCaja boton) { return valores_[static_cast<std::size_t>(boton)]; }
    const T& operator[](BotonCaja boton) const { return valores_[static_cast<std::size_t>(boton)]; }
    bool operator==(const PorBotonCaja&) const = default;

  private:
    std::array<T, kBotonesCaja.size()> valores_{};
};

} // namespace zv
