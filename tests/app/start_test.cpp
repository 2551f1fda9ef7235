#include "app/start.h"

#include <filesystem>

#include "app/commands.h"
#include "app/file_commands.h"
#include "app/splash.h"
#include "core/project_file.h"
#include "session_fixture.h"
#include "support/su_builder.h"

namespace tarnvik::test {

class StartAndEnd : public SessionTest {};

TEST_F(StartAndEnd, a_command_line_of_up_to_three_characters_shows_the_start_dialog) {
    Form_Load(Program, "\"a\"");
    ASSERT_EQ(World.Display.Opened, std::vector{Dialog::frmSplash});
    EXPECT_EQ(World.Display.Count("Open_Dialog modal"), 1);
    EXPECT_EQ(Program.Work.Project.NbReceivers, 24);
    EXPECT_EQ(Program.Work.Settings.Units, "meters");
}

TEST_F(StartAndEnd, the_file_type_is_registered_at_the_first_start_alone) {
    Form_Load(Program, "");
    EXPECT_EQ(World.Launcher.Registered, 1);
    ASSERT_EQ(Replace_File(Folder / "Tarnvik32.INI", "[tarnvik]\r\nUnits=feet\r\n"), "");
    Form_Load(Program, "");
    EXPECT_EQ(World.Launcher.Registered, 1);
    EXPECT_EQ(Program.Work.Settings.Units, "feet");
}

TEST_F(StartAndEnd, the_start_dialog_shows_projects_that_are_there_and_opens_a_copy_of_the_demo) {
    const std::string line = Project_File();
    const std::string text = Folder / "text.tv5";
    ASSERT_EQ(Replace_File(text, "no project"), "");
    std::filesystem::create_directories(Folder / "program/demo");
    std::filesystem::copy_file(line, Folder / "program/demo/show.tv5");
    World.Launcher.Folder = Folder / "program";
    World.Launcher.Documents = Folder / "papers";
    Program.Work.Settings.RecentFiles = {Folder / "gone.tv5", line, text, line, ""};
    frmSplash splash(Program);
    splash.Load();
    EXPECT_FALSE(splash.HasLastFile);
    ASSERT_EQ(splash.Recent.size(), 1U);
    EXPECT_EQ(splash.Recent[0].Path, line);
    EXPECT_EQ(splash.Recent[0].Size, "2 shots, 3 receivers");
    EXPECT_EQ(splash.Recent[0].Changed.size(), std::string("2026-01-01 00:00").size());
    ASSERT_EQ(splash.Demos.size(), 1U);
    splash.Open_Demo(0);
    EXPECT_EQ(Program.Work.Project.CurrentFile, Folder / "papers/Tarnvik-demo/show.tv5");
    EXPECT_EQ(Program.Work.Project.NbShots, 2);
    splash.Open_Recent(0);
    EXPECT_EQ(Program.Work.Project.CurrentFile, line);
    Open_Dropped_File(Program, Folder / "papers/Tarnvik-demo/show.tv5");
    EXPECT_EQ(Program.Work.Settings.RecentFiles[0], Folder / "papers/Tarnvik-demo/show.tv5");
    Open_Dropped_File(Program, Folder / "letter.txt");
    EXPECT_NE(Program.Work.Fields.Status.find("letter.txt: Only project files"), std::string::npos);
}

TEST_F(StartAndEnd, a_quoted_path_is_opened_and_its_curves_are_drawn) {
    const std::string path = Project_File();
    Form_Load(Program, "\"" + path + "\"");
    EXPECT_TRUE(World.Display.Opened.empty());
    EXPECT_EQ(Program.Work.Project.CurrentFile, path);
    EXPECT_EQ(Program.Work.Project.NbShots, 2);
    EXPECT_EQ(Program.Work.Mode.Current(), DisplayMode::Dromo);
    EXPECT_GE(World.Display.Count("Show_Curves"), 1);
    EXPECT_EQ(World.Display.Count("Display_Record"), 0) << "the project has no records";
}

TEST_F(StartAndEnd, records_of_the_same_name_beside_the_project_are_taken_and_scanned) {
    const std::string path = Project_File("Line.TV5");
    const std::string records = SuBuilder(6, 10).Records(3).Write(Folder / "line.su");
    Form_Load(Program, "\"" + path + "\"");
    EXPECT_EQ(Program.Work.Project.SuFile, records);
    EXPECT_EQ(Program.Work.Record.ChannelsPerRecord, 3);
    EXPECT_EQ(World.Display.Count("Display_Record"), 1);
}

TEST_F(StartAndEnd, of_two_records_of_one_name_the_one_that_the_user_chose_is_shown) {
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        const std::string folder = answer == Answer::No ? "no" : "yes";
        std::filesystem::create_directories((Folder / folder) + "/stored");
        const std::string stored = SuBuilder(6, 10).Records(3).Write(Folder / (folder + "/stored/line.su"));
        const std::string beside = SuBuilder(10, 10).Records(5).Write(Folder / (folder + "/line.su"));
        const std::string path = Project_File(folder + "/line.tv5");
        Parse_Project(*Read_File(path), Program.Work.Project);
        Program.Work.Project.SuFile = stored;
        ASSERT_EQ(Replace_File(path, Project_Bytes(Program.Work.Project)), "");
        World.Prompts.Expect("The project names the field records " + stored +
                                 ". A file of the same name lies beside the project: " + beside +
                                 ". Take the one beside the project ?",
                             answer);
        Form_Load(Program, "\"" + path + "\"");
        EXPECT_EQ(Program.Work.Project.SuFile, answer == Answer::No ? stored : beside);
        EXPECT_EQ(Program.Work.Record.ChannelsPerRecord, answer == Answer::No ? 3 : 5);
        // The choice belongs to the opening: it is no work and no step of the history.
        {
            const EditScope edit(Program.Work, "Line length");
            Program.Work.Project.LineLength += 1;
        }
        EXPECT_EQ(Program.Work.Edits.All().size(), 1U);
        Program.Work.Edits.Undo(Program.Work.Project);
        EXPECT_TRUE(Program.Work.Edits.Is_Saved());
        Form_Load(Program, "\"" + path + "\"");
        EXPECT_EQ(Program.Work.Project.SuFile, answer == Answer::No ? stored : beside) << "asked once";
    }
}

