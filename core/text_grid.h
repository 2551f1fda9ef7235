#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tarnvik {

/// Colour as a 24-bit number, red in the low byte and blue in the high byte (255 is red, 0xFF0000 is blue).
using Colour = int;

/// A table of texts as the user sees it: the logic's side of every grid. Rows and columns count from 0; row 0
/// and column 0 are usually headings. Reading outside the grid gives an empty text, writing there does
/// nothing.
class TextGrid {
  public:
    enum class Alignment { Left, Centre, Right };
    struct Cell {
        std::string Text;
        std::optional<Colour> ForeColour;
        std::optional<Colour> BackColour;
        Alignment Align = Alignment::Left;
        bool operator==(const Cell&) const = default;
    };

    TextGrid() = default;
    TextGrid(int rows, int columns) { Resize(rows, columns); }

    /// Changes the size; cells that stay inside keep their content.
    void Resize(int rows, int columns);
    /// Empties all cells, size unchanged.
    void Clear();

    int Rows() const { return RowCount; }
    int Columns() const { return ColumnCount; }
    bool Has(int row, int column) const {
        return row >= 0 && row < RowCount && column >= 0 && column < ColumnCount;
    }

    const std::string& Text(int row, int column) const;
    void Set_Text(int row, int column, std::string text);
    /// Numeric value of the cell's text.
    double Value(int row, int column) const;
    const Cell& At(int row, int column) const;
    /// The cell for changing; a cell outside the grid is a scratch one that is thrown away.
    Cell& At(int row, int column);

    int CurrentRow = 0;
    int CurrentColumn = 0;
    int FixedRows = 1;
    int FixedColumns = 1;

  private:
    int RowCount = 0;
    int ColumnCount = 0;
    std::vector<Cell> Cells;
    Cell Scratch;
};

}  // namespace tarnvik
