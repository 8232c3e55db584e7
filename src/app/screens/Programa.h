// The program with its windows: the real device client, dialogs, processes and main window around
// one monitor. Whoever builds it runs the event loop.
#pragma once

#include "app/Manual.h"
#include "app/Monitor.h"
#include "app/screens/PantallasPrograma.h"
#include "device/gateway/GatewayClient.h"
#include "device/screens/frmOperacion.h"
#include "engine/screens/frmZVMonitor.h"
#include "platform/ProcessList.h"
#include "platform/Shell.h"
#include "platform/TerminationSignal.h"
#include "ui/screens/DialogosPantalla.h"

#include <optional>

namespace zv {

class Programa {
  public:
    Programa(const Opciones& opciones, const Clock& reloj);

    // Builds monitor and main window and goes through the start-up; false when the program is to
    // end at once.
    bool Arrancar();
    // Unload, and the end of the process: modal windows that stand open go with it.
    [[noreturn]] void Terminar();
    // Tells the log and the operator of a failure that nobody caught; the program is about to end.
    void ContarFallo(const QString& texto);

    // After Arrancar.
    zv::Monitor& Monitor() { return *monitor_; }
    frmZVMonitor& Pantalla() { return *pantalla_; }

  private:
    QWidget* Padre();

    Servicios servicios_;
    Manual manual_;
    frmOperacion operacion_;
    GatewayClient cliente_;
    DialogosPantalla dialogos_;
    SystemProcessList procesos_;
    ShellSistema shell_;
    PantallasPrograma pantallas_;
    std::optional<zv::Monitor> monitor_;
    std::optional<frmZVMonitor> pantalla_;
    std::optional<TerminationSignal> senal_;
};

} // namespace zv
