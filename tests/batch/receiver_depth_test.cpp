// delay and abc from the terminal, on the line whose refractor undulates.

#include "batch_fixture.h"

namespace tarnvik::test {
namespace {

const char* const fit = " --fixed 2,3 --moving 1,4 --shifts 20,24 --total-time 94.5";

TEST_F(Batch, delays_and_the_depths_that_follow) {
    const std::string line = Demo("demo2.tv5");
    const std::string before = *Read_File(line);
    const Outcome told = Run("delay " + line + fit + " --save --json");
    EXPECT_EQ(told.Status, 0) << told.Errors;
    const auto json = told.Json();
    EXPECT_EQ(json["D"].size(), 48U);
    EXPECT_NEAR(json["D"][0].get<double>(), 44.88, 1e-4);
    EXPECT_NEAR(json["ReceiverData1"][0].get<double>(), 44.8, 1e-5);
    EXPECT_NEAR(json["GrmData1"][0].get<double>(), 45.06, 1e-4);
    EXPECT_EQ(json["TotalTime"], 94.5);
    EXPECT_EQ(json["TimeFactor"], 1.5);
    EXPECT_EQ(json["message"], "");
    EXPECT_EQ(Read(line).ReceiverData(ReceiverIntercept, 1), 0) << "not without --record";

    const std::string found = Folder / "found.tv5";
    EXPECT_EQ(Run("delay " + line + fit + " --end-shots 27,22 --record --out " + found).Status, 0);
    Project project = Read(found);
    EXPECT_EQ(project.TotalTime, 94.5);
    EXPECT_FLOAT_EQ(project.ReceiverData(ReceiverIntercept, 1), 44.8F);
    for (int shot = 2; shot <= 3; ++shot) {
        project.VelocityA(shot, 1) = 900;
        project.VelocityA(shot, 2) = 2400;
    }
    EXPECT_EQ(Replace_File(found, Project_Bytes(project)), "");
    const Outcome depths = Run("abc " + found + " --half-shot-depth 1 --record --save --json");
    EXPECT_EQ(depths.Status, 0) << depths.Errors;
    // 900 * 44.8 / (2 * cos asin (900 / 2400)) thousandths of a metre, and 1.
    EXPECT_NEAR(depths.Json()["2"][0].get<double>(), 22.747, 0.001);
    EXPECT_NEAR(depths.Json()["11"][0].get<double>(), 21747, 1);
    EXPECT_GE(depths.Json()["rock"].get<double>(), 22.747);
    EXPECT_FLOAT_EQ(Read(found).ReceiverData(ReceiverRockDepth, 1),
                    depths.Json()["2"][0].get<float>());
}

TEST_F(Batch, refused_delays_and_depths_write_nothing) {
    const std::string line = Demo("demo2.tv5");
    const std::string before = *Read_File(line);
    for (const std::string& command :
         {"delay " + line + " --fixed 2,3 --moving 1,4 --shifts 0,0 --total-time 90",
          "delay " + line + " --fixed 2,3 --moving 1,5 --shifts 1,0 --total-time 90",
          "abc " + line + " --layers 5", "abc " + line + " --layers 0"}) {
        const Outcome told = Run(command + " --record --save --json");
        EXPECT_EQ(told.Status, 1) << command;
        EXPECT_NE(told.Json()["message"], "");
        EXPECT_EQ(*Read_File(line), before);
    }
    EXPECT_EQ(Run("delay " + line + " --fixed 2 --moving 1,4 --shifts 1,1 --total-time 90").Status, 2);
}

}  // namespace
}  // namespace tarnvik::test
