#pragma once

#include <QTableView>
#include <functional>
#include <memory>

#include "ui/cell_edits.h"

class QAction;
class QLabel;

namespace tarnvik {

class TextGridModel;

/// A grid that is worked on as in a spreadsheet: the fixed rows and columns stay in sight as headings, one
/// block of cells is selected, copied, pasted and cleared as a whole, typing begins an edit, Return, Tab and
/// the arrows end it and move on.
class SpreadsheetView : public QTableView {
    Q_OBJECT

  public:
    /// The grid must outlive the view.
    SpreadsheetView(TextGrid& grid, std::unique_ptr<CellEdits> edits, QWidget* parent = nullptr);

    TextGridModel& Cells() { return *Model; }
    /// The logic changed the grid or its current cell.
    void Refresh();
    /// It changed the content of one cell.
    void Refresh_Cell(int row, int column);
    /// The selected block without headings; empty (last before first) when nothing is selected.
    CellBlock Selected() const;
    enum class Step { Up, Down, Left, Right, Next, Previous };
    /// Moves the current cell, not beyond the grid.
    void Move(Step step);
    /// True while a cell is edited that the user began to type into.
    bool Edit_Begun_By_Typing() const { return BegunByTyping; }

    /// Letters that can be typed into a cell; all without it.
    std::function<bool(QChar letter)> Key_Allowed;
    /// True for a key that would type a letter that is not allowed.
    bool Types_Refused_Letter(const QKeyEvent& key) const;

    /// Told of each try to edit a cell that cannot be edited, by a double click or by keys.
    std::function<void(int row, int column, bool clicked)> On_Refused;

    QAction* CutCells = nullptr;
    QAction* CopyCells = nullptr;
    QAction* PasteCells = nullptr;
    QAction* ClearCells = nullptr;

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void updateGeometries() override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

  private:
    QAction* Entry(const QString& caption, QList<QKeySequence> keys, void (SpreadsheetView::*run)());
    void Hide_Fixed_Cells();
    void Select(CellBlock block);
    void Run_Copy();
    void Run_Cut();
    void Run_Paste();
    void Run_Clear();

    TextGrid& Grid;
    std::unique_ptr<CellEdits> Edits;
    TextGridModel* Model = nullptr;
    QLabel* Corner = nullptr;  ///< the heading above the headings of the rows
    int HiddenRows = 0;
    int HiddenColumns = 0;
    bool BegunByTyping = false;
    bool Following = false;  ///< the current cell is being set from the grid
};

}  // namespace tarnvik
