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

/// One cell as an edit changed it.
struct CellChange {
    int Row = 0;
    int Column = 0;
    std::string Before;
    std::string After;
};

/// What was edited in one grid, for undo and redo. A paste is one step.
class EditHistory {
  public:
    void Add(std::vector<CellChange> step);
    bool Can_Undo() const { return Done > 0; }
    bool Can_Redo() const { return Done < Steps.size(); }
    /// The changes to take back, last first, or to do again; none when there is nothing.
    std::vector<CellChange> Undo();
    std::vector<CellChange> Redo();
    void Forget();

  private:
    static constexpr std::size_t most_steps = 200;
    std::vector<std::vector<CellChange>> Steps;
    std::size_t Done = 0;
};

/// Editing of a grid that belongs to the project: what is typed, pasted or cleared goes into the grid, into
/// the model and onto the curves at once, and can be undone.
class GridEditor {
  public:
    enum class Grid { Buildgrid, Remarks };
    GridEditor(Workspace& workspace, Ports& ports, Grid which);

    /// Captions are fixed, and so are intercept times, which are computed.
    bool Editable(int row, int column) const;
    /// A text typed into a cell. In a cell of numbers it counts by its numeric value; a comma may stand for
    /// the point. False for a cell that cannot be edited.
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

    bool Can_Undo() const;
    bool Can_Redo() const;
    void Undo();
    void Redo();
    /// Forgets all steps; needed when the grid shows another project or lost a shot.
    void Forget() { History.Forget(); }

  private:
    TextGrid& Cells() const;
    bool Holds_Numbers(int column) const;
    /// The text as the cell shows it.
    std::string Shown(int row, int column, const std::string& text) const;
    void Put(int row, int column, const std::string& text);
    void Commit(std::vector<CellChange> step);
    void Refresh();
    /// Takes the message about the last paste away, unless another one stands there by now.
    void Forget_Message();
    bool Same_Grid() const;

    Workspace& Work;
    Ports& Outside;
    Grid Which;
    EditHistory History;
    std::string LastMessage;
    std::string EditedFile;  ///< project and size of the grid that the history belongs to
    int EditedRows = 0;
    int EditedColumns = 0;
};

}  // namespace tarnvik
