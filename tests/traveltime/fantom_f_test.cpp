#include "traveltime/fantom_f.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/text/number.h"
#include "support/earth_line.h"
#include "support/test_ports.h"
#include "traveltime/curves.h"
#include "traveltime/fantom_pointer.h"

namespace tarnvik {

namespace {

/// 24 receivers at 0, 5 ... 115 over 6 m of 500 on 2000; shots at both ends, in the middle, and offset. The
/// dialog is open, and the mouse works on the picture.
struct Phantom : testing::Test {
    Phantom() {
        test::Lay_Two_Layers(Work, {0, 57.5, 115, -40, 150});
        Work.Settings.ColorChoice = true;
        Files.SaveProject = [this](Workspace&, tarnvik::Ports&) { return ++Saves > 0; };
        Form.emplace(Work, World.Ports, Files);
        Mouse.emplace(Work, World.Ports, *Form);
        Pointer.Register(DisplayMode::Fantom, &*Mouse);
        Show_Curves(Work, World.Ports);
        Form->Load();
        World.Display.Calls.clear();
    }
    ~Phantom() override {
        if (Work.Mode.Held_By(Dialog::FantomF)) Form->Close();
    }
    void Choose(const char* fixed, const char* moving) {
        Form->FixedShot = fixed;
        Form->MovingShot = moving;
        Form->Pair_Changed();
    }
    PointerEvent At(int receiver, double ms) const {
        return {Position_Ecran(Work.Project, receiver), ms / Work.Curves.TimeFactor, true, false};
    }
    void Slide(int receiver, double from, double to) {
        Pointer.Press(At(receiver, from));
        for (const double part : {0.2, 0.7, 1.0})
            Pointer.Move(At(receiver, from + part * (to - from)));
        Pointer.Release(At(receiver, to));
    }
    const std::vector<Mark>& Marks() { return World.Display.Marks[{Canvas::Dromo, MarkLayer::Context}]; }

