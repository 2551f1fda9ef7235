#include "core/project_save.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "core/files.h"
#include "core/project_open.h"
#include "support/small_project.h"
#include "support/test_ports.h"

namespace tarnvik {

using test::Small_Workspace;
using test::TemporaryFolder;
using test::TestPorts;

namespace {

constexpr const char* untouched = "\r\nNothing has been recorded, the file stays as it was.";

std::string Content(const std::string& path) {
    return Read_File(path).value_or("nothing there");
}

}  // namespace

TEST(ProjectSave, EachSaveLeavesTotalTimeOneHigherAndTheFileTwice) {
    TemporaryFolder folder;
    TestPorts outside;
    Workspace workspace = Small_Workspace(folder / "line.tv5");
    workspace.Mode.Display(DisplayMode::Vitesse);
    workspace.Curves.DragStartX = 5;
    ASSERT_TRUE(Write_Project(workspace, outside.Ports));
    EXPECT_EQ(workspace.Project.TotalTime, 56.5);
    ASSERT_TRUE(Write_Project(workspace, outside.Ports));
    EXPECT_EQ(workspace.Project.TotalTime, 57.5);
    EXPECT_EQ(workspace.Mode.Current(), DisplayMode::Vitesse);
    EXPECT_EQ(workspace.Curves.DragStartX, 0);
    EXPECT_EQ(workspace.Fields.Caption, folder / "line.tv5" + " [Tarnvik 16.5]");
    EXPECT_TRUE(outside.Prompts.Messages.empty());
    Workspace again;
    Read_Project(again, folder / "line.tv5");
    EXPECT_EQ(again.Project.TotalTime, 56.5);
    EXPECT_EQ(again.Fields.Text25, "56.5");
}

TEST(ProjectSave, KeepsBesideTheSettingsWhereItsPicksComeFrom) {
    TemporaryFolder folder;
    TestPorts outside;
    const std::string path = folder / "line.tv5";
    Workspace workspace = Small_Workspace(path);
    workspace.CompanionFolder = folder / "projects";
    Project& line = workspace.Project;
    line.ShotTimes(1, 2) = 12.34F;
    line.ShotTimes(2, 1) = 56.78F;
    line.ShotTimes(2, 3) = 9.5F;
    line.PickOrigins(1, 2) = PickOrigin::Automatic;
    line.PickOrigins(2, 1) = PickOrigin::Moved;
    line.PickOrigins(2, 3) = PickOrigin::Automatic;
    ASSERT_TRUE(Write_Project(workspace, outside.Ports));

    // Another program has changed one of the picks.
    workspace.CompanionFolder.clear();
    line.ShotTimes(2, 3) = 9;
    ASSERT_TRUE(Write_Project(workspace, outside.Ports));
    Workspace again;
    again.CompanionFolder = folder / "projects";
    ASSERT_TRUE(Read_Project(again, path).Whole());
    EXPECT_EQ(again.Project.PickOrigins(1, 2), PickOrigin::Automatic);
    EXPECT_EQ(again.Project.PickOrigins(2, 1), PickOrigin::Moved);
    EXPECT_EQ(again.Project.PickOrigins(2, 3), PickOrigin::Hand);
    EXPECT_EQ(again.Project.PickOrigins(1, 1), PickOrigin::Hand);
    EXPECT_TRUE(again.Edits.Is_Saved());
}

TEST(ProjectSave, IsConfirmedWhereThatIsAskedFor) {
    TemporaryFolder folder;
    for (const SaveNotice notice : {SaveNotice::None, SaveNotice::Told}) {
        TestPorts outside;
        Workspace workspace = Small_Workspace(folder / "line.tv5");
        ASSERT_TRUE(Write_Project(workspace, outside.Ports, notice));
        EXPECT_EQ(outside.Prompts.Said("File: " + folder / "line.tv5" + " has been recorded"),
                  notice == SaveNotice::Told);
    }
}

TEST(ProjectSave, ValuesBeyondSixteenBitsAreNamedAndNothingIsWritten) {
    const struct {
        Array2<double> Project::*Values;
        double Largest;
        double TooLarge;
        const char* Words;
    } cases[] = {
        {&Project::InterceptA, 3276.74, 3276.8, "intercept time A of 3276.8 "},
        {&Project::InterceptB, 0, -3276.9, "intercept time B of -3276.9 "},
        {&Project::CritDistA, 3276.7, 4000, "critical distance A of 4000 "},
        {&Project::CritDistB, 0, 1e300, "critical distance B of 1E+300 "},
        {&Project::ShotThickness, 327.67, 400, "thickness of 400 "},
    };
    TemporaryFolder folder;
    const std::string path = folder / "line.tv5";
    ASSERT_EQ(Replace_File(path, "old"), "");
    for (const auto& c : cases) {
        TestPorts outside;
        Workspace workspace = Small_Workspace(path);
        (workspace.Project.*c.Values)(2, 3) = c.TooLarge;
        workspace.Mode.Display(DisplayMode::Calcul);
        EXPECT_FALSE(Write_Project(workspace, outside.Ports));
        EXPECT_NE(outside.Prompts.Last_Text().find(std::string("Shot 2, layer 3: the ") + c.Words),
                  std::string::npos)
            << outside.Prompts.Last_Text();
        EXPECT_EQ(Content(path), "old");
        EXPECT_EQ(workspace.Project.TotalTime, 55.5);
        EXPECT_EQ(workspace.Mode.Current(), DisplayMode::Calcul);
        (workspace.Project.*c.Values)(2, 3) = c.Largest;
        workspace.Project.CurrentFile = folder / "fits.tv5";
        workspace.FileOnDisk = workspace.Project.CurrentFile;
        EXPECT_TRUE(Write_Project(workspace, outside.Ports));
    }
}

TEST(ProjectSave, WithoutProjectOrNameTheDiskStaysAsItIs) {
    TemporaryFolder folder;
    const std::string path = folder / "line.tv5";
    ASSERT_EQ(Replace_File(path, "old"), "");
    TestPorts outside;
    Workspace workspace;
    workspace.Project.CurrentFile = path;
    EXPECT_FALSE(Write_Project(workspace, outside.Ports));
    EXPECT_TRUE(outside.Prompts.Said(std::string("There is no project in memory.") + untouched));
    workspace.Project.NbShots = 5;  // counts of the settings, nothing opened yet
    workspace.Project.NbReceivers = 24;
    EXPECT_FALSE(Write_Project(workspace, outside.Ports));
    EXPECT_EQ(Content(path), "old");

    TestPorts silent;
    workspace = Small_Workspace("");
    EXPECT_FALSE(Write_Project(workspace, silent.Ports));
    EXPECT_TRUE(silent.Prompts.Messages.empty());
}

TEST(ProjectSave, AReadOnlyFileAndAMissingFolderAreTold) {
    TemporaryFolder folder;
    const std::string path = folder / "line.tv5";
    ASSERT_EQ(Replace_File(path, "old"), "");
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    TestPorts outside;
    Workspace workspace = Small_Workspace(path);
    EXPECT_FALSE(Write_Project(workspace, outside.Ports));
    EXPECT_EQ(outside.Prompts.Last_Text(),
              path + " cannot be written: the file is marked read-only." + untouched);
    EXPECT_EQ(Content(path), "old");
    workspace.Project.CurrentFile = folder / "missing/line.tv5";
    EXPECT_FALSE(Write_Project(workspace, outside.Ports));
    EXPECT_EQ(workspace.Project.TotalTime, 55.5);
    EXPECT_EQ(outside.Prompts.Messages.size(), 2U);
}

TEST(ProjectSave, AFullDiskLeavesTheOldFileWhole) {
    TemporaryFolder folder;
    const std::string path = folder / "line.tv5";
    ASSERT_EQ(Replace_File(path, "old"), "");
    const pid_t child = fork();
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{300, 300};
        setrlimit(RLIMIT_FSIZE, &limit);
        TestPorts outside;
        Workspace workspace = Small_Workspace(path);
        const bool saved = Write_Project(workspace, outside.Ports);
        const bool told = outside.Prompts.Last_Text().find(path + " cannot be written: ") == 0;
        _exit(!saved && told && workspace.Project.TotalTime == 55.5 ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    EXPECT_EQ(Content(path), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path), {}), 1) << "no remnants";
}

