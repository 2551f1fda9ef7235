#include "ui/cell_edits.h"

namespace tarnvik {

bool FormCells::Editable(int row, int column) const {
    return Grid.Has(row, column) && row >= Grid.FixedRows && column >= Grid.FixedColumns;
}

bool FormCells::Type(int row, int column, const std::string& text) {
    if (!Editable(row, column)) return false;
    Commit({{row, column, Grid.Text(row, column), text}});
    return true;
}

void FormCells::Paste(int row, int column, const std::string& text) {
    std::vector<CellChange> step;
    int to_row = row;
    for (const auto& cells : Block_Cells(text)) {
        int to_column = column;
        for (const std::string& cell : cells) {
            if (Editable(to_row, to_column))
                step.push_back({to_row, to_column, Grid.Text(to_row, to_column), cell});
            ++to_column;
        }
        ++to_row;
    }
    Commit(std::move(step));
}

void FormCells::Clear(CellBlock block) {
    std::vector<CellChange> step;
    for (int row = block.FirstRow; row <= block.LastRow; ++row) {
        for (int column = block.FirstColumn; column <= block.LastColumn; ++column) {
            if (Editable(row, column)) step.push_back({row, column, Grid.Text(row, column), ""});
        }
    }
    Commit(std::move(step));
}

void FormCells::Commit(std::vector<CellChange> step) {
    std::erase_if(step, [](const CellChange& change) { return change.Before == change.After; });
    if (step.empty()) return;
    if (!Same_Size()) History.Forget();
    EditedRows = Grid.Rows();
    EditedColumns = Grid.Columns();
    for (const CellChange& change : step)
        Grid.Set_Text(change.Row, change.Column, change.After);
    History.Add(std::move(step));
    if (Changed) Changed();
}

void FormCells::Undo() {
    if (!Can_Undo()) return;
    for (const CellChange& change : History.Undo())
        Grid.Set_Text(change.Row, change.Column, change.Before);
    if (Changed) Changed();
}

void FormCells::Redo() {
    if (!Can_Redo()) return;
    for (const CellChange& change : History.Redo())
        Grid.Set_Text(change.Row, change.Column, change.After);
    if (Changed) Changed();
}

}  // namespace tarnvik
