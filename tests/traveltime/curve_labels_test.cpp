#include "traveltime/curve_labels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

#include "traveltime/curve_drawing.h"
#include "traveltime/curve_selection.h"
#include "traveltime/line_of_shots.h"
#include "traveltime/shot_grid.h"
#include "traveltime/zoom.h"

using namespace tarnvik;
using namespace tarnvik::test;

namespace {

/// A line shot along its length, each shot heard by all receivers.
struct FullLine : LineOfShots {
    FullLine(int shots, int receivers) : LineOfShots(shots, receivers, 2) {
        tarnvik::Project& project = Work.Project;
        for (int s = 1; s <= shots; ++s) {
            project.ShotDistance(s) = (s - 0.37) * project.LineLength / shots;
            for (int r = 1; r <= receivers; ++r) {
                const double offset =
                    std::abs(project.ReceiverData(ReceiverDistance, r) - project.ShotDistance(s));
                project.ShotTimes(s, r) = static_cast<float>(1 + 0.5 * offset);
            }
        }
    }
};

void Expect_Apart(const std::vector<CurveLabel>& labels, const Frame& frame) {
    for (auto a = labels.begin(); a != labels.end(); ++a) {
        for (auto b = a + 1; b != labels.end(); ++b) {
            const bool apart = a->X2 <= b->X1 + 1e-9 || b->X2 <= a->X1 + 1e-9 ||
                               std::max(frame.To_Pixel_Y(a->Y1), frame.To_Pixel_Y(b->Y1)) >=
                                   std::min(frame.To_Pixel_Y(a->Y2), frame.To_Pixel_Y(b->Y2)) - 1e-6;
            EXPECT_TRUE(apart) << a->Shot << " covers " << b->Shot;
        }
    }
}

}  // namespace

TEST(CurveLabels, StandBesideTheirLastPointInTheShotsColourAndCoverNoOther) {
    for (const auto& [shots, receivers] :
         std::initializer_list<std::pair<int, int>>{{5, 24}, {9, 48}, {24, 24}, {72, 120}}) {
        SCOPED_TRACE(shots);
        FullLine line(shots, receivers);
        line.Draw();
        const std::vector<CurveLabel>& labels = line.Work.Curves.Labels;
        const Frame frame = line.Dromo().Current_Frame();
        Expect_Apart(labels, frame);
        std::set<int> ends;
        for (const CurveLabel& label : labels) {
            if (std::abs(label.PointX - 96) > 1e-6) continue;  // the foot of its shot
            ends.insert(label.Shot);
            EXPECT_NEAR(label.PointY * line.Work.Curves.TimeFactor,
                        line.Work.Project.ShotTimes(label.Shot, receivers), 1e-3);
            const double away = std::min(std::abs(label.X1 - 96), std::abs(label.X2 - 96)) * 10;
            EXPECT_LT(away, 8) << "pixels from its point";
            const double apart =
                std::abs(frame.To_Pixel_Y((label.Y1 + label.Y2) / 2) - frame.To_Pixel_Y(label.PointY));
            EXPECT_EQ(label.Leader, apart > 10.5) << "a line leads where the number was pushed away";
            Colour colour = 0;
            Shot_Colour(line.Work, label.Shot, colour);
            const auto drawn = line.Dromo().Of(Drawn::Verb::Print, colour);
            EXPECT_TRUE(std::any_of(drawn.begin(), drawn.end(), [&label](const Drawn& text) {
                return text.Text == std::to_string(label.Shot) && text.X1 == label.X1 && text.Y1 == label.Y1;
            }));
        }
        // 500 pixels hold 35 rows of 14, on two sides 70 numbers.
        EXPECT_GE(static_cast<int>(ends.size()), std::min(shots, 64));
        // Numbers of one column follow each other as their points do.
        std::vector<CurveLabel> column;
        std::copy_if(labels.begin(), labels.end(), std::back_inserter(column),
                     [](const CurveLabel& label) { return label.X1 > 96; });
        std::sort(column.begin(), column.end(),
                  [](const CurveLabel& a, const CurveLabel& b) { return a.Y1 < b.Y1; });
        EXPECT_TRUE(
            std::is_sorted(column.begin(), column.end(),
                           [](const CurveLabel& a, const CurveLabel& b) { return a.PointY < b.PointY; }));
    }
}