TEST(ProjectSave, AKillDuringSavesLeavesAWholeFile) {
    TemporaryFolder folder;
    const std::string path = folder / "line.tv5";
    Workspace workspace = Small_Workspace(path);
    Workspace other = Small_Workspace(path);
    other.Project.NbShots = 40;
    other.Project.NbReceivers = 120;
    Redimension_Project(other.Project);
    other.Project.TotalTime = workspace.Project.TotalTime = 0;
    const std::string one = Project_Bytes(workspace.Project);
    const std::string two = Project_Bytes(other.Project);
    ASSERT_EQ(Replace_File(path, one), "");
    for (int trial = 0; trial < 25; ++trial) {
        const pid_t child = fork();
        if (child == 0) {
            TestPorts outside;
            for (;;) {
                workspace.Project.TotalTime = other.Project.TotalTime = 0;
                Write_Project(other, outside.Ports);
                Write_Project(workspace, outside.Ports);
            }
        }
        usleep(static_cast<useconds_t>(1000 + trial * 700));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const std::string found = Content(path);
        ASSERT_TRUE(found == one || found == two) << "trial " << trial << ", " << found.size() << " bytes";
    }
}

TEST(SaveAs, TakesTheNewNameAndItsEnding) {
    const struct {
        const char* Current;
        const char* Proposed;
        const char* Answer;
        const char* Written;
    } cases[] = {{"old.tv5", "old.tv5", "new", "new.TV5"},
                 {"old.tv4", "old.tv5", "dots.in/new", "dots.in/new.TV5"},
                 {"old.TV4", "old.TV5", "new.txt", "new.txt"}};
    TemporaryFolder folder;
    std::filesystem::create_directory(folder / "dots.in");
    for (const auto& c : cases) {
        TestPorts outside;
        Workspace workspace = Small_Workspace(folder / c.Current);
        workspace.Project.ProjectDir = "/start/";
        outside.Prompts.Expect_File("Select a Tarnvik File ", folder / c.Answer);
        EXPECT_TRUE(Save_Project_As(workspace, outside.Ports));
        EXPECT_EQ(outside.Prompts.FileRequests.back().DefaultName, folder / c.Proposed);
        EXPECT_EQ(outside.Prompts.FileRequests.back().Filter, "Fichier Tarnvik *.TV5");
        EXPECT_EQ(outside.Prompts.FileRequests.back().Directory, "/start/");
        EXPECT_EQ(workspace.Project.CurrentFile, folder / c.Written);
        EXPECT_EQ(workspace.Project.ProjectDir, Folder_Of(folder / c.Written));
        EXPECT_EQ(workspace.Project.TotalTime, 56.5);
        EXPECT_EQ(Content(folder / c.Written), Project_Bytes(Small_Workspace("").Project));
    }
    TestPorts outside;
    Workspace workspace = Small_Workspace("");
    EXPECT_FALSE(Save_Project_As(workspace, outside.Ports));
    EXPECT_EQ(outside.Prompts.Last_Text(), "No files loaded");
}

