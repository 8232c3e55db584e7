// A Rejilla on the screen. The view follows the grid: rows, widths, and which row stands on top.
// Any row can, also one of the last page, for which a table of Qt would not scroll so far. What the
// operator does with the pointer is told by signals.
#pragma once

#include "ui/Rejilla.h"
#include "ui/screens/DelegadoRejilla.h"
#include "ui/screens/Escalable.h"
#include "ui/screens/ModeloRejilla.h"

#include <QStringList>
#include <QTableView>

#include <optional>

namespace zv {

class VistaRejilla final : public QTableView, public Escalable {
    Q_OBJECT

  public:
    // The grid must outlive the view, and has no other.
    VistaRejilla(Rejilla& rejilla, const QString& nombre, QWidget* padre);
    ~VistaRejilla() override;

    // The picture of a button, on a ground of that colour.
    void PonerImagen(Imagen imagen, const QAbstractButton& boton, const QColor& fondo);
    // The pictures of a column look as if a touch on them did something, or not.
    void HabilitarImagenes(int columna, bool habilitadas);
    // The current row is marked.
    void SenalarFilaActual();
    // Columns wider than the view together are moved sideways; otherwise they are cut.
    void DesplazarDeLado();
    // Heights and letters; 1 is a window of 1024x768.
    void Escalar(double escala) override;
    int AltoFila() const;
    // Of the system's scroll bar, in pixels.
    int AnchoBarra() const;

  Q_SIGNALS:
    // The operator has scrolled; the grid knows its new top row.
    void Desplazada();
    // The left button has been released over the cell in which it was pressed, or a screen reader
    // has chosen the cell. fila 0: the titles; columna -1: beside the columns; debajo: below the
    // last row.
    void Soltado(int fila, int columna, bool debajo);

  protected:
    void updateGeometries() override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseDoubleClickEvent(QMouseEvent* evento) override;
    void mouseMoveEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

  private:
    struct Lugar {
        int fila = 0;
        int columna = 0;
        bool debajo = false;
        QStringList textos; // of the row: another one may come to its place
        bool operator==(const Lugar&) const = default;
    };

    Lugar LugarDe(const QPoint& punto) const;
    Lugar LugarDe(int fila, int columna) const;
    // Whether a press comes too soon after a touch that has changed the rows.
    bool LlegaTarde(const QMouseEvent& evento) const;
    void Pulsar(const std::optional<Lugar>& lugar);
    void Soltar(const std::optional<Lugar>& lugar);
    void SeñalarPulsada(const std::optional<Lugar>& lugar);
    void PulsarElegidas(const QItemSelection& elegidas);
    void PonerAnchos();
    void SeguirPosicion();

    Rejilla& rejilla_;
    ModeloRejilla modelo_;
    DelegadoRejilla delegado_;
    std::optional<Lugar> pulsado_;
    std::optional<Lugar> anterior_; // the one pressed before
    quint64 ultimoToque_ = 0;       // time of its release in the system's milliseconds
    int ultimaPagina_ = 0;          // value of the scroll bar at which the last page is filled
    bool siguiendo_ = false;
    bool señalaActual_ = false;
};

} // namespace zv
