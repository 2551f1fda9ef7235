#include "traveltime/curves.h"

#include <gtest/gtest.h>

#include "core/files.h"
#include "core/project_file.h"
#include "support/small_project.h"
#include "traveltime/curve_drawing.h"
#include "traveltime/line_of_shots.h"
#include "traveltime/shot_grid.h"

using namespace tarnvik;
using namespace tarnvik::test;

namespace {

constexpr Colour ink = 4711;

/// Four receivers at 0, 32, 64 and 96 of the picture, 1 ms per unit.
struct Curves : LineOfShots {
    Curves() : LineOfShots(2, 4, 10) { Pick(2, {60, 0, 0, 0}); }
};

std::vector<Colour> Colours_Of(int shots, Colour before) {
    Project project;
    project.NbShots = static_cast<std::int16_t>(shots);
    std::vector<Colour> found;
    for (int shot = 1; shot <= shots; ++shot) {
        Couleur_Tir(project, shot, before);
        found.push_back(before);
    }
    return found;
}

constexpr Colour B = colours::Blue, R = colours::Red, G = colours::Green, M = colours::Magenta,
                 N = colours::Brown;

}  // namespace

TEST(CurveColours, LaterPlacesOverrideEarlierOnes) {
    EXPECT_EQ(Colours_Of(1, 0), (std::vector<Colour>{R}));
    EXPECT_EQ(Colours_Of(2, 0), (std::vector<Colour>{R, R}));
    EXPECT_EQ(Colours_Of(5, 0), (std::vector<Colour>{G, M, R, M, G}));
    EXPECT_EQ(Colours_Of(7, 0), (std::vector<Colour>{B, R, G, R, G, R, B}));
    EXPECT_EQ(Colours_Of(11, 0), (std::vector<Colour>{B, R, G, M, G, R, G, M, G, R, B}));
    EXPECT_EQ(Colours_Of(12, 0), (std::vector<Colour>{B, R, G, M, N, B, R, G, M, N, B, R}));
    // A shot that no rule names keeps the colour of the curve before it.
    Project project;
    project.NbShots = 3;
    Colour held = ink;
    Couleur_Tir(project, 20, held);
    EXPECT_EQ(held, ink);
}

TEST(CurveColours, VelocityClassesTakeTheirLowerLimit) {
    Settings settings;
    settings.ColorLimits = {500, 1000, 2000, 3000, 4000};
    settings.ClassColor = {1, 2, 3, 4, 5, 6};
    for (const auto& [velocity, colour] : std::initializer_list<std::pair<double, Colour>>{
             {0, 1}, {499.9, 1}, {500, 2}, {-500, 2}, {1999, 3}, {2000, 4}, {3999, 5}, {4000, 6}, {1e9, 6}})
        EXPECT_EQ(Couleur_Vitesse(settings, velocity), colour) << velocity;
}

TEST(Curves, RisesFromAShotAtTheFirstReceiverAndJoinsAcrossAGap) {
    Curves line;
    line.Pick(1, {5, 0, 40, 55});
    line.Work.Curves.ZoomX = 3;
    line.Draw_Shot(1, ink);
    const RecordingPicture& dromo = line.Dromo();
    EXPECT_TRUE(dromo.Has_Line(0, 0, 0, 5, ink));
    EXPECT_TRUE(dromo.Has_Line(0, 5, 64, 40, ink));
    EXPECT_TRUE(dromo.Has_Line(64, 40, 96, 55, ink));
    EXPECT_EQ(dromo.Of(Drawn::Verb::Line, ink).size(), 3U);
    const auto points = dromo.Of(Drawn::Verb::Circle, ink);
    ASSERT_EQ(points.size(), 3U);
    EXPECT_NEAR(points[0].Radius, 0.1, 1e-9);
    ASSERT_NE(dromo.Printed("1"), nullptr);
    EXPECT_EQ(dromo.Printed("1")->X1, 0);
    EXPECT_EQ(dromo.Printed("1")->Y1, 4);
    EXPECT_EQ(dromo.Printed("1")->FontSize, 9);
}

