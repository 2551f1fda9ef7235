#include "ui/text_grid_model.h"

#include <QApplication>
#include <QBrush>
#include <QPalette>

#include "ui/painting/painter_picture.h"

namespace tarnvik {

TextGridModel::TextGridModel(TextGrid& grid, QObject* parent)
    : QAbstractTableModel(parent), Grid(grid), ShownRows(grid.Rows()), ShownColumns(grid.Columns()) {}

int TextGridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ShownRows;
}

int TextGridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ShownColumns;
}

bool TextGridModel::Fixed(const QModelIndex& index) const {
    return index.row() < Grid.FixedRows || index.column() < Grid.FixedColumns;
}

QVariant TextGridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const TextGrid::Cell& cell = static_cast<const TextGrid&>(Grid).At(index.row(), index.column());
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return QString::fromStdString(cell.Text);
        case Qt::ForegroundRole:
            if (cell.ForeColour) return QBrush(To_QColor(*cell.ForeColour));
            // A cell with a background of its own keeps letters that can be read on it in a dark palette too.
            if (cell.BackColour) {
                return QBrush(To_QColor(*cell.BackColour).lightness() > 127 ? Qt::black : Qt::white);
            }
            return {};
        case Qt::BackgroundRole:
            if (cell.BackColour) return QBrush(To_QColor(*cell.BackColour));
            if (Fixed(index)) return QApplication::palette().brush(QPalette::Button);
            return {};
        case Qt::TextAlignmentRole: {
            constexpr Qt::Alignment sides[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
            return QVariant(sides[static_cast<int>(cell.Align)] | Qt::AlignVCenter);
        }
        default:
            return {};
    }
}

bool TextGridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !index.isValid() || !Editable || Fixed(index)) return false;
    if (!Grid.Has(index.row(), index.column())) return false;
    Grid.Set_Text(index.row(), index.column(), value.toString().toStdString());
    Grid.CurrentRow = index.row();
    Grid.CurrentColumn = index.column();
    emit dataChanged(index, index);
    if (OnEdited) OnEdited(index.row(), index.column());
    return true;
}

Qt::ItemFlags TextGridModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (Editable && index.isValid() && !Fixed(index)) flags |= Qt::ItemIsEditable;
    return flags;
}

void TextGridModel::Refresh() {
    if (Grid.Rows() != ShownRows || Grid.Columns() != ShownColumns) {
        beginResetModel();
        ShownRows = Grid.Rows();
        ShownColumns = Grid.Columns();
        endResetModel();
    } else if (ShownRows > 0 && ShownColumns > 0) {
        emit dataChanged(index(0, 0), index(ShownRows - 1, ShownColumns - 1));
    }
}

}  // namespace tarnvik
