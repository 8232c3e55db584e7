// The history of closes on the screen: the closes above, the movements of the chosen one below.
#pragma once

#include "registers/Historial.h"
#include "ui/screens/DeferredFailure.h"
#include "ui/screens/PantallaCompleta.h"

#include <QTimer>

#include <functional>

class QBoxLayout;
class QLabel;

namespace zv {

class Paginador;
class VistaRejilla;
struct Clave;

class frmHistorial final : public PantallaCompleta {
    Q_OBJECT

  public:
    // It must outlive this. It is filled when the screen has come up.
    explicit frmHistorial(Historial& historial, QWidget* padre = nullptr);
    ~frmHistorial() override;

    // After the dialog: raises the failure that ended it.
    void LanzarFallo() const { fallo_.Lanzar(); }

  protected:
    void Pulsado(int indice) override;
    bool PuedeSalir() override { return !ocupado_; }
    void showEvent(QShowEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

  private:
    // A grid on the screen, with its pager and what it says when it is empty.
    struct Lista {
        Rejilla& rejilla;
        VistaRejilla* vista = nullptr;
        Paginador* paginador = nullptr;
        QLabel* vacia = nullptr;
    };

    QBoxLayout* Colgar(Lista& lista, const Clave& nombre, const Clave& vacia);
    QBoxLayout* Rotulos();
    void AlAparecer();
    void Ocupar(const std::function<void()>& accion);
    void Hacer(int indice);
    void Pintar();
    void Seguir();
    void ColocarColumnas(const Lista& lista);
    void Pasar(const Lista& lista, int paginas);
    void MoverDeLado(int pasos);

    Historial& historial_;
    Lista cierres_{historial_.grdCierres()};
    Lista movimientos_{historial_.grdHis()};
    QLabel* lbCierre_ = nullptr;
    QTimer porLeer_{this};
    bool aparecida_ = false;
    bool ocupado_ = false; // an action runs, with dialogs above this screen
    DeferredFailure fallo_;
};

} // namespace zv
