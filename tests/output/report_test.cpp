// The section page of a report: arcs and their envelope, hatching, true scale, and what stands on the page.

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "core/display_choices.h"
#include "core/text/number.h"
#include "output/depth_arcs.h"
#include "output/hatching.h"
#include "output/report_picture.h"
#include "output/section_report.h"
#include "support/recording_picture.h"
#include "support/test_ports.h"

namespace tarnvik::test {
namespace {

// A refractor that dips by 20 degrees below ground that goes up and down: its distance from each shot is the
// depth, and the envelope is the refractor itself, which no arc crosses.
TEST(DepthArcs, AreTouchedByADippingRefractor) {
    const double slope = std::tan(20 * std::numbers::pi / 180);
    std::vector<DepthArc> arcs;
    for (int shot = 0; shot <= 6; ++shot) {
        const ReportPoint ground{20.0 * shot, 100 + 3 * std::sin(shot)};
        const double above = ground.Z - (90 - slope * ground.X);
        arcs.push_back({ground, above / std::sqrt(1 + slope * slope)});
    }
    const ReportCurve envelope = Envelope_Of_Arcs(arcs);
    for (const ReportPoint& point : envelope) {
        if (point.X > arcs.back().Centre.X - arcs.back().Radius * std::sin(0.35)) break;
        EXPECT_NEAR(point.Z, 90 - slope * point.X, 1e-6) << point.X;
    }
    EXPECT_LT(envelope.front().X, 0) << "the first arc is touched up-dip of its shot";
    for (const DepthArc& arc : arcs) {
        for (const ReportPoint& point : Points_Of_Arc(arc, 30)) {
            EXPECT_LE(Curve_At(envelope, point.X).value_or(point.Z), point.Z + 1e-3);
        }
    }
    // A circle inside its neighbour says nothing.
    EXPECT_NEAR(*Curve_At(Envelope_Of_Arcs({{{0, 0}, 10}, {{1, 0}, 2}, {{2, 0}, 10}}), 1), -std::sqrt(99),
                1e-9);
}

// Over a concave area: every stroke inside, and together as long as the area over their distance.
TEST(Hatching, CoversTheInsideAlone) {
    const std::vector<HatchPoint> notched = {{0, 0}, {100, 0}, {100, 80}, {50, 20}, {0, 80}};
    const double area = 100 * 80 - 0.5 * 100 * 60;
    for (const double angle : {0.0, 45.0, -45.0, 90.0}) {
        double length = 0;
        for (const HatchStroke& stroke : Hatch_Area(notched, angle, 0.5)) {
            length += std::hypot(stroke.To.X - stroke.From.X, stroke.To.Y - stroke.From.Y);
            const double x = (stroke.From.X + stroke.To.X) / 2;
            const double y = (stroke.From.Y + stroke.To.Y) / 2;
            EXPECT_LE(y, 20 + std::abs(x - 50) * 1.2 + 1e-6) << "in the notch at angle " << angle;
        }
        EXPECT_NEAR(length * 0.5, area, 0.01 * area) << angle;
    }
}

/// Three shots with true numbers 2 to 4 over two layers, a valley between them, an offset shot at each end.
class ReportPage : public ::testing::Test {
  protected:
    ReportPage() {
        Project& line = Work.Project;
        line.NbShots = 5;
        line.NbReceivers = 6;
        line.LineLength = 100;
        line.ProjectName = "valley";
        line.CurrentFile = "/lines/valley.tv5";
        Redimension_Project(line);
        for (int shot = 1; shot <= 5; ++shot) {
            line.ShotDistance(shot) = 50 * (shot - 2);
            line.ShotElevation(shot) = 100;
            for (auto* velocity : {&line.VelocityA, &line.VelocityB}) {
                (*velocity)(shot, 1) = 500;
                (*velocity)(shot, 2) = 2000;
            }
            line.InterceptA(shot, 1) = 18;
            line.ShotThickness(shot, 1) = 5;
        }
        line.InterceptB(3, 1) = 22;
        for (int receiver = 1; receiver <= 6; ++receiver) {
            line.ReceiverData(ReceiverDistance, receiver) = static_cast<float>(20 * receiver - 10);
            line.ReceiverData(ReceiverElevation, receiver) = receiver == 2 ? 92 : 100;
        }
        Report.ShownChoice = 1;
        Report.View.Choices.Shape = InterfaceShape::Joined;
        Report.View.Today = "2024-05-06";
    }
    ReportFrame Draw(bool on_paper = false) {
        Page.List.clear();
        return Draw_Report(Work, Report.View, Even_Scale(even_colours, 5000), Page, on_paper);
    }
    bool Says(const std::string& part) const {
        for (const std::string& text : Page.Texts()) {
            if (text.find(part) != std::string::npos) return true;
        }
        return false;
    }

