#include "ui/text_grid_model.h"

#include <QApplication>
#include <QBrush>
#include <QPalette>
#include <algorithm>

#include "ui/painting/painter_picture.h"

namespace tarnvik {

TextGridModel::TextGridModel(TextGrid& grid, QObject* parent)
    : QAbstractTableModel(parent),
      Grid(grid),
      Shown(grid),
      ShownRows(grid.Rows()),
      ShownColumns(grid.Columns()) {}

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
            if (Shown_Text && !Fixed(index)) return Shown_Text(index.column(), cell.Text);
            return QString::fromStdString(cell.Text);
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
        Shown = Grid;
        endResetModel();
        return;
    }
    // Only the rectangle round the changed cells is shown anew: a cell being typed into keeps its editor.
    int top = ShownRows, left = ShownColumns, bottom = -1, right = -1;
    const TextGrid& grid = Grid;
    for (int row = 0; row < ShownRows; ++row) {
        for (int column = 0; column < ShownColumns; ++column) {
            TextGrid::Cell& shown = Shown.At(row, column);
            if (shown == grid.At(row, column)) continue;
            shown = grid.At(row, column);
            top = std::min(top, row);
            bottom = std::max(bottom, row);
            left = std::min(left, column);
            right = std::max(right, column);
        }
    }
    if (bottom < 0) return;
    emit dataChanged(index(top, left), index(bottom, right));
    if (top < Grid.FixedRows) emit headerDataChanged(Qt::Horizontal, left, right);
    if (left < Grid.FixedColumns) emit headerDataChanged(Qt::Vertical, top, bottom);
}

void TextGridModel::Refresh_Cell(int row, int column) {
    if (Grid.Rows() != ShownRows || Grid.Columns() != ShownColumns) {
        Refresh();
        return;
    }
    if (!Grid.Has(row, column)) return;
    Shown.At(row, column) = static_cast<const TextGrid&>(Grid).At(row, column);
    const QModelIndex changed = index(row, column);
    emit dataChanged(changed, changed);
}

}  // namespace tarnvik
