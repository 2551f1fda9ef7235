#include "ui/forms/dip_form.h"

#include "app/session.h"
#include "ui/forms/form_keys.h"
#include "ui_dip_form.h"

namespace tarnvik {

DipForm::DipForm(Session& session, QtDisplay&) {
    Ui::DipForm controls;
    controls.setupUi(this);
    DipComputation& logic = session.Dip;
    FirstBox = controls.Text1;
    Fields.Text(controls.Text1, logic.Velocity1);
    Fields.Text(controls.Text2, logic.UpDip);
    Fields.Text(controls.Text3, logic.DownDip);
    Fields.Result(controls.Text4, logic.Dip);
    for (QLineEdit* box : {controls.Text1, controls.Text2, controls.Text3, controls.Text4})
        box->setFixedWidth(fontMetrics().horizontalAdvance("888888.8") + 16);
    Fields.Follow([&session, u1 = controls.Unit1, u2 = controls.Unit2, u3 = controls.Unit3] {
        for (QLabel* unit : {u1, u2, u3})
            unit->setText(session.Work.Settings.Metric() ? "m/s" : "f/s");
    });
    Fields.Command(controls.Calcul_dip, [&logic] { logic.Calcul_dip(); });
    Fields.Command(controls.Quit, [this] { Close_Me(); });
    controls.Label4->setMinimumWidth(controls.Label2->sizeHint().width());
    for (QGridLayout* grid : {controls.velocitiesGrid, controls.resultGrid})
        grid->setColumnStretch(2, 1);
    On_Enter(this, [&logic] { logic.Calcul_dip(); });
    On_Escape(this, [this] { Close_Me(); });
}

void DipForm::Opened() {
    FirstBox->setFocus();
}

}  // namespace tarnvik
