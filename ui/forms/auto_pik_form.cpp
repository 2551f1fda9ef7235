#include "ui/forms/auto_pik_form.h"

#include "app/session.h"
#include "ui_auto_pik_form.h"

namespace tarnvik {

AutoPikForm::AutoPikForm(Session& session, QtDisplay&) : Logic(session.AutomaticPicking) {
    Ui::AutoPikForm controls;
    controls.setupUi(this);
    const auto pick = [this] { Logic.Parameter_Changed(); };
    Fields.Text(controls.Text51, Logic.Text51, [this] { Logic.Text51_Change(); });
    for (const auto& [control, field] :
         {std::pair(controls.Text53, &Logic.Text53), std::pair(controls.Text54, &Logic.Text54),
          std::pair(controls.Text55, &Logic.Text55), std::pair(controls.Text57, &Logic.Text57),
          std::pair(controls.Text3, &Logic.Text3)}) {
        Fields.Text(control, *field, pick);
    }
    // Each run computes the half cycle afresh: it is left alone while it is being typed.
    Fields.Finished_Text(controls.Text56, Logic.Text56, pick);
    Fields.Text(controls.Text52, Logic.Text52);
    Fields.Scroll(controls.HScroll4, Logic.HScroll4, [this] { Logic.HScroll4_Change(); });
    Fields.Tick(controls.Check1, Logic.Check1, pick);
    Fields.Tick(controls.Check2, Logic.Check2, pick);
    Fields.Tick(controls.Check3, Logic.Check3, pick);
    Fields.Text(controls.Text1, Logic.Text1);
    Fields.Text(controls.Text2, Logic.Text2);
    Fields.Command(controls.Command1, [this] { Logic.Command1(); });
    Fields.Command(controls.Command2, [this] { Logic.Command2(); });
    Fields.Command(controls.Command3, [this] { Logic.Command3(); });
    Logic.Form_Load();
}

void AutoPikForm::Closed() {
    Logic.Form_Unload();
}

}  // namespace tarnvik
