// Asks for an amount on a keypad laid out like a till's.
#pragma once

#include "platform/Currency.h"
#include "ui/screens/FramelessWindow.h"

#include <QChar>

#include <exception>

class QGridLayout;
class QLineEdit;
class QPushButton;

namespace zv {

class Importes;
class TecladoNumerico;
class Textos;
class ZonaTexto;
struct Clave;

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
    bool elegidoSinImporte = false; // cancelled by teci(14)

    void reject() override;

  protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

  private:
    void BuscarMarcas();
    void CrearTeclado();
    QPushButton* CrearOrden(const Clave& clave, void (frmCash::*al)());
    void Entrar();
    void Cancelar();
    void SinImporte();

    const Importes& importes_;
    ZonaTexto* zonaImporte_;
    QLineEdit* tbImporte_;
    TecladoNumerico* teclado_ = nullptr;
    QGridLayout* ordenes_ = nullptr;
    QPushButton* entrar_ = nullptr;     // teci(11)
    QPushButton* cancelar_ = nullptr;   // teci(12)
    QPushButton* sinImporte_ = nullptr; // teci(14)
    QChar decimal_;
    QChar miles_; // null when the region writes none
    Currency importe_;
    std::exception_ptr fallo_;
};

} // namespace zv
