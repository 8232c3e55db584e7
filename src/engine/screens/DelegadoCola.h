// Draws the cells of grdZV: texts, the red of manual rows, and the pictures of btnCancelar,
// btnCobro and btnAbono in the outer columns.
#pragma once

#include <QPixmap>
#include <QStyledItemDelegate>

class QAbstractButton;

namespace zv {

class DelegadoCola final : public QStyledItemDelegate {
    Q_OBJECT

  public:
    // The three buttons are never clicked: only their pictures are shown.
    DelegadoCola(const QAbstractButton& btnCancelar, const QAbstractButton& btnCobro,
                 const QAbstractButton& btnAbono, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

  private:
    void PintarBoton(QPainter& painter, const QRect& celda, const QAbstractButton& boton,
                     const QColor& fondo) const;
    void PintarTexto(QPainter& painter, const QRect& caja, int alineacion, const QString& texto,
                     bool negrita) const;
    void PintarImporte(QPainter& painter, const QRect& caja, int alineacion,
                       const QModelIndex& index) const;

    const QAbstractButton& btnCancelar_;
    const QAbstractButton& btnCobro_;
    const QAbstractButton& btnAbono_;
};

} // namespace zv
