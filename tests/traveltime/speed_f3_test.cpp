#include "traveltime/speed_f3.h"

#include <gtest/gtest.h>

#include <optional>

#include "core/text/number.h"
#include "support/earth_line.h"
#include "support/test_ports.h"
#include "traveltime/curve_pointer.h"
#include "traveltime/curves.h"
#include "traveltime/speed_f3_pointer.h"

namespace tarnvik {

namespace {

/// 24 receivers at 0, 5 ... 115 over 6 m of 500 on 2000; shots at both ends and in the middle. The band is
/// drawn with the mouse.
struct HandVelocity : testing::Test {
    HandVelocity() {
        test::Lay_Two_Layers(Work, {0, 57.5, 115});
        Files.SaveProject = [this](Workspace&, tarnvik::Ports&) { return ++Saves > 0; };
        Form.emplace(Work, World.Ports, Files);
        Mouse.emplace(Work, World.Ports, *Form);
        Pointer.Register(DisplayMode::Vitesse2, &*Mouse);
        Show_Curves(Work, World.Ports);
        Form->Load();
    }
    PointerEvent At(double distance, double time) const {
        return {distance * 96 / 115 + 1e-6, time / Work.Curves.TimeFactor + 1e-6, true, false};
    }
    void Drag(double x1, double t1, double x2, double t2) {
        Pointer.Press(At(x1, t1));
        Pointer.Move(At((x1 + x2) / 2, t1 + 3));
        Pointer.Move(At(x2, t2));
        Pointer.Release(At(x2, t2));
    }
    std::vector<Mark> Marks() { return World.Display.Marks[{Canvas::Dromo, MarkLayer::Context}]; }

    Workspace Work;
    test::TestPorts World;
    FileRoutines Files;
    int Saves = 0;
    std::optional<SpeedF3> Form;
    std::optional<SpeedF3Pointer> Mouse;
    CurvePointer Pointer{Work, World.Ports};
};

}  // namespace

TEST_F(HandVelocity, FollowsTheLineUnderTheHandAndTheLineStays) {
    Form->Shot = "2";
    Pointer.Press(At(65, 40));
    EXPECT_EQ(World.Display.InFront, std::vector<Dialog>{Dialog::SpeedF3});
    Pointer.Move(At(105, 40));
    EXPECT_EQ(Form->Velocity, "") << "a level line has no velocity";
    Pointer.Move(At(105, 60));
    EXPECT_EQ(Form->Velocity, "2000");
    EXPECT_EQ(Work.Fields.Text1, "Velocity= 2000 m/s");
    Pointer.Move(At(67, 60));
    EXPECT_EQ(Form->Velocity, "100");
    Pointer.Release(At(105, 60));
    // The slope from the pointer back: 40 / (40 - 60) + 0.0001, read at 57.5.
    EXPECT_EQ(Form->Velocity, "2000");
    EXPECT_EQ(Form->Intercept, "43.7");
    Form->Shot = "1";
    Form->Shot_Changed();
    EXPECT_EQ(Form->Intercept, "72.5") << "40 + 65 / 1.9999, read at 0";

    ASSERT_EQ(Marks().size(), 1U);
    const double factor = Work.Curves.TimeFactor;
    EXPECT_NEAR(Marks()[0].X1, 65 * 96.0 / 115, 1e-3);
    EXPECT_NEAR(Marks()[0].Y2, 60 / factor, 1e-3);
    World.Display.Marks.clear();
    Show_Curves(Work, World.Ports);
    EXPECT_EQ(Marks().size(), 1U) << "also when the curves are drawn anew";
    PointerEvent right = At(10, 10);
    right.LeftButton = false;
    right.RightButton = true;
    Pointer.Press(right);
    EXPECT_EQ(Marks().size(), 1U);
    Pointer.Press(At(0, 0));
    EXPECT_TRUE(Marks().empty()) << "the next one begins";
    Pointer.Release(At(0, 0));
    EXPECT_TRUE(Marks().empty()) << "a click draws none";
    EXPECT_EQ(Form->Velocity, "2000");
    Form->Close();
    EXPECT_TRUE(Work.Curves.Overlays.empty());
    EXPECT_EQ(Work.Curves.DragStartX, 0);
    EXPECT_EQ(Work.Mode.Current(), DisplayMode::Dromo);
}

TEST_F(HandVelocity, IsRecordedOnTheSideOfTheLinesDirection) {
    const struct {
        const char* Shot;
        double X1, T1, X2, T2;
        int Side;
    } cases[] = {
        {"2", 65, 40, 105, 60, 24}, {"2", 105, 60, 65, 40, 24}, {"2", 50, 40, 10, 62, 1},
        {"2", 10, 62, 50, 40, 1},   {"1", 65, 40, 105, 60, 36}, {"3", 65, 40, 105, 60, 36},
    };
    constexpr int layer = 3;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Shot + std::string(" ") + CStr(c.X1));
        Form->Layer = CStr(layer);
        Form->Shot = c.Shot;
        Drag(c.X1, c.T1, c.X2, c.T2);
        Form->Velocity = "2345.4";
        Form->Intercept = "12.5";
        const std::string end = "\r\n";
        World.Prompts.Expect("Data for Shot number " + Form->Shot + end + "Intercept time           12.5" +
                                 end + "Layer number             " + Form->Layer + end +
                                 "Apparent velocity            2345",
                             Answer::Yes);
        const int shot = c.Shot[0] - '0';
        Project& line = Work.Project;
        line.VelocityA(shot, layer) = line.VelocityB(shot, layer) = 0;
        line.InterceptA(shot, layer - 1) = line.InterceptB(shot, layer - 1) = 0;
        EXPECT_TRUE(Form->Command1());
        EXPECT_EQ(Work.Velocity.ShotSide, c.Side);
        EXPECT_EQ(line.VelocityA(shot, layer), c.Side == 24 ? 0 : 2345);
        EXPECT_EQ(line.InterceptA(shot, layer - 1), c.Side == 24 ? 0 : 12.5);
        EXPECT_EQ(line.VelocityB(shot, layer), c.Side == 1 ? 0 : 2345);
        EXPECT_EQ(line.InterceptB(shot, layer - 1), c.Side == 1 ? 0 : 12.5);
    }
    EXPECT_EQ(Saves, 6);
    EXPECT_EQ(Work.Mode.Current(), DisplayMode::Vitesse2);
}

