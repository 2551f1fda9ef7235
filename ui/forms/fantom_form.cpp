#include "ui/forms/fantom_form.h"

#include <QButtonGroup>

#include "app/session.h"
#include "ui/forms/form_keys.h"
#include "ui/forms/receiver_boxes.h"
#include "ui_fantom_form.h"

namespace tarnvik {

FantomForm::FantomForm(Session& session, QtDisplay&) : Program(session) {
    Ui::FantomForm controls;
    controls.setupUi(this);
    FantomF& logic = session.Phantom;
    FixedBox = controls.Combo1;
    MovingBox = controls.Combo2;
    Slider = controls.VScroll1;
    Pair_Box(FixedBox, logic.FixedShot);
    Pair_Box(MovingBox, logic.MovingShot);

    Slider->setPageStep(50);
    Slider->setSingleStep(2);
    Fields.Scroll(Slider, logic.VScroll1, [&logic] { logic.VScroll1_Changed(); });
    // A pair that is not named yet has nothing to slide.
    Fields.Enabled(Slider, [&logic] { return !logic.FixedShot.empty() && !logic.MovingShot.empty(); });
    Fields.Follow([this] {
        // The curve goes where the bar goes, whichever end of the time is on top.
        const bool time_down = Program.Work.Curves.ZeroOnTop;
        Slider->setInvertedAppearance(time_down);
        Slider->setInvertedControls(!time_down);
    });
    Fields.Text(controls.ShiftText, logic.ShiftText);

    Fields.Entries(controls.Combo3, logic.NumberEntries);
    Fields.Text(controls.Combo3, logic.InterceptNumber);
    Fields.Text(controls.Text3, logic.InterceptTime);
    Fields.On_Focus(controls.Text3, [this, &logic] {
        logic.Take_Picture();
        Fields.Refresh();
    });
    Keep_Room(controls.Click);
    Fields.Shown(controls.Click, [this] { return Program.Work.Mode.Held_By(Dialog::FantomF); });

    auto* slopes = new QButtonGroup(this);
    slopes->addButton(controls.Option1, FantomF::slope_left);
    slopes->addButton(controls.Option2, FantomF::slope_right);
    Fields.Choice(slopes, logic.Slope, [&logic] { logic.Slope_Changed(); });
    Fields.Follow([this, last = controls.Option2] {
        last->setText(tr("from receiver %1 (side B)").arg(Program.Work.Project.NbReceivers));
    });

    Fields.Command(controls.Command2, [&logic] { logic.Command2(); });
    Fields.Command(controls.Command6, [&logic] { logic.Command6(); });
    const int width = fontMetrics().horizontalAdvance("8888888.8") + 24;
    for (QWidget* box : std::initializer_list<QWidget*>{FixedBox, MovingBox, controls.Combo3, controls.Text3})
        box->setFixedWidth(width);
    controls.pairGrid->setColumnStretch(2, 1);
    controls.interceptGrid->setColumnStretch(2, 1);
    const int captions = controls.Label3->sizeHint().width();
    controls.Label1->setMinimumWidth(captions);
    On_Enter(this, [this, &logic] {
        // A shot that is being typed is finished; anywhere else what was read is saved.
        for (QComboBox* box : {FixedBox, MovingBox}) {
            if (!box->hasFocus() && !box->lineEdit()->hasFocus()) continue;
            box->lineEdit()->setModified(false);
            return logic.Pair_Changed();
        }
        logic.Command2();
    });
    On_Escape(this, [this] { Close_Me(); });
}

void FantomForm::Pair_Box(QComboBox* box, std::string& shot) {
    FantomF& logic = Program.Phantom;
    Fields.Entries(box, logic.ShotEntries);
    Fields.Finished_Text(box, shot, [&logic] { logic.Pair_Changed(); });
}

void FantomForm::Opened() {
    Program.Phantom.Load();
    (FixedBox->currentText().isEmpty() ? FixedBox : MovingBox)->setFocus();
}

void FantomForm::Called() {
    // The curve goes on sliding by the keys after the picture served the dialog.
    if (Slider->isEnabled()) Slider->setFocus();
}

void FantomForm::Closed() {
    Program.Phantom.Close();
}

}  // namespace tarnvik
