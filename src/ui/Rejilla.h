// The logical grid: columns, rows of text with their looks, the current cell, the top row and the
// pages, apart from any widget. A table of columns names each of them once. A view follows by
// notices; export and print read the cells.
//
// Row 0 holds the titles, row 1 is the first data row. Hidden columns have their texts too.
#pragma once

#include "ui/Clave.h"

#include <QString>

#include <functional>
#include <vector>

namespace zv {

class Textos;

// What the cells of a column hold; decides how they are drawn.
enum class Contenido : quint8 {
    Texto,
    Importe, // never cut: it would be a wrong amount
    Imagen
};

// Pictures of cells, named by the buttons that lend them.
enum class Imagen : quint8 { Ninguna, Cancelar, Cobro, Abono, Enviar };
inline constexpr std::size_t kImagenes = 5;

struct Columna {
    // The title: a text between two fixed parts. Without a text the fixed parts are all.
    const Clave* clave = nullptr;
    QString delante = {};
    QString detras = {};
    Qt::Alignment alineacion = Qt::AlignLeft | Qt::AlignVCenter;
    Contenido contenido = Contenido::Texto;
    int ancho = 0;       // twips; 0 hides the column
    QString titulo = {}; // as it was looked up last
};

// 0xffrrggbb; 0 is the grid's own colour.
using ColorCelda = quint32;
constexpr ColorCelda ColorRGB(quint8 rojo, quint8 verde, quint8 azul) {
    return 0xff000000U | static_cast<quint32>(rojo) << 16U | static_cast<quint32>(verde) << 8U |
           azul;
}

struct Aspecto {
    ColorCelda texto = 0;
    ColorCelda fondo = 0;
    Imagen imagen = Imagen::Ninguna;
    bool negrita = false;
    bool operator==(const Aspecto&) const = default;
};

class Rejilla {
  public:
    // What a view that followed the last notice has to make good.
    struct Cambio {
        int conservadas = 0; // rows at the front that still stand; the others are gone or new
        // Of those, the rows with changed cells; none when the first is behind the last.
        int primera = 1;
        int ultima = 0;
        bool columnas = false; // titles, widths or the number of columns
    };

    explicit Rejilla(std::vector<Columna> columnas = {});
    Rejilla(const Rejilla&) = delete;
    Rejilla& operator=(const Rejilla&) = delete;

    // Other columns; the rows go.
    void PonerColumnas(std::vector<Columna> columnas);
    int Columnas() const { return static_cast<int>(columnas_.size()); }
    const Columna& ColumnaDe(int columna) const { return columnas_[Indice(columna)]; }
    // Looks all titles up.
    void PonerTitulos(const Textos& textos);
    void PonerAncho(int columna, int twips);

    int FilasDatos() const { return filas_; }
    int Filas() const { return filas_ + 1; }
    // The rows behind the first cuantas go; with 0 only the titles stay.
    void Recortar(int cuantas);
    void Vaciar() { Recortar(0); }
    // Answers the number of the new row, empty and last.
    int AñadirFila();

    const QString& Texto(int fila, int columna) const {
        return fila == 0 ? columnas_[Indice(columna)].titulo : textos_[Celda(fila, columna)];
    }
    // Data rows only, here and below.
    void PonerTexto(int fila, int columna, QString texto);
    // Of the title row: the grid's own.
    Aspecto AspectoDe(int fila, int columna) const;
    void PonerImagen(int fila, int columna, Imagen imagen);
    void PonerFondo(int fila, int columna, ColorCelda fondo);
    // Every cell of the row.
    void PonerColorFila(int fila, ColorCelda texto, bool negrita);
    // What a picture says: the title of its column. Empty for a cell without one.
    QString PalabraImagen(int fila, int columna) const;

    // While drawing is off notices are held; they are given together when it is on again.
    void PonerDibujo(bool encendido);
    bool Dibujo() const { return dibujo_; }

    // Current cell; row 0 when there is none.
    int FilaActual() const { return posicion_.filaActual; }
    int ColumnaActual() const { return posicion_.columnaActual; }
    void PonerCeldaActual(int fila, int columna);
    void PonerFilaActual(int fila) { PonerCeldaActual(fila, posicion_.columnaActual); }

    // Rows that a page turns.
    int Pagina() const { return posicion_.pagina; }
    void PonerPagina(int filas);

    // First row in view: from 1 to the last one, but 1 while all rows fit into a page.
    int FilaSuperior() const { return posicion_.filaSuperior; }
    void PonerFilaSuperior(int fila);
    // Scrolls as little as it takes to have that row in view.
    void PonerALaVista(int fila);
    bool HayAnterior() const { return posicion_.filaSuperior != 1; }
    bool HaySiguiente() const { return posicion_.filaSuperior + posicion_.pagina <= filas_; }
    // A page up or down; its first row becomes the current one.
    void PaginaArriba();
    void PaginaAbajo();

    // Contents or columns have changed; top row, current cell or page size have.
    void AlCambiar(std::function<void(const Cambio&)> aviso) { alCambiar_ = std::move(aviso); }
    void AlMover(std::function<void()> aviso) { alMover_ = std::move(aviso); }

  private:
    struct Posicion {
        int filaActual = 0;
        int columnaActual = 0;
        int filaSuperior = 1;
        int pagina = 1;
        bool operator==(const Posicion&) const = default;
    };

    static std::size_t Indice(int n) { return static_cast<std::size_t>(n); }
    std::size_t Celda(int fila, int columna) const {
        return Indice(fila - 1) * columnas_.size() + Indice(columna);
    }
    Aspecto& AspectoPara(int fila, int columna);
    void IrA(int fila);
    void Tocar(int fila);
    void HaCambiado();
    void Avisar();

    std::vector<Columna> columnas_;
    int filas_ = 0;
    // Cells row by row. Looks are not kept before the first one is set.
    std::vector<QString> textos_;
    std::vector<Aspecto> aspectos_;

    Posicion posicion_;

    bool dibujo_ = true;
    bool cambiado_ = false;
    Cambio cambio_;
    Posicion avisada_; // at the last notice
    std::function<void(const Cambio&)> alCambiar_;
    std::function<void()> alMover_;
};

// Drawing off for as long as it lives; then as it was before.
class SinDibujo {
  public:
    explicit SinDibujo(Rejilla& rejilla) : rejilla_(rejilla), antes_(rejilla.Dibujo()) {
        rejilla_.PonerDibujo(false);
    }
    ~SinDibujo() { rejilla_.PonerDibujo(antes_); }
    SinDibujo(const SinDibujo&) = delete;
    SinDibujo& operator=(const SinDibujo&) = delete;

  private:
    Rejilla& rejilla_;
    bool antes_;
};

// A text of a table as a cell shows it: up to the first NUL, at most as long as a column of the
// tables may be. What other programs write keeps to neither.
QString TextoDeCelda(const QString& texto);

} // namespace zv
