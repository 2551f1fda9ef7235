#include "batch_fixture.h"

namespace tarnvik::test {

TEST_F(Batch, a_true_velocity_is_found_and_recorded_for_the_shots_on_the_line) {
    const std::string demo = Demo("demo1.tv5");
    const std::string pair = "truevelocity " + demo + " --shots 4,2 --from 15 --to 9 --json ";
    const Outcome found = Run(pair + "--save");
    ASSERT_EQ(found.Status, 0) << found.Errors;
    const double velocity = found.Json()["VelocityResult"];
    EXPECT_NEAR(velocity, 3800, 100);
    EXPECT_GT(found.Json()["Correlation"], 0.96);
    // The line rises from receiver 9 to 15 by the time difference over twice the velocity.
    const double rise = double(found.Json()["y2"]) - double(found.Json()["y1"]);
    const Project line = Read(demo);
    const double distance = line.ReceiverData(ReceiverDistance, 15) - line.ReceiverData(ReceiverDistance, 9);
    const auto shown = Run("show " + demo + " --json").Json();
    EXPECT_NEAR(rise * double(shown["TimeFactor"]), 1000 * distance / velocity, 0.02);
    EXPECT_EQ(shown["VelocityA"][2][2], 0) << "--record alone stores it";
    // Three receivers that belong to the layer above, and without them.
    const std::string longer = "truevelocity " + demo + " --shots 2,4 --from 6 --to 15 --json";
    EXPECT_LT(Run(longer).Json()["VelocityResult"], velocity - 100);
    EXPECT_NEAR(Run(longer + " --eliminate 6,7,8").Json()["VelocityResult"], velocity, 4);

    // What is not told is taken by the boxes' defaults: layer 2 of all shots on the line.
    ASSERT_EQ(Run(pair + "--record --out " + (Folder / "all.tv5")).Status, 0);
    const Project all = Read(Folder / "all.tv5");
    for (int shot = 1; shot <= 5; ++shot)
        EXPECT_EQ(all.VelocityA(shot, 2), shot == 1 || shot == 5 ? 0 : velocity) << shot;
    ASSERT_EQ(Run(pair + "--record --layer 3 --for 3,2 --out " + (Folder / "two.tv5")).Status, 0);
    const Project two = Read(Folder / "two.tv5");
    EXPECT_EQ(two.VelocityB(3, 3), velocity);
    EXPECT_EQ(two.VelocityB(4, 3), 0);

    const Outcome same = Run(pair + "--record --save --for 1,9");
    EXPECT_EQ(same.Status, 1);
    EXPECT_EQ(same.Json()["message"], "Too many Layers...");
    EXPECT_EQ(Run("truevelocity " + demo + " --shots 2,2 --from 8 --to 18 --json").Json()["message"],
              "Impossible, wrong Shot number...");
    EXPECT_EQ(Run("truevelocity " + demo + " --shots 2 --from 8 --to 18").Status, 2);
    EXPECT_EQ(
        Run("truevelocity " + (Folder / "none.tv5") + " --shots 2,4 --from 8 --to 18 --json").Json()["x1"],
        nullptr);
    EXPECT_EQ(Read(demo).VelocityA(2, 2), 0);
}

TEST_F(Batch, a_velocity_drawn_by_hand_is_recorded_after_its_question) {
    const std::string demo = Demo("demo1.tv5");
    const std::string before = *Read_File(demo);
    const std::string band =
        "handvelocity " + demo + " --json --shot 3 --layer 2 --intercept 18.5 --band 50,40,10,62 ";
    EXPECT_EQ(Run(band + "--velocity 1800").Json()["ShotSide"], 1);
    EXPECT_EQ(Run(band + "--velocity 1800 --record --save").Status, 1) << "nobody has said yes";
    EXPECT_EQ(Run(band + "--velocity 40000 --record --save --yes").Status, 1);
    EXPECT_EQ(*Read_File(demo), before);

    const Outcome slow = Run(band + "--velocity 249 --record --save --yes");
    EXPECT_EQ(slow.Status, 0) << slow.Errors;
    EXPECT_NE(slow.Errors.find("Velocity under 250 m/s are unusual !!!"), std::string::npos);
    const Project stored = Read(demo);
    EXPECT_EQ(stored.VelocityA(3, 2), 249);
    EXPECT_EQ(stored.VelocityB(3, 2), 0);
    EXPECT_EQ(stored.InterceptA(3, 1), 18.5);
    EXPECT_EQ(Run("handvelocity " + demo + " --json --shot 3 --layer 2 --velocity 900 --band 1,2,3,4")
                  .Json()["message"],
              "Intercept time missing...");
}

TEST_F(Batch, velocities_of_a_dipping_refractor_need_no_project) {
    const auto found = Run("apparent 500 2000 -5 --json").Json();
    EXPECT_EQ(found["down"], 3037);
    EXPECT_EQ(found["up"], 1500);
    EXPECT_EQ(Run("apparent 500 500 0 --json").Json()["down"], 501);
    EXPECT_EQ(Run("dip 500 2600 1400 --json").Json()["dip"], -5);
    const Outcome none = Run("dip 500 400 1400 --json");
    EXPECT_EQ(none.Status, 1);
    EXPECT_EQ(none.Json()["dip"], nullptr);
    EXPECT_EQ(Run("dip 500 fast 1400").Status, 2);
}

}  // namespace tarnvik::test
