#include "ui/forms/confirm_form.h"

#include "app/session.h"
#include "ui/forms/form_keys.h"
#include "ui_confirm_form.h"

namespace tarnvik {

ConfirmForm::ConfirmForm(Session& session, QtDisplay&) : Program(session) {
    Ui::ConfirmForm controls;
    controls.setupUi(this);
    Confirm& logic = session.Record;
    Fields.Text(controls.Text1, logic.Shot);
    Fields.Text(controls.Text2, logic.Layer);
    Fields.Text(controls.Text3, logic.Intercept);
    Fields.Text(controls.Text4, logic.Velocity);
    Fields.Text(controls.Label5, logic.ProjectFile);
    Fields.Command(controls.Command1, [&logic] { logic.Command1(); });
    Fields.Command(controls.Command2, [&logic] { logic.Command2(); });
    controls.VelocityUnit->setText(session.Work.Settings.Metric() ? "m/s" : "f/s");
    On_Enter(this, [&logic] { logic.Command1(); });
    On_Escape(this, [&logic] { logic.Command2(); });
    // The form is gone with the save.
    On_Ctrl_Enter(this, [&logic, &session] {
        logic.Command1();
        if (!session.Speed.SaveEnabled) session.Speed.Next_Layer();
    });
}

void ConfirmForm::Opened() {
    Program.Record.Load();
}

}  // namespace tarnvik
