// An open file of the system that closes itself.
#pragma once

#include <unistd.h>
#include <utility>

namespace zv {

class DescriptorFichero {
  public:
    explicit DescriptorFichero(int numero = -1) : numero_(numero) {}
    DescriptorFichero(DescriptorFichero&& otro) noexcept
        : numero_(std::exchange(otro.numero_, -1)) {}
    DescriptorFichero& operator=(DescriptorFichero&& otro) noexcept {
        std::swap(numero_, otro.numero_);
        return *this;
    }
    ~DescriptorFichero() {
        if (numero_ >= 0) {
            ::close(numero_);
        }
    }

    int Numero() const { return numero_; }
    bool Abierto() const { return numero_ >= 0; }

  private:
    int numero_;
};

} // namespace zv
