// export and import as a script uses them.

#include <algorithm>
#include <filesystem>
#include <vector>

#include "batch/batch_fixture.h"

namespace tarnvik::test {

TEST_F(Batch, what_is_exported_comes_back_by_an_import) {
    const std::string demo = Demo("demo1.tv5");
    const std::string out = Folder / "out";
    std::filesystem::create_directory(out);
    const Outcome written =
        Run("export " + demo + " plotrefa --out-dir " + out + " --json --answer 5 --answer yes --answer=60");
    ASSERT_EQ(written.Status, 0) << written.Errors;
    const auto json = written.Json();
    EXPECT_EQ(json["files"],
              (std::vector<std::string>{out + "/demo1.VS", out + "/demo1_XZ.txt", out + "/demo12.ASC"}));
    EXPECT_EQ(json["picks"], 119);
    EXPECT_EQ(json["shots"], 5);
    EXPECT_TRUE(json["left_out"].empty());
    EXPECT_EQ(json["messages"][2], "ASC files for export to Plotrefa have been written");
    const Outcome read = Run("import " + out + "/demo12.ASC --out " + (Folder / "back.tv5") + " --json");
    ASSERT_EQ(read.Status, 0) << read.Errors;
    EXPECT_EQ(read.Json()["picks"], 119);
    const Project before = Read(demo);
    const Project after = Read(Folder / "back.tv5");
    EXPECT_EQ(after.ShotTimes, before.ShotTimes);
    EXPECT_EQ(after.ShotDistance, before.ShotDistance);
    EXPECT_EQ(after.LineLength, before.LineLength);
    EXPECT_EQ(Run("import " + out + "/demo12.ASC --out " + (Folder / "back.tv5")).Status, 1)
        << "it stands there already";
}

TEST_F(Batch, a_refused_export_or_import_leaves_no_file) {
    const std::string demo = Demo("demo1.tv5");
    ASSERT_EQ(Replace_File(Folder / "demo1_rec", "mine"), "");
    const auto names = [this] {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(Folder.Path))
            if (entry.path().filename() != "errors.txt") found.push_back(entry.path().filename().string());
        std::sort(found.begin(), found.end());
        return found;
    };
    const std::vector<std::string> before = names();
    const struct {
        std::string Arguments;
        const char* Words;
    } cases[] = {
        {"export " + demo + " seisopt2d", "demo1_rec already exists, overwrite ?"},
        {"export " + demo + " seisopt2d --answer cancel", "SeisOpt2D"},
        {"export " + demo + " rayfract --answer no", "Run RAYFRACT module ?"},
        {"export " + demo + " plotrefa --answer=-1", "The station spacing must be above 0"},
        {"export " + demo + " surfer", "Not valid DAT file"},
        {"export " + (Folder / "none.tv5") + " dxf", "This file does not exist !"},
        {"import " + demo + " --out " + (Folder / "x.tv5"), "holds no"},
        {"import " + (Folder / "none.sgt") + " --out " + (Folder / "x.tv5"), "it cannot be read"},
    };
    for (const auto& c : cases) {
        const Outcome outcome = Run(c.Arguments + " --json");
        EXPECT_EQ(outcome.Status, 1) << c.Arguments;
        EXPECT_NE(outcome.Json()["messages"].dump().find(c.Words), std::string::npos) << outcome.Output;
        EXPECT_EQ(outcome.Json().value("picks", -1), 0) << outcome.Output;
        EXPECT_EQ(names(), before) << c.Arguments;
    }
    EXPECT_EQ(*Read_File(Folder / "demo1_rec"), "mine");
    EXPECT_EQ(Run("export " + demo + " seisopt2d --answer 0 --answer 0 --answer no --answer yes").Status, 0);
    EXPECT_NE(*Read_File(Folder / "demo1_rec"), "mine");
}

}  // namespace tarnvik::test
