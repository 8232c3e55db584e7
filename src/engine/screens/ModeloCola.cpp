// Texts, alignments and marks of the queue grid.
#include "engine/screens/ModeloCola.h"

namespace zv {

namespace {

Qt::Alignment Alineacion(int columna) {
    switch (columna) {
    case 0:
    case 10:
        return Qt::AlignCenter;
    case 2:
    case 9:
        return Qt::AlignRight | Qt::AlignVCenter;
    default:
        return Qt::AlignLeft | Qt::AlignVCenter;
    }
}

} // namespace

ModeloCola::ModeloCola(const GridCola& grid, QObject* parent)
    : QAbstractTableModel(parent), grid_(grid) {}

void ModeloCola::Refrescar() {
    const int filas = grid_.FilasDatos();
    if (filas_ > 0 && grid_.FilasConservadas() == filas_) {
        if (filas > filas_) {
            beginInsertRows({}, filas_, filas - 1);
            filas_ = filas;
            endInsertRows();
        }
        return;
    }
    beginResetModel();
    filas_ = filas;
    endResetModel();
}

int ModeloCola::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : filas_;
}

int ModeloCola::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kColumnasGrid;
}

QVariant ModeloCola::data(const QModelIndex& index, int role) const {
    const int fila = index.row() + 1;
    if (!index.isValid() || fila > grid_.FilasDatos()) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return grid_.Texto(fila, index.column());
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Alineacion(index.column()));
    case kManual:
        return grid_.Linea(fila).manual;
    case kAbono:
        return grid_.Linea(fila).abono;
    case kCredito:
        return grid_.Linea(fila).credito;
    default:
        return {};
    }
}

QVariant ModeloCola::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return grid_.Titulo(section);
    }
    if (role == Qt::TextAlignmentRole) {
        // A title wider than its column goes on below.
        return static_cast<int>(Alineacion(section)) | static_cast<int>(Qt::TextWordWrap);
    }
    return {};
}

} // namespace zv
