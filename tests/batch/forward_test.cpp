// forward: calculated against picked times, as a script uses it.

#include "batch/batch_fixture.h"

namespace tarnvik::test {

TEST_F(Batch, forward_tells_times_residuals_and_writes_records) {
    const std::string line = Changed_Demo("line.tv5", [](Project& project) {
        Interpret(project);
        for (int shot = 2; shot <= 4; ++shot) {
            project.ShotThickness(shot, 1) = 6.5 + 0.8 * (shot - 2);
            project.ShotThickness(shot, 2) = 12.5 + shot - 2;
        }
        project.ShotTimes(3, 20) = 0;
    });
    const std::string records = Folder / "calculated.su";
    const Outcome outcome = Run("forward " + line + " --json --su-out " + records);
    ASSERT_EQ(outcome.Status, 0) << outcome.Errors;
    const auto json = outcome.Json();
    ASSERT_EQ(json["times"].size(), 5U);
    ASSERT_EQ(json["times"][0].size(), 24U);
    EXPECT_TRUE(json["residuals"][2][19].is_null());
    const double pick = Read(line).ShotTimes(2, 5);
    EXPECT_NEAR(json["residuals"][1][4].get<double>(), pick - json["times"][1][4].get<double>(), 1e-9);
    EXPECT_LT(json["rms"].get<double>(), 3) << "the depths are those of the model, roughly";
    EXPECT_EQ(json["rms_shot"].size(), 5U);
    EXPECT_EQ(json["rms_receiver"].size(), 24U);
    EXPECT_TRUE(File_Exists(records));
    EXPECT_EQ(Run("forward " + line + " --su-out " + records).Status, 1) << "it stands there already";
    EXPECT_EQ(Run("forward " + line + " --source best").Status, 2);

    const Outcome refused = Run("forward " + Demo("demo2.tv5") + " --source abc --json");
    EXPECT_EQ(refused.Status, 1);
    EXPECT_NE(refused.Json()["messages"].dump().find("no depths by ABC"), std::string::npos);
}

}  // namespace tarnvik::test
