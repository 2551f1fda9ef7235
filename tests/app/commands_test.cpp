#include "app/commands.h"

#include "app/dialog_commands.h"
#include "app/start.h"
#include "core/project_file.h"
#include "core/project_save.h"
#include "core/settings_file.h"
#include "session_fixture.h"
#include "support/su_builder.h"

namespace tarnvik::test {

class Commands : public SessionTest {};

TEST_F(Commands, a_command_that_is_none_does_nothing) {
    Run_Command(Program, "no such command");
    EXPECT_TRUE(World.Display.Calls.empty());
    EXPECT_TRUE(World.Prompts.Messages.empty());
}

TEST_F(Commands, a_tool_that_cannot_be_started_is_told_in_its_own_words) {
    World.Launcher.Result = 2;
    World.Launcher.Folder = "/tools";
    const struct {
        const char* Name;
        const char* Words;
    } cases[] = {
        {"frequency", "Unable to shell /tools/reverse.exe"},
        {"tosu", "Unable to shell application:/tools/conversion.EXE"},
        {"SEG22SU", "Unable to shell application:C:\\tarnvik\\SEG2su.exe"},
        {"Print_rec", "Unable to shell application:/tools/suprint2.exe"},
        {"MF", "Unable to shell application:/tools/merge_file.exe"},
        {"edit", "Unable to lauch NOTEPAD "},
        {"Edit_Mnu", "Unable to lauch NOTEPAD "},
        {"help", "You must install tv16.pdf"},
    };
    for (const auto& c : cases) {
        Run_Command(Program, c.Name);
        EXPECT_EQ(World.Prompts.Last_Text(), c.Words) << c.Name;
    }
    World.Launcher.Program.clear();
    Run_Command(Program, "help");
    EXPECT_EQ(World.Prompts.Last_Text(), "You must intstall ACROBAT READER from the CD-ROM");
    World.Launcher.Program = "viewer";
    World.Launcher.Folder = Folder.Path;
    std::filesystem::create_directory(Folder / "manual");
    for (const auto& [name, file] : {std::pair<const char*, std::string>("help", "manual/tv16.pdf"),
                                     {"REDPATH", "manual/redpath.pdf"},
                                     {"pps", "manual/tarnvik.ppsx"}}) {
        ASSERT_EQ(Replace_File(Folder / file, ""), "");
        Run_Command(Program, name);
        EXPECT_NE(World.Launcher.Started.back().find(file), std::string::npos) << name;
    }
}

TEST_F(Commands, a_new_profile_shows_its_records) {
    const std::string records = SuBuilder(6, 10).Records(3).Write(Folder / "line.su");
    World.Prompts.Expect("Did you already convert your field data to SU format", Answer::Yes);
    World.Prompts.Expect_File("Load ", records);
    World.Prompts.Expect_Start("The traces of ", Answer::Yes);
    Run_Command(Program, "prop");
    EXPECT_EQ(Program.Work.Project.NbShots, 2);
    const auto& calls = World.Display.Calls;
    const auto taken = std::find(calls.begin(), calls.end(), "Open_Dialog modal");
    ASSERT_NE(taken, calls.end());
    EXPECT_NE(std::find(taken, calls.end(), "Display_Record"), calls.end());
}

TEST_F(Commands, the_notes_of_a_project_keep_the_case_of_its_folder) {
    Program.Work.Project.CurrentFile = "/Data/Line.TV5";
    Run_Command(Program, "edit");
    EXPECT_EQ(World.Launcher.Started.back(), "editor|/Data/Line.rtf");
    Run_Command(Program, "tosu");
    EXPECT_EQ(World.Launcher.Started.back(), "./conversion.EXE|356|.");
}

TEST_F(Commands, the_filter_finds_the_field_records_in_the_settings) {
    Program.Work.Project.SuFile = "/data/a.su";
    Run_Command(Program, "filtr");
    EXPECT_NE(Read_File(Folder / "Tarnvik32.INI")->find("SU=/data/a.su"), std::string::npos);
    EXPECT_EQ(World.Launcher.Started.back(), "./reverse.exe|/data/a.su|.");
    // A project names its records beside it without a folder; the tool runs in another one.
    Program.Work.Project.CurrentFile = "/lines/a.tv5";
    Program.Work.Project.SuFile = "a.su";
    Run_Command(Program, "filtr");
    EXPECT_EQ(World.Launcher.Started.back(), "./reverse.exe|/lines/a.su|.");
    // What is not saved is in a copy that the tools print.
    ASSERT_TRUE(Open_File_Named(Program, Project_File()));
    Program.Work.CompanionFolder = Folder / "projects";
    const double total = Program.Work.Project.TotalTime;
    {
        const EditScope edit(Program.Work, "Pick");
        Program.Work.Project.ShotTimes(1, 1) = 77;
    }
    Run_Command(Program, "winprint");
    EXPECT_EQ(World.Launcher.Started.back(), "./tvmprint.exe|412|.");
    const std::string copy = Read_Setting(Folder / "Tarnvik32.INI", "Tools", "Unsaved");
    Project printed;
    ASSERT_TRUE(Parse_Project(Read_File(copy).value_or(""), printed).Whole());
    EXPECT_EQ(printed.ShotTimes(1, 1), 77);
    EXPECT_EQ(printed.TotalTime, total);
}

TEST_F(Commands, a_missing_file_is_not_superposed_and_the_combined_display_not_enlarged) {
    ASSERT_TRUE(Open_File_Named(Program, Project_File()));
    World.Prompts.Expect_File("Tarnvik File selection", Folder / "missing.tv5");
    Run_Command(Program, "Superpose");
    EXPECT_EQ(World.Prompts.Last_Text(), "This file does not exist !");
    Program.Work.Mode.Display(DisplayMode::Both);
    Run_Command(Program, "find");
    EXPECT_EQ(World.Prompts.Last_Text(), "Not available with this display");
    EXPECT_TRUE(World.Display.Opened.empty());
    Program.Work.Mode.Display(DisplayMode::Dromo);
    Run_Command(Program, "find");
    EXPECT_EQ(World.Display.Opened, std::vector{Dialog::Zoom});
}

TEST_F(Commands, a_picture_without_a_printer_is_refused) {
    World.Display.Printable = false;
    Run_Command(Program, "PrintPicture_M");
    EXPECT_EQ(World.Prompts.Last_Text(), "The GRAPHIC cannot be printed");
    World.Prompts.Messages.clear();
    Run_Command(Program, "print");  // no line
    EXPECT_EQ(World.Prompts.Last_Text(), "The GRAPHIC cannot be printed");
}

TEST_F(Commands, opening_from_the_menu_asks_for_missing_records_and_leads_to_the_depths) {
    const std::string path = Folder / "line.tv5";
    ASSERT_EQ(Replace_File(path, Plain_File()), "");
    const std::string su_file = "/data/ligne \u00E9t\u00E9.su";
    World.Prompts.Expect_File("Tarnvik File selection", path);
    World.Prompts.Expect(" Do you want to locate " + su_file, Answer::No);
    World.Prompts.Expect("Do you want to locate the SU File", Answer::No);
    Run_Command(Program, "NewDromoName");
    EXPECT_EQ(World.Prompts.Last_Text(), " You must (re)compute all thickness to load data in memroy");
    EXPECT_EQ(World.Display.Opened, std::vector{Dialog::Fcalcul});
    EXPECT_EQ(Program.Work.Project.NbShots, 2);
}

}  // namespace tarnvik::test
