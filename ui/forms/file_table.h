#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "core/text_grid.h"

class QMimeData;
class QTableView;
class QVBoxLayout;

namespace tarnvik {

class TextGridModel;

/// A list of files that a tool works on, in the user's order, with its buttons. Files can be dropped onto the
/// window that it stands in. Row 0 of the grid holds the headings, column 0 the numbers.
class FileTable : public QWidget {
    Q_OBJECT

  public:
    /// What the buttons and keys do; `Changed` runs behind each.
    struct Actions {
        std::function<void()> Ask;
        std::function<void(const std::vector<std::string>&)> Add;
        std::function<void()> Remove;
        std::function<void()> Up;  ///< empty, as Down, where the order is not the user's
        std::function<void()> Down;
        std::function<void()> Chosen;  ///< another row; may be empty
        std::function<void()> Changed;
    };
    /// `row` is the chosen file, from 1; 0 when there is none. Grid and row must outlive the widget.
    FileTable(TextGrid& grid, int& row, Actions actions, QWidget* parent = nullptr);

    /// A further button under the others.
    void Add_Button(const QString& name, const QString& text, const QString& tip, std::function<void()> run);
    void Refresh();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void Run(const std::function<void()>& action);

    TextGrid& Grid;
    int& Row;
    Actions Does;
    QTableView* List;
    TextGridModel* Cells;
    QVBoxLayout* Buttons;
    bool Following = false;  ///< the view is brought to Row, which is no choice of the user
};

/// Local files of a drag, in its order.
std::vector<std::string> Files_Of_Drop(const QMimeData* dropped);

}  // namespace tarnvik
