#include "core/text_grid.h"

#include <algorithm>
#include <utility>

#include "core/text/number.h"

namespace tarnvik {

namespace {
const TextGrid::Cell empty_cell;
}

void TextGrid::Resize(int rows, int columns) {
    rows = std::max(rows, 0);
    columns = std::max(columns, 0);
    std::vector<Cell> resized(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns));
    for (int row = 0; row < std::min(rows, RowCount); ++row) {
        for (int column = 0; column < std::min(columns, ColumnCount); ++column) {
            resized[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
                    static_cast<std::size_t>(column)] = std::move(At(row, column));
        }
    }
    Cells = std::move(resized);
    RowCount = rows;
    ColumnCount = columns;
}

void TextGrid::Clear() {
    std::fill(Cells.begin(), Cells.end(), Cell());
}

const std::string& TextGrid::Text(int row, int column) const {
    return At(row, column).Text;
}

void TextGrid::Set_Text(int row, int column, std::string text) {
    if (Has(row, column)) At(row, column).Text = std::move(text);
}

double TextGrid::Value(int row, int column) const {
    return Val(Text(row, column));
}

const TextGrid::Cell& TextGrid::At(int row, int column) const {
    if (!Has(row, column)) return empty_cell;
    return Cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(ColumnCount) +
                 static_cast<std::size_t>(column)];
}

TextGrid::Cell& TextGrid::At(int row, int column) {
    if (!Has(row, column)) {
        Scratch = Cell();
        return Scratch;
    }
    return Cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(ColumnCount) +
                 static_cast<std::size_t>(column)];
}

}  // namespace tarnvik
