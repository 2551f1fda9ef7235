// DelayF over plane layers: what the delays are known to be, which shots count where, and what the hand does.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <numbers>
#include <optional>
#include <vector>

#include "core/files.h"
#include "core/text/number.h"
#include "depth/abc_grid_f.h"
#include "depth/delay_f.h"
#include "depth/delay_pointer.h"
#include "support/earth_line.h"
#include "support/test_ports.h"

namespace tarnvik {
namespace {

using Handle = DelayF::Handle;
constexpr double degree = std::numbers::pi / 180;
constexpr const char* bedrock_question =
    "Do you want to use the First Breaks of the End Shot instead of FB of the offset shot for the bedrock "
    "portion ?";
constexpr const char* save_question = "Do you want to save the Delay times";
constexpr const char* depth_question = "Compute thickness below all reveivers";

/// 24 receivers over 115, end shots at both ends, offset shots so far away that all of the line is bedrock
/// for them.
struct DelayLine : testing::Test {
    void Lay(const LayeredEarth& earth) {
        test::Lay_Line(Work, earth, 24, 5, {-120, 0, 115, 415});
        Scale_Time_Grid(Work);
    }
    void Open() {
        Form.emplace(Work, World.Ports, Files);
        Mouse.emplace(Work, World.Ports, *Form);
        Form->Load();
    }
    /// The offset curves exactly onto the end shots at the far ends, the line at the time between these.
    void Fit(const LayeredEarth& earth) {
        const double factor = Work.Curves.TimeFactor;
        Form->Shift(Handle::LeftCurve, (Line.ShotTimes(1, 24) - Line.ShotTimes(2, 24)) / factor);
        Form->Shift(Handle::RightCurve, (Line.ShotTimes(4, 1) - Line.ShotTimes(3, 1)) / factor);
        // Not cut to a tenth, so that what is left is the method's own.
        Form->Set_Total_Time(earth.First_Arrival({0, 0}, {115, 0}));
    }
    void Compute(Answer save = Answer::Yes) {
        World.Prompts.Expect(bedrock_question, Answer::No);
        World.Prompts.Expect(save_question, save);
        if (save == Answer::Yes) World.Prompts.Expect(depth_question, Answer::No);
        Form->Command2();
    }
    double D(int receiver) const { return Form->Found().at(static_cast<std::size_t>(receiver)).D.value(); }

