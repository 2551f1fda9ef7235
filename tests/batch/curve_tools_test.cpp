// Shot translation and theoretical travel times from the terminal.

#include "batch/batch_fixture.h"

namespace tarnvik::test {

namespace {

using CurveTools = Batch;

}  // namespace

TEST_F(CurveTools, a_translated_curve_is_told_and_its_intercept_recorded_when_the_question_is_answered) {
    const std::string line = Demo("demo1.tv5");
    const std::string before = *Read_File(line);
    const Project project = Read(line);
    const auto times = Run("phantom " + line + " --fixed 2 --moving 1 --shift 12.5 --json");
    EXPECT_EQ(times.Status, 0);
    EXPECT_EQ(times.Json()["ShotSide"], 24);
    EXPECT_EQ(times.Json()["message"], "");
    ASSERT_EQ(times.Json()["times"].size(), 24U);
    EXPECT_NEAR(times.Json()["times"][9], project.ShotTimes(1, 10) - 12.5, 1e-4);
    // Upwards a missing pick stays one; the demo line has none at receiver 16 of shot 3.
    EXPECT_TRUE(Run("phantom " + line + " --fixed 4 --moving 3 --shift=-3 --slope left --json")
                    .Json()["times"][15]
                    .is_null());
    const auto corrected = Run("phantom " + line + " --fixed 9 --moving 5 --shift 0 --json");
    EXPECT_EQ(corrected.Status, 0);
    EXPECT_EQ(corrected.Json()["message"], "Wrong shot Number");
    EXPECT_EQ(corrected.Json()["ShotSide"], 0);

    const std::string record =
        "phantom " + line +
        " --fixed 2 --moving 1 --shift 11.4 --intercept-number 2 --intercept 35.9 --record";
    EXPECT_EQ(Run(record + " --save").Status, 1) << "not answered";
    const auto answered = Run(record + " --slope right --answer yes --json");
    EXPECT_EQ(answered.Status, 0);
    EXPECT_EQ(answered.Json()["message"], "");
    EXPECT_EQ(*Read_File(line), before);
    EXPECT_EQ(Run(record + " --slope left --yes --out " + (Folder / "a.tv5")).Status, 0);
    EXPECT_EQ(Read(Folder / "a.tv5").InterceptA(2, 2), 35.9);
    EXPECT_EQ(*Read_File(line), before);
    EXPECT_EQ(Run(record + " --yes --save").Status, 0);
    EXPECT_EQ(Read(line).InterceptB(2, 2), 35.9);
    EXPECT_EQ(Read(line).InterceptA(2, 2), 0);
    const auto refused = Run("phantom " + line +
                             " --fixed 3 --moving 3 --shift 0 --intercept-number 1 "
                             "--intercept 20 --record --yes --save --json");
    EXPECT_EQ(refused.Status, 1);
    EXPECT_EQ(refused.Json()["message"], "Slope missing...");
    EXPECT_EQ(Run("phantom " + line + " --fixed 1 --moving 2 --shift 151").Status, 2);
}

TEST_F(CurveTools, branches_of_a_model_are_told_and_a_wrong_one_is_refused) {
    const std::string line = Demo("demo1.tv5");
    const auto drawn = Run("theoretic --layer 600,6 --layer 1600,12 --layer 3800 --at 0 " + line + " --json");
    EXPECT_EQ(drawn.Status, 0);
    EXPECT_EQ(drawn.Json()["NbLayers"], 3);
    EXPECT_EQ(drawn.Json()["IT"], nlohmann::json({19, 14}));
    const nlohmann::json branches = drawn.Json()["branches"];
    ASSERT_EQ(branches.size(), 3U);
    EXPECT_EQ(branches[0], nlohmann::json({0, 0, 48, 100}));
    EXPECT_NEAR(branches[2][3], 33 + 120 / 3.8, 1e-9);
    const auto refused = Run("theoretic " + line + " --at 0 --layer 600,6 --layer 600,9 --json");
    EXPECT_EQ(refused.Status, 1);
    EXPECT_EQ(refused.Json()["message"], "Layer 2 Velocity must be  greater ...");
    EXPECT_TRUE(refused.Json()["branches"].empty());
    for (const char* wrong : {"600,6,7", "600,m", "", ","})
        EXPECT_EQ(Run("theoretic " + line + " --at 0 --layer '" + wrong + "'").Status, 2) << wrong;
}

}  // namespace tarnvik::test
