#include "app/screens/Programa.h"

#include "platform/ErrorEjecucion.h"
#include "platform/StringLiterals.h"

#include <QCoreApplication>

#include <cstdlib>

namespace zv {

Programa::Programa(const Opciones& opciones, const Clock& reloj)
    : servicios_(opciones, reloj),
      manual_(QCoreApplication::applicationDirPath(), servicios_.textos),
      operacion_(servicios_.textos, servicios_.importes, [this] { return Padre(); }),
      cliente_(servicios_.log, servicios_.textos, &operacion_),
      dialogos_(opciones.programa, servicios_.textos, servicios_.importes,
                [this] { return Padre(); }),
      pantallas_([this] { return Padre(); }, [this] { pantalla_->MostrarBotonAcceso(); }) {}

QWidget* Programa::Padre() {
    // A dialog on a window that is not shown would not be shown either.
    return pantalla_ && pantalla_->isVisible() ? &*pantalla_ : nullptr;
}

bool Programa::Arrancar() {
    monitor_.emplace(servicios_, Exterior{cliente_, dialogos_, procesos_, shell_, pantallas_});
    pantallas_.PonerEntorno(monitor_->Partes().entorno);
    pantallas_.PonerPuertoLibre(
        [this](quint16 puerto) { return monitor_->Fast().PuertoLibre(puerto); });
    pantalla_.emplace(
        monitor_->Partes(),
        AccionesVentana{[this] { Terminar(); },
                        [this] { shell_.AbrirDireccion(manual_.Direccion()); },
                        [this](const QString& codigo, const std::function<void()>& vaciar) {
                            monitor_->Barras().Enter(codigo, vaciar);
                        }});
    monitor_->PonerVentana(*pantalla_);
    senal_.emplace([this] { Terminar(); });
    return monitor_->Cargar();
}

void Programa::Terminar() {
    monitor_->Descargar();
    std::_Exit(EXIT_SUCCESS);
}

void Programa::ContarFallo(const QString& texto) {
    if (monitor_) {
        // No sale may start under the box of a program that is about to end.
        monitor_->Detener();
    }
    try {
        servicios_.log.LogLinea(texto);
    } catch (const ErrorEjecucion&) {
        // The log cannot be written; the operator is told all the same.
    }
    dialogos_.CajaSimple(texto);
}

} // namespace zv
