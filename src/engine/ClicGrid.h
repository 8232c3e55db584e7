// What a click in grdZV does: it makes its cell the current one.
#pragma once

#include "engine/Controles.h"
#include "engine/GridCola.h"

namespace zv {

class ClicGrid {
  public:
    ClicGrid(const Controles& controles, GridCola& grid);

    // The mouse button has gone up over grdZV. fila 0: the titles; columna -1: beside the columns;
    // debajo: below the last row. Does nothing while the grid is disabled.
    void grdZV_MouseUp(int fila, int columna, bool debajo);

  private:
    const Controles& controles_;
    GridCola& grid_;
};

} // namespace zv
