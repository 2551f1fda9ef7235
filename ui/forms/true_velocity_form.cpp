#include "ui/forms/true_velocity_form.h"

#include "app/session.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/receiver_boxes.h"
#include "ui_true_velocity_form.h"

namespace tarnvik {

namespace {

using ReceiverBox = SpeedF2::ReceiverBox;

}  // namespace

TrueVelocityForm::TrueVelocityForm(Session& session, QtDisplay&) : Program(session) {
    Ui::TrueVelocityForm controls;
    controls.setupUi(this);
    SpeedF2& logic = session.TrueSpeed;
    FirstBox = controls.Combo3;
    LastBox = controls.Combo4;
    Fields.Entries(controls.Combo1, logic.ShotEntries);
    Fields.Entries(controls.Combo2, logic.ShotEntries);
    Fields.Entries(controls.Combo3, logic.ReceiverEntries);
    Fields.Entries(controls.Combo4, logic.ReceiverEntries);
    Fields.Entries(controls.Combo5, logic.LayerEntries);
    Fields.Text(controls.Combo1, logic.FirstShot);
    Fields.Text(controls.Combo2, logic.LastShot);
    Fields.Text(controls.Combo3, logic.FirstReceiver);
    Fields.Text(controls.Combo4, logic.LastReceiver);
    Fields.Text(controls.Combo5, logic.Layer);
    Bind_Receiver_Boxes(Fields, Program.Work, Dialog::SpeedF2, logic,
                        {{controls.Combo3, controls.From, ReceiverBox::First},
                         {controls.Combo4, controls.To, ReceiverBox::Last}});
    Fields.Tick(controls.Check1, logic.Eliminate, [this] { Fields.Refresh(); });
    QLineEdit* const eliminated[] = {controls.Text6, controls.Text10, controls.Text11, controls.Text12,
                                     controls.Text13};
    for (std::size_t place = 0; place < logic.Eliminated.size(); ++place) {
        Fields.Text(eliminated[place], logic.Eliminated.at(place));
        Fields.Shown(eliminated[place], [&logic] { return logic.Eliminate; });
    }
    Fields.Result(controls.Text1, logic.Velocity);
    Fields.Result(controls.Picture2, logic.Correlation);
    Fields.Text(controls.Text7, logic.RecordFrom);
    Fields.Text(controls.Text8, logic.RecordTo);
    Fields.Follow([this, unit = controls.VelocityUnit] {
        unit->setText(Program.Work.Settings.Metric() ? "m/s" : "f/s");
    });
    Fields.Command(controls.Command2, [&logic] { logic.Command2(); });
    Fields.Command(controls.Command3, [&logic] { logic.Command3(); });
    Fields.Command(controls.Quit, [this] { Close_Me(); });
    On_Enter(this, [&logic] { logic.Command2(); });
    On_Escape(this, [this] { Close_Me(); });

    const int width = fontMetrics().horizontalAdvance("8888888.8") + 24;
    for (QWidget* box : std::initializer_list<QWidget*>{controls.Combo1, controls.Combo2, controls.Combo3,
                                                        controls.Combo4, controls.Combo5, controls.Text1,
                                                        controls.Text7, controls.Text8, controls.Picture2}) {
        box->setFixedWidth(width);
    }
    const int label_width = controls.Label4->sizeHint().width();
    for (QLabel* label : {controls.Label1, controls.Label5, controls.Label7})
        label->setMinimumWidth(label_width);
    for (QGridLayout* grid : {controls.pairGrid, controls.resultGrid, controls.recordGrid})
        grid->setColumnStretch(2, 1);
}

void TrueVelocityForm::Opened() {
    Program.TrueSpeed.Load();
    FirstBox->setFocus();
}

void TrueVelocityForm::Called() {
    // Return computes at once after the picture filled a box.
    (Program.TrueSpeed.LastEntered == ReceiverBox::First ? FirstBox : LastBox)->setFocus();
}

void TrueVelocityForm::Closed() {
    Program.TrueSpeed.Close();
}

}  // namespace tarnvik
