// The dialogs on the screen: what the rest of the program asks of the operator, by the shared
// screens.
#pragma once

#include "ui/Dialogos.h"

#include <QString>

#include <functional>

class QWidget;

namespace zv {

class Importes;
class Textos;

class DialogosPantalla final : public Dialogos {
  public:
    // programa: name of the program's executable, "ZVMonitor". padre gives the window over which
    // dialogs come up; it may give none. All that is handed in must outlive this.
    DialogosPantalla(QString programa, const Textos& textos, const Importes& importes,
                     std::function<QWidget*()> padre = {});

    // What the keyboard button of the text prompt does; the desktop's keyboard when nothing is set.
    void PonerTecladoPantalla(std::function<void()> abrir) { abrirTeclado_ = std::move(abrir); }

    Respuesta MostrarMensaje(const QString& titulo, const QString& texto,
                             EstiloMensaje estilo = EstiloMensaje::Aceptar) override;
    QString PedirTexto(const QString& titulo, const QString& texto,
                       const QString& porDefecto = {}) override;
    // Raises 6 for a default or an amount entered that does not fit 32 bits, 11 when the device's
    // multiplier is 0; cancelado is left alone then.
    Currency PedirImporte(const QString& titulo, const QString& prompt, Currency porDefecto,
                          bool* sinImporte, bool& cancelado) override;
    Impresion ElegirImpresion() override;
    void CajaSimple(const QString& texto) override;

  private:
    QWidget* Padre() const;

    QString programa_;
    const Textos& textos_;
    const Importes& importes_;
    std::function<QWidget*()> padre_;
    std::function<void()> abrirTeclado_;
};

} // namespace zv