TEST(Curves, ComesDownToAShotAtTheLastReceiverAndIsNumberedThere) {
    Curves line;
    line.Pick(2, {60, 40, 20, 0});
    line.Draw_Shot(2, ink);
    EXPECT_TRUE(line.Dromo().Has_Line(64, 20, 96, 0, ink));
    ASSERT_NE(line.Dromo().Printed("2"), nullptr);
    EXPECT_NEAR(line.Dromo().Printed("2")->X1, 94.5, 1e-9);
    EXPECT_NEAR(line.Dromo().Printed("2")->Y1, 4, 1e-9);
}

TEST(Curves, DipsToAShotBetweenTwoReceivers) {
    struct Case {
        std::initializer_list<float> Times;
        std::vector<std::array<double, 4>> Lines;
    };
    const std::array<double, 4> mark = {48, 100, 48, 0};
    const Case cases[] = {
        {{50, 20, 10, 30}, {{32, 20, 48, 0}, mark, {48, 0, 64, 10}, {64, 10, 96, 30}}},
        {{50, 0, 0, 30}, {{0, 50, 48, 0}, mark, {48, 0, 96, 30}}},
        {{0, 0, 10, 30}, {mark, {48, 0, 64, 10}, {64, 10, 96, 30}}},
    };
    for (const Case& c : cases) {
        Curves line;
        line.Work.Project.ShotDistance(1) = 15;
        line.Pick(1, c.Times);
        line.Draw_Shot(1, ink);
        for (const auto& l : c.Lines)
            EXPECT_TRUE(line.Dromo().Has_Line(l[0], l[1], l[2], l[3], ink)) << l[0] << ' ' << l[2];
        EXPECT_FALSE(line.Dromo().Has_Line(0, 0, 48, 0, ink));
        ASSERT_NE(line.Dromo().Printed("1"), nullptr);
        EXPECT_NEAR(line.Dromo().Printed("1")->X1, 47, 1e-9);
    }
}

TEST(Curves, OffsetShotIsNumberedBesideItsLastPointInDromoModeOnly) {
    Curves line;
    line.Work.Project.ShotDistance(1) = -20;
    line.Pick(1, {30, 40, 50, 55});
    line.Work.Mode.Display(DisplayMode::Fantom);
    line.Draw_Shot(1, ink);
    EXPECT_EQ(line.Dromo().Printed("1"), nullptr);
    line.Draw();
    ASSERT_NE(line.Dromo().Printed("1"), nullptr);
    EXPECT_NEAR(line.Dromo().Printed("1")->X1, 94.5, 1e-9);
    EXPECT_NEAR(line.Dromo().Printed("1")->Y1, 59, 1e-9);
    line.Dromo().List.clear();
    line.Draw();
    EXPECT_NE(line.Dromo().Printed("1"), nullptr) << "the number is back after every redraw";
    EXPECT_NE(line.Dromo().Printed("2"), nullptr);
}

TEST(Curves, ShiftKeepsAPickOnTheAxisAndInventsNone) {
    Curves line;
    line.Pick(1, {5, 0, 40, 50});
    line.Draw_Shot(1, ink, 10);
    const auto down = line.Dromo().Of(Drawn::Verb::Circle, ink);
    ASSERT_EQ(down.size(), 3U);
    EXPECT_EQ(down[0].Y1, 0.5);
    EXPECT_EQ(down[1].Y1, 30);
    line.Draw_Shot(1, ink, -10);
    EXPECT_EQ(line.Dromo().Of(Drawn::Verb::Circle, ink).size(), 3U);
}