TEST(CurveLabels, OfACurveThatGoesOnStayInTheEnlargedPart) {
    FullLine line(12, 48);
    for (const bool zero_on_top : {false, true}) {
        line.Work.Curves.ZeroOnTop = zero_on_top;
        for (const double x : {5.0, 40.0, 90.0}) {
            Set_Zoom(line.Work.Curves, 1, 1);
            Enlarge_At(line.Work.Curves, x, 10, 4, 2);
            line.Draw();
            const CurveWindow window = Visible_Window(line.Work.Curves);
            const std::vector<CurveLabel>& labels = line.Work.Curves.Labels;
            EXPECT_FALSE(labels.empty());
            Expect_Apart(labels, line.Dromo().Current_Frame());
            for (const CurveLabel& label : labels) {
                EXPECT_GE(label.X1, window.X1 - 0.3);
                EXPECT_TRUE(window.X2 > 95 || label.X2 <= window.X2 + 1e-9) << "nothing in the margin";
                EXPECT_TRUE(label.PointX >= window.X1 && label.PointX <= window.X2);
            }
        }
    }
}

TEST(CurveLabels, TheCurveUnderThePointerIsLitAndToldAndNoneThatIsLeftOut) {
    FullLine line(3, 24);
    line.Draw();
    const auto at = [&line](int shot, int receiver, double off_pixels) {
        const double x = Position_Ecran(line.Work.Project, receiver);
        const double y = line.Work.Project.ShotTimes(shot, receiver) / line.Work.Curves.TimeFactor;
        const Frame frame = line.Dromo().Current_Frame();
        Light_Curve(line.Work, line.Ports, x, frame.To_World_Y(frame.To_Pixel_Y(y) + off_pixels));
        return line.Work.Curves.Lit;
    };
    EXPECT_EQ(at(3, 4, 0), (PickPlace{3, 4}));
    EXPECT_EQ(at(1, 20, 4), (PickPlace{1, 20}));
    EXPECT_EQ(Lit_Text(line.Work).substr(0, 22), "Shot 1, receiver 20: 1");
    EXPECT_EQ(at(1, 20, -60), PickPlace{}) << "no curve is near";
    EXPECT_EQ(Lit_Text(line.Work), "");
    line.Work.Fields.Check11 = false;
    Toggle_Shot(line.Work, line.Ports, 3);
    line.Draw();
    EXPECT_EQ(at(3, 4, 0), PickPlace{});
    // Where two curves meet the one that the user works on counts.
    line.Work.Fields.Check11 = true;
    const double x =
        (Shot_Position_Ecran(line.Work.Project, 1) + Shot_Position_Ecran(line.Work.Project, 3)) / 2;
    const int receiver = Nearest_Receiver(line.Work.Project, x);
    const double y = line.Work.Project.ShotTimes(1, receiver) / line.Work.Curves.TimeFactor;
    for (const int preferred : {1, 3}) {
        const auto met = Curve_At(line.Work, line.Dromo().Current_Frame(),
                                  Position_Ecran(line.Work.Project, receiver), y, 20, preferred);
        ASSERT_TRUE(met);
        EXPECT_EQ(met->Shot, preferred);
    }
}

TEST(CurveColours, TheOptionGivesADozenThatDiffer) {
    FullLine line(12, 24);
    std::vector<Colour> seen;
    Colour colour = 0;
    line.Work.Curves.DistinctColours = true;
    for (int shot = 1; shot <= 12; ++shot) {
        Shot_Colour(line.Work, shot, colour);
        const auto part = [](Colour c, int shift) { return double((c >> shift) & 255); };
        for (const Colour other : seen) {
            EXPECT_GT(std::hypot(part(colour, 0) - part(other, 0), part(colour, 8) - part(other, 8),
                                 part(colour, 16) - part(other, 16)),
                      50);
        }
        EXPECT_LT(0.3 * part(colour, 0) + 0.59 * part(colour, 8) + 0.11 * part(colour, 16), 165)
            << "dark enough for white paper";
        seen.push_back(colour);
    }
    line.Work.Curves.DistinctColours = false;
    Shot_Colour(line.Work, 6, colour);
    EXPECT_EQ(colour, colours::Blue) << "the rule stays the default";
}
