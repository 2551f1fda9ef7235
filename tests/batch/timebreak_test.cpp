#include <sys/stat.h>

#include "batch_fixture.h"

namespace tarnvik::test {

TEST_F(Batch, timebreak_writes_project_and_records_together_or_neither) {
    const std::string project = Demo("demo1.tv5");
    const std::string records = Demo("demo1.su");
    const std::string filed = *Read_File(project);
    const std::string stored = *Read_File(records);
    const auto untouched = [&] { return *Read_File(project) == filed && *Read_File(records) == stored; };
    const std::string command = "timebreak " + project + " --shot 3 --shift=-2.6 --json";

    const Outcome looked = Run(command);
    EXPECT_EQ(looked.Status, 0) << looked.Errors;
    EXPECT_EQ(looked.Json()["words"].size(), 24U);
    EXPECT_EQ(looked.Json()["FirstTrace"], 49);
    EXPECT_EQ(looked.Json()["LastTrace"], 72);
    EXPECT_GT(looked.Json()["ShiftSamples"], 0);
    EXPECT_TRUE(untouched());
    EXPECT_EQ(Run(command + " --save").Status, 1) << "the question has no answer";
    EXPECT_TRUE(untouched());
    EXPECT_EQ(Run("timebreak " + project + " --shot 6 --shift 1 --save --yes --json").Status, 1);
    EXPECT_EQ(Run("timebreak " + project + " --shot 3 --shift 0 --save --yes").Status, 0);
    EXPECT_TRUE(untouched());
    chmod(project.c_str(), 0444);
    const Outcome refused = Run(command + " --save --yes");
    EXPECT_EQ(refused.Status, 1);
    EXPECT_NE(refused.Errors.find("read-only"), std::string::npos) << refused.Errors;
    EXPECT_TRUE(untouched()) << "the records go back when the project cannot be saved";
    EXPECT_FALSE(File_Exists(records + ".timebreak"));
    chmod(project.c_str(), 0644);

    const Outcome saved = Run(command + " --save --answer yes");
    EXPECT_EQ(saved.Status, 0) << saved.Errors;
    EXPECT_EQ(saved.Json()["words"], looked.Json()["words"]);
    Demo("demo1.tv5");
    EXPECT_NE(*Read_File(records), stored);
    // The project was put back above: the second run is told and, without an answer to that, refused.
    const Outcome again = Run(command + " --save --answer yes");
    EXPECT_EQ(again.Status, 1);
    EXPECT_NE(again.Errors.find("are shifted by -2.6 ms already"), std::string::npos) << again.Errors;
}

}  // namespace tarnvik::test
