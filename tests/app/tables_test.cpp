// The tables' tab over the demo line: what is typed, pasted and commanded, in the project, in the SU file and
// its twin, and back.

#include "app/commands.h"
#include "core/edits/project_block.h"
#include "core/project_file.h"
#include "core/text/number.h"
#include "records/su_file.h"
#include "session_fixture.h"
#include "setup/build_grid.h"
#include "setup/geometry.h"
#include "support/shell_tools.h"

namespace tarnvik {
namespace {

class TablesOfTheDemoLine : public test::SessionTest {
  protected:
    TablesOfTheDemoLine() {
        const std::string demo = TARNVIK_DEMO_FOLDER;
        // As after a filter: the project works on the filtered file, the other one is its twin.
        EXPECT_EQ(Copy_File(demo + "/demo1.tv5", Path), "");
        EXPECT_EQ(Copy_File(demo + "/demo1.su", Su), "");
        EXPECT_EQ(Copy_File(demo + "/demo1.su", Twin), "");
        Project read;
        Parse_Project(*Read_File(Path), read);
        read.SuFile = Su;
        EXPECT_EQ(Replace_File(Path, Project_Bytes(read)), "");
        Work.Settings.RecentFiles[0] = Path;
        Run_Command(Program, "F1_F");
        Fill_Grid(Work);
        Work.Edits.Start(Line, true);
        Opened = Now();
    }
    struct State {
        std::string Block, Su, Twin;
        bool operator==(const State&) const = default;
    };
    State Now() const { return {Project_Block(Line), *Read_File(Su), *Read_File(Twin)}; }
    const std::string& Cell(int row, int column) {
        Fill_Grid(Work);
        return Work.Grids.Buildgrid.Text(row, column);
    }

