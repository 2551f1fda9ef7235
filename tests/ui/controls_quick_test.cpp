// The quick interpretation in the window: each control of its form, and the hand that drags a limit.

#include <QRadioButton>
#include <QTableView>

#include "control_table.h"

namespace tarnvik {
namespace {

class QuickControls : public Controls {
  protected:
    QuickControls() {
        Work.Velocity.CurrentShot = 3;
        Run_Command(Program, "quick");
        QApplication::processEvents();
    }
    std::function<QWidget*()> Page() {
        return [this] { return Display.Open_Form(Dialog::quick_interpret); };
    }
    QPoint Pixel(double x) {
        const PictureBox* box = Box("Dromo");
        const Frame frame = const_cast<PictureBox*>(box)->Canvas().Current_Frame();
        return (const_cast<PictureBox*>(box)->Canvas().Window().topLeft() +
                QPointF(frame.To_Pixel_X(x), frame.To_Pixel_Y(50)))
            .toPoint();
    }
    QuickInterpret& Logic = Program.Quick;
};

TEST_F(QuickControls, of_the_quick_interpretation_do_their_work) {
    const auto cell = [this](int row, int column) { return Logic.Grid1.Text(row, column); };
    const auto side = [&](int id, int from, int to) {
        return [&, id, from, to](QWidget* control) {
            Logic.Quick_Regression();
            EXPECT_NE(cell(2, from), cell(2, to));
            Click(control);
            EXPECT_EQ(Logic.SideChoice, id);
            EXPECT_EQ(cell(2, from), cell(2, to));
        };
    };
    const std::vector<Row> rows = {
        {"Combo1",
         [&](QWidget* control) {
             EXPECT_EQ(Text(control), "3");
             EXPECT_EQ(qobject_cast<QComboBox*>(control)->count(), 5);
             const Effect alone = Redraws("Dromo");
             alone.Before();
             QTest::keyClick(control, Qt::Key_Down);
             EXPECT_EQ(Logic.Shot, "4");
             EXPECT_EQ(Work.Curves.ShotAlone, 4);
             EXPECT_TRUE(alone.Done());
             QTest::keyClick(control, Qt::Key_Up);
         }},
        {"Combo2",
         [&](QWidget* control) {
             QTest::keyClick(control, Qt::Key_Down);
             EXPECT_EQ(Logic.Layers(), 3);
             EXPECT_NEAR(Logic.Limits[2][2], 80, 0.1);
             EXPECT_EQ(Page()()->findChild<QTableView*>("Grid1")->model()->rowCount(), 4);
         }},
        {"Text1",
         [&](QWidget* control) {
             const double thickness = Logic.Grid1.Value(1, QuickInterpret::Thickness);
             Type(control, "2");
             QTest::keyClick(control, Qt::Key_Return);
             EXPECT_NEAR(Logic.Grid1.Value(1, QuickInterpret::Thickness), thickness + 1, 0.11);
         }},
        {"Text2", Typed(Logic.FirstGeophone)},
        {"Text3", Typed(Logic.LastGeophone)},
        {"Option1", side(QuickInterpret::Left, 1, 3)},
        {"Option2", side(QuickInterpret::Right, 3, 1)},
        {"Option3",
         [&](QWidget* control) {
             Click(control);
             EXPECT_NE(cell(2, 1), cell(2, 3));
         }},
        {"Grid1",
         [&](QWidget* control) {
             auto* grid = qobject_cast<QTableView*>(control);
             grid->setCurrentIndex(grid->model()->index(1, 1));
             grid->setFocus();
             const std::string thickness = cell(1, QuickInterpret::Thickness);
             QTest::keyClicks(grid, "7");
             QWidget* editor = QApplication::focusWidget();
             QTest::keyClicks(editor, "00");
             QTest::keyClick(editor, Qt::Key_Return);
             EXPECT_EQ(cell(1, 1), "700") << "Return ends the edit, whatever else it means in the form";
             EXPECT_EQ(grid->currentIndex().row(), 2);
             EXPECT_NE(cell(1, QuickInterpret::Thickness), thickness) << "the depths follow at once";
             const auto flags = grid->model()->flags(grid->model()->index(1, QuickInterpret::Thickness));
             EXPECT_FALSE(flags.testFlag(Qt::ItemIsEditable));
         }},
        {"Command2", Clicked({[&] { Logic.Grid1.Set_Text(1, QuickInterpret::Thickness, "?"); },
                              [&] { return cell(1, QuickInterpret::Thickness) != "?"; }})},
        {"Command3", Clicked({[&] { Prompts.Messages.clear(); },
                              [&] {
                                  return Prompts.Messages.size() == 1 &&
                                         Prompts.Messages[0].Title == "QUICK INTREPRETATION info";
                              }})},
        {"Command4", Clicked({[&] { Display.Close_Dialog(Dialog::resu); },
                              [&] { return Display.Is_Open(Dialog::resu); }})},
        {"Command1", Clicked({[] {}, [&] { return Line.VelocityA(3, 1) == 700 && Work.Edits.Is_Saved(); }})},
    };
    Check_All(Page(), rows);
    Run_Command(Program, "Undo_M");
    EXPECT_EQ(Line.VelocityA(3, 1), 0);
    Logic.Labels = {};
    Work.Velocity.QuickStatus = "told";
    Display.Show_Fields();
    Display.Close_Dialog(Dialog::resu);
    QApplication::setActiveWindow(Screen.get());
    EXPECT_EQ(Text(Page()()->findChild<QLabel*>("Status")), "told");
    QTest::keyClick(Page()(), Qt::Key_Escape);
    EXPECT_FALSE(Display.Is_Open(Dialog::quick_interpret));
}

TEST_F(QuickControls, the_mouse_carries_a_limit_with_either_button_and_a_pick_moves_the_model) {
    PictureBox* box = Box("Dromo");
    double at = 72;  // two layers: 24 and 72
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        const std::string before = Logic.Grid1.Text(2, QuickInterpret::VelocityRight);
        QTest::mousePress(box, button, {}, Pixel(at));
        ASSERT_TRUE(Logic.Limit_Caught());
        at -= 8;
        QMouseEvent move(QEvent::MouseMove, Pixel(at), box->mapToGlobal(Pixel(at)), Qt::NoButton, button, {});
        QApplication::sendEvent(box, &move);
        EXPECT_NE(Logic.Grid1.Text(2, QuickInterpret::VelocityRight), before) << "follows before the release";
        QTest::mouseRelease(box, button, {}, Pixel(at));
        EXPECT_EQ(Logic.Limits[2][1], at);
    }
    const std::string before = Logic.Grid1.Text(2, QuickInterpret::VelocityRight);
    {
        const EditScope edit(Work, "Pick");
        Line.ShotTimes(3, 24) += 9;
    }
    EXPECT_NE(Logic.Grid1.Text(2, QuickInterpret::VelocityRight), before);
}

}  // namespace
}  // namespace tarnvik
