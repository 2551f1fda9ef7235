#include "setup/new_profile.h"

#include <gtest/gtest.h>

#include "core/edits/project_block.h"
#include "core/files.h"
#include "core/project_file.h"
#include "records/su_file.h"
#include "setup/geometry.h"
#include "setup/line.h"
#include "support/su_builder.h"
#include "support/test_ports.h"

namespace tarnvik {
namespace {

using test::Changed_Bytes;
using test::Make_Line;
using test::SuBuilder;
using test::TemporaryFolder;

constexpr const char* ask_converted = "Did you already convert your field data to SU format";

/// Display on which the user works in the modal dialog while it is open.
class DialogDisplay : public test::RecordingDisplay {
  public:
    void Open_Dialog(Dialog dialog, bool modal) override {
        RecordingDisplay::Open_Dialog(dialog, modal);
        if (OnOpen) OnOpen();
    }
    std::function<void()> OnOpen;
};

TEST(EvenShots, StepsWithAndWithoutOffsets) {
    EXPECT_EQ(Even_Shot_Places(115, 6, false), (std::vector<double>{0, 23, 46, 69, 92, 115}));
    EXPECT_EQ(Even_Shot_Places(60, 6, true), (std::vector<double>{-20, 0, 20, 40, 60, 80}));
    EXPECT_EQ(Even_Shot_Places(60, 1, false), (std::vector<double>{0}));
    EXPECT_EQ(Even_Shot_Places(60, 3, true), (std::vector<double>{-60, 0, 60}));
    EXPECT_TRUE(Even_Shot_Places(60, 0, true).empty());
}

class Records : public ::testing::Test {
  protected:
    /// Three records of five channels.
    std::string Field_File(const std::string& name = "field.SU") {
        return SuBuilder(15, 50).Records(5).Write(folder / name);
    }
    TemporaryFolder folder;
    Workspace workspace;
    test::ScriptedPrompts prompts;
    DialogDisplay display;
    test::RecordingLauncher launcher;
    Ports ports{prompts, display, launcher};
    rechinfo dialog{workspace, ports};
};

TEST_F(Records, AreNumberedAtTheBytesToldAndNowhereElse) {
    SuBuilder builder(7, 50);
    builder.Records(3);
    for (int trace = 1; trace <= 7; ++trace)
        builder.Put32(trace, 12, 100000 + trace).Put32(trace, 0, -1).Put32(trace, 16, -1);
    const std::string path = builder.Write(folder / "a.su");
    workspace.Project.SuFile = path;
    ASSERT_EQ(Number_Traces(workspace, 3), "");
    SuTraces traces(path);
    const int counters[] = {1, 2, 3, 1, 2, 3, 1};
    for (int trace = 1; trace <= 7; ++trace) {
        EXPECT_EQ(traces.Word(trace, words::ep), counters[trace - 1]);
        EXPECT_EQ(traces.Word(trace, words::tracl), 100000 + trace);
    }
    const int length = 50 * 4 + 240;
    for (const auto byte : Changed_Bytes(builder.Bytes, *Read_File(path))) {
        const auto within = byte % length;
        EXPECT_TRUE(within < 4 || (within >= 16 && within < 20)) << byte;
    }
    workspace.Project.SuFile = folder / "none.su";
    EXPECT_NE(Number_Traces(workspace, 3), "");
}

TEST_F(Records, BecomeAProject) {
    Make_Line(workspace, 2, 3);
    workspace.Project.TotalTime = 80;
    workspace.Project.DistanceShift = 5;
    workspace.Project.remark_grid.Set_Text(2, 3, "of the old line");
    workspace.Edits.Start(workspace.Project, true);
    {
        const EditScope edit(workspace, "of the old line");
        workspace.Project.ShotTimes(1, 1) = 3;
    }
    const std::string su_file = Field_File();
    SuWriter(su_file, nullptr).Set_Word(7, words::ep, 4711);
    const auto unnumbered = Read_File(su_file);
    prompts.Expect(ask_converted, Answer::Yes);
    prompts.Expect_File("Load ", su_file);
    dialog.Offsets = true;  // left over from another line
    dialog.ShotDepth = "9";
    display.OnOpen = [&] {
        EXPECT_FALSE(dialog.Offsets);
        EXPECT_EQ(dialog.ShotDepth, "0");
        EXPECT_EQ(dialog.Geophones, "5");
        EXPECT_EQ(dialog.Shots, "3");
        dialog.Spacing = "4";
        dialog.Offset_or_Not();
        EXPECT_EQ(dialog.LineLength, "16");
        EXPECT_EQ(dialog.ShotTable.Text(2, 1), "8");
        dialog.FirstDistance = "1.5";
        dialog.ShotDepth = "0.75";
        dialog.ShotTable.Set_Text(3, 1, "16.5");
        dialog.ShotTable.Set_Text(3, 2, "210.25");
        dialog.Ok();
    };
    ASSERT_TRUE(New_Profile(workspace, ports, dialog));
    const Project& project = workspace.Project;
    EXPECT_EQ(project.SuFile, su_file);
    EXPECT_EQ(project.CurrentFile, folder / "field.tv5");
    EXPECT_EQ(project.ProjectName, "field");
    EXPECT_FALSE(File_Exists(project.CurrentFile)) << "saving is the user's";
    EXPECT_EQ(Receiver_Places(project), (std::vector<double>{1.5, 5.5, 9.5, 13.5, 17.5}));
    EXPECT_EQ(Shot_Places(project), (std::vector<double>{0, 8, 16.5}));
    EXPECT_EQ(project.ShotElevation(3), 210.25);
    EXPECT_EQ(project.ShotDepth(2), 0.75);
    EXPECT_EQ(project.LineLength, 16);
    EXPECT_EQ(project.GeoSpace, 4);
    EXPECT_EQ(Latest_Pick(project), 0);
    EXPECT_EQ(project.TotalTime, 0);
    EXPECT_EQ(project.DistanceShift, 0);
    EXPECT_EQ(project.remark_grid.Text(2, 3), "");
    const TextGrid& grid = workspace.Grids.Buildgrid;
    EXPECT_EQ(grid.Text(0, 4), "Meters");
    EXPECT_EQ(grid.Text(6, 0), "Dist.");
    EXPECT_EQ(grid.Text(7, 3), "210.25");
    EXPECT_EQ(workspace.Fields.Caption, project.CurrentFile + " [Tarnvik 16.5]");
    EXPECT_FALSE(workspace.Edits.Is_Saved());
    ASSERT_EQ(workspace.Edits.All().size(), 1U) << "the history begins with the numbers of the traces";
    EXPECT_EQ(workspace.Edits.Undo_Name(), "Number the traces");
    EXPECT_EQ(SuTraces(su_file).Word(7, words::ep), 2);
    EXPECT_EQ(workspace.Edits.Undo(workspace.Project), "");
    EXPECT_EQ(Read_File(su_file), unnumbered);
    EXPECT_EQ(project.NbShots, 3);
}

TEST_F(Records, GivingUpAtAnyQuestionLeavesTheFormerLineWithItsHistory) {
    const std::string su_file = Field_File();
    ASSERT_EQ(Replace_File(folder / "field.tv5", "mine"), "");
    Make_Line(workspace, 2, 3);
    workspace.Project.CurrentFile = folder / "old.tv5";
    workspace.Project.SuFile = folder / "old.su";
    workspace.Project.GeoSpace = 6;
    workspace.Fields.Caption = "old line";
    workspace.Record.ChannelsPerRecord = 3;
    workspace.Edits.Start(workspace.Project, true);
    {
        const EditScope edit(workspace, "of the old line");
        workspace.Project.ShotTimes(1, 1) = 3;
    }
    const std::string block = Project_Block(workspace.Project);
    const TextGrid table = workspace.Grids.Buildgrid;
    const auto expect_former = [&](const char* where) {
        EXPECT_EQ(Project_Block(workspace.Project), block) << where;
        EXPECT_EQ(workspace.Project.CurrentFile, folder / "old.tv5") << where;
        EXPECT_EQ(workspace.Fields.Caption, "old line") << where;
        EXPECT_EQ(workspace.Record.ChannelsPerRecord, 3) << where;
        EXPECT_EQ(workspace.Grids.Buildgrid.Text(1, 2), table.Text(1, 2)) << where;
        EXPECT_EQ(workspace.Edits.All().front().Name, "of the old line") << where;
        EXPECT_EQ(Read_File(folder / "field.tv5"), "mine") << where;
        EXPECT_EQ(display.Count("Select_Tab 1"), 0) << where;
    };
    prompts.Expect(ask_converted, Answer::Cancel);
    EXPECT_FALSE(New_Profile(workspace, ports, dialog));
    launcher.Result = 2;
    prompts.Expect(ask_converted, Answer::No);
    prompts.Expect("Now pick FBP ", Answer::No);
    EXPECT_FALSE(New_Profile(workspace, ports, dialog));
    EXPECT_EQ(launcher.Started, (std::vector<std::string>{"C:\\tarnvik\\SEG2SU.EXE|412|."}));
    EXPECT_TRUE(prompts.Said("C:\\tarnvik\\SEG2SU.EXEUnable to shell application:"));
    EXPECT_TRUE(display.Calls.empty());
    expect_former("not converted");

    prompts.Expect(ask_converted, Answer::Yes);
    prompts.Expect_File("Load ", "");
    EXPECT_FALSE(New_Profile(workspace, ports, dialog));
    expect_former("no SU file");

    prompts.Expect(ask_converted, Answer::Yes);
    prompts.Expect_File("Load ", su_file);
    prompts.Expect((folder / "field.tv5") + " already exists, overwrite ?", Answer::No);
    prompts.Expect_File("Select a new Tarnvik File Name", "");
    EXPECT_FALSE(New_Profile(workspace, ports, dialog));
    expect_former("no name");

    prompts.Expect(ask_converted, Answer::Yes);
    prompts.Expect_File("Load ", su_file);
    prompts.Expect((folder / "field.tv5") + " already exists, overwrite ?", Answer::No);
    prompts.Expect_File("Select a new Tarnvik File Name", folder / "other");
    display.OnOpen = [&] {
        expect_former("dialog open");
        EXPECT_EQ(dialog.Spacing, "6") << "the spacing of the last line is offered";
        dialog.Cancel();
    };
    EXPECT_FALSE(New_Profile(workspace, ports, dialog));
    expect_former("dialog cancelled");
    EXPECT_EQ(workspace.Edits.Go_To(workspace.Project, 0), "");
    EXPECT_EQ(workspace.Project.ShotTimes(1, 1), 11) << "its edits can still be undone";
}

TEST_F(Records, SeventyTwoShotsAreTheMost) {
    for (const bool accepted : {true, false}) {
        const std::string name = accepted ? "a.su" : "b.su";
        const std::string path = Field_File(name);
        SuWriter(path, nullptr).Set_Word(1, words::ep, 77);
        prompts.Expect(ask_converted, Answer::Yes);
        prompts.Expect_File("Load ", path);
        display.OnOpen = [&] {
            dialog.Spacing = "2";
            dialog.Shots = accepted ? "72" : "73";
            dialog.Offset_or_Not();
            dialog.Ok();
        };
        EXPECT_EQ(New_Profile(workspace, ports, dialog), accepted);
        EXPECT_EQ(workspace.Project.NbShots, 72) << "the refused one leaves the former";
        EXPECT_EQ(prompts.Said("Maximum 72 shots"), !accepted);
        EXPECT_EQ(SuTraces(path).Word(1, words::ep), 1) << "numbered before the count is refused";
    }
}

TEST_F(Records, OfAnotherFileChosenInTheDialogAreTaken) {
    const std::string first = Field_File("first.su");
    const std::string second = SuBuilder(8, 50).Records(2).Write(folder / "second.su");
    prompts.Expect(ask_converted, Answer::Yes);
    prompts.Expect_File("Load ", first);
    prompts.Expect_File("Load ", second);
    display.OnOpen = [&] {
        dialog.Spacing = "3";
        dialog.Another_Su();
        EXPECT_EQ(dialog.Geophones, "2");
        EXPECT_EQ(dialog.Shots, "4");
        dialog.Ok();
    };
    ASSERT_TRUE(New_Profile(workspace, ports, dialog));
    EXPECT_EQ(workspace.Project.CurrentFile, folder / "second.tv5");
    EXPECT_EQ(SuTraces(second).Word(3, words::ep), 1) << "the second file is numbered, too";
    EXPECT_EQ(workspace.Project.LineLength, 3);
}

TEST_F(Records, ThatEndOtherwiseAreNotOverwrittenByTheirProject) {
    const std::string path = Field_File("field.sgy");
    prompts.Expect(ask_converted, Answer::Yes);
    prompts.Expect_File("Load ", path);
    display.OnOpen = [&] { dialog.Cancel(); };
    EXPECT_FALSE(New_Profile(workspace, ports, dialog));
    EXPECT_TRUE(prompts.Messages.size() == 1) << "no question whether to overwrite the records";
}

TEST_F(Records, DialogFollowsOffsetsStationsAndAnOwnLineLength) {
    workspace.Project.SuFile = Field_File();
    workspace.Project.GeoSpace = 10;
    workspace.NoOffsetShots = false;
    dialog.Affichage(workspace);
    EXPECT_EQ(dialog.Focus, rechinfo::Field::FirstDistance);
    EXPECT_EQ(dialog.FirstDistanceCaption, "Distance from Geophone1 to shot 1");
    EXPECT_EQ(dialog.LineLength, "40");
    dialog.Shots = "5";
    dialog.Offsets = true;
    dialog.Offset_or_Not();
    EXPECT_EQ(dialog.FirstDistanceCaption, "Distance from Geophone1 to shot 2");
    EXPECT_EQ(dialog.ShotTable.Text(1, 0), "Shot 1");
    EXPECT_EQ(dialog.ShotTable.Text(1, 1), "-20");
    EXPECT_EQ(dialog.ShotTable.Text(5, 1), "60");
    auto& sketch = display.Pictures[Canvas::Profile2];
    EXPECT_NE(sketch.Printed("S5"), nullptr);
    EXPECT_NE(sketch.Printed("Reference Distance"), nullptr);
    const auto words = sketch.Texts();
    EXPECT_EQ(std::count(words.begin(), words.end(), "Offset"), 2);
    EXPECT_LT(sketch.Current_Frame().Left, -20);
    EXPECT_GT(sketch.Current_Frame().Right, 60);

    dialog.LineLength = "44";
    dialog.Spacing = "11.5";
    dialog.Offset_or_Not();
    EXPECT_EQ(dialog.LineLength, "44") << "a length of the user's own stays";

    prompts.Expect_Input("Enter number of shot location (stations)", "7");
    dialog.SeveralSpreads = true;
    dialog.Multi_Spread_Changed();
    EXPECT_EQ(dialog.ShotTable.Rows(), 8);
    EXPECT_EQ(dialog.ShotTable.Text(7, 0), "Station 7");
    dialog.Sketch_Mouse_Move(-12.34);
    EXPECT_EQ(dialog.DistanceReadout, "Distance:-12.4");

    dialog.Spacing = "";
    dialog.Ok();
    EXPECT_EQ(display.Count("Close_Dialog"), 0) << "a line without spacing is not taken";
}

TEST_F(Records, TheLastEndShotStaysAtTheEndOfTheLineInTheFile) {
    NewProjectRequest request;
    request.SuFile = Field_File();
    request.Spacing = 3.048;  // ten feet: the file keeps hundredths of places, but all of the line length
    request.Receivers = 24;
    ASSERT_EQ(Build_New_Project(workspace, request), "");
    Project read;
    Parse_Project(Project_Bytes(workspace.Project), read);
    EXPECT_EQ(read.ShotDistance(3), read.LineLength);
}

TEST_F(Records, ABuildThatIsRefusedSaysWhyAndChangesNothing) {
    const std::string unnumbered = SuBuilder(15, 50).Write(folder / "blank.su");
    ASSERT_EQ(Replace_File(folder / "empty.su", ""), "");
    NewProjectRequest good;
    good.SuFile = Field_File();
    good.Spacing = 2;
    const struct {
        const char* Words;
        std::function<void(NewProjectRequest&)> Change;
    } cases[] = {
        {"contains invalid caracter", [&](auto& r) { r.SuFile = "/data/line 1.su"; }},
        {"cannot be opened", [&](auto& r) { r.SuFile = folder / "none.su"; }},
        {"holds no trace", [&](auto& r) { r.SuFile = folder / "empty.su"; }},
        {"has no channel numbers", [&](auto& r) { r.SuFile = unnumbered; }},
        {"spacing must be above 0", [](auto& r) { r.Spacing = 0; }},
        {"line length must be above 0", [](auto& r) { r.LineLength = -1; }},
        {"Maximum 72 shots", [](auto& r) { r.Shots = 73; }},
        {"number of shots must be 1 to 72", [](auto& r) { r.Shots = -1; }},
        {"number of receivers must be", [](auto& r) { r.Receivers = 40000; }},
        {"2 shot distances were given for 3 shots",
         [](auto& r) {
             r.Shots = 3;
             r.ShotDistances = {0, 1};
         }},
    };
    Make_Line(workspace, 2, 3);
    for (const auto& c : cases) {
        NewProjectRequest request = good;
        c.Change(request);
        const std::string refusal = Build_New_Project(workspace, request);
        EXPECT_NE(refusal.find(c.Words), std::string::npos) << c.Words << " / " << refusal;
        EXPECT_EQ(workspace.Project.NbShots, 2) << c.Words;
        EXPECT_EQ(workspace.Project.SuFile, "") << c.Words;
    }
}

}  // namespace
}  // namespace tarnvik