    Workspace Work;
    test::TestPorts World;
    FileRoutines Files;
    int Saves = 0;
    std::optional<FantomF> Form;
    std::optional<FantomPointer> Mouse;
    CurvePointer Pointer{Work, World.Ports};
};

}  // namespace

TEST_F(Phantom, TheCurveOfAnOffsetShotLaidOnTheBranchGivesTheInterceptUnderTheEndShot) {
    const Project before = Work.Project;
    Choose("1", "4");
    World.Display.Calls.clear();
    Form->InterceptTime = "12.5";
    const double from = Work.Project.ShotTimes(4, 20);
    const double to = Work.Project.ShotTimes(1, 20);
    Slide(20, from, to);
    EXPECT_EQ(World.Display.Count("Repaint_Page 0") + World.Display.Count("Show_Curves"), 0)
        << "the picture is not painted while the hand moves";
    EXPECT_EQ(Form->InterceptTime, "12.5") << "taking hold of the curve reads no time";
    EXPECT_NEAR(Form->VScroll1.Value, 10 * (from - to) / Work.Curves.TimeFactor, 0.5);

    const auto times = Times_As_Drawn(Work, Form->Curve());
    ASSERT_EQ(times.size(), 24U);
    for (std::size_t receiver = 8; receiver <= 24; ++receiver)
        EXPECT_NEAR(*times[receiver - 1], Work.Project.ShotTimes(1, static_cast<int>(receiver)), 1e-3);
    // The branch as it would arrive at the shot itself, which has a direct arrival there.
    const double intercept = 12 * std::sqrt(1 - 1.0 / 16) / 500 * 1000;
    Pointer.Press(At(1, *times[0]));
    Pointer.Release(At(1, *times[0]));
    EXPECT_NEAR(Val(Form->InterceptTime), intercept, 0.006);
    EXPECT_EQ(Form->InterceptTime, CStr(Rounded(100 * Val(Form->InterceptTime)) / 100));
    EXPECT_EQ(World.Display.InFront.back(), Dialog::FantomF);
    EXPECT_EQ(Work.Project.ShotTimes, before.ShotTimes);

    // The offset shot lies on the left: the branch belongs to side B.
    Form->InterceptNumber = "1";
    const std::string question =
        "Data for Shot number 1\r\nIntercept number        1\r\nIntercept time (ms)    " +
        Form->InterceptTime + "\r\nSlope inclination from receiver 24\r\nOK to save Data ";
    World.Prompts.Expect(question, Answer::No);
    Form->Command2();
    EXPECT_EQ(Work.Project.InterceptB(1, 1), 0);
    EXPECT_EQ(Saves, 0);
    World.Prompts.Expect(question, Answer::Yes);
    Form->Command2();
    EXPECT_NEAR(Work.Project.InterceptB(1, 1), intercept, 0.006);
    EXPECT_EQ(Work.Project.InterceptA, before.InterceptA);
    EXPECT_EQ(Saves, 1);
    EXPECT_EQ(Work.Edits.Undo_Name(), "Intercept 1 of shot 1, side B");
    Form->Slope = FantomF::slope_left;
    World.Prompts.Expect_Start("Data for Shot number 1", Answer::Yes);
    Form->Command2();
    EXPECT_EQ(Work.Project.InterceptA(1, 1), Work.Project.InterceptB(1, 1));
}

TEST_F(Phantom, APairStandsUnmovedUntilItIsSlidAndWrongShotsAreCorrected) {
    EXPECT_FALSE(Work.Settings.ColorChoice) << "each curve has one colour";
    EXPECT_EQ(Form->MovingShot, "");
    EXPECT_TRUE(Marks().empty());
    Choose("3", "2");
    EXPECT_EQ(Form->Slope, FantomF::slope_right);
    Form->VScroll1.Value = 300;
    Form->VScroll1_Changed();
    EXPECT_EQ(Form->Curve().Shift, 30);
    EXPECT_EQ(Form->ShiftText, Format(-30 * Work.Curves.TimeFactor, "0.0") + " ms");
    EXPECT_FALSE(Marks().empty());
    Choose("1", "2");
    EXPECT_EQ(Form->Curve().Shift, 0);
    EXPECT_EQ(Form->VScroll1.Value, 0);
    EXPECT_EQ(Form->Slope, FantomF::slope_left);
    EXPECT_EQ(Work.Velocity.ShotSide, FantomF::slope_left);

    // Beyond the picture below: what the shift carries under the axis stays on it.
    Form->VScroll1.Value = FantomF::range_high;
    Form->VScroll1_Changed();
    EXPECT_EQ(Times_As_Drawn(Work, Form->Curve())[10], 0.5 * Work.Curves.TimeFactor);
    Form->Slide_To(-500);
    EXPECT_EQ(Form->Curve().Shift, -100);
    EXPECT_EQ(Form->VScroll1.Value, FantomF::range_low);

    EXPECT_TRUE(World.Prompts.Messages.empty());
    Choose("0", "77777");
    EXPECT_EQ(World.Prompts.Messages.size(), 2U);
    EXPECT_EQ(World.Prompts.Last_Text(), "Wrong shot Number");
    EXPECT_EQ(Form->FixedShot, "1");
    EXPECT_EQ(Form->MovingShot, "5");
    Form->Slope = 0;
    Choose("5", "5");
    EXPECT_EQ(Form->Slope, 0) << "at equal places neither side is meant";

    Form->Command6();
    EXPECT_TRUE(Marks().empty());
    EXPECT_EQ(Work.Curves.ShotAlone, 5);
    Form->Slide_To(1);
    EXPECT_FALSE(Marks().empty());
    Form->Close();
    EXPECT_EQ(Work.Mode.Current(), DisplayMode::Dromo);
    EXPECT_EQ(Work.Curves.ShotAlone, 0);
    EXPECT_TRUE(Work.Settings.ColorChoice);
    EXPECT_TRUE(Marks().empty());
    EXPECT_TRUE(Work.Curves.Overlays.empty());
}

TEST_F(Phantom, WhatIsMissingIsToldAndNothingIsStored) {
    const Project before = Work.Project;
    Choose("2", "2");
    const struct {
        const char* Number;
        int Slope;
        const char* Time;
        const char* Shot;
        const char* Told;
    } cases[] = {
        {"", 0, "", "", "Intercept Time number missing..."},
        {"5", 1, "20", "2", "Intercept Time number missing..."},
        {"2", 0, "20", "2", "Slope missing..."},
        {"2", 24, "ms", "2", "Intercept Time missing..."},
        {"2", 24, "20", "6", "Shot number missing..."},
        {"2", 24, "20", "-1", "Shot number missing..."},
        {"2", 24, "3277", "2", "Intercept time too large: a project file holds up to 3276.7 ms"},
    };
    for (const auto& each : cases) {
        Form->InterceptNumber = each.Number;
        Form->Slope = each.Slope;
        Form->InterceptTime = each.Time;
        Form->FixedShot = each.Shot;
        Form->Command2();
        EXPECT_EQ(World.Prompts.Last_Text(), each.Told);
        EXPECT_EQ(World.Prompts.Messages.back().WithIcon, Icon::Critical);
    }
    EXPECT_EQ(Work.Project.InterceptA, before.InterceptA);
    EXPECT_EQ(Work.Project.InterceptB, before.InterceptB);
    EXPECT_FALSE(Work.Edits.Can_Undo());
    EXPECT_EQ(Saves, 0);
}

}  // namespace tarnvik
