// The generalised reciprocal method over earths whose times are exact, and its two dialogs.

#include "depth/grm.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>
#include <vector>

#include "core/files.h"
#include "core/text/number.h"
#include "demo/layered_earth.h"
#include "depth/grm_depth.h"
#include "depth/grm_rows.h"
#include "depth/grm_storage.h"
#include "support/test_ports.h"

namespace tarnvik {
namespace {

constexpr int receivers = 24;

/// 24 receivers 5 apart over `earth`, with the times of the waves along its deepest boundary from both ends.
struct GrmLine : testing::Test {
    void Lay(const LayeredEarth& earth) {
        Project& line = Work.Project;
        line.NbShots = 2;
        line.NbReceivers = receivers;
        line.LineLength = 5 * (receivers - 1);
        Redimension_Project(line);
        const int deepest = earth.Count() - 1;
        for (int r = 1; r <= receivers; ++r) {
            const double x = 5 * (r - 1);
            line.ReceiverData(ReceiverDistance, r) = static_cast<float>(x);
            line.ReceiverData(ReceiverElevation, r) = 100;
            line.GrmData(1, r) = earth.Head_Wave_Time(deepest, {-20, 0}, {x, 0}) -
                                 earth.Head_Wave_Time(deepest, {-20, 0}, {line.LineLength, 0}) +
                                 earth.Head_Wave_Time(deepest, {0, 0}, {line.LineLength, 0});
            line.GrmData(2, r) = earth.Head_Wave_Time(deepest, {line.LineLength + 20, 0}, {x, 0}) -
                                 earth.Head_Wave_Time(deepest, {line.LineLength + 20, 0}, {0, 0}) +
                                 earth.Head_Wave_Time(deepest, {line.LineLength, 0}, {0, 0});
        }
        line.TotalTime = earth.Head_Wave_Time(deepest, {0, 0}, {line.LineLength, 0});
        line.CurrentFile = Folder / "line.tv5";
    }
    void Lay_Horizontal(std::vector<double> velocities, std::vector<double> thicknesses) {
        Lay(LayeredEarth::Horizontal(velocities, thicknesses));
    }
    /// Velocities and the upper thickness at both ends.
    void Type_Ends(double v1, double v2, double v3, double z1) {
        for (const int row : {1, receivers}) {
            const double values[] = {v1, v2, v3, z1};
            for (int column = 4; column <= 7; ++column)
                ASSERT_TRUE(Grid.Type(row, column, std::to_string(values[column - 4])));
        }
    }
    void Compute(const std::string& xy) {
        Grid.XYDistance = xy;
        Grid.Command2();
    }

