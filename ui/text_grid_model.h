#pragma once

#include <QAbstractTableModel>
#include <functional>

#include "core/text_grid.h"

namespace tarnvik {

/// A grid of the logic as a table view sees it. The fixed rows and columns are ordinary cells that cannot be
/// edited; a view hides its own headers.
class TextGridModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    /// The grid must outlive the model.
    explicit TextGridModel(TextGrid& grid, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// The logic changed the grid.
    void Refresh();

    bool Editable = true;
    /// Told after the user changed a cell.
    std::function<void(int row, int column)> OnEdited;

  private:
    bool Fixed(const QModelIndex& index) const;

    TextGrid& Grid;
    int ShownRows = 0;
    int ShownColumns = 0;
};

}  // namespace tarnvik
