// What is done from a register: an operation goes back into the queue, an incident is withdrawn
// from the cash office, all incidents or all accesses go at once.
#pragma once

#include "registers/Listado.h"

namespace zv {

class OperacionesListado {
  public:
    explicit OperacionesListado(Listado& listado)
        : listado_(listado), entorno_(listado.ElEntorno()) {}

    // A click in grdZV. fila 0: the titles; columna -1: beside the columns; debajo: below the last
    // row. True when the screen is to be left. A failure of the database and a cell that cannot be
    // read as what it is taken for go up.
    [[nodiscard]] bool grdZV_Click(int fila, int columna, bool debajo);
    // boton(2).
    void Todas();

  private:
    bool Reenviar(int fila);
    bool SePuedeReenviar(int fila);
    QDateTime FechaDe(int fila) const;
    void Encolar(int fila, const QDateTime& fecha, Currency importe, const DatosVenta& venta);
    void Descartar(int fila);
    bool Preguntar(const QString& titulo, const Clave& pregunta);
    QString Celda(int fila, int columna) const { return listado_.grdZV().Texto(fila, columna); }

    Listado& listado_;
    Entorno& entorno_;
};

} // namespace zv
