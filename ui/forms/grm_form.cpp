#include "ui/forms/grm_form.h"

#include "app/session.h"
#include "ui/forms/form_keys.h"
#include "ui_grm_form.h"

namespace tarnvik {

GrmForm::GrmForm(Session& session, QtDisplay&) : Program(session) {
    Ui::GrmForm controls;
    controls.setupUi(this);
    GRM& logic = session.GrmAnalysis;
    First = controls.Text1;
    Fields.Text(controls.Text1, logic.Minimum);
    Fields.Text(controls.Text2, logic.Maximum);
    Fields.Text(controls.Text3, logic.TimeShift);
    Fields.Text(controls.ReferenceVelocity, logic.ReferenceVelocity);
    const int width = fontMetrics().horizontalAdvance("888888") + 16;
    for (QLineEdit* field : {controls.Text1, controls.Text2, controls.Text3, controls.ReferenceVelocity})
        field->setFixedWidth(width);
    auto* options = new QButtonGroup(this);
    options->addButton(controls.Option1, GRM::VelocityFunction);
    options->addButton(controls.Option2, GRM::TimeDepthCurves);
    options->addButton(controls.Option3, GRM::DepthComputation);
    Fields.Choice(options, logic.GrmOption, [this] { Fields.Refresh(); });
    Fields.Command(controls.Command1, [&logic] { logic.Command1(); });
    Fields.Command(controls.Command2, [&logic] { logic.Command2(); });
    Fields.Command(controls.Command4, [this] { Close_Me(); });
    Fields.Enabled(controls.Command2, [&logic] { return logic.GrmOption != GRM::DepthComputation; });
    controls.xyGrid->setColumnStretch(1, 1);
    On_Enter(this, [&logic] { logic.Command1(); });
    On_Escape(this, [this] { Close_Me(); });
}

void GrmForm::Opened() {
    Program.GrmAnalysis.Load();
    First->setFocus();
}

void GrmForm::Called() {
    First->setFocus();
}

void GrmForm::Closed() {
    Program.GrmAnalysis.Close();
}

}  // namespace tarnvik
