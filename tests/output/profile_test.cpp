#include "output/profile.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/edits/project_block.h"
#include "output/line_for_profiles.h"
#include "output/profile_painting.h"
#include "support/test_ports.h"
#include "traveltime/zoom.h"

namespace tarnvik::test {
namespace {

using Verb = Drawn::Verb;

constexpr Colour grm_colour = 128;

class ProfileTest : public testing::Test {
  protected:
    ProfileTest() { Paint_On_Request(Work); }
    /// The display shows the profile that stands, as the window does.
    void Paint_On_Request(Workspace& workspace) {
        Test.Display.OnShowProfile = [this, &workspace] {
            EXPECT_EQ(Paint_Profile(workspace, Drawing(), Strip()), "");
        };
    }
    void Draw(DisplayMode mode = DisplayMode::Profil) {
        Work.Mode.Display(mode);
        Draw_Seismic_Profile(Work, Test.Ports);
    }
    RecordingPicture& Drawing() { return Test.Display.Pictures[Canvas::Dromo1]; }
    RecordingPicture& Strip() { return Test.Display.Pictures[Canvas::EchelleY1]; }

    /// Centres' depths of the arcs of one colour: each starts with a point 30 degrees to the left.
    std::vector<double> Arc_Radii(Colour colour, double x) {
        std::vector<double> radii;
        for (const Drawn& point : Drawing().Of(Verb::Point, colour)) {
            const double radius = (x - point.X1) / std::sin(30 * 3.14159 / 180);
            if (std::abs(point.Y1 - (90 - radius * std::cos(30 * 3.14159 / 180))) < 1e-9)
                radii.push_back(radius);
        }
        return radii;
    }

    void Give_Layers(int shot, std::array<double, 4> thicknesses) {
        for (int layer = 1; layer <= 4; ++layer) {
            Work.Project.ShotThickness(shot, layer) = thicknesses.at(static_cast<std::size_t>(layer) - 1);
        }
        for (int layer = 1; layer <= 5; ++layer) {
            Work.Project.VelocityA(shot, layer) = static_cast<std::int16_t>(500 * layer);
            Work.Project.VelocityB(shot, layer) = static_cast<std::int16_t>(500 * layer + 1);
        }
    }

