// A control that a window of another size makes larger or smaller.
#pragma once

namespace zv {

class Escalable {
  public:
    virtual ~Escalable() = default;
    // 1 is a window of 1024x768.
    virtual void Escalar(double escala) = 0;
};

} // namespace zv
