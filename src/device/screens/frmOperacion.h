// The window of a running device operation: what is asked, what has come in, what has gone out or
// is still missing, and a large cancel button. Built once and shown again for each operation, so
// that opening costs next to nothing; blocks input to the rest of the program meanwhile.
#pragma once

#include "device/VentanaOperacion.h"
#include "ui/screens/FramelessWindow.h"

#include <array>

class QGridLayout;
class QPushButton;

namespace zv {

class Importes;
class Textos;

class frmOperacion final : public FramelessWindow, public VentanaOperacion {
    Q_OBJECT

  public:
    // Texts and amounts are kept by reference. padre gives the window over which this one comes
    // up; it may give none.
    frmOperacion(const Textos& textos, const Importes& importes,
                 std::function<QWidget*()> padre = {});

    void Abrir(OperationKind kind, qint32 importe, std::function<void()> cancelar) override;
    void Progreso(qint32 paidIn, qint32 paidOut) override;
    void Aviso(const QString& texto) override;
    void Cerrar() override;

    // Escape, and the window system's close: the cancel button.
    void reject() override;

  protected:
    void closeEvent(QCloseEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    enum Linea : std::size_t { Pedido, Entrado, Salido, Falta, kLineas };

    void CrearLineas();
    void CrearPie();
    void PonerTextos();
    void MostrarLinea(Linea linea, bool visible);
    void PonerImporte(Linea linea, qint64 importe);
    void Cancelar();
    void Colocar() override;

    const Textos& textos_;
    const Importes& importes_;
    std::function<QWidget*()> padre_;
    std::function<void()> cancelar_;
    OperationKind clase_ = OperationKind::Cobro;
    qint32 importe_ = 0;
    QString instruccion_;

    QLabel* lbInstruccion_;
    std::array<QLabel*, kLineas> rotulo_{};
    std::array<QLabel*, kLineas> valor_{};
    QGridLayout* lineas_;
    QWidget* actividad_;
    QPushButton* btnCancelar_;
};

} // namespace zv
