// Draws the cells of a Rejilla: texts, amounts, pictures, and their colours.
#pragma once

#include "ui/Rejilla.h"

#include <QColor>
#include <QStyledItemDelegate>

#include <array>
#include <set>

class QAbstractButton;

namespace zv {

class DelegadoRejilla final : public QStyledItemDelegate {
    Q_OBJECT

  public:
    explicit DelegadoRejilla(const Rejilla& rejilla, QObject* parent = nullptr);

    // The picture is that of a button, which is never clicked there; it must outlive the view.
    void PonerImagen(Imagen imagen, const QAbstractButton& boton, const QColor& fondo);
    // The pictures of a column are drawn faint: a touch on them does nothing now.
    void PonerApagada(int columna, bool apagada);
    bool EstaApagada(int columna) const { return apagadas_.contains(columna); }
    // The grid's current row is marked.
    void SenalarFilaActual() { señalaActual_ = true; }
    // The cell on which a finger rests; row 0 for none.
    void PonerPulsada(int fila, int columna);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

  private:
    struct Dibujo {
        const QAbstractButton* boton = nullptr;
        QColor fondo;
    };

    // How the picture of a cell looks as a button.
    enum class Boton { Normal, Pulsado, Apagado };
    Boton EstadoDe(int fila, int columna) const;
    void PintarImagen(QPainter& painter, const QRect& celda, Imagen imagen, Boton estado) const;
    void PintarTexto(QPainter& painter, const QRect& caja, int alineacion, const QString& texto,
                     bool negrita) const;
    void PintarImporte(QPainter& painter, const QRect& caja, int alineacion,
                       const QString& importe) const;

    const Rejilla& rejilla_;
    std::array<Dibujo, kImagenes> imagenes_;
    std::set<int> apagadas_; // columns
    int filaPulsada_ = 0;
    int columnaPulsada_ = 0;
    bool señalaActual_ = false;
};

} // namespace zv
