#include "records/auto_pik.h"

#include <filesystem>

#include "records/picking_support.h"

namespace tarnvik::test {
namespace {

class AutoPikDialog : public RecordOnScreen {
  protected:
    /// All traces negative but for a lobe that begins at a sample of its own.
    AutoPikDialog() {
        const std::vector<int> breaks = {12, 10, 9, 11, 13, 8, 7, 6, 5, 4};
        for (int trace = 1; trace <= traces; ++trace) {
            for (int sample = 1; sample <= samples; ++sample)
                File.Sample(trace, sample,
                            sample >= breaks[static_cast<std::size_t>(trace - 1)] ? 3.0F : -1.0F);
        }
        Automatic.Frequency = "250";  // half a period: 2 samples
        Automatic.StartShift = "-4";
        Automatic.Window = "8";
        Automatic.ReplaceHand = true;
    }
    /// Marks the reference trace and the start on the record, as the right button does while the dialog is
    /// open.
    void Mark_Start(int trace, double sample) {
        Automatic.Form_Load();
        Click(trace, sample, 2);
    }
};

TEST_F(AutoPikDialog, PicksTheRecordAndTakesAllShotsFromTheFile) {
    File.Put16(8, pick_offset, 61);
    Work.Project.ShotTimes(2, 1) = 5;  // the file has none
    Write_With_Twin();
    Expect_Edit("Automatic picking of record 1", [this] { Mark_Start(2, 7); });
    EXPECT_EQ(Automatic.FirstTime, "7");
    // Trace 3 lies below both its neighbours and is repaired: (100 + 110) / 2.
    const SuBuilder expected = SuBuilder(File)
                                   .Put16(1, pick_offset, 120)
                                   .Put16(2, pick_offset, 100)
                                   .Put16(3, pick_offset, 105)
                                   .Put16(4, pick_offset, 110)
                                   .Put16(5, pick_offset, 130);
    Expect_Only(expected, Work.Project.SuFile);
    Expect_Only(expected, Work.Record.TwinSuFile);
    EXPECT_EQ(Times(1), (std::vector<float>{12, 10, 10.5F, 11, 13}));
    EXPECT_EQ(Times(2), (std::vector<float>{0, 0, 6.1F, 0, 0}));
    EXPECT_EQ(Work.Grids.Buildgrid.Text(3, 1), "10.50");
    EXPECT_EQ(Mark(4), 11);
    EXPECT_EQ(Automatic.HalfCycle, "2");
    EXPECT_EQ(Automatic.ReferenceTrace, "2");
    EXPECT_EQ(Automatic.ProcessedTrace, "1");

    // A click in another record is no reference for this one, and leaves that record alone.
    Show(2);
    Automatic.FirstTime = "4";
    Automatic.SensitivityBar.Value = 250;
    Automatic.Sensitivity_Changed();
    EXPECT_EQ(Automatic.Sensitivity, "0.25");
    EXPECT_EQ(File_Words(), (std::vector{120, 100, 105, 110, 130, 80, 70, 60, 50, 40}));
    // The runs of a parameter that is being set are one edit.
    const std::size_t edits = Work.Edits.Done();
    Automatic.PickShift = "1";
    Automatic.Parameter_Changed();
    Automatic.PickShift = "2";
    Automatic.Parameter_Changed();
    EXPECT_EQ(Work.Edits.Done(), edits);
    EXPECT_EQ(File_Words()[5], 100);
}

TEST_F(AutoPikDialog, PicksMadeByHandStayUnlessTheyAreAskedFor) {
    Automatic.ReplaceHand = false;
    Write();
    Click(4, 17);
    Mark_Start(2, 7);
    EXPECT_EQ(Times(1), (std::vector<float>{12, 10, 13.5F, 17, 13}));  // 9 lay below both neighbours
    EXPECT_EQ(Work.Project.PickOrigins(1, 4), PickOrigin::Hand);
    EXPECT_EQ(Work.Project.PickOrigins(1, 3), PickOrigin::Automatic);
    EXPECT_EQ(File_Words()[3], 170);
    EXPECT_TRUE(Work.Fields.Status.starts_with("Automatic picking: 1 pick made by hand stays"));
    const RecordingPicture& ecran = Ports.Display.Pictures[Canvas::Ecran];
    EXPECT_EQ(ecran.Of(Drawn::Verb::Line, Pick_Colour(PickOrigin::Hand)).size(), 1U);
    EXPECT_EQ(ecran.Of(Drawn::Verb::Line, Pick_Colour(PickOrigin::Automatic)).size(), 4U);
    Automatic.ReplaceHand = true;
    Automatic.Parameter_Changed();
    EXPECT_EQ(Times(1)[3], 11);
}

TEST_F(AutoPikDialog, AllRecordsAreOneEditThatCanBeStopped) {
    for (int receiver = 1; receiver <= channels; ++receiver)
        Work.Project.ReceiverData(ReceiverDistance, receiver) = static_cast<float>(receiver);
    Work.Project.ShotDistance(1) = 2;
    Work.Project.ShotDistance(2) = 6;
    Automatic.StartShift = "-3";
    Write_With_Twin();
    const std::string before = State();
    Automatic.Pick_All([](int done, int) { return done == 0; });
    EXPECT_EQ(State(), before);
    EXPECT_FALSE(Work.Edits.Can_Undo());
    EXPECT_TRUE(Work.Fields.Status.starts_with("Automatic picking stopped"));

    Work.Fields.Status.clear();
    Expect_Edit("Automatic picking of all records", [this] { Automatic.Pick_All(); });
    const std::vector<int> words = File_Words();
    const std::vector<int> expected = {120, 100, 105, 110, 130, 80, 70, 60, 50, 40};
    EXPECT_EQ(words, expected);
    EXPECT_EQ(Work.Project.PickOrigins(2, 5), PickOrigin::Automatic);
}

TEST_F(AutoPikDialog, NothingIsPickedBeforeAStartAndAWindowAreGiven) {
    Write();
    Automatic.Parameter_Changed();
    EXPECT_EQ(Content_Of(Work.Project.SuFile), Before);
    Automatic.Window = "";
    Mark_Start(2, 7);
    EXPECT_EQ(Content_Of(Work.Project.SuFile), Before);
}

TEST_F(AutoPikDialog, HalfCycleAndSensitivityFields) {
    File = SuBuilder(traces, samples, 250).Records(channels);
    Write();
    Automatic.Frequency = "";
    Automatic.HalfCycle = "17";  // typed by hand, overwritten
    Automatic.Sensitivity = "0";
    Automatic.Pick_auto();
    EXPECT_EQ(Automatic.HalfCycle, "40");
    EXPECT_EQ(Automatic.Sensitivity, "0.0001");
    Automatic.Sensitivity = "3";
    Automatic.Pick_auto();
    EXPECT_EQ(Automatic.Sensitivity, "1");
}

TEST_F(AutoPikDialog, PicksThatCannotBeSavedStayInTheProject) {
    Work.Project.ShotTimes(2, 3) = 4;
    Write();
    Mark_Start(2, 7);
    Work.Edits.Undo(Work.Project);
    {
        const NothingCanBeWritten disk;
        Automatic.Pick_auto();
    }
    EXPECT_EQ(Content_Of(Work.Project.SuFile), Before);
    EXPECT_TRUE(Work.Fields.Status.starts_with("Automatic picks not saved: ")) << Work.Fields.Status;
    EXPECT_EQ(Times(1), (std::vector<float>{12, 10, 10.5F, 11, 13}));
    EXPECT_EQ(Times(2), (std::vector<float>{0, 0, 4, 0, 0}));
}

TEST_F(AutoPikDialog, AFileThatVanishedIsTold) {
    Work.Project.ShotTimes(2, 3) = 4;
    Write();
    std::filesystem::remove(Work.Project.SuFile);
    Automatic.Pick_auto();
    EXPECT_NE(Work.Fields.Status.find(Work.Project.SuFile), std::string::npos);
    EXPECT_EQ(Times(2)[2], 4);
}

TEST_F(AutoPikDialog, AFragmentThatCountsAsATraceIsNoFault) {
    File.Bytes.resize(9 * trace_bytes + 180);  // more than half a trace, but no room for its pick
    Write();
    Show(2);
    Mark_Start(6, 7);
    Automatic.Pick_auto();
    EXPECT_EQ(Work.Fields.Status, "");
    EXPECT_EQ(Times(2), (std::vector<float>{8, 7, 6, 5, 0}));
    EXPECT_EQ(Content_Of(Work.Project.SuFile).size(), Before.size());
}

TEST_F(AutoPikDialog, ResetAsksAndErasesThePicksOfTheTracesShownEverywhere) {
    for (int trace = 1; trace <= traces; ++trace)
        File.Put16(trace, pick_offset, 10 * trace).Put32(trace, 8, 7);
    Work.Project.ShotTimes(1, 1) = 1;
    Work.Project.ShotTimes(1, 2) = 2;
    Work.Project.ShotTimes(2, 2) = 7;
    Write_With_Twin();
    Zoom.Zoom_To({2.1 * 2000, 1, 6 * 2000.0, 1});  // traces 2 to 5
    const std::string before = State();
    const std::string question = " Erase FBP values of  1/ FLDR 7";
    Ports.Prompts.Expect(question, Answer::Cancel);
    Automatic.Reset();
    EXPECT_EQ(Ports.Prompts.Messages.back().WithIcon, Icon::Critical);
    EXPECT_EQ(State(), before);

    Ports.Prompts.Expect(question, Answer::Ok);
    Expect_Edit("Reset FBP of record 1", [this] { Automatic.Reset(); });
    EXPECT_EQ(File_Words(), (std::vector{10, 0, 0, 0, 0, 60, 70, 80, 90, 100}));
    EXPECT_EQ(Content_Of(Work.Record.TwinSuFile), Content_Of(Work.Project.SuFile));
    EXPECT_EQ(Times(1), (std::vector<float>{1, 0, 0, 0, 0}));
    EXPECT_EQ(Times(2)[1], 7);
    EXPECT_EQ(Work.Grids.Buildgrid.Text(2, 1), "0.00");
    EXPECT_EQ(Mark(3), 0);

    Work.Record.LastTrace = 2000000000;
    Ports.Prompts.Expect(question, Answer::Ok);
    Automatic.Reset();
    EXPECT_EQ(File_Words(), (std::vector{10, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

}  // namespace
}  // namespace tarnvik::test
