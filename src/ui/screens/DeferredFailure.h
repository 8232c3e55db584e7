// A failure in a slot of a dialog, for whoever has opened it: nothing is thrown through the
// toolkit, the dialog closes, and its caller has the failure as if it had called the slot itself.
#pragma once

#include "platform/ErrorEjecucion.h"

#include <QDialog>

#include <exception>

namespace zv {

class DeferredFailure {
  public:
    // Runs a slot of the dialog.
    template <class F>
    void Hacer(QDialog& dialogo, F&& slot) {
        try {
            slot();
        } catch (const ErrorEjecucion&) {
            fallo_ = std::current_exception();
            dialogo.done(QDialog::Rejected);
        }
    }
    // Raises what has been kept, if anything.
    void Lanzar() const {
        if (fallo_) {
            std::rethrow_exception(fallo_);
        }
    }

  private:
    std::exception_ptr fallo_;
};

} // namespace zv
