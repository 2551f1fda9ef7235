#include "traveltime/speed_f2.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include "core/text/number.h"
#include "support/earth_line.h"
#include "support/test_ports.h"
#include "traveltime/curves.h"

namespace tarnvik {

namespace {

using test::Drawn;

/// 24 receivers at 0, 5 ... 115 over 6 m of 500 on 2000; shots before the line, at its ends, behind it.
struct TrueVelocity : testing::Test {
    TrueVelocity() {
        test::Lay_Two_Layers(Work, {-40, 0, 115, 150});
        Files.SaveProject = [this](Workspace&, tarnvik::Ports&) { return ++Saves > 0; };
        World.Display.OnShowCurves = [this] { Show_Curves(Work, World.Ports); };
        Form.emplace(Work, World.Ports, Files);
        Form->Load();
    }
    bool Compute(const char* a, const char* b, const char* from, const char* to) {
        Form->FirstShot = a;
        Form->LastShot = b;
        Form->FirstReceiver = from;
        Form->LastReceiver = to;
        return Form->Command2();
    }

    Workspace Work;
    test::TestPorts World;
    FileRoutines Files;
    int Saves = 0;
    std::optional<SpeedF2> Form;
};

constexpr double radians = std::numbers::pi / 180;

}  // namespace

TEST(DroiteTMoins, GivesTheRefractorsVelocityWhateverItsDip) {
    for (const double dip : {0.0, 2.0, 5.0, 10.0, -5.0}) {
        for (const int layers : {2, 3}) {
            SCOPED_TRACE(CStr(dip) + " degrees, layers: " + CStr(layers));
            const double slope = dip * radians;
            const double deeper = dip < 0 ? 12 : 0;  // nothing comes to the surface
            const LayeredEarth earth(
                layers == 2 ? std::vector<EarthLayer>{{600, 4 + deeper, slope}, {2400, 0, 0}}
                            : std::vector<EarthLayer>{
                                  {600, 3 + deeper, slope}, {1500, 7 + deeper, slope}, {4000, 0, 0}});
            Workspace work;
            test::Lay_Line(work, earth, 48, 2.5, {0, 117.5});
            const test::Branch forward = test::Branch_Of(work.Project, earth, 1, layers, 'B');
            const test::Branch back = test::Branch_Of(work.Project, earth, 2, layers, 'A');
            const int first = std::max(forward.First, back.First);
            const int last = std::min(forward.Last, back.Last);
            ASSERT_GE(last - first, 6);
            DifferenceLine line;
            ASSERT_TRUE(Droite_TMoins(work.Project, {1, 2, first, last, {}}, line));
            // Distances run along the surface and not along the refractor: hence the cosine.
            const double expected = (layers == 2 ? 2400 : 4000) / std::cos(slope);
            EXPECT_NEAR(line.Velocity, expected, 5);
            EXPECT_GT(line.Correlation, 0.99);
            EXPECT_EQ(std::fmod(line.Velocity, 2), 0) << "twice a whole number";
        }
    }
}

TEST_F(TrueVelocity, ShowsVelocityCorrelationAndTheTwoCurvesWithTheLineBetweenThem) {
    EXPECT_EQ(Work.Mode.Current(), DisplayMode::Velocity);
    EXPECT_EQ(Form->FirstShot + Form->LastShot, "23") << "the ends of the line";
    Form->Velocity = "777";
    ASSERT_TRUE(Compute("3", "2", "18", "6"));
    EXPECT_NEAR(Val(Form->Velocity), 2000, 4);
    EXPECT_EQ(Form->Correlation, CStr(Work.Velocity.Correlation));
    const std::string velocity = Form->Velocity;
    ASSERT_TRUE(Compute("2", "3", "6", "18"));
    EXPECT_EQ(Form->Velocity, velocity) << "in either order";

    // Half of the difference changes by 1 ms in 2 m, and is 0 in the middle of the line.
    test::RecordingPicture& dromo = World.Display.Pictures[Canvas::Dromo];
    dromo.List.clear();
    Show_Curves(Work, World.Ports);
    const double rise = (57.5 - 25) / 2 / Work.Curves.TimeFactor;
    EXPECT_TRUE(dromo.Has_Line(25 * 96.0 / 115, 50 - rise, 85 * 96.0 / 115,
                               50 + (85 - 57.5) / 2 / Work.Curves.TimeFactor, colours::Black, 0.02));
    EXPECT_EQ(dromo.Of(Drawn::Verb::Circle, colours::Black).size(), 13U);
    EXPECT_EQ(dromo.Of(Drawn::Verb::Circle, colours::Red).size(), 46U)
        << "of the two shots: no pick at themselves";
    EXPECT_TRUE(dromo.Of(Drawn::Verb::Circle, colours::Blue).empty()) << "no other curve";

    Form->Eliminate = true;
    Form->Eliminated[4] = "7";
    Work.Project.ShotTimes(2, 7) += 30;
    ASSERT_TRUE(Compute("2", "3", "6", "18"));
    EXPECT_NEAR(Val(Form->Velocity), 2000, 4) << "without the receiver that is off";
    Form->Eliminate = false;
    ASSERT_TRUE(Compute("2", "3", "6", "18"));
    EXPECT_GT(std::abs(Val(Form->Velocity) - 2000), 50);
    Form->Close();
    EXPECT_TRUE(Work.Curves.Overlays.empty());
    EXPECT_EQ(Work.Curves.ShotAlone, 0);
    EXPECT_EQ(Work.Mode.Current(), DisplayMode::Dromo);
}

TEST_F(TrueVelocity, TellsWhatIsWrongAndKeepsItsResult) {
    ASSERT_TRUE(Compute("2", "3", "6", "18"));
    const std::string velocity = Form->Velocity;
    for (int receiver = 1; receiver <= 5; ++receiver)
        Work.Project.ShotTimes(2, receiver) = 0;
    Work.Project.ShotTimes(2, 5) = 3;
    const struct {
        const char* A;
        const char* B;
        const char* From;
        const char* To;
        const char* Text;
        Icon WithIcon;
    } cases[] = {
        {"2", "3", "0", "18", "Wrong 1st receiver number", Icon::Critical},
        {"2", "3", "", "99", "Wrong 1st receiver number", Icon::Critical},
        {"2", "3", "6", "25", "Wrong 2nd receiver number", Icon::Critical},
        {"2", "5", "6", "18", "Impossible, wrong Shot number...", Icon::Warning},
        {"3", "3", "6", "18", "Impossible, wrong Shot number...", Icon::Warning},
        {"", "0", "6", "18", "Impossible, wrong Shot number...", Icon::Warning},
        {"x", "3", "6", "18", "Value missing...", Icon::Warning},
        {"2", "3", "6", "6", "Same receiver or Shot, impossible...", Icon::None},
        {"-1", "3", "6", "18", "Calculation not possible", Icon::Critical},
        {"1e9", "3", "6", "18", "Calculation not possible", Icon::Critical},
        {"2", "3", "1", "4", "Impossible calculation...", Icon::Critical},
        {"2", "3", "1", "5", "Impossible calculation...", Icon::Critical},
    };
    for (const auto& c : cases) {
        EXPECT_FALSE(Compute(c.A, c.B, c.From, c.To));
        EXPECT_EQ(World.Prompts.Last_Text(), c.Text);
        EXPECT_EQ(World.Prompts.Messages.back().WithIcon, c.WithIcon) << c.Text;
        EXPECT_EQ(Form->Velocity, velocity);
    }
    EXPECT_EQ(World.Prompts.Messages.size(), std::size(cases));
}

TEST_F(TrueVelocity, IsRecordedForTheShotsOfTheRangeThatStandOnTheLine) {
    const auto refused = [&](const char* text) {
        EXPECT_FALSE(Form->Command3());
        EXPECT_EQ(World.Prompts.Last_Text(), text);
        EXPECT_EQ(Saves, 0);
        EXPECT_EQ(Work.Edits.All().size(), 0U);
    };
    refused("You must 1st calcul true Velocity");
    Form->Velocity = "2001.9";
    Form->RecordFrom = "4";
    Form->RecordTo = "5";
    refused("Too many Layers...");
    Form->RecordTo = "4";
    refused("Impossible, wrong Shot number...");
    Form->RecordTo = "1";
    Form->Velocity = "40000";
    refused("Calculation not possible");
    Form->Velocity = "2001.9";
    Form->Layer = "6";
    refused("Layer number missing...");

    ASSERT_TRUE([&] {
        Form->Layer.clear();
        World.Prompts.Expect_Input("Value missing, please enter Layer number", "3");
        return Form->Command3();
    }());
    for (int shot = 1; shot <= 4; ++shot) {
        const int expected = shot == 2 || shot == 3 ? 2001 : 0;
        EXPECT_EQ(Work.Project.VelocityA(shot, 3), expected) << shot;
        EXPECT_EQ(Work.Project.VelocityB(shot, 3), expected) << shot;
    }
    EXPECT_EQ(Saves, 1);

    Form->RecordFrom.clear();
    Form->RecordTo.clear();
    World.Prompts.Expect_Input("Value missing: Enter 1st Shot number", "3");
    World.Prompts.Expect_Input("Value missing: Enter Last Shot number", "");
    EXPECT_FALSE(Form->Command3()) << "a box that is cancelled ends it";
    EXPECT_EQ(World.Prompts.InputDefaults, (std::vector<std::string>{"2", "1", "4"}));
    EXPECT_EQ(Saves, 1);
}

}  // namespace tarnvik
