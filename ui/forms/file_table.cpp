#include "ui/forms/file_table.h"

#include <QDragEnterEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QUrl>

#include "ui/text_grid_model.h"

namespace tarnvik {

namespace {

constexpr int rows_in_sight = 6;
constexpr int file_column = 1;

}  // namespace

std::vector<std::string> Files_Of_Drop(const QMimeData* dropped) {
    std::vector<std::string> paths;
    for (const QUrl& url : dropped->urls()) {
        if (url.isLocalFile()) paths.push_back(url.toLocalFile().toStdString());
    }
    return paths;
}

FileTable::FileTable(TextGrid& grid, int& row, Actions actions, QWidget* parent)
    : QWidget(parent),
      Grid(grid),
      Row(row),
      Does(std::move(actions)),
      List(new QTableView(this)),
      Cells(new TextGridModel(grid, List)),
      Buttons(new QVBoxLayout) {
    Cells->Editable = false;
    List->setObjectName("Files");
    List->setAccessibleName(tr("Files in the order in which they are taken"));
    List->setModel(Cells);
    List->setSelectionBehavior(QAbstractItemView::SelectRows);
    List->setSelectionMode(QAbstractItemView::SingleSelection);
    List->setTabKeyNavigation(false);
    List->setWordWrap(false);
    List->horizontalHeader()->setHighlightSections(false);
    List->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    List->setMinimumHeight((rows_in_sight + 1) * List->verticalHeader()->defaultSectionSize());
    List->setMinimumWidth(fontMetrics().averageCharWidth() * 112);
    List->installEventFilter(this);
    // Row and column 0 stand in the headings.
    const auto hide_headings = [this] {
        List->setRowHidden(0, true);
        List->setColumnHidden(0, true);
    };
    hide_headings();
    connect(Cells, &QAbstractItemModel::modelReset, this, hide_headings);
    connect(List->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) {
                if (Following || !current.isValid()) return;
                Row = current.row();
                if (Does.Chosen) Does.Chosen();
            });

    Buttons->addStretch();
    Add_Button("AddFiles", tr("&Add files..."), tr("Further files behind those of the list (Insert)"),
               Does.Ask);
    Add_Button("RemoveFile", tr("&Remove"), tr("Takes the chosen file off the list (Delete)"), Does.Remove);
    if (Does.Up) {
        Add_Button("FileUp", tr("Move &up"), tr("The chosen file before the one above it (Alt+Up)"), Does.Up);
        Add_Button("FileDown", tr("Move &down"), tr("The chosen file behind the one below it (Alt+Down)"),
                   Does.Down);
    }

    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->addWidget(List, 1);
    columns->addLayout(Buttons);
}

void FileTable::Add_Button(const QString& name, const QString& text, const QString& tip,
                           std::function<void()> run) {
    auto* button = new QPushButton(text, this);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, run = std::move(run)] { Run(run); });
    Buttons->insertWidget(Buttons->count() - 1, button);
}

void FileTable::Run(const std::function<void()>& action) {
    action();
    Does.Changed();
}

void FileTable::Refresh() {
    Following = true;
    Cells->Refresh();
    QHeaderView* columns = List->horizontalHeader();
    columns->resizeSections(QHeaderView::ResizeToContents);
    if (Grid.Columns() > file_column) columns->setSectionResizeMode(file_column, QHeaderView::Stretch);
    if (Row > 0 && Row < Grid.Rows()) {
        List->setCurrentIndex(Cells->index(Row, file_column));
    } else {
        List->clearSelection();
    }
    Following = false;
}

void FileTable::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    window()->setAcceptDrops(true);
    window()->installEventFilter(this);
}

bool FileTable::eventFilter(QObject* watched, QEvent* event) {
    if (watched == window()) {
        if (event->type() == QEvent::DragEnter) {
            auto* drag = static_cast<QDragEnterEvent*>(event);
            if (!Files_Of_Drop(drag->mimeData()).empty()) drag->acceptProposedAction();
            return true;
        }
        if (event->type() == QEvent::Drop) {
            auto* drop = static_cast<QDropEvent*>(event);
            drop->acceptProposedAction();
            // The program that the files come from waits for the end of the drop.
            QTimer::singleShot(0, this, [this, paths = Files_Of_Drop(drop->mimeData())] {
                Run([this, &paths] { Does.Add(paths); });
            });
            return true;
        }
    }
    if (watched == List && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool alt = key->modifiers().testFlag(Qt::AltModifier);
        const std::function<void()>* action = key->key() == Qt::Key_Delete        ? &Does.Remove
                                              : key->key() == Qt::Key_Insert      ? &Does.Ask
                                              : alt && key->key() == Qt::Key_Up   ? &Does.Up
                                              : alt && key->key() == Qt::Key_Down ? &Does.Down
                                                                                  : nullptr;
        if (action != nullptr && *action) {
            Run(*action);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace tarnvik