    Workspace Work;
    Project& Line = Work.Project;
    test::TestPorts World;
    int Saves = 0;
    FileRoutines Files = [this] {
        FileRoutines files;
        files.SaveProject = [this](Workspace& work, Ports&) {
            ++Saves;
            work.Project.TotalTime += 1;
            return true;
        };
        return files;
    }();
    std::optional<DelayF> Form;
    std::optional<DelayPointer> Mouse;
};

TEST_F(DelayLine, delays_are_those_of_the_layers) {
    for (const double dip : {0.0, 5.0, 10.0}) {
        SCOPED_TRACE(dip);
        const LayeredEarth earth({{600, 26, dip * degree}, {2400}});
        Work = {};
        Lay(earth);
        Open();
        Fit(earth);
        Compute();
        // Twice the distance to the boundary at right angles, at the cosine of the critical angle; the total
        // time stands cut to a tenth.
        const double cosine = std::sqrt(1 - std::pow(600.0 / 2400, 2));
        for (int receiver = 1; receiver <= 24; ++receiver) {
            const double normal = earth.Normal_Distance(1, {(receiver - 1) * 5.0, 0});
            const double delay = 2 * normal * cosine / 600 * 1000;
            EXPECT_NEAR(D(receiver), delay, 0.101) << receiver;
            const double stored = Line.ReceiverData(ReceiverIntercept, receiver);
            EXPECT_FLOAT_EQ(static_cast<float>(stored), static_cast<float>(Int(10 * D(receiver)) / 10));
        }
    }
}

TEST_F(DelayLine, end_shots_count_between_the_limits_as_the_last_test_says) {
    Lay(LayeredEarth::Horizontal(std::array{500.0, 2000.0}, std::array{6.0}));
    Open();
    Form->Shift(Handle::LeftCurve, 10);
    Form->Shift(Handle::RightCurve, -4);
    Form->Set_Total_Time(30);
    const double factor = Work.Curves.TimeFactor;
    const auto expected = [&](bool left_end, bool right_end, int r) {
        const double left = left_end ? Line.ShotTimes(2, r) : Line.ShotTimes(1, r) - 10 * factor;
        const double right = right_end ? Line.ShotTimes(3, r) : Line.ShotTimes(4, r) + 4 * factor;
        return left + right - 30;
    };
    const struct {
        const char* P;
        const char* Q;
        int First;
        int Last;
    } cases[] = {{"8", "15", 8, 15}, {"1", "24", 1, 24}, {"0", "25", 1, 24}, {"15", "8", 15, 8}};
    for (const auto& [p, q, first, last] : cases) {
        SCOPED_TRACE(p);
        World.Prompts.Expect(bedrock_question, Answer::Yes);
        const std::string prompt =
            "Enter the number of the first receiver corresponding to the bedrock on the End shot ";
        World.Prompts.Expect_Input(prompt + "1", p);
        World.Prompts.Expect_Input(prompt + "24", q);
        World.Prompts.Expect(save_question, Answer::Yes);
        World.Prompts.Expect(depth_question, Answer::No);
        Form->Command2();
        for (int r = 2; r <= 23; ++r) {
            bool left_end = r > last || (r >= first && r <= last);
            bool right_end = r < first || (r >= first && r <= last);
            // Crossed limits: between them the test made later counts.
            if (first > last) {
                left_end = r >= last;
                right_end = r < last;
            }
            EXPECT_DOUBLE_EQ(D(r), expected(left_end, right_end, r)) << r;
            // Whichever shots count, the slid times are kept for the analysis that follows.
            EXPECT_DOUBLE_EQ(Line.GrmData(1, r), std::max(0.0, Line.ShotTimes(1, r) - 10 * factor));
            EXPECT_DOUBLE_EQ(Line.GrmData(2, r), Line.ShotTimes(4, r) + 4 * factor);
        }
    }
}

TEST_F(DelayLine, missing_picks_and_sums_below_0) {
    Lay(LayeredEarth::Horizontal(std::array{500.0, 2000.0}, std::array{6.0}));
    Line.ShotTimes(1, 5) = 0;
    Line.ReceiverData(ReceiverIntercept, 5) = 7;
    Open();
    Form->Shift(Handle::LeftCurve, 10);
    Form->Set_Total_Time(500);
    Compute();
    EXPECT_FALSE(Form->Found().at(5).D);
    EXPECT_EQ(Line.ReceiverData(ReceiverIntercept, 5), 0);
    EXPECT_EQ(Line.GrmData(1, 5), 0);
    EXPECT_GT(Line.GrmData(2, 5), 0);
    EXPECT_LT(D(6), 0);
    EXPECT_EQ(Line.ReceiverData(ReceiverIntercept, 6), 0);
    // A sum below 0 has its point and its number all the same.
    test::RecordingPicture picture;
    Work.Curves.Overlays.at(Dialog::DelayF).Standing(picture);
    EXPECT_EQ(picture.Of(test::Drawn::Verb::Circle).size(), 23U);

    // Both end shots at one receiver: that one is left alone.
    Form->FixedRight = Form->FixedLeft;
    Line.ReceiverData(ReceiverIntercept, 1) = 3;
    Compute();
    EXPECT_EQ(Line.ReceiverData(ReceiverIntercept, 1), 3);
    EXPECT_EQ(Line.ReceiverData(ReceiverIntercept, 2), 0);
}

TEST_F(DelayLine, refused_moves_leave_everything) {
    Lay(LayeredEarth::Horizontal(std::array{500.0, 2000.0}, std::array{6.0}));
    Open();
    Form->Move(Handle::LeftCurve, 12);
    Form->MovingLeft = "5";
    Form->Move(Handle::LeftCurve, 40);
    EXPECT_EQ(World.Prompts.Last_Text(), "Impossible, wrong Shot number...");
    EXPECT_EQ(Form->VScroll1.Value, 12);
    Form->MovingLeft = "";
    Form->Move(Handle::LeftCurve, 40);
    EXPECT_EQ(World.Prompts.Last_Text(), "Value missing...");
    EXPECT_EQ(Form->VScroll1.Value, 0);
    EXPECT_EQ(Form->Curve_Of(Handle::LeftCurve).Shift, 0);
    Form->Command2();
    EXPECT_TRUE(Form->Found().empty()) << "nothing was moved";
    EXPECT_FALSE(Form->SaveEnabled);

    Line.VelocityA(2, 3) = 3000;
    Line.TotalTime = 44;
    World.Prompts.Expect(" To compute ABC method all shot must have the same number of layers, Quit ?",
                         Answer::Yes);
    Form->Load();
    EXPECT_FALSE(Work.Mode.Held_By(Dialog::DelayF));
    EXPECT_EQ(Line.TotalTime, 0);
    EXPECT_EQ(Work.Edits.Undo(Line), "");
    EXPECT_EQ(Line.TotalTime, 44) << "the former reciprocal time comes back";
    Work.Project = {};
    Form->Load();
    EXPECT_EQ(World.Prompts.Last_Text(), "Bad file or no file loaded");
}

TEST_F(DelayLine, a_save_keeps_the_total_time_of_the_line) {
    Lay(LayeredEarth::Horizontal(std::array{500.0, 2000.0}, std::array{6.0}));
    Open();
    Form->Move(Handle::LeftCurve, 10);
    Form->Move(Handle::TotalLine, 37);
    const double total = 37 * Work.Curves.TimeFactor;
    EXPECT_EQ(Line.TotalTime, total);
    Compute();
    EXPECT_EQ(Saves, 1);
    EXPECT_EQ(Line.TotalTime, total + 1) << "as each save leaves it";
    const double before = D(10);
    EXPECT_EQ(Line.remark_grid.Text(7, 10), Format(Line.ReceiverData(ReceiverIntercept, 10), "##00.0"));
    Compute(Answer::No);
    EXPECT_EQ(Saves, 1);
    EXPECT_FLOAT_EQ(Line.ReceiverData(ReceiverIntercept, 10), static_cast<float>(Int(10 * before) / 10));
    EXPECT_FALSE(Work.Mode.Held_By(Dialog::DelayF)) << "No closes the dialog";
}

TEST_F(DelayLine, the_hand_takes_curve_and_line) {
    Lay(LayeredEarth::Horizontal(std::array{500.0, 2000.0}, std::array{6.0}));
    Open();
    auto& dromo = World.Display.Canvas_Of(Canvas::Dromo);
    dromo.Scale(0, 100, 96, 0);
    const auto drag = [this](double x, double from, double to) {
        Mouse->Press({x, from, true, false});
        Mouse->Move({x, (from + to) / 2, true, false});
        Mouse->Move({x, to, true, false});
        Mouse->Release({x, to, false, false});
    };
    const double factor = Work.Curves.TimeFactor;
    const double x = Position_Ecran(Line, 20);
    const double y = Line.ShotTimes(1, 20) / factor;
    drag(x, y, y - 15.2);
    EXPECT_EQ(Form->VScroll1.Value, 15) << "in whole units, as the bar";
    EXPECT_EQ(Form->VScroll2.Value, 0);
    drag(40, 0, 31);
    EXPECT_EQ(Line.TotalTime, Int(10 * (factor * 31)) / 10);
    Mouse->Key(38);
    Mouse->Key(34);
    EXPECT_EQ(Form->VScroll3.Value, 22) << "the keys move what was taken last";
    drag(40, 22, 999);
    EXPECT_EQ(Form->VScroll3.Value, 250);
    // Undone, the line stands where its time is.
    EXPECT_EQ(Work.Edits.Undo(Line), "");
    Form->Project_Went_Back();
    EXPECT_EQ(Form->VScroll3.Value, 0) << "all moves that follow each other are one edit";
    drag(50, 8, 30);
    EXPECT_EQ(Form->VScroll1.Value, 15) << "a press beside all of them moves nothing";
}

TEST_F(DelayLine, depth_below_each_receiver_of_two_layers_is_the_earths) {
    const LayeredEarth earth({{600, 14, 5 * degree}, {2400}});
    Lay(earth);
    Open();
    Fit(earth);
    Compute();
    for (const int shot : {2, 3}) {
        for (auto* side : {&Line.VelocityA, &Line.VelocityB}) {
            (*side)(shot, 1) = 600;
            (*side)(shot, 2) = 2400;
        }
    }
    ABCGridF abc(Work, World.Ports, Files);
    abc.Load();
    int profiles = 0;
    abc.Show_Profile = [&profiles] { ++profiles; };
    abc.CalculBt();
    EXPECT_EQ(profiles, 1);
    EXPECT_EQ(Depth_Label(Work.Section.Source), "Grid using ABC data");
    for (int receiver = 1; receiver <= 24; ++receiver) {
        // Half a tenth of a millisecond, twice, is 0.06 of depth at this velocity.
        EXPECT_NEAR(Line.ReceiverData(ReceiverRockDepth, receiver),
                    earth.Normal_Distance(1, {(receiver - 1) * 5.0, 0}), 0.07)
            << receiver;
    }
}

}  // namespace
}  // namespace tarnvik