TEST_F(StartAndEnd, a_project_without_records_after_one_with_records_shows_none) {
    const std::string empty = Project_File("empty.tv5");
    const std::string path = Project_File("line.tv5");
    SuBuilder(6, 10).Records(3).Write(Folder / "line.su");
    Form_Load(Program, "\"" + path + "\"");
    ASSERT_EQ(Program.Work.Record.NbTraces, 6);
    Program.RecordArea.Zoom_To({2000, 1, 6000, 5});
    World.Display.Pictures[Canvas::Ecran].Line(0, 0, 1, 1, colours::Red);
    EXPECT_TRUE(Open_File_Named(Program, empty));
    EXPECT_TRUE(World.Display.Pictures[Canvas::Ecran].List.empty());
    EXPECT_EQ(Program.Work.Record.NbTraces, 0);
    EXPECT_FALSE(Program.RecordArea.Enlarged());
    for (const char* name : {"Command4", "Command17", "Command23", "Command16"})
        EXPECT_NE(Refusal_Of(*Find_Command(name), Program), "") << name;
}

TEST_F(StartAndEnd, a_path_without_quotes_loses_both_ends_and_is_not_found) {
    // The rule strips whatever stands there; scripts that start the program rely on the quotes.
    Form_Load(Program, Project_File());
    EXPECT_EQ(World.Prompts.Last_Text(), "No TV5 file selected ");
    EXPECT_EQ(Program.Work.Project.NbShots, 5);  // the default of the settings, nothing was read
}

