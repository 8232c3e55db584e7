#include "engine/ClicGrid.h"

namespace zv {

ClicGrid::ClicGrid(const Controles& controles, GridCola& grid)
    : controles_(controles), grid_(grid) {}

void ClicGrid::grdZV_MouseUp(int fila, int columna, bool debajo) {
    // A click that was under way when the pulse disabled the grid comes too late.
    if (!controles_.Estado().grdZV || debajo || fila < 1 || columna < 0) {
        return;
    }
    grid_.Celdas().PonerCeldaActual(fila, columna);
}

} // namespace zv
