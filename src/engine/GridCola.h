// Contents of grdZV: one line per row of cola, the counters over them, the column widths and the
// page arithmetic. The screen draws it; nothing here knows a widget.
#pragma once

#include "config/Configuracio.h"
#include "store/DatabaseEngine.h"
#include "ui/Importes.h"
#include "ui/Textos.h"

#include <QString>

#include <array>
#include <functional>
#include <optional>
#include <vector>

namespace zv {

inline constexpr int kColumnasGrid = 11;

struct LineaGrid {
    qint32 idZV = 0;
    QString fecha;
    QString id1;
    QString id2;
    QString idcaja;
    QString terminal;
    QString vendedor;
    QString formapago;
    QString importe; // formatted, with the credit mark
    bool abono = false;
    bool credito = false;
    bool manual = false;
};

class GridCola {
  public:
    GridCola(const Textos& textos, const Importes& importes);

    // Titles of the columns, set once at start.
    void PonerTitulos();
    const QString& Titulo(int columna) const { return titulos_[static_cast<std::size_t>(columna)]; }

    // Refills from cola, in idZV order, and makes the first row current and top. A database
    // failure is raised with the grid as far as it got. Where cola can only have grown at its end
    // since the last time, the rows that stand are kept.
    void Rellenar(DatabaseEngine& motor, bool sinHora);

    int FilasDatos() const { return static_cast<int>(lineas_.size()); }
    // Rows at the front that the last refill has left as they were.
    int FilasConservadas() const { return conservadas_; }
    int Abonos() const { return abonos_; }
    const LineaGrid& Linea(int fila) const { return lineas_[static_cast<std::size_t>(fila - 1)]; }
    // Text of a cell; row 1 is the first data row, row 0 the header.
    QString Texto(int fila, int columna) const;

    // Widths in twips for a grid of that width and a scroll bar of that width, by the COL...
    // settings; 0 hides the column. Page size from the heights, in any one unit.
    void ColocarColumnas(const Configuracio& configuracio, int anchoGrid, int anchoBarra,
                         int altoGrid, int altoFila);
    int AnchoColumna(int columna) const { return anchos_[static_cast<std::size_t>(columna)]; }
    int Pagina() const { return pagina_; }

    // Top and current row, 1 the first data row.
    int FilaSuperior() const { return filaSuperior_; }
    int FilaActual() const { return filaActual_; }
    void PonerFilaSuperior(int fila);
    void PonerFilaActual(int fila);

    // The screen follows: contents or position have changed.
    void AlRellenar(std::function<void()> aviso) { alRellenar_ = std::move(aviso); }
    void AlMover(std::function<void()> aviso) { alMover_ = std::move(aviso); }

  private:
    // What the lines were read under; lines of another are read again.
    struct Lectura {
        quint64 marca = 0;
        bool sinHora = false;
        quint8 multiplicador = 0;
        bool operator==(const Lectura&) const = default;
    };

    void LeerFilas(DatabaseEngine& motor, bool soloNuevas, bool sinHora);
    LineaGrid LeerLinea(const Row& fila, bool sinHora) const;

    const Textos& textos_;
    const Importes& importes_;
    std::array<QString, kColumnasGrid> titulos_;
    std::array<int, kColumnasGrid> anchos_{};
    std::vector<LineaGrid> lineas_;
    std::optional<Lectura> lectura_; // none: the lines are not whole
    int conservadas_ = 0;
    int abonos_ = 0;
    int pagina_ = 1;
    int filaSuperior_ = 1;
    int filaActual_ = 0;
    std::function<void()> alRellenar_;
    std::function<void()> alMover_;
};

// Date of a sale for the grid: "dd/mm/yy hh:mm:ss", or without the time; empty for no date.
QString FechaCorta(const QDateTime& fecha, bool sinHora);

} // namespace zv
