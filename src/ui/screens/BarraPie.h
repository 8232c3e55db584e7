// The footer of a full screen: big buttons from one table.
#pragma once

#include "ui/screens/Escalable.h"
#include "ui/screens/Tema.h"

#include <QFrame>
#include <QToolButton>

#include <span>
#include <string_view>
#include <vector>

class QHBoxLayout;

namespace zv {

struct Clave;

// One button. The table is a screen's constant data.
struct EntradaPie {
    enum class Clase {
        Orden,
        Salir // leaves the screen; always far left, of one width on all screens
    };

    int indice;                // boton(indice)
    const Clave* clave;        // its name and its caption; without one its number alone exists
    std::u16string_view icono; // name in the theme
    bool hueco = false;        // stands apart from the one before it
    Clase clase = Clase::Orden;
};

// A picture above a caption that takes as many lines as its words need: blanks and ¬ may break it.
class BotonPicto final : public QToolButton {
    Q_OBJECT

  public:
    BotonPicto(tema::Papel papel, QWidget* padre);

    // As wide as the longest word, so that none is cut.
    int AnchoRotulo() const;
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override { return minimumSizeHint(); }

  protected:
    void paintEvent(QPaintEvent* evento) override;
};

class BarraPie final : public QFrame, public Escalable {
    Q_OBJECT

  public:
    BarraPie(std::span<const EntradaPie> tabla, QWidget* padre);

    // boton(indice).
    QToolButton* Boton(int indice) const;
    // The one that leaves; none where no button does.
    QToolButton* BotonSalir() const { return salir_; }
    void Escalar(double escala) override;

  protected:
    bool event(QEvent* evento) override;

  Q_SIGNALS:
    // The leaving button is told like the others.
    void Pulsado(int indice);

  private:
    struct Puesto {
        int indice;
        BotonPicto* boton;
    };

    void AjustarAnchos();

    double escala_ = 1;
    QHBoxLayout* fila_;
    std::vector<Puesto> puestos_;
    std::vector<QWidget*> huecos_;
    BotonPicto* salir_ = nullptr;
};

} // namespace zv
