// The seismic profile in the window: what the user does beside it only paints.

#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

#include "app/commands.h"
#include "core/edits/project_block.h"
#include "ui/window_fixture.h"

namespace tarnvik {

namespace {

using Profile_pane = Window;

void Turn_Wheel(PictureBox* box, Qt::KeyboardModifiers modifiers) {
    QWheelEvent event({100, 100}, box->mapToGlobal(QPointF(100, 100)), {}, {0, 120}, {}, modifiers,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(box, &event);
}

}  // namespace

TEST_F(Profile_pane, is_corrected_by_the_command_alone_and_painted_by_all_else) {
    Project& line = Program.Work.Project;
    line.ReceiverData(ReceiverElevation, 5) = 2;
    Program.Work.Edits.Start(line, true);
    Prompts.Expect_Input("Maximum profile elevation", "20");
    Prompts.Expect_Input("Minimum profile elevation", "-5");
    Run_Command(Program, "S2");
    QApplication::processEvents();
    ASSERT_EQ(Program.Work.Edits.All().size(), 1U);
    const std::string corrected = Project_Block(line);

    auto* profile = Find<PictureBox>("Dromo1");
    const auto frame = [profile] { return profile->Canvas().Current_Frame(); };
    ASSERT_TRUE(profile->isVisible());
    EXPECT_EQ(frame().Right - frame().Left, 200);
    Turn_Wheel(profile, Qt::ControlModifier);
    EXPECT_EQ(frame().Right - frame().Left, 160);
    Turn_Wheel(profile, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(frame().Top - frame().Bottom, 80);
    auto* across = Find<QScrollBar>("ProfileAcross");
    EXPECT_TRUE(across->isVisible());
    const double left = frame().Left;
    across->setValue(across->value() + 25);
    EXPECT_EQ(frame().Left, left + 20);
    Screen->resize(900, 600);
    QTest::qWait(20);
    EXPECT_EQ(frame().Right - frame().Left, 160) << "another size keeps the enlargement";
    EXPECT_EQ(Display.Save_Page(Page::Profile, Folder / "profile.png"), "");
    EXPECT_EQ(Project_Block(line), corrected);
    EXPECT_EQ(Program.Work.Edits.All().size(), 1U);

    // The command takes the whole line into sight and offers what was answered before.
    Prompts.Expect_Input("Maximum profile elevation", "20");
    Prompts.Expect_Input("Minimum profile elevation", "-5");
    Run_Command(Program, "S2");
    EXPECT_EQ(frame().Right - frame().Left, 200);
    EXPECT_EQ(Prompts.InputDefaults.back(), "-5");
}

TEST_F(Profile_pane, takes_every_enlargement_back_beside_the_curves) {
    for (int shot = 1; shot <= 3; ++shot)
        Program.Work.Project.ShotElevation(shot) = 100;
    for (int receiver = 1; receiver <= 12; ++receiver)
        Program.Work.Project.ReceiverData(ReceiverElevation, receiver) = 100;
    Run_Command(Program, "S5");
    QApplication::processEvents();
    auto* profile = Find<PictureBox>("Dromo1");
    Turn_Wheel(profile, Qt::ControlModifier);
    Turn_Wheel(profile, Qt::ControlModifier | Qt::ShiftModifier);
    Run_Command(Program, "BI_M");
    QApplication::processEvents();
    const Frame frame = profile->Canvas().Current_Frame();
    EXPECT_EQ(frame.Right - frame.Left, 200);
    EXPECT_EQ(frame.Top - frame.Bottom, 100);
    EXPECT_FALSE(Find<QScrollBar>("ProfileAcross")->isVisible());
    Turn_Wheel(profile, Qt::ControlModifier);
    EXPECT_EQ(profile->Canvas().Current_Frame().Right, 200) << "the combined display is not enlarged";
}

}  // namespace tarnvik
