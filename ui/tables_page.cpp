#include "ui/tables_page.h"

#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSplitter>
#include <QVBoxLayout>
#include <utility>

#include "app/commands.h"
#include "app/session.h"
#include "core/text/number.h"
#include "setup/build_grid.h"
#include "ui/spreadsheet_view.h"
#include "ui/text_grid_model.h"

namespace tarnvik {

namespace {

bool Has_Line(const Session& session) {
    const Project& project = session.Work.Project;
    return project.NbShots > 0 && project.NbReceivers > 0 &&
           project.ShotTimes.Has(project.NbShots, project.NbReceivers);
}

QString From(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Picks stand apart from places and elevations, and both from what cannot be typed.
TextGridModel::Look Pick_Look(const Session& session, int row, int column) {
    const BuildgridLayout layout(session.Work.Project);
    const bool of_receiver = row <= layout.Receivers;
    const bool of_shot = column <= layout.Shots;
    if (of_receiver && of_shot) {
        return session.Work.Grids.Buildgrid.Value(row, column) == 0 ? TextGridModel::Look::Faint
                                                                    : TextGridModel::Look::Plain;
    }
    if (!session.PickTable.Editable(row, column)) return TextGridModel::Look::ReadOnly;
    return TextGridModel::Look::Grouped;
}

}  // namespace

TablesPage::TablesPage(Session& session) : Program(session) {
    Buildgrid =
        new SpreadsheetView(session.Work.Grids.Buildgrid, std::make_unique<ProjectCells>(session.PickTable));
    Buildgrid->setObjectName("Buildgrid");
    Buildgrid->Cells().Look_Of = [&session](int row, int column) { return Pick_Look(session, row, column); };
    Buildgrid->Cells().Heading_Tip = [&session](int section, Qt::Orientation orientation) {
        const bool shot =
            orientation == Qt::Horizontal && section >= 1 && section <= session.Work.Project.NbShots;
        return shot ? From(Find_Command("RemoveShot")->Tooltip) : QString();
    };
    connect(Buildgrid->horizontalHeader(), &QHeaderView::sectionDoubleClicked, this, [this](int column) {
        if (!Has_Line(Program) || column < 1 || column > Program.Work.Project.NbShots) return;
        Program.Work.Grids.Buildgrid.CurrentColumn = column;
        Run("RemoveShot");
    });
    Buildgrid->verticalHeader()->setMinimumWidth(fontMetrics().horizontalAdvance("Shot Elev.") + 14);

    remark_grid = new SpreadsheetView(session.Work.Project.remark_grid,
                                      std::make_unique<ProjectCells>(session.RemarkTable));
    remark_grid->setObjectName("remark_grid");
    remark_grid->horizontalHeader()->setStretchLastSection(true);

    // Some commands work on the shot that is selected.
    connect(Buildgrid->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { Fields.Refresh(); });

    Fields.Follow([this] {
        Buildgrid->setEnabled(Has_Line(Program));
        remark_grid->setEnabled(Has_Line(Program));
    });

    auto* geometry = new QGroupBox(tr("Geometry and first-break times"));
    (new QVBoxLayout(geometry))->addWidget(Buildgrid);
    auto* remarks = new QGroupBox(tr("Remarks on the profile"));
    (new QVBoxLayout(remarks))->addWidget(remark_grid);

    auto* panes = new QSplitter(Qt::Vertical);
    panes->addWidget(geometry);
    panes->addWidget(remarks);
    panes->setStretchFactor(0, 4);
    panes->setStretchFactor(1, 1);
    panes->setChildrenCollapsible(false);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addWidget(panes, 1);
    layout->addWidget(Commands());
    Refresh();
}

QWidget* TablesPage::Commands() {
    auto* column = new QWidget;
    auto* rows = new QVBoxLayout(column);
    rows->setContentsMargins(0, 0, 0, 0);
    QString title;
    QBoxLayout* buttons = nullptr;
    for (const Command& command : Tables_Page_Commands()) {
        if (const QString next = From(command.Menu); next != title) {
            title = next;
            auto* group = new QGroupBox(title);
            rows->addWidget(group);
            buttons = new QVBoxLayout(group);
            if (title == "Table") buttons->addLayout(Undo_Row());
            if (title == "Line") buttons->addLayout(Line_Values());
        }
        // One without a caption belongs to a control of its own.
        if (!command.Caption.empty()) buttons->addWidget(Button(command));
    }
    rows->addStretch(1);
    // On a low screen the column scrolls; nothing of it is squeezed.
    auto* scrolled = new QScrollArea;
    scrolled->setWidget(column);
    scrolled->setWidgetResizable(true);
    scrolled->setFrameShape(QFrame::NoFrame);
    scrolled->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scrolled->setFixedWidth(column->sizeHint().width() + 18);
    return scrolled;
}

QAbstractButton* TablesPage::Button(const Command& command) {
    QAbstractButton* button = nullptr;
    if (command.Checked != nullptr) {
        button = new QRadioButton(From(command.Caption));
        Fields.Follow([this, button, &command] { button->setChecked(command.Checked(Program)); });
    } else {
        button = new QPushButton(From(command.Caption));
    }
    button->setObjectName(From(command.Name));
    Fields.Command(button, [this, &command] { Run(command.Name); });
    Fields.Follow([this, button, &command] {
        const std::string refusal = Refusal_Of(command, Program);
        button->setEnabled(refusal.empty());
        button->setToolTip(refusal.empty() ? From(command.Tooltip) : QString::fromStdString(refusal));
        if (command.Text != nullptr) button->setText(QString::fromStdString(command.Text(Program)));
    });
    return button;
}

void TablesPage::Run(std::string_view command) {
    Run_Command(Program, command);
    Refresh();
}

QLayout* TablesPage::Undo_Row() {
    auto* row = new QHBoxLayout;
    for (const auto& [name, caption] : {std::pair("Undo_M", tr("Undo")), std::pair("Redo_M", tr("Redo"))}) {
        const Command* command = Find_Command(name);
        if (command == nullptr) continue;
        auto* button = new QPushButton(caption);
        button->setObjectName(caption);
        // The table keeps the keys.
        button->setFocusPolicy(Qt::NoFocus);
        Fields.Command(button, [this, command] { Run(command->Name); });
        // The edit on hand stands in the tooltip: as a caption it would widen the column.
        Fields.Follow([this, button, command] {
            const std::string refusal = Refusal_Of(*command, Program);
            button->setEnabled(refusal.empty());
            const std::string edit = command->Text == nullptr ? "" : command->Text(Program);
            button->setToolTip(QString::fromStdString(refusal.empty() ? edit : refusal).remove('&'));
        });
        row->addWidget(button);
    }
    return row;
}

QLineEdit* TablesPage::Shown_Value(const char* name, const QString& tooltip) {
    auto* edit = new QLineEdit;
    edit->setObjectName(name);
    edit->setToolTip(tooltip);
    edit->setReadOnly(true);
    edit->setAlignment(Qt::AlignRight);
    edit->setMaximumWidth(fontMetrics().horizontalAdvance("-888888.88") + 14);
    Fields.Flat(edit);
    return edit;
}

QLayout* TablesPage::Line_Values() {
    LineLength = Shown_Value("Text6", From(Find_Command("Text6")->Tooltip));
    LineLength->installEventFilter(this);
    QLineEdit* shift = Shown_Value("Text16", tr("Distance that was added to all distances"));
    QLineEdit* total_time = Shown_Value("Text25", tr("Reciprocal time, found with the delay times"));
    Fields.Follow([this, shift] {
        const Project& project = Program.Work.Project;
        const auto text = [this](double value) {
            return Has_Line(Program) ? QString::fromStdString(CStr(value)) : QString();
        };
        LineLength->setText(text(project.LineLength));
        shift->setText(text(project.DistanceShift));
    });
    Fields.Text(total_time, Program.Work.Fields.Text25);
    auto* rows = new QGridLayout;
    QLineEdit* values[] = {LineLength, shift, total_time};
    const QString captions[] = {tr("Line length"), tr("Distance shift"), tr("Total time")};
    for (int row = 0; row < 3; ++row) {
        auto* unit = new QLabel(tr("ms"));
        if (row < 2) {
            Fields.Follow(
                [this, unit] { unit->setText(Program.Work.Settings.Metric() ? tr("m") : tr("ft")); });
        }
        rows->addWidget(new QLabel(captions[row]), row, 0);
        rows->addWidget(values[row], row, 1);
        rows->addWidget(unit, row, 2);
    }
    return rows;
}

bool TablesPage::eventFilter(QObject* watched, QEvent* event) {
    if (watched == LineLength && event->type() == QEvent::MouseButtonDblClick && Has_Line(Program)) {
        Run("Text6");
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void TablesPage::Refresh() {
    Buildgrid->Refresh();
    remark_grid->Refresh();
    Fields.Refresh();
    Fit_Columns();
}

void TablesPage::Refresh_Cell(int row, int column) {
    Buildgrid->Refresh_Cell(row, column);
}

void TablesPage::Fit_Columns() {
    // Widths are fitted when the table changes its shape; what the user has dragged stays otherwise.
    const int columns = Buildgrid->Cells().columnCount();
    if (columns == FittedColumns) return;
    FittedColumns = columns;
    const int shots = columns - 4;
    const int of_pick = fontMetrics().horizontalAdvance("8888.88") + 14;
    const int of_place = fontMetrics().horizontalAdvance("Elevation") + 18;
    for (int column = 1; column < columns; ++column)
        Buildgrid->setColumnWidth(column, column <= shots ? of_pick : of_place);
    for (int column = 0; column + 1 < remark_grid->Cells().columnCount(); ++column)
        remark_grid->setColumnWidth(column, fontMetrics().horizontalAdvance("Vertical shift") + 24);
}

}  // namespace tarnvik
