#include <gtest/gtest.h>

#include "traveltime/curve_drawing.h"
#include "traveltime/line_of_shots.h"
#include "traveltime/ruler.h"
#include "traveltime/zoom.h"

using namespace tarnvik;
using namespace tarnvik::test;

namespace {

std::vector<double> Vertical_Lines(const RecordingPicture& picture) {
    std::vector<double> places;
    for (const Drawn& line : picture.Of(Drawn::Verb::Line, colours::LightGrey)) {
        if (line.X1 == line.X2) places.push_back(line.X1);
    }
    return places;
}

void Expect_Corners(const RecordingPicture& picture, double left, double top, double right, double bottom) {
    const Frame frame = picture.Current_Frame();
    EXPECT_EQ(frame.Left, left);
    EXPECT_EQ(frame.Top, top);
    EXPECT_EQ(frame.Right, right);
    EXPECT_EQ(frame.Bottom, bottom);
}

}  // namespace

TEST(CurveFrame, ThinsReceiverLinesAndLabelsByTheirNumber) {
    struct Case {
        int Receivers;
        std::size_t Lines;
        std::string SecondNumber, LastNumber, SecondDistance;
    };
    // Spacing 4.6: the label of receiver 2 shows that a float of 4.6 is not cut to 4.5.
    for (const Case& c :
         {Case{24, 24, "2", "24", "4.6"}, Case{25, 13, "3", "25", "9"}, Case{48, 24, "3", "47", "9"},
          Case{49, 7, "9", "49", "36"}, Case{120, 6, "21", "101", "92"}}) {
        LineOfShots line(1, c.Receivers, 4.6);
        Dessine_Cadre(line.Work, line.Ports);
        const std::vector<std::string> texts = line.Of(Canvas::EchelleX).Texts();
        SCOPED_TRACE(c.Receivers);
        EXPECT_EQ(Vertical_Lines(line.Dromo()).size(), c.Lines);
        ASSERT_EQ(texts.size(), 2 * c.Lines);
        EXPECT_EQ(texts[0], "g=1");
        EXPECT_EQ(texts[1], "m=0");
        EXPECT_EQ(texts[2], c.SecondNumber);
        EXPECT_EQ(texts[3], c.SecondDistance);
        EXPECT_EQ(texts[texts.size() - 2], c.LastNumber);
        const double x = Vertical_Lines(line.Dromo())[1];
        EXPECT_NEAR(x, Position_Ecran(line.Work.Project, std::stoi(c.SecondNumber)), 1e-9);
        EXPECT_NEAR(line.Of(Canvas::EchelleX).Printed(c.SecondNumber)->X1, x - 1, 1e-9);
    }
}

TEST(CurveFrame, TimeGridFollowsTheLatestPick) {
    struct Case {
        float Latest;
        std::string First, Last;
        double FirstY, LastY;
    };
    // Exactly 50 and exactly 500 fall between the rows and keep 1 ms per unit.
    for (const Case& c : {Case{49.9F, "5   ms", "50   ms", 10, 100}, Case{50, "10   ms", "90   ms", 10, 90},
                          Case{100, "10   ms", "90   ms", 10, 90}, Case{150, "15   ms", "135 ms", 10, 90},
                          Case{200, "20   ms", "180 ms", 10, 90}, Case{300, "30   ms", "270 ms", 10, 90},
                          Case{499, "50   ms", "450 ms", 10, 90}, Case{500, "10   ms", "90   ms", 10, 90},
                          Case{501, "100 ms", "900 ms", 10, 90}}) {
        SCOPED_TRACE(c.Latest);
        LineOfShots line(1, 4);
        line.Pick(1, {0, c.Latest});
        Dessine_Cadre(line.Work, line.Ports);
        const auto labels = line.Of(Canvas::EchelleY).Of(Drawn::Verb::Print);
        EXPECT_EQ(labels.front().Text, c.First);
        EXPECT_EQ(labels.back().Text, c.Last);
        EXPECT_EQ(labels.front().Y1, c.FirstY + 2);
        EXPECT_EQ(labels.back().Y1, c.LastY + 2);
        EXPECT_TRUE(line.Dromo().Has_Line(0, c.LastY, 96, c.LastY, colours::LightGrey));
    }
}