TEST(Curves, SegmentsTakeTheColourOfTheirVelocity) {
    Curves line;
    line.Work.Settings.ColorChoice = true;
    line.Work.Settings.ColorLimits = {400, 600, 1500, 5000, 9000};
    line.Work.Settings.ClassColor = {1, 2, 3, 4, 5, 6};
    line.Pick(1, {1, 21, 41, 41});  // at the shot, 500, 500 and no delay: 10000
    line.Draw_Shot(1, ink);
    std::vector<Colour> drawn;
    for (const Drawn& segment : line.Dromo().Of(Drawn::Verb::Line))
        drawn.push_back(segment.InColour);
    EXPECT_EQ(drawn, (std::vector<Colour>{1, 2, 2, 6}));

    // Across two receivers without a pick, 30 m in 30 ms.
    line.Pick(1, {1, 0, 0, 31});
    line.Draw_Shot(1, ink);
    EXPECT_EQ(line.Dromo().Of(Drawn::Verb::Line).back().InColour, 3);

    // Both legs at a shot between receivers: 10 m in 2 + 3 ms.
    line.Work.Project.ShotDistance(1) = 15;
    line.Pick(1, {22, 2, 3, 23});
    line.Draw_Shot(1, ink);
    EXPECT_TRUE(line.Dromo().Has_Line(32, 2, 48, 0, 4));
    EXPECT_TRUE(line.Dromo().Has_Line(48, 0, 64, 3, 4));
}

TEST(Curves, RefusesWrongShotsAndTellsAFaultOnce) {
    LineOfShots line(12, 4);
    for (const int shot : {0, 13, -1})
        line.Draw_Shot(shot, ink);
    ASSERT_EQ(line.Prompts.Messages.size(), 3U);
    EXPECT_EQ(line.Prompts.Messages[0].Text, "Wrong Shot number");
    EXPECT_EQ(line.Prompts.Messages[0].WithIcon, Icon::Critical);
    line.Prompts.Messages.clear();
    line.Work.Project.LineLength = 0;
    line.Draw();
    ASSERT_EQ(line.Prompts.Messages.size(), 1U);
    EXPECT_EQ(line.Prompts.Last_Text(), "TV5 File  error");

    LineOfShots none(12, 4);
    none.Work.Project.CurrentFile = "*.tv5";
    Erase_Project(none.Work.Project);
    none.Draw();
    EXPECT_TRUE(none.Prompts.Messages.empty());
    LineOfShots empty(0, 0);
    empty.Draw();
    EXPECT_TRUE(empty.Prompts.Messages.empty());
}

TEST(Curves, RedrawEndsEveryBandAndPutsTheCurvesOnDisplay) {
    Curves line;
    line.Work.Mode.Display(DisplayMode::Profil);
    line.Work.Mode.Take(Dialog::Fcalcul, DisplayMode::Calcul);
    line.Work.Curves.FrameDrawn = 2;
    line.Work.Curves.DragStartX = 30;
    line.Work.Curves.Band.Stands = true;
    line.Draw();
    EXPECT_EQ(line.Work.Mode.On_Display(), DisplayMode::Dromo);
    EXPECT_EQ(line.Work.Mode.Current(), DisplayMode::Calcul) << "the dialog keeps the picture";
    EXPECT_EQ(line.Work.Curves.FrameDrawn, 1);
    EXPECT_EQ(line.Work.Curves.DragStartX, 0);
    EXPECT_FALSE(line.Work.Curves.Band.Stands);
    EXPECT_EQ(line.Dromo().Pointer, PointerShape::Cross);
    EXPECT_EQ(line.Display.Calls, (std::vector<std::string>{"Show_Grids"}));
}

TEST(ShotGrid, RedShotIsLeftOutUnlessAllAreAskedFor) {
    Curves line;
    line.Pick(1, {1, 2, 3, 4});
    line.Draw();
    line.Work.Fields.Check11 = false;
    Toggle_Shot(line.Work, line.Ports, 1);
    Toggle_Shot(line.Work, line.Ports, 3);
    line.Draw();
    EXPECT_EQ(line.Dromo().Of(Drawn::Verb::Circle).size(), 1U);  // the pick of shot 2
    EXPECT_EQ(line.Work.Grids.Grille_Shot.Rows(), 2);
    line.Work.Fields.Check11 = true;
    line.Draw();
    EXPECT_EQ(line.Dromo().Of(Drawn::Verb::Circle).size(), 5U);
    line.Work.Fields.Check11 = false;
    Toggle_Shot(line.Work, line.Ports, 1);
    line.Draw();
    EXPECT_EQ(line.Dromo().Of(Drawn::Verb::Circle).size(), 5U);
}