TEST_F(StartAndEnd, a_decimal_comma_is_changed_only_with_consent_which_lasts) {
    const std::string question =
        " Decimal separator is a comma, TARNVIK can modify the decimal separator\r\n"
        "a point is required to run correctly all modules! \r\n";
    World.Launcher.Separator = ",";
    World.Prompts.Expect(question, Answer::Cancel);
    Form_Load(Program, "");
    EXPECT_EQ(World.Launcher.Separator, ",");
    World.Prompts.Expect(question, Answer::Ok);
    Form_Load(Program, "");
    EXPECT_EQ(World.Launcher.Separator, ".");
    const int registered = World.Launcher.Registered;
    World.Launcher.Separator = ",";
    Form_Load(Program, "");
    EXPECT_EQ(World.Launcher.Separator, ".");
    EXPECT_EQ(World.Launcher.Registered, registered) << "the consent wrote settings: no first start any more";
}

TEST_F(StartAndEnd, the_end_asks_both_questions_and_writes_the_settings) {
    const std::string path = Project_File();
    ASSERT_TRUE(Open_File_Named(Program, path));
    const std::string before = *Read_File(path);
    Program.Work.Settings.Units = "feet";
    World.Prompts.Expect("This will end your Tarnvik session", Answer::Yes);
    World.Prompts.Expect("Record " + path, Answer::No);
    World.Prompts.Expect("Record a Back Up file of " + path, Answer::Yes);
    std::filesystem::remove(Folder / "line.bak");
    Quit(Program, false);
    EXPECT_EQ(*Read_File(path), before);
    EXPECT_EQ(*Read_File(Folder / "line.bak"), before);
    EXPECT_NE(Read_File(Folder / "Tarnvik32.INI")->find("Units=feet"), std::string::npos);
    EXPECT_EQ(World.Display.Count("End_Program"), 1);
}

TEST_F(StartAndEnd, the_toolbar_asks_with_an_ok_button_alone) {
    World.Prompts.Expect("Record ", Answer::No);
    World.Prompts.Expect("Record a Back Up file of ", Answer::No);
    Quit(Program, true);
    EXPECT_EQ(World.Prompts.Messages.front().WithButtons, Buttons::Ok);
    EXPECT_EQ(World.Display.Count("End_Program"), 1);
}

TEST_F(StartAndEnd, colours_that_a_dialog_has_put_aside_are_in_the_settings_all_the_same) {
    Program.Work.Settings.ColorChoice = true;
    Program.Phantom.Load();
    World.Prompts.Expect("Record ", Answer::No);
    World.Prompts.Expect("Record a Back Up file of ", Answer::No);
    Quit(Program, true);
    EXPECT_NE(Read_File(Folder / "Tarnvik32.INI")->find("Choix=-1"), std::string::npos);
    EXPECT_FALSE(Program.Work.Settings.ColorChoice);
}

TEST_F(StartAndEnd, a_new_size_redraws_what_the_pictures_show) {
    Program.Work.Mode.Display(DisplayMode::Abc);
    Resize_Form(Program);
    EXPECT_EQ(Program.Work.Mode.Current(), DisplayMode::Profil2);
    EXPECT_EQ(World.Display.Count("Show_Profile"), 1);
    Program.Work.Mode.Display(DisplayMode::Dromo);
    Resize_Form(Program);
    EXPECT_EQ(World.Display.Count("Show_Curves"), 1);
    Program.Work.Mode.Display(DisplayMode::QuickOver);  // an unknown word draws nothing
    Resize_Form(Program);
    EXPECT_EQ(World.Display.Count("Show_Curves"), 1);
}