TEST(SaveAs, WhatComesToNothingIsRescuedInAFileThatReallyExists) {
    const struct {
        const char* Answer;
        const char* ProgramFolder;
        const char* Rescued;
    } cases[] = {{"", "program", "program/ERROR.TV5"},
                 {"missing/new.tv5", "program", "program/ERROR.TV5"},
                 {"", "no such folder", "ERROR.TV5"}};
    for (const auto& c : cases) {
        TemporaryFolder folder;
        std::filesystem::create_directory(folder / "program");
        TestPorts outside;
        outside.Launcher.Folder = folder / c.ProgramFolder;
        Workspace workspace = Small_Workspace(folder / "old.tv5");
        workspace.Project.ProjectDir = folder / "";
        const std::string bytes = Project_Bytes(workspace.Project);
        outside.Prompts.Expect_File("Select a Tarnvik File ",
                                    *c.Answer == 0 ? std::string() : folder / c.Answer);
        EXPECT_FALSE(Save_Project_As(workspace, outside.Ports));
        ASSERT_EQ(outside.Prompts.Messages.size(), 2U);
        EXPECT_TRUE(outside.Prompts.Messages[0].Text.ends_with(" :File Error..."));
        EXPECT_EQ(outside.Prompts.Messages[0].WithIcon, Icon::Warning);
        EXPECT_EQ(outside.Prompts.Messages[1].Text,
                  "The travel time has been saved as " + folder / c.Rescued);
        EXPECT_EQ(workspace.Project.CurrentFile, folder / c.Rescued);
        EXPECT_EQ(Content(folder / c.Rescued), bytes);
    }
}

