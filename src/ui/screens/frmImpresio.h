// Asks what is to be printed.
#pragma once

#include "ui/screens/FramelessWindow.h"

namespace zv {

class Textos;

class frmImpresio final : public FramelessWindow {
    Q_OBJECT

  public:
    explicit frmImpresio(const Textos& textos, QWidget* padre = nullptr);

    // 0 when left otherwise, 1 the summary, 2 the list of movements, 3 both.
    quint8 eleccion = 0;
};

} // namespace zv
