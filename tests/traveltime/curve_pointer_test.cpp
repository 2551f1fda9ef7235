#include "traveltime/curve_pointer.h"

#include <gtest/gtest.h>

#include "traveltime/line_of_shots.h"
#include "traveltime/move_pick.h"
#include "traveltime/rubber_band.h"
#include "traveltime/velocity_ruler.h"

using namespace tarnvik;
using namespace tarnvik::test;

namespace {

PointerEvent At(double x, double y) {
    return {x, y, true, false};
}

/// 25 receivers every 4 m over 96 m: one metre is one unit; latest pick 80 ms, 1 ms per unit.
struct Pointed : LineOfShots {
    Pointed() : LineOfShots(2, 25, 4) {
        Work.Project.ShotTimes(1, 25) = 80;
        Draw();
    }
    CurveView& View() { return Work.Curves; }
    std::string Text() const { return Work.Fields.Text1; }
    std::vector<Drawn> Xor_Lines() {
        std::vector<Drawn> found;
        for (const Drawn& drawn : Dromo().Of(Drawn::Verb::Line)) {
            if (drawn.Mode == DrawMode::Xor) found.push_back(drawn);
        }
        return found;
    }
    /// Lines drawn an odd number of times in XOR: what stands on the picture.
    std::vector<Drawn> Standing() {
        std::vector<Drawn> standing;
        for (const Drawn& line : Xor_Lines()) {
            const auto same = [&line](const Drawn& d) {
                return d.X1 == line.X1 && d.Y1 == line.Y1 && d.X2 == line.X2 && d.Y2 == line.Y2 &&
                       d.InColour == line.InColour;
            };
            if (std::erase_if(standing, same) == 0) standing.push_back(line);
        }
        return standing;
    }
    CurvePointer Pointer{Work, Ports};
};

struct CountingHandler : CurvePointerHandler {
    void Press(const PointerEvent&) override { ++Presses; }
    void Move(const PointerEvent&) override { throw Fault("not to be computed"); }
    int Presses = 0;
};

}  // namespace

TEST(CurvePointer, PressMoveAndReleaseReadTheReceiverDifferently) {
    Pointed line;
    line.Pointer.Press(At(48.329, 30.9));
    EXPECT_EQ(line.View().MouseReceiver, 13);
    EXPECT_EQ(line.View().MouseDistance, 48.32);
    EXPECT_EQ(line.View().MouseTime, 30);
    EXPECT_EQ(line.Text(), "30ms Coord= 48.32m");
    line.Pointer.Move({48.329, 30.9});
    EXPECT_EQ(line.View().MouseReceiver, 14);
    EXPECT_EQ(line.Text(), "30ms Coord= 48.32m Geo=14");
    line.Pointer.Press(At(0.5, -4));
    EXPECT_EQ(line.View().MouseReceiver, 0);
    EXPECT_EQ(line.View().MouseTime, 0);
    line.Pointer.Release(At(-3, 140));
    EXPECT_EQ(line.View().MouseReceiver, 1);
    EXPECT_EQ(line.View().MouseDistance, 0);
    EXPECT_EQ(line.View().MouseTime, 100);
    line.Pointer.Release(At(200, 0));
    EXPECT_EQ(line.View().MouseReceiver, 25);
    EXPECT_EQ(line.View().MouseDistance, 96);
}

TEST(CurvePointer, PickFactorDiffersFromTheGridAtFiftyAndByMode) {
    Pointed line;
    line.Work.Project.ShotTimes(1, 25) = 50;
    line.Draw();
    EXPECT_EQ(line.View().TimeFactor, 1);
    for (const auto& [mode, factor] :
         std::initializer_list<std::pair<DisplayMode, double>>{{DisplayMode::Dromo, 0.5},
                                                               {DisplayMode::Calcul, 0.5},
                                                               {DisplayMode::Abc, 1},
                                                               {DisplayMode::Fantom, 1},
                                                               {DisplayMode::Profil2, 1},
                                                               {DisplayMode::Both, 0.5}}) {
        line.Work.Mode.Display(mode);
        line.Pointer.Move({10, 10});
        EXPECT_EQ(line.View().PickFactor, factor) << Word_Of(mode);
    }
    line.View().PickFactor = 7;
    line.Work.Mode.Display(DisplayMode::Quick);
    line.Pointer.Press(At(10, 10));
    EXPECT_EQ(line.View().PickFactor, 7);
}

TEST(CurvePointer, HandsEventsToTheHandlerOfTheMode) {
    Pointed line;
    CountingHandler handler;
    line.Pointer.Register(DisplayMode::Vitesse, &handler);
    line.Pointer.Press(At(10, 10));
    EXPECT_EQ(handler.Presses, 0);
    line.Work.Mode.Display(DisplayMode::Vitesse);
    line.Pointer.Press(At(10, 10));
    line.Pointer.Move(At(11, 10));  // its fault stays inside
    EXPECT_EQ(handler.Presses, 1);
    line.Work.Mode.Display(DisplayMode::Dromo);
    line.Pointer.Press(At(10, 10));
    EXPECT_EQ(handler.Presses, 1);
}

