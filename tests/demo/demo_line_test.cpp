#include "demo/demo_line.h"

#include <gtest/gtest.h>

#include <algorithm>
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
