#include "ui/forms/delay_form.h"

#include "app/session.h"
#include "core/text/number.h"
#include "ui/forms/form_keys.h"
#include "ui_delay_form.h"

namespace tarnvik {

using Handle = DelayF::Handle;

DelayForm::DelayForm(Session& session, QtDisplay&) : Program(session) {
    Ui::DelayForm controls;
    controls.setupUi(this);
    DelayF& logic = session.Delay;
    LeftBar = controls.VScroll1;
    Bind_Shots(controls);
    Bind_Bars(controls);
    Fields.Command(controls.Command2, [&logic] { logic.Command2(); });
    Fields.Command(controls.Command3, [&logic] { logic.Command3(); });
    Fields.Command(controls.Command4, [&logic] { logic.Command4(); });
    Fields.Command(controls.Command5, [&logic] { logic.Command5(); });
    Fields.Command(controls.Command6, [&logic] { logic.Command6(); });
    Fields.Command(controls.Quit, [this] { Close_Me(); });
    Fields.Enabled(controls.Command3, [&logic] { return logic.SaveEnabled; });
    Fields.Enabled(controls.Command4, [&logic] { return logic.DepthEnabled; });
    On_Enter(this, [&logic] { logic.Command2(); });
    On_Escape(this, [this] { Close_Me(); });
}

void DelayForm::Bind_Shots(const Ui::DelayForm& controls) {
    DelayF& logic = Program.Delay;
    const struct {
        QComboBox* Box;
        std::string& Field;
    } shots[] = {{controls.Text1, logic.FixedLeft},
                 {controls.Text2, logic.FixedRight},
                 {controls.Text3, logic.MovingLeft},
                 {controls.Text4, logic.MovingRight}};
    const int width = fontMetrics().horizontalAdvance("88888") + 24;
    for (const auto& [box, field] : shots) {
        box->setMinimumWidth(width);
        Fields.Entries(box, logic.ShotEntries);
        Fields.Text(box, field, [&logic] { logic.Shots_Changed(); });
    }
    QPalette red = controls.Hint->palette();
    red.setColor(QPalette::WindowText, QColor(0xd0, 0x20, 0x20));
    controls.Hint->setPalette(red);
    Fields.Text(controls.Hint, logic.Hint);
    Fields.Shown(controls.Hint, [&logic] { return !logic.Hint.empty(); });
}

void DelayForm::Bind_Bars(const Ui::DelayForm& controls) {
    DelayF& logic = Program.Delay;
    constexpr int small_step = 1;
    constexpr int large_step = 10;
    const struct {
        QScrollBar* Bar;
        Handle What;
        QLabel* Value;
    } bars[] = {{controls.VScroll1, Handle::LeftCurve, controls.LeftShift},
                {controls.VScroll2, Handle::RightCurve, controls.RightShift},
                {controls.VScroll3, Handle::TotalLine, controls.TotalTime}};
    for (const auto& [bar, what, value] : bars) {
        Fields.Scroll(bar, logic.Bar_Of(what), [this, &logic, what = what] {
            logic.Move(what, logic.Bar_Of(what).Value);
            Fields.Refresh();
        });
        bar->setSingleStep(small_step);
        bar->setPageStep(large_step);
        Fields.Follow([this, &logic, bar = bar, what = what, value = value] {
            // The thumb goes the way of what it moves: a shift is taken off the times, the line goes up with
            // its value.
            const bool up = (what == Handle::TotalLine) != Program.Work.Curves.ZeroOnTop;
            bar->setInvertedAppearance(up);
            bar->setInvertedControls(!up);
            const double shift = -logic.Curve_Of(what).Shift * Program.Work.Curves.TimeFactor;
            value->setText(QString::fromStdString(
                (what == Handle::TotalLine ? logic.TotalTimeText : CStr(shift)) + " ms"));
        });
    }
}

void DelayForm::Opened() {
    LeftBar->setFocus();
    Program.Delay.Load();
}

void DelayForm::Closed() {
    Program.Delay.Close();
}

}  // namespace tarnvik
