// The cash office on the screen: it mirrors the logical state of Caja and hands the presses of its
// buttons on.
#pragma once

#include "cashoffice/Caja.h"
#include "ui/screens/DeferredFailure.h"
#include "ui/screens/PantallaCompleta.h"

#include <QTimer>

#include <functional>
#include <span>

class QLabel;
class QProgressBar;
class QVBoxLayout;

namespace zv {

class BarrasNiveles;
class Tarjeta;
class VistaRejilla;
struct Clave;

// What the buttons lead to. One that leads nowhere is off, whatever the state says; leaving and the
// history are the screen's own.
using AccionesCaja = PorBotonCaja<std::function<void()>>;

class frmCaja final : public PantallaCompleta {
    Q_OBJECT

  public:
    // All must outlive this. The refresh runs when the screen has come up.
    frmCaja(Caja& caja, AccionesCaja acciones, QWidget* padre = nullptr);
    ~frmCaja() override;

    // After the dialog: raises the failure that ended it.
    void LanzarFallo() const { fallo_.Lanzar(); }

  protected:
    void Pulsado(int indice) override;
    bool PuedeSalir() override { return !ocupado_; }
    void showEvent(QShowEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

  private:
    // A caption and its amount.
    struct Linea {
        QString EstadoCaja::*etiqueta;
        QLabel* rotulo;
        QLabel* columna; // heading of its column, where the line has several amounts
        QLabel* importe;
    };
    struct Renglon;

    QWidget* Movimientos();
    QWidget* Niveles();
    Tarjeta* Periodo();
    Tarjeta* Aparato();
    QLabel* Rotulo(const Clave& clave, QWidget* padre);
    QLabel* Importe(const Renglon& renglon, QLabel* rotulo, QLabel* columna, QWidget* padre);
    void AlAparecer();
    void Ocupar(const std::function<void()>& accion);
    void Notar();
    void Seguir();
    void SeguirImportes(const EstadoCaja& estado);
    void SeguirMovimientos(const EstadoCaja& estado);
    void SeguirPaginas();
    void Pintar();
    void ColocarColumnas();
    void IrA(int fila);

    Caja& caja_;
    AccionesCaja acciones_;
    VistaRejilla* grdZV_ = nullptr;
    QLabel* lbContador_ = nullptr;
    QLabel* lbVacia_ = nullptr;
    QProgressBar* progreso_ = nullptr;
    class Paginador* paginador_ = nullptr;
    BarrasNiveles* monedas_ = nullptr;
    BarrasNiveles* billetes_ = nullptr;
    QLabel* lblQuebranto_ = nullptr;
    std::vector<Linea> lineas_;
    EstadoCaja aplicado_; // what the widgets show
    QTimer porSeguir_{this};
    QTimer paso_{this};
    bool aparecida_ = false;
    bool ocupado_ = false; // an action runs, with dialogs and the device's window above this one
    DeferredFailure fallo_;
};

} // namespace zv
