// A switch of three parts of which one is chosen at most.
#pragma once

#include "ui/screens/Escalable.h"

#include <QGroupBox>

#include <array>

class QPushButton;

namespace zv {

struct Clave;

class SelectorTres final : public QGroupBox, public Escalable {
    Q_OBJECT

  public:
    static constexpr int kNinguna = -1;

    // grupo: what is chosen here, for reading aloud; partes name the buttons.
    SelectorTres(const Clave& grupo, const std::array<const Clave*, 3>& partes, QWidget* padre);

    QPushButton* Parte(int indice) const { return partes_[static_cast<std::size_t>(indice)]; }
    int Elegida() const;
    // kNinguna releases all. Nothing is told.
    void Elegir(int indice);
    void Escalar(double escala) override;

  Q_SIGNALS:
    // The operator has chosen another part.
    void Elegido(int indice);

  private:
    std::array<QPushButton*, 3> partes_{};
    int elegida_ = kNinguna;
};

} // namespace zv