TEST(Curves, SecondWindowAndPaperShowTheSamePicture) {
    LineOfShots line(3, 24);
    line.Work.Project.ShotDistance(3) = line.Work.Project.LineLength + 20;
    for (int s = 1; s <= 3; ++s)
        line.Pick(s, {30, 25, 20, 15, 10, 5, 5, 10});
    line.Work.Curves.DoubleView = 1;
    line.Draw();
    RecordingPicture paper, across, beside;
    line.Work.Mode.Display(DisplayMode::Calcul);
    EXPECT_TRUE(Draw_Curves_On(line.Work, {paper, &across, &beside}));
    EXPECT_EQ(line.Work.Mode.Current(), DisplayMode::Calcul);
    EXPECT_EQ(across.Texts(), line.Of(Canvas::EchelleX).Texts());
    EXPECT_EQ(beside.Texts(), line.Of(Canvas::EchelleY).Texts());
    for (const RecordingPicture* other : {&paper, &line.Of(Canvas::Dromo2)}) {
        ASSERT_EQ(other->List.size(), line.Dromo().List.size());
        for (std::size_t i = 0; i < other->List.size(); ++i) {
            const Drawn &a = other->List[i], &b = line.Dromo().List[i];
            EXPECT_TRUE(a.What == b.What && a.X1 == b.X1 && a.Y2 == b.Y2 && a.InColour == b.InColour &&
                        a.Text == b.Text);
        }
    }
}

TEST(Curves, SuperposedProjectSpansTheFrameByItsOwnLength) {
    Curves line;
    line.Draw();
    Project other = LineOfShots(1, 3, 50).Work.Project;
    other.ShotTimes(1, 2) = 30;
    line.Dromo().List.clear();
    Superpose(line.Work, line.Ports, other);
    const auto points = line.Dromo().Of(Drawn::Verb::Circle);
    ASSERT_EQ(points.size(), 1U);
    EXPECT_NEAR(points[0].X1, 48, 1e-9);
    EXPECT_NEAR(points[0].Y1, 30, 1e-9);
    other.LineLength = 0;
    Superpose(line.Work, line.Ports, other);
    EXPECT_EQ(line.Prompts.Last_Text(), "TV5 File  error");
}

TEST(Curves, OnlyAShotBeforeTheFirstReceiverHasAStrokeFromTheOrigin) {
    const struct {
        double Shot;
        bool LeadIn;
        bool Stroke;
    } cases[] = {{0, false, true},   {4, false, true},    {5, false, true},   {-20, false, false},
                 {40, false, false}, {-20, true, true},   {12, false, false}, {12, true, true},
                 {45, false, false}, {-0.1, false, false}};
    for (const auto& c : cases) {
        Curves line;
        // Receivers at 5, 15, 25, 35; the first pick is that of receiver 3.
        for (int r = 1; r <= 4; ++r)
            line.Work.Project.ReceiverData(ReceiverDistance, r) = static_cast<float>(10 * r - 5);
        line.Work.Project.LineLength = 40;
        line.Work.Project.ShotDistance(1) = c.Shot;
        line.Work.Curves.LeadInStrokes = c.LeadIn;
        line.Pick(1, {0, 0, 20, 30});
        line.Draw();
        line.Dromo().List.clear();
        line.Draw_Shot(1, ink);
        const bool between = c.Shot == 12;  // its curve comes from the shot itself
        EXPECT_EQ(line.Dromo().Has_Line(0, 0, 60, 20, ink), c.Stroke && !between) << c.Shot;
        EXPECT_TRUE(line.Dromo().Has_Line(60, 20, 84, 30, ink)) << c.Shot;
    }
}

