// The screens of the program behind the port that opens them.
#pragma once

#include "access/screens/LoginPantalla.h"
#include "registers/Listado.h"
#include "till/Entorno.h"

#include <functional>
#include <optional>

class QWidget;

namespace zv {

class PantallasPrograma final : public Pantallas {
  public:
    // padre gives the window over which screens come up; it may give none. botonAcceso shows the
    // floating button, which belongs to the main screen.
    explicit PantallasPrograma(std::function<QWidget*()> padre,
                               std::function<void()> botonAcceso = {})
        : padre_(std::move(padre)), botonAcceso_(std::move(botonAcceso)) {}

    // Whether the fast link could listen on a port: for the settings.
    void PonerPuertoLibre(std::function<bool(quint16)> libre) { puertoLibre_ = std::move(libre); }

    // The till that the screens work with: once, before the first of them is asked for. It must
    // outlive this.
    void PonerEntorno(Entorno& entorno);

    bool Existe(Pantalla pantalla) const override;
    void Abrir(Pantalla pantalla) override;
    void AbrirBalanza(Configuracio& cfg) override;
    bool ValidarUsuari(qint16 nivel, const QString& lugar) override;

  private:
    void AbrirUsuarios();
    void AbrirCaja();
    void AbrirListado(ModoListado modo);
    void AbrirConfiguracion();
    void AbrirHistorial();

    std::function<QWidget*()> padre_;
    std::function<void()> botonAcceso_;
    std::function<bool(quint16)> puertoLibre_;
    Entorno* entorno_ = nullptr;
    std::optional<LoginPantalla> login_;
};

} // namespace zv
