// Each control of the shot translation and of the theoretical travel times.

#include "control_table.h"

namespace tarnvik {
namespace {

class CurveToolControls : public Controls {
  protected:
    CurveToolControls() {
        Display.Select_Tab(Tab::Curves);
        Display.Show_Curves();
        QApplication::processEvents();
    }
    std::function<QWidget*()> Form_Of_Dialog(Dialog dialog) {
        return [this, dialog] { return Display.Is_Open(dialog) ? Display.Open_Form(dialog) : Open(dialog); };
    }
};

TEST_F(CurveToolControls, of_the_shot_translation_do_their_work) {
    const auto form = Form_Of_Dialog(Dialog::FantomF);
    FantomF& logic = Program.Phantom;
    const auto pair = [&](std::string& shot, int drawn) {
        return [&, drawn](QWidget* control) {
            EXPECT_EQ(qobject_cast<QComboBox*>(control)->count(), 5);
            Type(control, QString::number(drawn));
            QTest::keyClick(control, Qt::Key_Return);
            EXPECT_EQ(shot, std::to_string(drawn));
            EXPECT_TRUE(Prompts.Messages.empty()) << "Return finishes the shot and saves nothing";
        };
    };
    const auto slope = [&](int side) {
        return [&, side](QWidget* control) {
            logic.Slope = side == FantomF::slope_left ? FantomF::slope_right : FantomF::slope_left;
            Display.Show_Fields();
            auto* button = qobject_cast<QAbstractButton*>(control);
            EXPECT_FALSE(button->isChecked());
            Click(button);
            EXPECT_EQ(logic.Slope, side);
            EXPECT_EQ(Work.Velocity.ShotSide, side);
        };
    };
    form();
    EXPECT_FALSE(form()->findChild<QScrollBar*>("VScroll1")->isEnabled()) << "nothing to slide yet";
    const std::vector<Row> rows = {
        {"Combo1", pair(logic.FixedShot, 2)},
        {"Combo2", pair(logic.MovingShot, 1)},
        {"VScroll1",
         [&](QWidget* control) {
             auto* bar = qobject_cast<QScrollBar*>(control);
             EXPECT_EQ(bar->minimum(), -1000);
             EXPECT_EQ(bar->maximum(), 1500);
             QTest::keyClick(bar, Qt::Key_PageDown);
             QTest::keyClick(bar, Qt::Key_Down);
             EXPECT_EQ(logic.Curve().Shift, 5.2);
             EXPECT_EQ(Text(form()->findChild<QLabel*>("ShiftText")), "-5.2 ms");
             // With time 0 on top the curve still goes where the key points.
             Run_Command(Program, "Zerop");
             Display.Show_Fields();
             QTest::keyClick(bar, Qt::Key_Down);
             EXPECT_EQ(logic.Curve().Shift, 5);
             Run_Command(Program, "Zerop");
         }},
        {"Combo3",
         [&](QWidget* control) {
             EXPECT_EQ(qobject_cast<QComboBox*>(control)->count(), 4);
             QTest::keyClick(control, Qt::Key_Down);
             EXPECT_EQ(logic.InterceptNumber, "1");
         }},
        {"Text3", Typed(logic.InterceptTime, {[&] {
                                                  Work.Mode.Take(Dialog::SpeedF, DisplayMode::Vitesse);
                                                  form()->findChild<QWidget*>("Combo3")->setFocus();
                                              },
                                              [&] { return Work.Mode.Held_By(Dialog::FantomF); }})},
        {"Option1", slope(FantomF::slope_left)},
        {"Option2", slope(FantomF::slope_right)},
        {"Command2",
         [&](QWidget* control) {
             logic.InterceptTime = "35.9";
             Prompts.Expect_Start("Data for Shot number 2", Answer::Yes);
             Click(control);
             EXPECT_EQ(Line.InterceptB(2, 1), 35.9);
             EXPECT_NE(Read_File(Path)->find(" 359 "), std::string::npos);
         }},
        {"Command6",
         Clicked({[&] { Work.Curves.ShotAlone = 0; }, [&] { return Work.Curves.ShotAlone == 2; }})},
    };
    Check_All(form, rows);
    Work.Mode.Release(Dialog::SpeedF);
    QTest::keyClick(form(), Qt::Key_Escape);
    EXPECT_FALSE(Display.Is_Open(Dialog::FantomF));
    EXPECT_EQ(Work.Mode.Current(), DisplayMode::Dromo);
}

TEST_F(CurveToolControls, of_the_theoretical_times_do_their_work) {
    const auto form = Form_Of_Dialog(Dialog::Theoric_F);
    TheoricF& logic = Program.Theoretic;
    for (const int layer : {1, 2})
        Line.VelocityA(3, layer) = Line.VelocityB(3, layer) = static_cast<std::int16_t>(layer * 800);
    Work.Velocity.CurrentShot = 3;
    std::vector<Row> rows = {
        {"Text1", Typed(logic.ShotLocation)},
        {"Text2", Typed(logic.ShotDepth)},
        {"TakeModel", Clicked({[] {}, [&] { return logic.Velocity[2] == "1600"; }})},
        {"Command2", Clicked({[] {}, [&] { return logic.NbLayers == 2; }})},
        {"Command3", Clicked(Redraws("Dromo"))},
    };
    for (std::size_t row = 1; row <= Project::MaxLayers; ++row) {
        static const char* const names[][3] = {{"Text3_1", "Text4_1", "Text5_1"},
                                               {"Text3_2", "Text4_2", "Text5_2"},
                                               {"Text3_3", "Text4_3", "Text5_3"},
                                               {"Text3_4", "Text4_4", "Text5_4"},
                                               {"Text3_5", "Text4_5", "Text5_5"}};
        const auto& name = names[row - 1];
        rows.push_back({name[0], Typed(logic.Velocity.at(row))});
        if (row < Project::MaxLayers) {
            rows.push_back({name[1], Typed(logic.Thickness.at(row),
                                           {[] {}, [&logic, row] { return logic.Depth.at(row) != ""; }})});
            rows.push_back({name[2], Shown(logic.Depth.at(row))});
        } else {
            for (const char* none : {name[1], name[2]})
                rows.push_back({none, [](QWidget* control) { EXPECT_FALSE(control->isEnabled()); }});
        }
    }
    int type = 0;
    for (const char* name : {"Option1", "Option2", "Option3"}) {
        rows.push_back({name, [&logic, type](QWidget* control) {
                            Click(control);
                            EXPECT_EQ(logic.LineType, type);
                        }});
        ++type;
    }
    rows.push_back({"Command1", Clicked({[] {}, [&] { return !Display.Is_Open(Dialog::Theoric_F); }})});
    Check_All(form, rows);
    Work.Settings.Units = "feet";
    form();
    EXPECT_EQ(Text(form()->findChild<QLabel*>("HeadVelocity")), "Velocity (f/s)");
    Display.Show_Fields();
    QTest::keyClick(form(), Qt::Key_Escape);
    EXPECT_FALSE(Display.Is_Open(Dialog::Theoric_F));
}

}  // namespace
}  // namespace tarnvik
