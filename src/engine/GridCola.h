// The queue in grdZV: how a row of cola becomes cells, the count of refunds, and how the columns
// share the width. The cells themselves are a Rejilla.
#pragma once

#include "config/Configuracio.h"
#include "store/DatabaseEngine.h"
#include "ui/Importes.h"
#include "ui/Rejilla.h"
#include "ui/Textos.h"

#include <optional>
#include <vector>

namespace zv {

// The columns of grdZV. IdCola is hidden and tells the row's idZV.
struct ColumnaCola {
    enum : int {
        Anular,
        IdCola,
        Fecha,
        Id1,
        Id2,
        IdCaja,
        Terminal,
        Vendedor,
        FormaPago,
        Importe,
        Enviar,
        Cuantas
    };
};

class GridCola {
  public:
    GridCola(const Textos& textos, const Importes& importes);

    Rejilla& Celdas() { return celdas_; }
    const Rejilla& Celdas() const { return celdas_; }

    // Titles of the columns, set once at start.
    void PonerTitulos();

    // Refills from cola, in idZV order, and makes the first row current and top. A database
    // failure is raised with the grid as far as it got. Where cola can only have grown at its end
    // since the last time, the rows that stand are kept.
    void Rellenar(DatabaseEngine& motor, bool sinHora);

    // Colours the cells of a row that is marked for a grouped charge, or gives them back their own;
    // the last column becomes the current one. A refill takes the colours away.
    void ResaltarFila(int fila, bool resaltada);

    // idZV of a data row.
    QString IdDeFila(int fila) const { return celdas_.Texto(fila, ColumnaCola::IdCola); }
    int FilasDatos() const { return celdas_.FilasDatos(); }
    int Abonos() const { return abonos_; }

    // Widths in twips for a grid of that width and a scroll bar of that width, by the COL...
    // settings. Page size from the heights, in any one unit.
    void ColocarColumnas(const Configuracio& configuracio, int anchoGrid, int anchoBarra,
                         int altoGrid, int altoFila);
    // The widths again, by other settings, for the grid as it was told last.
    void RecolocarColumnas(const Configuracio& configuracio);

  private:
    // What the rows were read under; those of another are read again.
    struct Lectura {
        quint64 marca = 0;
        bool sinHora = false;
        quint8 multiplicador = 0;
        bool operator==(const Lectura&) const = default;
    };
    struct Campos;

    void QuitarResaltes();
    void LeerFilas(DatabaseEngine& motor, bool soloNuevas, bool sinHora);
    void PonerFila(const Row& fila, const Campos& campos, bool sinHora);

    const Textos& textos_;
    const Importes& importes_;
    Rejilla celdas_;
    std::optional<Lectura> lectura_; // none: the rows are not whole
    qint32 ultimoId_ = 0;            // idZV of the last row
    int abonos_ = 0;
    int anchoGrid_ = 0; // twips
    int anchoBarra_ = 0;
    std::vector<int> resaltadas_; // rows that have been coloured since the last refill
};

} // namespace zv
