// Scales, header, levelling and first display of a field record, by numbers.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>

#include "records/agc.h"
#include "records/axis_steps.h"
#include "records/first_display.h"
#include "records/picking_support.h"
#include "records/record_geometry.h"
#include "records/record_header.h"
#include "records/record_readout.h"

namespace tarnvik::test {
namespace {

using Verb = Drawn::Verb;

TEST(AxisSteps, AreOneTwoOrFiveTimesAPowerOfTen) {
    const std::pair<double, double> cases[] = {
        {1, 1},    {1.01, 2},  {2, 2},       {2.1, 5},   {5.5, 10}, {0.3, 0.5}, {0.1, 0.1}, {0.0021, 0.005},
        {73, 100}, {1e7, 1e7}, {199.9, 200}, {0.2, 0.2}, {0, 0},    {-4, 0},    {NAN, 0},   {INFINITY, 0}};
    for (const auto& [least, step] : cases)
        EXPECT_NEAR(Round_Step(least), step, 1e-12 + step * 1e-12) << least;
    EXPECT_EQ(Multiples(-0.3, 0.31, 0.1).size(), 7U) << "both ends count, whatever their last binary digit";
    EXPECT_TRUE(Multiples(0, 1, 1e-9).empty());
    EXPECT_EQ(Label_Step(30, 100), 1);
    EXPECT_EQ(Label_Step(30, 20), 2);
    EXPECT_EQ(Label_Step(30, 3), 20);
}

/// At any enlargement the scale names round times, each at its own sample, and neither crowds them nor leaves
/// the picture without any.
TEST(TimeScale, NamesRoundTimesAtTheirPlacesAtAnyEnlargement) {
    std::mt19937 random(5);
    for (int round = 0; round < 400; ++round) {
        RecordView view;
        const int intervals[] = {31, 125, 250, 1000, 2000, 333};
        view.SampleInterval = static_cast<std::int16_t>(intervals[random() % 6]);
        const int span = 8 + static_cast<int>(random() % (round % 2 == 0 ? 40 : 8000));
        view.FirstSample = static_cast<std::int16_t>(1 + random() % 5000);
        view.LastSample = static_cast<std::int16_t>(view.FirstSample + span);
        RecordingPicture picture(60, 120 + random() % 1500);
        Draw_Time_Scale(view, picture);
        const Frame frame = picture.Current_Frame();
        const double letters = picture.Size_Of("0").Height;
        const auto texts = picture.Of(Verb::Print);
        const double interval = view.SampleInterval / 1000.0;
        SCOPED_TRACE(CStr(span) + " samples of " + CStr(interval));
        ASSERT_GE(texts.size(), 1U);
        double before = -1e9;
        double step = 0;
        for (const Drawn& text : texts) {
            ASSERT_TRUE(text.Text.ends_with("ms"));
            const double ms = std::stod(text.Text);
            const double sample = frame.To_World_Y(frame.To_Pixel_Y(text.Y1) + letters / 2);
            EXPECT_NEAR(sample, ms / interval, 1e-6 * span) << "beside its tick";
            EXPECT_TRUE(picture.Has_Line(1, sample, 3, sample, colours::Grey, 1e-6 * span));
            EXPECT_GE(frame.To_Pixel_Y(sample) - before, letters * 2) << "lines of text keep apart";
            if (before > -1e8) {
                if (step == 0) step = ms - std::stod(texts[0].Text);
                EXPECT_NEAR(Round_Step(step), step, step * 1e-9);
                EXPECT_NEAR(std::remainder(ms, step), 0, step * 1e-6);
            }
            before = frame.To_Pixel_Y(sample);
        }
    }
    RecordView none;
    none.FirstSample = 1;
    none.LastSample = 800;
    RecordingPicture picture;
    Draw_Time_Scale(none, picture);
    EXPECT_TRUE(picture.List.empty()) << "without a sample interval there are no times";
}

TEST(Agc, DividesByTheEnergyAround) {
    // A sine that grows a thousandfold comes out with the same size everywhere.
    std::vector<float> trace(2000);
    for (std::size_t i = 0; i < trace.size(); ++i) {
        trace[i] = static_cast<float>(std::pow(10, i / 666.0) * std::sin(2 * std::numbers::pi * i / 20));
    }
    Level_Amplitudes(trace, 100);
    for (std::size_t start = 100; start + 120 < trace.size(); start += 20) {
        const auto [least, most] = std::minmax_element(trace.begin() + start, trace.begin() + start + 20);
        EXPECT_NEAR(*most, std::numbers::sqrt2, 0.12) << start;
        EXPECT_NEAR(*least, -std::numbers::sqrt2, 0.12) << start;
    }
    // By hand: windows of three, cut off at the ends.
    std::vector<float> few = {3, 4, 0, 0, 0, -2};
    Level_Amplitudes(few, 2);
    const float by_hand[] = {
        static_cast<float>(3 / std::sqrt(12.5)), static_cast<float>(4 / std::sqrt(25 / 3.0)), 0, 0, 0,
        static_cast<float>(-2 / std::sqrt(2))};
    for (int i = 0; i < 6; ++i)
        EXPECT_NEAR(few[static_cast<std::size_t>(i)], by_hand[i], 1e-6) << i;
    // What is no number harms nobody else, and a huge sample drowns its neighbours alone.
    std::vector<float> wild = {1, std::numeric_limits<float>::quiet_NaN(), 1, 1e19F, 0, 0, 2, 0};
    Level_Amplitudes(wild, 2);
    EXPECT_TRUE(std::isnan(wild[1]));
    EXPECT_NEAR(wild[0], std::numbers::sqrt2, 1e-6);
    EXPECT_NEAR(wild[3], std::numbers::sqrt3, 1e-6);
    EXPECT_NEAR(wild[6], std::numbers::sqrt3, 1e-6);
    EXPECT_EQ(wild[7], 0);
    std::vector<float> few_for_all = {1, 2, 2};
    Level_Amplitudes(few_for_all, 30000);
    EXPECT_NEAR(few_for_all[1], 2 / std::sqrt(3), 1e-6);
    std::vector<float> same = {1, 5, -3};
    Level_Amplitudes(same, 1);
    EXPECT_EQ(same, (std::vector<float>{1, 5, -3}));
}

class RecordPicture : public RecordOnScreen {
  protected:
    RecordPicture() {
        Project& line = Work.Project;
        line.LineLength = 20;
        for (int receiver = 1; receiver <= channels; ++receiver)
            line.ReceiverData(ReceiverDistance, receiver) = static_cast<float>(5 * (receiver - 1));
        line.ShotDistance(1) = 7.5;
        line.ShotDistance(2) = 40;
    }
    RecordingPicture& Header() { return Ports.Display.Pictures[Canvas::RecordHeader]; }
};

TEST_F(RecordPicture, HeaderNamesReceiverDistanceAndOffsetAboveEachTrace) {
    Write();
    Work.Record.AmplitudeGain = 2.5;
    Show(1);
    const Frame frame = Header().Current_Frame();
    EXPECT_EQ(frame.Left, 2000);
    EXPECT_EQ(frame.Right, 12000);
    // Each text is centred on its trace; the rows stand below each other.
    const auto centre = [&](const Drawn& text) {
        return frame.To_World_X(frame.To_Pixel_X(text.X1) + Header().Size_Of(text.Text).Width / 2);
    };
    std::map<int, std::vector<std::string>> above;
    for (const Drawn& text : Header().Of(Verb::Print, colours::Black)) {
        const double trace = (centre(text) - 1000) / 2000;
        if (std::abs(trace - std::round(trace)) < 1e-6)
            above[static_cast<int>(std::round(trace))].push_back(text.Text);
    }
    EXPECT_EQ(above[2], (std::vector<std::string>{"2", "5", "-2.5"}));
    EXPECT_EQ(above[5], (std::vector<std::string>{"5", "20", "12.5"}));
    const std::string title = Header().Texts()[0];
    for (const char* part : {"Record 1/ FLDR 1", "Shot 1 at 7.5 m", "line.su", "Gain 2.5"})
        EXPECT_NE(title.find(part), std::string::npos) << part << " in " << title;
    EXPECT_EQ(title.find("filtered"), std::string::npos);
    // The other way round the receivers run from the right, and the shot moves along.
    Work.Record.DirectionInverted = true;
    Show(1);
    EXPECT_TRUE(Ports.Display.Pictures[Canvas::Ecran].Has_Line(8000, 1, 8000, samples, colours::Black));
    // A filtered file says so, and a narrow picture names every second or fifth trace.
    Ports.Display.Pictures.insert_or_assign(Canvas::RecordHeader, RecordingPicture(100, 60));
    Work.Record.DirectionInverted = false;
    Work.Project.SuFile = Folder / "line_flt.su";
    File.Write(Work.Project.SuFile);
    Show(1);
    EXPECT_EQ(Header().Printed("3"), nullptr);
    EXPECT_NE(Header().Printed("5"), nullptr);
    const auto parts = Record_Title(Work, SpreadLayout(Work), Work.Project.SuFile);
    EXPECT_NE(std::find(parts.begin(), parts.end(), "filtered"), parts.end());
}

TEST_F(RecordPicture, ReadOutAndCrossHairTellWhatLiesUnderThePointer) {
    File.Put16(7, pick_offset, 123);
    Write();
    Show(2);
    Pointer.Move({Middle(7), 9.25, 0});
    EXPECT_EQ(Work.Fields.RecordReadout,
              "9.25ms   Trace:7   Geophone:2   Distance:5 m   Offset:-35 m   Amplitude:-50   Pick:12.3ms");
    const auto& marks = Ports.Display.Marks[{Canvas::Ecran, MarkLayer::Pointer}];
    ASSERT_EQ(marks.size(), 2U);
    EXPECT_EQ(marks[0].Y1, 9.25);
    EXPECT_EQ(marks[1].X1, Middle(7));
    Switch_Cross_Hair(Work, Ports.Ports);
    Pointer.Move({Middle(8), 9, 0});
    EXPECT_TRUE((Ports.Display.Marks[{Canvas::Ecran, MarkLayer::Pointer}].empty()));
    EXPECT_TRUE(Work.Fields.RecordReadout.ends_with("no pick"));
}

TEST_F(RecordPicture, FirstDisplayShowsQuietFirstBreaks) {
    Write();
    // One spike a trace: its root mean square is 1 / sqrt(20) of it.
    for (int trace = 1; trace <= traces; ++trace)
        File.Sample(trace, 5, trace == 3 ? 1e-4F : 1e6F).Sample(trace, 9, 0);
    File.Write(Work.Project.SuFile);
    ASSERT_TRUE(Choose_First_Display(Work, Work.Project.SuFile));
    EXPECT_TRUE(Work.Record.EqualiseTraces && Work.Record.ClipAmplitude && Work.Record.EqualiseInSight);
    EXPECT_EQ(Work.Record.AmplitudeGain, 3);
    EXPECT_FALSE(Choose_First_Display(Work, Folder / "none.su"));
    const double even[] = {0.9, 0.9};
    const double spiky[] = {0.001, 0.001, 0.9};
    EXPECT_EQ(Gain_For(even), 1);
    EXPECT_EQ(Gain_For(spiky), 50);
    EXPECT_EQ(Gain_For({}), 1);
    // Of the time shown alone the small trace fills its room too.
    Show(1);
    const auto widest = [this](int trace) {
        int reach = 0;
        const auto lines = Ports.Display.Pictures[Canvas::Ecran].Of(Verb::Polyline);
        for (const PixelPoint& point : lines.at(static_cast<std::size_t>(trace - 1)).Points)
            reach = std::max(reach, point.X);
        return reach;
    };
    const int a_trace = 960 / channels;
    EXPECT_NEAR(widest(3) - widest(2), a_trace, 2);
}

}  // namespace
}  // namespace tarnvik::test
