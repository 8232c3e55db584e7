#include "ui/screens/ModeloRejilla.h"

namespace zv {

ModeloRejilla::ModeloRejilla(const Rejilla& rejilla, QObject* parent)
    : QAbstractTableModel(parent), rejilla_(rejilla), filas_(rejilla.FilasDatos()),
      columnas_(rejilla.Columnas()) {}

void ModeloRejilla::Seguir(const Rejilla::Cambio& cambio) {
    if (columnas_ != rejilla_.Columnas()) {
        beginResetModel();
        columnas_ = rejilla_.Columnas();
        filas_ = rejilla_.FilasDatos();
        endResetModel();
        return;
    }
    SeguirFilas(cambio);
    if (cambio.columnas) {
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnas_ - 1);
    }
}

void ModeloRejilla::SeguirFilas(const Rejilla::Cambio& cambio) {
    const int filas = rejilla_.FilasDatos();
    if (cambio.conservadas != filas_ || (filas_ == 0 && filas > 0)) {
        beginResetModel();
        filas_ = filas;
        endResetModel();
        return;
    }
    if (filas > filas_) {
        beginInsertRows({}, filas_, filas - 1);
        filas_ = filas;
        endInsertRows();
    }
    if (cambio.primera <= cambio.ultima) {
        Q_EMIT dataChanged(index(cambio.primera - 1, 0), index(cambio.ultima - 1, columnas_ - 1));
    }
}

int ModeloRejilla::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : filas_;
}

int ModeloRejilla::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columnas_;
}

QVariant ModeloRejilla::data(const QModelIndex& index, int role) const {
    const int fila = index.row() + 1;
    // The grid may be ahead of what the view knows.
    if (!index.isValid() || fila > rejilla_.FilasDatos() || index.column() >= rejilla_.Columnas()) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return rejilla_.Texto(fila, index.column());
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(rejilla_.ColumnaDe(index.column()).alineacion);
    case Qt::AccessibleTextRole: {
        const QString palabra = rejilla_.PalabraImagen(fila, index.column());
        return palabra.isEmpty() ? QVariant() : palabra;
    }
    default:
        return {};
    }
}

QVariant ModeloRejilla::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section >= rejilla_.Columnas()) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return rejilla_.Texto(0, section);
    }
    if (role == Qt::TextAlignmentRole) {
        // A title wider than its column goes on below.
        return static_cast<int>(rejilla_.ColumnaDe(section).alineacion) |
               static_cast<int>(Qt::TextWordWrap);
    }
    return {};
}

} // namespace zv
