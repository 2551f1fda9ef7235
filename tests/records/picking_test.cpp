#include "records/picking.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "records/picking_support.h"
#include "records/record_buttons.h"
#include "records/set_pick.h"
#include "records/size_grid_mouse.h"

namespace tarnvik::test {
namespace {

class Picking : public RecordOnScreen {};

TEST_F(Picking, ClickGoesToFileTwinTimesTableAndPicture) {
    File.Put16(3, life_offset, 2).Put16(3, pick_offset, 77);
    Write_With_Twin();
    Click(3, 12.346);
    const SuBuilder expected = SuBuilder(File).Put16(3, life_offset, 1).Put16(3, pick_offset, 123);
    Expect_Only(expected, Work.Project.SuFile);
    Expect_Only(expected, Work.Record.TwinSuFile);
    EXPECT_EQ(Times(1), (std::vector<float>{0, 0, 12.35F, 0, 0}));
    EXPECT_EQ(Times(2), (std::vector<float>{0, 0, 0, 0, 0}));
    EXPECT_EQ(Work.Grids.Buildgrid.Text(3, 1), "12.35");
    EXPECT_EQ(Work.Grids.Buildgrid.Text(3, 2), "0.00");
    EXPECT_EQ(Mark(3), 12);
    EXPECT_EQ(Ports.Display.Count("Display_Record"), 1) << "the trace lives again and is drawn in its colour";
    EXPECT_EQ(Work.Fields.Status, "");
}

TEST_F(Picking, APickShowsItsOwnMarkAnewAndNothingElse) {
    File.Put16(1, pick_offset, 30).Put16(2, pick_offset, 40).Put16(3, pick_offset, 50);
    Write();
    RecordingPicture& ecran = Ports.Display.Pictures[Canvas::Ecran];
    const std::size_t figures = ecran.Of(Drawn::Verb::Polyline).size();
    Click(2, 15);
    Click(5, 7);
    EXPECT_EQ(Ports.Display.Count("Display_Record"), 0);
    EXPECT_EQ(ecran.Of(Drawn::Verb::Polyline).size(), figures);
    EXPECT_EQ(Mark(1), 3);
    EXPECT_EQ(Mark(2), 15);
    EXPECT_EQ(Mark(3), 5);
    EXPECT_EQ(Mark(5), 7);

    // A picture that is not as it was left is drawn as a whole.
    ecran.Clear();
    Click(2, 11);
    EXPECT_EQ(Ports.Display.Count("Display_Record"), 1);
    EXPECT_EQ(Mark(3), 5);
    EXPECT_EQ(Mark(2), 11);
}

TEST_F(Picking, CellOfAPick) {
    struct Case {
        const char* What;
        int Record;
        int Trace;
        bool Inverted;
        bool SeveralSpreads;
        int ShotStation;    ///< `ep` of the record's first trace
        int FirstGeophone;  ///< `tracl` of it
        int Shot;
        int Receiver;
    };
    const std::vector<Case> cases = {
        {"tracl runs on through the file", 2, 7, false, false, 1, 9, 2, 2},
        {"tracl is the station", 2, 7, false, false, 1, 2, 2, 3},
        {"no tracl", 1, 3, false, false, 1, 0, 1, 3},
        {"direction inverted", 2, 6, true, false, 1, 1, 2, 5},
        {"second spread of shot 2", 1, 1, false, true, 2, 3, 2, 3},
        {"second spread inverted", 1, 4, true, true, 2, 1, 2, 2},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.What);
        Redimension_Project(Work.Project);
        const int first = (each.Record - 1) * channels + 1;
        File = SuBuilder(traces, samples).Records(channels);
        File.Put32(first, shot_offset, each.ShotStation).Put32(first, geophone_offset, each.FirstGeophone);
        Write();
        Select_Record(Work, each.Record);
        Work.Record.DirectionInverted = each.Inverted;
        Work.Record.SeveralSpreads = each.SeveralSpreads;
        Ports.Display.Display_Record();
        Click(each.Trace, 10);
        Expect_Only(SuBuilder(File).Put16(each.Trace, pick_offset, 100), Work.Project.SuFile);
        EXPECT_EQ(Work.Project.ShotTimes(each.Shot, each.Receiver), 10);
        EXPECT_EQ(Work.Grids.Buildgrid.Text(each.Receiver, each.Shot), "10.00");
        EXPECT_EQ(Work.Edits.Undo_Name(), Pick_Name({each.Shot, each.Receiver}));
    }
}

TEST_F(Picking, AnEnlargedRecordKeepsItsReceiversAndItsShot) {
    Write();
    Show(2);
    Zoom.Arm();
    Pointer.Press({8.1 * 2000, 2, 1});
    Pointer.Release({9.9 * 2000, 18, 1});
    ASSERT_EQ(Work.Record.FirstTrace, 8);
    ASSERT_EQ(Work.Record.LastTrace, 9);
    Click(9, 10);
    EXPECT_EQ(Times(2), (std::vector<float>{0, 0, 0, 10, 0}));
    EXPECT_EQ(File_Words(), (std::vector{0, 0, 0, 0, 0, 0, 0, 0, 100, 0}));
    Click(3, 10);  // beside the picture
    EXPECT_EQ(Times(1), (std::vector<float>{0, 0, 0, 0, 0}));
}

TEST_F(Picking, TimeShiftIsAddedToTheClick) {
    Write();
    Ports.Prompts.Expect_Input("Time shift in ms for picking FBP Minus=Up", "-2.5");
    Ask_Pick_Time_Shift(Work, Ports.Ports);
    EXPECT_EQ(Work.Fields.Status, "Time shift = -2.5 ms");
    Click(1, 10);
    EXPECT_EQ(File_Words().front(), 75);
    EXPECT_EQ(Work.Fields.Status, "Time shift = -2.5 ms");
}

TEST_F(Picking, KillAsksAndTheAnswersKillPickOrDoNothing) {
    File.Put16(2, pick_offset, 80);
    Write_With_Twin();
    Set_Pick(Work, {2, 2}, 9);
    Set_Pick(Work, {1, 2}, 8);
    const std::string before = State();
    Pointer.Move({Middle(2), 8, 0});
    Ports.Prompts.Expect("Kill trace 2", Answer::Cancel);
    Click(2, 11, 2);
    EXPECT_EQ(Ports.Prompts.Messages.back().WithButtons, Buttons::YesNoCancel);
    EXPECT_EQ(State(), before);

    Ports.Prompts.Expect("Kill trace 2", Answer::No);
    Expect_Edit("Pick shot 1, receiver 2", [this] { Click(2, 11, 2); });
    EXPECT_EQ(File_Words()[1], 110);
    EXPECT_EQ(Work.Project.ShotTimes(1, 2), 11);

    Ports.Prompts.Expect("Kill trace 2", Answer::Yes);
    Expect_Edit("Kill shot 1, receiver 2", [this] { Click(2, 11, 2); });
    const SuBuilder expected =
        SuBuilder(File).Put16(2, life_offset, 2).Put16(2, pick_offset, 0).Put16(7, pick_offset, 90);
    Expect_Only(expected, Work.Project.SuFile);
    Expect_Only(expected, Work.Record.TwinSuFile);
    EXPECT_EQ(Times(1), (std::vector<float>{0, 0, 0, 0, 0}));
    EXPECT_EQ(Times(2), (std::vector<float>{0, 9, 0, 0, 0}));
    EXPECT_EQ(Work.Grids.Buildgrid.Text(2, 1), "0.00");
    EXPECT_EQ(Mark(2), 0);
    // A dead trace is picked alive, in one edit.
    Expect_Edit("Pick shot 1, receiver 2", [this] { Click(2, 6); });
    EXPECT_EQ(Word_In(Content_Of(Work.Project.SuFile), 2, life_offset), 1);
}

TEST_F(Picking, DragMovesThePickWithoutAskingAsOneEdit) {
    File.Put16(2, pick_offset, 80);
    Write_With_Twin();
    Expect_Edit("Drag pick of shot 1, receiver 2", [this] {
        Pointer.Press({Middle(2), 8, 2});
        EXPECT_EQ(Content_Of(Work.Project.SuFile), Before);
        Pointer.Move({Middle(2), 11, 2});
        EXPECT_EQ(File_Words()[1], 110);
        EXPECT_EQ(Mark(2), 11);
        Pointer.Move({Middle(2), 13.4567, 2});
        EXPECT_EQ(Ports.Display.Count("Display_Record"), 0);
        Pointer.Move({Middle(6), 15, 2});  // beyond the picture, where the next record would be
        Pointer.Release({Middle(2), 13.4567, 2});
    });
    Pointer.Move({Middle(2), 3, 0});
    Expect_Only(SuBuilder(File).Put16(2, pick_offset, 134), Work.Project.SuFile);  // 13.45 ms
    Expect_Only(SuBuilder(File).Put16(2, pick_offset, 134), Work.Record.TwinSuFile);
    EXPECT_EQ(Work.Project.ShotTimes(1, 2), 13.45F);
    EXPECT_EQ(Work.Fields.RecordReadout, "3ms   Trace:2   Geophone:2   Amplitude:0   Pick:13.4ms");
    // The next drag of the same trace is an edit of its own.
    Expect_Edit("Drag pick of shot 1, receiver 2", [this] {
        Pointer.Press({Middle(2), 13, 2});
        Pointer.Move({Middle(2), 5, 2});
        Pointer.Release({Middle(2), 5, 2});
    });
}

TEST_F(Picking, RightClickMarksTheStartWhileAutoPikIsOpenAndKillsNothing) {
    File = SuBuilder(traces, samples, 250).Records(channels).Put16(2, life_offset, 2);
    Write();
    Open_Or_Close_AutoPik(Work, Ports.Ports);
    EXPECT_TRUE(Ports.Display.Is_Open(Dialog::AutoPik));
    Automatic.Window = "";
    Pointer.Press({Middle(2), 13.9, 2});
    Pointer.Move({Middle(3), 19, 2});
    Pointer.Release({Middle(3), 19, 2});
    EXPECT_EQ(Automatic.FirstTime, "3.4");
    EXPECT_EQ(Content_Of(Work.Project.SuFile), Before);
    Open_Or_Close_AutoPik(Work, Ports.Ports);
    EXPECT_EQ(Work.Record.AutoPickMode, 0);
    EXPECT_FALSE(Ports.Display.Is_Open(Dialog::AutoPik));
}

TEST_F(Picking, WhatCannotBeSavedIsToldAndKept) {
    Write();
    {
        const NothingCanBeWritten disk;
        Click(2, 10);
    }
    EXPECT_EQ(Content_Of(Work.Project.SuFile), Before);
    EXPECT_TRUE(Work.Fields.Status.starts_with("Pick not saved: trace 2, " + Work.Project.SuFile + ", "))
        << Work.Fields.Status;
    Click(3, 11);
    EXPECT_TRUE(Work.Fields.Status.starts_with("Pick not saved: trace 2, ")) << "it must stay";
    EXPECT_EQ(Times(1), (std::vector<float>{0, 10, 11, 0, 0}));
    Click(2, 10);
    EXPECT_EQ(Work.Fields.Status, "");

    std::filesystem::remove(Work.Project.SuFile);
    Click(4, 12);
    EXPECT_TRUE(Work.Fields.Status.starts_with("Pick not saved: trace 4, ")) << Work.Fields.Status;
    EXPECT_FALSE(std::filesystem::exists(Work.Project.SuFile));
    EXPECT_EQ(Times(1)[3], 12);
}

TEST_F(Picking, TooLatePickLeavesTheWord) {
    File = SuBuilder(traces, 4000).Records(channels).Put16(1, pick_offset, 50);
    Write();
    Click(1, 3276.8);
    EXPECT_EQ(Content_Of(Work.Project.SuFile), Before);
    EXPECT_NE(Work.Fields.Status.find("does not fit"), std::string::npos);
}

TEST_F(Picking, PicksSurviveTheDeathOfTheProgram) {
    Write();
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        Click(1, 10);
        Click(2, 11);
        raise(SIGKILL);
        _exit(0);
    }
    int state = 0;
    ASSERT_EQ(waitpid(child, &state, 0), child);
    ASSERT_TRUE(WIFSIGNALED(state));
    Expect_Only(SuBuilder(File).Put16(1, pick_offset, 100).Put16(2, pick_offset, 110), Work.Project.SuFile);
}

