#include "setup/grid_edit.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include "core/text/letters.h"
#include "core/text/number.h"
#include "records/set_pick.h"
#include "setup/build_grid.h"

namespace tarnvik {

namespace {

constexpr int remark_text_column = 3;
constexpr const char* pick_format = "###0.00";
constexpr double largest_number = std::numeric_limits<float>::max();  ///< of a cell of Buildgrid

std::string Count_Of_Cells(int count) {
    return CStr(count) + (count == 1 ? " cell" : " cells");
}

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

bool GridEditor::Is_Pick(int row, int column) const {
    const BuildgridLayout layout(Work.Project);
    return Which == Grid::Buildgrid && row <= layout.Receivers && column <= layout.Shots;
}

std::string GridEditor::Shown(int row, int column, const std::string& text) const {
    if (!Holds_Numbers(column)) return On_One_Line(text);
    if (Which == Grid::Remarks) return With_Point(Trim(text));
    return Format(Val(With_Point(text)), Is_Pick(row, column) ? pick_format : place_format);
}

std::string GridEditor::Name_Of(int row, int column) const {
    if (Which == Grid::Remarks) return "Remark " + CStr(row - Project::RemarkFirstRow + 1);
    if (Is_Pick(row, column)) return Pick_Name({column, row});
    const BuildgridLayout layout(Work.Project);
    const bool distance = column == layout.Distance_Column() || row == layout.Shot_Distance_Row();
    const std::string owner =
        row <= layout.Receivers ? " of geophone " + CStr(row) : " of shot " + CStr(column);
    return (distance ? "Distance" : "Elevation") + owner;
}

/// A cell of the project's own values; picks are stored apart.
void GridEditor::Store(const NewText& cell) {
    Project& project = Work.Project;
    if (Which == Grid::Remarks) {
        project.remark_grid.Set_Text(cell.Row, cell.Column, cell.Text);
        return;
    }
    const BuildgridLayout layout(project);
    const double value = Val(cell.Text);
    if (cell.Column == layout.Distance_Column()) {
        project.ReceiverData(ReceiverDistance, cell.Row) = static_cast<float>(value);
    } else if (cell.Column == layout.Elevation_Column()) {
        project.ReceiverData(ReceiverElevation, cell.Row) = static_cast<float>(value);
    } else if (cell.Row == layout.Shot_Distance_Row()) {
        project.ShotDistance(cell.Column) = value;
    } else {
        project.ShotElevation(cell.Column) = value;
    }
    Fill_Grid_Cell(Work, cell.Row, cell.Column);
}

void GridEditor::Forget_Message() {
    if (!LastMessage.empty() && Work.Fields.Status == LastMessage) Work.Fields.Status.clear();
    LastMessage.clear();
}

void GridEditor::Commit(const std::string& name, std::vector<NewText> cells) {
    std::erase_if(cells, [this](const NewText& cell) {
        const bool too_large = Which == Grid::Buildgrid && !(std::abs(Val(cell.Text)) <= largest_number);
        return too_large || cell.Text == Cells().Text(cell.Row, cell.Column);
    });
    Forget_Message();
    if (cells.empty()) return;
    EditScope edit(Work, name);
    std::optional<PickSetter> picks;
    for (const NewText& cell : cells) {
        if (!Is_Pick(cell.Row, cell.Column)) {
            Store(cell);
            continue;
        }
        if (!picks) picks.emplace(Work);
        picks->Set_Place({cell.Column, cell.Row}, Val(cell.Text));
    }
    if (picks) picks->Tell_Faults("Pick");
    edit.End();
    Outside.Show.Show_Fields();
}

bool GridEditor::Type(int row, int column, const std::string& text) {
    if (!Editable(row, column)) return false;
    Commit(Name_Of(row, column), {{row, column, Shown(row, column, text)}});
    return true;
}

GridEditor::Pasted GridEditor::Paste(int row, int column, std::string_view text) {
    Pasted pasted;
    std::vector<NewText> taken;
    int to_row = row;
    for (const auto& cells : Block_Cells(text)) {
        int to_column = column;
        for (const std::string& cell : cells) {
            // A heading that was copied with its numbers must not turn a pick into 0.
            const bool fits = !Holds_Numbers(to_column) || Trim(cell).empty() || Starts_With_Number(cell);
            if (fits && Editable(to_row, to_column)) {
                taken.push_back({to_row, to_column, Shown(to_row, to_column, cell)});
                ++pasted.Cells;
            } else {
                ++pasted.Left;
            }
            ++to_column;
        }
        ++to_row;
    }
    const std::string status = Work.Fields.Status;
    Commit("Paste " + Count_Of_Cells(pasted.Cells), std::move(taken));
    const bool fault_told = !Work.Fields.Status.empty() && Work.Fields.Status != status;
    if (pasted.Left > 0 && !fault_told) {
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
    std::vector<NewText> cells;
    for (int row = std::max(block.FirstRow, 0); row <= std::min(block.LastRow, Cells().Rows() - 1); ++row) {
        for (int column = std::max(block.FirstColumn, 0);
             column <= std::min(block.LastColumn, Cells().Columns() - 1); ++column) {
            if (Editable(row, column)) cells.push_back({row, column, Shown(row, column, "")});
        }
    }
    const std::string name = "Clear " + Count_Of_Cells(static_cast<int>(cells.size()));
    Commit(name, std::move(cells));
}

}  // namespace tarnvik
