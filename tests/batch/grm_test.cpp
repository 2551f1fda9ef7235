#include "batch_fixture.h"
#include "core/grm_file.h"

namespace tarnvik::test {
namespace {

class GrmBatch : public Batch {
  protected:
    GrmBatch() {
        GrmContent content{69.4, 0, Array2<double>(9, 24)};
        for (int r = 1; r <= 24; ++r) {
            content.Data(1, r) = 33 + 1.5 * r;
            content.Data(2, r) = 71 - 1.5 * r;
        }
        EXPECT_EQ(Replace_File(Folder / "DEMO1.grm", Grm_Bytes(content, 24)), "");
    }
    std::string Path = Demo("demo1.tv5");
    std::string Ends =
        " --cell 4,1,600 --cell 4,24,600 --cell 5,1,1600 --cell 5,24,1600 --cell 6,1,3800 "
        "--cell 6,24,3800 --cell 7,1,3 --cell 7,24,3";
};

TEST_F(GrmBatch, GivesCurvesAndTheirPicture) {
    const std::string picture = Folder / "grm.svg";
    const Outcome run = Run("grm " + Path + " --curves depth --xy 2,4 --factor 7 --json --out " + picture);
    ASSERT_EQ(run.Status, 0) << run.Errors;
    const auto json = run.Json();
    ASSERT_EQ(json["curves"].size(), 2U);
    const auto& curve = json["curves"][1];
    EXPECT_EQ(curve["receivers"][0], 3);
    EXPECT_EQ(curve["receivers"].size(), 20U);
    // Tay + Tbx at receivers 5 and 1, less the total time and 20 m at 10 m in 3 ms.
    EXPECT_NEAR(curve["values"][0].get<double>(), (40.5 + 69.5 - 69.4 - 20000.0 / 3333) / 2, 1e-9);
    EXPECT_EQ(json["VelocityResult"], 3333);
    EXPECT_NEAR(curve["y"][0].get<double>(), 7 + curve["values"][0].get<double>(), 1e-9) << "1 ms a unit";
    EXPECT_NE(Read_File(picture).value_or("").find("GRM Time depth curves"), std::string::npos);

    std::remove((Folder / "DEMO1.grm").c_str());
    const Outcome without = Run("grm " + Path + " --curves velocity --xy 2,4 --json");
    EXPECT_EQ(without.Status, 1);
    EXPECT_EQ(without.Json()["message"], "First, you must determine Delay Times");
}

TEST_F(GrmBatch, GivesDepthsAndWritesTheFileWhenTold) {
    const std::string written = Folder / "demo1.GRM";
    const std::string before = Read_File(Path).value_or("");
    const Outcome look = Run("grm-depth " + Path + " --xy 4 --total-time 60 --json" + Ends);
    ASSERT_EQ(look.Status, 0) << look.Errors;
    const auto json = look.Json();
    EXPECT_EQ(json["XY"], 4);
    EXPECT_TRUE(json["grid"][0][2].is_null());
    EXPECT_EQ(json["grid"][11][4], 1600);
    EXPECT_EQ(json["Vref"][11], 3333);
    EXPECT_EQ(json["grid"][11][8], json["GrmData"][8][11]);
    EXPECT_FALSE(File_Exists(written));

    const Outcome refused = Run("grm-depth " + Path + " --xy 4 --record --save --json --cell 4,1,600");
    EXPECT_EQ(refused.Status, 1);
    EXPECT_EQ(refused.Json()["messages"][0], "You must input a value for the last receiver...");
    EXPECT_FALSE(File_Exists(written));
    EXPECT_EQ(Read_File(Path), before);

    ASSERT_EQ(Run("grm-depth " + Path + " --xy 4 --total-time 60 --record" + Ends).Status, 0);
    const GrmReading file = Parse_Grm(Read_File(written).value_or(""), 24);
    ASSERT_TRUE(file.Good);
    EXPECT_EQ(file.Content.GrmXY, 4);
    EXPECT_EQ(file.Content.TotalTime, 60);
    EXPECT_EQ(file.Content.Data(9, 12), json["GrmData"][8][11].get<double>());
    EXPECT_EQ(Run("grm-depth " + Path + " --xy 4 --cell 12,1,3").Status, 2);
    EXPECT_EQ(Run("grm-depth " + Path + " --xy 4 --cell 4,99,3").Status, 1);
}

}  // namespace
}  // namespace tarnvik::test
