#include "records/auto_pik.h"

#include <filesystem>

#include "records/picking_support.h"

namespace tarnvik::test {
namespace {

class AutoPikDialog : public RecordOnScreen {
  protected:
    /// All traces negative but for a lobe that begins at a sample of its own.
    AutoPikDialog() {
        const std::vector<int> breaks = {12, 10, 9, 11, 8, 7, 6, 5};
        for (int trace = 1; trace <= traces; ++trace) {
            for (int sample = 1; sample <= samples; ++sample)
                File.Sample(trace, sample,
                            sample >= breaks[static_cast<std::size_t>(trace - 1)] ? 3.0F : -1.0F);
        }
        Automatic.Text51 = "250";  // half a period: 2 samples
        Automatic.Text53 = "-4";
        Automatic.Text54 = "8";
        Automatic.Text55 = "7";
        Work.Record.DownX = Middle(2);
    }
};

TEST_F(AutoPikDialog, PicksTheRecordAndCopiesAllShotsToTheGrid) {
    File.Put16(7, pick_offset, 61);
    Write();
    Work.Project.ShotTimes(2, 1) = 5;  // the file has none
    Automatic.Parameter_Changed();
    // Trace 3 lies below both its neighbours and is repaired: (100 + 110) / 2.
    Expect_Only(SuBuilder(File)
                    .Put16(1, pick_offset, 120)
                    .Put16(2, pick_offset, 100)
                    .Put16(3, pick_offset, 105)
                    .Put16(4, pick_offset, 110),
                Work.Project.SuFile);
    EXPECT_EQ(Times(1), (std::vector<float>{12, 10, 10.5F, 11}));
    EXPECT_EQ(Times(2), (std::vector<float>{0, 0, 6.1F, 0}));
    EXPECT_EQ(Automatic.Text56, "2");
    EXPECT_EQ(Automatic.Text1, "2");
    EXPECT_EQ(Automatic.Text2, "1");
    EXPECT_EQ(Work.Record.ReferenceTrace, 2);
    EXPECT_EQ(Ports.Display.Count("Show_Curves"), 1);
    EXPECT_EQ(Ports.Display.Count("Display_Record"), 1);

    // A click in another record is no reference for this one, and leaves that record alone.
    Show(2);
    Automatic.Text55 = "4";
    Automatic.HScroll4.Value = 250;
    Automatic.HScroll4_Change();
    EXPECT_EQ(Automatic.Text52, "0.25");
    EXPECT_EQ(File_Words(), (std::vector{120, 100, 105, 110, 80, 70, 60, 50}));
}

TEST_F(AutoPikDialog, NothingIsPickedBeforeAWindowIsGiven) {
    Write();
    Automatic.Text54 = "";
    Automatic.Parameter_Changed();
    EXPECT_EQ(Content_Of(Work.Project.SuFile), Before);
}

TEST_F(AutoPikDialog, HalfCycleAndSensitivityFields) {
    File = SuBuilder(traces, samples, 250).Records(channels);
    Write();
    Automatic.Text51 = "";
    Automatic.Text56 = "17";  // typed by hand, overwritten
    Automatic.Text52 = "0";
    Automatic.Pick_auto();
    EXPECT_EQ(Automatic.Text56, "40");
    EXPECT_EQ(Automatic.Text52, "0.0001");
    Automatic.Text52 = "3";
    Automatic.Pick_auto();
    EXPECT_EQ(Automatic.Text52, "1");
}

TEST_F(AutoPikDialog, TwinGetsThePicksToo) {
    Write();
    Work.Record.TwinSuFile = File.Write(Folder / "twin.su");
    Automatic.Pick_auto();
    EXPECT_EQ(Content_Of(Work.Record.TwinSuFile), Content_Of(Work.Project.SuFile));
}

TEST_F(AutoPikDialog, PicksThatCannotBeSavedStayInTheProject) {
    Write();
    Work.Project.ShotTimes(2, 3) = 4;
    Fill_Grid();
    {
        const NothingCanBeWritten disk;
        Automatic.Pick_auto();
    }
    EXPECT_EQ(Content_Of(Work.Project.SuFile), Before);
    EXPECT_TRUE(Work.Fields.Status.starts_with("Automatic picks not saved: ")) << Work.Fields.Status;
    EXPECT_EQ(Times(1), (std::vector<float>{12, 10, 10.5F, 11}));
    EXPECT_EQ(Times(2), (std::vector<float>{0, 0, 4, 0}));
}

TEST_F(AutoPikDialog, AFileThatVanishedIsTold) {
    Write();
    Work.Project.ShotTimes(2, 3) = 4;
    Fill_Grid();
    std::filesystem::remove(Work.Project.SuFile);
    Automatic.Pick_auto();
    EXPECT_NE(Work.Fields.Status.find(Work.Project.SuFile), std::string::npos);
    EXPECT_EQ(Times(2)[2], 4);
}

TEST_F(AutoPikDialog, AFragmentThatCountsAsATraceIsNoFault) {
    File.Bytes.resize(7 * trace_bytes + 180);  // more than half a trace, but no room for its pick
    Write();
    Show(2);
    Work.Record.DownX = Middle(5);
    Automatic.Pick_auto();
    EXPECT_EQ(Work.Fields.Status, "");
    EXPECT_EQ(Times(2), (std::vector<float>{8, 7, 6, 0}));
    EXPECT_EQ(Content_Of(Work.Project.SuFile).size(), Before.size());
}

TEST_F(AutoPikDialog, ResetErasesTheRecordShown) {
    for (int trace = 1; trace <= traces; ++trace)
        File.Put16(trace, pick_offset, 10 * trace);
    Write();
    Work.Fields.Text12 = "1/ FLDR 7";
    Work.Fields.Text9 = "2";
    Automatic.Command2();
    EXPECT_EQ(Ports.Prompts.Last_Text(), " Erase FBP values of  1/ FLDR 7");
    EXPECT_EQ(Ports.Prompts.Messages.back().WithIcon, Icon::Critical);
    EXPECT_EQ(File_Words(), (std::vector{10, 0, 0, 0, 50, 60, 70, 80}));
    Work.Fields.Text10 = "2000000000";
    Automatic.Command2();
    EXPECT_EQ(File_Words(), (std::vector{10, 0, 0, 0, 0, 0, 0, 0}));
}

}  // namespace
}  // namespace tarnvik::test
