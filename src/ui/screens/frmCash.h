// Asks for an amount on a keypad laid out like a till's.
#pragma once

#include "platform/Currency.h"
#include "ui/screens/FramelessWindow.h"

#include <QChar>

#include <array>
#include <exception>

class QAbstractButton;
class QGridLayout;
class QLineEdit;

namespace zv {

class EtiquetaTexto;
class Importes;
class Textos;

class frmCash final : public FramelessWindow {
    Q_OBJECT

  public:
    frmCash(const Textos& textos, const Importes& importes, QWidget* padre = nullptr);

    // porDefecto in minor units; sinImporte shows teci(14). Raises what FormatoImporte raises.
    void Preparar(const QString& titulo, const QString& prompt, Currency porDefecto,
                  bool sinImporte);
    // After the dialog: what was typed times the multiplier, in minor units; 0 for no number and
    // after a cancel. Raises 6 for an amount that was entered and does not fit 32 bits.
    Currency Importe() const;

    bool cancelado = false;

    void reject() override;

  protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

  private:
    void BuscarMarcas();
    void CrearTeclado();
    void Entrar();
    void Cancelar();
    void Teclear(const QString& teclas);
    void Ajustar();

    const Importes& importes_;
    EtiquetaTexto* lbImporte_;
    QLineEdit* tbImporte_;
    QGridLayout* rejilla_ = nullptr;
    std::array<QAbstractButton*, 15> teci_{};
    QChar decimal_;
    QChar miles_; // null when the region writes none
    Currency importe_;
    std::exception_ptr fallo_;
};

} // namespace zv
