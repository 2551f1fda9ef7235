#include "traveltime/speed_f.h"

#include <gtest/gtest.h>

#include <optional>

#include "core/text/number.h"
#include "support/earth_line.h"
#include "support/test_ports.h"
#include "traveltime/confirm.h"

namespace tarnvik {

namespace {

using test::Drawn;

/// 24 receivers at 0, 5 ... 115 over 6 m of 500 on 2000; shots at both ends, in the middle, and offset.
struct SpeedTest : testing::Test {
    SpeedTest() {
        test::Lay_Two_Layers(Work, {0, 57.5, 115, -40, 150});
        Files.SaveProject = [this](Workspace&, tarnvik::Ports&) { return ++Saves > 0; };
        Files.LoadProject = [this](Workspace&, tarnvik::Ports&) { return ++Loads > 0; };
        Form.emplace(Work, World.Ports, Files);
        Form->Load();
    }
    void Compute(const char* shot, const char* from, const char* to) {
        Form->Shot = shot;
        Form->FirstReceiver = from;
        Form->LastReceiver = to;
        Form->Command5();
    }
    test::RecordingPicture& Dromo() { return World.Display.Pictures[Canvas::Dromo]; }
    std::vector<Drawn> Black_Lines() {
        std::vector<Drawn> lines = Dromo().Of(Drawn::Verb::Line, colours::Black);
        return lines;
    }

