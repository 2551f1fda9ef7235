#include "records/record_display.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "records/record_choice.h"
#include "records/record_styles.h"
#include "records/su_file.h"
#include "records/su_loading.h"
#include "support/su_builder.h"
#include "support/test_ports.h"

namespace tarnvik::test {
namespace {

using Points = std::vector<PixelPoint>;
using Verb = Drawn::Verb;

/// Two records of two traces of 11 samples at 1 ms on a picture of 40 x 10 pixels: 100 world units and one
/// sample a pixel; the axes of a record stand at pixels 10 and 30, sample s in row s - 2.
class RecordDisplay : public testing::Test {
  protected:
    RecordDisplay() : File(4, 11) {
        File.Records(2).Samples(1, {0, 500, 1000, -250, 0, 250, 250, 0, -1000, 0, 150});
        Work.Record.LastTrace = 2;
        Work.Record.NbTraces = 4;
        Work.Record.NbRecords = 2;
        Work.Record.SamplesWord = 11;
        Work.Record.NbSamples = 11;
        Work.Record.ChannelsPerRecord = 2;
        Outside.Display.Pictures.insert_or_assign(Canvas::Ecran, RecordingPicture(40, 10));
    }
    RecordingPicture& Ecran() { return Outside.Display.Pictures[Canvas::Ecran]; }
    RecordingPicture& Scale() { return Outside.Display.Pictures[Canvas::Echelle3]; }
    void Show() {
        Work.Project.SuFile = File.Write(Folder / "line.su");
        Display_Record(Work, Outside.Ports, Work.Project.SuFile, [](int shot) { return 1000 + shot; });
    }
    Points Polyline_Of(int index) {
        return Ecran().Of(Verb::Polyline).at(static_cast<std::size_t>(index)).Points;
    }
    std::vector<Points> Polygons(Colour colour) {
        std::vector<Points> all;
        for (const Drawn& drawn : Ecran().Of(Verb::Polygon, colour))
            all.push_back(drawn.Points);
        return all;
    }

