// The companion connector program: started with the monitor, found in the process list, and ended
// with it.
#pragma once

#include "config/ConfiguracioGlobal.h"
#include "platform/ProcessList.h"
#include "platform/Shell.h"
#include "ui/Dialogos.h"
#include "ui/Textos.h"

namespace zv {

class Conector {
  public:
    Conector(const ConfiguracioGlobal& configuracio, ProcessList& procesos, Shell& shell,
             Dialogos& dialogos, const Textos& textos);

    void ArrancarConector();
    // Errors are ignored.
    void PararConector();
    // Result of the last start.
    bool EnMarcha() const { return enMarcha_; }

  private:
    const ConfiguracioGlobal& configuracio_;
    ProcessList& procesos_;
    Shell& shell_;
    Dialogos& dialogos_;
    const Textos& textos_;
    bool enMarcha_ = false;
};

} // namespace zv