    Workspace Work;
    test::TestPorts World;
    FileRoutines Files;
    int Saves = 0;
    int Loads = 0;
    std::optional<SpeedF> Form;
};

}  // namespace

TEST_F(SpeedTest, OpensWithTheWholeLineAndLayerOne) {
    EXPECT_EQ(Work.Mode.Current(), DisplayMode::Vitesse);
    EXPECT_EQ(Form->FirstReceiver, "1");
    EXPECT_EQ(Form->LastReceiver, "24");
    EXPECT_EQ(Form->Layer, "1");
    EXPECT_FALSE(Form->InterceptShown);
    EXPECT_EQ(Form->ReceiverEntries.size(), 24U);
    EXPECT_EQ(Form->ShotEntries.back(), "5");
}

TEST_F(SpeedTest, ComputesVelocityInterceptAndCorrelationOfABranch) {
    // 12 sqrt(1 - 1/16) / 500 s = 23.2 ms
    Compute("1", "24", "8");
    EXPECT_NEAR(Work.Velocity.VelocityResult, 2000, 1);
    EXPECT_EQ(Form->Velocity, CStr(Work.Velocity.VelocityResult));
    EXPECT_EQ(Form->Intercept, "23.2");
    EXPECT_EQ(Form->Correlation.substr(0, 2), Work.Velocity.Correlation == 1 ? " 1" : " .");
    EXPECT_EQ(Form->FirstReceiver, "24") << "the order of the user stays";
    EXPECT_EQ(Work.Velocity.ShotSide, 24);
    EXPECT_EQ(World.Display.Pictures[Canvas::SpeedEnd].Texts(), std::vector<std::string>{"24"});
    EXPECT_EQ(World.Display.InFront, std::vector<Dialog>{Dialog::SpeedF});
    EXPECT_FALSE(Dromo().Of(Drawn::Verb::Line, colours::Red).empty());
    EXPECT_TRUE(Dromo().Has_Line(35 * 96.0 / 115, (23.238 + 17.5) / Work.Curves.TimeFactor, 96,
                                 (23.238 + 57.5) / Work.Curves.TimeFactor, colours::Black, 0.01));

    Compute("3", "1", "12");
    EXPECT_EQ(Work.Velocity.ShotSide, 1);
    EXPECT_EQ(World.Display.Pictures[Canvas::SpeedEnd].Texts(), std::vector<std::string>{"1"});
    EXPECT_EQ(Form->Intercept, "23.2");
}

TEST_F(SpeedTest, AStretchThatHoldsTheShotOrTheEndReceiverTakesTheDirectMethod) {
    const struct {
        const char* Shot;
        const char* From;
        const char* To;
    } cases[] = {{"2", "12", "13"}, {"1", "1", "1"}, {"3", "24", "24"}};
    for (const auto& c : cases) {
        Form->Layer = "3";
        Work.Velocity.Correlation = 0.77;
        // An end shot stands on its receiver: give it a time as a shot hole has one.
        Work.Project.ShotDepth(1) = Work.Project.ShotDepth(3) = 1;
        Work.Project.ShotTimes(1, 1) = Work.Project.ShotTimes(3, 24) = 2;
        Dromo().Clear();
        Work.Curves.FrameDrawn = 1;
        Compute(c.Shot, c.From, c.To);
        EXPECT_NEAR(Work.Velocity.VelocityResult, 500, 1) << c.Shot;
        EXPECT_EQ(Form->Layer, "1") << c.Shot;
        EXPECT_EQ(Form->Intercept, "0");
        EXPECT_EQ(Work.Velocity.Correlation, 0.77);
        EXPECT_TRUE(Black_Lines().empty()) << "no line is fitted";
    }
    EXPECT_TRUE(World.Prompts.Messages.empty());
}

TEST_F(SpeedTest, TheLineFromTheShotPointIsDrawnToTheShot) {
    Form->ThroughShot = true;
    Form->ThroughShot_Clicked();
    Compute("1", "2", "3");
    EXPECT_NEAR(Work.Velocity.VelocityResult, 500, 1);
    EXPECT_NEAR(Work.Velocity.Correlation, 99, 0.1);
    const double x2 = 5 * 96.0 / 115;
    EXPECT_TRUE(Dromo().Has_Line(0, 0, x2, 10 / Work.Curves.TimeFactor, colours::Black, 1e-3));
    Compute("3", "22", "23");
    EXPECT_TRUE(Dromo().Has_Line(96 - x2, 10 / Work.Curves.TimeFactor, 96, 0, colours::Black, 1e-3));
    Form->Layer = "2";
    Form->Layer_Changed();
    EXPECT_FALSE(Form->ThroughShot) << "only layer 1 starts at the shot";
}

TEST_F(SpeedTest, EachRefusalHasItsMessageAndChangesNoResult) {
    const float time = Work.Project.ShotTimes(2, 12);
    const struct {
        const char* Shot;
        const char* From;
        const char* To;
        bool ThroughShot;
        const char* Text;
        Icon WithIcon;
    } cases[] = {
        {"2", "7", "7", false, "Impossible: Wrong receivers", Icon::Critical},
        {"1", "24", "24", false, "Impossible: Wrong receivers", Icon::Critical},
        {"2", "10", "16", true, "Impossible, the shot must be before or after selected receivers...",
         Icon::Critical},
        {"2", "12", "14", false, "Impossible...", Icon::Critical},
        {"1", "12", "12x", false, "Impossible: Wrong receivers", Icon::Critical},
        {"9", "1", "24", false, "Error, calcul not possible...", Icon::None},
        {"", "1", "24", false, "Error, calcul not possible...", Icon::None},
        {"shot", "1", "24", false, "Error, calcul not possible...", Icon::None},
        {"1e9", "1", "24", false, "Error, calcul not possible...", Icon::None},
        {"1", "-99999", "24", false, "Error, calcul not possible...", Icon::None},
        {"1", "-5", "-7", false, "Error, calcul not possible...", Icon::None},
    };
    Work.Project.ShotTimes(2, 12) = 0;
    Work.Velocity.VelocityResult = 1500;
    Work.Velocity.InterceptResult = 8;
    for (const auto& c : cases) {
        Form->ThroughShot = c.ThroughShot;
        World.Prompts.Messages.clear();
        Compute(c.Shot, c.From, c.To);
        ASSERT_EQ(World.Prompts.Messages.size(), 1U) << c.Shot << " " << c.From;
        EXPECT_EQ(World.Prompts.Messages[0].Text, c.Text);
        EXPECT_EQ(World.Prompts.Messages[0].WithIcon, c.WithIcon);
        EXPECT_EQ(World.Prompts.Messages[0].Title, Work.AppTitle);
        EXPECT_EQ(Work.Velocity.VelocityResult, 1500);
        EXPECT_EQ(Work.Velocity.InterceptResult, 8);
    }
    Work.Project.ShotTimes(2, 12) = time;
}

TEST_F(SpeedTest, NoPickAndOnePickAreToldApart) {
    for (int r = 1; r <= 24; ++r)
        Work.Project.ShotTimes(1, r) = 0;
    Work.Velocity.Correlation = 0.98765;
    Compute("1", "3", "9");
    EXPECT_EQ(World.Prompts.Last_Text(), "Impossible calculation...");
    EXPECT_EQ(World.Prompts.Messages.back().WithIcon, Icon::None);
    EXPECT_EQ(Work.Velocity.Correlation, 0.987) << "already updated";
    Form->ThroughShot = true;
    Compute("1", "3", "9");
    EXPECT_EQ(World.Prompts.Last_Text(), "Error, calcul not possible...");
    Form->ThroughShot = false;
    Work.Project.ShotTimes(1, 5) = 20;
    Compute("1", "3", "9");
    EXPECT_EQ(World.Prompts.Last_Text(), "Error, calcul not possible...");
}

TEST_F(SpeedTest, ReceiversOutOfRangeAreShownCorrected) {
    Compute("1", "0", "24");
    EXPECT_EQ(Form->FirstReceiver, "1");
    Compute("1", "8", "99");
    EXPECT_EQ(Form->LastReceiver, "24");
    EXPECT_NEAR(Work.Velocity.VelocityResult, 2000, 1);
    Work.Project.LineLength = 0;
    Work.Velocity.VelocityResult = 7;
    Compute("2", "14", "24");
    EXPECT_EQ(World.Prompts.Last_Text(), "Error, calcul not possible...");
    EXPECT_EQ(Work.Velocity.VelocityResult, 7);
}

TEST_F(SpeedTest, EliminatedReceiversCountOnlyWhileTheBoxIsTicked) {
    Work.Project.ShotTimes(1, 15) += 30;
    Form->Eliminated[2] = "15";
    Compute("1", "8", "24");
    EXPECT_LT(Work.Velocity.Correlation, 0.95);
    Form->Eliminate = true;
    Compute("1", "8", "24");
    EXPECT_NEAR(Work.Velocity.VelocityResult, 2000, 1);
}

TEST_F(SpeedTest, ChoosingAShotRedrawsItAloneUnlessAllStay) {
    Form->AllShots = true;
    Form->Shot = "2";
    Form->Shot_Changed();
    EXPECT_TRUE(Dromo().List.empty());
    Form->AllShots = false;
    Form->Shot_Changed();
    EXPECT_FALSE(Dromo().Of(Drawn::Verb::Line, colours::Red).empty());
    EXPECT_TRUE(Dromo().Of(Drawn::Verb::Line, colours::Blue).empty());
}

TEST_F(SpeedTest, RefreshLoadsAProjectWithoutTimesAnew) {
    Form->Command2();
    EXPECT_EQ(Loads, 0);
    EXPECT_EQ(Work.Mode.Current(), DisplayMode::Vitesse);
    Work.Project.ShotTimes = {5, 24};
    Form->Command2();
    EXPECT_EQ(Loads, 1);
    Erase_Project(Work.Project);
    Form->Command2();
    EXPECT_EQ(World.Prompts.Last_Text(), "No file loaded or bad file...");
    EXPECT_EQ(Loads, 1);
}

TEST_F(SpeedTest, AReleaseOnThePictureFillsTheReceiverBoxEnteredLast) {
    SpeedPointer pointer(Work, World.Ports, *Form);
    pointer.Release({30, 10, true, false});
    EXPECT_EQ(Form->FirstReceiver, "8");                   // 30 / 4 rounded, half to even
    Work.Mode.Take(Dialog::Fcalcul, DisplayMode::Calcul);  // the depth dialog has taken the picture since
    Form->Enter_Receiver(SpeedF::ReceiverBox::To);
    EXPECT_EQ(Work.Mode.Current(), DisplayMode::Vitesse);
    pointer.Release({97, 10, true, false});
    EXPECT_EQ(Form->LastReceiver, "24");
    pointer.Release({-1, 10, true, false});
    EXPECT_EQ(Form->LastReceiver, "1");
    EXPECT_EQ(Form->FirstReceiver, "8");
    EXPECT_EQ(World.Display.InFront.back(), Dialog::SpeedF);
}

TEST_F(SpeedTest, RecordingSideFollowsTheShotAndBothEndsOfTheStretch) {
    const struct {
        double Shot;
        double First;
        double Last;
        int Side;
    } cases[] = {{60, 10, 50, 1},   {60, 50, 10, 1},  {60, 70, 100, 24}, {60, 50, 70, 36},
                 {60, 70, 50, 36},  {0, 10, 50, 36},  {-30, 10, 50, 36}, {115, 10, 50, 36},
                 {150, 10, 50, 36}, {60, 60, 100, 7}, {60, 10, 60, 7}};  // exactly at an end: the side of the
                                                                         // computation stays
    for (const auto& c : cases)
        EXPECT_EQ(Recording_Side(7, c.Shot, c.First, c.Last, 115), c.Side) << c.Shot << " " << c.First;
}

TEST_F(SpeedTest, SavingRecordsOnTheSideOfTheStretchAndWritesTheFileAtOnce) {
    const auto record = [this](const char* shot, const char* from, const char* to, const char* layer) {
        Compute(shot, from, to);
        Form->Layer = layer;
        Form->Layer_Changed();
        EXPECT_TRUE(Form->SaveEnabled);
        Form->Command1();
        Confirm confirm(Work, World.Ports, *Form, Files);
        confirm.Load();
        confirm.Command1();
        EXPECT_FALSE(Form->SaveEnabled);
    };
    const Project& project = Work.Project;
    record("2", "18", "24", "2");
    EXPECT_NEAR(project.VelocityB(2, 2), 2000, 1);
    EXPECT_EQ(project.InterceptB(2, 1), 23.2);
    EXPECT_EQ(project.VelocityA(2, 2), 0);
    EXPECT_EQ(project.InterceptA(2, 1), 0);
    record("2", "1", "7", "3");
    EXPECT_NEAR(project.VelocityA(2, 3), 2000, 1);
    EXPECT_EQ(project.InterceptA(2, 2), 23.2);
    EXPECT_EQ(project.VelocityB(2, 3), 0);
    record("1", "8", "24", "2");
    EXPECT_NEAR(project.VelocityA(1, 2), 2000, 1);
    EXPECT_EQ(project.VelocityB(1, 2), project.VelocityA(1, 2));
    EXPECT_EQ(project.InterceptA(1, 1), 23.2);
    EXPECT_EQ(project.InterceptB(1, 1), 23.2);
    record("2", "12", "13", "1");
    EXPECT_NEAR(project.VelocityA(2, 1), 500, 1);
    EXPECT_NEAR(project.VelocityB(2, 1), 500, 1);
    EXPECT_EQ(project.InterceptA(2, 1), 0) << "layer 1 has no intercept to store";
    EXPECT_EQ(Saves, 4);
    EXPECT_EQ(World.Display.Opened, std::vector<Dialog>(4, Dialog::confirm));
}

TEST_F(SpeedTest, ConfirmAsksUntilTheLayerIsOneOfFive) {
    const std::string question = " Layer number (up to 5) is missing, correct please";
    Compute("1", "8", "24");
    Confirm confirm(Work, World.Ports, *Form, Files);
    confirm.Load();
    confirm.Layer = "";
    for (const char* typed : {"", "0", "x", "-1", "6", "99999", "2"})
        World.Prompts.Expect_Input(question, typed);
    confirm.Command1();
    EXPECT_EQ(confirm.Layer, "2");
    EXPECT_EQ(World.Prompts.InputDefaults, std::vector<std::string>(7, "2"));
    EXPECT_NEAR(Work.Project.VelocityA(1, 2), 2000, 1);
}

TEST_F(SpeedTest, WhatDoesNotFitThePlaceIsLeftOutAndTheRestStands) {
    Work.Project.VelocityA(1, 2) = 1800;
    Form->Shot = "1";
    Confirm confirm(Work, World.Ports, *Form, Files);
    confirm.Load();
    confirm.Layer = "2";
    confirm.Intercept = "9.5";
    confirm.Velocity = "40000";
    confirm.Command1();
    EXPECT_EQ(Work.Project.VelocityA(1, 2), 1800);
    EXPECT_EQ(Work.Project.InterceptA(1, 1), 9.5);
    const Array2<std::int16_t> before = Work.Project.VelocityA;
    for (const char* shot : {"0", "6", "-1", "99999", "no"}) {
        Work.Velocity.CurrentShot = 0;
        confirm.Shot = shot;
        confirm.Velocity = "1000";
        confirm.Command1();
        EXPECT_EQ(Work.Project.VelocityA, before) << shot;
    }
}

}  // namespace tarnvik
