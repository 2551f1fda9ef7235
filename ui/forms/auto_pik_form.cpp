#include "ui/forms/auto_pik_form.h"

#include "app/session.h"
#include "ui_auto_pik_form.h"

namespace tarnvik {

AutoPikForm::AutoPikForm(Session& session, QtDisplay&) : Logic(session.AutomaticPicking) {
    Ui::AutoPikForm controls;
    controls.setupUi(this);
    const auto pick = [this] { Logic.Parameter_Changed(); };
    Fields.Text(controls.Text51, Logic.Frequency, [this] { Logic.Frequency_Changed(); });
    for (const auto& [control, field] :
         {std::pair(controls.Text53, &Logic.StartShift), std::pair(controls.Text54, &Logic.Window),
          std::pair(controls.Text55, &Logic.FirstTime), std::pair(controls.Text57, &Logic.MinAmplitude),
          std::pair(controls.Text3, &Logic.PickShift)}) {
        Fields.Text(control, *field, pick);
    }
    // Each run computes the half cycle afresh: it is left alone while it is being typed.
    Fields.Finished_Text(controls.Text56, Logic.HalfCycle, pick);
    Fields.Text(controls.Text52, Logic.Sensitivity);
    Fields.Scroll(controls.HScroll4, Logic.SensitivityBar, [this] { Logic.Sensitivity_Changed(); });
    Fields.Tick(controls.Check1, Logic.ZeroAmplitude, pick);
    Fields.Tick(controls.Check2, Logic.Negative, pick);
    Fields.Tick(controls.Check3, Logic.Absolute, pick);
    Fields.Text(controls.Text1, Logic.ReferenceTrace);
    Fields.Text(controls.Text2, Logic.ProcessedTrace);
    Fields.Command(controls.Command1, [this] { Logic.Info(); });
    Fields.Command(controls.Command2, [this] { Logic.Reset(); });
    Fields.Command(controls.Command3, [this] { Logic.Save(); });
    Logic.Form_Load();
}

void AutoPikForm::Closed() {
    Logic.Form_Unload();
}

}  // namespace tarnvik
