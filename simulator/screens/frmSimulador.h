// The window of the simulator: the customer's money to touch, the operation, the levels, the boxes
// and what has happened lately.
#pragma once

#include "simulator/Simulador.h"

#include <QTimer>
#include <QWidget>

#include <array>
#include <vector>

class QComboBox;
class QFrame;
class QLabel;
class QListWidget;
class QPushButton;
class QVBoxLayout;

namespace zv::simulador {

class BarraCajon;
class BotonPieza;
class PanelOperacion;
class TablaNiveles;

class frmSimulador final : public QWidget {
    Q_OBJECT

  public:
    // `simulador` has been started and outlives the window.
    explicit frmSimulador(Simulador& simulador, QWidget* padre = nullptr);

  private:
    struct FilaCajon {
        QLabel* valor;
        BarraCajon* barra;
        QPushButton* retirar;
    };

    QFrame* HacerCabecera();
    QFrame* HacerDinero();
    QFrame* HacerNiveles();
    QFrame* HacerSucesos();
    FilaCajon HacerCajon(Cajon cual, QVBoxLayout& columna);
    void AbrirFallos();
    void Anotar(const QString& linea);
    void Refrescar();
    void RefrescarCajon(const FilaCajon& fila, bool monedas);

    Simulador& simulador_;
    PanelOperacion* operacion_;
    QLabel* enlace_;
    QLabel* saldo_;
    QPushButton* fallos_;
    QComboBox* cliente_;
    TablaNiveles* niveles_;
    QListWidget* sucesos_;
    std::vector<BotonPieza*> piezas_;
    std::array<FilaCajon, 2> cajones_{};
    QTimer refresco_;
};

} // namespace zv::simulador
