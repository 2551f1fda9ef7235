#include "ui/tables_page.h"

#include <QAction>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/dialog_commands.h"
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
        return shot ? tr("Double click to remove this shot") : QString();
    };
    connect(Buildgrid->horizontalHeader(), &QHeaderView::sectionDoubleClicked, this, [this](int column) {
        if (!Has_Line(Program) || column < 1 || column > Program.Work.Project.NbShots) return;
        Program.Work.Grids.Buildgrid.CurrentColumn = column;
        Run(Remove_Current_Shot);
    });
    Buildgrid->verticalHeader()->setMinimumWidth(fontMetrics().horizontalAdvance("Shot Elev.") + 14);

    remark_grid = new SpreadsheetView(session.Work.Project.remark_grid,
                                      std::make_unique<ProjectCells>(session.RemarkTable));
    remark_grid->setObjectName("remark_grid");
    remark_grid->horizontalHeader()->setStretchLastSection(true);

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
    for (QWidget* group :
         {Edit_Group(), Picks_Group(), Line_Group(), Elevation_Group(), Coordinates_Group()}) {
        rows->addWidget(group);
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

QPushButton* TablesPage::Button(const char* name, const QString& caption, const QString& tooltip,
                                std::function<void(Session&)> run) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setToolTip(tooltip);
    Fields.Command(button, [this, run = std::move(run)] { Run(run); });
    Fields.Enabled(button, [this] { return Has_Line(Program); });
    return button;
}

void TablesPage::Run(const std::function<void(Session&)>& command) {
    const TextGrid& grid = Program.Work.Grids.Buildgrid;
    const std::string before = Block_Text(grid, {0, 0, grid.Rows() - 1, grid.Columns() - 1});
    command(Program);
    // Cells that a command computed anew must not be taken back to what they were before it.
    if (Block_Text(grid, {0, 0, grid.Rows() - 1, grid.Columns() - 1}) != before) Program.PickTable.Forget();
    Refresh();
}

QWidget* TablesPage::Edit_Group() {
    auto* group = new QGroupBox(tr("Table"));
    auto* rows = new QGridLayout(group);
    const auto tool = [this](const char* name, const QString& tooltip, QAction*(SpreadsheetView::*entry)) {
        auto* button = new QPushButton((Buildgrid->*entry)->text());
        button->setObjectName(name);
        button->setToolTip(tooltip);
        // The buttons serve the table that the user works in.
        button->setFocusPolicy(Qt::NoFocus);
        Fields.Command(button, [this, entry] {
            SpreadsheetView* table = remark_grid->hasFocus() ? remark_grid : Buildgrid;
            (table->*entry)->trigger();
            Fields.Refresh();
        });
        Fields.Enabled(button, [this, entry] {
            return (Buildgrid->*entry)->isEnabled() || (remark_grid->*entry)->isEnabled();
        });
        return button;
    };
    rows->addWidget(
        tool("Undo", tr("Takes the last edit of cells back (Ctrl+Z)"), &SpreadsheetView::UndoEdit), 0, 0);
    rows->addWidget(tool("Redo", tr("Does it again (Ctrl+Y)"), &SpreadsheetView::RedoEdit), 0, 1);
    rows->addWidget(
        Button("Save", tr("Save"), tr("Writes the project with the values of the tables"), Save_From_Table),
        1, 0, 1, 2);
    return group;
}

QWidget* TablesPage::Picks_Group() {
    auto* group = new QGroupBox(tr("First breaks"));
    auto* rows = new QVBoxLayout(group);
    rows->addWidget(Button("Command20", tr("Load FBP from SU header"),
                           tr("Import into grid  FBP value from SU file"), Load_Header_Picks));
    rows->addWidget(Button("Grid_2_SU", tr("Store FBP in SU header"),
                           tr("Writes the times of the grid into the trace headers of the SU file"),
                           Store_Header_Picks));
    return group;
}

QLineEdit* TablesPage::Shown_Value(const char* name, const QString& tooltip) {
    auto* edit = new QLineEdit;
    edit->setObjectName(name);
    edit->setToolTip(tooltip);
    edit->setReadOnly(true);
    edit->setAlignment(Qt::AlignRight);
    edit->setMaximumWidth(fontMetrics().horizontalAdvance("-888888.88") + 14);
    QPalette shown = edit->palette();
    shown.setBrush(QPalette::Base, shown.brush(QPalette::Window));
    edit->setPalette(shown);
    return edit;
}

