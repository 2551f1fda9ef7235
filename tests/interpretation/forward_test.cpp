// First arrivals through a section against exact times of plane layers, and the check of a line by them.

#include <gtest/gtest.h>

#include "core/files.h"
#include "interpretation/forward_check.h"
#include "random_earth.h"
#include "records/su_file.h"
#include "support/earth_line.h"
#include "support/test_ports.h"

namespace tarnvik::test {
namespace {

LayeredSection Section_Of(const LayeredEarth& earth, double length) {
    LayeredSection section;
    section.Ground = LineValues({{0, 0}});
    for (int layer = 1; layer <= earth.Count(); ++layer) {
        section.Velocities.push_back(LineValues({{0, earth.Velocity(layer)}}));
        if (layer == earth.Count()) break;
        section.Interfaces.push_back(LineValues({{-length, -earth.Boundary_Depth(layer, -length)},
                                                 {2 * length, -earth.Boundary_Depth(layer, 2 * length)}}));
    }
    return section;
}

TEST(ForwardTimes, agree_with_plane_layers_to_half_a_percent_or_three_tenths_of_a_millisecond) {
    std::mt19937 random(7);
    int lines = 0;
    int times = 0;
    int off = 0;
    while (lines < 6) {
        const auto line = Draw_Line(random);
        if (!line || line->Earth.Count() < 2 + lines % 3) continue;
        ++lines;
        ForwardRequest request;
        request.Section = Section_Of(line->Earth, line->Receivers.back());
        for (const double shot : line->Shots)
            request.Shots.push_back({shot, 0});
        for (const double receiver : line->Receivers)
            request.Receivers.push_back({receiver, 0});
        const ForwardResult result = First_Arrivals(request);
        for (std::size_t shot = 0; shot < line->Shots.size(); ++shot) {
            for (std::size_t i = 0; i < line->Receivers.size(); ++i) {
                const double exact = line->Exact[shot][i];
                ++times;
                off += std::abs(result.Times[shot][i] - exact) > std::max(0.3, 0.005 * exact) ? 1 : 0;
            }
        }
    }
    EXPECT_LE(off, times * 3 / 100) << "of " << times;
}

TEST(ForwardTimes, are_those_of_the_way_back_and_go_round_a_hill) {
    ForwardRequest request;
    request.Nodes = 40000;
    request.Section.Ground = LineValues({{0, 0}, {50, 30}, {100, 0}});
    request.Section.Velocities = {LineValues({{0, 1000}})};
    request.Shots = {{0, 0}, {50, 30}};
    request.Receivers = {{100, 0}, {50, 30}, {0, 0}};
    const auto there = First_Arrivals(request).Times;
    // Through the hill, along its slope.
    EXPECT_NEAR(there[0][0], 100, 0.5);
    EXPECT_NEAR(there[0][1], std::hypot(50, 30), 0.5);
    std::swap(request.Shots, request.Receivers);
    const auto back = First_Arrivals(request).Times;
    EXPECT_NEAR(back[0][0], there[0][0], 1e-9);
    EXPECT_NEAR(back[1][0], there[0][1], 0.2);
    // Across a valley the wave keeps to the ground.
    request.Section.Ground = LineValues({{0, 0}, {50, -30}, {100, 0}});
    request.Shots = {{0, 0}};
    request.Receivers = {{100, 0}};
    EXPECT_NEAR(First_Arrivals(request).Times[0][0], 2 * std::hypot(50, 30), 1);
    int told = 0;
    const auto stop = [&told](std::size_t, std::size_t) { return ++told < 2; };
    request.Shots.assign(200, {0, 0});
    request.Receivers.assign(200, {100, 0});
    EXPECT_TRUE(First_Arrivals(request, stop).Stopped);
}

class LineCheck : public testing::Test {
  protected:
    LineCheck() {
        Lay_Two_Layers(Work, {-30, 0, 57.5, 115, 145});
        Project& line = Work.Project;
        for (int shot = 1; shot <= line.NbShots; ++shot) {
            line.VelocityA(shot, 1) = line.VelocityB(shot, 1) = 500;
            line.VelocityA(shot, 2) = line.VelocityB(shot, 2) = 2000;
            line.ShotThickness(shot, 1) = 6;
        }
    }
    Workspace Work;
};

TEST_F(LineCheck, a_line_that_was_interpreted_rightly_leaves_no_residuals_and_a_wrong_pick_stands_out) {
    const ForwardCheck check = Check_Forward(Work.Project, SectionSource::Shots);
    ASSERT_EQ(check.Refusal, "");
    ASSERT_TRUE(check.Rms);
    EXPECT_LT(*check.Rms, 0.3);
    Work.Project.ShotTimes(3, 20) += 8;
    Work.Project.ShotTimes(2, 1) = 0;
    const ForwardCheck second = Check_Forward(Work.Project, SectionSource::Shots);
    EXPECT_NEAR(*second.Residuals[2][19], 8, 0.5);
    EXPECT_FALSE(second.Residuals[1][0]);
    EXPECT_GT(*second.ShotRms[2], 1.4);
    EXPECT_GT(*second.ReceiverRms[19], 3);
    EXPECT_LT(*second.ShotRms[1], 0.3);
}

TEST_F(LineCheck, calculated_times_become_records_that_can_be_picked) {
    const ForwardCheck check = Check_Forward(Work.Project, SectionSource::Shots);
    TemporaryFolder folder;
    ASSERT_EQ(Replace_File(folder / "a.su", Synthetic_Records(Work.Project, check)), "");
    SuTraces records(folder / "a.su");
    ASSERT_EQ(records.Nb_Traces(), 120);
    const double time = check.Times[1][9];
    EXPECT_NEAR(records.Pick_Ms(34), time, 0.05);
    EXPECT_EQ(records.Word(34, words::gx), 4500);
    const auto first = static_cast<std::int32_t>(time / 0.25);
    EXPECT_EQ(records.Sample(34, first), 0);
    EXPECT_GT(records.Sample(34, first + 6).value_or(0), 0.2F);
}

TEST_F(LineCheck, without_depths_it_says_what_is_missing) {
    for (int shot = 1; shot <= Work.Project.NbShots; ++shot)
        Work.Project.ShotThickness(shot, 1) = 0;
    EXPECT_NE(Check_Forward(Work.Project, SectionSource::Shots).Refusal.find("no depths"), std::string::npos);
    EXPECT_NE(Check_Forward(Work.Project, SectionSource::Grm).Refusal.find("GRM"), std::string::npos);
}

}  // namespace
}  // namespace tarnvik::test
