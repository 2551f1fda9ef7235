#include "demo/demo_line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "core/files.h"
#include "core/project_file.h"
#include "demo/demo_records.h"
#include "records/su_file.h"

namespace tarnvik {
namespace {

const std::string folder = TARNVIK_DEMO_FOLDER;

TEST(DemoLine, IsRemadeByteForByte) {
    const Project project = Demo_Project();
    EXPECT_TRUE(Read_File(folder + "/demo1.tv5") == Project_Bytes(project)) << "run make_demo demo";
    EXPECT_TRUE(Read_File(folder + "/demo1.su") == Demo_Records(project)) << "run make_demo demo";
}

TEST(DemoLine, KeepsEveryPickAndPlaceInItsFile) {
    const Project made = Demo_Project();
    Project read;
    Parse_Project(Read_File(folder + "/demo1.tv5").value_or(""), read);
    for (int shot = 1; shot <= made.NbShots; ++shot) {
        for (int geophone = 1; geophone <= made.NbReceivers; ++geophone) {
            // The file cuts times down to hundredths, which may take 0.01 ms from one that is binary-rounded.
            EXPECT_NEAR(read.ShotTimes(shot, geophone), made.ShotTimes(shot, geophone) - 0.005, 0.0051);
        }
    }
    EXPECT_EQ(read.ReceiverData, made.ReceiverData);
    EXPECT_EQ(read.ShotDistance, made.ShotDistance);
    EXPECT_EQ(read.ShotElevation, made.ShotElevation);
    EXPECT_EQ(read.SuFile, "demo1.su");
    EXPECT_EQ(read.TotalTime, made.TotalTime);
}

/// Every layer can be marked from either end: at least four geophones of each branch at both end shots and
/// three at the middle shot, and the deepest layer alone at the offset shots.
TEST(DemoLine, ShowsAllLayersFromBothEnds) {
    const Project project = Demo_Project();
    const LayeredEarth earth = Demo_Earth();
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        std::array<std::array<int, 4>, 2> heard{};
        for (int geophone = 1; geophone <= project.NbReceivers; ++geophone) {
            int branch = 0;
            earth.First_Arrival(Shot_Point(project, shot), Geophone_Point(project, geophone), &branch);
            const bool beyond = project.ReceiverData(ReceiverDistance, geophone) > project.ShotDistance(shot);
            ++heard.at(beyond ? 1 : 0).at(static_cast<std::size_t>(branch));
        }
        const auto on_a_side = [&](std::size_t layer) { return std::max(heard[0][layer], heard[1][layer]); };
        if (shot == 1 || shot == demo_line::shots) {
            EXPECT_EQ(on_a_side(3), demo_line::geophones) << shot;
        } else if (shot == 3) {
            for (const auto& side : heard)
                EXPECT_GE(*std::min_element(side.begin() + 1, side.end()), 3);
        } else {
            for (std::size_t layer = 1; layer <= 3; ++layer)
                EXPECT_GE(on_a_side(layer), 4) << shot << " " << layer;
        }
    }
}

TEST(DemoRecords, StartAtTheExactTimesAboveTheirNoise) {
    const Project project = Demo_Project();
    SuTraces file(folder + "/demo1.su");
    ASSERT_TRUE(file.Is_Open());
    ASSERT_EQ(file.Nb_Traces(), project.NbShots * project.NbReceivers);
    const double interval = file.Sample_Interval() / 1000.0;
    std::vector<float> samples(static_cast<std::size_t>(file.Nb_Samples()));
    constexpr float clear_of_noise = 300;  // five times its root mean square
    int dead = 0;
    int reversed = 0;
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        for (int geophone = 1; geophone <= project.NbReceivers; ++geophone) {
            const int trace = (shot - 1) * project.NbReceivers + geophone;
            ASSERT_EQ(file.Samples(trace, samples), file.Nb_Samples());
            EXPECT_EQ(file.Word(trace, words::fldr), shot);
            EXPECT_EQ(file.Channel(trace), geophone);
            EXPECT_EQ(file.Pick_Ms(trace), 0);
            const auto onset = std::find_if(samples.begin(), samples.end(),
                                            [](float s) { return std::abs(s) > clear_of_noise; });
            if (file.Word(trace, words::trid) == dead_trace) {
                ++dead;
                EXPECT_EQ(project.ShotTimes(shot, geophone), 0);
                EXPECT_EQ(onset, samples.end());
                continue;
            }
            ASSERT_NE(onset, samples.end()) << shot << " " << geophone;
            if (*onset < 0) ++reversed;
            const double time = static_cast<double>(onset - samples.begin() + 1) * interval;
            EXPECT_GE(time, project.ShotTimes(shot, geophone)) << shot << " " << geophone;
            EXPECT_LE(time, project.ShotTimes(shot, geophone) + 2 * interval) << shot << " " << geophone;
        }
    }
    EXPECT_EQ(dead, 1);
    EXPECT_EQ(reversed, 1);
}

}  // namespace
}  // namespace tarnvik
