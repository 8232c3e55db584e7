// What a click in grdZV does: its first column annuls a row of the queue, its last one sends it;
// while rows are being marked each of them marks its row.
#pragma once

#include "engine/CobrosAgrupados.h"
#include "engine/Controles.h"
#include "engine/GridCola.h"
#include "engine/PulsoCola.h"
#include "till/Entorno.h"

namespace zv {

class ClicGrid {
  public:
    ClicGrid(Entorno& entorno, const Controles& controles, GridCola& grid, EstadoMonitor& estado,
             PulsoCola& pulso, CobrosAgrupados& agrupados);

    // The mouse button has gone up over grdZV. fila 0: the titles; columna -1: beside the columns;
    // debajo: below the last row. Does nothing while the grid is disabled.
    void grdZV_MouseUp(int fila, int columna, bool debajo);

  private:
    void Enviar(qint32 idZV);
    // False when the operator has not gone on: the pulse is armed again, and that is all.
    bool Anular(qint32 idZV);
    // The words for the record; nothing when a cause is asked for and not given.
    std::optional<QString> Motivo();
    void ArchivarAnulacion(qint32 idZV, const QString& motivo);

    Entorno& entorno_;
    const Controles& controles_;
    GridCola& grid_;
    EstadoMonitor& estado_;
    PulsoCola& pulso_;
    CobrosAgrupados& agrupados_;
};

} // namespace zv