TEST_F(Picking, ReversesOneTraceOrOneOfEachRecord) {
    for (int trace = 1; trace <= traces; ++trace)
        File.Sample(trace, 1, 1.5F).Sample(trace, samples, -2);
    Write();
    Work.Record.ReverseOnClick = true;
    Show(2);
    const std::string question = "Reverse polarity for all shots  (=0) or select a shot, press X to cancel";
    for (const char* refusal : {"x", "X", ""}) {
        Ports.Prompts.Expect_Input(question, refusal);
        Click(7, 10);
        EXPECT_EQ(Content_Of(Work.Project.SuFile), Before);
    }
    const auto reversed = [](SuBuilder file, int trace) {
        for (int sample = 1; sample <= samples; ++sample)
            file.Sample(trace, sample, -0.0F);
        return file.Sample(trace, 1, -1.5F)
            .Sample(trace, 5, -100)
            .Sample(trace, 9, 50)
            .Sample(trace, samples, 2);
    };
    Ports.Prompts.Expect_Input(question, "2");
    Expect_Edit("Polarity of shot 2, receiver 2", [this] { Click(7, 10); });
    Expect_Only(reversed(File, 7), Work.Project.SuFile);
    Write();
    Show(2);
    Ports.Prompts.Expect_Input(question, "0");
    Expect_Edit("Polarity of all shots", [this] { Click(7, 10); });
    Expect_Only(reversed(reversed(File, 2), 7), Work.Project.SuFile);
}