    Workspace Work;
    TestPorts World;
    SectionReport Report{Work, World.Ports};
    RecordingPicture Page{960, 600};
};

TEST_F(ReportPage, ShowsWhatIsKnownWhereItIs) {
    Report.View.Choices.North = "N 35 E";
    const ReportFrame frame = Draw();
    const Colour red = Method_Colour(SectionSource::Shots);
    EXPECT_TRUE(Page.Has_Line(50, 95, 70, 95, red)) << "joined depths";
    // Below the valley the interface would lie above the ground: it follows it.
    const ReportModel model = Model_Of(Work.Project, SectionSource::Shots, InterfaceShape::Joined);
    EXPECT_NEAR(*model.Elevation_Of(1, 30), 92, 1e-9);
    EXPECT_NEAR(*model.Elevation_Of(1, 45), 95, 1e-9);
    EXPECT_NE(Page.Printed("S3"), nullptr) << "its true number";
    EXPECT_EQ(Page.Printed("S1"), nullptr) << "an offset shot";
    EXPECT_TRUE(Says("500 m/s"));
    EXPECT_TRUE(Says("2000 m/s"));
    for (const char* text : {"Line valley", "2024-05-06", "N 35 E", "Distance (m)", "Elev. (m)"})
        EXPECT_TRUE(Says(text)) << text;
    EXPECT_TRUE(Says("Vertical exaggeration " + Format(frame.Exaggeration, "0.0#")));
    // 18 and 22 ms at a critical angle of asin(0.25): half of 500 * 0.004 / (2 cos). One side alone has none.
    ASSERT_EQ(model.Errors.size(), 1U);
    EXPECT_EQ(model.Errors[0].At, (ReportPoint{50, 95}));
    EXPECT_NEAR(model.Errors[0].Half, 0.5 / std::sqrt(1 - 0.0625), 1e-6);
    EXPECT_TRUE(Page.Has_Line(50, 95 - model.Errors[0].Half, 50, 95 + model.Errors[0].Half, colours::Black));

    Report.View.Choices = {};
    Report.View.Choices.Source = SectionSource::Grm;
    Draw();
    EXPECT_TRUE(Says("No depths"));
    EXPECT_TRUE(Page.Of(Drawn::Verb::Line, red).empty());
}

// At 1:500 ten metres are twenty millimetres, whatever the size of the page, and both exaggerations hold.
TEST_F(ReportPage, HasItsTrueScaleOnPaper) {
    ReportChoices& choices = Report.View.Choices;
    Report.Scale = "1:500";
    Report.Exaggeration = "2";
    Report.SourceChoice = Report.ShapeChoice = 0;
    Report.Choice_Changed();
    EXPECT_EQ(choices.Scale, 500);
    const ReportFrame frame = Draw(true);
    const double millimetre = Page.Pixels_Per_Point() * 72 / 25.4;
    EXPECT_TRUE(frame.Fits);
    const Frame world = Page.Current_Frame();
    EXPECT_NEAR(world.To_Pixel_X(60) - world.To_Pixel_X(50), 20 * millimetre, 1e-6);
    EXPECT_NEAR(world.To_Pixel_Y(90) - world.To_Pixel_Y(100), 40 * millimetre, 1e-6);
    EXPECT_TRUE(Says("Horizontal 1:500"));
    EXPECT_TRUE(Says("Vertical 1:250"));
    // 100 m at 1:200 need 500 mm.
    EXPECT_EQ(Report.Scale_Fault(297, 210), "");
    choices.Scale = 200;
    const std::string fault = Report.Scale_Fault(297, 210);
    EXPECT_NE(fault.find("1:200 does not fit the paper"), std::string::npos);
    EXPECT_NE(fault.find("1:500 fits"), std::string::npos) << fault;
    EXPECT_FALSE(Draw(true).Fits);
    EXPECT_TRUE(Says("1:200 does not fit this paper"));
    choices.Scale = 0;
    EXPECT_EQ(Draw(true).Scale, 500) << "the page of 254 mm takes the largest round scale";
}

TEST_F(ReportPage, IsEnlargedAndRemembersItsChoices) {
    const TemporaryFolder folder;
    Work.Choices.Keep_In(folder / "Displays.txt");
    Report.Follow();
    Report.View.Choices.Company = "Survey & Sons";
    Report.View.Choices.Also[2] = true;
    Report.FillChoice = 2;
    Report.Scale = "1:250";
    Report.Choice_Changed();
    Report.Enlarge(50, 95, 4, 4);
    ASSERT_TRUE(Report.View.Enlarged);
    EXPECT_NEAR(Report.View.Enlarged->Right - Report.View.Enlarged->Left, 27.5, 1e-9);
    Report.Move(60, 96);
    EXPECT_EQ(Work.Fields.Text1, "X= 60.0 m  Z= 96.00 m  depth 4.0 m  layer 1");
    Report.Project_Left();
    EXPECT_FALSE(Report.View.Enlarged);
    EXPECT_EQ(Work.Choices.Save(), "");

    SectionReport next(Work, World.Ports);
    Work.Choices.Keep_In(folder / "Displays.txt");
    next.Follow();
    EXPECT_EQ(next.View.Choices, Report.View.Choices);
    EXPECT_EQ(next.Scale, "1:250");
    EXPECT_TRUE(next.Shown());
    Work.Project.CurrentFile = "/lines/other.tv5";
    next.Follow();
    EXPECT_EQ(next.View.Choices.Line, "");
}

}  // namespace
}  // namespace tarnvik::test
