#include "ui/forms/theoric_form.h"

#include <QButtonGroup>

#include "app/session.h"
#include "ui/forms/form_keys.h"
#include "ui_theoric_form.h"

namespace tarnvik {

TheoricForm::TheoricForm(Session& session, QtDisplay&) : Program(session) {
    Ui::TheoricForm controls;
    controls.setupUi(this);
    TheoricF& logic = session.Theoretic;
    const int width = fontMetrics().horizontalAdvance("88888.8") + 12;
    for (QLineEdit* edit : findChildren<QLineEdit*>())
        edit->setFixedWidth(width);
    Fields.Text(controls.Text1, logic.ShotLocation);
    Fields.Text(controls.Text2, logic.ShotDepth);
    Bind_Rows();
    auto* colours = new QButtonGroup(this);
    colours->addButton(controls.Option1, 0);
    colours->addButton(controls.Option2, 1);
    colours->addButton(controls.Option3, 2);
    Fields.Choice(colours, logic.LineType);
    Fields.Command(controls.TakeModel, [&logic] { logic.Take_Model(); });
    Fields.Enabled(controls.TakeModel, [&logic] { return logic.Shot_On_Hand() > 0; });
    Fields.Follow([&logic, button = controls.TakeModel] {
        button->setText(tr("Model of shot %1").arg(logic.Shot_On_Hand()));
    });
    Show_Units(controls);
    Fields.Command(controls.Command1, [this] { Close_Me(); });
    Fields.Command(controls.Command2, [&logic] { logic.Command2(); });
    Fields.Command(controls.Command3, [&logic] { logic.Command3(); });
    On_Enter(this, [&logic] { logic.Command2(); });
    On_Escape(this, [this] { Close_Me(); });
}

void TheoricForm::Bind_Rows() {
    TheoricF& logic = Program.Theoretic;
    const auto control = [this](const char* name, std::size_t row) {
        return findChild<QLineEdit*>(name + ("_" + QString::number(row)));
    };
    for (std::size_t row = 1; row <= Project::MaxLayers; ++row) {
        Fields.Text(control("Text3", row), logic.Velocity.at(row));
        Fields.Text(control("Text4", row), logic.Thickness.at(row), [&logic] { logic.Row_Changed(); });
        Fields.Result(control("Text5", row), logic.Depth.at(row));
    }
    // The deepest layer that there can be has no lower boundary.
    control("Text4", Project::MaxLayers)->setEnabled(false);
    control("Text5", Project::MaxLayers)->setEnabled(false);
}

void TheoricForm::Show_Units(const Ui::TheoricForm& controls) {
    Fields.Follow([this, controls] {
        const QString unit = Program.Work.Settings.Metric() ? "m" : "f";
        controls.Label1->setText(tr("Type here the shot location (%1) ").arg(unit));
        controls.HeadVelocity->setText(tr("Velocity (%1/s)").arg(unit));
        controls.HeadThickness->setText(tr("Thickness (%1)").arg(unit));
        controls.HeadDepth->setText(tr("Depth (%1)").arg(unit));
    });
}

void TheoricForm::Opened() {
    Program.Theoretic.Load();
    findChild<QLineEdit*>("Text1")->setFocus();
}

void TheoricForm::Closed() {
    Program.Theoretic.Close();
}

}  // namespace tarnvik
