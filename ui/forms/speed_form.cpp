#include "ui/forms/speed_form.h"

#include "app/dialog_commands.h"
#include "app/session.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/receiver_boxes.h"
#include "ui/qt_display.h"
#include "ui_speed_form.h"

namespace tarnvik {

namespace {

using ReceiverBox = SpeedF::ReceiverBox;

}  // namespace

SpeedForm::SpeedForm(Session& session, QtDisplay& display) : Program(session) {
    Ui::SpeedForm controls;
    controls.setupUi(this);
    SpeedF& logic = session.Speed;
    FirstBox = controls.Combo3;
    LastBox = controls.Combo4;
    Bind_Stretch(controls);
    Bind_Layer(controls);
    Bind_Results(controls);
    Fields.Command(controls.Command1, [this, &logic] {
        logic.Command1();
        // A button that is closed hands the keys on to the next one: Return would refresh.
        Called();
    });
    Fields.Command(controls.Command2, [&logic] { logic.Command2(); });
    Fields.Command(controls.Command3, [this] { Close_Me(); });
    Fields.Command(controls.Command5, [&logic] { logic.Command5(); });
    Fields.Enabled(controls.Command1, [&logic] { return logic.SaveEnabled; });

    const int width = fontMetrics().horizontalAdvance("8888888.8") + 24;
    for (QWidget* box :
         std::initializer_list<QWidget*>{controls.Combo1, controls.Combo2, controls.Combo3, controls.Combo4,
                                         controls.Text4, controls.Text5, controls.Text6}) {
        box->setFixedWidth(width);
    }
    controls.stretchGrid->setColumnStretch(2, 1);
    controls.layerGrid->setColumnStretch(2, 1);
    controls.Label4->setMinimumWidth(controls.Label2->sizeHint().width());
    controls.resultGrid->setColumnStretch(2, 1);
    controls.Picture2->setFixedSize(
        {fontMetrics().horizontalAdvance("8888") + 8, fontMetrics().height() + 4});
    display.Register(Canvas::SpeedEnd, controls.Picture2);
    On_Enter(this, [&logic] { logic.Command5(); });
    On_Escape(this, [this] { Close_Me(); });
    On_Ctrl_Enter(this, [this] {
        Save_Velocity_And_Go_On(Program);
        Called();
    });
    const QString save_tip = controls.Command1->toolTip();
    controls.Command1->setToolTip((save_tip.isEmpty() ? tr("Record this velocity") : save_tip) +
                                  tr("\nCtrl+Enter saves at once and goes to the next layer"));
}

void SpeedForm::Bind_Stretch(const Ui::SpeedForm& controls) {
    SpeedF& logic = Program.Speed;
    Fields.Entries(controls.Combo2, logic.ShotEntries);
    Fields.Entries(controls.Combo3, logic.ReceiverEntries);
    Fields.Entries(controls.Combo4, logic.ReceiverEntries);
    Fields.Finished_Text(controls.Combo2, logic.Shot, [&logic] { logic.Shot_Changed(); });
    Fields.Text(controls.Combo3, logic.FirstReceiver);
    Fields.Text(controls.Combo4, logic.LastReceiver);
    Bind_Receiver_Boxes(Fields, Program.Work, Dialog::SpeedF, logic,
                        {{controls.Combo3, controls.From, ReceiverBox::From},
                         {controls.Combo4, controls.To, ReceiverBox::To}});
    Fields.Tick(controls.Check1, logic.Eliminate, [this] { Fields.Refresh(); });
    QLineEdit* const eliminated[] = {controls.Text8, controls.Text9, controls.Text10, controls.Text11};
    for (std::size_t place = 0; place < logic.Eliminated.size(); ++place) {
        Fields.Text(eliminated[place], logic.Eliminated.at(place));
        Fields.Shown(eliminated[place], [&logic] { return logic.Eliminate; });
    }
}

void SpeedForm::Bind_Layer(const Ui::SpeedForm& controls) {
    SpeedF& logic = Program.Speed;
    Fields.Entries(controls.Combo1, logic.LayerEntries);
    // The layer chosen once more counts as well: the same layer of the next shot can be saved.
    Fields.Finished_Text(controls.Combo1, logic.Layer, [&logic] { logic.Layer_Changed(); });
    Fields.Tick(controls.Check2, logic.ThroughShot, [&logic] { logic.ThroughShot_Clicked(); });
    Fields.Tick(controls.Check3, logic.AllShots, [&logic] { logic.AllShots_Clicked(); });
}

void SpeedForm::Bind_Results(const Ui::SpeedForm& controls) {
    SpeedF& logic = Program.Speed;
    Fields.Result(controls.Text4, logic.Velocity);
    Fields.Result(controls.Text5, logic.Intercept);
    Fields.Result(controls.Text6, logic.Correlation);
    for (QWidget* control : {static_cast<QWidget*>(controls.Text5), static_cast<QWidget*>(controls.Label6),
                             static_cast<QWidget*>(controls.InterceptUnit)}) {
        Keep_Room(control);
        Fields.Shown(control, [&logic] { return logic.InterceptShown; });
    }
    Keep_Room(controls.NotRecorded);
    QPalette red = controls.NotRecorded->palette();
    red.setColor(QPalette::WindowText, QColor(0xd0, 0x20, 0x20));
    controls.NotRecorded->setPalette(red);
    Fields.Shown(controls.NotRecorded, [&logic] { return logic.Not_Recorded(); });
    Fields.Follow([this, unit = controls.VelocityUnit] {
        unit->setText(Program.Work.Settings.Metric() ? "m/s" : "f/s");
    });
}

void SpeedForm::Opened() {
    Program.Speed.Load();
    FirstBox->setFocus();
}

void SpeedForm::Called() {
    // Return computes at once after the picture filled a box.
    (Program.Speed.LastEntered == ReceiverBox::From ? FirstBox : LastBox)->setFocus();
}

void SpeedForm::Closed() {
    Program.Speed.Close();
}

}  // namespace tarnvik
