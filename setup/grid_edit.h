#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/ports/ports.h"
#include "core/text_grid.h"
#include "core/workspace.h"

namespace tarnvik {

/// Rectangle of cells, all four inside it.
struct CellBlock {
    int FirstRow = 0;
    int FirstColumn = 0;
    int LastRow = 0;
    int LastColumn = 0;
};

/// Text of a block as spreadsheets exchange it: cells separated by tabs, rows by line feeds; a cell that
/// holds one of these or a quotation mark stands in quotation marks.
std::string Block_Text(const TextGrid& grid, CellBlock block);

/// The cells of such a text, row by row. Rows may end in CR, LF or both; a last empty row is none.
std::vector<std::vector<std::string>> Block_Cells(std::string_view text);

/// Editing of a grid that belongs to the project: what is typed, pasted or cleared is one edit each, named
/// after the cell ("Pick shot 3, receiver 7") or the number of cells. Picks go the way of all picks, into the
/// trace headers too.
class GridEditor {
  public:
    enum class Grid { Buildgrid, Remarks };
    GridEditor(Workspace& workspace, Ports& ports, Grid which);

    /// Captions are fixed, and so are intercept times, which are computed.
    bool Editable(int row, int column) const;
    /// A text typed into a cell. In a cell of numbers it counts by its numeric value; a comma may stand for
    /// the point. A text that the cell shows already changes nothing, so that the model keeps its digits;
    /// neither does a number too large for its place. False for a cell that cannot be edited.
    bool Type(int row, int column, const std::string& text);

    struct Pasted {
        int Cells = 0;  ///< cells taken over
        int Left = 0;   ///< cells of the block that found no editable cell, or no number where one belongs
    };
    /// Pastes a block with its first cell at (row, column). What reaches beyond the grid or falls on fixed
    /// cells is left out and told in the status field.
    Pasted Paste(int row, int column, std::string_view text);
    std::string Copy(CellBlock block) const;
    /// Empties the editable cells of a block: numbers become 0.
    void Clear(CellBlock block);

  private:
    struct NewText {
        int Row = 0;
        int Column = 0;
        std::string Text;  ///< as the cell shows it
    };
    TextGrid& Cells() const;
    bool Holds_Numbers(int column) const;
    bool Is_Pick(int row, int column) const;
    std::string Shown(int row, int column, const std::string& text) const;
    /// "Distance of geophone 4", the name of an edit of one cell.
    std::string Name_Of(int row, int column) const;
    void Store(const NewText& cell);
    void Commit(const std::string& name, std::vector<NewText> cells);
    /// Takes the message about the last paste away, unless another one stands there by now.
    void Forget_Message();

    Workspace& Work;
    Ports& Outside;
    Grid Which;
    std::string LastMessage;
};

}  // namespace tarnvik
