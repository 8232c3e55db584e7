// The global configuration: one instance that is replaced whole when settings are saved. Readers
// go through this reference each time.
#pragma once

#include "config/Configuracio.h"

#include <memory>

namespace zv {

class ConfiguracioGlobal {
  public:
    explicit ConfiguracioGlobal(std::unique_ptr<Configuracio> inicial)
        : actual_(std::move(inicial)) {}

    Configuracio* operator->() { return actual_.get(); }
    const Configuracio* operator->() const { return actual_.get(); }
    Configuracio& operator*() { return *actual_; }
    void Reemplazar(std::unique_ptr<Configuracio> nueva) { actual_ = std::move(nueva); }

  private:
    std::unique_ptr<Configuracio> actual_;
};

} // namespace zv