    test::TemporaryFolder Folder;
    Workspace Work;
    test::TestPorts World;
    GRM Dialog{Work, World.Ports};
    GRM_depth Grid{Work, World.Ports};
};

TEST_F(GrmLine, FindsTwoLayersHorizontalAndDipping) {
    for (const double degrees : {0.0, 5.0, 10.0}) {
        const double dip = degrees * std::acos(-1) / 180;
        const LayeredEarth earth({{500, 6, dip}, {2000, 0, 0}});
        Lay(earth);
        Grid.Load();
        // A film with a velocity in between stands for the missing upper layer.
        Type_Ends(400, 500, 2000, 0.01);
        Compute("2");
        ASSERT_TRUE(Grid.GrmReady);
        for (int row = 2; row < receivers; ++row) {
            const double depth = earth.Normal_Distance(1, {5.0 * (row - 1), 0});
            // The formula neglects the dip between the two receivers of an XY: 2 % at 10 degrees. Depths are
            // cut to tenths.
            EXPECT_NEAR(Work.Project.GrmData(9, row) + 0.05, depth, 0.06 + 0.02 * depth * (degrees / 10))
                << degrees << " degrees, receiver " << row;
        }
        EXPECT_NEAR(Grid.GRM_Grid.Value(12, GRM_depth::Vref), 2000 / std::cos(dip), 2);
        EXPECT_EQ(Grid.GRM_Grid.Value(12, GRM_depth::Elevation),
                  Int(10 * (100 - Work.Project.GrmData(9, 12))) / 10);
    }
}

// Three layers: the intercept of layer 1 is taken for the angle towards layer 2, where the wave of layer 3 is
// steeper. Over 3 m of 600 and 6 m of 1500 on 3500 the second layer comes out 4 to 8 % too thin or too thick.
TEST_F(GrmLine, ComesNearThreeLayers) {
    Lay_Horizontal({600, 1500, 3500}, {3, 6});
    Grid.Load();
    Type_Ends(600, 1500, 3500, 3);
    Compute("4");
    EXPECT_NEAR(Work.Project.GrmData(8, 12), 6, 6 * 0.12);
    EXPECT_GT(std::abs(Work.Project.GrmData(8, 12) - 6), 0.1) << "an exact result would be another formula's";
    EXPECT_EQ(Work.Project.GrmData(9, 1), 0) << "no GRM time at the ends";
}

TEST_F(GrmLine, ComputesCurvesByTheirFormulas) {
    Lay_Horizontal({500, 2000}, {6});
    Project& line = Work.Project;
    const double time = std::exchange(line.GrmData(1, 10), 0);
    const auto tv = Curves_Of_Grm(line, GrmFunction::Velocity, 3, 5, 0);
    ASSERT_EQ(tv.Curves.size(), 2U);
    EXPECT_EQ(tv.Curves[0].Points, tv.Curves[1].Points) << "3 and 5 both have half 2";
    EXPECT_EQ(tv.Curves[0].Points.size(), 19U) << "a gap at receiver 8, whose time is missing";
    EXPECT_DOUBLE_EQ(tv.Curves[0].Points[0].Value,
                     (line.GrmData(1, 5) - line.GrmData(2, 1) + line.TotalTime) / 2);
    line.GrmData(1, 10) = time;
    const auto tg = Curves_Of_Grm(line, GrmFunction::TimeDepth, 4, 4, 0);
    const double delay = 6 * std::sqrt(1 - 1.0 / 16) / 500 * 1000;  // ms
    for (const GrmPoint& point : tg.Curves[0].Points)
        EXPECT_NEAR(point.Value, delay, 0.005) << "receiver " << point.Receiver;
    EXPECT_NEAR(tg.Velocity, 2000, 1);

    // Times that nothing tells apart have no reference velocity.
    for (int r = 1; r <= receivers; ++r)
        line.GrmData(1, r) = line.GrmData(2, r) = 40;
    const auto broken = Curves_Of_Grm(line, GrmFunction::TimeDepth, 2, 4, 0);
    EXPECT_TRUE(broken.Broken);
    EXPECT_EQ(broken.Curves.size(), 1U);
    EXPECT_FALSE(Curves_Of_Grm(line, GrmFunction::TimeDepth, 2, 4, 1500).Broken) << "the one before stays";
}

TEST_F(GrmLine, KeepsXYWithinTheLine) {
    Lay_Horizontal({500, 2000}, {6});
    const struct {
        const char *Least, *Most, *LeastAfter, *MostAfter;
        std::vector<std::string> Messages;
    } cases[] = {
        {"2", "12", "2", "12", {}},
        {"1", "13", "2", "12", {"XY Minimum 2 Receivers...", "XY Maximum 12 Receivers..."}},
        {"20", "8", "8", "8", {"XY Maximum 12 Receivers..."}},
        {"word", "4", "2", "4", {"XY Minimum 2 Receivers..."}},
        {"2", "-3", "-3", "-3", {"GRM error"}},
    };
    for (const auto& c : cases) {
        Dialog.Load();
        Dialog.Minimum = c.Least;
        Dialog.Maximum = c.Most;
        World.Prompts.Messages.clear();
        Dialog.Command1();
        EXPECT_EQ(Dialog.Minimum, c.LeastAfter);
        EXPECT_EQ(Dialog.Maximum, c.MostAfter);
        std::vector<std::string> said;
        for (const auto& message : World.Prompts.Messages)
            said.push_back(message.Text);
        EXPECT_EQ(said, c.Messages);
    }
    Compute("13");
    EXPECT_EQ(Grid.XYDistance, "13") << "no grid yet: nothing is done";
    Grid.Load();
    Compute("13");
    EXPECT_EQ(Grid.XYDistance, "12");
    Compute("5.9");
    EXPECT_EQ(Grid.XYDistance, "5") << "odd stays odd";
    EXPECT_EQ(Grid.GRM_Grid.Text(0, 3), "GRM time\nXY =5");
}

TEST_F(GrmLine, InterpolatesBetweenWhatTheUserTyped) {
    Lay_Horizontal({500, 2000}, {6});
    Grid.Load();
    Work.Project.GrmData(9, 5) = 3;
    EXPECT_FALSE(Grid.Type(1, 4, "fast")) << "letters are no velocity";
    EXPECT_FALSE(Grid.Type(0, 4, "5"));
    EXPECT_FALSE(Grid.Type(25, 4, "5"));
    EXPECT_FALSE(Grid.Type(3, 11, "5"));
    Compute("2");
    EXPECT_TRUE(World.Prompts.Said("You must input a value for the first receiver..."));
    Grid.Type(1, 4, "400");
    Compute("2");
    EXPECT_EQ(World.Prompts.Last_Text(), "You must input a value for the last receiver...");
    EXPECT_EQ(Work.Project.GrmData(9, 5), 3) << "depths stay";
    EXPECT_EQ(Work.Project.GrmData(4, 1), 0);

    Type_Ends(400, 500, 2000, 2.3);
    Grid.Type(4, 4, "500");
    Grid.Type(24, 7, "1.3");
    Compute("2");
    ASSERT_TRUE(Grid.GrmReady);
    EXPECT_EQ(Grid.GRM_Grid.Text(2, 4), "433") << "cut, from 400 to 500 in three steps";
    EXPECT_EQ(Grid.GRM_Grid.Text(4, 4), "500");
    EXPECT_EQ(Grid.GRM_Grid.Text(2, 7), "2.25") << "2.2565 cut to hundredths";
    EXPECT_TRUE(Grid.Is_Interpolated(2, 4));
    EXPECT_NE(Grid.GRM_Grid.At(2, 4).BackColour, Grid.GRM_Grid.At(4, 4).BackColour);
    EXPECT_EQ(Grid.GRM_Grid.Text(1, 3), " ");

    // What an earlier run filled counts as filled, until it is cleared; what was typed over it stays.
    Grid.Type(4, 4, "700");
    Grid.Type(3, 4, "450");
    Compute("2");
    EXPECT_EQ(Grid.GRM_Grid.Text(2, 4), "433");
    Grid.Clear_Interpolated();
    EXPECT_EQ(Grid.GRM_Grid.Text(2, 4), "");
    EXPECT_EQ(Grid.GRM_Grid.Text(3, 4), "450");
    Compute("2");
    EXPECT_EQ(Grid.GRM_Grid.Text(2, 4), "425");

    // Equal velocities have no critical angle.
    EXPECT_EQ(Second_Thickness(20, {500, 2000, 2000, 1}), 0);
    EXPECT_EQ(Second_Thickness(20, {500, 500, 1e6, 1}), 10) << "without the intercept of layer 1";
}

TEST_F(GrmLine, GoesToTheFileAndComesBack) {
    Lay_Horizontal({500, 2000}, {6});
    Grid.Load();
    Type_Ends(400, 500, 2000, 0.01);
    Grid.TotalTime = CStr(Work.Project.TotalTime + 2);
    Compute("6");
    const double depth = Work.Project.GrmData(9, 12);
    Grid.Command1();
    EXPECT_EQ(World.Prompts.Last_Text(), Folder / "line.GRM file recorded!");
    const double total = Work.Project.TotalTime;

    Workspace other;
    Project& line = other.Project;
    line.NbReceivers = receivers;
    Redimension_Project(line);
    line.CurrentFile = Folder / "LINE.tv5";
    Take_Up_GRM_File(other, World.Ports);
    EXPECT_EQ(other.Grm.GrmXY, 6);
    EXPECT_NEAR(line.TotalTime, total, 1e-9);
    EXPECT_EQ(line.GrmData(9, 12), depth);
    EXPECT_FALSE(other.Edits.Can_Undo()) << "opening is no edit";

    // A delay computation since: the file is read only when the user wants it.
    Work.Project.GrmData(1, 5) += 1;
    World.Prompts.Expect_Start("line.GRM holds other values", Answer::No);
    Grid.Load();
    EXPECT_NEAR(Grid.GRM_Grid.Value(5, 1), Work.Project.GrmData(1, 5), 1e-9);
    EXPECT_EQ(Grid.GRM_Grid.Value(5, 9), Work.Project.GrmData(9, 5));
    Replace_File(Folder / "line.GRM", "cut");
    const Array2<double> before = Work.Project.GrmData;
    Grid.Command5();
    EXPECT_TRUE(World.Prompts.Last_Text().starts_with("Bad file or no GRM file recorded")) << "as it stands";
    EXPECT_EQ(Work.Project.GrmData, before);
    EXPECT_EQ(Work.Project.TotalTime, total);
}

}  // namespace
}  // namespace tarnvik
