#include "ui/forms/line_sheet_form.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QTimer>

#include "app/session.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/sheet_form_parts.h"
#include "ui_line_sheet_form.h"

namespace tarnvik {

LineSheetForm::LineSheetForm(Session& session) : Logic(session) {
    auto* choices = new QWidget;
    Ui::LineSheetForm controls;
    controls.setupUi(choices);
    Pane = new SheetPane(session, Logic, "tvmprint");
    Arrange_Beside(this, choices, Pane);
    Bind(controls);
    On_Enter(this, [this] { Pane->Save(); });
    On_Escape(this, [this] { Close_Me(); });
}

void LineSheetForm::Bind(const Ui::LineSheetForm& controls) {
    const auto changed = [this] {
        Logic.Changed();
        Refresh();
    };
    Fields.Text(controls.LineName, LineText);
    Fields.Command(controls.OpenLine, [this] {
        Logic.Choose_Line();
        Refresh();
    });
    Fields.Tick(controls.Curves, Logic.WithCurves, changed);
    Fields.Tick(controls.Profile, Logic.WithProfile, changed);
    Fields.Tick(controls.Section, Logic.WithSection, changed);
    controls.Source->addItems({tr("Shots: intercept times"), tr("Receivers: ABC"), tr("Receivers: GRM")});
    Fields.Choice(controls.Source, Logic.Source, changed);
    Bind_Paper(
        Fields, Logic.Paper,
        {controls.Paper, controls.OwnWidth, controls.OwnHeight, controls.LabelOwnWidth, controls.Upright},
        changed);
    Fields.Entries(controls.Scale, Offered_Scales());
    Fields.Entries(controls.VerticalScale, Offered_Scales());
    Fields.Finished_Text(controls.Scale, Logic.Scale, changed);
    Fields.Finished_Text(controls.VerticalScale, Logic.VerticalScale, changed);
    Fields.Text(controls.Outcome, Logic.Outcome);
    Fields.Shown(controls.TakeFitting,
                 [this] { return Logic.Laid_Out().NextScale > 0 || Logic.Laid_Out().NextVertical > 0; });
    Fields.Command(controls.TakeFitting, [this] {
        Logic.Take_Fitting();
        Refresh();
    });
    const std::pair<QLineEdit*, std::string LineSheet::*> texts[] = {
        {controls.Title, &LineSheet::Title},     {controls.Client, &LineSheet::Client},
        {controls.Place, &LineSheet::Place},     {controls.Operator, &LineSheet::Operator},
        {controls.Date, &LineSheet::Date},       {controls.North, &LineSheet::North},
        {controls.Remarks, &LineSheet::Remarks},
    };
    for (const auto& [control, field] : texts)
        Fields.Finished_Text(control, Logic.*field, changed);
    Fields.Command(controls.CloseForm, [this] { Close_Me(); });
}

void LineSheetForm::Open(const std::string& file, const std::string& name, bool unsaved) {
    Logic.Open(file, name, unsaved);
    Refresh();
}

void LineSheetForm::Refresh() {
    LineText = Logic.Line_Text();
    Form::Refresh();
    Pane->Refresh();
}

void LineSheetForm::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void LineSheetForm::dropEvent(QDropEvent* event) {
    const std::vector<std::string> files = Dropped_Files(*event);
    if (files.empty()) return;
    event->acceptProposedAction();
    // The program that the file comes from waits for the end of the drop.
    QTimer::singleShot(0, this, [this, file = files.front()] { Open(file, file, false); });
}

}  // namespace tarnvik
