// While it lives, an administrator's test run has the rights of nobody, so that permissions of
// files bind it as they bind the program.
#pragma once

#include <unistd.h>

namespace zv::test {

class SinPrivilegios {
  public:
    SinPrivilegios() : cambiado_(::geteuid() == 0 && ::seteuid(kNadie) == 0) {}
    ~SinPrivilegios() {
        if (cambiado_ && ::seteuid(0) != 0) {
            ::_exit(1); // the rest of the run would mean nothing
        }
    }
    SinPrivilegios(const SinPrivilegios&) = delete;
    SinPrivilegios& operator=(const SinPrivilegios&) = delete;

  private:
    static constexpr uid_t kNadie = 65534;
    bool cambiado_;
};

} // namespace zv::test