TEST_F(HandVelocity, RefusesWhatIsMissingAndWarnsOfAnUnusualVelocity) {
    const struct {
        const char* Shot;
        const char* Layer;
        const char* Velocity;
        const char* Intercept;
        const char* Text;
    } cases[] = {
        {"9", "", "2000", "10", "Layer number missing..."},
        {"2", "6", "2000", "10", "Layer number missing..."},
        {"2", "-1", "2000", "10", "Layer number missing..."},
        {"0", "2", "2000", "10", "Wrong Shot number ..."},
        {"4", "2", "2000", "10", "Wrong Shot number ..."},
        {"2", "2", "1e6", "10", "Calculation not possible"},
        {"2", "2", "2000", "", "Intercept time missing..."},
        {"2", "1", "2000", "", "Slope missing..."},
    };
    for (const auto& c : cases) {
        Form->Shot = c.Shot;
        Form->Layer = c.Layer;
        Form->Velocity = c.Velocity;
        Form->Intercept = c.Intercept;
        EXPECT_FALSE(Form->Command1());
        EXPECT_EQ(World.Prompts.Last_Text(), c.Text);
    }
    EXPECT_EQ(World.Prompts.Messages.size(), std::size(cases));
    EXPECT_EQ(Work.Edits.All().size(), 0U);

    Drag(65, 40, 105, 60);
    Form->Velocity = "249";
    World.Prompts.Expect_Start("Data for Shot number 2", Answer::No);
    EXPECT_FALSE(Form->Command1());
    EXPECT_TRUE(World.Prompts.Said("Velocity under 250 m/s are unusual !!!"));
    EXPECT_EQ(Saves, 0);
    World.Prompts.Expect_Start("Data for Shot number 2", Answer::Yes);
    EXPECT_TRUE(Form->Command1());
    EXPECT_EQ(Work.Project.VelocityB(2, 1), 249);
}

}  // namespace tarnvik
