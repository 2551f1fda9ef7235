#include <filesystem>
#include <fstream>

#include "records/picking_support.h"
#include "records/record_buttons.h"
#include "records/size_grid_mouse.h"
#include "records/spectrum_area.h"

namespace tarnvik::test {
namespace {

class RecordViewTools : public RecordOnScreen {
  protected:
    void Drag(double x1, double y1, double x2, double y2) {
        Pointer.Press({x1, y1, 1});
        Pointer.Move({(x1 + x2) / 2, (y1 + y2) / 2, 1});
        Pointer.Release({x2, y2, 1});
    }
};

TEST_F(RecordViewTools, ZoomToAnAreaAndBack) {
    Write();
    EXPECT_FALSE(Zoom.Enlarged());
    Zoom.Arm();
    EXPECT_TRUE(Zoom.Enlarged());
    RecordingPicture& ecran = Ports.Display.Pictures[Canvas::Ecran];
    Ports.Display.OnDisplayRecord = {};
    Drag(8100, 25, 4100, 6.4);  // from the lower right corner, beyond the last sample
    EXPECT_EQ(Work.Record.FirstTrace, 2);
    EXPECT_EQ(Work.Record.LastTrace, 3);
    EXPECT_EQ(Work.Record.FirstSample, 6);
    EXPECT_EQ(Work.Record.LastSample, samples);
    EXPECT_EQ(Work.Record.ZoomMode, 0);
    EXPECT_TRUE(Zoom.Enlarged());
    EXPECT_EQ(Content_Of(Work.Project.SuFile), Before) << "the drag is no pick";
    // Each rectangle of the rubber band was drawn twice and so taken away.
    const auto boxes = ecran.Of(Drawn::Verb::Box);
    ASSERT_EQ(boxes.size(), 4U);
    for (std::size_t i = 0; i < boxes.size(); i += 2) {
        EXPECT_EQ(boxes[i].Mode, DrawMode::Xor);
        EXPECT_EQ(boxes[i].X2, boxes[i + 1].X2);
        EXPECT_EQ(boxes[i].Y2, boxes[i + 1].Y2);
    }
    Zoom.Show_Whole();
    EXPECT_EQ(Work.Record.FirstTrace, 1);
    EXPECT_EQ(Work.Record.LastTrace, channels);
    EXPECT_EQ(Work.Record.FirstSample, 1);
    EXPECT_EQ(Work.Record.LastSample, samples);
    EXPECT_FALSE(Zoom.Enlarged());

    Zoom.Arm();
    Drag(4100, 3, 5800, 9);
    EXPECT_EQ(Ports.Prompts.Last_Text(), "1 trace, display not Possible");
    EXPECT_EQ(Work.Record.LastTrace, channels);
    EXPECT_FALSE(Zoom.Enlarged());
}

TEST_F(RecordViewTools, TheWholeRecordIsTheOneOnScreen) {
    Write();
    Zoom.Zoom_To({4100, 2, 8100, 9});
    Show(2);
    Zoom.Show_Whole();
    EXPECT_EQ(Work.Record.FirstTrace, 6);
    EXPECT_EQ(Work.Record.LastTrace, 10);
    Click(7, 10);
    EXPECT_EQ(Times(2)[1], 10) << "the pick goes to the shot of the record on screen";
    // An arrow takes the enlarged part along.
    Zoom.Zoom_To({7 * 2000.0, 2, 9 * 2000.0, 9});
    Go_To_Neighbour(Work, Ports.Ports, -1);
    EXPECT_EQ(Work.Record.FirstTrace, 2);
    Zoom.Show_Whole();
    EXPECT_EQ(Work.Record.FirstTrace, 1);
    EXPECT_EQ(Work.Record.LastTrace, 5);
    // Another file has nothing enlarged, and its own whole record.
    Zoom.Zoom_To({4100, 2, 8100, 9});
    Work.Project.SuFile = SuBuilder(9, 30).Records(3).Write(Folder / "other.su");
    Open_Records(Work, Ports.Ports);
    EXPECT_FALSE(Zoom.Enlarged());
    EXPECT_EQ(Work.Record.LastTrace, 3);
    EXPECT_EQ(Work.Record.LastSample, 30);
}

TEST_F(RecordViewTools, ATypedRangeKeepsTheRecordAndMovesCurrentShot) {
    Write();
    Show(2);
    struct Case {
        int First, Last, Shot, WholeFirst, WholeLast;
    };
    for (const Case& each : {Case{6, 7, 4, 6, 10}, {9, 10, 5, 6, 10}, {1, 10, 1, 1, 10}, {1, 5, 1, 1, 5}}) {
        Work.Record.FirstTrace = each.First;
        Work.Record.LastTrace = each.Last;
        Take_Typed_Range(Work);
        Ports.Display.Display_Record();
        EXPECT_EQ(Work.Record.Record, 2);
        EXPECT_EQ(Work.Velocity.CurrentShot, each.Shot);
        Zoom.Show_Whole();
        EXPECT_EQ(Work.Record.FirstTrace, each.WholeFirst);
        EXPECT_EQ(Work.Record.LastTrace, each.WholeLast);
    }
}

TEST_F(RecordViewTools, TimeScaleSelectsSamples) {
    struct Case {
        double From, To;
        int First, Last;
    };
    Write();
    for (const Case& each :
         {Case{4.4, 12, 4, 12}, {12, 4.4, 4, 12}, {7, 90, 7, 20}, {-3, 5, 1, 5}, {5, 5, 1, 20}}) {
        Work.Record.FirstSample = 1;
        Work.Record.LastSample = samples;
        Zoom.Scale_Press(each.From);
        Zoom.Scale_Move(9);
        Zoom.Scale_Release(each.To);
        EXPECT_EQ(Work.Record.FirstSample, each.First);
        EXPECT_EQ(Work.Record.LastSample, each.Last);
    }
    EXPECT_EQ(Ports.Display.Pictures[Canvas::Echelle3].List.size() % 2, 0U);
}

TEST_F(RecordViewTools, NeighbouringShots) {
    Write();
    Go_To_Neighbour(Work, Ports.Ports, -1);
    EXPECT_EQ(Work.Record.FirstTrace, 1);
    Go_To_Neighbour(Work, Ports.Ports, 1);
    Go_To_Neighbour(Work, Ports.Ports, 1);
    EXPECT_EQ(Work.Record.Record, 2);
    EXPECT_EQ(Work.Velocity.CurrentShot, 2);
    EXPECT_EQ(Work.Record.FirstTrace, 6);
    EXPECT_EQ(Work.Record.LastTrace, 10);
    EXPECT_EQ(Ports.Display.Count("Display_Record"), 1);
    Work.Project.NbShots = 1;
    Show(1);
    Go_To_Neighbour(Work, Ports.Ports, 1);
    EXPECT_EQ(Work.Record.Record, 1) << "the line has no second shot";
}

TEST_F(RecordViewTools, GainAndPolarity) {
    for (const auto& [typed, smaller] : {std::pair{1.0, 0.8}, {0.06, 0.001}, {-2.0, 0.001}, {0.0, 0.001}}) {
        Work.Record.AmplitudeGain = typed;
        Reduce_Trace_Size(Work, Ports.Ports);
        EXPECT_EQ(Work.Record.AmplitudeGain, smaller);
    }
    Enlarge_Trace_Size(Work, Ports.Ports);
    EXPECT_EQ(Work.Record.AmplitudeGain, 0.002);
    Turn_Display_Polarity(Work, Ports.Ports);
    EXPECT_EQ(Work.Record.DisplayPolarity, -1);
    Work.Record.DisplayPolarity = 3;
    Turn_Display_Polarity(Work, Ports.Ports);
    EXPECT_EQ(Ports.Prompts.Last_Text(), "3");
}

TEST_F(RecordViewTools, SizeFactors) {
    File.Put16(8, life_offset, 2);
    Write();
    Show(2);
    SizeGridMouse mouse(Work, Ports.Ports);
    Work.Grids.size_grid.Set_Text(2, 0, "0.15");
    mouse.Move(47, 100);
    EXPECT_EQ(mouse.ToolTip, "2");
    mouse.Press(1);
    EXPECT_EQ(Work.Grids.size_grid.Text(2, 0), "0.3");
    mouse.Press(2);
    Expect_Edit("Revive shot 2, receiver 3", [&] { mouse.Press(2); });
    EXPECT_EQ(Work.Grids.size_grid.Text(2, 0), "0.075");
    Expect_Only(SuBuilder(File).Put16(8, life_offset, 1), Work.Project.SuFile);
    mouse.Move(500, 100);
    EXPECT_EQ(Work.Grids.size_grid.CurrentRow, 4);
}

TEST_F(RecordViewTools, SpectrumOfAnArea) {
    const std::string tool = Folder / "SUSPECTRE.EXE";
    Ports.Launcher.Folder = Folder.Path;
    Write();
    Work.Record.NbSamples = 500;
    Work.Record.SampleInterval = 250;
    Work.Record.LastTrace = 200;
    Work.Record.RecordWidth = 400000;
    struct Case {
        const char* What;
        std::array<double, 4> Area;  ///< traces and samples of two corners
        bool Tool;
        int Result;
        std::vector<std::string> Said;
        std::string Arguments;
    };
    const std::string from_3 = " First Trace=3 Last Trace=77 Start Time=1ms End Time=2ms";
    const std::vector<Case> cases = {
        {"flat", {2, 4, 5, 4.2}, true, 33, {"Same point, impossible"}, ""},
        {"no tool", {2, 4, 5, 9}, false, 33, {tool + " is missing"}, ""},
        {"not started",
         {2, 4, 5, 9},
         true,
         2,
         {"Unable to shell application:" + tool},
         "ftr=2 ltr=5 fpt=4 lpt=9"},
        {"from below, beyond the trace",
         {5, 900, 2, -7},
         true,
         33,
         {" First Trace=2 Last Trace=5 Start Time=0.25ms End Time=125ms"},
         "ftr=2 ltr=5 fpt=1 lpt=500"},
        {"75 traces", {3, 4, 77, 8}, true, 33, {from_3}, "ftr=3 ltr=77 fpt=4 lpt=8"},
        {"76 traces", {3, 4, 78, 8}, true, 33, {"Maximum 75 traces", from_3}, "ftr=3 ltr=77 fpt=4 lpt=8"},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.What);
        std::filesystem::remove(tool);
        if (each.Tool) std::ofstream(tool) << "tool";
        Ports.Launcher.Result = each.Result;
        Ports.Launcher.Started.clear();
        Ports.Prompts.Messages.clear();
        Spectre_Frequency(Work, Ports.Ports);
        Drag(Middle(int(each.Area[0])), each.Area[1], Middle(int(each.Area[2])), each.Area[3]);
        std::vector<std::string> said;
        for (const auto& message : Ports.Prompts.Messages)
            said.push_back(message.Text);
        EXPECT_EQ(said, each.Said);
        EXPECT_EQ(Work.Record.SpectrumRequest, 0);
        if (each.Arguments.empty()) {
            EXPECT_TRUE(Ports.Launcher.Started.empty());
        } else {
            ASSERT_EQ(Ports.Launcher.Started.size(), 1U);
            EXPECT_EQ(Ports.Launcher.Started[0],
                      tool + "|f=" + Work.Project.SuFile + " " + each.Arguments + "|" + Folder.Path);
        }
    }
}

}  // namespace
}  // namespace tarnvik::test
