#include "records/record_scroll.h"

#include <cmath>
#include <random>

#include "records/picking_support.h"
#include "records/record_zoom.h"

namespace tarnvik::test {
namespace {

TEST(Stretches, KeepThePlaceUnderThePointerAndTheEndsOfTheWhole) {
    const Stretch whole{1, 4001};
    EXPECT_EQ(Enlarged(whole, whole, 0.5, 2, 8), (Stretch{1001, 3001}));
    EXPECT_EQ(Enlarged({1001, 3001}, whole, 0.25, 2, 8), (Stretch{1251, 2251}));
    EXPECT_EQ(Enlarged({1, 101}, whole, 0, 2, 8), (Stretch{1, 51}));
    EXPECT_EQ(Enlarged({3901, 4001}, whole, 0.1, 0.5, 8), (Stretch{3801, 4001})) << "the end stays the end";
    EXPECT_EQ(Enlarged({100, 110}, whole, 0.5, 1.01, 2), (Stretch{101, 110}))
        << "a step that can be made is made";
    EXPECT_EQ(Enlarged({100, 108}, whole, 0.5, 4, 8), (Stretch{100, 108}));
    EXPECT_EQ(Enlarged({1, 4}, {1, 4}, 0.5, 2, 8), (Stretch{1, 4})) << "less than the least is all there is";
    EXPECT_EQ(Moved({10, 30}, {1, 41}, -50), (Stretch{1, 21}));
    EXPECT_EQ(Moved({10, 30}, {1, 41}, 50), (Stretch{21, 41}));
    EXPECT_EQ(Moved({10, 90}, {1, 41}, 5), (Stretch{1, 41}));
    std::mt19937 random(9);
    Stretch shown = whole;
    for (int i = 0; i < 3000; ++i) {
        const double share = (random() % 1001) / 1000.0;
        const double factor = std::pow(1.25, static_cast<int>(random() % 9) - 4);
        const Stretch next = Enlarged(shown, whole, share, factor, 8);
        ASSERT_GE(next.First, whole.First);
        ASSERT_LE(next.End, whole.End);
        ASSERT_GE(next.Length(), 8);
        const double before = shown.First + share * shown.Length();
        const double after = next.First + share * next.Length();
        const bool at_an_end = next.First == whole.First || next.End == whole.End;
        if (!at_an_end) {
            ASSERT_NEAR(after, before, 1) << i;
        }
        shown = next;
    }
}

class Scrolling : public RecordOnScreen {
  protected:
    RecordScroll Scroll{Work, Ports.Ports};
    RecordView& View = Work.Record;
};

TEST_F(Scrolling, NothingGetsOutOfSightAndEachPickLandsInItsCell) {
    Write();
    std::mt19937 random(3);
    const auto some = [&](double range) { return (random() % 2001 / 1000.0 - 1) * range; };
    for (int i = 0; i < 300; ++i) {
        const int record = 1 + i % 2;
        if (i % 20 < 2) {
            Zoom.Show_Whole();
            Show(record);
        }
        const int first = (View.Record - 1) * channels + 1;
        switch (random() % 6) {
            case 0:
                Scroll.Enlarge_Time(some(20), some(4));
                break;
            case 1:
                Scroll.Enlarge_Traces(some(20000), some(4));
                break;
            case 2:
                Scroll.Pan(some(30));
                break;
            case 3:
                Scroll.Grab(some(900), some(500));
                Scroll.Drag_To(some(3000), some(3000));
                Scroll.Let_Go();
                break;
            case 4:
                Scroll.Go_To_Sample(static_cast<int>(some(100)));
                break;
            default:
                Scroll.Go_To_Trace(static_cast<int>(some(100)));
        }
        ASSERT_GE(View.FirstTrace, first);
        ASSERT_LE(View.LastTrace, first + channels - 1);
        ASSERT_LE(View.FirstTrace + 1, View.LastTrace);
        ASSERT_GE(View.FirstSample, 1);
        ASSERT_LE(View.LastSample, samples);
        ASSERT_GE(View.LastSample - View.FirstSample, 8);
        // A click into the pixels of a trace on the picture that stands.
        const Frame frame = Ports.Display.Pictures[Canvas::Ecran].Current_Frame();
        const int trace =
            View.FirstTrace + static_cast<int>(random() % (View.LastTrace - View.FirstTrace + 1));
        const int sample = View.FirstSample + 1 + static_cast<int>(random() % 7);
        const double across =
            (trace - View.FirstTrace + 0.5) * frame.Width / (View.LastTrace - View.FirstTrace + 1);
        const double down = (sample - View.FirstSample) * frame.Height / (View.LastSample - View.FirstSample);
        Pointer.Press({frame.To_World_X(across), frame.To_World_Y(down), 1});
        const int receiver = trace - first + 1;
        ASSERT_NEAR(Work.Project.ShotTimes(View.Record, receiver), sample, 0.01) << trace;
    }
}

TEST_F(Scrolling, TheWheelPansThroughTheTimeOrTheTracesAndTurnsTheGain) {
    Write();
    Scroll.Pan(-1);
    EXPECT_EQ(View.FirstTrace, 1) << "all is in sight: nowhere to go";
    Zoom.Zoom_To({4100, 1, 8100, 20});
    const int before = View.FirstTrace;
    for (int part = 0; part < 11; ++part)
        Scroll.Pan(-0.1);
    EXPECT_EQ(View.FirstTrace, before + 1) << "small steps add up, through the traces";
    // The picture follows the hand: dragged by two traces to the left it shows two more on the right.
    const Frame frame = Ports.Display.Pictures[Canvas::Ecran].Current_Frame();
    const double trace = frame.Width / (View.LastTrace - View.FirstTrace + 1);
    Scroll.Grab(frame.Width / 2, 5);
    Scroll.Drag_To(frame.Width / 2 + 2 * trace, 5);
    EXPECT_EQ(View.FirstTrace, std::max(1, before - 1));
    Scroll.Let_Go();
    Scroll.Go_To_Trace(before + 1);
    Scroll.Enlarge_Time(10, 2);
    const int first = View.FirstSample;
    Scroll.Pan(-1);
    EXPECT_GT(View.FirstSample, first) << "down is later";
    EXPECT_EQ(View.FirstTrace, before + 1);
    View.AmplitudeGain = 1;
    std::vector<double> gains;
    for (int step = 0; step < 4; ++step) {
        Scroll.Turn_Gain(1);
        gains.push_back(View.AmplitudeGain);
    }
    EXPECT_EQ(gains, (std::vector<double>{1.3, 1.6, 2, 2.5}));
    for (int step = 0; step < 100; ++step)
        Scroll.Turn_Gain(-1);
    EXPECT_EQ(View.AmplitudeGain, 0.001);
}

TEST_F(Scrolling, SizeFactorsStayWithTheirTraces) {
    Write();
    TextGrid& sizes = Work.Grids.size_grid;
    sizes.Set_Text(3, 0, "4");
    Scroll.Enlarge_Traces(11000, 2);
    ASSERT_EQ(View.LastTrace, 5);
    ASSERT_GT(View.FirstTrace, 1);
    EXPECT_EQ(sizes.Text(4 - View.FirstTrace, 0), "4");
    sizes.Set_Text(5 - View.FirstTrace, 0, "0.5");
    Zoom.Show_Whole();
    EXPECT_EQ(sizes.Text(3, 0), "4");
    EXPECT_EQ(sizes.Text(4, 0), "0.5");
    EXPECT_EQ(sizes.Text(0, 0), "1");
    Zoom.Refresh();
    Scroll.Enlarge_Traces(11000, 1);
    Zoom.Show_Whole();
    EXPECT_EQ(sizes.Text(3, 0), "1");
}

}  // namespace
}  // namespace tarnvik::test