QWidget* TablesPage::Line_Group() {
    MainFields& fields = Program.Work.Fields;
    auto* group = new QGroupBox(tr("Line"));
    auto* rows = new QGridLayout(group);
    LineLength = Shown_Value("Text6", tr("From end shot 1 to last end shot. Double click to change"));
    LineLength->installEventFilter(this);
    // Opening a project fills no field with its length.
    Fields.Follow([this] {
        LineLength->setText(Has_Line(Program) ? QString::fromStdString(CStr(Program.Work.Project.LineLength))
                                              : QString());
    });
    QLineEdit* shift = Shown_Value("Text16", tr("Distance that was added to all distances"));
    QLineEdit* total_time = Shown_Value("Text25", tr("Reciprocal time, found with the delay times"));
    Fields.Text(shift, fields.Text16);
    Fields.Text(total_time, fields.Text25);
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
    rows->addWidget(Button("Command6", tr("Distance correction"),
                           tr("Press here to add or remove distance in order to have distance ZERO at First "
                              "End Shot"),
                           Correct_Distances),
                    3, 0, 1, 3);
    rows->addWidget(
        Button("TakeOutShot", tr("Remove shot"),
               tr("Takes the shot of the selected column out of the project in memory; its file is "
                  "backed up first"),
               Take_Out_Current_Shot),
        4, 0, 1, 3);
    return group;
}

QWidget* TablesPage::Elevation_Group() {
    auto* group = new QGroupBox(tr("Elevations"));
    auto* rows = new QVBoxLayout(group);
    auto* of_shots = new QRadioButton(tr("Shots from geophones"));
    auto* of_geophones = new QRadioButton(tr("Geophones from shots"));
    of_shots->setObjectName("ShotsFromGeophones");
    of_geophones->setObjectName("GeophonesFromShots");
    of_shots->setToolTip(tr("Each shot between the two geophones beside it"));
    of_geophones->setToolTip(tr("Each geophone between the two shots beside it"));
    of_shots->setChecked(true);
    auto* interpolate = Button("Command3", tr("Interpol  Shot Z from Z geo"),
                               tr("Interpolates elevations along the line, in the direction chosen above"),
                               [this](Session& session) {
                                   Update == ElevationUpdate::ShotsFromReceivers
                                       ? Shot_Elevations(session)
                                       : Receiver_Elevations(session);
                               });
    for (const auto& [choice, update] : {std::pair(of_shots, ElevationUpdate::ShotsFromReceivers),
                                         std::pair(of_geophones, ElevationUpdate::ReceiversFromShots)}) {
        connect(choice, &QRadioButton::clicked, this, [this, interpolate, update = update] {
            Update = update;
            interpolate->setText(QString::fromStdString(Elevation_Caption(update)));
        });
        rows->addWidget(choice);
    }
    rows->addWidget(interpolate);
    rows->addWidget(Button("Command11", tr("Compute distances  according to Z"),
                           tr("Compute real  distances according to Geophone elevation"), True_Distances));
    return group;
}

QWidget* TablesPage::Coordinates_Group() {
    auto* group = new QGroupBox(tr("Surveyed coordinates"));
    const QString form = tr(
        "<p>Text files with one point on a line, in the order of the line: <b>X Y Z</b> or <b>name X Y "
        "Z</b>, "
        "separated by blanks, tabs, commas or semicolons, decimals behind a point. The first line may be a "
        "heading.</p><p>Distances are horizontal, along the path through the geophones.</p>");
    auto* rows = new QVBoxLayout(group);
    QPushButton* enter = Button(
        "Command7", tr("Enter XYZ files"),
        "<p>" + tr("Read 2 ASCII files with geophone and shot XYZ location") + "</p>" + form, Enter_Xyz);
    QPushButton* check = Button("Command9", tr("Check XYZ text file"), form, Check_Xyz);
    for (QPushButton* button : {enter, check}) {
        button->setWhatsThis(form);
        rows->addWidget(button);
    }
    return group;
}

bool TablesPage::eventFilter(QObject* watched, QEvent* event) {
    if (watched == LineLength && event->type() == QEvent::MouseButtonDblClick && Has_Line(Program)) {
        Run(Line_Length);
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
    Buildgrid->Cells().Refresh_Cell(row, column);
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