TEST_F(Picking, ShiftLeavesEmptyCellsButNotEmptyWords) {
    File.Put16(6, pick_offset, 30).Put16(7, pick_offset, 125).Put16(9, pick_offset, 200);
    Work.Project.ShotTimes(2, 1) = 3;
    Work.Project.ShotTimes(2, 2) = 12.5F;
    Work.Project.ShotTimes(2, 4) = 20;
    Write_With_Twin();
    Show(2);
    Ports.Prompts.Expect_Input("First trace to move FB", "-3");
    Ports.Prompts.Expect_Input("Last trace to move FB", "3");
    Ports.Prompts.Expect_Input("Shift time to move FB on shot 2", "-10");
    Ports.Prompts.Expect(" OK, move -10ms from 1 to 3 on record 2", Answer::Yes);
    Expect_Edit("FB shift of record 2", [this] { Shift_Picks(Work, Ports.Ports); });
    EXPECT_EQ(File_Words(), (std::vector{0, 0, 0, 0, 0, -70, 25, -100, 200, 0}));
    EXPECT_EQ(Content_Of(Work.Record.TwinSuFile), Content_Of(Work.Project.SuFile));
    EXPECT_EQ(Times(2), (std::vector<float>{-7, 2.5F, 0, 20, 0}));
    EXPECT_EQ(Work.Grids.Buildgrid.Text(2, 2), "2.50");
    EXPECT_EQ(Ports.Prompts.InputDefaults, (std::vector<std::string>{"1", "5", "-10"}));
    // 2.5 ms at 1 ms a sample: halves go to the even one.
    EXPECT_EQ(Mark(7), 2);
    EXPECT_EQ(Mark(8), 0);

    Ports.Prompts.Expect_Input("First trace to move FB", "0");
    Shift_Picks(Work, Ports.Ports);
}

