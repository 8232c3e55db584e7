// A scanned ticket becomes a sale in cola: the handler of the barcode box, run when Enter arrives.
#pragma once

#include "config/ConfiguracioGlobal.h"
#include "platform/Clock.h"
#include "store/dades.h"
#include "ui/Dialogos.h"
#include "ui/Importes.h"
#include "ui/Textos.h"

#include <functional>

namespace zv {

class CobroCodigoBarras {
  public:
    // datos: the sales of the store. espera: lets so many seconds pass with the event loop running.
    // preparar: ends a transaction that somebody has left open, in which the row would be lost.
    // Everything handed in outlives the handler.
    CobroCodigoBarras(ConfiguracioGlobal& configuracio, std::function<dades*()> datos,
                      const Importes& importes, const Clock& reloj, Dialogos& dialogos,
                      const Textos& textos, std::function<void(int segundos)> espera,
                      std::function<void()> preparar = {});

    // Enter in the box that holds codigo; vaciar empties it. Nothing happens while BCEAN is 0, nor
    // in the second after a code: what a scanner repeats then is dropped.
    void Enter(const QString& codigo, const std::function<void()>& vaciar);

  private:
    ConfiguracioGlobal& configuracio_;
    std::function<dades*()> datos_;
    const Importes& importes_;
    const Clock& reloj_;
    Dialogos& dialogos_;
    const Textos& textos_;
    std::function<void(int)> espera_;
    std::function<void()> preparar_;
    bool ocupado_ = false;
};

} // namespace zv
