#pragma once

#include <QAbstractTableModel>
#include <functional>

#include "core/text_grid.h"

namespace tarnvik {

/// A grid of the logic as a table view sees it. The fixed rows and columns are cells that cannot be edited;
/// the last of each is also what the view's headers show, for a view that keeps its headings in sight that
/// way.
class TextGridModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    /// The grid must outlive the model.
    explicit TextGridModel(TextGrid& grid, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// The logic changed the grid: cells that differ are shown anew. Only a change of its size resets the
    /// model.
    void Refresh();
    /// The logic changed one cell; the others are not looked at.
    void Refresh_Cell(int row, int column);

    /// How a cell looks that has no colours of its own.
    enum class Look {
        Plain,
        Faint,     ///< holds nothing yet
        Grouped,   ///< belongs to another group than the cells beside it
        ReadOnly,  ///< computed, not for typing
    };

    bool Editable = true;
    /// Told after the user changed a cell.
    std::function<void(int row, int column)> OnEdited;
    /// Rules of their own; without them every cell that is not fixed takes any text.
    std::function<bool(int row, int column)> Can_Edit;
    std::function<bool(int row, int column, const std::string& text)> Store;
    std::function<Look(int row, int column)> Look_Of;
    /// A cell's text as it is shown, where that is shorter than what is edited; for cells that are not fixed.
    std::function<QString(int column, const std::string& text)> Shown_Text;
    /// Tooltips of the headings.
    std::function<QString(int section, Qt::Orientation orientation)> Heading_Tip;

  private:
    bool Fixed(const QModelIndex& index) const;
    bool Free(const QModelIndex& index) const;
    QVariant Foreground(const QModelIndex& index, const TextGrid::Cell& cell) const;
    QVariant Background(const QModelIndex& index, const TextGrid::Cell& cell) const;

    TextGrid& Grid;
    TextGrid Shown;  ///< as the view has it
    int ShownRows = 0;
    int ShownColumns = 0;
};

}  // namespace tarnvik