TEST(CurveFrame, WindowFollowsZoomScrollBarsAndZeroOnTop) {
    LineOfShots line(1, 24);
    Set_Zoom(line.Work.Curves, 7, 0.5);
    line.Work.Curves.HScroll1.Value = 10;
    Dessine_Cadre(line.Work, line.Ports);
    Expect_Corners(line.Dromo(), 10, 200, 24, 0);
    Expect_Corners(line.Of(Canvas::EchelleX), 10, 0, 24, 10);
    Expect_Corners(line.Of(Canvas::EchelleY), 0, 201, 10, -1);

    line.Work.Curves.ZeroOnTop = true;
    const auto grid = line.Dromo().Of(Drawn::Verb::Line);
    Dessine_Cadre(line.Work, line.Ports);
    Expect_Corners(line.Dromo(), 10, 0, 24, 200);
    Expect_Corners(line.Of(Canvas::EchelleY), 0, 1, 10, 199);
    EXPECT_EQ(line.Dromo().Of(Drawn::Verb::Line).size(), grid.size());
    EXPECT_EQ(line.Dromo().Of(Drawn::Verb::Line).back().Y1, grid.back().Y1);

    RulerF(line.Work, line.Ports).ruler_dromo();
    Expect_Corners(line.Of(Canvas::Regle), 0, 1, 10, 199);
    EXPECT_EQ(line.Of(Canvas::Regle).Texts(), line.Of(Canvas::EchelleY).Texts());
}

TEST(CurveFrame, AnyTypedFactorLeavesAUsableWindow) {
    LineOfShots line(1, 24);
    Zoom zoom(line.Work, line.Ports);
    for (const char* typed : {"", "0", "-3", "x"}) {
        zoom.Combo1 = zoom.Combo2 = typed;
        zoom.Command1();
        EXPECT_EQ(line.Work.Curves.ZoomX, 1) << typed;
        EXPECT_EQ(line.Work.Curves.ZoomY, 1) << typed;
    }
    zoom.Combo1 = zoom.Combo2 = "1E300";
    zoom.Command1();
    const CurveWindow window = Visible_Window(line.Work.Curves);
    EXPECT_GE(window.X2 - window.X1, 1);
    EXPECT_GE(window.Yw - window.Yv, 1);
}

TEST(CurveFrame, ScrollBarsKeepTheirRangeAndTheDialogsMode) {
    LineOfShots line(1, 25);  // 120 m
    line.Pick(1, {120});
    Zoom zoom(line.Work, line.Ports);
    zoom.Combo1 = "4";
    zoom.Combo2 = "2";
    zoom.Command1();
    CurveView& view = line.Work.Curves;
    EXPECT_EQ(view.HScroll1.Max, 72);
    EXPECT_EQ(view.VScroll1.Max, 50);
    line.Display.OnShowCurves = [&line] { line.Draw(); };
    line.Work.Mode.Take(Dialog::SpeedF, DisplayMode::Vitesse);
    HScroll1_Change(line.Work, line.Ports, 60);
    EXPECT_EQ(Distance_Range_Text(line.Work), "75 m to 105");
    EXPECT_EQ(line.Work.Mode.Current(), DisplayMode::Vitesse);
    VScroll1_Change(line.Work, line.Ports, 50);
    EXPECT_EQ(Time_Range_Text(line.Work), "75 ms to 150");
    Set_Zoom(view, 2, 1);
    EXPECT_EQ(view.HScroll1.Value, 48);
    EXPECT_EQ(view.VScroll1.Value, 0);
}

TEST(CurveFrame, ReceiverInterceptsAreMarkedWhenAskedFor) {
    LineOfShots line(1, 4);
    line.Pick(1, {0, 80});
    line.Work.Project.ReceiverData(ReceiverIntercept, 3) = 12.7F;
    line.Work.Curves.ShowReceiverIntercepts = true;
    Dessine_Cadre(line.Work, line.Ports);
    const auto marks = line.Dromo().Of(Drawn::Verb::Circle, colours::Magenta);
    ASSERT_EQ(marks.size(), 1U);
    EXPECT_NEAR(marks[0].X1, 64, 1e-9);
    EXPECT_NEAR(marks[0].Y1, 12.7, 1e-5);
    EXPECT_NE(line.Dromo().Printed("12"), nullptr);
}
