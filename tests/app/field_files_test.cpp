// Files of a seismograph on their way to a line: dropped onto the window, or chosen for a new profile.

#include "app/dialog_commands.h"
#include "app/file_commands.h"
#include "session_fixture.h"
#include "setup/geometry.h"
#include "support/field_file_builder.h"

namespace tarnvik::test {
namespace {

/// Display on which the user works in a modal dialog while it is open.
class DialogDisplay : public RecordingDisplay {
  public:
    void Open_Dialog(Dialog dialog, bool modal) override {
        RecordingDisplay::Open_Dialog(dialog, modal);
        if (OnOpen) OnOpen(dialog);
    }
    std::function<void(Dialog)> OnOpen;
};

class FieldFiles : public testing::Test {
  protected:
    FieldFiles() { Program.Offer_Conversion(); }

    /// A shot on three channels 5 apart.
    std::string Shot_File(const std::string& name, int shot) {
        Seg2Builder file;
        for (int channel = 1; channel <= 3; ++channel) {
            std::vector<float> samples(40);
            samples[static_cast<std::size_t>(10 + channel)] = 1;
            file.Add({"SAMPLE_INTERVAL 0.0005", "DELAY -0.002", "CHANNEL_NUMBER " + std::to_string(channel),
                      "RECEIVER_LOCATION " + std::to_string(5 * channel),
                      "SHOT_SEQUENCE_NUMBER " + std::to_string(shot),
                      "SOURCE_LOCATION " + std::to_string(10 * shot)},
                     samples);
        }
        EXPECT_EQ(Replace_File(Folder / name, file.Bytes()), "");
        return Folder / name;
    }
    /// The conversion is confirmed when it opens.
    void Convert_When_Open() {
        Display.OnOpen = [this](Dialog dialog) {
            if (dialog != Dialog::Conversion) return;
            Files = Program.FieldFiles.Files;
            Program.FieldFiles.Out = Folder / "line.su";
            Program.FieldFiles.Convert();
        };
    }

    TemporaryFolder Folder;
    ScriptedPrompts Prompts;
    DialogDisplay Display;
    RecordingLauncher Launcher;
    Session Program{{Prompts, Display, Launcher}, Folder / "Tarnvik32.INI"};
    TextGrid Files;  ///< as the dialog showed them
};

TEST_F(FieldFiles, that_are_dropped_become_one_su_file_and_a_new_profile) {
    const std::string tenth = Shot_File("shot10.dat", 2);
    const std::string second = Shot_File("shot2.dat", 1);
    Replace_File(Folder / "notes.txt", "no record");
    Convert_When_Open();
    const auto converting = Display.OnOpen;
    Display.OnOpen = [&](Dialog dialog) {
        converting(dialog);
        if (dialog == Dialog::rechinfo) Program.NewProfile.Ok();
    };
    Prompts.Expect("Start a new profile with " + Folder / "line.su" + " ?", Answer::Yes);
    Prompts.Expect_Start("The traces of ", Answer::Yes);
    Open_Dropped_Files(Program, {tenth, Folder / "notes.txt", second});
    ASSERT_EQ(Files.Rows(), 3);
    EXPECT_EQ(Files.Text(1, 1), "shot2.dat");
    EXPECT_EQ(Files.Text(2, 7), "2");
    const Project& project = Program.Work.Project;
    EXPECT_EQ(project.SuFile, Folder / "line.su");
    EXPECT_EQ(project.NbShots, 2);
    EXPECT_EQ(project.NbReceivers, 3);
    EXPECT_EQ(project.GeoSpace, 5);
    // The start of the recording lies before the shot.
    EXPECT_EQ(SuTraces(project.SuFile).Word(1, words::delrt), -2);
    EXPECT_FALSE(Display.Is_Open(Dialog::Conversion));
}

TEST_F(FieldFiles, chosen_for_a_new_profile_lead_to_the_conversion_and_back) {
    const std::string chosen = Shot_File("a shot of today.sg2", 1);
    Prompts.Expect("Did you already convert your field data to SU format", Answer::Yes);
    Prompts.Expect_File("Load ", chosen);
    // Given up in the conversion, given up as a whole.
    Start_New_Profile(Program);
    EXPECT_EQ(Program.Work.Project.NbShots, 0);
    EXPECT_EQ(Display.Opened, std::vector{Dialog::Conversion});

    Convert_When_Open();
    Program.FieldFiles.PlacesFrom = Conversion::Typed;
    Program.FieldFiles.Spacing = "x";
    Prompts.Expect("Did you already convert your field data to SU format", Answer::Yes);
    Prompts.Expect_File("Load ", chosen);
    Start_New_Profile(Program);
    EXPECT_EQ(Prompts.Last_Text(), "The spacing of the receivers must be a number above 0");
    EXPECT_FALSE(File_Exists(Folder / "line.su"));

    Program.FieldFiles.Spacing = "2.5";
    Program.FieldFiles.FirstReceiver = "1";
    Program.FieldFiles.Shots = "-1.5; ";
    const auto converting = Display.OnOpen;
    Display.OnOpen = [&](Dialog dialog) {
        converting(dialog);
        if (dialog == Dialog::rechinfo) Program.NewProfile.Ok();
    };
    Prompts.Expect("Did you already convert your field data to SU format", Answer::Yes);
    Prompts.Expect_File("Load ", chosen);
    Prompts.Expect_Start("The traces of ", Answer::Yes);
    Start_New_Profile(Program);
    EXPECT_EQ(Program.Work.Project.GeoSpace, 2.5);
    EXPECT_EQ(Program.Work.Project.SuFile, Folder / "line.su");
    EXPECT_NE(Program.FieldFiles.Report.find("3 traces in 1 record"), std::string::npos);
    // The choices are there the next time.
    Session next({Prompts, Display, Launcher}, Folder / "Tarnvik32.INI");
    next.Offer_Conversion();
    EXPECT_EQ(next.FieldFiles.Spacing, "2.5");
    EXPECT_EQ(next.FieldFiles.PlacesFrom, Conversion::Typed);
}

TEST_F(FieldFiles, the_whole_folder_of_the_chosen_one_is_added_and_its_own_files_never_written) {
    const std::string first = Shot_File("2.001", 1);
    Shot_File("2.002", 2);
    Shot_File("2.010", 3);
    Replace_File(Folder / "2.txt", "no record");
    Conversion& dialog = Program.FieldFiles;
    dialog.Add({first});
    EXPECT_EQ(dialog.Out, Folder / "2.su");
    dialog.Add_Whole_Folder();
    ASSERT_EQ(dialog.Files.Rows(), 4);
    EXPECT_EQ(dialog.Files.Text(3, 1), "2.010");
    EXPECT_EQ(dialog.Out, Folder / "line.su");
    EXPECT_EQ(dialog.Row, 1);
    EXPECT_NE(dialog.Details.find("SEG-2, little-endian"), std::string::npos) << dialog.Details;
    dialog.Out = first;
    dialog.Changed();
    EXPECT_FALSE(dialog.Ready());
    const auto before = Read_File(first);
    dialog.Convert();
    EXPECT_EQ(Prompts.Last_Text(), first + " is one of the files that are converted");
    EXPECT_EQ(Read_File(first), before);
}

}  // namespace
}  // namespace tarnvik::test
