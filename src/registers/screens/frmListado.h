// A register on the screen: it mirrors the logical state of Listado and hands touches and buttons
// on.
#pragma once

#include "registers/Listado.h"
#include "ui/screens/DeferredFailure.h"
#include "ui/screens/PantallaCompleta.h"

#include <QTimer>

#include <functional>

class QAbstractButton;
class QLabel;
class QProgressBar;

namespace zv {

class Paginador;
class VistaRejilla;

// boton(0) to boton(3).
enum class BotonListado { Imprimir = 0, Salir = 1, Todas = 2, ExportCsv = 3 };

// What the screen leads to. One that leads nowhere is off.
struct AccionesListado {
    // A touch on a cell; true when the screen is to be left.
    std::function<bool(int fila, int columna, bool debajo)> tocar;
    std::function<void()> imprimir;
    std::function<void()> todas;
    std::function<void()> exportar;
};

class frmListado final : public PantallaCompleta {
    Q_OBJECT

  public:
    // All must outlive this. The register is filled when the screen has come up.
    frmListado(Listado& listado, ModoListado modo, AccionesListado acciones,
               QWidget* padre = nullptr);
    ~frmListado() override;

    // After the dialog: raises the failure that ended it.
    void LanzarFallo() const { fallo_.Lanzar(); }

  protected:
    void Pulsado(int indice) override;
    bool PuedeSalir() override { return !ocupado_; }
    void showEvent(QShowEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

  private:
    QWidget* Filas();
    QWidget* PieDeLista();
    QLabel* Total(const Clave& clave, const char* nombre, class QHBoxLayout& linea);
    void Conectar();
    void AlAparecer();
    void Ocupar(const std::function<void()>& accion);
    void Tocada(int fila, int columna, bool debajo);
    void Notar();
    void Seguir();
    void SeguirTotales(const EstadoListado& estado);
    void SeguirPaginas();
    void Pintar();
    void ColocarColumnas();

    Listado& listado_;
    const ModoListado modo_;
    AccionesListado acciones_;
    VistaRejilla* grdZV_ = nullptr;
    QLabel* lbVacia_ = nullptr;
    QLabel* lbCobros_ = nullptr;
    QLabel* lbPagos_ = nullptr;
    QLabel* lbDetalle_ = nullptr; // the selected incident's error, whole
    QWidget* totales_ = nullptr;
    QProgressBar* progreso_ = nullptr;
    Paginador* paginador_ = nullptr;
    EstadoListado aplicado_; // what the widgets show
    QTimer porSeguir_{this};
    QTimer paso_{this};
    bool aparecida_ = false;
    bool ocupado_ = false; // an action runs, with dialogs above this screen
    DeferredFailure fallo_;
};

} // namespace zv
