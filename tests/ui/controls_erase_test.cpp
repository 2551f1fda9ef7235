// Each control of the time break correction, its keys and its wheel.

#include <QWheelEvent>

#include "control_table.h"

namespace tarnvik {
namespace {

class EraseControls : public Controls {
  protected:
    EraseControls() {
        Display.Select_Tab(Tab::Curves);
        Display.Show_Curves();
        Work.Velocity.CurrentShot = 3;
    }
    ~EraseControls() override { Logic.Drop_Shift(); }
    QWidget* Page() {
        return Display.Is_Open(Dialog::Erase_TT) ? Display.Open_Form(Dialog::Erase_TT)
                                                 : Open(Dialog::Erase_TT);
    }
    /// The button takes the shift from 5 ms to another one.
    std::function<void(QWidget*)> Steps_To(const std::string& shift) {
        return Clicked({[this] { Logic.Take_Shift(5); }, [this, shift] { return Logic.Shift == shift; }});
    }
    static void Turn(QWidget* on, int angle, Qt::KeyboardModifiers with) {
        const QPointF middle = on->rect().center();
        QWheelEvent wheel(middle, on->mapToGlobal(middle), {}, QPoint(0, angle), Qt::NoButton, with,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(on, &wheel);
    }
    Erase_TT& Logic = Program.TriggerFault;
};

TEST_F(EraseControls, of_the_time_break_correction_do_their_work) {
    const std::vector<Row> rows = {
        {"Combo1",
         [&](QWidget* control) {
             EXPECT_EQ(qobject_cast<QComboBox*>(control)->count(), 5);
             EXPECT_EQ(Text(control), "3");
             control->setFocus();
             QTest::keyClick(control, Qt::Key_Down);
             EXPECT_EQ(Logic.FixedShot, 4);
         }},
        {"Text1",
         [&](QWidget* control) {
             Type(control, "-1x.e5");
             EXPECT_EQ(Logic.Shift, "-1.5") << "letters are no part of a shift";
             EXPECT_EQ(Logic.TranslationShift, 0) << "not while it is typed";
             QTest::mouseDClick(control, Qt::LeftButton);
             EXPECT_EQ(Logic.TranslationShift, -1.5);
             QTest::keyClick(control, Qt::Key_Down);
             EXPECT_EQ(Text(control), "-1.25");
             QTest::keyClick(control, Qt::Key_PageUp);
             EXPECT_EQ(Text(control), "-3.25");
         }},
        {"Check1", Ticked(Logic.OnlySelected,
                          {[] {}, [&] { return (Work.Curves.ShotAlone == 4) == Logic.OnlySelected; }})},
        {"Command1", Steps_To("4.75")},
        {"Command2", Steps_To("5.25")},
        {"Command5", Steps_To("3")},
        {"Command6", Steps_To("7")},
        {"Command4", Clicked({[] {},
                              [&] {
                                  return Prompts.Said(Prompts.Last_Text()) &&
                                         Prompts.Last_Text().starts_with("TIME BREAK");
                              }})},
        {"Command3", Clicked({[&] { Prompts.Expect("Record the new First Break Time ?", Answer::Yes); },
                              [&] { return Logic.Shift == "0"; }})},
    };
    Check_All([this] { return Page(); }, rows);
    EXPECT_FALSE(Page()->findChild<QWidget*>("Command3")->isEnabled()) << "nothing is moved";
}

TEST_F(EraseControls, wheel_and_keys_step_the_curve) {
    QWidget* page = Page();
    Turn(page, 120, Qt::NoModifier);
    EXPECT_EQ(Logic.Shift, "-0.25");
    Turn(page, -240, Qt::ShiftModifier);
    EXPECT_EQ(Logic.Shift, "3.75");
    PictureBox* dromo = Box("Dromo");
    Turn(dromo, 120, Qt::AltModifier);
    EXPECT_EQ(Logic.Shift, "3.5");
    dromo->setFocus();
    QTest::keyClick(dromo, Qt::Key_Up);
    EXPECT_EQ(Logic.Shift, "3.25");
    Prompts.Expect("Save trace translation ?", Answer::No);
    page->findChild<QWidget*>("Text1")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(Display.Is_Open(Dialog::Erase_TT));
    Turn(dromo, 120, Qt::AltModifier);
    EXPECT_EQ(Logic.Shift, "3.25") << "the picture has its wheel again";
}

}  // namespace
}  // namespace tarnvik
