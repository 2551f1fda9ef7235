#include "demo/demo_line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "core/files.h"
#include "core/project_file.h"
#include "demo/demo_records.h"
#include "demo/undulating_line.h"
#include "records/su_file.h"

namespace tarnvik {
namespace {

const std::string folder = TARNVIK_DEMO_FOLDER;

TEST(DemoLine, IsRemadeByteForByte) {
    const Project project = Demo_Project();
    EXPECT_TRUE(Read_File(folder + "/demo1.tv5") == Project_Bytes(project)) << "run make_demo demo";
    EXPECT_TRUE(Read_File(folder + "/demo1.su") == Demo_Records(project)) << "run make_demo demo";
    EXPECT_TRUE(Read_File(folder + "/demo2.tv5") == Project_Bytes(Undulating_Demo_Project()))
        << "run make_demo demo";
}

// The scroll bars of the delay dialog move by whole units of the picture: they must be able to put the offset
// curves exactly onto the far branches of the end shots, and the line at the reciprocal time.
TEST(DemoLine, UndulatesUnderOffsetShotsThatFitTheEndShotsByWholeUnits) {
    const Project line = Undulating_Demo_Project();
    constexpr double unit = 1.5;
    const UndulatingEarth earth = Undulating_Demo_Earth();
    const auto total = earth.First_Arrivals({0, 0}, {{undulating_line::length, 0}});
    EXPECT_NEAR(total[0], undulating_line::total_time_units * unit, 0.01);
    for (int geophone = 28; geophone <= 48; ++geophone) {
        EXPECT_NEAR(line.ShotTimes(1, geophone) - line.ShotTimes(2, geophone),
                    undulating_line::left_shift_units * unit, 0.02);
    }
    for (int geophone = 1; geophone <= 22; ++geophone) {
        EXPECT_NEAR(line.ShotTimes(4, geophone) - line.ShotTimes(3, geophone),
                    undulating_line::right_shift_units * unit, 0.02);
    }
}

// Over a plane the least time of all paths is the head wave's, whose formula is known.
TEST(UndulatingEarth, FindsTheTimesOfAPlaneThatDips) {
    const double dip = std::atan(0.05);
    const LayeredEarth plane({{900, 20, dip}, {2400, 0, 0}});
    const UndulatingEarth earth(
        900, 2400, [](double x) { return 20 + 0.05 * x; }, -140, 260);
    for (const double shot : {-60.0, 0.0, 120.0}) {
        const std::vector<SectionPoint> receivers = {{5, 0}, {50, 0}, {117.5, 0}};
        const std::vector<double> times = earth.First_Arrivals({shot, 0}, receivers);
        for (std::size_t place = 0; place < receivers.size(); ++place)
            EXPECT_NEAR(times[place], plane.First_Arrival({shot, 0}, receivers[place]), 0.001);
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
