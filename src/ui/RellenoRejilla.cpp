#include "ui/RellenoRejilla.h"

#include "ui/Rejilla.h"

#include <QElapsedTimer>

#include <algorithm>

namespace zv {
namespace {

constexpr std::size_t kFilasSeguidas = 100; // between two looks at the clock
constexpr qint64 kPasoMs = 15;

} // namespace

void RellenoRejilla::Empezar(std::size_t cuantas, std::size_t primeras) {
    cuantas_ = cuantas;
    puestas_ = 0;
    Hasta(pedirPaso_ ? primeras : cuantas);
    alPoner_();
    if (Faltan()) {
        pedirPaso_();
    }
}

bool RellenoRejilla::Seguir() {
    if (!Faltan()) {
        return false; // somebody could not wait for the step
    }
    QElapsedTimer reloj;
    reloj.start();
    {
        const SinDibujo sinDibujo(rejilla_);
        do {
            Hasta(puestas_ + kFilasSeguidas);
        } while (Faltan() && reloj.elapsed() < kPasoMs);
    }
    alPoner_();
    return Faltan();
}

void RellenoRejilla::Completar() {
    if (Faltan()) {
        Hasta(cuantas_);
        alPoner_();
    }
}

void RellenoRejilla::Hasta(std::size_t fin) {
    const SinDibujo sinDibujo(rejilla_);
    for (fin = std::min(fin, cuantas_); puestas_ < fin; ++puestas_) {
        poner_(puestas_);
    }
}

} // namespace zv
