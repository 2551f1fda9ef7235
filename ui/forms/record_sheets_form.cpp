#include "ui/forms/record_sheets_form.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QTimer>

#include "app/session.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/sheet_form_parts.h"
#include "ui_record_sheets_form.h"

namespace tarnvik {

RecordSheetsForm::RecordSheetsForm(Session& session) : Logic(session) {
    auto* choices = new QWidget;
    Ui::RecordSheetsForm controls;
    controls.setupUi(choices);
    Pane = new SheetPane(session, Logic, "suprint2");
    Arrange_Beside(this, choices, Pane);
    Bind(controls);
    On_Enter(this, [this] { Pane->Save(); });
    On_Escape(this, [this] { Close_Me(); });
}

void RecordSheetsForm::Bind(const Ui::RecordSheetsForm& controls) {
    const auto changed = [this] {
        Logic.Changed();
        Refresh();
    };
    Fields.Text(controls.FileName, FileText);
    Fields.Command(controls.OpenFile, [this] {
        Logic.Choose_File();
        Refresh();
    });
    for (const RecordSheets::Cells& cells : RecordSheets::grids)
        controls.Grid->addItem(QString::fromUtf8(cells.Name));
    controls.Style->addItems({tr("Variable area"), tr("Wiggle"), tr("Color")});
    Fields.Choice(controls.Grid, Logic.Grid, changed);
    Fields.Choice(controls.Style, Logic.Style, changed);
    const std::pair<QLineEdit*, std::string RecordSheets::*> texts[] = {
        {controls.Records, &RecordSheets::Records},
        {controls.Gain, &RecordSheets::Gain},
        {controls.Agc, &RecordSheets::Agc},
        {controls.FirstSample, &RecordSheets::FirstSample},
        {controls.LastSample, &RecordSheets::LastSample},
        {controls.Title, &RecordSheets::Title},
    };
    for (const auto& [control, field] : texts)
        Fields.Finished_Text(control, Logic.*field, changed);
    const std::pair<QAbstractButton*, bool RecordSheets::*> ticks[] = {
        {controls.Clip, &RecordSheets::Clip},
        {controls.Equalise, &RecordSheets::Equalise},
        {controls.Negative, &RecordSheets::Negative},
        {controls.Picks, &RecordSheets::Picks},
        {controls.TravelTimes, &RecordSheets::TravelTimes},
        {controls.Header, &RecordSheets::Header},
    };
    for (const auto& [control, field] : ticks)
        Fields.Tick(control, Logic.*field, changed);
    Bind_Paper(
        Fields, Logic.Paper,
        {controls.Paper, controls.OwnWidth, controls.OwnHeight, controls.LabelOwnWidth, controls.Upright},
        changed);
    Fields.Text(controls.Outcome, Logic.Outcome);
    Fields.Command(controls.CloseForm, [this] { Close_Me(); });
}

void RecordSheetsForm::Refresh() {
    FileText = Logic.File_Text();
    Form::Refresh();
    Pane->Refresh();
}

void RecordSheetsForm::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void RecordSheetsForm::dropEvent(QDropEvent* event) {
    const std::vector<std::string> files = Dropped_Files(*event);
    if (files.empty()) return;
    event->acceptProposedAction();
    // The program that the file comes from waits for the end of the drop.
    QTimer::singleShot(0, this, [this, file = files.front()] {
        Logic.Open_File(file);
        Refresh();
    });
}

}  // namespace tarnvik