TEST(SaveAs, ARefusedValueKeepsTheFormerFile) {
    TemporaryFolder folder;
    TestPorts outside;
    Workspace workspace = Small_Workspace(folder / "old.tv4");
    workspace.Project.ShotThickness(1, 1) = 400;
    outside.Prompts.Expect_File("Select a Tarnvik File ", folder / "new.tv5");
    EXPECT_FALSE(Save_Project_As(workspace, outside.Ports));
    EXPECT_EQ(workspace.Project.CurrentFile, folder / "old.tv4");
    EXPECT_FALSE(File_Exists(folder / "new.tv5"));
}

TEST(Saved_mark, follows_everything_that_is_filed_but_the_total_time) {
    TemporaryFolder folder;
    TestPorts world;
    Workspace workspace = Small_Workspace(folder / "line.tv5");
    const auto edit = [&workspace](auto change) {
        const EditScope scope(workspace, "Change");
        change(workspace.Project);
    };
    ASSERT_TRUE(Write_Project(workspace, world.Ports));
    EXPECT_TRUE(workspace.Edits.Is_Saved());
    edit([](Project& line) { line.TotalTime += 5; });
    EXPECT_TRUE(workspace.Edits.Is_Saved());
    {
        // Saved while an edit is in work: what it changed before is filed, and stays one edit.
        const EditScope scope(workspace, "Remark");
        workspace.Project.remark_grid.Set_Text(3, 3, "borehole 7");
        ASSERT_TRUE(Write_Project(workspace, world.Ports));
    }
    EXPECT_TRUE(workspace.Edits.Is_Saved());
    EXPECT_EQ(workspace.Edits.Undo_Name(), "Remark");
    EXPECT_EQ(workspace.Edits.Undo(workspace.Project), "");
    EXPECT_EQ(workspace.Project.remark_grid.Text(3, 3), "row4");
    EXPECT_FALSE(workspace.Edits.Is_Saved());
}

TEST(ProjectSave, a_file_of_another_line_is_replaced_only_after_a_question) {
    TemporaryFolder folder;
    TestPorts world;
    Workspace workspace = Small_Workspace(folder / "line.tv5");
    ASSERT_TRUE(Write_Project(workspace, world.Ports));
    ASSERT_EQ(Replace_File(folder / "other.tv5", "another line"), "");
    // As when another SU file is loaded: its name gives the project's.
    workspace.Project.CurrentFile = folder / "other.tv5";
    const std::string question = workspace.Project.CurrentFile + " already exists, overwrite ?";
    world.Prompts.Expect(question, Answer::No);
    EXPECT_FALSE(Write_Project(workspace, world.Ports));
    EXPECT_EQ(*Read_File(folder / "other.tv5"), "another line");
    world.Prompts.Expect(question, Answer::Yes);
    EXPECT_TRUE(Write_Project(workspace, world.Ports));
    EXPECT_TRUE(Write_Project(workspace, world.Ports)) << "asked once";
}

}  // namespace tarnvik
