#include <gtest/gtest.h>

#include <vector>

#include "core/files.h"
#include "core/project_file.h"
#include "core/text/number.h"
#include "demo/demo_line.h"
#include "depth/fcalcul.h"
#include "depth/shot_velocities.h"
#include "output/section.h"
#include "section_depths.h"
#include "support/test_ports.h"
#include "traveltime/confirm.h"
#include "traveltime/speed_f.h"

namespace tarnvik::test {
namespace {

/// A stretch of a curve as the README of the demo line marks it.
struct Stretch {
    int Shot;
    int Layer;
    int From;
    int To;
};
const std::vector<Stretch> stretches = {
    {2, 1, 1, 4},   {2, 2, 5, 9},   {2, 3, 10, 24}, {3, 1, 8, 12},  {3, 2, 4, 7},   {3, 3, 1, 3},
    {3, 1, 13, 17}, {3, 2, 18, 21}, {3, 3, 22, 24}, {4, 1, 20, 24}, {4, 2, 16, 19}, {4, 3, 1, 15},
};

class DemoInterpretation : public testing::Test {
  protected:
    DemoInterpretation() {
        Files.SaveProject = [](Workspace&, Ports&) { return true; };
        Project& project = Work.Project;
        Parse_Project(Read_File(TARNVIK_DEMO_FOLDER "/demo1.tv5").value_or(""), project);
        Scale_Time_Grid(Work);
    }

    void Mark(const Stretch& stretch) {
        SpeedF dialog(Work, Test.Ports, Files);
        dialog.Load();
        dialog.Shot = CStr(stretch.Shot);
        dialog.Shot_Changed();
        dialog.Layer = CStr(stretch.Layer);
        dialog.Layer_Changed();
        dialog.FirstReceiver = CStr(stretch.From);
        dialog.LastReceiver = CStr(stretch.To);
        if (stretch.Layer == 1) {
            dialog.ThroughShot = true;
            dialog.ThroughShot_Clicked();
        }
        dialog.Command5();
        Confirm confirm(Work, Test.Ports, dialog, Files);
        confirm.Load();
        confirm.Command1();
    }

    /// Answers the true velocities of the layers.
    DepthWork::PerLayer Compute_Depths(int shot) {
        Work.Velocity.CurrentShot = static_cast<std::int16_t>(shot);
        Fcalcul dialog(Work, Test.Ports, Files);
        dialog.Load();
        dialog.Command1();
        dialog.Command4();
        return Work.Depth.TrueV;
    }

    Workspace Work;
    TestPorts Test;
    FileRoutines Files;
};

/// The values that the README of the demo line sets beside the model. The first layer has neither dip nor
/// relief in it. The others carry what one straight line through a stretch cannot know: an end shot sees the
/// dips from one side alone, and a knoll of 0.8 m is worth more than 1 ms in a layer of 600 m/s, which leans
/// on the fit of the three geophones that see layer 3 on either side of the middle shot and on the far
/// branches. Thicknesses come off better, since an intercept is read at the shot itself.
TEST_F(DemoInterpretation, FindsTheLayersBelowEachShot) {
    for (const Stretch& stretch : stretches)
        Mark(stretch);
    struct Found {
        int Shot;
        double V2, V3, Z1, Z2;
    };
    const Found readme[] = {
        {2, 1474, 3603, 6.33, 12.58}, {3, 1681, 4214, 8.15, 13.40}, {4, 1589, 4811, 8.23, 15.89}};
    const Project& project = Work.Project;
    const LayeredEarth earth = Demo_Earth();
    for (const Found& found : readme) {
        const DepthWork::PerLayer velocity = Compute_Depths(found.Shot);
        EXPECT_NEAR(velocity[1], 600, 1) << found.Shot;
        EXPECT_NEAR(velocity[2], found.V2, 1) << found.Shot;
        EXPECT_NEAR(velocity[3], found.V3, 1) << found.Shot;
        EXPECT_NEAR(project.ShotThickness(found.Shot, 1), found.Z1, 0.02) << found.Shot;
        EXPECT_NEAR(project.ShotThickness(found.Shot, 2), found.Z2, 0.02) << found.Shot;
        EXPECT_NEAR(velocity[2], 1600, 0.08 * 1600) << found.Shot;
        EXPECT_NEAR(velocity[3], 3800, 0.28 * 3800) << found.Shot;

        const SectionPoint place = Shot_Point(project, found.Shot);
        const double first = earth.Boundary_Depth(1, place.X) - place.Z;
        const double second = earth.Boundary_Depth(2, place.X) - earth.Boundary_Depth(1, place.X);
        EXPECT_NEAR(project.ShotThickness(found.Shot, 1), first, 0.06 * first) << found.Shot;
        EXPECT_NEAR(project.ShotThickness(found.Shot, 2), second, 0.13 * second) << found.Shot;
    }
    EXPECT_TRUE(Test.Prompts.Messages.empty()) << Test.Prompts.Last_Text();
}

/// The coloured section of the shots, along the line: as its README sets it beside the model.
TEST_F(DemoInterpretation, ShowsTheModelInItsSection) {
    for (const Stretch& stretch : stretches)
        Mark(stretch);
    for (const int shot : {2, 3, 4})
        Compute_Depths(shot);
    ASSERT_TRUE(Make_Section(Work, Test.Ports, {110, 70})) << Test.Prompts.Last_Text();
    const LayeredEarth earth = Demo_Earth();
    for (const double distance : {1.0, 20.0, 40.0, 60.0, 80.0, 100.0, 119.0}) {
        const double first = demo_line::zero_elevation - earth.Boundary_Depth(1, distance);
        const double second = demo_line::zero_elevation - earth.Boundary_Depth(2, distance);
        EXPECT_NEAR(Boundary_In_Section(Work, distance, false), first, 0.8) << distance;
        EXPECT_NEAR(Boundary_In_Section(Work, distance, true), second, 2.0) << distance;
        RecordProperty("found_" + CStr(distance),
                       CStr(Boundary_In_Section(Work, distance, false)) + " " + CStr(first) + " " +
                           CStr(Boundary_In_Section(Work, distance, true)) + " " + CStr(second));
    }
}

}  // namespace
}  // namespace tarnvik::test
