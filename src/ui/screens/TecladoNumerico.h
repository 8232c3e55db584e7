// A numeric keypad laid out like a till's, teci(0) to teci(9) with the digits. Its keys write into
// the field that is active among those it serves, and take the focus from none.
#pragma once

#include "ui/screens/Escalable.h"

#include <QChar>
#include <QList>
#include <QPointer>
#include <QWidget>

#include <array>

class QAbstractButton;
class QGridLayout;
class QLineEdit;
class QToolButton;

namespace zv {

struct Clave;

class TecladoNumerico final : public QWidget, public Escalable {
    Q_OBJECT

  public:
    static constexpr int kDecimal = 10;

    // retroceso names the erasing key. decimal: what teci(10) writes; without it there is none.
    TecladoNumerico(const Clave& retroceso, QChar decimal, QWidget* padre);

    // A field that the keys may write into. The first one is active until another has the focus,
    // and stays so while the focus is on no field at all. The active one is seen to be.
    void Servir(QLineEdit& campo);
    // The field that the next key writes into: none when all are hidden or disabled.
    QLineEdit* CampoActivo() const;

    // teci(indice); none where there is no such key.
    QAbstractButton* Tecla(int indice) const { return teci_[static_cast<std::size_t>(indice)]; }
    QToolButton* Retroceso() const { return retroceso_; }
    // Between two keys, for what stands beside the keypad.
    int Hueco() const;
    void Escalar(double escala) override;

  protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

  private:
    QAbstractButton* CrearTecla(int indice, const QString& tag);
    void Teclear(const QString& teclas);
    void Activar(QLineEdit& campo);

    QGridLayout* rejilla_;
    std::array<QAbstractButton*, 11> teci_{};
    QToolButton* retroceso_;
    QList<QPointer<QLineEdit>> campos_;
    QPointer<QLineEdit> activo_;
};

} // namespace zv
