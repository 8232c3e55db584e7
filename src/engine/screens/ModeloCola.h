// Model behind grdZV: hands the lines of GridCola to the view, no widget per cell.
#pragma once

#include "engine/GridCola.h"

#include <QAbstractTableModel>

namespace zv {

class ModeloCola final : public QAbstractTableModel {
    Q_OBJECT

  public:
    // Roles beside the text: what the delegate needs to draw a cell.
    enum Rol { kManual = Qt::UserRole, kAbono, kCredito };

    explicit ModeloCola(const GridCola& grid, QObject* parent = nullptr);

    // The grid has been refilled.
    void Refrescar();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    const GridCola& grid_;
    int filas_ = 0;
};

} // namespace zv