    TemporaryFolder Folder;
    Workspace Work;
    TestPorts Outside;
    SuBuilder File;
    const Points Trace = {{10, -1}, {15, 0}, {20, 1}, {7, 2},  {10, 3}, {13, 4},
                          {13, 5},  {10, 6}, {0, 7},  {10, 8}, {12, 9}};
    const std::vector<Points> Positive = {{{10, 0}, {15, 0}, {20, 1}, {10, 2}},
                                          {{10, 4}, {13, 4}, {13, 5}, {10, 6}},
                                          {{10, 9}, {12, 9}, {10, 9}}};
    const std::vector<Points> Negative = {{{10, 2}, {7, 2}, {10, 3}}, {{10, 7}, {0, 7}, {10, 8}}};
};

constexpr Colour light_blue = 0xFF8080;

TEST_F(RecordDisplay, VariableAreaFillsPositiveLobesUnderTheTrace) {
    Show();
    EXPECT_EQ(Polyline_Of(0), Trace);
    EXPECT_EQ(Ecran().Of(Verb::Polyline)[0].InColour, colours::Black);
    EXPECT_EQ(Polygons(light_blue), Positive);
    // A trace of zeros is a line on its axis without lobes.
    EXPECT_EQ(Polyline_Of(1).front(), (PixelPoint{30, -1}));
    EXPECT_EQ(Ecran().Of(Verb::Polygon).size(), Positive.size());
    EXPECT_EQ(Ecran().Current_Frame().Left, 2000);
    EXPECT_EQ(Ecran().Current_Frame().Right, 6000);
    EXPECT_EQ(Ecran().Current_Frame().Top, 1);
    EXPECT_EQ(Ecran().Current_Frame().Bottom, 11);
}

TEST_F(RecordDisplay, TheOtherStylesDrawTheirPartsOnly) {
    Work.Record.Style = WiggleOnly;
    Show();
    EXPECT_EQ(Polyline_Of(0), Trace);
    EXPECT_TRUE(Ecran().Of(Verb::Polygon).empty());
    Work.Record.Style = TwoColours;
    Show();
    EXPECT_TRUE(Ecran().Of(Verb::Polyline).empty());
    EXPECT_EQ(Polygons(colours::Red), Positive);
    EXPECT_EQ(Polygons(colours::Blue), Negative);
    Work.Record.Style = AreaOnly;
    Show();
    EXPECT_TRUE(Ecran().Of(Verb::Polyline).empty());
    EXPECT_EQ(Polygons(light_blue), Positive);
}

TEST_F(RecordDisplay, DeadTracesAreGrey) {
    File.Put16(1, 28, 2);
    Show();
    EXPECT_EQ(Polygons(colours::Grey), Positive);
    Work.Record.Style = TwoColours;
    Show();
    EXPECT_EQ(Ecran().Of(Verb::Polygon, colours::Grey).size(), Positive.size() + Negative.size());
    EXPECT_EQ(Ecran().Of(Verb::Polygon).size(), Positive.size() + Negative.size());
}

TEST_F(RecordDisplay, GainPolarityAndTraceSizeMultiplyAndClipLimits) {
    File.Sample(2, 5, 300);  // 300 * 1.00001 -> pixel 33.00003
    Work.Record.Style = WiggleOnly;
    Show();
    EXPECT_EQ(Polyline_Of(1)[4].X, 33);
    Work.Record.AmplitudeGain = 4;
    Work.Record.DisplayPolarity = -1;
    Work.Grids.size_grid.Set_Text(1, 0, "2");
    Show();
    EXPECT_EQ(Polyline_Of(1)[4].X, 6);    // 30 - 24
    EXPECT_EQ(Polyline_Of(0)[2].X, -30);  // 10 - 40
    Work.Record.ClipAmplitude = true;
    Show();
    EXPECT_EQ(Polyline_Of(1)[4].X, 20);
    EXPECT_EQ(Polyline_Of(0)[2].X, 0);
    EXPECT_EQ(Polyline_Of(0)[8].X, 20);
}

TEST_F(RecordDisplay, EqualisationScalesEachTraceByItsLargestVisitedSample) {
    File.Sample(2, 5, 10).Sample(2, 6, -40);  // negative samples do not count as largest
    Work.Record.Style = WiggleOnly;
    Show();
    EXPECT_EQ(Polyline_Of(1)[4].X, 30);
    Work.Record.EqualiseTraces = true;
    Show();
    EXPECT_EQ(Polyline_Of(1)[4].X, 40);
    EXPECT_EQ(Polyline_Of(1)[5].X, -10);
}

TEST_F(RecordDisplay, AFirstTraceOfZerosKeepsTheScaleOfTheRecordBefore) {
    File.Sample(4, 5, 500);
    Work.Record.Style = WiggleOnly;
    // Nothing drawn before: the first trace with samples sets the scale.
    Select_Record(Work, 2);
    Show();
    EXPECT_EQ(Polyline_Of(1)[4].X, 40);
    // After record 1, whose first trace has 1000 at most.
    Select_Record(Work, 1);
    Show();
    Select_Record(Work, 2);
    Show();
    EXPECT_EQ(Polyline_Of(1)[4].X, 35);
}

TEST_F(RecordDisplay, SamplesAreThinnedToAboutOneAPixelRow) {
    File = SuBuilder(2, 101);
    File.Records(2).Sample(1, 50, 1000).Sample(1, 51, 10);
    Work.Record.LastSample = 101;
    Work.Record.Style = WiggleOnly;
    Show();
    EXPECT_EQ(Work.Record.SampleStep, 10);
    const Points points = Polyline_Of(0);
    ASSERT_EQ(points.size(), 11U);
    // The step misses the 1000; the largest visited sample, 10, has full scale. Row (51 - 1) / 10 - 1.
    EXPECT_EQ(points[5], (PixelPoint{20, 4}));
}

TEST_F(RecordDisplay, PicksAndTheShotAreMarked) {
    File.Put16(1, 222, 45).Put16(2, 222, -30);
    Work.Project.NbShots = 1;
    Work.Project.NbReceivers = 2;
    TextGrid& grid = Work.Grids.Buildgrid;
    grid.Resize(5, 5);
    grid.Set_Text(1, 2, "0");
    grid.Set_Text(2, 2, "5");
    struct Case {
        const char* Shot;
        bool Marked;
    };
    for (const Case& c : {Case{"-0.1", false}, Case{"0", true}, Case{"4.9", true}, Case{"5", false}}) {
        grid.Set_Text(3, 1, c.Shot);
        Show();
        // 4.5 ms is sample 4.5, half to even; a negative word is no pick.
        const auto marks = Ecran().Of(Verb::Line, colours::Red);
        ASSERT_EQ(marks.size(), 1U);
        EXPECT_TRUE(Ecran().Has_Line(2251, 4, 3751, 4, colours::Red));
        EXPECT_EQ(Ecran().Has_Line(6001, 1, 6001, 11, colours::Black), c.Marked) << c.Shot;
    }
}

TEST_F(RecordDisplay, OverdrawLeavesWhatIsDrawn) {
    Show();
    Work.Record.Overdraw = true;
    Select_Record(Work, 2);
    Show();
    EXPECT_EQ(Ecran().Clears, 1);
    EXPECT_EQ(Ecran().Of(Verb::Polyline).size(), 4U);
    EXPECT_EQ(Polyline_Of(2).front(), (PixelPoint{10, -1}));  // trace 3 lies upon trace 1
}

TEST_F(RecordDisplay, TheIdentityOfTheRecordIsShown) {
    File.Put32(3, 8, 207).Put32(3, 16, 12).Put32(3, 0, 31);
    Work.Record.ReferenceTrace = 5;
    Select_Record(Work, 2);
    Show();
    EXPECT_EQ(Work.Record.FirstTrace, 3);
    EXPECT_EQ(Work.Record.LastTrace, 4);
    EXPECT_EQ(Record_Identity(Work.Record), "2/ FLDR 207");
    EXPECT_EQ(Work.Record.ShotStation, 12);
    EXPECT_EQ(Work.Record.FirstGeophone, 31);
    EXPECT_EQ(Work.Fields.Label16, Folder / "line.su");
    EXPECT_EQ(Work.Velocity.CurrentShot, 2);
    EXPECT_EQ(Work.Record.ReferenceTrace, 0);
    EXPECT_EQ(Ecran().Pointer, PointerShape::Cross);
    Select_Record(Work, 99);
    EXPECT_EQ(Work.Record.Record, 2);
}

TEST_F(RecordDisplay, StationsAreAskedOnceForEachRecordByWhatSelectsIt) {
    Show();
    Work.Edits.Start(Work.Project, true);
    Outside.Display.OnDisplayRecord = [this] { Display_Record(Work, Outside.Ports, Work.Project.SuFile); };
    Work.Record.SeveralSpreads = true;
    Outside.Display.Display_Record();  // a redraw never asks
    // What was not entered is offered to nobody.
    Outside.Prompts.Expect_Input("Enter shot station: ", "");
    Outside.Prompts.Expect_Input("Enter 1st geophone number: ", "");
    Work.Record.Record = 2;
    Ask_Stations(Work, Outside.Ports);
    EXPECT_FALSE(Work.Record.LastStations);
    Work.Record.StationsTyped.clear();
    Outside.Prompts.InputDefaults.clear();
    Outside.Prompts.Expect_Input("Enter shot station: ", "7");
    Outside.Prompts.Expect_Input("Enter 1st geophone number: ", "13");
    Go_To_Record(Work, Outside.Ports, 1);
    EXPECT_EQ(Work.Record.ShotStation, 7);
    EXPECT_EQ(Work.Record.FirstGeophone, 13);
    const std::string asked = SuBuilder(File).Put32(1, 16, 7).Put32(1, 0, 13).Bytes;
    EXPECT_TRUE(Content_Of(Work.Project.SuFile) == asked);
    EXPECT_EQ(Work.Edits.Undo_Name(), "Stations of record 1");

    // An enlargement asks nothing and writes nothing; the station of its first trace counts on.
    Work.Record.FirstTrace = 2;
    Outside.Display.Display_Record();
    Go_To_Record(Work, Outside.Ports, 1);
    Work.Record.FirstTrace = 2;
    Outside.Display.Display_Record();
    EXPECT_EQ(Work.Record.FirstGeophone, 14);
    EXPECT_TRUE(Content_Of(Work.Project.SuFile) == asked);

    // What was entered is offered next; a cancelled box leaves the station of the file.
    Outside.Prompts.Expect_Input("Enter shot station: ", "");
    Outside.Prompts.Expect_Input("Enter 1st geophone number: ", "1");
    Go_To_Record(Work, Outside.Ports, 2);
    EXPECT_EQ(Outside.Prompts.InputDefaults, (std::vector<std::string>{"1", "1", "7", "13"}));
    EXPECT_EQ(Work.Record.ShotStation, 2);
    EXPECT_TRUE(Content_Of(Work.Project.SuFile) == asked);

    // Typed while a part is shown: the record's first trace takes the station that belongs to it.
    Work.Record.FirstTrace = 4;
    Work.Record.FirstGeophone = 9;
    Take_Typed_Stations(Work, Outside.Ports);
    EXPECT_TRUE(Content_Of(Work.Project.SuFile) ==
                SuBuilder(File).Put32(1, 16, 7).Put32(1, 0, 13).Put32(3, 0, 8).Bytes);
    EXPECT_EQ(Work.Edits.Undo(Work.Project), "");
    EXPECT_EQ(Work.Edits.Undo(Work.Project), "");
    EXPECT_TRUE(Content_Of(Work.Project.SuFile) == File.Bytes);
}

TEST_F(RecordDisplay, SizeFactorsBelongToRows) {
    Work.Grids.size_grid.Resize(3, 1);
    Work.Grids.size_grid.Set_Text(0, 0, "4");
    Work.Grids.size_grid.Set_Text(1, 0, "0");
    Show();
    Select_Record(Work, 2);
    Show();
    ASSERT_EQ(Work.Grids.size_grid.Rows(), 2);
    EXPECT_EQ(Work.Grids.size_grid.Text(0, 0), "4");
    EXPECT_EQ(Work.Grids.size_grid.Text(1, 0), "1");
}

TEST_F(RecordDisplay, TravelTimesOfOtherShotsLieOverTheTraces) {
    Project& project = Work.Project;
    project.NbShots = 3;
    project.NbReceivers = 5;
    Redimension_Project(project);
    File = SuBuilder(5, 30);
    File.Records(5);
    Work.Record.LastTrace = 5;
    Work.Record.ChannelsPerRecord = 5;
    Work.Record.LastSample = 30;
    for (int receiver = 1; receiver <= 5; ++receiver) {
        project.ReceiverData(ReceiverDistance, receiver) = static_cast<float>(10 * (receiver - 1));
        for (int shot = 1; shot <= 3; ++shot)
            project.ShotTimes(shot, receiver) = static_cast<float>(receiver * 2 + shot);
    }
    project.ShotDistance(2) = 15;  // between receivers 2 and 3
    project.ShotDistance(3) = 40;
    project.ShotTimes(3, 4) = 0;
    Work.Record.ShowTravelTimes = true;
    Show();
    EXPECT_TRUE(Ecran().Of(Verb::Line, 1001).empty());  // the record's own shot
    const auto second = Ecran().Of(Verb::Line, 1002);
    ASSERT_EQ(second.size(), 3U);
    EXPECT_TRUE(Ecran().Has_Line(3001, 4, 5001, 6, 1002));
    EXPECT_FALSE(Ecran().Has_Line(5001, 6, 7001, 8, 1002));
    // A receiver without a time is passed over.
    EXPECT_TRUE(Ecran().Has_Line(7001, 9, 11001, 13, 1003));
    Work.Record.CurveOnRecord = 3;
    Show();
    EXPECT_TRUE(Ecran().Of(Verb::Line, 1002).empty());
    EXPECT_EQ(Ecran().Of(Verb::Line, 1003).size(), 3U);
}

TEST(TimeScale, TicksStandAtRoundTimesOnce) {
    struct Case {
        int First;
        int Last;
        int Interval;
        std::vector<std::pair<int, std::string>> Ticks;  ///< sample and text
    };
    const Case cases[] = {
        // 200 ms: every 50. At 0.25 ms, 49.5 rounds to 50 (half to even) two samples early.
        {1, 800, 250, {{198, "50ms"}, {398, "100ms"}, {598, "150ms"}, {798, "200ms"}}},
        // Above 500 ms: every 100 only.
        {1,
         602,
         1000,
         {{100, "100ms"}, {200, "200ms"}, {300, "300ms"}, {400, "400ms"}, {500, "500ms"}, {600, "600ms"}}},
        {120, 160, 1000, {{150, "150ms"}}},
        {1, 40, 1000, {}},
        {1, 800, 0, {}},
    };
    for (const Case& c : cases) {
        RecordView view;
        view.FirstSample = static_cast<std::int16_t>(c.First);
        view.LastSample = static_cast<std::int16_t>(c.Last);
        view.SampleInterval = static_cast<std::int16_t>(c.Interval);
        RecordingPicture picture;
        Draw_Time_Scale(view, picture);
        std::vector<std::pair<int, std::string>> ticks;
        for (const Drawn& text : picture.Of(Verb::Print)) {
            EXPECT_EQ(text.X1, 3);
            EXPECT_EQ(text.FontSize, 7);
            const int sample = static_cast<int>(text.Y1) + 15;
            EXPECT_TRUE(picture.Has_Line(1, sample, 3, sample, colours::Grey));
            ticks.emplace_back(sample, text.Text);
        }
        EXPECT_EQ(ticks, c.Ticks) << c.First << " " << c.Interval;
    }
}

TEST_F(RecordDisplay, SamplesThatAreNoNumbersHaveNoPlace) {
    constexpr float infinite = std::numeric_limits<float>::infinity();
    File.Sample(1, 4, std::nanf("")).Sample(1, 6, infinite).Sample(2, 3, -infinite);
    for (const bool each : {false, true}) {
        for (int style = VariableArea; style <= AreaOnly + 1; ++style) {
            Work.Record.Style = style;
            Work.Record.EqualiseTraces = each;
            Show();
        }
    }
    Work.Record.Style = WiggleOnly;
    Work.Record.EqualiseTraces = false;
    Show();
    EXPECT_EQ(Polyline_Of(0).size(), 9U);
    EXPECT_EQ(Polyline_Of(1).size(), 10U);
}

TEST_F(RecordDisplay, WildRangesAndFilesEndWithoutHarm) {
    constexpr int most = std::numeric_limits<std::int32_t>::max();
    const std::pair<int, int> ranges[] = {{1, 2'000'000'000}, {-2'000'000'000, 2}, {2'000'000'000, 1}, {3, 2},
                                          {most, 0},          {most, -most - 1}};
    for (const auto& [first, last] : ranges) {
        Work.Record.FirstTrace = first;
        Work.Record.LastTrace = last;
        Take_Typed_Range(Work);
        Show();
        Show_Picks_On_Record(Work, Outside.Ports, first, last);
    }
    for (const int ns : {0, -1, -60, -61, -32768, 32767}) {
        SuBuilder wild(File);
        wild.Put16(1, 114, ns);
        Work.Record.FirstTrace = 1;
        Work.Record.LastTrace = 4;
        Display_Record(Work, Outside.Ports, wild.Write(Folder / "wild.su"));
    }
    Outside.Display.Pictures.insert_or_assign(Canvas::Ecran, RecordingPicture(0, 0));
    Show();
    EXPECT_LE(Work.Grids.size_grid.Rows(), 100'000);
}

TEST_F(RecordDisplay, ShortAndMissingFilesDrawNothing) {
    File.Bytes.resize(999);
    Show();
    Display_Record(Work, Outside.Ports, Folder / "none.su");
    Display_Record(Work, Outside.Ports, "");
    EXPECT_TRUE(Ecran().List.empty());
    EXPECT_EQ(Ecran().Clears, 0);
}

TEST_F(RecordDisplay, AFileChangedByAnotherProgramIsShownWhole) {
    Show();
    EXPECT_EQ(Work.Record.LastSample, 11);
    SuBuilder longer = SuBuilder(4, 21).Records(2);
    Display_Record(Work, Outside.Ports, longer.Write(Folder / "line.su"));
    EXPECT_EQ(Work.Record.LastSample, 21);
    Work.Record.FirstSample = 5;  // zoomed
    Work.Record.LastSample = 9;
    Display_Record(Work, Outside.Ports, File.Write(Folder / "line.su"));
    EXPECT_EQ(Work.Record.FirstSample, 5);
    EXPECT_EQ(Work.Record.LastSample, 9);
}

}  // namespace
}  // namespace tarnvik::test
