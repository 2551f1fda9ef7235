#include "ui/forms/erase_form.h"

#include <QKeyEvent>
#include <QRegularExpressionValidator>
#include <QWheelEvent>
#include <cstdlib>

#include "app/session.h"
#include "ui/forms/form_keys.h"
#include "ui/qt_display.h"
#include "ui_erase_form.h"

namespace tarnvik {

EraseForm::EraseForm(Session& session, QtDisplay& display)
    : Program(session), Picture(display.Box_Of(Canvas::Dromo)) {
    Ui::EraseForm controls;
    controls.setupUi(this);
    Erase_TT& logic = session.TriggerFault;
    ShiftBox = controls.Text1;
    ShiftBox->setValidator(new QRegularExpressionValidator(QRegularExpression("[-.0-9]*"), ShiftBox));
    const int width = fontMetrics().horizontalAdvance("-8888.888") + 24;
    controls.Text1->setFixedWidth(width);
    controls.Combo1->setFixedWidth(width);
    controls.curveGrid->setColumnStretch(0, 1);

    Fields.Entries(controls.Combo1, logic.ShotEntries);
    Fields.Finished_Text(controls.Combo1, logic.Shot, [&logic] { logic.Shot_Changed(); });
    Fields.Finished_Text(controls.Text1, logic.Shift, [&logic] { logic.Move_TT(); });
    Fields.Tick(controls.Check1, logic.OnlySelected, [&logic] { logic.Check1_Clicked(); });
    Fields.Command(controls.Command1, [&logic] { logic.Command1(); });
    Fields.Command(controls.Command2, [&logic] { logic.Command2(); });
    Fields.Command(controls.Command3, [&logic] { logic.Command3(); });
    Fields.Command(controls.Command4, [&logic] { logic.Command4(); });
    Fields.Command(controls.Command5, [&logic] { logic.Command5(); });
    Fields.Command(controls.Command6, [&logic] { logic.Command6(); });
    Fields.Enabled(controls.Command3, [&logic] { return logic.Save_Enabled(); });
    Fields.Follow(
        [&logic, label = controls.Samples] { label->setText(QString::fromStdString(logic.Samples_Text())); });

    // A list takes the keys for itself, and a button would hand the focus on.
    for (QWidget* control : std::initializer_list<QWidget*>{
             controls.Text1, controls.Check1, controls.Command1, controls.Command2, controls.Command3,
             controls.Command4, controls.Command5, controls.Command6}) {
        control->installEventFilter(this);
    }
    if (Picture != nullptr) Picture->installEventFilter(this);
    On_Enter(this, [&logic] { logic.Move_TT(); });
    On_Ctrl_Enter(this, [&logic] { logic.Command3(); });
    On_Escape(this, [this] { Close_Me(); });
}

void EraseForm::Opened() {
    Program.TriggerFault.Load();
    ShiftBox->setFocus();
    ShiftBox->selectAll();
}

void EraseForm::Closed() {
    Program.TriggerFault.Close();
}

bool EraseForm::Step_By_Key(const QKeyEvent& event) {
    const int key = event.key();
    const bool up = key == Qt::Key_Up || key == Qt::Key_PageUp;
    if (!up && key != Qt::Key_Down && key != Qt::Key_PageDown) return false;
    if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
    Program.TriggerFault.Step_On_Screen(up, key == Qt::Key_PageUp || key == Qt::Key_PageDown);
    return true;
}

void EraseForm::Step_By_Wheel(const QWheelEvent& event) {
    constexpr int whole_step = 120;
    const QPoint turned = event.angleDelta();
    // With Alt, and on some desktops with Shift, the wheel counts as turned sideways.
    Turned += turned.y() != 0 ? turned.y() : turned.x();
    const bool quick = event.modifiers().testFlag(Qt::ShiftModifier);
    for (; std::abs(Turned) >= whole_step; Turned -= Turned > 0 ? whole_step : -whole_step)
        Program.TriggerFault.Step_On_Screen(Turned > 0, quick);
}

void EraseForm::wheelEvent(QWheelEvent* event) {
    Step_By_Wheel(*event);
    event->accept();
}

bool EraseForm::eventFilter(QObject* watched, QEvent* event) {
    if (watched == Picture) {
        auto* wheel = event->type() == QEvent::Wheel ? static_cast<QWheelEvent*>(event) : nullptr;
        const bool mine = wheel != nullptr && wheel->modifiers().testFlag(Qt::AltModifier) &&
                          Program.Work.Mode.Held_By(Dialog::Erase_TT);
        if (mine) Step_By_Wheel(*wheel);
        return mine;
    }
    if (event->type() == QEvent::KeyPress && Step_By_Key(*static_cast<QKeyEvent*>(event))) return true;
    if (event->type() == QEvent::MouseButtonDblClick && watched == ShiftBox) Program.TriggerFault.Move_TT();
    return Form::eventFilter(watched, event);
}

}  // namespace tarnvik
