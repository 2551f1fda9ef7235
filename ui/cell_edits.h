#pragma once

#include <functional>
#include <string>

#include "core/text_grid.h"
#include "setup/grid_edit.h"

namespace tarnvik {

/// What a spreadsheet view may do with its cells: the rules stand with whoever owns the grid.
class CellEdits {
  public:
    virtual ~CellEdits() = default;

    virtual bool Editable(int row, int column) const = 0;
    /// False when the cell refuses.
    virtual bool Type(int row, int column, const std::string& text) = 0;
    /// A tab-separated block with its first cell at (row, column).
    virtual void Paste(int row, int column, const std::string& text) = 0;
    virtual std::string Copy(CellBlock block) const = 0;
    virtual void Clear(CellBlock block) = 0;
};

/// Cells of a grid of the project: what is typed goes through the door of all edits.
class ProjectCells : public CellEdits {
  public:
    explicit ProjectCells(GridEditor& editor) : Editor(editor) {}

    bool Editable(int row, int column) const override { return Editor.Editable(row, column); }
    bool Type(int row, int column, const std::string& text) override {
        return Editor.Type(row, column, text);
    }
    void Paste(int row, int column, const std::string& text) override { Editor.Paste(row, column, text); }
    std::string Copy(CellBlock block) const override { return Editor.Copy(block); }
    void Clear(CellBlock block) override { Editor.Clear(block); }

  private:
    GridEditor& Editor;
};

/// Cells of a dialog's own grid, which are no values of the project yet: plain texts, all but the fixed ones
/// free.
class FormCells : public CellEdits {
  public:
    /// `changed` runs after each edit.
    FormCells(TextGrid& grid, std::function<void()> changed) : Grid(grid), Changed(std::move(changed)) {}

    bool Editable(int row, int column) const override;
    bool Type(int row, int column, const std::string& text) override;
    void Paste(int row, int column, const std::string& text) override;
    std::string Copy(CellBlock block) const override { return Block_Text(Grid, block); }
    void Clear(CellBlock block) override;

  private:
    /// False when the cell shows the text already or cannot be edited.
    bool Put(int row, int column, const std::string& text);

    TextGrid& Grid;
    std::function<void()> Changed;
};

}  // namespace tarnvik
