// The second demo line as its README interprets it: what each method finds of the refractor.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>

#include "core/text/number.h"
#include "demo/undulating_line.h"
#include "depth/abc_grid_f.h"
#include "depth/delay_f.h"
#include "depth/grm_depth.h"
#include "depth/grm_storage.h"
#include "output/section.h"
#include "section_depths.h"
#include "support/test_ports.h"

namespace tarnvik::test {
namespace {

class UndulatingInterpretation : public testing::Test {
  protected:
    UndulatingInterpretation() {
        Work.Project = Undulating_Demo_Project();
        Work.Project.CurrentFile = Folder / "demo2.tv5";
        Scale_Time_Grid(Work);
        for (const int shot : {2, 3}) {
            for (auto* velocities : {&Work.Project.VelocityA, &Work.Project.VelocityB}) {
                (*velocities)(shot, 1) = 900;
                (*velocities)(shot, 2) = 2400;
            }
        }
        FileRoutines files;
        files.SaveProject = [](Workspace&, Ports&) { return true; };
        DelayF delay(Work, World.Ports, files);
        delay.Load();
        delay.FixedLeft = "2";
        delay.FixedRight = "3";
        delay.MovingLeft = "1";
        delay.MovingRight = "4";
        delay.Shift(DelayF::Handle::LeftCurve, undulating_line::left_shift_units);
        delay.Shift(DelayF::Handle::RightCurve, undulating_line::right_shift_units);
        delay.Set_Total_Time(undulating_line::total_time_units * Work.Curves.TimeFactor);
        World.Prompts.Expect(
            "Do you want to use the First Breaks of the End Shot instead of FB of the offset shot "
            "for the bedrock portion ?",
            Answer::No);
        World.Prompts.Expect("Do you want to save the Delay times", Answer::No);
        delay.Command2();
    }

    /// Root mean square of depth less model over the receivers that every XY reaches.
    template <class Depth>
    double Misfit(Depth depth_below) const {
        const UndulatingEarth earth = Undulating_Demo_Earth();
        double sum = 0;
        int count = 0;
        for (int receiver = 11; receiver <= 38; ++receiver, ++count) {
            const double model = earth.Depth(Work.Project.ReceiverData(ReceiverDistance, receiver));
            sum += std::pow(depth_below(receiver) - model, 2);
        }
        return std::sqrt(sum / count);
    }
    double Grm_Misfit(int xy, const std::string& velocity) {
        GRM_depth grid(Work, World.Ports);
        grid.Load();
        for (const int row : {1, undulating_line::geophones}) {
            // A film with a velocity in between stands for the missing layer.
            const char* values[] = {"899", "900", "2400", "0.01"};
            for (int column = GRM_depth::V1; column <= GRM_depth::Z1; ++column)
                grid.Type(row, column, values[column - GRM_depth::V1]);
        }
        grid.XYDistance = CStr(xy);
        grid.ReferenceVelocity = velocity;
        grid.Command2();
        EXPECT_TRUE(grid.GrmReady);
        return Misfit([this](int receiver) { return Work.Project.GrmData(GRM_depth::Bedrock, receiver); });
    }

    TemporaryFolder Folder;
    Workspace Work;
    TestPorts World;
};

TEST_F(UndulatingInterpretation, AbcLevelsTheRefractorByWhatBothRaysSee) {
    ABCGridF abc(Work, World.Ports);
    abc.Load();
    abc.Layers = "2";
    abc.CalculBt();
    ASSERT_TRUE(abc.Computed);
    const double misfit =
        Misfit([this](int receiver) { return Work.Project.ReceiverData(ReceiverRockDepth, receiver); });
    EXPECT_GT(misfit, 0.8);
    EXPECT_LT(misfit, 1.1);
}

// With the velocity of the refractor held, the two rays of the right XY leave it at one place: the depth
// comes nearest to the model there. Where each pair of receivers has its own velocity, the time is a mean
// over XY, and a larger XY can only level.
TEST_F(UndulatingInterpretation, GrmComesNearestAtTheXyWhoseRaysMeet) {
    std::map<int, double> held;
    std::map<int, double> own;
    for (const int xy : {2, 4, 6, 8, 10, 12, 16}) {
        held[xy] = Grm_Misfit(xy, "2400");
        own[xy] = Grm_Misfit(xy, "");
    }
    const auto nearest = std::min_element(held.begin(), held.end(),
                                          [](const auto& a, const auto& b) { return a.second < b.second; });
    EXPECT_GE(nearest->first, 6);
    EXPECT_LE(nearest->first, 8);
    EXPECT_LT(nearest->second, 0.75 * held[2]);
    EXPECT_LT(nearest->second, 0.5 * held[16]);
    EXPECT_TRUE(std::is_sorted(own.begin(), own.end(),
                               [](const auto& a, const auto& b) { return a.second < b.second; }));
}

// The coloured sections of both methods, along the part of the line that both reach.
TEST_F(UndulatingInterpretation, ShowsTheModelInItsSections) {
    ABCGridF abc(Work, World.Ports);
    abc.Load();
    abc.Layers = "2";
    abc.CalculBt();
    ASSERT_LT(Grm_Misfit(6, "2400"), 0.6);
    ASSERT_TRUE(Write_GRM_File(Work, World.Ports, "6"));
    const UndulatingEarth earth = Undulating_Demo_Earth();
    for (const auto& [source, within] :
         {std::pair(SectionSource::Abc, 2.2), std::pair(SectionSource::Grm, 1.1)}) {
        Work.Section.Source = source;
        if (source == SectionSource::Abc) {
            World.Prompts.Expect("With two layers, ABC is not possible, add a third level, Quit ?",
                                 Answer::No);
        }
        ASSERT_TRUE(Make_Section(Work, World.Ports, {110, 60})) << World.Prompts.Last_Text();
        for (double distance = 30; distance <= 90; distance += 10) {
            const double model = undulating_line::zero_elevation - earth.Depth(distance);
            EXPECT_NEAR(Boundary_In_Section(Work, distance, true), model, within)
                << static_cast<int>(source) << " " << distance;
        }
    }
}

}  // namespace
}  // namespace tarnvik::test