TEST_F(Picking, LookingIsNoEdit) {
    Write();
    const std::string before = State();
    SizeGridMouse sizes(Work, Ports.Ports);
    for (const int record : {2, 1, 2}) {
        Show(record);
        Enlarge_Trace_Size(Work, Ports.Ports);
        Turn_Display_Polarity(Work, Ports.Ports);
        sizes.Move(30, 80);
        sizes.Press(1);
        Zoom.Scale_Press(4);
        Zoom.Scale_Release(12);
        Zoom.Show_Whole();
        Go_To_Neighbour(Work, Ports.Ports, -1);
    }
    EXPECT_EQ(State(), before);
    EXPECT_EQ(Work.Edits.Done(), 0U);
    EXPECT_TRUE(Work.Edits.Is_Saved());
}

TEST_F(Picking, ALineWithoutRecordsTakesNoClicks) {
    Write();
    Click(1, 10);
    const std::string picked = Content_Of(Work.Project.SuFile);
    Close_Records(Work, Ports.Ports);
    EXPECT_TRUE(Ports.Display.Pictures[Canvas::Ecran].List.empty());
    const std::string block = Project_Block(Work.Project);
    Click(2, 10);
    Click(2, 10, 2);
    Pointer.Move({Middle(2), 3, 0});
    Zoom.Arm();
    Pointer.Press({Middle(1), 2, 1});
    Pointer.Release({Middle(4), 9, 1});
    Zoom.Scale_Press(3);
    Zoom.Scale_Release(9);
    EXPECT_EQ(Content_Of(Work.Project.SuFile), picked);
    EXPECT_EQ(Project_Block(Work.Project), block);
    EXPECT_EQ(Work.Fields.RecordReadout, "");
    EXPECT_FALSE(Zoom.Enlarged());
}

}  // namespace
}  // namespace tarnvik::test
