#include "ui/forms/auto_pik_form.h"

#include <QProgressDialog>

#include "app/session.h"
#include "ui_auto_pik_form.h"

namespace tarnvik {

namespace {

/// A control that changes nothing stands where users know it, and says so.
void Grey_Out(QWidget* control, const QString& reason) {
    control->setEnabled(false);
    control->setToolTip(control->toolTip().isEmpty() ? reason : control->toolTip() + "\n" + reason);
}

}  // namespace

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
    Fields.Tick(controls.ReplaceHand, Logic.ReplaceHand, pick);
    Fields.Command(controls.ThisRecord, [this] { Logic.Pick_auto(); });
    Fields.Enabled(controls.ThisRecord, [this] { return !Logic.FirstTime.empty(); });
    Fields.Command(controls.AllRecords, [this] { Pick_All(); });
    Grey_Out(controls.Check1, tr("The search does not consult it: it has no effect"));
    Grey_Out(controls.LabelText52, tr("The search has no step for it: the bar only picks again"));
    Grey_Out(controls.Text52, controls.LabelText52->toolTip());
    controls.HScroll4->setToolTip(controls.HScroll4->toolTip() + "\n" + controls.LabelText52->toolTip());
    Grey_Out(controls.LabelText56,
             tr("Computed from the frequency: a value typed here would have no effect"));
    Grey_Out(controls.Text56, controls.LabelText56->toolTip());
    Logic.Form_Load();
}

void AutoPikForm::Pick_All() {
    QProgressDialog progress(tr("Picking the records"), tr("Cancel"), 0, 0, this);
    progress.setWindowModality(Qt::ApplicationModal);
    progress.setMinimumDuration(300);
    Logic.Pick_All([&progress](int done, int all) {
        progress.setMaximum(all);
        progress.setValue(done);
        progress.setLabelText(tr("Record %1 of %2").arg(done + 1).arg(all));
        return !progress.wasCanceled();
    });
}

void AutoPikForm::Closed() {
    Logic.Form_Unload();
}

}  // namespace tarnvik
