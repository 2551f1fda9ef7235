#include "app/commands.h"
#include "app/edit_commands.h"
#include "app/start.h"
#include "live_session.h"
#include "records/set_pick.h"
#include "records/su_file.h"
#include "setup/build_grid.h"
#include "traveltime/shot_grid.h"

namespace tarnvik::test {

class Changes : public LiveSession {
  protected:
    Changes() {
        EXPECT_TRUE(Open_File_Named(Program, Path));
        Display.Forget();
    }
    template <class Change>
    void Edit(const char* name, Change change) {
        const EditScope scope(Program.Work, name);
        change();
    }
    std::string Cell(int receiver, int shot) { return Program.Work.Grids.Buildgrid.Text(receiver, shot); }
};

TEST_F(Changes, opening_and_drawing_are_no_edits) {
    Display.Show_Curves();
    Display.Display_Record();
    EXPECT_TRUE(Program.Work.Edits.Is_Saved());
    EXPECT_TRUE(Program.Work.Edits.All().empty());
    EXPECT_FALSE(Program.Work.Edits.Can_Undo());
}

TEST_F(Changes, one_pick_shows_one_cell_and_draws_no_picture_anew) {
    const std::string before = Cell(5, 2);
    Set_Pick(Program.Work, {2, 5}, 33.25);
    EXPECT_EQ(Cell(5, 2), "33.25");
    EXPECT_EQ(Display.Cells, (std::set<std::pair<int, int>>{{5, 2}}));
    EXPECT_EQ(Display.Count("grids"), 0);
    EXPECT_EQ(Display.Count("curves"), 0);
    EXPECT_FALSE(Display.Pictures[Canvas::Dromo].List.empty());
    EXPECT_FALSE(Program.Work.Edits.Is_Saved());

    Display.Cells.clear();
    Undo_Edit(Program);
    EXPECT_EQ(Cell(5, 2), before);
    EXPECT_EQ(Display.Cells, (std::set<std::pair<int, int>>{{5, 2}}));
    EXPECT_TRUE(Program.Work.Edits.Is_Saved());
    Redo_Edit(Program);
    EXPECT_EQ(Cell(5, 2), "33.25");
}

TEST_F(Changes, undoing_the_loading_of_other_records_gives_the_project_its_file_back) {
    const std::string other = Folder / "other.su";
    ASSERT_EQ(Copy_File(Folder / "demo1.su", other), "");
    const auto load = [&] {
        Prompts.Expect_File("Load ", other);
        Run_Command(Program, "Command18");
    };
    load();
    EXPECT_EQ(Line.CurrentFile, Folder / "other.TV5");
    EXPECT_EQ(Display.Count("record"), 1);
    Undo_Edit(Program);
    EXPECT_EQ(Line.SuFile, "demo1.su");
    EXPECT_EQ(Line.CurrentFile, Path);
    Redo_Edit(Program);
    EXPECT_EQ(Line.SuFile, other);
    EXPECT_EQ(Line.CurrentFile, Folder / "other.TV5");
    // A name given since stays, in both directions.
    Line.CurrentFile = Folder / "named.tv5";
    Undo_Edit(Program);
    Redo_Edit(Program);
    EXPECT_EQ(Line.CurrentFile, Folder / "named.tv5");
}

TEST_F(Changes, a_pick_on_the_record_shows_in_table_and_curves_by_its_notice_alone) {
    ASSERT_EQ(Program.Work.Curves.FrameDrawn, 1);
    RecordingPicture& dromo = Display.Pictures[Canvas::Dromo];
    const auto click = [this](int trace, double ms) {
        const double y = ms * 1000 / Program.Work.Record.SampleInterval;
        Program.RecordMouse.Press({(trace + 0.5) * 2000, y, 1});
    };
    const std::size_t strips = dromo.Clips.size();
    click(7, 41);
    EXPECT_EQ(Cell(7, 1), "41.00");
    EXPECT_EQ(Display.Cells, (std::set<std::pair<int, int>>{{7, 1}}));
    EXPECT_EQ(Display.Count("curves") + Display.Count("grids") + Display.Count("record"), 0);
    EXPECT_EQ(dromo.Clips.size(), strips + 1) << "the strip of the one curve";
    // A time that needs another scale draws the curves anew.
    const double factor = Program.Work.Curves.TimeFactor;
    Set_Pick(Program.Work, {1, 7}, 900);
    EXPECT_EQ(Display.Count("curves"), 1);
    EXPECT_NE(Program.Work.Curves.TimeFactor, factor);
    // Where no curves have been drawn yet, the first pick draws them.
    Program.Work.Curves.FrameDrawn = 0;
    click(7, 42);
    EXPECT_EQ(Display.Count("curves"), 2);
    EXPECT_EQ(Program.Work.Curves.FrameDrawn, 1);
}

TEST_F(Changes, what_is_asked_for_inside_an_edit_is_done_once_at_its_end) {
    Edit("Line length", [this] {
        for (int i = 0; i < 3; ++i) {
            Display.Show_Curves();
            Display.Show_Fields();
            Display.Display_Record();
        }
        EXPECT_TRUE(Display.Done.empty());
        Line.LineLength += 1;
    });
    EXPECT_EQ(Display.Count("curves"), 1);
    EXPECT_EQ(Display.Count("record"), 1);
    EXPECT_EQ(Display.Count("fields"), 1);
    EXPECT_EQ(Display.Count("grids"), 1);
    // The same of an edit that changed nothing, and of one that was given up.
    Display.Forget();
    Edit("Nothing", [this] { Display.Show_Curves(); });
    EXPECT_EQ(Display.Count("curves"), 1);
    {
        EditScope scope(Program.Work, "Given up");
        Line.LineLength += 1;
        Display.Show_Curves();
        scope.Give_Up();
    }
    EXPECT_EQ(Display.Count("curves"), 2);
}

TEST_F(Changes, fields_and_time_scale_follow_undo_and_redo) {
    const double factor = Program.Work.Curves.TimeFactor;
    const std::string total = Program.Work.Fields.Text25;
    Edit("Long times", [this] {
        Line.TotalTime = 444;
        for (int receiver = 1; receiver <= Line.NbReceivers; ++receiver)
            Line.ShotTimes(1, receiver) = 900;
        Scale_Time_Grid(Program.Work);
    });
    EXPECT_EQ(Program.Work.Fields.Text25, "444");
    EXPECT_NE(Program.Work.Curves.TimeFactor, factor);
    Undo_Edit(Program);
    EXPECT_EQ(Program.Work.Fields.Text25, total);
    EXPECT_EQ(Program.Work.Curves.TimeFactor, factor);
}

TEST_F(Changes, records_of_another_file_are_scanned_again_by_undo) {
    const std::string former = Line.SuFile;
    const std::int32_t traces = Program.Work.Record.NbTraces;
    ASSERT_GT(traces, 0);
    Edit("Other records", [this] { Line.SuFile.clear(); });
    EXPECT_EQ(Program.Work.Record.NbTraces, 0);
    Undo_Edit(Program);
    EXPECT_EQ(Line.SuFile, former);
    EXPECT_EQ(Program.Work.Fields.Label16, former.empty() ? former : Program.Work.Fields.Label16);
    EXPECT_EQ(Program.Work.Record.NbTraces, traces);
}

TEST_F(Changes, a_pick_moved_on_the_curves_is_drawn_once) {
    CurveView& view = Program.Work.Curves;
    view.MouseDistance = Line.ReceiverData(ReceiverDistance, 5);
    view.MouseTime = static_cast<std::int16_t>(Line.ShotTimes(2, 5));
    MovePick& hand = Program.Pointer.Pick_In_Hand();
    RecordingPicture& dromo = Display.Pictures[Canvas::Dromo];
    for (const std::size_t strips : {1U, 2U}) {  // to another time, and to the same
        hand.Catch();
        ASSERT_EQ(view.PickMoving, 1);
        hand.Press({.X = 10, .Y = 20});
        hand.Release({.X = 10, .Y = 33});
        EXPECT_EQ(dromo.Clips.size(), strips);
        EXPECT_EQ(SuTraces(Folder / "demo1.su").Pick_Ms(24 + 5), Line.ShotTimes(2, 5));
        view.MouseTime = static_cast<std::int16_t>(Line.ShotTimes(2, 5));
    }
}

TEST_F(Changes, a_shot_that_comes_back_brings_its_mark) {
    Toggle_Shot(Program.Work, Program.Outside, 2);
    Toggle_Shot(Program.Work, Program.Outside, 4);
    Program.Work.Grids.Buildgrid.CurrentColumn = 2;
    Prompts.Expect("Take shot 2 out of the project in memory ?", Answer::Yes);
    Prompts.Expect_Start("Take its field record out of ", Answer::No);
    Run_Command(Program, "TakeOutShot");
    const std::set<int>& left_out = Program.Work.Curves.ShotsLeftOut;
    EXPECT_EQ(left_out, std::set{3});
    Undo_Edit(Program);
    EXPECT_EQ(left_out, (std::set{2, 4}));
    Redo_Edit(Program);
    EXPECT_EQ(left_out, std::set{3});
}

TEST_F(Changes, a_profile_that_stands_is_painted_and_stays) {
    Run_Command(Program, "S2");
    ASSERT_EQ(Program.Work.Curves.FrameDrawn, 2);
    Display.Forget();
    const auto distances = Line.ReceiverData;
    Edit("Elevation", [this] { Line.ShotDepth(1) += 1; });
    EXPECT_EQ(Display.Count("profile"), 1);
    EXPECT_EQ(Display.Count("curves"), 0);
    EXPECT_EQ(Program.Work.Curves.FrameDrawn, 2);
    EXPECT_EQ(Line.ReceiverData, distances);
}

TEST_F(Changes, a_depth_dialog_that_is_open_shows_the_project_of_the_undo) {
    Run_Command(Program, "sum");
    ASSERT_TRUE(Program.Depths.Display_Shot(3));
    const std::string shown = Program.Depths.VelocityB[1];
    Edit("Velocity", [this] { Line.VelocityB(3, 1) = 777; });
    Program.Depths.Display_Shot(3);
    EXPECT_EQ(Program.Depths.VelocityB[1], "777");
    Undo_Edit(Program);
    EXPECT_EQ(Program.Depths.VelocityB[1], shown);
}

TEST_F(Changes, the_history_is_walked_and_tells_what_another_program_has_written_over) {
    HistoryList history(Program);
    for (int i = 1; i <= 4; ++i)
        Set_Pick(Program.Work, {1, i}, 50 + i);
    ASSERT_EQ(history.Rows().size(), 5U);
    EXPECT_EQ(history.Rows()[2].Name, "Pick shot 1, receiver 2");
    EXPECT_EQ(history.Current(), 4U);
    history.Go_To(1);
    EXPECT_TRUE(history.Rows()[1].Done);
    EXPECT_FALSE(history.Rows()[2].Done);
    EXPECT_EQ(Line.ShotTimes(1, 1), 51);
    EXPECT_NE(Line.ShotTimes(1, 2), 52);
    EXPECT_EQ(Redo_Caption(Program), "&Redo: Pick shot 1, receiver 2");
    history.Go_To(4);
    EXPECT_EQ(Line.ShotTimes(1, 4), 54);

    // Another program has changed the pick's word.
    std::string bytes = *Read_File(Folder / "demo1.su");
    const FileChange& change = Program.Work.Edits.All().back().Files.at(0);
    bytes[static_cast<std::size_t>(change.Bytes.All().at(0).Position)] ^= 0x55;
    ASSERT_EQ(Replace_File(Folder / "demo1.su", bytes), "");
    Run_Command(Program, "Undo_M");
    EXPECT_NE(Prompts.Last_Text().find("\"Pick shot 1, receiver 4\" cannot be taken back: "),
              std::string::npos)
        << Prompts.Last_Text();
    EXPECT_EQ(Line.ShotTimes(1, 4), 54);
}

}  // namespace tarnvik::test
