#include "depth/quick_interpret.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <vector>

#include "core/text/number.h"
#include "depth/quick_pointer.h"
#include "support/earth_line.h"
#include "support/test_ports.h"

namespace tarnvik {

namespace {

using Quick = QuickInterpret;

/// The dialog with the mouse on the picture, over a line whose layers are known.
struct QuickDialog {
    QuickDialog(const std::vector<double>& velocities, const std::vector<double>& thicknesses,
                const std::vector<double>& shots = {0, 297.5, 595}, double shot_depth = 0)
        : Earth(LayeredEarth::Horizontal(velocities, thicknesses)) {
        test::Lay_Line(Work, Earth, 120, 5, shots, shot_depth);
        Files.SaveProject = [this](Workspace&, tarnvik::Ports&) {
            ++Saves;
            return true;
        };
        Form.emplace(Work, World.Ports, Files);
        Mouse.emplace(*Form);
        Pointer.Register(DisplayMode::Quick, &*Mouse);
    }
    void Open(int shot, int layers) {
        Work.Velocity.CurrentShot = static_cast<std::int16_t>(shot);
        Form->Load();
        Form->LayerCount = CStr(layers);
        Form->Layers_Changed();
    }
    void Drag(double from, double to, bool right = false) {
        Pointer.Press({from, 50, !right, right});
        Pointer.Move({to, 50, !right, right});
        Dragged = Form->Grid1;
        Pointer.Release({to, 50, false, false});
    }
    /// Limits of both sides where one branch of the curve takes over from the one above it.
    QuickLimits Crossings(int shot) const {
        const double place = Work.Project.ShotDistance(shot);
        const double unit = 96 / Work.Project.LineLength;
        QuickLimits limits{};
        double intercept_above = 0;
        double slowness_above = 1 / Velocity_Of(1);
        for (int k = 1; k < Earth.Count(); ++k) {
            const double slowness = 1 / Velocity_Of(k + 1);
            const double intercept = Earth.Head_Wave_Time(k, {0, 0}, {9000, 0}) / 1000 - 9000 * slowness;
            const double crossing = (intercept - intercept_above) / (slowness_above - slowness);
            limits[2].at(static_cast<std::size_t>(k)) = (place + crossing) * unit;
            limits[1].at(static_cast<std::size_t>(Earth.Count() - k)) = (place - crossing) * unit;
            intercept_above = intercept;
            slowness_above = slowness;
        }
        return limits;
    }
    /// The velocity below the top of a layer, from the slope of its wave.
    double Velocity_Of(int layer) const {
        if (layer == 1) return 5 / Earth.Direct_Time({0, 0}, {5, 0}) * 1000;
        return 1e6 / (Earth.Head_Wave_Time(layer - 1, {0, 0}, {9000, 0}) -
                      Earth.Head_Wave_Time(layer - 1, {0, 0}, {8000, 0}));
    }
    double Cell(int row, int column) const { return Form->Grid1.Value(row, column); }
    std::vector<Mark> Shown() { return World.Display.Marks[{Canvas::Dromo, MarkLayer::Context}]; }
    bool Limit_Drawn_At(double x) {
        const std::vector<Mark> marks = Shown();
        return std::any_of(marks.begin(), marks.end(), [x](const Mark& mark) {
            return mark.X1 == x && mark.X2 == x && mark.Y1 == 0 && mark.Y2 == 100 &&
                   mark.InColour == colours::Red;
        });
    }

