#include "records/picking.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "records/picking_support.h"
#include "records/polarity_reversal.h"
#include "records/record_buttons.h"

namespace tarnvik::test {
namespace {

class Picking : public RecordOnScreen {};

TEST_F(Picking, ClickGoesToFileTwinGridAndCurves) {
    Work.Record.TwinSuFile = Folder / "twin.su";
    File.Put16(3, life_offset, 2).Put16(3, pick_offset, 77);
    File.Write(Work.Record.TwinSuFile);
    Write();
    std::string cell;
    Ports.Display.OnShowCurves = [&] {
        cell = Work.Grids.Buildgrid.Text(3, 2);
        Fill_Grid();
    };
    Click(3, 12.346);
    const SuBuilder expected = SuBuilder(File).Put16(3, life_offset, 1).Put16(3, pick_offset, 123);
    Expect_Only(expected, Work.Project.SuFile);
    Expect_Only(expected, Work.Record.TwinSuFile);
    EXPECT_EQ(Times(1), (std::vector<float>{0, 0, 12.35F, 0}));
    EXPECT_EQ(cell, "12.35");  // one column too far until the redraw fills the table
    EXPECT_EQ(Work.Grids.Buildgrid.Text(3, 1), "12.35");
    EXPECT_EQ(Ports.Display.Count("Show_Curves"), 1);
    EXPECT_EQ(Ports.Display.Count("Display_Record"), 1);
    EXPECT_TRUE(Ports.Display.Pictures[Canvas::Ecran].Has_Line(6000, 12.346, 8000, 12.346, colours::Red));
    EXPECT_EQ(Work.Fields.Status, "");
}

TEST_F(Picking, CellOfAPick) {
    struct Case {
        const char* What;
        int Record;
        int Trace;
        bool Inverted;
        bool MultiSpread;
        const char* ShotStation;
        const char* Geophone;
        int Shot;
        int Receiver;
    };
    const std::vector<Case> cases = {
        {"tracl runs on through the file", 2, 6, false, false, "1", "5", 2, 2},
        {"tracl is the station", 2, 6, false, false, "1", "1", 2, 2},
        {"no tracl", 1, 3, false, false, "1", "0", 1, 3},
        {"direction inverted", 2, 5, true, false, "1", "5", 2, 4},
        {"second spread of shot 2", 1, 1, false, true, "2", "3", 2, 3},
        {"second spread inverted", 1, 4, true, true, "2", "3", 2, 3},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.What);
        Write();
        Redimension_Project(Work.Project);
        Show(each.Record);
        Work.Fields.Check8 = each.Inverted;
        Work.Fields.Check2 = each.MultiSpread;
        Work.Fields.Text13 = each.ShotStation;
        Work.Fields.Text18 = each.Geophone;
        Click(each.Trace, 10);
        Expect_Only(SuBuilder(File).Put16(each.Trace, pick_offset, 100), Work.Project.SuFile);
        EXPECT_EQ(Work.Project.ShotTimes(each.Shot, each.Receiver), 10);
    }
}

TEST_F(Picking, ZoomedRecordKeepsItsReceivers) {
    Write();
    Work.Record.FirstTrace = 3;
    Work.Record.LastTrace = 4;
    Work.Record.RecordWidth = 4000;
    Work.Fields.Text9 = "3";
    Work.Fields.Text10 = "4";
    Work.Fields.Text18 = "3";
    Click(4, 10);
    EXPECT_EQ(Times(1), (std::vector<float>{0, 0, 0, 10}));
    EXPECT_EQ(File_Words(), (std::vector{0, 0, 0, 100, 0, 0, 0, 0}));
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

TEST_F(Picking, KillAsksAndAnswersOfNoPicks) {
    Work.Record.TwinSuFile = Folder / "twin.su";
    File.Put16(2, pick_offset, 80);
    File.Write(Work.Record.TwinSuFile);
    Write();
    Work.Project.ShotTimes(1, 2) = 8;
    Work.Project.ShotTimes(2, 2) = 9;
    Fill_Grid();
    Work.Grids.Buildgrid.Set_Text(4, 2, "7.5");  // typed by the user; the kill reads the whole table back
    Pointer.Move({Middle(2), 8, 0});
    Ports.Prompts.Expect("Kill trace 2", Answer::No);
    Click(2, 11, 2);
    EXPECT_EQ(File_Words()[1], 110);
    EXPECT_EQ(Work.Project.ShotTimes(1, 2), 11);

    Work.Grids.Buildgrid.Set_Text(4, 2, "7.5");
    Ports.Prompts.Expect("Kill trace 2", Answer::Yes);
    Click(2, 11, 2);
    const SuBuilder expected = SuBuilder(File).Put16(2, life_offset, 2).Put16(2, pick_offset, 0);
    Expect_Only(expected, Work.Project.SuFile);
    Expect_Only(expected, Work.Record.TwinSuFile);
    EXPECT_EQ(Times(1), (std::vector<float>{0, 0, 0, 0}));
    EXPECT_EQ(Times(2), (std::vector<float>{0, 9, 0, 7.5F}));
}

TEST_F(Picking, DragMovesThePickWithoutAsking) {
    File.Put16(2, pick_offset, 80);
    Write();
    Pointer.Press({Middle(2), 8, 2});
    EXPECT_EQ(Content_Of(Work.Project.SuFile), Before);
    Pointer.Move({Middle(2), 11, 2});
    EXPECT_EQ(File_Words()[1], 110);
    Pointer.Move({Middle(2), 13.4567, 2});
    EXPECT_EQ(Ports.Display.Count("Show_Curves"), 0);
    Pointer.Move({Middle(5), 15, 2});  // beyond the picture, where the next record would be
    Pointer.Release({Middle(2), 13.4567, 2});
    Pointer.Move({Middle(2), 3, 0});
    Expect_Only(SuBuilder(File).Put16(2, pick_offset, 134), Work.Project.SuFile);  // 13.45 ms
    EXPECT_EQ(Work.Project.ShotTimes(1, 2), 13.45F);
    EXPECT_EQ(Ports.Display.Count("Show_Curves"), 1);
    EXPECT_EQ(Work.Fields.RecordReadout, "3ms   Trace:2");
}

TEST_F(Picking, RightClickOnlyMarksTheStartWhileAutoPikIsOpen) {
    File.Put16(2, life_offset, 2);
    Write();
    Open_Or_Close_AutoPik(Work, Ports.Ports);
    EXPECT_TRUE(Ports.Display.Is_Open(Dialog::AutoPik));
    Work.Record.SampleInterval = 250;
    Pointer.Press({Middle(2), 13.9, 2});
    Pointer.Move({Middle(3), 19, 2});
    Pointer.Release({Middle(3), 19, 2});
    EXPECT_EQ(Automatic.Text55, "3.4");
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
    EXPECT_EQ(Times(1), (std::vector<float>{0, 10, 11, 0}));
    Click(2, 10);
    EXPECT_EQ(Work.Fields.Status, "");

    std::filesystem::remove(Work.Project.SuFile);
    Click(4, 12);
    EXPECT_TRUE(Work.Fields.Status.starts_with("Pick not saved: trace 4, ")) << Work.Fields.Status;
    EXPECT_FALSE(std::filesystem::exists(Work.Project.SuFile));
    EXPECT_EQ(Times(1)[3], 12);
}

TEST_F(Picking, TooLatePickLeavesTheWord) {
    File.Put16(1, pick_offset, 50);
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
    Work.Fields.Check16 = true;
    Show(2);
    const std::string question = "Reverse polarity for all shots  (=0) or select a shot, press X to cancel";
    for (const char* refusal : {"x", "X", ""}) {
        Ports.Prompts.Expect_Input(question, refusal);
        Click(6, 10);
        EXPECT_EQ(Content_Of(Work.Project.SuFile), Before);
    }
    const auto reversed = [](SuBuilder file, int trace) {
        for (int sample = 1; sample <= samples; ++sample)
            file.Sample(trace, sample, -0.0F);
        return file.Sample(trace, 1, -1.5F).Sample(trace, samples, 2);
    };
    Ports.Prompts.Expect_Input(question, "2");
    Click(6, 10);
    Expect_Only(reversed(File, 6), Work.Project.SuFile);
    Write();
    Ports.Prompts.Expect_Input(question, "0");
    Click(6, 10);
    Expect_Only(reversed(reversed(File, 2), 6), Work.Project.SuFile);
}

TEST_F(Picking, ShiftLeavesEmptyCellsButNotEmptyWords) {
    File.Put16(5, pick_offset, 30).Put16(6, pick_offset, 125).Put16(8, pick_offset, 200);
    Write();
    Show(2);
    Work.Project.ShotTimes(2, 1) = 3;
    Work.Project.ShotTimes(2, 2) = 12.5F;
    Work.Project.ShotTimes(2, 4) = 20;
    Fill_Grid();
    Ports.Display.OnShowCurves = {};
    Ports.Prompts.Expect_Input("First trace to move FB", "-3");
    Ports.Prompts.Expect_Input("Last trace to move FB", "3");
    Ports.Prompts.Expect_Input("Shift time to move FB on shot 2", "-10");
    Ports.Prompts.Expect(" OK, move -10ms from 1 to 3 on record 2", Answer::Yes);
    Shift_Picks(Work, Ports.Ports);
    EXPECT_EQ(File_Words(), (std::vector{0, 0, 0, 0, -70, 25, -100, 200}));
    EXPECT_EQ(Times(2), (std::vector<float>{-7, 2.5F, 0, 20}));
    EXPECT_EQ(Work.Grids.Buildgrid.Text(2, 2), "2.5");
    EXPECT_EQ(Ports.Prompts.InputDefaults, (std::vector<std::string>{"1", "4", "-10"}));
    // 12.5 ms at 1 ms a sample: halves go to the even one.
    EXPECT_TRUE(Ports.Display.Pictures[Canvas::Ecran].Has_Line(12000, 12, 14000, 12, colours::White));

    Ports.Prompts.Expect_Input("First trace to move FB", "0");
    Shift_Picks(Work, Ports.Ports);
}

}  // namespace
}  // namespace tarnvik::test
