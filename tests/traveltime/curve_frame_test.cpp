#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

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

namespace {

/// Middle of a printed text across its picture, in pixels; a prefix such as "g=" hangs to the left of it.
double Middle(const RecordingPicture& picture, const Drawn& text) {
    const std::size_t prefix = text.Text.find('=') == std::string::npos ? 0 : 2;
    const double left =
        picture.Current_Frame().To_Pixel_X(text.X1) + picture.Size_Of(text.Text.substr(0, prefix)).Width;
    return left + picture.Size_Of(text.Text.substr(prefix)).Width / 2;
}

double Middle_Row(const RecordingPicture& picture, const Drawn& text) {
    return picture.Current_Frame().To_Pixel_Y(text.Y1) + picture.Size_Of(text.Text).Height / 2;
}

}  // namespace

TEST(CurveFrame, ThinsReceiverLinesByTheirNumber) {
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
        line.Of(Canvas::EchelleX) = RecordingPicture(1600, 30);
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
        EXPECT_NEAR(Vertical_Lines(line.Dromo())[1],
                    Position_Ecran(line.Work.Project, std::stoi(c.SecondNumber)), 1e-9);
    }
}

TEST(CurveFrame, LabelsStandAtTheirLinesAndApartAtAnySizeAndEnlargement) {
    struct Case {
        int Receivers;
        double ZoomX, ZoomY;
        bool ZeroOnTop;
        double Width, Height;
    };
    for (const Case& c : {Case{24, 1, 1, false, 960, 600}, Case{24, 1, 1, true, 300, 200},
                          Case{48, 3.7, 2.2, false, 700, 400}, Case{120, 20, 20, true, 1500, 900},
                          Case{120, 1, 13, false, 200, 90}, Case{72, 6, 1.1, true, 960, 600}}) {
        SCOPED_TRACE(c.Receivers);
        LineOfShots line(1, c.Receivers, 2.5);
        line.Pick(1, {0, 180});
        for (const Canvas canvas : {Canvas::Dromo, Canvas::EchelleX})
            line.Of(canvas) = RecordingPicture(c.Width, c.Height);
        line.Of(Canvas::EchelleY) = RecordingPicture(60, c.Height);
        Scale_Time_Grid(line.Work);
        Enlarge_At(line.Work.Curves, 33, 41, c.ZoomX, c.ZoomY);
        line.Work.Curves.ZeroOnTop = c.ZeroOnTop;
        Dessine_Cadre(line.Work, line.Ports);

        const RecordingPicture& below = line.Of(Canvas::EchelleX);
        const std::vector<Drawn> across = below.Of(Drawn::Verb::Print);
        ASSERT_GE(across.size(), 4U) << "an enlarged part has labels too";
        const std::vector<double> lines = Vertical_Lines(line.Dromo());
        for (std::size_t i = 0; i < across.size(); i += 2) {
            // Number and distance have their middle under the same line.
            const double middle = Middle(below, across[i]);
            EXPECT_NEAR(Middle(below, across[i + 1]), middle, 1e-6);
            EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [&](double x) {
                return std::abs(below.Current_Frame().To_Pixel_X(x) - middle) < 1e-6;
            }));
            if (i < 2) continue;
            for (std::size_t row = 0; row < 2; ++row) {
                const Drawn& before = across[i - 2 + row];
                EXPECT_GT(below.Current_Frame().To_Pixel_X(across[i + row].X1),
                          below.Current_Frame().To_Pixel_X(before.X1) + below.Size_Of(before.Text).Width)
                    << before.Text;
            }
        }
        const RecordingPicture& beside = line.Of(Canvas::EchelleY);
        const std::vector<Drawn> times = beside.Of(Drawn::Verb::Print);
        ASSERT_GE(times.size(), 2U);
        for (std::size_t i = 0; i < times.size(); ++i) {
            const double y = std::stod(times[i].Text) / line.Work.Curves.TimeFactor;
            EXPECT_NEAR(Middle_Row(beside, times[i]), beside.Current_Frame().To_Pixel_Y(y), 1e-6);
            EXPECT_TRUE(line.Dromo().Has_Line(0, y, 96, y, colours::LightGrey));
            if (i > 0) {
                EXPECT_GE(std::abs(Middle_Row(beside, times[i]) - Middle_Row(beside, times[i - 1])), 13.99);
            }
        }
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
        EXPECT_TRUE(line.Dromo().Has_Line(0, c.FirstY, 96, c.FirstY, colours::LightGrey));
        EXPECT_TRUE(line.Dromo().Has_Line(0, c.LastY, 96, c.LastY, colours::LightGrey));
    }
    // Enlarged, the steps are those of a usual scale.
    EXPECT_EQ(Time_Grid(1, 2).Step, 5);
    EXPECT_EQ(Time_Grid(1, 3).Step, 5);
    EXPECT_EQ(Time_Grid(1.5, 4).Step, 5);
    EXPECT_EQ(Time_Grid(2, 20).Step, 1);
    EXPECT_NEAR(Time_Grid(0.5, 20).Step, 0.5, 1e-12);
}

TEST(CurveFrame, TheWheelKeepsThePlaceUnderThePointerAndNothingLeavesThePicture) {
    CurveView view;
    double x = 61.3;
    double y = 22.7;
    for (int step = 0; step < 9; ++step) {
        const CurveWindow before = Visible_Window(view);
        const double share_x = (x - before.X1) / (before.X2 - before.X1);
        const double share_y = (y - before.Yv) / (before.Yw - before.Yv);
        Enlarge_At(view, x, y, 1.25, step % 2 == 0 ? 1.25 : 1);
        const CurveWindow now = Visible_Window(view);
        EXPECT_NEAR((x - now.X1) / (now.X2 - now.X1), share_x, 1e-9);
        EXPECT_NEAR((y - now.Yv) / (now.Yw - now.Yv), share_y, 1e-9);
        EXPECT_NEAR(now.X2 - now.X1, 96 / view.ZoomX, 1e-9);
        EXPECT_GE(view.HScroll1.Value, 0);
        EXPECT_LE(view.HScroll1.Value, view.HScroll1.Max);
    }
    for (const auto& [across, later] : std::initializer_list<std::pair<double, double>>{
             {3.3, 2.1}, {500, 500}, {-1.7, 0}, {-500, -500}, {0.01, 0.02}}) {
        Pan(view, across, later);
        const CurveWindow now = Visible_Window(view);
        EXPECT_GE(now.X1, 0);
        EXPECT_LE(now.X2, 96 + 1e-9);
        EXPECT_GE(now.Yv, 0);
        EXPECT_LE(now.Yw, 100 + 1e-9);
    }
    EXPECT_NEAR(Visible_Window(view).X1, 0.01, 1e-9);
    // The end of a bar is the end of the picture.
    TestPorts ports;
    Workspace work;
    work.Curves = view;
    HScroll1_Change(work, ports.Ports, view.HScroll1.Max);
    EXPECT_NEAR(Visible_Window(work.Curves).X2, 96, 1e-9);
    for (int step = 0; step < 30; ++step)
        Enlarge_At(view, 96, 100, 0.8, 0.8);
    EXPECT_EQ(view.ZoomX, 1);
    EXPECT_EQ(Visible_Window(view), CurveWindow{});
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