    const std::string Path = Folder / "demo1.tv5";
    const std::string Su = Folder / "demo1_flt.su";
    const std::string Twin = Folder / "demo1.su";
    Workspace& Work = Program.Work;
    Project& Line = Program.Work.Project;
    State Opened;
};

TEST_F(TablesOfTheDemoLine, typed_pasted_and_cleared_cells_go_everywhere_and_back) {
    ASSERT_EQ(Work.Record.TwinSuFile, Twin);
    const int receivers = Line.NbReceivers;
    const auto trace = [&](int shot, int receiver) { return (shot - 1) * receivers + receiver; };
    ASSERT_TRUE(Program.PickTable.Type(7, 3, "12,34"));
    Program.PickTable.Paste(1, 1, "1.1\t2.2\n3.3\t4.4\n");
    Program.PickTable.Clear({10, 2, 12, 2});
    ASSERT_TRUE(Program.RemarkTable.Type(3, 3, "Fault"));
    const struct {
        int Shot, Receiver;
        float Time;
        double Header;
    } picks[] = {{3, 7, 12.34F, 12.3}, {1, 1, 1.1F, 1.1}, {2, 1, 2.2F, 2.2},
                 {1, 2, 3.3F, 3.3},    {2, 2, 4.4F, 4.4}, {2, 11, 0, 0}};
    for (const auto& pick : picks) {
        EXPECT_EQ(Line.ShotTimes(pick.Shot, pick.Receiver), pick.Time);
        for (const std::string& file : {Su, Twin})
            EXPECT_EQ(SuTraces(file).Pick_Ms(trace(pick.Shot, pick.Receiver)), pick.Header) << file;
    }
    const std::vector<Edit>& edits = Work.Edits.All();
    ASSERT_EQ(edits.size(), 4U);
    EXPECT_EQ(edits[0].Name, "Pick shot 3, receiver 7");
    EXPECT_EQ(edits[1].Name, "Paste 4 cells");
    EXPECT_EQ(edits[2].Name, "Clear 3 cells");
    EXPECT_EQ(edits[3].Name, "Remark 2");

    const State end = Now();
    EXPECT_EQ(Work.Edits.Go_To(Line, 0), "");
    EXPECT_EQ(Now(), Opened);
    EXPECT_EQ(Work.Edits.Go_To(Line, 4), "");
    EXPECT_EQ(Now(), end);
}

TEST_F(TablesOfTheDemoLine, every_command_is_one_named_edit_and_a_cancelled_one_is_none) {
    std::string shots;
    std::string geophones;
    for (int shot = 1; shot <= Line.NbShots; ++shot)
        shots += std::to_string(Line.ShotDistance(shot)) + " 0 " + std::to_string(shot) + "\n";
    for (const double place : Receiver_Places(Line))
        geophones += std::to_string(place) + " 0 7\n";
    ASSERT_EQ(Replace_File(Folder / "shots.txt", shots) + Replace_File(Folder / "geophones.txt", geophones),
              "");
    auto& prompts = World.Prompts;
    const int last = Line.NbShots;
    const std::string ask_length = "Enter line length (From end shot 1 to End Shot " + CStr(last);
    // The questions of each; the last one is answered with what is told here, or with a cancel.
    const struct {
        const char* Command;
        const char* Edit;
        std::function<void(bool)> Answers;
    } commands[] = {
        {"Text6", "Line length",
         [&](bool go) {
             prompts.Expect_Input(" Enter the End Shot number ", CStr(last));
             prompts.Expect_Input(ask_length, go ? "99" : "");
         }},
        {"Command6", "Distance correction",
         [&](bool go) {
             prompts.Expect_Input("Enter the End Shot 1 number", "2");
             prompts.Expect_Input(" Enter the distance to remove or add (End shot 1 must have ZERO distance)",
                                  go ? "3.5" : "");
         }},
        {"Command11", "Distances according to Z",
         [&](bool go) {
             prompts.Expect_Input("Enter the avearage distance between geophones, ZERO= Exit module", "9");
             prompts.Expect_Input("Enter the distance between End shot 1 and geophones 1 ", go ? "4" : "");
             if (!go) return;
             prompts.Expect("Do you want to interplolate Shot elevation from Geophone elevation", Answer::No);
             prompts.Expect("Do you want to save your modifications", Answer::No);
         }},
        {"Command3", "Geophone elevations",
         [&](bool go) {
             prompts.Expect("Receivers elevation update according shot elevation ?",
                            go ? Answer::Yes : Answer::No);
         }},
        {"Command7", "XYZ files",
         [&](bool go) {
             prompts.Expect_File("Tarnvik XYZ Shot", Folder / "shots.txt");
             prompts.Expect_File("Tarnvik XYZ Geophone", go ? Folder / "geophones.txt" : "");
             if (!go) return;
             prompts.Expect("Do you want to check the XYZ file ?", Answer::No);
             prompts.Expect(
                 "Do you want to record the real distance and elevation of geophones in Tarnvik file ?",
                 Answer::Yes);
             prompts.Expect_Input("Enter the avearage distance between two geophones", "5");
         }},
        {"TakeOutShot", "Take out shot 2",
         [&](bool go) {
             prompts.Expect("Take shot 2 out of the project in memory ?", go ? Answer::Yes : Answer::No);
             if (go) prompts.Expect_Start("Take its field record out of ", Answer::No);
         }},
        {"shiftFBP", "Scale or shift of all picks",
         [&](bool go) {
             prompts.Expect_Input(
                 "Type 1 to scale all FBP time of a travel time, 2 to add/substract a value to all FBP, 0= "
                 "Exit",
                 "1");
             prompts.Expect_File("Tarnvik File selection", Path);
             prompts.Expect_Input(" Enter the factor to apply to all FBP", go ? "1.5" : "");
         }},
        {"Command20", "Load FBP from SU header",
         [&](bool go) {
             prompts.Expect("FBP values of the grid will be replaced by FBP from SU Header",
                            go ? Answer::Ok : Answer::Cancel);
         }},
    };
    // Elevations that differ from those between the shots, and picks that differ from the headers'.
    Line.ReceiverData(ReceiverElevation, 3) += 1.234F;
    Line.ShotTimes(1, 1) = 77.777F;
    Run_Command(Program, "GeophonesFromShots");
    Work.Grids.Buildgrid.CurrentColumn = 2;
    for (const auto& command : commands) {
        Work.Edits.Start(Line, true);
        const State before = Now();
        command.Answers(false);
        Run_Command(Program, command.Command);
        EXPECT_EQ(Now(), before) << command.Command;
        EXPECT_TRUE(Work.Edits.All().empty()) << command.Command;
        command.Answers(true);
        Run_Command(Program, command.Command);
        ASSERT_EQ(Work.Edits.All().size(), 1U) << command.Command;
        EXPECT_EQ(Work.Edits.Undo_Name(), command.Edit);
        EXPECT_NE(Now(), before) << command.Command;
        EXPECT_EQ(Work.Edits.Undo(Line), "") << command.Command;
        EXPECT_TRUE(Same_Filed_Content(Now().Block, before.Block)) << command.Command;
        EXPECT_EQ(Now().Su, before.Su) << command.Command;
        Fill_Grid(Work);
    }
    EXPECT_EQ(Cell(0, last), "Shot" + CStr(last)) << "the captions come back with the shot";
    EXPECT_EQ(Cell(0, last + 1), "Distance");
}

TEST_F(TablesOfTheDemoLine, the_records_without_a_shot_belong_to_the_project_without_it) {
    test::Give_Tools(World.Launcher);
    Run_Command(Program, "Grid_2_SU");
    const State stored = Now();
    Work.Grids.Buildgrid.CurrentColumn = 2;
    World.Prompts.Expect("Do you want to remove shot 2", Answer::Yes);
    Run_Command(Program, "RemoveShot");
    EXPECT_EQ(Now(), stored);
    const Project whole = Line;
    Work.Settings.RecentFiles[0] = Folder / "demo1_2.tv5";
    Run_Command(Program, "F1_F");
    ASSERT_EQ(Line.NbShots, whole.NbShots - 1);
    World.Prompts.Expect("FBP values of the grid will be replaced by FBP from SU Header", Answer::Ok);
    Run_Command(Program, "Command20");
    for (int shot = 1; shot <= Line.NbShots; ++shot) {
        for (int receiver = 1; receiver <= Line.NbReceivers; ++receiver) {
            // Headers keep tenths.
            EXPECT_NEAR(Line.ShotTimes(shot, receiver), whole.ShotTimes(shot < 2 ? shot : shot + 1, receiver),
                        0.0501);
        }
    }
}

TEST_F(TablesOfTheDemoLine, an_opened_project_tells_its_times_below_0) {
    EXPECT_EQ(Work.Fields.Status, "");
    Line.ShotTimes(2, 2) = -3;
    Line.ShotTimes(3, 2) = -0.02F;
    Run_Command(Program, "Save");
    Run_Command(Program, "F1_F");
    EXPECT_EQ(Cell(2, 2), "-3.00");
    EXPECT_EQ(Work.Grids.Buildgrid.At(2, 2).ForeColour, 255);
    EXPECT_EQ(Work.Fields.Status, "2 times are below 0: they count as no pick, red in the table");
}

TEST_F(TablesOfTheDemoLine, saving_from_the_tables_rounds_nothing_in_memory) {
    Line.ShotTimes(1, 1) = 12.3456F;
    Line.ReceiverData(ReceiverDistance, 2) = 5.128F;
    const Project before = Line;
    Run_Command(Program, "Save");
    EXPECT_EQ(Line.ShotTimes, before.ShotTimes);
    EXPECT_EQ(Line.ReceiverData, before.ReceiverData);
}

TEST(TablesPage, its_commands_tell_why_they_cannot_be_run) {
    test::TemporaryFolder folder;
    test::TestPorts world;
    Session program(world.Ports, folder / "Tarnvik32.INI");
    for (const Command& command : Tables_Page_Commands()) {
        const bool always = command.Checked != nullptr || command.Name == "Command9";
        EXPECT_EQ(Refusal_Of(command, program), always ? "" : "There is no project in memory")
            << command.Name;
        if (!always) Run_Command(program, command.Name);
    }
    EXPECT_TRUE(world.Prompts.Messages.empty());
    EXPECT_EQ(program.Work.Fields.Status, "There is no project in memory");

    Parse_Project(test::Plain_File(), program.Work.Project);
    program.Work.Project.SuFile.clear();
    const auto refusal = [&](const char* name) { return Refusal_Of(*Find_Command(name), program); };
    EXPECT_EQ(refusal("Command20"), "No field records are loaded");
    EXPECT_EQ(refusal("TakeOutShot"), "Select a cell of the shot first");
    program.Work.Grids.Buildgrid.CurrentColumn = 2;
    EXPECT_EQ(refusal("TakeOutShot"), "");
    program.Work.Project.NbShots = 1;
    program.Work.Grids.Buildgrid.CurrentColumn = 1;
    EXPECT_EQ(refusal("TakeOutShot"), "The line has no other shot");
    EXPECT_EQ(refusal("Command6"), "");
}

}  // namespace
}  // namespace tarnvik
