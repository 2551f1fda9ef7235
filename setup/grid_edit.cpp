#include "setup/grid_edit.h"

#include <algorithm>
#include <utility>

#include "core/text/letters.h"
#include "core/text/number.h"
#include "setup/build_grid.h"

namespace tarnvik {

namespace {

constexpr int remark_text_column = 3;

std::string Quoted_If_Needed(const std::string& text) {
    if (text.find_first_of("\t\r\n\"") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char letter : text) {
        if (letter == '"') quoted += '"';
        quoted += letter;
    }
    return quoted + "\"";
}

/// A number typed with a decimal comma, as other programs paste it, with the point instead.
std::string With_Point(std::string text) {
    const auto comma = text.find(',');
    if (comma != std::string::npos && text.find('.') == std::string::npos &&
        text.find(',', comma + 1) == std::string::npos)
        text[comma] = '.';
    return text;
}

/// True when the numeric value of a text comes from what it says and not from its saying nothing.
bool Starts_With_Number(const std::string& text) {
    const std::string trimmed = Trim(text);
    const auto first = trimmed.find_first_not_of("+-.,");
    return first != std::string::npos && trimmed[first] >= '0' && trimmed[first] <= '9';
}

std::string On_One_Line(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    std::replace(text.begin(), text.end(), '\r', ' ');
    std::replace(text.begin(), text.end(), '\t', ' ');
    return text;
}

}  // namespace

std::string Block_Text(const TextGrid& grid, CellBlock block) {
    std::string text;
    const int first_row = std::max(block.FirstRow, 0);
    const int last_row = std::min(block.LastRow, grid.Rows() - 1);
    const int first_column = std::max(block.FirstColumn, 0);
    const int last_column = std::min(block.LastColumn, grid.Columns() - 1);
    for (int row = first_row; row <= last_row; ++row) {
        for (int column = first_column; column <= last_column; ++column) {
            if (column > first_column) text += '\t';
            text += Quoted_If_Needed(grid.Text(row, column));
        }
        text += '\n';
    }
    return text;
}

std::vector<std::vector<std::string>> Block_Cells(std::string_view text) {
    std::vector<std::vector<std::string>> rows;
    std::vector<std::string> row;
    std::string cell;
    bool quoted = false;
    bool at_start = true;  // of a cell
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char letter = text[i];
        if (quoted) {
            if (letter != '"') {
                cell += letter;
            } else if (i + 1 < text.size() && text[i + 1] == '"') {
                cell += letter;
                ++i;
            } else {
                quoted = false;
            }
        } else if (letter == '"' && at_start && text.find('"', i + 1) != std::string_view::npos) {
            quoted = true;
            at_start = false;
        } else if (letter == '\t') {
            row.push_back(std::exchange(cell, {}));
            at_start = true;
        } else if (letter == '\r' || letter == '\n') {
            if (letter == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
            row.push_back(std::exchange(cell, {}));
            rows.push_back(std::exchange(row, {}));
            at_start = true;
        } else {
            cell += letter;
            at_start = false;
        }
    }
    if (!cell.empty() || !row.empty()) {
        row.push_back(std::move(cell));
        rows.push_back(std::move(row));
    }
    return rows;
}

void EditHistory::Add(std::vector<CellChange> step) {
    if (step.empty()) return;
    Steps.resize(Done);
    Steps.push_back(std::move(step));
    if (Steps.size() > most_steps) Steps.erase(Steps.begin());
    Done = Steps.size();
}

std::vector<CellChange> EditHistory::Undo() {
    if (!Can_Undo()) return {};
    auto step = Steps[--Done];
    std::reverse(step.begin(), step.end());
    return step;
}

std::vector<CellChange> EditHistory::Redo() {
    if (!Can_Redo()) return {};
    return Steps[Done++];
}

void EditHistory::Forget() {
    Steps.clear();
    Done = 0;
}

GridEditor::GridEditor(Workspace& workspace, Ports& ports, Grid which)
    : Work(workspace), Outside(ports), Which(which) {}

TextGrid& GridEditor::Cells() const {
    return Which == Grid::Buildgrid ? Work.Grids.Buildgrid : Work.Project.remark_grid;
}

bool GridEditor::Holds_Numbers(int column) const {
    return Which == Grid::Buildgrid || column != remark_text_column;
}

bool GridEditor::Editable(int row, int column) const {
    if (!Cells().Has(row, column)) return false;
    if (Which == Grid::Remarks)
        return row >= Project::RemarkFirstRow && row <= Project::RemarkLastRow &&
               column <= remark_text_column;
    const BuildgridLayout layout(Work.Project);
    if (!layout.Fits(Cells()) || row < 1 || column < 1) return false;
    if (row <= layout.Receivers) return column < layout.Intercept_Column();
    return column <= layout.Shots;
}

std::string GridEditor::Shown(int row, int column, const std::string& text) const {
    if (!Holds_Numbers(column)) return On_One_Line(text);
    if (Which == Grid::Remarks) return With_Point(Trim(text));
    const BuildgridLayout layout(Work.Project);
    const bool pick = row <= layout.Receivers && column <= layout.Shots;
    return Format(Val(With_Point(text)), pick ? pick_format : place_format);
}

void GridEditor::Put(int row, int column, const std::string& text) {
    Cells().Set_Text(row, column, text);
    if (Which == Grid::Buildgrid) Read_Grid_Cell(Work, row, column);
}

void GridEditor::Refresh() {
    Outside.Show.Show_Grids();
    if (Which == Grid::Buildgrid) Outside.Show.Show_Curves();
}

void GridEditor::Forget_Message() {
    if (!LastMessage.empty() && Work.Fields.Status == LastMessage) Work.Fields.Status.clear();
    LastMessage.clear();
}

bool GridEditor::Same_Grid() const {
    return EditedFile == Work.Project.CurrentFile && EditedRows == Cells().Rows() &&
           EditedColumns == Cells().Columns();
}

void GridEditor::Commit(std::vector<CellChange> step) {
    std::erase_if(step, [](const CellChange& change) { return change.Before == change.After; });
    Forget_Message();
    if (step.empty()) return;
    if (!Same_Grid()) History.Forget();
    EditedFile = Work.Project.CurrentFile;
    EditedRows = Cells().Rows();
    EditedColumns = Cells().Columns();
    for (const CellChange& change : step)
        Put(change.Row, change.Column, change.After);
    History.Add(std::move(step));
    Refresh();
}

bool GridEditor::Type(int row, int column, const std::string& text) {
    if (!Editable(row, column)) return false;
    Commit({{row, column, Cells().Text(row, column), Shown(row, column, text)}});
    return true;
}

GridEditor::Pasted GridEditor::Paste(int row, int column, std::string_view text) {
    Pasted pasted;
    std::vector<CellChange> step;
    int to_row = row;
    for (const auto& cells : Block_Cells(text)) {
        int to_column = column;
        for (const std::string& cell : cells) {
            // A heading that was copied with its numbers must not turn a pick into 0.
            const bool fits = !Holds_Numbers(to_column) || Trim(cell).empty() || Starts_With_Number(cell);
            if (fits && Editable(to_row, to_column)) {
                step.push_back(
                    {to_row, to_column, Cells().Text(to_row, to_column), Shown(to_row, to_column, cell)});
                ++pasted.Cells;
            } else {
                ++pasted.Left;
            }
            ++to_column;
        }
        ++to_row;
    }
    Commit(std::move(step));
    if (pasted.Left > 0) {
        LastMessage = CStr(pasted.Cells) + " cells pasted, " + CStr(pasted.Left) +
                      " left out: fixed cell, outside the table, or no number";
        Work.Fields.Status = LastMessage;
        Outside.Show.Show_Fields();
    }
    return pasted;
}

std::string GridEditor::Copy(CellBlock block) const {
    return Block_Text(Cells(), block);
}

void GridEditor::Clear(CellBlock block) {
    std::vector<CellChange> step;
    for (int row = std::max(block.FirstRow, 0); row <= std::min(block.LastRow, Cells().Rows() - 1); ++row) {
        for (int column = std::max(block.FirstColumn, 0);
             column <= std::min(block.LastColumn, Cells().Columns() - 1); ++column) {
            if (Editable(row, column))
                step.push_back({row, column, Cells().Text(row, column), Shown(row, column, "")});
        }
    }
    Commit(std::move(step));
}

bool GridEditor::Can_Undo() const {
    return Same_Grid() && History.Can_Undo();
}

bool GridEditor::Can_Redo() const {
    return Same_Grid() && History.Can_Redo();
}

void GridEditor::Undo() {
    if (!Can_Undo()) return;
    Forget_Message();
    for (const CellChange& change : History.Undo())
        Put(change.Row, change.Column, change.Before);
    Refresh();
}

void GridEditor::Redo() {
    if (!Can_Redo()) return;
    Forget_Message();
    for (const CellChange& change : History.Redo())
        Put(change.Row, change.Column, change.After);
    Refresh();
}

}  // namespace tarnvik