TEST(CurvePointer, NothingReactsWithoutAProject) {
    LineOfShots none(0, 0);
    CurvePointer pointer(none.Work, none.Ports);
    for (const int receivers : {0, -4, 30000}) {
        none.Work.Project.NbReceivers = static_cast<std::int16_t>(receivers);
        pointer.Press(At(10, 10));
        pointer.Move(At(20, 20));
        pointer.Release(At(20, 20));
        pointer.Double_Click(At(20, 20));
        pointer.Key(33);
        EXPECT_EQ(none.Work.Curves.DragStartX, 0);
    }
}

TEST(RubberBand, FixedBandStandsForGood) {
    Pointed line;
    RubberBand band(line.Work, line.Ports);
    line.View().DownX = 10;
    line.View().DownY = 20;
    band.Start(At(10, 20));
    band.Update(At(50, 40));
    band.End(At(50, 40), true);
    EXPECT_TRUE(line.Standing().empty());
    const Drawn last = line.Dromo().Of(Drawn::Verb::Line).back();
    EXPECT_EQ(last.Mode, DrawMode::Copy);
    EXPECT_EQ(last.X2, 50);
    band.Start(At(0.4, 20));  // rounds to 0, which means none
    EXPECT_FALSE(band.Is_Open());
}

TEST(RubberBand, VelocityIsCutDownToAWholeNumber) {
    EXPECT_EQ(Band_Velocity(10, 20, 50.6, 40), 2030);
    EXPECT_EQ(Band_Velocity(50, 40, 10, 19), 1904);
    EXPECT_FALSE(Band_Velocity(10, 20, 50, 20));
}

TEST(VelocityRuler, KeysMoveTheLastBand) {
    Pointed line;
    line.Pointer.Press(At(10, 20));
    line.Pointer.Move(At(50, 40));
    line.Pointer.Release(At(50, 40));
    const auto key = [&line](int code) {
        line.Pointer.Key(code);
        EXPECT_EQ(line.Standing().size(), 1U) << code;
        return line.Standing().at(0);
    };
    EXPECT_EQ(key(38).Y1, 20.5);
    EXPECT_EQ(line.Standing()[0].InColour, colours::Yellow);
    EXPECT_EQ(line.Text(), "Velocity= 2 m/s");  // time in ms, not turned into seconds
    EXPECT_EQ(key(107).Y1, 20.5);
    EXPECT_EQ(key(107).Y1, 20.5);
    EXPECT_EQ(line.View().RulerStep, 4);
    EXPECT_EQ(key(40).Y2, 38.5);
    EXPECT_EQ(key(39).X1, 12);
    EXPECT_EQ(key(37).X2, 50);
    EXPECT_EQ(key(33).Y2, 42.5);
    EXPECT_EQ(key(34).Y2, 38.5);
    for (int i = 0; i < 5; ++i)
        key(109);
    EXPECT_EQ(line.View().RulerStep, 1);
    line.Pointer.Key(65);
    line.Work.Mode.Display(DisplayMode::Calcul);
    line.Pointer.Key(38);
    EXPECT_EQ(line.View().RulerY, -1.5);
}

TEST(VelocityRuler, CrossFollowsThePointer) {
    Pointed line;
    Velocity_Ruler(line.Work, line.Ports);
    EXPECT_TRUE(line.Display.Is_Open(Dialog::vELINE));
    line.Pointer.Move({10, 10});
    EXPECT_TRUE(line.Xor_Lines().empty());
    line.View().CrossVelocity1 = 1000;
    line.View().CrossVelocity2 = 2000;
    line.Pointer.Move({10, 10});
    line.Pointer.Move({40, 20});
    const auto lines = line.Standing();
    ASSERT_EQ(lines.size(), 3U);
    // A quarter of the 96 units in sight is 24 m: 24 ms and 12 ms.
    EXPECT_EQ(lines[0].X2, 16);
    EXPECT_EQ(lines[0].Y2, 44);
    EXPECT_EQ(lines[1].X2, 64);
    EXPECT_EQ(lines[1].Y2, 32);
    EXPECT_EQ(lines[2].InColour, colours::White);
    Velocity_Ruler(line.Work, line.Ports);
    EXPECT_FALSE(line.Display.Is_Open(Dialog::vELINE));
}

