#include "ui/forms/velocity_line_form.h"

#include "app/session.h"
#include "ui/forms/form_keys.h"
#include "ui_velocity_line_form.h"

namespace tarnvik {

VelocityLineForm::VelocityLineForm(Session& session, QtDisplay&) : Program(session) {
    Ui::VelocityLineForm controls;
    controls.setupUi(this);
    VelocityLine& logic = session.RulerVelocities;
    FirstBox = controls.Text1;
    Fields.Text(controls.Text1, logic.Velocity1);
    Fields.Text(controls.Text2, logic.Velocity2);
    Fields.Text(controls.Text3, logic.Dip);
    Fields.Text(controls.Text4, logic.DownDip, [&logic] { logic.Results_Changed(); });
    Fields.Text(controls.Text5, logic.UpDip, [&logic] { logic.Results_Changed(); });
    for (QLineEdit* box : {controls.Text1, controls.Text2, controls.Text3, controls.Text4, controls.Text5}) {
        box->setFixedWidth(fontMetrics().horizontalAdvance("888888.8") + 16);
    }
    Fields.Follow([this, u1 = controls.Unit1, u2 = controls.Unit2, u4 = controls.Unit4, u5 = controls.Unit5] {
        for (QLabel* unit : {u1, u2, u4, u5})
            unit->setText(Program.Work.Settings.Metric() ? "m/s" : "f/s");
    });
    Fields.Command(controls.compute_dip, [&logic] { logic.compute_dip(); });
    Fields.Command(controls.Quit, [this] { Close_Me(); });
    controls.Label1->setMinimumWidth(controls.Label4->sizeHint().width());
    for (QGridLayout* grid : {controls.refractorGrid, controls.crossGrid})
        grid->setColumnStretch(2, 1);
    On_Enter(this, [&logic] { logic.compute_dip(); });
    On_Escape(this, [this] { Close_Me(); });
}

void VelocityLineForm::Opened() {
    Program.RulerVelocities.Load();
    FirstBox->setFocus();
}

void VelocityLineForm::Closed() {
    Program.RulerVelocities.Close();
}

}  // namespace tarnvik
