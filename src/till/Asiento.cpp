#include "till/Asiento.h"

#include "platform/ErrorEjecucion.h"

#include <chrono>
#include <exception>

namespace zv {

namespace {

constexpr std::chrono::seconds kEsperaTrasMoverDinero{10};

} // namespace

void Asiento::Abrir(const QString& linea, Espera espera) {
    if (marca_ == Marca::Poner) {
        entorno_.marca.MarcarActivo(true);
    }
    if (espera == Espera::TrasMoverDinero) {
        entorno_.Database().Comenzar(kEsperaTrasMoverDinero);
    } else {
        entorno_.Database().Comenzar();
    }
    entorno_.log.LogLinea(linea);
}

void Asiento::Confirmar(const QString& linea, const std::function<void()>& mostrar) {
    DatabaseEngine& motor = entorno_.Database();
    motor.Confirmar();
    while (motor.Nivel() > 0 && !motor.NivelEscrito()) {
        motor.Confirmar();
    }
    if (mostrar) {
        mostrar();
    }
    entorno_.log.LogLinea(linea);
}

void Asiento::Deshacer(const QString& linea, const std::function<void()>& avisar) {
    std::exception_ptr fallo;
    try {
        entorno_.Database().Deshacer();
    } catch (const ErrorEjecucion&) {
        fallo = std::current_exception();
    }
    if (avisar) {
        avisar();
    }
    if (fallo) {
        std::rethrow_exception(fallo);
    }
    entorno_.log.LogLinea(linea);
}

} // namespace zv
