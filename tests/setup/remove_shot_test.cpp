#include "setup/remove_shot.h"

#include <gtest/gtest.h>

#include "core/files.h"
#include "core/project_file.h"
#include "records/su_file.h"
#include "setup/geometry.h"
#include "setup/line.h"
#include "support/shell_tools.h"
#include "support/su_builder.h"
#include "support/test_ports.h"

namespace tarnvik {
namespace {

using test::Make_Line;
using test::SuBuilder;
using test::TemporaryFolder;

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
        test::Give_Tools(launcher);
        workspace.Project.CurrentFile = folder / "line.TV5";
        ASSERT_TRUE(Save_Geometry(workspace, ports));
    }
    std::string With_Records() {
        SuBuilder builder(12, 50);
        builder.Records(3);
        for (int trace = 1; trace <= 12; ++trace)
            builder.Sample(trace, 7, static_cast<float>(trace));
        builder.Put16(2, 28, dead_trace);
        workspace.Project.SuFile = builder.Write(folder / "line.su");
        return workspace.Project.SuFile;
    }
    TemporaryFolder folder;
    Workspace workspace;
    test::ScriptedPrompts prompts;
    test::RecordingDisplay display;
    test::RecordingLauncher launcher;
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

/// Trace numbers as the seventh sample tells them.
std::vector<int> Traces_In(const std::string& path) {
    SuTraces file(path);
    std::vector<int> found;
    for (int trace = 1; trace <= file.Nb_Traces().value_or(0); ++trace) {
        std::vector<float> samples(50);
        file.Samples(trace, samples);
        found.push_back(static_cast<int>(samples[6]));
        EXPECT_EQ(file.Word(trace, words::trid), found.back() == 2 ? dead_trace : live_trace) << trace;
    }
    return found;
}

TEST_F(Removal, WritesTheProjectAndTheRecordsWithoutTheShot) {
    const std::string su_file = With_Records();
    const std::string before = *Read_File(folder / "line.TV5");
    const auto records = Read_File(su_file);
    prompts.Expect("Do you want to remove shot 3", Answer::Yes);
    RemoveShot(workspace, ports, 3);

    Project written;
    Parse_Project(Read_File(folder / "line_3.tv5").value_or(""), written);
    ASSERT_EQ(written.NbShots, 3);
    Expect_Shot(written, 2, 2, 4);
    Expect_Shot(written, 3, 4, 4);
    EXPECT_EQ(written.SuFile, folder / "line_3.su");
    EXPECT_EQ(Traces_In(folder / "line_3.su"), (std::vector<int>{1, 2, 3, 4, 5, 6, 10, 11, 12}));
    EXPECT_EQ(Read_File(folder / "line_3.su")->substr(0, 440), records->substr(0, 440))
        << "header and samples of a live trace are copied as they are";

    EXPECT_EQ(workspace.Project.NbShots, 4) << "the line in memory stays";
    EXPECT_EQ(Read_File(folder / "line.TV5"), before);
    EXPECT_EQ(Read_File(su_file), records) << "the records themselves stay, dead traces too";
    EXPECT_TRUE(launcher.Started.empty());
    EXPECT_EQ(prompts.Last_Text(), "Trace extraction OK ! New SU file has been recorded as " +
                                       (folder / "line_3.su") + "\nThe new Tarnvik file has been saved as " +
                                       (folder / "line_3.tv5") + "\nLoad this file !");
    EXPECT_EQ(workspace.Fields.Caption, "[" + (folder / "line_3.tv5") + "]");
}

TEST_F(Removal, OfSeveralSpreadsTakesAllRecordsOfTheShotAndCountsTheOthersAnew) {
    // Four records of three channels, of the stations 2, 1, 2 and 4.
    const std::string su_file = With_Records();
    {
        SuWriter file(su_file, nullptr);
        const int stations[] = {2, 1, 2, 4};
        for (int record = 0; record < 4; ++record) {
            for (int trace = 1; trace <= 3; ++trace)
                file.Set_Word(3 * record + trace, words::ep, trace == 1 ? stations[record] : trace);
        }
    }
    workspace.Record.SeveralSpreads = true;
    workspace.Record.ChannelsPerRecord = 3;
    prompts.Expect("Do you want to remove shot 2", Answer::Yes);
    RemoveShot(workspace, ports, 2);
    EXPECT_EQ(Traces_In(folder / "line_2.su"), (std::vector<int>{4, 5, 6, 10, 11, 12}));
    SuTraces left(folder / "line_2.su");
    EXPECT_EQ(left.Word(1, words::ep), 1);
    EXPECT_EQ(left.Word(2, words::ep), 2);
    EXPECT_EQ(left.Word(4, words::ep), 3) << "the former station 4";
}

TEST_F(Removal, NoProjectNamesRecordsThatAreNotThere) {
    With_Records();
    ASSERT_TRUE(std::filesystem::create_directory(folder / "line_1.su")) << "nothing can be written there";
    prompts.Expect("Do you want to remove shot 1", Answer::Yes);
    prompts.Expect((folder / "line_1.su") + " already exists, overwrite ?", Answer::Yes);
    RemoveShot(workspace, ports, 1);
    EXPECT_NE(prompts.Last_Text().find((folder / "line_1.su") + " cannot be written: "), std::string::npos);
    EXPECT_FALSE(File_Exists(folder / "line_1.tv5"));

    ASSERT_TRUE(std::filesystem::create_directory(folder / "line_2.tv5"));
    prompts.Expect("Do you want to remove shot 2", Answer::Yes);
    prompts.Expect((folder / "line_2.tv5") + " already exists, overwrite ?", Answer::Yes);
    RemoveShot(workspace, ports, 2);
    EXPECT_FALSE(File_Exists(folder / "line_2.su")) << "records without their project are not left behind";

    std::filesystem::remove(workspace.Project.SuFile);
    prompts.Expect("Do you want to remove shot 3", Answer::Yes);
    prompts.Expect(" Do you want to locate " + workspace.Project.SuFile, Answer::No);
    RemoveShot(workspace, ports, 3);
    Project written;
    Parse_Project(Read_File(folder / "line_3.tv5").value_or(""), written);
    EXPECT_EQ(written.NbShots, 3);
    EXPECT_EQ(written.SuFile, "");
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