TEST(MovePick, CatchesTheNearestPickInReach) {
    Pointed line;
    Project& project = line.Work.Project;
    project.ShotTimes(1, 13) = 30;
    project.ShotTimes(2, 13) = 32;
    EXPECT_EQ(Pick_Near(project, 48, 31), (PickPlace{2, 13})) << "of two as near the last";
    EXPECT_EQ(Pick_Near(project, 48, 30.9), (PickPlace{1, 13}));
    EXPECT_EQ(Pick_Near(project, 48, 31.1), (PickPlace{2, 13}));
    project.ShotTimes(1, 14) = 31;  // 52 m along the line
    EXPECT_EQ(Pick_Near(project, 49.7, 31), (PickPlace{2, 13}));
    EXPECT_EQ(Pick_Near(project, 50.1, 31), (PickPlace{1, 14}));
    project.ShotTimes(1, 14) = 0;
    EXPECT_FALSE(Pick_Near(project, 48, 35));  // strictly within 3 ms
    EXPECT_FALSE(Pick_Near(project, 45, 31));  // strictly within 3 m
    EXPECT_TRUE(Pick_Near(project, 45.01, 31));
    EXPECT_FALSE(Pick_Near(project, 48, 27));
    EXPECT_TRUE(Pick_Near(project, 48, 27.01));
    EXPECT_FALSE(Pick_Near(project, 48, 1).has_value()) << "a receiver without a pick is none";
    project.ShotTimes(2, 20) = -2;
    EXPECT_FALSE(Pick_Near(project, 76, -1)) << "nor is a time below 0";
}

TEST(MovePick, TheCaughtPickIsLitUntilItHasItsPlace) {
    Pointed line;
    line.Work.Project.ShotTimes(2, 13) = 32;
    line.Draw();
    const auto ring = [&line] {
        std::vector<Drawn> rings;
        for (const Drawn& circle : line.Dromo().Of(Drawn::Verb::Circle, colours::Red)) {
            if (circle.Width == 2) rings.push_back(circle);
        }
        return rings;
    };
    line.Pointer.Double_Click(At(48, 32));
    ASSERT_EQ(ring().size(), 1U);
    EXPECT_EQ(ring()[0].X1, 48);
    EXPECT_EQ(ring()[0].Y1, 32);
    line.Draw();  // enlarged or scrolled meanwhile
    EXPECT_EQ(ring().size(), 1U);
    line.Dromo().List.clear();
    line.Pointer.Press(At(48, 32));
    line.Pointer.Release(At(48, 40));
    EXPECT_TRUE(ring().empty());
    EXPECT_EQ(line.Work.Edits.Undo_Name(), "Move pick of shot 2, receiver 13");
}

TEST(MovePick, MovesOrDeletesBetweenPressAndRelease) {
    struct Case {
        bool SamePlace;
        Answer Reply;
        float Time;
        const char* Cell;
    };
    for (const Case& c : {Case{false, Answer::No, 45.25F, "45.25"}, Case{true, Answer::Yes, 0, "0.00"},
                          Case{true, Answer::No, 31.5F, "31.50"}, Case{true, Answer::Cancel, 32, ""}}) {
        Pointed line;
        int saved = 0;
        line.Pointer.Pick_In_Hand().Save = [&saved] { ++saved; };
        line.Work.Grids.Buildgrid.Resize(30, 6);
        line.Work.Project.ShotTimes(2, 13) = 32;
        // The events of a double click as a window sends them.
        line.Pointer.Press(At(48, 31.5));
        line.Pointer.Release(At(48, 31.5));
        line.Pointer.Double_Click(At(48, 31.5));
        line.Pointer.Release(At(48, 31.5));
        EXPECT_EQ(line.View().PickMoving, 1);
        EXPECT_EQ(line.Dromo().Pointer, PointerShape::PickMove);
        if (c.SamePlace) line.Prompts.Expect("Delete geophone 13 of shot 2", c.Reply);
        line.Pointer.Press(At(48, 31.5));
        line.Pointer.Move(At(49, 45));
        line.Pointer.Release(c.SamePlace ? At(48, 31.5) : At(49, 45.25));
        EXPECT_EQ(line.Work.Project.ShotTimes(2, 13), c.Time);
        EXPECT_EQ(line.Work.Grids.Buildgrid.Text(13, 2), c.Cell);
        EXPECT_EQ(saved, c.Reply == Answer::Cancel ? 0 : 1);
        EXPECT_EQ(line.View().PickMoving, 0);
        EXPECT_EQ(line.Dromo().Clips.size(), c.Reply == Answer::Cancel ? 1U : 0U)
            << "a pick that moved is drawn by the notice of its edit";
        EXPECT_FALSE(line.Dromo().Clipped);
        EXPECT_TRUE(line.Xor_Lines().empty()) << "no band while a pick is in hand";
    }
}

TEST(MovePick, SurvivesAnotherProjectInBetween) {
    Pointed line;
    line.Work.Project.ShotTimes(2, 13) = 32;
    line.Pointer.Double_Click(At(48, 32));
    line.Work.Project.NbShots = 1;
    Redimension_Project(line.Work.Project);
    line.Pointer.Press(At(48, 40));
    line.Pointer.Release(At(48, 41));
    EXPECT_EQ(line.View().PickMoving, 0);
    EXPECT_EQ(line.Work.Project.ShotTimes(1, 13), 0);
}
