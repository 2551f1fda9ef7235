#include "ui/spreadsheet_view.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QStyledItemDelegate>
#include <algorithm>
#include <optional>

#include "ui/text_grid_model.h"

namespace tarnvik {

namespace {

/// The keys of an edit in progress. An edit begun by typing ends with any arrow; one begun by F2 or a double
/// click keeps the arrows to the left and right for the text.
class CellEditor : public QStyledItemDelegate {
  public:
    explicit CellEditor(SpreadsheetView* view) : QStyledItemDelegate(view), View(view) {}

  protected:
    bool eventFilter(QObject* editor, QEvent* event) override {
        // A form around the grid may have a meaning of its own for Return: in an edit it ends the edit.
        if (event->type() == QEvent::ShortcutOverride && Step_Of(*static_cast<QKeyEvent*>(event))) {
            event->accept();
            return true;
        }
        if (event->type() == QEvent::KeyPress &&
            View->Types_Refused_Letter(*static_cast<QKeyEvent*>(event))) {
            return true;
        }
        const auto step =
            event->type() == QEvent::KeyPress ? Step_Of(*static_cast<QKeyEvent*>(event)) : std::nullopt;
        if (!step) return QStyledItemDelegate::eventFilter(editor, event);
        auto* field = qobject_cast<QWidget*>(editor);
        emit commitData(field);
        emit closeEditor(field, QAbstractItemDelegate::NoHint);
        View->Move(*step);
        return true;
    }

  private:
    std::optional<SpreadsheetView::Step> Step_Of(const QKeyEvent& key) const {
        using Step = SpreadsheetView::Step;
        const bool back = key.modifiers().testFlag(Qt::ShiftModifier);
        switch (key.key()) {
            case Qt::Key_Return:
            case Qt::Key_Enter:
                return back ? Step::Up : Step::Down;
            case Qt::Key_Tab:
                return Step::Next;
            case Qt::Key_Backtab:
                return Step::Previous;
            case Qt::Key_Up:
                return Step::Up;
            case Qt::Key_Down:
                return Step::Down;
            case Qt::Key_Left:
                if (View->Edit_Begun_By_Typing() && !back) return Step::Left;
                break;
            case Qt::Key_Right:
                if (View->Edit_Begun_By_Typing() && !back) return Step::Right;
                break;
            default:
                break;
        }
        return std::nullopt;
    }

    SpreadsheetView* View;
};

}  // namespace

SpreadsheetView::SpreadsheetView(TextGrid& grid, std::unique_ptr<CellEdits> edits, QWidget* parent)
    : QTableView(parent), Grid(grid), Edits(std::move(edits)), Model(new TextGridModel(grid, this)) {
    Model->Can_Edit = [this](int row, int column) { return Edits->Editable(row, column); };
    Model->Store = [this](int row, int column, const std::string& text) {
        return Edits->Type(row, column, text);
    };
    setModel(Model);
    setItemDelegate(new CellEditor(this));
    setSelectionMode(QAbstractItemView::ContiguousSelection);
    setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::EditKeyPressed |
                    QAbstractItemView::DoubleClicked);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setWordWrap(false);
    const int row_height = fontMetrics().height() + 6;
    verticalHeader()->setMinimumSectionSize(row_height);
    verticalHeader()->setDefaultSectionSize(row_height);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    horizontalHeader()->setDefaultSectionSize(fontMetrics().horizontalAdvance("-88888.88") + 12);
    Corner = new QLabel(this);
    Corner->setAlignment(Qt::AlignCenter);
    Corner->setAttribute(Qt::WA_TransparentForMouseEvents);
    connect(Model, &QAbstractItemModel::modelReset, this, &SpreadsheetView::Hide_Fixed_Cells);

    CutCells = Entry(tr("Cut"), {QKeySequence::Cut}, &SpreadsheetView::Run_Cut);
    CopyCells = Entry(tr("Copy"), {QKeySequence::Copy}, &SpreadsheetView::Run_Copy);
    PasteCells = Entry(tr("Paste"), {QKeySequence::Paste}, &SpreadsheetView::Run_Paste);
    ClearCells = Entry(tr("Clear"), {Qt::Key_Delete, Qt::Key_Backspace}, &SpreadsheetView::Run_Clear);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    Hide_Fixed_Cells();
    Refresh();
}

QAction* SpreadsheetView::Entry(const QString& caption, QList<QKeySequence> keys,
                                void (SpreadsheetView::*run)()) {
    auto* entry = new QAction(caption, this);
    entry->setShortcuts(keys);
    entry->setShortcutContext(Qt::WidgetShortcut);
    connect(entry, &QAction::triggered, this, run);
    addAction(entry);
    return entry;
}

void SpreadsheetView::Hide_Fixed_Cells() {
    HiddenRows = Grid.FixedRows;
    HiddenColumns = Grid.FixedColumns;
    for (int row = 0; row < Model->rowCount(); ++row)
        setRowHidden(row, row < HiddenRows);
    for (int column = 0; column < Model->columnCount(); ++column)
        setColumnHidden(column, column < HiddenColumns);
}

void SpreadsheetView::Refresh() {
    Model->Refresh();
    if (Grid.FixedRows != HiddenRows || Grid.FixedColumns != HiddenColumns) Hide_Fixed_Cells();
    // The current cell is the grid's: set by the logic, or kept through a change of its size.
    const QModelIndex wanted = Model->index(Grid.CurrentRow, Grid.CurrentColumn);
    if (wanted.isValid() && wanted != currentIndex() && !isRowHidden(wanted.row()) &&
        !isColumnHidden(wanted.column())) {
        Following = true;
        setCurrentIndex(wanted);
        Following = false;
    }
}

