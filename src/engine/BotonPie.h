// The buttons at the foot of the main screen, boton(0) to boton(12), by name: without ñ, which moc
// does not read in an enumeration.
#pragma once

#include <array>
#include <cstddef>

namespace zv {

enum class BotonPie : std::size_t {
    Registro = 0,
    Caja = 1,
    DarCambio = 2,
    AnadirCambio = 3,
    Pago = 4,
    Incidencias = 5,
    Desconectar = 6,
    Conectar = 7,
    CobroManual = 8,
    AgruparCobros = 9,
    Contrasena = 10,
    SinUso = 11, // a number without a button of its own
    Configurar = 12
};

inline constexpr std::array<BotonPie, 13> kBotonesPie{
    BotonPie::Registro,    BotonPie::Caja,          BotonPie::DarCambio,   BotonPie::AnadirCambio,
    BotonPie::Pago,        BotonPie::Incidencias,   BotonPie::Desconectar, BotonPie::Conectar,
    BotonPie::CobroManual, BotonPie::AgruparCobros, BotonPie::Contrasena,  BotonPie::SinUso,
    BotonPie::Configurar};

// One value for each of them.
template <typename T>
class PorBotonPie {
  public:
    T& operator[](BotonPie boton) { return valores_[static_cast<std::size_t>(boton)]; }
    const T& operator[](BotonPie boton) const { return valores_[static_cast<std::size_t>(boton)]; }
    bool operator==(const PorBotonPie&) const = default;
    // In the order of their numbers.
    auto begin() const { return valores_.begin(); }
    auto end() const { return valores_.end(); }

  private:
    std::array<T, kBotonesPie.size()> valores_{};
};

} // namespace zv
