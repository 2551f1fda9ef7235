#include "ui/forms/hand_velocity_form.h"

#include "app/session.h"
#include "ui/forms/form_keys.h"
#include "ui_hand_velocity_form.h"

namespace tarnvik {

HandVelocityForm::HandVelocityForm(Session& session, QtDisplay&) : Program(session) {
    Ui::HandVelocityForm controls;
    controls.setupUi(this);
    SpeedF3& logic = session.HandSpeed;
    ShotBox = controls.Combo2;
    Fields.Entries(controls.Combo2, logic.ShotEntries);
    Fields.Entries(controls.Combo1, logic.LayerEntries);
    Fields.Text(controls.Combo2, logic.Shot, [&logic] { logic.Shot_Changed(); });
    Fields.Text(controls.Combo1, logic.Layer);
    Fields.Text(controls.Text2, logic.Velocity);
    Fields.Text(controls.Text4, logic.Intercept);
    for (QWidget* box :
         std::initializer_list<QWidget*>{controls.Combo1, controls.Combo2, controls.Text2, controls.Text4}) {
        Fields.On_Focus(box, [&logic] { logic.Enter(); });
        box->setFixedWidth(fontMetrics().horizontalAdvance("8888888.8") + 24);
    }
    Fields.Follow([this, unit = controls.VelocityUnit] {
        unit->setText(Program.Work.Settings.Metric() ? "m/s" : "f/s");
    });
    Fields.Command(controls.Command1, [&logic] { logic.Command1(); });
    Fields.Command(controls.Quit, [this] { Close_Me(); });
    controls.bandGrid->setColumnStretch(2, 1);
    On_Enter(this, [&logic] { logic.Command1(); });
    On_Escape(this, [this] { Close_Me(); });
}

void HandVelocityForm::Opened() {
    Program.HandSpeed.Load();
    ShotBox->setFocus();
}

void HandVelocityForm::Closed() {
    Program.HandSpeed.Close();
}

}  // namespace tarnvik
