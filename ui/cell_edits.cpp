#include "ui/cell_edits.h"

namespace tarnvik {

bool FormCells::Editable(int row, int column) const {
    return Grid.Has(row, column) && row >= Grid.FixedRows && column >= Grid.FixedColumns;
}

bool FormCells::Put(int row, int column, const std::string& text) {
    if (!Editable(row, column) || Grid.Text(row, column) == text) return false;
    Grid.Set_Text(row, column, text);
    return true;
}

bool FormCells::Type(int row, int column, const std::string& text) {
    if (!Editable(row, column)) return false;
    if (Put(row, column, text) && Changed) Changed();
    return true;
}

void FormCells::Paste(int row, int column, const std::string& text) {
    bool changed = false;
    int to_row = row;
    for (const auto& cells : Block_Cells(text)) {
        int to_column = column;
        for (const std::string& cell : cells)
            changed |= Put(to_row, to_column++, cell);
        ++to_row;
    }
    if (changed && Changed) Changed();
}

void FormCells::Clear(CellBlock block) {
    bool changed = false;
    for (int row = block.FirstRow; row <= block.LastRow; ++row) {
        for (int column = block.FirstColumn; column <= block.LastColumn; ++column)
            changed |= Put(row, column, "");
    }
    if (changed && Changed) Changed();
}

}  // namespace tarnvik
