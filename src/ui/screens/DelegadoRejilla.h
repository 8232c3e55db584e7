// Draws the cells of a Rejilla: texts, amounts, pictures, and their colours.
#pragma once

#include "ui/Rejilla.h"

#include <QColor>
#include <QStyledItemDelegate>

#include <array>

class QAbstractButton;

namespace zv {

class DelegadoRejilla final : public QStyledItemDelegate {
    Q_OBJECT

  public:
    explicit DelegadoRejilla(const Rejilla& rejilla, QObject* parent = nullptr);

    // The picture is that of a button, which is never clicked there; it must outlive the view.
    void PonerImagen(Imagen imagen, const QAbstractButton& boton, const QColor& fondo);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

  private:
    struct Dibujo {
        const QAbstractButton* boton = nullptr;
        QColor fondo;
    };

    void PintarImagen(QPainter& painter, const QRect& celda, Imagen imagen) const;
    void PintarTexto(QPainter& painter, const QRect& caja, int alineacion, const QString& texto,
                     bool negrita) const;
    void PintarImporte(QPainter& painter, const QRect& caja, int alineacion,
                       const QString& importe) const;

    const Rejilla& rejilla_;
    std::array<Dibujo, kImagenes> imagenes_;
};

} // namespace zv
