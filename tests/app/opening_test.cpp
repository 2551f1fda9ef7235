#include "app/opening.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "core/files.h"
#include "core/project_open.h"
#include "core/project_save.h"
#include "core/tv4_file.h"
#include "support/small_project.h"
#include "support/test_ports.h"

namespace tarnvik {

using test::Plain_File;
using test::Small_Workspace;
using test::TemporaryFolder;
using test::TestPorts;

namespace {

namespace fs = std::filesystem;

class ProjectOpen : public testing::Test {
  protected:
    ProjectOpen() {
        EXPECT_EQ(Replace_File(Path, Plain_File()), "");
        const auto note = [this](const char* name) { return [this, name] { Hooked.emplace_back(name); }; };
        Hooks = {note("su"), note("grm"), note("load")};
        // The backup copy stands between the two companion files.
        Hooks.OfferSuFile = [this] { Hooked.emplace_back(File_Exists(Folder / "line.bak") ? "late" : "su"); };
        Hooks.ReadGrmFile = [this] {
            Hooked.emplace_back(File_Exists(Folder / "line.bak") ? "grm" : "early");
        };
    }

    TemporaryFolder Folder;
    std::string Path = Folder / "line.TV5";
    TestPorts Outside;
    Workspace Work;
    OpeningHooks Hooks;
    std::vector<std::string> Hooked;
};

}  // namespace

TEST_F(ProjectOpen, LoadsBacksUpAndResetsTheViews) {
    Work.Curves.ZoomX = 3;
    Work.Curves.HScroll1.Value = 40;
    Work.Record.Record = 7;
    Work.Project.CurrentFile = Path;
    ASSERT_TRUE(Open_Project(Work, Outside.Ports, Hooks));
    EXPECT_EQ(Hooked, (std::vector<std::string>{"su", "grm"}));
    EXPECT_EQ(Read_File(Folder / "line.bak"), Plain_File());
    EXPECT_EQ(Work.Project.ProjectName, "line");
    EXPECT_EQ(Work.Project.ProjectDir, Folder / "");
    EXPECT_EQ(Work.Curves.MaxTime, 26);
    EXPECT_EQ(Work.Curves.TimeFactor, 0.5);
    EXPECT_EQ(Work.Curves.ZoomX, 1);
    EXPECT_EQ(Work.Record.Record, 1);
    EXPECT_EQ(Work.Fields.Text25, "55.5");
    EXPECT_EQ(Work.Fields.Label16, Work.Project.SuFile);
    EXPECT_EQ(Work.Fields.FirstTabCaption, Path);
    EXPECT_FALSE(Work.NoOffsetShots);
    EXPECT_EQ(Outside.Display.Count("Show_Fields"), 1);
}

TEST_F(ProjectOpen, TheCaptionHoldsTheLast35LettersOfThePath) {
    const std::string path = Folder / "\u00E9\u00E90123456789012345678901234567890.tv5";
    ASSERT_EQ(Replace_File(path, Plain_File()), "");
    ASSERT_TRUE(Open_Named_Project(Work, Outside.Ports, Hooks, path));
    EXPECT_EQ(Work.Fields.Caption, "0123456789012345678901234567890.tv5  [Tarnvik 16.5]");
    const std::string other = Folder / "\u00E9\u00E912345678901234567890123456789.tv5";
    ASSERT_EQ(Replace_File(other, Plain_File()), "");
    ASSERT_TRUE(Open_Named_Project(Work, Outside.Ports, Hooks, other));
    EXPECT_EQ(Work.Fields.Caption, "\u00E9\u00E912345678901234567890123456789.tv5  [Tarnvik 16.5]");
}

TEST_F(ProjectOpen, ARefusedFileLeavesTheProjectAndItsNames) {
    fs::create_directory(Folder / "folder.tv5");
    ASSERT_EQ(Replace_File(Folder / "line.bak", "bak"), "");
    const struct {
        std::string Name;
        std::string Word;
    } cases[] = {{Folder / "missing.tv5", "This file does not exist !"},
                 {Folder / "line.bak", "No TV5 file selected "},
                 {"", "No TV5 file selected "},
                 {Folder / "folder.tv5", Folder / "folder.tv5" + " cannot be read"}};
    Work = Small_Workspace(Path);
    Work.Project.ProjectName = "line";
    for (const auto& c : cases) {
        EXPECT_FALSE(Open_Named_Project(Work, Outside.Ports, Hooks, c.Name));
        EXPECT_EQ(Outside.Prompts.Last_Text(), c.Word);
        EXPECT_EQ(Outside.Prompts.Messages.back().WithIcon, Icon::Critical);
        EXPECT_EQ(Work.Project.ShotTimes(1, 2), 12.34F);
        EXPECT_EQ(Work.Project.CurrentFile, Path);
        EXPECT_EQ(Work.Project.ProjectName, "line");
    }
    EXPECT_EQ(Read_File(Folder / "line.bak"), "bak");
}

TEST_F(ProjectOpen, WhatIsMissingIsToldAndCancelKeepsTheFormerProject) {
    ASSERT_TRUE(Open_Named_Project(Work, Outside.Ports, Hooks, Path));
    const std::string whole = *Read_File(Path);
    const std::string cut = Folder / "cut.tv5";
    // Behind the places of the shots, in front of the velocities.
    const std::string places = " 1100  1051  75.25 \r\n";
    ASSERT_EQ(Replace_File(cut, whole.substr(0, whole.find(places) + places.size())), "");
    ASSERT_EQ(Replace_File(Folder / "cut.bak", "the whole file of yesterday"), "");
    const std::string question =
        cut +
        "\r\nThe file ends after block 4 of 10 (the shots): missing in whole or in part are the velocities"
        " and what follows.\r\nOpen anyway ?";
    Outside.Prompts.Expect(question, Answer::Cancel);
    Work.Project.SuFile = "/former/line.su";
    Work.Project.ShotTimes(1, 2) = 77;
    EXPECT_FALSE(Open_Named_Project(Work, Outside.Ports, Hooks, cut));
    EXPECT_EQ(Work.Project.ShotTimes(1, 2), 77);
    EXPECT_EQ(Work.Project.CurrentFile, Path);
    EXPECT_EQ(Work.Project.SuFile, "/former/line.su");
    Outside.Prompts.Expect(question, Answer::Ok);
    EXPECT_TRUE(Open_Named_Project(Work, Outside.Ports, Hooks, cut));
    EXPECT_EQ(Work.Project.ShotDistance(2), 10.51);
    EXPECT_EQ(*Read_File(Folder / "cut.bak"), "the whole file of yesterday");
    EXPECT_EQ(Work.Project.SuFile, "") << "not the records of the former line";

    std::string words = whole;
    words.replace(words.find("1234"), 4, "pick");
    ASSERT_EQ(Replace_File(cut, words), "");
    Outside.Prompts.Expect(cut +
                               "\r\nThere are words where numbers should stand, first in block 2 (the picks)."
                               "\r\nOpen anyway ?",
                           Answer::Ok);
    EXPECT_TRUE(Open_Named_Project(Work, Outside.Ports, Hooks, cut));
}

TEST_F(ProjectOpen, AFileThatIsNoProjectIsRefused) {
    ASSERT_TRUE(Open_Named_Project(Work, Outside.Ports, Hooks, Path));
    const std::string file = Folder / "none.tv5";
    const struct {
        std::string Bytes;
        const char* Reason;
    } cases[] = {
        {"Dear reader, ", "it does not begin with the number of shots"},
        {"", "it does not begin with the number of shots"},
        {std::string("\x89PNG\r\n\x1a\n", 8), "it holds bytes that stand in no text"},
        {*Read_File(Path) + '\0', "it holds bytes that stand in no text"},
        {" -2 10 3 \r\n", "its number of shots or receivers is below 0"},
        {" 2000 500 50 \r\n 1 ",
         "it tells of 2000 shots and 50 receivers, more than a file of its length can hold"},
        {" 12 50 32000 \r\n",
         "it tells of 12 shots and 32000 receivers, more than a file of its length can hold"},
    };
    for (const auto& each : cases) {
        ASSERT_EQ(Replace_File(file, each.Bytes), "");
        EXPECT_FALSE(Open_Named_Project(Work, Outside.Ports, Hooks, file));
        EXPECT_EQ(Outside.Prompts.Last_Text(), file + " is no project file: " + each.Reason + ".");
        EXPECT_EQ(Work.Project.CurrentFile, Path);
        EXPECT_EQ(Work.Project.NbShots, 2);
    }
}

TEST_F(ProjectOpen, OffsetShotsAreFoundAndNeverForgotten) {
    const struct {
        double First;
        double Last;
        bool None;
    } cases[] = {{-5, 10.5, true}, {-5.01, 10.5, false}, {0, 10.51, false}};
    for (const auto& c : cases) {
        Workspace saved = Small_Workspace(Path);
        saved.Project.ShotDistance(1) = c.First;
        saved.Project.ShotDistance(2) = c.Last;
        ASSERT_TRUE(Write_Project(saved, Outside.Ports));
        Workspace work;
        Read_Project(work, Path);
        EXPECT_EQ(work.NoOffsetShots, c.None) << c.First << " " << c.Last;
        work.NoOffsetShots = false;
        Read_Project(work, Path);
        EXPECT_FALSE(work.NoOffsetShots);
    }
    Read_Project(Work, "*.tv5");
    EXPECT_EQ(Work.Project.CurrentFile, "") << "the untouched default of the dialog";
}

TEST_F(ProjectOpen, SelectionShiftsTheRecentFilesWithoutRemovingDuplicates) {
    Work.Settings.RecentFiles = {"1", "2", "3", "4", "5"};
    Work.Project.ProjectDir = "/start/";
    for (int i = 0; i < 2; ++i) {
        Outside.Prompts.Expect_File("Tarnvik File selection", Path);
        EXPECT_TRUE(Select_Project(Work, Outside.Ports, Hooks));
    }
    EXPECT_EQ(Work.Settings.RecentFiles, (std::array<std::string, 5>{Path, Path, "1", "2", "3"}));
    EXPECT_EQ(Outside.Prompts.FileRequests[0].Directory, "/start/");
    EXPECT_EQ(Outside.Prompts.FileRequests[0].DefaultName, "*.TV5");
    EXPECT_EQ(Outside.Prompts.FileRequests[1].Directory, Folder / "");
}

TEST_F(ProjectOpen, ACancelledOrTooLongSelectionChangesNothing) {
    Work = Small_Workspace(Path);
    for (const char* answer : {"", "*.TV5"}) {
        Outside.Prompts.Expect_File("Tarnvik File selection", answer);
        EXPECT_FALSE(Select_Project(Work, Outside.Ports, Hooks));
    }
    EXPECT_TRUE(Outside.Prompts.Messages.empty());
    // 90 letters pass the length check, 91 do not, whatever their bytes.
    const std::string longest = "/" + std::string(84, 'x') + "\u00E9.tv5";
    Outside.Prompts.Expect_File("Tarnvik File selection", longest);
    EXPECT_FALSE(Select_Project(Work, Outside.Ports, Hooks));
    EXPECT_EQ(Outside.Prompts.Last_Text(), "This file does not exist !");
    Outside.Prompts.Expect_File("Tarnvik File selection", "/" + longest);
    EXPECT_FALSE(Select_Project(Work, Outside.Ports, Hooks));
    EXPECT_EQ(Outside.Prompts.Last_Text(), "/" + longest + " path is too long");
    EXPECT_EQ(Work.Project.CurrentFile, Path);
}

TEST_F(ProjectOpen, ABlankInTheNameIsTakenOutOnDiskOnly) {
    const std::string blank = Folder / "my line.tv5";
    const std::string question =
        blank + " file name contains a space, correct it ? (FOR DIRECTORY DO NOT CORRECT HERE ! ) ";
    ASSERT_EQ(Replace_File(blank, Plain_File()), "");
    Outside.Prompts.Expect(question, Answer::No);
    EXPECT_TRUE(Open_Named_Project(Work, Outside.Ports, Hooks, blank));
    EXPECT_EQ(Work.Project.ShotTimes(1, 2), 12.34F);

    Outside.Prompts.Expect(question, Answer::Yes);
    EXPECT_TRUE(Open_Named_Project(Work, Outside.Ports, Hooks, blank));
    EXPECT_EQ(Read_File(Folder / "myline.tv5"), Plain_File());
    EXPECT_FALSE(File_Exists(blank));
    EXPECT_EQ(Work.Project.CurrentFile, blank) << "still looked for under the old name";
    EXPECT_EQ(Work.Project.ShotTimes(1, 2), 0);

    ASSERT_EQ(Replace_File(blank, "other"), "");
    Outside.Prompts.Expect(question, Answer::Yes);
    Check_Project_Name(Work, Outside.Ports, blank);
    EXPECT_EQ(Read_File(Folder / "myline.tv5"), Plain_File()) << "a file of the new name is not run over";
}

TEST_F(ProjectOpen, AReadOnlyMarkIsTakenOff) {
    fs::permissions(Path, fs::perms::owner_read);
    Check_Project_Name(Work, Outside.Ports, Path);
    EXPECT_EQ(Outside.Prompts.Last_Text(), Path + "has READ ONLY attribut,Tarnvik 16.5 will modify it");
    EXPECT_NE(fs::status(Path).permissions() & fs::perms::owner_write, fs::perms::none);
    Outside.Prompts.Messages.clear();
    Check_Project_Name(Work, Outside.Ports, Path);
    EXPECT_TRUE(Outside.Prompts.Messages.empty());
}

TEST_F(ProjectOpen, TheBackupLiesBesideTheFileWhateverItsFolderIsCalled) {
    fs::create_directories(Folder / "old.tv5");
    fs::create_directories(Folder / "old.bak");
    const std::string path = Folder / "old.tv5/Line.TV5";
    ASSERT_EQ(Replace_File(path, "new"), "");
    ASSERT_EQ(Replace_File(Folder / "old.tv5/Line.bak", "older copy"), "");
    EXPECT_EQ(Backup_Project(path), "");
    EXPECT_EQ(Read_File(Folder / "old.tv5/Line.bak"), "new");
    EXPECT_NE(Backup_Project(Folder / "no project"), "");
    EXPECT_NE(Backup_Project(Folder / "missing.tv5"), "");
}

TEST_F(ProjectOpen, ABackupComesBackAsProjectWithItsFieldRecords) {
    ASSERT_EQ(Replace_File(Folder / "Copy.BAK", Plain_File()), "");
    ASSERT_EQ(Replace_File(Folder / "COPY.SU", "su"), "");
    Outside.Prompts.Expect_File("Tarnvik BAK TV5 selection", Folder / "Copy.BAK");
    EXPECT_TRUE(Backup_To_Project(Work, Outside.Ports, Hooks));
    EXPECT_EQ(Work.Project.CurrentFile, Folder / "Copy.tv5");
    EXPECT_EQ(Work.Project.SuFile, Folder / "COPY.SU");
    EXPECT_TRUE(Work.Edits.All().empty() && Work.Edits.Is_Saved());
    // A copy that is no project replaces none.
    ASSERT_EQ(Replace_File(Folder / "Copy.BAK", std::string("\x89PNG\0\x01", 6)), "");
    Outside.Prompts.Expect_File("Tarnvik BAK TV5 selection", Folder / "Copy.BAK");
    EXPECT_FALSE(Backup_To_Project(Work, Outside.Ports, Hooks));
    EXPECT_EQ(*Read_File(Folder / "Copy.tv5"), Plain_File());
    Outside.Prompts.Expect_File("Tarnvik BAK TV5 selection", "");
    EXPECT_FALSE(Backup_To_Project(Work, Outside.Ports, Hooks));
}

TEST_F(ProjectOpen, AnOlderFileIsConvertedAsAStream) {
    std::string old = " 1   50   2 \r\n 1234  99 \r\n";
    for (int row = 1; row <= 12; ++row)
        old += std::to_string(row) + " -7 ";
    old += "\r\n 15 -60 3 \r\n";
    for (int i = 1; i <= 30; ++i)
        old += std::to_string(i * 100) + " ";
    old += "\r\n\xE9.su\r\n";
    for (int row = 1; row <= 9; ++row)
        old += std::to_string(row) + " 2.5 0 text" + std::to_string(row) + "\r\n";
    old += " 80 \r\n";
    const auto converted = Convert_TV4(old);
    ASSERT_TRUE(converted);
    EXPECT_TRUE(converted->starts_with(" 1             50            2 \r\n 1234  99 \r\n 10 -70  20 -70 "));
    EXPECT_NE(converted->find(" 120 -70  150 -600  30 \r\n 100  200 \r\n 300 "), std::string::npos);
    EXPECT_NE(converted->find("\r\n 900  1000 \r\n 1100 \r\n 1200 \r\n"), std::string::npos);
    EXPECT_NE(converted->find("9             2.5           0            text9\r\n\r\n 80 \r\n"),
              std::string::npos);

    Project project;
    Parse_Project(*converted, project);
    EXPECT_EQ(project.ShotTimes(1, 1), 12.34F);
    EXPECT_EQ(project.ReceiverData(12, 1), 1.2F);
    EXPECT_EQ(project.ShotDistance(1), -6);
    EXPECT_EQ(project.VelocityB(1, 5), 1000);
    EXPECT_EQ(project.ShotThickness(1, 4), 30);
    EXPECT_EQ(project.SuFile, "\u00E9.su");
    EXPECT_EQ(project.remark_grid.Text(9, 3), "text8");
    EXPECT_EQ(project.TotalTime, 8) << "first number of the ninth remark, less 1";
    EXPECT_EQ(project.DistanceShift, 2.5) << "its second number";

    for (std::size_t length = 0; length < old.size(); length += 7)
        Convert_TV4(old.substr(0, length));
    for (const char* no_counts : {"", "word", "0 1 0", "30000 1 30000", "-1 1 2", "2 3"})
        EXPECT_FALSE(Convert_TV4(no_counts)) << no_counts;

    ASSERT_EQ(Replace_File(Folder / "a.tv4", old), "");
    Work = Small_Workspace(Path);
    Outside.Prompts.Expect_File("Old Tarnvik file", Folder / "a.tv4");
    Outside.Prompts.Expect_File("New Tarnvik file", Folder / "b.tv5");
    EXPECT_TRUE(TV4_To_TV5(Work, Outside.Ports));
    EXPECT_EQ(Outside.Prompts.FileRequests.back().DefaultName, Folder / "a.tv5");
    EXPECT_EQ(Read_File(Folder / "b.tv5"), converted);
    EXPECT_EQ(Outside.Prompts.Last_Text(), Folder / "b.tv5" + " has been recorded");
    EXPECT_EQ(Work.Project.ShotTimes(2, 1), 26.0F) << "the project in memory is not touched";
}

}  // namespace tarnvik
