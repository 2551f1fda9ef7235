// Each control of the delay times and of the ABC grid.

#include <QRadioButton>

#include "control_table.h"
#include "ui/spreadsheet_view.h"
#include "ui/text_grid_model.h"

namespace tarnvik {
namespace {

class DelayControls : public Controls {
  protected:
    DelayControls() {
        Display.Select_Tab(Tab::Curves);
        Display.Show_Curves();
        QApplication::processEvents();
    }
    std::function<QWidget*()> Form_Of_Dialog(Dialog dialog) {
        return [this, dialog] { return Display.Is_Open(dialog) ? Display.Open_Form(dialog) : Open(dialog); };
    }
};

TEST_F(DelayControls, of_the_delay_times_do_their_work) {
    const auto form = Form_Of_Dialog(Dialog::DelayF);
    DelayF& logic = Program.Delay;
    constexpr const char* bedrock =
        "Do you want to use the First Breaks of the End Shot instead of FB of the offset shot for the bedrock "
        "portion ?";
    constexpr const char* save = "Do you want to save the Delay times";
    constexpr const char* depths = "Compute thickness below all reveivers";
    const auto shot = [&](std::string& field, const char* usual) {
        return [&field, usual, this](QWidget* control) {
            EXPECT_EQ(qobject_cast<QComboBox*>(control)->count(), 5);
            EXPECT_EQ(field, usual);
            Type(control, "3");
            EXPECT_EQ(field, "3");
            Type(control, usual);
        };
    };
    const auto bar = [&](DelayF::Handle what, int up_by) {
        return [&logic, what, up_by](QWidget* control) {
            EXPECT_EQ(qobject_cast<QScrollBar*>(control)->minimum(), -100);
            EXPECT_EQ(qobject_cast<QScrollBar*>(control)->maximum(), 250);
            const int before = logic.Bar_Of(what).Value;
            QTest::keyClick(control, Qt::Key_Up);
            QTest::keyClick(control, Qt::Key_PageUp);
            EXPECT_EQ(logic.Bar_Of(what).Value, before + 11 * up_by) << "up on the picture";
        };
    };
    Check_All(form, {
                        {"Text1", shot(logic.FixedLeft, "2")},
                        {"Text2", shot(logic.FixedRight, "4")},
                        {"Text3", shot(logic.MovingLeft, "1")},
                        {"Text4", shot(logic.MovingRight, "5")},
                        {"VScroll1", bar(DelayF::Handle::LeftCurve, -1)},
                        {"VScroll2", bar(DelayF::Handle::RightCurve, -1)},
                        {"VScroll3", bar(DelayF::Handle::TotalLine, 1)},
                        {"Command3", [](QWidget* control) { EXPECT_FALSE(control->isEnabled()); }},
                        {"Command4", [](QWidget* control) { EXPECT_FALSE(control->isEnabled()); }},
                        {"Command2",
                         [&](QWidget* control) {
                             Prompts.Expect(bedrock, Answer::No);
                             Prompts.Expect(save, Answer::Yes);
                             Prompts.Expect(depths, Answer::No);
                             Click(control);
                             EXPECT_EQ(logic.Found().size(), 25U);
                             const auto before = Read_File(Path);
                             Prompts.Expect(depths, Answer::No);
                             Click(form()->findChild<QWidget*>("Command3"));
                             EXPECT_NE(Read_File(Path), before) << "a save raises the total time";
                             Prompts.Expect(depths, Answer::Yes);
                             Click(form()->findChild<QWidget*>("Command4"));
                             EXPECT_TRUE(Display.Is_Open(Dialog::ABCGridF));
                             Display.Close_Dialog(Dialog::ABCGridF);
                         }},
                        {"Command5",
                         [&](QWidget* control) {
                             Click(control);
                             EXPECT_TRUE(logic.Found().empty());
                         }},
                        {"Command6",
                         [&](QWidget* control) {
                             Click(control);
                             EXPECT_TRUE(Prompts.Last_Text().starts_with("How to use ABC module ?"));
                         }},
                        {"Quit",
                         [&](QWidget* control) {
                             Click(control);
                             EXPECT_FALSE(Display.Is_Open(Dialog::DelayF));
                         }},
                    });
    Open(Dialog::DelayF);
    QTest::keyClick(form()->findChild<QWidget*>("VScroll1"), Qt::Key_Escape);
    EXPECT_FALSE(Display.Is_Open(Dialog::DelayF));
}

TEST_F(DelayControls, of_the_abc_grid_do_their_work) {
    const auto form = Form_Of_Dialog(Dialog::ABCGridF);
    ABCGridF& logic = Program.Abc;
    for (int receiver = 1; receiver <= 24; ++receiver)
        Line.ReceiverData(ReceiverIntercept, receiver) = 20;
    for (int shot = 2; shot <= 4; ++shot) {
        Line.VelocityA(shot, 1) = 500;
        Line.VelocityA(shot, 2) = 2000;
    }
    const auto option = [&](std::int16_t value) {
        return [&logic, value](QWidget* control) {
            qobject_cast<QRadioButton*>(control)->click();
            EXPECT_EQ(logic.AbcOption, value);
        };
    };
    const auto tried = [&](const char* message) {
        return [this, message](QWidget* control) {
            auto* grid = qobject_cast<SpreadsheetView*>(control);
            const QModelIndex cell = grid->Cells().index(1, 1);
            grid->setCurrentIndex(cell);
            const QPoint at = grid->visualRect(cell).center();
            QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, at);
            QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, at);
            EXPECT_EQ(Prompts.Last_Text(), message);
        };
    };
    Check_All(form, {
                        {"ABCGrid", tried("No change possible here")},
                        {"ABCGrid2", tried("For shot corrections, use CALCUL module")},
                        {"Option1", option(ABCGridF::grid_values)},
                        {"Option2", option(ABCGridF::interpolation)},
                        {"Text23", Typed(Work.Fields.Text23)},
                        {"Text2",
                         [&](QWidget* control) {
                             Type(control, "a2");
                             EXPECT_EQ(logic.Layers, "2") << "digits alone";
                         }},
                        {"Command1",
                         [&](QWidget* control) {
                             Click(control);
                             EXPECT_TRUE(Prompts.Last_Text().ends_with("REDPATH 1973"));
                         }},
                        {"SaveBt",
                         [&](QWidget* control) {
                             Line.ReceiverData(ReceiverIntercept, 3) = 21;
                             const auto before = Read_File(Path);
                             Click(control);
                             EXPECT_NE(Read_File(Path), before);
                         }},
                        {"Quit",
                         [&](QWidget* control) {
                             Click(control);
                             EXPECT_FALSE(Display.Is_Open(Dialog::ABCGridF));
                         }},
                        {"CalculBt",
                         [&](QWidget* control) {
                             Click(control);
                             EXPECT_FALSE(Display.Is_Open(Dialog::ABCGridF));
                             EXPECT_GT(Line.ReceiverData(ReceiverRockDepth, 5), 0);
                             EXPECT_EQ(Work.Mode.On_Display(), DisplayMode::Profil2);
                             EXPECT_FALSE(Screen->findChild<QLabel*>("DepthLabel")->isHidden());
                         }},
                    });
}

}  // namespace
}  // namespace tarnvik