TEST(Curves, ATimeBelowZeroIsNoPick) {
    for (const bool by_velocity : {false, true}) {
        Curves line;
        line.Work.Settings.ColorChoice = by_velocity;
        line.Pick(2, {60, -5, 40, 20});
        line.Draw();
        const auto drawn = line.Dromo().Texts();
        const auto lines = line.Dromo().Of(Drawn::Verb::Line).size();
        const auto points = line.Dromo().Of(Drawn::Verb::Circle).size();
        EXPECT_EQ(points, 3U);
        line.Work.Project.ShotTimes(2, 2) = 0;
        line.Draw();
        EXPECT_EQ(line.Dromo().Texts(), drawn);
        EXPECT_EQ(line.Dromo().Of(Drawn::Verb::Line).size(), lines);
        line.Work.Project.ShotTimes(2, 2) = -5;
        line.Draw_Shot(2, ink, 10);
        EXPECT_EQ(line.Dromo().Of(Drawn::Verb::Circle).size(), 3U) << "nor with a shift";
    }
}

TEST(Curves, ARedrawReadsNoFile) {
    TemporaryFolder folder;
    ASSERT_EQ(Replace_File(folder / "line.tv5", Plain_File()), "");
    LineOfShots line(0, 0);
    line.Work.Project.CurrentFile = folder / "line.tv5";
    line.Draw();
    EXPECT_EQ(line.Work.Project.NbShots, 0);
}

TEST(Curves, AChangedPickIsRedrawnInItsStrip) {
    LineOfShots line(3, 24, 10);  // 230 m: 10 m are 4.17 units
    for (int s = 1; s <= 3; ++s) {
        for (int r = 1; r <= 24; ++r)
            line.Work.Project.ShotTimes(s, r) = static_cast<float>(20 + 3 * std::abs(r - 12 * s + 12));
    }
    line.Draw();
    const auto all = line.Dromo().Of(Drawn::Verb::Circle).size();
    ASSERT_EQ(all, 72U);
    line.Dromo().List.clear();
    line.Work.Project.ShotTimes(2, 10) = 33;
    const PickPlace pick{2, 10};
    Refresh_Curves(line.Work, line.Ports, std::span(&pick, 1));
    ASSERT_EQ(line.Dromo().Clips.size(), 1U);
    EXPECT_LT(line.Dromo().Of(Drawn::Verb::Circle).size(), 40U) << "far picks are left alone";
    EXPECT_FALSE(line.Dromo().Clipped);
    EXPECT_EQ(line.Display.Count("Show_Curves"), 0);

    // Another time scale, a dialog's drawing or a picture of something else take another road.
    line.Work.Project.ShotTimes(2, 10) = 140;
    Refresh_Curves(line.Work, line.Ports, std::span(&pick, 1));
    EXPECT_EQ(line.Display.Count("Show_Curves"), 1);
    line.Work.Project.ShotTimes(2, 10) = 33;
    line.Work.Mode.Take(Dialog::SpeedF, DisplayMode::Vitesse);
    Refresh_Curves(line.Work, line.Ports, std::span(&pick, 1));
    EXPECT_EQ(line.Display.Count("Show_Curves"), 2);
    line.Work.Mode.Release(Dialog::SpeedF);
    line.Work.Mode.Display(DisplayMode::Profil);
    Refresh_Curves(line.Work, line.Ports, std::span(&pick, 1));
    line.Work.Mode.Display(DisplayMode::Dromo);
    line.Work.Curves.FrameDrawn = 0;
    Refresh_Curves(line.Work, line.Ports, std::span(&pick, 1));
    EXPECT_EQ(line.Display.Count("Show_Curves"), 2);
    EXPECT_EQ(line.Dromo().Clips.size(), 1U);
}