    Workspace Work = Flat_Line();
    TestPorts Test;
};

TEST_F(ProfileTest, DrawsGroundMarksAndNamesWhereTheyStand) {
    Draw();
    // elevation 100 below a top of 110 is y 90; x is 10 metres to the right of the distance
    EXPECT_EQ(Drawing().Current_Frame(), (Frame{0, 100, 200, 0, 960, 500}));
    EXPECT_EQ(Strip().Current_Frame(), (Frame{0, 101, 10, -1, 960, 500}));
    EXPECT_EQ(Work.Curves.FrameDrawn, 2);
    EXPECT_EQ(Drawing().Of(Verb::Line, colours::LightGrey).size(), 10U);
    const auto ground = Drawing().Of(Verb::Line, colours::Lime);
    const double expected[][4] = {{10, 90, 40, 90},  {40, 90, 70, 90},   {70, 90, 85, 90},
                                  {70, 90, 100, 90}, {100, 90, 160, 90}, {160, 90, 190, 90}};
    ASSERT_EQ(ground.size(), std::size(expected));
    for (std::size_t i = 0; i < ground.size(); ++i) {
        EXPECT_EQ(ground[i].X1, expected[i][0]) << i;
        EXPECT_EQ(ground[i].Y1, expected[i][1]) << i;
        EXPECT_EQ(ground[i].X2, expected[i][2]) << i;
        EXPECT_EQ(ground[i].Y2, expected[i][3]) << i;
    }
    const auto geophones = Drawing().Of(Verb::FilledBox, colours::Yellow);
    ASSERT_EQ(geophones.size(), 4U);
    EXPECT_EQ(geophones[1].X1, 69.5);
    EXPECT_EQ(geophones[1].Y2, 91);
    EXPECT_TRUE(Drawing().Has_Line(70, 89, 70, 90, colours::Black));
    const double shot_mark[][2] = {{83, 92}, {85, 91}, {84, 94}, {85, 92}, {86, 93}, {85, 90}};
    double x = 85;
    double y = 90;
    for (const auto& corner : shot_mark) {
        EXPECT_TRUE(Drawing().Has_Line(x, y, corner[0], corner[1], colours::Red)) << x << " " << y;
        x = corner[0];
        y = corner[1];
    }
    const auto names = Drawing().Of(Verb::Print);
    ASSERT_EQ(names.size(), 3U);
    EXPECT_EQ(Drawing().Texts(), (std::vector<std::string>{"Shot 1", "Shot 2", "Shot 2"}));
    EXPECT_EQ(names[0].X1, 0);
    EXPECT_EQ(names[1].X1, 85);
    EXPECT_EQ(names[2].X1, 190);  // the last one is always one less than the number of shots
    EXPECT_EQ(names[2].Y1, 99);
}

TEST_F(ProfileTest, DrawsNoShotBetweenTheLastTwoReceiversIntoTheGround) {
    Work.Project.ShotDistance(2) = 120;
    Draw();
    EXPECT_EQ(Drawing().Of(Verb::Line, colours::Lime).size(), 5U);
    EXPECT_EQ(Drawing().Texts().size(), 2U);
    EXPECT_TRUE(Drawing().Has_Line(130, 90, 128, 92, colours::Red)) << "its mark stands all the same";
}

TEST_F(ProfileTest, DrawsAnArcForEachLayerDownToTheFirstWithoutAThickness) {
    Give_Layers(2, {5, 7, 0, 9});
    Draw();
    const std::vector<double> radii = Arc_Radii(colours::Red, 85);
    ASSERT_EQ(radii.size(), 4U);
    EXPECT_NEAR(radii[0], 0.3, 1e-9);
    EXPECT_NEAR(radii[1], 5, 1e-9);
    EXPECT_NEAR(radii[3], 12, 1e-9);
    // the lowest point of the arc is straight below the shot, reached from 5 degrees left of it
    const double a = -5 * 3.14159 / 180;
    EXPECT_TRUE(Drawing().Has_Line(85 + 12 * std::sin(a), 90 - 12 * std::cos(a), 85, 78, colours::Red, 1e-9));
    EXPECT_EQ(Drawing().Of(Verb::Line, colours::Red).size(), 3 * 6U + 4 * 12U);
}

TEST_F(ProfileTest, LabelsTheArcsWithTheVelocityBelowAndFromLayer2OnTheSurfaceVelocity) {
    Give_Layers(3, {5, 7, 0, 0});
    Give_Layers(2, {4, 0, 0, 0});
    Draw();
    EXPECT_EQ(Drawing().Texts(), (std::vector<std::string>{"Shot 1", "Shot 2", "Shot 2", "1000m/s", "1000m/s",
                                                           "500m/s", "1500m/s"}));
    const auto texts = Drawing().Of(Verb::Print);
    EXPECT_EQ(texts[3].X1, 85 - 15);  // the last shot but one has its labels to the left
    EXPECT_EQ(texts[3].Y1, 90 - 4);
    EXPECT_EQ(texts[4].X1, 190 + 2);
    EXPECT_EQ(texts[4].Y1, 90 - 5);
    EXPECT_EQ(texts[5].Y1, 90 + 5);
    EXPECT_EQ(texts[6].Y1, 90 - 12);

    Work.Settings.Units = "feet";
    Draw();
    EXPECT_NE(Drawing().Printed("1500f/s"), nullptr);
    EXPECT_NE(Strip().Printed("100.0f"), nullptr);
}

TEST_F(ProfileTest, DrawsNoMarksFrom20ShotsOnButTheArcs) {
    for (const int shots : {19, 20}) {
        Workspace many = Flat_Line();
        many.Project.NbShots = static_cast<std::int16_t>(shots);
        Redimension_Project(many.Project);
        for (int shot = 1; shot <= shots; ++shot) {
            many.Project.ShotDistance(shot) = 180.0 * (shot - 1) / (shots - 1);
            many.Project.ShotElevation(shot) = 100;
        }
        many.Project.ShotThickness(4, 1) = 5;
        Paint_On_Request(many);
        Draw_Seismic_Profile(many, Test.Ports);
        const std::size_t arcs = 2 * 12;
        EXPECT_EQ(Drawing().Of(Verb::Line, colours::Red).size(), shots < 20 ? arcs + 6 * 19 : arcs);
    }
}

TEST_F(ProfileTest, ShowsReceiverAndGrmDepthsByMode) {
    Project& project = Work.Project;
    project.ReceiverData(ReceiverRockDepth, 2) = 12;
    project.ReceiverData(ReceiverDepth1, 2) = 3;
    project.ReceiverData(ReceiverDepth2, 2) = 6;
    project.ReceiverData(ReceiverDepth1, 3) = -4;
    project.GrmData(9, 2) = 10;
    struct Case {
        DisplayMode Mode;
        std::size_t ReceiverArcs;
        std::size_t GrmArcs;
    };
    for (const Case& c : {Case{DisplayMode::Profil, 0, 0},
                          {DisplayMode::Profil2, 3, 0},
                          {DisplayMode::Profil3, 3, 1},
                          {DisplayMode::Profil4, 0, 1}}) {
        Draw(c.Mode);
        EXPECT_EQ(Drawing().Of(Verb::Point, colours::Blue).size(), c.ReceiverArcs) << Word_Of(c.Mode);
        EXPECT_EQ(Drawing().Of(Verb::Arc, grm_colour).size(), c.GrmArcs) << Word_Of(c.Mode);
    }
    Draw(DisplayMode::Profil3);
    const std::vector<double> radii = Arc_Radii(colours::Blue, 70);
    ASSERT_EQ(radii.size(), 3U);
    EXPECT_NEAR(radii[0], 12, 1e-9);
    EXPECT_NEAR(radii[1], 3, 1e-9);
    EXPECT_NEAR(radii[2], 6, 1e-9);
    const Drawn arc = Drawing().Of(Verb::Arc).front();
    EXPECT_EQ(arc.X1, 70);
    EXPECT_EQ(arc.Y1, 90);
    EXPECT_DOUBLE_EQ(arc.Radius, 11.6);
    EXPECT_EQ(arc.Start, 3.73065);
    EXPECT_EQ(arc.End, 5.69415);
    EXPECT_EQ(arc.Aspect, 1);
}

TEST_F(ProfileTest, ScalesRadiiTwiceAndGrmArcsOnce) {
    Give_Layers(2, {5, 0, 0, 0});
    Work.Project.ReceiverData(ReceiverRockDepth, 2) = 4;
    Work.Project.GrmData(9, 2) = 10;
    Draw(DisplayMode::Profil3);
    Work.Profile.ProfileVScale = 2;  // never left so by a drawing; the ground is at 100 - 2 * 10
    RecordingPicture painted;
    RecordingPicture strip;
    ASSERT_EQ(Paint_Profile(Work, painted, strip), "");
    const auto lowest_of = [&painted](double x, Colour colour) {
        double lowest = 100;
        for (const Drawn& line : painted.Of(Verb::Line, colour)) {
            if (std::abs(line.X2 - x) < 1e-9) lowest = std::min(lowest, line.Y2);
        }
        return lowest;
    };
    EXPECT_NEAR(lowest_of(70, colours::Blue), 80 - 4 * 2 * 2, 1e-9);
    EXPECT_NEAR(lowest_of(85, colours::Red), 80 - 5 * 2, 1e-9);
    EXPECT_DOUBLE_EQ(painted.Of(Verb::Arc).front().Radius, 1.16 * 20);
    ASSERT_NE(painted.Printed("1000m/s"), nullptr);
    EXPECT_EQ(painted.Printed("1000m/s")->Y1, 80 - 5 * 2 * 2);
    ASSERT_NE(strip.Printed("50.0m"), nullptr);  // (110 - 10) / 2
}

TEST_F(ProfileTest, DoublesTheDrawingOfAHighProfileButNotItsLabels) {
    const auto highest_factor_1 = [this](double thickness) {
        Give_Layers(2, {thickness, 0, 0, 0});
        Draw();
        return Work.Profile.ProfileVFactor;
    };
    EXPECT_EQ(highest_factor_1(90), 1);  // 90 and the 10 above the ground are just 100
    EXPECT_EQ(highest_factor_1(90.5), 2);
    EXPECT_TRUE(Drawing().Has_Line(10, 80, 40, 80, colours::Lime)) << "10 below the top, twice as far";
    ASSERT_NE(Strip().Printed("90.0m"), nullptr);
    EXPECT_EQ(Strip().Printed("90.0m")->Y1, 90) << "where the drawing has 105";
    EXPECT_EQ(Strip().Texts().size(), 9U);
    EXPECT_EQ(Strip().Texts().back(), "-70.0m");
    EXPECT_EQ(Strip().Of(Verb::Point, colours::ScaleBlue).size(), 9U);
}

TEST_F(ProfileTest, PutsTheTopAlwaysAboveTheHighestShot) {
    for (const auto& [elevation, top] : {std::pair{99.9, 100.0}, {100, 110}, {-5, 10}}) {
        Work = Flat_Line();
        for (int shot = 1; shot <= 3; ++shot)
            Work.Project.ShotElevation(shot) = elevation;
        if (elevation < 0) Test.Prompts.Expect_Input("Maximum profile elevation", "5");
        Draw();
        EXPECT_EQ(Work.Profile.ProfileMaxElevation, top) << elevation;
        EXPECT_EQ(Work.Profile.ProfileMinElevation, elevation);
    }
}

TEST_F(ProfileTest, OffersTheElevationsOfBeforeAndDrawsThoseThatAreTypedAtOnce) {
    for (int shot = 1; shot <= 3; ++shot)
        Work.Project.ShotElevation(shot) = 0;
    Test.Prompts.Expect_Input("Maximum profile elevation", "20");
    Test.Prompts.Expect_Input("Minimum profile elevation", "-5.5");
    Draw();
    EXPECT_EQ(Test.Prompts.InputDefaults.back(), "");
    EXPECT_EQ(Work.Profile.ProfileMaxElevation, 30);
    EXPECT_EQ(Work.Profile.ProfileMinElevation, -5.5);
    Test.Prompts.Expect_Input("Maximum profile elevation", "20");
    Test.Prompts.Expect_Input("Minimum profile elevation", "-7");
    Draw();
    EXPECT_EQ(Test.Prompts.InputDefaults.back(), "-5.5");
    EXPECT_EQ(Work.Profile.GivenMinElevation, -7);

    Drawing().List.clear();
    Give_Profile_Elevations(Work, Test.Ports, {45, -7});
    EXPECT_EQ(Work.Profile.ProfileMaxElevation, 50);
    EXPECT_EQ(Work.Profile.ProfileVFactor, 1);
    EXPECT_FALSE(Drawing().List.empty());
    Give_Profile_Elevations(Work, Test.Ports, {45, -51});
    EXPECT_EQ(Work.Profile.ProfileVFactor, 2) << "more than 100 units high";
    Give_Profile_Elevations(Work, Test.Ports, {{}, -51});
    EXPECT_EQ(Work.Profile.ProfileMaxElevation, 10) << "of the line again";
    Drawing().List.clear();
    Give_Profile_Elevations(Work, Test.Ports, {1e300, -51});
    EXPECT_TRUE(Drawing().List.empty());
    Work.Curves.FrameDrawn = 1;
    Give_Profile_Elevations(Work, Test.Ports, {30, 0});
    EXPECT_TRUE(Drawing().List.empty()) << "no profile stands";
}

TEST_F(ProfileTest, WarnsOfAnElevationSpanAbove90AndDraws) {
    Work.Project.ShotElevation(3) = 190;
    Draw();
    EXPECT_TRUE(Test.Prompts.Messages.empty());
    Work.Project.ShotElevation(3) = 191;
    Draw();
    ASSERT_EQ(Test.Prompts.Messages.size(), 1U);
    EXPECT_EQ(Test.Prompts.Last_Text(), "Impossible, elevation difference is more than 90 meters !");
    EXPECT_FALSE(Drawing().Of(Verb::Line, colours::Lime).empty());
}

TEST_F(ProfileTest, TakesExtremesFromTheShotsOnTheLineAlone) {
    Work.Project.ShotDistance(1) = -50;
    Work.Project.ShotElevation(1) = 300;
    Give_Layers(1, {95, 0, 0, 0});
    Draw();
    EXPECT_EQ(Work.Profile.ProfileMaxElevation, 110);
    EXPECT_EQ(Work.Profile.ProfileVFactor, 1);
    EXPECT_TRUE(Test.Prompts.Messages.empty());
    EXPECT_EQ(Drawing().Texts().front(), "Shot 2");
}

TEST_F(ProfileTest, RefusesALineOfLength0AndLeavesTheProject) {
    Project& project = Work.Project;
    project.ReceiverData(ReceiverElevation, 2) = 110;
    Draw();
    const std::size_t drawn = Drawing().List.size();
    const Array2<float> before = project.ReceiverData;
    const Array1<double> places = project.ShotDistanceZ;
    project.LineLength = 0;
    Draw();
    ASSERT_EQ(Test.Prompts.Messages.size(), 1U);
    EXPECT_EQ(Test.Prompts.Messages[0].Title, "Seismic profile Error");
    EXPECT_EQ(project.ReceiverData, before);
    EXPECT_EQ(project.ShotDistanceZ, places);
    EXPECT_EQ(Drawing().List.size(), drawn) << "the picture of before stands";
}

TEST_F(ProfileTest, CorrectsTheDistancesAsAnEditWhenTheUserStartsItAndNeverWhenItIsShownAgain) {
    Project& project = Work.Project;
    project.ReceiverData(ReceiverElevation, 2) = 118;
    Work.Edits.Start(project, true);
    const std::string start = Project_Block(project);
    Draw();
    EXPECT_EQ(project.ReceiverData(ReceiverDistance, 2), 54);  // 30 + root of 30 * 30 - 18 * 18
    EXPECT_EQ(Work.Edits.Undo_Name(), "Horizontal distances of the profile");
    EXPECT_FALSE(Work.Edits.Is_Saved());
    EXPECT_NE(Work.Fields.Status.find("horizontal"), std::string::npos);
    const std::size_t drawn = Drawing().List.size();
    Drawing().List.clear();
    Test.Ports.Show.Show_Profile();
    EXPECT_EQ(Drawing().List.size(), drawn);
    EXPECT_EQ(project.ReceiverData(ReceiverDistance, 2), 54);
    Draw();
    EXPECT_FLOAT_EQ(project.ReceiverData(ReceiverDistance, 2), 45.874508F);  // 30 + root of 24*24 - 18*18
    ASSERT_EQ(Work.Edits.All().size(), 2U);
    EXPECT_EQ(Work.Edits.Go_To(project, 0), "");
    EXPECT_EQ(Project_Block(project), start);
    EXPECT_TRUE(Work.Edits.Is_Saved());
}

TEST_F(ProfileTest, ChangesNothingOfALineThatIsFlat) {
    Work.Edits.Start(Work.Project, true);
    const std::string start = Project_Block(Work.Project);
    Draw(DisplayMode::Profil3);
    EXPECT_EQ(Project_Block(Work.Project), start);
    EXPECT_TRUE(Work.Edits.All().empty());
    EXPECT_TRUE(Work.Edits.Is_Saved());
    EXPECT_EQ(Work.Fields.Status, "");
}

TEST_F(ProfileTest, ShowsTheWholeLineWhenStartedAndItsWindowWhenShownAgain) {
    Set_Zoom(Work.Curves, 5, 4);
    Work.Curves.HScroll1.Value = 30;
    Work.Curves.VScroll1.Value = 7;
    Work.Profile.ZoomX = 4;
    Work.Profile.Across = 30;
    Draw();
    EXPECT_EQ(Work.Curves.ZoomX, 1);
    EXPECT_EQ(Work.Curves.ZoomY, 1);
    EXPECT_EQ(Work.Curves.HScroll1.Value, 0);
    EXPECT_EQ(Drawing().Current_Frame(), (Frame{0, 100, 200, 0, 960, 500}));
    Work.Profile.ZoomX = 4;
    Work.Profile.ZoomY = 2;
    Work.Profile.Across = 30;
    Work.Profile.Up = 7;
    Test.Ports.Show.Show_Profile();
    EXPECT_EQ(Drawing().Current_Frame(), (Frame{8, 54, 58, 4, 960, 500}));  // halves to even
    EXPECT_EQ(Strip().Current_Frame(), (Frame{0, 55, 10, 3, 960, 500}));
}

TEST_F(ProfileTest, StandsBesideTheCurvesInTheCombinedDisplay) {
    Work.Project.GrmData(9, 2) = 10;
    Set_Zoom(Work.Curves, 3, 2);
    Work.Profile.ZoomY = 4;
    double zoom_of_curves = 0;
    Test.Display.OnShowCurves = [&] {
        zoom_of_curves = Work.Curves.ZoomX;
        Work.Mode.Display(DisplayMode::Dromo);
        Work.Curves.FrameDrawn = 1;
    };
    const int clears = Drawing().Clears;
    Show_Combined(Work, Test.Ports);
    EXPECT_EQ(Test.Display.Count("Show_Curves"), 1);
    EXPECT_EQ(zoom_of_curves, 1);
    EXPECT_EQ(Work.Profile.ZoomY, 1);
    EXPECT_EQ(Drawing().Of(Verb::Arc).size(), 1U) << "drawn with ABC and GRM depths";
    EXPECT_EQ(Drawing().Clears, clears + 1) << "no letters of before stay at the margins";
    EXPECT_EQ(Work.Mode.Current(), DisplayMode::Both);
    EXPECT_EQ(Work.Curves.FrameDrawn, 2);
}

TEST_F(ProfileTest, TellsDistanceAndElevationUnderThePointer) {
    Give_Layers(2, {95, 0, 0, 0});
    Draw();  // vertical factor 2
    Show_Profile_Readout(Work, Test.Ports, 85.6, 80);
    EXPECT_EQ(Work.Fields.ProfileReadout, "X=76m Z=100m");
    Show_Profile_Readout(Work, Test.Ports, 1e6, 80);
    EXPECT_EQ(Work.Fields.ProfileReadout, "X=76m Z=100m");
}

}  // namespace
}  // namespace tarnvik::test
