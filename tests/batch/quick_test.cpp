// quick: the first model of a shot from the terminal.

#include "batch/batch_fixture.h"

namespace tarnvik::test {

TEST_F(Batch, quick_gives_the_grid_and_records_it_only_when_it_is_told_to) {
    const std::string demo = Demo("demo1.tv5");
    const std::string before = *Read_File(demo);
    const std::string call = "quick " + demo + " --shot 3 --layers 2 --limits '[[40],[56.5]]'";
    const Outcome shown = Run(call + " --shot-depth 2 --json");
    ASSERT_EQ(shown.Status, 0) << shown.Errors;
    const auto json = shown.Json();
    EXPECT_EQ(json["limits"], nlohmann::json::parse("[[40.0],[56.5]]"));
    EXPECT_EQ(json["grid"][0].size(), 6U);
    EXPECT_EQ(json["grid"][0][0], 600);
    EXPECT_TRUE(json["grid"][1][4].is_null());
    EXPECT_EQ(json["labels"], nlohmann::json::array());
    EXPECT_EQ(json["message"], "");
    const auto plain = Run(call + " --json").Json();
    EXPECT_NEAR(json["grid"][0][4].get<double>(), plain["grid"][0][4].get<double>() + 1, 0.101);
    EXPECT_EQ(*Read_File(demo), before);

    const auto right = Run(call + " --side right --record --save --json").Json();
    EXPECT_EQ(right["grid"][1][0], json["grid"][1][2]);
    const Project project = Read(demo);
    EXPECT_EQ(project.VelocityA(3, 2), right["grid"][1][0]);
    EXPECT_EQ(project.InterceptB(3, 1), right["grid"][1][3]);
    EXPECT_NEAR(project.ShotThickness(3, 1), right["grid"][0][4].get<double>(), 1e-9);
}

TEST_F(Batch, quick_tells_in_the_label_what_is_no_refusal_and_refuses_what_is) {
    const std::string demo = Demo("demo1.tv5");
    const Outcome offset = Run("quick " + demo + " --shot 1 --layers 2 --json");
    EXPECT_EQ(offset.Status, 0);
    EXPECT_EQ(offset.Json()["labels"][0], "Impossible: Wrong receivers 1,1");
    const Outcome none = Run("quick " + demo + " --shot 6 --layers 2 --record --save --json");
    EXPECT_EQ(none.Status, 1);
    EXPECT_EQ(none.Json()["message"], "Wrong Shot number");
    for (const char* wrong :
         {"--layers 5", "--layers 3 --limits '[[1,2],[3]]'", "--layers 2 --limits '[[a],[3]]'",
          "--layers 2 --side both", "--layers 2 --shot-depth x", ""}) {
        EXPECT_EQ(Run("quick " + demo + " --shot 3 " + wrong).Status, 2) << wrong;
    }
}

}  // namespace tarnvik::test
