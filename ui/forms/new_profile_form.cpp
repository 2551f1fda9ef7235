#include "ui/forms/new_profile_form.h"

#include <QHeaderView>

#include "app/session.h"
#include "ui/qt_display.h"
#include "ui/spreadsheet_view.h"
#include "ui_new_profile_form.h"

namespace tarnvik {

NewProfileForm::NewProfileForm(Session& session, QtDisplay& display) : Logic(session.NewProfile) {
    Ui::NewProfileForm controls;
    controls.setupUi(this);
    rechinfo& logic = Logic;
    const auto sketch = [&logic] { logic.dessine_squetch(); };
    const auto spread = [&logic] { logic.Offset_or_Not(); };

    Fields.Text(controls.Text1, logic.Spacing, spread);
    const auto told = [&logic] { logic.Distance_Or_Depth_Changed(); };
    Fields.Text(controls.Text2, logic.FirstDistance, told);
    Fields.Text(controls.Text3, logic.Geophones, spread);
    Fields.Text(controls.Text4, logic.Shots, spread);
    Fields.Text(controls.Text5, logic.ShotDepth, told);
    // An emptied length is derived anew, which must not happen under the user's hand.
    Fields.Finished_Text(controls.Text6, logic.LineLength, spread);
    Fields.Text(controls.Label2, logic.FirstDistanceCaption);
    Fields.Tick(controls.Check1, logic.Offsets, spread);
    Fields.Tick(controls.Check2, logic.SeveralSpreads, [&logic] { logic.Multi_Spread_Changed(); });
    Fields.Text(controls.DistanceReadout, logic.DistanceReadout);
    Fields.Tick(controls.FromHeaders, logic.FromHeaders, [&logic] { logic.From_Headers_Changed(); });
    Fields.Enabled(controls.FromHeaders, [&logic] { return logic.Headers_Tell(); });
    const std::pair<QLabel*, const std::string&> notes[] = {
        {controls.SpacingNote, logic.SpacingNote},     {controls.FirstDistanceNote, logic.FirstDistanceNote},
        {controls.GeophonesNote, logic.GeophonesNote}, {controls.ShotsNote, logic.ShotsNote},
        {controls.ShotDepthNote, logic.ShotDepthNote}, {controls.LineLengthNote, logic.LineLengthNote},
        {controls.OffsetsNote, logic.OffsetsNote},     {controls.ShotTableNote, logic.ShotTableNote}};
    for (const auto& [label, note] : notes) {
        // Beside what is typed, not to be taken for it.
        QFont small = label->font();
        small.setItalic(true);
        label->setFont(small);
        Fields.Text(label, note);
    }
    Fields.Text(controls.Remarks, logic.Remarks);
    Fields.Shown(controls.Remarks, [&logic] { return !logic.Remarks.empty(); });

    DataGrid = new SpreadsheetView(logic.ShotTable, std::make_unique<FormCells>(logic.ShotTable, sketch));
    DataGrid->setObjectName("DataGrid");
    DataGrid->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    DataGrid->setMinimumWidth(
        fontMetrics().horizontalAdvance("Station 88 Shot dist to End Shot Shot elevation") + 80);
    controls.DataGridRow->addWidget(DataGrid);

    PictureBox* picture = controls.Profile2;
    picture->Set_Size_Hint({860, 230});
    picture->setMinimumHeight(170);
    picture->setFocusPolicy(Qt::NoFocus);
    display.Register(Canvas::Profile2, picture);
    Resized.setSingleShot(true);
    Resized.setInterval(0);
    connect(&Resized, &QTimer::timeout, this, sketch);
    connect(picture, &PictureBox::Resized, this, [this] { Resized.start(); });
    connect(picture, &PictureBox::Moved, this,
            [&logic](const PictureEvent& event) { logic.Sketch_Mouse_Move(event.X); });

    const auto closing = [this](void (rechinfo::*command)()) {
        return [this, command] {
            ByButton = true;
            (Logic.*command)();
            ByButton = false;
        };
    };
    Fields.Command(controls.Command1, closing(&rechinfo::Ok));
    Fields.Command(controls.Command2, sketch);
    Fields.Command(controls.Command3, [this] {
        Logic.Another_Su();
        Focus_First_Field();
    });
    Fields.Command(controls.Command4, closing(&rechinfo::Cancel));
}

void NewProfileForm::Refresh() {
    Form::Refresh();
    DataGrid->Refresh();
}

void NewProfileForm::Closed() {
    // Closed by its frame or by Escape the form gives the new profile up as Cancel does.
    if (!ByButton) Logic.Cancel();
}

void NewProfileForm::showEvent(QShowEvent* event) {
    Form::showEvent(event);
    Focus_First_Field();
}

void NewProfileForm::Focus_First_Field() {
    auto* field = findChild<QLineEdit*>(Logic.Focus == rechinfo::Field::Spacing ? "Text1" : "Text2");
    if (field == nullptr) return;
    field->setFocus();
    field->selectAll();
}

}  // namespace tarnvik
