// table, and the tables among the exports, as a script uses them.

#include "batch/batch_fixture.h"

namespace tarnvik::test {

TEST_F(Batch, the_result_table_tells_velocities_and_thicknesses_of_the_shots) {
    const std::string line = Changed_Demo("line.tv5", [](Project& project) {
        Interpret(project);
        project.ShotThickness(3, 1) = 5.25;
    });
    for (const char* name : {"out.csv", "out.xlsx"}) {
        const std::string out = Folder / name;
        const Outcome outcome = Run("table " + line + " resu --json --out " + out);
        ASSERT_EQ(outcome.Status, 0) << outcome.Errors;
        const auto json = outcome.Json();
        EXPECT_EQ(json["columns"][4], "E1");
        EXPECT_EQ(json["rows"].size(), 5U);
        EXPECT_EQ(json["rows"][2],
                  (std::vector<double>{60, 0, json["rows"][2][2], 600, 5.25, 1600, 0, 3800, 0, 0, 0, 0}));
        EXPECT_EQ(json["file"], out);
        EXPECT_TRUE(File_Exists(out));
        EXPECT_EQ(Run("table " + line + " resu --out " + out).Status, 1) << "it stands there already";
    }
    EXPECT_TRUE(Read_File(Folder / "out.csv")->starts_with("X;Y;Z;V1;E1;V2;E2;V3;E3;V4;E4;V5\r\n-60;0;"));
    EXPECT_EQ(Run("table " + line + " resu --out " + (Folder / "out.pdf")).Status, 2);
    EXPECT_EQ(Run("table " + line + " other").Status, 2);
}

TEST_F(Batch, tables_are_exported_with_their_questions) {
    const std::string line = Changed_Demo("line.tv5", [](Project& project) {
        project.ReceiverData(ReceiverIntercept, 1) = 12.5;
        project.ReceiverData(ReceiverDistance, 24) = 400;
    });
    const Outcome refused = Run("export " + line + " tvx --json");
    EXPECT_EQ(refused.Status, 1);
    EXPECT_NE(refused.Json()["messages"].dump().find("Error: TVX file not recorded"), std::string::npos);
    EXPECT_FALSE(File_Exists(Folder / "line.TVX"));
    for (const char* kind : {"csv", "sht", "delay"})
        EXPECT_EQ(Run("export " + line + " " + kind).Status, 0) << kind;
    for (const char* name : {"line.csv", "line.sht", "line_Delay.txt"})
        EXPECT_TRUE(File_Exists(Folder / name)) << name;
    EXPECT_EQ(Run("export " + line + " delay").Status, 1) << "it stands there already";
}

}  // namespace tarnvik::test
