// A long grid fills in steps, so that its screen is never kept waiting: the first rows stand at
// once, and each further step is asked for. Without someone to ask, the whole grid is filled.
#pragma once

#include <cstddef>
#include <functional>
#include <utility>

namespace zv {

class Rejilla;

class RellenoRejilla {
  public:
    // Rows that stand before the screen is shown.
    static constexpr std::size_t kPrimeras = 500;

    // poner adds the row of that number, from 0, to the grid; puestas runs after each step.
    RellenoRejilla(Rejilla& rejilla, std::function<void(std::size_t)> poner,
                   std::function<void()> puestas)
        : rejilla_(rejilla), poner_(std::move(poner)), alPoner_(std::move(puestas)) {}
    RellenoRejilla(const RellenoRejilla&) = delete;
    RellenoRejilla& operator=(const RellenoRejilla&) = delete;

    // Who is asked for the next step answers with Seguir.
    void PorPasos(std::function<void()> pedir) { pedirPaso_ = std::move(pedir); }

    // So many rows; of them, those that stand at once.
    void Empezar(std::size_t cuantas, std::size_t primeras = kPrimeras);
    // A step of a few milliseconds; answers whether another one is wanted.
    bool Seguir();
    // The rows that are still to come, at once: for who prints or exports them.
    void Completar();
    // They never come.
    void Olvidar() { cuantas_ = puestas_ = 0; }

    bool Faltan() const { return puestas_ < cuantas_; }
    std::size_t Puestas() const { return puestas_; }

  private:
    void Hasta(std::size_t fin);

    Rejilla& rejilla_;
    std::function<void(std::size_t)> poner_;
    std::function<void()> alPoner_;
    std::function<void()> pedirPaso_;
    std::size_t cuantas_ = 0;
    std::size_t puestas_ = 0;
};

} // namespace zv
