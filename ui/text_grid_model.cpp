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

bool TextGridModel::Free(const QModelIndex& index) const {
    if (!Editable || !index.isValid()) return false;
    return Can_Edit ? Can_Edit(index.row(), index.column()) : !Fixed(index);
}

QVariant TextGridModel::Foreground(const QModelIndex& index, const TextGrid::Cell& cell) const {
    if (cell.ForeColour) return QBrush(To_QColor(*cell.ForeColour));
    // A cell with a background of its own keeps letters that can be read on it in a dark palette too.
    if (cell.BackColour) return QBrush(To_QColor(*cell.BackColour).lightness() > 127 ? Qt::black : Qt::white);
    if (!Look_Of) return {};
    switch (Look_Of(index.row(), index.column())) {
        case Look::Faint:
        case Look::ReadOnly:
            return QApplication::palette().brush(QPalette::PlaceholderText);
        case Look::Plain:
        case Look::Grouped:
            break;
    }
    return {};
}

QVariant TextGridModel::Background(const QModelIndex& index, const TextGrid::Cell& cell) const {
    if (cell.BackColour) return QBrush(To_QColor(*cell.BackColour));
    if (Fixed(index)) return QApplication::palette().brush(QPalette::Button);
    if (!Look_Of) return {};
    switch (Look_Of(index.row(), index.column())) {
        case Look::Grouped:
            return QApplication::palette().brush(QPalette::AlternateBase);
        case Look::ReadOnly:
            return QApplication::palette().brush(QPalette::Window);
        case Look::Plain:
        case Look::Faint:
            break;
    }
    return {};
}

QVariant TextGridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const TextGrid::Cell& cell = static_cast<const TextGrid&>(Grid).At(index.row(), index.column());
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return QString::fromStdString(cell.Text);
        case Qt::ForegroundRole:
            return Foreground(index, cell);
        case Qt::BackgroundRole:
            return Background(index, cell);
        case Qt::TextAlignmentRole: {
            constexpr Qt::Alignment sides[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
            return QVariant(sides[static_cast<int>(cell.Align)] | Qt::AlignVCenter);
        }
        default:
            return {};
    }
}

QVariant TextGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const bool across = orientation == Qt::Horizontal;
    if (role == Qt::ToolTipRole) return Heading_Tip ? Heading_Tip(section, orientation) : QVariant();
    if (role != Qt::DisplayRole) return QAbstractTableModel::headerData(section, orientation, role);
    const int fixed = across ? Grid.FixedRows : Grid.FixedColumns;
    if (fixed < 1) return across ? section + 1 : section - Grid.FixedRows + 1;
    return QString::fromStdString(across ? Grid.Text(fixed - 1, section) : Grid.Text(section, fixed - 1));
}

bool TextGridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !Free(index)) return false;
    const int row = index.row();
    const int column = index.column();
    if (!Grid.Has(row, column)) return false;
    Grid.CurrentRow = row;
    Grid.CurrentColumn = column;
    const std::string text = value.toString().toStdString();
    if (Store) {
        if (!Store(row, column, text)) return false;
    } else {
        Grid.Set_Text(row, column, text);
    }
    // What an edit sets off may have changed the size of the grid.
    if (Grid.Has(row, column) && row < ShownRows && column < ShownColumns) {
        const QModelIndex changed = this->index(row, column);
        emit dataChanged(changed, changed);
    }
    if (OnEdited) OnEdited(row, column);
    return true;
}

Qt::ItemFlags TextGridModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (Free(index)) flags |= Qt::ItemIsEditable;
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
        emit headerDataChanged(Qt::Horizontal, 0, ShownColumns - 1);
        emit headerDataChanged(Qt::Vertical, 0, ShownRows - 1);
    }
}

}  // namespace tarnvik
