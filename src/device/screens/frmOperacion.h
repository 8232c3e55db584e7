// The window of a running device operation: what is asked, what has come in, what has gone out or
// is still missing, and a large key that cancels; beside it, where the device takes in what is put
// in and nobody has said how much, one that ends the operation. Built once and shown again for each
// operation, so that opening costs next to nothing; blocks input to the rest of the program
// meanwhile.
#pragma once

#include "device/VentanaOperacion.h"
#include "ui/screens/FramelessWindow.h"

#include <array>

class QGridLayout;
class QPushButton;

namespace zv {

class Importes;
class Textos;
struct Clave;

class frmOperacion final : public FramelessWindow, public VentanaOperacion {
    Q_OBJECT

  public:
    // Texts and amounts are kept by reference. padre gives the window over which this one comes
    // up; it may give none.
    frmOperacion(const Textos& textos, const Importes& importes,
                 std::function<QWidget*()> padre = {});

    void Abrir(OperationKind kind, qint32 importe, std::function<void()> cancelar,
               std::function<void()> terminar) override;
    void Progreso(qint32 paidIn, qint32 paidOut) override;
    void Aviso(const QString& texto) override;
    void SinTerminar() override;
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
    QPushButton* CrearTecla(const QString& nombre, const QString& icono);
    void PonerTextos();
    void MostrarLinea(Linea linea, bool visible);
    void PonerImporte(Linea linea, qint64 importe);
    void PonerInstruccion(const Clave& texto);
    void MostrarInstruccion();
    void PonerPie(const Clave& cancelar, const Clave& terminar, bool habilitadas);
    void Cancelar();
    void Terminar();
    void Colocar() override;

    const Textos& textos_;
    const Importes& importes_;
    std::function<QWidget*()> padre_;
    std::function<void()> cancelar_;
    std::function<void()> terminar_;
    OperationKind clase_ = OperationKind::Cobro;
    qint32 importe_ = 0;
    bool hayDinero_ = false; // something has been put in
    QString instruccion_;
    QString aviso_; // stands before the instruction

    QLabel* lbInstruccion_;
    QLabel* lbTerminar_; // how to end
    std::array<QLabel*, kLineas> rotulo_{};
    std::array<QLabel*, kLineas> valor_{};
    QGridLayout* lineas_;
    QWidget* actividad_;
    QPushButton* btnCancelar_;
    QPushButton* btnTerminar_;
};

} // namespace zv
