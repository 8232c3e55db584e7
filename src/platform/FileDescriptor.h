// An open file of the system that closes itself.
#pragma once

#include <unistd.h>
#include <utility>

namespace zv {

class FileDescriptor {
  public:
    explicit FileDescriptor(int numero = -1) : numero_(numero) {}
    FileDescriptor(FileDescriptor&& otro) noexcept : numero_(std::exchange(otro.numero_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& otro) noexcept {
        std::swap(numero_, otro.numero_);
        return *this;
    }
    ~FileDescriptor() {
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
