// Each control of true velocity, hand-drawn velocity, velocity line and dip.

#include "control_table.h"
#include "core/text/number.h"

namespace tarnvik {
namespace {

class SpeedControls : public Controls {
  protected:
    SpeedControls() {
        Work.Velocity.CurrentShot = 3;
        Display.Select_Tab(Tab::Curves);
        Display.Show_Curves();
        QApplication::processEvents();
    }
    std::function<QWidget*()> Form_Of_Dialog(Dialog dialog) {
        return [this, dialog] { return Display.Is_Open(dialog) ? Display.Open_Form(dialog) : Open(dialog); };
    }
    Effect Closes(Dialog dialog) {
        return {
            [] {},
            [this, dialog] { return !Display.Is_Open(dialog) && Work.Mode.Current() == DisplayMode::Dromo; }};
    }
    /// A place of the curves' picture, pressed or dragged along with the left button.
    void Press_Curves(double x, double y) {
        QTest::mousePress(Box("Dromo"), Qt::LeftButton, {}, Pixel(x, y));
    }
    QPoint Pixel(double x, double y) {
        const Frame frame = Box("Dromo")->Canvas().Current_Frame();
        return (Box("Dromo")->Canvas().Window().topLeft() + QPointF(frame.To_Pixel_X(x), frame.To_Pixel_Y(y)))
            .toPoint();
    }
};

TEST_F(SpeedControls, of_the_true_velocity_do_their_work) {
    const auto form = Form_Of_Dialog(Dialog::SpeedF2);
    SpeedF2& logic = Program.TrueSpeed;
    const auto receiver_box = [&](std::string& field, SpeedF2::ReceiverBox box, const char* mark) {
        return [&, box, mark](QWidget* control) {
            form()->setFocus();
            Typed(field)(control);
            EXPECT_EQ(logic.LastEntered, box);
            EXPECT_FALSE(form()->findChild<QLabel*>(mark)->isHidden());
            Press_Curves(48, 5);
            QTest::mouseRelease(Box("Dromo"), Qt::LeftButton, {}, Pixel(48, 5));
            EXPECT_EQ(field, "12") << "a click on the picture";
        };
    };
    const auto eliminated = [&](std::size_t place) {
        return [&, place](QWidget* control) {
            logic.Eliminate = false;
            Display.Show_Fields();
            EXPECT_TRUE(control->isHidden());
            logic.Eliminate = true;
            Display.Show_Fields();
            Typed(logic.Eliminated.at(place))(control);
            logic.Eliminated.at(place).clear();
        };
    };
    const Effect computes{[&] {
                              logic.FirstShot = "2";
                              logic.LastShot = "4";
                              logic.FirstReceiver = "8";
                              logic.LastReceiver = "17";
                              logic.Velocity.clear();
                              Display.Show_Fields();
                          },
                          [&] { return Val(logic.Velocity) > 1000; }};
    Check_All(form, {
                        {"Combo1", Typed(logic.FirstShot)},
                        {"Combo2", Typed(logic.LastShot)},
                        {"Combo3", receiver_box(logic.FirstReceiver, SpeedF2::ReceiverBox::First, "From")},
                        {"Combo4", receiver_box(logic.LastReceiver, SpeedF2::ReceiverBox::Last, "To")},
                        {"Check1", Ticked(logic.Eliminate)},
                        {"Text6", eliminated(0)},
                        {"Text10", eliminated(1)},
                        {"Text11", eliminated(2)},
                        {"Text12", eliminated(3)},
                        {"Text13", eliminated(4)},
                        {"Text1", Shown(logic.Velocity)},
                        {"Picture2", Shown(logic.Correlation)},
                        {"Combo5",
                         [&](QWidget* control) {
                             EXPECT_EQ(Text(control), "2");
                             QTest::keyClick(control, Qt::Key_Down);
                             EXPECT_EQ(logic.Layer, "3");
                         }},
                        {"Text7", Typed(logic.RecordFrom)},
                        {"Text8", Typed(logic.RecordTo)},
                        {"Command2", Clicked(computes)},
                        {"Command3", Clicked({[&] {
                                                  logic.RecordFrom = "1";
                                                  logic.RecordTo = "5";
                                              },
                                              [&] { return Line.VelocityB(4, 3) > 1000; }})},
                        {"Quit", Clicked(Closes(Dialog::SpeedF2))},
                    });
    EXPECT_EQ(Line.VelocityA(1, 3), 0) << "an offset shot";
    QWidget* last = form()->findChild<QWidget*>("Combo4");
    computes.Before();
    QTest::keyClick(last, Qt::Key_Return);
    EXPECT_TRUE(computes.Done());
    QTest::keyClick(last, Qt::Key_Escape);
    EXPECT_FALSE(Display.Is_Open(Dialog::SpeedF2));
}

TEST_F(SpeedControls, of_the_hand_drawn_velocity_do_their_work) {
    const auto form = Form_Of_Dialog(Dialog::SpeedF3);
    SpeedF3& logic = Program.HandSpeed;
    Check_All(form, {
                        {"Combo2", Typed(logic.Shot)},
                        {"Combo1",
                         [&](QWidget* control) {
                             EXPECT_EQ(qobject_cast<QComboBox*>(control)->count(), 5);
                             Typed(logic.Layer)(control);
                         }},
                        {"Text2", Typed(logic.Velocity)},
                        {"Text4", Typed(logic.Intercept)},
                        {"Command1",
                         Clicked({[&] {
                                      logic.Shot = "3";
                                      logic.Layer = "2";
                                      Press_Curves(60, 40);
                                      QTest::mouseMove(Box("Dromo"), Pixel(90, 60));
                                      QTest::mouseRelease(Box("Dromo"), Qt::LeftButton, {}, Pixel(90, 60));
                                      logic.Velocity = "1234";
                                      Prompts.Expect_Start("Data for Shot number 3\r\n", Answer::Yes);
                                  },
                                  [&] { return Line.VelocityB(3, 2) == 1234; }})},
                        {"Quit", Clicked(Closes(Dialog::SpeedF3))},
                    });
}

TEST_F(SpeedControls, of_the_velocity_line_and_the_dip_do_their_work) {
    const auto ruler = Form_Of_Dialog(Dialog::vELINE);
    VelocityLine& line = Program.RulerVelocities;
    Check_All(ruler,
              {
                  {"Text1", Typed(line.Velocity1)},
                  {"Text2", Typed(line.Velocity2)},
                  {"Text3", Typed(line.Dip)},
                  {"Text4", Typed(line.DownDip, {[] {}, [&] { return Work.Curves.CrossVelocity1 == 1.5; }})},
                  {"Text5", Typed(line.UpDip, {[] {}, [&] { return Work.Curves.CrossVelocity2 == 1.5; }})},
                  {"compute_dip", Clicked({[&] {
                                               line.Velocity1 = "500";
                                               line.Velocity2 = "2000";
                                               line.Dip = "0";
                                           },
                                           [&] { return line.UpDip == "2000"; }})},
                  {"Quit", Clicked({[&] {
                                        QTest::mouseMove(Box("Dromo"), Pixel(40, 40));
                                        EXPECT_TRUE(Work.Curves.Cross.Stands);
                                    },
                                    [&] {
                                        return !Display.Is_Open(Dialog::vELINE) && !Work.Curves.RulerShown &&
                                               !Work.Curves.Cross.Stands;
                                    }})},
              });
    Run_Command(Program, "v_r");
    EXPECT_TRUE(Display.Is_Open(Dialog::vELINE));
    Run_Command(Program, "ruler");
    EXPECT_FALSE(Display.Is_Open(Dialog::vELINE) || Work.Curves.RulerShown);

    const auto form = Form_Of_Dialog(Dialog::dip);
    DipComputation& logic = Program.Dip;
    Check_All(form, {
                        {"Text1", Typed(logic.Velocity1)},
                        {"Text2", Typed(logic.UpDip)},
                        {"Text3", Typed(logic.DownDip)},
                        {"Text4", Shown(logic.Dip)},
                        {"Calcul_dip", Clicked({[&] {
                                                    logic.Velocity1 = "500";
                                                    logic.UpDip = "2600";
                                                    logic.DownDip = "1400";
                                                },
                                                [&] { return logic.Dip == "-5"; }})},
                        {"Quit", Clicked(Closes(Dialog::dip))},
                    });
}

}  // namespace
}  // namespace tarnvik
