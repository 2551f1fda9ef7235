#include "setup/remove_shot.h"

#include <gtest/gtest.h>

#include "core/files.h"
#include "core/project_file.h"
#include "records/su_file.h"
#include "setup/geometry.h"
#include "setup/line.h"
#include "support/su_builder.h"
#include "support/test_ports.h"

namespace tarnvik {
namespace {

using test::Make_Line;
using test::SuBuilder;
using test::TemporaryFolder;

class WatchedLauncher : public test::RecordingLauncher {
  public:
    int Start(const std::string& program, const std::string& arguments, const std::string& folder) override {
        if (OnStart) OnStart();
        return RecordingLauncher::Start(program, arguments, folder);
    }
    std::function<void()> OnStart;
};

/// Gives everything that belongs to a shot a value that tells its shot.
void Mark_Shots(Project& project) {
    for (int shot = 1; shot <= project.NbShots; ++shot) {
        project.ShotElevation(shot) = 100 + shot;
        project.ShotDepth(shot) = 0.5 * shot;
        project.VelocityA(shot, 5) = static_cast<std::int16_t>(1000 * shot);
        project.VelocityB(shot, 1) = static_cast<std::int16_t>(100 * shot);
        project.InterceptA(shot, 4) = shot;
        project.InterceptB(shot, 1) = 2 * shot;
        project.CritDistA(shot, 2) = 3 * shot;
        project.CritDistB(shot, 3) = 4 * shot;
        project.ShotThickness(shot, 4) = 5 * shot;
    }
}

/// True when place `shot` holds what Mark_Shots and Make_Line gave to shot `number` of `shots`.
void Expect_Shot(const Project& project, int shot, int number, double step) {
    EXPECT_EQ(project.ShotTimes(shot, 2), 10 * number + 2);
    EXPECT_EQ(project.ShotDistance(shot), (number - 1) * step);
    EXPECT_EQ(project.ShotElevation(shot), 100 + number);
    EXPECT_EQ(project.ShotDepth(shot), 0.5 * number);
    EXPECT_EQ(project.VelocityA(shot, 5), 1000 * number);
    EXPECT_EQ(project.VelocityB(shot, 1), 100 * number);
    EXPECT_EQ(project.InterceptA(shot, 4), number);
    EXPECT_EQ(project.InterceptB(shot, 1), 2 * number);
    EXPECT_EQ(project.CritDistA(shot, 2), 3 * number);
    EXPECT_EQ(project.CritDistB(shot, 3), 4 * number);
    EXPECT_EQ(project.ShotThickness(shot, 4), 5 * number);
}

class Removal : public ::testing::Test {
  protected:
    void SetUp() override {
        Make_Line(workspace, 4, 3, 6);  // shots at 0, 4, 8, 12
        Mark_Shots(workspace.Project);
        Fill_Grid(workspace);
        workspace.Project.CurrentFile = folder / "line.TV5";
        ASSERT_TRUE(Save_Geometry(workspace, ports));
        launcher.Folder = folder.Path;
    }
    std::string With_Records() {
        SuBuilder builder(12, 50);
        builder.Records(3);
        builder.Put16(2, 28, dead_trace);
        workspace.Project.SuFile = builder.Write(folder / "line.su");
        return workspace.Project.SuFile;
    }
    TemporaryFolder folder;
    Workspace workspace;
    test::ScriptedPrompts prompts;
    test::RecordingDisplay display;
    WatchedLauncher launcher;
    Ports ports{prompts, display, launcher};
};

TEST_F(Removal, TakesAMiddleShotOutOfModelAndGrids) {
    workspace.Grids.Grille_Shot = TextGrid(4, 1);
    workspace.Curves.ShotsLeftOut = {3};
    ASSERT_TRUE(Remove_Colonne(workspace, ports, 2));
    const Project& project = workspace.Project;
    ASSERT_EQ(project.NbShots, 3);
    Expect_Shot(project, 1, 1, 4);
    Expect_Shot(project, 2, 3, 4);
    Expect_Shot(project, 3, 4, 4);
    EXPECT_EQ(project.ShotTimes.Last_Row(), 3);
    EXPECT_EQ(workspace.Curves.ShotsLeftOut, std::set{2}) << "the mark goes with shot 3";
    EXPECT_EQ(workspace.Grids.Grille_Shot.At(1, 0).BackColour, colours::Red);
    EXPECT_EQ(workspace.Grids.Grille_Shot.Rows(), 3);

    const TextGrid moved = workspace.Grids.Buildgrid;
    Fill_Grid(workspace);
    const TextGrid& filled = workspace.Grids.Buildgrid;
    ASSERT_EQ(moved.Columns(), filled.Columns());
    for (int row = 0; row < filled.Rows(); ++row) {
        for (int column = 0; column < filled.Columns(); ++column)
            EXPECT_EQ(moved.Text(row, column), filled.Text(row, column)) << row << ", " << column;
    }
}

TEST_F(Removal, BacksUpOnlyBeforeTheFirst) {
    const auto saved = Read_File(folder / "line.TV5");
    ASSERT_TRUE(Remove_Colonne(workspace, ports, 4));
    const std::string backup = Derived_File(folder / "line.TV5", ".tv5", ".bak");
    EXPECT_EQ(Read_File(backup), saved);
    ASSERT_TRUE(std::filesystem::remove(backup));
    ASSERT_TRUE(Remove_Colonne(workspace, ports, 1));
    EXPECT_FALSE(File_Exists(backup));
    for (const int column : {0, -1, 3, 4})
        EXPECT_FALSE(Remove_Colonne(workspace, ports, column)) << column;
    EXPECT_EQ(workspace.Project.NbShots, 2);
}

TEST_F(Removal, WritesTheProjectWithoutTheShotAndTheBatch) {
    const std::string su_file = With_Records();
    const std::string before = *Read_File(folder / "line.TV5");
    const auto records = Read_File(su_file);
    // What the batch finds when it is started.
    std::vector<double> marks;
    launcher.OnStart = [&] {
        SuTraces traces(folder / "line_tmp.su");
        for (int trace = 1; trace <= traces.Nb_Traces(); ++trace)
            marks.push_back(traces.Word_Or_Zero(trace, words::trid));
    };
    prompts.Expect("Do you want to remove shot 3", Answer::Yes);
    RemoveShot(workspace, ports, 3);

    Project written;
    Parse_Project(Read_File(folder / "line_3.tv5").value_or(""), written);
    ASSERT_EQ(written.NbShots, 3);
    Expect_Shot(written, 2, 2, 4);
    Expect_Shot(written, 3, 4, 4);
    EXPECT_EQ(written.SuFile, folder / "line_3.su");
    EXPECT_EQ(workspace.Project.NbShots, 4) << "the line in memory stays";
    EXPECT_EQ(Read_File(folder / "line.TV5"), before);

    EXPECT_EQ(Read_File(folder / "win.bat"), (folder / "suwind") + " < " + (folder / "line_tmp.su") + " > " +
                                                 (folder / "line_3.su") + " key=trid min=1 max=1\r\n");
    EXPECT_EQ(launcher.Started.size(), 1U);
    ASSERT_EQ(marks.size(), 12U);
    for (int trace = 1; trace <= 12; ++trace)
        EXPECT_EQ(marks[static_cast<std::size_t>(trace) - 1], trace >= 7 && trace <= 9 ? 2 : 1) << trace;
    EXPECT_EQ(Read_File(su_file), records) << "the records themselves stay, dead traces too";
    EXPECT_FALSE(File_Exists(folder / "line_tmp.su"));
    EXPECT_EQ(prompts.Last_Text(), "Trace extraction OK ! New SU file has been recorded as " +
                                       (folder / "line_3.su") + "\nThe new Tarnvik file has been saved as " +
                                       (folder / "line_3.tv5") + "\nLoad this file !");
    EXPECT_EQ(workspace.Fields.Caption, "[" + (folder / "line_3.tv5") + "]");
    EXPECT_EQ(workspace.Mode.Current(), DisplayMode::Dromo);
}

TEST_F(Removal, ABatchThatCannotStartIsTold) {
    With_Records();
    launcher.Result = 31;
    prompts.Expect("Do you want to remove shot 1", Answer::Yes);
    RemoveShot(workspace, ports, 1);
    EXPECT_TRUE(prompts.Said("Unable to launch  " + (folder / "win.bat")));
    EXPECT_EQ(prompts.Last_Text(),
              "The new Tarnvik file has been saved as " + (folder / "line_1.tv5") + "\nLoad this file !");
    EXPECT_FALSE(File_Exists(folder / "line_tmp.su"));
}

TEST_F(Removal, AskedBeforeAnythingIsWritten) {
    prompts.Expect("Do you want to remove shot 1", Answer::No);
    RemoveShot(workspace, ports, 1);
    EXPECT_FALSE(File_Exists(folder / "line_1.tv5"));

    ASSERT_EQ(Replace_File(folder / "line_1.tv5", "mine"), "");
    prompts.Expect("Do you want to remove shot 1", Answer::Yes);
    prompts.Expect((folder / "line_1.tv5") + " already exists, overwrite ?", Answer::No);
    RemoveShot(workspace, ports, 1);
    EXPECT_EQ(Read_File(folder / "line_1.tv5"), "mine");
    RemoveShot(workspace, ports, 5);
}

TEST(NameWithoutShot, StandsBeforeTheExtensionOnly) {
    EXPECT_EQ(Name_Without_Shot("/a.su/line.SU", 12), "/a.su/line_12.SU");
    EXPECT_EQ(Name_Without_Shot("/a.b/line", 1), "/a.b/line_1");
}

}  // namespace
}  // namespace tarnvik
