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
    const auto sketch = [&logic] { logic.Command2(); };
    const auto spread = [&logic] { logic.Offset_or_Not(); };

    Fields.Text(controls.Text1, logic.Text1, spread);
    Fields.Text(controls.Text2, logic.Text2, sketch);
    Fields.Text(controls.Text3, logic.Text3, spread);
    Fields.Text(controls.Text4, logic.Text4, spread);
    Fields.Text(controls.Text5, logic.Text5);
    // An emptied length is derived anew, which must not happen under the user's hand.
    Fields.Finished_Text(controls.Text6, logic.Text6, spread);
    Fields.Text(controls.Label2, logic.Text2Caption);
    Fields.Tick(controls.Check1, logic.Check1, spread);
    Fields.Tick(controls.Check2, logic.Check2, [&logic] { logic.Multi_Spread_Changed(); });
    Fields.Text(controls.DistanceReadout, logic.DistanceReadout);

    DataGrid = new SpreadsheetView(logic.DataGrid, std::make_unique<FormCells>(logic.DataGrid, sketch));
    DataGrid->setObjectName("DataGrid");
    DataGrid->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    DataGrid->setMinimumWidth(
        fontMetrics().horizontalAdvance("Station 88 Shot dist to End Shot Shot elevation") + 80);
    controls.DataGridPlace->addWidget(DataGrid);

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
    Fields.Command(controls.Command1, closing(&rechinfo::Command1));
    Fields.Command(controls.Command2, sketch);
    Fields.Command(controls.Command3, [this] {
        Logic.Command3();
        Focus_First_Field();
    });
    Fields.Command(controls.Command4, closing(&rechinfo::Command4));
}

void NewProfileForm::Refresh() {
    Form::Refresh();
    DataGrid->Refresh();
}

void NewProfileForm::Closed() {
    // Closed by its frame or by Escape the form gives the new profile up as Cancel does.
    if (!ByButton) Logic.Command4();
}

void NewProfileForm::showEvent(QShowEvent* event) {
    Form::showEvent(event);
    Focus_First_Field();
}

void NewProfileForm::Focus_First_Field() {
    auto* field = findChild<QLineEdit*>(QString::fromStdString(Logic.FocusControl));
    if (field == nullptr) return;
    field->setFocus();
    field->selectAll();
}

}  // namespace tarnvik
