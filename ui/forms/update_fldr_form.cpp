#include "ui/forms/update_fldr_form.h"

#include "app/session.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/long_work.h"
#include "ui_update_fldr_form.h"

namespace tarnvik {

UpdateFldrForm::UpdateFldrForm(Session& session, QtDisplay&) : Logic(session.TraceNumbers) {
    Ui::UpdateFldrForm controls;
    controls.setupUi(this);
    Input = controls.Text1;
    Logic.Load();
    Fields.Finished_Text(controls.Text1, Logic.Text1, [this] { Logic.Input_Typed(); });
    controls.Text1->setMinimumWidth(fontMetrics().averageCharWidth() * 55);
    Fields.Text(controls.Text3, Logic.Text3);
    Fields.Text(controls.Text4, Logic.Text4);
    for (QLineEdit* number : {controls.Text3, controls.Text4})
        number->setFixedWidth(fontMetrics().horizontalAdvance("8888888888") + 16);
    controls.fieldGrid->setColumnStretch(2, 1);
    Fields.Text(controls.Hint, Logic.Hint);
    controls.Hint->setMinimumHeight(fontMetrics().height());
    Fields.Command(controls.Command1, [this] { Logic.Command1(); });
    Fields.Command(controls.Command3, [this] { Renumber(); });
    Fields.Command(controls.Command4, [this] { Logic.Command4(); });
    Fields.Command(controls.Quit, [this] { Close_Me(); });
    for (QPushButton* button : {controls.Command1, controls.Command3, controls.Command4, controls.Quit})
        button->setAutoDefault(false);
    controls.Command3->setDefault(true);
    On_Enter(this, [this] { Return_Pressed(); });
    On_Escape(this, [this] { Close_Me(); });
}

void UpdateFldrForm::Renumber() {
    const auto told = [](std::int64_t done, std::int64_t all) {
        return tr("Trace %L1 of %L2").arg(done).arg(all);
    };
    Run_Long_Work(this, told, [this](const TraceProgress& progress) { Logic.Command3(progress); });
    Refresh();
}

void UpdateFldrForm::Return_Pressed() {
    if (Input->hasFocus() && Input->isModified()) {
        Input->setModified(false);
        Logic.Input_Typed();
    } else {
        Renumber();
    }
}

void UpdateFldrForm::Opened() {
    Refresh();
    if (auto* field = findChild<QLineEdit*>("Text3"); field != nullptr) {
        field->setFocus();
        field->selectAll();
    }
}

}  // namespace tarnvik