TEST_F(StartAndEnd, cancel_and_a_refused_record_keep_the_program_running) {
    const std::string path = Project_File();
    ASSERT_TRUE(Open_File_Named(Program, path));
    World.Prompts.Expect("This will end your Tarnvik session", Answer::No);
    Quit(Program, false);
    EXPECT_FALSE(File_Exists(Folder / "Tarnvik32.INI"));
    World.Prompts.Expect("Record " + path, Answer::Cancel);
    EXPECT_FALSE(Unload_Form(Program));
    World.Prompts.Expect("Record " + path, Answer::No);
    World.Prompts.Expect("Record a Back Up file of " + path, Answer::Cancel);
    EXPECT_FALSE(Unload_Form(Program));
    // A file that cannot be written must not take the work of the session with it.
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    World.Prompts.Expect("This will end your Tarnvik session", Answer::Yes);
    World.Prompts.Expect("Record " + path, Answer::Yes);
    Quit(Program, false);
    EXPECT_EQ(World.Display.Count("End_Program"), 0);
}

TEST_F(StartAndEnd, unsaved_work_is_asked_for_before_another_project_is_read) {
    const std::string path = Project_File();
    const std::string other = Project_File("other.tv5");
    ASSERT_TRUE(Open_File_Named(Program, path));
    ASSERT_TRUE(Open_File_Named(Program, other)) << "no question while all is saved";
    const auto change = [this](float time) {
        const EditScope edit(Program.Work, "Pick");
        Program.Work.Project.ShotTimes(1, 2) = time;
    };
    change(33);
    const std::string question = other + " has edits that are not saved.";
    World.Prompts.Expect(question, Answer::Cancel);
    EXPECT_FALSE(Open_File_Named(Program, path));
    EXPECT_EQ(Program.Work.Project.ShotTimes(1, 2), 33);
    World.Prompts.Expect(question, Answer::Yes);
    EXPECT_TRUE(Open_File_Named(Program, path));
    EXPECT_NE(Read_File(other)->find(" 3300 "), std::string::npos);
    // Save that is refused keeps the project too.
    change(34);
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    World.Prompts.Expect(path + " has edits that are not saved.", Answer::Yes);
    EXPECT_FALSE(Open_File_Named(Program, other));
    EXPECT_EQ(Program.Work.Project.CurrentFile, path);
    // A file that is refused after Discard leaves the work and its history.
    World.Prompts.Expect(path + " has edits that are not saved.", Answer::No);
    EXPECT_FALSE(Open_File_Named(Program, Folder / "missing.tv5"));
    EXPECT_EQ(Program.Work.Project.ShotTimes(1, 2), 34);
    EXPECT_TRUE(Program.Work.Edits.Can_Undo());
}

TEST_F(StartAndEnd, the_last_project_is_the_first_recent_file_also_after_a_start_by_command_line) {
    const std::string path = Project_File();
    Form_Load(Program, "\"" + path + "\"");
    World.Prompts.Expect("This will end your Tarnvik session", Answer::Yes);
    World.Prompts.Expect("Record " + path, Answer::No);
    World.Prompts.Expect("Record a Back Up file of " + path, Answer::No);
    Quit(Program, false);
    TestPorts world;
    Session next(world.Ports, Folder / "Tarnvik32.INI");
    Form_Load(next, "");
    EXPECT_EQ(next.Work.Settings.RecentFiles[0], path);
    frmSplash splash(next);
    splash.Load();
    EXPECT_EQ(splash.Command5Caption, "Display " + path);
    for (const Answer answer : {Answer::Cancel, Answer::Ok}) {
        EXPECT_EQ(world.Display.Opened.back(), Dialog::frmSplash);
        world.Prompts.Expect(" You must (re) computecomute thickness to load data in memroy", answer);
        EXPECT_TRUE(splash.Command5());
        EXPECT_EQ(next.Work.Project.CurrentFile, path);
    }
    EXPECT_EQ(world.Display.Opened.back(), Dialog::Fcalcul);
    std::filesystem::remove(Folder / "Tarnvik32.INI");
    world.Prompts.Expect("Do you stop Tarnvik 16.5?", Answer::Yes);
    EXPECT_TRUE(splash.Command6());
    EXPECT_FALSE(File_Exists(Folder / "Tarnvik32.INI")) << "its end writes no settings";
}

}  // namespace tarnvik::test
