// Model of a Rejilla for Qt's views: texts, titles and alignments, no widget per cell.
#pragma once

#include "ui/Rejilla.h"

#include <QAbstractTableModel>

namespace zv {

class ModeloRejilla final : public QAbstractTableModel {
    Q_OBJECT

  public:
    explicit ModeloRejilla(const Rejilla& rejilla, QObject* parent = nullptr);

    // Tells the views what has changed since the last call: new rows, cells, titles, or everything.
    void Seguir(const Rejilla::Cambio& cambio);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    void SeguirFilas(const Rejilla::Cambio& cambio);

    const Rejilla& rejilla_;
    // What the views know.
    int filas_;
    int columnas_;
};

} // namespace zv
