// The main screen: draws the logical state of the engine and hands it what the operator does.
#pragma once

#include "engine/PartesMonitor.h"
#include "engine/VentanaPrincipal.h"
#include "engine/screens/DisenoMonitor.h"
#include "engine/screens/frmBotonAcceso.h"
#include "ui/screens/FramelessWindow.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>

namespace zv {

// Window buttons whose work lies outside the engine.
struct AccionesVentana {
    std::function<void()> descargar; // ends the program
    std::function<void()> abrirManuales;
    // Enter in the barcode box; vaciar empties it.
    std::function<void(const QString& codigo, const std::function<void()>& vaciar)> codigoLeido =
        {};
};

class frmZVMonitor final : public QWidget, public VentanaPrincipal {
    Q_OBJECT

  public:
    frmZVMonitor(PartesMonitor partes, AccionesVentana acciones);
    ~frmZVMonitor() override;

    int WindowState() const override;
    void PonerWindowState(int estado) override;
    void TraerAlFrente() override;
    void Traducir() override;
    void PonerIcono() override;
    void PrepararGrid() override;
    void PonerVersion(const QString& caption) override;
    void Mostrar() override;

    // The floating button comes up, and is above all other windows while nothing runs here.
    void MostrarBotonAcceso();

    // Always false: the program is never at design time.
    void ModoDiseño(bool& resultado) const { resultado = false; }

    // Brings the widgets to the logical state now; the event loop does it by itself.
    void Seguir();
    const DisenoMonitor& Diseno() const { return ui_; }
    // The state line blinks.
    bool Parpadeando() const { return timerParpadeo_.isActive(); }

  protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;

  private:
    // Ticks by its event: a signal in between would cost something a thousand times a second.
    class PulseTimer final : public QTimer {
      public:
        explicit PulseTimer(frmZVMonitor& pantalla) : QTimer(&pantalla), pantalla_(pantalla) {}

      protected:
        void timerEvent(QTimerEvent* /*evento*/) override { pantalla_.Tick(); }

      private:
        frmZVMonitor& pantalla_;
    };

    void Conectar();
    void Tick();
    void PulsarVentana(int indice);
    void PreguntarCierre();
    void ColocarColumnas();
    bool TeclaDeLista(int tecla);
    void DobleClicCabecera();
    void SeguirAlBucle();
    void Pintar();

    PartesMonitor partes_;
    AccionesVentana acciones_;
    DisenoMonitor ui_;
    bool porSeguir_ = false;   // the logical state has changed since
    bool maximizando_ = false; // within a second of a maximise by double click
    bool parpadeoAmbar_ = false;
    bool accesoEncima_ = false; // the floating button stands in the always-on-top level
    Arrastre arrastre_;
    BotonAcceso acceso_;
    std::unique_ptr<frmBotonAcceso> botonAcceso_; // none until it is shown

    // Children by their names, so that they can be found from outside.
    PulseTimer timerCola_{*this};
    QTimer timerParpadeo_{this};
    QTimer timerMaximitzat_{this};
};

} // namespace zv