    LayeredEarth Earth;
    Workspace Work;
    test::TestPorts World;
    FileRoutines Files;
    int Saves = 0;
    std::optional<Quick> Form;
    std::optional<QuickPointer> Mouse;
    CurvePointer Pointer{Work, World.Ports};
    TextGrid Dragged;  ///< as the grid stood before the button was let go
};

}  // namespace

TEST(QuickInterpretation, LimitsAtTheCrossingsGiveTheLayers) {
    const struct {
        std::vector<double> Velocities;
        std::vector<double> Thicknesses;
    } sections[] = {{{400, 2000}, {5}}, {{400, 1200, 3500}, {4, 14}}, {{400, 1000, 2000, 4500}, {4, 10, 30}}};
    for (const auto& section : sections) {
        QuickDialog line(section.Velocities, section.Thicknesses);
        for (int shot = 1; shot <= 3; ++shot) {
            line.Open(shot, line.Earth.Count());
            line.Form->Take_Limits(line.Crossings(shot));
            SCOPED_TRACE(CStr(shot) + " of " + CStr(line.Earth.Count()));
            double depth = 0;
            for (int layer = 1; layer <= line.Earth.Count(); ++layer) {
                const auto at = static_cast<std::size_t>(layer) - 1;
                EXPECT_NEAR(line.Cell(layer, Quick::VelocityLeft), section.Velocities[at], 2);
                EXPECT_NEAR(line.Cell(layer, Quick::VelocityRight), section.Velocities[at], 2);
                if (layer == line.Earth.Count()) {
                    EXPECT_EQ(line.Form->Grid1.Text(layer, Quick::Thickness), "");
                    break;
                }
                // 0.1 ms of each intercept, a unit of each velocity, and the tenth that is shown
                const double tolerance =
                    0.06 + section.Velocities[at] * 0.0001 * layer + 0.004 * section.Thicknesses[at];
                depth += section.Thicknesses[at];
                EXPECT_NEAR(line.Cell(layer, Quick::Thickness), section.Thicknesses[at], tolerance);
                EXPECT_NEAR(line.Cell(layer, Quick::Depth), depth, 2 * tolerance);
            }
            EXPECT_TRUE(line.Form->Labels.empty()) << line.Work.Velocity.QuickStatus;
        }
        EXPECT_TRUE(line.World.Prompts.Messages.empty());
    }
}

TEST(QuickInterpretation, StartsWithEvenPartsOnBothSidesOfTheShot) {
    QuickDialog line({400, 1200, 3500}, {4, 14}, {0, 198.4, 595, -50, 700});
    line.Open(2, 3);  // 198 of 595 m are 31.9 units, kept as 32
    EXPECT_DOUBLE_EQ(line.Form->Limits[1][1], 32.0 / 3);
    EXPECT_DOUBLE_EQ(line.Form->Limits[2][2], 32 + 64.0 * 2 / 3);
    EXPECT_EQ(line.Form->SideChoice, Quick::Both);
    EXPECT_EQ(line.Work.Curves.ShotAlone, 2);
    for (const int offset_shot : {4, 5}) {
        const QuickLimits before = line.Form->Limits;
        line.Form->Shot = CStr(offset_shot);
        line.Form->Shot_Changed();
        // Beyond the line the place on the picture counts up to 96 only.
        EXPECT_EQ(line.Form->Limits, before) << "an offset shot leaves them";
        EXPECT_FALSE(line.Form->Labels.empty());
    }
    for (const auto& [shot, side] : {std::pair{1, Quick::Right}, std::pair{3, Quick::Left}}) {
        line.Form->Shot = CStr(shot);
        line.Form->Shot_Changed();
        EXPECT_EQ(line.Form->Limits[1], line.Form->Limits[2]);
        EXPECT_DOUBLE_EQ(line.Form->Limits[1][2], 64);
        EXPECT_EQ(line.Form->SideChoice, side);
        EXPECT_EQ(line.Form->Grid1.Text(2, Quick::VelocityLeft),
                  line.Form->Grid1.Text(2, Quick::VelocityRight));
    }
}

TEST(QuickInterpretation, ALimitFollowsTheHandAndSoDoesTheModel) {
    QuickDialog line({400, 1200, 3500}, {4, 14});
    line.Open(2, 3);  // limits 16 32 and 64 80
    const QuickLimits start = line.Form->Limits;
    line.Pointer.Press({16.6, 50, true, false});
    EXPECT_FALSE(line.Form->Limit_Caught()) << "the nearest whole number alone takes it";
    line.Pointer.Move({40, 50, true, false});
    line.Pointer.Release({40, 50, false, false});
    EXPECT_EQ(line.Form->Limits, start);

    const double velocity_before = line.Work.Velocity.VelocityResult;
    line.Pointer.Press({79.6, 50, false, true});
    line.Pointer.Move({91.3, 50, false, true});
    EXPECT_TRUE(line.Limit_Drawn_At(91.3));
    EXPECT_FALSE(line.Limit_Drawn_At(80));
    EXPECT_EQ(line.Form->Limits, start) << "nothing is kept before the release";
    EXPECT_EQ(line.Work.Velocity.VelocityResult, velocity_before);
    const TextGrid dragged = line.Form->Grid1;
    line.Pointer.Release({91.3, 50, false, false});
    EXPECT_EQ(line.Form->Limits[2][2], 91);
    EXPECT_TRUE(line.Limit_Drawn_At(91));
    for (int row = 1; row <= 3; ++row) {
        for (int column = 1; column <= 6; ++column)
            EXPECT_EQ(dragged.Text(row, column), line.Form->Grid1.Text(row, column)) << row << column;
    }
    line.Drag(91, 300);
    EXPECT_EQ(line.Form->Limits[2][2], 96) << "it stays on the picture, where it can be caught again";
    const std::string velocity = line.Form->Grid1.Text(2, Quick::VelocityRight);
    line.Work.Project.ShotTimes(2, 120) *= 2;
    line.Form->Picks_Changed();
    EXPECT_EQ(line.Form->Grid1.Text(2, Quick::VelocityRight), velocity)
        << "the receiver at the limit is beyond it";
}

TEST(QuickInterpretation, LimitsAreOrderedByOnePassAndMoveTogetherForAShotAtAnEnd) {
    QuickDialog line({400, 1000, 2000, 4500}, {4, 10, 30});
    line.Open(1, 4);  // 24 48 72
    line.Drag(24, 80);
    // The end shot has the same limits in both rows.
    EXPECT_EQ(line.Form->Limits[1], line.Form->Limits[2]);
    EXPECT_EQ(line.Form->Limits[1], (std::array<double, 5>{0, 48, 72, 80, 0}));
    line.Drag(80, 10);
    EXPECT_EQ(line.Form->Limits[1], (std::array<double, 5>{0, 48, 10, 72, 0})) << "one pass only";
    EXPECT_FALSE(line.Form->Labels.empty()) << "the stretches are out of order too";

    line.Open(2, 3);  // 16 32 and 64 80
    line.Drag(32, 20);
    EXPECT_EQ(line.Form->Limits[1][2], 20);
    EXPECT_EQ(line.Form->Limits[2][2], 80) << "a shot on the line has two sides";
}

TEST(QuickInterpretation, AStretchWithoutVelocityTellsWhyAndTakesTheOneBefore) {
    QuickDialog line({400, 2000}, {5});
    line.Open(2, 2);
    QuickLimits limits = line.Form->Limits;
    // No receiver below the limit: the stretch becomes receiver 1, the next one begins with 2.
    limits[1][1] = -1;
    line.Work.Velocity.VelocityResult = 77;
    line.Form->Take_Limits(limits);
    EXPECT_EQ(line.Form->Labels.front(), "Impossible: Wrong receivers 1,1");
    EXPECT_EQ(line.Work.Velocity.QuickStatus.find("Impossible: Wrong receivers 1,1"), 0U);
    EXPECT_EQ(line.Cell(2, Quick::VelocityLeft), 77);
    EXPECT_EQ(line.Cell(2, Quick::InterceptLeft), 0);
    EXPECT_EQ(line.Form->Grid1.At(2, Quick::VelocityLeft).ForeColour, colours::Red);
    EXPECT_GT(line.Cell(1, Quick::VelocityLeft), 400);
    EXPECT_FALSE(line.Form->Grid1.At(1, Quick::VelocityLeft).ForeColour);
    EXPECT_TRUE(line.World.Prompts.Messages.empty()) << "the label alone tells it";

    line.Form->Grid1.Set_Text(2, Quick::VelocityLeft, "2000");
    line.Form->Cells_Changed();
    EXPECT_FALSE(line.Form->Grid1.At(2, Quick::VelocityLeft).ForeColour) << "typed by the user";
}

TEST(QuickInterpretation, DepthsFollowTheGridAndTheShotDepth) {
    QuickDialog line({400, 1200, 3500}, {4, 14});
    line.Open(2, 3);
    EXPECT_EQ(line.Form->ShotDepth, "0");
    const char* values[4][5] = {{},
                                {"", "500", "0", "500", "0"},
                                {"", "1900", "10", "2100", "14"},
                                {"", "4000", "23.9", "4000", "23.9"}};
    for (int row = 1; row <= 3; ++row) {
        for (int column = 1; column <= 4; ++column)
            line.Form->Grid1.Set_Text(row, column, values[row][column]);
    }
    line.Form->ShotDepth = "2";
    line.Form->Command2();
    // By hand: i12 = (asin(500/1900) + asin(500/2100)) / 2, V2 = 500 / sin i12; Z1 without the shot depth is
    // 0.012 * 500 / (2 cos i12).
    const double i12 = (std::asin(500 / 1900.0) + std::asin(500 / 2100.0)) / 2;
    const double z1 = 0.012 * 500 / (2 * std::cos(i12));
    const double v2 = 500 / std::sin(i12);
    const double delay = 2 * z1 / 500 * std::cos(std::asin(500 / 4000.0));
    const double z2 = v2 * (0.0239 - delay) / (2 * std::cos(std::asin(v2 / 4000)));
    EXPECT_EQ(line.Cell(1, Quick::Thickness), Rounded(10 * (z1 + 1)) / 10);
    EXPECT_EQ(line.Cell(2, Quick::Thickness), Rounded(10 * z2) / 10);
    EXPECT_EQ(line.Cell(2, Quick::Depth), Rounded(10 * (z1 + 1 + z2)) / 10)
        << "the sum is rounded, not the parts";

    // One side alone.
    line.Form->SideChoice = Quick::Right;
    line.Form->Side_Changed();
    EXPECT_EQ(line.Form->Grid1.Text(2, Quick::VelocityLeft), "2100");
    EXPECT_EQ(line.Form->Grid1.Text(2, Quick::InterceptLeft), "14");

    // A wrong order ends it; what is not computed does not stand.
    line.Form->Grid1.Set_Text(3, Quick::VelocityRight, "900");
    line.Form->Cells_Changed();
    EXPECT_EQ(line.Form->Labels, std::vector<std::string>{"Layer 3 Velocity must be  greater ..."});
    EXPECT_EQ(line.Form->Grid1.Text(1, Quick::Thickness), "");
    line.Form->Grid1.Set_Text(3, Quick::VelocityRight, "4000");
    line.Form->Grid1.Set_Text(2, Quick::VelocityRight, "xyz");
    line.Form->Cells_Changed();
    EXPECT_EQ(line.Form->Labels, std::vector<std::string>{"Layer 2 Velocity must be  greater ..."});
    EXPECT_FALSE(line.Work.Depth.VelocityFault) << "nobody else stumbles over it";
    EXPECT_TRUE(line.World.Prompts.Messages.empty());
}

TEST(QuickInterpretation, SavesWhatTheGridHoldsAsOneEdit) {
    QuickDialog line({400, 1200, 3500}, {4, 14});
    Project& project = line.Work.Project;
    const auto fill = [&project] {
        for (int layer = 1; layer <= 5; ++layer)
            project.VelocityA(2, layer) = project.VelocityB(2, layer) = 9999;
        for (int k = 1; k <= 4; ++k)
            project.InterceptA(2, k) = project.InterceptB(2, k) = project.ShotThickness(2, k) = 99;
    };
    fill();
    line.Open(2, 3);
    line.Form->Take_Limits(line.Crossings(2));
    line.Form->Grid1.Set_Text(3, Quick::VelocityRight, "40000");
    line.Form->Command1();
    ASSERT_EQ(line.World.Prompts.Messages.size(), 1U);
    EXPECT_EQ(line.World.Prompts.Messages[0].Text,
              "The file has no room for V Right of layer 3, nothing has been recorded");
    EXPECT_EQ(project.VelocityA(2, 1), 9999);
    EXPECT_EQ(line.Saves, 0);
    line.Form->Grid1.Set_Text(3, Quick::VelocityRight, "3600");
    line.Form->Cells_Changed();
    line.Form->Command1();
    EXPECT_EQ(line.Saves, 1);
    EXPECT_EQ(project.VelocityA(2, 3), line.Cell(3, Quick::VelocityLeft));
    EXPECT_EQ(project.VelocityB(2, 3), 3600);
    EXPECT_EQ(project.VelocityA(2, 4) + project.VelocityB(2, 5), 0);
    EXPECT_EQ(project.InterceptA(2, 1), line.Cell(2, Quick::InterceptLeft));
    EXPECT_EQ(project.InterceptB(2, 2), line.Cell(3, Quick::InterceptRight));
    EXPECT_EQ(project.InterceptB(2, 3) + project.InterceptA(2, 4), 0);
    EXPECT_EQ(project.ShotThickness(2, 2), line.Cell(2, Quick::Thickness));
    EXPECT_EQ(project.ShotThickness(2, 3) + project.ShotThickness(2, 4), 0);

    // One layer: its row alone, and the row of layer 2 counts as 0.
    fill();
    line.Form->LayerCount = "1";
    line.Form->Layers_Changed();
    EXPECT_EQ(line.Form->Grid1.Rows(), 2);
    EXPECT_EQ(line.Form->Labels.back(), "Layer 2 Velocity must be  greater ...");
    line.Form->Command1();
    EXPECT_EQ(project.VelocityA(2, 1), line.Cell(1, Quick::VelocityLeft));
    EXPECT_EQ(project.VelocityA(2, 2) + project.InterceptA(2, 1) + project.ShotThickness(2, 1), 0);
}

TEST(QuickInterpretation, ClosingLeavesNothingOnThePictureAndAModeThatNobodyKnows) {
    QuickDialog line({400, 2000}, {5});
    line.Open(2, 2);
    EXPECT_EQ(line.Work.Mode.Current(), DisplayMode::Quick);
    EXPECT_FALSE(line.Shown().empty());
    line.Form->Close();
    EXPECT_TRUE(line.Shown().empty());
    EXPECT_EQ(line.Work.Curves.ShotAlone, 0);
    EXPECT_EQ(line.Work.Mode.Current(), DisplayMode::QuickOver);
    line.Work.Project = {};
    line.Form->Load();  // without a line nothing is harmed
    line.Form->Command2();
    line.Form->Command1();
    EXPECT_EQ(line.World.Prompts.Messages.back().Text, "Wrong Shot number");
}

}  // namespace tarnvik