void SpreadsheetView::Refresh_Cell(int row, int column) {
    Model->Refresh_Cell(row, column);
}

void SpreadsheetView::updateGeometries() {
    QTableView::updateGeometries();
    if (Corner == nullptr) return;
    Corner->setGeometry(verticalHeader()->x(), horizontalHeader()->y(), verticalHeader()->width(),
                        horizontalHeader()->height());
    Corner->setText(QString::fromStdString(Grid.Text(Grid.FixedRows - 1, Grid.FixedColumns - 1)));
    Corner->raise();
}

void SpreadsheetView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (Following || !current.isValid()) return;
    Grid.CurrentRow = current.row();
    Grid.CurrentColumn = current.column();
}

CellBlock SpreadsheetView::Selected() const {
    QRect area;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        area |= QRect(QPoint(range.left(), range.top()), QPoint(range.right(), range.bottom()));
    }
    if (area.isEmpty() && currentIndex().isValid())
        area = QRect(currentIndex().column(), currentIndex().row(), 1, 1);
    if (area.isEmpty()) return {0, 0, -1, -1};
    return {std::max(area.top(), Grid.FixedRows), std::max(area.left(), Grid.FixedColumns), area.bottom(),
            area.right()};
}

void SpreadsheetView::Select(CellBlock block) {
    const QModelIndex last = Model->index(std::min(block.LastRow, Model->rowCount() - 1),
                                          std::min(block.LastColumn, Model->columnCount() - 1));
    const QModelIndex first = Model->index(block.FirstRow, block.FirstColumn);
    if (!first.isValid() || !last.isValid()) return;
    selectionModel()->select(QItemSelection(first, last), QItemSelectionModel::ClearAndSelect);
}

void SpreadsheetView::Move(Step step) {
    constexpr CursorAction actions[] = {MoveUp, MoveDown, MoveLeft, MoveRight, MoveNext, MovePrevious};
    const QModelIndex next = moveCursor(actions[static_cast<int>(step)], Qt::NoModifier);
    if (next.isValid()) setCurrentIndex(next);
}

bool SpreadsheetView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const bool was_editing = state() == EditingState;
    const bool by_hand = trigger == DoubleClicked || trigger == EditKeyPressed || trigger == AnyKeyPressed;
    if (On_Refused && by_hand && index.isValid() && !index.flags().testFlag(Qt::ItemIsEditable)) {
        On_Refused(index.row(), index.column(), trigger == DoubleClicked);
        return false;
    }
    const bool editing = QTableView::edit(index, trigger, event);
    if (editing && !was_editing) BegunByTyping = trigger == AnyKeyPressed;
    return editing;
}

bool SpreadsheetView::event(QEvent* event) {
    // F2 edits a cell here, although a menu has it elsewhere.
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_F2) {
        event->accept();
        return true;
    }
    return QTableView::event(event);
}

bool SpreadsheetView::Types_Refused_Letter(const QKeyEvent& key) const {
    if (!Key_Allowed || key.text().isEmpty() || !key.text().front().isPrint()) return false;
    if ((key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0) return false;
    return !Key_Allowed(key.text().front());
}

void SpreadsheetView::keyPressEvent(QKeyEvent* event) {
    if (Types_Refused_Letter(*event)) {
        event->accept();
        return;
    }
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Move(event->modifiers().testFlag(Qt::ShiftModifier) ? Step::Up : Step::Down);
        event->accept();
        return;
    }
    QTableView::keyPressEvent(event);
}

void SpreadsheetView::Run_Copy() {
    const CellBlock block = Selected();
    if (block.LastRow < block.FirstRow || block.LastColumn < block.FirstColumn) return;
    QGuiApplication::clipboard()->setText(QString::fromStdString(Edits->Copy(block)));
}

void SpreadsheetView::Run_Cut() {
    Run_Copy();
    Run_Clear();
}

void SpreadsheetView::Run_Paste() {
    std::string text = QGuiApplication::clipboard()->text().toStdString();
    const auto cells = Block_Cells(text);
    CellBlock block = Selected();
    if (cells.empty() || block.LastRow < block.FirstRow || block.LastColumn < block.FirstColumn) return;
    if (cells.size() == 1 && cells.front().size() == 1) {
        // One value fills the whole selection.
        TextGrid filled(block.LastRow - block.FirstRow + 1, block.LastColumn - block.FirstColumn + 1);
        for (int row = 0; row < filled.Rows(); ++row) {
            for (int column = 0; column < filled.Columns(); ++column)
                filled.Set_Text(row, column, cells.front().front());
        }
        text = Block_Text(filled, {0, 0, filled.Rows() - 1, filled.Columns() - 1});
    } else {
        std::size_t widest = 0;
        for (const auto& row : cells)
            widest = std::max(widest, row.size());
        block.LastRow = block.FirstRow + static_cast<int>(cells.size()) - 1;
        block.LastColumn = block.FirstColumn + static_cast<int>(widest) - 1;
    }
    Edits->Paste(block.FirstRow, block.FirstColumn, text);
    Select(block);
    Refresh();
}

void SpreadsheetView::Run_Clear() {
    const CellBlock block = Selected();
    if (block.LastRow >= block.FirstRow && block.LastColumn >= block.FirstColumn) Edits->Clear(block);
    Refresh();
}

}  // namespace tarnvik
