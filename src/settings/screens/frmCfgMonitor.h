// The settings on the screen: it mirrors the state of CfgMonitor and hands on what the operator
// does.
#pragma once

#include "settings/CfgMonitor.h"
#include "ui/screens/DeferredFailure.h"
#include "ui/screens/PantallaCompleta.h"

#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace zv {

class Interruptor;
class SelectorTres;
class Tarjeta;
struct Clave;

class frmCfgMonitor final : public PantallaCompleta {
    Q_OBJECT

  public:
    // The platform's chooser of a file; empty for none.
    using Explorador = std::function<QString(QWidget& sobre)>;

    // cfg must outlive this.
    explicit frmCfgMonitor(CfgMonitor& cfg, QWidget* padre = nullptr, Explorador explorador = {});
    ~frmCfgMonitor() override;

    // After the dialog: raises the failure that ended it.
    void LanzarFallo() const { fallo_.Lanzar(); }

  protected:
    void Pulsado(int indice) override;
    bool PuedeSalir() override;
    void resizeEvent(QResizeEvent* evento) override;

  private:
    QWidget* Izquierda(QWidget* padre);
    QWidget* Derecha(QWidget* padre);
    Tarjeta* Modos(QWidget* padre);
    Tarjeta* Aparato(QWidget* padre);
    Tarjeta* Conectores(QWidget* padre);
    Tarjeta* Grupo(InterruptorAjuste::Grupo grupo, const Clave& titulo, QWidget* padre);
    QWidget* Usuarios(QWidget* padre);
    QLabel* Rotulo(const Clave& clave, QWidget* padre);
    QLabel* Nota(const char* nombre, QWidget* padre);
    QLineEdit* Campo(CampoCfg campo, QWidget* padre);
    Interruptor* CrearInterruptor(std::size_t indice, QWidget* padre);
    QPushButton* Orden(const Clave& clave, QWidget* padre, std::function<void()> al);
    void NombrarCampos();
    void PonerOrden();
    // Runs what a control does; nothing while something else runs.
    void Hacer(const std::function<void()>& accion);
    void Guardar();
    void Seguir();
    void SeguirCampo(CampoCfg campo);
    void SeguirNotas();
    QLineEdit* tbCfg(CampoCfg campo) const { return tbCfg_[static_cast<std::size_t>(campo)]; }

    CfgMonitor& cfg_;
    Explorador explorador_;
    SelectorTres* modo_ = nullptr;
    std::array<QLineEdit*, kCamposCfg.size()> tbCfg_{};
    std::array<QLabel*, kCamposCfg.size()> rotulos_{};
    std::array<Interruptor*, kInterruptoresCfg.size()> interruptores_{};
    QPushButton* btnTestZV_ = nullptr;
    QPushButton* btnExplorer1_ = nullptr;
    QPushButton* btnUsuarios_ = nullptr;
    QPushButton* btnAccesos_ = nullptr;
    QLabel* lbPrueba_ = nullptr;
    QLabel* lbNotaPuerto_ = nullptr;
    QLabel* lbNotaRuta_ = nullptr;
    QLabel* lbAviso_ = nullptr;
    bool espera_ = false;    // the pointer says so
    bool ocupado_ = false;   // an action runs, with dialogs above this one
    bool siguiendo_ = false; // the widgets change by themselves, not by the operator
    DeferredFailure fallo_;
};

// The desktop's dialog to choose a file, over a window.
QString ExplorarConector(const class Textos& textos, QWidget& sobre);

} // namespace zv
