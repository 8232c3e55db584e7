// The running operation: what is asked, what has come in and gone out, and the device's two keys.
#pragma once

#include "simulator/Aparato.h"

#include <QFrame>

class QLabel;
class QPushButton;

namespace zv::simulador {

class PanelOperacion final : public QFrame {
    Q_OBJECT

  public:
    explicit PanelOperacion(Aparato& aparato, QWidget* padre = nullptr);
    void Refrescar();

  private:
    void MostrarUna(const Operacion& op);

    Aparato& aparato_;
    QLabel* titulo_;
    QLabel* estado_;
    QLabel* pedido_;
    QLabel* entrado_;
    QLabel* salido_;
    QPushButton* cancelar_;
    QPushButton* terminar_;
};

} // namespace zv::simulador
