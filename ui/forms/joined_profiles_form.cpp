#include "ui/forms/joined_profiles_form.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QTimer>
#include <algorithm>

#include "app/session.h"
#include "core/text/letters.h"
#include "core/text/number.h"
#include "output/axis_ticks.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/sheet_form_parts.h"
#include "ui_joined_profiles_form.h"

namespace tarnvik {

namespace {

constexpr int visible_rows = 6;

const std::vector<std::string>& Offered_Exaggerations() {
    static const std::vector<std::string> all = {"fitting", "1", "1.5", "2", "2.5", "3", "4", "5", "10"};
    return all;
}

std::string Centimetres(double value) {
    constexpr double digits = 100;
    return Tick_Text(Rounded(value * digits) / digits);
}

}  // namespace

JoinedProfilesForm::JoinedProfilesForm(Session& session)
    : Logic(session.Outside, session.Work.Settings, session.Work.AppTitle) {
    auto* choices = new QWidget;
    Ui::JoinedProfilesForm controls;
    controls.setupUi(choices);
    Pane = new SheetPane(session, Logic, "TVProfile");
    Arrange_Beside(this, choices, Pane);
    List = controls.Lines;
    Bind_List(controls);
    Bind(controls);
    On_Enter(this, [this] { Pane->Save(); });
    On_Escape(this, [this] { Close_Me(); });
    Logic.Changed();
}

void JoinedProfilesForm::Bind_List(const Ui::JoinedProfilesForm& controls) {
    List->setColumnCount(4);
    List->setHorizontalHeaderLabels({tr("Line"), tr("From"), tr("To"), tr("Depths")});
    List->verticalHeader()->hide();
    List->setSelectionBehavior(QAbstractItemView::SelectRows);
    List->setSelectionMode(QAbstractItemView::SingleSelection);
    List->setEditTriggers(QAbstractItemView::NoEditTriggers);
    List->setTabKeyNavigation(false);
    List->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    List->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    List->setFixedHeight((visible_rows + 1) * (List->fontMetrics().height() + 8));
    List->verticalHeader()->setDefaultSectionSize(List->fontMetrics().height() + 6);
    connect(List, &QTableWidget::currentCellChanged, this, [this](int row) {
        if (row == Logic.Selected || row < 0) return;
        Logic.Select(row);
        Fields.Refresh();
    });
    const auto any = [this] { return Logic.Selected >= 0; };
    const std::pair<QAbstractButton*, std::function<void()>> keys[] = {
        {controls.Add, [this] { Logic.Choose_Lines(); }}, {controls.Remove, [this] { Logic.Remove(); }},
        {controls.Reload, [this] { Logic.Reload(); }},    {controls.Up, [this] { Logic.Move(-1); }},
        {controls.Down, [this] { Logic.Move(1); }},       {controls.Csv, [this] { Logic.Save_Table(); }},
        {controls.OpenSet, [this] { Logic.Open_Set(); }}, {controls.SaveSet, [this] { Logic.Save_Set(); }},
        {controls.NewSet, [this] { Logic.New_Set(); }},
    };
    for (const auto& [button, run] : keys) {
        Fields.Command(button, [this, run = run] {
            run();
            Refresh();
        });
    }
    for (QWidget* control : std::initializer_list<QWidget*>{controls.Remove, controls.Offset, controls.Source,
                                                            controls.Reversed})
        Fields.Enabled(control, any);
    Fields.Enabled(controls.Up, [this] { return Logic.Selected > 0; });
    Fields.Enabled(controls.Down, [this] {
        return Logic.Selected >= 0 && Logic.Selected + 1 < static_cast<int>(Logic.Lines.size());
    });
    Fields.Enabled(controls.Csv, [this] { return Logic.Refusal().empty(); });
    Fields.Enabled(controls.SaveSet, [this] { return !Logic.Lines.empty(); });
}

void JoinedProfilesForm::Bind(const Ui::JoinedProfilesForm& controls) {
    const auto line_changed = [this] {
        Logic.Line_Changed();
        Refresh();
    };
    const auto changed = [this] {
        Logic.Changed();
        Refresh();
    };
    controls.Source->addItems({tr("Shots: intercept times"), tr("Receivers: ABC"), tr("Receivers: GRM")});
    controls.Shape->addItems({tr("Joined depths"), tr("Envelope of arcs")});
    Fields.Finished_Text(controls.Offset, Logic.Offset, line_changed);
    Fields.Choice(controls.Source, Logic.Source, line_changed);
    Fields.Tick(controls.Reversed, Logic.Reversed, line_changed);
    Fields.Finished_Text(controls.Title, Logic.Title, changed);
    Fields.Choice(controls.Shape, Logic.Shape, changed);
    Fields.Tick(controls.Filled, Logic.Filled, changed);
    Fields.Entries(controls.Scale, Offered_Scales());
    Fields.Entries(controls.Exaggeration, Offered_Exaggerations());
    Fields.Finished_Text(controls.Scale, Logic.Scale, changed);
    Fields.Finished_Text(controls.Exaggeration, Logic.Exaggeration, changed);
    Fields.Finished_Text(controls.LowestElevation, Logic.LowestElevation, changed);
    Fields.Finished_Text(controls.HighestElevation, Logic.HighestElevation, changed);
    Fields.Text(controls.Outcome, Logic.Outcome);
    Bind_Paper(
        Fields, Logic.Paper,
        {controls.Paper, controls.OwnWidth, controls.OwnHeight, controls.LabelOwnWidth, controls.Upright},
        changed);
    Fields.Command(controls.CloseForm, [this] { Close_Me(); });
}

void JoinedProfilesForm::Fill_List() {
    const QSignalBlocker silent(List);
    List->setRowCount(static_cast<int>(Logic.Lines.size()));
    int row = 0;
    for (const JoinedLine& line : Logic.Lines) {
        const bool good = line.Fault.empty();
        const std::string cells[] = {line.Name + (line.Reversed ? " <" : ""),
                                     good ? Centimetres(line.PlaceOf) : "",
                                     good ? Centimetres(line.PlaceOf + line.End - line.Begin) : "",
                                     good ? std::string(Method_Name(line.Source)) : "fault"};
        for (int column = 0; column < 4; ++column) {
            auto* item = new QTableWidgetItem(QString::fromStdString(cells[column]));
            if (column == 1 || column == 2) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            const std::string tip = good ? line.File : line.File + ": " + line.Fault;
            item->setToolTip(QString::fromStdString(tip));
            List->setItem(row, column, item);
        }
        ++row;
    }
    List->setCurrentCell(Logic.Selected, 0);
}

void JoinedProfilesForm::Refresh() {
    Fill_List();
    Form::Refresh();
    Pane->Refresh();
}

void JoinedProfilesForm::Take(const std::vector<std::string>& files) {
    const auto set = std::find_if(files.begin(), files.end(),
                                  [](const std::string& file) { return LCase(Right(file, 6)) == ".tvset"; });
    if (set != files.end()) {
        const std::string reason = Logic.Read_Set(*set);
        if (!reason.empty()) Logic.Tell(reason);
    } else if (!files.empty()) {
        Logic.Add(files);
    }
    Refresh();
}

void JoinedProfilesForm::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void JoinedProfilesForm::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    // The program that the files come from waits for the end of the drop.
    QTimer::singleShot(0, this, [this, files = Dropped_Files(*event)] { Take(files); });
}

}  // namespace tarnvik
